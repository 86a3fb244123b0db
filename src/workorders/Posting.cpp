#include "workorders/Posting.h"

#include "core/Periods.h"
#include "core/ServiceHistory.h"
#include "core/Session.h"
#include "core/Told.h"
#include "parts/Stock.h"
#include "platform/base/Trapped.h"
#include "scheduling/GetNextScheduledDate.h"
#include "scheduling/Readings.h"
#include "workorders/NumberList.h"
#include "workorders/OrderNames.h"
#include "workorders/Recording.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <algorithm>

namespace posting {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Workorder";
constexpr qsizetype LongestList = 25;

DateConfirmation &currentConfirmation()
{
    static DateConfirmation confirmation;
    return confirmation;
}

/// Numbers as lists for "in (...)". Short ones, since the database compares each row that it finds
/// with the numbers one after the other. No list is empty.
QStringList listsOf(const QList<qint64> &numbers)
{
    QStringList lists;
    for (qsizetype at = 0; at < numbers.size(); at += LongestList)
        lists.append(numberList(numbers.mid(at, LongestList)));
    return lists;
}

/// The services of these orders that are completed or skipped.
db::Recordset postedServices(const QString &orders)
{
    return gcnData->Open(
        u"Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, "
        "tblWoServiceUsed.Name, NextScheduleddate, Period, Countvalue, CompletedDate, "
        "ServiceUSedID From tblWoServiceUsed left join tblWorkorder on "
        "tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno where "
        "tblWoServiceUsed.WorkorderNo in(%1) and (not ((Skip is Null or Skip <> -1) and (Completed "
        "is Null or Completed <> -1))) order by tblWoServiceUsed.WorkorderNo, NserviceUsedID"_s.arg(
            orders));
}

/// Copies services into the history, their columns in the order of the history's.
void writeServiceHistory(const QString &services)
{
    gcnData->Execute(
        u"Insert into tblWOServiceUsedHistory(%1) "
        "Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, "
        "ServiceID, tblWoServiceUsed.Name, tblCrew.CrewID, CrewNumber, LastDateScheduled, "
        "LastDatePerformed, NextScheduleddate, tblCostCenter.Description, "
        "SeparateWo, LaborEstimate, CostEstimate, [Note], Period,JobNo,Countvalue, "
        "(IIf(Skip=True,-1,0)),StartTime , EndTime ,Workhrs ,tblSupplier.SupplierID "
        ",tblSupplier.Name ,WoDate ,CompletedDate From (((tblWoServiceUsed left "
        "join tblWorkorder on tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno) left join "
        "tblCrew on tblWoserviceUsed.CrewID = tblcrew.CrewID) left join tblSupplier on "
        "tblWoserviceUsed.SupplierID = tblSupplier.SupplierID) left join tblCostCenter on "
        "tblWoServiceUsed.CostcenterID = tblCostCenter.CostCenterID where NServiceUsedID in "
        "(%2)"_s.arg(serviceHistoryColumns().join(u','), services));
}

void addReading(const db::Row &service, const QString &countType)
{
    readings::store(service.integer(u"EquipmentID"), service.date(u"CompletedDate"), countType,
                    service.integer(u"Countvalue"));
}

QDateTime confirmed(QDateTime next, const db::Row &service, qint64 serviceUsedID)
{
    const QDateTime completed = service.date(u"CompletedDate");
    if (!next.isValid() || !completed.isValid() || next >= completed)
        return next;
    told::message(u"You have chosen to reschedule this services based on the scheduled date \n"
                  "rather then on the completed date and the new date is already older then\n"
                  "the completed date."_s);
    const DateConfirmation ask = currentConfirmation();
    return ask ? ask(completed, serviceUsedID)
               : GetNextScheduledDate(serviceUsedID, true, completed);
}

bool ChkServiceIsCountType(const db::Row &service, QString &CountType)
{
    CountType = readings::countType(service.text(u"Period"));
    return !CountType.isEmpty();
}

/// True when the machine has exactly this reading already.
bool IsCountAvailable(qint64 EquipmentID, const QDateTime &Date, const QString &CountType,
                      qint64 CountValue)
{
    return !gcnData
                ->Open(u"SELECT * FROM tblEquipmentCount Where EquipmentID = ? and ChangeDate = "
                       "? and CountType = ? and CountValue = ?"_s,
                       {EquipmentID, Date, CountType, CountValue})
                .isEmpty();
}

/// True unless the service is one that is not to be scheduled again.
bool IsServiceScheduleAgain(const db::Row &schedule)
{
    return schedule.text(u"RenewalOn") != u"D";
}

/// The next target of a count service: from the count taken for one that goes by completion, from
/// its old target for any other.
qint64 ServiceCountUpdate(const db::Row &schedule, qint64 Count)
{
    const qint64 from =
        schedule.text(u"RenewalOn") == u"W" ? Count : schedule.integer(u"NextScheduledCount");
    return from + schedule.integer(u"Einterval");
}

/// The date that follows from the schedule as it now stands. A service that had been counted when
/// its order was made may go by the calendar by now, and the other way round.
QDateTime nextDate(const db::Row &service, qint64 serviceUsedID, const db::Row &schedule)
{
    const QDateTime next =
        nextDateAfter(schedule, service.date(u"NextScheduleddate"), service.date(u"CompletedDate"));
    return readings::countType(schedule.text(u"Period")).isEmpty()
               ? confirmed(next, service, serviceUsedID)
               : next;
}

/// Moves the schedule behind a posted service, which has left its reading already.
void reschedule(const db::Row &service, qint64 serviceUsedID, const db::Row &schedule)
{
    const bool again = IsServiceScheduleAgain(schedule);
    const QString period = schedule.text(u"Period");
    QVariant target = schedule[u"NextScheduledCount"];
    QDateTime next;
    if (period == service.text(u"Period") && !readings::countType(period).isEmpty())
        target = ServiceCountUpdate(schedule, service.integer(u"Countvalue"));
    else if (again)
        next = nextDate(service, serviceUsedID, schedule);
    gcnData->Execute(
        u"Update tblServiceUsed Set LastDateScheduled = ?, LastDatePerformed = ?, "
        "NextScheduledDate = ?, NextScheduledCount = ?, Inactive = ? Where ServiceUsedID = ?"_s,
        {service[u"NextScheduleddate"], service[u"CompletedDate"],
         !again           ? schedule[u"NextScheduledDate"]
         : next.isValid() ? QVariant(next)
                          : QVariant(),
         target, again ? schedule[u"Inactive"] : QVariant(1), serviceUsedID});
}

/// A service that stood on the order without a schedule leaves a reading, unless it is there
/// already; only this kind is tested for a doubled one. True when it left one.
bool keepReading(const db::Row &service, qint64 serviceUsedID)
{
    QString countType;
    if (!ChkServiceIsCountType(service, countType))
        return false;
    if (serviceUsedID == 0 &&
        IsCountAvailable(service.integer(u"EquipmentID"), service.date(u"CompletedDate"), countType,
                         service.integer(u"Countvalue")))
        return false;
    addReading(service, countType);
    return true;
}

/// Copies the parts of services into the history.
void writePartHistory(const QString &services)
{
    gcnData->Execute(
        u"Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,"
        "SupplierID,QuantityRequired,QuantityUsed) Select ServiceUsedID, tblWoPartUsed.PartID, "
        "Description, ItemName, tblWoPartUsed.Price, Name, QuantityRequired, IIf(Used = "
        "True,QuantityUsed,0) From ((tblWoPartUsed Left join tblPart on tblWoPartUsed.partID = "
        "tblPart.PartID) Left join tblSupplier on tblWoPartUsed.SupplierId = "
        "tblSupplier.SupplierID) Left join tblIndicator on tblPart.PartCategoryID = "
        "tblIndicator.ItemID where ServiceUsedId in (%1)"_s.arg(services));
}

/// A service on its way into history, as messages name it.
struct Posted
{
    qint64 id = 0; ///< NServiceUsedID
    qint64 order = 0;
    QString name;
};

/// True when leaving one order out is a way round the error.
bool concernsOneOrder(const base::Error &error)
{
    switch (error.number()) {
    case db::ErrorNumber::LockConflict:
    case base::ErrorNumber::InvalidCall:
    case base::ErrorNumber::InvalidUseOfNull:
    case base::ErrorNumber::Overflow:
        return true;
    default:
        return false;
    }
}

/// Runs the step of a service. What goes wrong in it is said of that service.
template<class Step>
auto stepOf(const Posted &service, Step &&step)
{
    try {
        return step();
    } catch (const base::Error &error) {
        if (!concernsOneOrder(error))
            throw;
        const QString reason =
            error.number() == db::ErrorNumber::LockConflict
                ? u"can't be posted now: another workstation is changing the schedule or a part of "
                  "its service \"%1\". Please try again in a moment."_s.arg(service.name)
                : u"can't be posted: the schedule of its service \"%1\" can't be moved on (%2)."_s
                      .arg(service.name, error.description());
        throw Obstacle(error.number(), service.order,
                       ordernames::sentence(ordernames::order(service.order), reason));
    }
}

/// True when the stock of a part is NOT tracked, in spite of the name.
bool IsPartInInventory(const db::Row &part)
{
    return part.flag(u"TrackInventory");
}

/// What takes used parts out of the stock: of several rows of one part the last decides. Stock may
/// go below zero.
class Stock
{
public:
    void take(const db::Row &part, const Posted &service)
    {
        const double used = part.real(u"QuantityUsed");
        const QString id = part.text(u"PartID");
        if (used > 0 && part.flag(u"Used"))
            m_taken.insert(id.toCaseFolded(), // case doesn't count
                           {id, used, IsPartInInventory(part), service});
    }
    void write() const
    {
        for (const Taken &part : m_taken)
            stepOf(part.service, [&] {
                if (!part.untracked)
                    stock::move(part.id, -part.used);
            });
    }

private:
    struct Taken
    {
        QString id;
        double used = 0;
        bool untracked = false;
        Posted service;
    };
    QMap<QString, Taken> m_taken;
};

db::Recordset usedParts(const QString &services)
{
    return gcnData->Open(
        u"Select ServiceUsedID, tblWoPartUsed.PartID, QuantityUsed, Used, TrackInventory From "
        "tblWoPartUsed Left join tblPart on tblWoPartUsed.partID = tblPart.PartID where "
        "ServiceUsedId in (%1) order by ServiceUsedID, tblWoPartUsed.PartID"_s.arg(services));
}

/// The services to post, list by list.
QList<db::Recordset> servicesOf(const QList<qint64> &orders)
{
    QList<db::Recordset> services;
    for (const QString &list : listsOf(orders))
        services.append(postedServices(list));
    return services;
}

void postParts(const QMap<qint64, Posted> &services)
{
    Stock stock;
    for (const QString &list : listsOf(services.keys())) {
        writePartHistory(list);
        for (const db::Row part : usedParts(list))
            stock.take(part, services[part.integer(u"ServiceUsedID")]);
    }
    stock.write();
}

Posted postedOf(const db::Row &service)
{
    return {service.integer(u"NserviceUsedID"), service.integer(u"WorkorderNo"),
            service.text(u"Name")};
}

/// The schedules behind services, by their key and as they stand now: they may have been changed
/// since the orders were made. Held first, so that what is reckoned from them is what is moved on,
/// however long the user thinks about a date. A service that has been taken off its machine
/// meanwhile has none.
QHash<qint64, db::Row> heldSchedules(const QMap<qint64, Posted> &services)
{
    const auto hold = [](const QString &list) {
        gcnData->Execute(
            u"Update tblServiceUsed set Inactive = Inactive where ServiceUsedID in (%1)"_s.arg(
                list));
    };
    QHash<qint64, db::Row> schedules;
    for (const QString &list : listsOf(services.keys())) {
        try {
            hold(list);
        } catch (const db::DbError &error) {
            if (error.number() != db::ErrorNumber::LockConflict)
                throw;
            // Which one it is: the list doesn't say.
            for (const auto &[id, service] : services.asKeyValueRange())
                stepOf(service, [&, key = id] { hold(QString::number(key)); });
            throw;
        }
        for (const db::Row schedule :
             gcnData->Open(u"Select %1 from tblServiceUsed where ServiceUsedID in (%2)"_s.arg(
                 scheduleColumns(), list)))
            schedules.insert(schedule.integer(u"ServiceUsedID"), schedule);
    }
    return schedules;
}

/// The services of these orders pass into history, their schedules move on, and other services of
/// their machines that wait for a count fall due by the readings that come of it.
class HistoryWriter
{
public:
    HistoryWriter(QList<db::Recordset> services, const base::Progress &progress)
        : m_services(std::move(services))
        , m_progress(progress)
    {
        for (const db::Recordset &list : m_services)
            m_all += list.RecordCount();
    }

