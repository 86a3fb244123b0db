-- Parts, parts of a machine, check-in, part selection, quick find of a part.

-- name: all parts
-- rows: 5
-- row 1: P-100
-- row 4: p-400
select * from tblPart order by PartID;

-- name: part categories of a table that does not exist
-- error: 0x80040E37
SELECT * From  tblPartCategory Order by PartCategoryID;

-- name: all suppliers
-- rows: 3
-- row 1: 2
SELECT * From  tblSupplier Order by Name;

-- name: new part
-- changes: 1
insert into tblPart(PartID, Description, PartCategoryID, Quantity, Price, SupplierID, QtyMax, QtyMin,
Inactive, Notes, Bin, Bar_Code, TrackInventory) values('P-O''9','9" hose','151','0','12.34','0','0','0',
'0','it''s new','','','1');
-- row 1: 9" hose | 12.34 | 0 | -1
select Description, Price, Inactive, TrackInventory from tblPart where PartID = 'p-o''9';

-- name: the same part in other letters
-- error: -2147467259
insert into tblPart(PartID, Description) values('P-400','Rags again');

-- name: change a part
-- changes: 1
update tblPart set Description='Oil filter',PartCategoryID='152',Quantity='10.25',Price='13',
SupplierID='2',PartID='P-101',QtyMax='20',QtyMin='5',Inactive='1',Notes='',Bin='B9',Bar_Code='',
TrackInventory='0' where PartID='P-100';
-- row 1: 10.25 | -1 | 0
select Quantity, Inactive, TrackInventory from tblPart where PartID = 'P-101';

-- name: delete a part
-- changes: 1
Delete from tblPart where PartID='P-O''5';

-- name: committed quantity
-- row 1: 7
Select Sum(QuantityRequired) from tblWoPartUsed Where PartID = 'P-100';

-- name: no committed quantity
-- rows: 1
-- row 1: null
Select Sum(QuantityRequired) from tblWoPartUsed Where PartID = 'P-O''5';

-- name: parts of a machine
-- columns: Part Number | Description | Qty Req | Extended Cost
-- rows: 2
-- has row: P-100 | Oil filter | 2 | 12.5
-- has row: P-O'5 | O-ring "big" | 4 | 0.1
Select tblPart.Partid as [Part Number],Description, tblEquipmentPart.QuantityRequired as [Qty Req]
,tblEquipmentPart.Price as [Extended Cost] from tblEquipmentPart Left Join tblPart on
tblEquipmentPart.PartID = tblPart.PartID where EquipmentID = 501;

-- name: parts join without regard to case
-- rows: 1
-- row 1: P-200 | Belt
Select tblPart.Partid as [Part Number],Description, tblEquipmentPart.QuantityRequired as [Qty Req]
,tblEquipmentPart.Price as [Extended Cost] from tblEquipmentPart Left Join tblPart on
tblEquipmentPart.PartID = tblPart.PartID where EquipmentID = 502;

-- name: add a part to a machine
-- changes: 1
insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price,SupplierID) values('503',
'P-O''5','1.50','0.1','2');

-- name: remove a part from a machine
-- changes: 1
Delete From tblEquipmentPart where EquipmentId = 501 and PartID = 'P-O''5';

-- name: check-in list
-- columns: Part Number | Description | Qty on Hand
-- rows: 5
SELECT tblPart.PartID as [Part Number], tblPart.Description, tblPart.Quantity as [Qty on Hand] FROM
tblPart;

-- name: check-in list of parts to reorder
-- rows: 4
SELECT tblPart.PartID as [Part Number], tblPart.Description, tblPart.Quantity as [Qty on Hand] FROM
tblPart where  Quantity<=QtyMin;

-- name: check in
-- changes: 1
Update tblPart Set Quantity=12.5 where  PartID='P-O''5';

