-- Catalogue, assigned services, meter readings.

-- name: any reading of a kind
-- rows: 1
SELECT TOP 1 * From tblequipmentCount WHERE tblequipmentCount.EquipmentID=501 AND
tblequipmentCount.CountType='Hours';

-- name: parts of a catalogue service
-- columns: Part Number | Description | Qty Req | Price
-- rows: 2
-- has row: P-100 | Oil filter | 1 | 12.5
-- has row: P-200 | Belt | 2 | 30
Select  tblPart.PartID as [Part Number], Description, QuantityRequired as [Qty Req],tblServicesPart.Price
From tblServicesPart left join tblPart on tblServicesPart.PartID = tblPart.PartID where ServiceID = 901;

-- name: meter services of a machine
-- rows: 2
-- has row: 4 | null | 500 | I
-- has row: 13 | #03-01-2024# | 100 | H
Select serviceusedid,NextScheduledDate,Einterval,Period from tblServiceUsed where EquipmentID = 502 and
Period IN ('C', 'H', 'K', 'I');

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

-- name: parts to be copied from an assigned service
-- rows: 1
-- row 1: P-100 | 1 | 12.5 | 1
Select partID,QuantityRequired,price,SupplierID from tblServiceUsedPart where PartId is not Null and
ServiceUsedId = 2;

-- name: machine and crew for the crew dialog
-- columns: EquipmentName | UnitNo | CrewNumber
-- row 1: Jim's trailer | TR5 | '4   O''Hara''s crew'
SELECT EquipmentName, UnitNo, IIf(tblCrew.CrewID<>0,(cstr(CrewNumber)+'   '+tblCrew.Description),'  ')
AS CrewNumber FROM tblEquipment LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID Where
Equipmentid = 505;
