#include "scheduling/ui/frmServices.h"

#include "platform/input/SpinInput.h"
#include "scheduling/ui/ScreenFleet.h"

#include <QStackedWidget>

namespace {

using namespace Qt::StringLiterals;
using test::named;

const QString DateOnOrder =
    u"This service is already assigned to a work order. Changing this date will not remove it from "
    "the work order.If you are using the \"Reschedule Based on Service Original Scheduled\" "
    "changing the date will change when the service on the work order will be rescheduled\" Are "
    "you sure you want to do this \"Yes\" \"No\""_s;

struct frmServicesTest : test::ScreenFleet
{
    frmServices &show(ServiceStore store, Mode mode, qint64 key)
    {
        m_screens.push_back(std::make_unique<frmServices>(store));
        m_screens.back()->display(mode, key);
        open(*m_screens.back());
        return *m_screens.back();
    }
    /// Chooses the one crew and the one cost center by key.
    static void chooseCrewAndCostCenter(frmServices &screen)
    {
        for (const QString &list : {u"cboCrew"_s, u"cboCostCenter"_s}) {
            auto &combo = named<input::IdCombo>(screen, list);
            combo.setFocus();
            QTest::keyClick(&combo, Qt::Key_Down);
        }
    }
    static bool isChecked(const frmServices &screen, const QString &box)
    {
        return named<QAbstractButton>(screen, box).isChecked();
    }
    static QString caption(const frmServices &screen, const QString &button)
    {
        return named<QPushButton>(screen, button).text();
    }
    static void choosePeriod(frmServices &screen, const QString &word)
    {
        auto &combo = named<input::IdCombo>(screen, u"cboRenewalPeriod"_s);
        combo.setFocus();
        const int wanted = combo.findText(word);
        while (combo.currentIndex() != wanted)
            QTest::keyClick(&combo, combo.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    }
    static QString nextDateText(const frmServices &screen)
    {
        return qobject_cast<QLineEdit *>(
                   named<QStackedWidget>(screen, u"stkNextDate"_s).currentWidget())
            ->text();
    }

private:
    std::vector<std::unique_ptr<frmServices>> m_screens;
};

TEST_F(frmServicesTest, ANewServiceIsCheckedFieldByFieldAndThenStored)
{
    catalogue(50, {{u"JobNo"_s, 8}});
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Add, 0);
    EXPECT_EQ(text(screen, u"txtJobNo"_s), u"9"_s);
    EXPECT_EQ(named<input::IdCombo>(screen, u"cboRenewalPeriod"_s).currentText(), u"Days"_s);
    EXPECT_FALSE(screen.isCloseEnabled());

    const auto refusedWith = [&](const QString &message, const QString &focus) {
        inform(message);
        click(screen, u"cmdUpdate"_s);
        EXPECT_EQ(focused(screen), focus) << qPrintable(message);
        EXPECT_EQ(screen.mode(), Mode::Add);
    };
    refusedWith(u"Name should not be blank"_s, u"txtName"_s);
    type(screen, u"txtName"_s, u"Sharpen blades"_s);
    refusedWith(u"Select one Cost Center"_s, u"cboCostCenter"_s);
    QTest::keyClick(&named<input::IdCombo>(screen, u"cboCostCenter"_s), Qt::Key_Down);
    refusedWith(u"Select one Crew"_s, u"cboCrew"_s);
    QTest::keyClick(&named<input::IdCombo>(screen, u"cboCrew"_s), Qt::Key_Down);
    refusedWith(u"At least select one day of week."_s, u"chkSun"_s);
    click(screen, u"cmdMarkAllDays"_s);
    refusedWith(u"At least select one week of month."_s, u"chkFirst"_s);
    click(screen, u"cmdAllWeeks"_s);
    refusedWith(u"At least select one month of year."_s, u"chkJan"_s);
    click(screen, u"chkApr"_s);

