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
using test::named;

const QString InProcess =
    u"Service is in-proccess for this equipment counts cann't be added till the service over."_s;

struct frmCountReadingTest : test::ScreenFleet
{
    static QString label(const QWidget &screen, const QString &name)
    {
        return named<QLabel>(screen, name).text();
    }
};

TEST_F(frmCountReadingTest, EachRefusalKeepsTheDialogAndWritesNothing)
{
    reading(1, u"Hours"_s, day(3, 10), 500);
    frmCountReading screen(1, u"Hours"_s);
    open(screen);
    EXPECT_EQ(label(screen, u"lblCountType"_s), u"Hours"_s);
    EXPECT_EQ(label(screen, u"lblLastDate"_s), u"03/10/2024"_s);
    EXPECT_EQ(label(screen, u"lblLastCount"_s), u"500"_s);
    auto &date = named<input::DateInput>(screen, u"datCountDate"_s);
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));

    say(u"New  date cann't be less than to last count date."_s);
    date.setDate(QDate(2024, 3, 9));
    EXPECT_EQ(date.date(), QDate(2024, 3, 10)) << "back to the last date";
    say(u"New  date cann't be greater than to current date."_s);
    date.setDate(QDate(2024, 3, 16));
    EXPECT_EQ(date.date(), QDate(2024, 3, 15)) << "back to today";

    say(u"New count value shouldn't be blank."_s);
    click(screen, u"cmdUpdate"_s);
    type(screen, u"txtCountValue"_s, u"4a9.9"_s);
    EXPECT_EQ(text(screen, u"txtCountValue"_s), u"499"_s) << "digits only";
    say(u"New count value should be greater than or equal to last count value."_s);
    click(screen, u"cmdUpdate"_s);
    putOnOrder(0, u"H"_s);
    type(screen, u"txtCountValue"_s, u"500"_s);
    say(InProcess);
    click(screen, u"cmdUpdate"_s);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 1);

    gcnData->Execute(u"Update tblWoServiceUsed set Period = 'I'"_s);
    date.setDate(QDate(2024, 3, 12));
    click(screen, u"cmdUpdate"_s);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_TRUE(screen.saved());
    EXPECT_EQ(readings::newest(1, u"Hours"_s).date, day(3, 12)) << "an equal value is taken";
}

TEST_F(frmCountReadingTest, ALastReadingAheadOfTodayLeavesToday)
{
    reading(1, u"Hours"_s, day(4, 1), 500);
    frmCountReading screen(1, u"Hours"_s);
    auto &date = named<input::DateInput>(screen, u"datCountDate"_s);
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));
    say(u"New  date cann't be less than to last count date."_s);
    date.setDate(QDate(2024, 3, 14));
    EXPECT_EQ(date.date(), QDate(2024, 3, 15));
}

TEST_F(frmCountReadingTest, WithoutATypeTheUserChoosesIt)
{
    reading(1, u"Hours"_s, day(3, 10), 500);
    const qint64 service = assigned({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 510}});
    frmCountReading screen(1, QString());
    open(screen);
    auto &types = named<input::IdCombo>(screen, u"cboCountType"_s);
    EXPECT_EQ(types.currentText(), u"Counts"_s);
    EXPECT_EQ(label(screen, u"lblLastDate"_s), u"None"_s);
    EXPECT_EQ(label(screen, u"lblLastCount"_s), u"0"_s);
    QTest::keyClick(&types, Qt::Key_Down);
    EXPECT_EQ(label(screen, u"lblLastCount"_s), u"500"_s);
    type(screen, u"txtCountValue"_s, u"510"_s);
    QTest::keyClick(&screen, Qt::Key_Return);
    EXPECT_EQ(
        value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s, {service}),
        day(3, 15));
}

