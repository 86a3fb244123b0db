#pragma once

#include "core/RecordStore.h"
#include "core/Tables.h"
#include "core/Usage.h"
#include "platform/base/Trapped.h"

/// What the managers of the master tables do alike. A manager is a description of its table and
/// one line for each operation.
namespace record {

template<class Record>
struct MasterTable
{
    const char *module; ///< label in error reports
    Store store;
    QStringView table;
    QStringView key; ///< a numeric column, not among the fields when the database gives it
    qint64 Record::*id;
    std::span<const Field<Record>> fields;
    std::span<const UsageTest> usage;
    QStringView order; ///< of the list
};

/// The record of a row.
template<class Record>
[[nodiscard]] Record fromRow(const MasterTable<Record> &master, const db::Row &row)
{
    Record record = load<Record>(row, master.fields);
    record.*master.id = row.integer(master.key);
    return record;
}

/// Adds or changes the record by its mode (see save). False when that failed, which has been
/// reported then. Inside a whole the error goes on to who holds the whole.
template<class Record>
[[nodiscard]] bool saveRecord(const MasterTable<Record> &master, const Record &record, Mode mode,
                              const std::optional<Record> &shown)
{
    return base::trapped(master.module, "SaveRecord", false, [&] {
        save<Record>(master.store, master.table, master.fields, record, shown, mode, master.key,
                     record.*master.id, [&](const db::Row &row) { return fromRow(master, row); });
        return true;
    });
}

/// Deletes the row of a key; one that is gone already counts as deleted. False when that failed,
/// reported as above. Who refers to the row is asked before.
template<class Record>
[[nodiscard]] bool deleteRecord(const MasterTable<Record> &master, qint64 id)
{
    return base::trapped(master.module, "DeleteRecord", false, [&] {
        connection(master.store)
            .Execute(QStringLiteral("Delete from %1 where %2 = ?")
                         .arg(master.table.toString(), master.key.toString()),
                     {id});
        return true;
    });
}

/// All rows in the order of the list.
template<class Record>
[[nodiscard]] db::Recordset list(const MasterTable<Record> &master)
{
    return master.store == Store::Lookup
               ? GetTableInfoWithIndicator(master.table.toString(), master.order.toString())
               : GetTableInfo(master.table.toString(), master.order.toString());
}

} // namespace record
