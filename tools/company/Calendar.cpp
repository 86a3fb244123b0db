#include "company/Calendar.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

const QStringList dayNames = {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s};
const QStringList weekNames = {u"First"_s, u"Second"_s, u"Third"_s, u"Fourth"_s, u"Last"_s};
const QStringList monthNames = {u"Jan"_s, u"Feb"_s, u"Mar"_s, u"Apr"_s, u"May"_s, u"Jun"_s,
                                u"Jul"_s, u"Aug"_s, u"Sep"_s, u"Oct"_s, u"Nov"_s, u"Dec"_s};

template<std::size_t Size>
bool select(std::array<bool, Size> &flags, const QStringList &names, const QString &word)
{
    const auto index = names.indexOf(word);
    if (index < 0)
        return false;
    flags[index] = true;
    return true;
}

/// The block of the month that a day belongs to: 1 to 5. Days round to the nearest block.
int weekOfMonth(QDate date)
{
    const int day = date.day();
    return day % 7 == 0 ? day / 7 : static_cast<int>(std::lround(1 + day / 7.0));
}

} // namespace

Pattern::Pattern(const QString &text)
{
    QString group;
    int daysGiven = 0;
    for (QString word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (const auto colon = word.indexOf(u':'); colon >= 0) {
            group = word.left(colon);
            word = word.mid(colon + 1);
        }
        bool known = false;
        if (group == u"days"_s)
            known = select(days, dayNames, word);
        else if (group == u"weeks"_s)
            known = select(weeks, weekNames, word);
        else if (group == u"months"_s)
            known = select(months, monthNames, word);
        else if (group == u"dom"_s && daysGiven < 5)
            known = (daysOfMonth[daysGiven++] = word.toInt()) > 0;
        if (!known)
            throw base::Error(base::ErrorNumber::InvalidCall,
                              u"The pattern \"%1\" is not understood."_s.arg(text));
    }
    byDayOfMonth = daysGiven > 0;
    if (byDayOfMonth)
        return;
    const auto openWhenEmpty = [](auto &flags) {
        if (std::none_of(flags.begin(), flags.end(), [](bool flag) { return flag; }))
            flags.fill(true);
    };
    openWhenEmpty(days);
    openWhenEmpty(weeks);
    openWhenEmpty(months);
}

bool Pattern::matches(QDate date) const
{
    if (byDayOfMonth)
        return std::find(daysOfMonth.begin(), daysOfMonth.end(), date.day()) != daysOfMonth.end();
    return days[date.dayOfWeek() % 7] && months[date.month() - 1] && weeks[weekOfMonth(date) - 1];
}

QDate Pattern::firstFrom(QDate date) const
{
    while (!matches(date))
        date = date.addDays(1);
    return date;
}

QDate Pattern::lastBefore(QDate date) const
{
    do
        date = date.addDays(-1);
    while (!matches(date));
    return date;
}

QDate addInterval(QDate date, QChar period, int intervals)
{
    switch (period.unicode()) {
    case u'W':
        return date.addDays(7 * qint64(intervals));
    case u'M':
        return date.addMonths(intervals);
    case u'Y':
        return date.addYears(intervals);
    default:
        return date.addDays(intervals);
    }
}

int approximateDays(QChar period, int interval)
{
    switch (period.unicode()) {
    case u'W':
        return 7 * interval;
    case u'M':
        return 30 * interval;
    case u'Y':
        return 365 * interval;
    default:
        return interval;
    }
}

QVariant dateOrNull(QDate date)
{
    return date.isValid() ? QVariant(base::wallClock(date)) : QVariant();
}

Meter::Meter(QDate begin, int start, double perDay)
    : m_begin(begin)
    , m_start(start)
    , m_perDay(perDay)
{}

int Meter::at(QDate date) const
{
    // The swing of the year stays below the steady use, so that the sum always rises.
    constexpr double swingDays = 40;
    const auto season = [](double dayOfYear) {
        return swingDays * std::sin((dayOfYear - 105) * 2 * std::numbers::pi / 365.25);
    };
    const double day = static_cast<double>(m_begin.daysTo(date));
    const double first = m_begin.dayOfYear();
    const double used = day + season(first + day) - season(first);
    return m_start + static_cast<int>(std::floor(std::max(0.0, used) * m_perDay));
}

QDate Meter::reached(int value) const
{
    qint64 below = -1;
    qint64 reaching = 1;
    // The meter never falls, so that the day can be closed in from both sides.
    while (at(m_begin.addDays(reaching)) < value) {
        below = reaching;
        reaching *= 2;
    }
    while (reaching - below > 1) {
        const qint64 middle = (below + reaching) / 2;
        (at(m_begin.addDays(middle)) < value ? below : reaching) = middle;
    }
    return m_begin.addDays(reaching);
}

} // namespace company::sample
