#include "platform/sql/Schema.h"

namespace sql {

const Column *Table::find(QStringView column) const
{
    for (const Column &candidate : columns) {
        if (candidate.name.size() == column.size() &&
            candidate.name.compare(column, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

/// A second table of the name takes the place of the first, as the newer reading of it.
void Schema::add(Table table)
{
    QString key = table.name.toLower();
    m_tables.emplace(std::move(key), std::move(table));
}

const Table *Schema::find(QStringView table) const
{
    const auto found = m_tables.constFind(table.toString().toLower());
    return found == m_tables.constEnd() ? nullptr : &*found;
}

} // namespace sql
