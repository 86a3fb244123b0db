#include "workorders/ui/frmOverDueWork.h"

#include "workorders/Board.h"
#include "workorders/ui/WorkScreen.h"

using namespace Qt::StringLiterals;

namespace {

struct OverDueWork : test::Workshop
{
    void open()
    {
        board = std::make_unique<frmOverDueWork>();
        board->resize(900, 600);
        test::bringUp(*board);
    }
    [[nodiscard]] grid::GridView &grid(const char *name = "grdEquipWithSer") const
    {
        return test::named<grid::GridView>(*board, QString::fromLatin1(name));
    }
    /// The rows with their parents, "parent/row".
    [[nodiscard]] QStringList listed() const
    {
        QStringList texts;
        const grid::GridModel &rows = grid().rows();
        for (const int row : grid().displayedOrder()) {
            const int parent = rows.parentRow(row);
            texts.append((parent < 0 ? QString() : rows.text(parent, u"Unit No").left(4) + u'/') +
                         rows.text(row, u"Unit No"));
        }
        return texts;
    }
    void follow(const char *name, const QString &columnName, const QString &text)
    {
        const int row = grid(name).rows().findRow(columnName, text);
        ASSERT_GE(row, 0) << qPrintable(text);
        grid(name).setRowExpanded(grid(name).rows().parentRow(row), true);
        grid(name).selectCell(row, columnName);
        grid(name).setFocus();
        QTest::keyClick(&grid(name), Qt::Key_Return);
    }

    test::Joints joints;
    std::unique_ptr<frmOverDueWork> board;
};

} // namespace

TEST_F(OverDueWork, ListsWhatFellDueWithinThirtyDaysAndWhatStandsOpen)
{
    const struct
    {
        qint64 id;
        QVariant due;
        int inactive;
        bool listed;
    } rows[] = {
        {10, day(3, 15), 0, true},  {11, day(3, 16), 0, false}, {12, day(2, 15), 0, true},
        {13, day(2, 13), 0, false}, {14, QVariant(), 0, false}, {15, day(3, 1), 1, false},
    };
    QStringList due;
    for (const auto &row : rows) {
        machine(row.id, u"U%1"_s.arg(row.id));
        // Two services of one machine are one row.
        for (int twice = 0; twice < 2; ++twice)
            service({{u"EquipmentID"_s, row.id},
                     {u"NextScheduledDate"_s, row.due},
                     {u"Inactive"_s, row.inactive}});
        if (row.listed)
            due.append(u"Over/U%1 - Mower U%1"_s.arg(row.id));
    }
    machine(20, u"U20"_s);
    orderService(order({{u"EquipmentID"_s, 20}}),
                 {{u"ServiceUsedID"_s, service({{u"EquipmentID"_s, 20}})}});
    order({{u"EquipmentID"_s, 20}}); // without services
    order({{u"CompletedDate"_s, day(3, 1)}});
    open();
    EXPECT_EQ(listed(), QStringList({u"Open Work Order"_s, u"Open/U20 - Mower U20"_s,
                                     u"Open/U20 - Mower U20"_s, u"Over Due Service"_s}) +
                            due);
    const grid::GridModel &cells = grid().rows();
    EXPECT_EQ(cells.text(0, u"Count"), u"2"_s);
    EXPECT_FALSE(cells.style(cells.findRow(u"Unit No", u"U20 - Mower U20"_s), 0).bold);
    const int oldest = cells.findRow(u"Unit No", u"U12 - Mower U12"_s);
    EXPECT_EQ(cells.text(oldest, u"Due Since"), u"02/15/2024"_s);
    EXPECT_EQ(cells.text(oldest, u"Count"), u"2"_s);
    const int column = cells.columnIndex(u"Due Since");
    EXPECT_EQ(cells.style(oldest, column).foreground, QColor(Qt::white)) << "29 days late";
    EXPECT_FALSE(
        cells.style(cells.findRow(u"Unit No", u"U10 - Mower U10"_s), column).background.isValid());
}

TEST_F(OverDueWork, ReadingAnewKeepsWhatIsExpandedAndSelected)
{
    service();
    open();
    grid().setRowExpanded(0, false);
    const int row = grid().rows().findRow(u"Unit No", u"M1 - Mower M1"_s);
    grid().selectRow(row);
    order();
    board->LoadData();
    EXPECT_FALSE(grid().isRowExpanded(grid().rows().findRow(u"Unit No", u"Open Work Order"_s)));
    EXPECT_EQ(grid().rows().text(grid().currentRow(), u"Unit No"), u"M1 - Mower M1"_s);
    EXPECT_EQ(grid().rows().text(grid().currentRow(), u"WorkOrderNo"), u""_s);
}

