#include "workorders/Recording.h"

#include "core/General.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "workorders/Generation.h"
#include "workorders/NumberList.h"

namespace recording {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Workorder";

/// What an error is reported under: the procedure, and the module that it counts to.
struct Label
{
    constexpr Label(const char *name, const char *moduleName = Module)
        : procedure(name)
        , module(moduleName)
    {}
    const char *procedure;
    const char *module;
};

/// The rule behind the grid of services, which is the screen's.
constexpr Label ServiceChange("grdRecordService_Change", "WorkOrder");

const QString NotSkipped = u"(skip is null or skip <> -1)"_s;

/// One statement that commits by itself, as one step of a procedure of this name.
bool execute(Label label, const QString &statement, const QVariantList &parameters)
{
    return base::trapped(label.module, label.procedure, false, [&] {
        gcnData->Execute(statement, parameters);
        return true;
    });
}

/// Several statements that commit together.
template<class Body>
bool together(Label label, Body &&body)
{
    return base::trapped(label.module, label.procedure, false, [&] {
        TransactionScope transaction;
        body();
        transaction.commit();
        return true;
    });
}

void setCompleted(qint64 id, bool completed)
{
    gcnData->Execute(u"Update tblWoServiceUsed set Completed = ? where NServiceUsedid = ?"_s,
                     {completed, id});
    gcnData->Execute(u"Update tblWoPartUsed set Used = ? where ServiceUsedid = ?"_s,
                     {completed, id});
}

/// Marks the parts of an order's services. The services are read first: with the query inside the
/// update the engine would go through the parts of all orders.
void setPartsUsed(qint64 order, bool used, const QString &condition = {})
{
    QList<qint64> services;
    for (const db::Row service : gcnData->Open(
             u"Select NServiceUsedID from tblWoServiceUsed where WorkorderNo = ?"_s + condition,
             {order}))
        services.append(service.integer(u"NServiceUsedID"));
    if (!services.isEmpty())
        gcnData->Execute(u"Update tblWoPartUsed set Used = ? where ServiceUsedID in (%1)"_s.arg(
                             numberList(services)),
                         {used});
}

bool isOnOrder(qint64 id, qint64 workorderNo, ServiceSource source)
{
    const QString statement =
        source == ServiceSource::Catalogue
            ? u"Select Name from tblwoServiceused Where (ServiceID = ? and workorderno = ?)"_s
            : u"Select Name from tblwoServiceused Where (ServiceID = (Select ServiceID From "
              "tblServiceUsed where ServiceUsedID =?) and workorderno = ?)"_s;
    return !gcnData->Open(statement, {id, workorderNo}).isEmpty();
}

/// The service to copy; of the catalogue one the 0 says that no schedule stands behind it.
db::Recordset sourceRow(qint64 id, ServiceSource source)
{
    const QString columns =
        u"ServiceID ,CrewID,Name,CostCenterId,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,"
        "JobNo"_s;
    return source == ServiceSource::Catalogue
               ? gcnData->Open(
                     u"Select %1,0 as ServiceUsedID from tblServices where ServiceID = ?"_s.arg(
                         columns),
                     {id})
               : gcnData->Open(
                     u"Select %1,ServiceUsedID from tblServiceUsed where ServiceUsedID = ?"_s.arg(
                         columns),
                     {id});
}

db::Recordset sourceParts(qint64 id, ServiceSource source)
{
    return source == ServiceSource::Catalogue
               ? gcnData->Open(
                     u"Select partID,QuantityRequired,Price,SupplierID from tblServicespart where "
                     "PartId is not Null and ServiceId = ?"_s,
                     {id})
               : gcnData->Open(
                     u"Select partID,QuantityRequired,Price,SupplierID from tblServiceUsedpart "
                     "where PartId is not Null and ServiceUsedId = ?"_s,
                     {id});
}

void insertPart(qint64 id, const QVariant &part, const QVariant &quantity, const QVariant &price,
                const QVariant &used, const QVariant &supplier)
{
    gcnData->Execute(
        u"insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,"
        "Price,Used,SupplierID) values(?,?,?,?,?,?,?)"_s,
        {id, part, quantity, quantity, price, used, supplier});
}

qint64 insertService(const db::Row &service, qint64 workorderNo, qint64 equipment, bool completed)
{
    return gcnData->Insert(
        u"Insert into tblWoserviceUsed(WorkOrderNo,EquipmentID,LastdateScheduled,LastDatePerformed,"
        "NextScheduledDate,Completed,ServiceID,crewID,Name,CostCenterID,SeparateWo,LaborEstimate,"
        "CostEstimate,[Note],Period,JobNo,ServiceUsedID) "
        "values(?,?,Null,Null,?,?,?,?,?,?,?,?,?,?,?,?,?)"_s,
        {workorderNo, equipment, base::wallClock(base::today()), completed, service[u"ServiceID"],
         service[u"CrewID"], service[u"Name"], service[u"CostCenterId"], service[u"SeparateWo"],
         service[u"LaborEstimate"], service[u"CostEstimate"], service[u"Note"], service[u"Period"],
         service[u"JobNo"], service[u"ServiceUsedID"]},
        u"NServiceUsedID"_s);
}

int option(const QString &key)
{
    return GetOption(key, false).trimmed().toInt();
}

} // namespace

