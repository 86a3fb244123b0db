#include "ShownGrid.h"

#include <QAction>
#include <QCalendarWidget>
#include <QDialog>
#include <QTimer>

namespace {

using namespace Qt::StringLiterals;
using grid::Column;
using grid::Editor;
using grid::GridView;

class GridViewEditing : public test::ShownGrid
{
protected:
    /// Types into a cell from the grid and presses a key at the end.
    void enter(int row, QStringView column, const QString &text, Qt::Key end = Qt::Key_Return)
    {
        m_grid.selectCell(row, column);
        type(text);
        key(end);
    }
};

TEST_F(GridViewEditing, TypingReplacesEnterStoresAndStaysEscapeRestores)
{
    makeEditable({u"Description"});
    show();
    QSignalSpy changed(&m_grid, &GridView::changed);
    QSignalSpy typing(&m_grid, &GridView::typing);
    // The view waits for a second click in the selected row, but not the keys.
    m_grid.selectRow(1);
    click(1, u"Description");
    type(u"ab"_s);
    EXPECT_EQ(place(), u"1 Description:ab");
    EXPECT_EQ(typing.count(), 2);
    EXPECT_EQ(typing.at(1), QList<QVariant>({1, u"Description"_s, u"ab"_s}));
    key(Qt::Key_Return);
    EXPECT_EQ(place(), u"1 Description");
    EXPECT_EQ(rows().text(1, u"Description"), u"ab");
    EXPECT_TRUE(m_grid.hasFocus());

    key(Qt::Key_F2);
    EXPECT_EQ(place(), u"1 Description:ab");
    type(u"c"_s);
    key(Qt::Key_Escape);
    EXPECT_EQ(place(), u"1 Description");
    EXPECT_EQ(rows().text(1, u"Description"), u"ab");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(GridViewEditing, NothingIsTypedIntoCellsThatCannotBeEdited)
{
    makeEditable({u"Description", u"Price"});
    rows().column(u"Description").editRule = [](int row) { return row != 1; };
    show();
    m_grid.selectCell(1, u"Description");
    key(Qt::Key_F2);
    EXPECT_FALSE(isEditing());
    EXPECT_FALSE(m_grid.editCell(0, u"Part Number"));
    EXPECT_TRUE(m_grid.editCell(1, u"Price"));
    m_grid.setEditing(false);
    EXPECT_FALSE(isEditing());
    EXPECT_FALSE(m_grid.editCell(1, u"Price"));
}

TEST_F(GridViewEditing, AnEntryBelowTheMasksRangeIsGivenUpAndTold)
{
    rows().addColumn({.name = u"Interval"_s, .editable = true, .mask = u"{1,99999}"_s});
    rows().setAll(u"Interval", 30);
    show();
    QSignalSpy refused(&m_grid, &GridView::entryRefused);
    enter(0, u"Interval", u"0"_s);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(rows().value(0, u"Interval"), QVariant(30));
    ASSERT_EQ(refused.count(), 1);
    EXPECT_EQ(refused.at(0), QList<QVariant>({0, u"Interval"_s, u"0"_s}));
}

TEST_F(GridViewEditing, TabStoresAndGoesToTheNextEditableCell)
{
    makeEditable({u"Description", u"Price"});
    for (const auto *column : {u"Description", u"Price"})
        rows().column(column).editRule = [](int row) { return row != 1; };
    show();
    enter(0, u"Description", u"x"_s, Qt::Key_Tab);
    EXPECT_EQ(rows().text(0, u"Description"), u"x");
    EXPECT_EQ(place(), u"0 Price:12.5");
    type(u"9"_s);
    key(Qt::Key_Tab);
    EXPECT_EQ(rows().value(0, u"Price"), QVariant(qint64(9)));
    EXPECT_EQ(place(), u"2 Description:Oil, 10W30") << "row 1 can't be edited";
    key(Qt::Key_Backtab);
    EXPECT_EQ(place(), u"0 Price:9");
    m_grid.finishEditing();
    m_grid.editCell(3, u"Price");
    key(Qt::Key_Tab);
    EXPECT_FALSE(isEditing()) << "behind the last cell";
}

TEST_F(GridViewEditing, ARefusedChangeLeavesTheOldValue)
{
    makeEditable({u"Price"});
    rows().column(u"Price").changeRule = [](int, const QVariant &value) {
        return value.toDouble() > 0;
    };
    show();
    QSignalSpy changed(&m_grid, &GridView::changed);
    enter(0, u"Price", u"0"_s);
    EXPECT_EQ(rows().value(0, u"Price"), QVariant(12.5));
    EXPECT_EQ(changed.count(), 0);
    type(u"3"_s);
    m_other.setFocus();
    EXPECT_EQ(rows().value(0, u"Price"), QVariant(qint64(3))) << "leaving the box stores";
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(GridViewEditing, ARuleThatAsksRunsOnce)
{
    makeEditable({u"Price"});
    int asked = 0;
    rows().column(u"Price").changeRule = [&](int, const QVariant &) {
        ++asked;
        QDialog question(&m_window);
        QTimer::singleShot(0, &question, &QDialog::accept);
        question.exec();
        return true;
    };
    show();
    enter(0, u"Price", u"8"_s);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(rows().value(0, u"Price"), QVariant(qint64(8)));
    EXPECT_FALSE(isEditing());
    // Without a window manager nobody gives the window its turn back.
    m_window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    EXPECT_TRUE(m_grid.hasFocus()) << "the keys go on in the grid";
    type(u"9"_s);
    m_other.setFocus();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(rows().value(0, u"Price"), QVariant(qint64(9)));
}

TEST_F(GridViewEditing, ARuleMayReloadTheGridUnderTheEditor)
{
    makeEditable({u"Price"});
    rows().column(u"Price").changeRule = [&](int, const QVariant &) {
        rows().setRecordset(test::parts());
        m_grid.selectRow(3);
        return true;
    };
    show();
    enter(0, u"Price", u"8"_s, Qt::Key_Tab);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(m_grid.currentRow(), 3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(rows().text(0, u"Price"), u"12.5");
}

TEST_F(GridViewEditing, ADropDownStoresTheIdOfTheChosenText)
{
    Column &supplier = rows().column(u"SupplierID");
    supplier.editor = Editor::DropDown;
    supplier.choices = {{7, u"Northfield"_s}, {8, u"Ardent"_s}, {9, u"Keel & Sons"_s}};
    makeEditable({u"SupplierID"});
    show();
    ASSERT_TRUE(m_grid.editCell(0, u"SupplierID"));
    auto *list = m_grid.findChild<QComboBox *>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->currentText(), u"Northfield");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(rows().value(0, u"SupplierID"), QVariant(qint64(8)));
    EXPECT_EQ(rows().text(0, u"SupplierID"), u"Ardent");

    // Opened and left again: an id without an entry stays what it is.
    m_grid.editCell(2, u"SupplierID");
    m_grid.finishEditing();
    EXPECT_EQ(rows().value(2, u"SupplierID"), QVariant(qint64(99)));
}

TEST_F(GridViewEditing, DatesAreTypedMonthFirstOrChosenInTheCalendar)
{
    makeEditable({u"Ordered"});
    show();
    QSignalSpy refused(&m_grid, &GridView::entryRefused);
    m_grid.selectCell(0, u"Ordered");
    type(u"4/5/24x"_s);
    EXPECT_EQ(place(), u"0 Ordered:4/5/24");
    key(Qt::Key_Return);
    EXPECT_EQ(rows().value(0, u"Ordered"), QVariant(base::wallClock(QDate(2024, 4, 5))));
    type(u"2/30/24"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(rows().text(0, u"Ordered"), u"04/05/2024");
    EXPECT_EQ(refused.count(), 1);

    m_grid.editCell(0, u"Ordered");
    key(Qt::Key_Down, Qt::AltModifier);
    auto *calendar = m_grid.findChild<QCalendarWidget *>();
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(2024, 4, 5));
    Q_EMIT calendar->clicked(QDate(2024, 4, 8));
    EXPECT_EQ(rows().text(0, u"Ordered"), u"04/08/2024");
    EXPECT_FALSE(isEditing());

    m_grid.editCell(0, u"Ordered");
    QApplication::focusWidget()->actions().constFirst()->trigger();
    EXPECT_TRUE(qobject_cast<QCalendarWidget *>(QApplication::activePopupWidget()));
    QApplication::activePopupWidget()->close();
    m_grid.finishEditing();

    m_grid.editCell(0, u"Ordered");
    key(Qt::Key_Delete);
    key(Qt::Key_Return);
    EXPECT_FALSE(rows().value(0, u"Ordered").isValid()) << "emptied";
}

TEST_F(GridViewEditing, AChangeThatTheProgramCutsShortIsAskedForOnce)
{
    makeEditable({u"Price"});
    int asked = 0;
    rows().column(u"Price").changeRule = [&](int, const QVariant &) {
        ++asked;
        return false;
    };
    show();
    m_grid.selectCell(0, u"Price");
    type(u"8"_s);
    m_grid.selectRow(2);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(m_grid.finishEditing()) << "no editor is open";
    EXPECT_EQ(asked, 1);

    m_grid.editCell(2, u"Price");
    type(u"8"_s);
    rows().clear();
    EXPECT_TRUE(m_grid.finishEditing());
    EXPECT_EQ(asked, 1);
}

TEST_F(GridViewEditing, AGridThatGoesAwayStoresNothing)
{
    auto *grid = new GridView(&m_window);
    grid->rows().setRecordset(test::parts());
    grid->rows().column(u"Price").editable = true;
    int asked = 0;
    grid->rows().column(u"Price").changeRule = [&](int, const QVariant &) {
        ++asked;
        return true;
    };
    show();
    grid->show();
    grid->setFocus();
    grid->editCell(0, u"Price");
    type(u"8"_s);
    EXPECT_EQ(qobject_cast<QLineEdit *>(QApplication::focusWidget())->text(), u"8");
    delete grid;
    EXPECT_EQ(asked, 0);
}

/// The sheet on which readings are entered down one column.
class GridSheet : public GridViewEditing
{
protected:
    GridSheet()
    {
        rows().addColumn({.name = u"Count"_s,
                          .editable = true,
                          .mask = u"{0,999999999}"_s,
                          .placeholder = u"______________"_s});
        m_grid.setVerticalEntry(u"Count");
        // No reading below what is on hand: 9, 10, 2, none.
        rows().column(u"Count").changeRule = [this](int row, const QVariant &value) {
            const QVariant least = rows().value(row, u"Qty on Hand");
            if (value.isNull() || value.toLongLong() >= least.toLongLong())
                return true;
            rows().setValue(row, u"Count", least);
            return false;
        };
    }
};

TEST_F(GridSheet, EnterAndDownStoreAndGoOnUpGoesBack)
{
    show();
    click(0, u"Description");
    EXPECT_EQ(place(), u"0 Count:") << "not the placeholder";
    type(u"1x2"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(place(), u"1 Count:");
    type(u"30"_s);
    key(Qt::Key_Down);
    EXPECT_EQ(place(), u"2 Count:");
    key(Qt::Key_Up);
    EXPECT_EQ(place(), u"1 Count:30");
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(place(), u"0 Count:12") << "the first row stays";
    EXPECT_EQ(rows().text(2, u"Count"), u"______________");
    m_grid.editCell(3, u"Count");
    type(u"5"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(place(), u"3 Count:5") << "the last row stays";
    EXPECT_EQ(rows().text(3, u"Count"), u"5");
    key(Qt::Key_Backspace);
    key(Qt::Key_Up);
    EXPECT_EQ(rows().text(3, u"Count"), u"______________") << "an emptied box";
}

TEST_F(GridSheet, KeysOnTheGridOpenTheBox)
{
    show();
    for (const Qt::Key which : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace}) {
        m_grid.selectCell(1, u"Description");
        key(which);
        EXPECT_TRUE(isEditing()) << which;
        key(Qt::Key_Escape);
        EXPECT_FALSE(isEditing()) << which;
    }
    m_grid.selectCell(1, u"Description");
    type(u"44"_s);
    EXPECT_EQ(place(), u"1 Count:44");
}

TEST_F(GridSheet, ARefusedReadingKeepsTheBoxOnWhatTheRuleSet)
{
    show();
    m_grid.editCell(1, u"Count");
    type(u"3"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(place(), u"1 Count:10");
    type(u"4"_s);
    m_other.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return isEditing(); })) << "the focus comes back";
    EXPECT_EQ(place(), u"1 Count:10");
    type(u"11"_s);
    m_other.setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_other.hasFocus());
    EXPECT_EQ(rows().value(1, u"Count"), QVariant(qint64(11)));
}

TEST_F(GridSheet, AClickElsewhereStoresOnceAndARefusedOneStays)
{
    show();
    int asked = 0;
    const auto rule = rows().column(u"Count").changeRule;
    rows().column(u"Count").changeRule = [&](int row, const QVariant &value) {
        ++asked;
        return rule(row, value);
    };
    click(1, u"Count");
    type(u"3"_s);
    click(3, u"Count");
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isEditing(); }));
    EXPECT_EQ(m_grid.currentRow(), 1);
    type(u"12"_s);
    click(3, u"Count");
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(m_grid.currentRow(), 3);
    EXPECT_TRUE(isEditing());
}

} // namespace
