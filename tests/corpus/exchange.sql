-- What goes out to the handheld, and what its records and files write.

-- name: machines out
-- columns: EquipmentID | UnitNo | EquipmentName | CrewID | Bar_Code
-- rows: 6
Select EquipmentID,UnitNo,EquipmentName,CrewID,Bar_Code from tblEquipment;

-- name: crews out
-- rows: 5
Select CrewID,CrewNumber,Description from tblCrew;

-- name: meters to be read out
-- columns: EquipmentID | CountType | ChangeDate | Last Count | CurrentCount
-- rows: 2
-- has row: 501 | Hours | #03-01-2024# | 160 | 0
-- has row: 502 | Hours | #03-01-2024# | 70 | 0
SELECT equipmentcount.EquipmentID, equipmentcount.Counttype, equipmentcount.change_date AS [ChangeDate],
Max(tblequipmentcount.CountValue) AS [Last Count], 0 AS [CurrentCount] FROM
[SELECT tblEquipment.EquipmentID, UnitNo, Equipmentname, Counttype, max(changedate) AS change_date FROM
(tblServiceUsed LEFT JOIN tblEquipmentCount ON tblServiceUsed.EquipmentID =
tblEquipmentCount.EquipmentID) LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID =
tblEquipment.EquipmentID where tblServiceUsed.Period in ('C', 'H', 'K', 'I') and
tblServiceUsed.ServiceUsedID not in (Select ServiceUsedId from tblWoServiceUsed) and
tblEquipment.Inactive = '0' group by tblEquipment.EquipmentID, counttype, unitno, equipmentname having
max(changeDate) < now()-5]. AS equipmentcount LEFT JOIN tblequipmentcount ON (equipmentcount.change_date
= tblequipmentcount.ChangeDate) AND (equipmentcount.Counttype = tblequipmentcount.CountType) AND
(equipmentcount.EquipmentID = tblequipmentcount.EquipmentID) GROUP BY equipmentcount.EquipmentID,
equipmentcount.UnitNo, equipmentcount.Equipmentname, equipmentcount.Counttype,
equipmentcount.change_date;

-- name: orders out
-- rows: 2
-- has row: 1 | 502 | 0 | null
-- has row: 5 | 505 | 0 | null
SELECT DISTINCT tblWorkorder.WorkorderNo, tblWorkorder.EquipmentID, tblWorkorder.Complete,
tblWorkorder.CompletedDate FROM tblWorkorder INNER JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo =
tblWoServiceUsed.WorkorderNo where tblWorkorder.Complete = False;

-- name: services out
-- rows: 3
-- has row: 1 | 902 | 502 | Blade check | 1 | 0 | null | null | null | W | 11 | 2 | 0.5
-- has row: 5 | 904 | 505 | Weld | 5 | 0 | null | null | null | M | 0 | 4 | null
SELECT tblWoServiceUsed.NserviceUsedID, tblWoServiceUsed.ServiceID, tblWoServiceUsed.EquipmentID,
tblWoServiceUsed.Name, tblWoServiceUsed.WorkOrderNo, tblWoServiceUsed.Completed,
tblWoServiceUsed.StartTime, tblWoServiceUsed.EndTime, tblWoServiceUsed.Note, tblWoServiceUsed.Period,
tblWoServiceUsed.CrewID, tblWoServiceUsed.JobNO, tblServiceUsed.LaborEstimate AS Mhrs FROM (tblWorkorder
LEFT JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo) LEFT JOIN
tblServiceUsed ON tblWoServiceUsed.Serviceusedid = tblServiceUsed.Serviceusedid where
tblWoServiceUsed.Completed=False and tblWorkorder.Complete=False;

-- name: parts on orders out
-- rows: 1
-- row 1: 1 | P-100 | Oil filter | 6 | 12.5 | 0 | 6 | 1
SELECT tblWoServiceUsed.NserviceUsedID, tblWoPartUsed.PartID, tblPart.Description,
tblWoPartUsed.QuantityRequired, tblWoPartUsed.Price, tblWoPartUsed.Used, tblWoPartUsed.QuantityUsed,
tblWoServiceUsed.WorkOrderNo FROM (tblWoServiceUsed INNER JOIN tblWoPartUsed ON
tblWoServiceUsed.NserviceUsedID = tblWoPartUsed.ServiceUsedID) INNER JOIN tblPart ON
tblWoPartUsed.PartID = tblPart.PartID where tblWoServiceUsed.WorkOrderNo in (Select WorkorderNo from
tblWorkorder where Complete=False);

-- name: parts out
-- columns: PartID | Description | Quantity | Bar_Code | Price | QtyReceived
-- rows: 5
-- has row: P-100 | Oil filter | 10 | PB100 | 12.5 | 0
Select PartID,Description,Quantity,Bar_Code,Price,0 as [QtyReceived] from tblPart;

-- name: catalogue out
-- rows: 4
SELECT * FROM tblservices;

-- name: parts of the catalogue out
-- rows: 2
 SELECT * FROM tblservicespart;

-- name: does a crew exist
-- rows: 1
Select * from tblCrew where CrewID = 12;