    type(screen, u"txtBudgetedlabor"_s, u"2.5"_s);
    EXPECT_EQ(text(screen, u"txtLaborRate"_s), u"$20.00"_s);
    EXPECT_EQ(text(screen, u"txtBudgetedcost"_s), u"50.00"_s);
    EXPECT_EQ(text(screen, u"txtTotalCost"_s), u"$50.00"_s);
    auto &interval = named<input::SpinInput>(screen, u"RRSpin1"_s);
    interval.setFocus();
    QTest::keyClick(&interval, Qt::Key_Plus);
    click(screen, u"ChkSeparateWO"_s);
    click(screen, u"cmdUpdate"_s);

    EXPECT_EQ(screen.mode(), Mode::Browse);
    EXPECT_TRUE(screen.isCloseEnabled());
    EXPECT_EQ(focused(screen), u"txtName"_s);
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(
        found(u"Select ServiceID, JobNo, CrewID, Period, EInterval, RenewalOn, SeparateWo, "
              "Sat, LastW, Apr, May, CostEstimate from tblServices where Name like 'Sharpen*'"_s),
        u"%1|9|%2|D|2|W|1|1|1|1|0|50"_s.arg(screen.currentKey()).arg(crew));
}

TEST_F(frmServicesTest, DaysOfTheMonthRiseAndRuleAlone)
{
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse,
                               catalogue(50, {{u"Period"_s, u"M"_s}, {u"RenewalOn"_s, u"S"_s}}));
    EXPECT_FALSE(named<QWidget>(screen, u"cboDOM1"_s).isVisible());
    click(screen, u"chkUseDayoftheMonth"_s);
    EXPECT_EQ(screen.mode(), Mode::Modify);
    EXPECT_EQ(named<input::IdCombo>(screen, u"cboRenewalPeriod"_s).currentText(), u"Days"_s);
    EXPECT_EQ(named<input::SpinInput>(screen, u"RRSpin1"_s).value(), 1);
    EXPECT_TRUE(isChecked(screen, u"OptWOC"_s));
    EXPECT_LE(screen.minimumSizeHint().width(), 1366) << "with the five lists too";
    EXPECT_FALSE(enabled(screen, u"RRSpin1"_s));
    EXPECT_FALSE(enabled(screen, u"chkMon"_s));
    inform(u"User Should fill at least one day of the month"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(focused(screen), u"cboDOM1"_s);

    auto &first = named<input::IdCombo>(screen, u"cboDOM1"_s);
    auto &second = named<input::IdCombo>(screen, u"cboDOM2"_s);
    EXPECT_EQ(first.count(), 32) << "a blank and 1 to 31";
    QTest::keyClicks(&first, u"28"_s);
    EXPECT_EQ(second.itemText(1), u"29"_s);
    EXPECT_EQ(second.count(), 4);
    second.setFocus();
    QTest::keyClicks(&second, u"30"_s);
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_End);
    EXPECT_EQ(first.currentText(), u"31"_s);
    EXPECT_EQ(second.id(), 0) << "30 is no longer behind its predecessor";
    click(screen, u"cmdClearAll"_s);
    EXPECT_EQ(first.id(), 0);
    EXPECT_EQ(second.count(), 32);
    first.setFocus();
    for (int step = 0; step < 5; ++step)
        QTest::keyClick(&first, Qt::Key_Down);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(found(u"Select DOM, Dom1, Dom2, Mon, Period from tblServices"_s), u"1|5|0|1|D")
        << "the flags are left alone";
}

TEST_F(frmServicesTest, OneButtonTicksAndUnticksAWholeGroup)
{
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse, catalogue(50));
    EXPECT_EQ(caption(screen, u"cmdMOY"_s), u"UnSelect All"_s);
    click(screen, u"cmdMOY"_s);
    EXPECT_EQ(caption(screen, u"cmdMOY"_s), u"Select All"_s);
    EXPECT_FALSE(isChecked(screen, u"chkDec"_s));
    click(screen, u"chkMay"_s);
    EXPECT_EQ(caption(screen, u"cmdMOY"_s), u"UnSelect All"_s) << "one is enough";
    click(screen, u"cmdMOY"_s);
    click(screen, u"cmdMOY"_s);
    EXPECT_TRUE(isChecked(screen, u"chkJan"_s) && isChecked(screen, u"chkDec"_s));
}

