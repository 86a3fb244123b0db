#include "platform/db/SharedUse.h"

#include "platform/db/DbError.h"
#include "platform/db/EngineHome.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSysInfo>

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace db {
namespace {

using namespace Qt::StringLiterals;

/// The marks are locks of single bytes far behind the end of any database, one byte for each folder
/// of locks. The engine locks the file in another way, which these don't touch.
constexpr off_t firstMark = off_t(1) << 44;
constexpr off_t marks = off_t(1) << 31;

/// The byte of this process's folder of locks.
off_t ownMark()
{
    static const off_t mark = [] {
        prepareEngineHome();
        struct stat folder
        {};
        ::stat(QFile::encodeName(engineLockFolder()).constData(), &folder);
        QCryptographicHash hash(QCryptographicHash::Sha256);
        // Two computers may give their folders the same numbers.
        hash.addData(QSysInfo::machineUniqueId());
        hash.addData(QByteArray::number(static_cast<qulonglong>(folder.st_dev)) + ' ' +
                     QByteArray::number(static_cast<qulonglong>(folder.st_ino)));
        quint32 number = 0;
        std::memcpy(&number, hash.result().constData(), sizeof number);
        return static_cast<off_t>(number) % marks;
    }();
    return mark;
}

struct flock bytes(short kind, off_t from, off_t length)
{
    struct flock lock
    {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    lock.l_start = firstMark + from;
    lock.l_len = length;
    return lock;
}

/// True when somebody holds a mark among these.
bool isMarked(int descriptor, off_t from, off_t length)
{
    if (length == 0)
        return false;
    struct flock test = bytes(F_WRLCK, from, length);
    // A lock of the whole file comes from a file system that knows one kind only.
    return ::fcntl(descriptor, F_OFD_GETLK, &test) == 0 && test.l_type != F_UNLCK &&
           test.l_start >= firstMark;
}

} // namespace

SharedUse::SharedUse(const QString &file)
    : m_descriptor(::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    // The engine says what is wrong with a file that can't be opened.
    if (m_descriptor < 0)
        return;
    const off_t own = ownMark();
    // Marked first, asked then: of two that come together at least one sees the other.
    struct flock mark = bytes(F_RDLCK, own, 1);
    ::fcntl(m_descriptor, F_OFD_SETLK, &mark);
    if (isMarked(m_descriptor, 0, own) || isMarked(m_descriptor, own + 1, marks - own - 1)) {
        ::close(m_descriptor);
        throw DbError(ErrorNumber::FileInUse,
                      u"Another user of this computer has the database open: %1"_s.arg(file));
    }
}

SharedUse::~SharedUse()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace db
