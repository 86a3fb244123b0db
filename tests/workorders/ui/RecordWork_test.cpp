#include "workorders/ui/WorkScreen.h"

#include "workorders/ui/frmServiceDateConfirmation.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

const QString SkipReason = u"Please mention the reason for Skiping the Service"_s;

/// An order with two services, the first counted in hours, with a part each.
struct RecordWork : test::WorkScreen
{
    RecordWork()
        : number(order())
        , first(orderService(
              number, {{u"Period"_s, u"H"_s}, {u"Note"_s, u"first"_s}, {u"LaborEstimate"_s, 2}}))
        , second(orderService(number, {{u"Name"_s, u"Wash"_s}, {u"Note"_s, u"second"_s}}))
    {
        part(u"P1"_s, 10);
        orderPart(first, u"P1"_s, 2, false);
    }

    /// Whether the order is complete in the database and in its row, and the date that it shows.
    [[nodiscard]] QString completion() const
    {
        return found(u"Select Complete from tblWorkorder where WorkorderNo = ?"_s, {number}) +
               u' ' + cell("grdRecordWo", 0, u"Complete"_s) + u' ' +
               cell("grdRecordWo", 0, u"CompletedDate"_s);
    }
    bool complete() { return edit("grdRecordWo", 0, u"Complete"_s, true); }

    qint64 number;
    qint64 first;
    qint64 second;
};

} // namespace

TEST_F(RecordWork, ATickCompletesTheOrderWithItsServices)
{
    openRecording();
    EXPECT_FALSE(driver().isEnabled("cmdSkipAll"));
    key("grdRecordWo", Qt::Key_Space);
    EXPECT_EQ(completion(), u"-1 True 03/15/2024"_s);
    EXPECT_EQ(column("grdRecordService", u"Completed"_s), (QStringList{u"True"_s, u"True"_s}));
    EXPECT_EQ(column("grdRecordPart", u"Used"_s), QStringList{u"True"_s});
    EXPECT_TRUE(driver().isEnabled("cmdSkipAll"));
    key("grdRecordWo", Qt::Key_Return);
    EXPECT_EQ(completion(), u"0 False "_s);
    EXPECT_EQ(column("grdRecordService", u"Completed"_s), (QStringList{u"False"_s, u"False"_s}));
    key("grdRecordWo", Qt::Key_T);
    EXPECT_EQ(completion(), u"-1 True 03/15/2024"_s);
}

TEST_F(RecordWork, TheCompletedDateTicksTheOrderAndHasALimit)
{
    openRecording();
    prompts.say(u"Complete date cann't less than to 50 year of Current Date."_s);
    EXPECT_FALSE(edit("grdRecordWo", 0, u"CompletedDate"_s, base::wallClock({1974, 3, 14})));
    EXPECT_EQ(completion(), u"0 False "_s);
    EXPECT_TRUE(edit("grdRecordWo", 0, u"CompletedDate"_s, base::wallClock({1974, 3, 15})));
    EXPECT_EQ(completion(), u"-1 True 03/15/1974"_s);
    ASSERT_TRUE(edit("grdRecordWo", 0, u"CompletedDate"_s, QVariant()));
    EXPECT_EQ(completion(), u"0 False "_s);
}

TEST_F(RecordWork, SkippingNeedsAReasonAndReopensTheOrderAlone)
{
    openRecording();
    complete();
    for (const std::optional<QString> &none : {std::optional(u"  "_s), std::optional<QString>()}) {
        prompts.expectInput(SkipReason, none);
        EXPECT_FALSE(edit("grdRecordService", 0, u"Skip"_s, true));
    }
    EXPECT_EQ(completion(), u"-1 True 03/15/2024"_s);
    prompts.expectInput(SkipReason, u"No filter"_s);
    EXPECT_TRUE(edit("grdRecordService", 0, u"Skip"_s, true));
    EXPECT_EQ(completion(), u"0 False "_s);
    EXPECT_FALSE(driver().isEnabled("cmdSkipAll"));
    EXPECT_EQ(column("grdRecordService", u"Completed"_s), (QStringList{u"False"_s, u"True"_s}));
    EXPECT_EQ(column("grdRecordPart", u"Used"_s), QStringList{u"False"_s});
    EXPECT_EQ(driver().text("txtRecordNote"), u"No filter"_s);
    EXPECT_EQ(onOrder(first, u"Note"_s).toString(), u"No filter"_s);
    EXPECT_EQ(onOrder(second, u"Completed"_s).toInt(), -1);

    // A skipped service keeps its note.
    driver().type("txtRecordNote", u""_s);
    prompts.warn(u"Note Field Cann't left blank. When Service has Skiped."_s);
    pressSlowly("cmdPost");
    EXPECT_EQ(driver().focused(), "txtRecordNote");
    QTest::keyClicks(&driver().control("txtRecordNote"), u"Later"_s);

    EXPECT_TRUE(edit("grdRecordService", 0, u"Completed"_s, true));
    EXPECT_EQ(cell("grdRecordService", 0, u"Skip"_s), u"False"_s);
    EXPECT_EQ(onOrder(first, u"Skip"_s).toInt(), 0);
    EXPECT_EQ(column("grdRecordPart", u"Used"_s), QStringList{u"True"_s});
}

