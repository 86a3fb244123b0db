-- Lookup lists, crews, sites, locations, cost centres, employees, suppliers.

-- name: change a lookup item
-- changes: 1
Update tblIndicator set ItemName='Owner''s own', ParentID=10, Show=1, FSize=0 where ItemID=151;
-- row 1: Owner's own | -1
select ItemName, Show from tblIndicator where ItemID = 151;

-- name: new lookup item
-- key: ItemID
Insert into tblIndicator(ParentId,ItemName,Show,FSize) values(10,'Chains', 1,0);
-- row 1: 10 | Chains | -1 | 0
select ParentID, ItemName, Show, FSize from tblIndicator where ItemID = {key};

-- name: delete a lookup item
-- changes: 1
Delete from tblIndicator where ItemID=153;

-- name: has a lookup item children
-- rows: 1
Select * from tblIndicator where ParentID= 121;

-- name: use of a lookup item in each table
-- rows: 1
Select * from tblemployee where country = 101;
-- rows: 2
Select * from tblservices where CrewID = 11;
-- rows: 3
Select * from tblemployee where Crew = 11;
-- rows: 3
Select * from tblequipment where CrewID = 11;
-- rows: 1
Select * from tblemployee where EmpPosition = 112;
-- rows: 3
Select * from tblequipment where EquipmentType = 121;
-- rows: 0
Select * from tblequipment where VehicleFuelType = 141;
-- rows: 1
Select * from tblequipment where EngineFuelType = 142;
-- rows: 1
Select * from tblequipment where leasecompany = 143;
-- rows: 3
Select * from tblequipment where EquipmentMake = 131;
-- rows: 1
Select * from tblequipment where EngineMake = 165;
-- rows: 1
Select * from tblequipment where ManufactureID = 144;
-- rows: 3
Select * from tblequipment where EquipmentModel = 133;
-- rows: 1
Select * from tblequipment where EngineModel = 166;
-- rows: 3
Select * from tblpart where PartCategoryID = 151;
-- rows: 1
Select * from tblSite where StateID = 103;
-- rows: 1
Select * from tblEmployee where State = 103;
-- rows: 1
Select * from tblSupplier where State = 104;
-- rows: 1
Select * from tblequipment where body = 161;
-- rows: 1
Select * from tblequipment where Chassis = 162;
-- rows: 0
Select * from tblequipment where vehicleenginetype = 164;
-- rows: 1
Select * from tblequipment where trans = 163;

-- name: a list by its number
-- rows: 1
-- row 1: 7 | 0 | Make Type
Select * from tblindicator where Itemid =7 order by ItemId;

-- name: parent of an item
-- rows: 1
-- row 1: 131
select * from tblindicator where itemid = (select parentid  from tblindicator where itemid=133);

-- name: items under a parent
-- rows: 2
-- row 1: 103
select * from tblindicator where parentid =101 order by itemname;

-- name: items under no parent
-- rows: 0
select * from tblindicator where parentid =-1 order by itemname;

-- name: names under a parent
-- rows: 3
Select ItemName from tblIndicator where Parentid = 10;

-- name: use of crews, sites, locations and cost centres
-- rows: 1
Select * from tblServices where CrewID = 12;
-- rows: 5
Select * from tblServiceUsed where CrewID = 12;
-- rows: 1
Select * from tblLocation where Site = 2;
-- rows: 1
Select * from tblEquipment where SiteID = 2;
-- rows: 1
Select * from tblEmployee where Site = 2;
-- rows: 1
Select * from tblEquipment where LocationID = 2;
-- rows: 1
Select * from tblServices where CostCenterID = 2;

-- name: new crew
-- key: CrewID
Insert into tblCrew(CrewNumber,Description) values(6,'Night''s crew');
-- row 1: 6 | Night's crew
select CrewNumber, Description from tblCrew where CrewID = {key};

-- name: change a crew
-- changes: 1
Update tblCrew set  CrewNumber=9,Description='Mowing' where CrewID=11;

-- name: delete a crew
-- changes: 1
Delete from tblCrew where CrewID=15;

-- name: new site
-- key: SiteID
insert into tblSite(SiteName,Address,City,StateID,Zip) values('O''Brien''s Yard','','','0','0');
-- row 1: O'Brien's Yard | '' | 0 | '0'
select SiteName, Address, StateID, Zip from tblSite where SiteID = {key};

-- name: change a site
-- changes: 1
Update tblSite set SiteName='North',Address='12 Mill Rd',City='Dayton',StateID='103',Zip='45402' where
SiteID=1;

