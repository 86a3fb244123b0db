#include "platform/sql/Tree.h"

#include "platform/sql/Names.h"

namespace sql {

int Source::columnCount() const
{
    return static_cast<int>(table ? table->columns.size() : derivedColumns.size());
}

int Source::find(QStringView column) const
{
    const int count = columnCount();
    for (int i = 0; i < count; ++i) {
        if (equalNames(columnName(i), column))
            return i;
    }
    return -1;
}

const QString &Source::columnName(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return table ? table->columns[at].name : derivedColumns[at].name;
}

const QString &Source::writtenColumn(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return table ? table->columns[at].name : derivedColumns[at].written;
}

ColumnKind Source::columnKind(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return table ? table->columns[at].kind : derivedColumns[at].kind;
}

int Source::columnLength(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return table ? table->columns[at].length : derivedColumns[at].length;
}

} // namespace sql
