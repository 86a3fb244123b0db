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

using Service = test::Opened<frmServices>;

struct frmServicesTest : test::ScreenFleet
{
    static Service show(ServiceStore store, Mode mode, qint64 key)
    {
        const auto form = std::make_shared<frmServices>(store);
        form->display(mode, key);
        return Service(form);
    }
    static Service showNew() { return show(ServiceStore::Catalogue, Mode::Add, 0); }
    static Service showCatalogue(qint64 id)
    {
        return show(ServiceStore::Catalogue, Mode::Browse, id);
    }
    static Service showAssigned(qint64 id)
    {
        return show(ServiceStore::Assigned, Mode::Browse, id);
    }
    /// Takes the next item of a list by key.
    static void chooseNext(const Service &screen, const char *list)
    {
        screen.control(list).setFocus();
        QTest::keyClick(&screen.control(list), Qt::Key_Down);
    }
    static bool isChecked(const Service &screen, const char *box)
    {
        return screen.control<QAbstractButton>(box).isChecked();
    }
    static QString nextDateText(const Service &screen)
    {
        return qobject_cast<QLineEdit *>(
                   screen.control<QStackedWidget>("stkNextDate").currentWidget())
            ->text();
    }
    /// Moves the next date by key, and gives it.
    static QDate changeNextDate(const Service &screen)
    {
        auto &date = screen.control<input::DateInput>("datNextScheduledDate");
        date.setFocus();
        QTest::keyClick(&date, Qt::Key_Up);
        return date.date();
    }
};

TEST_F(frmServicesTest, ANewServiceIsCheckedFieldByFieldAndThenStored)
{
    catalogue(50, {{u"JobNo"_s, 8}});
    const Service screen = showNew();
    EXPECT_EQ(screen.texts({"txtJobNo", "cboRenewalPeriod"}), u"9|Days"_s);
    EXPECT_FALSE(screen->isCloseEnabled());

    const auto refusedWith = [&](const QString &message, const char *focus) {
        prompts.inform(message);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.focused(), focus) << qPrintable(message);
        EXPECT_EQ(screen->mode(), Mode::Add);
    };
    refusedWith(u"Name should not be blank"_s, "txtName");
    screen.type("txtName", u"Sharpen blades"_s);
    refusedWith(u"Select one Cost Center"_s, "cboCostCenter");
    chooseNext(screen, "cboCostCenter");
    refusedWith(u"Select one Crew"_s, "cboCrew");
    chooseNext(screen, "cboCrew");
    refusedWith(u"At least select one day of week."_s, "chkSun");
    screen.press("cmdMarkAllDays");
    refusedWith(u"At least select one week of month."_s, "chkFirst");
    screen.press("cmdAllWeeks");
    refusedWith(u"At least select one month of year."_s, "chkJan");
    screen.press("chkApr");

    screen.type("txtBudgetedlabor", u"2.5"_s);
    EXPECT_EQ(screen.texts({"txtLaborRate", "txtBudgetedcost", "txtTotalCost"}),
              u"$20.00|50.00|$50.00"_s);
    auto &interval = screen.control<input::SpinInput>("RRSpin1");
    interval.setFocus();
    QTest::keyClick(&interval, Qt::Key_Plus);
    screen.press("ChkSeparateWO");
    screen.press("cmdUpdate");

    EXPECT_EQ(screen->mode(), Mode::Browse);
    EXPECT_TRUE(screen->isCloseEnabled());
    EXPECT_EQ(screen.focused(), "txtName");
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(
        found(u"Select ServiceID, JobNo, CrewID, Period, EInterval, RenewalOn, SeparateWo, "
              "Sat, LastW, Apr, May, CostEstimate from tblServices where Name like 'Sharpen*'"_s),
        u"%1|9|%2|D|2|W|1|1|1|1|0|50"_s.arg(screen->currentKey()).arg(crew));
}

