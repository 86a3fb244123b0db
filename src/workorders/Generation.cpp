#include "workorders/Generation.h"

#include "core/Session.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"

#include <QStringList>

namespace generation {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Work Order";

const QString NotOnAnOrder = u"Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed)"_s;

/// What an order's service copies from the schedule, in the order of the insert.
const QStringList CopiedColumns{u"ServiceUsedID"_s,
                                u"ServiceID"_s,
                                u"EquipmentID"_s,
                                u"LastDateScheduled"_s,
                                u"LastDatePerformed"_s,
                                u"NextScheduledDate"_s,
                                u"Name"_s,
                                u"CrewID"_s,
                                u"CostCenterID"_s,
                                u"SeparateWo"_s,
                                u"LaborEstimate"_s,
                                u"CostEstimate"_s,
                                u"Note"_s,
                                u"Period"_s,
                                u"JobNo"_s};

/// The condition under which services of a machine are taken.
struct Selection
{
    QString condition;
    qint64 equipment = 0;
};

Selection selectionOf(const WorkorderFilter &filter, qint64 equipment, bool withInactive)
{
    QString condition =
        BuildFilterExpression(filter) + u" And "_s + NotOnAnOrder + u" and Equipmentid = ?"_s;
    if (!withInactive)
        condition += u" and inactive = 0"_s;
    return {condition, equipment};
}

db::Recordset crewsOf(const Selection &selection)
{
    return gcnData->Open(
        u"Select tblCrew.CrewID From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = "
        "tblCrew.crewID Where %1 AND (tblServiceUsed.SeparateWo = '0') group by tblCrew.CrewId"_s
            .arg(selection.condition),
        {selection.equipment});
}

db::Recordset servicesOf(const Selection &selection, const QString &also, const QVariantList &more)
{
    return gcnData->Open(
        u"Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, "
        "NextScheduledDate, Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, "
        "CostEstimate, [Note], Period, JobNo From tblServiceUsed Left Join tblCrew on "
        "tblServiceUsed.CrewId = tblCrew.crewID Where %1 AND %2"_s.arg(selection.condition, also),
        QVariantList{selection.equipment} + more);
}

void AddOneService(qint64 workorderNo, const db::Row &service)
{
    const db::Recordset parts = gcnData->Open(
        u"Select partID,QuantityRequired,Price,SupplierID from tblServiceUsedpart where PartId is "
        "not Null and ServiceUsedId = ?"_s,
        {service[u"ServiceUsedID"]});
    addService(workorderNo, service, parts);
}

void AddGenerateWo(const Selection &selection, QList<qint64> &generated)
{
    for (const db::Row crew : crewsOf(selection)) {
        // Services whose crew was deleted form a group without a number, and no order can be made
        // for nobody.
        if (crew.isNull(u"CrewID"))
            throw base::Error(base::ErrorNumber::InvalidUseOfNull,
                              u"A due service of this machine belongs to a crew that has been "
                              "deleted. Give the service a crew first."_s);
        const db::Recordset services =
            servicesOf(selection, u"(tblServiceUsed.SeparateWo = '0') and tblcrew.crewid = ?"_s,
                       {crew[u"CrewID"]});
        // Another workstation may have put them on an order by now.
        if (services.isEmpty())
            continue;
        const qint64 order = addOrder(selection.equipment);
        generated.append(order);
        for (const db::Row service : services)
            AddOneService(order, service);
    }
    for (const db::Row service :
         servicesOf(selection, u"(tblServiceUsed.SeparateWo = '1')"_s, {})) {
        const qint64 order = addOrder(selection.equipment);
        generated.append(order);
        AddOneService(order, service);
    }
}

bool generate(const char *procedure, const QList<Selection> &selections, QList<qint64> &generated)
{
    QList<qint64> made;
    const bool done = base::trapped(Module, procedure, false, [&] {
        TransactionScope transaction;
        for (const Selection &selection : selections)
            AddGenerateWo(selection, made);
        transaction.commit();
        return true;
    });
    if (done)
        generated += made;
    return done;
}

} // namespace

bool GenerateWorkorder(const WorkorderFilter &filter, const QList<qint64> &equipmentIDs,
                       QList<qint64> &generated)
{
    QList<Selection> selections;
    for (const qint64 equipment : equipmentIDs)
        selections.append(selectionOf(filter, equipment, false));
    return generate("AddGenerateWo", selections, generated);
}

bool generateForRow(const WorkorderFilter &filter, qint64 EquipmentID, QList<qint64> &generated)
{
    return generate("AddGenerateWo", {selectionOf(filter, EquipmentID, true)}, generated);
}

qint64 addOrder(qint64 EquipmentID)
{
    return gcnData->Insert(u"Insert into tblWorkOrder(EquipmentId,Printed) Values(?,'0')"_s,
                           {EquipmentID}, u"WorkorderNo"_s);
}

qint64 addService(qint64 WorkorderNo, const db::Row &serviceRow, const db::Recordset &parts)
{
    QVariantList values{WorkorderNo};
    for (const QString &column : CopiedColumns)
        values.append(serviceRow[column]);
    const qint64 id = gcnData->Insert(
        u"Insert into tblWoserviceUsed(WorkOrderNo,ServiceUsedID,ServiceID,EquipmentID,"
        "LastdateScheduled,LastDatePerformed,NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,"
        "LaborEstimate,CostEstimate,[Note],Period,JobNo)values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"_s,
        values, u"NServiceUsedID"_s);
    for (const db::Row part : parts) {
        const QVariant required = part[u"QuantityRequired"];
        gcnData->Execute(
            u"Insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,"
            "SupplierID) Values(?,?,?,?,?,?)"_s,
            {id, part[u"partID"], required, required, part[u"Price"], part[u"SupplierID"]});
    }
    return id;
}

bool deleteOrder(qint64 WorkorderNo)
{
    return base::trapped(Module, "cmdDelete_Click", false, [&] {
        TransactionScope transaction;
        gcnData->Execute(u"Delete from tblWoPartUsed where ServiceUSedID in (Select NserviceUSedID "
                         "from tblWoServiceUSed where Workorderno = ?)"_s,
                         {WorkorderNo});
        gcnData->Execute(u"Delete from tblWoServiceUsed where WorkorderNo = ?"_s, {WorkorderNo});
        gcnData->Execute(u"Delete from tblWorkorder where Workorderno = ?"_s, {WorkorderNo});
        transaction.commit();
        return true;
    });
}

} // namespace generation
