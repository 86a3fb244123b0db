#include "administration/CompactDatabase.h"

#include "administration/ClosedConnections.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/PreparedName.h"
#include "platform/base/Trapped.h"
#include "platform/db/ClosedFile.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Proof.h"
#include "platform/system/Files.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// What the engine of old says when somebody else holds the database.
constexpr int CouldNotLock = 3075;

/// A file that is removed at the beginning, if it stands there, and at the end.
class ScratchFile
{
public:
    explicit ScratchFile(QString path)
        : m_path(std::move(path))
    {
        QFile::remove(m_path);
    }
    ~ScratchFile() { QFile::remove(m_path); }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
};

/// One for each day: a second run of the day replaces the first one's copy.
QString backupName()
{
    return u"Backup_"_s + base::today().toString(u"M_d_yyyy"_s);
}

bool isSound(const QString &file)
{
    try {
        (void)db::prove(file);
        return true;
    } catch (const db::DbError &) {
        return false;
    }
}

/// Puts the copy of the day in its place, and tells where. One of a damaged database doesn't take
/// the place of a good one.
QString keepCopy(const db::ClosedFile &live)
{
    const QString folder = base::applicationPath(u"\\Data\\Backup\\"_s);
    sys::makeFolder(folder);
    const ScratchFile fresh(base::preparedName(folder + backupName(), u".new~"_s));
    live.copyTo(fresh.path());
    const QString backup =
        folder + backupName() + (isSound(fresh.path()) ? u".mdb"_s : u" damaged.mdb"_s);
    sys::moveFile(fresh.path(), backup);
    return backup;
}

/// Raises when the compacted database isn't sound or has lost a row.
void proveCompacted(const QString &compacted, const QString &original)
{
    db::Target target;
    target.file = original;
    const db::RowCounts before = db::countRows(target);
    // A smaller file with fewer rows would look like a success.
    if (!db::tableThatDiffers(db::prove(compacted), before, before).isEmpty())
        throw db::DbError(db::ErrorNumber::NotADatabase,
                          u"Rows were lost while compacting; the database was left as it is."_s);
}

void compactWhole()
{
    if (const QString host = databaseTarget().host; !host.isEmpty())
        throw base::Error(
            base::ErrorNumber::PathAccess,
            u"The database is kept by the computer %1, and is compacted there."_s.arg(host));
    administration::ClosedConnections closed;
    // Whoever works in the copy of the day would have it replaced by its own copy.
    if (QFileInfo(gsDatabasePath)
            .fileName()
            .compare(backupName() + u".mdb"_s, Qt::CaseInsensitive) == 0) {
        closed.reopen();
        return;
    }
    // A block of its own: the file is let go of before the connections open it again.
    {
        const ScratchFile compacted(base::applicationPath(u"\\TP_TMP.mdb"_s));
        const ScratchFile staged(base::preparedName(gsDatabasePath, u".compact~"_s));
        db::ClosedFile live(gsDatabasePath);
        const QString backup = keepCopy(live);
        // Of the copy, so that nobody has to be attached to the database itself meanwhile.
        db::compact(backup, compacted.path());
        proveCompacted(compacted.path(), backup);
        // The program's folder may lie on another disk, and only within one is replacing a single
        // step.
        sys::copyFile(compacted.path(), staged.path());
        QFile::setPermissions(staged.path(), QFileInfo(gsDatabasePath).permissions());
        live.replaceBy(staged.path());
        // Earlier releases left a copy beside the program.
        QFile::remove(base::applicationPath(u'\\' + backupName() + u".mdb"_s));
    }
    closed.reopen();
    // Behind the reopening, since the box may stand there all night.
    told::message(u"System has finished compacting the database."_s);
}

} // namespace

void CompactDatabase()
{
    base::trapped("modCompact", "CompactDatabase", [] {
        try {
            compactWhole();
        } catch (const base::Error &error) {
            // Somebody at work is no failure, and needs no report.
            if (error.number() != base::ErrorNumber::PermissionDenied &&
                error.number() != CouldNotLock)
                throw;
            told::message(u"Database is in use. System cannot perform this task now."_s);
        }
    });
}
