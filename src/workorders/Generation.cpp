#include "workorders/Generation.h"

#include "core/Session.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "workorders/NumberList.h"
#include "workorders/OrderNames.h"
#include "workorders/OrderServices.h"

#include <QHash>
#include <QMap>
#include <QStringList>

namespace generation {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Work Order";

/// The due services of these machines, by machine. Of a deleted crew CrewID is Null.
using ServicesByMachine = QHash<qint64, QList<db::Row>>;

/// The condition that names the machines, empty when they are so many that the whole window is read
/// faster than they are picked out.
QString machineCondition(const QList<qint64> &machines)
{
    constexpr qsizetype few = 20;
    if (machines.size() > few)
        return {};
    return u" and Equipmentid in (%1)"_s.arg(numberList(machines));
}

ServicesByMachine dueServices(const WorkorderFilter &filter, const QList<qint64> &machines,
                              bool withInactive)
{
    ServicesByMachine services;
    if (machines.isEmpty())
        return services;
    const QString condition = dueCondition(filter) + machineCondition(machines) +
                              (withInactive ? QString() : u" and inactive = 0"_s);
    for (const db::Row row : gcnData->Open(
             u"Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, "
             "NextScheduledDate, Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, "
             "CostEstimate, [Note], Period, JobNo From tblServiceUsed Left Join tblCrew on "
             "tblServiceUsed.CrewId = tblCrew.crewID Where "_s +
             condition + u" order by ServiceUsedID"_s))
        services[row.integer(u"EquipmentID")].append(row);
    return services;
}

void AddOneService(qint64 workorderNo, const db::Row &service)
{
    const db::Recordset parts = gcnData->Open(
        u"Select partID,QuantityRequired,Price,SupplierID from tblServiceUsedpart where PartId is "
        "not Null and ServiceUsedId = ?"_s,
        {service[u"ServiceUsedID"]});
    orderservices::addService(workorderNo, service, parts);
}

void AddGenerateWo(qint64 machine, const QList<db::Row> &services, QList<qint64> &generated)
{
    QMap<qint64, QList<db::Row>> byCrew;
    for (const db::Row &service : services) {
        if (service.integer(u"SeparateWo") != 0)
            continue;
        // No order can be made for nobody.
        if (service.isNull(u"CrewID"))
            throw base::Error(
                base::ErrorNumber::InvalidUseOfNull,
                u"The due service \"%1\" of machine %2 belongs to a crew that has been deleted. "
                "Give the service a crew first."_s.arg(service.text(u"Name"),
                                                       ordernames::machine(machine)));
        byCrew[service.integer(u"CrewID")].append(service);
    }
    for (const QList<db::Row> &shared : std::as_const(byCrew)) {
        const qint64 order = orderservices::addOrder(machine);
        generated.append(order);
        for (const db::Row &service : shared)
            AddOneService(order, service);
    }
    for (const db::Row &service : services) {
        if (service.integer(u"SeparateWo") != 1)
            continue;
        const qint64 order = orderservices::addOrder(machine);
        generated.append(order);
        AddOneService(order, service);
    }
}

/// Makes the orders of a machine. The index that lets a service be on one open order only keeps
/// two workstations from making them both.
template<class Body>
void unlessDoneElsewhere(qint64 machine, Body &&body)
{
    try {
        body();
    } catch (const db::DbError &error) {
        if (error.number() != db::ErrorNumber::DuplicateKey &&
            error.number() != db::ErrorNumber::LockConflict)
            throw;
        throw InTheWay(
            u"Another workstation has just generated work orders for services of "
            "machine %1. Press Refresh to see them."_s.arg(ordernames::machine(machine)));
    }
}

bool generate(const WorkorderFilter &filter, const QList<qint64> &machines, bool withInactive,
              QList<qint64> &generated, const base::Progress &progress)
{
    QList<qint64> made;
    const bool done = base::trapped(Module, "AddGenerateWo", false, [&] {
        TransactionScope transaction;
        ServicesByMachine services = dueServices(filter, machines, withInactive);
        int machinesDone = 0;
        for (const qint64 machine : machines) {
            unlessDoneElsewhere(machine,
                                [&] { AddGenerateWo(machine, services.take(machine), made); });
            if (progress)
                progress(++machinesDone, static_cast<int>(machines.size()));
        }
        transaction.commit();
        return true;
    });
    if (done)
        generated += made;
    return done;
}

} // namespace

bool GenerateWorkorder(const WorkorderFilter &filter, const QList<qint64> &equipmentIDs,
                       QList<qint64> &generated, const base::Progress &progress)
{
    return generate(filter, equipmentIDs, false, generated, progress);
}

bool generateForRow(const WorkorderFilter &filter, qint64 EquipmentID, QList<qint64> &generated)
{
    return generate(filter, {EquipmentID}, true, generated, {});
}

bool deleteOrder(qint64 WorkorderNo)
{
    return base::trapped(Module, "cmdDelete_Click", false, [&] {
        TransactionScope transaction;
        const auto remove = [&] {
            gcnData->Execute(u"Delete from tblWoPartUsed where ServiceUSedID in (Select "
                             "NserviceUSedID from tblWoServiceUSed where Workorderno = ?)"_s,
                             {WorkorderNo});
            gcnData->Execute(u"Delete from tblWoServiceUsed where WorkorderNo = ?"_s,
                             {WorkorderNo});
            gcnData->Execute(u"Delete from tblWorkorder where Workorderno = ?"_s, {WorkorderNo});
        };
        orInTheWay(remove,
                   [&] { return ordernames::beingChanged(ordernames::order(WorkorderNo)); });
        transaction.commit();
        return true;
    });
}

} // namespace generation
