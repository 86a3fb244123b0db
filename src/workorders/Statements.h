#pragma once

#include "workorders/WorkorderFilter.h"

#include <QString>

/// The queries behind the grids of the work-order screen and of the overdue board, with "?" for
/// keys.
namespace workorders::statements {

/// The rows of the list of due work (DueList.h), in no order.
[[nodiscard]] QString printWo(const WorkorderFilter &filter);
/// Due services of a machine. Parameter: EquipmentID.
[[nodiscard]] QString genServices(const WorkorderFilter &filter);
/// Parts of a due service. Parameter: ServiceUsedID.
[[nodiscard]] QString genParts();
/// Services of an open order within the filter. Parameter: WorkorderNo.
[[nodiscard]] QString printServices(const WorkorderFilter &filter);
/// Parts of an order's service. Parameter: NServiceUsedID.
[[nodiscard]] QString printParts();
/// All open orders for recording.
[[nodiscard]] QString recordWo();
/// Services of an order for recording. Parameter: WorkorderNo.
[[nodiscard]] QString recordServices();
/// Parts of an order's service for recording. Parameter: NServiceUsedID.
[[nodiscard]] QString recordParts();

/// What the drop-downs of these grids choose from: suppliers with SupplierID and Name, crews with
/// CrewID and CrewText.
[[nodiscard]] QString suppliers();
[[nodiscard]] QString crews();

/// What is printed of orders: one row for each part of each service that is neither completed nor
/// skipped.
[[nodiscard]] QString printedOrders(const QString &orderList);
/// One row for each part of each posted service of these orders.
[[nodiscard]] QString historyDetail(const QString &where);
/// Which quantity of a posted part its price is multiplied with.
enum class PartQuantity { Required, Used };
/// Costs of posted orders.
[[nodiscard]] QString historySummary(const QString &where,
                                     PartQuantity quantity = PartQuantity::Required);

/// For the board, machines with services that fell due within the last 30 days (WorkOrderNo Null)
/// and open orders: "Unit No", WorkOrderNo, Due (of the oldest service), Services (how many).
[[nodiscard]] QString board();

} // namespace workorders::statements
