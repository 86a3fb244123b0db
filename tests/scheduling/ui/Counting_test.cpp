#include "scheduling/Readings.h"
#include "scheduling/ui/CountPage.h"
#include "scheduling/ui/Entries.h"
#include "scheduling/ui/PageFrame.h"
#include "scheduling/ui/ScreenFleet.h"
#include "scheduling/ui/frmCountReading.h"
#include "scheduling/ui/frmEquipmentReading.h"

#include <QScrollBar>

namespace {

using namespace Qt::StringLiterals;
using test::Opened;
using test::ScreenDriver;

const QString InProcess =
    u"Service is in-proccess for this equipment counts cann't be added till the service over."_s;

using frmCountReadingTest = test::ScreenFleet;

TEST_F(frmCountReadingTest, EachRefusalKeepsTheDialogAndWritesNothing)
{
    reading(1, u"Hours"_s, day(3, 10), 500);
    const Opened screen(std::make_shared<frmCountReading>(1, u"Hours"_s));
    EXPECT_EQ(screen.texts({"lblCountType", "lblLastDate", "lblLastCount"}),
              u"Hours|03/10/2024|500"_s);
    auto &date = screen.control<input::DateInput>("datCountDate");
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));

    prompts.say(u"New  date cann't be less than to last count date."_s);
    date.setDate(QDate(2024, 3, 9));
    EXPECT_EQ(date.date(), QDate(2024, 3, 10)) << "back to the last date";
    prompts.say(u"New  date cann't be greater than to current date."_s);
    date.setDate(QDate(2024, 3, 16));
    EXPECT_EQ(date.date(), QDate(2024, 3, 15)) << "back to today";

    prompts.say(u"New count value shouldn't be blank."_s);
    screen.press("cmdUpdate");
    screen.type("txtCountValue", u"4a9.9"_s);
    EXPECT_EQ(screen.text("txtCountValue"), u"499"_s) << "digits only";
    screen.type("txtCountValue", u"2147483648"_s);
    EXPECT_EQ(screen.text("txtCountValue"), u"214748364"_s) << "and none beyond what is stored";
    screen.type("txtCountValue", u"499"_s);
    prompts.say(u"New count value should be greater than or equal to last count value."_s);
    screen.press("cmdUpdate");
    putOnOrder(0, u"H"_s);
    screen.type("txtCountValue", u"500"_s);
    prompts.say(InProcess);
    screen.press("cmdUpdate");
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 1);

    gcnData->Execute(u"Update tblWoServiceUsed set Period = 'I'"_s);
    date.setDate(QDate(2024, 3, 12));
    screen.press("cmdUpdate");
    EXPECT_FALSE(screen->isVisible());
    EXPECT_TRUE(screen->saved());
    EXPECT_EQ(readings::newest(1, u"Hours"_s).date, day(3, 12)) << "an equal value is taken";
}

TEST_F(frmCountReadingTest, ALastReadingAheadOfTodayLeavesToday)
{
    reading(1, u"Hours"_s, day(4, 1), 500);
    const Opened screen(std::make_shared<frmCountReading>(1, u"Hours"_s));
    auto &date = screen.control<input::DateInput>("datCountDate");
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));
    prompts.say(u"New  date cann't be less than to last count date."_s);
    date.setDate(QDate(2024, 3, 14));
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));
}

TEST_F(frmCountReadingTest, WithoutATypeTheUserChoosesIt)
{
    reading(1, u"Hours"_s, day(3, 10), 500);
    const qint64 service = assigned({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 510}});
    const Opened screen(std::make_shared<frmCountReading>(1, QString()));
    auto &types = screen.control<input::IdCombo>("cboCountType");
    EXPECT_EQ(types.currentText(), u"Counts"_s);
    EXPECT_EQ(screen.texts({"lblLastDate", "lblLastCount"}), u"None|0"_s);
    QTest::keyClick(&types, Qt::Key_Down);
    EXPECT_EQ(screen.text("lblLastCount"), u"500"_s);
    screen.type("txtCountValue", u"510"_s);
    QTest::keyClick(&screen.screen(), Qt::Key_Return);
    EXPECT_EQ(
        value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s, {service}),
        day(3, 15));
}

