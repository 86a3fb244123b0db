-- Start, shared procedures, options, users, error list, grid layouts, clean-up.

-- name: highest value of a column
-- rows: 1
-- row 1: 3
SELECT max(SupplierID) From tblSupplier;

-- name: highest service number
-- row 1: 4
SELECT max(JobNO) From tblServices;

-- name: highest value of an empty table is Null
-- changes: 1
delete from tblTempServicePart;
-- rows: 1
-- row 1: null
SELECT max(Quantity) From tblTempServicePart;

-- name: highest item of the lookup lists
-- row 1: 166
SELECT max(ItemID) From tblIndicator;

-- name: count of all rows
-- columns: RecCount
-- row 1: 6
Select Count(*) as RecCount from tblEquipment;

-- name: count with a condition
-- row 1: 5
Select Count(*) as RecCount from tblEquipment where Inactive = '0';

-- name: count of a machine's meter services on orders
-- row 1: 1
Select Count(*) as RecCount from tblWoServiceUsed where Period = 'H' and EquipmentId = 502;

-- name: use of a text key with an apostrophe
-- rows: 1
Select * from tblEquipmentPart where PartID = 'P-O''5';

-- name: use of a number key
-- rows: 2
Select * from tblWorkOrder where EquipmentID = 502;

-- name: duplicate text in other letter case
-- rows: 1
Select * from tblEquipment Where UnitNo = 'A-10';

-- name: duplicate number
-- rows: 1
Select * from tblcrew Where crewnumber = 4;

-- name: service on an open order
-- rows: 1
Select ServiceUsedID from tblWoServiceUsed Left join tblWorkOrder on tblWoServiceUsed.Workorderno =
tblWorkorder.WorkorderNo Where ServiceUSedID = 9;

-- name: service on no order
-- rows: 0
Select ServiceUsedID from tblWoServiceUsed Left join tblWorkOrder on tblWoServiceUsed.Workorderno =
tblWorkorder.WorkorderNo Where ServiceUSedID = 2;

-- name: country by name
-- rows: 1
-- row 1: United States
Select itemName From tblIndicator where ParentID = 1 and itemname = 'united states';

-- name: whole table
-- rows: 6
Select * from tblEquipment;

-- name: whole table with condition and order
-- rows: 3
Select * from tblServiceUsed Where CrewID = 13 Order by ServiceUsedID;

-- name: states of all countries
-- rows: 3
-- columns: ItemID | ParentID | ItemName | Show | FSize
-- row 1: 103 | 101 | OH | -1 | 0
-- row 2: 105 | 102 | ON | -1 | 0
-- row 3: 104 | 101 | PA | -1 | 0
Select * from tblindicator Where parentid in(select itemid from tblindicator where parentid=1) Order by
itemname;

-- name: locations of a site
-- rows: 1
Select * from tblLocation Where Site = 1;

-- name: locations of no site
-- rows: 0
Select * from tblLocation Where Site = -1;

-- name: unknown table
-- error: 0x80040E37
Select * from tblNowhere;

-- name: unknown column in an order
-- error: 0x80040E10
Select * from tblEquipment Order by NoSuchColumn;

-- name: members of a list that are offered
-- rows: 2
-- row 1: 151
-- row 2: 152
Select * from tblIndicator where ParentID = 10 and Show = -1 Order by ItemID;

-- name: all members of a list by name
-- rows: 3
-- row 1: 152
-- row 2: 151
-- row 3: 153
Select * from tblIndicator where ParentID = 10 Order by ItemName;

-- name: crews with number and description
-- columns: CrewID | CrewNumber
-- rows: 5
-- row 1: 11 | '1   Mowing'
-- row 2: 12 | '2   Trucks'
-- row 4: 14 | '4   O''Hara''s crew'
-- row 5: 15 | null
Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewNumber] from tblCrew order by CrewNumber;

-- name: crew of an assigned service
-- row 1: 11
Select CrewID from tblServiceUsed where ServiceUsedID = 1;

-- name: crew of a service on an order
-- row 1: 12
Select CrewID from tblWoserviceUsed where NServiceUsedID = 6;

-- name: read an option
-- row 1: 5
Select itemvalue From tblSysoption where Sysoption = 'count_reading_delay';

