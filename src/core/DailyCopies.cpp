#include "core/DailyCopies.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace copies {
namespace {

int numberOf(db::Connection &connection, QStringView option, int least, int usual)
{
    const db::Recordset rows = connection.Open(
        u"Select itemValue from tblSysOption where SysOption = ?"_s, {option.toString()});
    bool isNumber = false;
    const int number = rows.isEmpty() ? 0 : rows.row(0).text(u"itemValue").toInt(&isNumber);
    return isNumber && number >= least ? number : usual;
}

/// Adds the newest day of each of the latest periods. newestFirst: sorted so.
void keepNewest(const QList<QDate> &newestFirst, int periods,
                const std::function<QDate(QDate)> &periodOf, QSet<QDate> &kept)
{
    QDate last;
    for (const QDate day : newestFirst) {
        const QDate period = periodOf(day);
        if (period == last)
            continue;
        if (periods-- == 0)
            return;
        kept.insert(day);
        last = period;
    }
}

} // namespace

KeepRule keepRuleOf(db::Connection &connection)
{
    const KeepRule usual;
    return {.days = numberOf(connection, DaysOption, 1, usual.days),
            .weeks = numberOf(connection, WeeksOption, 0, usual.weeks),
            .months = numberOf(connection, MonthsOption, 0, usual.months),
            .restores = numberOf(connection, RestoresOption, 1, usual.restores),
            .daily = numberOf(connection, DailyOption, 0, 1) != 0};
}

QString inWords(const KeepRule &rule)
{
    if (!rule.daily)
        return u"Starts of the program keep no copy of the day."_s;
    const auto counted = [](int number, const QString &one) {
        return number == 1 ? u"1 "_s + one : u"%1 %2s"_s.arg(number).arg(one);
    };
    return u"Each day's first start keeps a copy in the folder Data/Backup/Daily. The newest of each of the last %1, %2 and %3 stays."_s
        .arg(counted(rule.days, u"day"_s), counted(rule.weeks, u"week"_s),
             counted(rule.months, u"month"_s));
}

QList<QDate> superfluous(const QList<QDate> &days, QDate today, const KeepRule &rule)
{
    QList<QDate> past;
    std::ranges::copy_if(days, std::back_inserter(past), [&](QDate day) { return day <= today; });
    std::ranges::sort(past, std::greater());
    QSet<QDate> kept;
    keepNewest(
        past, rule.days, [](QDate day) { return day; }, kept);
    keepNewest(
        past, rule.weeks, [](QDate day) { return day.addDays(1 - day.dayOfWeek()); }, kept);
    keepNewest(
        past, rule.months, [](QDate day) { return QDate(day.year(), day.month(), 1); }, kept);
    past.removeIf([&](QDate day) { return kept.contains(day); });
    return past;
}

QString nameOfDay(QDate day)
{
    return u"Quorvantis "_s + day.toString(Qt::ISODate) + u".mdb"_s;
}

QList<QDate> daysIn(const QString &folder)
{
    static const QRegularExpression name(u"^Quorvantis (\\d{4}-\\d\\d-\\d\\d)\\.mdb$"_s);
    QList<QDate> days;
    const QStringList files = QDir(folder).entryList(QDir::Files);
    for (const QString &file : files) {
        const QDate day = QDate::fromString(name.match(file).captured(1), Qt::ISODate);
        if (day.isValid())
            days.append(day);
    }
    return days;
}

void prune(const QString &folder, QDate today, const KeepRule &rule)
{
    const QList<QDate> days = superfluous(daysIn(folder), today, rule);
    for (const QDate day : days)
        sys::removeIfThere(QDir(folder).filePath(nameOfDay(day)));
}

QString startCopiesFolder()
{
    return base::applicationPath(u"\\Data\\Backup\\Daily"_s);
}

} // namespace copies
