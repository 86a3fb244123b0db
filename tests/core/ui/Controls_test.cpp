#include "core/CompanySession.h"
#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "core/ui/EmptyText.h"
#include "core/ui/FormLayout.h"
#include "core/ui/GridData.h"
#include "core/ui/GridSetting.h"
#include "core/ui/Screen.h"
#include "platform/grid/GridView.h"
#include "platform/input/IdCombo.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

struct Combos : test::CompanySession
{
    static QStringList texts(const input::IdCombo &combo)
    {
        QStringList result;
        for (int i = 0; i < combo.count(); ++i)
            result << combo.itemText(i);
        return result;
    }
    static db::Recordset suppliers() { return GetTableInfo(u"tblSupplier"_s, u"SupplierID"_s); }
    static void add(int id, const QVariant &name)
    {
        insert(u"tblSupplier"_s, u"SupplierID,Name"_s, {id, name});
    }

    input::IdCombo combo;
};

struct GridLayouts : test::CompanySession
{
    GridLayouts() { addColumns(grid); }
    static void addColumns(grid::GridView &view)
    {
        for (const QString &name : {u"Unit No"_s, u"Name"_s, u"Price"_s})
            view.rows().addColumn({.name = name});
    }
    static qint64 storedRows(const QString &grid)
    {
        return count(u"tblGridSetting"_s, u"FormName = 'frmX' and Tablename = '%1'"_s.arg(grid));
    }

    grid::GridView grid;
};

} // namespace

TEST_F(Combos, HoldIdsByTextWithABlankItem)
{
    combo.add(u"old"_s, 1);
    LoadItemOnlyIdToCombo(combo, suppliers(), u"Name"_s, true);
    EXPECT_EQ(texts(combo), QStringList({u"  "_s})) << "an empty list is no error";
    EXPECT_TRUE(
        LoadItemWithIdToCombo(combo, suppliers(), u"SupplierID"_s, u"Name"_s, false).isEmpty());
    EXPECT_EQ(combo.count(), 0);
    add(5, u"Bolts"_s);
    add(6, QVariant());
    add(7, u"Oil"_s);
    db::Recordset rows = suppliers();
    const auto ids = LoadItemWithIdToCombo(combo, rows, u"SupplierID"_s, u"Name"_s, true);
    EXPECT_EQ(texts(combo), QStringList({u"  "_s, u"Bolts"_s, QString(), u"Oil"_s}));
    EXPECT_EQ(ids, (QHash<QString, QString>{
                       {u"  "_s, u"0"_s}, {u"Bolts"_s, u"5"_s}, {{}, u"6"_s}, {u"Oil"_s, u"7"_s}}));
    EXPECT_EQ(combo.id(), 0);
    EXPECT_TRUE(combo.select(7));
    EXPECT_TRUE(rows.IsEOF());

    LoadItemWithIdToCombo(combo, suppliers(), u"SupplierID"_s, u"Name"_s, false);
    EXPECT_EQ(texts(combo).size(), 3);
    EXPECT_EQ(combo.id(), 5);
}

TEST_F(Combos, LikeTextsAreReported)
{
    add(1, u"Oil"_s);
    add(2, u"OIL"_s);
    const auto ids = LoadItemWithIdToCombo(combo, suppliers(), u"SupplierID"_s, u"Name"_s, false);
    const ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ErrNumber, base::ErrorNumber::DuplicateKeyInCollection);
    EXPECT_EQ(report.ProcedureName, u"LoadItemWithIdToCombo"_s);
    EXPECT_EQ(ids, (QHash<QString, QString>{{u"Oil"_s, u"1"_s}}));
    LoadItemOnlyIdToCombo(combo, suppliers(), u"Name"_s, false);
    EXPECT_EQ(combo.count(), 2);
    // A list is filled again and again, and told of once.
    LoadItemWithIdToCombo(combo, suppliers(), u"SupplierID"_s, u"Name"_s, false);
    EXPECT_TRUE(errors.take().empty());
}

TEST_F(Combos, AnIdBeyondTheItemsDataIsPassedOver)
{
    add(1, u"Large"_s);
    add(0, u"Small"_s);
    const auto ids = LoadItemWithIdToCombo(
        combo,
        gcnData->Open(u"Select SupplierID * 3000000000.0 as Id, Name from tblSupplier "
                      u"order by SupplierID"_s),
        u"Id"_s, u"Name"_s, false);
    EXPECT_EQ(texts(combo), QStringList({u"Small"_s, u"Large"_s}));
    EXPECT_EQ(ids.value(u"Large"_s), u"3000000000"_s);
    EXPECT_TRUE(combo.selectText(u"Large"_s));
    EXPECT_EQ(combo.id(), 0);
}

