#pragma once

#include "platform/db/Connection.h"

#include <functional>

/// Databases as a company begins with them: the tables with the rows that every new one holds.
namespace company {

/// Makes a new database with all tables, the lookup lists, options, search fields and the built-in
/// user. The file appears under its name only when it is whole. Raises base::Error PathAccess when
/// it exists already, DbError when the engine refuses.
void createEmptyDatabase(const db::Target &target);

/// The same with further rows, which fill writes before the file appears, and before there are any
/// indexes but those of the keys.
void createDatabase(const db::Target &target, const std::function<void(db::Connection &)> &fill);

} // namespace company
