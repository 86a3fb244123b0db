-- The machine's record and its tabs, depreciation, pictures and documents, date sheets.

-- name: new machine
-- changes: 1
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,Capacity,
EquipmentYear,Bar_Code,EquipmentSerialNo,UnitNo,InstalledDate,AttachedTo,SiteID,LocationID,CrewID,
Inactive,LeaseOwnedLeased,LeaseCompany,LeaseStartDate,LeaseEndDate,LeasePeriod,LeaseInterval,
LeasePayment,WarrantyStartDate,WarrantyEndDate,WarrantyPeriod,WarrantyInterval,Notes,UserDefined1,
UserDefined2,UserDefined3,UserDefined4,UserDefined5,UserDefined6,UserDefined7,UserDefined8,UserDefined9,
UserDefined10,EngineSize,EngineMake,EngineModel,EngineSerialNo,Cycle,EngineFuelType,VehicleOwnedLeased,
BeginingHub,StateLicensed,LicenseNo,StickerNumber,LicenseRenewalDate,PermanentLicense,InspectionDate,
VehicleFuelType,Tyre,Rear_Tires,Weight,Vin,Body,Chassis,Trans,VehicleEngineType,VehicleEngineNo,
VehicleColor,VehicleEngineModel,SupplierID,SupplierPartNo,ManufactureID,ManufacturePartNo,
Acquisitiondate,AcquisitionCost,AdditionalCost,PurchaseNotes,Totalcost,SalvageValue,LifeYears) values(
'315093000','Ann''s edger','121','131','133','2 gal','2024','','SN-9''9','E-9','3/15/2024','','1','1',
'11','0','2','143','3/1/2024','2/28/2027','5','36','199.95',NULL,NULL,'0','0','Line one
Line "two"','it''s','','','','','','','','','','18','165','166','','4','141','0','0','103','','',NULL,
'0',NULL,'0','','','','','0','0','0','0','','','','0','','0','','12-31-2023','1000.5','0','','1000.5',
'0','5');
-- rows: 1
-- row 1: Ann's edger | #03-15-2024# | SN-9'9 | 199.95 | null | 1000.5 | 5 | 0 | 2 | #12-31-2023# | ''
select EquipmentName, InstalledDate, EquipmentSerialNo, LeasePayment, WarrantyStartDate, Totalcost,
LifeYears, Inactive, LeaseOwnedLeased, Acquisitiondate, Vin from tblEquipment where EquipmentID =
315093000;

-- name: two machines of one second
-- error: -2147467259
insert into tblEquipment(EquipmentID,EquipmentName,UnitNo) values('501','Twin','TW1');

-- name: change a machine
-- changes: 1
update tblEquipment set EquipmentName='Jim''s "big" trailer',EquipmentType='0',EquipmentMake='0',
EquipmentModel='0',Capacity='',EquipmentYear='2020',EquipmentSerialNo='',UnitNo='TR5',InstalledDate=NULL,
AttachedTo='',SiteID='0',LocationID='0',CrewID='14',Inactive='1',LeaseOwnedLeased='0',LeaseCompany='0',
LeaseStartDate=NULL,LeaseEndDate=NULL,LeasePeriod='0',LeaseInterval='0',LeasePayment='0',
WarrantyStartDate='1/1/2020',WarrantyEndDate='12/31/2024',WarrantyPeriod='6',WarrantyInterval='5',
Notes='',UserDefined1='',UserDefined10='',EngineSize='',EngineMake='0',EngineModel='0',
EngineSerialNo='',Cycle='',EngineFuelType='0',VehicleOwnedLeased='0',BeginingHub='0',StateLicensed='0',
LicenseNo='',StickerNumber='',LicenseRenewalDate='2/29/2024',PermanentLicense='1',InspectionDate=NULL,
VehicleFuelType='0',Tyre='',Rear_Tires='',Weight='',Vin='',Body='0',Chassis='0',Trans='0',
VehicleEngineType='0',VehicleEngineNo='',VehicleColor='',VehicleEngineModel='',SupplierID='0',
SupplierPartNo='',ManufactureID='0',ManufacturePartNo='',Acquisitiondate=NULL,AcquisitionCost='0',
AdditionalCost='0',PurchaseNotes='',Totalcost='0',SalvageValue='0',LifeYears='0',Bar_Code='' where
EquipmentID = 505;
-- row 1: Jim's "big" trailer | #01-01-2020# | #12-31-2024# | null | 1
select EquipmentName, WarrantyStartDate, WarrantyEndDate, InstalledDate, Inactive from tblEquipment where
EquipmentID = 505;

