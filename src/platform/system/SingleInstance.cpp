#include "platform/system/SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

/// A name of its own for each user and folder; the home folder tells users apart.
QString lockPath(const QString &applicationFolder)
{
    const QString canonical = QFileInfo(applicationFolder).canonicalFilePath();
    const QString identity =
        QDir::homePath() + u'\n' + (canonical.isEmpty() ? applicationFolder : canonical);
    const QByteArray digest =
        QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256).toHex().left(24);
    // Both are cleared by the system at a restart, unlike a folder in the user's home.
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (folder.isEmpty() || !QFileInfo(folder).isWritable())
        folder = QDir::tempPath();
    return folder + u"/quorvantis-"_s + QString::fromLatin1(digest) + u".lock"_s;
}

} // namespace

SingleInstance::SingleInstance(const QString &applicationFolder)
    : m_lock(lockPath(applicationFolder))
{
    // A session lasts all day: only the end of the other process frees its place.
    m_lock.setStaleLockTime(0);
    // A place that can't be written must not keep the user out of the program.
    m_first = m_lock.tryLock() || m_lock.error() != QLockFile::LockFailedError;
}

} // namespace sys
