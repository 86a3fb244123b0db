#pragma once

#include <QVariant>

/// The values that expressions work with: numbers, dates, texts and Null. How they are compared
/// stands in Expression.h.
namespace report {

/// Whether a value counts as a number; Yes and No do.
[[nodiscard]] bool isNumberValue(const QVariant &value);

/// A number as a value: whole ones stay whole as long as they are exact, and what is no number is
/// Null.
[[nodiscard]] QVariant numberValue(double value);

} // namespace report
