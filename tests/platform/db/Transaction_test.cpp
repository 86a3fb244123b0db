#include "platform/db/Connection.h"

#include "platform/db/HelperProcess.h"
#include "platform/db/Maintenance.h"
#include "platform/db/TestDatabase.h"
#include "support/Raised.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using test::HelperProcess;
using test::raisedBy;
namespace ErrorNumber = db::ErrorNumber;

/// The two connections of the program to one file.
class Transaction : public testing::Test
{
protected:
    Transaction()
        : data(database.connect())
        , lookup(database.connect())
    {
        data.Execute(
            u"Create table tblLog (Number integer not null primary key, Side integer, Picture longbinary)"_s);
        insert(data, 1);
    }

    static void insert(db::Connection &connection, int number)
    {
        connection.Execute(u"Insert into tblLog(Number, Side) values(?, 0)"_s, {number});
    }
    static QString numbers(db::Connection &connection)
    {
        QStringList result;
        for (const db::Row row : connection.Open(u"Select Number from tblLog order by Number"_s))
            result << row.text(u"Number");
        return result.join(u',');
    }
    static int side(db::Connection &connection)
    {
        return static_cast<int>(
            connection.Open(u"Select Side from tblLog where Number = 1"_s).row(0).integer(u"Side"));
    }

    test::TestDatabase database;
    db::Connection data;
    db::Connection lookup;
};

TEST_F(Transaction, WrongOrderIsRefusedAndChangesNothing)
{
    EXPECT_EQ(raisedBy([&] { data.CommitTrans(); }).number(), ErrorNumber::WrongTransactionState);
    EXPECT_EQ(raisedBy([&] { data.RollbackTrans(); }).number(), ErrorNumber::WrongTransactionState);
    data.BeginTrans();
    insert(data, 2);
    EXPECT_EQ(raisedBy([&] { data.BeginTrans(); }).number(), ErrorNumber::WrongTransactionState);
    EXPECT_TRUE(data.InTransaction());
    data.CommitTrans();
    EXPECT_FALSE(data.InTransaction());
    EXPECT_EQ(numbers(lookup), u"1,2"_s);
}

TEST_F(Transaction, WhatTheOtherConnectionWritesMeanwhileIsSeenAtOnceAndStays)
{
    data.BeginTrans();
    insert(data, 2);
    insert(lookup, 3);
    EXPECT_EQ(numbers(data), u"1,2,3"_s);
    EXPECT_EQ(numbers(lookup), u"1,3"_s);
    data.RollbackTrans();
    EXPECT_EQ(numbers(data), u"1,3"_s);
}

TEST_F(Transaction, TwoWritersOfOneRowConflictAtOnce)
{
    data.BeginTrans();
    data.Execute(u"Update tblLog set Side = 5 where Number = 1"_s);
    QElapsedTimer timer;
    timer.start();
    for (const auto &statement :
         {u"Update tblLog set Side = 6 where Number = 1"_s, u"Delete from tblLog"_s}) {
        const base::Error error = raisedBy([&] { lookup.Execute(statement); });
        EXPECT_EQ(error.number(), ErrorNumber::LockConflict) << error.what();
        EXPECT_EQ(error.description(),
                  u"Another workstation is changing this record. Please try again in a moment."_s);
    }
    EXPECT_LT(timer.elapsed(), 5000);
    data.RollbackTrans();
    EXPECT_EQ(lookup.Execute(u"Update tblLog set Side = 6 where Number = 1"_s), 1);
    EXPECT_EQ(side(data), 6);
}

TEST_F(Transaction, AnotherProgramHoldsItsRowsOnlyAndItsTablesAreFound)
{
    HelperProcess helper(u"hold-row"_s, database.file(),
                         u"Update tblLog set Side = 99 where Number = 1"_s);
    ASSERT_EQ(helper.line(), u"holding"_s);
    EXPECT_EQ(
        raisedBy([&] { data.Execute(u"Update tblLog set Side = 1 where Number = 1"_s); }).number(),
        ErrorNumber::LockConflict);
    EXPECT_EQ(side(data), 0);
    insert(data, 2);
    EXPECT_EQ(numbers(lookup), u"1,2"_s);
    EXPECT_TRUE(helper.finish());
    EXPECT_EQ(data.Execute(u"Update tblLog set Side = 1 where Number = 1"_s), 1);

    EXPECT_EQ(raisedBy([&] { (void)data.Open(u"Select * from tblLog2"_s); }).number(),
              ErrorNumber::TableUnknown);
    HelperProcess adding(u"execute"_s, database.file(), u"Create table tblLog2 (Number long)"_s);
    ASSERT_EQ(adding.line(), u"executed"_s);
    EXPECT_EQ(data.Open(u"Select * from tblLog2"_s).RecordCount(), 0);
}

/// Killed in the middle of its work, a program leaves every committed pair, and no half one.
TEST(KilledProgram, LosesNothingThatWasCommitted)
{
    test::TestDatabase database;
    database.connect().Execute(u"Create table tblLog (Number integer, Side integer)"_s);
    database.connect().Execute(u"Create index iNumber on tblLog (Number)"_s);
    int committed = 0;
    for (int round = 0; round < 3; ++round) {
        HelperProcess helper(u"write-forever"_s, database.file());
        for (int i = 0; i < 50 + round * 37; ++i) {
            ASSERT_FALSE(helper.line().isEmpty());
            ++committed;
        }
        helper.kill();
        // What it committed between its last line that was read and its end is there too.
        db::Connection connection = database.connect();
        const db::Row row =
            connection.Open(u"Select count(*) as n, sum(Side) as s from tblLog"_s).row(0);
        const qint64 pairs = row.integer(u"s");
        EXPECT_EQ(row.integer(u"n"), 2 * pairs);
        EXPECT_GE(pairs, committed);
        committed = static_cast<int>(pairs);
        connection.Execute(u"Delete from tblLog where Number < 0"_s);
    }
    EXPECT_TRUE(db::validate(database.file()).damage.isEmpty());
}

TEST(FullDisk, IsToldAndLeavesTheFileSound)
{
    test::TestDatabase database;
    database.connect().Execute(u"Create table tblLog (Number integer, Picture longbinary)"_s);
    HelperProcess helper(u"fill-disk"_s, database.file());
    EXPECT_EQ(helper.line(), QString::number(ErrorNumber::DiskFull));
    helper.kill();
    db::Connection connection = database.connect();
    const qint64 kept = connection.Open(u"Select count(*) as n from tblLog"_s).row(0).integer(u"n");
    EXPECT_GT(kept, 0);
    EXPECT_LT(kept, 1000);
}

} // namespace
