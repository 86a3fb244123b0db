#pragma once

#include "platform/db/Connection.h"

#include <QString>
#include <vector>

namespace db {

/// A column to which the database gives numbers.
struct Counter
{
    QString table;
    QString column;
    qint64 next = 1; ///< the number that the next row gets
};

/// The counters of a database, by the names of their tables. Opens a connection of its own; raises
/// DbError.
[[nodiscard]] std::vector<Counter> countersOf(const Target &target);

} // namespace db
