#include "equipment/ui/HistoryPage.h"

#include "core/ui/Joints.h"
#include "equipment/ui/PageTest.h"

using namespace Qt::StringLiterals;

namespace {

struct HistoryPages : test::PageTest
{
    HistoryPages()
    {
        addMachine(1, u"M1"_s);
        addHistory(1, 11, {2024, 1, 10});
        addHistory(1, 12, {2024, 3, 1}, u"Blades"_s);
        addPartHistory(11, u"F-1"_s, 2, 3.25);
        SetOption(u"EqDateFrom"_s, u"01/01/2024"_s, true);
    }

    void show()
    {
        frame.show<HistoryPage>(1);
        services().selectRow(0);
    }
    void type(const QString &column, const QString &text)
    {
        test::typeInCell(services(), 0, column, text);
    }
    grid::GridView &services() { return page().control<grid::GridView>("grdServiceHistory"); }
    grid::GridView &parts() { return page().control<grid::GridView>("grdPartHistory"); }
    QPlainTextEdit &note() { return page().control<QPlainTextEdit>("txtNote"); }
    QString shown(const QString &column, int row = 0)
    {
        return services().rows().text(row, column);
    }
    static QVariant stored(const QString &column, qint64 service = 11)
    {
        return value(
            u"Select %1 from tblWOServiceUsedHistory where ServiceUsedID = ?"_s.arg(column),
            {service});
    }

    test::Joints joints;
};

} // namespace

TEST_F(HistoryPages, ShowARowWithItsPartsCostAndNote)
{
    show();
    EXPECT_TRUE(frame.page->hasContent());
    EXPECT_EQ(test::columnOf(services(), u"Part Cost"), (QStringList{u"$6.50"_s, u"$0.00"_s}));
    EXPECT_EQ(test::columnOf(parts(), u"Part Number"), QStringList{u"F-1"_s});
    EXPECT_EQ(page().text("txtNote"), u"as found");
    services().selectRow(1);
    EXPECT_EQ(parts().rows().rowCount(), 0);
    EXPECT_EQ(frame.layouts, (QStringList{u"grdServiceHistory"_s, u"grdPartHistory"_s}));
    EXPECT_EQ(frame.mode, Mode::Browse);
    frame.page->showMachine(0);
    EXPECT_FALSE(frame.page->hasContent() || page().isEnabled("cmdDeleteHistory"));
    EXPECT_EQ(page().text("txtNote"), QString());
}

TEST_F(HistoryPages, ACorrectionIsWrittenAtOnceAndUndoneByCancel)
{
    addCrew(5, 12, 20.25);
    show();
    ASSERT_TRUE(services().editCell(0, u"Count"));
    QTest::keyClicks(QApplication::focusWidget(), u"4"_s);
    EXPECT_EQ(frame.mode, Mode::Modify) << "with the first key";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    prompts.say(u"Changing the count will not effect the schedule"_s);
    type(u"Count"_s, u"450"_s);
    EXPECT_EQ(stored(u"CountValue"_s).toInt(), 450);
    prompts.say(u"Changing the date will not adjust the schedule"_s);
    type(u"Date"_s, u"01/12/2024"_s);
    EXPECT_EQ(stored(u"CompleteDate"_s), base::wallClock({2024, 1, 12}));
    prompts.say(u"Please enter valid date."_s);
    type(u"Date"_s, u"13/45/2024"_s);
    EXPECT_EQ(shown(u"Date"_s), u"01/12/2024");
    type(u"Labor Cost"_s, u"44.5"_s);
    EXPECT_EQ(stored(u"CostEstimate"_s).toDouble(), 44.5);
    type(u"Labor Cost"_s, {});
    EXPECT_TRUE(stored(u"CostEstimate"_s).isNull());
    grid::GridModel &rows = services().rows();
    EXPECT_TRUE(rows.edit(0, rows.columnIndex(u"Service Crew"), 5));
    EXPECT_EQ(shown(u"Service Crew"_s) + shown(u"Labor Cost"_s), u"12   Crew$40.50");
    frame.cancelEdit();
    EXPECT_TRUE(stored(u"CountValue"_s).isNull());
    EXPECT_EQ(shown(u"Date"_s) + shown(u"Labor Cost"_s), u"01/10/2024$30.00");
}

TEST_F(HistoryPages, TimesThatCantBeAreRefusedAndTheOldOnesStay)
{
    show();
    prompts.say(u"Start Time Shouln't be Blank"_s);
    type(u"EndTime"_s, u"10:00"_s);
    EXPECT_TRUE(stored(u"EndTime"_s).isNull());
    type(u"StartTime"_s, u"9:00 pm"_s);
    EXPECT_EQ(shown(u"StartTime"_s), u"09:00 PM");
    EXPECT_EQ(stored(u"StartTime"_s).toString(), u"21:00");
    type(u"EndTime"_s, u"22:15"_s);
    EXPECT_EQ(shown(u"WorkHrs"_s), u"1:15");
    prompts.say(u"Work Hrs should be greater than 10 Minutes."_s);
    type(u"WorkHrs"_s, u"0:10"_s);
    EXPECT_EQ(stored(u"Workhrs"_s).toString(), u"1:15");
}

