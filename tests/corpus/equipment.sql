-- The machine's record and its tabs, depreciation, pictures and documents, date sheets.

-- name: machines by unit number
-- rows: 6
-- row 1: 501
-- row 2: 506
-- row 3: 504
-- row 4: 503
-- row 5: 502
-- row 6: 505
Select * from tblEquipment Order by Unitno;

-- name: posted services of a machine
-- columns: WorkorderNo | ServiceUsedID | Date | Service Name | Service Crew | Cost Center | Budgeted Hrs | Labor Cost | StartTime | EndTime | Workhrs | Skip | Count | SupplierName
-- rows: 2
-- has row: 91 | 51 | #01-10-2024# | Oil change | 11 | Grounds | 1.5 | 33.75 | 08:00 | 09:30 | 1:30 | 0 | 100 | Tool Barn
-- has row: 91 | 52 | #01-10-2024# | Blade check
Select WorkOrderNo,ServiceUsedID,CompleteDate as [Date], ServiceName As [Service Name],
tblWoServiceUsedHistory.CrewID as [Service Crew], CostCenterID as [Cost Center], LaborEstimate as
[Budgeted Hrs], CostEstimate as [Labor Cost], StartTime, EndTime, WorkHrs, Skip, Countvalue as [Count],
SupplierName from tblWoServiceUsedHistory Where tblWoServiceUsedHistory.EquipmentID = 501 and
(Completedate >= #01-01-2024# and Completedate <= #1-31-24#);

-- name: part cost of a posted service
-- row 1: 72.5
select sum(tblWoPartHistory.QuantityUsed * tblWoPartHistory.Price) from tblWoPartHistory  where
tblWoPartHistory.ServiceUsedId=51;

-- name: inspection sheet
-- columns: EquipmentID | UnitNo | EquipmentName | InspectionDate | Select
-- rows: 2
-- has row: 502 | T-2 | Dump truck | #05-01-2024# | Add one year
-- has row: 504 | A-4 | Old mower | #02-10-2024# | Add one year
SELECT EquipmentID, UnitNo, EquipmentName,InspectionDate,"Add one year" as [Select] FROM tblEquipment
WHERE InspectionDate >= #03/15/23# and InspectionDate <= #5/1/2024#;
