#pragma once

#include "platform/sql/Schema.h"

#include <QString>
#include <vector>

/// What the engine stores for the kinds of column of the dialect. Text, whole numbers, doubles,
/// dates, money and pictures are told by their own engine types; the kinds that the engine has no
/// type for are told by the domain of the column.
namespace sql::EngineTypes {

/// SMALLINT that a trigger of each table keeps at -1 or 0: ColumnKind::YesNo.
inline constexpr char16_t YesNo[] = u"D_YESNO";
/// TIMESTAMP with today as default: ColumnKind::Date with defaultsToToday.
inline constexpr char16_t DateToday[] = u"D_DATE_TODAY";
/// NUMERIC(18,4): ColumnKind::Money.
inline constexpr char16_t Money[] = u"D_MONEY";

/// Characters by which memos are sorted, grouped and told apart.
inline constexpr int SortedMemoLength = 4000;
/// Characters of a text column that stands in a key: the longest that the engine can index.
inline constexpr int MaximumKeyLength = 255;
/// Bytes (UTF-8) that the engine allows a name.
inline constexpr int MaximumNameLength = 31;

/// The engine's statements, in order, that a new database needs before the first CREATE TABLE of
/// the dialect. Each has to be committed before the next one.
[[nodiscard]] std::vector<QString> preparationStatements();

/// An identifier between double quotes, in exactly this spelling.
[[nodiscard]] QString quotedName(QStringView name);

/// The engine's name for an index or constraint of a table. Names of the dialect are a table's own,
/// the engine's are the whole database's.
[[nodiscard]] QString indexName(QStringView table, QStringView index);

/// The engine's statement that creates or replaces the trigger which keeps a table's Yes/No columns
/// at -1 and 0, whoever writes them; the statement that drops it is dropYesNoTrigger.
[[nodiscard]] QString yesNoTrigger(QStringView table, const std::vector<QString> &columns);
[[nodiscard]] QString dropYesNoTrigger(QStringView table);

/// What a column is, by what the engine's catalogue says of it: the domain's name
/// (RDB$FIELD_SOURCE, trimmed) and RDB$FIELD_TYPE, RDB$FIELD_SUB_TYPE, RDB$FIELD_SCALE,
/// RDB$CHARACTER_LENGTH of the domain, and whether the column is an identity column.
[[nodiscard]] Column columnFromCatalogue(const QString &name, QStringView domain, int fieldType,
                                         int subType, int scale, int characterLength,
                                         bool identity);

} // namespace sql::EngineTypes
