#include "core/DailyCopies.h"

#include "core/CompanySession.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<QDate> everyDay(QDate first, QDate last)
{
    QList<QDate> days;
    for (QDate day = first; day <= last; day = day.addDays(1))
        days.append(day);
    return days;
}

/// The days that are left, one after the other.
QString keptOf(QList<QDate> days, const copies::KeepRule &rule)
{
    const QList<QDate> gone = copies::superfluous(days, {2024, 3, 15}, rule);
    days.removeIf([&](QDate day) { return gone.contains(day); });
    std::ranges::sort(days);
    QStringList texts;
    for (const QDate day : days)
        texts.append(day.toString(Qt::ISODate));
    return texts.join(u' ');
}

} // namespace

TEST(KeepRule, KeepsTheNewestOfEachDayWeekAndMonth)
{
    // 15 March 2024 is a Friday.
    const QList<QDate> all = everyDay({2023, 11, 20}, {2024, 3, 15});
    EXPECT_EQ(keptOf(all, {.days = 3, .weeks = 4, .months = 3}),
              u"2024-01-31 2024-02-25 2024-02-29 2024-03-03 2024-03-10 2024-03-13 2024-03-14 "
              "2024-03-15");
    EXPECT_EQ(keptOf(all, {.days = 1, .weeks = 0, .months = 0}), u"2024-03-15");
    // Periods without a copy don't count.
    const QList<QDate> rare{{2021, 5, 4}, {2022, 1, 3}, {2023, 12, 31}, {2024, 1, 1}};
    EXPECT_EQ(keptOf(rare, {.days = 2, .weeks = 2, .months = 3}),
              u"2022-01-03 2023-12-31 2024-01-01");
    EXPECT_EQ(keptOf(rare, {}), u"2021-05-04 2022-01-03 2023-12-31 2024-01-01");
    // Copies from days to come are left alone.
    EXPECT_EQ(
        keptOf({{2024, 3, 14}, {2024, 3, 15}, {2099, 1, 1}}, {.days = 1, .weeks = 0, .months = 0}),
        u"2024-03-15 2099-01-01");
}

TEST(KeepRule, OnlyCopiesOfDaysArePruned)
{
    const test::TestEnvironment environment;
    const QDir folder(environment.folder());
    const QStringList others{u"Quorvantis 2020-02-30.mdb"_s, u"Quorvantis.mdb"_s,
                             u"copy of Quorvantis 2020-01-01.mdb"_s,
                             u"Quorvantis 2020-01-01.mdb.txt"_s};
    for (const QString &name : others)
        test::writeFile(folder.filePath(name), "mine");
    for (const QDate day : everyDay({2024, 3, 1}, {2024, 3, 15}))
        test::writeFile(folder.filePath(copies::nameOfDay(day)), "a day");
    copies::prune(folder.path(), {2024, 3, 15}, {.days = 2, .weeks = 0, .months = 0});
    QStringList left = folder.entryList({u"*Quorvantis*"_s}, QDir::Files);
    for (const QString &name : others)
        EXPECT_TRUE(left.removeOne(name)) << name.toStdString();
    EXPECT_EQ(left, QStringList({u"Quorvantis 2024-03-14.mdb"_s, u"Quorvantis 2024-03-15.mdb"_s}));
}

using KeepRules = test::CompanySession;

TEST_F(KeepRules, AreOptionsOfTheCompany)
{
    EXPECT_EQ(copies::keepRuleOf(*gcnData), copies::KeepRule());
    const auto set = [](const QStringList &values) {
        const QStringView options[] = {copies::DaysOption, copies::WeeksOption,
                                       copies::MonthsOption, copies::RestoresOption,
                                       copies::DailyOption};
        for (qsizetype at = 0; at < values.size(); ++at)
            SetOption(options[at].toString(), values[at], false);
        return copies::keepRuleOf(*gcnData);
    };
    EXPECT_EQ(set(u"2 0 24 1 0"_s.split(u' ')), (copies::KeepRule{2, 0, 24, 1, false}));
    EXPECT_EQ(set(u"0 some -1 0 "_s.split(u' ')), copies::KeepRule());
}
