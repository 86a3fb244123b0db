#include "core/StartUp.h"

#include "core/DailyCopies.h"
#include "core/Identifiers.h"
#include "core/Options.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/PreparedName.h"
#include "platform/base/Trapped.h"
#include "platform/db/FileCheck.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Proof.h"
#include "platform/settings/Registry.h"
#include "platform/system/Files.h"

#include <QFile>
#include <QFileInfo>
#include <optional>

using namespace Qt::StringLiterals;

sys::OsVersion gWindowsVersion;

namespace {

QString liveDatabase()
{
    return base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
}

/// Runs a part of the start; the error that stopped it, if any. The report form can't be relied on
/// yet, so these parts tell of their errors in boxes of their own.
std::optional<base::Error> errorOf(const std::function<void()> &part)
{
    try {
        part();
        return std::nullopt;
    } catch (const base::Error &error) {
        return error;
    } catch (const std::exception &error) {
        return base::Error(base::ErrorNumber::InvalidCall, QString::fromUtf8(error.what()));
    }
}

void showFailure(const base::Error &error, const QString &where)
{
    told::critical(error.description() + u'\n' + QString::number(error.number()) + u'\n' + where);
}

void fail(const StartUpSteps &Steps)
{
    if (Steps.Failed)
        Steps.Failed();
}

void end(const StartUpSteps &Steps)
{
    if (Steps.End)
        Steps.End();
}

/// Read past the procedures that report to the form.
QString registryValue(const QString &name)
{
    return settings::registry().value(settings::ProductKey, name);
}

/// What makes a database the program's own, whatever else it holds.
const QByteArrayList ownTables = {"TBLSYSOPTION", "TBLUSER", "TBLEQUIPMENT"};

/// The day's first copy is kept under its date, and old ones go when it stands.
void keepDailyCopy(const QString &proven)
{
    const QString folder = copies::startCopiesFolder();
    const QString daily = folder + u'/' + copies::nameOfDay(base::today());
    if (QFileInfo::exists(daily))
        return;
    // Without the rule nothing goes; the start will say what is wrong with the options.
    std::optional<copies::KeepRule> rule;
    (void)errorOf([&] {
        db::Target target;
        target.file = proven;
        db::Connection connection(target);
        rule = copies::keepRuleOf(connection);
    });
    if (rule && !rule->daily)
        return;
    sys::makeFolder(folder);
    sys::copyFile(proven, daily);
    if (rule)
        copies::prune(folder, base::today(), *rule);
}

/// Puts a copy in the place of the last one when it has been proven: one of a damaged database is
/// worth less than the one that stands there.
void replaceProven(const QString &fresh, const QString &backup)
{
    try {
        (void)db::prove(fresh);
        sys::moveFile(fresh, backup);
    } catch (const db::DbError &error) {
        QFile::remove(fresh);
        throw base::Error(error.number(),
                          u"No backup was made, the last good one stays. "_s + error.description());
    } catch (...) {
        QFile::remove(fresh);
        throw;
    }
}

void copyToBackup()
{
    const QString version = registryValue(u"VERSION"_s).remove(u'.');
    // A file behind a server is always held.
    if (!registryValue(u"HOST"_s).isEmpty())
        throw base::Error(base::ErrorNumber::PermissionDenied, u"Permission denied"_s);
    const QString source = liveDatabase();
    const auto isFree = [&] { return !db::isHeld(source); };
    // A copy taken while somebody writes would be broken: asked before, and again at the end.
    if (QFileInfo::exists(source) && !isFree())
        throw base::Error(base::ErrorNumber::PermissionDenied, u"Permission denied"_s);
    // What is no database any more must not take the place of the last one that was.
    if (QFileInfo(source).isFile())
        db::requireWholeDatabase(source, ownTables);
    const QString backup =
        base::applicationPath(u"\\Data\\Backup\\Quorvantis"_s + version + u".mdb"_s);
    const QString fresh = base::preparedName(backup, u".new~"_s);
    sys::copyFile(source, fresh, isFree);
    replaceProven(fresh, backup);
    keepDailyCopy(backup);
}

void makeGuid()
{
    if (registryValue(u"GUID"_s).isEmpty())
        settings::registry().setValue(settings::ProductKey, u"GUID"_s, GetGUID());
}

/// The engine's word for a missing file is about its own affairs, and a cut one it opens: the first
/// that anybody would see of it is an empty main window.
void requireDatabaseFile()
{
    if (!registryValue(u"HOST"_s).isEmpty())
        return;
    if (!QFileInfo(gsDatabasePath).isFile())
        throw base::Error(base::ErrorNumber::FileNotFound,
                          u"Could not find file '%1'."_s.arg(gsDatabasePath));
    // Whoever holds it has started with it.
    if (!db::isHeld(gsDatabasePath))
        db::requireWholeDatabase(gsDatabasePath, ownTables);
}

/// The same; what is lost may be brought back.
void requireDatabase(const StartUpSteps &Steps)
{
    try {
        requireDatabaseFile();
    } catch (const base::Error &error) {
        const bool isLost = error.number() == base::ErrorNumber::FileNotFound ||
                            error.number() == db::ErrorNumber::NotADatabase;
        if (!isLost || !Steps.frmRestore || !Steps.frmRestore(error))
            throw;
    }
}

/// True when nobody has to log in, or somebody did. Raises when that can't be read: a damaged
/// table must not open the program to everybody.
bool letIn(const StartUpSteps &Steps)
{
    const QString security = [] {
        const base::Whole raising;
        return GetOption(u"SECURITYONOFF"_s, false);
    }();
    if (security != u"1")
        return true;
    return Steps.frmLogin && Steps.frmLogin();
}

} // namespace

