#pragma once

#include "platform/base/Progress.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <functional>

/// Posting: completed and skipped services and their parts pass into history, schedules move to
/// their next date or count, used parts leave the stock, and the open rows go. Data, in one
/// transaction.
namespace posting {

/// Asks for a service's next date when the one reckoned from its schedule lies before the
/// completion. Called within the transaction.
using DateConfirmation =
    std::function<QDateTime(const QDateTime &completedDate, qint64 ServiceUsedID)>;
/// Set by the screen that asks. Without one the completion is counted from.
void setDateConfirmation(DateConfirmation confirmation);

/// Posts orders. Those that wait for a meter count are held back and named in a message; on return
/// the list holds the orders posted. False when a step failed, which is reported; then nothing has
/// been posted. progress is told of each service.
[[nodiscard]] bool PostWorkOrder(QList<qint64> &orders, const base::Progress &progress = {});

// The steps of a posting. They raise DbError, so that a failing one undoes it all.

/// True unless the service is one that is not to be scheduled again. True also without a row.
[[nodiscard]] bool IsServiceScheduleAgain(qint64 ServiceUsedID);
/// True when an order's service counts on a meter; CountType becomes its word.
[[nodiscard]] bool ChkServiceIsCountType(qint64 NServiceUsedID, QString &CountType);
/// Moves the target of a count service: from the count taken for one that goes by completion, from
/// its old target for any other.
void ServiceCountUpdate(qint64 ServiceUsedID, qint64 Count);
/// True when the machine has exactly this reading already.
[[nodiscard]] bool IsCountAvailable(qint64 EquipmentID, const QDateTime &Date,
                                    const QString &CountType, qint64 CountValue);
/// True when the stock of a part is NOT tracked, in spite of the name.
[[nodiscard]] bool IsPartInInventory(const QString &PartID);

} // namespace posting
