#pragma once

/// How other screens open the sheets of dates. Each waits until its screen is closed.

/// The inspection dates of machines.
void ShowInspectionDateReading();
/// The dates on which licenses of machines are renewed.
void ShowLicenseDateReading();
