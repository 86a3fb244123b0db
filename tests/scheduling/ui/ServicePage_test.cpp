#include "scheduling/ui/ServicePage.h"

#include "scheduling/ui/PageFrame.h"
#include "scheduling/ui/ScreenFleet.h"

namespace {

using namespace Qt::StringLiterals;
using test::ScreenDriver;

struct ServicePageTest : test::ScreenFleet
{
    /// Shows the page with one service.
    void show(const QVariantMap &row)
    {
        service = assigned(row);
        page = &frame.show<ServicePage>(1);
    }
    [[nodiscard]] ScreenDriver driver() const { return ScreenDriver(*page); }
    void press(const char *button) const { driver().press(button); }
    bool edit(const QString &column, const QVariant &newValue)
    {
        grid::GridModel &rows = page->grid()->rows();
        return rows.edit(0, rows.columnIndex(column), newValue);
    }
    bool mayEdit(const QString &column)
    {
        grid::GridModel &rows = page->grid()->rows();
        return rows.mayEdit(0, rows.columnIndex(column));
    }
    [[nodiscard]] QString shown(QStringView column) const
    {
        return page->grid()->rows().text(0, column);
    }
    [[nodiscard]] QVariant stored(const QString &column) const
    {
        return value(u"Select %1 from tblServiceUsed where ServiceUsedID = ?"_s.arg(column),
                     {service});
    }

    test::PageFrame frame;
    ServicePage *page = nullptr;
    qint64 service = 0;
};

TEST_F(ServicePageTest, OnlyTheCellThatTheScheduleGoesByIsEdited)
{
    for (const QChar period : u"DWMYHKIC"_s) {
        gcnData->Execute(u"Delete from tblServiceUsed"_s);
        show({{u"Period"_s, QString(period)}});
        EXPECT_EQ(mayEdit(u"Next Count"_s), u"HKIC"_s.contains(period)) << period.toLatin1();
        EXPECT_EQ(mayEdit(u"Next Schedule"_s), u"DWMYC"_s.contains(period)) << period.toLatin1();
        EXPECT_TRUE(mayEdit(u"Interval"_s));
        EXPECT_FALSE(mayEdit(u"Name"_s));
    }
    page->setEditable(false);
    EXPECT_FALSE(page->grid()->editing());
    EXPECT_FALSE(driver().isEnabled("cmdAddNewService"));
    EXPECT_TRUE(driver().isEnabled("cmdSelectService"));
}

TEST_F(ServicePageTest, CrewAndHoursMoveTheLabourCost)
{
    const qint64 second =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 8}, {u"Description"_s, u"Trees"_s}}, u"CrewID"_s);
    insert(u"tblEmployee"_s, u"EmployeeID, Crew, LaborCost, Inactive, IncludeWoList"_s,
           {u"E2"_s, second, 30, 0, 1});
    show({});
    const auto row = [] {
        return found(
            u"Select CrewID, LaborEstimate, CostEstimate, Einterval from tblServiceUsed"_s);
    };
    EXPECT_EQ(shown(u"Service Crew"), u"7   Mowing"_s);
    EXPECT_TRUE(edit(u"Service Crew"_s, second));
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(row(), u"%1|1.5|45|10"_s.arg(second));
    EXPECT_EQ(shown(u"Labor Cost"), u"$45.00"_s);
    failAt(u"CostEstimate] ="_s);
    EXPECT_TRUE(edit(u"Service Crew"_s, crew)) << "the crew is stored all the same";
    failAt({});
    (void)errors.takeOne();
    EXPECT_EQ(row(), u"%1|1.5|45|10"_s.arg(crew));
    EXPECT_EQ(shown(u"Labor Cost"), u"$45.00"_s);
    EXPECT_TRUE(edit(u"Service Crew"_s, second) && edit(u"Budgeted Hrs"_s, 2.0));
    EXPECT_EQ(row(), u"%1|2|60|10"_s.arg(second));
    EXPECT_TRUE(edit(u"Labor Cost"_s, 12.5) && edit(u"Interval"_s, 30));
    EXPECT_FALSE(edit(u"Interval"_s, QVariant()));
    EXPECT_EQ(row(), u"%1|2|12.5|30"_s.arg(second));
}