-- name: new order from the handheld
-- key: WorkorderNo
Insert into tblWorkOrder(Printed,Complete,CompletedDate,EquipmentId,WoDate)
Values('0','1',#3/14/2024#,'501',#3/13/2024#);
-- row 1: {key}
Select max(Workorderno) from tblWorkorder;
-- row 1: 0 | -1 | #03-14-2024# | 501 | #03-13-2024#
select Printed, Complete, CompletedDate, EquipmentID, WoDate from tblWorkorder where WorkorderNo =
{key};
-- changes: 1
update tblWorkOrder set Complete ='1',Completeddate=#3/15/2024#,EquipmentId='502',WoDate=#3/12/2024#
where workorderno = {key};

-- name: new service from the handheld
-- key: NServiceUsedID
Insert into tblWoserviceUsed(ServiceUsedID,EquipmentID,ServiceID,WorkorderNo,Name,Completed,Skip,StartTime,EndTime,[Note],LaborEstimate,Period,CountValue,Workhrs,JobNo,CostEstimate,CostCenterID,CrewID,NextScheduledDate) values('0','501','902','4','Bob''s blade','1','0','08:00','09:00','it''s done','0.5','W','0','1:00','2','11.25','1','11',#3/14/2024#);
-- row 1: 4 | Bob's blade | -1 | 0 | it's done | 0 | #03-14-2024#
select WorkorderNo, Name, Completed, Skip, [Note], ServiceUsedID, NextScheduledDate from
tblWoServiceUsed where NServiceUsedID = {key};

-- name: new service from the handheld with words for yes and no
-- changes: 1
Insert into tblWoserviceUsed(ServiceUsedID,EquipmentID,ServiceID,WorkorderNo,Name,Completed,Skip)
values('0','501','902','4','Words','True','False');
-- row 1: -1 | 0
select Completed, Skip from tblWoServiceUsed where Name = 'words';

-- name: new part from the handheld
-- changes: 1
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,Price,Used,QuantityUsed)
values('4','P-O''5',1,0.10,1,2);
-- changes: 1
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,Price,Used,QuantityUsed)
values('4','P-200',1,30,True,2);
-- rows: 2
-- has row: P-O'5 | -1
-- has row: P-200 | -1
select PartID, Used from tblWoPartUsed where ServiceUsedID = 4;

-- name: machine to another crew from the handheld
-- changes: 1
Update tblEquipment set CrewID = 13 where EquipmentID = 501;
-- changes: 1
Insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription) values(501,3,'Blowers');
-- rows: 1
-- row 1: '3' | #03-15-2024#
select CrewNumber, CrewDate from tblEquipmentCrewHistory where EquipmentID = 501 and CrewDescription =
'Blowers';

-- name: scan from the handheld
-- changes: 1
Insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values('503','3/14/2024 4:05:06 PM','IN');
-- row 1: #03-14-2024 16:05:06# | IN
select ScanTime, ScanStatus from tblEquipmentScan where EquipmentID = 503;

-- name: scan from the handheld in other date forms
-- changes: 1
Insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values('503','03-14-2024 16:05','A');
-- changes: 1
Insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values('503','2024-03-14 16:05:06','B');
-- changes: 1
Insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values('503','3/14/24','C');
-- rows: 3
-- row 1: A | #03-14-2024 16:05:00#
-- row 2: B | #03-14-2024 16:05:06#
-- row 3: C | #03-14-2024#
select ScanStatus, ScanTime from tblEquipmentScan where EquipmentID = 503 order by ScanStatus;

-- name: one column of any table
-- changes: 1
Update tblWoServiceUsed set StartTime = '08:00' where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Completed = -1 where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Completed = '1' where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Skip = False where NServiceUsedID = 1;
-- changes: 1
Update tblWorkorder set CompletedDate = #3/14/2024# where WorkorderNo = 1;
-- changes: 1
Update tblPart set Bar_Code = 'it''s' where PartID = 'P-200';
-- changes: 1
Update tblWoServiceUsed set [Note] = 'a''b' where NServiceUsedID = 1;
-- changes: 1
Update tblWoServiceUsed set Note = 'c' where NServiceUsedID = 1;
-- row 1: 08:00 | -1 | 0 | c
select StartTime, Completed, Skip, Note from tblWoServiceUsed where NServiceUsedID = 1;

-- name: one column without its value
-- error: 0x80040E14
Update tblWoServiceUsed set StartTime =  where NServiceUsedID = 1;

-- name: one column without its key
-- error: 0x80040E14
Update tblWoServiceUsed set StartTime = '08:00' where ;

-- name: one column of a table that does not exist
-- error: 0x80040E37
Update tblNowhere set StartTime = '08:00' where NServiceUsedID = 1;

-- name: one column that does not exist
-- error: 0x80040E10
Update tblWoServiceUsed set StartHour = '08:00' where NServiceUsedID = 1;

-- name: an apostrophe in a key
-- error: 0x80040E14
Update tblPart set Bar_Code = 'x' where PartID = 'P-O'5';

