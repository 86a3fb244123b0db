#pragma once

#include "platform/db/Connection.h"
#include "platform/db/Engine.h"
#include "platform/db/SharedUse.h"

#include <optional>

namespace db::engine {

/// The place of a database as the engine takes it: the file, or "host:file".
[[nodiscard]] QByteArray placeOf(const Target &target);
/// The same for all targets that mean one database.
[[nodiscard]] QByteArray identityOf(const Target &target);

class Attachment;

/// A transaction; rolled back unless it was committed.
class Transaction
{
public:
    enum class Mode {
        Write,
        /// Costs nothing to keep open for hours: it holds neither rows nor old versions of them.
        Read,
        /// For changes of tables: gives other attachments, which may keep the table's description
        /// though they don't use it now, a moment to let go of it.
        Ddl,
    };

    Transaction() = default;
    /// The attachment must outlive it.
    Transaction(Attachment &attachment, Mode mode);
    ~Transaction();
    Transaction(Transaction &&) noexcept = default;
    Transaction &operator=(Transaction &&other) noexcept;

    /// A commit that fails raises DbError and leaves the transaction open. After rollback it is
    /// over, whatever the engine answered.
    void commit();
    void rollback();
    [[nodiscard]] Firebird::ITransaction *get() const { return m_transaction.get(); }
    explicit operator bool() const { return static_cast<bool>(m_transaction); }

private:
    Status *m_status = nullptr; ///< the attachment's, since making one costs something
    Ref<Firebird::ITransaction> m_transaction;
};

/// An attachment to a database; detached at the end.
class Attachment
{
public:
    enum class Disposition { Existing, Create };

    /// Opens the database, or makes the file. Sets forced writes as the target says, since a copied
    /// file may have come with another setting. Raises DbError, as all that follows.
    explicit Attachment(const Target &target, Disposition disposition = Disposition::Existing);
    ~Attachment();
    Attachment(const Attachment &) = delete;
    Attachment &operator=(const Attachment &) = delete;

    [[nodiscard]] Firebird::IAttachment *get() const { return m_attachment.get(); }

    /// Runs one statement of the engine that changes tables in a transaction of its own.
    void executeAlone(const QString &statement);
    /// Detaches now, so that a failure can be reported.
    void detach();
    /// Removes the database.
    void drop();

private:
    friend class Transaction;
    void attach(const Target &target, bool setForcedWrites);
    [[nodiscard]] bool hasForcedWrites();

    Status m_status;
    /// Outlives the attachment; none for a file on a host.
    std::optional<SharedUse> m_use;
    Ref<Firebird::IAttachment> m_attachment;
};

} // namespace db::engine