TEST_F(frmCountReadingTest, TheFirstReadingOfAServiceIsFreeOfComparisons)
{
    const qint64 service = assigned({{u"Period"_s, u"H"_s}});
    const auto ask = [&](QString type, const std::function<void(ScreenDriver)> &act) {
        bool saved = false;
        test::inScreen(
            [&] {
                saved = frmCountReadingEntry::ShowCountReadingForService(1, service,
                                                                         u"Oil change"_s, type);
            },
            act);
        return saved ? type : QString();
    };
    EXPECT_EQ(ask(u"Hours"_s,
                  [](const ScreenDriver &screen) {
                      EXPECT_EQ(screen.text("lblHeading"),
                                u"Enter the last count that this service was performed."_s);
                      EXPECT_EQ(screen.text("lblServiceName"), u"Oil change"_s);
                      EXPECT_EQ(screen.screen().findChild<QLabel *>(u"lblLastCount"_s), nullptr);
                      screen.control<input::DateInput>("datCountDate").setDate({2020, 1, 1});
                      screen.type("txtCountValue", u"123"_s);
                      screen.press("cmdUpdate");
                  }),
              u"Hours"_s);
    EXPECT_EQ(readings::newest(1, u"Hours"_s).date, day(1, 1, 2020));
    EXPECT_EQ(ask(u"Hours"_s, [](const ScreenDriver &screen) { screen.press("cmdExit"); }),
              QString());
    // A service without a type yet takes the one that the user chooses.
    EXPECT_EQ(ask({},
                  [](const ScreenDriver &screen) {
                      QTest::keyClick(&screen.control("cboCountType"), Qt::Key_End);
                      screen.type("txtCountValue", u"9"_s);
                      screen.press("cmdUpdate");
                  }),
              u"Miles"_s);
    EXPECT_EQ(value(u"Select Period from tblServiceUsed"_s), u"I"_s);
}

struct frmEquipmentReadingTest : test::ScreenFleet
{
    using Screen = Opened<frmEquipmentReading>;

    frmEquipmentReadingTest()
    {
        SetOption(u"COUNT_READING_DELAY"_s, 7, false);
        for (const int id : {1, 2, 3}) {
            if (id > 1)
                machine(id);
            assigned({{u"EquipmentID"_s, id},
                      {u"Period"_s, u"H"_s},
                      {u"NextScheduledCount"_s, id * 100 + 50}});
            reading(id, u"Hours"_s, day(3, 1), id * 100);
        }
    }
    static grid::GridView &grid(const Screen &screen) { return screen.grid("grdReading"); }
    /// Types into the open box, or opens it by typing.
    static void keys(const Screen &screen, const QString &text, Qt::Key then)
    {
        for (const QChar character : text)
            QTest::keyClick(screen->focusWidget(), character.toLatin1());
        QTest::keyClick(screen->focusWidget(), then);
        QApplication::processEvents();
    }
    static QString cell(const Screen &screen, int row)
    {
        return grid(screen).rows().text(row, u"Count");
    }
};

