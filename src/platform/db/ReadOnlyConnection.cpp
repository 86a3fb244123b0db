#include "platform/db/ReadOnlyConnection.h"

#include "platform/sql/Parser.h"

namespace db {

using namespace Qt::StringLiterals;

ReadOnlyConnection::ReadOnlyConnection(const Target &target)
    : m_connection(target)
{}

Recordset ReadOnlyConnection::Open(const QString &statement, const QVariantList &parameters)
{
    demandQuery(statement);
    return m_connection.Open(statement, parameters);
}

Recordset openReadOnly(Connection &connection, const QString &statement)
{
    demandQuery(statement);
    // Outside of a transaction a connection reads in one that can only read.
    if (connection.InTransaction())
        return ReadOnlyConnection(connection.target()).Open(statement);
    return connection.Open(statement);
}

void demandQuery(const QString &statement)
{
    sql::StatementKind kind{};
    try {
        kind = sql::Parser(statement).parseStatement().kind;
    } catch (const base::Error &error) {
        throw DbError(error.number(), error.description(), statement);
    }
    if (kind != sql::StatementKind::Query)
        throw DbError(ErrorNumber::ReadOnly,
                      u"A report may only read: its statement has to begin with \"Select\"."_s,
                      statement);
}

} // namespace db
