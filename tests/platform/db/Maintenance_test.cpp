#include "platform/db/Maintenance.h"

#include "platform/db/FileCheck.h"
#include "platform/db/HelperProcess.h"
#include "platform/db/TestDatabase.h"
#include "support/Damage.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using test::HelperProcess;
using test::raisedBy;
namespace ErrorNumber = db::ErrorNumber;

class Maintenance : public testing::Test
{
protected:
    Maintenance()
    {
        db::Connection data = database.connect();
        data.Execute(
            u"Create table tblLog (ID counter primary key, Name text(30), Flag yesno, Picture longbinary)"_s);
        data.Execute(u"Create index iName on tblLog (Name)"_s);
        data.BeginTrans();
        for (int i = 0; i < 500; ++i)
            data.Execute(u"Insert into tblLog(Name, Flag, Picture) values(?, '1', ?)"_s,
                         {u"Name %1"_s.arg(i), QByteArray(2000, static_cast<char>(i))});
        data.CommitTrans();
    }

    [[nodiscard]] QString path(const QString &name) const { return database.path(name); }
    [[nodiscard]] QStringList files() const { return database.files(); }
    /// A copy is whole when it opens, finds the same rows by its index and by hand, and takes rows.
    void expectWhole(const QString &file, int atLeast = 500) const
    {
        db::Target target = database.target();
        target.file = file;
        {
            db::Connection copy(target);
            const auto first = [&copy](const QString &statement) {
                return copy.Open(statement).value(0, 0);
            };
            const qint64 rows = first(u"Select count(*) from tblLog"_s).toLongLong();
            EXPECT_GE(rows, atLeast);
            EXPECT_EQ(first(u"Select Picture from tblLog where Name = 'NAME 77'"_s),
                      QByteArray(2000, 'M'));
            EXPECT_GT(
                copy.Insert(u"Insert into tblLog(Name, Flag) values('new', '1')"_s, {}, u"ID"_s),
                rows);
            EXPECT_EQ(first(u"Select Flag from tblLog where Name = 'new'"_s), -1LL);
            copy.Execute(u"Create table tblNew (Name text(10))"_s);
            copy.Execute(u"Insert into tblNew(Name) values('Abc')"_s);
            EXPECT_EQ(first(u"Select Name from tblNew where Name = 'aBC'"_s), u"Abc"_s);
        }
        EXPECT_EQ(db::validate(file).damage, QStringList());
    }
    /// Makes a backup, which leaves nothing but the copy.
    void expectBackedUp(int atLeast = 500) const
    {
        db::backupOnline(database.target(), path(u"copy.mdb"_s));
        expectWhole(path(u"copy.mdb"_s), atLeast);
        EXPECT_EQ(files(), (QStringList{u"copy.mdb"_s, u"test.mdb"_s}));
    }

    test::TestDatabase database;
};

TEST_F(Maintenance, CreateRefusesAFileThatExists)
{
    const QByteArray before = test::readFile(database.file());
    EXPECT_EQ(raisedBy([&] { db::createDatabase(database.target()); }).number(),
              ErrorNumber::FileExists);
    EXPECT_TRUE(test::readFile(database.file()) == before);
    db::Target target = database.target();
    target.file = path(u"no folder/new.mdb"_s);
    EXPECT_EQ(raisedBy([&] { db::createDatabase(target); }).number(), ErrorNumber::FileMissing);
}

TEST_F(Maintenance, ForcedWritesFollowTheTarget)
{
    const auto forced = [this](bool wanted) {
        db::Target target = database.target();
        target.forcedWrites = wanted;
        const db::Connection connection(target);
        // The setting stands in the flags of the file's first page.
        return (test::readFile(target.file).at(42) & 2) != 0;
    };
    EXPECT_FALSE(forced(false));
    EXPECT_TRUE(forced(true));
    EXPECT_FALSE(forced(false));
}