-- name: raise a column of any table
-- changes: 1
Update tblPart set Quantity = Quantity + 3 where PartID = 'P-O''5';
-- changes: 1
Update tblPart set Quantity = Quantity + -0.5 where PartID = 'P-O''5';
-- row 1: 7.5
select Quantity from tblPart where PartID = 'P-O''5';

-- name: raise a Null
-- changes: 1
Update tblPart set Quantity = Null where PartID = 'P-O''5';
-- changes: 1
Update tblPart set Quantity = Quantity + 3 where PartID = 'P-O''5';
-- row 1: null
select Quantity from tblPart where PartID = 'P-O''5';

-- name: one column by two keys
-- changes: 1
Update tblWoPartUsed set QuantityUsed = 2 where ServiceUsedID = 2 and PartID = 'P-100';
-- changes: 0
Update tblWoPartUsed set Used = -1 where ServiceUsedID = -1 and PartID = 'P-O''5';
-- changes: 1
Update tblEquipmentCount set CountValue = 101 where EquipmentID = 501 and ChangeDate = #01/10/2024#;

-- name: reading from the handheld
-- changes: 1
Insert into tblEquipmentCount(EquipmentID,Changedate,CountType,Countvalue)
values(501,#3/14/2024#,'Hours',205);
-- row 1: 1
Select Count(*) as RecCount from tblWoServiceUsed where Period = 'H' and EquipmentId = 502;
-- changes: 1
Update tblServiceUsed Set NextScheduledDate = #3/14/2024# Where ServiceUsedID = 1;

-- name: reading at a time of day
-- changes: 1
Insert into tblEquipmentCount(EquipmentID,Changedate,CountType,Countvalue)
values(501,#3/14/2024 2:30:00 PM#,'Hours',205);
-- row 1: #03-14-2024 14:30:00#
select ChangeDate from tblEquipmentCount where CountValue = 205;

-- name: is a row there
-- rows: 1
Select * from tblEquipment Where EquipmentID=501;

-- name: crew of an exchange file
-- row 1: 14 | 4 | O'Hara's crew
Select * from tblCrew Where CrewId= 14;

-- name: machine of an exchange file
-- changes: 1
Insert into tblEquipmentCrewHistory (EquipmentID,CrewNumber,CrewDescription)
values(503,'4','O''Hara''s crew');
-- changes: 1
update tblEquipment set Bar_Code='' where  EquipmentID <>  503 and Bar_Code='bc501';
-- changes: 1
Update tblEquipment set CrewId=14, Bar_Code='BC501'  Where  EquipmentID=503;
-- row 1: ''
select Bar_Code from tblEquipment where EquipmentID = 501;

-- name: bar code of a part
-- changes: 1
update tblPart set bar_code='' where  PartID <>  'P-O''5' and bar_code='PB100';

-- name: highest reading
-- columns: LastCount
-- row 1: 20400
SELECT max( tblEquipmentCount.CountValue) as [LastCount] from tblEquipmentCount where EquipmentID=502
and CountType='Miles';

-- name: reading of an exchange file
-- changes: 1
insert into tblEquipmentCount(EquipmentID,ChangeDate,  CountType,CountValue)
values('502',#3/14/2024#,'Miles','20500');

-- name: order of an exchange file
-- rows: 1
Select * from tblWorkOrder where WorkorderNo=1;
-- changes: 1
Update tblWorkorder set Complete=True, CompletedDate=#3/14/2024# Where WorkorderNo=1;
-- row 1: -1
select Complete from tblWorkorder where WorkorderNo = 1;

-- name: order of an exchange file without a date
-- error: 0x80040E14
Update tblWorkorder set Complete=True, CompletedDate=## Where WorkorderNo=1;

-- name: service of an exchange file
-- changes: 1
Update tblWoServiceUsed set  Completed=true  , StartTime='08:00', EndTime='09:15', Workhrs='01:15' ,
[Note]='it''s fine' Where WorkOrderNo=1 And NserviceUsedID=1 And ServiceID=902;
-- row 1: -1 | 08:00 | it's fine
select Completed, StartTime, [Note] from tblWoServiceUsed where NServiceUsedID = 1;

-- name: skipped service of an exchange file
-- changes: 1
Update tblWoServiceUsed set  Skip= true , [Note]='away' Where WorkOrderNo=1 And NserviceUsedID=1 And
ServiceID=902;

-- name: service of an exchange file that is neither
-- error: 0x80040E14
Update tblWoServiceUsed set , StartTime='08:00' Where WorkOrderNo=1 And NserviceUsedID=1 And
ServiceID=902;

-- name: part line of an exchange file
-- changes: 1
Update tblWoPartUsed set Used= True ,  QuantityUsed=5 Where ServiceUsedID=1 And PartID='p-100';
-- row 1: -1 | 5
select Used, QuantityUsed from tblWoPartUsed where ServiceUsedID = 1;

-- name: part of an exchange file
-- row 1: 5
Select Quantity from tblPart Where PartID='P-O''5';
-- changes: 1
Update tblPart Set Quantity=8, Bar_code='PB-5' where PartID='P-O''5';

-- name: order's line by its assigned service
-- row 1: 1
Select NserviceUsedID from tblWoServiceUsed where ServiceUsedId = 9;
