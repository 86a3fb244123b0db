#pragma once

#include <QString>

/// What labour costs, and which crew a machine has had. No error crosses one of these procedures:
/// it goes to ErrorHandler, and the default is returned.

/// Mean hourly labour cost of a crew's counted employees, two decimals, 0 without any. Data.
[[nodiscard]] double SetLaborCost(qint64 CrewID);
/// Recomputes the labour estimates of a crew's assigned and ordered services. Data.
[[nodiscard]] bool ChangeServiceLabourEstimate(qint64 CrewID);
/// Adds a row to a machine's crew history. Data.
[[nodiscard]] bool ChangeCrew(qint64 EquipmentID, const QString &CrewNumber,
                              const QString &CrewDescription);