-- name: delete a site
-- changes: 1
Delete from tblsite where SiteID=2;

-- name: list of sites
-- rows: 2
-- row 1: 1
select * from tblSite order By SiteId;

-- name: new location
-- key: LocationID
insert into tblLocation(LocationName,Description,Site) values('Bay 4','','2');

-- name: change a location
-- changes: 1
update tblLocation set LocationName = 'Bay 33',Description='',Site='1' where LocationID = 2;

-- name: delete a location
-- changes: 1
Delete from tblLocation where LocationID = 2;

-- name: list of locations
-- rows: 2
Select * from tblLocation Order by LocationID;

-- name: new cost centre
-- key: CostCenterID
Insert into tblCostCenter(Description,Budget) values('Snow','0');

-- name: change a cost centre
-- changes: 1
Update tblCostCenter set Description='Grounds',Budget='12000.50' where CostCenterID=1;

-- name: delete a cost centre
-- changes: 1
Delete from tblCostCenter where CostCenterID=2;

-- name: list of cost centres
-- rows: 2
select * from tblCostCenter order by CostCenterID;

-- name: highest cost centre
-- row 1: 2
Select max(CostCenterID) from tblCostCenter;

-- name: new employee
-- changes: 1
insert into tblEmployee(EmployeeID , FirstName, Lastname, InitialName, BirthDate, Gender, Address, City,
State, Country, Zip, Phone, CellPhone, Email, Pager, SS, LicenseNo, Site, Skills, Crew, EmpPosition,
LaborCost, LaborRate, Inactive, IncludeWoList) values('E9','Pat','O''Dea','',NULL,'0','','','0','101','',
'(   )    -    ','(   )    -    ','','(   )    -    ','','','0','','13','111','18.5','0','0','1');
-- row 1: O'Dea | null | '(   )    -    ' | 18.5 | 0 | 1
select Lastname, BirthDate, Phone, LaborCost, Inactive, IncludeWoList from tblEmployee where EmployeeID =
'e9';

-- name: change an employee
-- changes: 1
update tblEmployee Set FirstName = 'Ann', Lastname = 'Ames', InitialName = 'B', BirthDate = '2/29/1980',
Gender = '2', Address = '', City = '', State = '0', Country = '101', Zip = '', Phone =
'(   )    -    ', CellPhone = '', Email = '', Pager = '', SS = '', LicenseNo = '', Site = '1', Skills =
'', Crew = '12', EmpPosition = '111', LaborCost = '21', LaborRate = '42', EmployeeID='E1A', Inactive =
'0', IncludeWoList = '1' where EmployeeID = 'E1';
-- row 1: 12 | #02-29-1980# | 21
select Crew, BirthDate, LaborCost from tblEmployee where EmployeeID = 'E1A';

-- name: list of employees
-- rows: 4
-- row 1: E1
SELECT * From tblEmployee order by EmployeeId;

-- name: delete an employee
-- changes: 1
Delete from tblEmployee where EmployeeID = 'e4';

-- name: lists of the employee screen
-- rows: 2
SELECT * From tblSite Order by SiteId;
-- rows: 5
-- row 1: 11
SELECT * From tblCrew Order by CrewId;
-- rows: 2
-- row 1: 1
Select * from tblSite Order by SiteName;

-- name: new supplier
-- changes: 1
insert into tblSupplier(SupplierID , Name, Tax, Terms, CreditLimit, Email, WebSite, Address, Address2,
City, State, Zip, Phone, Fax, Atten, LicenseNo, ContactName, Notes) values('4','Smith''s','','','250',
'','','','','',0,'','(   )    -    ','(   )    -    ','','','','');

-- name: change a supplier
-- changes: 1
update tblSupplier set Name = 'Tool''s Barn', Tax = '123', Terms = '', CreditLimit = '5000', Email = '',
WebSite = '', Address = '', Address2 = '', City = '', State = 104, Zip = '45403', Phone = '', Fax = '',
Atten = '', LicenseNo = '', ContactName = '', Notes = '3/15/2024 9:30 AM' where SupplierID = 1;

-- name: delete a supplier
-- changes: 1
Delete from tblSupplier where SupplierID = 3;

-- name: use of a supplier
-- rows: 1
Select * from tblEquipment where SupplierID = 1;
-- rows: 2
Select * from tblPart where SupplierID = 2;

-- name: suppliers by number
-- rows: 3
-- row 3: 3
Select * from tblSupplier Order by SupplierID;
