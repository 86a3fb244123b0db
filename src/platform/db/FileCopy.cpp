#include "platform/db/FileCopy.h"

#include "platform/base/PreparedName.h"
#include "platform/db/DbError.h"
#include "platform/db/EngineErrors.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace db {
namespace {

using namespace Qt::StringLiterals;

// The database's first page tells the state of the engine's own backups in two bits of its flags.
constexpr off_t flagsOffset = 42;
constexpr unsigned char backupBits = 0x0C; ///< in the second byte of the flags
constexpr unsigned char divertedBit = 0x04;
constexpr std::size_t headerLength = 44;
constexpr unsigned char headerPage = 1;

using Header = std::array<unsigned char, headerLength>;

[[noreturn]] void fail(const QString &file)
{
    throw engine::fileError(errno, file);
}

/// Closes a file at the end.
class Descriptor
{
public:
    Descriptor(const QString &file, int flags)
        : m_file(file)
        , m_descriptor(::open(QFile::encodeName(file).constData(), flags | O_CLOEXEC,
                              S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP))
    {
        if (m_descriptor < 0)
            fail(file);
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }
    void write(const char *data, std::size_t length)
    {
        while (length > 0) {
            const ssize_t written = ::write(m_descriptor, data, length);
            if (written < 0 && errno != EINTR)
                fail(m_file);
            if (written > 0) {
                data += written;
                length -= static_cast<std::size_t>(written);
            }
        }
    }
    /// Reports what the disk refuses only at the end.
    void finish()
    {
        // Some devices have nothing to bring to a disk.
        if (::fsync(m_descriptor) != 0 && errno != EINVAL)
            fail(m_file);
        if (::close(std::exchange(m_descriptor, -1)) != 0)
            fail(m_file);
    }

private:
    QString m_file;
    int m_descriptor;
};

bool readHeader(int descriptor, Header &header)
{
    return ::pread(descriptor, header.data(), header.size(), 0) ==
               static_cast<ssize_t>(header.size()) &&
           header[0] == headerPage;
}

/// What changes whenever somebody writes to the file.
struct FileState
{
    qint64 seconds = 0;
    qint64 nanoseconds = 0;
    qint64 size = 0;
    Header header{};

    bool operator==(const FileState &) const = default;
};

FileState stateOf(int descriptor)
{
    FileState state;
    struct stat status
    {};
    if (::fstat(descriptor, &status) == 0) {
        state.seconds = status.st_mtim.tv_sec;
        state.nanoseconds = status.st_mtim.tv_nsec;
        state.size = status.st_size;
    }
    readHeader(descriptor, state.header);
    return state;
}

} // namespace

FreeFile::FreeFile(const QString &file)
    : m_file(file)
    , m_descriptor(::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC))
{
    if (m_descriptor < 0)
        fail(file);
    test();
}

FreeFile::~FreeFile()
{
    ::close(m_descriptor);
}

/// The engine locks the file, for sharing, while a program is attached.
void FreeFile::test()
{
    m_isFree = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
    // Given back at once: the question must not keep anybody out.
    if (m_isFree)
        ::flock(m_descriptor, LOCK_UN);
}

bool FreeFile::isDiverted() const
{
    Header header{};
    return readHeader(m_descriptor, header) && (header[flagsOffset + 1] & backupBits) != 0;
}

bool FreeFile::copyTo(const QString &destination)
{
    // Nobody is kept out while it is copied. If somebody came, his lock or what he changed shows at
    // the end, and the copy doesn't count.
    const FileState before = stateOf(m_descriptor);
    constexpr std::size_t blockSize = 1 << 20;
    Descriptor output(destination, O_WRONLY | O_CREAT | O_EXCL);
    std::vector<char> block(blockSize);
    off_t position = 0;
    for (;;) {
        const ssize_t length = ::pread(m_descriptor, block.data(), block.size(), position);
        if (length < 0)
            fail(m_file);
        if (length == 0)
            break;
        output.write(block.data(), static_cast<std::size_t>(length));
        position += length;
    }
    output.finish();
    test();
    if (m_isFree && stateOf(m_descriptor) == before)
        return true;
    QFile::remove(destination);
    return false;
}

void finishEngineCopy(const QString &file)
{
    Descriptor copy(file, O_RDWR);
    Header header{};
    if (!readHeader(copy.get(), header) || (header[flagsOffset + 1] & backupBits) != divertedBit)
        throw DbError(ErrorNumber::NotADatabase,
                      u"The copy of the database is not whole: "_s + file);
    const unsigned char flags = header[flagsOffset + 1] & static_cast<unsigned char>(~backupBits);
    // The engine gives its copy fewer rights than its databases.
    if (::fchmod(copy.get(), S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP) != 0)
        fail(file);
    if (::pwrite(copy.get(), &flags, 1, flagsOffset + 1) != 1)
        fail(file);
    copy.finish();
}

PartialFile::PartialFile(const QString &destination, const QString &suffix)
    : m_path(base::preparedName(destination, suffix))
{
    // What a program that was ended has left.
    QFile::remove(m_path);
}

PartialFile::~PartialFile()
{
    if (!m_path.isEmpty())
        QFile::remove(m_path);
}

void PartialFile::moveTo(const QString &destination)
{
    if (::rename(QFile::encodeName(m_path).constData(),
                 QFile::encodeName(destination).constData()) != 0)
        fail(destination);
    m_path.clear();
}

} // namespace db
