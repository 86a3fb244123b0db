#include "scheduling/ui/Entries.h"
#include "scheduling/ui/ScreenFleet.h"
#include "scheduling/ui/frmAssignCrew.h"
#include "scheduling/ui/frmServicesManager.h"

#include <QRadioButton>

namespace {

using namespace Qt::StringLiterals;
using test::named;

struct frmServicesManagerTest : test::ScreenFleet
{
    frmServicesManagerTest()
    {
        for (const int id : {50, 51, 52})
            catalogue(id, {{u"Name"_s, u"Service %1"_s.arg(id)}, {u"JobNo"_s, id - 40}});
    }
    ~frmServicesManagerTest() override { screenCalls().ShowQuickFind = nullptr; }

    static QStringList listed(const frmServicesManager &screen)
    {
        return test::columnOf(grid(screen), u"Name");
    }
    static grid::GridView &grid(const frmServicesManager &screen)
    {
        return named<grid::GridView>(screen, u"grdServices"_s);
    }
};

TEST_F(frmServicesManagerTest, GivesBackWhatWasTickedByKey)
{
    frmServicesManager screen({.leftOut = u"51"_s, .selectMode = true});
    open(screen);
    EXPECT_EQ(listed(screen), (QStringList{u"Service 50"_s, u"Service 52"_s}));
    EXPECT_EQ(grid(screen).rows().text(0, u"Crew"), u"7   Mowing"_s);
    EXPECT_EQ(grid(screen).rows().text(0, u"Budgeted Hrs"), u"1.50"_s);
    EXPECT_EQ(grid(screen).rows().text(0, u"Labor Cost"), u"$30.00"_s);
    EXPECT_FALSE(named<QWidget>(screen, u"fraEquipment"_s).isVisible());
    grid(screen).setFocus();
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    QTest::keyClick(&grid(screen), Qt::Key_Down);
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    QTest::keyClick(&grid(screen), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(screen.selection(), u"50, 52"_s);
}

TEST_F(frmServicesManagerTest, ListsWithAndWithoutTicksKeepTheirOwnLayouts)
{
    for (const bool selectMode : {false, true, false}) {
        frmServicesManager screen({.selectMode = selectMode});
        open(screen);
        const grid::GridView &services = grid(screen);
        EXPECT_EQ(services.layout().at(0).field, selectMode ? u"Select"_s : u"Service ID"_s);
        click(screen, u"cmdExit"_s);
    }
}

TEST_F(frmServicesManagerTest, KeepsTheTicksWhileAServiceIsAdded)
{
    frmServicesManager screen({.selectMode = true});
    open(screen);
    grid(screen).setFocus();
    QTest::keyClick(&grid(screen), Qt::Key_Space);
    test::onNextModal([this](QWidget &service) {
        catalogue(53, {{u"Name"_s, u"Service 53"_s}});
        click(service, u"cmdCancel"_s);
        click(service, u"cmdExit"_s);
    });
    click(screen, u"cmdAdd"_s);
    EXPECT_EQ(listed(screen).size(), 4);
    click(screen, u"cmdSelect"_s);
    EXPECT_EQ(screen.selection(), u"50"_s);
}

TEST_F(frmServicesManagerTest, LeavingItPicksNothingThoughKeysWereLeftOut)
{
    QString selection = u"51"_s;
    QString kind = u"SL"_s;
    test::onNextModal([](QWidget &screen) {
        QTest::mouseClick(&named<QPushButton>(screen, u"cmdExit"_s), Qt::LeftButton);
    });
    EXPECT_FALSE(frmServicesManagerEntry::ShowServiceManager(selection, 0, kind, true, false));
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
    frmServicesManager screen({.leftOut = u"51"_s, .selectMode = true, .equipmentOption = true});
    open(screen);
    click(screen, u"optEquipmentService"_s);
    EXPECT_EQ(listed(screen), QStringList{u"On the mower"_s});
    EXPECT_EQ(grid(screen).rows().text(0, u"RenewalOn"), QString());
    EXPECT_EQ(named<QLabel>(screen, u"lblUnitNo"_s).text(), u"U1"_s);
    EXPECT_EQ(screen.kind(), u"EL"_s);
    EXPECT_FALSE(enabled(screen, u"cmdAdd"_s));
    found.clear();
    click(screen, u"optEquipmentService"_s);
    EXPECT_TRUE(named<QRadioButton>(screen, u"optServiceMaster"_s).isChecked());
    EXPECT_EQ(screen.kind(), u"SL"_s);
    EXPECT_EQ(named<QLabel>(screen, u"lblUnitNo"_s).text(), QString());
    EXPECT_EQ(listed(screen).size(), 2);
}

TEST_F(frmServicesManagerTest, OpensAServiceAndComesBackToIt)
{
    frmServicesManager screen({});
    open(screen);
    grid(screen).selectRow(1);
    test::onNextModal([](QWidget &service) {
        EXPECT_EQ(text(service, u"txtName"_s), u"Service 51"_s);
        type(service, u"txtName"_s, u"Renamed"_s);
        click(service, u"cmdUpdate"_s);
        click(service, u"cmdExit"_s);
    });
    click(screen, u"cmdSelect"_s);
    EXPECT_EQ(grid(screen).currentRow(), 1);
    EXPECT_EQ(listed(screen).value(1), u"Renamed"_s);
    test::onNextModal([](QWidget &service) {
        click(service, u"cmdCancel"_s);
        if (service.isVisible())
            click(service, u"cmdExit"_s);
    });
    click(screen, u"cmdAdd"_s);
    EXPECT_EQ(grid(screen).currentRow(), 1) << "a cancelled Add stays where it was";
}

TEST_F(frmServicesManagerTest, AddsAndDeletesByRightAndUse)
{
    assigned({{u"ServiceID"_s, 50}});
    frmServicesManager screen({});
    open(screen);
    gRights = {};
    BeginTrans();
    inform(test::NoRights);
    click(screen, u"cmdAdd"_s);
    EXPECT_TRUE(gbInTransaction) << "nothing is committed for somebody who may not";
    RollbackTrans();
    inform(test::NoRights);
    click(screen, u"cmdDelete"_s);
    inform(test::NoRights);
    EXPECT_EQ(showServicesDetail(Mode::Add, 0), 0) << "whoever opens it";
    gRights.SerAdd = gRights.SerDel = true;

    grid(screen).selectRow(0);
    ask(u"Are you sure you want to Delete this record?"_s, true);
    say(u"Deletion not allowed. Record is being used in Service Used."_s);
    click(screen, u"cmdDelete"_s);
    grid(screen).selectRow(1);
    ask(u"Are you sure you want to Delete this record?"_s, true);
    click(screen, u"cmdDelete"_s);
    EXPECT_EQ(listed(screen), (QStringList{u"Service 50"_s, u"Service 52"_s}));

    // What was open is committed, so that the new service does not hang on it.
    BeginTrans();
    test::onNextModal([](QWidget &service) {
        EXPECT_FALSE(gbInTransaction);
        EXPECT_EQ(text(service, u"txtJobNo"_s), u"13"_s);
        click(service, u"cmdCancel"_s);
        click(service, u"cmdExit"_s);
    });
    click(screen, u"cmdAdd"_s);
}

TEST_F(frmServicesManagerTest, ANewCrewIsNotedWithTheOneThatTheMachineLeaves)
{
    const qint64 second =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 8}, {u"Description"_s, u"Trees"_s}}, u"CrewID"_s);
    machine(2, {{u"CrewID"_s, crew}});
    const auto assign = [&](qint64 machine, const QString &shown, int steps) {
        frmAssignCrew screen(machine);
        open(screen);
        auto &list = named<input::IdCombo>(screen, u"cboCrew"_s);
        EXPECT_EQ(list.currentText(), shown);
        for (int i = 0; i < steps; ++i)
            QTest::keyClick(&list, Qt::Key_Down);
        click(screen, u"cmdUpdate"_s);
        EXPECT_FALSE(screen.isVisible());
        return screen.saved();
    };
    EXPECT_FALSE(assign(2, u"7   Mowing"_s, 0));
    EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 0) << "unchanged";
    EXPECT_TRUE(assign(2, u"7   Mowing"_s, 1));
    EXPECT_EQ(value(u"Select CrewID from tblEquipment where EquipmentID = 2"_s), second);
    EXPECT_EQ(found(u"Select CrewNumber, CrewDescription, CrewDate from tblEquipmentCrewHistory"_s),
              u"7|Mowing|3/15/2024");
    EXPECT_TRUE(assign(1, u"  "_s, 1));
    EXPECT_EQ(value(u"Select CrewNumber from tblEquipmentCrewHistory where EquipmentID = 1"_s),
              u""_s);
    EXPECT_FALSE(gbInTransaction);
}

} // namespace
