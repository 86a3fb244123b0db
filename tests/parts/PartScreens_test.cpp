#include "core/ui/EveryField.h"
#include "core/ui/Joints.h"
#include "organisation/MasterSession.h"
#include "parts/PartSelection.h"
#include "parts/clsPart.h"
#include "parts/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::inScreen;
using test::opening;
using test::ScreenDriver;
using test::typeInCell;

namespace {

struct PartScreens : test::MasterSession
{
    PartScreens()
    {
        gRights.PaAdd = gRights.PaMod = gRights.PaDel = true;
        gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name) values(7,'Tool Barn')"_s);
    }
    static void addPart(const QString &number, const QString &description, double quantity = 5,
                        double minimum = 2)
    {
        gcnData->Execute(
            u"Insert into tblPart(PartID,Description,Quantity,QtyMin,Price,SupplierID,Inactive,"
            "TrackInventory) values(?,?,?,?,9.5,7,'0','0')"_s,
            {number, description, quantity, minimum});
    }
    /// Opens the selector, which is to answer this.
    std::function<void()> selecting(bool chosen)
    {
        return [this, chosen] {
            EXPECT_EQ(frmPartManagerEntry::ShowServiceManager(selection, true), chosen);
        };
    }
    static QString quantity(const QString &number)
    {
        return value(u"Select Quantity from tblPart where PartID = '%1'"_s.arg(number));
    }

    test::Joints joints;
    QString selection; ///< what the selector leaves out, then what was chosen in it
};

} // namespace

TEST_F(PartScreens, ANewPartNeedsANumberAndADescription)
{
    addPart(u"P-1"_s, u"Oil filter"_s);
    QString last;
    inScreen([&] { last = showPartDetail(Mode::Add, u"0"_s); },
             [this](const ScreenDriver &screen) {
                 EXPECT_EQ(screen.text("txtPrice"), u"0.00"_s);
                 expectRefusal(screen, u"Part Number should not be blank."_s, "txtPartID");
                 screen.type("txtPartID", u"p-2"_s);
                 EXPECT_EQ(screen.text("txtPartID"), u"P-2"_s);
                 expectRefusal(screen, u"Description should not be blank."_s, "txtDescription");
                 screen.type("txtDescription", u"Farmer's belt"_s);
                 screen.type("txtMin", u"a1.5x"_s);
                 screen.type("txtPrice", u"12345678901"_s);
                 screen.press("cmdUpdate");
                 EXPECT_EQ(screen.texts({"txtPartID", "txtQuantity", "txtMin", "txtPrice"}),
                           u"P-2|0.00|1.50|123456789.00"_s);
                 EXPECT_EQ(screen.focused(), "txtPartID");
                 screen.press("cmdExit");
             });
    EXPECT_EQ(last, u"P-2"_s);
}

TEST_F(PartScreens, EveryFieldIsShownAndSaved)
{
    addPart(u"P-1"_s, u"Oil filter"_s);
    inRecords(opening(showPartDetail, Mode::Browse, u"P-1"_s), [](ScreenDriver screen) {
        test::expectEveryFieldIsSaved(screen, u"tblPart"_s, record::columns(clsPart::fields()),
                                      {u"chkNotTrackInventory"_s, u"TrackInventory"_s});
    });
}

TEST_F(PartScreens, ANumberInUseIsRefusedWhenTheFieldIsLeft)
{
    addPart(u"P-1"_s, u"Oil filter"_s);
    inRecords(opening(showPartDetail, Mode::Add, u"0"_s), [this](ScreenDriver screen) {
        prompts.inform(u"This part number is already in use on \"Oil filter\". Please "
                       "assign a different number."_s);
        screen.enter("txtPartID", u"p-1"_s);
        EXPECT_EQ(screen.focused(), "txtPartID");
        EXPECT_EQ(screen.text("txtPartID"), QString());
    });
}

TEST_F(PartScreens, APartInUseKeepsItsNumberAndStaysActiveAndStays)
{
    addPart(u"p-1"_s, u"Oil filter"_s);
    gcnData->Execute(
        u"Insert into tblEquipmentPart(EquipmentID,PartID,Price) values(1,'P-1',9.5)"_s);
    for (const QString &reserved : {u"'P-1',1.5"_s, u"'P-1',2"_s, u"'P-2',50"_s})
        gcnData->Execute(
            u"Insert into tblWoPartUsed(PartID,QuantityRequired) values(%1)"_s.arg(reserved));
    inRecords(opening(showPartDetail, Mode::Browse, u"P-1"_s), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtPartCommited"), u"3.50"_s);
        screen.press("chkInactive");
        expectRefusal(screen,
                      u"This part is already assigned to Equipment and can not be "
                      "decativated."_s,
                      "chkInactive");
        screen.press("chkInactive");
        // The same number in other letters passes as its own, and is a change even so.
        screen.type("txtPartID", u"p-1"_s);
        expectRefusal(screen,
                      u"You can't modified this Part Number. It's being used in "
                      "Equipment."_s,
                      "txtPartID");
        screen.press("cmdCancel");
        screen.type("txtQuantity", u"8"_s);
        screen.press("cmdUpdate");
        deleteRecord(screen, u"Equipment"_s);
    });
    EXPECT_EQ(quantity(u"p-1"_s), u"8"_s);
    EXPECT_EQ(value(u"Select Price from tblEquipmentPart"_s), u"9.5"_s);
}

