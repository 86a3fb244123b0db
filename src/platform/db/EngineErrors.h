#pragma once

#include "platform/db/DbError.h"

#include <cstdint>

namespace db::engine {

/// Turns the engine's status vector into the number that the system knows and a description that a
/// user can read. The texts in the vector are copied.
[[nodiscard]] DbError errorFrom(const intptr_t *status);

/// The error for a failed call of the operating system on a file.
[[nodiscard]] DbError fileError(int systemError, const QString &file);

} // namespace db::engine