TEST_F(HistoryPages, WhatAnotherWorkstationCorrectedIsAskedAboutAndAGoneServiceTold)
{
    addCrew(5, 12, 20.25);
    addCrew(6, 13, 30);
    show();
    const auto other = database.open();
    const auto asked = [](const QString &column, const QString &mine, const QString &theirs) {
        return u"Another workstation has changed %1 meanwhile: yours \"%2\", theirs \"%3\". Do you "
               "want to store yours?"_s.arg(column, mine, theirs);
    };
    other->Execute(u"Update tblWOServiceUsedHistory set LaborEstimate = 7, StartTime = '10:00', "
                   "EndTime = '12:00', CrewID = 6"_s);
    other->Execute(u"Update tblWoPartHistory set Price = 9"_s);
    prompts.no(asked(u"Budgeted Hrs"_s, u"3.00"_s, u"7.00"_s));
    type(u"Budgeted Hrs"_s, u"3"_s);
    EXPECT_EQ(shown(u"Budgeted Hrs"_s), u"7.00");
    EXPECT_EQ(stored(u"LaborEstimate"_s).toDouble(), 7);
    // A time is judged by the other one as it is now, not as the row shows it.
    prompts.say(u"Start Time should be less than End Time"_s);
    type(u"StartTime"_s, u"12:30"_s);
    prompts.yes(asked(u"Start Time"_s, u"09:30 AM"_s, u"10:00 AM"_s));
    type(u"StartTime"_s, u"9:30"_s);
    EXPECT_EQ(stored(u"StartTime"_s).toString() + u' ' + shown(u"WorkHrs"_s), u"09:30 2:30");
    prompts.no(asked(u"Service Crew"_s, u"12   Crew"_s, u"13   Crew"_s));
    grid::GridModel &rows = services().rows();
    EXPECT_FALSE(rows.edit(0, rows.columnIndex(u"Service Crew"), 5));
    prompts.no(asked(u"Price"_s, u"$1.10"_s, u"$9.00"_s));
    test::typeInCell(parts(), 0, u"Price"_s, u"1.10"_s);
    EXPECT_EQ(value(u"Select Price from tblWoPartHistory"_s).toDouble(), 9);

    other->Execute(u"Update tblWOServiceUsedHistory set [Note] = 'theirs' where ServiceUsedID = "
                   "12"_s);
    services().selectRow(1);
    note().setPlainText(u"mine"_s);
    other->Execute(u"Update tblWOServiceUsedHistory set [Note] = 'newer' where ServiceUsedID = "
                   "12"_s);
    prompts.no(u"Another workstation has changed this note meanwhile:\n\nnewer\n\nDo you want to "
               "store yours in its place?"_s);
    services().selectRow(0);
    EXPECT_EQ(stored(u"[Note]"_s, 12).toString(), u"newer");

    RollbackTrans();
    other->Execute(u"Delete from tblWOServiceUsedHistory where ServiceUsedID = 11"_s);
    const QString gone = u"This service has been deleted from the history on another workstation. "
                         "Nothing was stored."_s;
    prompts.say(gone);
    note().setPlainText(u"too late"_s);
    EXPECT_TRUE(frame.page->mayLeave());
    EXPECT_EQ(note().toPlainText(), u"too late");
    prompts.say(gone);
    type(u"Labor Cost"_s, u"44.5"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(services().rows().rowCount(), 1) << "the list shows what is left";
}

TEST_F(HistoryPages, AClickOnATimeOpensItsEntryAndLoadsTheRowAgain)
{
    ScreenCalls::ServiceTimes asked;
    int calls = 0;
    screenCalls().ShowServiceTimeForm = [&](const ScreenCalls::ServiceTimes &times) {
        ++calls;
        asked = times;
        // A second click in a selected cell edits it, after a while: not under the entry.
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        EXPECT_FALSE(services().viewport()->findChild<QLineEdit *>());
        times.beforeWrite();
        run(u"update tblWOServiceUsedHistory set StartTime = '08:00' where ServiceUsedID = 12"_s);
        return true;
    };
    show();
    const auto clickCell = [this](int row, const QString &column) {
        services().selectCell(row, column);
        QTest::mouseClick(services().viewport(), Qt::LeftButton, {},
                          services().cellRect(row, column).center());
    };
    clickCell(1, u"Service Name"_s);
    EXPECT_EQ(calls, 0);
    clickCell(1, u"EndTime"_s);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(asked.id, 12);
    EXPECT_EQ(asked.start, u"00:00");
    EXPECT_EQ(asked.table, u"tblWOServiceUsedHistory");
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(shown(u"StartTime"_s, 1), u"08:00 AM");
    EXPECT_EQ(services().currentRow(), 1);
    services().selectCell(0, u"WorkHrs");
    QTest::keyClick(&services(), Qt::Key_Return);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(asked.id, 11);
    frame.page->setEditable(false);
    clickCell(0, u"EndTime"_s);
    EXPECT_EQ(calls, 2);
}

TEST_F(HistoryPages, PartsAreCorrectedWithoutTouchingTheStock)
{
    run(u"insert into tblPart(PartID,Description,Quantity) values('F-1','Filter',8)"_s);
    show();
    prompts.say(u"This will not adjust the quantity on hand for the inventory. You will "
                "manually need to adjust this if needed."_s);
    test::typeInCell(parts(), 0, u"Qty Used"_s, u"4"_s);
    EXPECT_EQ(shown(u"Part Cost"_s), u"$13.00");
    test::typeInCell(parts(), 0, u"Price"_s, u"1.10"_s);
    EXPECT_EQ(shown(u"Part Cost"_s), u"$4.40");
    // The same number again is no change, so there is no message.
    test::typeInCell(parts(), 0, u"Qty Used"_s, u"4.0"_s);
    test::typeInCell(parts(), 0, u"Price"_s, {});
    EXPECT_EQ(parts().rows().text(0, u"Price"), u"$0.00");
    EXPECT_EQ(value(u"Select Price from tblWoPartHistory"_s).toDouble(), 0);
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), 8);
}

