#pragma once

#include "platform/sql/Schema.h"

#include <QString>
#include <QVariant>

namespace exchange {

/// How a value of the database stands in a file for the handheld, which has no types of its own:
///
/// | Value | Form |
/// |---|---|
/// | Null | empty |
/// | text | as it is |
/// | number | its digits, a point before decimals, no zeros behind them: 12.5, 3, -0.25 |
/// | date | month first without leading zeros: 3/9/2024 |
/// | date with a time of day | the same and the time of 12 hours: 3/9/2024 2:05:00 PM |
/// | Yes/No | True or False |
///
/// value is what a recordset gives, kind that of its column.
[[nodiscard]] QString valueText(const QVariant &value, sql::ColumnKind kind);

} // namespace exchange
