-- What the words of the dialect mean.

-- name: grouping counts both spellings
-- rows: 1
-- row 1: 2
select Count(*) as N from tblEquipment group by EquipmentName having Count(*) > 1;

-- name: order ignores case
-- row 1: E1
-- row 2: E2
-- row 3: E3
-- row 4: E4
select EmployeeID from tblEmployee order by Lastname;

-- name: quoted numbers in a list
-- rows: 2
select EquipmentID from tblEquipment where EquipmentID in ('501', '502');

-- name: a Yes/No of a row that is not there is Null
-- rows: 1
-- row 1: null
select tblWoPartUsed.Used from tblWoServiceUsed left join tblWoPartUsed on
tblWoServiceUsed.NServiceUsedID = tblWoPartUsed.ServiceUsedID where NServiceUsedID = 5;

-- name: dates with a time
-- row 1: #02-03-2024 16:05:06# | #02-03-2024 16:05# | #02-03-2024# | #02-03-2024 12:01#
select #2/3/2024 4:05:06 PM# as a, #02-03-2024 16:05# as b, #2/3/2024 12:00:00 AM# as c,
#2/3/2024 12:01 pm# as d from tblCrew where CrewID = 11;

-- name: quoted dates against date columns
-- rows: 1
select ServiceUsedID from tblServiceUsed where NextScheduledDate = '3/10/2024' and NextScheduledDate >
'03-09-2024' and NextScheduledDate < '2024-03-11';

-- name: difference of a date and Null
-- row 1: null
select DateDiff('d',LastDatePerformed,Now()) as a from tblServiceUsed where ServiceUsedID = 1;

-- name: money by a fraction keeps the fraction
-- row 1: 6.25 | 4.16666666666667
select Price/2 as a, Price/3 as b from tblPart where PartID = 'P-100';

-- name: empty text and Null differ
-- changes: 1
update tblEquipment set Vin = '' where EquipmentID = 503;
-- rows: 1
-- row 1: 503
select EquipmentID from tblEquipment where Vin = '';
-- rows: 1
select EquipmentID from tblEquipment where Vin = "";
-- rows: 4
select EquipmentID from tblEquipment where Vin is null;

-- name: not in with Null in the list finds nothing
-- rows: 0
select PartID from tblPart where PartID not in (select PartID from tblServiceUsedPart);

-- name: First gives Null when there is none
-- rows: 1
-- row 1: null | 0
select First(CostEstimate) as a, Count(*) as b from tblWOServiceUsedHistory where ServiceUsedID = 999;

-- name: an insert may choose an autonumber
-- changes: 1
insert into tblCrew(CrewID,CrewNumber,Description) values(500,50,'chosen');
-- row 1: 500
select CrewID from tblCrew where CrewNumber = 50;

-- name: union of texts ignores case
-- rows: 5
select EquipmentName from tblEquipment union select EquipmentName from tblEquipment;

-- name: Null stands first in rising order and last in falling
-- row 1: 15
-- row 2: 13
select CrewID from tblCrew order by Description;
-- row 5: 15
select CrewID from tblCrew order by Description desc;

-- name: right join
-- rows: 7
select tblCrew.CrewID, tblEquipment.EquipmentID from tblEquipment right join tblCrew on
tblEquipment.CrewID = tblCrew.CrewID;

-- name: exists
-- rows: 3
select CrewID from tblCrew where exists (select * from tblEquipment where tblEquipment.CrewID =
tblCrew.CrewID);

-- name: update from other columns of the row
-- changes: 1
update tblPart set QtyMin = QtyMax, QtyMax = QtyMin where PartID = 'P-100';
-- row 1: 20 | 5
select QtyMin, QtyMax from tblPart where PartID = 'P-100';

-- name: update with a subquery
-- changes: 5
update tblPart set Quantity = (select Count(*) from tblWoPartUsed where tblWoPartUsed.PartID =
tblPart.PartID);
-- rows: 2
-- row 1: P-100 | 2
-- row 2: P-200 | 1
select PartID, Quantity from tblPart where PartID in ('P-100','P-200') order by PartID;
