#include "workorders/Statements.h"

#include "core/Periods.h"

namespace workorders::statements {

using namespace Qt::StringLiterals;

namespace {

/// Adds the crews that a filter's condition asks for: that of the service, and that of the machine
/// of these rows. What isn't asked for isn't joined, since it would cost a look-up for each row.
QString withCrews(QString rows, const WorkorderFilter &filter, const QString &services,
                  const QString &machines)
{
    const auto join = [&rows](const QString &more) {
        rows = u"(%1 left JOIN %2)"_s.arg(rows, more);
    };
    if (!filter.crewRange.trimmed().isEmpty())
        join(u"tblCrew ON %1.CrewID = tblCrew.CrewID"_s.arg(services));
    if (!filter.assignCrew.trimmed().isEmpty()) {
        join(u"tblEquipment AS Owner ON %1.EquipmentID = Owner.EquipmentID"_s.arg(machines));
        join(u"tblCrew AS ECrew ON Owner.CrewID = ECrew.CrewID"_s);
    }
    return rows;
}

} // namespace

// Machines and orders are found by their keys first, and only then get their texts: what has to be
// sorted to find each once is small then, and no text is compared. The "+ 0" keeps the engine from
// walking the index of all rows for the few that are found.
QString printWo(const WorkorderFilter &filter)
{
    const QString column = u"tblcrew.crewnumber"_s;
    const QString columns =
        u"UnitNO AS [Unit No], Equipmentname AS [Equipment Name], Etype.itemname AS "
        "[Equipment Type], "_s;
    return u"SELECT tblEquipment.EquipmentId, NULL as [WorkOrderNo], "_s + columns +
           u"0 as [Printed] From ((Select distinct tblServiceUsed.EquipmentID + 0 as Machine from "_s +
           withCrews(u"tblServiceUsed"_s, filter, u"tblServiceUsed"_s, u"tblServiceUsed"_s) +
           u" Where "_s + dueCondition(filter, column, true) +
           u" and tblServiceUsed.Inactive = 0) as Due inner join tblEquipment on "
           "tblEquipment.EquipmentID = Due.Machine) Left JOIN tblIndicator AS Etype ON "
           "tblEquipment.EquipmentType = Etype.ItemID Where tblEquipment.Inactive = '0' Union all "
           "SELECT tblWorkorder.EquipmentId, tblWorkorder.WorkOrderNo, "_s +
           columns +
           u"Printed FROM (((Select distinct tblWorkorder.WorkOrderNo + 0 as Number from "_s +
           withCrews(u"(tblWorkOrder LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = "
                     "tblWoserviceUsed.WorkOrderNo)"_s,
                     filter, u"tblWoserviceUsed"_s, u"tblWorkorder"_s) +
           u" Where ("_s + filterCondition(filter, column, true) +
           u" or nextscheduleddate is null)) as Found inner join tblWorkorder on "
           "tblWorkorder.WorkOrderNo = Found.Number) LEFT JOIN tblEquipment ON "
           "tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS Etype "
           "ON tblEquipment.EquipmentType = Etype.itemid"_s;
}

QString genServices(const WorkorderFilter &filter)
{
    return u"SELECT ServiceUsedID,JobNo as [Service No],Name As [Service Name], cstr(CrewNumber) + "
           "'   ' + Description as [Service Crew], NextScheduledDate as [Next Service Date], "
           "SeparateWo From tblServiceUsed left JOIN tblCrew ON tblServiceUsed.CrewID = "
           "tblCrew.CrewID Where "_s +
           dueCondition(filter) + u" and tblServiceUsed.Inactive = 0 and EquipmentID = ?"_s;
}

QString genParts()
{
    return u"Select tblPart.PartId as [Part Number], Description, QuantityRequired as [Qty "
           "Req],tblServiceUsedPart.Price from (tblServiceUsedPart Left Join tblServiceUsed on "
           "tblServiceUsedPart.ServiceUsedID = tblServiceUsed.ServiceUsedID) LEFT JOIN tblPart ON "
           "tblPart.PartID = tblServiceUsedPart.PartID where tblServiceUsedPart.ServiceusedID = ?"_s;
}

QString printServices(const WorkorderFilter &filter)
{
    return u"Select JobNo as [Service No],Name As [Service Name], cstr(CrewNumber) + '   ' + "
           "Description as [Service Crew], NextScheduledDate as [Next Service Date], "
           "Skip,SeparateWo,ServiceID,NServiceUsedID from tblWoServiceUsed Left Join tblCrew on "
           "tblWoServiceUsed.CrewId = tblCrew.CrewID Where Workorderno = ? and ("_s +
           filterCondition(filter) + u" or Nextscheduleddate is null)"_s;
}

QString printParts()
{
    return u"Select tblPart.PartId as [Part Number], Description, "
           "tblWoPartUsed.QuantityRequired as [Qty Req],tblWoPartUsed.Price from (tblWoPartUsed "
           "Left Join tblWoServiceUsed on "
           "tblWopartUsed.ServiceUsedID = tblWoServiceUsed.ServiceUsedID) Left Join tblPart on "
           "tblWoPartUsed.PArtID = tblPart.PartID where tblWoPartUSed.ServiceusedID = ?"_s;
}

QString recordWo()
{
    return u"SELECT DISTINCT Complete,CompletedDate, tblWorkorder.WorkOrderNo, UnitNO AS "
           "[Unit No], Equipmentname AS [Equipment Name], Etype.itemname AS [Equipment Type], "
           "Printed, "
           "tblWorkorder.EquipmentId, WoDate as [Work Order Date]FROM (((tblWorkOrder LEFT JOIN "
           "tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo) LEFT JOIN "
           "tblCrew ON tblWoserviceUsed.CrewID = tblCrew.Crewid) LEFT JOIN tblEquipment ON "
           "tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS Etype "
           "ON tblEquipment.EquipmentType = Etype.itemid order by tblWorkorder.workorderno desc"_s;
}

QString recordServices()
{
    return u"Select Completed,Skip,JobNo as [Service No],Name As [Service Name], "
           "tblWoServiceUsed.CrewID as [Service Crew], NextScheduledDate as [Next Service Date], "
           "Period, "_s +
           periods::wordExpression() +
           u" AS [Schedule Type], Countvalue as [Count], StartTime , EndTime, Workhrs, "
           u"CostEstimate as [Lbr "
           "Cost],ServiceID,NServiceUsedID,SupplierID as [Supplier] from tblWoServiceUsed Left "
           "Join tblCrew on tblWoServiceUsed.CrewId = tblCrew.CrewID Where Workorderno = ?"_s;
}

QString recordParts()
{
    return u"Select tblPart.PartId as [Part Number], Used,Description, "
           "tblWoPartUsed.QuantityRequired as [Qty Req],QuantityUsed as [Qty Used], "
           "tblWoPartUSed.Price,tblWoPartUsed.SupplierID as Supplier from (tblWoPartUsed Left Join "
           "tblWoServiceUsed on tblWopartUsed.ServiceUsedID = tblWoServiceUsed.ServiceUsedID) Left "
           "Join tblPart on tblWoPartUsed.PArtID = tblPart.PartID where "
           "tblWoPartUSed.ServiceusedID = ?"_s;
}

QString suppliers()
{
    return u"Select SupplierID,Name from tblSupplier order by Name"_s;
}

QString crews()
{
    return u"Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewText] from tblCrew order "
           "by tblCrew.CrewNumber"_s;
}

QString printedOrders(const QString &orderList)
{
    return u"SELECT tblWorkorder.WorkorderNo, tblEquipment.UnitNo,tblEquipment.VehicleColor, "
           "IIf(ECrew.CrewID<>0,(cstr(ECrew.CrewNumber)+'   '+ECrew.Description),'') AS "
           "ECrewNumber, EquipmentName, EquipmentType.ItemName AS EquipmentType, "
           "EquipmentMake.ItemName AS EquipmentMake, EquipmentModel.ItemName AS EquipmentModel, "
           "tblEquipment.BeginingHub, tblSite.SiteName, tblLocation.LocationName, "
           "tblWoServiceUsed.Name, tblWoServiceUsed.NextScheduledDate,  "
           "IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '+tblCrew.Description),'') AS "
           "CrewNumber, tblWoServiceUsed.LaborEstimate, tblWoServiceUsed.CostEstimate, "
           "tblWoPartUsed.PartID, tblPart.Description, tblWoPartUsed.Price, "
           "tblWoPartUsed.QuantityRequired, "
           "tblWoServiceUsed.[Note],StartTime,EndTime,CountValue,tblWoServiceUsed.NserviceUsedID "
           "FROM ((((((((((tblWorkorder LEFT JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = "
           "tblWoServiceUsed.WorkorderNo) LEFT JOIN tblWoPartUsed ON "
           "tblWoServiceUsed.NserviceUsedID = tblWoPartUsed.ServiceUsedID) LEFT JOIN tblEquipment "
           "ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblSite ON "
           "tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON "
           "tblEquipment.LocationID = tblLocation.LocationID) LEFT JOIN tblIndicator AS "
           "EquipmentType ON tblEquipment.EquipmentType = EquipmentType.ItemID) LEFT JOIN "
           "tblIndicator AS EquipmentMake ON tblEquipment.EquipmentMake = EquipmentMake.ItemID) "
           "LEFT JOIN tblIndicator AS EquipmentModel ON tblEquipment.EquipmentModel = "
           "EquipmentModel.ItemID) LEFT JOIN tblCrew ON tblWoServiceUsed.CrewID = tblCrew.CrewID) "
           "LEFT JOIN tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID) LEFT JOIN tblPart ON "
           "tblWoPartUsed.PartID = tblPart.PartID where tblWorkorder.workorderno in ("_s +
           orderList +
           u") and not (tblWoServiceUsed.Skip = -1 or tblWoServiceUsed.Completed = -1)"_s;
}

QString historyDetail(const QString &where)
{
    return u"SELECT tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, "
           "tblEquipment.EquipmentName, tblSite.SiteName, tblLocation.LocationName, "
           "tblEquipmentModel.ItemName AS EquipmentModel, tblEquipmentType.ItemName AS "
           "EquipmentType, tblEquipmentMake.ItemName AS EquipmentMake, "
           "IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '+tblCrew.Description),'') AS "
           "Assigncrew, tblWOServiceUsedHistory.Servicename, "
           "tblWOServiceUsedHistory.ServiceUSedID, "
           "tblWOServiceUsedHistory.NextScheduledDate, "
           "IIf(tblServiceCrew.CrewID<>0,(cstr(tblServiceCrew.CrewNumber)+'   "
           "'+tblServiceCrew.Description),'') AS ServiceCrew, "
           "tblWOServiceUsedHistory.CostEstimate, tblWOServiceUsedHistory.LaborEstimate, "
           "tblWOServiceUsedHistory.StartTime, tblWOServiceUsedHistory.EndTime, "
           "tblWOServiceUsedHistory.CountValue, tblWOServiceUsedHistory.Completedate, "
           "tblWOServiceUsedHistory.[Note], tblWoPartHistory.PartID, tblWoPartHistory.Description, "
           "tblWoPartHistory.Price, tblWoPartHistory.QuantityUsed, QuantityUsed * Price as "
           "PartCost, tblWOServiceUsedHistory.Skip FROM ((((((((tblWOServiceUsedHistory LEFT JOIN "
           "tblEquipment ON tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID) LEFT "
           "JOIN tblIndicator AS tblEquipmentType ON tblEquipment.EquipmentType = "
           "tblEquipmentType.ItemID) LEFT JOIN tblIndicator AS tblEquipmentMake ON "
           "tblEquipment.EquipmentMake = tblEquipmentMake.ItemID) LEFT JOIN tblIndicator AS "
           "tblEquipmentModel ON tblEquipment.EquipmentModel = tblEquipmentModel.ItemID) LEFT JOIN "
           "tblSite ON tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON "
           "tblEquipment.LocationID = tblLocation.LocationID) LEFT JOIN tblWoPartHistory ON "
           "tblWOServiceUsedHistory.ServiceUsedID = tblWoPartHistory.ServiceusedID) LEFT JOIN "
           "tblCrew ON tblEquipment.CrewID = tblCrew.CrewID) LEFT JOIN tblCrew AS tblServiceCrew "
           "ON tblWOServiceUsedHistory.CrewID = tblServiceCrew.CrewID "_s +
           where;
}

QString historySummary(const QString &where, PartQuantity quantity)
{
    const QString price = quantity == PartQuantity::Used ? u"Sum(QuantityUsed * Price)"_s
                                                         : u"Sum(Price*QuantityRequired)"_s;
    return u"SELECT tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, "
           "Sum(tblWOServiceUsedHistory.CostEstimate) AS SumOfCostEstimate, "_s +
           price +
           u" AS SumOfPrice, tblCrew.Description, "
           "tblEquipment.EquipmentName  FROM ((tblWOServiceUsedHistory LEFT JOIN tblEquipment ON "
           "tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN "
           "tblWoPartHistory ON tblWOServiceUsedHistory.ServiceUsedID = "
           "tblWoPartHistory.ServiceusedID) LEFT JOIN tblCrew ON tblWOServiceUsedHistory.CrewID = "
           "tblCrew.CrewID "_s +
           where +
           u" GROUP BY tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, "
           "tblCrew.Description, tblEquipment.EquipmentName"_s;
}

QString board()
{
    return u"SELECT UnitNO, Equipmentname, NULL as [WorkOrderNo], Due, Services From (Select "
           "tblServiceUsed.EquipmentID + 0 as Machine, Min(NextScheduledDate) AS Due, "
           "Count(ServiceUsedID) AS Services from tblServiceUsed Where "
           "(tblServiceUsed.NextScheduledDate >= Now()-30 and tblServiceUsed.NextScheduledDate <= "
           "Now())"_s +
           onNoOrder() +
           u" and tblServiceUsed.Inactive = 0 GROUP BY tblServiceUsed.EquipmentID + 0) as Waiting "
           "inner join tblEquipment ON tblEquipment.EquipmentID = Waiting.Machine Union all "
           "SELECT UnitNO, Equipmentname, Number, Due, Services FROM (Select "
           "tblWorkorder.WorkOrderNo as Number, tblWorkorder.EquipmentID as Machine, "
           "Min(NextScheduledDate) AS Due, Count(NServiceUsedID) AS Services from tblWorkOrder "
           "LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo "
           "Where CompletedDate is NULL GROUP BY tblWorkorder.WorkOrderNo, "
           "tblWorkorder.EquipmentID) as Opened LEFT JOIN tblEquipment ON Opened.Machine = "
           "tblEquipment.EquipmentID"_s;
}

} // namespace workorders::statements