TEST_F(frmServicesTest, DaysOfTheMonthRiseAndRuleAlone)
{
    const Service screen =
        showCatalogue(catalogue(50, {{u"Period"_s, u"M"_s}, {u"RenewalOn"_s, u"S"_s}}));
    EXPECT_FALSE(screen.isShown("cboDOM1"));
    screen.press("chkUseDayoftheMonth");
    EXPECT_EQ(screen->mode(), Mode::Modify);
    EXPECT_EQ(screen.text("cboRenewalPeriod"), u"Days"_s);
    EXPECT_EQ(screen.control<input::SpinInput>("RRSpin1").value(), 1);
    EXPECT_TRUE(isChecked(screen, "OptWOC"));
    EXPECT_LE(screen->minimumSizeHint().width(), 1366) << "with the five lists too";
    EXPECT_FALSE(screen.isEnabled("RRSpin1"));
    EXPECT_FALSE(screen.isEnabled("chkMon"));
    prompts.inform(u"User Should fill at least one day of the month"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(screen.focused(), "cboDOM1");

    auto &first = screen.control<input::IdCombo>("cboDOM1");
    auto &second = screen.control<input::IdCombo>("cboDOM2");
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
    screen.press("cmdClearAll");
    EXPECT_EQ(first.id(), 0);
    EXPECT_EQ(second.count(), 32);
    first.setFocus();
    for (int step = 0; step < 5; ++step)
        QTest::keyClick(&first, Qt::Key_Down);
    screen.press("cmdUpdate");
    EXPECT_EQ(found(u"Select DOM, Dom1, Dom2, Mon, Period from tblServices"_s), u"1|5|0|1|D")
        << "the flags are left alone";
}

TEST_F(frmServicesTest, OneButtonTicksAndUnticksAWholeGroup)
{
    const Service screen = showCatalogue(catalogue(50));
    const auto &button = screen.control<QPushButton>("cmdMOY");
    EXPECT_EQ(button.text(), u"UnSelect All"_s);
    screen.press("cmdMOY");
    EXPECT_EQ(button.text(), u"Select All"_s);
    EXPECT_FALSE(isChecked(screen, "chkDec"));
    screen.press("chkMay");
    EXPECT_EQ(button.text(), u"UnSelect All"_s) << "one is enough";
    screen.press("cmdMOY");
    screen.press("cmdMOY");
    EXPECT_TRUE(isChecked(screen, "chkJan") && isChecked(screen, "chkDec"));
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
        const Service screen = showAssigned(assigned(test.row));
        const std::pair<char, std::vector<const char *>> groups[] = {
            {'D', {"chkMon", "cmdMarkAllDays", "chkFirst", "cmdAllWeeks", "chkJan", "cmdMOY"}},
            {'M', {"chkUseDayoftheMonth", "cboDOM1", "cboDOM5", "cmdClearAll"}},
            {'I', {"RRSpin1", "cboRenewalPeriod"}},
            {'R', {"OptWOC", "OptSOS", "OptDSA"}},
            {'N', {"datNextScheduledDate", "txtCount"}}};
        for (const auto &[letter, controls] : groups)
            for (const char *control : controls)
                EXPECT_EQ(screen.isEnabled(control), std::strchr(test.live, letter) != nullptr)
                    << test.name << ": " << control;
    }
}

TEST_F(frmServicesTest, WithoutTheRightToModifyItOnlyShows)
{
    gRights.SerMod = false;
    const Service screen = showCatalogue(catalogue(50));
    EXPECT_TRUE(screen.control<QLineEdit>("txtName").isReadOnly());
    for (const char *control :
         {"cboCrew", "RRSpin1", "chkMon", "OptDSA", "cmdAddPart", "cmdUpdate"})
        EXPECT_FALSE(screen.isEnabled(control)) << control;
    screen.type("txtName", u"Other"_s);
    EXPECT_EQ(screen->mode(), Mode::Browse);

    const Service added = showNew();
    EXPECT_FALSE(added.control<QLineEdit>("txtName").isReadOnly()) << "adding is another right";
}

