#pragma once

/// Offers the first steps of a new company; comes back when they are done or put off.
void ShowFirstStart();
