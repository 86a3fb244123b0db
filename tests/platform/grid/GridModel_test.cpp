#include "platform/grid/GridModel.h"

#include "GridRows.h"
#include "support/Raised.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using grid::Column;
using grid::Editor;
using grid::GridModel;
using grid::Sort;
using Tester = QAbstractItemModelTester;

QStringList column(const GridModel &model, QStringView name)
{
    QStringList texts;
    for (const int row : model.displayedOrder())
        texts.append(model.text(row, name));
    return texts;
}

class GridModelOfParts : public testing::Test
{
protected:
    GridModelOfParts() { m_rows.setRecordset(test::parts()); }

    GridModel m_rows;
    Tester m_tester{&m_rows, Tester::FailureReportingMode::Fatal};
};

TEST_F(GridModelOfParts, ShowsAndTellsEachKindInItsForm)
{
    EXPECT_EQ(m_rows.rowCount(), 4);
    for (const auto &[row, name, text] : {std::tuple(0, u"qty ON hand", u"9"),
                                          {0, u"Ordered", u"03/09/2024"},
                                          {1, u"Ordered", u""},
                                          {1, u"Inactive", u"True"}})
        EXPECT_EQ(m_rows.text(row, name), text);
    EXPECT_FALSE(m_rows.value(3, u"Price").isValid());
    EXPECT_EQ(m_rows.value(0, u"Price"), QVariant(12.5));
    EXPECT_EQ(m_rows.column(u"Inactive").editor, Editor::Check);
    const auto alignment = [this](QStringView name) {
        return m_rows.indexOf(0, m_rows.columnIndex(name))
            .data(Qt::TextAlignmentRole)
            .value<Qt::Alignment>();
    };
    EXPECT_TRUE(alignment(u"Price").testFlag(Qt::AlignRight));
    EXPECT_TRUE(alignment(u"Description").testFlag(Qt::AlignLeft));
    m_rows.column(u"Price").format = u"$0.00"_s;
    EXPECT_EQ(m_rows.text(0, u"Price"), u"$12.50");

    const auto spoken = [this](QStringView name) {
        return m_rows.indexOf(1, m_rows.columnIndex(name)).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(spoken(u"Part Number"), u"Part Number: A-100");
    EXPECT_EQ(spoken(u"Inactive"), u"Inactive: checked");
}

TEST_F(GridModelOfParts, UnknownNamesAndRowsRaise)
{
    const auto number = [](const auto &action) { return test::raisedBy(action).number(); };
    using namespace base::ErrorNumber;
    EXPECT_EQ(number([&] { m_rows.column(u"Nothing").width = 1; }), NoSuchItem);
    EXPECT_EQ(number([&] { m_rows.setValue(0, u"Nothing", 1); }), NoSuchItem);
    const QVariantMap unknown{{u"Nothing"_s, 1}};
    EXPECT_EQ(number([&] { m_rows.insertRow(unknown); }), NoSuchItem);
    EXPECT_EQ(number([&] { (void)m_rows.text(4, u"Price"); }), InvalidCall);
    EXPECT_EQ(m_rows.rowCount(), 4);
}

TEST_F(GridModelOfParts, ReloadingKeepsSettingsAddedColumnsAndSortButNotCells)
{
    m_rows.addColumn({.name = u"Select"_s, .editable = true, .editor = Editor::Check});
    m_rows.column(u"Price").format = u"$0.00"_s;
    m_rows.column(u"Price").width = 77;
    m_rows.setAll(u"Select", true);
    m_rows.setValue(0, u"Price", 99.0);
    m_rows.sortBy(u"Description", Sort::Descending);

    m_rows.setRecordset(test::recordsetOf(
        {{u"description"_s, sql::ColumnKind::Text}, {u"Price"_s, sql::ColumnKind::Money}},
        {{"one", 1.0}, {"two", 2.0}}));
    EXPECT_FALSE(m_rows.hasColumn(u"Qty on Hand"));
    EXPECT_TRUE(m_rows.hasColumn(u"Select"));
    EXPECT_FALSE(m_rows.value(0, u"Select").isValid());
    EXPECT_EQ(m_rows.column(u"Price").width, 77);
    EXPECT_EQ(m_rows.text(0, u"Price"), u"$1.00");
    EXPECT_EQ(column(m_rows, u"Description"), QStringList({u"two"_s, u"one"_s}));
}

TEST_F(GridModelOfParts, SortsNumbersAsNumbersDatesAsDatesTextWithoutCase)
{
    using Sorted = std::tuple<QStringView, Sort, QList<int>>;
    // Parts 0 and 2 cost the same: they stay in their order both ways.
    for (const auto &[name, direction, order] :
         {Sorted{u"Part Number", Sort::Ascending, {1, 2, 0, 3}},
          Sorted{u"Qty on Hand", Sort::Ascending, {3, 2, 0, 1}},
          Sorted{u"Ordered", Sort::Ascending, {1, 2, 0, 3}},
          Sorted{u"Inactive", Sort::Ascending, {0, 2, 3, 1}},
          Sorted{u"Price", Sort::Ascending, {3, 1, 0, 2}},
          Sorted{u"Price", Sort::Descending, {0, 2, 1, 3}}}) {
        m_rows.sortBy(u"Price", Sort::None);
        m_rows.sortBy(name, direction);
        EXPECT_EQ(m_rows.displayedOrder(), order) << name.toString().toStdString();
    }
    m_rows.sortBy(u"Price", Sort::None);
    EXPECT_EQ(m_rows.displayedOrder(), QList<int>({0, 1, 2, 3}));
}

TEST_F(GridModelOfParts, RowNumbersAndIndexesFollowTheirRowWhenSorted)
{
    const QPersistentModelIndex blade = m_rows.indexOf(0, 1);
    m_rows.sortBy(u"Part Number", Sort::Ascending);
    EXPECT_EQ(blade.row(), 2);
    EXPECT_EQ(blade.data().toString(), u"Mower blade");
    EXPECT_EQ(m_rows.rowOf(blade), 0);
    EXPECT_EQ(m_rows.text(0, u"Part Number"), u"b-20");
}

TEST_F(GridModelOfParts, InsertedRowsTakeTheirSortedPlaceAndTheNextNumber)
{
    m_rows.sortBy(u"Price", Sort::Ascending);
    EXPECT_EQ(m_rows.insertRow({{u"price"_s, 12.5}, {u"Part Number"_s, u"D-1"_s}}), 4);
    EXPECT_EQ(m_rows.insertRow({{u"Price"_s, 1}}), 5);
    EXPECT_EQ(m_rows.displayedOrder(), QList<int>({3, 5, 1, 0, 2, 4}));
}

TEST_F(GridModelOfParts, RemovingARowMovesTheLaterNumbersUp)
{
    m_rows.setValue(2, u"Price", 5.0);
    m_rows.sortBy(u"Part Number", Sort::Ascending);
    m_rows.removeRow(1);
    EXPECT_EQ(m_rows.rowCount(), 3);
    EXPECT_EQ(m_rows.displayedOrder(), QList<int>({1, 0, 2}));
    EXPECT_EQ(m_rows.text(1, u"Part Number"), u"a-101");
    EXPECT_EQ(m_rows.value(1, u"Price"), QVariant(5.0));
    EXPECT_EQ(m_rows.find(u"[Part Number] = 'C''3'"), 2);
    m_rows.clear();
    EXPECT_EQ(m_rows.rowCount(), 0);
    EXPECT_TRUE(m_rows.hasColumn(u"Price"));
}

TEST_F(GridModelOfParts, DropDownShowsTheTextOfTheIdAndNothingForADeadOne)
{
    Column &supplier = m_rows.column(u"SupplierID");
    supplier.editor = Editor::DropDown;
    supplier.choices = {{7, u"Northfield"_s}, {8, u"Ardent"_s}};
    EXPECT_EQ(column(m_rows, u"SupplierID"),
              QStringList({u"Northfield"_s, u"Ardent"_s, u""_s, u""_s}));
    EXPECT_EQ(m_rows.value(2, u"SupplierID"), QVariant(qint64(99)));
    m_rows.sortBy(u"SupplierID", Sort::Ascending);
    EXPECT_EQ(m_rows.displayedOrder(), QList<int>({2, 3, 1, 0}));
    EXPECT_EQ(m_rows.find(u"SupplierID = 8"), 1);
    EXPECT_EQ(m_rows.beginsWith(u"SupplierID", u"ard"), 1);
    supplier.choices = {{99, u"Found again"_s}};
    EXPECT_EQ(m_rows.text(2, u"SupplierID"), u"Found again");
}

TEST_F(GridModelOfParts, FindsByValueAndByCriterionAmongChangedCellsToo)
{
    EXPECT_EQ(m_rows.findRow(u"Part Number", u"a-100"_s), 1);
    EXPECT_EQ(m_rows.findRow(u"SupplierID", 99), 2);
    EXPECT_EQ(m_rows.findRow(u"SupplierID", u"99"_s), 2);
    EXPECT_EQ(m_rows.findRow(u"Price", QVariant()), 3);
    EXPECT_EQ(m_rows.findRow(u"Part Number", u"a-1"_s), -1);

    m_rows.addColumn({.name = u"Select"_s, .editable = true, .editor = Editor::Check});
    m_rows.setValue(2, u"Select", true);
    m_rows.setValue(0, u"Description", u"Chute"_s);
    m_rows.insertRow({{u"Part Number"_s, u"oil-1"_s}, {u"Price"_s, 40}});
    using Search = std::tuple<QStringView, int, int>;
    const Search searches[] = {
        // By texts.
        Search{u"[Description] like 'oil*'", 0, 1}, Search{u"[Description] like 'oil*'", 2, 2},
        Search{u"Description like '*10w*'", 0, 2}, Search{u"Description like 'mow*'", 0, -1},
        Search{u"Description = 'CHUTE'", 0, 0}, Search{u"[Part Number] = 'c''3'", 0, 3},
        Search{u"[Part Number] like 'c''*'", 0, 3},
        // By numbers, dates and ticks.
        Search{u"[Qty on Hand] = '10'", 0, 1}, Search{u"Price >= 13", 0, 4},
        Search{u"Ordered = #01-31-2024#", 0, 2}, Search{u"Ordered = '12/1/2024'", 0, 3},
        Search{u"Select = True", 0, 2}, Search{u"Price = 12.5", 1, 2}};
    for (const auto &[criterion, from, row] : searches)
        EXPECT_EQ(m_rows.find(criterion, from), row) << criterion.toString().toStdString();
    EXPECT_THROW(static_cast<void>(m_rows.find(u"[Nothing] = 1")), base::Error);
    EXPECT_THROW(static_cast<void>(m_rows.find(u"[Price] near 1")), base::Error);
}

TEST_F(GridModelOfParts, BeginsWithGivesTheFirstRowInOrderOfLoading)
{
    // By text "a-100" comes before "a-101"; loading decides, not the text and not the sort.
    m_rows.setValue(0, u"Part Number", u"A-109"_s);
    m_rows.sortBy(u"Part Number", Sort::Ascending);
    for (const auto &[name, beginning, row] : {std::tuple(u"Part Number", u"a-10", 0),
                                               {u"Part Number", u"a-101", 2},
                                               {u"Part Number", u"a-102", -1},
                                               {u"Part Number", u"z", -1},
                                               {u"Description", u"OIL", 1},
                                               {u"Qty on Hand", u"1", 1}})
        EXPECT_EQ(m_rows.beginsWith(name, beginning), row);
    m_rows.setValue(3, u"Part Number", u"a-102x"_s);
    EXPECT_EQ(m_rows.beginsWith(u"Part Number", u"A-102"), 3) << "the searched texts are stale";
    m_rows.removeRow(0);
    EXPECT_EQ(m_rows.beginsWith(u"Part Number", u"A-102"), 2);
}

TEST_F(GridModelOfParts, RowsThatComeLaterJoinAsTheyAreSortedAndFound)
{
    const db::Recordset all = test::parts();
    const db::Recordset some = all.withoutTexts(u"Part Number", {all.row(3).text(u"Part Number")});
    GridModel rows;
    const Tester tester(&rows, Tester::FailureReportingMode::Fatal);
    rows.setRecordset(some);
    rows.addColumn({.name = u"Select"_s, .editable = true, .editor = Editor::Check});
    rows.setValue(1, u"Select", true);
    EXPECT_EQ(rows.beginsWith(u"Part Number", u"c'3"), -1);
    rows.sortBy(u"Part Number", Sort::Descending);
    const QPersistentModelIndex kept = rows.indexOf(0);
    rows.extendRecordset(all);
    EXPECT_EQ(rows.rowOf(kept), 0);
    m_rows.sortBy(u"Part Number", Sort::Descending);
    EXPECT_EQ(rows.displayedOrder(), m_rows.displayedOrder());
    EXPECT_EQ(rows.text(3, u"Part Number"), m_rows.text(3, u"Part Number"));
    EXPECT_TRUE(rows.value(1, u"Select").toBool());
    EXPECT_EQ(rows.beginsWith(u"Part Number", u"c'3"), 3);
    rows.extendRecordset(all);
    EXPECT_EQ(rows.rowCount(), 4);
}

TEST_F(GridModelOfParts, TextsAreSearchedWithoutRegardToCaseInAnyScript)
{
    using Search = std::tuple<QStringView, QStringView, bool>;
    for (const auto &[cell, begin, found] :
         {Search{u"Ärmel", u"ÄR", true}, Search{u"ÄRMEL", u"är", true},
          Search{u"Z9", u"z9x", false}, Search{u"aé", u"ae", false}, Search{u"[x", u"{x", false},
          Search{u"", u"", true}}) {
        GridModel rows;
        rows.setRecordset(
            test::recordsetOf({{u"Name"_s, sql::ColumnKind::Text}}, {{cell.toString()}}));
        EXPECT_EQ(rows.beginsWith(u"Name", begin), found ? 0 : -1)
            << cell.toString().toStdString() << " " << begin.toString().toStdString();
    }
}

TEST_F(GridModelOfParts, OnlyTheUsersChangesRunTheRule)
{
    QStringList asked;
    bool answer = true;
    m_rows.column(u"Price").editable = true;
    m_rows.column(u"Price").changeRule = [&](int row, const QVariant &value) {
        asked.append(u"%1 %2 was %3"_s.arg(row).arg(value.toString(), m_rows.text(row, u"Price")));
        return answer;
    };
    QSignalSpy edited(&m_rows, &GridModel::edited);
    m_rows.setValue(0, u"Price", 3.0);
    m_rows.setAll(u"Qty on Hand", 0);
    EXPECT_TRUE(asked.isEmpty());

    const QModelIndex price = m_rows.indexOf(0, m_rows.columnIndex(u"Price"));
    EXPECT_TRUE(m_rows.setData(price, 4.5));
    EXPECT_TRUE(m_rows.setData(price, 4.5)); // nothing new
    EXPECT_EQ(asked, QStringList({u"0 4.5 was 3"_s}));
    EXPECT_EQ(edited.count(), 1);

    answer = false;
    EXPECT_FALSE(m_rows.setData(price, 9.0));
    EXPECT_EQ(m_rows.value(0, u"Price"), QVariant(4.5));
    EXPECT_EQ(edited.count(), 1);
    EXPECT_FALSE(m_rows.setData(m_rows.indexOf(0, 0), u"x"_s)) << "not an editable column";
    m_rows.column(u"Price").editRule = [](int row) { return row != 1; };
    EXPECT_TRUE(m_rows.mayEdit(0, price.column()));
    EXPECT_FALSE(m_rows.mayEdit(1, price.column()));
    m_rows.column(u"Price").locked = true;
    EXPECT_FALSE(m_rows.mayEdit(0, price.column()));
}

TEST_F(GridModelOfParts, ARuleMaySetTheCellItself)
{
    m_rows.column(u"Price").editable = true;
    bool answer = true;
    m_rows.column(u"Price").changeRule = [&](int row, const QVariant &) {
        m_rows.setValue(row, u"Price", 0.0);
        m_rows.setValue(row, u"Qty on Hand", 1);
        return answer;
    };
    EXPECT_TRUE(m_rows.edit(0, m_rows.columnIndex(u"Price"), 8.0));
    EXPECT_EQ(m_rows.value(0, u"Price"), QVariant(0.0));
    answer = false;
    EXPECT_FALSE(m_rows.edit(1, m_rows.columnIndex(u"Price"), 8.0));
    EXPECT_EQ(m_rows.value(1, u"Price"), QVariant(0.0));
}

TEST(GridModel, TreeRowsSortAndGoWithinTheirParent)
{
    GridModel rows;
    const Tester tester(&rows, Tester::FailureReportingMode::Fatal);
    rows.addColumn({.name = u"Unit No"_s, .editor = Editor::Link});
    rows.setTreeColumn(u"unit no");
    const int open = rows.insertRow({{u"Unit No"_s, u"Open Work Order"_s}});
    const int overdue = rows.insertRow({{u"Unit No"_s, u"Over Due Service"_s}});
    rows.insertRow({{u"Unit No"_s, u"12 - Mower"_s}}, overdue);
    rows.insertRow({{u"Unit No"_s, u"08 - Truck"_s}}, overdue);
    rows.insertRow({{u"Unit No"_s, u"30 - Trailer"_s}}, open);

    EXPECT_EQ(rows.displayedOrder(), QList<int>({0, 4, 1, 2, 3}));
    EXPECT_EQ(rows.parentRow(3), overdue);
    EXPECT_EQ(rows.parentRow(overdue), -1);
    EXPECT_EQ(rows.childCount(overdue), 2);
    EXPECT_FALSE(rows.isLink(open, 0)) << "headings are no links";
    EXPECT_TRUE(rows.isLink(2, 0));

    rows.sortBy(u"Unit No", Sort::Ascending);
    EXPECT_EQ(rows.displayedOrder(), QList<int>({0, 4, 1, 3, 2}));
    rows.removeRow(overdue);
    EXPECT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.displayedOrder(), QList<int>({0, 1}));
    EXPECT_EQ(rows.text(1, u"Unit No"), u"30 - Trailer");
    EXPECT_EQ(rows.parentRow(1), open);
}

TEST(GridModel, FillingHoldsTheSignalsBack)
{
    GridModel rows;
    const Tester tester(&rows, Tester::FailureReportingMode::Fatal);
    rows.addColumn({.name = u"File Name"_s});
    QSignalSpy inserted(&rows, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    {
        const GridModel::Filling filling(rows);
        for (int i = 0; i < 100; ++i)
            rows.insertRow({{u"File Name"_s, QString::number(i)}});
    }
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(rows.rowCount(), 100);
}

} // namespace
