#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

using EmptyDatabase = test::CompanySession;

TEST_F(EmptyDatabase, KeysRefuseASecondRow)
{
    const char *const inserts[] = {
        "Insert into tblEquipment (EquipmentID) values (7)",
        "Insert into tblServices (ServiceID) values (7)",
        "Insert into tblPart (PartID) values ('a-1')",
        "Insert into tblEmployee (EmployeeID) values ('E1')",
        "Insert into tblSupplier (SupplierID) values (7)",
        "Insert into tblSysOption (SysOption) values ('KEY')",
        "Insert into tblUser (UserName) values ('Bob')",
        "Insert into tblServicesPart (ServiceID, PartID) values (7, 'a-1')",
        "Insert into tblEquipmentImage (EquipmentID, ImageName) values (7, 'front')",
        "Insert into tblEquipmentDocument (EquipmentId, DocumentName) values (7, 'manual.pdf')",
    };
    for (const char *insert : inserts) {
        SCOPED_TRACE(insert);
        const auto execute = [&] { gcnData->Execute(QString::fromLatin1(insert)); };
        execute();
        EXPECT_EQ(test::raisedBy(execute).number(), db::ErrorNumber::DuplicateKey);
    }
    // Two readings may be equal in every column, and two machines may lack a serial number.
    for (int i = 0; i < 2; ++i)
        gcnData->Execute(u"Insert into tblEquipmentCount values (1, #3/1/2024#, 'Hours', 5)"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2);
}

TEST_F(EmptyDatabase, ListsHaveTheirFixedNumbers)
{
    // The names of three are what the editor of the lists compares.
    EXPECT_EQ(found(u"Select ItemID from tblIndicator where ItemID < 100 order by ItemID"_s),
              u"1 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17"_s.replace(u' ', u'\n'));
    EXPECT_EQ(found(u"Select ItemName from tblIndicator where ItemID in (7, 9, 11) order by "
                    "ItemID"_s),
              u"Make Type\nModel Type\nState"_s);
    // The editor's fallback for a parent list without entries must find nothing.
    EXPECT_EQ(count(u"tblIndicator"_s, u"ParentID = -1"_s), 0);
    // Every list but those whose members hang under another list's has members, all are offered.
    for (const int list : {1, 3, 4, 5, 6, 8, 10, 12, 13, 14, 15, 16, 17})
        EXPECT_GT(count(u"tblIndicator"_s, u"Show = -1 and ParentID = %1"_s.arg(list)), 4) << list;
    EXPECT_EQ(count(u"tblIndicator"_s, u"ParentID in (Select ItemID from tblIndicator where "
                                       "ParentID = 1 and ItemName = 'United States')"_s),
              51);
    EXPECT_EQ(count(u"tblIndicator"_s,
                    u"ParentID <> 0 and ParentID not in (Select ItemID from tblIndicator)"_s),
              0);
}
