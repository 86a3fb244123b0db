#pragma once

#include "platform/db/Field.h"

#include <QByteArray>

namespace db::engine {

/// Stores a value of any length; its number in the database.
[[nodiscard]] ISC_QUAD writeBlob(const QByteArray &content, const Context &context);
/// Reads a value whole.
[[nodiscard]] QByteArray readBlob(ISC_QUAD id, const Context &context);

} // namespace db::engine
