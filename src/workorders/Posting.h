#pragma once

#include "platform/base/Error.h"
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

/// A machine's service in the words of the window that asks.
struct ServiceName
{
    QString EquipmentName;
    QString UnitNo;
    QString Name;
};
/// Empty for a service that is not there. Raises DbError.
[[nodiscard]] ServiceName nameOf(qint64 ServiceUsedID);

/// What keeps one order from being posted: a schedule that can't be calculated, a part that costs
/// more than an amount can be, or a row that another workstation holds. The description names
/// order, machine and service, and can be told as it stands.
class Obstacle : public base::Error
{
public:
    Obstacle(int number, qint64 order, const QString &sentence)
        : Error(number, sentence)
        , m_order(order)
    {}
    /// The order without which the others can be posted.
    [[nodiscard]] qint64 order() const noexcept { return m_order; }

private:
    qint64 m_order;
};

/// Posts orders. With a date each of them is completed on it first, as if it had been given on the
/// list of orders; without one, only orders count that are complete and have a date. Those that
/// can't be posted are named in a message: some wait for a meter count, others are complete or
/// open no longer. On return the list holds the orders posted, in ascending order. False when a
/// step failed, which is reported; then nothing has been posted, and no date has been given. Inside
/// a whole an order's failure raises Obstacle instead. progress is told of each service.
[[nodiscard]] bool PostWorkOrder(QList<qint64> &orders, const base::Progress &progress = {},
                                 const QDate &completed = {});

} // namespace posting
