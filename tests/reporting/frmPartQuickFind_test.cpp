#include "core/Options.h"
#include "organisation/MasterSession.h"
#include "reporting/ui/QuickFindEntries.h"
#include "reporting/ui/frmPartQuickFind.h"

using namespace Qt::StringLiterals;
using test::inScreen;
using test::ScreenDriver;

namespace {

class PartQuickFind : public test::MasterSession
{
protected:
    PartQuickFind()
    {
        const qint64 belts = CompanySession::insert(u"tblIndicator"_s, u"ParentID,ItemName,Show"_s,
                                                    {10, u"Zbelts"_s, 1}, u"ItemID"_s);
        const QString columns = u"PartID,Description,PartCategoryID,Inactive"_s;
        CompanySession::insert(u"tblPart"_s, columns, {u"B-1"_s, u"Drive belt"_s, belts, 0});
        CompanySession::insert(u"tblPart"_s, columns, {u"B-2"_s, u"Old belt"_s, belts, 1});
        CompanySession::insert(u"tblPart"_s, columns, {u"F-1"_s, u"Oil filter"_s, 0, 0});
    }
    ~PartQuickFind() override { gRights = {}; }

    static QString parts(const ScreenDriver &screen)
    {
        const grid::GridView &grid = screen.grid("grdParts");
        QStringList numbers;
        for (const int row : grid.displayedOrder())
            numbers.append(grid.rows().text(row, u"Part Number") +
                           (row == grid.currentRow() ? u"*"_s : QString()));
        return numbers.join(u' ');
    }
    static QString find(const QString &start, std::function<void(ScreenDriver)> act)
    {
        QString key;
        inScreen([&] { key = frmPartQuickFindEntry::ShowQuickFind(start); }, std::move(act));
        return key;
    }
};

} // namespace

TEST_F(PartQuickFind, ListsByCategoryAndActivityAndKeepsTheRow)
{
    const QString key = find(u"F-1"_s, [](const ScreenDriver &screen) {
        EXPECT_EQ(parts(screen), u"B-1 F-1*"_s);
        EXPECT_EQ(screen.text("cboFieldNames"), u"Part Number"_s);
        screen.press("chkInactive");
        EXPECT_EQ(parts(screen), u"B-1 B-2 F-1*"_s);
        screen.choose("cboPartCategory", u"Zbelts"_s);
        EXPECT_EQ(parts(screen), u"B-1* B-2"_s);
        screen.type("txtSearchText", u"b-2"_s);
        EXPECT_EQ(parts(screen), u"B-1 B-2*"_s);
        screen.choose("cboFieldNames", u"Description"_s);
        screen.type("txtSearchText", u"dr"_s);
        EXPECT_EQ(parts(screen), u"B-1* B-2"_s);
        screen.type("txtSearchText", u"xx"_s); // no match keeps the row
        EXPECT_EQ(parts(screen), u"B-1* B-2"_s);
        screen.press("cmdSelect");
    });
    EXPECT_EQ(key, u"B-1"_s);
    EXPECT_EQ(GetOption(u"PARTINACTIVE"_s, true), u"1"_s);
    gcnData->Execute(u"Delete from tblPart"_s);
    find({}, [](const ScreenDriver &screen) {
        screen.press("cmdSelect");
        ASSERT_TRUE(screen.isOpen()) << "without rows nothing is chosen";
        screen.press("cmdCancel");
    });
}

TEST_F(PartQuickFind, ALongListIsShownWithItsFirstRowsAndSearchedWhole)
{
    for (int number = 0; number < 300; ++number)
        CompanySession::insert(u"tblPart"_s, u"PartID,Inactive"_s,
                               {u"L-%1"_s.arg(number, 3, 10, QChar(u'0')), 0});
    {
        frmPartQuickFind form({});
        const auto &grid = test::named<grid::GridView>(form, u"grdParts"_s);
        EXPECT_EQ(grid.rows().rowCount(), 200);
        form.show();
        test::named<QLineEdit>(form, u"txtSearchText"_s).setText(u"L-299"_s);
        // What was typed is searched when all are there.
        EXPECT_TRUE(QTest::qWaitFor([&] { return grid.currentRow() == 301; }));
    }
    const QString key = find({}, [](const ScreenDriver &screen) {
        screen.control<QLineEdit>("txtSearchText").setText(u"L-298"_s);
        screen.press("cmdSelect");
    });
    EXPECT_EQ(key, u"L-298"_s);
    // A part to begin on is there at once.
    frmPartQuickFind form(u"L-250"_s);
    EXPECT_EQ(test::named<grid::GridView>(form, u"grdParts"_s).currentRow(), 252);
}

TEST_F(PartQuickFind, ANewPartNeedsTheRightAndIsListedThen)
{
    const QString key = find({}, [this](const ScreenDriver &screen) {
        expectRefusal(screen, "cmdAdd", test::NoRights, "cmdAdd");
        gRights.PaAdd = true;
        test::onNextModal([](QWidget &window) {
            const ScreenDriver part(window);
            part.type("txtPartID", u"C-1"_s);
            part.type("txtDescription", u"Clutch"_s);
            part.press("cmdUpdate");
            part.press("cmdExit");
        });
        screen.press("cmdAdd");
        EXPECT_EQ(parts(screen), u"B-1 C-1* F-1"_s);
        test::onNextModal([](QWidget &window) {
            const ScreenDriver part(window);
            EXPECT_EQ(part.text("txtPartID"), QString());
            part.press("cmdCancel");
            EXPECT_EQ(part.text("txtPartID"), u"C-1") << "what was on show before Add";
            part.press("cmdExit");
        });
        screen.press("cmdAdd");
        EXPECT_EQ(parts(screen), u"B-1 C-1* F-1"_s) << "a cancelled Add stays where it was";
        screen.press("cmdSelect");
    });
    EXPECT_EQ(key, u"C-1"_s);
}
