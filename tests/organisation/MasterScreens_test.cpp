#include "organisation/MasterSession.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::opening;
using test::ScreenDriver;

namespace {

struct MasterScreens : test::MasterSession
{
    ~MasterScreens() override
    {
        screenCalls() = {};
        openings() = {};
    }
    static qint64 addCrew(int number)
    {
        return insert(
            u"Insert into tblCrew(CrewNumber,Description) values(%1,'Crew %1')"_s.arg(number),
            u"CrewID"_s);
    }
    static qint64 addSite(const QString &name)
    {
        return insert(u"Insert into tblSite(SiteName) values('%1')"_s.arg(name), u"SiteID"_s);
    }
    static void addSupplier(int id, const QString &name)
    {
        gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name,Notes) values(?,?,'')"_s,
                         {id, name});
    }
    static void addEmployee(const QString &id)
    {
        gcnData->Execute(u"Insert into tblEmployee(EmployeeID,FirstName) values(?,'Zoe')"_s, {id});
    }
};

} // namespace

TEST_F(MasterScreens, ACrewNeedsANumberOfItsOwnAndADescription)
{
    const qint64 first = addCrew(1);
    addCrew(2);
    inRecords(opening(ShowCrewDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        EXPECT_EQ(screen.focused(), "txtCrewNumber");
        expectRefusals(screen,
                       {{u"Crew Number should not be blank."_s, "txtCrewNumber", u"a2-"_s},
                        {u"Description should not be blank."_s, "txtDescription", u"O'Neil's"_s},
                        {u"Crew Number you specified already exists. Please enter a different "
                         "Crew Number."_s,
                         "txtCrewNumber", u"3"_s}});
        screen.press("cmdUpdate");
        EXPECT_EQ(value(u"Select Description from tblCrew where CrewNumber = 3"_s), u"O'Neil's"_s);
        // The new key isn't read back, so the first crew is shown.
        EXPECT_EQ(screen.text("txtCrewNumber"), u"1"_s);
        gcnData->Execute(u"Insert into tblServiceUsed(CrewID) values(%1)"_s.arg(first));
        screen.type("txtCrewNumber", u"5"_s);
        prompts.yes(u"This will change 1 for all your ServiceUsed. Do you want to do this?"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(value(u"Select CrewID from tblCrew where CrewNumber = 5"_s),
                  QString::number(first));
        screen.press("cmdNext");
        deleteRecord(screen);
        EXPECT_EQ(test::columnOf(screen.grid("grdCrew"), u"CrewNumber"),
                  (QStringList{u"5"_s, u"3"_s}));
    });
}

TEST_F(MasterScreens, ASiteIsNamedByThePlaceThatUsesItWithoutItsPrefix)
{
    const qint64 site = addSite(u"North Yard"_s);
    gcnData->Execute(u"Insert into tblEmployee(EmployeeID,Site) values('E1',%1)"_s.arg(site));
    inRecords(opening(showSiteDetail, Mode::Browse, site), [&](ScreenDriver screen) {
        screen.type("txtSiteName", {});
        expectRefusals(screen,
                       {{u"Site Name should not be blank."_s, "txtSiteName", u"South Yard"_s}});
        screen.type("txtZip", u"5?06 A1"_s);
        EXPECT_EQ(screen.text("txtZip"), u"506 A1"_s);
        screen.type("txtZip", {});
        prompts.yes(
            u"This will change North Yard for all your Employee. Do you want to do this?"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtZip"), u"0"_s);
        gcnData->Execute(
            u"Insert into tblLocation(LocationName,Site) values('Shed',%1)"_s.arg(site));
        deleteRecord(screen, u"Location"_s);
    });
    EXPECT_EQ(found(u"Select SiteName from tblSite"_s), u"South Yard"_s);
}

TEST_F(MasterScreens, ALocationNeedsANameAndASiteWhichCanBeAddedFromThere)
{
    addSite(u"North Yard"_s);
    inRecords(opening(ShowLocationDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtLocationID"), u"0"_s);
        expectRefusals(screen,
                       {{u"Location Name should not be blank."_s, "txtLocationName", u"Shed A"_s},
                        {u"Site Name should not be blank."_s, "cboSite", {}}});
        screen.choose("cboSite", u"North Yard"_s);
        test::onNextModal([](QWidget &window) {
            const ScreenDriver site(window);
            site.press("cmdAdd");
            site.type("txtSiteName", u"West Yard"_s);
            site.press("cmdUpdate");
            site.press("cmdExit");
        });
        screen.press("cmdSite");
        EXPECT_EQ(screen.text("cboSite"), u"North Yard"_s) << "what was chosen stays";
        screen.choose("cboSite", u"West Yard"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtLocationName"), u"Shed A"_s);
        EXPECT_FALSE(screen.grid("grdLocation").rows().column(u"LocationID").visible);
        // A machine stands there.
        gcnData->Execute(u"Insert into tblEquipment(EquipmentID,LocationID) values(1,%1)"_s.arg(
            screen.text("txtLocationID")));
        screen.type("txtLocationName", u"Shed B"_s);
        prompts.no(u"This will change Shed A for all your Equipment. Do you want to do this?"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtLocationName"), u"Shed A"_s);
    });
    EXPECT_EQ(found(u"Select s.SiteName from tblLocation l inner join tblSite s on l.Site = "
                    "s.SiteID"_s),
              u"West Yard"_s);
}

TEST_F(MasterScreens, ANewCostCenterIsShownAfterSaving)
{
    gcnData->Execute(u"Insert into tblCostCenter(Description) values('Repairs')"_s);
    inRecords(opening(ShowCostCenterDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        // A name may stand twice.
        expectRefusals(screen,
                       {{u"Description should not be blank."_s, "txtDescription", u"Repairs"_s}});
        screen.type("txtBudget", {});
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.grid("grdCostCenter").currentRow(), 1);
        gcnData->Execute(u"Insert into tblServices(ServiceID,CostCenterID) values(1,2)"_s);
        screen.type("txtBudget", u"1250.5"_s);
        screen.press("cmdUpdate"); // the budget is no name
        deleteRecord(screen, u"Services"_s);
    });
    EXPECT_EQ(value(u"Select Budget from tblCostCenter where CostCenterID = 2"_s), u"1250.5"_s);
}

TEST_F(MasterScreens, ANewSupplierTakesTheNextNumberAndNeedsAName)
{
    addSupplier(4, u"Tool Barn"_s);
    inRecords(opening(ShowSupplierDetail, Mode::Add, 0), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtSupplierID"), u"5"_s);
        EXPECT_EQ(screen.focused(), "txtName");
        expectRefusal(screen, "cmdUpdate", u"Supplier Name should not be blank."_s, "txtName",
                      Icon::None);
        screen.type("txtName", u"Tool Barn"_s); // names may be alike
        screen.type("txtTax", u"42-a1"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtSupplierID"), u"5"_s);
        EXPECT_EQ(screen.text("txtTax"), u"421"_s);
        EXPECT_FALSE(screen.isEnabled("cmdPrint")) << "there is no such report";
    });
}

TEST_F(MasterScreens, AnUnfinishedPhoneNumberIsNotLeft)
{
    addSupplier(1, u"Tool Barn"_s);
    addEmployee(u"E1"_s);
    using Box = std::pair<const char *, QString>;
    const std::pair<std::function<void()>, std::vector<Box>> screens[] = {
        {opening(ShowEmployeeDetail, Mode::Browse, u"E1"_s),
         {{"txtPhone", u"Invalid phone No"_s},
          {"txtCellPhone", u"Invalid cell phone No"_s},
          {"txtPager", u"Invalid pager no"_s}}},
        {opening(ShowSupplierDetail, Mode::Browse, 1),
         {{"txtPhone", u"Invalid phone No"_s}, {"txtFax", u"Invalid fax No"_s}}}};
    for (const auto &[open, boxes] : screens)
        inRecords(open, [&, &all = boxes](ScreenDriver screen) {
            for (const auto &[box, message] : all) {
                screen.type(box, u"319555"_s);
                prompts.inform(message);
                QTest::keyClick(&screen.control(box), Qt::Key_Tab);
                EXPECT_EQ(screen.focused(), box);
                // Alt+S saves without leaving the field.
                prompts.inform(message);
                screen.control<QAbstractButton>("cmdUpdate").click();
                EXPECT_EQ(screen.focused(), box);
                screen.type(box, u"319555012"_s); // the last digit is not looked at
                QTest::keyClick(&screen.control(box), Qt::Key_Tab);
                EXPECT_NE(screen.focused(), box);
            }
        });
}

TEST_F(MasterScreens, FindAndPrintGoToTheScreensThatHaveJoined)
{
    addSupplier(1, u"Tool Barn"_s);
    addSupplier(2, u"Belt World"_s);
    addEmployee(u"E1"_s);
    addEmployee(u"E9"_s);
    QString asked;
    QString found;
    screenCalls().ShowQuickFind = [&](const ScreenCalls::QuickFind &find) {
        asked = QStringList{find.field, find.table, find.form, find.selected}.join(u'|');
        return found;
    };
    QString filter;
    for (const auto &report : {u"ShowEmployeeReport"_s, u"ShowSupplierReport"_s})
        openings().join(report, [&](const OpeningArguments &a) { filter = a.query; });
    const struct
    {
        std::function<void()> open;
        QString found, asked, filter;
    } rows[] = {{opening(ShowEmployeeDetail, Mode::Browse, u"E1"_s), u"E9"_s,
                 u"EmployeeID|tblEmployee|frmEmployee|E1"_s,
                 u" Where tblEmployee.EmployeeID='E9'"_s},
                {opening(ShowSupplierDetail, Mode::Browse, 1), u"2"_s,
                 u"Name|tblSupplier|frmSupplier|1"_s, u"Where tblSupplier.SupplierID=2"_s}};
    for (const auto &row : rows) {
        found = row.found;
        inRecords(row.open, [](ScreenDriver screen) {
            screen.press("cmdFind");
            screen.press("cmdPrint");
        });
        EXPECT_EQ(asked, row.asked);
        EXPECT_EQ(filter, row.filter);
    }
}
