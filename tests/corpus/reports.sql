-- The queries of the reports, without a filter and with those that the filter screens build.

-- name: equipment list with all filters
-- columns: EquipmentID | UnitNo | EquipmentName | EquipmentType | EquipmentMake | EquipmentModel | SiteName | LocationName | CrewNumber | Description
-- rows: 2
-- has row: 501 | A-1
-- has row: 506 | a-10
SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo, tblEquipment.EquipmentName, tblIndicator.ItemName
AS EquipmentType, tblIndicator_1.ItemName AS EquipmentMake, tblIndicator_2.ItemName AS EquipmentModel,
tblSite.SiteName, tblLocation.LocationName, tblCrew.CrewNumber, tblCrew.Description FROM
(((((tblEquipment LEFT JOIN tblIndicator ON tblEquipment.EquipmentType = tblIndicator.ItemID) LEFT JOIN
tblIndicator AS tblIndicator_1 ON tblEquipment.EquipmentMake = tblIndicator_1.ItemID) LEFT JOIN
tblIndicator AS tblIndicator_2 ON tblEquipment.EquipmentModel = tblIndicator_2.ItemID) LEFT JOIN tblSite
ON tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON tblEquipment.LocationID =
tblLocation.LocationID) LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID Where
tblIndicator.ItemName  in ('mower', 'Truck') and tblCrew.CrewNumber  in ('1', '3') and SiteName  in
('North yard') and Inactive = '0' ORder by tblEquipment.EquipmentName ASC;

-- name: equipment list by crew
-- columns: LocationName | UnitNo | SiteName | EquipmentName | EquipmentMake | EquipmentModel | Description | EquipmentSerialNo | LicenseNo | Vin
-- rows: 5
-- has row: Bay 3 | T-2 | South Yard | Dump truck | Hollis | H-250 | 2 - Trucks | SN502 | OH123 | VIN502
-- has row: null | b-3 | null | Back-pack blower | null | null | '' | null | null | null
SELECT tblLocation.LocationName, tblEquipment.UnitNo, tblSite.SiteName, tblEquipment.EquipmentName,
tblIndicator_1.ItemName AS EquipmentMake, tblIndicator_2.ItemName AS EquipmentModel,
IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+' - '+tblCrew.Description),'') AS Description,
tblEquipment.EquipmentSerialNo, tblEquipment.LicenseNo, tblEquipment.VIN FROM (((((tblEquipment LEFT
JOIN tblIndicator ON tblEquipment.EquipmentType = tblIndicator.ItemID) LEFT JOIN tblIndicator AS
tblIndicator_1 ON tblEquipment.EquipmentMake = tblIndicator_1.ItemID) LEFT JOIN tblIndicator AS
tblIndicator_2 ON tblEquipment.EquipmentModel = tblIndicator_2.ItemID) LEFT JOIN tblSite ON
tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON tblEquipment.LocationID =
tblLocation.LocationID) LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID where Inactive = '0';

-- name: equipment list of meters with all filters
-- columns: UnitNo | EquipmentName | CountType | LastDate | LastCount | Make | Model | CrewNumber
-- rows: 1
-- row 1: A-1 | Rider mower | Hours
SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipmentCount.CountType,
Max(tblEquipmentCount.ChangeDate) AS LastDate, Max(tblEquipmentCount.CountValue) AS LastCount,
tblIndicator_1.ItemName AS Make, tblIndicator_2.ItemName AS Model, tblCrew.CrewNumber FROM
((((tblEquipment INNER JOIN tblEquipmentCount ON tblEquipment.EquipmentID =
tblEquipmentCount.EquipmentID) LEFT JOIN tblIndicator ON tblEquipment.EquipmentType =
tblIndicator.ItemID) LEFT JOIN tblIndicator AS tblIndicator_1 ON tblEquipment.EquipmentMake =
tblIndicator_1.ItemID) LEFT JOIN tblIndicator AS tblIndicator_2 ON tblEquipment.EquipmentModel =
tblIndicator_2.ItemID) LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID GROUP BY
tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipmentCount.CountType, tblIndicator.ItemName,
tblIndicator_1.ItemName, tblIndicator_2.ItemName, tblCrew.CrewNumber, tblEquipment.Inactive Having
tblIndicator.ItemName  in ('MOWER') and tblCrew.CrewNumber  in ('1', '2') and Inactive = '0';

-- name: names of equipment details
-- row 1: Truck | Hollis | H-250 | Northfield Works | Acme Leasing | Kesslin | K-12 | Diesel | Flatbed | Long | Automatic | Tool Barn
SELECT Type.ItemName AS TypeName, Make.ItemName AS MakeName, Model.ItemName AS ModelName,
Manufacture.ItemName AS ManufactureName, LeaseCompany.ItemName AS LeaseCompanyName, EngineMake.ItemName
AS EngineMakeName, EngineModel.ItemName AS EngineModelName, EngineFuel.ItemName AS EngineFuelName,
Body.ItemName AS BodyName, Chassis.ItemName AS ChassisName, Trans.ItemName AS TransName,
tblSupplier.Name FROM (((((((((((tblEquipment LEFT JOIN tblIndicator AS Type ON
tblEquipment.EquipmentType = Type.ItemID) LEFT JOIN tblIndicator AS Make ON tblEquipment.EquipmentMake =
Make.ItemID) LEFT JOIN tblIndicator AS Model ON tblEquipment.EquipmentModel = Model.ItemID) LEFT JOIN
tblIndicator AS Manufacture ON tblEquipment.ManufactureID = Manufacture.ItemID) LEFT JOIN tblIndicator
AS LeaseCompany ON tblEquipment.LeaseCompany = LeaseCompany.ItemID) LEFT JOIN tblIndicator AS EngineMake
ON tblEquipment.EngineMake = EngineMake.ItemID) LEFT JOIN tblIndicator AS EngineModel ON
tblEquipment.EngineModel = EngineModel.ItemID) LEFT JOIN tblIndicator AS EngineFuel ON
tblEquipment.EngineFuelType = EngineFuel.ItemID) LEFT JOIN tblIndicator AS Body ON tblEquipment.Body =
Body.ItemID) LEFT JOIN tblIndicator AS Chassis ON tblEquipment.Chassis = Chassis.ItemID) LEFT JOIN
tblIndicator AS Trans ON tblEquipment.Trans = Trans.ItemID) LEFT JOIN tblSupplier ON
tblEquipment.SupplierID = tblSupplier.SupplierID  where  tblEquipment.UnitNo  in('T-2', 'O''x') and
Inactive = '0' Order by tblEquipment.EquipmentName;

-- name: equipment crew history of names and crews
-- rows: 1
-- row 1: Rider mower
SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, tblEquipmentCrewHistory.CrewNumber,
tblEquipmentCrewHistory.CrewDescription, tblEquipmentCrewHistory.CrewDate FROM tblEquipmentCrewHistory
LEFT JOIN tblEquipment ON tblEquipmentCrewHistory.EquipmentID = tblEquipment.EquipmentID
Where  tblEquipment.EquipmentName  in ('Rider Mower', 'Jim''s trailer')
and   tblEquipmentCrewHistory.CrewNumber   in ('2') Order by tblEquipment.EquipmentName ;

-- name: expenses on equipment
-- columns: UnitNo | EquipmentName | Labor Cost | Part Cost | ServiceHrs | ServiceMin
-- rows: 2
-- row 1: T-2 | Dump truck | 60 | 50 | null | null
-- row 2: A-1 | Rider mower | 85 | 72.5 | 3 | 65
SELECT EquipmentExpense.UnitNo, EquipmentExpense.EquipmentName,
Sum(EquipmentExpense.FirstOfCostEstimate) AS [Labor Cost], Sum(EquipmentExpense.PartCost) AS
[Part Cost], Sum(EquipmentExpense.Hrs) AS ServiceHrs, Sum(EquipmentExpense.Mins) AS ServiceMin FROM
[SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipment.Inactive,
tblWOServiceUsedHistory.ServiceUsedID, First(tblWOServiceUsedHistory.CostEstimate) AS
FirstOfCostEstimate, Sum(tblWoPartHistory.Price*tblWoPartHistory.QuantityUsed) AS PartCost,
First(Hour(workhrs)) AS Hrs, First(Minute(workhrs)) AS Mins FROM (tblWOServiceUsedHistory INNER JOIN
tblEquipment ON tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN
tblWoPartHistory ON tblWOServiceUsedHistory.ServiceUsedID = tblWoPartHistory.ServiceusedID GROUP BY
tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipment.Inactive,
tblWOServiceUsedHistory.ServiceUsedID]. AS EquipmentExpense GROUP BY EquipmentExpense.UnitNo,
EquipmentExpense.EquipmentName Order by   EquipmentExpense.EquipmentName, EquipmentExpense.UnitNo  ;

-- name: equipment utilization
-- columns: EquipmentName | UnitNo | EquipmentID | CrewNumber | ItemName | Count | NoofDays | perDay | Utilization
-- rows: 3
-- has row: Rider mower | A-1 | 501 | 1 | Mower | 60 | 51 | 1.17647058823529 | 0.0490196078431373
-- has row: Dump truck | T-2 | 502 | 2 | Truck | 60 | 60 | 1 | 0.0416666666666667
-- has row: Old mower | A-4 | 504 | 1 | Mower | 0 | 0 | 0 | 0
SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, tblEquipment.EquipmentID, tblCrew.CrewNumber,
tblIndicator.ItemName, Max(tblEquipmentCount.CountValue)-Min(tblEquipmentCount.CountValue) AS [Count],
Max(tblEquipmentCount.ChangeDate)-Min(tblEquipmentCount.ChangeDate) AS NoofDays,
IIf(Max(tblEquipmentCount.ChangeDate)-Min(tblEquipmentCount.ChangeDate)=0,0,(Max(tblEquipmentCount.CountValue)-Min(tblEquipmentCount.CountValue))/(Max(tblEquipmentCount.ChangeDate)-Min(tblEquipmentCount.ChangeDate))) AS perDay, IIf(Max(tblEquipmentCount.ChangeDate)-Min(tblEquipmentCount.ChangeDate)=0,0,(Max(tblEquipmentCount.CountValue)-Min(tblEquipmentCount.CountValue))/(Max(tblEquipmentCount.ChangeDate)-Min(tblEquipmentCount.ChangeDate)))/24 AS Utilization FROM ((tblEquipmentCount LEFT JOIN tblEquipment ON tblEquipmentCount.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID) LEFT JOIN tblIndicator ON tblEquipment.EquipmentType = tblIndicator.ItemID Where tblEquipmentCount.CountType = 'Hours' GROUP BY tblEquipment.EquipmentName, tblEquipment.UnitNo, tblEquipment.EquipmentID, tblCrew.CrewNumber, tblIndicator.ItemName;

-- name: utilization of one machine
-- columns: UnitNo | EquipmentName | ChangeDate | CountType | CountValue | PrevDate | PrevCount | NoOfDays | CountChange | AvgUse | Utilizarion
-- rows: 4
-- row 1: A-1 | Rider mower | #01-10-2024# | Hours | 100 | null | null | null | null | null | null
-- row 2: A-1 | Rider mower | #02-01-2024# | Hours | 120 | #01-10-2024# | 100 | 22 | 20 | 0.909090909090909 | 0.0378787878787879
-- has row: A-1 | Rider mower | #03-01-2024# | Hours | 150 | #02-01-2024# | 120 | 29 | 30 | 1.03448275862069 | 0.0431034482758621
-- has row: A-1 | Rider mower | #03-01-2024# | Hours | 160 | #02-01-2024# | 150 | 29 | 10
SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, a.ChangeDate, a.CountType, a.CountValue, (Select
Max(ChangeDate) From tblEquipmentCount Where EquipmentID = a.EquipmentID and ChangeDate < a.ChangeDate)
AS PrevDate, (Select Max(CountValue) From tblEquipmentCount Where EquipmentID = a.EquipmentID and
CountValue < a.CountValue) AS PrevCount, DateDiff('d',(Select Max(ChangeDate) From tblEquipmentCount
Where EquipmentID = a.EquipmentID and ChangeDate < a.ChangeDate),a.ChangeDate) AS NoOfDays,
a.CountValue-(Select Max(CountValue) From tblEquipmentCount Where EquipmentID = a.EquipmentID and
CountValue < a.CountValue) AS CountChange, (a.CountValue-(Select Max(CountValue) From tblEquipmentCount
Where EquipmentID = a.EquipmentID and CountValue < a.CountValue))/DateDiff('d',(Select Max(ChangeDate)
From tblEquipmentCount Where EquipmentID = a.EquipmentID and ChangeDate < a.ChangeDate),a.ChangeDate) AS
AvgUse, ((a.CountValue-(Select Max(CountValue) From tblEquipmentCount Where EquipmentID = a.EquipmentID
and CountValue < a.CountValue))/DateDiff('d',(Select Max(ChangeDate) From tblEquipmentCount Where
EquipmentID = a.EquipmentID and ChangeDate < a.ChangeDate),a.ChangeDate))/24 AS Utilizarion FROM
tblEquipmentCount AS a LEFT JOIN tblEquipment ON a.EquipmentID = tblEquipment.EquipmentID  Where
(a.ChangeDate >= #01/01/24# and a.ChangeDate <= #03/15/24#)  and tblEquipment.UnitNo  in ('A-1') ORDER
BY a.ChangeDate, a.ChangeDate ;

-- name: last scans by unit number
-- columns: EquipmentName | UnitNo | Scantime1
-- rows: 1
-- row 1: Rider mower | A-1 | #03-14-2024 16:40#
Select EquipmentName,UnitNo,ScanTime1 from (Select tblEquipment.EquipmentName,tblEquipment.UnitNo,
Max(scanTime) as Scantime1  FROM tblEquipment LEFT JOIN tblEquipmentScan ON tblEquipment.EquipmentID =
tblEquipmentScan.EquipmentID where UnitNo in (Select tblEquipment.UnitNo FROM tblEquipment LEFT JOIN
tblEquipmentScan ON tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID  Where (ScanTime >=
#03/01/24# and ScanTime <= #03/10/24#) and UnitNo in ('A-1', 'T-2')) Group
by  tblEquipment.EquipmentName,tblEquipment.UnitNo)  order by scanTime1,UnitNo;

-- name: machines not scanned in the last days
-- rows: 5
-- has row: Dump truck | T-2 | #02-01-2024 08:00#
-- has row: Jim's trailer | TR5 | null
-- row 1: rider MOWER | a-10 | null
Select EquipmentName,UnitNo,ScanTime1 from (SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo,
ScanTime as ScanTime1 FROM tblEquipment Left JOIN tblEquipmentScan ON tblEquipment.EquipmentID =
tblEquipmentScan.EquipmentID Where tblEquipment.EquipmentID not in (SELECT EquipmentID FROM
tblEquipmentScan Where (ScanTime > #03/13/2024# and ScanTime <= #03/15/2024#))) order by
UnitNo,ScanTime1;

-- name: service history
-- columns: WorkorderNo | UnitNo | EquipmentName | ServiceName | CompleteDate | CostEstimate | ServiceUsedID | PartCost
-- rows: 4
-- has row: 91 | A-1 | Rider mower | Oil change | #01-10-2024# | 33.75 | 51 | 72.5
-- has row: 91 | A-1 | Rider mower | Blade check | #01-10-2024# | 11.25 | 52 | null
-- has row: 92 | T-2 | Dump truck | Inspection | #02-15-2024# | 60 | 53 | 50
-- has row: 93 | A-1 | Rider mower | Oil change | #02-20-2024# | 40 | 54 | 0
SELECT tblWOServiceUsedHistory.WorkorderNo, tblEquipment.UnitNo, tblEquipment.EquipmentName,
tblWOServiceUsedHistory.ServiceName, tblWOServiceUsedHistory.CompleteDate,
tblWOServiceUsedHistory.CostEstimate, tblWOServiceUsedHistory.ServiceUsedID, Sum(Price*QuantityUSed) AS
PartCost FROM (tblWOServiceUsedHistory LEFT JOIN tblEquipment ON tblWOServiceUsedHistory.EquipmentID =
tblEquipment.EquipmentID) LEFT JOIN tblWopartHistory ON tblWOServiceUsedHistory.ServiceUsedID =
tblWopartHistory.ServiceusedID Where (CompleteDate >= #01/01/24# and CompleteDate <= #03/15/24#)  GROUP
BY tblWOServiceUsedHistory.WorkorderNo, tblEquipment.UnitNo, tblEquipment.EquipmentName,
tblWOServiceUsedHistory.ServiceName, tblWOServiceUsedHistory.CompleteDate,
tblWOServiceUsedHistory.CostEstimate, tblWOServiceUsedHistory.ServiceUsedID;

-- name: services by equipment
-- columns: UnitNo | EquipmentName | Name | EInterval | Period | NextScheduledDate | LastDatePerformed | CrewNumber | CrewDescription | CostCenter
-- rows: 14
SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblServiceUsed.Name, tblServiceUsed.EInterval,
Switch( Period= 'D' ,'Days', Period='W','Weeks', Period='M','Months', Period='Y','Years',
Period='C','Counts', Period='H','Hours', Period='K','Kilometers', Period='I','Miles') AS Period,
tblServiceUsed.NextScheduledDate, tblServiceUsed.LastDatePerformed, tblCrew.CrewNumber,
tblCrew.Description AS CrewDescription, tblCostCenter.Description AS CostCenter FROM ((tblServiceUsed
LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblCrew ON
tblServiceUsed.CrewID = tblCrew.CrewID) LEFT JOIN tblCostCenter ON tblServiceUsed.CostCenterID =
tblCostCenter.CostCenterID Order by  tblServiceUsed.Name;

-- name: list of services
-- rows: 3
-- row 1: Blade check | W | 1 | 0.5 | Grounds | 11.25 | 1
SELECT tblServices.Name, tblServices.Period, tblServices.EInterval, tblServices.LaborEstimate,
tblCostCenter.Description, tblServices.CostEstimate, tblCrew.CrewNumber FROM (tblServices INNER JOIN
tblCrew ON tblServices.CrewID = tblCrew.CrewID) INNER JOIN tblCostCenter ON tblServices.CostCenterID =
tblCostCenter.CostCenterID Order by tblServices.Name;

-- name: service history times by equipment
-- columns: EquipmentName | UnitNo | CompleteDate | StartTime | EndTime | Workhrs | ServiceName | jobNo | shrs | sMin
-- rows: 4
-- row 1: Dump truck | T-2 | #02-15-2024# | null | null | null | Inspection | 3 | null | null
-- has row: Rider mower | A-1 | #01-10-2024# | 08:00 | 09:30 | 1:30 | Oil change | 1 | 1 | 30
-- has row: Rider mower | A-1 | #02-20-2024# | null | null | 2:05 | Oil change | 1 | 2 | 5
SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, tblWOServiceUsedHistory.CompleteDate,
tblWOServiceUsedHistory.StartTime, tblWOServiceUsedHistory.EndTime, tblWOServiceUsedHistory.Workhrs,
tblWOServiceUsedHistory.ServiceName, tblWOServiceUsedHistory.jobNo, IIf(Workhrs is null or
Workhrs='',NULL,Hour(Workhrs)) AS shrs, IIf(Workhrs is null or Workhrs='',NULL,Minute(Workhrs)) AS sMin
FROM tblWOServiceUsedHistory INNER JOIN tblEquipment ON tblWOServiceUsedHistory.EquipmentID =
tblEquipment.EquipmentID Where (tblWOServiceUsedHistory.Completedate >= #01/01/24# and CompleteDate <=
#03/15/24#) Order By tblEquipment.EquipmentName;

-- name: inventory of categories and suppliers
-- rows: 1
-- row 1: P-O'5
SELECT tblPart.PartID, tblPart.Description, tblPart.Quantity, tblPart.Price, tblPart.Bin,
tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID)
LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID Where ItemName  in ('Filters',
'Oil') and  name  in ('O''Brien Parts') and  Inactive =0 and TrackInventory=0 Order by tblPart.PartID;

-- name: reorder of categories and suppliers
-- rows: 1
-- row 1: P-100
SELECT tblPart.PartID, tblPart.Description, tblPart.Quantity, tblPart.QtyMax AS QtyRequired,
tblIndicator.ItemName, tblSupplier.Name, tblPart.Inactive FROM (tblPart LEFT JOIN tblSupplier ON
tblPart.SupplierID = tblSupplier.SupplierID) LEFT JOIN tblIndicator ON tblPart.PartCategoryID =
tblIndicator.ItemID Where Inactive = 0 and TrackInventory=0 and (((Quantity-(Select
Sum(QuantityRequired) from tblWoPartUsed Where PartID = tblPart.PartID))<QtyMin) OR (Quantity<QtyMin))
and ItemName  in ('Filters') and  name  in ('Tool Barn');

-- name: order for upcoming services
-- columns: PartID | Description | ItemName | SupplierName | Current Inventory | Quantity Required
-- rows: 2
-- has row: P-100 | Oil filter | Filters | Tool Barn | 10 | 4
-- has row: P-200 | Belt | Belts | O'Brien Parts | 2 | 2
SELECT tblServiceUsedPart.PartID, tblPart.Description, tblIndicator.ItemName, tblSupplier.Name AS
SupplierName, Sum(tblPart.Quantity)/Count(tblServiceUsedPart.PartID) AS [Current Inventory],
Sum(tblServiceUsedPart.QuantityRequired) AS [Quantity Required] FROM (((tblServiceUsedPart INNER JOIN
tblPart ON tblServiceUsedPart.PartID = tblPart.PartID) LEFT JOIN tblIndicator ON tblPart.PartCategoryID
= tblIndicator.ItemID) LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID) LEFT JOIN
tblServiceUsed ON tblServiceUsedPart.ServiceUsedID = tblServiceUsed.ServiceUsedID  Where (
tblServiceUsed.NextScheduledDate  >= #03/01/24# and tblServiceUsed.NextScheduledDate <=
#04/30/24#)  GROUP BY tblServiceUsedPart.PartID, tblPart.Description, tblIndicator.ItemName,
tblSupplier.Name;

-- name: part usage
-- columns: UnitNo | EquipmentName | Name | PartID | JobNo | Crew
-- rows: 2
-- has row: A-1 | Rider mower | Blade check | P-100 | 2 | '1   Mowing'
-- has row: b-3 | Back-pack blower | Blade check | P-100 | 2 | '3   Blowers'
SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblServiceUsed.Name, tblServiceUsedPart.PartID,
tblServiceUsed.JobNo, cstr(tblCrew.CrewNumber) + '   ' + tblCrew.Description AS Crew FROM
((tblServiceUsedPart LEFT JOIN tblServiceUsed ON tblServiceUsedPart.ServiceUsedID =
tblServiceUsed.ServiceUsedID) LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID =
tblEquipment.EquipmentID) LEFT JOIN tblCrew ON tblServiceUsed.CrewID =
tblCrew.CrewID  where  tblServiceUsedPart.PartID  in('p-100', 'P-O''5');

-- name: part history in short
-- columns: partID | Description | Qty | Bin
-- rows: 2
-- has row: P-100 | Oil filter | 5 | B1
-- has row: P-200 | Belt | 2 | B2
SELECT tblWoPartHistory.PartID, tblWoPartHistory.Description, Sum(tblWoPartHistory.QuantityUsed) AS Qty,
tblpart.Bin FROM (tblWOServiceUsedHistory INNER JOIN tblWoPartHistory ON
tblWOServiceUsedHistory.ServiceUsedID = tblWoPartHistory.ServiceusedID) LEFT JOIN tblpart ON
tblWoPartHistory.PartID = tblpart.PartID Where (tblWOServiceUsedHistory.Completedate >= #01/01/24# and
tblWOServiceUsedHistory.Completedate <= #03/15/24#)  GROUP BY tblWoPartHistory.PartID,
tblWoPartHistory.Description, tblpart.Bin;

-- name: work order history in detail
-- rows: 3
-- has row: 91 | A-1 | Rider mower | North Yard | Shed A | F-48 | Mower | Fernhill | '1   Mowing' | Oil change | 51 | '1   Mowing' | #01-10-2024# | 33.75 | 1.5 | 08:00 | 09:30 | 100 | #01-10-2024# | ok | P-200 | Belt | 2 | 2 | 30 | 60 | 0
SELECT tblWOServiceUsedHistory.WorkOrderNo, tblEquipment.UnitNo, tblEquipment.EquipmentName,
tblSite.SiteName, tblLocation.LocationName, tblEquipmentModel.ItemName AS EquipmentModel,
tblEquipmentType.ItemName AS EquipmentType, tblEquipmentMake.ItemName AS EquipmentMake,
IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '+tblCrew.Description),'') AS Assigncrew,
tblWOServiceUsedHistory.Servicename, tblWOServiceUsedHistory.ServiceUSedID,
IIf(tblServiceCrew.CrewID<>0,(cstr(tblServiceCrew.CrewNumber)+'   '+tblServiceCrew.Description),'') AS
ServiceCrew, tblWOServiceUsedHistory.NextScheduledDate, tblWOServiceUsedHistory.CostEstimate,
tblWOServiceUsedHistory.LaborEstimate, tblWOServiceUsedHistory.StartTime,
tblWOServiceUsedHistory.EndTime, tblWOServiceUsedHistory.CountValue,
tblWOServiceUsedHistory.Completedate, tblWOServiceUsedHistory.Note, tblWoPartHistory.partID,
tblWoPartHistory.Description, tblWoPartHistory.QuantityRequired, tblWoPartHistory.QuantityUsed,
tblWoPartHistory.Price, QuantityUsed * Price as PartCost, tblWOServiceUsedHistory.Skip FROM
((((((((tblWOServiceUsedHistory LEFT JOIN tblEquipment ON tblWOServiceUsedHistory.EquipmentID =
tblEquipment.EquipmentID) LEFT JOIN tblIndicator AS tblEquipmentType ON tblEquipment.EquipmentType =
tblEquipmentType.ItemID) LEFT JOIN tblIndicator AS tblEquipmentMake ON tblEquipment.EquipmentMake =
tblEquipmentMake.ItemID) LEFT JOIN tblIndicator AS tblEquipmentModel ON tblEquipment.EquipmentModel =
tblEquipmentModel.ItemID) LEFT JOIN tblSite ON tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN
tblLocation ON tblEquipment.LocationID = tblLocation.LocationID) LEFT JOIN tblWoPartHistory ON
tblWOServiceUsedHistory.ServiceUsedID = tblWoPartHistory.ServiceusedID) LEFT JOIN tblCrew ON
tblEquipment.CrewID = tblCrew.CrewID) LEFT JOIN tblCrew AS tblServiceCrew ON
tblWOServiceUsedHistory.CrewID = tblServiceCrew.CrewID Where UnitNo in ('A-1') and (workorderno >= 1 And
workorderno <= 91) Or (workorderno = 21);

-- name: pick list of units
-- rows: 4
SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName FROM tblEquipment  where  tblEquipment.UnitNo not
in ('a-1', 'T-2');
