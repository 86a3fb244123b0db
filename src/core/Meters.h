#pragma once

#include <QString>

/// Where a machine's meters stand. No error crosses these procedures: it goes to ErrorHandler, and
/// 0 is returned.

/// The newest reading of a kind ("Counts", "Hours", "Kilometers", "Miles"), 0 without one. Data.
[[nodiscard]] qint64 GetEquipmentCount(qint64 EquipmentID, const QString &CountType);
/// The same by period code; a code outside the list is taken as it stands.
[[nodiscard]] qint64 GetEquipmentCountByCode(qint64 EquipmentID, const QString &PeriodCode);
