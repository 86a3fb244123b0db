#include "platform/db/ClosedFile.h"

#include "platform/db/EngineErrors.h"
#include "platform/db/FileCopy.h"
#include "platform/db/Maintenance.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace db {
namespace {

using namespace Qt::StringLiterals;

void synchronise(const QString &path, int flags)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (descriptor < 0)
        throw engine::fileError(errno, path);
    const int result = ::fsync(descriptor);
    const int error = errno;
    ::close(descriptor);
    // Some file systems can't bring a folder to the disk.
    if (result != 0 && error != EINVAL && error != EBADF)
        throw engine::fileError(error, path);
}

} // namespace

ClosedFile::ClosedFile(const QString &file)
    : m_file(file)
    , m_descriptor(-1)
{
    // A backup that was never ended keeps the latest rows in a file beside this one.
    endAbandonedBackup(file);
    m_descriptor = ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC);
    if (m_descriptor < 0)
        throw engine::fileError(errno, file);
    // The engine locks the file, for sharing, while a program is attached.
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        ::close(m_descriptor);
        throw engine::fileError(error, file);
    }
}

ClosedFile::~ClosedFile()
{
    ::close(m_descriptor);
}

void ClosedFile::copyTo(const QString &destination) const
{
    PartialFile copy(destination, u".part~"_s);
    QFile from;
    QFile to(copy.path());
    if (::lseek(m_descriptor, 0, SEEK_SET) < 0 || !from.open(m_descriptor, QIODevice::ReadOnly))
        throw engine::fileError(errno, m_file);
    errno = 0;
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw engine::fileError(errno, copy.path());
    constexpr qint64 blockSize = 1 << 20;
    for (QByteArray block = from.read(blockSize); !block.isEmpty(); block = from.read(blockSize)) {
        errno = 0;
        if (to.write(block) != block.size())
            throw engine::fileError(errno != 0 ? errno : ENOSPC, copy.path());
    }
    if (from.error() != QFileDevice::NoError)
        throw engine::fileError(EIO, m_file);
    to.close();
    bringToDisk(copy.path());
    copy.moveTo(destination);
}

void ClosedFile::replaceBy(const QString &file)
{
    bringToDisk(file);
    if (::rename(QFile::encodeName(file).constData(), QFile::encodeName(m_file).constData()) != 0)
        throw engine::fileError(errno, m_file);
    // The name is in the folder, which has to reach the disk too before the old file may be
    // forgotten.
    synchronise(QFileInfo(m_file).absolutePath(), O_RDONLY | O_DIRECTORY);
}

void bringToDisk(const QString &file)
{
    synchronise(file, O_RDONLY);
}

} // namespace db
