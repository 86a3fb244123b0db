#pragma once

#include "platform/db/Connection.h"

/// The first value of a query as a whole number, 0 without a row and for Null. Raises DbError, and
/// base::Error TypeMismatch for a text that is no number.
[[nodiscard]] qint64 firstNumber(db::Connection &connection, const QString &statement);
