#include "core/CompanySession.h"
#include "core/ui/EveryField.h"
#include "core/ui/Joints.h"
#include "equipment/clsEquipment.h"
#include "equipment/ui/Entries.h"
#include "equipment/ui/EquipmentTabs.h"
#include "organisation/clsIndicator.h"
#include "platform/help/Help.h"

#include <QClipboard>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QWhatsThis>
#include <algorithm>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

const QString DeleteQuestion = u"This will delete the entire piece of equipment and all its "
                               "history. Are you sure you want to do this?"_s;
const QString SaveFirst = u"Record must be saved. Do you want to save it."_s;

struct EquipmentScreen : test::CompanySession
{
    EquipmentScreen() { gRights.EqAdd = gRights.EqMod = gRights.EqDel = true; }
    static qint64 addItem(qint64 parent, const QString &name)
    {
        return insert(u"tblIndicator"_s, u"ParentID, ItemName, Show, FSize"_s, {parent, name, 1, 0},
                      u"ItemID"_s);
    }
    static void addMachine(qint64 id, const QString &unit, const QString &name,
                           const QString &serial = {})
    {
        insert(u"tblEquipment"_s, u"EquipmentID, UnitNo, EquipmentName, EquipmentSerialNo"_s,
               {id, unit, name, serial});
    }
    /// Gives columns of a machine their values: "Notes = 'n', LifeYears = 4".
    static void set(const QString &columns, qint64 id = 1)
    {
        gcnData->Execute(
            u"update tblEquipment set %1 where EquipmentID = %2"_s.arg(columns).arg(id));
    }
    static QString stored(const QString &column, qint64 id = 1)
    {
        return found(u"select %1 from tblEquipment where EquipmentID = %2"_s.arg(column).arg(id));
    }

    /// Works the screen and closes it; what its entry answers comes back.
    static qint64 work(Mode mode, qint64 id, std::function<void(ScreenDriver)> act)
    {
        qint64 last = -1;
        test::inScreen([&] { last = ShowEquipmentDetail(mode, id); },
                       [&](ScreenDriver screen) {
                           EXPECT_TRUE(QTest::qWaitForWindowActive(&screen.screen()));
                           act(screen);
                           if (!screen.isOpen())
                               return;
                           if (screen.isShown("cmdCancel"))
                               screen.press("cmdCancel");
                           screen.press("cmdExit");
                       });
        return last;
    }
    /// The same with a machine 1, "A", with these values.
    static void inMachine(std::function<void(ScreenDriver)> act, const QString &columns = {})
    {
        addMachine(1, u"A"_s, u"mower"_s);
        if (!columns.isEmpty())
            set(columns);
        work(Mode::Browse, 1, std::move(act));
    }
    static int page(const ScreenDriver &screen)
    {
        return screen.screen().findChild<QStackedWidget *>()->currentIndex();
    }
    static EquipmentTabs &tabs(const ScreenDriver &screen)
    {
        return *screen.screen().findChild<EquipmentTabs *>();
    }
    /// Presses a key with Ctrl.
    static void press(const ScreenDriver &screen, Qt::Key key)
    {
        QWidget *target = screen.screen().focusWidget();
        QTest::keyClick(target ? target : &screen.screen(), key, Qt::ControlModifier);
    }

    test::ScriptedPrompts prompts;
    test::Joints joints;
};

} // namespace