bool Main(const StartUpSteps &Steps)
{
    bool running = false;
    const auto error = errorOf([&] {
        if (Steps.CheckForUpdate && Steps.CheckForUpdate()) {
            end(Steps);
            return;
        }
        running = ConnectToDB(Steps);
        if (!running)
            return;
        GetWindowsVersion(gWindowsVersion);
        const QString userFolder = base::appDataPath();
        if (!QFileInfo(userFolder).isDir())
            sys::makeFolder(userFolder);
    });
    if (error)
        showFailure(*error, u"modData_Conntect (Main)"_s);
    if (error && !running)
        fail(Steps);
    return running;
}

bool ConnectToDB(const StartUpSteps &Steps)
{
    bool running = false;
    const auto error = errorOf([&] {
        if (Steps.PrevInstance && Steps.PrevInstance()) {
            told::information(u"Quorvantis application is already open."_s);
            fail(Steps);
            return;
        }
        if (!BackupDB())
            told::information(u"Problem in taking backup of Database."_s);
        gsDatabasePath = liveDatabase();
        makeGuid();
        requireDatabase(Steps);
        openConnections();
        if (Steps.UpdateDatabase && Steps.UpdateDatabase(true))
            gbDatabaseOutOfDate = true;
        if (!letIn(Steps))
            return;
        if (Steps.SetUserRole)
            Steps.SetUserRole();
        if (Steps.frmMainScreen)
            Steps.frmMainScreen();
        running = true;
    });
    if (error) {
        showFailure(*error, u"modData_Conntect (ConnectToDB)"_s);
        fail(Steps);
    }
    if (!running)
        end(Steps);
    return running;
}

bool BackupDB()
{
    const auto error = errorOf(copyToBackup);
    if (!error || error->number() == base::ErrorNumber::PermissionDenied)
        return true;
    told::message(error->description() + u' ' + QString::number(error->number()) +
                  u"Main Funtions(BackupDB) "_s);
    return false;
}

QString GetWindowsVersion(sys::OsVersion &Record)
{
    Record = sys::osVersion();
    return Record.name;
}
