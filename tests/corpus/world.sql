-- The small company on which the statements of this folder run. The day is Friday 15 March 2024,
-- 09:30. Every table is emptied first, so that only what stands here is there. Results are meant to
-- be worked out by hand: change a row and the checks that rest on it change with it.

delete from tblIndicator;
delete from tblTableFields;
delete from tblCrew;
delete from tblCostCenter;
delete from tblSite;
delete from tblLocation;
delete from tblServices;
delete from tblSupplier;

-- Lookup lists, then their members.
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(1,0,'Country',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(3,0,'Employee position',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(4,0,'Equipment type',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(5,0,'Fuel type',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(6,0,'Lease company',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(7,0,'Make Type',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(8,0,'Manufacturer',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(9,0,'Model Type',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(10,0,'Part category',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(11,0,'State',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(17,0,'Engine make',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(101,1,'United States',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(102,1,'Canada',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(103,101,'OH',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(104,101,'PA',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(105,102,'ON',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(111,3,'Mechanic',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(112,3,'Crew Leader',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(121,4,'Mower',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(122,4,'Truck',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(123,4,'Blower',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(131,121,'Fernhill',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(132,122,'Hollis',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(133,131,'F-48',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(134,132,'H-250',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(141,5,'Gasoline',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(142,5,'Diesel',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(143,6,'Acme Leasing',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(144,8,'Northfield Works',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(151,10,'Filters',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(152,10,'Belts',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(153,10,'Oil',0,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(161,13,'Flatbed',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(162,14,'Long',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(163,16,'Automatic',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(164,15,'V8',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(165,17,'Kesslin',1,0);
insert into tblIndicator(ItemID,ParentID,ItemName,Show,FSize) values(166,165,'K-12',1,0);

-- Crew ids differ from crew numbers, so that a mix-up shows. Crew 5 has no description; a crew with
-- the id 99 is referred to and missing.
insert into tblCrew(CrewID,CrewNumber,Description) values(11,1,'Mowing');
insert into tblCrew(CrewID,CrewNumber,Description) values(12,2,'Trucks');
insert into tblCrew(CrewID,CrewNumber,Description) values(13,3,'Blowers');
insert into tblCrew(CrewID,CrewNumber,Description) values(14,4,'O''Hara''s crew');
insert into tblCrew(CrewID,CrewNumber,Description) values(15,5,Null);

insert into tblCostCenter(CostCenterID,Description,Budget) values(1,'Grounds',10000);
insert into tblCostCenter(CostCenterID,Description,Budget) values(2,'Fleet',2500.5);

insert into tblSite(SiteID,SiteName,Address,City,StateID,Zip)
values(1,'North Yard','12 Mill Rd','Dayton','103','45402');
insert into tblSite(SiteID,SiteName,Address,City,StateID,Zip)
values(2,'South Yard','3 O''Neil St','Erie','104','16501');

insert into tblLocation(LocationID,LocationName,Description,Site) values(1,'Shed A','Main shed',1);
insert into tblLocation(LocationID,LocationName,Description,Site) values(2,'Bay 3','Truck bay',2);

insert into tblSupplier(SupplierID,Name,Tax,Terms,CreditLimit,Email,State,Zip,Phone,ContactName)
values(1,'Tool Barn','123','30 days',5000,'sales@toolbarn.test',103,'45403','(937) 555-0101','Al');
insert into tblSupplier(SupplierID,Name,State,City) values(2,'O''Brien Parts',104,'Erie');
insert into tblSupplier(SupplierID,Name) values(3,'spare house');

insert into tblEmployee(EmployeeID,FirstName,Lastname,Gender,BirthDate,City,State,Country,Site,Crew,
EmpPosition,LaborCost,LaborRate,Inactive,IncludeWoList)
values('E1','Ann','Ames','2',#02-29-1980#,'Dayton','103','101',1,11,111,20,40,'0','1');
insert into tblEmployee(EmployeeID,FirstName,Lastname,Site,Crew,EmpPosition,LaborCost,LaborRate,
Inactive,IncludeWoList) values('E2','Bob','bell',1,11,112,25,45,'0','1');
insert into tblEmployee(EmployeeID,FirstName,Lastname,Site,Crew,EmpPosition,LaborCost,LaborRate,
Inactive,IncludeWoList) values('E3','Cid','Cole',1,11,111,99,99,'1','1');
insert into tblEmployee(EmployeeID,FirstName,Lastname,Site,Crew,EmpPosition,LaborCost,LaborRate,
Inactive,IncludeWoList) values('E4','Dee','D''Arcy',2,12,111,30.5,60,'0','0');

-- Machines. Unit numbers and two names differ in case only; the trailer has Nulls nearly everywhere.
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,
EquipmentYear,Bar_Code,EquipmentSerialNo,UnitNo,InstalledDate,SiteID,LocationID,CrewID,Inactive,
UserDefined1,UserDefined4,AcquisitionCost,Acquisitiondate)
values(501,'Rider mower',121,131,133,'2019','BC501','SN501','A-1',#04-01-2019#,1,1,11,'0',
'INS-1','Title 1',5000,#04-01-2019#);
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,
EquipmentYear,Bar_Code,EquipmentSerialNo,UnitNo,InstalledDate,SiteID,LocationID,CrewID,Inactive,
LeaseCompany,EngineMake,EngineModel,EngineFuelType,BeginingHub,LicenseNo,StickerNumber,
LicenseRenewalDate,InspectionDate,Vin,Body,Chassis,Trans,VehicleColor,SupplierID,ManufactureID,
Acquisitiondate,AcquisitionCost)
values(502,'Dump truck',122,132,134,'2015','BC502','SN502','T-2',#06-15-2015#,2,2,12,'0',
143,165,166,142,1200,'OH123','ST9',#06-30-2024#,#05-01-2024#,'VIN502',161,162,163,'Red',1,144,
#06-15-2015#,42000);
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,UnitNo,
SiteID,LocationID,CrewID,Inactive) values(503,'Back-pack blower',123,0,0,'b-3',0,0,0,'0');
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,UnitNo,
SiteID,LocationID,CrewID,Inactive,InspectionDate)
values(504,'Old mower',121,131,133,'A-4',1,1,11,'1',#02-10-2024#);
insert into tblEquipment(EquipmentID,EquipmentName,UnitNo,CrewID,Inactive,LicenseRenewalDate)
values(505,'Jim''s trailer','TR5',14,'0',#02-29-2024#);
insert into tblEquipment(EquipmentID,EquipmentName,EquipmentType,EquipmentMake,EquipmentModel,UnitNo,
SiteID,LocationID,CrewID,Inactive) values(506,'rider MOWER',121,131,133,'a-10',1,1,11,'0');

insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(501,#01-10-2024#,'Hours',100);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(501,#02-01-2024#,'Hours',120);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(501,#03-01-2024#,'Hours',160);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(501,#03-01-2024#,'Hours',150);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(502,#02-20-2024#,'Miles',20000);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(502,#03-10-2024#,'Miles',20400);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(502,#03-12-2024#,'Miles',20300);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(502,#01-01-2024#,'Hours',10);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(502,#03-01-2024#,'Hours',70);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(503,#03-15-2024#,'Counts',0);
insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue)
values(504,#12-01-2023#,'Hours',900);

-- Parts. TrackInventory -1 means not tracked. P-O'5 stands exactly at its reorder point.
insert into tblPart(PartID,Description,PartCategoryID,Quantity,Price,SupplierID,QtyMax,QtyMin,Inactive,
Notes,Bin,Bar_Code,TrackInventory)
values('P-100','Oil filter',151,10,12.5,1,20,5,'0','','B1','PB100','0');
insert into tblPart(PartID,Description,PartCategoryID,Quantity,Price,SupplierID,QtyMax,QtyMin,Inactive,
Notes,Bin,Bar_Code,TrackInventory)
values('P-200','Belt',152,2,30,2,6,4,'0',Null,'B2','PB200','0');
insert into tblPart(PartID,Description,PartCategoryID,Quantity,Price,SupplierID,QtyMax,QtyMin,Inactive,
TrackInventory) values('P-300','Old plug',151,0,1,0,5,1,'1','0');
insert into tblPart(PartID,Description,Quantity,Price,SupplierID,QtyMax,QtyMin,Inactive,TrackInventory)
values('p-400','Rags',0,0.25,3,10,5,'0','1');
insert into tblPart(PartID,Description,PartCategoryID,Quantity,Price,SupplierID,QtyMax,QtyMin,Inactive,
Bin,TrackInventory) values('P-O''5','O-ring "big"',151,5,0.1,2,8,5,'0','B3','0');

insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price,SupplierID)
values(501,'P-100',2,12.5,1);
insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price,SupplierID)
values(501,'P-O''5',4,0.1,2);
insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price,SupplierID)
values(502,'p-200',1,30,2);

-- The catalogue. The orphan's crew and cost centre are gone.
insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,SeparateWo,
LaborEstimate,CostEstimate,[Note],JobNo)
values(901,'Oil change',11,1,'H',50,'W','0',1.5,33.75,'Use 10W-30',1);
insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,SeparateWo,
LaborEstimate,CostEstimate,[Note],JobNo,Mon,FirstW,Jan)
values(902,'Blade check',11,1,'W',1,'S','0',0.5,11.25,Null,2,'1','1','1');
insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,SeparateWo,
LaborEstimate,CostEstimate,JobNo) values(903,'Inspection',12,2,'Y',1,'D','1',2,61,3);
insert into tblServices(ServiceID,Name,CrewID,CostCenterID,Period,EInterval,RenewalOn,SeparateWo,
LaborEstimate,CostEstimate,JobNo) values(904,'Orphan',99,99,'M',1,'W','0',1,0,4);

insert into tblServicesPart(PartID,ServiceID,QuantityRequired,Price,SupplierID)
values('P-100',901,1,12.5,1);
insert into tblServicesPart(PartID,ServiceID,QuantityRequired,Price,SupplierID)
values('P-200',901,2,30,2);

-- Assigned services. 2 and 3 are due; 7 is due with a missing crew; 6 stands on an inactive machine;
-- 8 is retired; 9, 11 and 13 are on orders; 14 is overdue by more than 30 days; 1, 4, 10, 13 and 15
-- go by a meter.
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,[Note],JobNo,Inactive,NextScheduledCount,
LastDateScheduled,LastDatePerformed,NextScheduledDate)
values(1,501,901,'Oil change',11,1,'H',50,'W','0',1.5,33.75,'Use 10W-30',1,0,200,Null,Null,Null);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,LastDateScheduled,
LastDatePerformed,NextScheduledDate)
values(2,501,902,'Blade check',11,1,'W',1,'S','0',0.5,11.25,2,0,#03-03-2024#,#03-04-2024#,
#03-10-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(3,502,903,'Inspection',12,2,'Y',1,'D','1',2,61,3,0,#03-15-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledCount)
values(4,502,0,'Mile service',12,2,'I',500,'S','0',1,30.5,5,0,20500);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(5,503,902,'Blade check',13,1,'W',1,'S','0',0.5,11.25,2,0,#04-20-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(6,504,902,'Blade check',11,1,'W',1,'S','0',0.5,11.25,2,0,#03-01-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(7,505,904,'Orphan',99,99,'M',1,'W','0',1,0,4,0,#02-20-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(8,501,903,'Retired check',12,2,'Y',1,'D','1',2,61,3,1,#03-05-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(9,502,902,'Blade check',11,1,'W',1,'S','0',0.5,11.25,2,0,#03-12-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledCount)
values(10,503,0,'Count clean',13,1,'C',10,'W','0',0.25,0,6,0,10);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(11,501,902,'Grease',12,1,'W',1,'W','0',0.5,15.25,2,0,#01-05-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledCount,
NextScheduledDate)
values(13,502,0,'Hours check',12,2,'H',100,'W','0',1,30.5,7,0,60,#03-01-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledDate)
values(14,503,0,'Long overdue',13,1,'M',1,'W','0',1,0,8,0,#01-05-2024#);
insert into tblServiceUsed(ServiceUsedID,EquipmentID,ServiceID,Name,CrewID,CostCenterID,Period,
EInterval,RenewalOn,SeparateWo,LaborEstimate,CostEstimate,JobNo,Inactive,NextScheduledCount)
values(15,505,0,'Kilometer check',14,2,'K',100,'W','0',1,0,9,0,100);

insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,Price,SupplierID)
values('P-100',2,1,12.5,1);
insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,Price,SupplierID)
values(Null,2,1,1,1);
insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,Price,SupplierID)
values('P-200',3,2,30,2);
insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,Price,SupplierID)
values('P-100',5,3,12.5,1);

-- Orders: 1 open, 2 complete, 3 complete but its meter service has no count, 4 empty, 5 made without
-- a schedule.
insert into tblWorkorder(WorkorderNo,EquipmentID,Printed,Complete,WoDate)
values(1,502,'0','0',#03-12-2024#);
insert into tblWorkorder(WorkorderNo,EquipmentID,Printed,Complete,CompletedDate,WoDate)
values(2,501,'1','1',#03-14-2024#,#03-10-2024#);
insert into tblWorkorder(WorkorderNo,EquipmentID,Printed,Complete,CompletedDate,WoDate)
values(3,502,'1','1',#03-14-2024#,#03-01-2024#);
insert into tblWorkorder(WorkorderNo,EquipmentID,Printed,Complete,WoDate)
values(4,503,'0','0',#03-13-2024#);
insert into tblWorkorder(WorkorderNo,EquipmentID,Printed,Complete,WoDate)
values(5,505,'0','0',#03-13-2024#);

insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,
NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,JobNo)
values(1,1,9,902,502,#03-12-2024#,'Blade check',11,1,'0',0.5,11.25,'W',2);
insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,
NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,JobNo,
Completed,Skip,StartTime,EndTime,Workhrs,SupplierID)
values(2,2,0,903,501,#03-10-2024#,'Wash',11,1,'0',1,33.75,'with "soap"','D',3,'1','0','08:00','09:30',
'1:30',1);
insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,
NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,JobNo,
Completed,Skip)
values(3,2,11,902,501,#01-05-2024#,'Grease',12,1,'0',0.5,15.25,'no time','W',2,'0','1');
insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,
NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,JobNo,
Completed) values(4,3,13,0,502,#03-01-2024#,'Hours check',12,2,'0',1,30.5,'H',7,True);
insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,Name,
LaborEstimate,CostEstimate,Period,JobNo) values(5,5,0,904,505,'Weld',1,0,'M',4);
insert into tblWoServiceUsed(NServiceUsedID,WorkorderNo,ServiceUsedID,ServiceID,EquipmentID,
NextScheduledDate,Name,CrewID,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,JobNo)
values(6,5,0,903,505,#02-20-2024#,'Inspection',12,2,'1',2,61,'Y',3);

insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values(1,'P-100',6,6,12.5,0,1);
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values(2,'P-100',1,1,12.5,-1,1);
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values(2,'P-200',2,1,30,True,2);
insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,QuantityUsed,Price,Used,SupplierID)
values(3,'p-400',3,3,0.25,False,3);

-- What has been posted: orders 91 (two services), 92 and 93 (skipped).
insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,EquipmentID,ServiceID,ServiceName,CrewID,
CrewNumber,NextScheduleddate,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,[Note],Period,jobNo,
CountValue,Skip,StartTime,EndTime,Workhrs,SupplierID,SupplierName,StartDate,CompleteDate)
values(91,51,501,901,'Oil change',11,1,#01-10-2024#,'Grounds','0',1.5,33.75,'ok','H',1,100,0,'08:00',
'09:30','1:30',1,'Tool Barn',#01-08-2024#,#01-10-2024#);
insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,EquipmentID,ServiceID,ServiceName,CrewID,
CrewNumber,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,jobNo,Skip,StartTime,EndTime,
Workhrs,StartDate,CompleteDate)
values(91,52,501,902,'Blade check',11,1,'Grounds','0',0.5,11.25,'W',2,0,'09:30','10:00','0:30',
#01-08-2024#,#01-10-2024#);
insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,EquipmentID,ServiceID,ServiceName,CrewID,
CrewNumber,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,jobNo,Skip,StartDate,CompleteDate)
values(92,53,502,903,'Inspection',12,2,'Fleet','1',2,60,'Y',3,0,#02-14-2024#,#02-15-2024#);
insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,EquipmentID,ServiceID,ServiceName,CrewID,
CrewNumber,CostCenterID,SeparateWo,LaborEstimate,CostEstimate,Period,jobNo,CountValue,Skip,Workhrs,
StartDate,CompleteDate)
values(93,54,501,901,'Oil change',11,1,'Grounds','0',1.5,40,'H',1,130,-1,'2:05',#02-18-2024#,
#02-20-2024#);

insert into tblWoPartHistory(ServiceusedID,partID,Description,PartCategoryID,Price,SupplierID,
SupplierName,QuantityRequired,QuantityUsed)
values(51,'P-100','Oil filter','Filters',12.5,'Tool Barn','Tool Barn',1,1);
insert into tblWoPartHistory(ServiceusedID,partID,Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) values(51,'P-200','Belt','Belts',30,'O''Brien Parts',2,2);
insert into tblWoPartHistory(ServiceusedID,partID,Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) values(53,'P-100','Oil filter','Filters',12.5,'Tool Barn',4,4);
insert into tblWoPartHistory(ServiceusedID,partID,Description,PartCategoryID,Price,SupplierID,
QuantityRequired,QuantityUsed) values(54,'P-100','Oil filter','Filters',12.5,'Tool Barn',1,0);

insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values(501,#03-01-2024 07:15:00#,'IN');
insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values(501,#03-14-2024 16:40:00#,'OUT');
insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values(502,#02-01-2024 08:00:00#,'IN');

insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription,CrewDate)
values(501,'2','Trucks',#01-05-2024#);
insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription,CrewDate)
values(502,'1','Mowing',#01-06-2024#);
insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription,CrewDate)
values(505,'','',#01-07-2024#);

insert into tblTableFields(Tablename,RowID,FieldDesc,FieldName,FieldType)
values('tblPart',1,'Part Number','PartID','VARCHAR');
insert into tblTableFields(Tablename,RowID,FieldDesc,FieldName,FieldType)
values('tblPart',2,'Description','Description','VARCHAR');
insert into tblTableFields(Tablename,RowID,FieldDesc,FieldName,FieldType)
values('tblPart',3,'Inactive','Inactive','BIT');
insert into tblTableFields(Tablename,RowID,FieldDesc,FieldName,FieldType)
values('tblEquipment',4,'Unit No','UnitNo','VARCHAR');

insert into tblTempServicePart(PartID,Quantity,Price) values('P-100',1,12.5);

-- The next numbers of the columns that the database counts, past those given above.
alter table tblIndicator alter column ItemID counter(167,1);
alter table tblCrew alter column CrewID counter(16,1);
alter table tblCostCenter alter column CostCenterID counter(3,1);
alter table tblSite alter column SiteID counter(3,1);
alter table tblLocation alter column LocationID counter(3,1);
alter table tblServiceUsed alter column ServiceUsedID counter(16,1);
alter table tblWorkorder alter column WorkorderNo counter(6,1);
alter table tblWoServiceUsed alter column NServiceUsedID counter(7,1);
