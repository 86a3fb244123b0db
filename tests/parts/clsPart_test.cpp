#include "parts/clsPart.h"

#include "core/CompanySession.h"
#include "core/Permission.h"

using namespace Qt::StringLiterals;

namespace {

struct Parts : test::CompanySession
{
    Parts() { gRights.PaAdd = gRights.PaMod = gRights.PaDel = true; }
    ~Parts() override { gRights = {}; }

    static clsPart part(const QString &number)
    {
        clsPart result;
        result.PartID = number;
        result.Description = u"9\" blade"_s;
        result.PartCategoryID = 151;
        result.Quantity = 2.5;
        result.Price = 19.95;
        result.SupplierID = 3;
        result.QtyMax = 10;
        result.QtyMin = 4;
        result.Inactive = u"0"_s;
        result.Notes = u"don't bend"_s;
        result.Bin = u"A'1"_s;
        result.Bar_Code = u"0012"_s;
        result.TrackInventory = u"1"_s;
        return result;
    }
    static clsPart only() { return clsPart::fromRow(clsPartManager().GetPartInfo().current()); }
};

} // namespace

TEST_F(Parts, ComeBackAsTheyWereSaved)
{
    const clsPartManager manager;
    EXPECT_TRUE(manager.SaveRecord(part(u" P-O'9 "_s), Mode::Add));
    clsPart expected = part(u"P-O'9"_s);
    expected.OldPartID = u"P-O'9"_s;
    EXPECT_EQ(only(), expected);
    // The tick reads back as the database's own True.
    EXPECT_EQ(GetRecordCount(u"tblPart"_s, u"TrackInventory = -1 and Inactive = 0"_s), 1);

    expected.PartID = u"P-10"_s;
    expected.Inactive = u"1"_s;
    expected.Quantity = 0;
    EXPECT_TRUE(manager.SaveRecord(expected, Mode::Modify));
    expected.OldPartID = u"P-10"_s;
    EXPECT_EQ(only(), expected);
    EXPECT_TRUE(manager.DeleteRecord(u"P-O'9"_s));
    EXPECT_EQ(count(u"tblPart"_s), 1);
    EXPECT_TRUE(manager.DeleteRecord(u"P-10"_s));
    EXPECT_EQ(count(u"tblPart"_s), 0);
}

/// Whatever screen asks for it.
TEST_F(Parts, AreAddedChangedAndDeletedByThoseWhoMay)
{
    const clsPartManager manager;
    ASSERT_TRUE(manager.SaveRecord(part(u"P-1"_s), Mode::Add));
    const clsPart stored = only();
    clsPart changed = stored;
    changed.Bin = u"B2"_s;
    const struct
    {
        bool Rights::*right;
        std::function<bool()> step;
    } steps[] = {
        {rights::Parts.add, [&] { return manager.SaveRecord(part(u"P-2"_s), Mode::Add); }},
        {rights::Parts.modify, [&] { return manager.SaveRecord(changed, Mode::Modify); }},
        {rights::Parts.remove, [&] { return manager.DeleteRecord(u"P-1"_s); }},
    };
    for (const auto &[right, step] : steps) {
        gRights = {.PaAdd = true, .PaMod = true, .PaDel = true};
        gRights.*right = false;
        EXPECT_FALSE(step());
        const ErrorReport report = errors.takeOne();
        EXPECT_EQ(report.ErrNumber, rights::Refused::Number);
        EXPECT_EQ(report.ErrDescription, test::NoRights);
        EXPECT_EQ(only(), stored);
    }
    // The history of a part is a report.
    EXPECT_EQ(rights::refusal(&Rights::InvPartHistory), test::NoReport);
}

TEST_F(Parts, CategoriesOfATableOfTheirOwnComeInTheirOrder)
{
    gcnData->Execute(u"Create table tblPartCategory(PartCategoryID long, Name nvarchar(30))"_s);
    for (const int category : {2, 1})
        gcnData->Execute(u"Insert into tblPartCategory(PartCategoryID) values(?)"_s, {category});
    EXPECT_EQ(clsPartManager().GetPartCategory().current().integer(u"PartCategoryID"), 1);
}

TEST_F(Parts, TheFirstUserOfAPartNamesItHistoryDoesNot)
{
    const clsPartManager manager;
    gcnData->Execute(u"Insert into tblWoPartHistory(PartID) values('P''1')"_s);
    EXPECT_EQ(manager.CanDeletePart(u"P'1"_s), QString());
    // From the last of the order to the first, so that each has to come before the others.
    const struct
    {
        QString table, owner, word;
    } users[] = {{u"tblWoPartUsed"_s, u"ServiceUsedID"_s, u"WorkOrder"_s},
                 {u"tblServiceUsedPart"_s, u"ServiceUsedID"_s, u"ServiceUsed Part"_s},
                 {u"tblServicesPart"_s, u"ServiceID"_s, u"Services"_s},
                 {u"tblEquipmentPart"_s, u"EquipmentID"_s, u"Equipment"_s}};
    for (const auto &[table, owner, word] : users) {
        gcnData->Execute(u"Insert into %1(PartID,%2) values('P''1',1)"_s.arg(table, owner));
        EXPECT_EQ(manager.CanDeletePart(u"P'1"_s), word);
    }
    EXPECT_EQ(manager.CanDeletePart(u"P"_s), QString());
}
