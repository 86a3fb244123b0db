#include "exchange/ImportQueue.h"

#include "exchange/ReceivedFile.h"
#include "platform/base/Error.h"
#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

const QString Marker = u"done.txt"_s;

[[noreturn]] void raise(int number, const QString &text, const QString &path)
{
    throw base::Error(number, text + u": "_s + QDir::toNativeSeparators(path));
}

QByteArray checksum(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

} // namespace

ImportQueue::ImportQueue(QString folder)
    : m_folder(std::move(folder))
{}

QString ImportQueue::path(const QString &name) const
{
    return m_folder + u'/' + name;
}

bool ImportQueue::isMarked() const
{
    return !m_folder.isEmpty() && QFileInfo::exists(path(Marker));
}

bool ImportQueue::lock()
{
    // There is nothing to lock, and read() says what is wrong.
    if (!QFileInfo(m_folder).isDir())
        return true;
    m_lock.emplace(m_folder + u".lock"_s);
    // An import may wait for its user: only its end frees the place.
    m_lock->setStaleLockTime(0);
    // Where no lock can be made at all, the import goes on without one.
    return m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError;
}

QList<ImportQueue::File> ImportQueue::read(const QStringList &prefixes)
{
    const QFileInfo folder(m_folder);
    if (m_folder.isEmpty() || !folder.isDir())
        raise(base::ErrorNumber::PathNotFound, u"Path not found"_s, m_folder);
    if (!folder.isReadable() || !folder.isWritable())
        raise(base::ErrorNumber::PathAccess,
              u"The files of this folder can't be read and deleted, so nothing was imported"_s,
              m_folder);
    QList<File> files;
    for (const QString &name : QDir(m_folder).entryList(QDir::Files | QDir::Hidden | QDir::System,
                                                        QDir::Name | QDir::IgnoreCase)) {
        // All files of the folder are cleared away in the end, but only these are read.
        files.append({name, {}});
        m_files.append({name, {}});
        for (const QString &prefix : prefixes) {
            if (!name.startsWith(prefix))
                continue;
            files.last().content = contentOf(path(name));
            // Kept small: it only has to show later whether the file is still the one that was
            // imported.
            m_files.last().content = checksum(files.last().content);
            m_read.append(name);
            break;
        }
    }
    return files;
}

QStringList ImportQueue::clear(const QStringList &unreadable)
{
    QStringList aside;
    QStringList left;
    for (const File &file : std::as_const(m_files)) {
        try {
            if (hasChanged(file))
                continue;
            if (unreadable.contains(file.name))
                aside.append(putAside(file.name));
            else
                remove(file.name);
        } catch (const base::Error &error) {
            left.append(error.description());
        }
    }
    if (!left.isEmpty())
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"All has been imported, but not all files could be deleted. Take them "
                          "away, or the next import takes them in once more.\n"_s +
                              left.join(u'\n'));
    return aside;
}

bool ImportQueue::hasChanged(const File &file) const
{
    // What was not read can't have been missed.
    return m_read.contains(file.name) && checksum(contentOf(path(file.name))) != file.content;
}

void ImportQueue::remove(const QString &name) const
{
    sys::removeFile(path(name));
}

QString ImportQueue::putAside(const QString &name) const
{
    const QString folder = m_folder + u"_unread"_s;
    sys::makeFolder(folder);
    QString kept = folder + u'/' + name;
    for (int number = 2; QFileInfo::exists(kept); ++number)
        kept = u"%1/%2 (%3)"_s.arg(folder, name).arg(number);
    // Copied and then removed, for the folders may lie on two disks.
    sys::copyFile(path(name), kept);
    remove(name);
    return QDir::toNativeSeparators(kept);
}

} // namespace exchange