TEST_F(Maintenance, HeldMeansThatSomebodyIsAttached)
{
    EXPECT_EQ(raisedBy([&] { (void)db::isHeld(path(u"none.mdb"_s)); }).number(),
              ErrorNumber::FileMissing);
    EXPECT_FALSE(db::isHeld(database.file()));
    {
        const db::Connection connection = database.connect();
        EXPECT_TRUE(db::isHeld(database.file()));
    }
    EXPECT_FALSE(db::isHeld(database.file()));
    HelperProcess helper(u"attach"_s, database.file());
    ASSERT_EQ(helper.line(), u"attached"_s);
    EXPECT_TRUE(db::isHeld(database.file()));
    EXPECT_TRUE(helper.finish());
    EXPECT_FALSE(db::isHeld(database.file()));
}

TEST_F(Maintenance, BackupOfAFreeFileIsTheSameFile)
{
    const QByteArray before = test::readFile(database.file());
    db::backupOnline(database.target(), path(u"copy.mdb"_s));
    EXPECT_TRUE(test::readFile(path(u"copy.mdb"_s)) == before);
    EXPECT_TRUE(test::readFile(database.file()) == before);
    expectBackedUp();
}

TEST_F(Maintenance, BackupWhileTheFileIsInUseIsWhole)
{
    db::Connection data = database.connect();
    data.BeginTrans();
    data.Execute(u"Insert into tblLog(Name) values('uncommitted')"_s);
    db::backupOnline(database.target(), path(u"copy.mdb"_s));
    expectWhole(path(u"copy.mdb"_s));
    data.CommitTrans();
    EXPECT_EQ(data.Open(u"Select ID from tblLog where Name = 'uncommitted'"_s).RecordCount(), 1);
    // Once more, over the copy.
    expectBackedUp(501);
}

TEST_F(Maintenance, BackupWhileAnotherProgramWritesIsWhole)
{
    for (const auto &column : {u"Number"_s, u"Side"_s})
        database.connect().Execute(u"Alter table tblLog add column %1 integer"_s.arg(column));
    HelperProcess helper(u"write-forever"_s, database.file());
    ASSERT_FALSE(helper.line().isEmpty());
    for (int i = 0; i < 2; ++i)
        expectBackedUp();
    ASSERT_FALSE(helper.line().isEmpty());
    helper.kill();
    expectWhole(database.file());
}

/// A program that is killed during the engine's backup leaves the changes in a second file.
TEST_F(Maintenance, BackupAfterABackupThatNeverEndedIsWhole)
{
    HelperProcess helper(u"begin-backup"_s, database.file());
    ASSERT_EQ(helper.line(), u"begun"_s);
    database.connect().Execute(u"Insert into tblLog(Name) values('after')"_s);
    helper.kill();
    expectBackedUp(501);
}

TEST_F(Maintenance, ABackupThatFailsLeavesNothingBehind)
{
    const auto backingUp = [this](const QString &from, const QString &to = u"copy.mdb"_s) {
        db::Target target = database.target();
        target.file = path(from);
        return raisedBy([&] { db::backupOnline(target, path(to)); }).number();
    };
    EXPECT_EQ(backingUp(u"test.mdb"_s, u"no folder/copy.mdb"_s), ErrorNumber::FileMissing);
    EXPECT_EQ(backingUp(u"none.mdb"_s), ErrorNumber::FileMissing);
    // A folder in the place of the copy: the last step fails.
    ASSERT_TRUE(QDir().mkpath(path(u"copy.mdb/inside"_s)));
    EXPECT_EQ(backingUp(u"test.mdb"_s), ErrorNumber::FileAccess);
    const db::Connection data = database.connect();
    EXPECT_EQ(backingUp(u"test.mdb"_s), ErrorNumber::FileAccess);
    EXPECT_EQ(files(), QStringList{u"test.mdb"_s});
}

TEST_F(Maintenance, CompactWritesASmallerWholeCopy)
{
    database.connect().Execute(u"Delete from tblLog where ID > 100"_s);
    const qint64 sizeBefore = QFile(database.file()).size();
    db::compact(database.file(), path(u"compact.mdb"_s));
    EXPECT_EQ(QFile(database.file()).size(), sizeBefore);
    EXPECT_LT(QFile(path(u"compact.mdb"_s)).size(), QFile(database.file()).size());
    EXPECT_EQ(files(), (QStringList{u"compact.mdb"_s, u"test.mdb"_s}));
    expectWhole(path(u"compact.mdb"_s), 100);
    expectWhole(database.file(), 100);
}