TEST_F(OverDueWork, ALinkOpensTheMachinesRowInTheBoardsWindow)
{
    machine(2, u"T"_s);
    service();
    service({{u"EquipmentID"_s, 2}});
    order({{u"EquipmentID"_s, 2}});
    open();
    test::onNextModal([](QWidget &window) {
        const test::ScreenDriver work(window);
        const auto &list = work.grid("grdPrintWO");
        EXPECT_EQ(list.rows().text(list.currentRow(), u"Unit No"), u"T"_s);
        EXPECT_EQ(list.rows().text(list.currentRow(), u"WorkOrderNo"), u""_s);
        EXPECT_EQ(work.texts({"datDateFrom", "datDateTo"}), u"02/14/2024|03/15/2024"_s);
        work.press("cmdExit");
    });
    follow("grdEquipWithSer", u"Unit No"_s, u"T - Mower T"_s);
}

TEST_F(OverDueWork, ALinkOpensTheOrderForRecording)
{
    const qint64 first = order();
    machine(2, u"T"_s);
    order({{u"EquipmentID"_s, 2}});
    open();
    test::onNextModal([first](QWidget &window) {
        const test::ScreenDriver work(window);
        const auto &list = work.grid("grdRecordWo");
        EXPECT_TRUE(list.isVisible());
        EXPECT_EQ(list.rows().value(list.currentRow(), u"WorkOrderNo").toLongLong(), first);
        work.press("cmdExit");
    });
    follow("grdEquipWithSer", u"Unit No"_s, u"M1 - Mower M1"_s);
}

TEST_F(OverDueWork, TheUnitNumberEndsAtTheFirstHyphen)
{
    EXPECT_EQ(board::unitNumberOf(u"M1 - Mower"_s), u"M1"_s);
    EXPECT_EQ(board::unitNumberOf(u"A-1 - Mower"_s), u""_s);
    EXPECT_EQ(board::unitNumberOf(u"no hyphen"_s), u""_s);
}

TEST_F(OverDueWork, ReportsNeedSomebodyWhoShowsThem)
{
    int opened = 0;
    gRights.InvReport = true;
    openings().join(u"ShowInventryDetails"_s, [&] { ++opened; });
    open();
    EXPECT_FALSE(grid("grdReport").isRowExpanded(0)) << "collapsed at first";
    follow("grdReport", u"ReportName"_s, u"Equipment List"_s); // nobody has joined it
    follow("grdReport", u"ReportName"_s, u"Inventory Report"_s);
    EXPECT_EQ(opened, 1);
    const grid::GridModel &rows = grid("grdReport").rows();
    EXPECT_EQ(rows.rowCount(), 3 + 19);
    EXPECT_NE(rows.style(rows.findRow(u"ReportName", u"Equipment List"_s), 0).foreground,
              rows.style(rows.findRow(u"ReportName", u"Inventory Report"_s), 0).foreground);
}

TEST_F(OverDueWork, TheReportsAreHiddenAndShown)
{
    open();
    EXPECT_EQ(listed(), (QStringList{u"Open Work Order"_s, u"Over Due Service"_s}))
        << "with nothing due the two parents stand alone";
    EXPECT_TRUE(board->reportsVisible());
    QTest::mouseClick(&test::named<QWidget>(*board, u"imgClose"_s), Qt::LeftButton);
    EXPECT_FALSE(board->reportsVisible());
    QTest::mouseClick(&test::named<QWidget>(*board, u"lblReports"_s), Qt::LeftButton);
    EXPECT_TRUE(board->reportsVisible());
    board->LoadUnloadReportsNavigator(false);
    EXPECT_FALSE(grid("grdReport").isVisible());
}

TEST_F(OverDueWork, ShortcutsOpenTheReadingsAndTheChoiceOfAMachineForItsCrew)
{
    ScreenCalls::QuickFind asked;
    screenCalls().ShowQuickFind = [&](const ScreenCalls::QuickFind &request) {
        asked = request;
        return QString();
    };
    int readings = 0;
    gRights.EqCountSheet = true;
    openings().join(u"frmEquipmentReading"_s, [&] { ++readings; });
    open();
    test::ScreenDriver(*board).press("cmdToolbar2");
    test::ScreenDriver(*board).press("cmdToolbar5");
    EXPECT_EQ(readings, 1);
    EXPECT_EQ(asked.table, u"tblEquipment"_s);
}
