#pragma once

#include "platform/db/Recordset.h"
#include "workorders/WorkorderFilter.h"

namespace workorders {

/// Machines with due services and no order (WorkOrderNo Null), and the orders within the filter, by
/// machine and order. Data; raises DbError.
[[nodiscard]] db::Recordset dueList(const WorkorderFilter &filter);

} // namespace workorders
