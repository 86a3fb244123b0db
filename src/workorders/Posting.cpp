#include "workorders/Posting.h"

#include "core/ServiceHistory.h"
#include "core/Session.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "scheduling/GetNextScheduledDate.h"
#include "scheduling/Readings.h"
#include "workorders/NumberList.h"

#include <QHash>
#include <QStringList>
#include <optional>

namespace posting {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Workorder";

DateConfirmation &currentConfirmation()
{
    static DateConfirmation confirmation;
    return confirmation;
}

/// Numbers as lists for "in (...)". Short ones, since the database compares each row that it finds
/// with the numbers one after the other. No list is empty.
QStringList listsOf(const QList<qint64> &numbers)
{
    constexpr qsizetype longest = 100;
    QStringList lists;
    for (qsizetype at = 0; at < numbers.size(); at += longest)
        lists.append(numberList(numbers.mid(at, longest)));
    return lists;
}

/// The services of these orders that are completed or skipped, their columns in the order of the
/// history's, and last the assignment behind each.
db::Recordset postedServices(const QString &orders)
{
    return gcnData->Open(
        u"Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, "
        "ServiceID, tblWoServiceUsed.Name, tblCrew.CrewID, CrewNumber, LastDateScheduled, "
        "LastDatePerformed, NextScheduleddate, tblCostCenter.Description as CostCenterID, "
        "SeparateWo, LaborEstimate, CostEstimate, [Note], Period,JobNo,Countvalue, "
        "(IIf(Skip=True,-1,0)) AS Skip1,StartTime , EndTime ,Workhrs ,tblSupplier.SupplierID "
        ",tblSupplier.Name ,WoDate ,CompletedDate ,ServiceUSedID From (((tblWoServiceUsed left "
        "join tblWorkorder on tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno) left join "
        "tblCrew on tblWoserviceUsed.CrewID = tblcrew.CrewID) left join tblSupplier on "
        "tblWoserviceUsed.SupplierID = tblSupplier.SupplierID) left join tblCostCenter on "
        "tblWoServiceUsed.CostcenterID = tblCostCenter.CostCenterID where "
        "tblWoServiceUsed.WorkorderNo in(%1) and (not ((Skip is Null or Skip <> -1) and (Completed "
        "is Null or Completed <> -1)))"_s.arg(orders));
}

void insertServiceHistory(const db::Row &service)
{
    const QStringList &columns = serviceHistoryColumns();
    QVariantList values;
    for (int column = 0; column < columns.size(); ++column)
        values.append(service[column]);
    const QStringList places(values.size(), u"?"_s);
    gcnData->Execute(u"Insert into tblWOServiceUsedHistory(%1) Values(%2)"_s.arg(columns.join(u','),
                                                                                 places.join(u',')),
                     values);
}

void addReading(const db::Row &service, const QString &countType)
{
    gcnData->Execute(
        u"insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue) "
        "values(?,?,?,?)"_s,
        {service[u"EquipmentID"], service[u"CompletedDate"], countType, service[u"Countvalue"]});
}

QDateTime confirmed(QDateTime next, const db::Row &service, qint64 serviceUsedID)
{
    const QDateTime completed = service.date(u"CompletedDate");
    if (!next.isValid() || !completed.isValid() || next >= completed)
        return next;
    base::showMessage(u"You have chosen to reschedule this services based on the scheduled date \n"
                      "rather then on the completed date and the new date is already older then\n"
                      "the completed date."_s);
    const DateConfirmation ask = currentConfirmation();
    return ask ? ask(completed, serviceUsedID)
               : scheduling::nextScheduledDate(serviceUsedID, completed);
}

/// Moves the schedule behind a posted service. The dates are written first, since the next date is
/// reckoned from the row as it then stands.
void reschedule(const db::Row &service, qint64 serviceUsedID)
{
    const bool again = IsServiceScheduleAgain(serviceUsedID);
    gcnData->Execute(again
                         ? u"Update tblServiceUsed Set LastDateScheduled = ?, LastDatePerformed = "
                           "? Where ServiceUsedID = ?"_s
                         : u"Update tblServiceUsed Set LastDateScheduled = ?, LastDatePerformed = "
                           "?, Inactive = 1 Where ServiceUsedID = ?"_s,
                     {service[u"NextScheduleddate"], service[u"CompletedDate"], serviceUsedID});

    QDateTime next;
    QString countType;
    if (ChkServiceIsCountType(service.integer(u"NserviceUsedID"), countType)) {
        addReading(service, countType);
        ServiceCountUpdate(serviceUsedID, service.integer(u"Countvalue"));
    } else if (again) {
        next = confirmed(scheduling::nextScheduledDate(serviceUsedID), service, serviceUsedID);
    }
    if (again)
        gcnData->Execute(
            u"Update tblServiceUsed Set NextScheduledDate = ? Where ServiceUsedID = ?"_s,
            {next.isValid() ? QVariant(next) : QVariant(), serviceUsedID});
}

/// A service that stood on the order without a schedule leaves a reading, unless it is there
/// already; only this kind is tested for a doubled one.
void keepReading(const db::Row &service)
{
    QString countType;
    if (ChkServiceIsCountType(service.integer(u"NserviceUsedID"), countType) &&
        !IsCountAvailable(service.integer(u"EquipmentID"), service.date(u"CompletedDate"),
                          countType, service.integer(u"Countvalue")))
        addReading(service, countType);
}

void insertPartHistory(const db::Row &part)
{
    gcnData->Execute(
        u"Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,"
        "SupplierID,QuantityRequired,QuantityUsed) Values(?,?,?,?,?,?,?,?)"_s,
        {part[u"ServiceUsedID"], part[u"PartID"], part[u"Description"], part[u"ItemName"],
         part[u"Price"], part[u"Name"], part[u"QuantityRequired"],
         part.flag(u"Used") ? part[u"QuantityUsed"] : QVariant(0)});
}

/// What takes used parts out of the stock that they had when the posting began: of two rows of one
/// part the last decides. Stock may go below zero.
class Stock
{
public:
    void take(const db::Row &part)
    {
        const double used = part.real(u"QuantityUsed");
        const QString id = part.text(u"PartID");
        if (used <= 0 || !part.flag(u"Used") || IsPartInInventory(id))
            return;
        gcnData->Execute(u"Update tblpart set Quantity = ? where partid = ?"_s,
                         {atBegin(id) - used, id});
    }

private:
    /// The quantity, held from here on against other workstations: what one of them has taken since
    /// the parts were read must not come back.
    double atBegin(const QString &id)
    {
        const QString key = id.toCaseFolded();
        const auto known = m_atBegin.constFind(key);
        if (known != m_atBegin.constEnd())
            return *known;
        gcnData->Execute(u"Update tblpart set Quantity = Quantity where partid = ?"_s, {id});
        const db::Recordset rows =
            gcnData->Open(u"Select Quantity from tblPart where PartID = ?"_s, {id});
        const double quantity = rows.isEmpty() ? 0 : rows.current().real(u"Quantity");
        m_atBegin.insert(key, quantity);
        return quantity;
    }

