#include "administration/Restore.h"

#include "administration/ClosedConnections.h"
#include "administration/SealedFile.h"
#include "core/DailyCopies.h"
#include "core/Session.h"
#include "core/database/Changes.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/PreparedName.h"
#include "platform/db/ClosedFile.h"
#include "platform/db/FileCheck.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Proof.h"
#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <functional>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// Puts a sealed backup's bytes to a place, all of them or none.
void unsealTo(const Chosen &chosen, const QString &destination)
{
    QSaveFile file(destination);
    const auto refuse = [&] {
        throw base::Error(
            file.error() == QFileDevice::ResourceError ? base::ErrorNumber::DiskFull
                                                       : base::ErrorNumber::PathAccess,
            u"The file can't be written (%1): %2"_s.arg(file.errorString(), destination));
    };
    if (!file.open(QIODevice::WriteOnly))
        refuse();
    unseal(chosen.file, chosen.passphrase, [&](const QByteArray &piece) {
        if (file.write(piece) != piece.size())
            refuse();
    });
    if (!file.commit())
        refuse();
}

/// Copies a chosen file, plain, to a place; the fingerprint of what stands there then.
QByteArray fetch(const Chosen &chosen, const QString &destination)
{
    if (isSealed(chosen.file))
        unsealTo(chosen, destination);
    else
        sys::copyFile(chosen.file, destination);
    QFile file(destination);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"The file can't be read: "_s + destination);
    return hash.result();
}

db::Target localTarget(const QString &file)
{
    db::Target target;
    target.file = file;
    return target;
}

/// A file beside the database that is to take its place; removed unless it did.
class Staged
{
public:
    Staged(const Chosen &chosen, const QByteArray &fingerprint)
        : m_path(base::preparedName(gsDatabasePath, u".restore~"_s))
    {
        try {
            if (fetch(chosen, m_path) != fingerprint)
                throw base::Error(base::ErrorNumber::PermissionDenied,
                                  u"The file has changed since it was checked: "_s + chosen.file);
            // Whoever could work with the database shall go on doing so.
            if (const QFileInfo live(gsDatabasePath); live.exists())
                QFile::setPermissions(m_path, live.permissions());
        } catch (...) {
            QFile::remove(m_path);
            throw;
        }
    }
    ~Staged() { QFile::remove(m_path); }
    Staged(const Staged &) = delete;
    Staged &operator=(const Staged &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
};

// A database that a restore has put aside is named by the moment.
const QString KeptName = u"Before restore "_s;
const QString KeptMoment = u"yyyy-MM-dd HHmmss"_s;

QString placeToKeep()
{
    QString place;
    // What was put aside stays, also when two restores come in one second or the clock goes back.
    QDateTime moment = base::now();
    do {
        place = base::applicationPath(u"\\Data\\Backup\\"_s + KeptName +
                                      moment.toString(KeptMoment) + u".mdb"_s);
        moment = moment.addSecs(1);
    } while (QFileInfo::exists(place));
    return place;
}

QDateTime momentOf(const QFileInfo &kept)
{
    const QDateTime moment =
        QDateTime::fromString(kept.completeBaseName().sliced(KeptName.size()), KeptMoment);
    return base::wallClock(moment.date(), moment.time());
}

/// The databases that were put aside up to now, the newest first. What a clock that went wrong has
/// named after a moment to come is not among them.
QFileInfoList keptUpToNow(const QDir &folder)
{
    QFileInfoList files =
        folder.entryInfoList({KeptName + u"*.mdb"_s}, QDir::Files | QDir::CaseSensitive);
    files.removeIf([](const QFileInfo &file) {
        const QDateTime moment = momentOf(file);
        return !moment.isValid() || moment > base::now();
    });
    std::ranges::sort(files, std::greater(), momentOf);
    return files;
}

/// Lets old ones go when the newest is worth keeping: one that was damaged is no reason to.
void pruneKept(const QString &newest)
{
    try {
        (void)db::prove(newest);
        const int stay = copies::keepRuleOf(lookupConnection()).restores;
        const QFileInfoList kept = keptUpToNow(QFileInfo(newest).dir());
        for (qsizetype i = stay; i < kept.size(); ++i)
            sys::removeIfThere(kept[i].filePath());
    } catch (const base::Error &error) {
        // The restore has done its work, and the next one prunes again.
        qWarning("databases from before a restore were not pruned: %s", error.what());
    }
}

/// The script that brought the database up to date was deleted when it had, or was left with what
/// it has run marked as done: a database from before needs all of it once more.
void putScriptBeside()
{
    const QString script = base::applicationPath(u"\\Script\\DBChanges.mdb"_s);
    if (QFileInfo::exists(script)) {
        try {
            db::Connection(localTarget(script)).Execute(u"Update tblChanges set Status = False"_s);
            return;
        } catch (const db::DbError &) {
            // What can't be marked brings nothing up to date.
            sys::removeFile(script);
        }
    }
    sys::makeFolder(QFileInfo(script).absolutePath());
    company::createScriptDatabase(script, company::shippedChanges());
}

/// The database that was there, kept; "" when there was none.
QString replaceLive(const QString &staged, bool isOlder)
{
    if (!QFileInfo::exists(gsDatabasePath)) {
        if (isOlder)
            putScriptBeside();
        sys::moveFile(staged, gsDatabasePath);
        return {};
    }
    // From here on nobody else can open the database until it has been replaced.
    db::ClosedFile live(gsDatabasePath);
    const QString kept = placeToKeep();
    sys::makeFolder(QFileInfo(kept).absolutePath());
    live.copyTo(kept);
    // Ahead of the step that can't be undone: a program that is ended here loses nothing.
    if (isOlder)
        putScriptBeside();
    live.replaceBy(staged);
    return kept;
}

/// Opens what was put in place; when that fails, what was there takes its place again.
void openOrPutBack(ClosedConnections &closed, const QString &kept)
{
    try {
        closed.reopen();
    } catch (const base::Error &) {
        // Copied and not moved: what is kept stays, whatever becomes of the place.
        if (!kept.isEmpty())
            sys::copyFile(kept, gsDatabasePath);
        throw;
    }
}

/// A database from before: the start that follows brings it up to date.
bool isOlder(const Summary &summary)
{
    return summary.version.toLongLong() < company::schemaVersion();
}

} // namespace