TEST_F(RecordWork, ASkippedServiceThatCameWithoutANoteNeedsOneToo)
{
    gcnData->Execute(u"Update tblWoServiceUsed set Skip = '1', [Note] = Null"_s);
    openRecording();
    auto &note = driver().control("txtRecordNote");
    prompts.say(u"No Work Order is selected to post"_s);
    press("cmdPost"); // nobody was in the box
    note.setFocus();
    prompts.warn(u"Note Field Cann't left blank. When Service has Skiped."_s);
    QTest::keyClick(&note, Qt::Key_Tab);
    EXPECT_EQ(driver().focused(), "txtRecordNote");
    QTest::keyClicks(&note, u"Rain"_s);
    QTest::keyClick(&note, Qt::Key_Tab);
    EXPECT_EQ(onOrder(first, u"Note"_s).toString(), u"Rain"_s);
}

TEST_F(RecordWork, AllServicesAreSkippedForOneReason)
{
    openRecording();
    complete();
    for (const QString &reason : {u""_s, u"Rain"_s}) {
        prompts.expectInput(u"Please mention the reason for Skiping the Services"_s, reason);
        press("cmdSkipAll");
        const QString skipped = reason.isEmpty() ? u"False"_s : u"True"_s;
        EXPECT_EQ(column("grdRecordService", u"Skip"_s), QStringList(2, skipped));
    }
    EXPECT_EQ(onOrder(second, u"Note"_s).toString(), u"Rain"_s);
}

TEST_F(RecordWork, ACountBelowTheNewestReadingIsAskedAboutAndACrewChangesTheCost)
{
    insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
           {1, day(3, 1), u"Hours"_s, 500});
    openRecording();
    const QString question =
        u"Enter count is smaller than previous count(500). Do you want to continue ?"_s;
    EXPECT_TRUE(edit("grdRecordService", 0, u"Count"_s, 510));
    prompts.no(question);
    EXPECT_FALSE(edit("grdRecordService", 0, u"Count"_s, 499));
    EXPECT_EQ(onOrder(first, u"CountValue"_s).toInt(), 510);
    prompts.yes(question);
    EXPECT_TRUE(edit("grdRecordService", 0, u"Count"_s, 499));
    EXPECT_EQ(onOrder(first, u"CountValue"_s).toInt(), 499);
    EXPECT_TRUE(edit("grdRecordService", 0, u"Count"_s, QVariant()));
    EXPECT_TRUE(onOrder(first, u"CountValue"_s).isNull());
    ASSERT_TRUE(edit("grdRecordService", 0, u"Service Crew"_s, crew2));
    ASSERT_TRUE(edit("grdRecordService", 0, u"Service Crew"_s, crew1));
    EXPECT_EQ(cell("grdRecordService", 0, u"Lbr Cost"_s), u"40.00"_s) << "2 hours at 20";
    // The cell is marked where posting needs the count.
    const grid::GridModel &rows = grid("grdRecordService").rows();
    const int count = rows.columnIndex(u"Count");
    EXPECT_NE(rows.style(0, count).background, rows.style(1, count).background);
}

TEST_F(RecordWork, PartsFollowTheirService)
{
    openRecording();
    EXPECT_FALSE(edit("grdRecordPart", 0, u"Used"_s, true)) << "the service is not done";
    EXPECT_EQ(cell("grdRecordPart", 0, u"Used"_s), u"False"_s);
    ASSERT_TRUE(edit("grdRecordService", 0, u"Completed"_s, true));
    const QString line = u"Select Used, QuantityUsed, Price from tblWoPartUsed"_s;
    EXPECT_TRUE(edit("grdRecordPart", 0, u"Used"_s, false));
    EXPECT_TRUE(edit("grdRecordPart", 0, u"Qty Used"_s, 1.5));
    EXPECT_TRUE(edit("grdRecordPart", 0, u"Price"_s, 9.5));
    EXPECT_EQ(found(line), u"0|1.5|9.5"_s);
    EXPECT_TRUE(edit("grdRecordPart", 0, u"Qty Used"_s, QVariant()));
    EXPECT_EQ(found(line), u"0|0|9.5"_s) << "an emptied cell is a 0";
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    press("cmdRecordRemovePart");
    EXPECT_EQ(found(line), QString());
    EXPECT_FALSE(driver().isEnabled("cmdRecordRemovePart"));
}