-- name: option keys of one workstation meet in one row
-- row 1: 03/15/24
Select itemvalue From tblSysoption where Sysoption = '0123456789ABCDEF0123456789ABCDEFEqDateTo';

-- name: change an option
-- changes: 1
Update tblSysOption set itemValue = 'O''Hara & Sons' where SysOption = 'GEN_COMPANY_NAME';
-- row 1: O'Hara & Sons
Select itemvalue From tblSysoption where Sysoption = 'GEN_COMPANY_NAME';

-- name: add an option with the longest key
-- changes: 1
Insert into tblSysOption(itemValue,SysOption) values('03/15/2024',
'0123456789ABCDEF0123456789ABCDEFSERVICE HISTORY REPORT TIMES DATE FROM');
-- row 1: 03/15/2024
Select itemvalue From tblSysoption where Sysoption =
'0123456789ABCDEF0123456789ABCDEFservice history report times date from';

-- name: the same option twice
-- error: -2147467259
Insert into tblSysOption(itemValue,SysOption) values('1','securityonoff');

-- name: newest reading
-- columns: CountValue
-- rows: 1
-- row 1: 160
Select top 1 countvalue from tblequipmentcount where equipmentid = 501 and counttype = 'Hours' order by
changedate desc,countvalue desc;

-- name: newest reading by date before value
-- row 1: 20300
Select top 1 countvalue from tblequipmentcount where equipmentid = 502 and counttype = 'miles' order by
changedate desc,countvalue desc;

-- name: no reading of that kind
-- rows: 0
Select top 1 countvalue from tblequipmentcount where equipmentid = 501 and counttype = 'Days' order by
changedate desc,countvalue desc;

-- name: labour cost of a crew
-- columns: Expr1
-- row 1: 22.5
SELECT Sum(tblEmployee.LaborCost)/Count(tblEmployee.EmployeeID) AS Expr1 FROM tblEmployee LEFT JOIN
tblCrew ON tblEmployee.Crew = tblCrew.CrewID where  tblCrew.CrewID=11 and (Inactive = '0' and
IncludeWoList = '1');

-- name: labour cost of a crew without counted employees
-- rows: 1
-- row 1: null
SELECT Sum(tblEmployee.LaborCost)/Count(tblEmployee.EmployeeID) AS Expr1 FROM tblEmployee LEFT JOIN
tblCrew ON tblEmployee.Crew = tblCrew.CrewID where tblCrew.CrewID=12 and (Inactive = '0' and
IncludeWoList = '1');

-- name: new labour estimates of a crew
-- changes: 4
update tblServiceUsed set CostEstimate = (LaborEstimate * 22.5) where crewID = 11;
-- changes: 2
update tblWoServiceUsed set CostEstimate = (LaborEstimate * 22.5) where crewID = 11;
-- row 1: 33.75
select CostEstimate from tblServiceUsed where ServiceUsedID = 1;
-- row 1: 22.5
select CostEstimate from tblWoServiceUsed where NServiceUsedID = 2;

-- name: crew history takes today
-- changes: 1
Insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription) values(503,'4',
'O''Hara''s crew');
-- rows: 1
-- row 1: 4 | O'Hara's crew | #03-15-2024#
select CrewNumber, CrewDescription, CrewDate from tblEquipmentCrewHistory where EquipmentID = 503;

-- name: crew history of a machine without a crew
-- changes: 1
Insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription) values(503,'','');

-- name: save an error
-- changes: 1
insert into tblErrorList(ErrNumber,ErrDescription,LineNumber,UserMsg,ModuleName,ProcedureName,
ErrDateTime,UserEmail) values('-2147217865','Can''t find table','0','','General Function',
'GetTableInfo','3/15/2024 9:30:00 AM','');
-- rows: 1
SELECT ErrNumber, LineNumber, ModuleName, ProcedureName, ErrDescription, UserMsg, ErrDateTime FROM
tblErrorList where ErrNumber = '-2147217865';

-- name: log in
-- rows: 1
select * from tblUser where UserName = 'ADMIN' and Password = 'SECRET';

-- name: log in with a wrong password
-- rows: 0
select * from tblUser where UserName = 'jane' and Password = 'guess';