QString newestCopy()
{
    QFileInfo newest;
    for (const QString &folder :
         {base::applicationPath(u"\\Data\\Backup"_s), copies::startCopiesFolder()}) {
        const QFileInfoList files = QDir(folder).entryInfoList({u"*.mdb"_s}, QDir::Files);
        for (const QFileInfo &file : files) {
            const QString name = file.completeBaseName();
            // Neither what a restore has put aside, nor what is known to be damaged: those are no
            // backups.
            if (!name.startsWith(KeptName) && !name.endsWith(u" damaged") &&
                (!newest.isFile() || file.lastModified() > newest.lastModified()))
                newest = file;
        }
    }
    return newest.filePath();
}

QString temporaryCopy()
{
    return base::appDataPath(u"\\temp.mdb"_s);
}

QByteArray fetchForCheck(const Chosen &chosen)
{
    const QString copy = temporaryCopy();
    sys::makeFolder(QFileInfo(copy).absolutePath());
    // One from before may be of another file, and must not be taken for this one.
    QFile::remove(copy);
    return fetch(chosen, copy);
}

bool isUsableBackup(const QString &path)
{
    try {
        db::requireWholeDatabase(path, {"TBLSYSOPTION", "TBLUSER", "TBLEQUIPMENT"});
        if (!db::validate(path).damage.isEmpty())
            return false;
        db::Connection connection(localTarget(path));
        (void)connection.Open(u"Select * from tblEquipment"_s);
        (void)summaryOf(connection, path);
        return true;
    } catch (const db::DbError &) {
        return false;
    }
}

Summary summaryOfBackup(const QString &path, const QString &original)
{
    db::Connection connection(localTarget(path));
    return summaryOf(connection, original);
}

QString refusalOfVersion(const Summary &backup)
{
    if (backup.version.toLongLong() <= company::schemaVersion())
        return {};
    return u"This backup comes from a newer release of Quorvantis: its database has version %1, and this program knows versions up to %2. Please install the newer release first. Nothing was changed."_s
        .arg(backup.version)
        .arg(company::schemaVersion());
}

Restored restoreDatabase(const Chosen &chosen, const QByteArray &fingerprint,
                         const Summary &summary)
{
    if (!databaseTarget().host.isEmpty())
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"The database is kept by the computer %1, and is restored there."_s.arg(
                              databaseTarget().host));
    if (const QString refusal = refusalOfVersion(summary); !refusal.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall, refusal);
    // Beside the database before that is touched: a stick may be pulled out, and a disk may be
    // full.
    const Staged staged(chosen, fingerprint);
    Restored restored{.kept = {}, .isOlder = isOlder(summary)};
    ClosedConnections closed;
    restored.kept = replaceLive(staged.path(), restored.isOlder);
    openOrPutBack(closed, restored.kept);
    // Behind the opening: only a restore that works is a reason to let older states go.
    if (!restored.kept.isEmpty())
        pruneKept(restored.kept);
    return restored;
}

} // namespace administration