    /// The services passed on, by key.
    QMap<qint64, Posted> write()
    {
        m_schedules = heldSchedules(schedulesBehind());
        for (const db::Recordset &list : m_services) {
            for (const db::Row service : list)
                pass(service);
        }
        applyReadings();
        for (const QString &list : listsOf(m_posted.keys()))
            writeServiceHistory(list);
        postParts(m_posted);
        return m_posted;
    }

private:
    [[nodiscard]] QMap<qint64, Posted> schedulesBehind() const
    {
        QMap<qint64, Posted> schedules;
        for (const db::Recordset &list : m_services) {
            for (const db::Row service : list)
                if (const qint64 id = service.integer(u"ServiceUSedID"); id != 0)
                    schedules.insert(id, postedOf(service));
        }
        return schedules;
    }

    void pass(const db::Row &row)
    {
        const Posted service = postedOf(row);
        const qint64 serviceUsedID = row.integer(u"ServiceUSedID");
        const auto schedule = m_schedules.constFind(serviceUsedID);
        const bool hasRead = stepOf(service, [&] {
            const bool left = keepReading(row, serviceUsedID);
            if (schedule != m_schedules.cend())
                reschedule(row, serviceUsedID, *schedule);
            return left;
        });
        if (hasRead)
            m_read.insert(row.integer(u"EquipmentID"), service);
        m_posted.insert(service.id, service);
        if (m_progress)
            m_progress(static_cast<int>(m_posted.size()), m_all);
    }

