#include "platform/system/OsVersion.h"

#include <QOperatingSystemVersion>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace sys {

QString windowsName(int platformId, int major, int minor)
{
    switch (platformId) {
    case PlatformWin32s:
        return u"Win32s"_s;
    case PlatformWindows9x:
        return minor == 0 ? u"Windows 95"_s : minor == 90 ? u"Windows ME"_s : u"Windows 98"_s;
    case PlatformWindowsNT:
        if (major == 5 && minor == 0)
            return u"Windows 2000"_s;
        return major == 5 && minor == 1 ? u"Windows XP"_s : u"Windows NT"_s;
    default:
        return {};
    }
}

OsVersion osVersion()
{
    OsVersion result;
    const QOperatingSystemVersion system = QOperatingSystemVersion::current();
    if (system.type() == QOperatingSystemVersion::Windows) {
        result.platformId = PlatformWindowsNT;
        result.name = windowsName(PlatformWindowsNT, system.majorVersion(), system.minorVersion());
        result.version = u"%1.%2"_s.arg(system.majorVersion()).arg(system.minorVersion());
        result.buildNumber = QString::number(system.microVersion() & 0xffff);
        return result;
    }
    result.platformId = PlatformOther;
    result.name = QSysInfo::prettyProductName();
    result.version = QSysInfo::productVersion();
    result.buildNumber = QSysInfo::kernelVersion();
    return result;
}

} // namespace sys
