#pragma once

#include <QStringView>

namespace sql {

/// Names of tables, columns and aliases are the same in any case.
[[nodiscard]] inline bool equalNames(QStringView left, QStringView right)
{
    return left.size() == right.size() && left.compare(right, Qt::CaseInsensitive) == 0;
}

} // namespace sql
