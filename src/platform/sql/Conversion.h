#pragma once

#include "platform/sql/Schema.h"
#include "platform/sql/Translator.h"

#include <QDateTime>
#include <QStringView>
#include <QVariant>
#include <optional>

namespace sql {

/// A value as it has to be bound where a value of that kind is expected. Null stays Null; text in
/// place of a number is read as a number, in place of a date month first, in place of Yes/No also
/// as True, False, Yes, No, On, Off; a number in place of text becomes text; a number in place of
/// a whole number is rounded, ties to even; Yes/No comes back as -1 or 0. With ColumnKind::Unknown
/// the value passes as it is, except that bool becomes -1 or 0.
/// Raises a type mismatch (base::Error) for what can't be understood as that kind.
[[nodiscard]] QVariant converted(const QVariant &value, ColumnKind kind);

/// The value to bind for a slot: converted, negated when the slot says so, or as a pattern for
/// LIKE. Not for the sources Now and Today. Raises as above; a pattern that LIKE can't express
/// raises a syntax error, because the statement has to be translated with the value inside.
[[nodiscard]] QVariant slotValue(const QVariant &value, const Slot &slot);

/// The number that a text spells: optional sign, digits with a point or without, exponent; blanks
/// around it don't matter. Whole numbers come as qint64, others as double.
[[nodiscard]] std::optional<QVariant> parseNumber(QStringView text);

/// A date in any form that the dialect accepts: month first (base::parseMonthFirst), year first
/// with four digits, or a time alone, which stands on the zero date, 30 December 1899.
[[nodiscard]] std::optional<QDateTime> parseDate(QStringView text);

} // namespace sql
