#include "core/RowTests.h"
#include "organisation/MasterSession.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/grid/GridView.h"

using namespace Qt::StringLiterals;
using test::inScreen;
using test::ScreenDriver;

namespace {

class LookupLists : public test::MasterSession
{
protected:
    static qint64 addItem(qint64 parent, const QString &name)
    {
        return insert(u"Insert into tblIndicator(ParentID,ItemName,Show) values(%1,'%2','1')"_s.arg(
                          QString::number(parent), name),
                      u"ItemID"_s);
    }
    static QString listed(const ScreenDriver &screen)
    {
        const auto &grid = screen.control<grid::GridView>("lstIndicator");
        QStringList names;
        for (const int row : grid.displayedOrder())
            names.append(grid.rows().text(row, u"ItemName"));
        return names.join(u'|');
    }
};

} // namespace

TEST_F(LookupLists, AnItemOfAPlainListIsAddedUnderTheNumberThatWasShown)
{
    gcnData->Execute(u"Delete from tblIndicator where ParentID = 5"_s);
    const qint64 diesel = addItem(LookupList::FuelType, u"Diesel"_s);
    inScreen([&] { ShowIndicatorDetail(LookupList::FuelType, diesel); },
             [&](const ScreenDriver &screen) {
                 EXPECT_EQ(screen.text("txtName"), u"Diesel"_s);
                 EXPECT_FALSE(screen.isShown("cboIndicator"));
                 EXPECT_FALSE(screen.isShown("cboParentType"));
                 EXPECT_EQ(screen.control<QLineEdit>("txtName").maxLength(), 35);
                 screen.press("cmdAdd");
                 const qint64 preview = screen.text("txtItemID").toLongLong();
                 EXPECT_EQ(preview, diesel + 1);
                 expectRefusal(screen, "cmdUpdate", u"Name should not be blank."_s, "txtName");
                 screen.type("txtName", u" dIESEL "_s);
                 expectRefusal(screen, "cmdUpdate",
                               u"The name you specified already exists. Specify a different "
                               "name."_s,
                               "txtName");
                 screen.type("txtName", u" Farmer's gas "_s);
                 screen.press("cmdUpdate");
                 EXPECT_EQ(screen.text("txtItemID").toLongLong(), preview);
                 EXPECT_EQ(listed(screen), u"Diesel|Farmer's gas"_s);
                 screen.press("cmdExit");
             });
    EXPECT_EQ(GetRecordCount(u"tblIndicator"_s,
                             u"ItemName = 'Farmer''s gas' and Show = -1 and FSize = 0"_s),
              1);
}

TEST_F(LookupLists, ANameMayChangeItsCaseOnly)
{
    const qint64 item = addItem(LookupList::LeaseCompany, u"acme leasing"_s);
    inScreen([&] { ShowIndicatorDetail(LookupList::LeaseCompany, item); },
             [&](const ScreenDriver &screen) {
                 screen.type("txtName", u"Acme Leasing"_s);
                 EXPECT_TRUE(screen.isShown("cmdCancel"));
                 screen.press("cmdUpdate");
                 EXPECT_EQ(screen.text("txtName"), u"Acme Leasing"_s);
                 screen.press("cmdExit");
             });
}

