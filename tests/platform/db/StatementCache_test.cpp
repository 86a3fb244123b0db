#include "platform/db/StatementCache.h"

#include "platform/db/Connection.h"
#include "platform/db/TestDatabase.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class Caching : public testing::Test
{
protected:
    Caching()
        : data(database.connect())
    {
        data.Execute(
            u"Create table tblCount (EquipmentID integer, CountValue integer, Note text(20))"_s);
    }

    /// How many statements an action has compiled.
    template<class Action>
    int prepared(Action &&action)
    {
        const int before = data.preparations();
        action();
        return data.preparations() - before;
    }

    test::TestDatabase database;
    db::Connection data;
};

TEST_F(Caching, TenThousandStatementsOfOneShapePrepareOnce)
{
    const int count = prepared([&] {
        data.BeginTrans();
        for (int i = 0; i < 10'000; ++i)
            data.Execute(
                u"Insert into tblCount(EquipmentID, CountValue, Note) Values(%1,'%2','n%1')"_s
                    .arg(i)
                    .arg(i * 2));
        data.CommitTrans();
    });
    EXPECT_EQ(count, 1);
    const db::Row all =
        data.Open(u"Select sum(CountValue) as s, max(Note) as n from tblCount"_s).row(0);
    EXPECT_EQ(all.integer(u"s"), 99'990'000);
    EXPECT_EQ(all.text(u"n"), u"n9999"_s);
    const auto insert = [&](const QVariant &note) {
        data.Execute(u"Insert into tblCount(EquipmentID, Note) values(?, ?)"_s, {1, note});
    };
    insert(u"a"_s);
    EXPECT_EQ(prepared([&] { insert(QVariant()); }), 0) << "Null goes where a value went";
}

TEST_F(Caching, LiteralsThatStandInTheTextHaveAPlanEach)
{
    for (int i = 0; i < 5; ++i)
        data.Execute(u"Insert into tblCount(EquipmentID) values(%1)"_s.arg(i));
    const auto top = [this](int n) {
        return data.Open(u"Select top %1 EquipmentID from tblCount order by EquipmentID"_s.arg(n))
            .RecordCount();
    };
    const int count = prepared([&] {
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(top(1), 1);
            EXPECT_EQ(top(3), 3);
        }
    });
    EXPECT_LE(count, 2);
}

TEST_F(Caching, ChangedTablesCountAtOnceOnEveryConnectionThatKeepsStatementsOnThem)
{
    db::Connection lookup = database.connect();
    const auto columns = [](db::Connection &connection) {
        return connection.Open(u"Select * from tblCount"_s).columnCount();
    };
    EXPECT_EQ(columns(data) + columns(lookup), 3 + 3);
    lookup.Execute(u"Alter table tblCount add column Extra integer"_s);
    EXPECT_EQ(columns(data) + columns(lookup), 4 + 4);
    data.Execute(u"Insert into tblCount(Extra) values(5)"_s);
    lookup.Execute(u"Alter table tblCount drop column Extra"_s);
    EXPECT_EQ(columns(data), 3);
    data.Execute(u"Drop table tblCount"_s);
    EXPECT_THROW(columns(lookup), db::DbError);
    lookup.Execute(u"Create table tblCount (Other integer)"_s);
    EXPECT_EQ(data.Open(u"Select * from tblCount"_s).columnName(0), u"Other"_s);
}

TEST_F(Caching, ChangesOfTablesWorkInsideATransactionAndStay)
{
    data.BeginTrans();
    data.Execute(u"Insert into tblCount(EquipmentID) values(1)"_s);
    data.Execute(u"Create table tblWotemp (strname nvarchar(1), strid nvarchar(15))"_s);
    data.Execute(u"Insert into tblWotemp(strname, strid) values('W', '17')"_s);
    EXPECT_EQ(data.Open(u"Select * from tblWotemp where strID = '17'"_s).RecordCount(), 1);
    data.RollbackTrans();
    EXPECT_EQ(data.Open(u"Select * from tblWotemp"_s).RecordCount(), 0);
    EXPECT_EQ(data.Open(u"Select * from tblCount"_s).RecordCount(), 0);
}

