-- The tables and indexes of a company's database, in the program's own SQL dialect. Every column
-- stands in the order in which the program writes it. 0/1 flags are numbers that start at 0, so
-- that no row has a Null where the schedule expects a flag; Yes/No columns hold -1 or 0.
--
-- No table refers to another by a constraint: joins are left joins, and the program removes
-- dependent rows itself.

-- Machines and what belongs to them ---------------------------------------------------------------

create table tblEquipment (
    EquipmentID long not null,
    EquipmentName nvarchar(100),
    EquipmentType long default 0,
    EquipmentMake long default 0,
    EquipmentModel long default 0,
    Capacity nvarchar(50),
    EquipmentYear nvarchar(10),
    Bar_Code nvarchar(50),
    EquipmentSerialNo nvarchar(50),
    UnitNo nvarchar(30),
    InstalledDate datetime,
    AttachedTo nvarchar(60),
    SiteID long default 0,
    LocationID long default 0,
    CrewID long default 0,
    Inactive short default 0,
    LeaseOwnedLeased short default 0,
    LeaseCompany long default 0,
    LeaseStartDate datetime,
    LeaseEndDate datetime,
    LeasePeriod long default 0,
    LeaseInterval nvarchar(20),
    LeasePayment currency default 0,
    WarrantyStartDate datetime,
    WarrantyEndDate datetime,
    WarrantyPeriod long default 0,
    WarrantyInterval nvarchar(20),
    Notes memo,
    UserDefined1 nvarchar(100),
    UserDefined2 nvarchar(100),
    UserDefined3 nvarchar(100),
    UserDefined4 nvarchar(100),
    UserDefined5 nvarchar(100),
    UserDefined6 nvarchar(100),
    UserDefined7 nvarchar(100),
    UserDefined8 nvarchar(100),
    UserDefined9 nvarchar(100),
    UserDefined10 nvarchar(100),
    EngineSize nvarchar(30),
    EngineMake long default 0,
    EngineModel long default 0,
    EngineSerialNo nvarchar(50),
    Cycle nvarchar(20),
    EngineFuelType long default 0,
    VehicleOwnedLeased short default 0,
    BeginingHub long default 0,
    StateLicensed nvarchar(10),
    LicenseNo nvarchar(30),
    StickerNumber nvarchar(30),
    LicenseRenewalDate datetime,
    PermanentLicense short default 0,
    InspectionDate datetime,
    VehicleFuelType long default 0,
    Tyre nvarchar(60),
    Rear_Tires nvarchar(60),
    Weight nvarchar(30),
    Vin nvarchar(40),
    Body long default 0,
    Chassis long default 0,
    Trans long default 0,
    VehicleEngineType long default 0,
    VehicleEngineNo nvarchar(50),
    VehicleColor nvarchar(30),
    VehicleEngineModel nvarchar(60),
    SupplierID long default 0,
    SupplierPartNo nvarchar(50),
    ManufactureID long default 0,
    ManufacturePartNo nvarchar(50),
    Acquisitiondate datetime,
    AcquisitionCost currency default 0,
    AdditionalCost currency default 0,
    PurchaseNotes memo,
    Totalcost currency default 0,
    SalvageValue currency default 0,
    LifeYears short default 0,
    constraint pkEquipment primary key (EquipmentID)
);
create index ixEquipmentUnitNo on tblEquipment (UnitNo);
create index ixEquipmentUnitNoLast on tblEquipment (UnitNo desc);
create index ixEquipmentSerialNo on tblEquipment (EquipmentSerialNo);
create index ixEquipmentName on tblEquipment (EquipmentName);

-- Several readings of one kind on one day are in order: no key.
create table tblEquipmentCount (
    EquipmentID long,
    ChangeDate datetime,
    CountType nvarchar(20),
    CountValue long
);
create index ixEquipmentCountDate on tblEquipmentCount (EquipmentID, CountType, ChangeDate);
create index ixEquipmentCountNewest on tblEquipmentCount
    (EquipmentID desc, CountType desc, ChangeDate desc, CountValue desc);
create index ixEquipmentCountLast on tblEquipmentCount (EquipmentID desc, ChangeDate desc);
create index ixEquipmentCountHighest on tblEquipmentCount (EquipmentID desc, CountValue desc);

create table tblEquipmentPart (
    EquipmentID long,
    PartID nvarchar(30),
    QuantityRequired double default 0,
    Price currency default 0,
    SupplierID long default 0
);
create index ixEquipmentPartEquipment on tblEquipmentPart (EquipmentID);
create index ixEquipmentPartPart on tblEquipmentPart (PartID);

create table tblEquipmentImage (
    EquipmentID long not null,
    ImageName nvarchar(100) not null,
    ImageData longbinary,
    constraint pkEquipmentImage primary key (EquipmentID, ImageName)
);