-- name: log in with an apostrophe in the name
-- error: 0x80040E14
select * from tblUser where UserName = 'o'hara' and Password = 'x';

-- name: rights of a user
-- rows: 1
select * from tbluser where username = 'JANE';

-- name: change the password
-- changes: 1
Update tblUser set [password] = 'new''one' where username = 'JANE';
-- row 1: new'one
select [Password] from tblUser where UserName = 'jane';

-- name: list of users
-- rows: 1
-- columns: UserName | Password | EmployeeID
-- row 1: jane | Pass1 | E1
Select UserName,Password,EmployeeID from tblUser where Username <> 'Admin';

-- name: new user has no rights
-- changes: 1
insert into tblUser(UserName,[Password],EmployeeID) values('pat','p''w','E2');
-- row 1: null | null
select EqAdd, InvPartHistory from tblUser where UserName = 'pat';

-- name: change a user
-- changes: 1
update tblUser set UserName = 'janet', [Password] = 'x', EmployeeID = '' where UserName = 'jane';

-- name: delete a user
-- changes: 1
Delete from tblUser where UserName = 'jane';

-- name: all rights of a user
-- changes: 1
update tblUser set EqAdd = '1', EqMod = '1', EqDel = '0', SerAdd = '1', SerMod = '1', SerDel = '0',
PaAdd = '1', PaMod = '1', PaDel = '0', EqList = '1', EqDetail = '1', EqCountSheet = '1', ExpOnEq = '1',
EqCrewHistory = '1', EqUtilization = '1', EqScanHistory = '1', InspDatReading = '1',
LicRenDateReading = '1', WOHistory = '1', SerList = '1', SerEqName = '1', SerHistory = '1',
SerHistoryTime = '1', InvReport = '1', InvReorderReport = '1', InvOrUpSer = '1', InvPartUsage = '1',
InvPartHistory = '1' Where Username = 'jane';
-- row 1: 1 | 0 | 1
select EqAdd, EqDel, InvPartHistory from tblUser where UserName = 'jane';

-- name: stored layout of a grid
-- rows: 2
-- row 1: Service No | 900 | 0 | 1
-- row 2: Name | 2000 | 1 | 0
select FieldName, Width, FPosition, SortType from  tblgridsetting where formname='frmequipment' and
Tablename='grdService' order by fposition ;

-- name: stored layout with all columns
-- rows: 2
select * from  tblgridsetting where formname='frmEquipment' and Tablename='grdService' order by
fposition ;

-- name: replace the layout of a grid
-- changes: 2
Delete from  tblgridsetting where  formname='frmEquipment' and Tablename='grdService';
-- changes: 1
INSERT INTO tblGridSetting(Tablename,Width,FieldName,FormName,FPosition, SortType)  values(
'grdService','120','Qty Req','frmEquipment','3','2');

-- name: fields offered for a table
-- rows: 3
Select Distinct * from tblTableFields where Tablename = 'tblpart';

-- name: fields offered for parts without two
-- rows: 2
Select Distinct * from tblTableFields where Tablename = 'tblPart' And (FieldDesc<>'PartS' And
FieldDesc<>'Inactive');

-- name: is an option of the update there
-- rows: 1
Select * from tblSysOption where SysOption ='COUNT_READING_DELAY';

-- name: is a field of the update there
-- rows: 1
Select * from tblTableFields where FieldName ='PartID' and TableName='tblPart';

-- name: is the built-in user there
-- rows: 1
Select * from tblUser where UserName ='admin';

-- name: clean up parts
-- changes: 1
insert into tblPart(PartID,Description) values('','nameless');
-- changes: 1
Delete from tblPart where (Partid is Null) or (Partid = "");
-- changes: 0
Delete from tblEquipmentPart where (Partid is Null) or (Partid = "");
-- changes: 0
Delete from tblServicesPart where (Partid is Null) or (Partid = "");
-- changes: 1
Delete from tblServiceUsedPart where (Partid is Null) or (Partid = "");
-- changes: 0
Delete from tblWoPartUsed where (Partid is Null) or (Partid = "");
-- changes: 0
Delete from tblWoPartHistory where (Partid is Null) or (Partid = "");

-- name: what a backup must hold
-- rows: 6
Select * from tblEquipment;
