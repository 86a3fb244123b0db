#include "ShownGrid.h"

#include <QClipboard>
#include <QScrollBar>

namespace {

using namespace Qt::StringLiterals;
using grid::Column;
using grid::ColumnLayout;
using grid::Editor;
using grid::GridView;
using grid::Sort;

using GridViewShown = test::ShownGrid;

TEST_F(GridViewShown, TheFirstFocusSelectsARowAndItsLossIsTold)
{
    show();
    EXPECT_EQ(m_grid.currentRow(), 0);
    EXPECT_TRUE(m_grid.selectionModel()->isRowSelected(0));

    m_grid.clearCurrent();
    QSignalSpy spy(&m_grid, &GridView::currentRowChanged);
    m_grid.selectRow(2);
    m_grid.selectCell(2, u"Price");
    EXPECT_EQ(place(), u"2 Price");
    key(Qt::Key_Down);
    EXPECT_EQ(place(), u"3 Price");
    rows().setRecordset(test::parts());
    EXPECT_EQ(m_grid.currentRow(), -1);
    QList<int> told;
    for (const QList<QVariant> &arguments : spy)
        told.append(arguments.at(0).toInt());
    EXPECT_EQ(told, QList<int>({2, 3, -1}));
}

TEST_F(GridViewShown, LinesAreOnePixelWideAtAnyScale)
{
    m_grid.clearCurrent();
    show();
    m_grid.clearCurrent();
    const QRgb lines = qRgb(208, 208, 208);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage picture(m_grid.viewport()->size() * scale, QImage::Format_RGB32);
        picture.setDevicePixelRatio(scale);
        m_grid.viewport()->render(&picture);
        const QRect cell = m_grid.cellRect(0, u"Part Number");
        // Down the right part of a cell and along its lower part, where no text stands.
        const int x = qRound((cell.right() - 2) * scale);
        const int y = qRound((cell.bottom() - 1) * scale);
        int across = 0;
        for (int at = 0; at < picture.height(); ++at)
            across += picture.pixel(x, at) == lines ? 1 : 0;
        EXPECT_EQ(across, rows().rowCount()) << scale;
        QList<int> upright;
        for (int at = 0; at < qRound((cell.right() + 3) * scale); ++at) {
            if (picture.pixel(at, y) == lines)
                upright.append(at);
        }
        ASSERT_EQ(upright.size(), 1) << scale;
        EXPECT_NEAR(upright.first(), (cell.right() + 1) * scale - 1, 1) << scale;
    }
}

TEST_F(GridViewShown, TheCurrentRowIsWhollyInViewHoweverTheRoomChanges)
{
    for (int i = 0; i < 60; ++i)
        rows().insertRow({{u"Part Number"_s, u"P%1"_s.arg(i)}});
    const int row = m_grid.displayedOrder().last();
    // Chosen before there is any room, as by a link that opens a screen.
    m_grid.selectRow(row);
    show();
    const auto inView = [&] {
        return m_grid.viewport()->rect().contains(
            m_grid.cellRect(row, u"Part Number").adjusted(1, 0, -1, 0));
    };
    EXPECT_TRUE(QTest::qWaitFor(inView, 1000)) << "shown";
    for (const int height : {300, 180, 233}) {
        m_window.resize(900, height);
        EXPECT_TRUE(QTest::qWaitFor(inView, 1000)) << height;
    }
    // A user who has scrolled away stays there.
    QCoreApplication::processEvents();
    m_grid.scrollToTop();
    m_window.resize(900, 200);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_grid.verticalScrollBar()->value(), 0);
}

