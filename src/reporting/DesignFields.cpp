#include "reporting/DesignFields.h"

#include "reporting/ReportQuery.h"

#include <QHash>
#include <algorithm>

namespace designfields {

using namespace Qt::StringLiterals;

namespace {

report::FieldType typeOf(sql::ColumnKind kind)
{
    switch (kind) {
    case sql::ColumnKind::Integer:
    case sql::ColumnKind::Real:
    case sql::ColumnKind::Money:
        return report::FieldType::Number;
    case sql::ColumnKind::Date:
        return report::FieldType::Date;
    case sql::ColumnKind::YesNo:
        return report::FieldType::YesNo;
    default:
        return report::FieldType::Text;
    }
}

/// How many tables have a column of a name, by the name in lower case.
QHash<QString, int> uses(const QList<reporttables::Table> &tables)
{
    QHash<QString, int> counts;
    for (const reporttables::Table &table : tables)
        for (const reporttables::Column &column : table.columns)
            ++counts[column.name.toLower()];
    return counts;
}

/// A column's name in a query: its own where no other table has one of that name.
QString nameIn(const reporttables::Table &table, const QString &column,
               const QHash<QString, int> &counts)
{
    return counts.value(column.toLower()) == 1 ? column : table.name.mid(3) + u'_' + column;
}

} // namespace

QList<report::DesignField> ofRows(const db::Recordset &rows,
                                  const QList<reporttables::Table> &tables)
{
    QHash<QString, QString> captions;
    const QHash<QString, int> counts = uses(tables);
    for (const reporttables::Table &table : tables)
        for (const reporttables::Column &column : table.columns) {
            const QString name = nameIn(table, column.name, counts).toLower();
            captions.insert(name, column.caption);
            // A query may use the plain name all the same: it is called as the first table calls
            // it.
            if (!captions.contains(column.name.toLower()))
                captions.insert(column.name.toLower(), column.caption);
        }
    QList<report::DesignField> fields;
    for (int column = 0; column < rows.columnCount(); ++column) {
        const QString name = rows.columnName(column);
        fields.append({.table = {},
                       .name = name,
                       .caption = captions.value(name.toLower(), reporttables::inWords(name)),
                       .type = typeOf(rows.columnKind(column))});
    }
    return fields;
}

QList<report::DesignField> ofTables(const QList<reporttables::Table> &tables)
{
    QList<report::DesignField> fields;
    const QHash<QString, int> counts = uses(tables);
    for (const reporttables::Table &table : tables)
        for (const reporttables::Column &column : table.columns)
            fields.append({.table = table.caption,
                           .name = nameIn(table, column.name, counts),
                           .caption = column.caption,
                           .type = typeOf(column.kind),
                           .isInQuery = false});
    return fields;
}

QString addTo(QString &query, const report::DesignField &field,
              const QList<reporttables::Table> &tables)
{
    const auto table = std::ranges::find(tables, field.table, &reporttables::Table::caption);
    if (table == tables.end())
        return u"There is no table \"%1\"."_s.arg(field.table);
    const QHash<QString, int> counts = uses(tables);
    const auto column = std::ranges::find_if(table->columns, [&](const reporttables::Column &each) {
        return nameIn(*table, each.name, counts) == field.name;
    });
    if (column == table->columns.end())
        return u"\"%1\" has no column \"%2\"."_s.arg(field.table, field.name);

    reportquery::Query picked;
    if (!query.trimmed().isEmpty()) {
        const auto read = reportquery::read(query, tables);
        if (!read)
            return u"The query of this report is written as text. Please add the column there."_s;
        picked = *read;
    }
    const auto joined = std::ranges::find(picked.sources, table->name, &reportquery::Source::table);
    const int source = joined == picked.sources.end()
                           ? reportquery::addSource(picked, table->name)
                           : static_cast<int>(joined - picked.sources.begin());
    // Without a key in common each row of one would meet all rows of the other.
    if (source > 0 && picked.sources[source].column.isEmpty())
        return u"\"%1\" has nothing in common with the tables that the report reads. Please join "
               u"it "
               "in the query."_s.arg(field.table);
    const reportquery::Place place{picked.sources[source].name(), column->name};
    const auto given = std::ranges::find_if(picked.columns, [&](const reportquery::Column &each) {
        return each.name().compare(field.name, Qt::CaseInsensitive) == 0;
    });
    if (given != picked.columns.end())
        return given->place == place
                   ? QString()
                   : u"The query has another column of the name \"%1\"."_s.arg(field.name);
    reportquery::addColumn(picked, place, field.name);
    query = reportquery::textOf(picked, tables);
    return {};
}

} // namespace designfields
