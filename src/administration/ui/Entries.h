#pragma once

#include "platform/base/Error.h"

/// How the application opens the screens of this folder. Each waits until its screen is closed.

void ShowBackup();
void ShowRestore();
/// At the start: tells what is wrong with the database, and offers to bring a backup back, the
/// newest copy first. True when one was; the connections are open then.
[[nodiscard]] bool offerRestore(const base::Error &why);
void ShowImport();
/// Asks for a file and writes all tables there; how many rows that were is told.
void ShowExport();