TEST_F(ServicePageTest, ANextDateMovesOnwardOnly)
{
    show({});
    prompts.say(u"Next Schedule Date should be greater than or equal to current date"_s);
    EXPECT_FALSE(edit(u"Next Schedule"_s, day(3, 14)));
    EXPECT_TRUE(page->grid()->rows().value(0, u"Next Schedule").isNull());
    EXPECT_TRUE(edit(u"Next Schedule"_s, day(3, 15)));
    EXPECT_EQ(stored(u"NextScheduledDate"_s), day(3, 15));
    for (const QVariant &refused : {QVariant(day(3, 14)), QVariant()}) {
        prompts.say(u"Next Schedule Date should be greater than old date"_s);
        EXPECT_FALSE(edit(u"Next Schedule"_s, refused));
    }
    EXPECT_EQ(stored(u"NextScheduledDate"_s), day(3, 15));

    // A date that is past already may move to another past one.
    gcnData->Execute(u"Update tblServiceUsed set NextScheduledDate = #01-01-2024#"_s);
    page->showMachine(1);
    EXPECT_TRUE(edit(u"Next Schedule"_s, day(1, 2)));
    putOnOrder(service);
    prompts.no(
        u"This service is already assigned to a work order. Changing this date will not remove it "
        "from the work order.If you are using the \"Reschedule Based on Service Original "
        "Scheduled\" changing the date will change when the service on the work order will be "
        "rescheduled\" Are you sure you want to do this \"Yes\" \"No\""_s);
    EXPECT_FALSE(edit(u"Next Schedule"_s, day(5, 5)));
    EXPECT_EQ(stored(u"NextScheduledDate"_s), day(1, 2));
}

TEST_F(ServicePageTest, ANextCountThatTheMeterHasReachedBringsTheReadingsDate)
{
    reading(1, u"Hours"_s, day(3, 3), 500);
    show({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 600}});
    prompts.say(u"Count value shouldn't be less then or equal to 0"_s);
    EXPECT_FALSE(edit(u"Next Count"_s, QVariant()));
    EXPECT_TRUE(edit(u"Next Count"_s, 501));
    EXPECT_TRUE(stored(u"NextScheduledDate"_s).isNull());
    gcnData->Execute(u"Update tblServiceUsed set Sun = NULL"_s);
    EXPECT_TRUE(edit(u"Next Count"_s, 502)) << "stored, though its date can't be calculated";
    (void)errors.takeOne();
    EXPECT_EQ(stored(u"NextScheduledCount"_s), 502);
    gcnData->Execute(u"Update tblServiceUsed set Sun = 1"_s);
    EXPECT_TRUE(edit(u"Next Count"_s, 500));
    EXPECT_EQ(stored(u"NextScheduledDate"_s), day(3, 3));
    EXPECT_EQ(shown(u"Next Schedule"), u"03/03/2024"_s);
    putOnOrder(service, u"H"_s);
    prompts.no(
        u"This service is already assigned to a work order. Changing this Count will not remove it "
        "from the work order.If you are using the \"Reschedule Based on Service Original Scheduled "
        "or Work Order Completion\" changing the count will change when the service on the work "
        "order will be rescheduled\" Are you sure you want to do this \"Yes\" \"No\""_s);
    EXPECT_FALSE(edit(u"Next Count"_s, 700));
    EXPECT_EQ(stored(u"NextScheduledCount"_s), 500);
}

