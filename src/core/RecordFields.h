#pragma once

#include "platform/db/Recordset.h"

#include <QString>
#include <QVariantList>
#include <initializer_list>
#include <span>
#include <variant>
#include <vector>

/// One table of column and member serves a record's loading, inserting and updating, so that a new
/// column can't be forgotten in one of them.
///
///     struct clsCrew { qint64 CrewID = 0; QString CrewNumber; QString Description; };
///     constexpr record::Field<clsCrew> Fields[] = {
///         {u"CrewID", &clsCrew::CrewID}, {u"CrewNumber", &clsCrew::CrewNumber}, ...};
///     const clsCrew crew = record::load<clsCrew>(row, Fields);
namespace record {

/// A member that holds one column. Texts and numbers read Null as empty and 0; a date member holds
/// the zero date (invalid) for Null and writes Null for it.
template<class Record>
using Member = std::variant<QString Record::*, qint64 Record::*, int Record::*, double Record::*,
                            QDateTime Record::*>;

template<class Record>
struct Field
{
    QStringView column;
    Member<Record> member;
};

/// A member's value as a statement takes it.
template<class Record>
QVariant value(const Record &record, const Member<Record> &source)
{
    return std::visit(
        [&](auto member) -> QVariant {
            using Value = std::decay_t<decltype(record.*member)>;
            if constexpr (std::is_same_v<Value, QDateTime>)
                return (record.*member).isValid() ? QVariant(record.*member) : QVariant();
            else
                return QVariant::fromValue(record.*member);
        },
        source);
}

template<class Record>
QVariant value(const Record &record, const Field<Record> &field)
{
    return value(record, field.member);
}

/// Puts a value, as value() gives it, into a member.
template<class Record>
void setValue(Record &record, const Member<Record> &target, const QVariant &value)
{
    std::visit(
        [&](auto member) {
            using Value = std::decay_t<decltype(record.*member)>;
            record.*member = value.value<Value>();
        },
        target);
}

/// The values of all fields, in their order.
template<class Record>
QVariantList values(const Record &record, std::span<const Field<Record>> fields)
{
    QVariantList result;
    result.reserve(static_cast<qsizetype>(fields.size()));
    for (const Field<Record> &field : fields)
        result.append(value(record, field));
    return result;
}

/// A whole number of a row. A text column may hold blanks or words from older releases, which count
/// as 0: a record must be shown even then.
[[nodiscard]] inline qint64 wholeNumber(const db::Row &row, QStringView column)
{
    const QVariant value = row[column];
    return value.typeId() == QMetaType::QString ? value.toString().trimmed().toLongLong()
                                                : row.integer(column);
}

/// Reads all fields from a row; a column that the row lacks raises base::Error NoSuchItem.
template<class Record>
Record load(const db::Row &row, std::span<const Field<Record>> fields)
{
    Record record;
    for (const Field<Record> &field : fields) {
        std::visit(
            [&](auto member) {
                using Value = std::decay_t<decltype(record.*member)>;
                if constexpr (std::is_same_v<Value, QString>)
                    record.*member = row.text(field.column);
                else if constexpr (std::is_same_v<Value, double>)
                    record.*member = row.real(field.column);
                else if constexpr (std::is_same_v<Value, QDateTime>)
                    record.*member = row.date(field.column);
                else
                    record.*member = static_cast<Value>(wholeNumber(row, field.column));
            },
            field.member);
    }
    return record;
}

/// "Insert into table(columns) values(?,...)" of the given columns.
[[nodiscard]] QString insertStatement(QStringView table, std::span<const QStringView> columns);
/// "Update table set column = ?, ... where key = ?" of the given columns.
[[nodiscard]] QString updateStatement(QStringView table, std::span<const QStringView> columns,
                                      QStringView key);

/// The columns of a table of fields, in their order.
template<class Record>
std::vector<QStringView> columns(std::span<const Field<Record>> fields)
{
    std::vector<QStringView> result;
    result.reserve(fields.size());
    for (const Field<Record> &field : fields)
        result.push_back(field.column);
    return result;
}

template<class Record>
QString insertStatement(QStringView table, std::span<const Field<Record>> fields)
{
    return insertStatement(table, columns(fields));
}

template<class Record>
QString updateStatement(QStringView table, std::span<const Field<Record>> fields, QStringView key)
{
    return updateStatement(table, columns(fields), key);
}

} // namespace record