TEST_F(HistoryPages, TheNoteIsWrittenWhenItIsLeft)
{
    show();
    note().setFocus();
    note().selectAll();
    QTest::keyClicks(&note(), u"it's worn"_s);
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(stored(u"[Note]"_s).toString(), u"as found");
    services().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(stored(u"[Note]"_s).toString(), u"it's worn");
    // By another row, by Save, and not by Cancel.
    note().setPlainText(u"two"_s);
    services().selectRow(1);
    EXPECT_EQ(stored(u"[Note]"_s).toString(), u"two");
    EXPECT_EQ(stored(u"[Note]"_s, 12).toString(), u"as found");
    note().setPlainText(u"three"_s);
    EXPECT_TRUE(frame.save());
    EXPECT_EQ(stored(u"[Note]"_s, 12).toString(), u"three");
    note().setPlainText(u"four"_s);
    frame.cancelEdit();
    EXPECT_EQ(note().toPlainText(), u"three");
    EXPECT_EQ(stored(u"[Note]"_s, 12).toString(), u"three");
}

TEST_F(HistoryPages, DeletingAsksAndIsUndoneByCancel)
{
    show();
    const QString question = u"Are you sure you want to Delete this record? history"_s;
    prompts.no(question);
    page().press("cmdDeleteHistory");
    EXPECT_EQ(frame.mode, Mode::Browse);
    prompts.yes(question);
    page().press("cmdDeleteHistory");
    EXPECT_EQ(services().rows().rowCount(), 1);
    EXPECT_EQ(count(u"tblWoPartHistory"_s), 0);
    EXPECT_EQ(frame.changes, 1);
    frame.cancelEdit();
    EXPECT_EQ(services().rows().rowCount(), 2);
}

TEST_F(HistoryPages, TheRangeGoesBackWhenItRunsBackwards)
{
    show();
    auto &from = page().control<input::DateInput>("datEqDateFrom");
    auto &to = page().control<input::DateInput>("datEqDateTo");
    EXPECT_EQ(from.date(), QDate(2024, 1, 1));
    EXPECT_EQ(to.date(), QDate(2024, 3, 15));
    to.setFocus();
    to.setDate(QDate(2023, 12, 31));
    prompts.say(u"Date To should not be less than to Date From"_s);
    services().setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    EXPECT_EQ(to.date(), QDate(2024, 3, 15));
    EXPECT_TRUE(to.hasFocus());

    to.setDate(QDate(2024, 2, 1));
    page().press("cmdRefresh");
    EXPECT_EQ(services().rows().rowCount(), 1);
    // Closing takes a date over that was typed last, unless it is out of order.
    to.setDate(QDate(2024, 2, 9));
    from.setDate(QDate(2024, 1, 5));
    frame.page->closing();
    EXPECT_EQ(GetOption(u"EqDateTo"_s, true), u"02/09/2024");
    from.setDate(QDate(2024, 2, 10));
    frame.page->closing();
    EXPECT_EQ(GetOption(u"EqDateFrom"_s, true), u"01/05/2024");
}

TEST_F(HistoryPages, RefreshingWhileEditingSavesFirst)
{
    show();
    frame.beginEdit();
    const QString question =
        u"You must be save record for refreshing the service history records."_s;
    prompts.no(question);
    page().press("cmdRefresh");
    EXPECT_EQ(frame.mode, Mode::Modify);
    prompts.yes(question);
    page().press("cmdRefresh");
    EXPECT_EQ(frame.mode, Mode::Browse);
}

TEST_F(HistoryPages, ALockedPageCanOnlyBeRead)
{
    show();
    frame.page->setEditable(false);
    EXPECT_FALSE(services().editCell(0, u"Count") || parts().editCell(0, u"Price"));
    EXPECT_TRUE(note().isReadOnly());
    EXPECT_FALSE(page().isEnabled("cmdDeleteHistory"));
    EXPECT_TRUE(page().isEnabled("cmdRefresh"));
}