TEST_F(EquipmentScreen, EachPageHasItsKeyAndOnItEachAltKeyOneControl)
{
    const auto expectNoAltKeyTwice = [](const ScreenDriver &screen) {
        QSet<QChar> taken;
        const auto take = [&](const QString &caption) {
            const qsizetype mark = caption.indexOf(u'&');
            const QChar key = mark < 0 ? QChar() : caption[mark + 1].toLower();
            EXPECT_TRUE(key.isNull() || !taken.contains(key)) << caption.toStdString();
            taken.insert(key);
        };
        for (const auto *button : screen.screen().findChildren<QAbstractButton *>())
            if (button->isVisible())
                take(button->text());
        for (const auto *label : screen.screen().findChildren<QLabel *>())
            if (label->isVisible() && label->buddy())
                take(label->text());
    };
    inMachine([&](ScreenDriver screen) {
        for (const bool editing : {false, true}) {
            if (editing)
                screen.type("txtCapacity", u"60"_s);
            QString keys;
            for (int index = EquipmentTabs::Count - 1; index >= 0; --index) {
                // A text that can be changed keeps some of the keys for itself.
                tabs(screen).button(0)->setFocus();
                // The key stands at the caption's end: "Notes (Ctrl+N)".
                const QString caption = tabs(screen).button(index)->text();
                keys.prepend(caption.at(caption.size() - 2));
                press(screen, Qt::Key(keys.front().unicode()));
                EXPECT_EQ(page(screen), index) << qPrintable(caption);
                EXPECT_TRUE(tabs(screen).button(index)->isChecked());
                expectNoAltKeyTwice(screen);
            }
            EXPECT_EQ(keys, u"ESHNFGVPBCIOD");
            EXPECT_EQ(gbInTransaction, editing) << "looking at pages edits nothing";
        }
    });
}

TEST_F(EquipmentScreen, CancelUndoesTheRecordAndTheRowsOfItsPages)
{
    insert(u"tblEquipmentDepreciation"_s, u"EquipmentID, EndofYear"_s, {1, 1999});
    inMachine(
        [&](ScreenDriver screen) {
            screen.type("txtEquipmentName", u"other"_s);
            press(screen, Qt::Key_D);
            screen.press("cmdRecalculate");
            const grid::GridModel &schedule = screen.grid("grdDepreciation").rows();
            EXPECT_EQ(schedule.rowCount(), 3);
            screen.press("cmdCancel");
            EXPECT_EQ(schedule.rowCount(), 1);
            EXPECT_EQ(schedule.text(0, u"End of Year"), u"1999");
            EXPECT_EQ(screen.text("txtEquipmentName"), u"mower");
        },
        u"Acquisitiondate = #05-01-2004#, Totalcost = 1000, SalvageValue = 100, LifeYears = 3"_s);
    EXPECT_EQ(found(u"select EndofYear from tblEquipmentDepreciation"_s), u"1999");
    EXPECT_EQ(stored(u"EquipmentName"_s), u"mower");
}

TEST_F(EquipmentScreen, ANewMachineShowsNoOtherPageUntilItIsSavedUnderAKeyOfTheMoment)
{
    const qint64 id = work(Mode::Add, 0, [&](ScreenDriver screen) {
        EXPECT_TRUE(gbInTransaction);
        prompts.no(SaveFirst);
        press(screen, Qt::Key_H);
        EXPECT_EQ(page(screen), 0);
        EXPECT_EQ(screen.focused(), "txtUnitNo");
        EXPECT_TRUE(tabs(screen).button(0)->isChecked());

        prompts.yes(SaveFirst);
        prompts.say(u"Equipment Unit No should not be blank."_s);
        press(screen, Qt::Key_H);
        EXPECT_EQ(page(screen), 0);
        EXPECT_EQ(screen.focused(), "txtUnitNo");

        QTest::keyClicks(screen.screen().focusWidget(), u"m-12 b"_s);
        EXPECT_EQ(screen.text("txtUnitNo"), u"M12 B") << "letters, digits and blanks, in capitals";
        prompts.say(u"Equipment Name should not be blank."_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.focused(), "txtEquipmentName");

        screen.type("txtEquipmentName", u"Blower"_s);
        prompts.yes(SaveFirst);
        press(screen, Qt::Key_H);
        EXPECT_EQ(page(screen), 2);
    });
    EXPECT_EQ(id, 315093000) << "month, day, hour, minute, second of the clock";
    EXPECT_EQ(found(u"select UnitNo, StateLicensed from tblEquipment"_s), u"M12 B|0");
    EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 0);
}

