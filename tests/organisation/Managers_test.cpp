#include "organisation/clsCostCenter.h"
#include "organisation/clsCrew.h"
#include "organisation/clsEmployee.h"
#include "organisation/clsIndicator.h"
#include "organisation/clsLocation.h"
#include "organisation/clsSite.h"
#include "organisation/clsSupplier.h"

#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Id = 9001;

struct Managers : test::CompanySession
{
    using Ask = QString (*)(qint64);

    /// Refers to the id from one place, written "table.column".
    static void refer(const QString &place)
    {
        static int number = 0;
        const QString table = place.section(u'.', 0, 0);
        QVariantMap row{{place.section(u'.', 1), Id}};
        // Tables whose keys the database doesn't give.
        static const QHash<QString, QString> keys{{u"tblEquipment"_s, u"EquipmentID"_s},
                                                  {u"tblServices"_s, u"ServiceID"_s},
                                                  {u"tblEmployee"_s, u"EmployeeID"_s},
                                                  {u"tblSupplier"_s, u"SupplierID"_s},
                                                  {u"tblPart"_s, u"PartID"_s}};
        if (const QString key = keys.value(table); !key.isEmpty())
            row.insert(key, ++number);
        insert(table, row);
    }
    /// Each place alone keeps the record, by the word behind it.
    static void expectKept(Ask ask, const QString &word, const QString &places)
    {
        EXPECT_EQ(ask(Id), QString());
        for (const QString &place : places.split(u' ')) {
            refer(place);
            EXPECT_EQ(ask(Id), word) << qPrintable(place);
            gcnData->Execute(u"Delete from "_s + place.section(u'.', 0, 0));
        }
    }
};

} // namespace

TEST_F(Managers, AnswerWithTheFirstPlaceThatRefersToARecord)
{
    const Managers::Ask crew = [](qint64 id) { return clsCrewManager().CanDeleteCrew(id); };
    const Managers::Ask site = [](qint64 id) { return clsSiteManager().CanDeleteSite(id); };
    const Managers::Ask supplier = [](qint64 id) {
        return clsSupplier_Manager().CanDeleteLocation(id);
    };
    const Managers::Ask item = [](qint64 id) {
        return clsIndicatorManager().CanDeleteIndicator(id);
    };
    expectKept(crew, u"Services"_s, u"tblServices.CrewID"_s);
    expectKept(crew, u"ServiceUsed"_s, u"tblServiceUsed.CrewID"_s);
    expectKept(crew, u"Employee"_s, u"tblEmployee.Crew"_s);
    expectKept(crew, u"Equipment"_s, u"tblEquipment.CrewID"_s);
    expectKept(site, u"tblLocation"_s, u"tblLocation.Site"_s);
    expectKept(site, u"tblEquipment"_s, u"tblEquipment.SiteID"_s);
    expectKept(site, u"tblEmployee"_s, u"tblEmployee.Site"_s);
    expectKept([](qint64 id) { return clsLocation_Manager().CanDeleteLocation(id); },
               u"Equipment"_s, u"tblEquipment.LocationID"_s);
    expectKept([](qint64 id) { return clsCostCenterManager().CanDeleteCostCenter(id); },
               u"Services"_s, u"tblServices.CostCenterID"_s);
    expectKept(supplier, u"Part"_s, u"tblPart.SupplierID"_s);
    // A machine's part line alone keeps no supplier, a licensed state no item.
    expectKept(supplier, {}, u"tblEquipmentPart.SupplierID"_s);
    expectKept(supplier, u"Equipment"_s, u"tblEquipment.SupplierID"_s);
    expectKept(item, {}, u"tblEquipment.StateLicensed"_s);
    expectKept(item, u"Services"_s, u"tblServices.CrewID"_s);
    expectKept(item, u"Part"_s, u"tblPart.PartCategoryID"_s);
    expectKept(item, u"Site"_s, u"tblSite.StateID"_s);
    expectKept(item, u"Supplier"_s, u"tblSupplier.State"_s);
    expectKept(item, u"Employee"_s,
               u"tblEmployee.Country tblEmployee.Crew tblEmployee.EmpPosition tblEmployee.State"_s);
    expectKept(item, u"Equipment"_s,
               u"tblEquipment.CrewID tblEquipment.EquipmentType tblEquipment.EquipmentMake "
               "tblEquipment.EquipmentModel"_s);
    expectKept(item, u"Equipment(Vehicle Info)"_s,
               u"tblEquipment.VehicleFuelType tblEquipment.Body tblEquipment.Chassis "
               "tblEquipment.VehicleEngineType tblEquipment.Trans"_s);
    expectKept(item, u"Equipment(Engine Info)"_s,
               u"tblEquipment.EngineFuelType tblEquipment.EngineMake tblEquipment.EngineModel"_s);
    expectKept(item, u"Equipment(Lease)"_s, u"tblEquipment.LeaseCompany"_s);
    expectKept(item, u"Equipment(Purchase)"_s, u"tblEquipment.ManufactureID"_s);
    // Of several the first in the order of asking, children ahead of all.
    refer(u"tblEquipment.CrewID"_s);
    refer(u"tblEmployee.Crew"_s);
    EXPECT_EQ(crew(Id), u"Employee"_s);
    EXPECT_EQ(item(Id), u"Employee"_s);
    refer(u"tblIndicator.ParentID"_s);
    EXPECT_EQ(item(Id), u"Model/State"_s);
    EXPECT_TRUE(clsIndicatorManager().CanDeleteParent(Id));
}