TEST_F(GridViewShown, AClickOnAHeadingSortsASecondTurnsItRound)
{
    show();
    m_grid.selectRow(2);
    clickHeading(u"Description");
    EXPECT_EQ(m_grid.displayedOrder(), QList<int>({3, 0, 1, 2}));
    EXPECT_TRUE(m_grid.header()->isSortIndicatorShown());
    EXPECT_EQ(m_grid.header()->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeading(u"Description");
    EXPECT_EQ(m_grid.displayedOrder(), QList<int>({2, 1, 0, 3}));
    EXPECT_EQ(m_grid.header()->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(m_grid.currentRow(), 2);
    key(Qt::Key_Down);
    EXPECT_EQ(m_grid.currentRow(), 1) << "the keys follow what is shown";
}

TEST_F(GridViewShown, ALayoutComesBackAsItWasLeft)
{
    show();
    rows().column(u"SupplierID").visible = false;
    rows().columnsChanged();
    m_grid.header()->moveSection(1, 0);
    m_grid.header()->resizeSection(rows().columnIndex(u"Price"), 66);
    m_grid.sortBy(u"Price", Sort::Descending);
    const grid::Layout layout = m_grid.layout();
    EXPECT_EQ(layout.at(0).field, u"Description");
    EXPECT_EQ(layout.at(3), (ColumnLayout{u"Price"_s, 66, 3, Sort::Descending}));

    GridView other;
    other.rows().setRecordset(test::parts());
    EXPECT_TRUE(other.applyLayout(layout).isEmpty());
    EXPECT_EQ(other.layout(), layout);
    EXPECT_EQ(other.displayedOrder(), QList<int>({0, 2, 1, 3}));
    EXPECT_EQ(other.header()->sortIndicatorSection(), other.rows().columnIndex(u"Price"));

    // Loading the rows again changes nothing of it.
    other.rows().setRecordset(test::parts());
    EXPECT_EQ(other.layout(), layout);
    EXPECT_EQ(other.header()->visualIndex(1), 0);
    EXPECT_EQ(other.header()->sectionSize(other.rows().columnIndex(u"Price")), 66);
}

TEST_F(GridViewShown, ALayoutMayComeBeforeItsColumnsAndKnowMoreOrFewer)
{
    GridView other;
    const grid::Layout layout{{u"price"_s, 66, 0, Sort::Ascending},
                              {u"Gone"_s, 50, 1, Sort::None},
                              {u"Part Number"_s, 120, 2, Sort::None}};
    EXPECT_EQ(other.applyLayout(layout), QStringList({u"price"_s, u"Gone"_s, u"Part Number"_s}));
    other.rows().setRecordset(test::parts());
    EXPECT_EQ(other.rows().column(u"Price").width, 66);
    EXPECT_EQ(other.displayedOrder(), QList<int>({3, 1, 0, 2}));
    EXPECT_EQ(other.header()->visualIndex(other.rows().columnIndex(u"Price")), 0);
    // A column that the layout doesn't know keeps its designed place.
    EXPECT_EQ(other.header()->visualIndex(other.rows().columnIndex(u"SupplierID")), 6);
}

TEST_F(GridViewShown, ArrowsAndCopyTakeTheVisibleCellsInTheirOrder)
{
    rows().column(u"Description").visible = false;
    rows().column(u"Price").position = 0;
    rows().columnsChanged();
    show();
    m_grid.selectCell(1, u"Price");
    for (const auto &[pressed, reached] : {std::pair(Qt::Key_Right, u"1 Part Number"),
                                           {Qt::Key_Right, u"1 Qty on Hand"},
                                           {Qt::Key_End, u"3 Qty on Hand"},
                                           {Qt::Key_Home, u"0 Qty on Hand"},
                                           {Qt::Key_PageDown, u"3 Qty on Hand"}}) {
        key(pressed);
        EXPECT_EQ(place(), reached);
    }

    rows().column(u"SupplierID").visible = false;
    rows().column(u"Price").format = u"$0.00"_s;
    rows().columnsChanged();
    m_grid.selectRow(1);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"$4.25\tA-100\t10\t\tTrue");
}

TEST_F(GridViewShown, EnterAndDoubleClickActivateTheRow)
{
    show();
    QSignalSpy spy(&m_grid, &GridView::rowActivated);
    m_grid.selectRow(2);
    key(Qt::Key_Return);
    doubleClick(1, u"Part Number");
    ASSERT_EQ(spy.count(), 2);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 2);
    EXPECT_EQ(spy.at(1).at(0).toInt(), 1);
}

TEST_F(GridViewShown, ChecksAreToggledByClickAndBySpace)
{
    rows().addColumn({.name = u"Select"_s, .editable = true, .editor = Editor::Check});
    show();
    QSignalSpy activated(&m_grid, &GridView::rowActivated);
    QSignalSpy changed(&m_grid, &GridView::changed);
    const auto ticked = [&](int row, QStringView name) { return rows().value(row, name).toBool(); };
    const auto space = [&](QStringView name) {
        m_grid.selectCell(2, name);
        key(Qt::Key_Space);
    };
    click(1, u"Select");
    EXPECT_TRUE(ticked(1, u"Select"));
    EXPECT_EQ(m_grid.currentRow(), 1);
    doubleClick(1, u"Select");
    EXPECT_TRUE(ticked(1, u"Select")) << "twice is back";
    space(u"Price");
    EXPECT_TRUE(ticked(2, u"Select"));
    EXPECT_EQ(changed.count(), 4);
    EXPECT_EQ(activated.count(), 0);
    // Inactive is a check box, too, and not editable.
    click(2, u"Inactive");
    EXPECT_FALSE(ticked(2, u"Inactive"));
    // With two of them Space takes the current one.
    makeEditable({u"Inactive"});
    space(u"Select");
    EXPECT_FALSE(ticked(2, u"Select") || ticked(2, u"Inactive"));
    space(u"Price");
    EXPECT_TRUE(ticked(2, u"Inactive"));
}

