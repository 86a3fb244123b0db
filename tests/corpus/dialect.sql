-- What the words of the dialect mean.

-- name: plus with Null is Null
-- rows: 1
-- row 1: null | null | ab
select 'a' + Null as x, Description + 'b' as y, 'a' + 'b' as z from tblCrew where CrewID = 15;

-- name: plus of numbers adds and of texts joins
-- row 1: 3 | 12 | 3.5
select 1 + 2 as x, '1' + '2' as y, LaborEstimate + 2 as z from tblServices where ServiceID = 901;

-- name: cstr turns numbers into text
-- row 1: '1' | '12.5'
select cstr(CrewNumber) as x, cstr(12.5) as y from tblCrew where CrewID = 11;

-- name: equality ignores case
-- rows: 2
select EquipmentID from tblEquipment where EquipmentName = 'RIDER mower';

-- name: inequality ignores case
-- rows: 4
select EquipmentID from tblEquipment where EquipmentName <> 'RIDER mower';

-- name: literals compare without regard to case
-- rows: 1
select CrewID from tblCrew where 'ABC' = 'abc' and CrewID = 11;

-- name: in ignores case
-- rows: 1
select EquipmentID from tblEquipment where UnitNo in ('B-3', 'zz');

-- name: between on texts ignores case
-- rows: 3
select EquipmentID from tblEquipment where UnitNo between 'a-1' and 'A-4';

-- name: like ignores case
-- rows: 3
select EquipmentID from tblEquipment where UnitNo like 'a*';

-- name: like with one character
-- rows: 1
select EquipmentID from tblEquipment where UnitNo like '?-2';

-- name: like with a digit
-- rows: 2
select EquipmentID from tblEquipment where UnitNo like 'A-#';

-- name: like with a list of characters
-- rows: 2
select EquipmentID from tblEquipment where UnitNo like '[b-t]-#';

-- name: like takes percent and underscore as they are
-- rows: 0
select EquipmentID from tblEquipment where UnitNo like 'A_1' or UnitNo like 'A%';

-- name: not like
-- rows: 3
select EquipmentID from tblEquipment where UnitNo not like 'a*';

-- name: distinct ignores case
-- rows: 5
select distinct EquipmentName from tblEquipment;

-- name: grouping ignores case
-- rows: 5
select EquipmentName, Count(*) as N from tblEquipment group by EquipmentName;

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

-- name: names ignore case
-- rows: 1
SELECT TBLequipment.EQUIPMENTid FROM TBLEQUIPMENT WHERE unitNO = 'A-1';

-- name: accents count
-- rows: 0
select EquipmentID from tblEquipment where EquipmentName = 'Rider mówer';

-- name: texts keep accents and signs
-- changes: 1
update tblEquipment set EquipmentName =
'Zürich 50% _x_ *?#[a] "q" ''s'' \ / ; -- no' where EquipmentID = 501;
-- row 1: 'Zürich 50% _x_ *?#[a] "q" ''s'' \ / ; -- no'
select EquipmentName from tblEquipment where EquipmentID = 501;

-- name: quoted numbers against numeric columns
-- rows: 1
select EquipmentID from tblEquipment where EquipmentID = '501' and CrewID = '11' and AcquisitionCost >
'4999.99';

-- name: quoted numbers in a list
-- rows: 2
select EquipmentID from tblEquipment where EquipmentID in ('501', '502');

-- name: quoted numbers between
-- rows: 3
select EquipmentID from tblEquipment where EquipmentID between '501' and '503';

-- name: quoted number with blanks
-- rows: 1
select EquipmentID from tblEquipment where EquipmentID = ' 501 ';

-- name: quoted fraction into a whole column is rounded
-- changes: 1
update tblEquipmentCount set CountValue = '2.4' where EquipmentID = 504;
-- row 1: 2
select CountValue from tblEquipmentCount where EquipmentID = 504;

