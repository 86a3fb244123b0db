// What an order consists of: its services and their parts come and go.
#include "workorders/Recording.h"

#include "platform/base/Environment.h"
#include "workorders/OrderServices.h"
#include "workorders/RecordingSteps.h"

#include <algorithm>

namespace recording {
namespace {

using namespace Qt::StringLiterals;

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

} // namespace

bool AddPartRecord(const QList<parts::Chosen> &chosen, qint64 NServiceUsedID, bool used)
{
    return onService("AddPartRecord", NServiceUsedID, [&](const db::Row &) {
        for (const parts::Chosen &part : chosen)
            orderservices::addPart(NServiceUsedID,
                                   {part.PartID, part.Quantity, part.Price, part.SupplierID}, used);
    });
}

bool DeletePartRecord(qint64 NServiceUsedID, const QString &PartID)
{
    return together(
        "DeletePartRecord",
        [&] {
            gcnData->Execute(u"Delete From tblWoPartUsed where ServiceUsedID = ? and PartID = ?"_s,
                             {NServiceUsedID, PartID});
        },
        [&] { return ordernames::orderOfService(NServiceUsedID); });
}

bool AddServiceRecord(const QList<qint64> &ids, qint64 WorkorderNo, qint64 EquipmentID,
                      ServiceSource source, bool completed, bool partsUsed)
{
    const QVariantMap given{{u"EquipmentID"_s, EquipmentID},
                            {u"LastDateScheduled"_s, {}},
                            {u"LastDatePerformed"_s, {}},
                            {u"NextScheduledDate"_s, base::wallClock(base::today())},
                            {u"Completed"_s, completed}};
    return onOrder("AddServiceRecord", WorkorderNo, [&](const db::Row &) {
        for (const qint64 id : ids) {
            if (isOnOrder(id, WorkorderNo, source))
                continue;
            const db::Recordset service = sourceRow(id, source);
            if (!service.isEmpty())
                orderservices::addService(WorkorderNo, service.current(), sourceParts(id, source),
                                          given, partsUsed);
        }
    });
}

bool needParts(const QList<qint64> &ServiceIDs)
{
    return std::ranges::any_of(
        ServiceIDs, [](qint64 id) { return !sourceParts(id, ServiceSource::Catalogue).isEmpty(); });
}

bool DeleteServiceRecord(qint64 NServiceUsedID)
{
    return together(
        "DeleteServiceRecord",
        [&] {
            gcnData->Execute(u"Delete From tblWoServiceUsed where NServiceUsedId = ?"_s,
                             {NServiceUsedID});
            gcnData->Execute(u"Delete From tblWoPartUsed where ServiceUsedID = ?"_s,
                             {NServiceUsedID});
        },
        [&] { return ordernames::orderOfService(NServiceUsedID); });
}

qint64 addUnscheduled(const QList<qint64> &equipmentIDs)
{
    qint64 first = 0;
    const bool done = together(
        "AddWorkorderRecord",
        [&] {
            for (const qint64 equipment : equipmentIDs) {
                const qint64 order = orderservices::addOrder(equipment);
                first = first == 0 ? order : first;
            }
        },
        [] { return u"these machines"_s; });
    return done ? first : 0;
}

} // namespace recording
