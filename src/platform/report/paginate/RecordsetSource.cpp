#include "platform/report/paginate/RecordsetSource.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/RowOrder.h"

#include <numeric>

namespace report {

RecordsetSource::RecordsetSource(db::Recordset rows)
    : m_rows(std::move(rows))
    , m_order(static_cast<std::size_t>(m_rows.RecordCount()))
{
    std::iota(m_order.begin(), m_order.end(), 0);
}

void RecordsetSource::sortFor(const Layout &layout, const Inputs &inputs)
{
    std::vector<int> order;
    order.reserve(m_order.size());
    for (const int row : orderOf(layout, *this, inputs))
        // By way of the former order, so that sorting twice sorts what was sorted.
        order.push_back(m_order[static_cast<std::size_t>(row)]);
    m_order = std::move(order);
}

void RecordsetSource::addOnce(const QString &name, const QString &field, const QString &key)
{
    const int keyColumn = m_rows.columnIndex(key);
    const int column = m_rows.columnIndex(field);
    if (keyColumn < 0 || column < 0)
        return;
    OnceField once{name, column, std::vector<bool>(m_order.size(), true)};
    for (std::size_t row = 1; row < m_order.size(); ++row)
        // Rows with the same key stand together after the sort; the value shows with the first of
        // them.
        once.shown[row] = compareValues(m_rows.value(m_order[row - 1], keyColumn),
                                        m_rows.value(m_order[row], keyColumn)) != 0;
    m_once.push_back(std::move(once));
}

void RecordsetSource::addValues(const QString &name, QVariantList values)
{
    m_added.push_back({name, std::move(values)});
}

int RecordsetSource::rowCount() const
{
    return static_cast<int>(m_order.size());
}

int RecordsetSource::fieldIndex(const QString &name) const
{
    for (std::size_t index = 0; index < m_once.size(); ++index)
        if (name.compare(m_once[index].name, Qt::CaseInsensitive) == 0)
            // Fields that were added are numbered behind the query's.
            return m_rows.columnCount() + static_cast<int>(index);
    for (std::size_t index = 0; index < m_added.size(); ++index)
        if (name.compare(m_added[index].name, Qt::CaseInsensitive) == 0)
            return m_rows.columnCount() + static_cast<int>(m_once.size() + index);
    return m_rows.columnIndex(name);
}

QVariant RecordsetSource::value(int row, int field) const
{
    const int stored = m_order[static_cast<std::size_t>(row)];
    if (field < m_rows.columnCount())
        return m_rows.value(stored, field);
    const auto further = static_cast<std::size_t>(field - m_rows.columnCount());
    if (further >= m_once.size())
        return m_added[further - m_once.size()].values.value(stored);
    const OnceField &once = m_once[further];
    return once.shown[static_cast<std::size_t>(row)] ? m_rows.value(stored, once.field)
                                                     : QVariant();
}

} // namespace report
