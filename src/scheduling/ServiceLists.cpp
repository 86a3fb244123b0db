#include "scheduling/ServiceLists.h"

#include "core/Session.h"

namespace servicelists {
namespace {

using namespace Qt::StringLiterals;

/// The columns that both lists have, from either table.
QString listColumns(const QString &table)
{
    return u"%1.ServiceID, JobNo as [Service No], %1.Name, cstr(tblCrew.CrewNumber) + '   ' + "
           "tblCrew.Description AS Crew,tblCostCenter.Description AS [Cost Center], %1.EInterval "
           "AS [Interval],Switch (%1.RenewalOn='W' ,'Work Order Completion', "
           "%1.RenewalOn='S','Service Original Scheduled')  as RenewalOn ,%1.SeparateWo, "
           "%1.LaborEstimate as [Budgeted Hrs], %1.CostEstimate as [Labor Cost] FROM (%1 LEFT JOIN "
           "tblCrew ON %1.CrewID = tblCrew.CrewID) LEFT JOIN tblCostCenter  ON %1.CostCenterID = "
           "tblCostCenter.CostCenterID"_s.arg(table);
}

} // namespace

db::Recordset catalogue(const QSet<qint64> &leftOut)
{
    return gcnData
        ->Open(u"SELECT tblServices.ServiceID AS [Service ID], "_s + listColumns(u"tblServices"_s) +
               u" order by tblServices.ServiceID"_s)
        .without(u"ServiceID", leftOut);
}

db::Recordset ofMachine(qint64 EquipmentID, const QSet<qint64> &leftOut)
{
    return gcnData
        ->Open(u"SELECT tblServiceUsed.ServiceUSedID AS [Service ID], "_s +
                   listColumns(u"tblServiceUsed"_s) +
                   u" where tblServiceUsed.EquipmentID=? order by tblServiceUsed.ServiceID"_s,
               {EquipmentID})
        .without(u"ServiceID", leftOut);
}

std::optional<Machine> machine(qint64 EquipmentID)
{
    const db::Recordset rows = gcnData->Open(
        u"select EquipmentName, UnitNo from  tblEquipment where EquipmentID=?"_s, {EquipmentID});
    if (rows.isEmpty())
        return std::nullopt;
    return Machine{rows.current().text(u"UnitNo"), rows.current().text(u"EquipmentName")};
}

} // namespace servicelists
