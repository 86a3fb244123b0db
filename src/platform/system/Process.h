#pragma once

#include <QString>

namespace sys {

/// Starts a program and waits, without a time-out, until it has ended; its exit code. The command
/// line holds the program and its arguments, those with blanks in double quotes. Raises base::Error
/// FileNotFound when the program isn't there, InvalidCall when it can't be started or broke down.
int runAndWait(const QString &commandLine);
/// Starts a program that goes on by itself. Raises base::Error like runAndWait.
void startProgram(const QString &commandLine);

} // namespace sys