TEST_F(RecordWork, TheTimesOfAServiceOpenByKey)
{
    openRecording();
    grid("grdRecordService").selectCell(0, u"StartTime");
    test::onNextModal([](QWidget &times) { test::ScreenDriver(times).press("cmdUpdate"); });
    key("grdRecordService", Qt::Key_Return);
    EXPECT_EQ(onOrder(first, u"Workhrs"_s).toString(), u"00:00"_s);
}

TEST_F(RecordWork, PostingAsksForTheDateAndPrintsWhenWanted)
{
    QList<std::pair<QString, bool>> printed;
    openings().join(u"ShowWorkorderHistoryReport"_s, [&](const OpeningArguments &asked) {
        printed.append({asked.query, asked.other});
        return true;
    });
    openRecording();
    prompts.say(u"No Work Order is selected to post"_s);
    press("cmdPost");
    complete();
    test::onNextModal([](QWidget &dates) { test::ScreenDriver(dates).press("cmdOK"); });
    prompts.say(u"Following Work Orders (%1) aren't posted. Enter counts for these Work "
                "Orders."_s.arg(number));
    press("cmdPost");
    EXPECT_EQ(cell("grdRecordWo", 0, u"Complete"_s), u"True"_s) << "it waits for its count";
    edit("grdRecordService", 0, u"Count"_s, 7);
    const QString before = everything();
    test::onNextModal([](QWidget &dates) { test::ScreenDriver(dates).press("cmdCancel"); });
    press("cmdPost");
    EXPECT_EQ(everything(), before);

    prompts.say(u"Please enter valid date."_s);
    test::onNextModal([](QWidget &dates) {
        const test::ScreenDriver driver(dates);
        driver.type("dtpCompledDate", QString());
        driver.press("cmdOK");
        driver.type("dtpCompledDate", u"03102024"_s);
        driver.press("cmdOK");
    });
    prompts.yes(u"Do you want to print a list of Work Orders posted?"_s);
    prompts.yes(u"Do you want to print out each individual Work Order"_s);
    press("cmdPost");
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s, u"CompleteDate = #03-10-2024#"_s), 2);
    EXPECT_TRUE(column("grdRecordWo", u"Unit No"_s).isEmpty());
    EXPECT_FALSE(driver().isEnabled("cmdPost"));
    ASSERT_EQ(printed.size(), 2);
    EXPECT_FALSE(printed[0].second);
    EXPECT_EQ(gcnData->Open(printed[0].first).RecordCount(), 2);
    EXPECT_TRUE(printed[1].second);
    EXPECT_EQ(gcnData->Open(printed[1].first).RecordCount(), 1);
}

TEST_F(RecordWork, WhatAnotherWorkstationDidMeanwhileIsToldAndNotOverwritten)
{
    openRecording();
    gcnData->Execute(u"Update tblWoServiceUsed set CountValue = 500 where NServiceUsedID = ?"_s,
                     {first});
    prompts.no(
        u"Another workstation has changed Count meanwhile: yours \"777\", theirs \"500\". Do "
        "you want to store yours?"_s);
    EXPECT_FALSE(edit("grdRecordService", 0, u"Count"_s, 777));
    EXPECT_EQ(cell("grdRecordService", 0, u"Count"_s), u"500"_s);
    gcnData->Execute(u"Update tblWoServiceUsed set [Note] = 'theirs'"_s);
    prompts.yes(u"Another workstation has changed this note meanwhile:\n\ntheirs\n\nDo you want "
                "to store yours in its place?"_s);
    driver().enter("txtRecordNote", u"mine"_s);
    EXPECT_EQ(onOrder(first, u"Note"_s).toString(), u"mine"_s);

    // The order has been posted: what is shown of it goes.
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    gcnData->Execute(u"Delete from tblWorkorder"_s);
    const QString gone = u"This service stands on no open work order any more: another workstation "
                         "has posted, removed or deleted it. Nothing was stored."_s;
    prompts.say(gone);
    driver().enter("txtRecordNote", u"too late"_s);
    EXPECT_FALSE(driver().control("txtRecordNote").hasFocus()) << "nobody is kept in the box";
    prompts.say(gone);
    EXPECT_FALSE(edit("grdRecordService", 0, u"Count"_s, 778));
    QCoreApplication::processEvents();
    EXPECT_TRUE(column("grdRecordWo", u"Unit No"_s).isEmpty());
}

