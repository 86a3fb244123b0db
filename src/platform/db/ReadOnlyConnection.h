#pragma once

#include "platform/db/Connection.h"

namespace db {

/// A connection for statements that come from outside of the program, such as those of report
/// layouts: it can do nothing but read. What is not one query is refused before it runs, and the
/// query runs in a transaction that the engine lets write nothing.
class ReadOnlyConnection
{
public:
    /// Attaches beside the other connections; raises DbError as Connection does.
    explicit ReadOnlyConnection(const Target &target);

    /// Runs a query and fetches all its rows. Raises DbError: ReadOnly for another statement, a
    /// syntax error for more than one.
    [[nodiscard]] Recordset Open(const QString &statement, const QVariantList &parameters = {});

private:
    Connection m_connection; ///< never begins a transaction, so that all is read in a reading one
};

/// Runs a query of that kind on a connection that is open already, and on one of its own while a
/// transaction is open there that could write: what that one has not committed is not seen then.
/// Raises DbError as ReadOnlyConnection::Open does.
[[nodiscard]] Recordset openReadOnly(Connection &connection, const QString &statement);

/// Raises DbError as ReadOnlyConnection::Open does when a statement is not one query.
void demandQuery(const QString &statement);

} // namespace db
