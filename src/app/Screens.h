#pragma once

namespace app {

/// Joins every screen of the program to its menu entry, its quick link, or the screen that calls
/// it. Before the main window is made.
void joinScreens();

} // namespace app
