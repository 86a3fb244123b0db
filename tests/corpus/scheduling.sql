-- Catalogue, assigned services, meter readings.

-- name: assigned service for the next date
-- rows: 1
Select * from tblServiceUsed where ServiceUsedID = 2;

-- name: machine of a service for a message
-- columns: EquipmentName | UnitNo | JobNo | Name
-- row 1: Dump truck | T-2 | 3 | Inspection
Select Equipmentname,UnitNo,JobNo,Name from tblEquipment left join tblServiceUsed on
tblEquipment.EquipmentID = tblServiceused.EquipmentID where ServiceusedID = 3;

-- name: newest reading with its date
-- rows: 1
-- row 1: 160 | #03-01-2024#
Select top 1 countvalue,ChangeDate from tblequipmentcount where equipmentid = 501 and counttype =
'Hours' order by changedate desc,countvalue desc;

-- name: delete a catalogue service and its parts
-- changes: 1
Delete from tblServices where serviceID=901;
-- changes: 2
Delete from tblServicesPart where serviceID=901;

-- name: cost centres
-- rows: 2
-- row 1: 1 | Grounds | 10000
-- row 2: 2 | Fleet | 2500.5
SELECT * From tblCostCenter Order by CostCenterId;

-- name: parts of a table that does not exist
-- error: 0x80040E37
select PartID,  Description from tblpart where PartID in (select partId from tblpartused where
serviceid=901) order by partID;

-- name: dates of an assigned service
-- changes: 1
Update tblServiceUsed set LastDateScheduled =#03-10-2024#, LastDatePerformed =#03-14-2024#,
NextScheduledDate =#03-17-2024# Where ServiceUsedID = 2;
-- row 1: #03-10-2024# | #03-14-2024# | #03-17-2024#
select LastDateScheduled, LastDatePerformed, NextScheduledDate from tblServiceUsed where
ServiceUsedID = 2;

-- name: dates of an assigned service with the comma ahead of Where
-- error: 0x80040E14
Update tblServiceUsed set LastDateScheduled =NULL, LastDatePerformed =NULL, NextScheduledDate =NULL,
Where ServiceUsedID = 2;

-- name: new job number everywhere
-- changes: 5
Update tblServiceUsed set JobNo = '77' Where serviceid = 902;
-- changes: 2
Update tblWoServiceUsed set JobNo = '77' Where serviceid = 902;

-- name: new catalogue service
-- changes: 1
Insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,Mon,Tue,Wed,Thu,
Fri,Sat,Sun,FirstW,SecondW,ThirdW,ForthW,LastW,DOM,DOM1,DOM2,DOM3,DOM4,DOM5,Jan,Feb,Mar,Apr,May,Jun,
Jul,Aug,Sep,Oct,Nov,Dece,SeparateWo,LaborEstimate,CostEstimate,[Note],JobNo) values('315093000',
'Bob''s check','11','1','M','1','W','1','0','0','0','0','0','0','1','0','0','0','0','0','0','0','0',
'0','0','1','1','1','1','1','1','1','1','1','1','1','1','0','1.25','28.13','it''s "new"','12');
-- rows: 1
-- row 1: 315093000 | Bob's check | 1 | 0 | 1 | 1.25 | 28.13 | it's "new" | 12
select ServiceID, Name, Mon, Sun, Dece, LaborEstimate, CostEstimate, Note, JobNo from tblServices where
ServiceID = '315093000';

-- name: the same catalogue service twice
-- error: -2147467259
Insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,Mon,Tue,Wed,Thu,
Fri,Sat,Sun,FirstW,SecondW,ThirdW,ForthW,LastW,DOM,DOM1,DOM2,DOM3,DOM4,DOM5,Jan,Feb,Mar,Apr,May,Jun,
Jul,Aug,Sep,Oct,Nov,Dece,SeparateWo,LaborEstimate,CostEstimate,[Note],JobNo) values('901','Again','11',
'1','M','1','W','1','0','0','0','0','0','0','1','0','0','0','0','0','0','0','0','0','0','1','1','1',
'1','1','1','1','1','1','1','1','1','0','1','1','','13');

