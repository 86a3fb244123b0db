#include "platform/db/FileCheck.h"

#include "platform/db/DbError.h"
#include "platform/db/EngineErrors.h"

#include <QByteArray>
#include <QByteArrayMatcher>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <vector>

namespace db {
namespace {

using namespace Qt::StringLiterals;

// Places in the first page: what kind of page it is, the length of a page, the version of the
// file's structure, the bit that tells it from a related engine's.
constexpr qint64 headerLength = 20;
constexpr qsizetype pageSizeAt = 16;
constexpr qsizetype versionAt = 18;
constexpr quint16 engineBit = 0x8000;
constexpr char headerPage = 1;
// Pages of this kind tell which pages are in use: how many of those that the page answers for have
// ever been written, then a bit for each.
constexpr char inventoryPage = 2;
constexpr qsizetype usedAt = 24;
constexpr qint64 bitsAt = 28;

[[noreturn]] void refuse(const QString &text, const QString &file)
{
    throw DbError(ErrorNumber::NotADatabase, text + u": "_s + file);
}

template<class T>
T numberAt(const QByteArray &page, qsizetype place)
{
    T number = 0;
    std::memcpy(&number, page.constData() + place, sizeof number);
    return number;
}

QByteArray bytesAt(QFile &file, qint64 place, qint64 length)
{
    return file.seek(place) ? file.read(length) : QByteArray();
}

bool knowsInventory(quint16 version)
{
    const int structure = version & ~engineBit;
    return (version & engineBit) != 0 && (structure == 12 || structure == 13);
}

/// The length, in bytes, that the file must have at least.
qint64 neededLength(QFile &file, qint64 pageSize)
{
    const qint64 pagesEach = (pageSize - bitsAt) * 8;
    qint64 needed = 2 * pageSize;
    for (qint64 sequence = 0;; ++sequence) {
        // The first of these pages is the file's second one, each further one the last that its
        // predecessor answers for.
        const qint64 at = sequence == 0 ? 1 : sequence * pagesEach - 1;
        const QByteArray page = bytesAt(file, at * pageSize, bitsAt);
        // Where the inventory should stand and doesn't, something is missing at least up to there.
        if (page.size() < bitsAt || page[0] != inventoryPage)
            return std::max(needed, (at + 1) * pageSize);
        const qint64 used = numberAt<quint32>(page, usedAt);
        needed = (sequence * pagesEach + used) * pageSize;
        if (used < pagesEach)
            return needed;
    }
}

bool holdsAll(QFile &file, const QByteArrayList &names)
{
    constexpr qint64 blockSize = 1 << 20;
    std::vector<QByteArrayMatcher> missing;
    qsizetype longest = 1;
    for (const QByteArray &name : names) {
        missing.emplace_back(name);
        longest = std::max(longest, name.size());
    }
    QByteArray block;
    file.seek(0);
    while (!missing.empty()) {
        // A name may lie over the end of a block.
        block = block.right(longest - 1);
        const QByteArray next = file.read(blockSize);
        if (next.isEmpty())
            return false;
        // Names of tables stand in the file as they were written, in one case or the other.
        block += next.toUpper();
        std::erase_if(missing,
                      [&](const QByteArrayMatcher &name) { return name.indexIn(block) >= 0; });
    }
    return true;
}

} // namespace

void requireWholeDatabase(const QString &path, const QByteArrayList &names)
{
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly))
        throw engine::fileError(errno != 0 ? errno : EACCES, path);
    if (file.size() == 0)
        refuse(u"The database file is empty"_s, path);
    const QByteArray header = bytesAt(file, 0, headerLength);
    if (header.size() < headerLength || header[0] != headerPage)
        refuse(u"The file is not a database that this program can read"_s, path);
    const qint64 pageSize = numberAt<quint16>(header, pageSizeAt);
    // Of other structures the engine says that it can't read them.
    if (pageSize >= 1024 && knowsInventory(numberAt<quint16>(header, versionAt)) &&
        file.size() < neededLength(file, pageSize))
        refuse(u"The database file is damaged: its end is missing"_s, path);
    if (!holdsAll(file, names))
        refuse(u"The file is not a database of this program"_s, path);
}

} // namespace db
