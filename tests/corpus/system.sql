-- Start, shared procedures, options, users, error list, grid layouts, clean-up.

-- name: highest value of an empty table is Null
-- changes: 1
delete from tblTempServicePart;
-- rows: 1
-- row 1: null
SELECT max(Quantity) From tblTempServicePart;

-- name: count of all rows
-- columns: RecCount
-- row 1: 6
Select Count(*) as RecCount from tblEquipment;

-- name: service on an open order
-- rows: 1
Select ServiceUsedID from tblWoServiceUsed Left join tblWorkOrder on tblWoServiceUsed.Workorderno =
tblWorkorder.WorkorderNo Where ServiceUSedID = 9;

-- name: country by name
-- rows: 1
-- row 1: United States
Select itemName From tblIndicator where ParentID = 1 and itemname = 'united states';

-- name: states of all countries
-- rows: 3
-- columns: ItemID | ParentID | ItemName | Show | FSize
-- row 1: 103 | 101 | OH | -1 | 0
-- row 2: 105 | 102 | ON | -1 | 0
-- row 3: 104 | 101 | PA | -1 | 0
Select * from tblindicator Where parentid in(select itemid from tblindicator where parentid=1) Order by
itemname;

-- name: crews with number and description
-- columns: CrewID | CrewNumber
-- rows: 5
-- row 1: 11 | '1   Mowing'
-- row 2: 12 | '2   Trucks'
-- row 4: 14 | '4   O''Hara''s crew'
-- row 5: 15 | null
Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewNumber] from tblCrew order by CrewNumber;

-- name: newest reading
-- columns: CountValue
-- rows: 1
-- row 1: 160
Select top 1 countvalue from tblequipmentcount where equipmentid = 501 and counttype = 'Hours' order by
changedate desc,countvalue desc;

-- name: labour cost of a crew
-- columns: Expr1
-- row 1: 22.5
SELECT Sum(tblEmployee.LaborCost)/Count(tblEmployee.EmployeeID) AS Expr1 FROM tblEmployee LEFT JOIN
tblCrew ON tblEmployee.Crew = tblCrew.CrewID where  tblCrew.CrewID=11 and (Inactive = '0' and
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

-- name: stored layout of a grid
-- rows: 2
-- row 1: Service No | 900 | 0 | 1
-- row 2: Name | 2000 | 1 | 0
select FieldName, Width, FPosition, SortType from  tblgridsetting where formname='frmequipment' and
Tablename='grdService' order by fposition ;

-- name: fields offered for parts without two
-- rows: 2
Select Distinct * from tblTableFields where Tablename = 'tblPart' And (FieldDesc<>'PartS' And
FieldDesc<>'Inactive');

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
