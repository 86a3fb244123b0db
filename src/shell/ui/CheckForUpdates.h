#pragma once

/// Asks the makers' feed for the latest version, tells what it offers and opens the address to get
/// it from; a failure is told in a sentence.
void mnuCheckForUpdates_Click();
