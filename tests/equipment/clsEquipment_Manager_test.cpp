#include "equipment/clsEquipment_Manager.h"

#include "core/CompanySession.h"
#include "equipment/DocumentStore.h"
#include "platform/base/Format.h"
#include "platform/db/HelperProcess.h"
#include "support/ScriptedPrompts.h"

#include <QDir>
#include <QFile>
#include <QMap>

using namespace Qt::StringLiterals;
using Icon = base::Prompts::Icon;

namespace {

/// A machine in which no two fields hold the same, so that a value in a wrong column shows.
clsEquipment fullMachine()
{
    const auto day = [](int number) { return base::wallClock(QDate(2020, 1, 1).addDays(number)); };
    clsEquipment machine;
    machine.EquipmentID = 77;
    machine.EquipmentName = u"O'Hara's mower"_s;
    machine.EquipmentType = 101;
    machine.EquipmentMake = 102;
    machine.EquipmentModel = 103;
    machine.Capacity = u"60 in"_s;
    machine.EquipmentYear = u"2019"_s;
    machine.Bar_Code = u"BC-7"_s;
    machine.EquipmentSerialNo = u"SN'1"_s;
    machine.UnitNo = u"  M 12 "_s;
    machine.InstalledDate = day(1);
    machine.AttachedTo = u"T 4"_s;
    machine.SiteID = 104;
    machine.LocationID = 105;
    machine.CrewID = 106;
    machine.Inactive = u"1"_s;
    machine.LeaseOwnedLeased = 3;
    machine.LeaseCompany = 107;
    machine.LeaseStartDate = day(2);
    machine.LeaseEndDate = day(3);
    machine.LeasePeriod = 5;
    machine.LeaseInterval = 36;
    machine.LeasePayment = 210.25;
    machine.WarrantyStartDate = day(4);
    machine.WarrantyEndDate = day(5);
    machine.WarrantyPeriod = 6;
    machine.WarrantyInterval = 2;
    machine.Notes = u"Line one\nline 'two'"_s;
    QString clsEquipment::*const user[] = {
        &clsEquipment::UserDefined1, &clsEquipment::UserDefined2, &clsEquipment::UserDefined3,
        &clsEquipment::UserDefined4, &clsEquipment::UserDefined5, &clsEquipment::UserDefined6,
        &clsEquipment::UserDefined7, &clsEquipment::UserDefined8, &clsEquipment::UserDefined9,
        &clsEquipment::UserDefined10};
    for (int field = 0; field < 10; ++field)
        machine.*user[field] = u"user %1"_s.arg(field + 1);
    machine.EngineSize = u"921"_s;
    machine.EngineMake = 108;
    machine.EngineModel = 109;
    machine.EngineSerialNo = u"E-5"_s;
    machine.Cycle = u"4 Cycle"_s;
    machine.EngineFuelType = 110;
    machine.VehicleOwnedLeased = 0;
    machine.BeginingHub = 12345;
    machine.StateLicensed = u"111"_s;
    machine.LicenseNo = u"LIC 9"_s;
    machine.StickerNumber = u"ST 8"_s;
    machine.LicenseRenewalDate = day(6);
    machine.PermanentLicense = 2;
    machine.InspectionDate = day(7);
    machine.VehicleFuelType = 112;
    machine.Tyre = u"front"_s;
    machine.Rear_Tires = u"rear"_s;
    machine.Weight = u"1250 lb"_s;
    machine.Vin = u"VIN3"_s;
    machine.Body = 113;
    machine.Chassis = 114;
    machine.Trans = 115;
    machine.VehicleEngineType = 116;
    machine.VehicleEngineNo = u"EN 2"_s;
    machine.VehicleColor = u"green"_s;
    machine.VehicleEngineModel = u"V8"_s;
    machine.SupplierID = 117;
    machine.SupplierPartNo = u"SP 1"_s;
    machine.ManufactureID = 118;
    machine.ManufacturePartNo = u"MP 1"_s;
    machine.Acquisitiondate = day(8);
    machine.AcquisitionCost = 14200.5;
    machine.AdditionalCost = 99.75;
    machine.PurchaseNotes = u"at auction"_s;
    machine.Totalcost = 14300.25;
    machine.SalvageValue = 1430;
    machine.LifeYears = 6;
    return machine;
}

clsEquipment bareMachine(qint64 id, const QString &unit)
{
    clsEquipment machine;
    machine.EquipmentID = id;
    machine.UnitNo = unit;
    return machine;
}

/// What that machine leaves in the table, written down by hand.
QMap<QString, QString> fullRow()
{
    QMap<QString, QString> row{
        {u"EquipmentID"_s, u"77"_s},
        {u"EquipmentName"_s, u"O'Hara's mower"_s},
        {u"EquipmentType"_s, u"101"_s},
        {u"EquipmentMake"_s, u"102"_s},
        {u"EquipmentModel"_s, u"103"_s},
        {u"Capacity"_s, u"60 in"_s},
        {u"EquipmentYear"_s, u"2019"_s},
        {u"Bar_Code"_s, u"BC-7"_s},
        {u"EquipmentSerialNo"_s, u"SN'1"_s},
        {u"UnitNo"_s, u"M 12"_s},
        {u"InstalledDate"_s, u"1/2/2020"_s},
        {u"AttachedTo"_s, u"T 4"_s},
        {u"SiteID"_s, u"104"_s},
        {u"LocationID"_s, u"105"_s},
        {u"CrewID"_s, u"106"_s},
        {u"Inactive"_s, u"1"_s},
        {u"LeaseOwnedLeased"_s, u"3"_s},
        {u"LeaseCompany"_s, u"107"_s},
        {u"LeaseStartDate"_s, u"1/3/2020"_s},
        {u"LeaseEndDate"_s, u"1/4/2020"_s},
        {u"LeasePeriod"_s, u"5"_s},
        {u"LeaseInterval"_s, u"36"_s},
        {u"LeasePayment"_s, u"210.25"_s},
        {u"WarrantyStartDate"_s, u"1/5/2020"_s},
        {u"WarrantyEndDate"_s, u"1/6/2020"_s},
        {u"WarrantyPeriod"_s, u"6"_s},
        {u"WarrantyInterval"_s, u"2"_s},
        {u"Notes"_s, u"Line one\nline 'two'"_s},
        {u"EngineSize"_s, u"921"_s},
        {u"EngineMake"_s, u"108"_s},
        {u"EngineModel"_s, u"109"_s},
        {u"EngineSerialNo"_s, u"E-5"_s},
        {u"Cycle"_s, u"4 Cycle"_s},
        {u"EngineFuelType"_s, u"110"_s},
        {u"VehicleOwnedLeased"_s, u"0"_s},
        {u"BeginingHub"_s, u"12345"_s},
        {u"StateLicensed"_s, u"111"_s},
        {u"LicenseNo"_s, u"LIC 9"_s},
        {u"StickerNumber"_s, u"ST 8"_s},
        {u"LicenseRenewalDate"_s, u"1/7/2020"_s},
        {u"PermanentLicense"_s, u"2"_s},
        {u"InspectionDate"_s, u"1/8/2020"_s},
        {u"VehicleFuelType"_s, u"112"_s},
        {u"Tyre"_s, u"front"_s},
        {u"Rear_Tires"_s, u"rear"_s},
        {u"Weight"_s, u"1250 lb"_s},
        {u"Vin"_s, u"VIN3"_s},
        {u"Body"_s, u"113"_s},
        {u"Chassis"_s, u"114"_s},
        {u"Trans"_s, u"115"_s},
        {u"VehicleEngineType"_s, u"116"_s},
        {u"VehicleEngineNo"_s, u"EN 2"_s},
        {u"VehicleColor"_s, u"green"_s},
        {u"VehicleEngineModel"_s, u"V8"_s},
        {u"SupplierID"_s, u"117"_s},
        {u"SupplierPartNo"_s, u"SP 1"_s},
        {u"ManufactureID"_s, u"118"_s},
        {u"ManufacturePartNo"_s, u"MP 1"_s},
        {u"Acquisitiondate"_s, u"1/9/2020"_s},
        {u"AcquisitionCost"_s, u"14200.5"_s},
        {u"AdditionalCost"_s, u"99.75"_s},
        {u"PurchaseNotes"_s, u"at auction"_s},
        {u"Totalcost"_s, u"14300.25"_s},
        {u"SalvageValue"_s, u"1430"_s},
        {u"LifeYears"_s, u"6"_s},
    };
    for (int field = 1; field <= 10; ++field)
        row.insert(u"UserDefined%1"_s.arg(field), u"user %1"_s.arg(field));
    return row;
}

QMap<QString, QString> storedRow(qint64 id)
{
    QMap<QString, QString> row;
    const db::Recordset rows =
        gcnData->Open(u"select * from tblEquipment where EquipmentID = ?"_s, {id});
    if (rows.RecordCount() == 1)
        for (int column = 0; column < rows.columnCount(); ++column)
            row.insert(rows.columnName(column), base::toText(rows.value(0, column)));
    return row;
}

/// Where a machine gathers rows, with the column that holds its number.
constexpr const char *Gathered[] = {
    "tblEquipment",      "tblEquipmentDepreciation", "tblEquipmentCrewHistory",
    "tblServiceUsed",    "tblWOServiceUsedHistory",  "tblEquipmentPart",
    "tblEquipmentCount", "tblEquipmentImage",        "tblEquipmentDocument",
};

class Machines : public test::CompanySession
{
protected:
    static qint64 count(const QString &table, qint64 id)
    {
        return gcnData
            ->Open(u"select count(*) as n from %1 where EquipmentID = %2"_s.arg(table).arg(id))
            .current()
            .integer(u"n");
    }
    static qint64 partHistory(qint64 serviceUsedID)
    {
        return gcnData
            ->Open(u"select count(*) as n from tblWoPartHistory where ServiceusedID = ?"_s,
                   {serviceUsedID})
            .current()
            .integer(u"n");
    }
    /// A machine with a row in every table, its posted service under the number id + 500.
    static void addMachineWithAll(qint64 id)
    {
        const auto run = [](const QString &statement) { gcnData->Execute(statement); };
        run(u"insert into tblEquipment(EquipmentID,EquipmentName,UnitNo) values(%1,'m','U%1')"_s
                .arg(id));
        run(u"insert into tblEquipmentDepreciation(EquipmentID,EndofYear) values(%1,2020)"_s.arg(
            id));
        run(u"insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber) values(%1,'1')"_s.arg(
            id));
        run(u"insert into tblServiceUsed(EquipmentID,Name) values(%1,'oil')"_s.arg(id));
        run(u"insert into tblWOServiceUsedHistory(EquipmentID,ServiceUsedID) values(%1,%2)"_s
                .arg(id)
                .arg(id + 500));
        run(u"insert into tblWoPartHistory(ServiceusedID,partID) values(%1,'P')"_s.arg(id + 500));
        run(u"insert into tblEquipmentPart(EquipmentID,PartID) values(%1,'P')"_s.arg(id));
        run(u"insert into tblEquipmentCount(EquipmentID,CountType) values(%1,'Hours')"_s.arg(id));
        run(u"insert into tblEquipmentImage(EquipmentID,ImageName) values(%1,'front')"_s.arg(id));
        run(u"insert into tblEquipmentDocument(EquipmentID,DocumentName) values(%1,'a.txt')"_s.arg(
            id));
        QDir().mkpath(documents::folder(id));
        QFile file(documents::path(id, u"a.txt"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    test::ScriptedPrompts prompts;
    clsEquipment_Manager manager;
};

} // namespace

TEST_F(Machines, EveryColumnIsWrittenAddedOrModified)
{
    ASSERT_TRUE(manager.SaveRecord(fullMachine(), Mode::Add));
    EXPECT_EQ(storedRow(77), fullRow());

    clsEquipment other = fullMachine();
    other.EquipmentID = 78;
    other.UnitNo = u"M13"_s;
    ASSERT_TRUE(manager.SaveRecord(bareMachine(78, u"blank"_s), Mode::Add));
    ASSERT_TRUE(manager.SaveRecord(other, Mode::Modify));
    QMap<QString, QString> expected = fullRow();
    expected[u"EquipmentID"_s] = u"78"_s;
    expected[u"UnitNo"_s] = u"M13"_s;
    EXPECT_EQ(storedRow(78), expected);
    EXPECT_EQ(storedRow(77), fullRow()) << "only the machine's own row changes";
}

TEST_F(Machines, ReadingARowGivesBackWhatWasSaved)
{
    clsEquipment machine = fullMachine();
    machine.UnitNo = u"M12"_s;
    ASSERT_TRUE(manager.SaveRecord(machine, Mode::Add));
    EXPECT_EQ(
        clsEquipment_Manager::fromRow(gcnData->Open(u"select * from tblEquipment"_s).current()),
        machine);
}

TEST_F(Machines, ADateThatWasNotGivenIsNull)
{
    ASSERT_TRUE(manager.SaveRecord(fullMachine(), Mode::Add));
    ASSERT_TRUE(manager.SaveRecord(bareMachine(77, u"A"_s), Mode::Modify));
    const db::Recordset rows = gcnData->Open(u"select * from tblEquipment"_s);
    for (const auto *column :
         {u"InstalledDate", u"LeaseStartDate", u"LeaseEndDate", u"WarrantyStartDate",
          u"WarrantyEndDate", u"LicenseRenewalDate", u"InspectionDate", u"Acquisitiondate"})
        EXPECT_TRUE(rows.current().isNull(column)) << QString::fromUtf16(column).toStdString();
}

TEST_F(Machines, AnotherModeWritesNothing)
{
    EXPECT_TRUE(manager.SaveRecord(fullMachine(), Mode::Browse));
    EXPECT_TRUE(storedRow(77).isEmpty());
}

TEST_F(Machines, ASaveThatFailsLeavesTheTransactionOpen)
{
    BeginTrans();
    ASSERT_TRUE(manager.SaveRecord(bareMachine(1, u"A"_s), Mode::Add));
    EXPECT_FALSE(manager.SaveRecord(bareMachine(1, u"B"_s), Mode::Add));
    EXPECT_EQ(errors.takeOne().ModuleName, u"Class Equipment manager");
    EXPECT_TRUE(gbInTransaction);
    EXPECT_TRUE(manager.SaveRecord(bareMachine(2, u"B"_s), Mode::Add));
    CommitTrans();
    EXPECT_EQ(storedRow(2).value(u"UnitNo"_s), u"B");
}

TEST_F(Machines, ARowThatAnotherProgramChangesCanBeSavedLater)
{
    ASSERT_TRUE(manager.SaveRecord(fullMachine(), Mode::Add));
    test::HelperProcess other(
        u"hold-row"_s, database.file(), QProcessEnvironment::systemEnvironment(),
        u"update tblEquipment set Capacity = 'theirs' where EquipmentID = 77"_s);
    ASSERT_EQ(other.line(), u"holding"_s);

    clsEquipment mine = fullMachine();
    mine.VehicleColor = u"mine"_s;
    BeginTrans();
    prompts.expect(u"Another workstation is changing this record. Please try again in a moment."_s,
                   Icon::None);
    EXPECT_FALSE(manager.SaveRecord(mine, Mode::Modify));
    EXPECT_TRUE(gbInTransaction);
    ASSERT_TRUE(other.finish());
    EXPECT_TRUE(manager.SaveRecord(mine, Mode::Modify));
    CommitTrans();
    EXPECT_EQ(storedRow(77).value(u"VehicleColor"_s), u"mine");
}

TEST_F(Machines, DeletingTakesAllThatAMachineHasGatheredAndNothingElse)
{
    addMachineWithAll(1);
    addMachineWithAll(2);
    ASSERT_TRUE(manager.DeleteRecord(1));
    EXPECT_FALSE(gbInTransaction);
    for (const char *table : Gathered) {
        EXPECT_EQ(count(QString::fromLatin1(table), 1), 0) << table;
        EXPECT_EQ(count(QString::fromLatin1(table), 2), 1) << table;
    }
    EXPECT_EQ(partHistory(501), 0);
    EXPECT_EQ(partHistory(502), 1);
    EXPECT_FALSE(QDir(documents::folder(1)).exists());
    EXPECT_TRUE(QDir(documents::folder(2)).exists());
}

TEST_F(Machines, AMachineWithoutDocumentsIsDeletedWithoutAWord)
{
    ASSERT_TRUE(manager.SaveRecord(fullMachine(), Mode::Add));
    EXPECT_TRUE(manager.DeleteRecord(77));
    EXPECT_TRUE(prompts.shown().empty());
}

TEST_F(Machines, ADeletionThatFailsHalfwayTakesNothing)
{
    addMachineWithAll(1);
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(u"update tblEquipmentCount set CountValue = 5 where EquipmentID = 1"_s);
    EXPECT_FALSE(manager.DeleteRecord(1));
    const ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ProcedureName, u"DeleteRecord");
    EXPECT_EQ(report.ModuleName, u"Class Equipment manager");
    other->RollbackTrans();
    EXPECT_FALSE(gbInTransaction);
    for (const char *table : Gathered)
        EXPECT_EQ(count(QString::fromLatin1(table), 1), 1) << table;
    EXPECT_TRUE(documents::exists(1, u"a.txt"_s));
}

TEST_F(Machines, OnlyAnOpenWorkOrderKeepsAMachine)
{
    addMachineWithAll(1);
    EXPECT_EQ(manager.CanDeleteEquipment(1), QString());
    gcnData->Execute(u"insert into tblWorkorder(EquipmentID) values(1)"_s);
    EXPECT_EQ(manager.CanDeleteEquipment(1), u"WorkOrder");
    EXPECT_EQ(manager.CanDeleteEquipment(2), QString());
}