TEST_F(RecordWork, OrdersThatCantBePostedDontKeepTheOthers)
{
    const qint64 spoilt = completeOrder();
    orderService(spoilt,
                 {{u"ServiceUsedID"_s, service({{u"Sun"_s, QVariant()}})}, {u"Completed"_s, true}});
    const qint64 held = completeOrder();
    const qint64 good = completeOrder();
    for (const qint64 each : {held, good})
        orderService(each, {{u"Completed"_s, true}});
    openRecording();
    const auto workstation = database.open();
    workstation->BeginTrans();
    workstation->Execute(u"Update tblWorkorder set Printed = 1 where WorkorderNo = ?"_s, {held});
    test::onNextModal([](QWidget &dates) { test::ScreenDriver(dates).press("cmdOK"); });
    const QString offer =
        u"\n\nNothing has been posted. Do you want to post the other work orders without it?"_s;
    prompts.yes(u"Work order %1 of machine M1 - Mower M1 can't be posted now: another workstation "
                "is changing it. Please try again in a moment."_s.arg(held) +
                offer);
    prompts.yes(u"Work order %1 of machine M1 - Mower M1 can't be posted: the schedule of its "
                "service \"Oil change\" can't be moved on (Invalid use of Null)."_s.arg(spoilt) +
                offer);
    press("cmdPost");
    workstation->RollbackTrans();
    EXPECT_EQ(found(u"Select WorkorderNo, CompleteDate from tblWOServiceUsedHistory"_s),
              u"%1|3/15/2024"_s.arg(good));
    EXPECT_EQ(count(u"tblWorkorder"_s), 3);
}

TEST_F(RecordWork, AServiceAddedToACompleteOrderAsksForItsParts)
{
    insert(u"tblServices"_s, {{u"ServiceID"_s, 7}, {u"Name"_s, u"Belt"_s}, {u"CrewID"_s, crew1}});
    insert(u"tblServicesPart"_s, {{u"ServiceID"_s, 7}, {u"PartID"_s, u"P1"_s}});
    openRecording();
    complete();
    test::onNextModal([](QWidget &list) {
        const test::ScreenDriver services(list);
        auto &rows = services.grid("grdServices").rows();
        rows.edit(0, rows.columnIndex(u"Select"), true);
        services.press("cmdSelect");
    });
    prompts.yes(u"The work order is complete, so what is added counts as done. Were its parts "
                "used?"_s);
    press("cmdRecordAddService");
    EXPECT_EQ(count(u"tblWoServiceUsed"_s, u"ServiceID = 7 and Completed = -1"_s), 1);
    EXPECT_EQ(count(u"tblWoPartUsed"_s, u"Used = -1"_s), 2);
}

TEST_F(RecordWork, TheNextDateOfAServiceIsConfirmed)
{
    const qint64 id = service({{u"EInterval"_s, 30}});
    QDateTime chosen;
    const auto ask = [&](const std::function<void(test::ScreenDriver)> &act) {
        test::inScreen(
            [&] {
                chosen =
                    frmServiceDateConfirmation::ShowServiceDateConfirmationForm(day(3, 12), id);
            },
            act);
    };
    ask([](const test::ScreenDriver &driver) {
        EXPECT_FALSE(driver.isEnabled("datNextScheduled"));
        EXPECT_EQ(driver.text("lblUnitNo") + driver.text("lblEquipmentName") +
                      driver.text("lblName"),
                  u"M1Mower M1Oil change"_s);
        QTest::keyClick(&driver.screen(), Qt::Key_Escape);
        EXPECT_TRUE(driver.isOpen()) << "the posting waits for an answer";
        gcnData->setObserver([](const db::Sent &) { throw base::Error(5, u"broken"_s); });
        driver.press("cmdOK");
        gcnData->setObserver({});
        EXPECT_TRUE(driver.isOpen()) << "no service is left without a date";
        driver.press("cmdOK");
    });
    EXPECT_EQ(chosen, day(4, 11));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"GetNextScheduledDate"_s);
    ask([&](const test::ScreenDriver &driver) {
        driver.press("optNextScheduled");
        EXPECT_EQ(driver.text("datNextScheduled"), u"03/12/2024"_s);
        prompts.say(u"Next Scheduled Date cann't be Less than to Complete Date"_s);
        driver.enter("datNextScheduled", u"03112024"_s);
        EXPECT_EQ(driver.text("datNextScheduled"), u"03/12/2024"_s);
        driver.type("datNextScheduled", u"05012024"_s);
        driver.press("cmdOK");
    });
    EXPECT_EQ(chosen, day(5, 1));
}
