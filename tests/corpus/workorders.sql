-- The working cycle: what is due, generation, printing, recording, posting, the overdue board.

-- name: due machines and open orders
-- columns: EquipmentID | WorkOrderNo | Unit No | Equipment Name | Equipment Type | Printed
-- rows: 8
-- has row: 501 | null | A-1 | Rider mower | Mower | 0
-- has row: 502 | null | T-2 | Dump truck | Truck | 0
-- has row: 505 | null | TR5 | Jim's trailer | null | 0
-- has row: 502 | 1 | T-2 | Dump truck | Truck | 0
-- has row: 501 | 2 | A-1 | Rider mower | Mower | 1
-- has row: 502 | 3 | T-2 | Dump truck | Truck | 1
-- has row: 503 | 4 | b-3 | Back-pack blower | Blower | 0
-- has row: 505 | 5 | TR5 | Jim's trailer | null | 0
SELECT distinct  tblEquipment.EquipmentId, NULL as [WorkOrderNo], UnitNO AS [Unit No], Equipmentname AS
[Equipment Name], Etype.itemname AS [Equipment Type], 0 as [Printed]From  ((((tblEquipment left JOIN
tblServiceUsed ON tblEquipment.EquipmentID = tblServiceUsed.EquipmentID)  left JOIN tblCrew ON
tblServiceUsed.CrewID = tblCrew.CrewID)  left JOIN tblIndicator As Make ON tblEquipment.EquipmentMake =
Make.ItemID)  Left JOIN tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.ItemID)  LEFT JOIN
tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID Where (NextScheduledDate >= #02-14-2024# and
NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed)
and tblServiceUsed.Inactive = 0 and tblEquipment.Inactive = '0' Union SELECT DISTINCT
tblWorkorder.EquipmentId, tblWorkorder.WorkOrderNo, UnitNO AS [Unit No], Equipmentname AS [Equipment
Name], Etype.itemname AS [Equipment Type], Printed FROM ((((tblWorkOrder LEFT JOIN tblWoserviceUsed ON
tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblCrew ON tblWoserviceUsed.CrewID =
tblCrew.Crewid) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN
tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.itemid) LEFT JOIN tblCrew AS ECrew ON
tblEquipment.CrewID = ECrew.CrewID Where ((NextScheduledDate >= #02-14-2024# and NextScheduledDate <=
#03-15-2024#) or nextscheduleddate is null) ;

-- name: due machines and open orders of some service crews
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

-- name: due machines and open orders of an assigned crew
-- rows: 5
-- has row: 502 | null
-- has row: 502 | 1
-- has row: 502 | 3
-- has row: 503 | 4
-- has row: 505 | 5
SELECT distinct  tblEquipment.EquipmentId, NULL as [WorkOrderNo], UnitNO AS [Unit No], Equipmentname AS
[Equipment Name], Etype.itemname AS [Equipment Type], 0 as [Printed]From  ((((tblEquipment left JOIN
tblServiceUsed ON tblEquipment.EquipmentID = tblServiceUsed.EquipmentID)  left JOIN tblCrew ON
tblServiceUsed.CrewID = tblCrew.CrewID)  left JOIN tblIndicator As Make ON tblEquipment.EquipmentMake =
Make.ItemID)  Left JOIN tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.ItemID)  LEFT JOIN
tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID Where ((Ecrew.CrewNumber = 2)) And
(NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in
(Select ServiceUsedId from tblWoServiceUsed) and tblServiceUsed.Inactive = 0 and tblEquipment.Inactive =
'0' Union SELECT DISTINCT tblWorkorder.EquipmentId, tblWorkorder.WorkOrderNo, UnitNO AS [Unit No],
Equipmentname AS [Equipment Name], Etype.itemname AS [Equipment Type], Printed FROM ((((tblWorkOrder
LEFT JOIN tblWoserviceUsed ON tblWorkOrder.WorkOrderNo = tblWoserviceUsed.WorkOrderNo) LEFT JOIN tblCrew
ON tblWoserviceUsed.CrewID = tblCrew.Crewid) LEFT JOIN tblEquipment ON tblWorkorder.EquipmentID =
tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS Etype ON tblEquipment.EquipmentType = Etype.itemid)
LEFT JOIN tblCrew AS ECrew ON tblEquipment.CrewID = ECrew.CrewID Where (((Ecrew.CrewNumber = 2)) And
(NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#) or nextscheduleddate is null)
;

-- name: crew range without its first number
-- error: 0x80040E14
SELECT ServiceUsedID From tblServiceUsed left JOIN tblCrew ON tblServiceUsed.CrewID = tblCrew.CrewID
Where ((tblCrew.CrewNumber >=  And tblCrew.CrewNumber <= 5)) And (NextScheduledDate >= #02-14-2024# and
NextScheduledDate <= #03-15-2024#);

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

-- name: note of a due service
-- row 1: Use 10W-30
Select [Note] From tblServiceUsed where ServiceusedID = 1;

-- name: edit the note of a due service
-- changes: 1
update tblServiceUsed set [Note] = 'mind the owner''s "dog" ?' where ServiceUsedID = 1;
-- row 1: mind the owner's "dog" ?
Select [Note] From tblServiceUsed where ServiceusedID = 1;

-- name: crews of the due services that share orders
-- columns: CrewID
-- rows: 1
-- row 1: 11
Select tblCrew.CrewID From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID
Where (NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in
(Select ServiceUsedId from tblWoServiceUsed) and Equipmentid = 501  and inactive = 0 AND
(tblServiceUsed.SeparateWo = '0') group by tblCrew.CrewId;

-- name: crews with a crew filter
-- rows: 0
Select tblCrew.CrewID From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID
Where ((tblCrew.CrewNumber >= 2 And tblCrew.CrewNumber <= 3)) And (NextScheduledDate >= #02-14-2024# and
NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from tblWoServiceUsed)
and Equipmentid = 501  and inactive = 0 AND (tblServiceUsed.SeparateWo = '0') group by tblCrew.CrewId;

-- name: crews of a machine whose crew is gone
-- rows: 1
-- row 1: null
Select tblCrew.CrewID From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID
Where (NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in
(Select ServiceUsedId from tblWoServiceUsed) and Equipmentid = 505  and inactive = 0 AND
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

-- name: due services of a crew without a number
-- error: 0x80040E14
Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, NextScheduledDate,
Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, CostEstimate, [Note], Period, JobNo From
tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID Where (NextScheduledDate >=
#02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from
tblWoServiceUsed)  and inactive = 0 and Equipmentid = 505  AND (tblServiceUsed.SeparateWo = '0') and
tblcrew.crewid = ;

-- name: due services that go alone
-- rows: 1
-- row 1: 3 | 903 | 502 | null | null | #03-15-2024# | Inspection | 12
Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, NextScheduledDate,
Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, CostEstimate, [Note], Period, JobNo From
tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID Where (NextScheduledDate >=
#02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from
tblWoServiceUsed)  and inactive = 0 and Equipmentid = 502  AND (tblServiceUsed.SeparateWo = '1');

-- name: due services with the inactive ones
-- rows: 2
-- has row: 2
-- has row: 8
Select ServiceUsedID, ServiceID, EquipmentID, LastDateScheduled, LastDatePerformed, NextScheduledDate,
Name, tblCrew.CrewID, CostCenterID, SeparateWo, LaborEstimate, CostEstimate, [Note], Period, JobNo From
tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID Where (NextScheduledDate >=
#02-14-2024# and NextScheduledDate <= #03-15-2024#) And Serviceusedid not in (Select ServiceUsedId from
tblWoServiceUsed) and Equipmentid = 501;

-- name: generate an order
-- key: WorkorderNo
Insert into tblWorkOrder(EquipmentId,Printed) Values('501','0');
-- row 1: {key}
Select max(Workorderno) from tblWorkorder;
-- row 1: 501 | 0 | 0 | null | #03-15-2024#
select EquipmentID, Printed, Complete, CompletedDate, WoDate from tblWorkorder where WorkorderNo = {key};
-- key: NServiceUsedID
Insert into tblWoserviceUsed(WorkOrderNo,ServiceUsedID,ServiceID,EquipmentID,LastdateScheduled,
LastDatePerformed,NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,
[Note],Period,JobNo)values('{key}','2','902','501',#3/3/2024#,#3/4/2024#,#3/10/2024#,'Blade''s check',
'11','1','0','0.5','11.25',NULL,'W','2');
-- row 1: {key}
Select max(NserviceUsedID) from tblWoserviceUsed;
-- row 1: 2 | #03-03-2024# | Blade's check | null | 0 | 0 | null | null
select ServiceUsedID, LastDateScheduled, Name, [Note], Completed, Skip, StartTime, CountValue from
tblWoServiceUsed where NServiceUsedID = {key};
-- rows: 1
-- row 1: P-100 | 1 | 12.5 | 1
Select partID,QuantityRequired,Price,SupplierID from tblServiceUsedpart where PartId is not Null and
ServiceUsedId = 2;
-- changes: 1
Insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,SupplierID) Values(
'{key}','P-100',1,1,12.5,1);
-- changes: 1
Insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,SupplierID) Values(
'{key}','P-O''5',1,1,NULL,NULL);
-- row 1: 0
select Used from tblWoPartUsed where ServiceUsedID = {key} and PartID = 'P-100';
-- rows: 0
Select ServiceUsedID from tblServiceUsed where ServiceUsedID = 2 and Serviceusedid not in (Select
ServiceUsedId from tblWoServiceUsed);

-- name: generate an order with whole dates and times
-- changes: 1
Insert into tblWoserviceUsed(WorkOrderNo,ServiceUsedID,ServiceID,EquipmentID,LastdateScheduled,
LastDatePerformed,NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,
[Note],Period,JobNo)values('1','2','902','501',NULL,#3/4/2024 4:05:06 PM#,#3/10/2024#,'Blade check',
NULL,'1','0','0.5','11.25','','W','2');
-- row 1: #03-04-2024 16:05:06#
select LastDatePerformed from tblWoServiceUsed where ServiceUsedID = 2;

-- name: delete an order
-- changes: 3
Delete from tblWoPartUsed where ServiceUSedID in (Select NserviceUSedID from tblWoServiceUsed where
Workorderno = 2);
-- changes: 2
Delete from tblWoServiceUsed where WorkorderNo = 2;
-- changes: 1
Delete from tblWorkorder where Workorderno = 2;

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

-- name: order with one late service
-- rows: 0
SELECT WorkorderNo FROM tblWoserviceUsed Where NextScheduledDate <= #03-12-2024# and WorkorderNo = 1
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

-- name: suppliers to choose from
-- rows: 3
-- row 1: 2 | O'Brien Parts
-- row 2: 3 | spare house
-- row 3: 1 | Tool Barn
Select SupplierID,Name from tblSupplier order by Name;

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

-- name: note of a service on an order
-- row 1: no time | -1
Select [Note],skip From tblWoServiceUsed where NServiceusedID = 3;

-- name: cells of the service grid of an order
-- changes: 1
Update tblWoServiceUsed set CrewID = '12' where NServiceUsedid = 1;
-- changes: 1
Update tblWoServiceUsed set SupplierID = '2' where NServiceUsedid = 1;
-- changes: 1
Update tblWoServiceUsed set CountValue = '1234' where NServiceUsedid = 1;
-- changes: 1
Update tblWoServiceUsed set Skip = '1' where NServiceUsedid = 1;
-- changes: 1
Update tblWoServiceUsed set CostEstimate = '15.25' where NServiceUsedid = 1;
-- row 1: 12 | 2 | 1234 | -1 | 15.25
select CrewID, SupplierID, CountValue, Skip, CostEstimate from tblWoServiceUsed where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Skip = '0' where NServiceUsedid = 1;
-- row 1: 0
select Skip from tblWoServiceUsed where NServiceUsedID = 1;

-- name: complete one service
-- changes: 1
Update tblWoServiceUsed set Completed = '1' where NServiceUsedid = 1;
-- changes: 1
Update tblWoPartUsed set Used = '1' where ServiceUsedid = 1;
-- row 1: -1 | -1
select Completed, Used from tblWoServiceUsed left join tblWoPartUsed on tblWoServiceUsed.NServiceUsedID =
tblWoPartUsed.ServiceUsedID where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Completed = '0' where NServiceUsedid = 1;
-- row 1: 0
select Completed from tblWoServiceUsed where NServiceUsedID = 1;

-- name: cells of the part grid of an order
-- changes: 1
Update tblWoPartUsed set SupplierID = '3' where ServiceUsedid = 2 and Partid = 'p-100';
-- changes: 1
Update tblWoPartUsed set QuantityUsed = '1.25' where ServiceUsedid = 2 and Partid = 'P-100';
-- changes: 1
Update tblWoPartUsed set Used = '-1' where ServiceUsedid = 2 and Partid = 'P-100';
-- changes: 1
Update tblWoPartUsed set Price = '13.75' where ServiceUsedid = 2 and Partid = 'P-100';
-- row 1: 3 | 1.25 | -1 | 13.75
select SupplierID, QuantityUsed, Used, Price from tblWoPartUsed where ServiceUsedID = 2 and PartID =
'P-100';

-- name: one column of an order
-- changes: 1
Update tblWorkorder set Printed = '1' where WorkorderNo = 1;

-- name: complete an order
-- changes: 1
 Update tblWorkorder Set CompletedDate = #03-15-2024#, Complete = '1' Where WorkorderNo =2;
-- changes: 1
 Update tblWoServiceUsed Set Completed = '1' Where WorkorderNo =2 and (skip is null or skip <> -1);
-- changes: 2
 Update tblWoPartUsed Set Used = '1' Where ServiceUsedId in (Select NserviceUsedID from tblWoServiceUsed
Where WorkorderNo =2 and (skip is null or skip <> -1));
-- row 1: -1 | #03-15-2024#
select Complete, CompletedDate from tblWorkorder where WorkorderNo = 2;

-- name: reopen an order
-- changes: 1
 Update tblWorkorder Set CompletedDate = NULL, Complete = '0' Where WorkorderNo =2;
-- changes: 2
 Update tblWoServiceUsed Set Completed = '0' Where WorkorderNo =2;
-- changes: 3
 Update tblWoPartUsed Set Used = '0' Where ServiceUsedId in (Select NserviceUsedID from tblWoServiceUsed
Where WorkorderNo =2);
-- row 1: 0 | null
select Complete, CompletedDate from tblWorkorder where WorkorderNo = 2;

-- name: budgeted hours
-- row 1: 0.5
Select LaborEstimate from tblWoServiceUsed where NserviceUsedID = 1;

-- name: times of a service on an order
-- changes: 1
update tblWoserviceUsed set StartTime = '08:00', EndTime = '09:45', WorkHrs = '01:45', CostEstimate =
'39.375' where NServiceUsedID = 1;
-- row 1: 08:00 | 01:45 | 39.375
select StartTime, WorkHrs, CostEstimate from tblWoServiceUsed where NServiceUsedID = 1;

-- name: times of a posted service
-- changes: 1
update tblWOServiceUsedHistory set StartTime = '08:00', EndTime = '09:45', WorkHrs = '01:45',
CostEstimate = '39.38' where ServiceUsedID = 51;

-- name: crew of a posted service
-- row 1: 11
Select CrewID from tblWOServiceUsedHistory where ServiceUsedID = 51;

-- name: add a part to an order
-- changes: 1
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values('1','P-O''5', 2.5, 2.5,0.1,False,2);
-- changes: 1
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values('1','P-200', 1, 1,30,-1,2);
-- changes: 1
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values('1','P-300', 1, 1,30,True,2);
-- rows: 4
-- has row: P-O'5 | 0 | 2.5
-- has row: P-200 | -1 | 1
-- has row: P-300 | -1 | 1
select PartID, Used, QuantityUsed from tblWoPartUsed where ServiceUsedID = 1;

-- name: remove a part from an order
-- changes: 1
Delete From tblWoPartUsed where ServiceUsedID = 2 and PartID = 'p-100';

-- name: skip all services of an order
-- changes: 2
Update tblWoServiceUsed set Skip  = '1',Completed = '0' where Workorderno = 2;
-- changes: 3
Update tblWoPartUsed set Used = '0' where ServiceUsedid in (select NServiceUsedid from tblWoServiceUsed
where Workorderno = 2);
-- changes: 2
update tblWoServiceUsed set [Note] = 'machine''s away' where Workorderno = 2;
-- rows: 2
-- row 1: machine's away | -1 | 0
select [Note], Skip, Completed from tblWoServiceUsed where WorkorderNo = 2;

-- name: note of a recorded service
-- changes: 1
update tblWoServiceUsed set [Note] = 'done' where NserviceUsedID = 2;

-- name: orders to be posted
-- rows: 2
Select Workorderno From tblWorkorder Where WorkorderNo in (2,3);

-- name: meter services without a count hold an order back
-- row 1: 1
Select Count(*) as RecCount from tblwoServiceUsed where Workorderno = 3 and Period in
('C','H','K','I') and countvalue is NULL and (Completed = -1 Or Skip = -1);

-- name: order that is not held back
-- row 1: 0
Select Count(*) as RecCount from tblwoServiceUsed where Workorderno = 2 and Period in
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

-- name: history of a posted service
-- changes: 1
Insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,EquipmentID,ServiceID,ServiceName,CrewID,
CrewNumber,LastDateScheduled,LastDatePerformed,NextScheduleddate,CostCenterID,SeparateWo,LaborEstimate,
CostEstimate,[Note],Period,jobNo,CountValue,Skip,StartTime,EndTime,Workhrs,SupplierID,SupplierName,
StartDate,CompleteDate) Values('2','3','501','902','Grease''s','12','2',NULL,NULL,'1/5/2024','Grounds',
'0','0.5','15.25','no time','W','2',NULL,'-1',NULL,NULL,NULL,NULL,NULL,'3/10/2024','3/14/2024');
-- rows: 1
-- row 1: Grease's | #01-05-2024# | 15.25 | -1 | #03-10-2024# | #03-14-2024# | null
select ServiceName, NextScheduleddate, CostEstimate, Skip, StartDate, CompleteDate, CountValue from
tblWOServiceUsedHistory where ServiceUsedID = 3;

-- name: is a service scheduled again
-- row 1: D
select RenewalOn from tblServiceUsed where ServiceUsedId = 3;

-- name: period of a posted service
-- row 1: H
Select Period from tblWOServiceUsed where NserviceUsedID = 4;

-- name: move a schedule
-- changes: 1
Update tblServiceUsed Set LastDateScheduled = #1/5/2024#, LastDatePerformed = #3/14/2024#Where
ServiceUsedID = 11;
-- row 1: #01-05-2024# | #03-14-2024# | 0
select LastDateScheduled, LastDatePerformed, Inactive from tblServiceUsed where ServiceUsedID = 11;

-- name: move a schedule that ends
-- changes: 1
Update tblServiceUsed Set LastDateScheduled = #3/15/2024#, LastDatePerformed = #3/14/2024#, Inactive = 1
Where ServiceUsedID = 3;
-- row 1: 1
select Inactive from tblServiceUsed where ServiceUsedID = 3;

-- name: reading of a posted service
-- changes: 1
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue) values('502',#3/14/2024#,
'Hours','75');
-- rows: 1
SELECT * FROM tblEquipmentCount Where EquipmentID = 502 and ChangeDate = #3/14/2024# and CountType =
'Hours' and CountValue = 75;

-- name: new date of a posted service
-- changes: 1
Update tblServiceUsed Set NextScheduledDate = #03-21-2024# Where ServiceUsedID = 11;
-- changes: 1
Update tblServiceUsed Set NextScheduledDate = NULL Where ServiceUsedID = 11;
-- row 1: null
select NextScheduledDate from tblServiceUsed where ServiceUsedID = 11;

-- name: new target of a posted service
-- row 1: W | 60 | 100
Select RenewalOn,NextScheduledCount,Einterval From tblServiceUsed where ServiceUsedID = 13;
-- changes: 1
Update tblServiceUsed set nextScheduledCount = 175 where ServiceUsedID = 13;

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

-- name: no parts to be posted
-- rows: 0
Select ServiceUsedID, tblWoPartUsed.PartID, Description, ItemName, tblWoPartUsed.Price, Name,
QuantityRequired, QuantityUsed, Quantity, Used From ((tblWoPartUsed Left join tblPart on
tblWoPartUsed.partID = tblPart.PartID) Left join tblSupplier on tblWoPartUsed.SupplierId =
tblSupplier.SupplierID) Left join tblIndicator on tblPart.PartCategoryID = tblIndicator.ItemID where
ServiceUsedId in (0);

-- name: history of posted parts
-- changes: 1
Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) Values('2','P-O''5','O-ring "big"','Filters','0.1','O''Brien Parts','1',
'0');
-- changes: 1
Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) Values('2','P-200',NULL,NULL,'30',NULL,'2',NULL);
-- changes: 1
Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) Values('2','P-100','Oil filter','Filters','12.5','Tool Barn','1','0.5');
-- rows: 3
-- has row: P-O'5 | 0
-- has row: P-200 | null
-- has row: P-100 | 0.5
select partID, QuantityUsed from tblWoPartHistory where ServiceusedID = 2;

-- name: is a part tracked
-- row 1: -1
select TrackInventory from tblPart where PartID = 'P-400';

-- name: stock after posting
-- changes: 1
Update tblpart set Quantity = 9 where partid = 'P-100';
-- changes: 1
Update tblpart set Quantity = -0.5 where partid = 'p-o''5';
-- row 1: -0.5
select Quantity from tblPart where PartID = 'P-O''5';

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

-- name: all marks are cleared after posting
-- changes: 5
Update tblWorkorder set Complete = 0 ,CompletedDate = NULL;

-- name: held orders keep their marks
-- changes: 4
Update tblWorkorder set Complete = 0 ,CompletedDate = NULL where not WorkorderNo in (3);
-- rows: 1
-- row 1: 3
select WorkorderNo from tblWorkorder where Complete = -1;

-- name: machine of a service for the date dialog
-- columns: EquipmentName | UnitNo | Name
-- row 1: Rider mower | A-1 | Grease
Select EquipmentName,UnitNo,Name from tblServiceUsed left join tblEquipment on
tblserviceused.Equipmentid = tblequipment.equipmentid where ServiceUsedID = 11;

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

-- name: parts of a service to be printed
-- columns: Part Number | Description | Qty Req | Price
-- rows: 1
-- row 1: P-100 | Oil filter | 6 | 12.5
Select tblPart.PartId as [Part Number], Description, tblWoPartUsed.QuantityRequired as [Qty
Req],tblWoPartUsed.Price from (tblWoPartUsed Left Join tblWoServiceUsed on tblWopartUsed.ServiceUsedID =
tblWoServiceUsed.ServiceUsedID) Left Join tblPart on tblWoPartUsed.PArtID = tblPart.PartID where
tblWoPartUSed.ServiceusedID = 1;

-- name: printed note
-- row 1: with "soap"
Select [Note] From tblWoServiceUsed where NServiceusedID = 2;

-- name: remove a service from an order
-- changes: 1
Delete From tblWoServiceUsed where NServiceUsedId = 2;
-- changes: 2
Delete From tblWoPartUsed where ServiceUsedID = 2;

-- name: mark orders as printed
-- changes: 2
Update tblWorkorder set Printed = 1 where Workorderno in (1,4,0);

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

-- name: no work orders for print
-- rows: 0
SELECT tblWorkorder.WorkorderNo, tblEquipment.UnitNo, tblWoServiceUsed.Name, tblPart.Description FROM
(((tblWorkorder LEFT JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo)
LEFT JOIN tblWoPartUsed ON tblWoServiceUsed.NServiceUsedID = tblWoPartUsed.ServiceUsedID) LEFT JOIN
tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblPart ON
tblWoPartUsed.PartID = tblPart.PartID where  tblWorkorder.workorderno in (0);

-- name: is a catalogue service on the order
-- rows: 1
Select Name from tblwoServiceused Where (ServiceID = 903 and workorderno = 2);

-- name: is an assigned service on the order
-- rows: 1
Select Name from tblwoServiceused Where (ServiceID = (Select ServiceID From tblServiceUsed where
ServiceUsedID =9) and workorderno = 1);

-- name: catalogue service for an order
-- columns: ServiceID | CrewID | Name | CostCenterID | SeparateWo | LaborEstimate | CostEstimate | Note | Period | JobNo | ServiceUsedID
-- row 1: 901 | 11 | Oil change | 1 | 0 | 1.5 | 33.75 | Use 10W-30 | H | 1 | '0'
Select ServiceID ,CrewID,Name,CostCenterId,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,JobNo,'0'
as ServiceUsedID from tblServices where ServiceID = 901;

-- name: assigned service for an order
-- row 1: 902 | 11 | Blade check | 1 | 0 | 0.5 | 11.25 | null | W | 2 | 2
Select ServiceID
,CrewID,Name,CostCenterId,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,JobNo,ServiceUsedID from
tblServiceUsed where ServiceUsedID = 2;

-- name: add a service to an order
-- key: NServiceUsedID
Insert into tblWoserviceUsed(WorkOrderNo,EquipmentID,LastdateScheduled,LastDatePerformed,
NextScheduledDate,Completed,ServiceID,crewID,Name,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,
[Note],Period,JobNo,ServiceUsedID) values('4','503',Null,Null,'03-15-2024',False,'901','11',
'Bob''s oil','1','0','1.5','33.75','Use 10W-30','H','1','0');
-- row 1: #03-15-2024# | 0 | Bob's oil | 0
select NextScheduledDate, Completed, Name, ServiceUsedID from tblWoServiceUsed where NServiceUsedID =
{key};
-- changes: 1
Insert into tblWoserviceUsed(WorkOrderNo,EquipmentID,LastdateScheduled,LastDatePerformed,
NextScheduledDate,Completed,ServiceID,crewID,Name,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,
[Note],Period,JobNo,ServiceUsedID) values('4','503',Null,Null,'3/15/2024',-1,'902','11','Blade',NULL,
'0','1.5','33.75',NULL,'W','2','0');
-- row 1: -1
select Completed from tblWoServiceUsed where WorkorderNo = 4 and ServiceID = 902;

-- name: is a service skipped
-- row 1: -1
select skip from tblWoServiceUsed where NServiceUsedId = 3;

-- name: unscheduled order
-- key: WorkorderNo
Insert into tblWorkOrder(EquipmentId,Printed) Values('506','0');

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
