#pragma once

#include "platform/base/Progress.h"
#include "platform/db/Recordset.h"
#include "workorders/WorkorderFilter.h"

#include <QList>
#include <QString>

/// Turning due services into work orders. Data. Generation writes only to the three open tables;
/// the schedule of a service does not move before its order is posted.
namespace generation {

/// Makes orders for the due services of these machines, in one transaction: for each machine one
/// order for each crew, and one for each service that goes alone. All or none: False when a step
/// failed, which is reported. The numbers of the orders made are appended to generated. progress is
/// told of each machine.
[[nodiscard]] bool GenerateWorkorder(const WorkorderFilter &filter,
                                     const QList<qint64> &equipmentIDs, QList<qint64> &generated,
                                     const base::Progress &progress = {});

/// The same for one machine, from its row in the list. This way inactive services within the
/// window are swept onto the order too.
[[nodiscard]] bool generateForRow(const WorkorderFilter &filter, qint64 EquipmentID,
                                  QList<qint64> &generated);

/// A new order of a machine, without services; its number. The order's date is the table's default.
/// Raises DbError.
qint64 addOrder(qint64 EquipmentID);
/// Copies a service's row onto an order, with the parts that the query gives. serviceRow: columns
/// of tblWoServiceUsed by name. The new NServiceUsedID. Raises DbError.
qint64 addService(qint64 WorkorderNo, const db::Row &serviceRow, const db::Recordset &parts);

/// Deletes an order with its services and parts; their schedules are due again.
[[nodiscard]] bool deleteOrder(qint64 WorkorderNo);

} // namespace generation
