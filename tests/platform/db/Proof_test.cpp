#include "platform/db/Proof.h"

#include "platform/db/ClosedFile.h"
#include "platform/db/HelperProcess.h"
#include "platform/db/Maintenance.h"
#include "platform/db/TestDatabase.h"
#include "support/Damage.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

namespace {

using namespace Qt::StringLiterals;
using test::HelperProcess;
using test::raisedBy;
namespace ErrorNumber = db::ErrorNumber;

/// A database with two tables of some rows.
class Proofs : public testing::Test
{
protected:
    Proofs()
    {
        db::Connection data = database.connect();
        data.Execute(u"Create table tblLog (Number integer, Side integer, Picture longbinary)"_s);
        data.Execute(u"Create table tblOther (Name text(30))"_s);
        data.BeginTrans();
        for (int i = 0; i < 300; ++i)
            data.Execute(u"Insert into tblLog(Number, Side, Picture) values(?, 0, ?)"_s,
                         {i, QByteArray(700, 'p')});
        data.Execute(u"Insert into tblOther(Name) values('only')"_s);
        data.CommitTrans();
    }
    [[nodiscard]] QString path(const QString &name) const { return database.path(name); }
    void expectNothingButTheCopy() const
    {
        EXPECT_EQ(database.files(), (QStringList{u"copy.mdb"_s, u"test.mdb"_s}));
    }

    test::TestDatabase database;
};

} // namespace

TEST_F(Proofs, CountEachTable)
{
    EXPECT_EQ(db::prove(database.file()), (db::RowCounts{{u"tblLog"_s, 300}, {u"tblOther"_s, 1}}));
    EXPECT_EQ(db::backupProven(database.target(), path(u"copy.mdb"_s)),
              db::countRows(database.target()));
    expectNothingButTheCopy();
}

TEST_F(Proofs, ACopyOfADamagedDatabaseReplacesNone)
{
    test::writeFile(path(u"copy.mdb"_s), "the last good one");
    test::spoilRows(database.file());
    EXPECT_EQ(raisedBy([&] { db::backupProven(database.target(), path(u"copy.mdb"_s)); }).number(),
              ErrorNumber::NotADatabase);
    EXPECT_EQ(test::readFile(path(u"copy.mdb"_s)), "the last good one");
    expectNothingButTheCopy();
}

TEST_F(Proofs, ACopyHoldsWhatAnotherProgramWroteMeanwhileOrNot)
{
    HelperProcess helper(u"write-forever"_s, database.file());
    ASSERT_FALSE(helper.line().isEmpty());
    const db::RowCounts counts = db::backupProven(database.target(), path(u"copy.mdb"_s));
    EXPECT_GT(counts[u"tblLog"_s], 300);
    EXPECT_EQ(counts[u"tblOther"_s], 1);
    helper.kill();
}

TEST(Proof, FindsTheTableThatDiffers)
{
    using Counts = db::RowCounts;
    const QString a = u"a"_s;
    const QString b = u"b"_s;
    const std::tuple<Counts, Counts, Counts, QString> cases[] = {
        {{{b, 5}}, {{b, 5}}, {{b, 5}}, {}},
        {{{a, 3}}, {{a, 3}}, {{a, 5}}, {}},
        {{{a, 3}}, {{a, 5}}, {{a, 3}}, {}},
        {{{a, 2}}, {{a, 3}}, {{a, 5}}, a},
        {{{a, 6}}, {{a, 3}}, {{a, 5}}, a},
        {{{a, 1}}, {{a, 1}, {b, 0}}, {{a, 1}, {b, 0}}, b},
        {{{a, 1}}, {{a, 1}, {b, 7}}, {{a, 1}}, {}},
        {{{a, 1}, {b, 9}}, {{a, 1}}, {{a, 1}, {b, 9}}, {}}};
    for (const auto &[copy, before, after, differs] : cases)
        EXPECT_EQ(db::tableThatDiffers(copy, before, after), differs);
}

TEST_F(Proofs, AClosedFileLetsNobodyInIsCopiedAndReplaced)
{
    const auto closing = [](const QString &file) {
        return raisedBy([&] { const db::ClosedFile closed(file); }).number();
    };
    {
        const db::ClosedFile closed(database.file());
        EXPECT_EQ(raisedBy([&] { (void)database.connect(); }).number(), ErrorNumber::FileInUse);
        EXPECT_TRUE(db::isHeld(database.file()));
    }
    {
        const db::Connection connection = database.connect();
        EXPECT_EQ(closing(database.file()), ErrorNumber::FileInUse);
    }
    EXPECT_EQ(closing(path(u"none.mdb"_s)), ErrorNumber::FileMissing);

    const QByteArray before = test::readFile(database.file());
    {
        db::ClosedFile closed(database.file());
        test::writeFile(path(u"copy.mdb"_s), "an older copy");
        closed.copyTo(path(u"copy.mdb"_s));
        EXPECT_EQ(test::readFile(path(u"copy.mdb"_s)), before);
        EXPECT_EQ(raisedBy([&] { closed.copyTo(path(u"no folder/copy.mdb"_s)); }).number(),
                  ErrorNumber::FileMissing);
        EXPECT_EQ(raisedBy([&] { closed.replaceBy(path(u"none.mdb"_s)); }).number(),
                  ErrorNumber::FileMissing);
        EXPECT_EQ(test::readFile(database.file()), before);
        test::writeFile(path(u"new.mdb"_s), "another one");
        closed.replaceBy(path(u"new.mdb"_s));
    }
    EXPECT_EQ(test::readFile(database.file()), "another one");
    expectNothingButTheCopy();
}
