#pragma once

#include <QString>

/// Opens a file or an address with the program that the system has for it.
void launchIt(const QString &Path);
/// Starts a program and waits until it has ended, however long that takes.
void RunAndWait(const QString &CommandLine);
/// The system's folder chooser; empty on cancel.
[[nodiscard]] QString BrowseForFolder(const QString &Title);
