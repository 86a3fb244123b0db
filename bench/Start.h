#pragma once

#include <QString>

/// The start of the whole program, in a process of its own.
namespace start {

/// With this argument a measuring program is that process.
inline constexpr const char *childArgument = "--start";

struct Result
{
    double processor = 0; ///< milliseconds up to the first picture of the main window, median
    double clock = 0;
    double engine = 0; ///< for two attachments, in processor time
};

/// Starts the program so many times over a database that somebody else holds, so that the start
/// makes no backup: that is a copy of the file, which takes as long as the disk takes for it.
[[nodiscard]] Result measure(const QString &database, int rounds);

int runChild(int argc, char *argv[]);

} // namespace start
