#pragma once

#include "platform/db/Structure.h"

/// Copies that are known to be worth something. All raise DbError.
namespace db {

/// Looks at a free database file as whoever restores it will find it: the engine's check finds no
/// damage, it can be opened, and all its rows can be counted; the counts come back. Raises
/// NotADatabase with what is wrong.
[[nodiscard]] RowCounts prove(const QString &file);

/// The first table whose count in a copy can't be explained by what others wrote meanwhile: it
/// doesn't lie between two counts of the original, before and after. Empty when there is none.
[[nodiscard]] QString tableThatDiffers(const RowCounts &copy, const RowCounts &before,
                                       const RowCounts &after);

/// Copies a database, also while it is in use, and proves the copy before it appears under its
/// name: what stood there stays until then. Tables in which nobody wrote meanwhile have to hold as
/// many rows as the original's. The copy's counts come back.
RowCounts backupProven(const Target &source, const QString &destination);

} // namespace db