TEST_F(EquipmentScreen, AUnitOrSerialNumberInUseIsRefused)
{
    const QString takenUnit =
        u"Unit Number you specified already exists. Please enter a different Unit Number."_s;
    addMachine(1, u"A 1"_s, u"O'Hara's"_s, u"S'1"_s);
    addMachine(2, u"B 1"_s, u"blower"_s, u""_s);
    addMachine(3, u"C 1"_s, u"edger"_s, u""_s);
    work(Mode::Browse, 2, [&](ScreenDriver screen) {
        for (const auto &[box, number, message] :
             {std::tuple("txtUnitNo", u"a 1"_s, takenUnit),
              {"txtSerialNo", u"S'1"_s,
               u"This serial number is already in use on \"A 1\" - \"O'Hara's\""_s}}) {
            // A key of another page leaves the box, too.
            for (const Qt::Key leaving : {Qt::Key_Tab, Qt::Key_N}) {
                screen.type(box, number);
                prompts.say(message);
                if (leaving == Qt::Key_Tab)
                    QTest::keyClick(&screen.control(box), leaving);
                else
                    press(screen, leaving);
                EXPECT_EQ(screen.focused(), box);
                EXPECT_EQ(screen.text(box), u"") << box;
                EXPECT_EQ(page(screen), 0) << box;
            }
        }
        screen.type("txtSerialNo", u"S2"_s);
        screen.type("txtUnitNo", u"A 1"_s);
        prompts.say(takenUnit);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtUnitNo"), u"A 1") << "Save leaves the text to be corrected";
        EXPECT_EQ(screen.focused(), "txtUnitNo");
        EXPECT_TRUE(gbInTransaction);

        screen.type("txtUnitNo", u"b 1"_s);
        screen.press("cmdUpdate");
        EXPECT_FALSE(gbInTransaction) << "its own number may stay";
    });
    EXPECT_EQ(stored(u"EquipmentSerialNo"_s, 2), u"S2");
}

TEST_F(EquipmentScreen, AClickOnTheCrewIsHistoryEvenOfTheSameCrew)
{
    insert(u"tblCrew"_s, u"CrewNumber, Description"_s, {7, u"North's"_s}, u"CrewID"_s);
    inMachine([&](ScreenDriver screen) {
        for (const QString &crew : {u"7   North's"_s, u"7   North's"_s, u"  "_s}) {
            screen.choose("cboCrew", crew);
            screen.press("cmdUpdate");
            // Here the crew is not touched.
            screen.type("txtCapacity", u"1"_s);
            screen.press("cmdUpdate");
        }
    });
    EXPECT_EQ(found(u"select CrewNumber, CrewDescription from tblEquipmentCrewHistory order by "
                    "CrewNumber"_s),
              u"|\n7|North's\n7|North's");
    EXPECT_EQ(stored(u"CrewID"_s), u"0");
}

TEST_F(EquipmentScreen, ListsFollowTheirParents)
{
    const qint64 mower = addItem(LookupList::EquipmentType, u"Mower"_s);
    addItem(LookupList::EquipmentType, u"Lorry"_s);
    const qint64 make = addItem(mower, u"Acme"_s);
    addItem(make, u"X 1"_s);
    const qint64 site = insert(u"tblSite"_s, {{u"SiteName"_s, u"Yard"_s}}, u"SiteID"_s);
    insert(u"tblLocation"_s, {{u"LocationName"_s, u"Shed"_s}, {u"Site"_s, site}}, u"LocationID"_s);
    inMachine([&](ScreenDriver screen) {
        const auto items = [&](const char *list) {
            return screen.control<QComboBox>(list).count();
        };
        EXPECT_EQ(items("cboMake"), 0);
        screen.choose("cboType", u"Mower"_s);
        EXPECT_EQ(items("cboMake"), 2);
        EXPECT_EQ(items("cboModel"), 0);
        screen.choose("cboMake", u"Acme"_s);
        screen.choose("cboModel", u"X 1"_s);
        screen.choose("cboSite", u"Yard"_s);
        screen.choose("cboLocation", u"Shed"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.texts({"cboModel", "cboLocation"}), u"X 1|Shed"_s);

        screen.choose("cboType", u"Lorry"_s);
        EXPECT_EQ(screen.text("cboMake"), u"");
        EXPECT_EQ(items("cboModel"), 0) << "the models of the former make are gone";
        screen.press("cmdCancel");
        EXPECT_EQ(screen.text("cboMake"), u"Acme");
    });
    EXPECT_EQ(stored(u"EquipmentMake"_s, 1).toLongLong(), make);
}