TEST_F(PartScreens, APartThatIsNotTrackedHidesItsStockAndKeepsIt)
{
    addPart(u"P-1"_s, u"Oil filter"_s, 12);
    inRecords(opening(showPartDetail, Mode::Browse, u"P-1"_s), [](ScreenDriver screen) {
        EXPECT_TRUE(screen.isShown("txtQuantity"));
        screen.press("chkNotTrackInventory");
        for (const char *name : {"txtQuantity", "txtPartCommited", "txtMax", "txtMin"})
            EXPECT_FALSE(screen.isShown(name)) << name;
        screen.press("cmdUpdate");
        EXPECT_FALSE(screen.isShown("txtQuantity"));
    });
    EXPECT_EQ(quantity(u"P-1"_s), u"12"_s);
    EXPECT_EQ(GetRecordCount(u"tblPart"_s, u"TrackInventory = -1"_s), 1);
}

TEST_F(PartScreens, WithoutTheRightsPartsCanBeLookedAtOnly)
{
    gRights = {};
    addPart(u"P-1"_s, u"Oil filter"_s);
    inRecords(opening(showPartDetail, Mode::Browse, QString()), [](ScreenDriver screen) {
        EXPECT_TRUE(screen.control<QLineEdit>("txtDescription").isReadOnly());
    });
    BeginTrans();
    inRecords(selecting(false), [this](ScreenDriver screen) {
        for (const char *button : {"cmdAdd", "cmdDelete"}) {
            prompts.inform(test::NoRights);
            screen.press(button);
        }
    });
    EXPECT_TRUE(gbInTransaction) << "the caller's edit can still be cancelled";
    RollbackTrans();
    EXPECT_EQ(count(u"tblPart"_s), 1);
}

TEST_F(PartScreens, ReceivedGoodsAreAddedToTheStockAsItStands)
{
    // The list is in order, whatever the order of entry.
    addPart(u"P-3"_s, u"Blade"_s, 4);
    addPart(u"P-1"_s, u"Oil filter"_s, 5);
    addPart(u"P-2"_s, u"Belt"_s, 1);
    inRecords(ShowInventoryCheckIn, [this](ScreenDriver screen) {
        auto &grid = screen.grid("grdParts");
        EXPECT_EQ(grid.rows().rowCount(), 3);
        EXPECT_EQ(grid.currentColumn(), u"Qty Received"_s) << "where typing goes";
        EXPECT_FALSE(screen.isShown("cmdUpdate"));
        typeInCell(grid, 0, u"Qty Received"_s, u"1d"_s);
        EXPECT_TRUE(screen.isShown("cmdUpdate"));
        typeInCell(grid, 1, u"Qty Received"_s, u"-3"_s);
        typeInCell(grid, 2, u"Qty Received"_s, u"7"_s);
        typeInCell(grid, 2, u"Qty Received"_s, u"."_s);
        EXPECT_EQ(grid.rows().value(2, u"Qty Received").toDouble(), 0);
        // What another workstation takes or counts meanwhile stays taken.
        gcnData->Execute(
            u"Update tblPart set Quantity = IIf(PartID = 'P-3', 3, Null) where PartID <> 'P-1'"_s);
        const auto second = database.open();
        second->BeginTrans();
        second->Execute(u"Update tblPart set Quantity = 4.8 where PartID = 'P-1'"_s);
        prompts.say(u"Another workstation is changing part \"P-1\". Nothing was stored. "
                    "Please try again in a moment."_s);
        screen.press("cmdUpdate");
        EXPECT_TRUE(screen.isShown("cmdUpdate")) << "what was typed is still there";
        second->CommitTrans();
        screen.press("cmdUpdate");
        EXPECT_EQ(grid.rows().value(0, u"Qty on Hand").toDouble(), 5.8);
        EXPECT_EQ(grid.rows().value(0, u"Qty Received").toDouble(), 0);
        EXPECT_TRUE(screen.isShown("cmdExit"));
    });
    EXPECT_EQ(found(u"Select Quantity from tblPart order by PartID"_s), u"5.8\n-3\n3"_s);
}

