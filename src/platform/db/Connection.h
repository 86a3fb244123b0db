#pragma once

#include "platform/db/DbError.h"
#include "platform/db/Gradual.h"
#include "platform/db/Recordset.h"
#include "platform/sql/Schema.h"

#include <QString>
#include <QVariantList>
#include <functional>
#include <memory>

namespace db {

/// Where a database is and how to attach to it.
struct Target
{
    QString file; ///< full path, on the host when one is given
    QString host; ///< empty: the engine runs inside this process
    QString user = QStringLiteral("SYSDBA");
    QString password; ///< only for a host; never logged
    /// Off only for files that may be lost, such as those of tests.
    bool forcedWrites = true;
};

/// A statement as a connection gets it.
struct Sent
{
    const QString &statement;
    const QVariantList &parameters;
    QString returning; ///< the key column of an insert, or empty
};

/// A connection to one database. Usable from construction to destruction; not to be used from two
/// threads at once. Two connections to one file have independent transactions, and neither waits
/// for the other: a row that the other one holds raises LockConflict.
///
/// All statements are in the dialect of platform/sql, with "?" for parameters. Values are
/// QVariants: an invalid one is Null, whole numbers, doubles, bool, QString, QDate, QDateTime,
/// QByteArray. Outside a transaction every statement commits by itself. Every failure raises
/// DbError.
class Connection
{
public:
    /// Attaches; raises DbError when the file is missing, no database, or refuses.
    explicit Connection(const Target &target);
    /// Rolls back what is open and detaches.
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Runs a query and fetches all its rows.
    [[nodiscard]] Recordset Open(const QString &statement, const QVariantList &parameters = {});
    /// Runs a query whose rows are then fetched a part at a time.
    [[nodiscard]] Gradual OpenGradually(const QString &statement);
    /// Runs a statement without rows; the number of rows it changed, 0 for DDL.
    qint64 Execute(const QString &statement, const QVariantList &parameters = {});
    /// Runs an insert and returns the value that the engine gave to the key column.
    qint64 Insert(const QString &statement, const QVariantList &parameters,
                  const QString &keyColumn);

    /// The transaction of this connection, one at a time: Begin raises WrongTransactionState while
    /// one is open, the others when none is. A commit that failed leaves it open, a rollback ends
    /// it in any case.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    [[nodiscard]] bool InTransaction() const;

    /// The tables as this connection knows them now.
    [[nodiscard]] const sql::Schema &schema();
    /// How many statements this connection has had compiled so far, for measuring.
    [[nodiscard]] int preparations() const;
    [[nodiscard]] const Target &target() const;

    /// Is told of each statement before it runs; what it throws is the statement's failure. Lets a
    /// test fail a procedure at any of its steps.
    using Observer = std::function<void(const Sent &sent)>;
    void setObserver(Observer observer);

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace db