-- name: parts to choose from
-- columns: Part Number | Description | Part Category | Qty on Hand | Price | Supplier | Inactive | SupplierID
-- rows: 4
-- row 1: P-100 | Oil filter | Filters | 10 | 12.5 | Tool Barn | 0 | 1
-- has row: p-400 | Rags | null | 0 | 0.25 | spare house | 0 | 3
SELECT tblPart.PartID as [Part Number] , tblPart.Description, tblIndicator.ItemName as [Part Category],
tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name as [Supplier], tblPart.Inactive,
tblPart.SupplierID FROM (tblPart LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID)
LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID Where tblpart.Inactive=No order
by tblpart.PartID;

-- name: parts to choose from without some
-- rows: 2
-- row 1: P-200
-- row 2: p-400
SELECT tblPart.PartID as [Part Number] , tblPart.Description, tblIndicator.ItemName as [Part Category],
tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name as [Supplier], tblPart.Inactive,
tblPart.SupplierID FROM (tblPart LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID)
LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID Where tblpart.Inactive=No and
tblpart.partId not in ( 'p-100', 'P-O''5' ) order by tblpart.PartID;

-- name: forget a picked part
-- changes: 1
Delete from tblTempServicePart where PartId='p-100';

-- name: quick find of active parts
-- columns: PartID | Part Number | Description | Part Category | Qty on Hand | Price | Supplier | Inactive
-- rows: 4
-- row 1: P-100 | P-100 | Oil filter | Filters | 10 | 12.5 | Tool Barn | 0
SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , tblIndicator.ItemName AS
[Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID where Inactive = 0 order by
tblPart.[PartID]  ASC;

-- name: quick find of active parts of a category
-- rows: 2
SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , tblIndicator.ItemName AS
[Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID where Inactive = 0 and
PartCategoryID = 151 order by tblPart.[PartID]  ASC;

-- name: quick find of all parts of a category
-- rows: 3
SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , tblIndicator.ItemName AS
[Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID where PartCategoryID = 151 order by
tblPart.[PartID]  ASC;

-- name: quick find of all parts
-- rows: 5
-- row 1: P-100
SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , tblIndicator.ItemName AS
[Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID order by tblPart.[PartID]  ASC;

-- name: quick find list of parts with both kinds
-- rows: 5
-- row 1: Belt
SELECT tblPart.Description, tblPart.PartID, tblPart.PartID AS [Part Number], tblIndicator.ItemName AS
[Part Category], tblPart.Quantity AS [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID where Inactive = -1 or Inactive = 0
order by tblPart.[Description]  ASC;

-- name: quick find list of machines
-- columns: EquipmentID | Unit No | Name | Type | Make | Model | Serial No | Site | Location | Assigned to | Inactive | License
-- rows: 5
-- row 1: 501 | A-1 | Rider mower | Mower | Fernhill | F-48 | SN501 | North Yard | Shed A | '1   Mowing' | 0 | null
-- row 3: 503 | b-3 | Back-pack blower | Blower | null | null | null | null | null | '' | 0 | null
SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo AS [Unit No], tblEquipment.EquipmentName AS Name,
Etype.ItemName AS Type, Make.ItemName AS Make, Model.ItemName AS Model, tblEquipment.EquipmentSerialNo
AS [Serial No], tblSite.SiteName AS Site, tblLocation.LocationName AS Location,
IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '+tblCrew.Description),'') AS [Assigned to],
tblEquipment.Inactive, tblEquipment.LicenseNo AS [License] FROM (((((tblEquipment LEFT JOIN tblIndicator
AS Etype ON tblEquipment.EquipmentType = Etype.ItemID) LEFT JOIN tblIndicator AS Make ON
tblEquipment.EquipmentMake = Make.ItemID) LEFT JOIN tblIndicator AS Model ON tblEquipment.EquipmentModel
= Model.ItemID) LEFT JOIN tblSite ON tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON
tblEquipment.LocationID = tblLocation.LocationID) LEFT JOIN tblCrew ON tblEquipment.CrewID =
tblCrew.CrewID where tblEquipment.Inactive  = '0' order by tblEquipment.[UnitNo]  ASC;

-- name: quick find list of machines with both kinds
-- rows: 6
SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo AS [Unit No] FROM tblEquipment where
tblEquipment.Inactive  = '1' or tblEquipment.Inactive  = '0' order by tblEquipment.[UnitNo]  ASC;

-- name: quick find list of machines without some
-- rows: 3
SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo AS [Unit No] FROM tblEquipment where
tblEquipment.Inactive  = '0' and  EquipmentID not in (501,502) order by tblEquipment.[UnitNo]  ASC;

-- name: quick find list of machines of both kinds without some
-- rows: 5
SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo AS [Unit No] FROM tblEquipment where
tblEquipment.Inactive  = '1' or tblEquipment.Inactive  = '0' and  EquipmentID not in (501) order by
tblEquipment.[UnitNo]  ASC;

-- name: quick find list of employees
-- columns: EmployeeID | Employee Number | Last Name | First Name | Initial Name | Address | City | State | Zip | Country | Email | Phone | CellPhone | Pager | License No | Site | Skills | Crew | Employee Position | Labor Cost | Labor Rate | Inactive
-- rows: 4
-- row 1: E1 | E1 | Ames | Ann | null | null | Dayton | OH | null | United States | null | null | null | null | null | North Yard | null | 1 | Mechanic | 20 | 40 | 0
SELECT tblEmployee.EmployeeID, tblEmployee.EmployeeID AS [Employee Number], tblEmployee.Lastname AS
[Last Name], tblEmployee.FirstName AS [First Name], tblEmployee.InitialName AS [Initial Name],
tblEmployee.Address, tblEmployee.City, States.ItemName AS State, tblEmployee.Zip, Countries.ItemName AS
Country, tblEmployee.Email, tblEmployee.Phone, tblEmployee.CellPhone, tblEmployee.Pager,
tblEmployee.LicenseNo AS [License No], tblSite.SiteName AS Site, tblEmployee.Skills, tblCrew.CrewNumber
AS Crew, Positions.ItemName AS [Employee Position], tblEmployee.LaborCost AS [Labor Cost],
tblEmployee.LaborRate AS [Labor Rate], tblEmployee.Inactive FROM ((((tblEmployee LEFT JOIN tblIndicator
AS States ON tblEmployee.State = States.ItemID) LEFT JOIN tblIndicator AS Countries ON
tblEmployee.Country = Countries.ItemID) LEFT JOIN tblSite ON tblEmployee.Site = tblSite.SiteID) LEFT
JOIN tblCrew ON tblEmployee.Crew = tblCrew.CrewID) LEFT JOIN tblIndicator AS Positions ON
tblEmployee.EmpPosition = Positions.ItemID order by tblEmployee.[EmployeeID]  ASC;

-- name: quick find list of locations
-- rows: 2
-- row 1: 2 | Bay 3 | Truck bay | South Yard
SELECT tblLocation.LocationID, tblLocation.LocationName, tblLocation.Description, tblSite.SiteName AS
[Site] FROM tblLocation LEFT JOIN tblSite ON tblLocation.Site = tblSite.SiteID order by
tblLocation.[LocationName]  ASC;

-- name: quick find list of suppliers
-- columns: SupplierID | Name | Phone | Fax | Address | Tax | Terms | Credit Limit | Email | WebSite | Address2 | City | State | Zip | Atten | License No | Contact Name
-- rows: 3
-- row 3: 1 | Tool Barn | (937) 555-0101 | null | null | 123 | 30 days | 5000 | sales@toolbarn.test | null | null | null | OH
SELECT tblSupplier.SupplierID, tblSupplier.Name, tblSupplier.Phone, tblSupplier.Fax,
tblSupplier.Address, tblSupplier.Tax, tblSupplier.Terms, tblSupplier.CreditLimit AS [Credit Limit],
tblSupplier.Email, tblSupplier.WebSite, tblSupplier.Address2, tblSupplier.City, tblIndicator.ItemName AS
State, tblSupplier.Zip, tblSupplier.Atten, tblSupplier.LicenseNo AS [License No],
tblSupplier.ContactName AS [Contact Name] FROM tblSupplier LEFT JOIN tblIndicator ON tblSupplier.State =
tblIndicator.ItemID order by tblSupplier.[Name]  ASC;
