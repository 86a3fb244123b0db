#include "core/Options.h"
#include "core/ui/Openings.h"
#include "organisation/MasterSession.h"
#include "reporting/ui/QuickFindEntries.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using test::inScreen;
using test::ScreenDriver;

namespace {

class QuickFindScreen : public test::MasterSession
{
protected:
    QuickFindScreen()
    {
        addMachine(11, u"M-1"_s, u"Rider mower"_s, false);
        addMachine(12, u"M-2"_s, u"Zero-turn"_s, false);
        addMachine(13, u"T-1"_s, u"Miller's trailer"_s, false);
        addMachine(14, u"X-9"_s, u"Old mower"_s, true);
    }
    ~QuickFindScreen() override
    {
        gRights = {};
        openings() = {};
    }

    static void addMachine(int id, const QString &unit, const QString &name, bool inactive)
    {
        CompanySession::insert(u"tblEquipment"_s, u"EquipmentID,UnitNo,EquipmentName,Inactive"_s,
                               {id, unit, name, inactive ? 1 : 0});
    }
    static ScreenCalls::QuickFind machines(bool several = false, const QString &selected = {},
                                           const QString &leftOut = {})
    {
        return {.field = u"UnitNo"_s,
                .label = u"Unit No"_s,
                .table = u"tblEquipment"_s,
                .form = u"frmEquipment"_s,
                .selected = selected,
                .leftOut = leftOut,
                .several = several};
    }
    static grid::GridView &list(const ScreenDriver &screen)
    {
        return screen.control<grid::GridView>("grdQuickFind");
    }
    /// What the row under the cursor shows in a column.
    static QString unit(const ScreenDriver &screen, QStringView column = u"Unit No")
    {
        const int row = list(screen).currentRow();
        return row < 0 ? u"none"_s : list(screen).rows().text(row, column);
    }
    static void select(const ScreenDriver &screen) { screen.press("cmdSelect"); }
    /// The answer of the dialog, which is cancelled when it is still open.
    static QString find(const ScreenCalls::QuickFind &request,
                        const std::function<void(ScreenDriver)> &act)
    {
        QString key;
        inScreen([&] { key = ShowQuickFind(request); },
                 [&](const ScreenDriver &screen) {
                     act(screen);
                     if (screen.isOpen())
                         screen.press("cmdCancel");
                 });
        return key;
    }
};

} // namespace

TEST_F(QuickFindScreen, TypingMovesToTheFirstRowThatBeginsSo)
{
    const QString key = find(machines(), [](const ScreenDriver &screen) {
        EXPECT_EQ(screen.screen().windowTitle(), u"Quick Find-Equipment"_s);
        EXPECT_EQ(screen.control<QLabel>("lblMainField").text(), u"Enter Unit No"_s);
        EXPECT_EQ(screen.focused(), "txtSearchText");
        EXPECT_FALSE(list(screen).rows().column(u"EquipmentID").visible);
        QTest::keyClicks(&screen.control("txtSearchText"), u"t"_s);
        EXPECT_EQ(unit(screen), u"T-1"_s);
        screen.type("txtSearchText", u"-1"_s); // in the middle of a value
        EXPECT_EQ(unit(screen), u"none"_s);
        screen.press("cmdSelect"); // picks nothing, and stays
        ASSERT_TRUE(screen.isOpen());
        screen.choose("cboFieldNames", u"Name"_s);
        screen.type("txtSearchText", u"miller's"_s);
        EXPECT_EQ(unit(screen), u"T-1"_s);
        QTest::keyClick(&screen.control("txtSearchText"), Qt::Key_Up);
        EXPECT_EQ(unit(screen), u"M-2"_s);
        QTest::keyClick(&screen.control("txtSearchText"), Qt::Key_Return);
    });
    EXPECT_EQ(key, u"12"_s);
    find(machines(), [](const ScreenDriver &screen) {
        list(screen).sortBy(u"Unit No", grid::Sort::Descending);
        screen.type("txtSearchText", u"m"_s);
        EXPECT_EQ(unit(screen), u"M-2"_s) << "the first one of the sort in view";
    });
}