TEST_F(frmServicesTest, WhatCanBeEditedFollowsFromTheKindOfSchedule)
{
    const struct
    {
        const char *name;
        QVariantMap row;
        const char *live; ///< D days, M days of the month, I interval, R options, N next
    } cases[] = {
        {"calendar", {}, "DMIRN"},
        {"calendar by days of the month", {{u"DOM"_s, 1}, {u"Dom1"_s, 5}}, "MRN"},
        {"count", {{u"Period"_s, u"H"_s}}, "IRN"},
        {"not again", {{u"RenewalOn"_s, u"D"_s}}, "RN"},
        {"inactive", {{u"Inactive"_s, 1}}, ""},
        {"inactive, stored as True", {{u"Inactive"_s, -1}, {u"Period"_s, u"H"_s}}, ""},
    };
    for (const auto &test : cases) {
        frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, assigned(test.row));
        const std::pair<char, QStringList> groups[] = {
            {'D',
             {u"chkMon"_s, u"cmdMarkAllDays"_s, u"chkFirst"_s, u"cmdAllWeeks"_s, u"chkJan"_s,
              u"cmdMOY"_s}},
            {'M', {u"chkUseDayoftheMonth"_s, u"cboDOM1"_s, u"cboDOM5"_s, u"cmdClearAll"_s}},
            {'I', {u"RRSpin1"_s, u"cboRenewalPeriod"_s}},
            {'R', {u"OptWOC"_s, u"OptSOS"_s, u"OptDSA"_s}},
            {'N', {u"datNextScheduledDate"_s, u"txtCount"_s}}};
        for (const auto &[letter, controls] : groups)
            for (const QString &control : controls)
                EXPECT_EQ(enabled(screen, control), std::strchr(test.live, letter) != nullptr)
                    << test.name << ": " << qPrintable(control);
    }
}

TEST_F(frmServicesTest, WithoutTheRightToModifyItOnlyShows)
{
    gRights.SerMod = false;
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse, catalogue(50));
    EXPECT_TRUE(named<QLineEdit>(screen, u"txtName"_s).isReadOnly());
    for (const QString &control :
         {u"cboCrew"_s, u"RRSpin1"_s, u"chkMon"_s, u"OptDSA"_s, u"cmdAddPart"_s, u"cmdUpdate"_s})
        EXPECT_FALSE(enabled(screen, control)) << qPrintable(control);
    type(screen, u"txtName"_s, u"Other"_s);
    EXPECT_EQ(screen.mode(), Mode::Browse);

    frmServices &added = show(ServiceStore::Catalogue, Mode::Add, 0);
    EXPECT_FALSE(named<QLineEdit>(added, u"txtName"_s).isReadOnly()) << "adding is another right";
}

TEST_F(frmServicesTest, AJobNumberIsCheckedOnLeavingAndCarriedToTheMachines)
{
    catalogue(50, {{u"JobNo"_s, 8}});
    catalogue(51, {{u"JobNo"_s, 9}});
    assigned({{u"ServiceID"_s, 50}, {u"JobNo"_s, 8}});
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse, 50);
    auto &number = named<QLineEdit>(screen, u"txtJobNo"_s);
    const auto leave = [&] {
        QTest::keyClick(&number, Qt::Key_Tab);
        QApplication::processEvents();
    };
    say(u"Service Job No should not be blank."_s);
    type(screen, u"txtJobNo"_s, {});
    leave();
    EXPECT_EQ(number.text(), u"8"_s);
    EXPECT_EQ(focused(screen), u"txtJobNo"_s);
    say(u"Job Number you specified already exists. Please enter a different Part Number."_s);
    type(screen, u"txtJobNo"_s, u"9"_s);
    leave();
    EXPECT_EQ(number.text(), u"8"_s);

    type(screen, u"txtJobNo"_s, u"12"_s);
    leave();
    ask(u"Do you want to change Job No of \"Oil change\" to \"12\" for all existing services?"_s,
        true);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select JobNo from tblServices where ServiceID = 50"_s), 12);
    EXPECT_EQ(value(u"Select JobNo from tblServiceUsed"_s), 12);

    // Saved by its key, the number is checked too, and No leaves the machines as they are.
    ask(u"Do you want to change Job No of \"Oil change\" to \"13\" for all existing services?"_s,
        false);
    type(screen, u"txtJobNo"_s, u"13"_s);
    saveByKey(screen);
    EXPECT_EQ(value(u"Select JobNo from tblServices where ServiceID = 50"_s), 13);
    EXPECT_EQ(value(u"Select JobNo from tblServiceUsed"_s), 12);
}

