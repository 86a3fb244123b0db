#include "organisation/clsCostCenter.h"
#include "organisation/clsCrew.h"
#include "organisation/clsEmployee.h"
#include "organisation/clsIndicator.h"
#include "organisation/clsLocation.h"
#include "organisation/clsSite.h"
#include "organisation/clsSupplier.h"

#include "core/CompanySession.h"

#include <ranges>

using namespace Qt::StringLiterals;

namespace {

struct Managers : test::CompanySession
{
    /// Where a record can be referred to, in the order of asking, and the answer for it.
    struct Reference
    {
        const char *table;
        const char *column;
        const char *answer;
    };

    inline static int number = 0; ///< of the last row made

    /// Refers to the id from one place after the other, the last of the order first: each new
    /// reference has to change the answer to its own word.
    template<class Ask>
    static void expectOrder(std::initializer_list<Reference> references, qint64 id, Ask &&ask)
    {
        EXPECT_EQ(ask(id), QString());
        for (const Reference &reference : std::views::reverse(references)) {
            const QString table = QString::fromLatin1(reference.table);
            const QString column = QString::fromLatin1(reference.column);
            // Tables whose numbers the database doesn't give.
            static const QHash<QString, std::pair<QString, QString>> keys{
                {u"tblequipment"_s, {u",EquipmentID"_s, u",%1"_s}},
                {u"tblservices"_s, {u",ServiceID"_s, u",%1"_s}},
                {u"tblemployee"_s, {u",EmployeeID"_s, u",'E%1'"_s}},
                {u"tblsupplier"_s, {u",SupplierID"_s, u",%1"_s}},
                {u"tblpart"_s, {u",PartID"_s, u",'P%1'"_s}}};
            const auto &[key, value] = keys.value(table.toLower());
            gcnData->Execute(u"Insert into %1(%2%3) values(%4%5)"_s.arg(table, column, key)
                                 .arg(id)
                                 .arg(QString(value).replace(u"%1"_s, QString::number(++number))));
            EXPECT_EQ(ask(id), QString::fromLatin1(reference.answer))
                << reference.table << '.' << reference.column;
        }
    }
};

constexpr qint64 Id = 9001;

} // namespace

TEST_F(Managers, AnswerWithTheFirstPlaceThatRefersToARecord)
{
    expectOrder({{"tblServices", "CrewID", "Services"},
                 {"tblServiceUsed", "CrewID", "ServiceUsed"},
                 {"tblEmployee", "Crew", "Employee"},
                 {"tblEquipment", "CrewID", "Equipment"}},
                Id, [](qint64 id) { return clsCrewManager().CanDeleteCrew(id); });
    expectOrder({{"tblLocation", "Site", "tblLocation"},
                 {"tblEquipment", "SiteID", "tblEquipment"},
                 {"tblEmployee", "Site", "tblEmployee"}},
                Id, [](qint64 id) { return clsSiteManager().CanDeleteSite(id); });
    expectOrder({{"tblEquipment", "LocationID", "Equipment"}}, Id,
                [](qint64 id) { return clsLocation_Manager().CanDeleteLocation(id); });
    expectOrder({{"tblServices", "CostCenterID", "Services"}}, Id,
                [](qint64 id) { return clsCostCenterManager().CanDeleteCostCenter(id); });
    expectOrder({{"tblEquipment", "SupplierID", "Equipment"}, {"tblPart", "SupplierID", "Part"}},
                Id, [](qint64 id) { return clsSupplier_Manager().CanDeleteLocation(id); });
}

TEST_F(Managers, LookForALookupItemInTheColumnsOfAllLists)
{
    // A licensed state does not keep its item.
    gcnData->Execute(u"Insert into tblEquipment(EquipmentID,StateLicensed) values(77,'9001')"_s);
    EXPECT_EQ(clsIndicatorManager().CanDeleteIndicator(Id), QString());
    expectOrder({{"tblIndicator", "ParentID", "Model/State"},
                 {"tblemployee", "country", "Employee"},
                 {"tblservices", "CrewID", "Services"},
                 {"tblemployee", "Crew", "Employee"},
                 {"tblequipment", "CrewID", "Equipment"},
                 {"tblemployee", "EmpPosition", "Employee"},
                 {"tblequipment", "EquipmentType", "Equipment"},
                 {"tblequipment", "VehicleFuelType", "Equipment(Vehicle Info)"},
                 {"tblequipment", "EngineFuelType", "Equipment(Engine Info)"},
                 {"tblequipment", "leasecompany", "Equipment(Lease)"},
                 {"tblequipment", "EquipmentMake", "Equipment"},
                 {"tblequipment", "EngineMake", "Equipment(Engine Info)"},
                 {"tblequipment", "ManufactureID", "Equipment(Purchase)"},
                 {"tblequipment", "EquipmentModel", "Equipment"},
                 {"tblequipment", "EngineModel", "Equipment(Engine Info)"},
                 {"tblpart", "PartCategoryID", "Part"},
                 {"tblSite", "StateID", "Site"},
                 {"tblEmployee", "State", "Employee"},
                 {"tblSupplier", "State", "Supplier"},
                 {"tblequipment", "body", "Equipment(Vehicle Info)"},
                 {"tblequipment", "Chassis", "Equipment(Vehicle Info)"},
                 {"tblequipment", "vehicleenginetype", "Equipment(Vehicle Info)"},
                 {"tblequipment", "trans", "Equipment(Vehicle Info)"}},
                Id, [](qint64 id) { return clsIndicatorManager().CanDeleteIndicator(id); });
    EXPECT_TRUE(clsIndicatorManager().CanDeleteParent(Id)) << "it has children";
}

