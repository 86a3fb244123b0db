#include "platform/db/Structure.h"

#include "platform/db/Attachment.h"
#include "platform/db/Statement.h"

#include <algorithm>

namespace db {
namespace {

using namespace Qt::StringLiterals;

/// A column's domain says what it is, unless the engine made it up for the column.
constexpr auto columnsQuery =
    u"SELECT TRIM(C.RDB$RELATION_NAME) || '.' || TRIM(C.RDB$FIELD_NAME) || ': ' || "
    "IIF(F.RDB$FIELD_NAME STARTING WITH 'RDB$', "
    "F.RDB$FIELD_TYPE || '/' || COALESCE(F.RDB$FIELD_SUB_TYPE, 0) || '/' || "
    "COALESCE(F.RDB$FIELD_SCALE, 0) || '/' || COALESCE(F.RDB$CHARACTER_LENGTH, 0), "
    "TRIM(F.RDB$FIELD_NAME)) || "
    "IIF(COALESCE(C.RDB$NULL_FLAG, 0) = 1, ' not null', '') || "
    "IIF(C.RDB$IDENTITY_TYPE IS NULL, '', ' identity') || "
    "COALESCE(' ' || CAST(C.RDB$DEFAULT_SOURCE AS VARCHAR(500)), '') "
    "FROM RDB$RELATION_FIELDS C "
    "JOIN RDB$RELATIONS R ON R.RDB$RELATION_NAME = C.RDB$RELATION_NAME "
    "JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = C.RDB$FIELD_SOURCE "
    "WHERE COALESCE(R.RDB$SYSTEM_FLAG, 0) = 0";

constexpr auto indexesQuery =
    u"SELECT TRIM(I.RDB$RELATION_NAME) || ' index ' || "
    "IIF(I.RDB$INDEX_NAME STARTING WITH 'RDB$', '', TRIM(I.RDB$INDEX_NAME)) || "
    "IIF(COALESCE(I.RDB$UNIQUE_FLAG, 0) = 1, ' unique', '') || "
    "IIF(COALESCE(I.RDB$INDEX_TYPE, 0) = 1, ' descending', '') || "
    "COALESCE(' ' || TRIM(K.RDB$CONSTRAINT_TYPE), '') || "
    "COALESCE(' ' || CAST(I.RDB$EXPRESSION_SOURCE AS VARCHAR(500)), '') || ' (' || "
    "COALESCE((SELECT LIST(TRIM(S.RDB$FIELD_NAME)) FROM (SELECT RDB$INDEX_NAME, RDB$FIELD_NAME "
    "FROM RDB$INDEX_SEGMENTS ORDER BY RDB$FIELD_POSITION) S "
    "WHERE S.RDB$INDEX_NAME = I.RDB$INDEX_NAME), '') || ')' "
    "FROM RDB$INDICES I "
    "LEFT JOIN RDB$RELATION_CONSTRAINTS K ON K.RDB$INDEX_NAME = I.RDB$INDEX_NAME "
    "WHERE COALESCE(I.RDB$SYSTEM_FLAG, 0) = 0";

constexpr auto tablesQuery = u"SELECT TRIM(RDB$RELATION_NAME) FROM RDB$RELATIONS "
                             "WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 AND RDB$VIEW_BLR IS NULL";

/// The first column of a query of the engine's own.
QStringList linesOf(engine::Attachment &attachment, engine::Transaction &transaction,
                    const QString &query)
{
    const auto rows = engine::query({attachment.get(), transaction.get()}, query);
    QStringList lines;
    for (int row = 0; row < rows->rowCount(); ++row) {
        const std::string_view text = rows->text(row, 0);
        lines << QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    return lines;
}

QStringList linesOf(const Target &target, const QStringList &queries)
{
    engine::Attachment attachment(target);
    QStringList lines;
    {
        engine::Transaction transaction(attachment, engine::Transaction::Mode::Read);
        for (const QString &query : queries)
            lines << linesOf(attachment, transaction, query);
    }
    attachment.detach();
    // Two databases with the same tables give the same lines, in whatever order they were made.
    std::ranges::sort(lines);
    return lines;
}

} // namespace

QStringList structureOf(const Target &target)
{
    return linesOf(target, {QString::fromUtf16(columnsQuery), QString::fromUtf16(indexesQuery)});
}

RowCounts countRows(const Target &target)
{
    RowCounts counts;
    const QStringList tables = linesOf(target, {QString::fromUtf16(tablesQuery)});
    Connection connection(target);
    for (const QString &table : tables)
        counts.insert(table, connection.Open(u"Select count(*) as Rows_ from ["_s + table + u']')
                                 .row(0)
                                 .integer(u"Rows_"));
    return counts;
}

} // namespace db