TEST_F(frmEquipmentReadingTest, AWholeBatchIsEnteredByTheKeyboard)
{
    const Screen screen(std::make_shared<frmEquipmentReading>());
    ASSERT_EQ(grid(screen).rows().rowCount(), 3);
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
    EXPECT_FALSE(screen.isEnabled("cmdPrint")) << "no such report here";
    grid(screen).setFocus();

    keys(screen, u"150"_s, Qt::Key_Return);
    EXPECT_EQ(screen->mode(), Mode::Modify);
    EXPECT_FALSE(screen->isCloseEnabled());
    EXPECT_FALSE(screen.isShown("cmdExit"));
    EXPECT_EQ(cell(screen, 0), u"150"_s);
    EXPECT_EQ(grid(screen).currentRow(), 1);

    prompts.warn(u"Count value should be more than or equal to Last value"_s);
    keys(screen, u"199"_s, Qt::Key_Down);
    EXPECT_EQ(grid(screen).currentRow(), 1) << "a refused value keeps the row";
    EXPECT_EQ(qobject_cast<QLineEdit *>(screen->focusWidget())->text(), u"200"_s);
    keys(screen, u"260"_s, Qt::Key_Down);
    EXPECT_EQ(grid(screen).currentRow(), 2);
    keys(screen, {}, Qt::Key_Up);
    EXPECT_EQ(grid(screen).currentRow(), 1);

    // A service of machine 2 has come to an order since.
    insert(u"tblWoServiceUsed"_s, {{u"EquipmentID"_s, 2}, {u"Period"_s, u"H"_s}});
    prompts.meanwhile([] { EXPECT_FALSE(gbInTransaction) << "no row waits for the box's user"; });
    prompts.say(InProcess);
    screen.saveByKey();
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 4);
    EXPECT_EQ(readings::newest(1, u"Hours"_s).value, 150);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed where EquipmentID = 1"_s),
              day(3, 15));
    ASSERT_EQ(grid(screen).rows().rowCount(), 2) << "what was read leaves the list";
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
}

TEST_F(frmEquipmentReadingTest, AnEmptiedBoxAndCancelTakeReadingsBack)
{
    const Screen screen(std::make_shared<frmEquipmentReading>());
    grid(screen).setFocus();
    keys(screen, u"150"_s, Qt::Key_Return);
    keys(screen, {}, Qt::Key_Up);
    QTest::keyClick(screen->focusWidget(), Qt::Key_Delete);
    keys(screen, {}, Qt::Key_Return);
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
    keys(screen, u"250"_s, Qt::Key_Return);
    EXPECT_NE(screen->focusWidget(), &grid(screen)) << "the box of the next row";
    grid(screen).verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(screen->focusWidget(), &grid(screen)) << "scrolling hides it";
    screen.press("cmdCancel");
    EXPECT_EQ(screen->mode(), Mode::Browse);
    EXPECT_TRUE(screen.isShown("cmdExit"));
    EXPECT_EQ(cell(screen, 1), u"______________"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 3);
}

using CountPageTest = test::ScreenFleet;

TEST_F(CountPageTest, AddsToTheMetersTypeAndDeletesWithinTheMachinesTransaction)
{
    reading(1, u"Miles"_s, day(3, 1), 500);
    test::PageFrame frame;
    auto &page = frame.show<CountPage>(1);
    const ScreenDriver driver(page);
    EXPECT_TRUE(page.hasContent());
    test::inScreen([&] { driver.press("cmdAddCount"); },
                   [](const ScreenDriver &dialog) {
                       EXPECT_EQ(dialog.text("lblCountType"), u"Miles"_s);
                       dialog.type("txtCountValue", u"600"_s);
                       dialog.press("cmdUpdate");
                   });
    EXPECT_EQ(page.grid()->rows().rowCount(), 2);
    EXPECT_EQ(frame.edits, 1);
    EXPECT_EQ(frame.changes, 1);

    page.grid()->selectRow(page.grid()->rows().findRow(u"Count Value", 500));
    prompts.no(u"Are you sure you want to Delete this record? Count"_s);
    driver.press("cmdDeleteCount");
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2);
    prompts.yes(u"Are you sure you want to Delete this record? Count"_s);
    driver.press("cmdDeleteCount");
    EXPECT_EQ(value(u"Select CountValue from tblEquipmentCount"_s), 600);
    RollbackTrans();
    EXPECT_EQ(value(u"Select CountValue from tblEquipmentCount"_s), 500);

    page.showMachine(2);
    EXPECT_FALSE(page.hasContent());
    EXPECT_FALSE(driver.isEnabled("cmdDeleteCount"));
    page.setEditable(false);
    EXPECT_FALSE(driver.isEnabled("cmdAddCount"));
}

} // namespace
