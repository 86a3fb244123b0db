#include "workorders/Statements.h"

#include "core/Periods.h"

namespace workorders::statements {

using namespace Qt::StringLiterals;

QString printWo(const WorkorderFilter &filter)
{
    const QString column = u"tblcrew.crewnumber"_s;
    return u"SELECT distinct  tblEquipment.EquipmentId, NULL as [WorkOrderNo], UnitNO AS "
           "[Unit No], Equipmentname AS [Equipment Name], Etype.itemname AS [Equipment Type], 0 "
           "as [Printed]"
           "From  ((((tblEquipment left JOIN tblServiceUsed ON tblEquipment.EquipmentID = "
           "tblServiceUsed.EquipmentID)  left JOIN tblCrew ON tblServiceUsed.CrewID = "
           "tblCrew.CrewID)  left JOIN tblIndicator As Make ON tblEquipment.EquipmentMake = "
           "Make.ItemID)  Left JOIN tblIndicator AS Etype ON tblEquipment.EquipmentType = "
           "Etype.ItemID)  LEFT JOIN tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID Where "_s +
           dueCondition(filter, column, true) +
           u" and tblServiceUsed.Inactive = 0 and tblEquipment.Inactive = '0' Union SELECT "
           "DISTINCT tblWorkorder.EquipmentId, tblWorkorder.WorkOrderNo, UnitNO AS [Unit No], "
           "Equipmentname AS [Equipment Name], Etype.itemname AS [Equipment Type], Printed FROM "
           "((((tblWorkOrder LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = "
           "tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblCrew ON tblWoserviceUsed.CrewID = "
           "tblCrew.Crewid) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID = "
           "tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS Etype ON "
           "tblEquipment.EquipmentType = Etype.itemid) LEFT JOIN tblCrew AS ECrew ON "
           "tblEquipment.CrewID = ECrew.CrewID Where ("_s +
           filterCondition(filter, column, true) + u" or nextscheduleddate is null) "_s;
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

QString historySummary(const QString &where)
{
    return u"SELECT tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, "
           "Sum(tblWOServiceUsedHistory.CostEstimate) AS SumOfCostEstimate, "
           "Sum(Price*QuantityRequired) AS SumOfPrice, tblCrew.Description, "
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
    return u"SELECT UnitNO + ' - ' + Equipmentname AS [Unit No], NULL as [WorkOrderNo], "
           "Min(NextScheduledDate) AS Due, Count(ServiceUsedID) AS Services From tblEquipment left "
           "JOIN tblServiceUsed ON tblEquipment.EquipmentID = tblServiceUsed.EquipmentID Where "
           "(tblServiceUsed.NextScheduledDate >= Now()-30 and tblServiceUsed.NextScheduledDate <= "
           "Now()) And Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed) and "
           "tblServiceUsed.Inactive = 0 GROUP BY UnitNO + ' - ' + Equipmentname Union SELECT "
           "UnitNO + ' - ' + Equipmentname AS [Unit No], tblWorkorder.WorkOrderNo, "
           "Min(NextScheduledDate) AS Due, Count(NServiceUsedID) AS Services FROM (tblWorkOrder "
           "LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = "
           "tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID = "
           "tblEquipment.EquipmentID Where CompletedDate is NULL GROUP BY UnitNO + ' - ' + "
           "Equipmentname, tblWorkorder.WorkOrderNo"_s;
}

} // namespace workorders::statements