TEST_F(EquipmentScreen, EveryFieldIsShownAndSaved)
{
    const qint64 site = insert(u"tblSite"_s, {{u"SiteName"_s, u"Yard"_s}}, u"SiteID"_s);
    insert(u"tblLocation"_s, {{u"LocationName"_s, u"Shed"_s}, {u"Site"_s, site}}, u"LocationID"_s);
    insert(u"tblCrew"_s, {{u"CrewNumber"_s, 1}, {u"Description"_s, u"Mowing"_s}}, u"CrewID"_s);
    insert(u"tblSupplier"_s, {{u"SupplierID"_s, 1}, {u"Name"_s, u"Tool Barn"_s}});
    inMachine([&](const ScreenDriver &screen) {
        test::expectEveryFieldIsSaved(screen, u"tblEquipment"_s,
                                      record::columns(clsEquipment::fields()),
                                      {u"EquipmentID"_s, u"VehicleOwnedLeased"_s});
    });
}

TEST_F(EquipmentScreen, AMakeThatWasDeletedByHandIsToldAndKept)
{
    const qint64 mower = addItem(LookupList::EquipmentType, u"Mower"_s);
    const QString missing = u"One of lookup item has been deleted\nmanually from database"_s;
    prompts.say(missing);
    inMachine(
        [&](ScreenDriver screen) {
            EXPECT_EQ(screen.texts({"cboMake", "cboType"}), u"|Mower"_s);
            EXPECT_EQ(screen.text("txtCapacity"), u"kept") << "the other fields are shown";
            prompts.say(u"You must first add a new Make before adding a new Model"_s);
            screen.press("cmdModel");
            screen.type("txtCapacity", u"1"_s);
            prompts.say(missing);
            screen.press("cmdUpdate");
        },
        u"EquipmentType = %1, EquipmentMake = 9999, Capacity = 'kept'"_s.arg(mower));
    EXPECT_EQ(stored(u"EquipmentMake"_s) + stored(u"Capacity"_s), u"99991");
}

TEST_F(EquipmentScreen, ALoanRenamesTheLease)
{
    inMachine([&](ScreenDriver screen) {
        press(screen, Qt::Key_B);
        for (const auto &[choice, word] : {std::pair(u"Leased"_s, u"Lease"_s),
                                           {u"Loan"_s, u"Loan"_s},
                                           {u"Owned"_s, u"Lease"_s}}) {
            screen.choose("cboLeaseOwnedLeased", choice);
            QSet<QString> captions;
            for (const QLabel *label : screen.screen().findChildren<QLabel *>())
                if (label->isVisible() && label->text().startsWith(word))
                    captions.insert(label->text().mid(word.size()));
            EXPECT_EQ(captions, (QSet<QString>{u" Company:"_s, u" is for:"_s, u" Start Date:"_s,
                                               u" End Date:"_s, u" Payment:"_s}))
                << qPrintable(choice);
        }
    });
}

TEST_F(EquipmentScreen, ADateThatIsNoneHoldsThePageAndTheSave)
{
    inMachine([&](ScreenDriver screen) {
        press(screen, Qt::Key_B);
        auto &date = screen.control<input::DateInput>("datAcquisition");
        date.setFocus();
        QTest::keyClicks(&date, u"13452024"_s);
        prompts.say(u"Please enter valid date."_s);
        press(screen, Qt::Key_E);
        EXPECT_EQ(page(screen), 8);
        prompts.say(u"Please enter valid date."_s);
        screen.control<QPushButton>("cmdUpdate").click();
        EXPECT_EQ(screen.focused(), "datAcquisition");
        EXPECT_TRUE(gbInTransaction);
        date.setDate(QDate(2019, 6, 2));
        screen.press("cmdUpdate");
        EXPECT_FALSE(gbInTransaction);
    });
    EXPECT_EQ(stored(u"Acquisitiondate"_s), u"6/2/2019");
}