TEST_F(Managers, MasterListsDoNotWaitForATransactionOnTheOtherConnection)
{
    BeginTrans();
    gcnData->Execute(u"Insert into tblCrew(CrewNumber,Description) values(1,'open')"_s);
    EXPECT_TRUE(clsCrewManager().SaveRecord({0, u"2"_s, u"outside"_s}, Mode::Add));
    RollbackTrans();
    EXPECT_EQ(found(u"Select Description from tblCrew"_s), u"outside"_s);
}

TEST_F(Managers, AnEmployeeIsRenumberedByTheNumberItIsStoredUnder)
{
    const clsEmployee_Manager manager;
    clsEmployee employee;
    employee.EmployeeID = u" E'1 "_s;
    employee.Lastname = u"O'Dell"_s;
    employee.LaborCost = 23.25;
    EXPECT_TRUE(manager.SaveRecord(employee, Mode::Add));

    employee.EmployeeID = employee.OldEmployeeID = u"E'1"_s;
    clsEmployee stored = clsEmployee::fromRow(manager.GetEmployeeInfo().current());
    EXPECT_EQ(stored, employee);
    EXPECT_EQ(count(u"tblEmployee"_s, u"BirthDate is null"_s), 1);

    stored.EmployeeID = u"E2"_s;
    stored.BirthDate = base::wallClock(QDate(1970, 12, 31));
    EXPECT_TRUE(manager.SaveRecord(stored, Mode::Modify));
    EXPECT_EQ(found(u"Select EmployeeID, BirthDate from tblEmployee"_s), u"E2|12/31/1970"_s);
    EXPECT_TRUE(manager.DeleteRecord(u"E2"_s));
    EXPECT_EQ(count(u"tblEmployee"_s), 0);
    gcnData->Execute(u"Drop table tblEmployee"_s);
    EXPECT_FALSE(manager.DeleteRecord(u"E1"_s));
    const ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ErrDescription, u"Deletion not allowed."_s);
    EXPECT_EQ(report.ModuleName, u"Employee"_s);
}

TEST_F(Managers, SuppliersMayShareANameButNotANumber)
{
    const clsSupplier_Manager manager;
    clsSupplier supplier;
    supplier.SupplierID = 1;
    supplier.Name = u"Deere's"_s;
    supplier.CreditLimit = 100.5;
    EXPECT_TRUE(manager.SaveRecord(supplier, Mode::Add));
    EXPECT_EQ(clsSupplier::fromRow(gcnData->Open(u"Select * from tblSupplier"_s).current()),
              supplier);
    clsSupplier second = supplier;
    second.SupplierID = 2;
    EXPECT_TRUE(manager.SaveRecord(second, Mode::Add));
    EXPECT_FALSE(manager.SaveRecord(second, Mode::Add));
    EXPECT_EQ(errors.takeOne().ModuleName, u"Class Supplier manager"_s);

    EXPECT_TRUE(manager.DeleteRecord(2));
    EXPECT_EQ(count(u"tblSupplier"_s), 1);
}