-- name: machines by unit number
-- rows: 6
-- row 1: 501
-- row 2: 506
-- row 3: 504
-- row 4: 503
-- row 5: 502
-- row 6: 505
Select * from tblEquipment Order by Unitno;

-- name: duplicate serial number
-- rows: 1
Select * from tblEquipment Where EquipmentSerialNo = 'sn501';

-- name: is the machine on an order
-- rows: 1
Select * from tblWorkOrder where EquipmentID = 501;

-- name: delete a machine and all that it has gathered
-- changes: 1
Delete from tblEquipment where EquipmentID = 501;
-- changes: 2
Delete from tblEquipmentDepreciation where EquipmentID = 501;
-- changes: 1
Delete from tblEquipmentCrewHistory where EquipmentID = 501;
-- changes: 3
Delete FROM tblWoPartHistory where  tblWoPartHistory.ServiceusedID In( Select ServiceUsedID from
tblWOServiceUsedHistory where EquipmentID = 501);
-- changes: 3
Delete from tblWOServiceUsedHistory where EquipmentID = 501;
-- changes: 4
Delete from tblServiceUSed where equipmentID = 501;
-- changes: 2
Delete from tblEquipmentpart where equipmentID = 501;
-- changes: 4
Delete from tblEquipmentCount where equipmentID = 501;
-- changes: 1
Delete from tblEquipmentImage where equipmentID = 501;
-- changes: 1
Delete from tblEquipmentDocument where equipmentID = 501;

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

-- name: part cost of a posted service without parts
-- rows: 1
-- row 1: null
select sum(tblWoPartHistory.QuantityUsed * tblWoPartHistory.Price) from tblWoPartHistory  where
tblWoPartHistory.ServiceUsedId=52;

-- name: correct history
-- changes: 1
Update tblWoServiceUsedHistory set Countvalue = '105' where ServiceUsedid = 51;
-- changes: 1
Update tblWoServiceUsedHistory set Completedate = '1/11/2024' where ServiceUsedid = 51;
-- changes: 1
Update tblWoServiceUsedHistory set CrewNumber = '2' where ServiceUsedid = 51;
-- changes: 1
Update tblWoServiceUsedHistory set StartTime = '07:30' where ServiceUsedid = 51;
-- changes: 1
Update tblWoServiceUsedHistory set Countvalue = NULL where ServiceUsedid = 52;
-- row 1: 105 | #01-11-2024# | 2 | 07:30
select CountValue, CompleteDate, CrewNumber, StartTime from tblWoServiceUsedHistory where ServiceUsedID =
51;

-- name: posted parts of a service
-- columns: Part Number | Description | Qty Used | Price | Category | Supplier
-- rows: 2
-- has row: P-100 | Oil filter | 1 | 12.5 | Filters | Tool Barn
-- has row: P-200 | Belt | 2 | 30 | Belts | O'Brien Parts
Select PartId as [Part Number], Description, QuantityUsed as [Qty Used], Price, PartCAtegoryID as
Category, SupplierID as Supplier from tblWoPartHistory where ServiceusedID = 51;

-- name: note of a posted service
-- row 1: ok
Select [Note] From tblWOServiceUsedHistory where ServiceusedID = 51 and WorkorderNo = 91;

-- name: correct a posted part
-- changes: 1
Update tblWoPartHistory set QuantityUsed = '3' where ServiceUsedid = 51 and Partid = 'p-200';
-- changes: 1
Update tblWoPartHistory set Price = '10.5' where ServiceUsedid = 51 and Partid = 'P-200';
-- columns: Exp
-- row 1: 44
Select sum(QuantityUsed  * Price) as Exp  From tblWoPartHistory where  ServiceusedID  = 51;