TEST_F(Caching, ManyShapesGiveWayAndStillRun)
{
    data.Execute(u"Insert into tblCount(EquipmentID) values(1)"_s);
    const auto rows = [this](const QString &list) {
        return data.Open(u"Select * from tblCount where EquipmentID in ("_s + list + u")"_s)
            .RecordCount();
    };
    for (int length = 1; length <= db::StatementCache::MaximumPlans + 50; ++length)
        ASSERT_EQ(rows(QStringList(length, u"1"_s).join(u',')), 1);
    EXPECT_EQ(prepared([&] { EXPECT_EQ(rows(u"7"_s), 0); }), 1);
    EXPECT_EQ(prepared([&] { EXPECT_EQ(rows(u"8"_s), 0); }), 0);
}

TEST_F(Caching, AShapeThatRefusesParametersRunsWithItsLiterals)
{
    data.Execute(u"Insert into tblCount(EquipmentID, Note) values(3, 'ab')"_s);
    const auto value = [this](const QString &expression, const QVariantList &values = {}) {
        return data.Open(u"Select "_s + expression + u" as w from tblCount"_s, values).value(0, 0);
    };
    // The type of none of these can be told from the statement.
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(value(u"IIf('x' + 'y' = 'xy', 'same', 'other')"_s), u"same"_s);
        EXPECT_EQ(value(u"IIf(EquipmentID = ?, ?, 'other')"_s, {3, u"it's"_s}), u"it's"_s);
        EXPECT_EQ(value(u"Note + '-' + ?"_s, {u"c"_s}), u"ab-c"_s);
    }
}

/// The bounds by themselves, without any database.
TEST(StatementCache, DropsWhatWasUsedLongestAgo)
{
    db::StatementCache cache;
    const auto fill = [&cache](const QString &key) {
        db::Shape &shape = cache.shape(key);
        if (shape.plans.empty())
            cache.add(shape, std::make_unique<db::CachedPlan>());
    };
    for (int i = 0; i < db::StatementCache::MaximumPlans; ++i)
        fill(QString::number(i));
    EXPECT_FALSE(cache.shape(u"0"_s).plans.empty());
    fill(u"one more"_s);
    EXPECT_EQ(cache.planCount(), db::StatementCache::MaximumPlans);
    EXPECT_FALSE(cache.shape(u"0"_s).plans.empty());
    EXPECT_TRUE(cache.shape(u"1"_s).plans.empty());
    // Texts without a plan don't heap up either.
    for (int i = 0; i < 3 * db::StatementCache::MaximumPlans; ++i)
        (void)cache.shape(u"strange %1"_s.arg(i));
    EXPECT_TRUE(cache.shape(u"0"_s).plans.empty());
    EXPECT_EQ(cache.planCount(), 0);
}

TEST(StatementCache, KeepsAFewPlansOfOneShapeByTheirFixedLiterals)
{
    db::StatementCache cache;
    const auto literals = [](int value) {
        return std::vector<sql::Literal>{{qint64(value)}, {u"x"_s}};
    };
    for (int i = 0; i < db::StatementCache::MaximumPlansOfShape + 1; ++i) {
        auto plan = std::make_unique<db::CachedPlan>();
        plan->plan.fixedLiterals = {0};
        plan->fixedValues = {qint64(i)};
        cache.add(cache.shape(u"top"_s), std::move(plan));
    }
    EXPECT_EQ(cache.planCount(), db::StatementCache::MaximumPlansOfShape);
    EXPECT_EQ(cache.shape(u"top"_s).find(literals(0)), nullptr);
    ASSERT_NE(cache.shape(u"top"_s).find(literals(1)), nullptr);
    EXPECT_EQ(cache.shape(u"top"_s).find(literals(1))->fixedValues.front(), QVariant(1LL));
    EXPECT_EQ(cache.shape(u"top"_s).find(literals(99)), nullptr);
    cache.clear();
    EXPECT_EQ(cache.planCount(), 0);
    EXPECT_TRUE(cache.shape(u"top"_s).plans.empty());
}

} // namespace