    QHash<QString, double> m_atBegin; ///< by part number, whose case doesn't count
};

db::Recordset usedParts(const QString &services)
{
    return gcnData->Open(
        u"Select ServiceUsedID, tblWoPartUsed.PartID, Description, ItemName, tblWoPartUsed.Price, "
        "Name, QuantityRequired, QuantityUsed, Used From ((tblWoPartUsed Left join "
        "tblPart on tblWoPartUsed.partID = tblPart.PartID) Left join tblSupplier on "
        "tblWoPartUsed.SupplierId = tblSupplier.SupplierID) Left join tblIndicator on "
        "tblPart.PartCategoryID = tblIndicator.ItemID where ServiceUsedId in (%1)"_s.arg(services));
}

/// The services to post, list by list.
QList<db::Recordset> servicesOf(const QList<qint64> &orders)
{
    QList<db::Recordset> services;
    for (const QString &list : listsOf(orders))
        services.append(postedServices(list));
    return services;
}

void postParts(const QList<qint64> &ids)
{
    Stock stock;
    for (const QString &list : listsOf(ids)) {
        for (const db::Row part : usedParts(list)) {
            insertPartHistory(part);
            stock.take(part);
        }
    }
}

/// Passes the services and parts of these orders into history; the keys of the open services. A
/// failure is reported, and nothing is given back then: the whole transaction is undone.
std::optional<QList<qint64>> AddServiceHistoryRecord(const QList<qint64> &orders,
                                                     const base::Progress &progress)
{
    const auto none = std::optional<QList<qint64>>();
    return base::trapped(Module, "AddServiceHistoryRecord", none, [&] {
        TransactionScope transaction;
        QList<qint64> ids;
        const QList<db::Recordset> lists = servicesOf(orders);
        int all = 0;
        for (const db::Recordset &services : lists)
            all += services.RecordCount();
        for (const db::Recordset &services : lists) {
            for (const db::Row service : services) {
                insertServiceHistory(service);
                const qint64 serviceUsedID = service.integer(u"ServiceUSedID");
                if (serviceUsedID != 0)
                    reschedule(service, serviceUsedID);
                else
                    keepReading(service);
                ids.append(service.integer(u"NserviceUsedID"));
                if (progress)
                    progress(static_cast<int>(ids.size()), all);
            }
        }
        postParts(ids);
        transaction.leaveOpen();
        return std::optional(ids);
    });
}

/// Holds the orders against other workstations, so that of two that post one order the second
/// finds it gone, or is refused while the first is still at it.
void hold(const QList<qint64> &orders)
{
    for (const QString &list : listsOf(orders))
        gcnData->Execute(
            u"Update tblWorkorder set Complete = Complete where WorkorderNo in (%1)"_s.arg(list));
}

/// True when a service of the order that is done, or skipped, lacks the count that it needs.
bool waitsForCount(qint64 order)
{
    return !gcnData
                ->Open(u"Select Workorderno from tblwoServiceUsed where Workorderno = ? and Period "
                       "in ('C','H','K','I') and countvalue is NULL and (Completed = -1 Or Skip = "
                       "-1)"_s,
                       {order})
                .isEmpty();
}

/// Splits the orders that are there into those to post and those that wait for a count.
void holdBack(const QList<qint64> &wanted, QList<qint64> &posted, QList<qint64> &held)
{
    for (const QString &list : listsOf(wanted)) {
        for (const db::Row order : gcnData->Open(
                 u"Select Workorderno From tblWorkorder Where WorkorderNo in (%1)"_s.arg(list))) {
            const qint64 number = order.integer(u"Workorderno");
            (waitsForCount(number) ? held : posted).append(number);
        }
    }
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
            u"Delete from tblWorkorder where WorkOrderno in (%1) and (not workorderno in (SELECT "
            "tblWorkorder.workorderno FROM tblWOServiceUSed LEFT JOIN tblWorkorder ON "
            "tblworkorder.workorderno = tblWoServiceUsed.workorderno WHERE "
            "tblWorkorder.workorderno in (%1)))"_s.arg(list));
    }
}

