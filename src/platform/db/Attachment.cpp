#include "platform/db/Attachment.h"

#include "platform/db/EngineErrors.h"

#include <QFileInfo>

#include <array>
#include <span>

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;

constexpr int dialect = 3;
/// Bytes. Larger pages made no query faster.
constexpr int pageSize = 8192;
/// Pages that one attachment keeps in memory.
constexpr int pageBuffers = 4096;

// No statement ever waits for another workstation, and each one sees what is committed when it
// starts; rows that somebody else is changing are read as they were.
constexpr std::array<unsigned char, 5> writeMode = {isc_tpb_version3, isc_tpb_write, isc_tpb_nowait,
                                                    isc_tpb_read_committed, isc_tpb_rec_version};
constexpr std::array<unsigned char, 5> readMode = {isc_tpb_version3, isc_tpb_read, isc_tpb_nowait,
                                                   isc_tpb_read_committed, isc_tpb_rec_version};
// The time limit is one second, a number of one byte.
constexpr std::array<unsigned char, 8> ddlMode = {isc_tpb_version3,
                                                  isc_tpb_write,
                                                  isc_tpb_wait,
                                                  isc_tpb_read_committed,
                                                  isc_tpb_rec_version,
                                                  isc_tpb_lock_timeout,
                                                  1,
                                                  1};

std::span<const unsigned char> blockOf(Transaction::Mode mode)
{
    switch (mode) {
    case Transaction::Mode::Read:
        return readMode;
    case Transaction::Mode::Ddl:
        return ddlMode;
    case Transaction::Mode::Write:
        break;
    }
    return writeMode;
}

/// What the engine is told whether the file is made or opened.
void addCommonParameters(ParameterBlock &block, const Target &target)
{
    // First, since it says how the names behind it are written.
    block.tag(isc_dpb_utf8_filename);
    block.text(isc_dpb_user_name, target.user);
    if (!target.host.isEmpty())
        block.text(isc_dpb_password, target.password);
    block.text(isc_dpb_lc_ctype, u"UTF8"_s);
    block.number(isc_dpb_sql_dialect, dialect);
    block.number(isc_dpb_num_buffers, pageBuffers);
}

} // namespace

QByteArray placeOf(const Target &target)
{
    return utf8(target.host.isEmpty() ? target.file : target.host + u':' + target.file);
}

QByteArray identityOf(const Target &target)
{
    // One file may be reached by several paths, and its connections have to know each other.
    return target.host.isEmpty() ? QFileInfo(target.file).canonicalFilePath().toUtf8()
                                 : placeOf(target);
}

Transaction::Transaction(Attachment &attachment, Mode mode)
    : m_status(&attachment.m_status)
{
    const std::span<const unsigned char> block = blockOf(mode);
    m_transaction.reset(attachment.get()->startTransaction(
        m_status, static_cast<unsigned>(block.size()), block.data()));
}

Transaction::~Transaction()
{
    if (!m_transaction)
        return;
    try {
        rollback();
    } catch (const DbError &) {
        // The connection is gone, and the engine rolls back by itself.
    }
}

Transaction &Transaction::operator=(Transaction &&other) noexcept
{
    // What this one held is rolled back at the end, with its own status.
    Transaction former;
    former.m_status = m_status;
    former.m_transaction = std::move(m_transaction);
    m_status = other.m_status;
    m_transaction = std::move(other.m_transaction);
    return *this;
}

void Transaction::commit()
{
    m_transaction->commit(m_status);
    // A successful commit has used up the count; after a failed one the transaction is still open.
    m_transaction.take();
}

void Transaction::rollback()
{
    // Whether the engine could be told or not, the transaction is over.
    Ref<Firebird::ITransaction> ending = std::move(m_transaction);
    ending->rollback(m_status);
    ending.take();
}

Attachment::Attachment(const Target &target, Disposition disposition)
{
    if (disposition == Disposition::Create) {
        ParameterBlock block(ParameterBlock::Kind::Attach);
        addCommonParameters(block, target);
        block.number(isc_dpb_page_size, pageSize);
        block.number(isc_dpb_force_write, target.forcedWrites ? 1 : 0);
        block.text(isc_dpb_set_db_charset, u"UTF8"_s);
        m_attachment.reset(provider()->createDatabase(&m_status, placeOf(target).constData(),
                                                      block.length(), block.data()));
        if (target.host.isEmpty())
            m_use.emplace(target.file);
        return;
    }
    // Marked before it attaches: a program with other locks is refused before the engine has
    // touched the file.
    if (target.host.isEmpty())
        m_use.emplace(target.file);
    attach(target, false);
    // The setting belongs to the file, and a copied file may have come with another one.
    if (hasForcedWrites() != target.forcedWrites) {
        detach();
        attach(target, true);
    }
}

Attachment::~Attachment()
{
    if (!m_attachment)
        return;
    try {
        detach();
    } catch (const DbError &) {
        // The connection is gone already.
    }
}

void Attachment::attach(const Target &target, bool setForcedWrites)
{
    ParameterBlock block(ParameterBlock::Kind::Attach);
    addCommonParameters(block, target);
    if (setForcedWrites)
        block.number(isc_dpb_force_write, target.forcedWrites ? 1 : 0);
    m_attachment.reset(provider()->attachDatabase(&m_status, placeOf(target).constData(),
                                                  block.length(), block.data()));
}

bool Attachment::hasForcedWrites()
{
    constexpr std::array<unsigned char, 2> items = {isc_info_forced_writes, isc_info_end};
    std::array<unsigned char, 32> answer{};
    m_attachment->getInfo(&m_status, static_cast<unsigned>(items.size()), items.data(),
                          static_cast<unsigned>(answer.size()), answer.data());
    // The item, two bytes of length, the value.
    return answer[0] == isc_info_forced_writes && answer[3] != 0;
}

void Attachment::executeAlone(const QString &statement)
{
    // In a transaction of its own, which waits a second for whoever is just leaving the table.
    Transaction transaction(*this, Transaction::Mode::Ddl);
    const QByteArray text = utf8(statement);
    m_attachment->execute(&m_status, transaction.get(), static_cast<unsigned>(text.size()),
                          text.constData(), dialect, nullptr, nullptr, nullptr, nullptr);
    transaction.commit();
}

void Attachment::detach()
{
    m_attachment->detach(&m_status);
    m_attachment.take();
}

void Attachment::drop()
{
    m_attachment->dropDatabase(&m_status);
    m_attachment.take();
}

} // namespace db::engine
