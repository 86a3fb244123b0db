#pragma once

#include <QStringList>
#include <QTextStream>

/// The console renderer: a layout and rows in, a file out. Works on streams, so that a test can
/// stand in for the terminal. Needs a QGuiApplication.
namespace report_command {

/// Exit codes.
inline constexpr int Success = 0;
inline constexpr int Failed = 1;     ///< something could not be done; err tells what
inline constexpr int WrongUsage = 2; ///< the command line was not understood

/// Runs one command line; the first argument is the program's name.
int run(const QStringList &arguments, QTextStream &out, QTextStream &err);

} // namespace report_command
