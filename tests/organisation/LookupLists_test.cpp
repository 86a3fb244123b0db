#include "organisation/MasterSession.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::ScreenDriver;

namespace {

const QString Taken = u"The name you specified already exists. Specify a different name."_s;

struct LookupLists : test::MasterSession
{
    static qint64 addItem(qint64 parent, const QString &name)
    {
        return insert(u"Insert into tblIndicator(ParentID,ItemName,Show) values(%1,'%2','1')"_s.arg(
                          QString::number(parent), name),
                      u"ItemID"_s);
    }
    static std::function<void()> list(qint64 number, qint64 item, const QString &parent = {},
                                      bool engine = false)
    {
        return [=] { ShowIndicatorDetail(number, item, parent, 0, engine); };
    }
    static QString listed(const ScreenDriver &screen)
    {
        return test::columnOf(screen.grid("lstIndicator"), u"ItemName").join(u'|');
    }
};

} // namespace

TEST_F(LookupLists, AnItemOfAPlainListIsAddedUnderTheNumberThatWasShown)
{
    gcnData->Execute(u"Delete from tblIndicator where ParentID = 5"_s);
    const qint64 diesel = addItem(LookupList::FuelType, u"Diesel"_s);
    inRecords(list(LookupList::FuelType, diesel), [&](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtName"), u"Diesel"_s);
        EXPECT_FALSE(screen.isShown("cboIndicator"));
        EXPECT_FALSE(screen.isShown("cboParentType"));
        EXPECT_EQ(screen.control<QLineEdit>("txtName").maxLength(), 35);
        screen.press("cmdAdd");
        const qint64 preview = screen.text("txtItemID").toLongLong();
        EXPECT_EQ(preview, diesel + 1);
        expectRefusals(screen, {{u"Name should not be blank."_s, "txtName", u" dIESEL "_s},
                                {Taken, "txtName", u" Farmer's gas "_s}});
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtItemID").toLongLong(), preview);
        EXPECT_EQ(listed(screen), u"Diesel|Farmer's gas"_s);
        screen.type("txtName", u"FARMER'S gas"_s); // its case may change
        screen.press("cmdUpdate");
    });
    EXPECT_EQ(GetRecordCount(u"tblIndicator"_s,
                             u"ItemName = 'Farmer''s gas' and Show = -1 and FSize = 0"_s),
              1);
}

TEST_F(LookupLists, AnItemWithChildrenOrUsersStays)
{
    const qint64 type = addItem(LookupList::EquipmentType, u"Zamboni"_s);
    const qint64 make = addItem(type, u"Fernhill"_s);
    const qint64 model = addItem(make, u"F-48"_s);
    inRecords(list(LookupList::Make, make), [&](ScreenDriver screen) {
        // The parent is read from the item.
        EXPECT_EQ(screen.text("cboIndicator"), u"Zamboni"_s);
        EXPECT_EQ(screen.text("cboParentType"), u"Zamboni"_s);
        EXPECT_EQ(listed(screen), u"Fernhill"_s);
        deleteRecord(screen, u"Model/State"_s);
        gcnData->Execute(u"Delete from tblIndicator where ItemID = %1"_s.arg(model));
        deleteRecord(screen);
        EXPECT_EQ(listed(screen), QString());
        EXPECT_FALSE(screen.isEnabled("cmdDelete"));
        EXPECT_TRUE(screen.control<QLineEdit>("txtName").isReadOnly());
    });
}

TEST_F(LookupLists, TheFilterListsTheChildrenOfAnotherParentAndTheItemMayMoveThere)
{
    const qint64 first = addItem(LookupList::EquipmentType, u"Zamboni"_s);
    const qint64 second = addItem(LookupList::EquipmentType, u"Zipline"_s);
    addItem(first, u"Fernhill"_s);
    addItem(second, u"Brushco"_s);
    inRecords(list(LookupList::Make, 0, u"Zamboni"_s), [&](ScreenDriver screen) {
        EXPECT_EQ(listed(screen), u"Fernhill"_s);
        screen.choose("cboIndicator", u"Zipline"_s);
        EXPECT_EQ(listed(screen), u"Brushco"_s);
        screen.choose("cboParentType", u"Zamboni"_s);
        EXPECT_TRUE(screen.isShown("cmdCancel"));
        screen.type("txtName", u"FERNHILL"_s);
        expectRefusals(screen, {{Taken, "txtName", u"Brushco"_s}});
        screen.press("cmdUpdate");
        EXPECT_EQ(listed(screen), QString()); // it hangs under the other parent now
    });
    EXPECT_EQ(GetRecordCount(u"tblIndicator"_s, u"ParentID = %1"_s.arg(first)), 2);
}

TEST_F(LookupLists, ModelsOfNoTypeHaveNoParentsAndStatesTwoLetters)
{
    inRecords(list(LookupList::State, 0, u"1"_s), [](ScreenDriver screen) {
        EXPECT_EQ(screen.control<QLineEdit>("txtName").maxLength(), 2);
    });
    inRecords(list(LookupList::Model, 0), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.control<QComboBox>("cboParentType").count(), 0);
        screen.press("cmdAdd");
        screen.type("txtName", u"F-60"_s);
        expectRefusal(screen, u"Make Type should not be blank."_s, "cboParentType");
    });
    const qint64 engineMake = addItem(LookupList::EngineMake, u"Kohlberg"_s);
    addItem(engineMake, u"KB-20"_s);
    inRecords(list(LookupList::Model, 0, QString::number(engineMake), true),
              [](ScreenDriver screen) {
                  EXPECT_EQ(screen.text("cboIndicator"), u"Kohlberg"_s);
                  EXPECT_EQ(listed(screen), u"KB-20"_s);
              });
}
