#include "scheduling/NextDate.h"

#include "platform/base/Error.h"

#include <gtest/gtest.h>

namespace {

using namespace scheduling;

constexpr Days AllDays{0, 1, 1, 1, 1, 1, 1, 1};
constexpr Weeks AllWeeks{0, 1, 1, 1, 1, 1};
constexpr Months AllMonths{0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

enum { Sun = 1, Mon, Thu = 5, Fri };

template<class Array>
Array only(std::initializer_list<int> chosen)
{
    Array result{};
    for (const int element : chosen)
        result[element] = 1;
    return result;
}

TEST(CheckSchDate, FindsTheDate)
{
    constexpr auto all = AllMonths;
    const struct
    {
        const char *name;
        Months months;
        Weeks weeks;
        Days days;
        QDate from, expected;
    } rows[] = {
        {"first Monday", all, only<Weeks>({1}), only<Days>({Mon}), {2024, 3, 1}, {2024, 3, 4}},
        {"the 5th is week 2", all, only<Weeks>({1}), only<Days>({Mon}), {2024, 3, 5}, {2024, 4, 1}},
        {"the 7th is week 1", all, only<Weeks>({1}), only<Days>({Mon}), {2024, 3, 7}, {2024, 4, 1}},
        {"second Monday", all, only<Weeks>({2}), only<Days>({Mon}), {2024, 3, 1}, {2024, 3, 11}},
        {"third Sunday", all, only<Weeks>({3}), only<Days>({Sun}), {2024, 3, 1}, {2024, 3, 17}},
        {"a leap year", all, only<Weeks>({5}), only<Days>({Fri}), {2024, 2, 20}, {2024, 3, 29}},
        {"a common year", all, only<Weeks>({5}), only<Days>({Fri}), {2023, 2, 20}, {2023, 3, 31}},
        {"months", only<Months>({4, 12}), AllWeeks, AllDays, {2024, 5, 10}, {2024, 12, 1}},
        {"next year", only<Months>({4}), AllWeeks, AllDays, {2024, 5, 10}, {2025, 4, 1}},
        {"every flag leaves the date", all, AllWeeks, AllDays, {2024, 5, 10}, {2024, 5, 10}},
        {"Feb 29", only<Months>({2}), only<Weeks>({5}), AllDays, {2025, 3, 1}, {2028, 2, 29}},
        // A walk that leaves the month stops at its end: April 4 counts as week 2.
        {"month's end", all, only<Weeks>({1, 5}), only<Days>({Thu}), {2024, 3, 30}, {2024, 4, 4}},
        // From Thursday the 14th the walk reaches Friday, the weekday of the 1st: a new block
        // begins, and week 3 is not wanted. The next week 2 begins on Monday 8 April.
        {"a week is left", all, only<Weeks>({2}), only<Days>({Mon}), {2024, 3, 14}, {2024, 4, 8}},
        {"week 4", all, only<Weeks>({2, 4}), only<Days>({Mon}), {2024, 3, 14}, {2024, 3, 25}},
        {"for a new one", all, only<Weeks>({2}), only<Days>({Fri}), {2024, 3, 14}, {2024, 4, 12}},
    };
    for (const auto &row : rows) {
        QDate date = row.from;
        CheckSchDate(row.months, row.weeks, row.days, date);
        EXPECT_EQ(date, row.expected) << row.name;
    }
}

TEST(CheckSchDate, StopsWithAnErrorWhenNoDateEverFits)
{
    for (const auto &[months, weeks, days] : {std::tuple(AllMonths, Weeks{}, AllDays),
                                              {AllMonths, AllWeeks, Days{}},
                                              {Months{}, AllWeeks, AllDays}}) {
        QDate date(2024, 3, 1);
        EXPECT_THROW(CheckSchDate(months, weeks, days, date), base::Error);
    }
}

TEST(GetWeekNo, RoundsTheQuotientInsteadOfCuttingIt)
{
    const int expected[] = {0, 1, 1, 1, 2, 2, 2, 1, 2, 2, 2, 3, 3, 3, 2, 3,
                            3, 3, 4, 4, 4, 3, 4, 4, 4, 5, 5, 5, 4, 5, 5, 5};
    for (int day = 1; day <= 31; ++day)
        EXPECT_EQ(GetWeekNo(QDate(2024, 1, day)), expected[day]) << day;
}

TEST(Addday, FollowsTheCalendarOfItsPeriod)
{
    EXPECT_EQ(Addday("D", 10, QDate(2024, 2, 25)), QDate(2024, 3, 6));
    EXPECT_EQ(Addday("W", 2, QDate(2024, 12, 25)), QDate(2025, 1, 8));
    EXPECT_EQ(Addday("M", 1, QDate(2024, 1, 31)), QDate(2024, 2, 29));
    EXPECT_EQ(Addday("M", 1, QDate(2023, 1, 31)), QDate(2023, 2, 28));
    EXPECT_EQ(Addday("Y", 1, QDate(2024, 2, 29)), QDate(2025, 2, 28));
    for (const char *other : {"C", "d", ""})
        EXPECT_FALSE(Addday(other, 1, QDate(2024, 1, 31)).isValid()) << other;
    EXPECT_EQ(Addday("Y", 7975, QDate(2024, 1, 1)), QDate(9999, 1, 1));
    for (const int beyond : {7976, 99999})
        EXPECT_THROW((void)Addday("Y", beyond, QDate(2024, 1, 1)), base::Error);
}

TEST(CheckDom, TakesTheNextListedDayThatAMonthHas)
{
    EXPECT_EQ(CheckDom({0, 15, 30}, QDate(2024, 2, 20)), QDate(2024, 3, 15));
    EXPECT_EQ(CheckDom({0, 31}, QDate(2024, 4, 2)), QDate(2024, 5, 31));
    EXPECT_EQ(CheckDom({0, 1}, QDate(2024, 4, 2)), QDate(2024, 5, 1));
    EXPECT_EQ(CheckDom({0, 2, 0, 0, 0, 0}, QDate(2024, 4, 2)), QDate(2024, 4, 2));
    EXPECT_THROW((void)CheckDom({0, 0, 32, -1}, QDate(2024, 4, 2)), base::Error);
}

} // namespace
