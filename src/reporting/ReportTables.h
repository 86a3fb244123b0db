#pragma once

#include "platform/sql/Schema.h"

#include <QList>
#include <QString>

/// The tables that a report of the user's own can show, in his words, and by which keys they join.
namespace reporttables {

struct Column
{
    QString name;
    QString caption; ///< as searches call it, else the name in words
    sql::ColumnKind kind = sql::ColumnKind::Unknown;
    int length = 0;      ///< characters of a text
    bool isFlag = false; ///< stands for Yes or No, as a number too
};

struct Table
{
    QString name;
    QString caption;
    QList<Column> columns;

    /// The column of a name in any case, or null.
    [[nodiscard]] const Column *find(QStringView column) const;
};

/// How a row of one table finds its row of another.
struct Link
{
    QString table;
    QString column;
    QString to;
    QString key;     ///< the other table's column
    QString as;      ///< what the other table is called in a statement that joins it so
    QString caption; ///< what the other row is to this one: "Supplier", "Make"
    QString shown;   ///< the other table's column that says which row it is
};

/// All tables in the order in which they are offered, with the columns that the database has now:
/// first the eight of machines, services, open orders and parts that most reports are made of.
/// Data, lookup. Raises DbError.
[[nodiscard]] QList<Table> tables();
/// The table of a name in any case, or null.
[[nodiscard]] const Table *tableOf(const QList<Table> &tables, QStringView name);

/// All links, those of one table together.
[[nodiscard]] const QList<Link> &links();
/// The links from a table.
[[nodiscard]] QList<Link> linksOf(QStringView table);
/// The link by which a table meets one of those that are there already, in either direction;
/// nothing to join by gives one without a column. The result leads from the present to the new one.
[[nodiscard]] Link linkBetween(const QString &present, const QString &added);

/// A name in words: "QuantityRequired" is "Quantity Required", "PartID" is "Part ID".
[[nodiscard]] QString inWords(const QString &name);

} // namespace reporttables
