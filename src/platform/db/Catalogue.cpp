#include "platform/db/Catalogue.h"

#include "platform/db/Statement.h"
#include "platform/sql/EngineTypes.h"

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;

enum CatalogueColumn { TableName, ColumnName, Domain, Type, SubType, Scale, Length, Identity };

QString textOf(const RowData &rows, int row, int column)
{
    const std::string_view text = rows.text(row, column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

sql::Schema readCatalogue(const Context &context)
{
    const auto rows = query(
        context,
        u"SELECT R.RDB$RELATION_NAME, C.RDB$FIELD_NAME, C.RDB$FIELD_SOURCE, F.RDB$FIELD_TYPE, "
        "COALESCE(F.RDB$FIELD_SUB_TYPE, 0), COALESCE(F.RDB$FIELD_SCALE, 0), "
        "COALESCE(F.RDB$CHARACTER_LENGTH, 0), IIF(C.RDB$IDENTITY_TYPE IS NULL, 0, 1) "
        "FROM RDB$RELATIONS R "
        "JOIN RDB$RELATION_FIELDS C ON C.RDB$RELATION_NAME = R.RDB$RELATION_NAME "
        "JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = C.RDB$FIELD_SOURCE "
        "WHERE COALESCE(R.RDB$SYSTEM_FLAG, 0) = 0 "
        "ORDER BY R.RDB$RELATION_NAME, C.RDB$FIELD_POSITION"_s);
    sql::Schema schema;
    sql::Table table;
    for (int row = 0; row < rows->rowCount(); ++row) {
        const QString name = textOf(*rows, row, TableName);
        // The columns come sorted by table, each in its place.
        if (name != table.name && !table.name.isEmpty())
            schema.add(std::exchange(table, {}));
        table.name = name;
        const auto number = [&](CatalogueColumn column) {
            return static_cast<int>(rows->integer(row, column));
        };
        table.columns.push_back(sql::EngineTypes::columnFromCatalogue(
            textOf(*rows, row, ColumnName), textOf(*rows, row, Domain), number(Type),
            number(SubType), number(Scale), number(Length), number(Identity) != 0));
    }
    if (!table.name.isEmpty())
        schema.add(std::move(table));
    return schema;
}

} // namespace db::engine