-- name: change a catalogue service
-- changes: 1
Update tblServices set Name='Blade''s check',CrewID='12',CostCenterID='2',Period='D',EInterval='3',
RenewalOn='W',Mon='1',Tue='1',Wed='1',Thu='1',Fri='1',Sat='0',Sun='0',FirstW='1',SecondW='1',
ThirdW='1',ForthW='1',LastW='1',DOM1='0',DOM2='0',DOM3='0',DOM4='0',DOM5='0',Jan='1',Feb='1',Mar='1',
Apr='1',May='1',Jun='1',Jul='1',Aug='1',Sep='1',Oct='1',Nov='1',Dece='1',SeparateWo='1',
LaborEstimate='0.75',CostEstimate='22.88',[Note]='',JobNo='2',Dom ='0' Where ServiceID = 902;
-- row 1: Blade's check | 0.75 | 22.88 | ''
select Name, LaborEstimate, CostEstimate, [Note] from tblServices where ServiceID = 902;

-- name: change an assigned service
-- changes: 1
Update tblServiceUsed set Name='Blade check',CrewID='12',CostCenterID='2',Period='D',EInterval='3',
RenewalOn='W',Mon='1',Tue='1',Wed='1',Thu='1',Fri='1',Sat='0',Sun='0',FirstW='1',SecondW='1',
ThirdW='1',ForthW='1',LastW='1',DOM1='0',DOM2='0',DOM3='0',DOM4='0',DOM5='0',Jan='1',Feb='1',Mar='1',
Apr='1',May='1',Jun='1',Jul='1',Aug='1',Sep='1',Oct='1',Nov='1',Dece='1',SeparateWo='1',
LaborEstimate='0.75',CostEstimate='22.88',[Note]='',Dom ='0', NextScheduledDate ='03/20/24', JobNo = 2,
Inactive = 0, NextScheduledCount = 0 Where ServiceUsedID = 2;
-- row 1: #03-20-2024# | 12 | 0
select NextScheduledDate, CrewID, NextScheduledCount from tblServiceUsed where ServiceUsedID = 2;

-- name: change an assigned service without a date
-- changes: 1
Update tblServiceUsed set Name='Oil change',CrewID='11',Dom ='0', NextScheduledDate =NULL, JobNo = 1,
Inactive = 0, NextScheduledCount = 210 Where ServiceUsedID = 1;

-- name: any reading of a kind
-- rows: 1
SELECT TOP 1 * From tblequipmentCount WHERE tblequipmentCount.EquipmentID=501 AND
tblequipmentCount.CountType='Hours';

-- name: first reading
-- changes: 1
Insert into tblEquipmentCount(Equipmentid,changedate,counttype,countvalue) values('505','03-15-2024',
'Kilometers','0');
-- rows: 1
-- row 1: 505 | #03-15-2024# | Kilometers | 0
select Equipmentid,changedate,counttype,countvalue from tblEquipmentCount where EquipmentID = 505;

-- name: target of a meter service
-- changes: 1
Update tblServiceUsed set NextScheduledCount = 210 where ServiceUsedID = 1;

-- name: date of a meter service
-- changes: 1
Update tblServiceUsed Set NextScheduledDate = #03-01-2024#  Where ServiceUsedID = 1;
-- row 1: #03-01-2024#
select NextScheduledDate from tblServiceUsed where ServiceUsedID = 1;

-- name: parts of a catalogue service
-- columns: Part Number | Description | Qty Req | Price
-- rows: 2
-- has row: P-100 | Oil filter | 1 | 12.5
-- has row: P-200 | Belt | 2 | 30
Select  tblPart.PartID as [Part Number], Description, QuantityRequired as [Qty Req],tblServicesPart.Price
From tblServicesPart left join tblPart on tblServicesPart.PartID = tblPart.PartID where ServiceID = 901;

-- name: parts of an assigned service
-- rows: 2
-- has row: P-100 | Oil filter | 1 | 12.5
-- has row: null | null | 1 | 1
Select  tblPart.PartID as [Part Number], Description, QuantityRequired as [Qty
Req],tblServiceUsedPart.Price  From tblServiceUsedPart left join tblPart on tblServiceUsedPart.PartID =
tblPart.PartID where ServiceUsedID = 2;

-- name: add a part to an assigned service
-- changes: 1
insert into tblServiceUsedpart(PartID,ServiceUsedId,QuantityRequired,Price,SupplierID) values(
'P-O''5','1','3','0.1','2');