TEST_F(frmServicesTest, AJobNumberIsCheckedOnLeavingAndCarriedToTheMachines)
{
    catalogue(50, {{u"JobNo"_s, 8}});
    catalogue(51, {{u"JobNo"_s, 9}});
    assigned({{u"ServiceID"_s, 50}, {u"JobNo"_s, 8}});
    const Service screen = showCatalogue(50);
    for (const auto &[typed, refusal] :
         {std::pair(QString(), u"Service Job No should not be blank."_s),
          {u"9"_s,
           u"Job Number you specified already exists. Please enter a different Part Number."_s}}) {
        prompts.say(refusal);
        screen.enter("txtJobNo", typed);
        EXPECT_EQ(screen.text("txtJobNo"), u"8"_s);
        EXPECT_EQ(screen.focused(), "txtJobNo");
    }
    const QString stored =
        u"Select tblServices.JobNo, tblServiceUsed.JobNo from tblServices inner "
        "join tblServiceUsed on tblServices.ServiceID = tblServiceUsed.ServiceID"_s;
    screen.enter("txtJobNo", u"12"_s);
    prompts.yes(
        u"Do you want to change Job No of \"Oil change\" to \"12\" for all existing services?"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(found(stored), u"12|12"_s);

    // Saved by its key, the number is checked too, and No leaves the machines as they are.
    prompts.no(
        u"Do you want to change Job No of \"Oil change\" to \"13\" for all existing services?"_s);
    screen.type("txtJobNo", u"13"_s);
    screen.saveByKey();
    EXPECT_EQ(found(stored), u"13|12"_s);
}

TEST_F(frmServicesTest, ATakenJobNumberIsReplacedAndToldAndNoPatternIsNeededWithoutASchedule)
{
    const Service screen = showNew();
    screen.type("txtName", u"Once"_s);
    chooseNext(screen, "cboCrew");
    chooseNext(screen, "cboCostCenter");
    screen.press("OptDSA");
    EXPECT_FALSE(screen.isEnabled("chkMon")) << "a service that is not scheduled again";
    EXPECT_FALSE(screen.isEnabled("RRSpin1"));
    // Another workstation takes the key: in this second, both get the same one.
    catalogue(315093000, {{u"JobNo"_s, 1}});
    prompts.say(u"Service no 1 is already being used the new service number is 2."_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(screen.text("txtJobNo"), u"2"_s);
    EXPECT_EQ(found(u"Select JobNo, RenewalOn from tblServices order by JobNo"_s), u"1|W\n2|D");
}

TEST_F(frmServicesTest, AnAssignedServiceShowsItsScheduleAndTakesANewDate)
{
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}, {u"JobNo"_s, 8}});
    const Service screen = showAssigned(id);
    EXPECT_FALSE(screen.isShown("txtJobNo"));
    EXPECT_EQ(
        screen.texts({"lblJobNoData", "lblLastDateScheduledData", "lblLastDatePerformedData"}),
        u"8|02/20/2024|03/01/2024"_s);
    EXPECT_EQ(nextDateText(screen), u"03/20/2024"_s);
    EXPECT_FALSE(screen.isShown("txtCount"));

    const QDate typed = changeNextDate(screen);
    ASSERT_NE(typed, QDate(2024, 3, 20));
    putOnOrder(id);
    prompts.no(DateOnOrder);
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 20));
    EXPECT_EQ(nextDateText(screen), u"03/20/2024"_s);
    EXPECT_EQ(changeNextDate(screen), typed);
    prompts.yes(DateOnOrder);
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), base::wallClock(typed));
}

TEST_F(frmServicesTest, ABlankDateStaysNullUntilOneIsGiven)
{
    const qint64 id = assigned();
    const Service screen = showAssigned(id);
    EXPECT_EQ(screen.control<QStackedWidget>("stkNextDate").currentWidget()->objectName(),
              u"txtNextScheduledDate"_s);
    screen.press("ChkSeparateWO");
    screen.press("cmdUpdate");
    EXPECT_TRUE(value(u"Select NextScheduledDate from tblServiceUsed"_s).isNull());
    screen.control<QLineEdit>("txtNextScheduledDate").setFocus();
    QTest::keyClicks(screen->focusWidget(), u"04022024"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(4, 2));
}

TEST_F(frmServicesTest, ANewPeriodBringsACountOrADate)
{
    reading(1, u"Hours"_s, day(3, 1), 500);
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}});
    const Service screen = showAssigned(id);
    screen.choose("cboRenewalPeriod", u"Hours"_s);
    EXPECT_TRUE(screen.isShown("txtCount"));
    EXPECT_EQ(screen.texts({"lblNextSchedule", "txtCount"}), u"Ne&xt Scheduled Count:|510"_s);
    EXPECT_EQ(nextDateText(screen), QString());
    screen.press("cmdUpdate");
    EXPECT_EQ(found(u"Select Period, NextScheduledCount, NextScheduledDate from tblServiceUsed"_s),
              u"H|510|");

    screen.choose("cboRenewalPeriod", u"Weeks"_s);
    EXPECT_FALSE(screen.isShown("txtCount"));
    screen.choose("cboRenewalPeriod", u"Hours"_s);
    EXPECT_EQ(screen.text("txtCount"), u"510"_s);
    screen.choose("cboRenewalPeriod", u"Weeks"_s);
    EXPECT_EQ(nextDateText(screen), u"03/15/2024"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 15));

    reading(1, u"Miles"_s, day(3, 1), 2147483640);
    prompts.say(
        u"Next service count is bigger than field size. please contact Quorvantis support"_s);
    screen.choose("cboRenewalPeriod", u"Miles"_s);
}

