#pragma once

#include <QDate>
#include <QString>
#include <array>

/// The calendar half of the next-date calculation: pure functions over dates and flags. Arrays are
/// 1-based, so element 0 is never looked at, and an element counts as selected only when it is 1.
/// Weekdays are numbered from Sunday, 1, to Saturday, 7.
namespace scheduling {

using Days = std::array<int, 8>;
using Weeks = std::array<int, 6>;
using Months = std::array<int, 13>;
using DomDays = std::array<int, 6>;

/// What a service asks of its dates.
struct Pattern
{
    Days days{};
    Weeks weeks{};
    Months months{};
    int dom = 0; ///< not 0: the days of the month rule, and the other arrays are not looked at
    DomDays domDays{};
};

/// Adds an interval of days, weeks, months or years (period "D", "W", "M", "Y"); a day that the
/// target month lacks becomes its last. Any other period gives the zero date. Raises Overflow
/// beyond the year 9999.
[[nodiscard]] QDate Addday(const QString &Period, int Interval, QDate StartDate);

/// The block of the month that a day counts into. The quotient by seven is rounded, not cut off,
/// so a block does not begin with its first day: days 4 to 6 count as week 2 and day 7 as week 1.
[[nodiscard]] int GetWeekNo(QDate Date);

/// The date if its month is selected, else the first day of the next month that is. At least one
/// month must be selected.
[[nodiscard]] QDate CheckMonth(const Months &months, QDate Date);
/// The date if its week is selected, else the first day of the next selected week of this month, or
/// the first of the next month, with MonthChanged set.
[[nodiscard]] QDate CheckWeek(const Weeks &weeks, QDate Date, bool &MonthChanged);
/// Walks to the next selected weekday, but not into the next month (MonthChanged) nor past the
/// weekday of the month's first day (WeekChanged), where the months and weeks have to be asked
/// again.
[[nodiscard]] QDate CheckDay(const Days &days, QDate Date, bool &MonthChanged, bool &WeekChanged);
/// The first date, from this one on, whose day of the month is listed. Raises InvalidCall when no
/// listed day occurs in any month.
[[nodiscard]] QDate CheckDom(const DomDays &domDays, QDate Date);
/// Pushes the date forward until month, week and weekday are met. Raises InvalidCall when the
/// pattern meets no date at all.
void CheckSchDate(const Months &months, const Weeks &weeks, const Days &days, QDate &Date);

/// The next date of a calendar service: base plus interval, pushed forward to the pattern. The
/// pattern must be complete: listed days with dom, else a month, a week and a day.
[[nodiscard]] QDate nextDate(const Pattern &pattern, const QString &period, int interval,
                             QDate base);

} // namespace scheduling