/// All open orders lose their mark but those held back, also such as another workstation has
/// marked: the mark is a selection for this posting.
void clearMarks(const QList<qint64> &held)
{
    QString statement = u"Update tblWorkorder set Complete = 0 ,CompletedDate = NULL"_s;
    if (!held.isEmpty())
        statement += u" where not WorkorderNo in (%1)"_s.arg(numberList(held));
    gcnData->Execute(statement);
}

} // namespace

void setDateConfirmation(DateConfirmation confirmation)
{
    currentConfirmation() = std::move(confirmation);
}

bool PostWorkOrder(QList<qint64> &orders, const base::Progress &progress)
{
    return base::trapped(Module, "PostWorkOrder", false, [&] {
        TransactionScope transaction;
        QList<qint64> posted;
        QList<qint64> held;
        hold(orders);
        holdBack(orders, posted, held);
        if (!posted.isEmpty()) {
            const auto ids = AddServiceHistoryRecord(posted, progress);
            if (!ids)
                return false;
            deleteOpenRows(posted, *ids);
            clearMarks(held);
        }
        if (!held.isEmpty())
            base::showMessage(u"Following Work Orders (%1) aren't posted. Enter counts for these "
                              "Work Orders."_s.arg(numberList(held, u", "_s)));
        transaction.commit();
        orders = posted;
        return true;
    });
}

bool IsServiceScheduleAgain(qint64 ServiceUsedID)
{
    const db::Recordset rows = gcnData->Open(
        u"select RenewalOn from tblServiceUsed where ServiceUsedId = ?"_s, {ServiceUsedID});
    return rows.isEmpty() || rows.current().text(u"RenewalOn") != u"D";
}

bool ChkServiceIsCountType(qint64 NServiceUsedID, QString &CountType)
{
    const db::Recordset rows = gcnData->Open(
        u"Select Period from tblWOServiceUsed where NserviceUsedID = ?"_s, {NServiceUsedID});
    if (rows.isEmpty())
        return false;
    const QString type = readings::countType(rows.current().text(u"Period"));
    if (type.isEmpty())
        return false;
    CountType = type;
    return true;
}

void ServiceCountUpdate(qint64 ServiceUsedID, qint64 Count)
{
    const db::Recordset rows = gcnData->Open(
        u"Select RenewalOn,NextScheduledCount,Einterval From tblServiceUsed where ServiceUsedID = ?"_s,
        {ServiceUsedID});
    if (rows.isEmpty())
        return;
    const db::Row row = rows.current();
    const qint64 from = row.text(u"RenewalOn") == u"W" ? Count : row.integer(u"NextScheduledCount");
    gcnData->Execute(u"Update tblServiceUsed set nextScheduledCount = ? where ServiceUsedID = ?"_s,
                     {from + row.integer(u"Einterval"), ServiceUsedID});
}

bool IsCountAvailable(qint64 EquipmentID, const QDateTime &Date, const QString &CountType,
                      qint64 CountValue)
{
    return !gcnData
                ->Open(u"SELECT * FROM tblEquipmentCount Where EquipmentID = ? and ChangeDate = "
                       "? and CountType = ? and CountValue = ?"_s,
                       {EquipmentID, Date, CountType, CountValue})
                .isEmpty();
}

bool IsPartInInventory(const QString &PartID)
{
    const db::Recordset rows =
        gcnData->Open(u"select TrackInventory from tblPart where PartID = ?"_s, {PartID});
    return !rows.isEmpty() && rows.current().flag(u"TrackInventory");
}

} // namespace posting