TEST_F(frmServicesTest, ATakenJobNumberIsReplacedAndToldAndNoPatternIsNeededWithoutASchedule)
{
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Add, 0);
    type(screen, u"txtName"_s, u"Once"_s);
    chooseCrewAndCostCenter(screen);
    click(screen, u"OptDSA"_s);
    EXPECT_FALSE(enabled(screen, u"chkMon"_s)) << "a service that is not scheduled again";
    EXPECT_FALSE(enabled(screen, u"RRSpin1"_s));
    // Another workstation takes the key: in this second, both get the same one.
    catalogue(315093000, {{u"JobNo"_s, 1}});
    say(u"Service no 1 is already being used the new service number is 2."_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(text(screen, u"txtJobNo"_s), u"2"_s);
    EXPECT_EQ(found(u"Select JobNo, RenewalOn from tblServices order by JobNo"_s), u"1|W\n2|D");
}

TEST_F(frmServicesTest, AnAssignedServiceShowsItsScheduleAndTakesANewDate)
{
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}, {u"JobNo"_s, 8}});
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    EXPECT_FALSE(named<QWidget>(screen, u"txtJobNo"_s).isVisible());
    EXPECT_EQ(named<QLabel>(screen, u"lblJobNoData"_s).text(), u"8"_s);
    EXPECT_EQ(named<QLabel>(screen, u"lblLastDateScheduledData"_s).text(), u"02/20/2024"_s);
    EXPECT_EQ(named<QLabel>(screen, u"lblLastDatePerformedData"_s).text(), u"03/01/2024"_s);
    EXPECT_EQ(nextDateText(screen), u"03/20/2024"_s);
    EXPECT_FALSE(named<QWidget>(screen, u"txtCount"_s).isVisible());

    auto &date = named<input::DateInput>(screen, u"datNextScheduledDate"_s);
    date.setFocus();
    QTest::keyClick(&date, Qt::Key_Up);
    const QDate typed = date.date();
    ASSERT_NE(typed, QDate(2024, 3, 20));
    putOnOrder(id);
    ask(DateOnOrder, false);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 20));
    EXPECT_EQ(nextDateText(screen), u"03/20/2024"_s);
    date.setFocus();
    QTest::keyClick(&date, Qt::Key_Up);
    ask(DateOnOrder, true);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), base::wallClock(typed));
}