TEST_F(LookupLists, AnItemWithChildrenOrUsersStays)
{
    const qint64 type = addItem(LookupList::EquipmentType, u"Zamboni"_s);
    const qint64 make = addItem(type, u"Fernhill"_s);
    const qint64 model = addItem(make, u"F-48"_s);
    inScreen([&] { ShowIndicatorDetail(LookupList::Make, make); },
             [&](const ScreenDriver &screen) {
                 // The parent is read from the item.
                 EXPECT_EQ(screen.text("cboIndicator"), u"Zamboni"_s);
                 EXPECT_EQ(screen.text("cboParentType"), u"Zamboni"_s);
                 EXPECT_EQ(listed(screen), u"Fernhill"_s);
                 expectDeletion(Answer::Yes);
                 prompts.expect(u"Deletion not allowed. Record is being used in Model/State."_s,
                                Icon::Information);
                 screen.press("cmdDelete");
                 gcnData->Execute(u"Delete from tblIndicator where ItemID = %1"_s.arg(model));
                 expectDeletion(Answer::Yes);
                 screen.press("cmdDelete");
                 EXPECT_EQ(listed(screen), QString());
                 EXPECT_FALSE(screen.isEnabled("cmdDelete"));
                 EXPECT_TRUE(screen.control<QLineEdit>("txtName").isReadOnly());
                 screen.press("cmdExit");
             });
}

TEST_F(LookupLists, TheFilterListsTheChildrenOfAnotherParentAndTheItemMayMoveThere)
{
    const qint64 first = addItem(LookupList::EquipmentType, u"Zamboni"_s);
    const qint64 second = addItem(LookupList::EquipmentType, u"Zipline"_s);
    addItem(first, u"Fernhill"_s);
    addItem(second, u"Brushco"_s);
    inScreen([&] { ShowIndicatorDetail(LookupList::Make, 0, u"Zamboni"_s); },
             [&](const ScreenDriver &screen) {
                 EXPECT_EQ(listed(screen), u"Fernhill"_s);
                 screen.choose("cboIndicator", u"Zipline"_s);
                 EXPECT_EQ(listed(screen), u"Brushco"_s);
                 screen.choose("cboParentType", u"Zamboni"_s);
                 EXPECT_TRUE(screen.isShown("cmdCancel"));
                 screen.type("txtName", u"FERNHILL"_s);
                 expectRefusal(screen, "cmdUpdate",
                               u"The name you specified already exists. Specify a different "
                               "name."_s,
                               "txtName");
                 screen.type("txtName", u"Brushco"_s);
                 screen.press("cmdUpdate");
                 EXPECT_EQ(listed(screen), QString()); // it hangs under the other parent now
                 screen.press("cmdExit");
             });
    EXPECT_EQ(GetRecordCount(u"tblIndicator"_s, u"ParentID = %1"_s.arg(first)), 2);
}

TEST_F(LookupLists, AStatesNameHasTwoCharacters)
{
    inScreen([] { ShowIndicatorDetail(LookupList::State, 0, u"1"_s); },
             [](const ScreenDriver &screen) {
                 EXPECT_EQ(screen.control<QLineEdit>("txtName").maxLength(), 2);
                 screen.press("cmdAdd");
                 screen.type("txtName", u"Zulu"_s);
                 EXPECT_EQ(screen.text("txtName"), u"Zu"_s);
                 screen.press("cmdCancel");
                 screen.press("cmdExit");
             });
}

TEST_F(LookupLists, ModelsOfNoTypeHaveNoParents)
{
    inScreen([] { ShowIndicatorDetail(LookupList::Model, 0); },
             [this](const ScreenDriver &screen) {
                 EXPECT_EQ(screen.control<QComboBox>("cboParentType").count(), 0);
                 screen.press("cmdAdd");
                 screen.type("txtName", u"F-60"_s);
                 expectRefusal(screen, "cmdUpdate", u"Make Type should not be blank."_s,
                               "cboParentType");
                 screen.press("cmdCancel");
                 screen.press("cmdExit");
             });
    const qint64 engineMake = addItem(LookupList::EngineMake, u"Kohlberg"_s);
    addItem(engineMake, u"KB-20"_s);
    inScreen(
        [&] { ShowIndicatorDetail(LookupList::Model, 0, QString::number(engineMake), 0, true); },
        [](const ScreenDriver &screen) {
            EXPECT_EQ(screen.text("cboIndicator"), u"Kohlberg"_s);
            EXPECT_EQ(listed(screen), u"KB-20"_s);
            screen.press("cmdExit");
        });
}