-- name: add a part to a catalogue service
-- changes: 1
insert into tblServicespart(PartID,ServiceID,QuantityRequired,Price,SupplierID) values('P-O''5','902',
'3','0.1','2');

-- name: remove a part of a catalogue service
-- changes: 1
Delete from tblServicespart where partID='p-100' and ServiceID = 901;

-- name: remove a part of an assigned service
-- changes: 1
Delete from tblServiceUsedpart where partID='P-100' and ServiceUsedID = 2;

-- name: edit a part of an assigned service
-- changes: 1
Update  tblServiceUsedPart set QuantityRequired=2.5, Price=13 where PartID='P-100' and ServiceUsedID =2;

-- name: edit a part of a catalogue service
-- changes: 1
Update  tblServicespart set QuantityRequired=2.5 , Price=13 where PartID='P-100' and ServiceID =901;

-- name: last reading of a kind
-- columns: ChangeDate | CountValue
-- rows: 1
-- row 1: #03-12-2024# | 20300
SELECT TOP 1 Changedate, Countvalue From tblEquipmentCount Where EquipmentID = 502 And CountType =
'Miles' ORDER BY ChangeDate DESC , Countvalue DESC;

-- name: add a reading
-- changes: 1
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue) values('503',#3-9-24#,
'Counts','12');
-- rows: 1
-- row 1: 12
select CountValue from tblEquipmentCount where EquipmentID = 503 and ChangeDate = #03-09-2024#;

-- name: change the meter of a service
-- changes: 1
Update tblServiceUsed set period = 'H' where ServiceUsedID = 10;

-- name: meter services of a machine
-- rows: 2
-- has row: 4 | null | 500 | I
-- has row: 13 | #03-01-2024# | 100 | H
Select serviceusedid,NextScheduledDate,Einterval,Period from tblServiceUsed where EquipmentID = 502 and
Period IN ('C', 'H', 'K', 'I');

-- name: meters that have not been read lately
-- columns: EquipmentID | UnitNo | Equipment Name | CountType | Last Date | Last Count
-- rows: 2
-- row 1: 501 | A-1 | Rider mower | Hours | #03-01-2024# | 160
-- row 2: 502 | T-2 | Dump truck | Hours | #03-01-2024# | 70
SELECT equipmentcount.EquipmentID, UnitNo, Equipmentname AS [Equipment Name], equipmentcount.CountType,
change_date AS [Last Date], max (tblequipmentcount.CountValue) AS [Last Count] FROM (SELECT
tblEquipment.EquipmentID, UnitNo, Equipmentname, Counttype, max(changedate) AS change_date FROM
(tblServiceUsed LEFT JOIN tblEquipmentCount ON tblServiceUsed.EquipmentID =
tblEquipmentCount.EquipmentID) LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID =
tblEquipment.EquipmentID WHERE tblServiceUsed.Period IN ('C', 'H', 'K', 'I') AND
tblServiceUsed.ServiceUsedID not in (Select ServiceUsedId from tblWoServiceUsed) and
tblEquipment.Inactive = '0' GROUP BY tblEquipment.EquipmentID, counttype, unitno, equipmentname HAVING
(max(changeDate) < now()-5)) AS equipmentcount LEFT JOIN tblequipmentcount ON
(equipmentcount.change_date = tblequipmentcount.ChangeDate) AND (equipmentcount.CountType =
tblequipmentcount.CountType) AND (equipmentcount.EquipmentID = tblequipmentcount.EquipmentID) GROUP BY
equipmentcount.EquipmentID, UnitNo, Equipmentname, equipmentcount.CountType, change_date ORDER BY
Unitno;

