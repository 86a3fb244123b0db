-- What goes out to the handheld, and what its records and files write.

-- name: orders out
-- rows: 2
-- has row: 1 | 502 | 0 | null
-- has row: 5 | 505 | 0 | null
SELECT DISTINCT tblWorkorder.WorkorderNo, tblWorkorder.EquipmentID, tblWorkorder.Complete,
tblWorkorder.CompletedDate FROM tblWorkorder INNER JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo =
tblWoServiceUsed.WorkorderNo where tblWorkorder.Complete = False;

-- name: services out
-- rows: 3
-- has row: 1 | 902 | 502 | Blade check | 1 | 0 | null | null | null | W | 11 | 2 | 0.5
-- has row: 5 | 904 | 505 | Weld | 5 | 0 | null | null | null | M | 0 | 4 | null
SELECT tblWoServiceUsed.NserviceUsedID, tblWoServiceUsed.ServiceID, tblWoServiceUsed.EquipmentID,
tblWoServiceUsed.Name, tblWoServiceUsed.WorkOrderNo, tblWoServiceUsed.Completed,
tblWoServiceUsed.StartTime, tblWoServiceUsed.EndTime, tblWoServiceUsed.Note, tblWoServiceUsed.Period,
tblWoServiceUsed.CrewID, tblWoServiceUsed.JobNO, tblServiceUsed.LaborEstimate AS Mhrs FROM (tblWorkorder
LEFT JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo) LEFT JOIN
tblServiceUsed ON tblWoServiceUsed.Serviceusedid = tblServiceUsed.Serviceusedid where
tblWoServiceUsed.Completed=False and tblWorkorder.Complete=False;

-- name: parts on orders out
-- rows: 1
-- row 1: 1 | P-100 | Oil filter | 6 | 12.5 | 0 | 6 | 1
SELECT tblWoServiceUsed.NserviceUsedID, tblWoPartUsed.PartID, tblPart.Description,
tblWoPartUsed.QuantityRequired, tblWoPartUsed.Price, tblWoPartUsed.Used, tblWoPartUsed.QuantityUsed,
tblWoServiceUsed.WorkOrderNo FROM (tblWoServiceUsed INNER JOIN tblWoPartUsed ON
tblWoServiceUsed.NserviceUsedID = tblWoPartUsed.ServiceUsedID) INNER JOIN tblPart ON
tblWoPartUsed.PartID = tblPart.PartID where tblWoServiceUsed.WorkOrderNo in (Select WorkorderNo from
tblWorkorder where Complete=False);