TEST_F(frmServicesTest, ATargetCountIsAboveZero)
{
    reading(1, u"Hours"_s, day(3, 1), 500);
    const qint64 id = assigned({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 600}});
    const Service screen = showAssigned(id);
    prompts.say(u"Please enter the next schedule count"_s);
    screen.enter("txtCount", {});
    EXPECT_EQ(screen.focused(), "txtCount");
    prompts.say(u"Count value shouldn't be less then or equal to 0"_s);
    screen.enter("txtCount", u"0"_s);
    EXPECT_EQ(screen.text("txtCount"), u"500"_s);
    putOnOrder(id);
    prompts.yes(QString(DateOnOrder).replace(u"date"_s, u"count"_s));
    screen.type("txtCount", u"499"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(found(u"Select NextScheduledCount, NextScheduledDate from tblServiceUsed"_s),
              u"499|3/1/2024"_s)
        << "due on the meter already";

    // A count of 0 from an earlier release stands until somebody changes it.
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    gcnData->Execute(u"Update tblServiceUsed set NextScheduledCount = 0"_s);
    const Service other = showAssigned(id);
    other.press("ChkSeparateWO");
    other.press("cmdUpdate");
    EXPECT_EQ(value(u"Select SeparateWo from tblServiceUsed"_s), 1);
}