create table tblEquipmentDocument (
    EquipmentId long not null,
    DocumentName nvarchar(200) not null,
    constraint pkEquipmentDocument primary key (EquipmentId, DocumentName)
);

create table tblEquipmentDepreciation (
    EquipmentID long,
    EndofYear long,
    AnnualDepreciation double,
    AccumualtedDepreciation double,
    BookValue double
);
create index ixEquipmentDepreciation on tblEquipmentDepreciation (EquipmentID);

-- Number and description are copied as text, so that the history outlives the crew.
create table tblEquipmentCrewHistory (
    EquipmentID long,
    CrewNumber nvarchar(20),
    CrewDescription nvarchar(60),
    CrewDate datetime default Date()
);
create index ixEquipmentCrewHistory on tblEquipmentCrewHistory (EquipmentID);

create table tblEquipmentScan (
    EquipmentID long,
    ScanTime datetime,
    ScanStatus nvarchar(30)
);
create index ixEquipmentScan on tblEquipmentScan (EquipmentID);

-- Parts and suppliers -----------------------------------------------------------------------------

create table tblPart (
    PartID nvarchar(30) not null,
    Description nvarchar(100),
    PartCategoryID long default 0,
    Quantity double default 0,
    Price currency default 0,
    SupplierID long default 0,
    QtyMax double default 0,
    QtyMin double default 0,
    Inactive yesno,
    Notes memo,
    Bin nvarchar(30),
    Bar_Code nvarchar(50),
    TrackInventory yesno,
    constraint pkPart primary key (PartID)
);

create table tblSupplier (
    SupplierID long not null,
    Name nvarchar(80),
    Tax nvarchar(30),
    Terms nvarchar(60),
    CreditLimit currency default 0,
    Email nvarchar(100),
    WebSite nvarchar(100),
    Address nvarchar(100),
    Address2 nvarchar(100),
    City nvarchar(60),
    State long default 0,
    Zip nvarchar(20),
    Phone nvarchar(30),
    Fax nvarchar(30),
    Atten nvarchar(60),
    LicenseNo nvarchar(30),
    ContactName nvarchar(60),
    Notes memo,
    constraint pkSupplier primary key (SupplierID)
);

-- People and places -------------------------------------------------------------------------------

create table tblEmployee (
    EmployeeID nvarchar(20) not null,
    FirstName nvarchar(60),
    Lastname nvarchar(60),
    InitialName nvarchar(10),
    Gender nvarchar(10),
    BirthDate datetime,
    Address nvarchar(100),
    City nvarchar(60),
    State long default 0,
    Country long default 0,
    Zip nvarchar(20),
    Phone nvarchar(30),
    CellPhone nvarchar(30),
    Email nvarchar(100),
    Pager nvarchar(30),
    SS nvarchar(20),
    LicenseNo nvarchar(30),
    Site long default 0,
    Skills memo,
    Crew long default 0,
    EmpPosition long default 0,
    LaborCost currency default 0,
    LaborRate currency default 0,
    Inactive short default 0,
    IncludeWoList short default 0,
    constraint pkEmployee primary key (EmployeeID)
);

create table tblCrew (
    CrewID counter,
    CrewNumber long,
    Description nvarchar(60),
    constraint pkCrew primary key (CrewID)
);

create table tblSite (
    SiteID counter,
    SiteName nvarchar(60),
    Address nvarchar(100),
    City nvarchar(60),
    StateID long default 0,
    Zip nvarchar(20),
    constraint pkSite primary key (SiteID)
);

create table tblLocation (
    LocationID counter,
    LocationName nvarchar(60),
    Description nvarchar(100),
    Site long default 0,
    constraint pkLocation primary key (LocationID)
);

create table tblCostCenter (
    CostCenterID counter,
    Description nvarchar(60),
    Budget currency default 0,
    constraint pkCostCenter primary key (CostCenterID)
);

-- All small lists: a list is a row with a fixed number, its members have that number as ParentID.
create table tblIndicator (
    ItemID counter,
    ParentID long default 0,
    ItemName nvarchar(60),
    Show yesno,
    FSize short default 0,
    constraint pkIndicator primary key (ItemID)
);
create index ixIndicatorParent on tblIndicator (ParentID);

-- Services ----------------------------------------------------------------------------------------