TEST_F(QuickFindScreen, ALongListIsShownWithItsFirstRowsAndSearchedWhenTheOthersAreThere)
{
    gcnData->BeginTrans();
    for (int id = 100; id < 1100; ++id)
        addMachine(id, u"R-%1"_s.arg(id), id == 1050 ? u"Last"_s : u"Blower"_s, false);
    gcnData->CommitTrans();
    find(machines(false, {}, u"12,1099"_s), [](const ScreenDriver &screen) {
        EXPECT_EQ(unit(screen), u"M-1"_s);
        list(screen).selectRow(1);
        QTest::keyClicks(&screen.control("txtSearchText"), u"r-1050"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return list(screen).rows().rowCount() == 1001; }));
        EXPECT_EQ(unit(screen), u"R-1050"_s) << "what was typed meanwhile";
        screen.choose("cboFieldNames", u"Name"_s);
        screen.type("txtSearchText", u"LA"_s);
        EXPECT_EQ(unit(screen), u"R-1050"_s);
    });
    EXPECT_EQ(find(machines(),
                   [](const ScreenDriver &screen) {
                       QTest::keyClicks(&screen.control("txtSearchText"), u"r-1050"_s);
                       QTest::keyClick(&screen.control("txtSearchText"), Qt::Key_Return);
                   }),
              u"1050"_s)
        << "not the row that was on show before the search";
    EXPECT_EQ(find(machines(false, u"1050"_s), select), u"1050"_s) << "a row to begin on";
    // Rows that can't be read any more are an error like any other, and the list stays.
    gcnData->Execute(u"Insert into tblEquipment(EquipmentID,UnitNo,EquipmentName,Inactive) Select "
                     "a.EquipmentID + 10000 * b.EquipmentID, 'Z', 'Far', 0 from tblEquipment as a, "
                     "tblEquipment as b where b.EquipmentID between 100 and 119"_s);
    gcnData->BeginTrans();
    find(machines(), [this](const ScreenDriver &screen) {
        gcnData->RollbackTrans();
        screen.control<QLineEdit>("txtSearchText").setText(u"r-1050"_s);
        select(screen);
        EXPECT_EQ(errors.takeOne().ProcedureName, u"cmdSelect_Click"_s);
        EXPECT_TRUE(screen.isOpen());
    });
}

TEST_F(QuickFindScreen, AutoSearchesTheMainColumnAndThenTheSecond)
{
    find(machines(), [](const ScreenDriver &screen) {
        screen.press("optOption1");
        EXPECT_FALSE(screen.isShown("cboFieldNames"));
        EXPECT_FALSE(screen.isShown("txtSearchText"));
        screen.type("txtSearchText2", u"m"_s);
        EXPECT_EQ(unit(screen), u"M-1"_s);
        screen.type("txtSearchText2", u"mi"_s);
        EXPECT_EQ(unit(screen), u"T-1"_s);
        EXPECT_EQ(screen.text("txtSearchText"), u"mi"_s);
        screen.press("optOption0");
        EXPECT_TRUE(screen.isShown("cboFieldNames"));
    });
}

TEST_F(QuickFindScreen, TheInactiveBoxIsRememberedForTheWorkstation)
{
    find(machines(), [](const ScreenDriver &screen) {
        EXPECT_EQ(list(screen).rows().rowCount(), 3);
        list(screen).selectRow(1);
        screen.press("chkInactive");
        EXPECT_EQ(list(screen).rows().rowCount(), 4);
        EXPECT_EQ(unit(screen), u"M-2"_s) << "the row under the cursor stays";
    });
    EXPECT_EQ(GetOption(u"EQUIPMENTINACTIVE"_s, true), u"1"_s);
    const QString key = find(machines(false, u"14"_s, u"11,12"_s), [](const ScreenDriver &screen) {
        EXPECT_EQ(list(screen).rows().rowCount(), 2);
        EXPECT_EQ(unit(screen), u"X-9"_s);
        QTest::keyClick(&list(screen), Qt::Key_Return);
    });
    EXPECT_EQ(key, u"14"_s);
}

TEST_F(QuickFindScreen, SeveralMachinesComeBackJoinedByCommas)
{
    const auto tick = [](const ScreenDriver &screen, int row) {
        QTest::mouseClick(list(screen).viewport(), Qt::LeftButton, {},
                          list(screen).cellRect(row, u"Select").center());
    };
    const auto several = [](const std::function<void(ScreenDriver)> &act) {
        return find(machines(true), act);
    };
    EXPECT_EQ(several([&](const ScreenDriver &screen) {
                  tick(screen, 2);
                  tick(screen, 0);
                  screen.press("chkInactive"); // what was ticked stays ticked
                  tick(screen, 3);
                  select(screen);
              }),
              u"11,13,14"_s);
    EXPECT_EQ(several([&](const ScreenDriver &screen) {
                  tick(screen, 0);
                  QTest::mouseDClick(list(screen).viewport(), Qt::LeftButton, {},
                                     list(screen).cellRect(1, u"Name").center());
              }),
              u"11,12"_s);
    EXPECT_EQ(several([](const ScreenDriver &screen) {
                  list(screen).selectRow(1);
                  select(screen);
              }),
              u"12"_s)
        << "without a tick, the row under the cursor";
    EXPECT_EQ(several([&](const ScreenDriver &screen) {
                  tick(screen, 0);
                  QTest::keyClick(&screen.control("txtSearchText"), Qt::Key_Escape);
                  EXPECT_FALSE(screen.isOpen());
              }),
              QString());
}

