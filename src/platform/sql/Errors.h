#pragma once

#include "platform/base/Error.h"

/// The numbers under which the system knows the failures of a statement. They stand here, in the
/// lower of the two folders that raise them.
namespace sql::ErrorNumber {
inline constexpr int TableUnknown = static_cast<int>(0x80040E37);
/// A name that is neither a column nor anything else counts as a parameter without a value.
inline constexpr int ValueMissing = static_cast<int>(0x80040E10);
inline constexpr int Syntax = static_cast<int>(0x80040E14);
inline constexpr int TypeMismatch = static_cast<int>(0x80040E07);
inline constexpr int NullNotAllowed = static_cast<int>(0x80040E21);
} // namespace sql::ErrorNumber