TEST_F(Managers, MasterListsDoNotWaitForATransactionOnTheOtherConnection)
{
    BeginTrans();
    gcnData->Execute(u"Insert into tblCrew(CrewNumber,Description) values(1,'open')"_s);
    EXPECT_TRUE(clsCrewManager().SaveRecord({0, u"2"_s, u"outside"_s}, Mode::Add));
    RollbackTrans();
    const db::Recordset crews = clsCrewManager().GetCrewInfo();
    ASSERT_EQ(crews.RecordCount(), 1);
    EXPECT_EQ(crews.current().text(u"Description"), u"outside"_s);
}

TEST_F(Managers, AnEmployeeIsRenumberedByTheNumberItIsStoredUnder)
{
    const clsEmployee_Manager manager;
    clsEmployee employee;
    employee.EmployeeID = u" E'1 "_s;
    employee.FirstName = u"Ann"_s;
    employee.Lastname = u"O'Dell"_s;
    employee.LaborCost = 23.25;
    employee.Inactive = u"0"_s;
    employee.IncludeWoList = u"1"_s;
    EXPECT_TRUE(manager.SaveRecord(employee, Mode::Add));

    clsEmployee stored = clsEmployee::fromRow(manager.GetEmployeeInfo().current());
    EXPECT_EQ(stored.EmployeeID, u"E'1"_s);
    EXPECT_EQ(stored.OldEmployeeID, u"E'1"_s);
    EXPECT_EQ(stored.Lastname, u"O'Dell"_s);
    EXPECT_EQ(stored.LaborCost, 23.25);
    EXPECT_FALSE(stored.BirthDate.isValid());
    EXPECT_EQ(GetRecordCount(u"tblEmployee"_s, u"BirthDate is null"_s), 1);

    stored.EmployeeID = u"E2"_s;
    stored.BirthDate = base::wallClock(QDate(1970, 12, 31));
    EXPECT_TRUE(manager.SaveRecord(stored, Mode::Modify));
    EXPECT_EQ(GetRecordCount(u"tblEmployee"_s, u"EmployeeID = 'E2' and BirthDate = #12-31-1970#"_s),
              1);
    EXPECT_EQ(GetRecordCount(u"tblEmployee"_s, {}), 1);
    EXPECT_TRUE(manager.DeleteRecord(u"E2"_s));
    EXPECT_EQ(GetRecordCount(u"tblEmployee"_s, {}), 0);
}

TEST_F(Managers, AFailedDeletionOfAnEmployeeIsReportedAsNotAllowed)
{
    gcnData->Execute(u"Drop table tblEmployee"_s);
    EXPECT_FALSE(clsEmployee_Manager().DeleteRecord(u"E1"_s));
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
    supplier.Notes = u"it's open"_s;
    EXPECT_TRUE(manager.SaveRecord(supplier, Mode::Add));
    EXPECT_EQ(clsSupplier::fromRow(gcnData->Open(u"Select * from tblSupplier"_s).current()),
              supplier);
    clsSupplier second = supplier;
    second.SupplierID = 2;
    EXPECT_TRUE(manager.SaveRecord(second, Mode::Add));
    EXPECT_FALSE(manager.SaveRecord(second, Mode::Add));
    EXPECT_EQ(errors.takeOne().ModuleName, u"Class Supplier manager"_s);

    // A machine's part line alone does not keep a supplier.
    gcnData->Execute(u"Insert into tblEquipmentPart(EquipmentID,PartID,SupplierID) "
                     "values(1,'P1',2)"_s);
    EXPECT_EQ(manager.CanDeleteLocation(2), QString());
    EXPECT_TRUE(manager.DeleteRecord(2));
    EXPECT_EQ(GetRecordCount(u"tblSupplier"_s, {}), 1);
}
