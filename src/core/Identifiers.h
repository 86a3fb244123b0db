#pragma once

#include <QString>

/// Keys for new rows. No error crosses one of these procedures: it goes to ErrorHandler, and the
/// default is returned. "Data" and "Lookup" name the connection that a procedure uses, gcnData or
/// gcnLookup.

/// Highest value of a column plus one, 1 for an empty table. Data.
[[nodiscard]] qint64 GenerateID(const QString &Table, const QString &Column);
/// The same on Lookup.
[[nodiscard]] qint64 GenerateIDWithIndicator(const QString &Table, const QString &Column);
/// The current time as the digits MMddHHmmss; two calls in one second are equal.
[[nodiscard]] qint64 GenrateUniqueID();
/// 32 upper-case hexadecimal digits of a new GUID.
[[nodiscard]] QString GetGUID();
