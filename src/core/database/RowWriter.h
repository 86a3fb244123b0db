#pragma once

#include "platform/db/Connection.h"

#include <QStringList>

namespace company {

/// Transactions of some thousand rows on a connection that nobody else uses meanwhile: one commit
/// for each row costs more than the row, one for all of them lets a failure cost everything.
class Batch
{
public:
    /// Begins the first transaction. Raises DbError, as all that follows.
    explicit Batch(db::Connection &connection);
    /// Rolls back what commit() has not made permanent.
    ~Batch();
    Batch(const Batch &) = delete;
    Batch &operator=(const Batch &) = delete;

    [[nodiscard]] db::Connection &connection() { return m_connection; }
    /// Counts one statement, and begins the next transaction after some thousand.
    void count();
    /// Makes the last transaction permanent; the earlier ones are already.
    void commit();

private:
    db::Connection &m_connection;
    int m_statements = 0;
};

/// Inserts rows of one shape into a table.
class RowWriter
{
public:
    RowWriter(Batch &batch, const QString &table, const QStringList &columns);
    /// One value for each column, in their order.
    void add(const QVariantList &values);

private:
    Batch &m_batch;
    QString m_statement;
};

/// Moves a table's counter on, so that the next row gets the given number. The table must hold no
/// number at or above it.
void setCounter(db::Connection &connection, const QString &table, const QString &column,
                qint64 next);

} // namespace company