TEST_F(EquipmentScreen, BlankIntervalsBecomeZeroWhenLeft)
{
    inMachine(
        [&](ScreenDriver screen) {
            press(screen, Qt::Key_B);
            for (const char *box : {"txtLeaseInterval", "txtWarrantyInterval"}) {
                EXPECT_EQ(screen.text(box), u"");
                screen.control(box).setFocus();
                QTest::keyClick(&screen.control(box), Qt::Key_Tab);
                EXPECT_EQ(screen.text(box), u"0") << "left without typing";
                screen.type(box, u"1x2"_s);
                EXPECT_EQ(screen.text(box), u"12");
                screen.type(box, u""_s);
                QTest::keyClick(&screen.control(box), Qt::Key_Tab);
                EXPECT_EQ(screen.text(box), u"0");
            }
        },
        u"LeaseInterval = ' '"_s);
}

TEST_F(EquipmentScreen, TabsOfPagesWithContentAreMarked)
{
    addMachine(2, u"B"_s, u"full"_s);
    set(u"Notes = 'n', UserDefined10 = 'u', EngineSize = '5', InspectionDate = #01-02-2024#, "
        "LeasePeriod = 2, LifeYears = 4"_s,
        2);
    insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
           {2, base::wallClock({2024, 1, 2}), u"Hours"_s, 5});
    inMachine([&](ScreenDriver screen) {
        const auto marks = [&] {
            QString row;
            for (int index = 0; index < EquipmentTabs::Count; ++index)
                row += tabs(screen).isMarked(index) ? u'x' : u'-';
            return row;
        };
        EXPECT_EQ(marks(), u"x------------");
        screen.press("cmdNext");
        EXPECT_EQ(marks(), u"x--xxxx-xx--x");
    });
}

TEST_F(EquipmentScreen, DeletingAsksAndShowsTheNeighbour)
{
    addMachine(2, u"B"_s, u"second"_s);
    addMachine(3, u"C"_s, u"third"_s);
    insert(u"tblWorkorder"_s, {{u"EquipmentID"_s, 1}});
    inMachine([&](ScreenDriver screen) {
        prompts.yes(DeleteQuestion);
        prompts.inform(u"Deletion not allowed. Record is being used in WorkOrder."_s);
        screen.press("cmdDelete");
        screen.press("cmdNext");
        for (const QString &neighbour : {u"C"_s, u"A"_s}) {
            prompts.yes(DeleteQuestion);
            screen.press("cmdDelete");
            EXPECT_EQ(screen.text("txtUnitNo"), neighbour);
        }
    });
    EXPECT_EQ(count(u"tblEquipment"_s), 1);
}

TEST_F(EquipmentScreen, WithoutTheRightsNothingCanBeChanged)
{
    gRights.EqMod = false;
    inMachine([&](ScreenDriver screen) {
        for (const char *box : {"txtUnitNo", "txtCapacity", "txtVin", "datInspection"})
            EXPECT_TRUE(screen.control<QLineEdit>(box).isReadOnly()) << box;
        EXPECT_TRUE(screen.control<QPlainTextEdit>("rtfNotes").isReadOnly());
        for (const char *control :
             {"cboType", "cboCrew", "chkInactive", "cmdAddNewService", "cmdAddCount"})
            EXPECT_FALSE(screen.isEnabled(control)) << control;
        QTest::keyClicks(&screen.control("txtCapacity"), u"5"_s);
        press(screen, Qt::Key_D);
        EXPECT_EQ(page(screen), 12) << "looking stays allowed";
        EXPECT_FALSE(gbInTransaction);
    });
}

