#pragma once

#include "administration/ImportColumns.h"

#include <QVariant>

namespace administration {

/// How a file writes its numbers.
enum class DecimalSign { Point, Comma };

/// The value that a cell of a file means in a column; invalid for a blank one. A listed column
/// gives the name. length: the characters that the table's column holds. Raises base::Error
/// TypeMismatch with a sentence, without the place, when the cell means none.
[[nodiscard]] QVariant cellValue(const QString &text, const ImportColumn &column, int length,
                                 DecimalSign sign);

} // namespace administration