-- name: quoted numbers into numeric columns
-- changes: 1
update tblPart set Quantity = '1.25', Price = '3.1415', SupplierID = '2' where PartID = 'P-100';
-- row 1: 1.25 | 3.1415 | 2
select Quantity, Price, SupplierID from tblPart where PartID = 'P-100';

-- name: bare numbers into text columns
-- changes: 1
update tblEquipment set UnitNo = 77, EquipmentYear = 2024, Vin = 1.5 where EquipmentID = 506;
-- row 1: '77' | '2024' | '1.5'
select UnitNo, EquipmentYear, Vin from tblEquipment where EquipmentID = 506;

-- name: bare numbers against text columns
-- rows: 1
select EmployeeID from tblEmployee where Gender = 2;

-- name: text that is no number against a number
-- error: 0x80040E07
select EquipmentID from tblEquipment where EquipmentID = 'abc';

-- name: text that is no number into a number
-- error: 0x80040E07
update tblEquipment set CrewID = 'abc' where EquipmentID = 501;

-- name: empty text into a number
-- error: 0x80040E07
update tblEquipment set CrewID = '' where EquipmentID = 501;

-- name: text that is no date into a date
-- error: 0x80040E07
update tblEquipment set InstalledDate = 'soon' where EquipmentID = 501;

-- name: number too big for its column
-- error: 6
update tblEquipmentCount set CountValue = 99999999999 where EquipmentID = 504;

-- name: quoted number too big for its column
-- error: 6
update tblEquipmentCount set CountValue = '99999999999' where EquipmentID = 504;

-- name: text too long
-- error: 0x80040E57
update tblServices set Period = 'HH' where ServiceID = 901;

-- name: Yes/No written 1 reads -1
-- changes: 1
insert into tblPart(PartID,Description,Inactive,TrackInventory) values('YN1','x','1',1);
-- changes: 1
insert into tblPart(PartID,Description,Inactive,TrackInventory) values('YN2','x',True,'-1');
-- changes: 1
insert into tblPart(PartID,Description,Inactive,TrackInventory) values('YN3','x',Yes,-1);
-- changes: 1
insert into tblPart(PartID,Description,Inactive,TrackInventory) values('YN4','x','0',False);
-- changes: 1
insert into tblPart(PartID,Description,Inactive,TrackInventory) values('YN5','x',No,Null);
-- changes: 1
insert into tblPart(PartID,Description) values('YN6','x');
-- rows: 6
-- row 1: YN1 | -1 | -1
-- row 2: YN2 | -1 | -1
-- row 3: YN3 | -1 | -1
-- row 4: YN4 | 0 | 0
-- row 5: YN5 | 0 | 0
-- row 6: YN6 | 0 | 0
select PartID, Inactive, TrackInventory from tblPart where PartID like 'YN*' order by PartID;

-- name: Yes/No tested in all spellings
-- row 1: 1
select Count(*) as N from tblPart where Inactive = -1;
-- row 1: 1
select Count(*) as N from tblPart where Inactive = True;
-- row 1: 1
select Count(*) as N from tblPart where Inactive = Yes;
-- row 1: 4
select Count(*) as N from tblPart where Inactive <> -1;
-- row 1: 4
select Count(*) as N from tblPart where Inactive = No;
-- row 1: 4
select Count(*) as N from tblPart where Inactive=False;
-- row 1: 4
select Count(*) as N from tblPart where Inactive = '0';
-- row 1: 1
select Count(*) as N from tblPart where Inactive;
-- row 1: 4
select Count(*) as N from tblPart where not Inactive;

-- name: a Yes/No column by a parameter
-- params: 1 | 'P-200'
-- changes: 1
update tblPart set Inactive = ? where PartID = ?;
-- row 1: -1
select Inactive from tblPart where PartID = 'P-200';

