#pragma once

#include "platform/db/Field.h"
#include "platform/sql/Schema.h"

namespace db::engine {

/// Reads the tables of a database, the system's own excepted, from the engine's catalogue.
[[nodiscard]] sql::Schema readCatalogue(const Context &context);

} // namespace db::engine