bool UpdateWorkorder(qint64 WorkorderNo, const std::optional<QDate> &date, bool withServices)
{
    return together("UpdateWorkorder", [&] {
        if (date) {
            gcnData->Execute(u"Update tblWorkorder Set CompletedDate = ?, Complete = '1' Where "
                             "WorkorderNo = ?"_s,
                             {base::wallClock(*date), WorkorderNo});
            if (!withServices)
                return;
            gcnData->Execute(
                u"Update tblWoServiceUsed Set Completed = '1' Where WorkorderNo = ? and "_s +
                    NotSkipped,
                {WorkorderNo});
            setPartsUsed(WorkorderNo, true, u" and "_s + NotSkipped);
        } else {
            gcnData->Execute(u"Update tblWorkorder Set CompletedDate = NULL, Complete = '0' Where "
                             "WorkorderNo = ?"_s,
                             {WorkorderNo});
            if (!withServices)
                return;
            gcnData->Execute(u"Update tblWoServiceUsed Set Completed = '0' Where WorkorderNo = ?"_s,
                             {WorkorderNo});
            setPartsUsed(WorkorderNo, false);
        }
    });
}

bool UpdateWorkorder2(qint64 WorkorderNo, const QString &Column, const QVariant &Value)
{
    return execute("UpdateWorkorder2",
                   u"Update tblWorkorder set [%1] = ? where WorkorderNo = ?"_s.arg(Column),
                   {Value, WorkorderNo});
}

bool UpdateWorkorderService(qint64 NServiceUsedID, const QString &Column, const QVariant &Value)
{
    return execute("UpdateWorkorderService",
                   u"Update tblWoServiceUsed set [%1] = ? where NServiceUsedid = ?"_s.arg(Column),
                   {Value, NServiceUsedID});
}

bool UpdateWorkorderServiceComplete(qint64 NServiceUsedID, bool completed)
{
    return together("UpdateWorkorderServiceComplete",
                    [&] { setCompleted(NServiceUsedID, completed); });
}

bool completeService(qint64 NServiceUsedID)
{
    return together(ServiceChange, [&] {
        setCompleted(NServiceUsedID, true);
        gcnData->Execute(u"Update tblWoServiceUsed set Skip = '0' where NServiceUsedid = ?"_s,
                         {NServiceUsedID});
    });
}

bool skipService(qint64 NServiceUsedID, const QString &reason)
{
    return together(ServiceChange, [&] {
        gcnData->Execute(
            u"Update tblWoServiceUsed set [Note] = ?, Skip = '1' where NServiceUsedid = ?"_s,
            {reason, NServiceUsedID});
        setCompleted(NServiceUsedID, false);
    });
}

bool skipAll(qint64 WorkorderNo, const QString &reason)
{
    return together("cmdSkipAll_Click", [&] {
        gcnData->Execute(
            u"Update tblWoServiceUsed set Skip  = '1',Completed = '0' where Workorderno = ?"_s,
            {WorkorderNo});
        setPartsUsed(WorkorderNo, false);
        gcnData->Execute(u"update tblWoServiceUsed set [Note] = ? where Workorderno = ?"_s,
                         {reason, WorkorderNo});
    });
}

bool UpdateWorkorderPart(const QString &PartID, qint64 NServiceUsedID, const QString &Column,
                         const QVariant &Value)
{
    return execute(
        "UpdateWorkorderPart",
        u"Update tblWoPartUsed set [%1] = ? where ServiceUsedid = ? and Partid = ?"_s.arg(Column),
        {Value, NServiceUsedID, PartID});
}

bool updateNote(qint64 NServiceUsedID, const QString &note)
{
    return execute("txtRecordNote_Validate",
                   u"update tblWoServiceUsed set [Note] = ? where NserviceUsedID = ?"_s,
                   {note, NServiceUsedID});
}

bool IsServiceSkiped(qint64 NServiceUsedID)
{
    return base::trapped(Module, "IsServiceSkiped", false, [&] {
        const db::Recordset rows = gcnData->Open(
            u"select skip from tblWoServiceUsed where NServiceUsedId = ?"_s, {NServiceUsedID});
        return !rows.isEmpty() && rows.current().flag(u"skip");
    });
}

bool changeCrew(qint64 NServiceUsedID, qint64 CrewID)
{
    const double cost = SetLaborCost(CrewID) * GetBudgetedHrs(NServiceUsedID);
    return together(ServiceChange, [&] {
        gcnData->Execute(
            u"Update tblWoServiceUsed set CrewID = ?, CostEstimate = ? where NServiceUsedid = ?"_s,
            {CrewID, cost, NServiceUsedID});
    });
}