-- name: 0/1 flags stay 1
-- changes: 1
update tblServiceUsed set Mon = '1', Tue = 1, SeparateWo = '1', Inactive = '1' where ServiceUsedID = 2;
-- row 1: 1 | 1 | 1 | 1
select Mon, Tue, SeparateWo, Inactive from tblServiceUsed where ServiceUsedID = 2;
-- rows: 0
select ServiceUsedID from tblServiceUsed where Inactive = -1;

-- name: a Yes/No of a row that is not there is Null
-- rows: 1
-- row 1: null
select tblWoPartUsed.Used from tblWoServiceUsed left join tblWoPartUsed on
tblWoServiceUsed.NServiceUsedID = tblWoPartUsed.ServiceUsedID where NServiceUsedID = 5;

-- name: dates are month first
-- rows: 1
-- row 1: #02-03-2024# | #02-03-2024# | #02-03-2024# | #02-03-2024# | #02-03-1999# | #02-03-2029# | #02-03-1930#
select #02-03-2024# as a, #2/3/2024# as b, #2-3-24# as c, #02/03/24# as d, #2/3/99# as e, #2/3/29# as f,
#2/3/30# as g from tblCrew where CrewID = 11;

-- name: dates with a time
-- row 1: #02-03-2024 16:05:06# | #02-03-2024 16:05:00# | #02-03-2024 00:00:00# | #02-03-2024 12:01:00#
select #2/3/2024 4:05:06 PM# as a, #02-03-2024 16:05# as b, #2/3/2024 12:00:00 AM# as c,
#2/3/2024 12:01 pm# as d from tblCrew where CrewID = 11;

-- name: a day is never taken for a month
-- error: 0x80040E14
select #25/1/2024# as a from tblCrew where CrewID = 11;

-- name: a date that is none
-- error: 0x80040E14
select #13/32/2024# as a from tblCrew where CrewID = 11;

-- name: quoted dates against date columns
-- rows: 1
select ServiceUsedID from tblServiceUsed where NextScheduledDate = '3/10/2024' and NextScheduledDate >
'03-09-2024' and NextScheduledDate < '2024-03-11';

-- name: dates plus and minus days
-- row 1: #03-12-2024# | #03-05-2024# | 5
select NextScheduledDate + 2 as a, NextScheduledDate - 5 as b, NextScheduledDate - #03-05-2024# as c
from tblServiceUsed where ServiceUsedID = 2;

-- name: now and today
-- row 1: #03-15-2024 09:30:00# | #03-15-2024# | #03-10-2024 09:30:00#
select Now() as a, Date() as b, now()-5 as c from tblCrew where CrewID = 11;

-- name: the window of the last 30 days
-- rows: 4
select ServiceUsedID from tblServiceUsed where NextScheduledDate >= Now()-30 and NextScheduledDate <=
Now() and Inactive = 0 and ServiceUsedID not in (select ServiceUsedID from tblWoServiceUsed);