-- name: change the note of a posted service
-- changes: 1
update tblWOServiceUsedHistory set [Note] = 'fine ''now''' where ServiceUsedID = 51;

-- name: delete a posted service
-- changes: 2
Delete from tblWoPartHistory where ServiceUsedId = 51;
-- changes: 1
Delete from tblWOServiceUsedHistory where ServiceUsedId = 51;

-- name: new depreciation
-- changes: 2
Delete from tblEquipmentDepreciation where EquipmentID=501;
-- changes: 1
Insert into tblEquipmentDepreciation (EndofYear, AnnualDepreciation, AccumualtedDepreciation ,
BookValue,EquipmentID ) values (2024,333.333333333333,666.666666666667,333.333333333333,501);
-- changes: 1
Insert into tblEquipmentDepreciation (EndofYear, AnnualDepreciation, AccumualtedDepreciation ,
BookValue,EquipmentID ) values (2025,333.333333333333,1000,1.13686837721616E-13,501);
-- row 1: 333.333333333333 | 666.666666666667
select AnnualDepreciation, AccumualtedDepreciation from tblEquipmentDepreciation where EndofYear = 2024;

-- name: depreciation grid
-- columns: End of Year | Annual Depreciation | Accumualted Depreciation | Book Value | EquipmentID
-- rows: 2
-- has row: 2020 | 900 | 1800 | 3200 | 501
Select EndofYear as [End of Year] ,AnnualDepreciation as [Annual Depreciation], AccumualtedDepreciation
as [Accumualted Depreciation]  ,BookValue as [Book Value], EquipmentID  from tblEquipmentDepreciation
Where EquipmentID = 501;

-- name: pictures of a machine
-- columns: Picture Name
-- row 1: front
Select ImageName as [Picture Name] from tblEquipmentImage Where EquipmentID = 501;

-- name: documents of a machine
-- columns: Document Name
-- row 1: manual.pdf
Select DocumentName as [Document Name] from tblEquipmentDocument Where EquipmentID = 501;

-- name: picture of that name
-- rows: 1
Select * from tblEquipmentImage where EquipmentID = 501 and ImageName = 'FRONT';

-- name: bytes of a picture
-- rows: 1
-- row 1: null
Select imagedata from tblEquipmentImage where ImageName = 'front' and EquipmentID = 501;

-- name: remove a picture
-- changes: 1
Delete From tblEquipmentImage where EquipmentId = 501 and ImageName = 'front';

-- name: count of a document's rows
-- row 1: 1
Select Count(*) as RecCount from tblEquipmentDocument where Equipmentid = 501 and DocumentName =
'Manual.PDF';

-- name: add a document
-- changes: 1
Insert Into tblEquipmentDocument(EquipmentId,DocumentName) values('502','owner''s guide.pdf');

-- name: remove a document
-- changes: 1
Delete From tblEquipmentDocument where EquipmentId = 501 and DocumentName = 'manual.pdf';

-- name: inspection sheet
-- columns: EquipmentID | UnitNo | EquipmentName | InspectionDate | Select
-- rows: 2
-- has row: 502 | T-2 | Dump truck | #05-01-2024# | Add one year
-- has row: 504 | A-4 | Old mower | #02-10-2024# | Add one year
SELECT EquipmentID, UnitNo, EquipmentName,InspectionDate,"Add one year" as [Select] FROM tblEquipment
WHERE InspectionDate >= #03/15/23# and InspectionDate <= #5/1/2024#;

-- name: licence sheet
-- columns: EquipmentID | UnitNo | EquipmentName | LicenseRenewalDate | Select
-- rows: 1
-- row 1: 505 | TR5 | Jim's trailer | #02-29-2024# | Add one year
SELECT EquipmentID, UnitNo, EquipmentName,LicenseRenewalDate,"Add one year" as [Select] FROM
tblEquipment WHERE LicenseRenewalDate >= #02/01/24# and LicenseRenewalDate <= #02/29/24#;

-- name: save the inspection sheet
-- changes: 1
update tblEquipment set Inspectiondate = #5/1/2025# where equipmentId = 502;

-- name: save the licence sheet
-- changes: 1
update tblEquipment set LicenseRenewalDate = #2/28/2025# where equipmentId = 505;