TEST_F(Maintenance, CompactRefusesWhatItMustNotTouch)
{
    const auto compacting = [this](const QString &from, const QString &to) {
        return raisedBy([&] { db::compact(path(from), path(to)); }).number();
    };
    {
        const db::Connection data = database.connect();
        EXPECT_EQ(compacting(u"test.mdb"_s, u"compact.mdb"_s), ErrorNumber::FileInUse);
    }
    EXPECT_EQ(compacting(u"test.mdb"_s, u"test.mdb"_s), ErrorNumber::FileExists);
    EXPECT_EQ(compacting(u"none.mdb"_s, u"compact.mdb"_s), ErrorNumber::FileMissing);
    EXPECT_NE(compacting(u"test.mdb"_s, u"no folder/compact.mdb"_s), 0);
    test::writeFile(path(u"junk.mdb"_s), QByteArray(30000, 'j'));
    EXPECT_EQ(compacting(u"junk.mdb"_s, u"compact.mdb"_s), ErrorNumber::NotADatabase);
    EXPECT_EQ(files(), (QStringList{u"junk.mdb"_s, u"test.mdb"_s}));
    expectWhole(database.file());
}

TEST_F(Maintenance, ValidateNamesWhatIsWrong)
{
    EXPECT_EQ(db::validate(database.file()).damage, QStringList());
    {
        const db::Connection data = database.connect();
        EXPECT_EQ(raisedBy([&] { (void)db::validate(database.file()); }).number(),
                  ErrorNumber::FileInUse);
    }
    EXPECT_EQ(raisedBy([&] { (void)db::validate(path(u"none.mdb"_s)); }).number(),
              ErrorNumber::FileMissing);
    test::spoilRows(database.file(), 3);
    EXPECT_FALSE(db::validate(database.file()).damage.isEmpty());
    EXPECT_EQ(files(), QStringList{u"test.mdb"_s}) << "nothing is left beside it";
}

TEST_F(Maintenance, ValidateTellsHarmlessTracesFromDamage)
{
    // A table's list of its pages (kind 4) says of one that it is full, of another that it isn't:
    // what a program leaves that is killed between the two writes.
    QByteArray bytes = test::readFile(database.file());
    constexpr qsizetype pageSize = 8192;
    constexpr qsizetype tableAt = 26;
    constexpr qsizetype statesAt = 6560;
    int changed = 0;
    for (qsizetype page = 0; page < bytes.size(); page += pageSize) {
        if (bytes[page] != '\x04' || static_cast<uchar>(bytes[page + tableAt]) < 128)
            continue;
        bytes[page + statesAt] = static_cast<char>(bytes[page + statesAt] ^ 1);
        ++changed;
    }
    ASSERT_GT(changed, 0);
    test::writeFile(database.file(), bytes);
    const db::Findings findings = db::validate(database.file());
    EXPECT_EQ(findings.damage, QStringList());
    EXPECT_FALSE(findings.remarks.isEmpty());
}

TEST_F(Maintenance, AFileIsKnownAsWholeWithoutATouch)
{
    const QByteArray whole = test::readFile(database.file());
    EXPECT_NO_THROW(db::requireWholeDatabase(database.file(), {"TBLLOG"}));
    using Case = std::tuple<const char *, QByteArray, QByteArrayList>;
    for (const auto &[what, content, names] :
         {Case{"empty", {}, {}}, Case{"a letter", "Dear Sir or Madam", {}},
          Case{"zeros", QByteArray(100'000, '\0'), {}},
          Case{"half", whole.left(whole.size() / 2), {}},
          Case{"the first page", whole.left(8192), {}},
          Case{"less than a page", whole.left(500), {}}, Case{"another's", whole, {"TBLPART"}}}) {
        test::writeFile(path(u"bad.mdb"_s), content);
        EXPECT_EQ(raisedBy([&, &names = names] {
                      db::requireWholeDatabase(path(u"bad.mdb"_s), names);
                  }).number(),
                  ErrorNumber::NotADatabase)
            << what;
    }
    EXPECT_EQ(raisedBy([&] { db::requireWholeDatabase(path(u"none.mdb"_s)); }).number(),
              ErrorNumber::FileMissing);
    EXPECT_EQ(test::readFile(database.file()), whole);
}

} // namespace
