#include "core/RecordStore.h"

using namespace Qt::StringLiterals;

namespace record {
namespace {

QString told(const std::vector<Difference> &differences)
{
    return differences.empty()
               ? u"This record has been deleted or renumbered on another workstation. Nothing was "
                 "stored."_s
               : u"This record has been changed on another workstation. Nothing was stored."_s;
}

bool isSame(const QVariant &left, const QVariant &right)
{
    if (left.isNull() || right.isNull())
        return left.toString().isEmpty() && right.toString().isEmpty();
    // What was shown may be of another type than what the row holds.
    return left == right || left.toString() == right.toString();
}

} // namespace

Conflict::Conflict(std::vector<Difference> differences)
    : Error(base::ErrorNumber::NoCurrentRow, told(differences))
    , m_differences(std::move(differences))
{}

ShortTransaction::ShortTransaction(db::Connection &connection)
    : m_connection(connection)
    , m_isOwn(!connection.InTransaction())
{
    if (m_isOwn)
        m_connection.BeginTrans();
}

ShortTransaction::~ShortTransaction()
{
    if (!m_isOwn)
        return;
    try {
        m_connection.RollbackTrans();
    } catch (const base::Error &error) {
        // Another error is on its way, which is the one to report.
        qWarning("rollback: %s", error.what());
    }
}

void ShortTransaction::commit()
{
    if (m_isOwn)
        m_connection.CommitTrans();
    m_isOwn = false;
}

db::Recordset hold(db::Connection &connection, QStringView table, QStringView keyColumn,
                   const QVariant &key)
{
    // Writing a row without changing it takes it for this transaction, so that what is read next
    // stays true until the end of it.
    const QString condition = u" where [%1] = ?"_s.arg(keyColumn);
    if (connection.Execute(
            u"Update %1 set [%2] = [%2]"_s.arg(table.toString(), keyColumn.toString()) + condition,
            {key}) == 0)
        throw Conflict();
    return connection.Open(u"Select * from "_s + table.toString() + condition, {key});
}

void demandShown(const db::Row &now, const QString &column, const QVariant &value,
                 const std::optional<QVariant> &shown)
{
    if (shown && !isSame(now[column], *shown) && !isSame(now[column], value))
        throw Conflict({{column, now[column], value}});
}

} // namespace record
