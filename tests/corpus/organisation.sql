-- Lookup lists, crews, sites, locations, cost centres, employees, suppliers.

-- name: new lookup item
-- key: ItemID
Insert into tblIndicator(ParentId,ItemName,Show,FSize) values(10,'Chains', 1,0);
-- row 1: 10 | Chains | -1 | 0
select ParentID, ItemName, Show, FSize from tblIndicator where ItemID = {key};

-- name: parent of an item
-- rows: 1
-- row 1: 131
select * from tblindicator where itemid = (select parentid  from tblindicator where itemid=133);

-- name: new employee
-- changes: 1
insert into tblEmployee(EmployeeID , FirstName, Lastname, InitialName, BirthDate, Gender, Address, City,
State, Country, Zip, Phone, CellPhone, Email, Pager, SS, LicenseNo, Site, Skills, Crew, EmpPosition,
LaborCost, LaborRate, Inactive, IncludeWoList) values('E9','Pat','O''Dea','',NULL,'0','','','0','101','',
'(   )    -    ','(   )    -    ','','(   )    -    ','','','0','','13','111','18.5','0','0','1');
-- row 1: O'Dea | null | '(   )    -    ' | 18.5 | 0 | 1
select Lastname, BirthDate, Phone, LaborCost, Inactive, IncludeWoList from tblEmployee where EmployeeID =
'e9';
