#pragma once

#include <QString>

namespace sys {

/// What the error report says about the operating system.
struct OsVersion
{
    int platformId = 0;
    QString name;
    QString version;     ///< major, a point, minor
    QString buildNumber; ///< digits, its low 16 bits; the kernel's version on other systems
    QString servicePack;
};

/// Platform ids of a Windows version query.
inline constexpr int PlatformWin32s = 0;
inline constexpr int PlatformWindows9x = 1;
inline constexpr int PlatformWindowsNT = 2;
/// Not a Windows.
inline constexpr int PlatformOther = 3;

/// The name that goes with a Windows version query's answer; empty for another platform id.
[[nodiscard]] QString windowsName(int platformId, int major, int minor);
/// The system under this program. On a system other than Windows its own name.
[[nodiscard]] OsVersion osVersion();

} // namespace sys
