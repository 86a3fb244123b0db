#include "core/CompanySession.h"
#include "core/RegistryValues.h"
#include "core/RowTests.h"
#include "platform/base/Error.h"
#include "platform/settings/Registry.h"

using namespace Qt::StringLiterals;

namespace {

class Session : public test::CompanySession
{
protected:
    static void addSupplier(int id)
    {
        gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name) values(?,'A')"_s, {id});
    }
    static qint64 suppliers() { return GetRecordCount(u"tblSupplier"_s, {}); }
};

} // namespace

TEST_F(Session, WhoeverFindsTheTransactionOpenJoinsIt)
{
    BeginTrans();
    BeginTrans();
    addSupplier(1);
    EXPECT_TRUE(gbInTransaction);
    CommitTrans();
    EXPECT_FALSE(gbInTransaction);
    CommitTrans();
    RollbackTrans();
    EXPECT_EQ(suppliers(), 1);
}

TEST_F(Session, AScopeLeftWithoutCommitUndoesTheWholeTransaction)
{
    BeginTrans();
    addSupplier(1);
    {
        TransactionScope scope;
        addSupplier(2);
    }
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(suppliers(), 0);
    {
        TransactionScope outer;
        addSupplier(3);
        {
            TransactionScope inner;
            addSupplier(4);
            inner.leaveOpen();
        }
        EXPECT_TRUE(gbInTransaction);
        outer.commit();
    }
    EXPECT_EQ(suppliers(), 2);
}

TEST_F(Session, ClosingUndoesWhatIsOpenAndOpeningComesBack)
{
    BeginTrans();
    addSupplier(1);
    closeConnections();
    EXPECT_FALSE(connectionsAreOpen());
    EXPECT_FALSE(gbInTransaction);
    EXPECT_THROW(BeginTrans(), base::Error);
    EXPECT_FALSE(gbInTransaction);
    openConnections();
    EXPECT_TRUE(connectionsAreOpen());
    EXPECT_EQ(suppliers(), 0);
}

TEST_F(Session, AFailedOpeningLeavesBothClosed)
{
    const QString path = gsDatabasePath;
    closeConnections();
    gsDatabasePath = path + u".none"_s;
    EXPECT_THROW(openConnections(), base::Error);
    EXPECT_FALSE(gcnData || gcnLookup);
    gsDatabasePath = path;
}

TEST_F(Session, TheRegistryNamesTheHostAndItsPath)
{
    db::Target target = databaseTarget();
    EXPECT_EQ(target.file, gsDatabasePath);
    EXPECT_TRUE(target.host.isEmpty());
    SetRegistryValue(u"HOST"_s, u"shop"_s);
    target = databaseTarget();
    EXPECT_EQ(target.host, u"shop"_s);
    EXPECT_EQ(target.file, gsDatabasePath);
    EXPECT_EQ(target.user, u"SYSDBA"_s);
    SetRegistryValue(u"HOSTPATH"_s, u"D:\\Data\\Quorvantis.mdb"_s);
    SetRegistryValue(u"HOSTUSER"_s, u"office"_s);
    SetRegistryValue(u"HOSTPASSWORD"_s, u"a=b"_s);
    target = databaseTarget();
    EXPECT_EQ(target.file, u"D:\\Data\\Quorvantis.mdb"_s);
    EXPECT_EQ(target.user, u"office"_s);
    EXPECT_EQ(target.password, u"a=b"_s);
}
