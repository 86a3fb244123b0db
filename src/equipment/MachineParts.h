#pragma once

#include "platform/db/Recordset.h"

#include <QString>

/// The list of the parts that a machine takes. Data, inside the transaction of whoever holds one.
namespace machineparts {

/// The parts of a machine with the price that each had when it was put onto the list. Raises
/// DbError.
[[nodiscard]] db::Recordset listed(qint64 EquipmentID);
/// Adds the parts of a selection text (parts/PartSelection.h); an empty one adds none. False when
/// an error was reported: some of them may have been added by then.
[[nodiscard]] bool AddPartRecord(qint64 EquipmentID, const QString &selection);
/// Takes a part off the list. False when an error was reported.
[[nodiscard]] bool DeletePartRecord(qint64 EquipmentID, const QString &PartID);

} // namespace machineparts