TEST_F(EquipmentScreen, CtrlDStampsNotesAndElsewhereShowsTheDepreciation)
{
    inMachine([&](ScreenDriver screen) {
        press(screen, Qt::Key_N);
        EXPECT_EQ(screen.focused(), "rtfNotes");
        press(screen, Qt::Key_D);
        EXPECT_EQ(page(screen), 3);
        EXPECT_EQ(screen.text("rtfNotes"), u"3/15/2024 9:30 AM");
        press(screen, Qt::Key_B);
        screen.control("txtPurchaseNotes").setFocus();
        press(screen, Qt::Key_D);
        EXPECT_EQ(screen.text("txtPurchaseNotes"), u"3/15/2024 9:30 AM");
        screen.control("txtSupplierPartNo").setFocus();
        press(screen, Qt::Key_D);
        EXPECT_EQ(page(screen), 12);
    });
}

TEST_F(EquipmentScreen, TheKeysOfTheClipboardActOnATextThatCanBeChanged)
{
    inMachine([&](ScreenDriver screen) {
        QGuiApplication::clipboard()->setText(u"cutter"_s);
        for (const auto &[box, there] : {std::pair("txtEquipmentName", 0), {"rtfNotes", 3}}) {
            tabs(screen).button(there)->click();
            screen.control(box).setFocus();
            for (const Qt::Key key : {Qt::Key_A, Qt::Key_V, Qt::Key_A, Qt::Key_C, Qt::Key_X})
                press(screen, key);
            EXPECT_EQ(page(screen), there) << box;
            EXPECT_EQ(screen.text(box), QString()) << box;
            EXPECT_EQ(QGuiApplication::clipboard()->text(), u"cutter") << box;
            press(screen, Qt::Key_Z);
            EXPECT_EQ(screen.text(box), u"cutter") << box;
        }
        screen.press("cmdCancel");
        // What can't be changed only copies, and the keys turn to their pages.
        tabs(screen).button(0)->click();
        auto &name = screen.control<QLineEdit>("txtEquipmentName");
        name.setReadOnly(true);
        name.setFocus();
        press(screen, Qt::Key_A);
        press(screen, Qt::Key_C);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), u"mower");
        EXPECT_EQ(page(screen), 9);
    });
}

TEST_F(EquipmentScreen, WithoutMachinesNoPageCanBeTurnedTo)
{
    // The last machine goes while another page is in front.
    inMachine([&](ScreenDriver screen) {
        press(screen, Qt::Key_N);
        prompts.yes(DeleteQuestion);
        screen.press("cmdDelete");
        EXPECT_EQ(page(screen), 0);
        EXPECT_FALSE(tabs(screen).isEnabled());
        press(screen, Qt::Key_N);
        EXPECT_EQ(page(screen), 0);
        screen.press("cmdAdd");
        EXPECT_TRUE(tabs(screen).isEnabled());
        screen.press("cmdCancel");
        EXPECT_FALSE(tabs(screen).isEnabled());
    });
}

TEST_F(EquipmentScreen, UserFieldsCarryTheCustomersNames)
{
    SetOption(u"UserDefinedField2"_s, u"Insurance"_s, false);
    SetOption(u"UserDefinedField3"_s, u"Oil & Grease"_s, false);
    inMachine([&](ScreenDriver screen) {
        EXPECT_EQ(screen.control("txtUserDefined2").accessibleName(), u"Insurance");
        EXPECT_EQ(screen.control("txtUserDefined3").accessibleName(), u"Oil & Grease");
        // As QLabel takes it: a single one would be no character, but the mark of a key.
        EXPECT_TRUE(
            std::ranges::any_of(screen.screen().findChildren<QLabel *>(), [](const QLabel *label) {
                return label->text() == u"Oil && Grease:";
            }));
        press(screen, Qt::Key_F);
        screen.type("txtUserDefined2", u"Policy 5"_s);
        screen.press("cmdUpdate");
    });
    EXPECT_EQ(stored(u"UserDefined2"_s), u"Policy 5");
}

