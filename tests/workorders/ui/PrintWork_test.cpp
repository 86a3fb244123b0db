#include "workorders/ui/WorkScreen.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

const QString DeleteQuestion = u"Are you sure you want to Delete this record?"_s;
const QString GenerateQuestion =
    u"You must genearte a Work Order before you can make changes. Do you wish to generate the Work "
    "Order?"_s;

struct PrintWork : test::WorkScreen
{
    PrintWork()
    {
        SetOption(u"WoDateFrom"_s, u"02-14-2024"_s, true);
        machine(2, u"M2"_s);
    }
    input::DateInput &date(const char *name) { return driver().control<input::DateInput>(name); }
};

} // namespace

TEST_F(PrintWork, ShowsTheFrameThatFitsTheRow)
{
    part(u"P1"_s, 5);
    servicePart(service({{u"Note"_s, u"of the schedule"_s}}), u"P1"_s, 2);
    service({{u"Name"_s, u"Wash"_s}});
    const qint64 number = order({{u"EquipmentID"_s, 2}});
    const qint64 line =
        orderService(number, {{u"EquipmentID"_s, 2}, {u"Note"_s, u"of the order"_s}});
    orderPart(line, u"P9"_s, 1, false);
    openPrinting();
    EXPECT_FALSE(driver().isEnabled("cmdPrint")) << "nobody has joined the report";
    EXPECT_FALSE(driver().isEnabled("cmdUnschedule")) << "nor the search for machines";
    EXPECT_EQ(column("grdPrintWO", u"Unit No"_s), (QStringList{u"M1"_s, u"M2"_s}));
    EXPECT_TRUE(driver().isShown("fraGen"));
    EXPECT_FALSE(driver().isEnabled("cmdDelete"));
    EXPECT_EQ(column("grdGenService", u"Service Name"_s),
              (QStringList{u"Oil change"_s, u"Wash"_s}));
    EXPECT_EQ(cell("grdGenService", 0, u"Service Crew"_s), u"1   North"_s);
    EXPECT_EQ(column("grdGenPart", u"Part Number"_s), QStringList{u"P1"_s});
    EXPECT_EQ(driver().text("txtGenServiceNote"), u"of the schedule"_s);
    key("grdGenService", Qt::Key_Down);
    EXPECT_TRUE(column("grdGenPart", u"Part Number"_s).isEmpty()) << "of another service";
    const grid::GridModel &rows = grid("grdPrintWO").rows();
    EXPECT_TRUE(rows.style(0, 1).background.isValid()) << "a machine without an order stands out";
    EXPECT_FALSE(rows.style(1, 1).background.isValid());

    key("grdPrintWO", Qt::Key_Down);
    EXPECT_TRUE(driver().isShown("fraPrint"));
    EXPECT_TRUE(driver().isEnabled("cmdDelete"));
    EXPECT_EQ(column("grdPrintService", u"Service Name"_s), QStringList{u"Oil change"_s});
    EXPECT_EQ(driver().text("txtPrintNote"), u"of the order"_s);
}

TEST_F(PrintWork, GeneratesTheTickedMachines)
{
    service();
    service({{u"EquipmentID"_s, 2}});
    openPrinting(u"m2"_s);
    prompts.say(u"Please select at least one record"_s);
    press("cmdGenrateWo");
    key("grdPrintWO", Qt::Key_Space);
    service({{u"EquipmentID"_s, 2}, {u"NextScheduledDate"_s, day(3, 20)}});
    driver().type("datDateTo", u"03312024"_s); // not refreshed
    prompts.say(u"Workorder Generated"_s);
    press("cmdGenrateWo");
    EXPECT_EQ(found(u"Select EquipmentID from tblWorkorder"_s), u"2"_s);
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 1) << "of the window that was shown";
    EXPECT_EQ(column("grdPrintWO", u"Select"_s), QStringList(3, u"False"_s)) << "refreshed by now";
}

TEST_F(PrintWork, TheButtonsOfADueServiceGenerateFirst)
{
    service();
    openPrinting();
    prompts.no(GenerateQuestion);
    press("cmdGenAddService");
    EXPECT_EQ(count(u"tblWorkorder"_s), 0);
    prompts.yes(GenerateQuestion);
    prompts.say(u"Workorder Generated"_s);
    press("cmdGenRemoveService");
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 1);
    EXPECT_TRUE(driver().isShown("fraPrint"));
}

TEST_F(PrintWork, SelectsAllAndWhatIsNotPrinted)
{
    order({{u"EquipmentID"_s, 1}});
    order({{u"EquipmentID"_s, 2}, {u"Printed"_s, 1}});
    openPrinting();
    for (const auto &[button, ticks] : {std::pair("cmdPrintSelect", u"True True"_s),
                                        {"cmdPrintSelect", u"False False"_s},
                                        {"cmdPrintUnSelect", u"True False"_s}}) {
        press(button);
        EXPECT_EQ(column("grdPrintWO", u"Select"_s).join(u' '), ticks);
    }
    EXPECT_EQ(driver().control<QAbstractButton>("cmdPrintSelect").text(), u"Select A&ll"_s);
}