    /// The services that were posted wait for a reading after their posting.
    void applyReadings() const
    {
        for (const QString &machines : listsOf(m_read.keys()))
            for (const readings::Waiting &waiting : readings::waitingServices(machines))
                if (!m_schedules.contains(waiting.ServiceUsedID))
                    stepOf(m_read[waiting.EquipmentID], [&] { readings::applyTo(waiting); });
    }

    QList<db::Recordset> m_services;
    const base::Progress &m_progress;
    int m_all = 0;
    QHash<qint64, db::Row> m_schedules;
    QMap<qint64, Posted> m_posted;
    QMap<qint64, Posted> m_read; ///< machines with new readings, and a service that left one
};

/// Passes the services and parts of these orders into history; the keys of the open services.
QList<qint64> AddServiceHistoryRecord(const QList<qint64> &orders, const base::Progress &progress)
{
    return base::trapped(Module, "AddServiceHistoryRecord", QList<qint64>(), [&] {
        return HistoryWriter(servicesOf(orders), progress).write().keys();
    });
}

/// Runs the step of an order. A row that another workstation holds is said of that order.
template<class Step>
void stepOf(qint64 order, Step &&step)
{
    try {
        step();
    } catch (const db::DbError &error) {
        if (error.number() != db::ErrorNumber::LockConflict)
            throw;
        throw Obstacle(error.number(), order,
                       ordernames::sentence(ordernames::order(order),
                                            u"can't be posted now: another workstation is changing "
                                            "it. Please try again in a moment."_s));
    }
}

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

void setDateConfirmation(DateConfirmation confirmation)
{
    currentConfirmation() = std::move(confirmation);
}

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