-- name: meters not read since this moment
-- rows: 4
-- row 1: 501 | A-1 | Hours | 160
-- row 2: 503 | b-3 | Counts | 0
-- has row: 502 | T-2 | Miles | 20300
-- has row: 502 | T-2 | Hours | 70
SELECT equipmentcount.EquipmentID, UnitNo, equipmentcount.CountType, max (tblequipmentcount.CountValue)
AS [Last Count] FROM [SELECT tblEquipment.EquipmentID, UnitNo, Equipmentname, Counttype,
max(changedate) AS change_date FROM (tblServiceUsed LEFT JOIN tblEquipmentCount ON
tblServiceUsed.EquipmentID = tblEquipmentCount.EquipmentID) LEFT JOIN tblEquipment ON
tblServiceUsed.EquipmentID = tblEquipment.EquipmentID WHERE tblServiceUsed.Period IN ('C', 'H', 'K',
'I') AND tblServiceUsed.ServiceUsedID not in (Select ServiceUsedId from tblWoServiceUsed) and
tblEquipment.Inactive = '0' GROUP BY tblEquipment.EquipmentID, counttype, unitno, equipmentname HAVING
(max(changeDate) < now()-0)]. AS equipmentcount LEFT JOIN tblequipmentcount ON
(equipmentcount.change_date = tblequipmentcount.ChangeDate) AND (equipmentcount.CountType =
tblequipmentcount.CountType) AND (equipmentcount.EquipmentID = tblequipmentcount.EquipmentID) GROUP BY
equipmentcount.EquipmentID, UnitNo, Equipmentname, equipmentcount.CountType, change_date ORDER BY
Unitno;

-- name: readings of a machine
-- columns: Count Date | Count Type | Count Value
-- rows: 5
Select Changedate as [Count Date], CountType as [Count Type], CountValue as [Count Value] from
tblEquipmentCount Where EquipmentID = 502;

-- name: delete a reading and its equals
-- changes: 1
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue) values('501',#02-01-2024#,
'Hours','120');
-- changes: 2
Delete From tblEquipmentCount where EquipmentId = 501 and CountType = 'Hours' and ChangeDate =
#02-01-2024# And CountValue = 120;

-- name: catalogue list
-- columns: Service ID | Service No | Name | Crew | Cost Center | Interval | RenewalOn | SeparateWo | Budgeted Hrs | Labor Cost
-- rows: 4
-- row 1: 901 | 1 | Oil change | '1   Mowing' | Grounds | 50 | Work Order Completion | 0 | 1.5 | 33.75
-- row 2: 902 | 2 | Blade check | '1   Mowing' | Grounds | 1 | Service Original Scheduled | 0 | 0.5 | 11.25
-- row 3: 903 | 3 | Inspection | '2   Trucks' | Fleet | 1 | null | 1 | 2 | 61
-- row 4: 904 | 4 | Orphan | null | null | 1 | Work Order Completion | 0 | 1 | 0
SELECT tblServices.ServiceID AS [Service ID], JobNo as [Service No], tblServices.Name,
cstr(tblCrew.CrewNumber) + '   ' + tblCrew.Description AS Crew,tblCostCenter.Description AS [Cost
Center], tblServices.EInterval AS [Interval],Switch (tblServices.RenewalOn='W' ,'Work Order Completion',
tblServices.RenewalOn='S','Service Original Scheduled')  as RenewalOn ,tblServices.SeparateWo,
tblServices.LaborEstimate as [Budgeted Hrs], tblServices.CostEstimate as [Labor Cost] FROM (tblServices
LEFT JOIN tblCrew ON tblServices.CrewID = tblCrew.CrewID) LEFT JOIN tblCostCenter  ON
tblServices.CostCenterID = tblCostCenter.CostCenterID order by tblServices.ServiceID;

-- name: catalogue list without those already there
-- rows: 2
-- row 1: 903
-- row 2: 904
SELECT tblServices.ServiceID AS [Service ID], JobNo as [Service No], tblServices.Name,
cstr(tblCrew.CrewNumber) + '   ' + tblCrew.Description AS Crew,tblCostCenter.Description AS [Cost
Center], tblServices.EInterval AS [Interval],Switch (tblServices.RenewalOn='W' ,'Work Order Completion',
tblServices.RenewalOn='S','Service Original Scheduled')  as RenewalOn ,tblServices.SeparateWo,
tblServices.LaborEstimate as [Budgeted Hrs], tblServices.CostEstimate as [Labor Cost] FROM (tblServices
LEFT JOIN tblCrew ON tblServices.CrewID = tblCrew.CrewID) LEFT JOIN tblCostCenter  ON
tblServices.CostCenterID = tblCostCenter.CostCenterID Where not tblServices.ServiceID in (901,902)
order by tblServices.ServiceID;