TEST_F(frmCountReadingTest, TheFirstReadingOfAServiceIsFreeOfComparisons)
{
    const qint64 service = assigned({{u"Period"_s, u"H"_s}});
    QString type = u"Hours"_s;
    test::onNextModal([](QWidget &screen) {
        EXPECT_EQ(label(screen, u"lblHeading"_s),
                  u"Enter the last count that this service was performed."_s);
        EXPECT_EQ(label(screen, u"lblServiceName"_s), u"Oil change"_s);
        EXPECT_EQ(screen.findChild<QLabel *>(u"lblLastCount"_s), nullptr);
        named<input::DateInput>(screen, u"datCountDate"_s).setDate(QDate(2020, 1, 1));
        ScreenFleet::type(screen, u"txtCountValue"_s, u"123"_s);
        click(screen, u"cmdUpdate"_s);
    });
    EXPECT_TRUE(
        frmCountReadingEntry::ShowCountReadingForService(1, service, u"Oil change"_s, type));
    EXPECT_EQ(readings::newest(1, u"Hours"_s).date, day(1, 1, 2020));
    test::onNextModal([](QWidget &screen) { click(screen, u"cmdExit"_s); });
    EXPECT_FALSE(
        frmCountReadingEntry::ShowCountReadingForService(1, service, u"Oil change"_s, type));

    // A service without a type yet takes the one that the user chooses.
    type.clear();
    test::onNextModal([](QWidget &screen) {
        QTest::keyClick(&named<input::IdCombo>(screen, u"cboCountType"_s), Qt::Key_End);
        ScreenFleet::type(screen, u"txtCountValue"_s, u"9"_s);
        click(screen, u"cmdUpdate"_s);
    });
    EXPECT_TRUE(
        frmCountReadingEntry::ShowCountReadingForService(1, service, u"Oil change"_s, type));
    EXPECT_EQ(type, u"Miles"_s);
    EXPECT_EQ(value(u"Select Period from tblServiceUsed"_s), u"I"_s);
}

TEST_F(frmCountReadingTest, AReadingTooLargeCantBeTyped)
{
    frmCountReading screen(1, u"Hours"_s);
    open(screen);
    type(screen, u"txtCountValue"_s, u"2147483648"_s);
    EXPECT_EQ(text(screen, u"txtCountValue"_s), u"214748364");
    type(screen, u"txtCountValue"_s, u"2147483647"_s);
    EXPECT_EQ(text(screen, u"txtCountValue"_s), u"2147483647");
}

struct frmEquipmentReadingTest : test::ScreenFleet
{
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
    static grid::GridView &grid(const QWidget &screen)
    {
        return named<grid::GridView>(screen, u"grdReading"_s);
    }
    /// Types into the open box, or opens it by typing.
    static void keys(QWidget &screen, const QString &text, Qt::Key then)
    {
        for (const QChar character : text)
            QTest::keyClick(screen.focusWidget(), character.toLatin1());
        QTest::keyClick(screen.focusWidget(), then);
        QApplication::processEvents();
    }
    static QString cell(const QWidget &screen, int row)
    {
        return grid(screen).rows().text(row, u"Count");
    }
};

