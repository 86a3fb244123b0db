#include "core/UpdateDatabase.h"

#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/settings/Registry.h"
#include "platform/system/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestWait = 60'000; ///< milliseconds for another workstation's update
constexpr int LongestRun = 600'000; ///< after which its lock counts as left behind
constexpr int Pause = 500;          ///< milliseconds for whoever is in the way of a statement
constexpr int MostPauses = 20;      ///< in a run

QString scriptFile()
{
    return base::applicationPath(u"\\Script\\DBChanges.mdb"_s);
}

/// Runs a part; the error that stopped it, if any.
template<class Part>
std::optional<base::Error> errorOf(Part &&part)
{
    try {
        const base::Whole raising;
        part();
        return std::nullopt;
    } catch (const base::Error &error) {
        return error;
    } catch (const std::exception &error) {
        return base::Error(base::ErrorNumber::InvalidCall, QString::fromUtf8(error.what()));
    }
}

/// What a database has already that is brought up to date once more.
bool isTolerated(const base::Error &error)
{
    return error.number() == db::ErrorNumber::NullNotAllowed ||
           (error.number() == db::ErrorNumber::TableExists &&
            error.description().startsWith(u"Table"));
}

bool isRefusal(const base::Error &error)
{
    return error.number() == db::ErrorNumber::TableExists;
}

QString pendingRows(const QString &aboveVersion)
{
    const QString version = aboveVersion.trimmed();
    if (version.isEmpty())
        return u"SELECT * FROM tblChanges WHERE DBversion > 0 And  Status=False ORDER BY DBversion  , squence"_s;
    bool isNumber = false;
    const qint64 number = version.toLongLong(&isNumber);
    if (!isNumber)
        throw base::Error(base::ErrorNumber::TypeMismatch,
                          u"The option DBVERSION is no number: "_s + version);
    return u"SELECT * FROM tblChanges WHERE DBversion > "_s + QString::number(number) +
           u" And Status=False ORDER BY DBversion , squence"_s;
}

/// The inserts of a release bring what a database lacks; what a customer has set stays. All that
/// are tied to no option and no field belong to databases without the built-in user.
bool isWanted(const db::Row &row)
{
    if (row.text(u"QType").toUpper() != u"INSERT")
        return true;
    const QString table = row.text(u"TableName");
    if (table.compare(u"tblSysOption"_s, Qt::CaseInsensitive) == 0)
        return !IsRecordThere(u"tblSysOption"_s, u"SysOption"_s, row.text(u"Value"), {});
    if (table.compare(u"tblTableFields"_s, Qt::CaseInsensitive) == 0)
        return !IsRecordThere(u"tblTableFields"_s, u"FieldName"_s, row.text(u"Value"),
                              row.text(u"ParentId"));
    return !IsRecordThere(u"tblUser"_s, u"UserName"_s, u"admin"_s, {});
}

/// A row of the script runs only once, so one that another workstation is in the way of is worth a
/// wait.
void executePatiently(const QString &statement, int &pausesLeft)
{
    for (;;) {
        try {
            lookupConnection().Execute(statement);
            return;
        } catch (const db::DbError &error) {
            if (error.number() != db::ErrorNumber::LockConflict || pausesLeft == 0)
                throw;
        }
        --pausesLeft;
        QThread::msleep(Pause);
    }
}

void note(const std::optional<base::Error> &error, qint64 id, ChangesRun &run)
{
    if (!error || isTolerated(*error))
        return;
    run.failures.append({id, *error});
    if (!isRefusal(*error))
        run.stopped = true;
}

/// Raises what keeps the whole run from happening.
ChangesRun runScript()
{
    // Two workstations that start together would run each statement twice.
    QLockFile lock(scriptFile() + u".lock"_s);
    lock.setStaleLockTime(LongestRun);
    if (!lock.tryLock(LongestWait))
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"Another workstation is updating the database."_s);
    if (!QFileInfo(scriptFile()).isFile())
        return {};
    // A script off a read-only medium has to be marked, and deleted in the end.
    QFile script(scriptFile());
    script.setPermissions(script.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    ChangesRun run = runChanges(scriptFile(), GetOption(u"DBVERSION"_s, false));
    if (!run.failures.isEmpty())
        return run;
    if (run.version != 0)
        SetOption(u"DBVERSION"_s, run.version, false);
    sys::removeFile(scriptFile());
    return run;
}

} // namespace

ChangesRun runChanges(const QString &scriptFile, const QString &aboveVersion)
{
    db::Target target;
    target.file = scriptFile;
    db::Connection script(target);
    const db::Recordset rows = script.Open(pendingRows(aboveVersion));
    ChangesRun run;
    int pausesLeft = MostPauses;
    for (const db::Row row : rows) {
        const qint64 id = row.integer(u"Id");
        note(errorOf([&] {
                 if (isWanted(row))
                     executePatiently(row.text(u"DbQuery"), pausesLeft);
             }),
             id, run);
        note(errorOf([&] {
                 script.Execute(u"Update tblChanges set Status=True Where Id="_s +
                                QString::number(id));
             }),
             id, run);
        run.version = static_cast<int>(row.integer(u"DBversion"));
    }
    return run;
}

bool UpdateDatabase(bool &ShowFailure)
{
    if (!QFileInfo(scriptFile()).isFile())
        return false;
    QString version;
    ChangesRun run;
    auto failure = errorOf([&] { version = GetVersionNo().remove(u'.').trimmed(); });
    if (!failure && version.isEmpty()) {
        told::critical(u"Failed to update Quorvantis."_s);
        return false;
    }
    if (!failure)
        failure = errorOf([&] { run = runScript(); });
    if (!failure && !run.stopped)
        return false;
    if (ShowFailure) {
        ShowFailure = false;
        told::information(
            u"Failed to update the database.\nPlease Choose File->Update Database, to update the Quorvantis database"_s);
    }
    return true;
}

bool IsRecordThere(const QString &Table, const QString &Field, const QString &Value,
                   const QString &Extra)
{
    QString query = u"Select * from "_s + Table + u" where "_s + Field + u" = ?"_s;
    QVariantList values{Value};
    if (!Extra.trimmed().isEmpty()) {
        if (Table.compare(u"tblSysOption"_s, Qt::CaseInsensitive) == 0)
            query += u" and ParentId = ?"_s;
        else if (Table.compare(u"tblTableFields"_s, Qt::CaseInsensitive) == 0)
            query += u" and TableName = ?"_s;
        if (query.count(u'?') == 2)
            values << Extra;
    }
    return !dataConnection().Open(query, values).isEmpty();
}
