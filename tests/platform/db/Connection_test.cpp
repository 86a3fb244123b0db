#include "platform/db/Connection.h"

#include "platform/db/TestDatabase.h"

#include <gtest/gtest.h>

namespace {
using namespace Qt::StringLiterals;

TEST(Connection, Works)
{
    test::TestDatabase database;
    db::Connection c = database.connect();
    try {
        c.Execute(u"Create table tblPart (PartID varchar(20), Price double precision)"_s);
        c.Execute(u"Insert into tblPart(PartID, Price) Values('A', 3)"_s);
        db::Recordset rs = c.Open(u"Select PartID, Price from tblPart where PartID = 'a'"_s);
        ASSERT_EQ(rs.RecordCount(), 1);
    } catch (const db::DbError &e) {
        FAIL() << e.what() << e.number() << e.statement().toStdString();
    }
}

} // namespace
