#include "workorders/Posting.h"

#include "core/Periods.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Trapped.h"
#include "workorders/NumberList.h"
#include "workorders/OrderNames.h"
#include "workorders/PostedHistory.h"
#include "workorders/PostingSteps.h"
#include "workorders/Recording.h"

#include <QSet>
#include <QStringList>
#include <algorithm>

namespace posting {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Workorder";

/// Holds the orders with their services against other workstations: of two that post one order the
/// second finds it gone, or is refused while the first is still at it, and nothing is typed into
/// one any more that would be deleted unread.
void hold(const QList<qint64> &orders)
{
    const auto holdThem = [](const QString &list) {
        gcnData->Execute(
            u"Update tblWorkorder set Complete = Complete where WorkorderNo in (%1)"_s.arg(list));
        gcnData->Execute(
            u"Update tblWoServiceUsed set Completed = Completed where WorkorderNo in (%1)"_s.arg(
                list));
    };
    for (const QString &list : listsOf(orders)) {
        try {
            holdThem(list);
        } catch (const db::DbError &error) {
            if (error.number() != db::ErrorNumber::LockConflict)
                throw;
            // Which one it is: the list doesn't say.
            for (const qint64 order : orders)
                stepOf(order, [&] { holdThem(QString::number(order)); });
        }
    }
}

/// An order that is to be posted, as it stands in the database.
struct Order
{
    qint64 number = 0;
    bool complete = false;
    QDate completed;
};

QList<Order> ordersOf(const QList<qint64> &numbers)
{
    QList<Order> orders;
    for (const QString &list : listsOf(numbers))
        for (const db::Row row : gcnData->Open(
                 u"Select Workorderno, Complete, CompletedDate From tblWorkorder Where WorkorderNo "
                 "in (%1) order by Workorderno"_s.arg(list)))
            orders.append({row.integer(u"Workorderno"), row.flag(u"Complete"),
                           row.date(u"CompletedDate").date()});
    return orders;
}

/// Gives the orders the date of their completion. One whose date changes completes its services
/// again, as on the list of orders. One that has been opened elsewhere is complete again, but what
/// of its services is not done stays so: nobody here has seen it.
void complete(QList<Order> &orders, QDate date)
{
    for (Order &order : orders) {
        if (order.complete && order.completed == date)
            continue;
        recording::writeCompletion(order.number, date, order.complete);
        order = {order.number, true, date};
    }
}

/// The orders with a service that is done, or skipped, and lacks the count that it needs.
QSet<qint64> waitingForCounts(const QList<qint64> &orders)
{
    QSet<qint64> waiting;
    for (const QString &list : listsOf(orders))
        for (const db::Row row : gcnData->Open(
                 u"Select Distinct Workorderno from tblwoServiceUsed where Workorderno in (%1) and "
                 "Period in (%2) and countvalue is NULL and (Completed = -1 Or Skip = -1)"_s.arg(
                     list, periods::countCodes())))
            waiting.insert(row.integer(u"Workorderno"));
    return waiting;
}

/// What becomes of the orders that were chosen, each list in ascending order.
struct Choice
{
    QList<qint64> posted;
    QList<qint64> held;       ///< waits for a count
    QList<qint64> incomplete; ///< not complete, or without a date
    QList<qint64> gone;       ///< posted or deleted meanwhile
};

Choice chosen(const QList<qint64> &wanted, const QList<Order> &orders)
{
    Choice choice;
    const QSet<qint64> waiting = waitingForCounts(wanted);
    QSet<qint64> there;
    for (const Order &order : orders) {
        there.insert(order.number);
        if (!order.complete || !order.completed.isValid())
            choice.incomplete.append(order.number);
        else if (waiting.contains(order.number))
            choice.held.append(order.number);
        else
            choice.posted.append(order.number);
    }
    for (const qint64 number : wanted)
        if (!there.contains(number))
            choice.gone.append(number);
    return choice;
}

void tell(const Choice &choice)
{
    const auto tellOf = [](const QList<qint64> &orders, const QString &reason) {
        if (!orders.isEmpty())
            told::message(
                u"Following Work Orders (%1) aren't posted. "_s.arg(ordernames::listed(orders)) +
                reason);
    };
    tellOf(choice.held, u"Enter counts for these Work Orders."_s);
    tellOf(choice.incomplete, u"They are complete no longer."_s);
    tellOf(choice.gone, u"Another workstation has posted or deleted them."_s);
}

/// Removes the posted services with their parts, and the orders that have no service left.
void deleteOpenRows(const QList<qint64> &orders, const QList<qint64> &ids)
{
    for (const QString &services : listsOf(ids)) {
        gcnData->Execute(u"Delete from tblWoPartUsed where ServiceUSedID in (%1)"_s.arg(services));
        gcnData->Execute(
            u"Delete from tblWoServiceUsed where NServiceUSedID in (%1)"_s.arg(services));
    }
    for (const QString &list : listsOf(orders)) {
        gcnData->Execute(
            u"Delete from tblWorkorder where WorkOrderno in (%1) and not exists (Select "
            "NServiceUsedID from tblWoServiceUsed where tblWoServiceUsed.WorkorderNo = "
            "tblWorkorder.WorkorderNo)"_s.arg(list));
    }
}

/// All open orders lose their mark but those held back, also such as another workstation has
/// marked: the mark is a selection for this posting. What another workstation is writing at this
/// moment, most likely to post it, keeps it: nobody has to wait for a mark.
void clearMarks(const QList<qint64> &held)
{
    const QSet<qint64> kept(held.begin(), held.end());
    QList<qint64> marked;
    for (const db::Row row :
         gcnData->Open(u"Select WorkorderNo from tblWorkorder where Complete <> "
                       "0 or CompletedDate is not Null"_s))
        if (const qint64 order = row.integer(u"WorkorderNo"); !kept.contains(order))
            marked.append(order);
    const auto clear = [](const QString &list) {
        try {
            gcnData->Execute(u"Update tblWorkorder set Complete = 0 ,CompletedDate = NULL where "
                             "WorkorderNo in (%1)"_s.arg(list));
            return true;
        } catch (const db::DbError &error) {
            if (error.number() != db::ErrorNumber::LockConflict)
                throw;
            return false;
        }
    };
    for (qsizetype at = 0; at < marked.size(); at += LongestList) {
        const QList<qint64> some = marked.mid(at, LongestList);
        if (!clear(numberList(some)))
            for (const qint64 order : some)
                (void)clear(QString::number(order));
    }
}

} // namespace

