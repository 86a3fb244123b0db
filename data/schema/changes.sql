-- What releases change in the databases that are in use, from the first release on, whose schema stands
-- in the folder "first". The release's script database is made from this text, and the console checks
-- that it leads from there to schema.sql. A release that has been shipped is not edited any more.
--
-- A program may be ended between a statement and the mark that it has run, which is then run once more:
-- each one must do no harm the second time.

version 101;

-- A service stands on one open order at most, however many workstations make orders at once. Where it
-- stands on several, the first one keeps it, and the work on the others is work outside the schedule.
update tblWoServiceUsed set ServiceUsedID = 0
    where ServiceUsedID <> 0 and exists (select earlier.NServiceUsedID from tblWoServiceUsed as earlier
        where earlier.ServiceUsedID = tblWoServiceUsed.ServiceUsedID
        and earlier.NServiceUsedID < tblWoServiceUsed.NServiceUsedID);
create unique index ixWoServiceUsedOnce on tblWoServiceUsed (ServiceUsedID) with ignore zero;

-- What an employee can do may take more than a line.
alter table tblEmployee alter column Skills memo;

-- The machine's screen goes through the machines by unit number in both directions, and looks for a
-- serial number that another machine has.
create index ixEquipmentUnitNoLast on tblEquipment (UnitNo desc);
create index ixEquipmentSerialNo on tblEquipment (EquipmentSerialNo);

-- A machine's utilization is told for each reading beside the one before it: the latest before its date,
-- and the highest below it.
create index ixEquipmentCountLast on tblEquipmentCount (EquipmentID desc, ChangeDate desc);
create index ixEquipmentCountHighest on tblEquipmentCount (EquipmentID desc, CountValue desc);