double GetBudgetedHrs(qint64 NServiceUsedID)
{
    return base::trapped(Module, "GetBudgetedHrs", 0.0, [&] {
        const db::Recordset rows =
            gcnData->Open(u"Select LaborEstimate from tblWoServiceUSed where NserviceUsedID = ?"_s,
                          {NServiceUsedID});
        return rows.isEmpty() ? 0.0 : rows.current().real(u"LaborEstimate");
    });
}

bool saveTimes(qint64 id, TimesOf where, const QTime &start, const QTime &end,
               const QTime &workHours)
{
    const bool open = where == TimesOf::OpenOrder;
    const QString table = open ? u"tblWoserviceUsed"_s : u"tblWOServiceUsedHistory"_s;
    const double rate = SetLaborCost(GetCrewIDByService(id, table));
    const double hours = workHours.hour() + workHours.minute() / 60.0;
    return execute("cmdUpdate_Click",
                   u"update %1 set StartTime = ?, EndTime = ?, WorkHrs = ?, CostEstimate = ? where "
                   "%2 = ?"_s.arg(table, open ? u"NServiceUsedID"_s : u"ServiceUsedID"_s),
                   {start.toString(u"HH:mm"), end.toString(u"HH:mm"), workHours.toString(u"HH:mm"),
                    hours * rate, id});
}

bool AddPartRecord(const QList<parts::Chosen> &chosen, qint64 NServiceUsedID, bool used)
{
    return together("AddPartRecord", [&] {
        for (const parts::Chosen &part : chosen)
            insertPart(NServiceUsedID, part.PartID, part.Quantity, part.Price, used,
                       part.SupplierID);
    });
}

bool DeletePartRecord(qint64 NServiceUsedID, const QString &PartID)
{
    return execute("DeletePartRecord",
                   u"Delete From tblWoPartUsed where ServiceUsedID = ? and PartID = ?"_s,
                   {NServiceUsedID, PartID});
}

bool AddServiceRecord(const QList<qint64> &ids, qint64 WorkorderNo, qint64 EquipmentID,
                      ServiceSource source, bool completed)
{
    return together("AddServiceRecord", [&] {
        for (const qint64 id : ids) {
            if (isOnOrder(id, WorkorderNo, source))
                continue;
            const db::Recordset service = sourceRow(id, source);
            if (service.isEmpty())
                continue;
            const qint64 key =
                insertService(service.current(), WorkorderNo, EquipmentID, completed);
            for (const db::Row part : sourceParts(id, source))
                insertPart(key, part[u"partID"], part[u"QuantityRequired"], part[u"Price"], false,
                           part[u"SupplierID"]);
        }
    });
}

bool DeleteServiceRecord(qint64 NServiceUsedID)
{
    return together("DeleteServiceRecord", [&] {
        gcnData->Execute(u"Delete From tblWoServiceUsed where NServiceUsedId = ?"_s,
                         {NServiceUsedID});
        gcnData->Execute(u"Delete From tblWoPartUsed where ServiceUsedID = ?"_s, {NServiceUsedID});
    });
}

qint64 addUnscheduled(const QList<qint64> &equipmentIDs)
{
    qint64 first = 0;
    const bool done = together("AddWorkorderRecord", [&] {
        for (const qint64 equipment : equipmentIDs) {
            const qint64 order = generation::addOrder(equipment);
            first = first == 0 ? order : first;
        }
    });
    return done ? first : 0;
}

bool UpdatePrintColInWorkOrder(const QList<qint64> &orders)
{
    if (orders.isEmpty())
        return true;
    return execute(
        "UpdatePrintColInWorkOrder",
        u"Update tblWorkorder set Printed = 1 where Workorderno in (%1)"_s.arg(numberList(orders)),
        {});
}

bool ISWorkOrderLate(qint64 WorkorderNo, QDate today)
{
    return base::trapped(Module, "ISWorkOrderLate", false, [&] {
        const int days = qMin(option(u"SERVICE_LATE_RED"_s), option(u"SERVICE_LATE_YELLOW"_s));
        if (days == 0)
            return false;
        return !gcnData
                    ->Open(u"SELECT WorkorderNo FROM tblWoserviceUsed Where NextScheduledDate <= ? "
                           "and WorkorderNo = ? GROUP BY WorkorderNo having "
                           "Count(tblWoserviceUsed.NserviceUsedID)>=2"_s,
                           {base::wallClock(today.addDays(-days)), WorkorderNo})
                    .isEmpty();
    });
}

} // namespace recording

Lateness lateness(const QDate &nextServiceDate, QDate today, int lateYellow, int lateRed)
{
    if (!nextServiceDate.isValid())
        return Lateness::OnTime;
    const qint64 days = nextServiceDate.daysTo(today);
    if (lateRed != 0)
        return days >= lateRed ? Lateness::Red : Lateness::OnTime;
    return lateYellow != 0 && days >= lateYellow ? Lateness::Yellow : Lateness::OnTime;
}