TEST_F(frmServicesTest, AnAssignedServiceIsRenamedOnlyOnInsisting)
{
    const QString question =
        u"You should not change the name of a service. If you need a new service add it using the "
        "\"Services\" navigator on the left side. Then add it to this piece of equipment. Are you "
        "sure you want to do this?"_s;
    const Service screen = showAssigned(assigned());
    const auto rename = [&](const QString &name) {
        screen.enter("txtName", name);
        return screen.text("txtName");
    };
    prompts.no(question);
    EXPECT_EQ(rename(u"Filter"_s), u"Oil change"_s);
    EXPECT_EQ(rename(u"OIL CHANGE"_s), u"OIL CHANGE"_s) << "only its case";
    prompts.yes(question);
    EXPECT_EQ(rename(u"Filter"_s), u"Filter"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select Name from tblServiceUsed"_s), u"Filter"_s);
}

TEST_F(frmServicesTest, AServiceOnAnOrderStaysActive)
{
    const qint64 id = assigned();
    putOnOrder(id);
    const Service screen = showAssigned(id);
    prompts.say(u"This service is already assigned to a work order. You cann't setted inactive."_s);
    screen.press("chkInactive");
    EXPECT_FALSE(isChecked(screen, "chkInactive"));
    EXPECT_EQ(screen->mode(), Mode::Browse);
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    screen.press("chkInactive");
    screen.press("cmdUpdate");
    EXPECT_EQ(value(u"Select Inactive from tblServiceUsed"_s), 1);
    EXPECT_FALSE(screen.isEnabled("OptWOC"));
    EXPECT_TRUE(screen.isEnabled("chkInactive"));
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
    /// Adds all parts that the selector offers.
    static void addParts(const Service &screen, int offered)
    {
        test::inScreen([&] { screen.press("cmdAddPart"); },
                       [offered](const test::ScreenDriver &selector) {
                           grid::GridModel &rows = selector.grid("grdParts").rows();
                           EXPECT_EQ(rows.rowCount(), offered);
                           for (int row = 0; row < rows.rowCount(); ++row)
                               rows.edit(row, rows.columnIndex(u"Select"), true);
                           selector.press("cmdSelect");
                       });
    }
};

TEST_F(frmServicesParts, AreAddedChangedAndRemovedInOneEdit)
{
    const Service screen = showAssigned(assignedWithPart());
    EXPECT_EQ(screen.texts({"lblPartCost", "txtTotalCost"}), u"$9.00|$39.00"_s);

    addParts(screen, 1);
    EXPECT_EQ(screen->mode(), Mode::Modify);
    EXPECT_TRUE(gbInTransaction);
    EXPECT_EQ(screen.text("txtTotalCost"), u"$49.00"_s);
    auto &grid = screen.control<grid::GridView>("grdPartUsed");
    EXPECT_TRUE(grid.rows().edit(grid.rows().findRow(u"Part Number", u"OIL'5"_s),
                                 grid.rows().columnIndex(u"Qty Req"), 0.25));
    EXPECT_EQ(screen.text("lblPartCost"), u"$11.50"_s);
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    grid.selectRow(grid.rows().findRow(u"Part Number", u"F1"_s));
    screen.press("cmdRemove");
    screen.press("cmdUpdate");
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(found(u"Select PartID, QuantityRequired, Price from tblServiceUsedPart"_s),
              u"OIL'5|0.25|10");
}

TEST_F(frmServicesParts, AreUndoneByRevert)
{
    const Service screen = showCatalogue(catalogue(50));
    EXPECT_FALSE(screen.isEnabled("cmdRemove"));
    prompts.say(u"Note: You should not add equipment specfic parts to the master service list."_s);
    addParts(screen, 2);
    EXPECT_EQ(count(u"tblServicesPart"_s), 2);
    screen.press("cmdCancel");
    EXPECT_EQ(count(u"tblServicesPart"_s), 0);
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(screen.control<grid::GridView>("grdPartUsed").rows().rowCount(), 0);
    EXPECT_EQ(screen->mode(), Mode::Browse);
}

TEST_F(frmServicesParts, AreAllUndoneWhenOneFails)
{
    const Service screen = showAssigned(assignedWithPart());
    grid::GridModel &rows = screen.control<grid::GridView>("grdPartUsed").rows();
    const auto changeQuantity = [&] { return rows.edit(0, rows.columnIndex(u"Qty Req"), 3.0); };
    EXPECT_TRUE(changeQuantity());
    failAt(u"tblServiceUsedPart(PartID"_s);
    addParts(screen, 1);
    (void)errors.takeOne();
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(screen->mode(), Mode::Modify);
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
    const Service screen = showNew();
    prompts.say(note);
    prompts.no(u"Record must be saved. Do you want to save it."_s);
    screen.press("cmdAddPart");
    prompts.say(note);
    prompts.yes(u"Record must be saved. Do you want to save it."_s);
    prompts.inform(u"Name should not be blank"_s);
    screen.press("cmdAddPart");
    EXPECT_EQ(screen->mode(), Mode::Add);
}

TEST_F(frmServicesTest, LeavingAnEditAsks)
{
    const auto question = [this](base::Prompts::Answer answer) {
        prompts.expect(u"Do you want to save changes?"_s, base::Prompts::Icon::Question,
                       base::Prompts::Buttons::YesNoCancel, answer);
    };
    catalogue(50);
    const Service screen = showCatalogue(50);
    screen.type("txtName", {});
    question(base::Prompts::Answer::Cancel);
    screen.press("cmdExit");
    EXPECT_TRUE(screen->isVisible());
    question(base::Prompts::Answer::Yes);
    prompts.inform(u"Name should not be blank"_s);
    screen.press("cmdExit");
    EXPECT_TRUE(screen->isVisible()) << "what can't be saved stays";
    QTest::keyClick(&screen.screen(), Qt::Key_Escape);
    EXPECT_TRUE(screen->isVisible());
    question(base::Prompts::Answer::No);
    screen.press("cmdExit");
    EXPECT_FALSE(screen->isVisible());
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(value(u"Select Name from tblServices"_s), u"Oil change"_s);
}

TEST_F(frmServicesTest, ASaveLeavesAloneWhatAPostingMovedMeanwhile)
{
    const qint64 id = assigned({{u"NextScheduledDate"_s, day(3, 20)}, {u"LaborEstimate"_s, 1.333}});
    const auto other = database.open();
    const Service screen = showAssigned(id);
    screen.press("ChkSeparateWO");
    other->Execute(u"Update tblServiceUsed set NextScheduledDate = #04-20-2024#"_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(found(u"Select NextScheduledDate, SeparateWo, LaborEstimate from tblServiceUsed"_s),
              u"4/20/2024|1|1.333");
    EXPECT_EQ(nextDateText(screen), u"04/20/2024"_s);

    other->Execute(u"Delete from tblServiceUsed"_s);
    screen.press("ChkSeparateWO");
    prompts.say(
        u"Another workstation has removed the service \"Oil change\" from its machine. What "
        "you typed is still here, but there is nothing left to store it in."_s);
    screen.press("cmdUpdate");
    EXPECT_EQ(screen->mode(), Mode::Modify);
    EXPECT_FALSE(gbInTransaction);
    screen.press("cmdCancel");
}
} // namespace