create table tblServices (
    ServiceID long not null,
    Name nvarchar(100),
    CrewID long default 0,
    CostCenterID long default 0,
    Period nvarchar(1),
    EInterval long default 0,
    RenewalOn nvarchar(1),
    Sun short default 0,
    Mon short default 0,
    Tue short default 0,
    Wed short default 0,
    Thu short default 0,
    Fri short default 0,
    Sat short default 0,
    FirstW short default 0,
    SecondW short default 0,
    ThirdW short default 0,
    ForthW short default 0,
    LastW short default 0,
    DOM short default 0,
    Dom1 short default 0,
    Dom2 short default 0,
    Dom3 short default 0,
    Dom4 short default 0,
    Dom5 short default 0,
    Jan short default 0,
    Feb short default 0,
    Mar short default 0,
    Apr short default 0,
    May short default 0,
    Jun short default 0,
    Jul short default 0,
    Aug short default 0,
    Sep short default 0,
    Oct short default 0,
    Nov short default 0,
    Dece short default 0,
    SeparateWo short default 0,
    LaborEstimate double default 0,
    CostEstimate currency default 0,
    [Note] memo,
    JobNo long default 0,
    NextScheduledDate datetime,
    constraint pkServices primary key (ServiceID)
);

create table tblServicesPart (
    PartID nvarchar(30) not null,
    ServiceID long not null,
    QuantityRequired double default 0,
    Price currency default 0,
    SupplierID long default 0,
    constraint pkServicesPart primary key (ServiceID, PartID)
);
create index ixServicesPartPart on tblServicesPart (PartID);

create table tblServiceUsed (
    ServiceUsedID counter,
    EquipmentID long,
    ServiceID long default 0,
    Name nvarchar(100),
    CrewID long default 0,
    CostCenterID long default 0,
    Period nvarchar(1),
    EInterval long default 0,
    RenewalOn nvarchar(1),
    Sun short default 0,
    Mon short default 0,
    Tue short default 0,
    Wed short default 0,
    Thu short default 0,
    Fri short default 0,
    Sat short default 0,
    FirstW short default 0,
    SecondW short default 0,
    ThirdW short default 0,
    ForthW short default 0,
    LastW short default 0,
    DOM short default 0,
    Dom1 short default 0,
    Dom2 short default 0,
    Dom3 short default 0,
    Dom4 short default 0,
    Dom5 short default 0,
    Jan short default 0,
    Feb short default 0,
    Mar short default 0,
    Apr short default 0,
    May short default 0,
    Jun short default 0,
    Jul short default 0,
    Aug short default 0,
    Sep short default 0,
    Oct short default 0,
    Nov short default 0,
    Dece short default 0,
    SeparateWo short default 0,
    LaborEstimate double default 0,
    CostEstimate currency default 0,
    [Note] memo,
    JobNo long default 0,
    Inactive short default 0,
    NextScheduledCount long default 0,
    LastDateScheduled datetime,
    LastDatePerformed datetime,
    NextScheduledDate datetime,
    constraint pkServiceUsed primary key (ServiceUsedID)
);
create index ixServiceUsedEquipment on tblServiceUsed (EquipmentID);
create index ixServiceUsedService on tblServiceUsed (ServiceID);
create index ixServiceUsedNextDate on tblServiceUsed (NextScheduledDate);
create index ixServiceUsedNewest on tblServiceUsed (ServiceUsedID desc);

create table tblServiceUsedPart (
    PartID nvarchar(30),
    ServiceUsedID long,
    QuantityRequired double default 0,
    Price currency default 0,
    SupplierID long default 0
);
create index ixServiceUsedPartService on tblServiceUsedPart (ServiceUsedID);
create index ixServiceUsedPartPart on tblServiceUsedPart (PartID);

-- Open work orders --------------------------------------------------------------------------------

create table tblWorkorder (
    WorkorderNo counter,
    EquipmentID long,
    Printed short default 0,
    Complete yesno,
    CompletedDate datetime,
    WoDate datetime default Date(),
    constraint pkWorkorder primary key (WorkorderNo)
);
create index ixWorkorderEquipment on tblWorkorder (EquipmentID);
create index ixWorkorderNewest on tblWorkorder (WorkorderNo desc);

create table tblWoServiceUsed (
    NServiceUsedID counter,
    WorkorderNo long,
    ServiceUsedID long default 0,
    ServiceID long default 0,
    EquipmentID long,
    LastDateScheduled datetime,
    LastDatePerformed datetime,
    NextScheduledDate datetime,
    Name nvarchar(100),
    CrewID long default 0,
    CostCenterID long default 0,
    SeparateWo short default 0,
    LaborEstimate double default 0,
    CostEstimate currency default 0,
    [Note] memo,
    Period nvarchar(1),
    JobNo long default 0,
    Completed yesno,
    Skip yesno,
    StartTime nvarchar(10),
    EndTime nvarchar(10),
    Workhrs nvarchar(10),
    CountValue long,
    SupplierID long default 0,
    constraint pkWoServiceUsed primary key (NServiceUsedID)
);
create index ixWoServiceUsedOrder on tblWoServiceUsed (WorkorderNo);
create index ixWoServiceUsedService on tblWoServiceUsed (ServiceUsedID);
-- A service stands on one open order at most, however many workstations make orders at once. 0 is no
-- service of a machine.
create unique index ixWoServiceUsedOnce on tblWoServiceUsed (ServiceUsedID) with ignore zero;
create index ixWoServiceUsedEquipment on tblWoServiceUsed (EquipmentID);
create index ixWoServiceUsedNewest on tblWoServiceUsed (NServiceUsedID desc);

