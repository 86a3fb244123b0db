#include "platform/system/Files.h"

#include "platform/base/Error.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

constexpr qint64 BlockSize = 1 << 20;

[[noreturn]] void raise(int number, const QString &text, const QString &path)
{
    throw base::Error(number, text + u": "_s + QDir::toNativeSeparators(path));
}

/// The failure of writing below a folder that exists.
[[noreturn]] void raiseWriteError(const QFileDevice &file, const QString &path)
{
    if (file.error() == QFileDevice::ResourceError)
        raise(base::ErrorNumber::DiskFull, u"The disk is full"_s, path);
    raise(base::ErrorNumber::PathAccess,
          u"The file can't be written (%1)"_s.arg(file.errorString()), path);
}

void openSource(QFile &file)
{
    const QFileInfo info(file.fileName());
    if (!info.absoluteDir().exists())
        raise(base::ErrorNumber::PathNotFound, u"Path not found"_s, info.absolutePath());
    if (!info.exists())
        raise(base::ErrorNumber::FileNotFound, u"File not found"_s, file.fileName());
    if (info.isDir())
        raise(base::ErrorNumber::PathAccess, u"A folder stands where a file is expected"_s,
              file.fileName());
    if (!file.open(QIODevice::ReadOnly))
        raise(base::ErrorNumber::PermissionDenied,
              u"Permission denied (%1)"_s.arg(file.errorString()), file.fileName());
}

void openDestination(QSaveFile &file)
{
    const QFileInfo info(file.fileName());
    if (!info.absoluteDir().exists())
        raise(base::ErrorNumber::PathNotFound, u"Path not found"_s, info.absolutePath());
    if (info.isDir())
        raise(base::ErrorNumber::PathAccess, u"A folder stands where a file is to be written"_s,
              file.fileName());
    if (!file.open(QIODevice::WriteOnly))
        raiseWriteError(file, file.fileName());
}

/// A short write has no error of its own: the next one has, and says why.
void writeAll(QSaveFile &file, const QByteArray &block)
{
    for (qint64 done = 0; done < block.size();) {
        const qint64 written = file.write(block.constData() + done, block.size() - done);
        if (written <= 0)
            raiseWriteError(file, file.fileName());
        done += written;
    }
}

/// Lets the system copy: some file systems then only note that both files share their blocks, and
/// the others do it without the detour through this process. False when it can't, or not to the
/// end: the destination is to be written from its beginning then.
bool copiedBySystem(const QFile &from, const QSaveFile &to)
{
    constexpr std::size_t atOnce = 1 << 30;
    off_t read = 0;
    off_t written = 0;
    ssize_t copied = 0;
    do {
        copied = ::copy_file_range(from.handle(), &read, to.handle(), &written, atOnce, 0);
    } while (copied > 0);
    return copied == 0;
}

/// The same through this process, block by block.
void copyBlocks(QFile &from, QSaveFile &to)
{
    while (!from.atEnd()) {
        const QByteArray block = from.read(BlockSize);
        if (block.isEmpty() && from.error() != QFileDevice::NoError)
            raise(base::ErrorNumber::PermissionDenied,
                  u"The file can't be read (%1)"_s.arg(from.errorString()), from.fileName());
        writeAll(to, block);
    }
}

} // namespace

void copyFile(const QString &source, const QString &destination,
              const std::function<bool()> &mayReplace)
{
    QFile from(source);
    openSource(from);
    const bool isNew = !QFileInfo::exists(destination);
    QSaveFile to(destination);
    openDestination(to);
    if (isNew) {
        // A copy off a read-only medium must stay usable.
        to.setPermissions(from.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    if (!copiedBySystem(from, to))
        copyBlocks(from, to);
    // At the last moment, when all but the renaming is done.
    if (mayReplace && !mayReplace())
        raise(base::ErrorNumber::PermissionDenied, u"Permission denied"_s, source);
    if (!to.commit())
        raiseWriteError(to, destination);
}

void writeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    openDestination(file);
    writeAll(file, content);
    if (!file.commit())
        raiseWriteError(file, path);
}

bool isSameFile(const QString &one, const QString &other)
{
    std::error_code failure;
    return std::filesystem::equivalent(QFile::encodeName(one).constData(),
                                       QFile::encodeName(other).constData(), failure);
}

void moveFile(const QString &source, const QString &destination)
{
    if (QFileInfo(destination).isDir())
        raise(base::ErrorNumber::PathAccess, u"A folder stands where a file is to be written"_s,
              destination);
    std::error_code failure;
    std::filesystem::rename(QFile::encodeName(source).constData(),
                            QFile::encodeName(destination).constData(), failure);
    if (failure)
        raise(base::ErrorNumber::PathAccess,
              u"The file can't be written (%1)"_s.arg(QString::fromStdString(failure.message())),
              destination);
}

void removeFile(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        raise(base::ErrorNumber::FileNotFound, u"File not found"_s, path);
    if (QFileInfo(path).isDir() || !file.remove())
        raise(base::ErrorNumber::PathAccess,
              u"The file can't be deleted (%1)"_s.arg(file.errorString()), path);
}

void removeIfThere(const QString &path)
{
    try {
        removeFile(path);
    } catch (const base::Error &) {
        // Somebody else may have removed it in between.
        if (QFileInfo::exists(path))
            throw;
    }
}

void makeFolder(const QString &path)
{
    if (!QDir().mkpath(path))
        raise(base::ErrorNumber::PathAccess, u"The folder can't be made"_s, path);
}

} // namespace sys