TEST_F(frmServicesTest, ABlankDateStaysNullUntilOneIsGiven)
{
    const qint64 id = assigned();
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    EXPECT_EQ(named<QStackedWidget>(screen, u"stkNextDate"_s).currentWidget()->objectName(),
              u"txtNextScheduledDate"_s);
    click(screen, u"ChkSeparateWO"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_TRUE(value(u"Select NextScheduledDate from tblServiceUsed"_s).isNull());
    named<QLineEdit>(screen, u"txtNextScheduledDate"_s).setFocus();
    QTest::keyClicks(screen.focusWidget(), u"04022024"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(4, 2));
}

TEST_F(frmServicesTest, ANewPeriodBringsACountOrADate)
{
    reading(1, u"Hours"_s, day(3, 1), 500);
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}});
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    choosePeriod(screen, u"Hours"_s);
    EXPECT_TRUE(named<QWidget>(screen, u"txtCount"_s).isVisible());
    EXPECT_EQ(named<QLabel>(screen, u"lblNextSchedule"_s).text().remove(u'&'),
              u"Next Scheduled Count:"_s);
    EXPECT_EQ(text(screen, u"txtCount"_s), u"510"_s);
    EXPECT_EQ(nextDateText(screen), QString());
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(found(u"Select Period, NextScheduledCount, NextScheduledDate from tblServiceUsed"_s),
              u"H|510|");

    choosePeriod(screen, u"Weeks"_s);
    EXPECT_FALSE(named<QWidget>(screen, u"txtCount"_s).isVisible());
    choosePeriod(screen, u"Hours"_s);
    EXPECT_EQ(text(screen, u"txtCount"_s), u"510"_s);
    choosePeriod(screen, u"Weeks"_s);
    EXPECT_EQ(nextDateText(screen), u"03/15/2024"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 15));

    reading(1, u"Miles"_s, day(3, 1), 2147483640);
    say(u"Next service count is bigger than field size. please contact Quorvantis support"_s);
    choosePeriod(screen, u"Miles"_s);
}

TEST_F(frmServicesTest, ATargetCountIsAboveZero)
{
    reading(1, u"Hours"_s, day(3, 1), 500);
    const qint64 id = assigned({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 600}});
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    auto &box = named<QLineEdit>(screen, u"txtCount"_s);
    say(u"Please enter the next schedule count"_s);
    type(screen, u"txtCount"_s, {});
    QTest::keyClick(&box, Qt::Key_Tab);
    QApplication::processEvents();
    EXPECT_EQ(focused(screen), u"txtCount"_s);
    say(u"Count value shouldn't be less then or equal to 0"_s);
    type(screen, u"txtCount"_s, u"0"_s);
    QTest::keyClick(&box, Qt::Key_Tab);
    QApplication::processEvents();
    EXPECT_EQ(box.text(), u"500"_s);
    putOnOrder(id);
    ask(QString(DateOnOrder).replace(u"date"_s, u"count"_s), true);
    type(screen, u"txtCount"_s, u"499"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select NextScheduledCount from tblServiceUsed"_s), 499);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 1))
        << "due on the meter already";

    // A count of 0 from an earlier release stands until somebody changes it.
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    gcnData->Execute(u"Update tblServiceUsed set NextScheduledCount = 0"_s);
    frmServices &other = show(ServiceStore::Assigned, Mode::Browse, id);
    click(other, u"ChkSeparateWO"_s);
    click(other, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select SeparateWo from tblServiceUsed"_s), 1);
}

TEST_F(frmServicesTest, AnAssignedServiceIsRenamedOnlyOnInsisting)
{
    const QString question =
        u"You should not change the name of a service. If you need a new service add it using the "
        "\"Services\" navigator on the left side. Then add it to this piece of equipment. Are you "
        "sure you want to do this?"_s;
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, assigned());
    auto &name = named<QLineEdit>(screen, u"txtName"_s);
    ask(question, false);
    type(screen, u"txtName"_s, u"Filter"_s);
    QTest::keyClick(&name, Qt::Key_Tab);
    EXPECT_EQ(name.text(), u"Oil change"_s);
    type(screen, u"txtName"_s, u"OIL CHANGE"_s);
    QTest::keyClick(&name, Qt::Key_Tab);
    EXPECT_EQ(name.text(), u"OIL CHANGE"_s) << "only its case";
    ask(question, true);
    type(screen, u"txtName"_s, u"Filter"_s);
    QTest::keyClick(&name, Qt::Key_Tab);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select Name from tblServiceUsed"_s), u"Filter"_s);
}

