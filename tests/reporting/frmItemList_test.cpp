#include "organisation/MasterSession.h"
#include "reporting/ui/QuickFindEntries.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using test::inScreen;
using test::ScreenDriver;

namespace {

class ItemList : public test::MasterSession
{
protected:
    ItemList()
    {
        const QString columns = u"EquipmentID,UnitNo,EquipmentName"_s;
        CompanySession::insert(u"tblEquipment"_s, columns, {1, u"A-1"_s, u"Rider mower"_s});
        CompanySession::insert(u"tblEquipment"_s, columns, {2, u"A'2"_s, u"Blower"_s});
        CompanySession::insert(u"tblEquipment"_s, columns, {3, u"B-1"_s, u"Rake"_s});
    }
    static grid::GridView &list(const ScreenDriver &screen) { return screen.grid("grdList"); }
    static QString unit(const ScreenDriver &screen)
    {
        const int row = list(screen).currentRow();
        return row < 0 ? u"none"_s : list(screen).rows().text(row, u"UnitNo");
    }
    /// Opens the list of several machines, or that of one.
    template<class Show>
    static QString choose(Show show, const QString &filter)
    {
        return show(u"Select UnitNo, EquipmentName as Name from tblEquipment"_s, filter,
                    u"List of Equipment"_s, u"UnitNo"_s, u"VARCHAR"_s, u"Name"_s, u"VARCHAR"_s);
    }
    static QString several(const QString &filter) { return choose(ShowItemListDetail, filter); }
    static QString one(const QString &filter)
    {
        return choose(ShowItemListDetailForEquUti, filter);
    }
};

} // namespace

TEST_F(ItemList, TickedRowsComeBackJoinedByCommasWithoutQuotes)
{
    QString chosen;
    inScreen([&] { chosen = several(u"order by UnitNo desc"_s); },
             [](const ScreenDriver &screen) {
                 EXPECT_EQ(screen.control<QLabel>("lblTitle").text(), u"List of Equipment"_s);
                 EXPECT_FALSE(screen.isShown("cmdSelectForEqpUti"));
                 EXPECT_EQ(unit(screen), u"B-1"_s);
                 screen.type("txtSearch", u"a'"_s);
                 EXPECT_EQ(unit(screen), u"A'2"_s);
                 screen.type("txtSearch", u"ri"_s); // by the second column
                 EXPECT_EQ(unit(screen), u"A-1"_s);
                 screen.type("txtSearch", u"q"_s);
                 EXPECT_EQ(unit(screen), u"A-1"_s);
                 QTest::keyClick(&list(screen), Qt::Key_Space);
                 QTest::mouseDClick(list(screen).viewport(), Qt::LeftButton, {},
                                    list(screen).cellRect(1, u"Name").center());
                 screen.press("cmdSelect");
             });
    EXPECT_EQ(chosen, u"A'2,A-1"_s);

    inScreen([&] { chosen = several(u"where UnitNo = 'none'"_s); },
             [](const ScreenDriver &screen) { screen.press("cmdSelect"); });
    EXPECT_EQ(chosen, QString()) << "nothing ticked is nothing chosen";
}

TEST_F(ItemList, ASingleChoiceNeedsARow)
{
    QString chosen;
    inScreen([&] { chosen = one({}); },
             [this](const ScreenDriver &screen) {
                 EXPECT_FALSE(screen.isShown("cmdSelect"));
                 EXPECT_FALSE(list(screen).rows().hasColumn(u"Select"));
                 list(screen).clearCurrent();
                 prompts.say(u"Please select one record."_s);
                 screen.press("cmdSelectForEqpUti");
                 screen.type("txtSearch", u"B"_s);
                 screen.press("cmdSelectForEqpUti");
             });
    EXPECT_EQ(chosen, u"B-1"_s);
}

TEST_F(ItemList, AFilterThatDoesNotRunIsToldAndOpensNoList)
{
    prompts.say(u"Incorrect Filter"_s);
    EXPECT_EQ(several(u"where UnitNo = 'A"_s), QString());
    prompts.say(u"Incorrect Filter"_s);
    EXPECT_EQ(one(u"where NoSuchColumn = 1"_s), QString());
}