TEST_F(EquipmentScreen, FindAndPrintGoThroughTheirFolders)
{
    addMachine(2, u"B"_s, u"blower"_s);
    inMachine([&](ScreenDriver screen) {
        EXPECT_FALSE(screen.isEnabled("cmdFind"));
        EXPECT_FALSE(screen.isEnabled("cmdPrint"));
    });
    QString filter;
    gRights.EqDetail = true;
    openings().join(u"ShowEquipmentDetailReport"_s,
                    [&](const OpeningArguments &asked) { filter = asked.query; });
    screenCalls().ShowQuickFind = [](const ScreenCalls::QuickFind &find) {
        EXPECT_EQ(find.field + find.form, u"UnitNofrmEquipment");
        return u"2"_s;
    };
    const qint64 last = work(Mode::Browse, 1, [&](ScreenDriver screen) {
        screen.press("cmdFind");
        EXPECT_EQ(screen.text("txtUnitNo"), u"B");
        screen.press("cmdPrint");
    });
    EXPECT_EQ(last, 2);
    EXPECT_EQ(filter, u" where  tblEquipment.EquipmentID  = 2");
}

TEST_F(EquipmentScreen, AListIsRebuiltWhenItsEditorClosesAndKeepsItsChoice)
{
    const qint64 fuel = addItem(LookupList::FuelType, u"Peat"_s);
    addMachine(1, u"A"_s, u"mower"_s);
    set(u"EngineFuelType = %1, VehicleFuelType = %1"_s.arg(fuel));
    work(Mode::Browse, 1, [&](ScreenDriver screen) {
        press(screen, Qt::Key_G);
        test::inScreen([&] { screen.press("cmdEngineFuelType"); },
                       [](ScreenDriver editor) {
                           EXPECT_EQ(editor.text("txtName"), u"Peat") << "begins on the choice";
                           gcnLookup->Execute(u"update tblIndicator set ItemName = 'Turf' "
                                              "where ItemName = 'Peat'"_s);
                           addItem(LookupList::FuelType, u"Straw"_s);
                           editor.press("cmdExit");
                       });
        for (const char *list : {"cboEngineFuelType", "cboVehicleFuelType"}) {
            EXPECT_EQ(screen.text(list), u"Turf") << list;
            EXPECT_GE(screen.control<QComboBox>(list).findText(u"Straw"_s), 0) << list;
        }
        EXPECT_TRUE(screen.isShown("cmdAdd")) << "looking at a list is no edit";
    });
}

TEST_F(EquipmentScreen, TheHelpPointerExplainsAButtonInsteadOfPressingIt)
{
    inMachine([&](ScreenDriver screen) {
        screen.press("cmdHelp");
        EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
        QTest::mouseClick(&screen.control("tabPurchase"), Qt::LeftButton);
        EXPECT_EQ(page(screen), 0);
        EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
        const auto *help = screen.screen().findChild<QTextBrowser *>(u"txtPage"_s);
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->source().fileName(), u"equipment.html");
        EXPECT_EQ(help->source().fragment(), u"purchase");
        help::closeAll();
        QTest::mouseClick(&screen.control("tabPurchase"), Qt::LeftButton);
        EXPECT_EQ(page(screen), 8);
    });
}