-- name: services of one machine for selection
-- rows: 1
-- row 1: 8 | 3 | Retired check | '2   Trucks' | Fleet | 1 | null | 1 | 2 | 61
SELECT tblServiceUsed.ServiceUSedID AS [Service ID], JobNo as [Service No], tblServiceUsed.Name,
cstr(tblCrew.CrewNumber) + '   ' + tblCrew.Description AS Crew,tblCostCenter.Description AS [Cost
Center], tblServiceUsed.EInterval AS [Interval],Switch (tblServiceUsed.RenewalOn='W' ,'Work Order
Completion', tblServiceUsed.RenewalOn='S','Service Original Scheduled')  as RenewalOn
,tblServiceUsed.SeparateWo, tblServiceUsed.LaborEstimate as [Budgeted Hrs], tblServiceUsed.CostEstimate
as [Labor Cost] FROM (tblServiceUsed LEFT JOIN tblCrew ON tblServiceUsed.CrewID = tblCrew.CrewID) LEFT
JOIN tblCostCenter  ON tblServiceUsed.CostCenterID = tblCostCenter.CostCenterID where
tblServiceUsed.EquipmentID=501 and  not tblServiceUSed.ServiceID in (901, 902) order by
tblServiceUsed.ServiceID;

-- name: service grid of a machine
-- columns: ServiceUsedID | Service No | ServiceID | Name | Next Schedule | Next Count | Service Crew | Budgeted Hrs | Labor Cost | Interval | Schedule Type | SeparateWo
-- rows: 4
-- has row: 3 | 3 | 903 | Inspection | #03-15-2024# | 0 | 12 | 2 | 61 | 1 | Years | 1
-- has row: 4 | 5 | 0 | Mile service | null | 20500 | 12 | 1 | 30.5 | 500 | Miles | 0
-- has row: 9 | 2 | 902 | Blade check | #03-12-2024# | 0 | 11 | 0.5 | 11.25 | 1 | Weeks | 0
-- has row: 13 | 7 | 0 | Hours check | #03-01-2024# | 60 | 12 | 1 | 30.5 | 100 | Hours | 0
SELECT  tblServiceUsed.ServiceUsedID, tblServiceUsed.JobNo as [Service No],
tblServiceUsed.ServiceID,tblServiceUsed.Name, NextScheduledDate as [Next Schedule], NextScheduledCount
as [Next Count], CrewID as [Service Crew], LaborEstimate as [Budgeted Hrs],CostEstimate as [Labor Cost],
Einterval as [Interval], Switch( Period= 'D' ,'Days', Period='W','Weeks', Period='M','Months',
Period='Y','Years', Period='C','Counts', Period='H','Hours', Period='K','Kilometers',
Period='I','Miles') AS [Schedule Type], tblServiceUsed.SeparateWo  FROM tblServiceUsed where
EquipmentId=502;

-- name: machine for the head of a list
-- row 1: Jim's trailer | TR5
select EquipmentName, UnitNo from  tblEquipment where EquipmentID=505;

-- name: cells of the service grid
-- changes: 1
Update tblServiceUsed set CrewID = '12' where ServiceUsedid = 2;
-- changes: 1
Update tblServiceUsed set Einterval = '3' where ServiceUsedid = 2;
-- changes: 1
Update tblServiceUsed set CostEstimate = '61.25' where ServiceUsedid = 2;
-- changes: 1
Update tblServiceUsed set LaborEstimate = '2.75' where ServiceUsedid = 2;
-- changes: 1
Update tblServiceUsed set NextScheduleddate = '3/20/2024' where ServiceUsedid = 2;
-- changes: 1
Update tblServiceUsed set NextScheduledCount = '999999999' where ServiceUsedid = 2;
-- row 1: 12 | 3 | 61.25 | 2.75 | #03-20-2024# | 999999999
select CrewID, EInterval, CostEstimate, LaborEstimate, NextScheduledDate, NextScheduledCount from
tblServiceUsed where ServiceUsedID = 2;

-- name: catalogue rows to be assigned
-- rows: 2
 Select ServiceID, Name,CrewID, CostCenterID, Period,Einterval,Renewalon,Mon,tue,wed,thu,Fri, Sat,
Sun,FirstW, SecondW, ThirdW,ForthW, LastW,Dom,Dom1,Dom2,Dom3,Dom4,Dom5,jan,Feb,Mar,Apr,may,
jun,jul,aug, sep, oct,nov, dece, separateWo,LaborEstimate, costEstimate, [note],jobno from tblServices
where ServiceID in (901, 902);

-- name: assigned rows to be copied
-- rows: 1
 Select ServiceUsedID, ServiceID, Name,CrewID, CostCenterID,
Period,Einterval,Renewalon,Mon,tue,wed,thu,Fri, Sat, Sun,FirstW, SecondW, ThirdW,ForthW,
LastW,Dom,Dom1,Dom2,Dom3,Dom4,Dom5,jan,Feb,Mar,Apr,may, jun,jul,aug, sep, oct,nov, dece,
separateWo,LaborEstimate, costEstimate, [note],jobno from tblServiceUsed where ServiceUsedID in (2);

-- name: assign a service
-- key: ServiceUsedID
 insert into tblserviceused(Equipmentid,serviceid,Name,CrewID, CostCenterID, Period,
Einterval,Renewalon,Mon,tue,wed,thu,Fri, Sat, Sun,FirstW, SecondW, ThirdW,ForthW,
LastW,Dom,Dom1,Dom2,Dom3,Dom4,Dom5,jan,Feb, Mar,Apr,may, jun,jul,aug, sep, oct,nov, dece,
separateWo,LaborEstimate, costEstimate, [note],Jobno ,NextScheduledDate) values('506','902',
'Bob''s check','11','1','W','1','S','1','0','0','0','0','0','0','1','0','0','0','0','0','0','0','0',
'0','0','1','1','1','1','1','1','1','1','1','1','1','1','0','0.5','11.25','it''s','2','03-15-2024');
-- rows: 1
-- row 1: {key}
Select max(ServiceUsedID) From tblServiceUsed;
-- row 1: 506 | Bob's check | #03-15-2024# | null | null | it's
select EquipmentID, Name, NextScheduledDate, LastDateScheduled, LastDatePerformed, [note] from
tblServiceUsed where ServiceUsedID = {key};
-- changes: 1
Insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,price,SupplierID) Values('P-O''5',
{key},2,0.1,2) ;
-- row 1: W | Bob's check | 1
Select Period,Name,Einterval from tblServiceUsed where ServiceUsedId = {key};