TEST_F(GridLayouts, ComeBackWithWidthsPlacesAndSort)
{
    grid.applyLayout({{u"Price"_s, 55, 0, grid::Sort::Descending},
                      {u"Unit No"_s, 120, 1, grid::Sort::None},
                      {u"Name"_s, 240, 2, grid::Sort::None}});
    SaveGridSetting(u"frmX"_s, u"grdX"_s, grid);
    BeginTrans();
    SaveGridSetting(u"frmX"_s, u"grdX"_s, grid);
    RollbackTrans();
    EXPECT_EQ(storedRows(u"grdX"_s), 3) << "whatever becomes of the work on Data";

    grid::GridView other;
    addColumns(other);
    SetGridSetting(u"frmX"_s, u"grdX"_s, other);
    EXPECT_EQ(other.layout(), grid.layout());
    // A column that is gone is an error of its own.
    gcnLookup->Execute(u"Update tblGridSetting set FieldName = 'Gone' where FieldName = 'Name'"_s);
    gcnLookup->Execute(u"Update tblGridSetting set Width = 77 where FieldName = 'Price'"_s);
    SetGridSetting(u"frmX"_s, u"grdX"_s, other);
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"Gone"_s));
    EXPECT_EQ(other.rows().column(u"Price").width, 77);

    grid::GridView another;
    addColumns(another);
    const grid::Layout designed = another.layout();
    SetGridSetting(u"frmX"_s, u"grdOther"_s, another);
    EXPECT_EQ(another.layout(), designed);
}

TEST_F(GridLayouts, OfAnotherProgramsLockAreLeftSilently)
{
    SaveGridSetting(u"frmX"_s, u"grdX"_s, grid);
    StoreFormLayout(grid, u"frmX"_s, true);
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(u"Update tblGridSetting set Width = 1 where FieldName = 'Price'"_s);
    other->Execute(u"Update tblSysOption set ItemValue = '1'"_s);
    SaveGridSetting(u"frmX"_s, u"grdX"_s, grid);
    grid.resize(grid.width() + 50, grid.height() + 50);
    StoreFormLayout(grid, u"frmX"_s, true);
    EXPECT_TRUE(errors.take().empty());
    other->RollbackTrans();
    EXPECT_EQ(storedRows(u"grdX"_s), 3);
    SaveGridSetting(u"frmX"_s, u"grdX"_s, grid);
    EXPECT_EQ(storedRows(u"grdX"_s), 3);
}

TEST_F(GridLayouts, WhatKeepsThemAllFromBeingStoredIsReportedOnce)
{
    struct frmTwo : Screen
    {
        frmTwo()
            : Screen(u"frmTwo"_s, u"Two"_s)
        {
            for (const QString &name : {u"grdOne"_s, u"grdTwo"_s}) {
                auto *view = new grid::GridView(this);
                addColumns(*view);
                adoptGrid(view, name);
            }
        }
    } screen;
    screen.show();
    gcnLookup->Execute(u"Drop table tblGridSetting"_s);
    gcnLookup->Execute(u"Drop table tblSysOption"_s);
    screen.unload();
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(errors.takeOne().ProcedureName, u"SaveGridSetting"_s);
}

TEST_F(GridLayouts, AssignedDataMakeTheirColumns)
{
    gcnData->Execute(
        u"Insert into tblSupplier(SupplierID,Name) values(1,'A rather long name of a company')"_s);
    grid::GridView filled;
    AssignData(filled, gcnData->Open(u"Select SupplierID as ID, Name from tblSupplier"_s));
    ASSERT_EQ(filled.rows().rowCount(), 1);
    EXPECT_EQ(filled.rows().text(0, u"Name"), u"A rather long name of a company"_s);
    EXPECT_GT(filled.rows().column(u"Name").width, 3 * filled.rows().column(u"ID").width);
    ColAlign(filled, u"ID"_s, grid::Align::Center);
    EXPECT_EQ(filled.rows().column(u"ID").align, grid::Align::Center);
    ColAlign(filled, u"None"_s, grid::Align::Center);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"ColAlign"_s);
}

TEST(EmptyLists, SayWhyUntilARowComes)
{
    grid::GridView list;
    list.rows().addColumn({.name = u"Name"_s});
    showWhenEmpty(list, u"No parts."_s);
    list.show();
    const auto &words = *list.viewport()->findChild<QLabel *>();
    EXPECT_TRUE(words.isVisible());
    list.rows().insertRow();
    EXPECT_FALSE(words.isVisible());
    list.rows().clear();
    EXPECT_TRUE(words.isVisible());
}
