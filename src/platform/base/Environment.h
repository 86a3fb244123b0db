#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

namespace base {

/// What the program takes from its surroundings: the clock, its folders, the computer's name and
/// the file in the registry's role. A value, so that a test can set one and run beside others.
struct Environment
{
    /// The current wall-clock date and time (see wallClock).
    std::function<QDateTime()> clock;
    /// True when clock is not the system's: the database then takes Now() and the default dates
    /// from it too.
    bool clockIsFixed = false;
    /// The folder that holds Data, Script, Lib, Reports and so on; without a trailing separator.
    QString applicationFolder;
    /// The value of APPDATA: the folder that holds each user's own files.
    QString appData;
    /// The value of ComputerName.
    QString computerName;
    /// Full path of the file in the registry's role.
    QString registryFile;

    /// The surroundings of this process: QUORVANTIS_HOME or, without it, the folder of the
    /// program's file; APPDATA and ComputerName from the environment, with the system's own values
    /// where they are missing; QUORVANTIS_REGISTRY or a file in the user's configuration folder.
    static Environment ofProcess();
};

/// The environment in use. Set once at start, before anything reads it.
const Environment &environment();
void setEnvironment(Environment environment);

/// A date-time of this system. All of them are readings of the wall clock without any zone, and so
/// carry UTC: adding days must never meet a daylight-saving gap, and two of them must compare by
/// what they show.
QDateTime wallClock(QDate date, QTime time = QTime(0, 0));

/// The current date and time, by the environment's clock, without milliseconds.
QDateTime now();
/// Today, by the environment's clock.
QDate today();

/// Joins a stored path, which begins with and is separated by backslashes ("\Data\Backup\"), to the
/// application folder, in the form that this system's files need. A trailing separator stays.
QString applicationPath(const QString &stored);
/// The same under the folder "Quorvantis" of APPDATA; an empty argument gives that folder.
QString appDataPath(const QString &stored = {});

} // namespace base