ServiceName nameOf(qint64 ServiceUsedID)
{
    const db::Recordset rows = gcnData->Open(
        u"select EquipmentName,UnitNo,Name from tblServiceUsed left join tblEquipment on "
        "tblserviceused.Equipmentid = tblequipment.equipmentid where ServiceUsedID = ?"_s,
        {ServiceUsedID});
    if (rows.isEmpty())
        return {};
    const db::Row row = rows.current();
    return {row.text(u"EquipmentName"), row.text(u"UnitNo"), row.text(u"Name")};
}

bool PostWorkOrder(QList<qint64> &orders, const base::Progress &progress, const QDate &completed)
{
    return base::trapped(Module, "PostWorkOrder", false, [&] {
        QList<qint64> wanted = orders;
        std::ranges::sort(wanted);
        wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
        Choice choice;
        {
            TransactionScope transaction;
            hold(wanted);
            QList<Order> found = ordersOf(wanted);
            if (completed.isValid())
                complete(found, completed);
            choice = chosen(wanted, found);
            if (!choice.posted.isEmpty()) {
                const QList<qint64> ids = AddServiceHistoryRecord(choice.posted, progress);
                deleteOpenRows(choice.posted, ids);
                clearMarks(choice.held);
            }
            transaction.commit();
        }
        orders = choice.posted;
        tell(choice);
        return true;
    });
}

} // namespace posting
