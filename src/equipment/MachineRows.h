#pragma once

#include "core/Place.h"
#include "platform/db/Recordset.h"

/// The machines in the order of their unit numbers, without reading all of them.
namespace machinerows {

/// The machine at a place, as seen from the machine of this key, between its neighbours; the cursor
/// stands on it. Seen from no machine, This is the first one. Empty when there are no machines.
/// Data; raises DbError.
[[nodiscard]] db::Recordset at(Place place, qint64 EquipmentID);

/// The machine with that serial number, the first one by unit number, in the words of a message;
/// empty when there is none. Data; raises DbError.
[[nodiscard]] QString holderOf(const QString &serialNo);

} // namespace machinerows
