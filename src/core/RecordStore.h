#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "core/Session.h"

/// The writes that all managers share, over a record's table of fields.
namespace record {

/// Which connection a table lives on.
enum class Store { Data, Lookup };

[[nodiscard]] inline db::Connection &connection(Store store)
{
    return store == Store::Data ? *gcnData : *gcnLookup;
}

/// Writes a record: mode Add inserts its fields, mode Modify updates the row of that key; any other
/// mode runs nothing. Raises DbError.
template<class Record>
void save(Store store, QStringView table, std::span<const Field<Record>> fields,
          const Record &record, Mode mode, QStringView keyColumn, const QVariant &key)
{
    if (mode == Mode::Add) {
        connection(store).Execute(insertStatement(table, fields), values(record, fields));
    } else if (mode == Mode::Modify) {
        QVariantList parameters = values(record, fields);
        parameters.append(key);
        connection(store).Execute(updateStatement(table, fields, keyColumn), parameters);
    }
}

} // namespace record