TEST_F(ServicePageTest, ACellThatAnotherWorkstationChangedIsAskedAboutAndAGoneServiceTold)
{
    show({{u"LaborEstimate"_s, 2}, {u"CostEstimate"_s, 40}});
    const auto other = database.open();
    const auto change = [&](double hours) {
        other->Execute(u"Update tblServiceUsed set LaborEstimate = ?"_s, {hours});
    };
    change(6);
    prompts.yes(u"Another workstation has changed Budgeted Hrs meanwhile: yours \"3.00\", theirs "
                "\"6.00\". Do you want to store yours?"_s);
    EXPECT_TRUE(edit(u"Budgeted Hrs"_s, 3));
    EXPECT_EQ(stored(u"LaborEstimate"_s), 3);
    EXPECT_EQ(stored(u"CostEstimate"_s), 60);

    RollbackTrans();
    other->BeginTrans();
    change(7);
    prompts.say(u"Another workstation is changing this service. Please try again in a moment."_s);
    EXPECT_FALSE(edit(u"Interval"_s, 3));
    other->Execute(u"Delete from tblServiceUsed"_s);
    other->CommitTrans();
    prompts.say(
        u"This service has been removed from its machine on another workstation. Nothing was "
        "stored."_s);
    EXPECT_FALSE(edit(u"Interval"_s, 3));
    QCoreApplication::processEvents();
    EXPECT_EQ(page->grid()->rows().rowCount(), 0) << "the list shows what is left";
}

TEST_F(ServicePageTest, AddsFromTheCatalogueWhatTheMachineLacks)
{
    catalogue(100);
    catalogue(101, {{u"Name"_s, u"New one"_s}});
    show({{u"ServiceID"_s, 100}, {u"Period"_s, u"H"_s}, {u"EInterval"_s, 50}});
    const auto add = [this] {
        test::inScreen([this] { press("cmdAddNewService"); },
                       [](const ScreenDriver &list) {
                           auto &services = list.grid("grdServices");
                           EXPECT_EQ(services.rows().rowCount(), 1) << "what it has is left out";
                           services.setFocus();
                           QTest::keyClick(&services, Qt::Key_Space);
                           list.press("cmdSelect");
                       });
    };
    failAt(u"Update tblServiceUsed set NextScheduledDate"_s);
    add();
    failAt({});
    (void)errors.takeOne();
    EXPECT_EQ(count(u"tblServiceUsed"_s), 1) << "undone by the machine's cancel";
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(frame.changes, 0);

    add();
    EXPECT_EQ(page->grid()->rows().rowCount(), 2);
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed where ServiceID = 101"_s),
              day(3, 15));
    EXPECT_EQ(value(u"Select NextScheduledCount from tblServiceUsed where ServiceID = 100"_s), 50)
        << "a meter that was never read begins at 0";
    EXPECT_EQ(frame.mode, Mode::Browse) << "adding saves the machine";
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(frame.changes, 1);
}

TEST_F(ServicePageTest, OpensAServiceAfterSavingTheMachine)
{
    show({});
    EXPECT_TRUE(edit(u"Interval"_s, 30));
    EXPECT_TRUE(gbInTransaction);
    test::inScreen([this] { press("cmdSelectService"); },
                   [](const ScreenDriver &screen) {
                       EXPECT_FALSE(gbInTransaction);
                       screen.press("ChkSeparateWO");
                       screen.press("cmdUpdate");
                       screen.press("cmdExit");
                   });
    EXPECT_EQ(stored(u"SeparateWo"_s), 1);
    EXPECT_EQ(stored(u"Einterval"_s), 30);
}

TEST_F(ServicePageTest, RemovesAServiceUndoneByTheMachinesCancel)
{
    show({});
    putOnOrder(service);
    prompts.no(u"Are you sure you want to delete this service?"_s);
    press("cmdRemoveService");
    EXPECT_EQ(count(u"tblServiceUsed"_s), 1);
    prompts.yes(u"Are you sure you want to delete this service?"_s);
    press("cmdRemoveService");
    EXPECT_FALSE(page->hasContent());
    EXPECT_FALSE(driver().isEnabled("cmdRemoveService"));
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 1);
    RollbackTrans();
    EXPECT_EQ(count(u"tblServiceUsed"_s), 1);
}

} // namespace
