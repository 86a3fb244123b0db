#pragma once

#include "platform/base/Progress.h"
#include "workorders/WorkorderFilter.h"

#include <QList>
#include <QString>

/// Turning due services into work orders. Data. Generation writes only to the three open tables;
/// the schedule of a service does not move before its order is posted.
namespace generation {

/// Makes orders for the due services of these machines, in one transaction: for each machine one
/// order for each crew, and one for each service that goes alone. All or none: False when a step
/// failed, which is reported. The numbers of the orders made are appended to generated. progress is
/// told of each machine. Raises InTheWay inside a whole, reports it otherwise, when another
/// workstation puts these services onto orders at the same time.
[[nodiscard]] bool GenerateWorkorder(const WorkorderFilter &filter,
                                     const QList<qint64> &equipmentIDs, QList<qint64> &generated,
                                     const base::Progress &progress = {});

/// The same for one machine, from its row in the list. This way inactive services within the
/// window are swept onto the order too.
[[nodiscard]] bool generateForRow(const WorkorderFilter &filter, qint64 EquipmentID,
                                  QList<qint64> &generated);

/// Deletes an order with its services and parts; their schedules are due again.
[[nodiscard]] bool deleteOrder(qint64 WorkorderNo);

} // namespace generation