TEST_F(GridViewShown, ButtonsAndLinksAnswerToClicksAndKeys)
{
    rows().addColumn({.name = u"Add"_s, .editor = Editor::Button});
    rows().setAll(u"Add", u"Add one year"_s);
    rows().column(u"Part Number").editor = Editor::Link;
    rows().columnsChanged();
    show();
    QSignalSpy buttons(&m_grid, &GridView::buttonClicked);
    QSignalSpy links(&m_grid, &GridView::linkClicked);
    QSignalSpy activated(&m_grid, &GridView::rowActivated);
    click(2, u"Add");
    key(Qt::Key_Space);
    doubleClick(1, u"Add");
    EXPECT_EQ(buttons.count(), 4);
    EXPECT_EQ(buttons.at(0), QList<QVariant>({2, u"Add"_s}));
    click(3, u"Part Number");
    key(Qt::Key_Return);
    EXPECT_EQ(links.count(), 2);
    EXPECT_EQ(links.at(1), QList<QVariant>({3, u"Part Number"_s}));
    click(3, u"Description");
    EXPECT_EQ(links.count(), 2);
    EXPECT_EQ(activated.count(), 0);
}

TEST_F(GridViewShown, TreeRowsOpenByClickAndByKey)
{
    GridView tree;
    tree.rows().addColumn({.name = u"Report"_s, .width = 200, .editor = Editor::Link});
    tree.rows().setTreeColumn(u"Report");
    const int parent = tree.rows().insertRow({{u"Report"_s, u"Equipment Reports"_s}});
    const int child = tree.rows().insertRow({{u"Report"_s, u"Equipment List"_s}}, parent);
    tree.resize(300, 200);
    tree.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tree));
    QSignalSpy links(&tree, &GridView::linkClicked);
    const auto clickAt = [&tree](int row, int fromLeft) {
        const QRect cell = tree.cellRect(row, u"Report");
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                          {cell.left() + fromLeft, cell.center().y()});
    };
    EXPECT_FALSE(tree.isRowExpanded(parent));
    clickAt(parent, 50);
    EXPECT_TRUE(tree.isRowExpanded(parent));
    clickAt(child, 50);
    EXPECT_EQ(links.count(), 1);
    QTest::keyClick(&tree, Qt::Key_Left);
    EXPECT_EQ(tree.currentRow(), parent);
    QTest::keyClick(&tree, Qt::Key_Left);
    EXPECT_FALSE(tree.isRowExpanded(parent));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_TRUE(tree.isRowExpanded(parent));
    // The sign before the text belongs to the row, too.
    clickAt(parent, -8);
    EXPECT_FALSE(tree.isRowExpanded(parent));
    EXPECT_EQ(links.count(), 1);
}

TEST_F(GridViewShown, TheStyleRuleIsAskedForPaintedRowsOnly)
{
    {
        const grid::GridModel::Filling filling(rows());
        for (int i = 0; i < 5000; ++i)
            rows().insertRow({{u"Part Number"_s, QString::number(i)}});
    }
    int lastRow = 0;
    rows().styleRule = [&](int row, const QString &) {
        lastRow = std::max(lastRow, row);
        return row == 1 ? grid::Style{Qt::white, Qt::red} : grid::Style{};
    };
    show();
    const QImage picture = m_grid.grab().toImage();
    EXPECT_GT(lastRow, 0);
    EXPECT_LT(lastRow, 100);
    const auto colourIn = [&](int row) {
        const QRect cell = m_grid.cellRect(row, u"Ordered");
        return picture.pixelColor(m_grid.viewport()->mapTo(&m_grid, cell.center() + QPoint(40, 4)));
    };
    EXPECT_EQ(colourIn(0), QColor(49, 101, 255)) << "selected";
    EXPECT_EQ(colourIn(1), QColor(Qt::red));
    EXPECT_EQ(colourIn(2), QColor(Qt::white));
    EXPECT_EQ(colourIn(3), QColor(240, 240, 240)) << "every other row";
}

} // namespace
