#include "scheduling/NextDate.h"

#include "platform/base/Error.h"

#include <algorithm>
#include <cmath>

namespace scheduling {
namespace {

constexpr int Selected = 1;
/// The calendar repeats after this many years: what was not met by then is never met.
constexpr int YearsOfTheCalendar = 400;
constexpr int LastYear = 9999;

/// Sunday is 1, as the flags are numbered.
int weekday(QDate date)
{
    return date.dayOfWeek() % 7 + 1;
}

QDate firstOfNextMonth(QDate date)
{
    const QDate next = date.addMonths(1);
    return QDate(next.year(), next.month(), 1);
}

} // namespace

QDate Addday(const QString &Period, int Interval, QDate StartDate)
{
    QDate result;
    if (Period == u"D")
        result = StartDate.addDays(Interval);
    else if (Period == u"W")
        result = StartDate.addDays(qint64(Interval) * 7);
    else if (Period == u"M")
        result = StartDate.addMonths(Interval);
    else if (Period == u"Y")
        result = StartDate.addYears(Interval);
    else
        return {};
    if (!result.isValid() || result.year() > LastYear)
        throw base::Error(base::ErrorNumber::Overflow, QStringLiteral("Overflow"));
    return result;
}

int GetWeekNo(QDate Date)
{
    const int day = Date.day();
    const int whole = day % 7 == 0 ? 0 : 1;
    return static_cast<int>(std::lround(whole + day / 7.0));
}

QDate CheckMonth(const Months &months, QDate Date)
{
    int month = Date.month();
    if (months[month] == Selected)
        return Date;
    for (int year = Date.year(); year <= Date.year() + 1; ++year, month = 0) {
        while (++month <= 12)
            if (months[month] == Selected)
                return QDate(year, month, 1);
    }
    throw base::Error(base::ErrorNumber::InvalidCall,
                      QStringLiteral("The service schedule selects no month of the year."));
}

QDate CheckWeek(const Weeks &weeks, QDate Date, bool &MonthChanged)
{
    int week = GetWeekNo(Date);
    if (weeks[week] == Selected)
        return Date;
    while (++week <= 5) {
        if (weeks[week] != Selected)
            continue;
        const QDate first(Date.year(), Date.month(), (week - 1) * 7 + 1);
        if (first.isValid())
            return first;
    }
    MonthChanged = true;
    return firstOfNextMonth(Date);
}

QDate CheckDay(const Days &days, QDate Date, bool &MonthChanged, bool &WeekChanged)
{
    // The walk counts days and asks the calendar only at its end.
    const int dayOfMonth = Date.day();
    const int lastDay = Date.daysInMonth();
    int day = weekday(Date);
    const int firstWeekday = (day - dayOfMonth % 7 + 7) % 7 + 1;
    int steps = 0;
    while (days[day] != Selected) {
        day = day % 7 + 1;
        ++steps;
        if (dayOfMonth + steps > lastDay) {
            MonthChanged = true;
            break;
        }
        if (day == firstWeekday) {
            WeekChanged = true;
            break;
        }
    }
    return Date.addDays(steps);
}

QDate CheckDom(const DomDays &domDays, QDate Date)
{
    const auto begin = domDays.begin() + 1;
    if (std::none_of(begin, domDays.end(), [](int day) { return day >= 1 && day <= 31; }))
        throw base::Error(base::ErrorNumber::InvalidCall,
                          QStringLiteral("The service schedule lists no day of the month."));
    while (std::find(begin, domDays.end(), Date.day()) == domDays.end())
        Date = Date.addDays(1);
    return Date;
}

void CheckSchDate(const Months &months, const Weeks &weeks, const Days &days, QDate &Date)
{
    const int lastYear = Date.year() + YearsOfTheCalendar;
    bool askMonth = true;
    // A step may leave what an earlier one has found, so that all are asked again from there.
    for (;;) {
        if (Date.year() > lastYear)
            throw base::Error(
                base::ErrorNumber::InvalidCall,
                QStringLiteral("No date ever meets the months, weeks and days of the schedule."));
        if (askMonth)
            Date = CheckMonth(months, Date);
        askMonth = false;
        Date = CheckWeek(weeks, Date, askMonth);
        if (askMonth)
            continue;
        bool weekChanged = false;
        Date = CheckDay(days, Date, askMonth, weekChanged);
        if (!askMonth && !weekChanged)
            return;
    }
}

QDate nextDate(const Pattern &pattern, const QString &period, int interval, QDate base)
{
    QDate date = Addday(period, interval, base);
    if (pattern.dom != 0)
        return CheckDom(pattern.domDays, date);
    CheckSchDate(pattern.months, pattern.weeks, pattern.days, date);
    return date;
}

} // namespace scheduling
