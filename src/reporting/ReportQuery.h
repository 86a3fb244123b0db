#pragma once

#include "reporting/ReportTables.h"

#include <QList>
#include <QString>
#include <optional>

/// A query as it is put together by picking: tables, joins, columns, filter and sort. It is a plain
/// value; the text in the dialect is made of it, and read back where it can be shown so.
namespace reportquery {

/// A column of one of the query's tables.
struct Place
{
    QString table; ///< the table's name in the query
    QString column;

    bool operator==(const Place &) const = default;
};

/// A table of the query; every one but the first is joined to one before it.
struct Source
{
    QString table{};
    QString as{};              ///< its name in the query; empty for the table's own
    QString column{};          ///< of this table
    Place to{};                ///< what it equals
    bool onlyMatching = false; ///< rows without a partner are left out

    [[nodiscard]] const QString &name() const { return as.isEmpty() ? table : as; }
    bool operator==(const Source &) const = default;
};

struct Column
{
    Place place;
    QString as; ///< what the report calls it; empty for the column's own name

    [[nodiscard]] const QString &name() const { return as.isEmpty() ? place.column : as; }
    bool operator==(const Column &) const = default;
};

enum class Comparison {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Contains,
    BeginsWith,
    IsEmpty,
    IsNotEmpty,
};

/// A row is in the report when all conditions hold.
struct Condition
{
    Place place;
    Comparison comparison = Comparison::Equal;
    QString value;            ///< as the user types it: 12.5, 03/15/2024, Yes, a text
    bool isParameter = false; ///< the value is the name of one of the report's parameters

    bool operator==(const Condition &) const = default;
};

struct Sort
{
    Place place;
    bool descending = false;

    bool operator==(const Sort &) const = default;
};

struct Query
{
    QList<Source> sources;
    QList<Column> columns;
    QList<Condition> conditions;
    QList<Sort> sort;
    bool distinct = false;

    /// The table of that name in the query, in any case; null for none.
    [[nodiscard]] const Source *find(QStringView name) const;
    bool operator==(const Query &) const = default;
};

/// The kind of a column of the query.
[[nodiscard]] sql::ColumnKind kindOf(const Query &query, const Place &place,
                                     const QList<reporttables::Table> &tables);
/// Adds a table, joined by the key that the house knows to the last of those that it can be joined
/// to, under a name that is free; its number comes back.
int addSource(Query &query, const QString &table);
/// Adds the table behind a link, unless it is joined so already; its name in the query comes back.
QString addLinked(Query &query, const QString &from, const reporttables::Link &link);
/// Adds a column under a name that no other one has.
void addColumn(Query &query, const Place &place, const QString &wanted = {});
/// Removes a table with all that speaks of it and of those that are joined to it.
void removeSource(Query &query, int source);

/// Why the query can't be run as it stands, in words for the user; empty when it can.
[[nodiscard]] QString problemOf(const Query &query, const QList<reporttables::Table> &tables);
/// The query in the dialect; of one that has a problem what can be written of it.
[[nodiscard]] QString textOf(const Query &query, const QList<reporttables::Table> &tables);
/// The query that a text says; nothing for one that can't be shown by picking.
[[nodiscard]] std::optional<Query> read(const QString &text,
                                        const QList<reporttables::Table> &tables);

} // namespace reportquery
