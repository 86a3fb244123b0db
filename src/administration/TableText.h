#pragma once

#include "administration/CsvReader.h"
#include "platform/sql/Schema.h"

#include <QByteArray>
#include <QVariant>

/// The text form of the values of tables, from which they come back as they were. A Null is
/// nothing, an empty text stands between quotes; dates read "2024-03-15" or "2024-03-15
/// 10:20:30.250", sums have four decimals, pictures are base64.
namespace administration {

/// A value as a field of a line, quoted where it has to be.
[[nodiscard]] QByteArray fieldText(const QVariant &value, sql::ColumnKind kind);
/// The value of a field. Raises base::Error TypeMismatch, with the text in its sentence, where it
/// holds none of that kind.
[[nodiscard]] QVariant fieldValue(const RowReader::Field &field, sql::ColumnKind kind);

} // namespace administration
