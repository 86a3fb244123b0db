#pragma once

/// Joins the filter screens of reports to the list of what can be opened. Each waits until it is
/// closed.
void joinFilterScreens();