TEST_F(EquipmentScreen, AMachineThatAnotherWorkstationHoldsKeepsWhatWasTyped)
{
    inMachine([&](ScreenDriver screen) {
        screen.type("txtCapacity", u"mine"_s);
        const auto other = database.open();
        other->BeginTrans();
        other->Execute(u"update tblEquipment set Weight = 'theirs' where EquipmentID = 1"_s);
        prompts.say(
            u"Another workstation is changing the machine \"A\". Please try again in a moment."_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtCapacity"), u"mine");
        other->CommitTrans();
        screen.press("cmdUpdate");
        EXPECT_FALSE(gbInTransaction);
    });
    EXPECT_EQ(stored(u"Capacity"_s), u"mine");
}

// --- Depreciation --------------------------------------------------------------------------------

namespace {

struct DepreciationOnScreen : EquipmentScreen
{
    /// Works a machine of May 2004 that costs so much and lives so long.
    static void inPurchase(int cost, int years, std::function<void(ScreenDriver)> act)
    {
        inMachine(std::move(act),
                  u"Acquisitiondate = #05-01-2004#, SalvageValue = 0, Totalcost = %1, LifeYears = "
                  "%2"_s.arg(cost)
                      .arg(years));
    }
};

} // namespace

TEST_F(DepreciationOnScreen, ChecksWhatItIsWorkedOutFrom)
{
    const struct
    {
        QString message;
        const char *focus;
        QString total, salvage, life;
    } cases[] = {
        {u"Total cost should not be blank."_s, "txtTotalCost", {}, {}, {}},
        {u"Salvage Value should not be blank."_s, "txtSalvageValue", u"100"_s, {}, {}},
        {u"Salvage Value should be less then the Total Cost."_s,
         "txtSalvageValue",
         u"100"_s,
         u"100.00"_s,
         {}},
        {u"Life of Asset should not be blank."_s, "txtAssetYears", u"1000.5"_s, u"1000.25"_s, {}},
    };
    inPurchase(0, 0, [&](ScreenDriver screen) {
        press(screen, Qt::Key_D);
        for (const auto &given : cases) {
            screen.control<QLineEdit>("txtTotalCost").setText(given.total);
            screen.control<QLineEdit>("txtSalvageValue").setText(given.salvage);
            screen.control<QLineEdit>("txtAssetYears").setText(given.life);
            prompts.say(given.message);
            // A key presses the button without leaving the box.
            screen.control<QPushButton>("cmdRecalculate").click();
            EXPECT_EQ(screen.focused(), given.focus);
        }
    });
}

TEST_F(DepreciationOnScreen, WritesAtOnceAndTurnsNoMode)
{
    inPurchase(1000, 3, [&](ScreenDriver screen) {
        press(screen, Qt::Key_D);
        EXPECT_EQ(screen.text("lblPurchaseYear"), u"2004");
        screen.press("cmdRecalculate");
        EXPECT_TRUE(screen.isShown("cmdAdd"));
        EXPECT_FALSE(gbInTransaction);
        const grid::GridModel &schedule = screen.grid("grdDepreciation").rows();
        ASSERT_EQ(schedule.rowCount(), 3);
        EXPECT_EQ(schedule.text(1, u"Accumualted Depreciation"), u"$666.67");

        // Two at once would leave the years of both.
        const auto other = database.open();
        other->BeginTrans();
        other->Execute(u"update tblEquipment set Notes = 'theirs' where EquipmentID = 1"_s);
        prompts.say(u"Another workstation is changing this machine. Nothing was stored. Please "
                    "try again in a moment."_s);
        screen.press("cmdRecalculate");
    });
    EXPECT_EQ(count(u"tblEquipmentDepreciation"_s), 3);
}

TEST_F(DepreciationOnScreen, TheYearListGivesAnotherFirstYearUntilTheNextDisplay)
{
    inPurchase(10, 1, [&](ScreenDriver screen) {
        screen.choose("cboYear", u"2010"_s);
        press(screen, Qt::Key_D);
        EXPECT_EQ(screen.text("lblPurchaseYear"), u"2010");
        screen.press("cmdRecalculate");
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("lblPurchaseYear"), u"2004");
        EXPECT_EQ(found(u"select EndofYear from tblEquipmentDepreciation"_s), u"2010");

        press(screen, Qt::Key_E);
        screen.choose("cboYear", u"  "_s);
        press(screen, Qt::Key_D);
        prompts.say(u"Equipment purchase year is empty.First Enter Equipment purchase year."_s);
        screen.press("cmdRecalculate");
    });
}

TEST_F(DepreciationOnScreen, NeedsAnAcquisitionDateAndFillsBlanksWithZero)
{
    inMachine([&](ScreenDriver screen) {
        press(screen, Qt::Key_D);
        EXPECT_EQ(screen.text("lblPurchaseYear"), u"");
        EXPECT_FALSE(screen.isEnabled("cmdRecalculate"));
        screen.type("txtTotalCost", u"1a0.5.x"_s);
        EXPECT_EQ(screen.text("txtTotalCost"), u"10.5");
        screen.enter("txtTotalCost", u""_s);
        EXPECT_EQ(screen.text("txtTotalCost"), u"0");
    });
}
