#include "organisation/MasterSession.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::opening;
using test::ScreenDriver;

namespace {

struct MasterScreens : test::MasterSession
{
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
};

} // namespace

TEST_F(MasterScreens, ACrewNeedsANumberOfItsOwnAndADescription)
{
    addCrew(1);
    addCrew(2);
    inRecords(opening(ShowCrewDetail, Mode::Add, 0), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.focused(), "txtCrewNumber");
        expectRefusal(screen, u"Crew Number should not be blank."_s, "txtCrewNumber");
        screen.type("txtCrewNumber", u"a2-"_s);
        EXPECT_EQ(screen.text("txtCrewNumber"), u"2"_s);
        expectRefusal(screen, u"Description should not be blank."_s, "txtDescription");
        screen.type("txtDescription", u"O'Neil's crew"_s);
        expectRefusal(screen,
                      u"Crew Number you specified already exists. Please enter a "
                      "different Crew Number."_s,
                      "txtCrewNumber");
        screen.type("txtCrewNumber", u"3"_s);
        screen.press("cmdUpdate");
        // The new key isn't read back, so the first crew is shown.
        EXPECT_EQ(screen.text("txtCrewNumber"), u"1"_s);
        EXPECT_EQ(screen.grid("grdCrew").rows().rowCount(), 3);
    });
    EXPECT_EQ(value(u"Select Description from tblCrew where CrewNumber = 3"_s), u"O'Neil's crew"_s);
}

TEST_F(MasterScreens, RenumberingAUsedCrewAsksBecauseItReachesAllItsUsers)
{
    const qint64 crew = addCrew(1);
    gcnData->Execute(u"Insert into tblServiceUsed(CrewID) values(%1)"_s.arg(crew));
    addCrew(2);
    inRecords(opening(ShowCrewDetail, Mode::Browse, crew), [&](ScreenDriver screen) {
        screen.type("txtCrewNumber", u"5"_s);
        prompts.yes(u"This will change 1 for all your ServiceUsed. Do you want to do this?"_s);
        screen.press("cmdUpdate");
        screen.press("cmdNext");
        screen.type("txtCrewNumber", u"6"_s);
        screen.press("cmdUpdate");
        deleteRecord(screen);
    });
    EXPECT_EQ(found(u"Select CrewNumber, CrewID from tblCrew"_s), u"5|%1"_s.arg(crew));
}

TEST_F(MasterScreens, ASiteIsNamedByThePlaceThatUsesItWithoutItsPrefix)
{
    const qint64 site = addSite(u"North Yard"_s);
    gcnData->Execute(u"Insert into tblEmployee(EmployeeID,Site) values('E1',%1)"_s.arg(site));
    inRecords(opening(showSiteDetail, Mode::Browse, site), [&](ScreenDriver screen) {
        screen.type("txtSiteName", {});
        expectRefusal(screen, u"Site Name should not be blank."_s, "txtSiteName");
        screen.type("txtSiteName", u"South Yard"_s);
        screen.type("txtZip", u"5?06 A1"_s);
        EXPECT_EQ(screen.text("txtZip"), u"506 A1"_s);
        screen.type("txtZip", {});
        screen.choose("cboState", u"IA"_s);
        prompts.yes(u"This will change North Yard for all your Employee. Do you want "
                    "to do this?"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtZip"), u"0"_s);
        EXPECT_EQ(screen.text("cboState"), u"IA"_s);
        gcnData->Execute(
            u"Insert into tblLocation(LocationName,Site) values('Shed',%1)"_s.arg(site));
        deleteRecord(screen, u"Location"_s);
    });
    EXPECT_EQ(found(u"Select SiteName from tblSite"_s), u"South Yard"_s);
}

TEST_F(MasterScreens, AStateThatIsThereNoMoreIsToldAndTheSiteIsShown)
{
    gcnData->Execute(u"Insert into tblSite(SiteName,StateID) values('Lost',987654)"_s);
    prompts.say(u"One of lookup item has been deleted\nmanually from database"_s);
    inRecords(opening(showSiteDetail, Mode::Browse, 0), [](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtSiteName"), u"Lost"_s);
        EXPECT_EQ(screen.text("cboState"), QString());
    });
}

TEST_F(MasterScreens, ALocationNeedsANameAndASite)
{
    const qint64 site = addSite(u"North Yard"_s);
    inRecords(opening(ShowLocationDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtLocationID"), u"0"_s);
        expectRefusal(screen, u"Location Name should not be blank."_s, "txtLocationName");
        screen.type("txtLocationName", u"Shed A"_s);
        expectRefusal(screen, u"Site Name should not be blank."_s, "cboSite");
        screen.choose("cboSite", u"North Yard"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtLocationName"), u"Shed A"_s);
        EXPECT_FALSE(screen.grid("grdLocation").rows().column(u"LocationID").visible);
        // A machine stands there.
        gcnData->Execute(u"Insert into tblEquipment(EquipmentID,LocationID) values(1,%1)"_s.arg(
            screen.text("txtLocationID")));
        screen.type("txtLocationName", u"Shed B"_s);
        prompts.no(u"This will change Shed A for all your Equipment. Do you want to "
                   "do this?"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtLocationName"), u"Shed A"_s);
    });
    EXPECT_EQ(value(u"Select Site from tblLocation"_s), QString::number(site));
}

TEST_F(MasterScreens, ASiteAddedFromTheLocationCanBeChosenThere)
{
    addSite(u"North Yard"_s);
    inRecords(opening(ShowLocationDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        screen.choose("cboSite", u"North Yard"_s);
        test::onNextModal([](QWidget &window) {
            const ScreenDriver site(window);
            site.press("cmdAdd");
            site.type("txtSiteName", u"West Yard"_s);
            site.press("cmdUpdate");
            site.press("cmdExit");
        });
        screen.press("cmdSite");
        EXPECT_EQ(screen.text("cboSite"), u"North Yard"_s);
        screen.choose("cboSite", u"West Yard"_s);
    });
}

TEST_F(MasterScreens, OfTwoLikeSitesEachIsShownAndKept)
{
    addSite(u"North Yard"_s);
    const qint64 second = addSite(u"north yard"_s);
    inRecords(opening(ShowLocationDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        screen.type("txtLocationName", u"Shed"_s);
        auto &sites = screen.control<input::IdCombo>("cboSite");
        sites.select(second);
        screen.press("cmdUpdate");
        EXPECT_EQ(sites.id(), second);
        screen.type("txtLocationName", u"Barn"_s);
        screen.press("cmdUpdate");
    });
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::DuplicateKeyInCollection);
    EXPECT_EQ(value(u"Select Site from tblLocation"_s), QString::number(second));
}

TEST_F(MasterScreens, ANewCostCenterIsShownAfterSaving)
{
    gcnData->Execute(u"Insert into tblCostCenter(Description) values('Repairs')"_s);
    inRecords(opening(ShowCostCenterDetail, Mode::Add, 0), [&](ScreenDriver screen) {
        expectRefusal(screen, u"Description should not be blank."_s, "txtDescription");
        screen.type("txtDescription", u"Repairs"_s); // a name may stand twice
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
