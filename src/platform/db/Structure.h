#pragma once

#include "platform/db/Connection.h"

#include <QMap>
#include <QStringList>

/// What a database is made of, and how much it holds.
namespace db {

/// The tables, columns, indexes and keys as sorted lines of text: two databases of one schema give
/// the same lines, in whatever order their columns were made. Opens a connection of its own; raises
/// DbError.
[[nodiscard]] QStringList structureOf(const Target &target);

/// The number of rows of each table, by its name.
using RowCounts = QMap<QString, qint64>;

/// Counts the rows of all tables as they are committed now. Opens a connection of its own; raises
/// DbError.
[[nodiscard]] RowCounts countRows(const Target &target);

} // namespace db