-- ServiceUsedID holds the order row's NServiceUsedID.
create table tblWoPartUsed (
    ServiceUsedID long,
    PartID nvarchar(30),
    QuantityRequired double default 0,
    QuantityUsed double default 0,
    Price currency default 0,
    Used yesno,
    SupplierID long default 0
);
create index ixWoPartUsedService on tblWoPartUsed (ServiceUsedID);
create index ixWoPartUsedPart on tblWoPartUsed (PartID);

-- Posted work -------------------------------------------------------------------------------------

-- Holds names beside keys, so that later edits of masters leave history as it was: CostCenterID is
-- the cost centre's description, ServiceUsedID the order row's NServiceUsedID.
create table tblWOServiceUsedHistory (
    WorkorderNo long,
    ServiceUsedID long,
    EquipmentID long,
    ServiceID long,
    ServiceName nvarchar(100),
    CrewID long,
    CrewNumber long,
    LastDateScheduled datetime,
    LastDatePerformed datetime,
    NextScheduleddate datetime,
    CostCenterID nvarchar(60),
    SeparateWo short default 0,
    LaborEstimate double,
    CostEstimate currency,
    [Note] memo,
    Period nvarchar(1),
    jobNo long,
    CountValue long,
    Skip yesno,
    StartTime nvarchar(10),
    EndTime nvarchar(10),
    Workhrs nvarchar(10),
    SupplierID long,
    SupplierName nvarchar(80),
    StartDate datetime,
    CompleteDate datetime
);
create index ixServiceHistoryDate on tblWOServiceUsedHistory (CompleteDate);
create index ixServiceHistoryEquipment on tblWOServiceUsedHistory (EquipmentID);
create index ixServiceHistoryOrder on tblWOServiceUsedHistory (WorkorderNo);
create index ixServiceHistoryService on tblWOServiceUsedHistory (ServiceUsedID);

-- PartCategoryID and SupplierID hold the names.
create table tblWoPartHistory (
    ServiceusedID long,
    partID nvarchar(30),
    Description nvarchar(100),
    PartCategoryID nvarchar(60),
    Price currency,
    SupplierID nvarchar(80),
    SupplierName nvarchar(80),
    QuantityRequired double,
    QuantityUsed double
);
create index ixPartHistoryService on tblWoPartHistory (ServiceusedID);
create index ixPartHistoryPart on tblWoPartHistory (partID);

-- The program's own -------------------------------------------------------------------------------

-- A workstation's own key begins with the 32 characters of its identifier.
create table tblSysOption (
    SysOption nvarchar(120) not null,
    itemValue nvarchar(1000),
    constraint pkSysOption primary key (SysOption)
);

create table tblUser (
    UserName nvarchar(60) not null,
    [Password] nvarchar(200),
    EmployeeID nvarchar(20),
    EqAdd short,
    EqMod short,
    EqDel short,
    SerAdd short,
    SerMod short,
    SerDel short,
    PaAdd short,
    PaMod short,
    PaDel short,
    EqList short,
    EqDetail short,
    EqCountSheet short,
    ExpOnEq short,
    EqUtilization short,
    EqCrewHistory short,
    EqScanHistory short,
    InspDatReading short,
    LicRenDateReading short,
    WOHistory short,
    SerList short,
    SerEqName short,
    SerHistory short,
    SerHistoryTime short,
    InvReport short,
    InvReorderReport short,
    InvOrUpSer short,
    InvPartUsage short,
    InvPartHistory short,
    constraint pkUser primary key (UserName)
);

create table tblGridSetting (
    FormName nvarchar(60),
    Tablename nvarchar(60),
    FieldName nvarchar(100),
    Width long default 0,
    FPosition long default 0,
    SortType long default 0
);
create index ixGridSetting on tblGridSetting (FormName, Tablename);

create table tblErrorList (
    ErrNumber long,
    ErrDescription memo,
    LineNumber long,
    UserMsg memo,
    ModuleName nvarchar(100),
    ProcedureName nvarchar(100),
    ErrDateTime nvarchar(40),
    UserEmail nvarchar(100)
);

-- The fields that searches and filters offer; FieldDesc is the grid's column heading.
create table tblTableFields (
    Tablename nvarchar(60),
    RowID long,
    FieldDesc nvarchar(60),
    FieldName nvarchar(60),
    FieldType nvarchar(20)
);
create index ixTableFields on tblTableFields (Tablename);

create table tblTempServicePart (
    PartID nvarchar(30),
    Quantity double,
    Price currency
);
