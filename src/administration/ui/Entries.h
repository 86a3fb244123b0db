#pragma once

/// How the application opens the screens of this folder. Each waits until its screen is closed.

void ShowBackup();
void ShowRestore();
void ShowImport();
/// Asks for a file and writes all tables there.
void ShowExport();
