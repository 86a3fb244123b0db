#pragma once

#include "platform/base/Environment.h"
#include "platform/db/Recordset.h"
#include "platform/db/RowData.h"

#include <QVariant>

namespace test {

/// A column of a recordset made by hand.
struct Field
{
    QString name;
    sql::ColumnKind kind;
};

/// A recordset made by hand: no database needed.
inline db::Recordset recordsetOf(const std::vector<Field> &fields,
                                 const std::vector<std::vector<QVariant>> &rows)
{
    using Kind = sql::ColumnKind;
    using Storage = db::RowData::Storage;
    std::vector<db::RowLayout::Column> columns;
    for (const auto &[name, kind] : fields)
        columns.push_back({name, kind,
                           kind == Kind::Real || kind == Kind::Money ? Storage::Real
                           : kind == Kind::Text                      ? Storage::Text
                           : kind == Kind::Date                      ? Storage::Date
                           : kind == Kind::Binary                    ? Storage::Bytes
                                                                     : Storage::Integer});
    auto data = std::make_shared<db::RowData>(std::make_shared<db::RowLayout>(columns));
    for (const auto &row : rows) {
        for (int column = 0; column < data->columnCount(); ++column) {
            const QVariant &value = row[static_cast<std::size_t>(column)];
            const QByteArray bytes = value.toByteArray();
            const Storage storage = data->storage(column);
            if (value.isNull())
                data->addNull(column);
            else if (storage == Storage::Real)
                data->addReal(column, value.toDouble());
            else if (storage == Storage::Date)
                data->addInteger(column, value.toDateTime().toMSecsSinceEpoch());
            else if (storage == Storage::Text)
                data->addText(column, bytes.constData(), static_cast<std::size_t>(bytes.size()));
            else if (storage == Storage::Bytes)
                data->addBytes(column, bytes);
            else
                data->addInteger(column, value.toLongLong());
        }
        data->endRow();
    }
    return db::Recordset(std::move(data));
}

} // namespace test
