-- Rows that every new database begins with, beside the lists of lists.txt and the search fields of
-- fields.csv.

-- The built-in user; the password is to be changed before the login is turned on.
insert into tblUser (UserName, [Password], EmployeeID)
    values ('Admin', 'admin', '');
update tblUser set EqAdd = '1', EqMod = '1', EqDel = '1', SerAdd = '1',
    SerMod = '1', SerDel = '1', PaAdd = '1', PaMod = '1',
    PaDel = '1', EqList = '1', EqDetail = '1', EqCountSheet = '1',
    ExpOnEq = '1', EqUtilization = '1', EqCrewHistory = '1', EqScanHistory = '1',
    InspDatReading = '1', LicRenDateReading = '1', WOHistory = '1', SerList = '1',
    SerEqName = '1', SerHistory = '1', SerHistoryTime = '1', InvReport = '1',
    InvReorderReport = '1', InvOrUpSer = '1', InvPartUsage = '1', InvPartHistory = '1'
    where UserName = 'Admin';

insert into tblSysOption (SysOption, itemValue) values ('DBVERSION', '101');
insert into tblSysOption (SysOption, itemValue) values ('SECURITYONOFF', '0');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_NAME', '');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_ADDRESS1', '');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_ADDRESS2', '');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_PHONE', '');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_EMAIL', '');
insert into tblSysOption (SysOption, itemValue) values ('GEN_COMPANY_WEBSITE', '');
insert into tblSysOption (SysOption, itemValue) values ('COUNT_READING_DELAY', '7');
insert into tblSysOption (SysOption, itemValue) values ('SERVICE_LATE_YELLOW', '7');
insert into tblSysOption (SysOption, itemValue) values ('SERVICE_LATE_RED', '14');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField1', 'User Field1');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField2', 'User Field2');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField3', 'User Field3');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField4', 'User Field4');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField5', 'User Field5');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField6', 'User Field6');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField7', 'User Field7');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField8', 'User Field8');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField9', 'User Field9');
insert into tblSysOption (SysOption, itemValue) values ('UserDefinedField10', 'User Field10');
