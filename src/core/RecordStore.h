#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "core/Session.h"

#include <optional>
#include <vector>

/// The writes that all managers share, over a record's table of fields.
///
/// Several workstations show and change one row at the same time. So a change writes only the
/// columns in which the record differs from what was shown, and only while the row still holds
/// there what was shown; otherwise it writes nothing and raises a Conflict.
namespace record {

/// Which connection a table lives on.
enum class Store { Data, Lookup };

/// The open connection of a store. Only for who knows that a database is open: it checks nothing.
[[nodiscard]] inline db::Connection &connection(Store store)
{
    return store == Store::Data ? *gcnData : *gcnLookup;
}

/// A column that somebody else has changed meanwhile.
struct Difference
{
    QString column;
    QVariant theirs; ///< what the row holds now
    QVariant mine;   ///< what was to be written
};

/// The row is not as it was when it was shown. Nothing has been written.
class Conflict : public base::Error
{
public:
    /// Without differences the row is gone: deleted, or known by another key.
    explicit Conflict(std::vector<Difference> differences = {});
    [[nodiscard]] bool isGone() const noexcept { return m_differences.empty(); }
    [[nodiscard]] const std::vector<Difference> &differences() const noexcept
    {
        return m_differences;
    }

private:
    std::vector<Difference> m_differences;
};

/// A transaction of a few statements on a connection; joins the one that is open. Leaving without
/// commit() undoes its own one.
class ShortTransaction
{
public:
    explicit ShortTransaction(db::Connection &connection);
    ~ShortTransaction();
    ShortTransaction(const ShortTransaction &) = delete;
    ShortTransaction &operator=(const ShortTransaction &) = delete;

    void commit();

private:
    db::Connection &m_connection;
    bool m_isOwn;
};

/// Holds the row of a key for the transaction that is open on the connection, and returns it as it
/// is now. Raises Conflict when it is gone, DbError LockConflict while another workstation holds
/// it.
[[nodiscard]] db::Recordset hold(db::Connection &connection, QStringView table,
                                 QStringView keyColumn, const QVariant &key);

/// Raises Conflict when a column of a row holds neither what was shown nor what is to be written.
/// An empty text counts as the Null that shows it.
void demandShown(const db::Row &now, const QString &column, const QVariant &value,
                 const std::optional<QVariant> &shown);

/// Writes the fields in which a record differs from what was shown to the row of a key, inside a
/// transaction of its own or the one that is open. Without a shown record the row itself counts as
/// shown. load reads a record from a row. Raises Conflict and DbError.
template<class Record, class Load>
void change(Store store, QStringView table, std::span<const Field<Record>> fields,
            const Record &mine, const std::optional<Record> &shown, QStringView keyColumn,
            const QVariant &key, Load &&load)
{
    db::Connection &data = connection(store);
    ShortTransaction transaction(data);
    const Record theirs = load(hold(data, table, keyColumn, key).row(0));
    const Record &before = shown ? *shown : theirs;
    std::vector<QStringView> columns;
    QVariantList values;
    std::vector<Difference> differences;
    for (const Field<Record> &field : fields) {
        const QVariant wanted = value(mine, field);
        const QVariant found = value(theirs, field);
        if (wanted == value(before, field) || wanted == found)
            continue;
        if (found != value(before, field))
            differences.push_back({field.column.toString(), found, wanted});
        columns.push_back(field.column);
        values.append(wanted);
    }
    if (!differences.empty())
        throw Conflict(std::move(differences));
    if (!columns.empty())
        data.Execute(updateStatement(table, columns, keyColumn), values << key);
    transaction.commit();
}

/// Writes a record: mode Add inserts its fields, mode Modify changes the row of that key (see
/// change); any other mode runs nothing. Raises Conflict and DbError.
template<class Record, class Load>
void save(Store store, QStringView table, std::span<const Field<Record>> fields,
          const Record &record, const std::optional<Record> &shown, Mode mode,
          QStringView keyColumn, const QVariant &key, Load &&load)
{
    if (mode == Mode::Add)
        connection(store).Execute(insertStatement(table, fields), values(record, fields));
    else if (mode == Mode::Modify)
        change(store, table, fields, record, shown, keyColumn, key, std::forward<Load>(load));
}

} // namespace record