TEST_F(frmServicesTest, AServiceOnAnOrderStaysActive)
{
    const qint64 id = assigned();
    putOnOrder(id);
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    say(u"This service is already assigned to a work order. You cann't setted inactive."_s);
    click(screen, u"chkInactive"_s);
    EXPECT_FALSE(isChecked(screen, u"chkInactive"_s));
    EXPECT_EQ(screen.mode(), Mode::Browse);
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    click(screen, u"chkInactive"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(value(u"Select Inactive from tblServiceUsed"_s), 1);
    EXPECT_FALSE(enabled(screen, u"OptWOC"_s));
    EXPECT_TRUE(enabled(screen, u"chkInactive"_s));
}

struct frmServicesParts : frmServicesTest
{
    frmServicesParts()
    {
        part(u"F1"_s, 4.5);
        part(u"OIL'5"_s, 10);
    }
    /// An assigned service with two of the first part.
    qint64 assignedWithPart() const
    {
        const qint64 id = assigned();
        insert(u"tblServiceUsedPart"_s, u"ServiceUsedID, PartID, QuantityRequired, Price"_s,
               {id, u"F1"_s, 2, 4.5});
        return id;
    }
    /// Ticks all parts that the selector offers.
    void selectAllParts(int offered)
    {
        test::onNextModal([offered](QWidget &selector) {
            auto &grid = named<grid::GridView>(selector, u"grdParts"_s);
            EXPECT_EQ(grid.rows().rowCount(), offered);
            for (int row = 0; row < grid.rows().rowCount(); ++row)
                grid.rows().edit(row, grid.rows().columnIndex(u"Select"), true);
            QTest::mouseClick(&named<QPushButton>(selector, u"cmdSelect"_s), Qt::LeftButton);
        });
    }
};

TEST_F(frmServicesParts, AreAddedChangedAndRemovedInOneEdit)
{
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, assignedWithPart());
    EXPECT_EQ(named<QLabel>(screen, u"lblPartCost"_s).text(), u"$9.00"_s);
    EXPECT_EQ(text(screen, u"txtTotalCost"_s), u"$39.00"_s);

    selectAllParts(1);
    click(screen, u"cmdAddPart"_s);
    EXPECT_EQ(screen.mode(), Mode::Modify);
    EXPECT_TRUE(gbInTransaction);
    EXPECT_EQ(text(screen, u"txtTotalCost"_s), u"$49.00"_s);
    auto &grid = named<grid::GridView>(screen, u"grdPartUsed"_s);
    EXPECT_TRUE(grid.rows().edit(grid.rows().findRow(u"Part Number", u"OIL'5"_s),
                                 grid.rows().columnIndex(u"Qty Req"), 0.25));
    EXPECT_EQ(named<QLabel>(screen, u"lblPartCost"_s).text(), u"$11.50"_s);
    ask(u"Are you sure you want to Delete this record?"_s, true);
    grid.selectRow(grid.rows().findRow(u"Part Number", u"F1"_s));
    click(screen, u"cmdRemove"_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(found(u"Select PartID, QuantityRequired, Price from tblServiceUsedPart"_s),
              u"OIL'5|0.25|10");
}

TEST_F(frmServicesParts, AreUndoneByRevert)
{
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse, catalogue(50));
    EXPECT_FALSE(enabled(screen, u"cmdRemove"_s));
    say(u"Note: You should not add equipment specfic parts to the master service list."_s);
    selectAllParts(2);
    click(screen, u"cmdAddPart"_s);
    EXPECT_EQ(count(u"tblServicesPart"_s), 2);
    click(screen, u"cmdCancel"_s);
    EXPECT_EQ(count(u"tblServicesPart"_s), 0);
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(named<grid::GridView>(screen, u"grdPartUsed"_s).rows().rowCount(), 0);
    EXPECT_EQ(screen.mode(), Mode::Browse);
}

TEST_F(frmServicesParts, AreAllUndoneWhenOneFails)
{
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, assignedWithPart());
    grid::GridModel &rows = named<grid::GridView>(screen, u"grdPartUsed"_s).rows();
    const auto changeQuantity = [&] { return rows.edit(0, rows.columnIndex(u"Qty Req"), 3.0); };
    EXPECT_TRUE(changeQuantity());
    failAt(u"tblServiceUsedPart(PartID"_s);
    selectAllParts(1);
    click(screen, u"cmdAddPart"_s);
    (void)errors.takeOne();
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(screen.mode(), Mode::Modify);
    EXPECT_EQ(rows.text(0, u"Qty Req"), u"2.00"_s);

    failAt(u"Update tblServiceUsedPart"_s);
    EXPECT_FALSE(changeQuantity());
    failAt({});
    (void)errors.takeOne();
    QApplication::processEvents();
    EXPECT_EQ(rows.text(0, u"Qty Req"), u"2.00"_s);
}

