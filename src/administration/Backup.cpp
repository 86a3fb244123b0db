#include "administration/Backup.h"

#include "administration/ClosedConnections.h"
#include "administration/SealedFile.h"
#include "administration/Summary.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/PreparedName.h"
#include "platform/db/FileCheck.h"
#include "platform/db/Proof.h"
#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

QString placeOf(const BackupRequest &request)
{
    return QDir(request.folder.trimmed()).filePath(request.name.trimmed());
}

QByteArray hashOf(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"The file can't be read: "_s + path);
    return hash.result();
}

/// The plain copy of a sealed backup never leaves the company's own folder.
class PlainCopy
{
public:
    PlainCopy()
        : m_path(base::preparedName(base::applicationPath(u"\\Data\\Backup\\backup"_s),
                                    u".to be sealed~"_s))
    {
        QFile::remove(m_path);
    }
    ~PlainCopy() { QFile::remove(m_path); }
    PlainCopy(const PlainCopy &) = delete;
    PlainCopy &operator=(const PlainCopy &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
};

/// Raises when the sealed file doesn't give back what was sealed.
void proveSealed(const QString &sealed, const QString &plain, const QString &passphrase)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    unseal(sealed, passphrase, [&](const QByteArray &piece) { hash.addData(piece); });
    if (hash.result() != hashOf(plain))
        throw base::Error(SealedDamaged, u"The copy isn't what was written: "_s + sealed);
}

/// Copies plain within the company's folder, seals that into the user's, and proves what was
/// sealed.
db::RowCounts copySealed(const BackupRequest &request)
{
    const PlainCopy plain;
    const db::RowCounts counts = db::backupProven(databaseTarget(), plain.path());
    // What stands under the backup's name stays until the new one was proven.
    const QString unproven = base::preparedName(placeOf(request), u".unproven~"_s);
    try {
        seal(plain.path(), unproven, request.passphrase);
        proveSealed(unproven, plain.path(), request.passphrase);
        sys::moveFile(unproven, placeOf(request));
    } catch (...) {
        QFile::remove(unproven);
        throw;
    }
    return counts;
}

void requireFolder(const QString &folder)
{
    if (!QFileInfo(folder).isDir())
        throw base::Error(base::ErrorNumber::PathNotFound,
                          u"Path not found: "_s + QDir::toNativeSeparators(folder));
}

} // namespace

QString usualBackupName()
{
    return u"Quorvantis"_s + base::today().toString(u"M-d-yyyy"_s);
}

QString refusalOfBackup(const BackupRequest &request)
{
    if (request.folder.trimmed().isEmpty() || request.name.trimmed().isEmpty())
        return u"Folder Path should not be blank."_s;
    // The name would choose another folder than the one that was looked at.
    if (request.name.contains(u'/') || request.name.contains(u'\\'))
        return u"The name of a backup can't hold / or \\. Please choose the folder above."_s;
    // Also by another path, a link or a share.
    if (sys::isSameFile(placeOf(request), gsDatabasePath))
        return u"That is the database itself. Please choose another folder or name."_s;
    if (QFileInfo(placeOf(request)).isDir())
        return u"A folder of that name stands there. Please choose another name."_s;
    return {};
}

bool replacesAnothersFile(const BackupRequest &request)
{
    const QString place = placeOf(request);
    // A sealed file can't be looked into, and nothing but a backup is sealed like that.
    if (!QFileInfo::exists(place) || isSealed(place))
        return false;
    try {
        db::requireWholeDatabase(place, {"TBLSYSOPTION", "TBLUSER", "TBLEQUIPMENT"});
        return false;
    } catch (const db::DbError &) {
        return true;
    }
}

QString takeBackup(const BackupRequest &request)
{
    if (const QString refusal = refusalOfBackup(request); !refusal.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall, refusal);
    requireFolder(request.folder.trimmed());
    // The rows are counted in the database and in the copy: nobody here may write between the two.
    ClosedConnections closed;
    const db::RowCounts counts = request.passphrase.isEmpty()
                                     ? db::backupProven(databaseTarget(), placeOf(request))
                                     : copySealed(request);
    closed.reopen();
    return u"The copy was opened, checked and counted against the database: %1."_s.arg(
        inWords(counts));
}

} // namespace administration