TEST_F(frmEquipmentReadingTest, AWholeBatchIsEnteredByTheKeyboard)
{
    frmEquipmentReading screen;
    open(screen);
    ASSERT_EQ(grid(screen).rows().rowCount(), 3);
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
    EXPECT_FALSE(enabled(screen, u"cmdPrint"_s)) << "no such report here";
    grid(screen).setFocus();

    keys(screen, u"150"_s, Qt::Key_Return);
    EXPECT_EQ(screen.mode(), Mode::Modify);
    EXPECT_FALSE(screen.isCloseEnabled());
    EXPECT_FALSE(named<QWidget>(screen, u"cmdExit"_s).isVisible());
    EXPECT_EQ(cell(screen, 0), u"150"_s);
    EXPECT_EQ(grid(screen).currentRow(), 1);

    prompts.warn(u"Count value should be more than or equal to Last value"_s);
    keys(screen, u"199"_s, Qt::Key_Down);
    EXPECT_EQ(grid(screen).currentRow(), 1) << "a refused value keeps the row";
    EXPECT_EQ(qobject_cast<QLineEdit *>(screen.focusWidget())->text(), u"200"_s);
    keys(screen, u"260"_s, Qt::Key_Down);
    EXPECT_EQ(grid(screen).currentRow(), 2);
    keys(screen, {}, Qt::Key_Up);
    EXPECT_EQ(grid(screen).currentRow(), 1);

    // A service of machine 2 has come to an order since.
    insert(u"tblWoServiceUsed"_s, {{u"EquipmentID"_s, 2}, {u"Period"_s, u"H"_s}});
    say(InProcess);
    saveByKey(screen);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 4);
    EXPECT_EQ(readings::newest(1, u"Hours"_s).value, 150);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed where EquipmentID = 1"_s),
              day(3, 15));
    ASSERT_EQ(grid(screen).rows().rowCount(), 2) << "what was read leaves the list";
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
}

TEST_F(frmEquipmentReadingTest, AnEmptiedBoxAndCancelTakeReadingsBack)
{
    frmEquipmentReading screen;
    open(screen);
    grid(screen).setFocus();
    keys(screen, u"150"_s, Qt::Key_Return);
    keys(screen, {}, Qt::Key_Up);
    QTest::keyClick(screen.focusWidget(), Qt::Key_Delete);
    keys(screen, {}, Qt::Key_Return);
    EXPECT_EQ(cell(screen, 0), u"______________"_s);
    keys(screen, u"250"_s, Qt::Key_Return);
    EXPECT_NE(screen.focusWidget(), &grid(screen)) << "the box of the next row";
    grid(screen).verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(screen.focusWidget(), &grid(screen)) << "scrolling hides it";
    click(screen, u"cmdCancel"_s);
    EXPECT_EQ(screen.mode(), Mode::Browse);
    EXPECT_TRUE(named<QWidget>(screen, u"cmdExit"_s).isVisible());
    EXPECT_EQ(cell(screen, 1), u"______________"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 3);
}

class CountPageTest : public test::ScreenFleet
{};

TEST_F(CountPageTest, AddsToTheMetersTypeAndDeletesWithinTheMachinesTransaction)
{
    reading(1, u"Miles"_s, day(3, 1), 500);
    test::PageFrame frame;
    auto &page = frame.show<CountPage>(1);
    EXPECT_TRUE(page.hasContent());
    test::onNextModal([](QWidget &dialog) {
        EXPECT_EQ(named<QLabel>(dialog, u"lblCountType"_s).text(), u"Miles"_s);
        type(dialog, u"txtCountValue"_s, u"600"_s);
        click(dialog, u"cmdUpdate"_s);
    });
    click(page, u"cmdAddCount"_s);
    EXPECT_EQ(page.grid()->rows().rowCount(), 2);
    EXPECT_EQ(frame.edits, 1);
    EXPECT_EQ(frame.changes, 1);

    page.grid()->selectRow(page.grid()->rows().findRow(u"Count Value", 500));
    ask(u"Are you sure you want to Delete this record? Count"_s, false);
    click(page, u"cmdDeleteCount"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2);
    ask(u"Are you sure you want to Delete this record? Count"_s, true);
    click(page, u"cmdDeleteCount"_s);
    EXPECT_EQ(value(u"Select CountValue from tblEquipmentCount"_s), 600);
    RollbackTrans();
    EXPECT_EQ(value(u"Select CountValue from tblEquipmentCount"_s), 500);

    page.showMachine(2);
    EXPECT_FALSE(page.hasContent());
    EXPECT_FALSE(enabled(page, u"cmdDeleteCount"_s));
    page.setEditable(false);
    EXPECT_FALSE(enabled(page, u"cmdAddCount"_s));
}

} // namespace