TEST_F(PartScreens, TheReorderBoxListsWhatIsAtItsPointOrBelow)
{
    addPart(u"P-1"_s, u"Above"_s, 3, 2);
    addPart(u"P-2"_s, u"At it"_s, 2, 2);
    addPart(u"P-3"_s, u"Below"_s, 1, 2);
    inRecords(ShowInventoryCheckIn, [](ScreenDriver screen) {
        auto &grid = screen.grid("grdParts");
        const auto found = [&] { return grid.rows().text(grid.currentRow(), u"Part Number"); };
        screen.press("chkReorder");
        EXPECT_EQ(test::columnOf(grid, u"Part Number"), (QStringList{u"P-2"_s, u"P-3"_s}));
        screen.type("txtSearch", u"bel"_s);
        EXPECT_EQ(found(), u"P-3"_s) << "by the description";
        for (const QString &searched : {u"P-2"_s, u"x"_s}) { // no match keeps the row
            screen.type("txtSearch", searched);
            EXPECT_EQ(found(), u"P-2"_s);
        }
        QTest::keyClick(&screen.control("txtSearch"), Qt::Key_Down);
        EXPECT_EQ(found(), u"P-3"_s);
    });
}

TEST_F(PartScreens, TheSelectorHandsOverTickedPartsWithTheirQuantities)
{
    for (const QString &part : {u"P-1"_s, u"P-2"_s, u"P-3"_s, u"P-4"_s, u"P'5"_s, u"P-6"_s})
        addPart(part, u"of the list"_s);
    gcnData->Execute(u"Update tblPart set Inactive = '1' where PartID = 'P-6'"_s);
    selection = parts::exclusionList({u"P'5"_s});
    inRecords(selecting(true), [](ScreenDriver screen) {
        auto &grid = screen.grid("grdParts");
        ASSERT_EQ(grid.rows().rowCount(), 4);
        const auto tick = [&](int row) {
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                              grid.cellRect(row, u"Select").center());
        };
        tick(0);
        typeInCell(grid, 0, u"Qty Req"_s, u"2"_s);
        tick(1);
        tick(1);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {},
                           grid.cellRect(2, u"Description").center());
        tick(3);
        EXPECT_EQ(test::columnOf(grid, u"Qty Req"),
                  (QStringList{u"2.00"_s, u"0.00"_s, u"1.00"_s, u"1.00"_s}));
        typeInCell(grid, 2, u"Qty Req"_s, u"0"_s);
        tick(3);
        screen.press("cmdSelect");
    });
    EXPECT_EQ(parts::parseSelection(selection),
              (QList<parts::Chosen>{{u"P-1"_s, 2, 9.5, 7}, {u"P-3"_s, 0, 9.5, 7}}));
}

TEST_F(PartScreens, APartAddedFromTheSelectorEndsTheTransactionOfItsCaller)
{
    addPart(u"P-1"_s, u"Oil filter"_s);
    BeginTrans();
    gcnData->Execute(u"Insert into tblEquipmentPart(EquipmentID,PartID) values(1,'P-1')"_s);
    inRecords(selecting(false), [this](ScreenDriver screen) {
        inScreen([&] { screen.press("cmdAdd"); },
                 [](const ScreenDriver &part) {
                     part.type("txtPartID", u"P-2"_s);
                     part.type("txtDescription", u"Belt"_s);
                     part.press("cmdUpdate");
                     part.press("cmdExit");
                 });
        EXPECT_FALSE(gbInTransaction);
        auto &grid = screen.grid("grdParts");
        EXPECT_EQ(grid.rows().text(grid.currentRow(), u"Part Number"), u"P-2"_s);
        grid.rows().edit(0, grid.rows().columnIndex(u"Select"), true);
        typeInCell(grid, 0, u"Qty Req"_s, u"3"_s);
        grid.selectRow(1);
        inRecords([&] { screen.press("cmdAdd"); }, [](const ScreenDriver &) {});
        EXPECT_EQ(grid.rows().text(grid.currentRow(), u"Part Number"), u"P-2"_s)
            << "a cancelled Add stays where it was";
        EXPECT_TRUE(grid.rows().value(0, u"Select").toBool());
        EXPECT_EQ(grid.rows().value(0, u"Qty Req"), 3) << "with what was ticked";
        // A used part stays, another goes with its picks.
        gcnData->Execute(u"Insert into tblTempServicePart(PartID) values('P-2')"_s);
        deleteRecord(screen);
        EXPECT_EQ(count(u"tblTempServicePart"_s), 0);
        grid.selectRow(0);
        deleteRecord(screen, u"Equipment"_s);
    });
    RollbackTrans();
    EXPECT_EQ(count(u"tblEquipmentPart"_s), 1);
    EXPECT_EQ(count(u"tblPart"_s), 1);
}
