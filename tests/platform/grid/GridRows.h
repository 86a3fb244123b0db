#pragma once

#include "platform/base/Environment.h"
#include "platform/db/Recordset.h"
#include "platform/db/RowData.h"

#include <QVariant>
#include <initializer_list>
#include <memory>
#include <vector>

namespace test {

/// A field of a recordset made by hand.
struct Field
{
    QString name;
    sql::ColumnKind kind;
};

/// A recordset made by hand: no database needed.
inline db::Recordset recordsetOf(const std::vector<Field> &fields,
                                 const std::vector<std::vector<QVariant>> &rows)
{
    using Storage = db::RowData::Storage;
    std::vector<db::RowLayout::Column> columns;
    for (const Field &field : fields) {
        const bool isReal =
            field.kind == sql::ColumnKind::Real || field.kind == sql::ColumnKind::Money;
        columns.push_back({field.name, field.kind,
                           isReal                                ? Storage::Real
                           : field.kind == sql::ColumnKind::Text ? Storage::Text
                           : field.kind == sql::ColumnKind::Date ? Storage::Date
                                                                 : Storage::Integer});
    }
    const auto data =
        std::make_shared<db::RowData>(std::make_shared<db::RowLayout>(std::move(columns)));
    for (const auto &row : rows) {
        for (int column = 0; column < data->columnCount(); ++column) {
            const QVariant &value = row[static_cast<std::size_t>(column)];
            const QByteArray utf8 = value.toString().toUtf8();
            const Storage storage = data->storage(column);
            if (value.isNull())
                data->addNull(column);
            else if (storage == Storage::Real)
                data->addReal(column, value.toDouble());
            else if (storage == Storage::Date)
                data->addInteger(column, value.toDateTime().toMSecsSinceEpoch());
            else if (storage == Storage::Text)
                data->addText(column, utf8.constData(), static_cast<std::size_t>(utf8.size()));
            else
                data->addInteger(column, value.toLongLong());
        }
        data->endRow();
    }
    return db::Recordset(data);
}

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
