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

-- name: fields offered for parts without two
-- rows: 2
Select Distinct * from tblTableFields where Tablename = 'tblPart' And (FieldDesc<>'PartS' And
FieldDesc<>'Inactive');
