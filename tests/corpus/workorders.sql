-- The working cycle: what is due, generation, printing, recording, posting, the overdue board.

-- name: due machines and open orders of some service crews
-- columns: EquipmentID | WorkOrderNo | Unit No | Equipment Name | Equipment Type | Printed
-- rows: 5
-- has row: 501 | null | A-1
-- has row: 502 | 1 | T-2
-- has row: 501 | 2 | A-1
-- has row: 503 | 4 | b-3
-- has row: 505 | 5 | TR5
SELECT distinct  tblEquipment.EquipmentId, NULL as [WorkOrderNo], UnitNO AS [Unit No], Equipmentname AS
[Equipment Name], Etype.itemname AS [Equipment Type], 0 as [Printed]From  ((((tblEquipment left JOIN
tblServiceUsed ON tblEquipment.EquipmentID = tblServiceUsed.EquipmentID)  left JOIN tblCrew ON
tblServiceUsed.CrewID = tblCrew.CrewID)  left JOIN tblIndicator As Make ON tblEquipment.EquipmentMake =
Make.ItemID)  Left JOIN tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.ItemID)  LEFT JOIN
tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID Where ((tblcrew.crewnumber = 1) Or
(tblcrew.crewnumber >= 3 And tblcrew.crewnumber <= 5)) And (NextScheduledDate >= #02-14-2024# and
NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed)
and tblServiceUsed.Inactive = 0 and tblEquipment.Inactive = '0' Union SELECT DISTINCT
tblWorkorder.EquipmentId, tblWorkorder.WorkOrderNo, UnitNO AS [Unit No], Equipmentname AS [Equipment
Name], Etype.itemname AS [Equipment Type], Printed FROM ((((tblWorkOrder LEFT JOIN tblWoserviceUsed ON
tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblCrew ON tblWoserviceUsed.CrewID =
tblCrew.Crewid) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN
tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.itemid) LEFT JOIN tblCrew AS ECrew ON
tblEquipment.CrewID = ECrew.CrewID Where (((tblcrew.crewnumber = 1) Or (tblcrew.crewnumber >= 3 And
tblcrew.crewnumber <= 5)) And (NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#)
or nextscheduleddate is null) ;

-- name: due services of a machine
-- columns: ServiceUsedID | Service No | Service Name | Service Crew | Next Service Date | SeparateWo
-- rows: 1
-- row 1: 2 | 2 | Blade check | '1   Mowing' | #03-10-2024# | 0
SELECT ServiceUsedID,JobNo as [Service No],Name As [Service Name], cstr(CrewNumber) + '   ' +
Description as [Service Crew], NextScheduledDate as [Next Service Date], SeparateWo From tblServiceUsed
left JOIN tblCrew ON tblServiceUsed.CrewID = tblCrew.CrewID Where (NextScheduledDate >= #02-14-2024# and
NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed)
and tblServiceUsed.Inactive = 0 and EquipmentID = 501;

-- name: parts of a due service
-- columns: Part Number | Description | Qty Req | Price
-- rows: 1
-- row 1: P-200 | Belt | 2 | 30
Select tblPart.PartId as [Part Number], Description, QuantityRequired as [Qty
Req],tblServiceUsedPart.Price from (tblServiceUsedPart Left Join tblServiceUsed on
tblServiceUsedPart.ServiceUsedID = tblServiceUsed.ServiceUsedID) LEFT JOIN tblPart ON tblPart.PartID =
tblServiceUsedPart.PartID where tblServiceUsedPart.ServiceusedID = 3;

-- name: crews of the due services that share orders
-- columns: CrewID
-- rows: 1
-- row 1: 11
Select tblCrew.CrewID From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID
Where (NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in
(Select ServiceUsedId from tblWoServiceUsed) and Equipmentid = 501  and inactive = 0 AND
(tblServiceUsed.SeparateWo = '0') group by tblCrew.CrewId;

-- name: due services of one crew
-- columns: ServiceUsedID | ServiceID | EquipmentID | LastDateScheduled | LastDatePerformed | NextScheduledDate | Name | CrewID | CostCenterID | SeparateWo | LaborEstimate | CostEstimate | Note | Period | JobNo
-- rows: 1
-- row 1: 2 | 902 | 501 | #03-03-2024# | #03-04-2024# | #03-10-2024# | Blade check | 11 | 1 | 0 | 0.5 | 11.25 | null | W | 2
Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, NextScheduledDate,
Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, CostEstimate, [Note], Period, JobNo From
tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID Where (NextScheduledDate >=
#02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from
tblWoServiceUsed)  and inactive = 0 and Equipmentid = 501  AND (tblServiceUsed.SeparateWo = '0') and
tblcrew.crewid = 11;

-- name: orders to be recorded
-- columns: Complete | CompletedDate | WorkorderNo | Unit No | Equipment Name | Equipment Type | Printed | EquipmentID | Work Order Date
-- rows: 5
-- row 1: 0 | null | 5 | TR5 | Jim's trailer | null | 0 | 505 | #03-13-2024#
-- row 4: -1 | #03-14-2024# | 2 | A-1 | Rider mower | Mower | 1 | 501 | #03-10-2024#
-- row 5: 0 | null | 1
SELECT DISTINCT Complete,CompletedDate, tblWorkorder.WorkOrderNo, UnitNO AS [Unit No], Equipmentname AS
[Equipment Name], Etype.itemname AS [Equipment Type], Printed, tblWorkorder.EquipmentId, WoDate as [Work
Order Date]FROM (((tblWorkOrder LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo =
tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblCrew ON tblWoserviceUsed.CrewID = tblCrew.Crewid) LEFT JOIN
tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS Etype ON
tblEquipment.EquipmentType = Etype.itemid order by tblWorkorder.workorderno desc;

-- name: late order
-- rows: 1
-- row 1: 2
SELECT WorkorderNo FROM tblWoserviceUsed Where NextScheduledDate <= #03-12-2024# and WorkorderNo = 2
GROUP BY WorkorderNo having Count(tblWoserviceUsed.NserviceUsedID)>=2;

-- name: services to be recorded
-- columns: Completed | Skip | Service No | Service Name | Service Crew | Next Service Date | Period | Schedule Type | Count | StartTime | EndTime | Workhrs | Lbr Cost | ServiceID | NServiceUsedID | Supplier
-- rows: 2
-- has row: -1 | 0 | 3 | Wash | 11 | #03-10-2024# | D | Days | null | 08:00 | 09:30 | 1:30 | 33.75 | 903 | 2 | 1
-- has row: 0 | -1 | 2 | Grease | 12 | #01-05-2024# | W | Weeks | null | null | null | null | 15.25 | 902 | 3 | 0
Select Completed,Skip,JobNo as [Service No],Name As [Service Name], tblWoServiceUsed.CrewID as [Service
Crew], NextScheduledDate as [Next Service Date], Period, Switch( Period= 'D' ,'Days',
Period='W','Weeks', Period='M','Months', Period='Y','Years', Period='C','Counts', Period='H','Hours',
Period='K','Kilometers', Period='I','Miles') AS [Schedule Type], Countvalue as [Count], StartTime ,
EndTime, Workhrs, CostEstimate as [Lbr Cost],ServiceID,NServiceUsedID,SupplierID as [Supplier] from
tblWoServiceUsed Left Join tblCrew on tblWoServiceUsed.CrewId = tblCrew.CrewID Where Workorderno = 2;

-- name: parts to be recorded
-- columns: Part Number | Used | Description | Qty Req | Qty Used | Price | Supplier
-- rows: 2
-- has row: P-100 | -1 | Oil filter | 1 | 1 | 12.5 | 1
-- has row: P-200 | -1 | Belt | 2 | 1 | 30 | 2
Select tblPart.PartId as [Part Number], Used,Description, tblWoPartUsed.QuantityRequired as [Qty
Req],QuantityUsed as [Qty Used], tblWoPartUSed.Price,tblWoPartUsed.SupplierID as Supplier from
(tblWoPartUsed Left Join tblWoServiceUsed on tblWopartUsed.ServiceUsedID =
tblWoServiceUsed.ServiceUsedID) Left Join tblPart on tblWoPartUsed.PArtID = tblPart.PartID where
tblWoPartUSed.ServiceusedID = 2;

-- name: meter services without a count hold an order back
-- row 1: 1
Select Count(*) as RecCount from tblwoServiceUsed where Workorderno = 3 and Period in
('C','H','K','I') and countvalue is NULL and (Completed = -1 Or Skip = -1);

-- name: services to be posted
-- rows: 3
-- has row: 2 | 2 | 501 | 903 | Wash | 11 | 1 | null | null | #03-10-2024# | Grounds | 0 | 1 | 33.75 | with "soap" | D | 3 | null | 0 | 08:00 | 09:30 | 1:30 | 1 | Tool Barn | #03-10-2024# | #03-14-2024# | 0
-- has row: 2 | 3 | 501 | 902 | Grease | 12 | 2 | null | null | #01-05-2024# | Grounds | 0 | 0.5 | 15.25 | no time | W | 2 | null | -1 | null | null | null | null | null | #03-10-2024# | #03-14-2024# | 11
-- has row: 3 | 4 | 502 | 0 | Hours check | 12 | 2 | null | null | #03-01-2024# | Fleet | 0 | 1 | 30.5 | null | H | 7 | null | 0 | null | null | null | null | null | #03-01-2024# | #03-14-2024# | 13
Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, ServiceID,
tblWoServiceUsed.Name, tblCrew.CrewID, CrewNumber, LastDateScheduled, LastDatePerformed,
NextScheduleddate, tblCostCenter.Description as CostCenterID, SeparateWo, LaborEstimate, CostEstimate,
[Note], Period,JobNo,Countvalue, (IIf(Skip=True,-1,0)) AS Skip1,StartTime , EndTime ,Workhrs
,tblSupplier.SupplierID ,tblSupplier.Name ,WoDate ,CompletedDate ,ServiceUSedID From
(((tblWoServiceUsed left join tblWorkorder on tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno)
left join tblCrew on tblWoserviceUsed.CrewID = tblcrew.CrewID) left join tblSupplier on
tblWoserviceUsed.SupplierID = tblSupplier.SupplierID) left join tblCostCenter on
tblWoServiceUsed.CostcenterID = tblCostCenter.CostCenterID where tblWoServiceUsed.WorkorderNo in(2,3,5)
and (not ((Skip is Null or Skip <> -1) and (Completed is Null or Completed <> -1)));

-- name: parts to be posted
-- columns: ServiceUsedID | PartID | Description | ItemName | Price | Name | QuantityRequired | QuantityUsed | Quantity | Used
-- rows: 3
-- has row: 2 | P-100 | Oil filter | Filters | 12.5 | Tool Barn | 1 | 1 | 10 | -1
-- has row: 2 | P-200 | Belt | Belts | 30 | O'Brien Parts | 2 | 1 | 2 | -1
-- has row: 3 | p-400 | Rags | null | 0.25 | spare house | 3 | 3 | 0 | 0
Select ServiceUsedID, tblWoPartUsed.PartID, Description, ItemName, tblWoPartUsed.Price, Name,
QuantityRequired, QuantityUsed, Quantity, Used From ((tblWoPartUsed Left join tblPart on
tblWoPartUsed.partID = tblPart.PartID) Left join tblSupplier on tblWoPartUsed.SupplierId =
tblSupplier.SupplierID) Left join tblIndicator on tblPart.PartCategoryID = tblIndicator.ItemID where
ServiceUsedId in (2,3,0);

-- name: remove what has been posted
-- changes: 3
Delete from tblWoPartUsed where ServiceUSedID in (2,3,0);
-- changes: 2
Delete from tblWoServiceUsed where NServiceUSedID in (2,3,0);
-- changes: 1
Delete from tblWorkorder where WorkOrderno in (2) and (not workorderno in (SELECT
tblWorkorder.workorderno FROM tblWOServiceUSed LEFT JOIN tblWorkorder ON tblworkorder.workorderno =
tblWoServiceUsed.workorderno WHERE tblWorkorder.workorderno in (2)));

-- name: an order with an open service survives posting
-- changes: 0
Delete from tblWorkorder where WorkOrderno in (2,5) and (not workorderno in (SELECT
tblWorkorder.workorderno FROM tblWOServiceUSed LEFT JOIN tblWorkorder ON tblworkorder.workorderno =
tblWoServiceUsed.workorderno WHERE tblWorkorder.workorderno in (2,5)));

-- name: held orders keep their marks
-- changes: 4
Update tblWorkorder set Complete = 0 ,CompletedDate = NULL where not WorkorderNo in (3);
-- rows: 1
-- row 1: 3
select WorkorderNo from tblWorkorder where Complete = -1;

-- name: posted orders in short
-- columns: WorkorderNo | UnitNo | SumOfCostEstimate | SumOfPrice | Description | EquipmentName
-- rows: 3
-- has row: 91 | A-1 | 78.75 | 72.5 | Mowing | Rider mower
-- has row: 92 | T-2 | 60 | 50 | Trucks | Dump truck
-- has row: 93 | A-1 | 40 | 12.5 | Mowing | Rider mower
SELECT tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo,
Sum(tblWOServiceUsedHistory.CostEstimate) AS SumOfCostEstimate, Sum(Price*QuantityRequired) AS
SumOfPrice, tblCrew.Description, tblEquipment.EquipmentName  FROM ((tblWOServiceUsedHistory LEFT JOIN
tblEquipment ON tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN
tblWoPartHistory ON tblWOServiceUsedHistory.ServiceUsedID = tblWoPartHistory.ServiceusedID) LEFT JOIN
tblCrew ON tblWOServiceUsedHistory.CrewID = tblCrew.CrewID where workorderno in (91,92,93) GROUP BY
tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, tblCrew.Description,
tblEquipment.EquipmentName;

-- name: services of an order to be printed
-- columns: Service No | Service Name | Service Crew | Next Service Date | Skip | SeparateWo | ServiceID | NServiceUsedID
-- rows: 2
-- has row: 4 | Weld | null | null | 0 | 0 | 904 | 5
-- has row: 3 | Inspection | '2   Trucks' | #02-20-2024# | 0 | 1 | 903 | 6
Select JobNo as [Service No],Name As [Service Name], cstr(CrewNumber) + '   ' + Description as [Service
Crew], NextScheduledDate as [Next Service Date], Skip,SeparateWo,ServiceID,NServiceUsedID from
tblWoServiceUsed Left Join tblCrew on tblWoServiceUsed.CrewId = tblCrew.CrewID Where Workorderno = 5 and
(((tblCrew.CrewNumber = 2)) And (NextScheduledDate >= #02-14-2024# and NextScheduledDate <=
#03-15-2024#) or Nextscheduleddate is null);

-- name: work orders for print
-- rows: 3
-- has row: 1 | T-2 | Red | '2   Trucks' | Dump truck | Truck | Hollis | H-250 | 1200 | South Yard | Bay 3 | Blade check | #03-12-2024# | '1   Mowing' | 0.5 | 11.25 | P-100 | Oil filter | 12.5 | 6 | null | null | null | null | 1
-- has row: 5 | TR5 | null | '4   O''Hara''s crew' | Jim's trailer | null | null | null | 0 | null | null | Weld | null | '' | 1 | 0 | null | null | null | null | null | null | null | null | 5
-- has row: 5 | TR5 | null | '4   O''Hara''s crew' | Jim's trailer | null | null | null | 0 | null | null | Inspection | #02-20-2024# | '2   Trucks' | 2 | 61
SELECT tblWorkorder.WorkorderNo, tblEquipment.UnitNo,tblEquipment.VehicleColor,
IIf(ECrew.CrewID<>0,(cstr(ECrew.CrewNumber)+'   '+ECrew.Description),'') AS ECrewNumber, EquipmentName,
EquipmentType.ItemName, EquipmentMake.ItemName, EquipmentModel.ItemName, tblEquipment.BeginingHub,
tblSite.SiteName, tblLocation.LocationName, tblWoServiceUsed.Name, tblWoServiceUsed.NextScheduledDate,
IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '+tblCrew.Description),'') AS CrewNumber,
tblWoServiceUsed.LaborEstimate, tblWoServiceUsed.CostEstimate, tblWoPartUsed.PartID,
tblPart.Description, tblWoPartUsed.Price, tblWoPartUsed.QuantityRequired,
tblWoServiceUsed.[Note],StartTime,EndTime,CountValue,tblWoServiceUsed.NserviceUsedID FROM
((((((((((tblWorkorder LEFT JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo =
tblWoServiceUsed.WorkorderNo) LEFT JOIN tblWoPartUsed ON tblWoServiceUsed.NServiceUsedID =
tblWoPartUsed.ServiceUsedID) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID =
tblEquipment.EquipmentID) LEFT JOIN tblSite ON tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN
tblLocation ON tblEquipment.LocationID = tblLocation.LocationID) LEFT JOIN tblIndicator AS EquipmentType
ON tblEquipment.EquipmentType = EquipmentType.ItemID) LEFT JOIN tblIndicator AS EquipmentMake ON
tblEquipment.EquipmentMake = EquipmentMake.ItemID) LEFT JOIN tblIndicator AS EquipmentModel ON
tblEquipment.EquipmentModel = EquipmentModel.ItemID) LEFT JOIN tblCrew ON tblWoServiceUsed.CrewID =
tblCrew.CrewID) LEFT JOIN tblCrew AS Ecrew ON tblEquipment.CrewID = Ecrew.CrewID) LEFT JOIN tblPart ON
tblWoPartUsed.PartID = tblPart.PartID where tblWorkorder.workorderno in (1,2,5,0) and not
(tblWoServiceUsed.Skip = -1 or tblWoServiceUsed.Completed = -1);

-- name: is an assigned service on the order
-- rows: 1
Select Name from tblwoServiceused Where (ServiceID = (Select ServiceID From tblServiceUsed where
ServiceUsedID =9) and workorderno = 1);

-- name: catalogue service for an order
-- columns: ServiceID | CrewID | Name | CostCenterID | SeparateWo | LaborEstimate | CostEstimate | Note | Period | JobNo | ServiceUsedID
-- row 1: 901 | 11 | Oil change | 1 | 0 | 1.5 | 33.75 | Use 10W-30 | H | 1 | '0'
Select ServiceID ,CrewID,Name,CostCenterId,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,JobNo,'0'
as ServiceUsedID from tblServices where ServiceID = 901;

-- name: overdue board
-- columns: Unit No | WorkOrderNo
-- rows: 7
-- has row: A-1 - Rider mower | null
-- has row: T-2 - Dump truck | null
-- has row: A-4 - Old mower | null
-- has row: TR5 - Jim's trailer | null
-- has row: T-2 - Dump truck | 1
-- has row: b-3 - Back-pack blower | 4
-- has row: TR5 - Jim's trailer | 5
SELECT distinct  UnitNO + ' - ' + Equipmentname AS [Unit No], NULL as [WorkOrderNo] From  tblEquipment
left JOIN tblServiceUsed ON tblEquipment.EquipmentID = tblServiceUsed.EquipmentID Where
(tblServiceUsed.NextScheduledDate >= Now()-30 and tblServiceUsed.NextScheduledDate <= Now()) And
Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed) and tblServiceUsed.Inactive = 0 Union
SELECT DISTINCT UnitNO + ' - ' + Equipmentname AS [Unit No], tblWorkorder.WorkOrderNo FROM (tblWorkOrder
LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo) LEFT JOIN
tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID Where CompletedDate is NULL;
