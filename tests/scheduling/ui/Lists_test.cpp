#include "scheduling/ui/Entries.h"
#include "scheduling/ui/ScreenFleet.h"
#include "scheduling/ui/frmAssignCrew.h"
#include "scheduling/ui/frmServicesManager.h"

#include <QRadioButton>

namespace {

using namespace Qt::StringLiterals;
using test::ScreenDriver;
using Services = test::Opened<frmServicesManager>;

struct frmServicesManagerTest : test::ScreenFleet
{
    frmServicesManagerTest()
    {
        for (const int id : {50, 51, 52})
            catalogue(id, {{u"Name"_s, u"Service %1"_s.arg(id)}, {u"JobNo"_s, id - 40}});
    }

    static Services show(const frmServicesManager::Request &request)
    {
        return Services(std::make_shared<frmServicesManager>(request));
    }
    static QStringList listed(const Services &screen)
    {
        return test::columnOf(grid(screen), u"Name");
    }
    static grid::GridView &grid(const Services &screen) { return screen.grid("grdServices"); }
};

TEST_F(frmServicesManagerTest, GivesBackWhatWasTickedByKey)
{
    const Services screen = show({.leftOut = u"51"_s, .selectMode = true});
    EXPECT_EQ(listed(screen), (QStringList{u"Service 50"_s, u"Service 52"_s}));
    EXPECT_EQ(grid(screen).rows().text(0, u"Crew"), u"7   Mowing"_s);
    EXPECT_EQ(grid(screen).rows().text(0, u"Budgeted Hrs"), u"1.50"_s);
    EXPECT_EQ(grid(screen).rows().text(0, u"Labor Cost"), u"$30.00"_s);
    EXPECT_FALSE(screen.isShown("fraEquipment"));
    grid(screen).setFocus();
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    QTest::keyClick(&grid(screen), Qt::Key_Down);
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    QTest::keyClick(&grid(screen), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(screen->selection(), u"50, 52"_s);
}

TEST_F(frmServicesManagerTest, ListsWithAndWithoutTicksKeepTheirOwnLayouts)
{
    for (const bool selectMode : {false, true, false}) {
        const Services screen = show({.selectMode = selectMode});
        const grid::GridView &services = grid(screen);
        EXPECT_EQ(services.layout().at(0).field, selectMode ? u"Select"_s : u"Service ID"_s);
        screen.press("cmdExit");
    }
}

TEST_F(frmServicesManagerTest, KeepsTheTicksWhileAServiceIsAdded)
{
    const Services screen = show({.selectMode = true});
    grid(screen).setFocus();
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    test::inScreen([&] { screen.press("cmdAdd"); },
                   [this](const ScreenDriver &service) {
                       catalogue(53, {{u"Name"_s, u"Service 53"_s}});
                       service.press("cmdCancel");
                       service.press("cmdExit");
                   });
    EXPECT_EQ(listed(screen).size(), 4);
    screen.press("cmdSelect");
    EXPECT_EQ(screen->selection(), u"50"_s);
}

TEST_F(frmServicesManagerTest, LeavingItPicksNothingThoughKeysWereLeftOut)
{
    QString selection = u"51"_s;
    QString kind = u"SL"_s;
    test::inScreen(
        [&] {
            EXPECT_FALSE(
                frmServicesManagerEntry::ShowServiceManager(selection, 0, kind, true, false));
        },
        [](const ScreenDriver &screen) { screen.press("cmdExit"); });
    EXPECT_EQ(selection, QString());
}

TEST_F(frmServicesManagerTest, TurnsToTheServicesOfAFoundMachineAndBack)
{
    assigned({{u"ServiceID"_s, 50}, {u"Name"_s, u"On the mower"_s}, {u"RenewalOn"_s, u"D"_s}});
    assigned({{u"ServiceID"_s, 51}, {u"Name"_s, u"Left out"_s}});
    QString found = u"1"_s;
    screenCalls().ShowQuickFind = [&](const ScreenCalls::QuickFind &request) {
        EXPECT_EQ(request.table, u"tblEquipment"_s);
        return found;
    };
    const Services screen = show({.leftOut = u"51"_s, .selectMode = true, .equipmentOption = true});
    screen.press("optEquipmentService");
    EXPECT_EQ(listed(screen), QStringList{u"On the mower"_s});
    EXPECT_EQ(grid(screen).rows().text(0, u"RenewalOn"), QString());
    EXPECT_EQ(screen.text("lblUnitNo"), u"U1"_s);
    EXPECT_EQ(screen->kind(), u"EL"_s);
    EXPECT_FALSE(screen.isEnabled("cmdAdd"));
    found.clear();
    screen.press("optEquipmentService");
    EXPECT_TRUE(screen.control<QRadioButton>("optServiceMaster").isChecked());
    EXPECT_EQ(screen->kind(), u"SL"_s);
    EXPECT_EQ(screen.text("lblUnitNo"), QString());
    EXPECT_EQ(listed(screen).size(), 2);
}

TEST_F(frmServicesManagerTest, OpensAServiceAndComesBackToIt)
{
    const Services screen = show({});
    grid(screen).selectRow(1);
    test::inScreen([&] { screen.press("cmdSelect"); },
                   [](const ScreenDriver &service) {
                       EXPECT_EQ(service.text("txtName"), u"Service 51"_s);
                       service.type("txtName", u"Renamed"_s);
                       service.press("cmdUpdate");
                       service.press("cmdExit");
                   });
    EXPECT_EQ(grid(screen).currentRow(), 1);
    EXPECT_EQ(listed(screen).value(1), u"Renamed"_s);
    // What was open is committed, so that the new service does not hang on it.
    BeginTrans();
    test::inScreen([&] { screen.press("cmdAdd"); },
                   [](const ScreenDriver &service) {
                       EXPECT_FALSE(gbInTransaction);
                       EXPECT_EQ(service.text("txtJobNo"), u"13"_s);
                       service.press("cmdCancel");
                       service.press("cmdExit");
                   });
    EXPECT_EQ(grid(screen).currentRow(), 1) << "a cancelled Add stays where it was";
}

TEST_F(frmServicesManagerTest, AddsAndDeletesByRightAndUse)
{
    assigned({{u"ServiceID"_s, 50}});
    const Services screen = show({});
    gRights = {};
    BeginTrans();
    prompts.inform(test::NoRights);
    screen.press("cmdAdd");
    EXPECT_TRUE(gbInTransaction) << "nothing is committed for somebody who may not";
    RollbackTrans();
    prompts.inform(test::NoRights);
    screen.press("cmdDelete");
    prompts.inform(test::NoRights);
    EXPECT_EQ(showServicesDetail(Mode::Add, 0), 0) << "whoever opens it";
    gRights.SerDel = true;

    grid(screen).selectRow(0);
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    prompts.say(u"Deletion not allowed. Record is being used in Service Used."_s);
    screen.press("cmdDelete");
    grid(screen).selectRow(1);
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    screen.press("cmdDelete");
    EXPECT_EQ(listed(screen), (QStringList{u"Service 50"_s, u"Service 52"_s}));
}

TEST_F(frmServicesManagerTest, ANewCrewIsNotedWithTheOneThatTheMachineLeaves)
{
    const qint64 second =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 8}, {u"Description"_s, u"Trees"_s}}, u"CrewID"_s);
    machine(2, {{u"CrewID"_s, crew}});
    const auto assign = [&](qint64 machine, const QString &shown, int steps) {
        const test::Opened screen(std::make_shared<frmAssignCrew>(machine));
        EXPECT_EQ(screen.text("cboCrew"), shown);
        for (int i = 0; i < steps; ++i)
            QTest::keyClick(&screen.control("cboCrew"), Qt::Key_Down);
        screen.press("cmdUpdate");
        EXPECT_FALSE(screen.isOpen());
        return screen->saved();
    };
    EXPECT_FALSE(assign(2, u"7   Mowing"_s, 0)) << "unchanged";
    EXPECT_TRUE(assign(2, u"7   Mowing"_s, 1));
    EXPECT_TRUE(assign(1, QString(), 1));
    EXPECT_EQ(value(u"Select CrewID from tblEquipment where EquipmentID = 2"_s), second);
    EXPECT_EQ(found(u"Select EquipmentID, CrewNumber, CrewDescription, CrewDate from "
                    "tblEquipmentCrewHistory order by EquipmentID desc"_s),
              u"2|7|Mowing|3/15/2024\n1|||3/15/2024");
    EXPECT_FALSE(gbInTransaction);
}

} // namespace
