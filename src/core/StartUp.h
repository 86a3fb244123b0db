#pragma once

#include "platform/base/Error.h"
#include "platform/system/OsVersion.h"

#include <QString>
#include <functional>

/// Steps of the start that later folders own; the application registers them. An empty one means
/// that there is nothing to do at its place.
struct StartUpSteps
{
    /// Another instance of the program runs on this computer.
    std::function<bool()> PrevInstance;
    /// Looks for a newer release; True when the installer took over and the process is to end.
    std::function<bool()> CheckForUpdate;
    /// Offers to bring a backup back where the database is missing or is none; True when the start
    /// is to go on with what was brought back. Without it, or on False, the start ends.
    std::function<bool(const base::Error &why)> frmRestore;
    /// Brings the schema up to date, telling the user of a failure; True when the user has to run
    /// the update from the menu.
    std::function<bool(bool ShowFailure)> UpdateDatabase;
    /// Asks for user and password; True when somebody logged in. Without it, security that is
    /// switched on lets nobody in.
    std::function<bool()> frmLogin;
    /// Loads the rights of gsLoginUser.
    std::function<void()> SetUserRole;
    /// Shows the main form, not modally.
    std::function<void()> frmMainScreen;
    /// Ends the process. May come back (in tests); nothing else happens then.
    std::function<void()> End;
    /// Told before End when the program could not start: an error, or another instance runs.
    std::function<void()> Failed;
};

/// The start of the program, step by step. True when the main form was shown and the process is to
/// live on its message loop.
bool Main(const StartUpSteps &Steps);

/// Makes the start-up backup, opens gcnData and gcnLookup, and runs the steps from the migration
/// to the main form. True when the main form was shown; otherwise the process was ended.
bool ConnectToDB(const StartUpSteps &Steps);

/// Copies the database to the backup of this version, "\Data\Backup\Quorvantis231.mdb" for
/// 2.3.1. True also when somebody holds the file, and no copy was made; False after a message.
bool BackupDB();

/// Fills the record of the operating system; returns its name.
QString GetWindowsVersion(sys::OsVersion &Record);

/// Filled after the login, for the error report.
extern sys::OsVersion gWindowsVersion;