TEST_F(PrintWork, DeletesAnOrderAndItsServicesAfterAQuestion)
{
    orderService(order());
    openPrinting();
    prompts.no(DeleteQuestion);
    press("cmdDelete");
    EXPECT_EQ(count(u"tblWorkorder"_s), 1);
    prompts.yes(DeleteQuestion);
    press("cmdDelete");
    EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s), 0);
    EXPECT_TRUE(column("grdPrintWO", u"Unit No"_s).isEmpty());
}

TEST_F(PrintWork, ChangesWhatStandsOnAnOrder)
{
    const qint64 number = order();
    const qint64 line = orderService(number, {{u"Skip"_s, true}, {u"Note"_s, u"Rain"_s}});
    part(u"P1"_s, 5);
    orderPart(line, u"P1"_s, 1, false);
    openPrinting();
    EXPECT_TRUE(edit("grdPrintPart", 0, u"Price"_s, 7.25));
    EXPECT_EQ(value(u"Select Price from tblWoPartUsed"_s).toDouble(), 7.25);
    ASSERT_TRUE(grid("grdPrintPart").editCell(0, u"Price"));
    QTest::keyClicks(QApplication::focusWidget(), u"8.5"_s);
    driver().control<QAbstractButton>("cmdPrintUnSelect").click();
    EXPECT_EQ(value(u"Select Price from tblWoPartUsed"_s).toDouble(), 8.5);

    driver().type("txtPrintNote", u""_s);
    prompts.say(u"Note Field Cann't left blank. When Service has Skiped."_s);
    pressSlowly("cmdDelete");
    EXPECT_EQ(driver().focused(), "txtPrintNote");
    QTest::keyClicks(&driver().control("txtPrintNote"), u"Snow"_s);
    QTest::keyClick(&driver().control("txtPrintNote"), Qt::Key_Tab);
    EXPECT_EQ(value(u"Select [Note] from tblWoServiceUsed"_s).toString(), u"Snow"_s);

    prompts.yes(DeleteQuestion);
    press("cmdPrintRemovePart");
    EXPECT_EQ(count(u"tblWoPartUsed"_s), 0);
    prompts.yes(DeleteQuestion);
    press("cmdPrintRemoveService");
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 0);
    EXPECT_EQ(column("grdPrintWO", u"Unit No"_s), QStringList{u"M1"_s}) << "the order stays";
    EXPECT_FALSE(driver().isEnabled("cmdPrintRemoveService"));
}

TEST_F(PrintWork, AServiceAddedTodayMovesTheEndOfTheWindow)
{
    insert(u"tblServices"_s, {{u"ServiceID"_s, 7}, {u"Name"_s, u"Wash"_s}, {u"CrewID"_s, crew1}});
    SetOption(u"WodateTo"_s, u"03-14-2024"_s, true);
    const qint64 number = order();
    orderService(number);
    openPrinting();
    test::onNextModal([](QWidget &list) {
        const test::ScreenDriver services(list);
        auto &rows = services.grid("grdServices").rows();
        rows.edit(0, rows.columnIndex(u"Select"), true);
        services.press("cmdSelect");
    });
    press("cmdPrintAddService");
    EXPECT_EQ(date("datDateTo").date(), QDate(2024, 3, 15));
    EXPECT_EQ(column("grdPrintService", u"Service Name"_s),
              (QStringList{u"Oil change"_s, u"Wash"_s}));
    EXPECT_EQ(value(u"Select ServiceUsedID from tblWoServiceUsed where ServiceID = 7"_s).toInt(),
              0);
}

TEST_F(PrintWork, PrintsOldAndNewOrdersTogetherAndMarksThemWhenAsked)
{
    service();
    const qint64 number = order({{u"EquipmentID"_s, 2}});
    orderService(number, {{u"EquipmentID"_s, 2}});
    QList<std::pair<QString, bool>> printed;
    openings().join(u"ShowWorkorderReport"_s, [&](const OpeningArguments &asked) {
        printed.append({asked.query, asked.other});
        return true;
    });
    openPrinting();
    prompts.say(u"Please select workorder to print."_s);
    press("cmdPrint");
    press("cmdPrintSelect");
    prompts.no(u"Mark Work Orders as Printed"_s);
    press("cmdPrint");
    ASSERT_EQ(printed.size(), 1);
    EXPECT_FALSE(printed[0].second);
    EXPECT_EQ(gcnData->Open(printed[0].first).RecordCount(), 2) << "one line for each service";
    EXPECT_EQ(count(u"tblWorkorder"_s), 2);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Printed <> 0"_s), 0);

    driver().press("chkGroupWo");
    press("cmdPrintSelect");
    prompts.yes(u"Mark Work Orders as Printed"_s);
    press("cmdPrint");
    EXPECT_TRUE(printed[1].second);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Printed = 1"_s), 2);
}