TEST_F(frmServicesParts, NeedAStoredService)
{
    const QString note =
        u"Note: You should not add equipment specfic parts to the master service list."_s;
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Add, 0);
    say(note);
    ask(u"Record must be saved. Do you want to save it."_s, false);
    click(screen, u"cmdAddPart"_s);
    say(note);
    ask(u"Record must be saved. Do you want to save it."_s, true);
    inform(u"Name should not be blank"_s);
    click(screen, u"cmdAddPart"_s);
    EXPECT_EQ(screen.mode(), Mode::Add);
}

TEST_F(frmServicesTest, LeavingAnEditAsks)
{
    const auto question = [this](base::Prompts::Answer answer) {
        prompts.expect(u"Do you want to save changes?"_s, base::Prompts::Icon::Question,
                       base::Prompts::Buttons::YesNoCancel, answer);
    };
    catalogue(50);
    frmServices &screen = show(ServiceStore::Catalogue, Mode::Browse, 50);
    type(screen, u"txtName"_s, {});
    question(base::Prompts::Answer::Cancel);
    click(screen, u"cmdExit"_s);
    EXPECT_TRUE(screen.isVisible());
    question(base::Prompts::Answer::Yes);
    inform(u"Name should not be blank"_s);
    click(screen, u"cmdExit"_s);
    EXPECT_TRUE(screen.isVisible()) << "what can't be saved stays";
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(screen.isVisible());
    question(base::Prompts::Answer::No);
    click(screen, u"cmdExit"_s);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(value(u"Select Name from tblServices"_s), u"Oil change"_s);
}

TEST_F(frmServicesTest, ASaveLeavesAloneWhatAPostingMovedMeanwhile)
{
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}, {u"LaborEstimate"_s, 1.333}});
    const auto other = database.open();
    const auto move = [&](const QDateTime &date) {
        other->Execute(u"Update tblServiceUsed set NextScheduledDate = ?"_s, {date});
    };
    frmServices &screen = show(ServiceStore::Assigned, Mode::Browse, id);
    click(screen, u"ChkSeparateWO"_s);
    move(day(4, 20));
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(found(u"Select NextScheduledDate, SeparateWo, LaborEstimate from tblServiceUsed"_s),
              u"4/20/2024|1|1.333");
    EXPECT_EQ(nextDateText(screen), u"04/20/2024"_s);

    auto &date = named<input::DateInput>(screen, u"datNextScheduledDate"_s);
    date.setFocus();
    QTest::keyClick(&date, Qt::Key_Up);
    const QString typed = nextDateText(screen);
    move(day(5, 20));
    prompts.expect(u"Another workstation has changed the service \"Oil change\" meanwhile.\n\n"
                   "Next Scheduled Date: yours \"%1\", theirs \"5/20/2024\"\n\nDo you want to "
                   "store your values? No shows theirs, and nothing is stored yet."_s.arg(
                       base::toText(date.date())),
                   base::Prompts::Icon::Question, base::Prompts::Buttons::YesNoCancel,
                   base::Prompts::Answer::No);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(nextDateText(screen), u"05/20/2024"_s);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(5, 20));

    other->Execute(u"Delete from tblServiceUsed"_s);
    click(screen, u"ChkSeparateWO"_s);
    say(u"Another workstation has removed the service \"Oil change\" from its machine. What you "
        "typed is still here, but there is nothing left to store it in."_s);
    click(screen, u"cmdUpdate"_s);
    EXPECT_EQ(screen.mode(), Mode::Modify);
    EXPECT_FALSE(gbInTransaction);
    click(screen, u"cmdCancel"_s);
}

} // namespace
