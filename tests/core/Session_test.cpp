#include "core/CompanySession.h"
#include "core/Told.h"

using namespace Qt::StringLiterals;

namespace {

struct Session : test::CompanySession
{
    static void addSupplier(int id) { insert(u"tblSupplier"_s, {{u"SupplierID"_s, id}}); }
    static qint64 suppliers() { return count(u"tblSupplier"_s); }
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
    EXPECT_EQ(suppliers(), 0);
    // A failed one leaves both closed.
    closeConnections();
    const auto given = std::exchange(gsDatabasePath, gsDatabasePath + u".none"_s);
    EXPECT_THROW(openConnections(), base::Error);
    EXPECT_FALSE(gcnData || gcnLookup);
    gsDatabasePath = given;
}

TEST_F(Session, TheRegistryNamesTheHostAndItsPath)
{
    const auto named = [] {
        const db::Target target = databaseTarget();
        return QStringList{target.host, target.file, target.user, target.password}.join(u'|');
    };
    const QString own = u"|%1|SYSDBA|"_s.arg(gsDatabasePath);
    EXPECT_TRUE(named().startsWith(own)) << named().toStdString();
    SetRegistryValue(u"HOST"_s, u"shop"_s);
    EXPECT_TRUE(named().startsWith(u"shop"_s + own)) << named().toStdString();
    SetRegistryValue(u"HOSTPATH"_s, u"D:\\Data\\Quorvantis.mdb"_s);
    SetRegistryValue(u"HOSTUSER"_s, u"office"_s);
    SetRegistryValue(u"HOSTPASSWORD"_s, u"a=b"_s);
    EXPECT_EQ(named(), u"shop|D:\\Data\\Quorvantis.mdb|office|a=b"_s);
}

TEST(Told, OpensABoxUnlessSomebodyListens)
{
    test::ScriptedPrompts prompts;
    prompts.say(u"before"_s);
    told::message(u"before"_s);
    {
        told::Listener listener;
        told::message(u"one"_s);
        {
            const told::Listener inner;
            told::critical(u"two"_s);
            EXPECT_EQ(inner.sentences(), QStringList{u"two"_s});
        }
        told::information(u"three"_s);
        EXPECT_EQ(listener.sentences(), QStringList({u"one"_s, u"three"_s}));
    }
    prompts.inform(u"after"_s);
    told::information(u"after"_s);
    prompts.warn(u"bad"_s);
    told::critical(u"bad"_s);
}
