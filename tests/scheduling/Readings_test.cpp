#include "scheduling/Readings.h"

#include "scheduling/Fleet.h"

namespace {

using namespace Qt::StringLiterals;

struct ReadingsTest : test::Fleet
{
    ReadingsTest() { machine(1); }

    qint64 waiting(const QString &period, qint64 target, const QVariantMap &more = {}) const
    {
        QVariantMap row{{u"Period"_s, period}, {u"NextScheduledCount"_s, target}};
        row.insert(more);
        return assigned(row);
    }
    static QVariant dateOf(qint64 service)
    {
        return value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s,
                     {service});
    }
};

TEST_F(ReadingsTest, AReadingDatesTheWaitingServicesThatItsMachineHasReached)
{
    reading(1, u"Miles"_s, day(3, 1), 2000);
    const qint64 spoilt = waiting(u"H"_s, 500, {{u"Sun"_s, QVariant()}});
    const qint64 reached = waiting(u"H"_s, 500);
    const qint64 notYet = waiting(u"H"_s, 501);
    const qint64 dated = waiting(u"H"_s, 400, {{u"NextScheduledDate"_s, day(2, 1)}});
    const qint64 byMiles = waiting(u"I"_s, 2000);
    const qint64 calendar = assigned();
    const qint64 elsewhere = waiting(u"H"_s, 1, {{u"EquipmentID"_s, 2}});

    readings::add(1, day(3, 10), u"Hours"_s, 500);

    EXPECT_EQ(dateOf(spoilt), day(3, 10)) << "a meter asks for no pattern";
    EXPECT_EQ(dateOf(reached), day(3, 10)) << "the reading's date, not today's";
    EXPECT_TRUE(dateOf(notYet).isNull());
    EXPECT_EQ(dateOf(dated), day(2, 1)) << "a date that is set doesn't move";
    EXPECT_EQ(dateOf(byMiles), day(3, 1)) << "other types are looked at again";
    EXPECT_TRUE(dateOf(calendar).isNull());
    EXPECT_TRUE(dateOf(elsewhere).isNull());
}

TEST_F(ReadingsTest, RemovesEqualReadingsTogetherAndNothingElse)
{
    for (int i = 0; i < 2; ++i)
        reading(1, u"Hours"_s, day(3, 10), 500);
    reading(1, u"Hours"_s, day(3, 10), 501);
    reading(1, u"Hours"_s, day(3, 11), 500);
    reading(1, u"Miles"_s, day(3, 10), 500);
    reading(2, u"Hours"_s, day(3, 10), 500);
    const qint64 service = waiting(u"H"_s, 100, {{u"NextScheduledDate"_s, day(3, 10)}});
    readings::remove(1, {day(3, 10), 500}, u"Hours"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 4);
    EXPECT_EQ(dateOf(service), day(3, 10));
}

TEST_F(ReadingsTest, ListsTheMetersThatWereNotReadForTheDelay)
{
    for (const int id : {2, 3, 4, 5, 6})
        machine(id, {{u"Inactive"_s, id == 4}});
    const auto service = [this](qint64 machine, const QString &period) {
        return assigned({{u"EquipmentID"_s, machine}, {u"Period"_s, period}});
    };
    service(1, u"H"_s);
    reading(1, u"Hours"_s, day(3, 1), 90);
    reading(1, u"Hours"_s, day(3, 5), 100);
    reading(1, u"Hours"_s, day(3, 5), 110);
    reading(1, u"Miles"_s, day(3, 4), 1000);
    service(2, u"H"_s);
    reading(2, u"Hours"_s, day(3, 14), 50);
    service(3, u"H"_s);
    service(4, u"H"_s);
    reading(4, u"Hours"_s, day(3, 1), 1);
    insert(u"tblWoServiceUsed"_s, {{u"ServiceUsedID"_s, service(5, u"H"_s)}});
    reading(5, u"Hours"_s, day(3, 1), 1);
    service(6, u"D"_s);
    reading(6, u"Hours"_s, day(3, 1), 1);

    const auto listed = [](int delay) {
        QStringList rows;
        for (const db::Row row : readings::due(delay))
            rows.append(row.text(u"UnitNo") + u' ' + row.text(u"CountType") + u' ' +
                        row.date(u"Last Date").toString(u"MM/dd") + u' ' + row.text(u"Last Count"));
        rows.sort();
        return rows;
    };
    EXPECT_EQ(listed(5), (QStringList{u"U1 Hours 03/05 110"_s, u"U1 Miles 03/04 1000"_s}))
        << "not read today; never read; inactive; on an order; without a count service";
    EXPECT_EQ(listed(0), (QStringList{u"U1 Hours 03/05 110"_s, u"U1 Miles 03/04 1000"_s,
                                      u"U2 Hours 03/14 50"_s}));
    EXPECT_EQ(listed(11), QStringList{u"U1 Miles 03/04 1000"_s})
        << "midnight of March 4 lies before half past nine";
    EXPECT_EQ(listed(12), QStringList());
    SetOption(u"COUNT_READING_DELAY"_s, u"  "_s, false);
    EXPECT_EQ(readings::delay(), 0);
    SetOption(u"COUNT_READING_DELAY"_s, 14, false);
    EXPECT_EQ(readings::delay(), 14);
}

TEST_F(ReadingsTest, ABatchThatFailsStoresNothing)
{
    waiting(u"H"_s, 1);
    machine(2);
    const readings::Entry entries[] = {{2, u"Hours"_s, 30}, {1, u"Hours"_s, 10}};
    failAt(u"Update tblServiceUsed"_s);
    EXPECT_THROW(readings::saveBatch(entries), base::Error);
    failAt({});
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 0);
    EXPECT_FALSE(gbInTransaction);
}

} // namespace
