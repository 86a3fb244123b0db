-- Parts, parts of a machine, check-in, part selection, quick find of a part.

-- name: committed quantity
-- row 1: 7
Select Sum(QuantityRequired) from tblWoPartUsed Where PartID = 'P-100';

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

-- name: check-in list of parts to reorder
-- rows: 4
SELECT tblPart.PartID as [Part Number], tblPart.Description, tblPart.Quantity as [Qty on Hand] FROM
tblPart where  Quantity<=QtyMin;

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

-- name: quick find of active parts
-- columns: PartID | Part Number | Description | Part Category | Qty on Hand | Price | Supplier | Inactive
-- rows: 4
-- row 1: P-100 | P-100 | Oil filter | Filters | 10 | 12.5 | Tool Barn | 0
SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , tblIndicator.ItemName AS
[Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, tblSupplier.Name AS Supplier,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID where Inactive = 0 order by
tblPart.[PartID]  ASC;

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

-- name: quick find list of locations
-- rows: 2
-- row 1: 2 | Bay 3 | Truck bay | South Yard
SELECT tblLocation.LocationID, tblLocation.LocationName, tblLocation.Description, tblSite.SiteName AS
[Site] FROM tblLocation LEFT JOIN tblSite ON tblLocation.Site = tblSite.SiteID order by
tblLocation.[LocationName]  ASC;
