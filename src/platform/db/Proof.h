#pragma once

#include "platform/db/Structure.h"

/// Copies that are known to be worth something. All raise DbError.
namespace db {

/// Looks at a free database file as whoever restores it will find it: the engine's check finds no
/// damage, it can be opened, and all its rows can be counted; the counts come back. Raises
/// NotADatabase with what is wrong.
[[nodiscard]] RowCounts prove(const QString &file);

/// Copies a database, also while it is in use, and proves the copy before it appears under its
/// name: what stood there stays until then. Tables in which nobody wrote meanwhile have to hold as
/// many rows as the original's. The copy's counts come back.
RowCounts backupProven(const Target &source, const QString &destination);

} // namespace db
