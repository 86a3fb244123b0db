#include "core/database/RowWriter.h"

namespace company {
namespace {

using namespace Qt::StringLiterals;

constexpr int StatementsPerTransaction = 10000;

} // namespace

Batch::Batch(db::Connection &connection)
    : m_connection(connection)
{
    m_connection.BeginTrans();
}

Batch::~Batch()
{
    try {
        if (m_connection.InTransaction())
            m_connection.RollbackTrans();
    } catch (const base::Error &) {
        // The error that brought us here says more than that the rollback failed too.
    }
}

void Batch::count()
{
    if (++m_statements % StatementsPerTransaction != 0)
        return;
    m_connection.CommitTrans();
    m_connection.BeginTrans();
}

void Batch::commit()
{
    m_connection.CommitTrans();
}

RowWriter::RowWriter(Batch &batch, const QString &table, const QStringList &columns)
    : m_batch(batch)
    , m_statement(u"Insert into %1 (%2) values (%3)"_s.arg(
          table, columns.join(u", "_s), QStringList(columns.size(), u"?"_s).join(u", "_s)))
{}

void RowWriter::add(const QVariantList &values)
{
    m_batch.connection().Execute(m_statement, values);
    m_batch.count();
}

void setCounter(db::Connection &connection, const QString &table, const QString &column,
                qint64 next)
{
    connection.Execute(
        u"Alter table %1 alter column %2 counter(%3, 1)"_s.arg(table, column).arg(next));
}

} // namespace company
