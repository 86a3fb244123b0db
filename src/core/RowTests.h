#pragma once

#include <QString>
#include <QVariant>

/// Is there such a row? No error crosses one of these procedures: it goes to ErrorHandler, and the
/// default is returned. "Data" and "Lookup" name the connection that a procedure uses, gcnData or
/// gcnLookup.

/// Number of rows that meet the SQL condition Where; a blank one counts all. Data.
[[nodiscard]] qint64 GetRecordCount(const QString &Table, const QString &Where);
/// True when a row has Value in Field. Type "S" compares text, "N" a number; any other is an
/// error. Data.
[[nodiscard]] bool IsRecordUsed(const QString &Table, const QString &Field, const QString &Value,
                                const QString &Type);
/// True when NewValue differs from OldValue (trimmed, without regard to case) and a row has it.
/// Data.
[[nodiscard]] bool IsDuplicate(const QString &Table, const QString &Column,
                               const QVariant &OldValue, const QString &NewValue, bool Numeric);
/// True when the assignment stands on an open work order. Data.
[[nodiscard]] bool ServiceInWorkOrder(qint64 ServiceUsedID);
/// True when the country list holds this name in exactly this case. Lookup.
[[nodiscard]] bool ChkCountryExist(const QString &Name);
