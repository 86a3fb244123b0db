#include "scheduling/GetNextScheduledDate.h"

#include "scheduling/Fleet.h"

namespace {

using namespace Qt::StringLiterals;

struct GetNextScheduledDateTest : test::Fleet
{
    GetNextScheduledDateTest() { machine(1); }

    static QVariantMap without(std::initializer_list<QStringView> columns)
    {
        QVariantMap values;
        for (const QStringView column : columns)
            values.insert(column.toString(), 0);
        return values;
    }
};

TEST_F(GetNextScheduledDateTest, CalendarServicesGoOnFromTheDateThatTheyAreRescheduledBy)
{
    // From March 1, which is no listed day.
    const QVariantMap dom{
        {u"DOM"_s, 1}, {u"Dom1"_s, 15}, {u"Dom2"_s, 30}, {u"LastDatePerformed"_s, day(2, 20)}};
    QVariantMap domOnly = without({u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"});
    domOnly.insert(dom);
    const struct
    {
        const char *name;
        QVariantMap row;
        QDateTime expected;
    } cases[] = {
        {"ten days from the completion", {}, day(3, 11)},
        {"ten days from the scheduled date", {{u"RenewalOn"_s, u"S"_s}}, day(3, 1)},
        {"a small s is an S", {{u"RenewalOn"_s, u"s"_s}}, day(3, 1)},
        {"D goes from the completion", {{u"RenewalOn"_s, u"D"_s}}, day(3, 11)},
        {"weeks", {{u"Period"_s, u"W"_s}, {u"EInterval"_s, 2}}, day(3, 15)},
        {"a time of day is dropped",
         {{u"LastDatePerformed"_s, base::wallClock(QDate(2024, 3, 1), QTime(17, 45))}},
         day(3, 11)},
        {"no last date: from today", {{u"LastDatePerformed"_s, QVariant()}}, day(3, 25)},
        // March 1 + 10 days is Monday the 11th, week 3 by the rounded count; the next selected week
        // begins on the 29th, a Friday, and the walk to Monday leaves the month.
        {"only Mondays of the fifth block",
         without({u"Sun", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat", u"FirstW", u"SecondW", u"ThirdW",
                  u"ForthW"}),
         day(4, 29)},
        {"listed days of the month", dom, day(3, 15)},
        {"listed days do without any flag", domOnly, day(3, 15)},
        {"listed days don't count without DOM", {{u"Dom1"_s, 15}}, day(3, 11)},
    };
    for (const auto &test : cases)
        EXPECT_EQ(GetNextScheduledDate(assigned(test.row)), test.expected) << test.name;
}

TEST_F(GetNextScheduledDateTest, TheGivenDateStandsForBothLastDates)
{
    for (const QString &renewal : {u"W"_s, u"S"_s})
        EXPECT_EQ(GetNextScheduledDate(assigned({{u"RenewalOn"_s, renewal}}), true, day(5, 1)),
                  day(5, 11));
    EXPECT_EQ(GetNextScheduledDate(4711), day(3, 15)) << "no such row";
}

TEST_F(GetNextScheduledDateTest, AMissingPatternIsToldAndGivesTheNextDay)
{
    struct Case
    {
        QVariantMap row;
        QString missing;
    };
    const QVariantMap noDays = without({u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"});
    const QVariantMap noWeeks = without({u"FirstW", u"SecondW", u"ThirdW", u"ForthW", u"LastW"});
    QVariantMap noMonths = without({u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug",
                                    u"Sep", u"Oct", u"Nov", u"Dece"});
    // The first that is missing is the one told.
    noMonths.insert(noDays);
    for (const Case &test :
         {Case{noDays, u"DOW(day of the week)"_s}, Case{noWeeks, u"WOM(week of the month)"_s},
          Case{noMonths, u"MOY(month of the year)"_s}}) {
        prompts.inform(
            u"Service \"1\" doesn't have any %1 selected in service schedule, system can "
            "not\ncalculate the next schedule date.\nService detail is given "
            "below.\nUnit No : - U1\nEquipment Name : - Mower 1\nService Job No : - "
            "1\nService Description : - Oil change"_s.arg(test.missing));
        EXPECT_EQ(GetNextScheduledDate(assigned(test.row)), day(3, 16));
    }
}

TEST_F(GetNextScheduledDateTest, ASpoiltFlagIsAnErrorAndNoDate)
{
    const struct
    {
        QString column;
        QVariant value;
        int number;
    } rows[] = {{u"Wed"_s, {}, 94}, {u"LastW"_s, {}, 94}, {u"Dece"_s, {}, 94},
                {u"DOM"_s, {}, 94}, {u"Dom3"_s, {}, 94},  {u"EInterval"_s, {}, 94},
                {u"DOM"_s, -1, 6},  {u"DOM"_s, 256, 6}};
    for (const auto &[column, value, number] : rows) {
        EXPECT_FALSE(GetNextScheduledDate(assigned({{column, value}})).isValid())
            << qPrintable(column);
        const ErrorReport report = errors.takeOne();
        EXPECT_EQ(report.ErrNumber, number) << qPrintable(column);
        EXPECT_EQ(report.ProcedureName, u"GetNextScheduledDate"_s);
        EXPECT_EQ(report.ModuleName, u"General Function"_s);
    }
}

TEST_F(GetNextScheduledDateTest, AMeterServiceHasTheDateOfTheReadingThatReachedItsTarget)
{
    const auto due = [this](const QString &period, const QVariant &target) {
        return GetNextScheduledDate(
            assigned({{u"Period"_s, period}, {u"NextScheduledCount"_s, target}, {u"Sun"_s, 0}}));
    };
    EXPECT_FALSE(due(u"H"_s, 0).isValid()) << "no reading";
    reading(1, u"Hours"_s, day(3, 2), 500);
    reading(1, u"Hours"_s, day(3, 5), 510);
    reading(1, u"Hours"_s, day(3, 5), 505);
    reading(1, u"Miles"_s, day(3, 9), 9000);
    reading(2, u"Hours"_s, day(3, 9), 9000);
    EXPECT_EQ(due(u"H"_s, 510), day(3, 5)) << "of one date the higher one is the current one";
    EXPECT_FALSE(due(u"H"_s, 511).isValid());
    EXPECT_EQ(due(u"H"_s, QVariant()), day(3, 5)) << "a missing target is 0";
    EXPECT_EQ(due(u"I"_s, 8000), day(3, 9));
    EXPECT_FALSE(due(u"h"_s, 1).isValid()) << "codes are exact: this one names no count type";
    reading(1, u"Hours"_s, day(3, 10), 100);
    EXPECT_FALSE(due(u"H"_s, 510).isValid()) << "a later reading is the current one, though lower";
}

} // namespace