-- name: parts to be copied from the catalogue
-- rows: 2
Select partID,QuantityRequired,price,SupplierID from tblServicesPart where PartId is not Null and
ServiceId = 901;

-- name: parts to be copied from an assigned service
-- rows: 1
-- row 1: P-100 | 1 | 12.5 | 1
Select partID,QuantityRequired,price,SupplierID from tblServiceUsedPart where PartId is not Null and
ServiceUsedId = 2;

-- name: readings of a kind
-- rows: 4
Select * from tblequipmentcount where EquipmentID = 501 and Counttype = 'Hours';

-- name: newest reading for a new target
-- row 1: 160
Select top 1 countvalue from tblequipmentcount where EquipmentID = 501 and Counttype = 'Hours' order by
changedate desc, countvalue desc;

-- name: first target of a meter service
-- changes: 1
Update tblServiceUsed set NextScheduledDate = NULL, NextScheduledCount = 210 Where ServiceUsedId = 1;

-- name: periods of a machine's services
-- rows: 4
Select ServiceUsedID, Period, Einterval from tblServiceUsed where EquipmentID = 502;

-- name: remove an assigned service
-- changes: 1
Delete From tblServiceUsed where ServiceUsedId = 2;
-- changes: 2
 Delete From tblServiceUsedPart Where ServiceUsedID = 2;

-- name: machine and crew for the crew dialog
-- columns: EquipmentName | UnitNo | CrewNumber
-- row 1: Jim's trailer | TR5 | '4   O''Hara''s crew'
SELECT EquipmentName, UnitNo, IIf(tblCrew.CrewID<>0,(cstr(CrewNumber)+'   '+tblCrew.Description),'  ')
AS CrewNumber FROM tblEquipment LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID Where
Equipmentid = 505;

-- name: machine without a crew for the crew dialog
-- row 1: Back-pack blower | b-3 | '  '
SELECT EquipmentName, UnitNo, IIf(tblCrew.CrewID<>0,(cstr(CrewNumber)+'   '+tblCrew.Description),'  ')
AS CrewNumber FROM tblEquipment LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID Where
Equipmentid = 503;

-- name: move a machine to a crew
-- changes: 1
update tblEquipment set CrewID = 13 where EquipmentID = 505;