TEST_F(PrintWork, UnscheduledOrdersAreForMachinesThatAreNotListed)
{
    order();
    ScreenCalls::QuickFind asked;
    screenCalls().ShowQuickFind = [&](const ScreenCalls::QuickFind &request) {
        asked = request;
        return u"2"_s;
    };
    openPrinting();
    prompts.say(u"Workorder Generated"_s);
    press("cmdUnschedule");
    EXPECT_EQ(asked.leftOut, u"1"_s);
    EXPECT_EQ(asked.form, u"frmEquipment"_s);
    EXPECT_TRUE(asked.several);
    EXPECT_EQ(column("grdPrintWO", u"Unit No"_s), (QStringList{u"M1"_s, u"M2"_s}));
    EXPECT_EQ(grid("grdPrintWO").currentRow(), 1) << "services go to the new order";
    screenCalls().ShowQuickFind = [](const ScreenCalls::QuickFind &) { return QString(); };
    press("cmdUnschedule");
    EXPECT_EQ(count(u"tblWorkorder"_s), 2);
}

TEST_F(PrintWork, KeepsTheWindowInOrderAndForTheNextTime)
{
    openPrinting();
    EXPECT_EQ(date("datDateFrom").date(), QDate(2024, 2, 14));
    EXPECT_EQ(date("datDateTo").date(), QDate(2024, 3, 15)) << "a blank date means today";
    driver().enter("datDateFrom", u"04012024"_s);
    EXPECT_EQ(date("datDateTo").date(), QDate(2024, 4, 1));
    for (const bool byKey : {false, true}) {
        driver().type("datDateTo", u"03012024"_s);
        prompts.say(u"End date can't be less than Work Order Date"_s);
        if (byKey)
            driver().control<QAbstractButton>("cmdRefreshWo").click();
        else
            QTest::keyClick(&date("datDateTo"), Qt::Key_Tab);
        EXPECT_EQ(date("datDateTo").date(), QDate(2024, 4, 1)) << byKey;
    }
    // What the list shows is what the boxes say, so half a date can't be left.
    prompts.say(u"Please enter valid date."_s);
    driver().enter("datDateTo", u"13"_s);
    EXPECT_EQ(driver().focused(), "datDateTo");
    driver().type("datDateTo", u"04012024"_s);
    driver().type("txtCrewRange", u"1,x3-5"_s);
    EXPECT_EQ(driver().text("txtCrewRange"), u"1,3-5"_s);
    driver().type("txtAssignCrew", u"2"_s);
    driver().press("chkGroupWo");
    press("cmdExit");
    for (const auto &[option, kept] : {std::pair(u"WoDateFrom"_s, u"04-01-2024"_s),
                                       {u"WoDateTo"_s, u"04-01-2024"_s},
                                       {u"WoCrewNo"_s, u"1,3-5"_s},
                                       {u"WoAssignCrew"_s, u"2"_s},
                                       {u"WoGroup"_s, u"1"_s}})
        EXPECT_EQ(GetOption(option, true), kept) << qPrintable(option);
}

TEST_F(PrintWork, ARefusedFilterIsReportedOnceAndLeavesTheList)
{
    service();
    openPrinting();
    driver().type("txtCrewRange", u"-5"_s);
    press("cmdRefreshWo");
    EXPECT_EQ(errors.takeOne().ProcedureName, u"RefreshPrintWo"_s);
    EXPECT_EQ(column("grdPrintWO", u"Unit No"_s), QStringList{u"M1"_s});
}

TEST_F(PrintWork, ANoteIsKeptWhenAKeyPressesAButton)
{
    service();
    openPrinting();
    driver().type("txtGenServiceNote", u"Jim's turn"_s);
    QTest::keyClick(&driver().control("txtGenServiceNote"), Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] {
        return value(u"Select [Note] from tblServiceUsed"_s).toString() == u"Jim's turn"_s;
    }));
    EXPECT_EQ(driver().text("txtGenServiceNote"), u"Jim's turn"_s);
}

TEST_F(PrintWork, AKeyThatTurnsTheTabLosesNoNote)
{
    orderService(order(), {{u"Skip"_s, true}, {u"Note"_s, u"Rain"_s}});
    openPrinting();
    auto &tabs = driver().control<QTabWidget>("sstabWorkorder");
    driver().type("txtPrintNote", u" "_s);
    prompts.say(u"Note Field Cann't left blank. When Service has Skiped."_s);
    QTest::keyClick(&driver().control("txtPrintNote"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs.currentIndex(), 0);
    driver().type("txtPrintNote", u"Snow"_s);
    QTest::keyClick(&driver().control("txtPrintNote"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_EQ(value(u"Select [Note] from tblWoServiceUsed"_s).toString(), u"Snow"_s);
    EXPECT_EQ(driver().text("txtRecordNote"), u"Snow"_s);
}
