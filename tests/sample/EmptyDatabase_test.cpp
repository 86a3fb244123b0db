#include "support/CompanyDatabase.h"
#include "support/Raised.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class EmptyDatabase : public testing::Test
{
protected:
    test::TestEnvironment m_environment;
    test::CompanyDatabase m_database;
    std::unique_ptr<db::Connection> m_connection = m_database.open();

    [[nodiscard]] qint64 number(const QString &query)
    {
        return m_connection->Open(query).row(0)[0].toLongLong();
    }
};

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
        const auto execute = [&] { m_connection->Execute(QString::fromLatin1(insert)); };
        execute();
        EXPECT_EQ(test::raisedBy(execute).number(), db::ErrorNumber::DuplicateKey);
    }
    // Two readings may be equal in every column, and two machines may lack a serial number.
    for (int i = 0; i < 2; ++i)
        m_connection->Execute(
            u"Insert into tblEquipmentCount values (1, #3/1/2024#, 'Hours', 5)"_s);
    EXPECT_EQ(number(u"Select count(*) from tblEquipmentCount"_s), 2);
}

TEST_F(EmptyDatabase, ListsHaveTheirFixedNumbers)
{
    const QList<int> lists = {1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    QList<int> found;
    for (const db::Row row : m_connection->Open(
             u"Select ItemID from tblIndicator where ItemID < 100 order by ItemID"_s))
        found << static_cast<int>(row.integer(u"ItemID"));
    EXPECT_EQ(found, lists);
    // The names that the editor of the lists compares.
    const auto name = [&](int list) {
        return m_connection->Open(u"Select ItemName from tblIndicator where ItemID = ?"_s, {list})
            .row(0)
            .text(u"ItemName");
    };
    EXPECT_EQ(name(7), u"Make Type"_s);
    EXPECT_EQ(name(9), u"Model Type"_s);
    EXPECT_EQ(name(11), u"State"_s);
    // The editor's fallback for a parent list without entries must find nothing.
    EXPECT_EQ(number(u"Select count(*) from tblIndicator where ParentID = -1"_s), 0);
    // Every list but those whose members hang under another list's has members, all are offered.
    for (const int list : {1, 3, 4, 5, 6, 8, 10, 12, 13, 14, 15, 16, 17})
        EXPECT_GT(
            number(
                u"Select count(*) from tblIndicator where Show = -1 and ParentID = %1"_s.arg(list)),
            4)
            << list;
    EXPECT_EQ(number(u"Select count(*) from tblIndicator where ParentID in "
                     "(Select ItemID from tblIndicator where ParentID = 1 and "
                     "ItemName = 'United States')"_s),
              51);
    EXPECT_EQ(number(u"Select count(*) from tblIndicator a left join tblIndicator b "
                     "on a.ParentID = b.ItemID where a.ParentID <> 0 and b.ItemID is null"_s),
              0);
}

} // namespace