TEST_F(QuickFindScreen, AddNewNeedsTheRightAndOpensTheScreenAfterTheDialog)
{
    int opened = 0;
    const ScreenCalls::QuickFind request = machines();
    find(request, [](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("cmdAdd")) << "no screen has joined";
    });
    openings().join(u"frmEquipment"_s, [&](const OpeningArguments &asked) {
        EXPECT_EQ(asked.mode, Mode::Add);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        ++opened;
    });
    EXPECT_EQ(find(request,
                   [&](const ScreenDriver &screen) {
                       expectRefusal(screen, "cmdAdd", test::NoRights, "cmdAdd");
                       EXPECT_TRUE(screen.isOpen());
                       gRights.EqAdd = true;
                       screen.press("cmdAdd");
                   }),
              QString());
    EXPECT_EQ(opened, 1);
}

TEST_F(QuickFindScreen, OpensAtTheStoredPlaceAndKeepsOnlyItsSize)
{
    SetOption(u"LEFTfrmQuickFind"_s, 300, true); // in twips, 15 a pixel
    SetOption(u"TOPfrmQuickFind"_s, 450, true);
    SetOption(u"WIDTHfrmQuickFind"_s, 9000, true);
    find(machines(), [](const ScreenDriver &screen) {
        EXPECT_EQ(screen.screen().pos(), QPoint(20, 30));
        screen.screen().move(60, 60);
        screen.screen().resize(700, 500);
    });
    EXPECT_EQ(GetOption(u"LEFTfrmQuickFind"_s, true), u"300"_s);
    EXPECT_EQ(GetOption(u"WIDTHfrmQuickFind"_s, true), u"10500"_s);
    EXPECT_EQ(GetOption(u"HEIGHTfrmQuickFind"_s, true), u"7500"_s);
}

TEST_F(QuickFindScreen, AListThatCantBeReadIsToldAndDoesNotOpen)
{
    ScreenCalls::QuickFind request = machines();
    request.field = u"NoSuchColumn"_s;
    EXPECT_EQ(ShowQuickFind(request), QString());
    EXPECT_EQ(errors.takeOne().ProcedureName, u"ShowQuickFindMain -"_s);
    gcnData->Execute(u"Delete from tblTableFields where Tablename = 'tblEquipment'"_s);
    prompts.say(u"One of lookup item has been deleted\nmanually from database"_s);
    EXPECT_EQ(ShowQuickFind(machines()), QString());
}

TEST_F(QuickFindScreen, NumbersAreTypedAsNumbersAndMatchedWhole)
{
    const QString columns = u"SupplierID,Name,CreditLimit"_s;
    CompanySession::insert(u"tblSupplier"_s, columns, {3, u"Tool Barn"_s, 1500.5});
    CompanySession::insert(u"tblSupplier"_s, columns, {12, u"Belt World"_s, 20});
    const struct
    {
        QString field, typed, accepted, found;
    } cases[] = {{u"Name"_s, {}, {}, u"Belt World"_s}, // in the order of the names
                 {u"SupplierID"_s, u"1"_s, u"1"_s, u"none"_s},
                 {u"SupplierID"_s, u"1'x2"_s, u"12"_s, u"Belt World"_s},
                 {u"Credit Limit"_s, u"."_s, u"."_s, u"none"_s}, // not a number yet
                 {u"Credit Limit"_s, u"1500..5"_s, u"1500.5"_s, u"Tool Barn"_s}};
    find({u"Name"_s, u"Supplier Name"_s, u"tblSupplier"_s, u"frmSupplier"_s},
         [&](const ScreenDriver &screen) {
             EXPECT_FALSE(screen.isShown("chkInactive"));
             for (const auto &each : cases) {
                 screen.choose("cboFieldNames", each.field);
                 screen.type("txtSearchText", each.typed);
                 EXPECT_EQ(screen.text("txtSearchText"), each.accepted);
                 EXPECT_EQ(unit(screen, u"Name"), each.found) << qPrintable(each.typed);
             }
         });
}

TEST_F(QuickFindScreen, EveryTableOpensTwiceWithItsStoredLayout)
{
    CompanySession::insert(u"tblEmployee"_s, {{u"EmployeeID"_s, u"E1"_s}});
    CompanySession::insert(u"tblLocation"_s, {{u"LocationName"_s, u"Shed"_s}});
    CompanySession::insert(u"tblSupplier"_s, {{u"SupplierID"_s, 3}, {u"Name"_s, u"Tool Barn"_s}});
    CompanySession::insert(u"tblPart"_s, u"PartID,Inactive"_s, {u"P-1"_s, 0});
    for (int time = 0; time < 2; ++time)
        for (const auto &[table, field, key] : {std::tuple(u"tblEquipment"_s, u"UnitNo"_s, u"11"_s),
                                                {u"tblEmployee"_s, u"EmployeeID"_s, u"E1"_s},
                                                {u"tblLocation"_s, u"LocationName"_s, u"1"_s},
                                                {u"tblSupplier"_s, u"Name"_s, u"3"_s},
                                                {u"tblPart"_s, u"PartID"_s, u"P-1"_s}})
            EXPECT_EQ(find({.field = field, .label = field, .table = table, .form = {}}, select),
                      key);
}