-- name: differences of dates
-- row 1: 31 | -31 | 1 | 1 | 5
select DateDiff('d',#1/31/2024#,#3/2/2024#) as a, DateDiff('d',#3/2/2024#,#1/31/2024#) as b,
DateDiff('d',#3/1/2024 23:59:00#,#3/2/2024#) as c, DateDiff('yyyy',#12/31/2023#,#1/1/2024#) as d,
DateDiff('m',#10/31/2023#,#3/1/2024#) as e from tblCrew where CrewID = 11;

-- name: difference of a date and Null
-- row 1: null
select DateDiff('d',LastDatePerformed,Now()) as a from tblServiceUsed where ServiceUsedID = 1;

-- name: hour and minute of texts and dates
-- row 1: 1 | 5 | 16 | 59 | null
select Hour('1:05') as a, Minute('1:05') as b, Hour(#3/1/2024 4:59:00 PM#) as c,
Minute(#3/1/2024 4:59:00 PM#) as d, Hour(Null) as e from tblCrew where CrewID = 11;

-- name: hour and minute of a column
-- rows: 3
-- row 1: 1 | 30
-- row 2: 0 | 30
-- row 3: 2 | 5
select Hour(Workhrs) as h, Minute(Workhrs) as m from tblWOServiceUsedHistory where Workhrs is not null
order by ServiceUsedID;

-- name: hours above twenty-three
-- error: 0x80040E07
select Hour('25:00') as a from tblCrew where CrewID = 11;

-- name: division gives fractions
-- row 1: 0.5 | 2.5 | 3.33333333333333
select 1/2 as a, CrewNumber/2 as b, 10/3 as c from tblCrew where CrewID = 15;

-- name: whole columns divide into fractions
-- row 1: 1.45454545454545
select CountValue/110 as a from tblEquipmentCount where EquipmentID = 501 and CountValue = 160;

-- name: sum by count gives fractions
-- row 1: 132.5
select Sum(CountValue)/Count(*) as a from tblEquipmentCount where EquipmentID = 501;

-- name: average of whole numbers gives fractions
-- row 1: 132.5
select Avg(CountValue) as a from tblEquipmentCount where EquipmentID = 501;

-- name: money by a fraction keeps the fraction
-- row 1: 6.25 | 4.16666666666667
select Price/2 as a, Price/3 as b from tblPart where PartID = 'P-100';

-- name: division by zero
-- error: 11
select CountValue/(CountValue-CountValue) as a from tblEquipmentCount where EquipmentID = 504;

-- name: a branch that is not taken does not divide
-- row 1: 0
select IIf(CountValue-900=0,0,1/(CountValue-900)) as a from tblEquipmentCount where EquipmentID = 504;

-- name: order of the four operations
-- row 1: 14 | 20 | -1 | 1
select 2+3*4 as a, (2+3)*4 as b, 2-3 as c, 10 mod 3 as d from tblCrew where CrewID = 11;

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

-- name: double quotes hold text
-- row 1: it's | 'say "hi"'
select "it's" as a, "say ""hi""" as b from tblCrew where CrewID = 11;

-- name: comparison with Null finds nothing
-- rows: 0
select EquipmentID from tblEquipment where Vin = Null;

-- name: not equal leaves Null out
-- rows: 0
select EquipmentID from tblEquipment where Vin <> 'VIN502';

-- name: not in with Null in the list finds nothing
-- rows: 0
select PartID from tblPart where PartID not in (select PartID from tblServiceUsedPart);

-- name: not in without Null
-- rows: 3
select PartID from tblPart where PartID not in (select PartID from tblServiceUsedPart where PartID is
not null);

-- name: not in of a Null
-- rows: 1
select PartID from tblServiceUsedPart where PartID not in ('P-100');

-- name: First gives the one value
-- row 1: 60
select First(CostEstimate) as a from tblWOServiceUsedHistory where ServiceUsedID = 53;

-- name: First gives Null when there is none
-- rows: 1
-- row 1: null | 0
select First(CostEstimate) as a, Count(*) as b from tblWOServiceUsedHistory where ServiceUsedID = 999;

-- name: First of a group
-- rows: 2
-- has row: 501 | Hours
-- has row: 503 | Counts
select EquipmentID, First(CountType) as T from tblEquipmentCount where EquipmentID in (501,503) group by
EquipmentID;

-- name: TOP takes so many rows
-- rows: 2
-- row 1: 160
-- row 2: 150
select top 2 CountValue from tblEquipmentCount where EquipmentID = 501 order by CountValue desc;

-- name: TOP with a tie takes a row of the tie at least
-- rows >= 1
-- row 1: #03-01-2024#
select top 1 ChangeDate from tblEquipmentCount where EquipmentID = 501 order by ChangeDate desc;

-- name: TOP beyond the rows
-- rows: 5
select top 100 CrewID from tblCrew order by CrewID;

-- name: aggregates leave Null out
-- row 1: 6 | 2 | 12 | null
select Count(*) as a, Count(LicenseRenewalDate) as b, Sum(LeasePeriod) + 12 as c, Max(LeaseStartDate) as
d from tblEquipment;

-- name: Switch without a match is Null
-- row 1: null | x
select Switch(CrewNumber = 9,'a') as a, Switch(CrewNumber = 9,'a',CrewNumber = 1,'x') as b from tblCrew
where CrewID = 11;

-- name: Switch with texts of several lengths
-- rows: 5
-- row 1: one
-- row 2: a much longer text
-- row 3: null
select Switch(CrewNumber = 1,'one',CrewNumber = 2,'a much longer text') as a from tblCrew order by
CrewID;

-- name: IIf with Null as the condition takes the other
-- row 1: no
select IIf(Description = 'x','yes','no') as a from tblCrew where CrewID = 15;

-- name: IIf with a text and an empty one
-- row 1: 'text  '
select IIf(CrewID = 11,'text  ','') as a from tblCrew where CrewID = 11;

-- name: unknown column
-- error: 0x80040E10
select NoSuch from tblEquipment;

-- name: unknown column of a table
-- error: 0x80040E10
select tblEquipment.NoSuch from tblEquipment;

-- name: unknown table
-- error: 0x80040E37
select * from tblNoSuch;

-- name: unknown table of a join
-- error: 0x80040E37
select * from tblEquipment left join tblNoSuch on tblEquipment.EquipmentID = tblNoSuch.EquipmentID;

-- name: a bare word as a value
-- error: 0x80040E10
select EquipmentID from tblEquipment where EquipmentName = Mower;

-- name: unknown table in an insert
-- error: 0x80040E37
insert into tblNoSuch(a) values(1);

-- name: unknown column in an insert
-- error: 0x80040E10
insert into tblCrew(NoSuch) values(1);

-- name: nonsense
-- error: 0x80040E14
select from where;

-- name: a text left open
-- error: 0x80040E14
select * from tblEquipment where UnitNo = 'A-1;

-- name: more values than columns
-- error: 0x80040E14
insert into tblCrew(CrewNumber,Description) values(1,'a','b');

-- name: an insert may choose an autonumber
-- changes: 1
insert into tblCrew(CrewID,CrewNumber,Description) values(500,50,'chosen');
-- row 1: 500
select CrewID from tblCrew where CrewNumber = 50;

-- name: insert from a query
-- changes: 2
insert into tblTempServicePart(PartID,Quantity,Price) select PartID, QuantityRequired, Price from
tblEquipmentPart where EquipmentID = 501;

-- name: delete in both spellings
-- changes: 1
delete * from tblTempServicePart;
-- changes: 0
Delete from tblTempServicePart;

-- name: a derived table in round brackets
-- rows: 3
SELECT X.T, X.N FROM (SELECT CountType AS T, Count(*) AS N FROM tblEquipmentCount GROUP BY CountType) AS
X;

-- name: a derived table in square brackets
-- rows: 3
-- has row: Hours | 7
-- has row: Miles | 3
SELECT X.T, X.N FROM [SELECT CountType AS T, Count(*) AS N FROM tblEquipmentCount GROUP BY CountType].
AS X;

-- name: a derived table without a name
-- rows: 3
SELECT T, N FROM (SELECT CountType AS T, Count(*) AS N FROM tblEquipmentCount GROUP BY CountType) order
by N desc;

-- name: a derived table joined
-- rows: 2
select tblCrew.CrewNumber, X.N from (select CrewID, Count(*) as N from tblEquipment where CrewID in
(11,12) group by CrewID) as X inner join tblCrew on X.CrewID = tblCrew.CrewID;

-- name: union drops doubles and union all keeps them
-- rows: 6
select CrewID from tblCrew union select CrewID from tblEquipment;
-- rows: 11
select CrewID from tblCrew union all select CrewID from tblEquipment;

-- name: union of texts ignores case
-- rows: 5
select EquipmentName from tblEquipment union select EquipmentName from tblEquipment;

-- name: union of Null and a number in order
-- rows: 2
-- row 1: null
-- row 2: 5
select Null as x from tblCrew where CrewID = 11 union select CrewNumber from tblCrew where CrewID = 15
order by x;

-- name: order by position and by alias
-- row 1: 14
select CrewID, Description as D from tblCrew where Description is not null order by 1 desc;
-- row 1: 13
select CrewID, Description as D from tblCrew where Description is not null order by D;

-- name: Null stands first in rising order and last in falling
-- row 1: 15
-- row 2: 13
select CrewID from tblCrew order by Description;
-- row 5: 15
select CrewID from tblCrew order by Description desc;

-- name: aliases with blanks and reserved words
-- columns: Part Category | Date | Count | Select | Order | Value | Note | Unit #
-- rows: 1
select 1 as [Part Category], 2 as [Date], 3 as [Count], 4 as [Select], 5 as [Order], 6 as [Value], 7 as
[Note], 8 as [Unit #] from tblCrew where CrewID = 11;

-- name: an alias too long for the engine
-- columns: The whole long name of a column that somebody gave it without thinking of any limit
-- row 1: 1
select 1 as [The whole long name of a column that somebody gave it without thinking of any limit] from
tblCrew where CrewID = 11;

-- name: all columns of one table of a join
-- rows: 1
select tblCrew.*, tblEquipment.UnitNo from tblCrew inner join tblEquipment on tblCrew.CrewID =
tblEquipment.CrewID where tblEquipment.EquipmentID = 502;

-- name: table aliases
-- rows: 1
-- row 1: T-2 | 2
select e.UnitNo, c.CrewNumber from tblEquipment as e left join tblCrew c on e.CrewID = c.CrewID where
e.EquipmentID = 502;

-- name: a bracketed table and column
-- rows: 1
select [tblEquipment].[UnitNo] from [tblEquipment] where [tblEquipment].[EquipmentID] = 502;

-- name: tables joined by a comma
-- rows: 1
select tblEquipment.UnitNo from tblEquipment, tblCrew where tblEquipment.CrewID = tblCrew.CrewID and
CrewNumber = 2;

-- name: left join keeps its rows and the condition drops them
-- rows: 6
select tblEquipment.EquipmentID from tblEquipment left join tblCrew on tblEquipment.CrewID =
tblCrew.CrewID;
-- rows: 5
select tblEquipment.EquipmentID from tblEquipment left join tblCrew on tblEquipment.CrewID =
tblCrew.CrewID where tblCrew.CrewNumber > 0;
-- rows: 6
select tblEquipment.EquipmentID from tblEquipment left join tblCrew on tblEquipment.CrewID =
tblCrew.CrewID where tblCrew.CrewNumber > 0 or tblCrew.CrewNumber is null;
-- rows: 1
select tblEquipment.EquipmentID from tblEquipment left join tblCrew on tblEquipment.CrewID =
tblCrew.CrewID where not tblCrew.CrewNumber in (1,4) and tblEquipment.Inactive = 0;
-- rows: 2
select tblEquipment.EquipmentID from tblEquipment left join tblCrew on tblEquipment.CrewID =
tblCrew.CrewID where IIf(tblCrew.CrewNumber > 3 or tblCrew.CrewNumber is null,1,0) = 1;

-- name: right join
-- rows: 7
select tblCrew.CrewID, tblEquipment.EquipmentID from tblEquipment right join tblCrew on
tblEquipment.CrewID = tblCrew.CrewID;

-- name: exists
-- rows: 3
select CrewID from tblCrew where exists (select * from tblEquipment where tblEquipment.CrewID =
tblCrew.CrewID);

-- name: parameters of all kinds
-- params: 'a-1' | 501 | #03-15-2024# | null
-- rows: 1
select EquipmentID from tblEquipment where UnitNo = ? and EquipmentID = ? and InstalledDate < ? and (Vin
= ? or Vin is null);

-- name: parameters into an insert
-- params: 503 | #03-14-2024 10:15:00# | 'it''s "x"'
-- changes: 1
insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values(?,?,?);
-- rows: 1
-- row 1: #03-14-2024 10:15:00# | it's "x"
select ScanTime, ScanStatus from tblEquipmentScan where EquipmentID = 503;

-- name: a text parameter against a number
-- params: '501'
-- rows: 1
select UnitNo from tblEquipment where EquipmentID = ?;

-- name: a text parameter that is no number
-- params: 'x'
-- error: 0x80040E07
select UnitNo from tblEquipment where EquipmentID = ?;

-- name: one shape with other values
-- rows: 1
select EquipmentID from tblEquipment where UnitNo = 'A-1';
-- rows: 0
select EquipmentID from tblEquipment where UnitNo = 'none';
-- rows: 1
select EquipmentID from tblEquipment where UnitNo = 'T-2';

-- name: one shape with other patterns
-- rows: 3
select EquipmentID from tblEquipment where UnitNo like 'A*';
-- rows: 2
select EquipmentID from tblEquipment where UnitNo like 'A-#';
-- rows: 2
select EquipmentID from tblEquipment where UnitNo like 'T*';

-- name: a long list of numbers
-- rows: 1
select EquipmentID from tblEquipment where EquipmentID in
(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31,32,33,34,35,36,37,38,39,40,501);

-- name: minus before a number
-- rows: 1
-- row 1: -5 | -1.5 | 5
select -5 as a, -1.5 as b, - -5 as c from tblCrew where CrewID = 11 and -CrewNumber = -1;

-- name: a number in scientific form
-- row 1: 0.00012 | 1200
select 1.2E-4 as a, 1.2e3 as b from tblCrew where CrewID = 11;

-- name: a row that is locked by nobody is updated twice
-- changes: 1
update tblCrew set Description = 'a' where CrewID = 11;
-- changes: 1
update tblCrew set Description = Description + 'b' where CrewID = 11;
-- row 1: ab
select Description from tblCrew where CrewID = 11;

-- name: a column sorts before an output name
-- changes: 1
insert into tblCrew(CrewID,CrewNumber,Description) values(510,10,'Tenth');
-- rows: 6
-- row 1: 11
-- row 2: 12
-- row 6: 510 | '10   Tenth'
Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewNumber] from tblCrew order by CrewNumber;

-- name: a text longer than its column finds nothing
-- rows: 0
select EquipmentID from tblEquipment where UnitNo =
'A-1 and then some more than the thirty characters of a unit number';

-- name: a number beyond its column finds nothing
-- rows: 0
select EquipmentID from tblEquipment where EquipmentID = 99999999999 or EquipmentID = '99999999999';

-- name: a fraction finds no whole number
-- rows: 0
select EquipmentID from tblEquipment where EquipmentID = 501.5 or EquipmentID = '501.5';

-- name: fractions bound whole numbers
-- rows: 2
select EquipmentID from tblEquipment where EquipmentID > 500.5 and EquipmentID < '502.5';

-- name: like of a Null finds nothing
-- rows: 1
select EquipmentID from tblEquipment where Vin like '*';

-- name: condition of a null column in a not
-- rows: 0
select EquipmentID from tblEquipment where not (Vin = 'VIN502') and not (Vin <> 'VIN502');

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

-- name: sum of quantities times money
-- row 1: 118.25
select Sum(QuantityUsed*Price) as a from tblWoPartUsed;

-- name: and binds before or
-- rows: 2
select EquipmentID from tblEquipment where UnitNo = 'A-1' or UnitNo = 'T-2' and Inactive = '0' or UnitNo
= 'A-4' and Inactive = '0';

-- name: not binds before and
-- rows: 4
select EquipmentID from tblEquipment where not UnitNo = 'A-1' and Inactive = '0';

-- name: tabs stand for blanks
-- rows: 1
select	EquipmentID
from tblEquipment
where UnitNo='A-1';
