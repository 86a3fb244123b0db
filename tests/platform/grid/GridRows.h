#pragma once

#include "platform/db/RecordsetOf.h"

namespace test {

/// Four parts, not in the order of any column.
inline db::Recordset parts()
{
    using sql::ColumnKind;
    const auto day = [](int month, int dayOfMonth) {
        return QVariant(base::wallClock(QDate(2024, month, dayOfMonth)));
    };
    return recordsetOf({{QStringLiteral("Part Number"), ColumnKind::Text},
                        {QStringLiteral("Description"), ColumnKind::Text},
                        {QStringLiteral("Qty on Hand"), ColumnKind::Integer},
                        {QStringLiteral("Price"), ColumnKind::Money},
                        {QStringLiteral("Ordered"), ColumnKind::Date},
                        {QStringLiteral("Inactive"), ColumnKind::YesNo},
                        {QStringLiteral("SupplierID"), ColumnKind::Integer}},
                       {{"b-20", "Mower blade", 9, 12.5, day(3, 9), 0, 7},
                        {"A-100", "oil filter", 10, 4.25, QVariant(), -1, 8},
                        {"a-101", "Oil, 10W30", 2, 12.5, day(1, 31), 0, 99},
                        {"C'3", QVariant(), QVariant(), QVariant(), day(12, 1), 0, QVariant()}});
}

} // namespace test
