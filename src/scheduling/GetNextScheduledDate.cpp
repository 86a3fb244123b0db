#include "scheduling/GetNextScheduledDate.h"

#include "core/Conversions.h"
#include "core/Periods.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "scheduling/NextDate.h"

#include <limits>
#include <optional>

namespace {

using namespace Qt::StringLiterals;

/// The schedule of one assignment, as its row holds it.
struct Schedule
{
    qint64 equipment;
    QString period;
    bool fromLastScheduled;
    int interval;
    scheduling::Pattern pattern;
    qint64 target;
    QDateTime lastPerformed;
    QDateTime lastScheduled;
};

/// A flag or number of the schedule. The writers store 0 and never Null, so a Null means a row
/// that something else has spoilt, and no date must be made of it.
template<class Number>
Number required(const db::Row &row, QStringView column)
{
    if (row.isNull(column))
        throw base::Error(base::ErrorNumber::InvalidUseOfNull, u"Invalid use of Null"_s);
    const qint64 value = row.integer(column);
    if (value < std::numeric_limits<Number>::min() || value > std::numeric_limits<Number>::max())
        throw base::Error(base::ErrorNumber::Overflow, u"Overflow"_s);
    return static_cast<Number>(value);
}

template<class Array>
void readFlags(const db::Row &row, Array &flags, std::initializer_list<QStringView> columns)
{
    std::size_t index = 0;
    for (const QStringView column : columns)
        flags[++index] = required<qint16>(row, column);
}

Schedule readSchedule(const db::Row &row)
{
    Schedule schedule{};
    schedule.equipment = row.integer(u"EquipmentID");
    schedule.period = row.text(u"Period");
    schedule.fromLastScheduled = row.text(u"RenewalOn").compare(u"S", Qt::CaseInsensitive) == 0;
    schedule.interval = required<int>(row, u"EInterval");
    scheduling::Pattern &pattern = schedule.pattern;
    readFlags(row, pattern.days, {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"});
    readFlags(row, pattern.weeks, {u"FirstW", u"SecondW", u"ThirdW", u"ForthW", u"LastW"});
    readFlags(row, pattern.months,
              {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct",
               u"Nov", u"Dece"});
    pattern.dom = required<quint8>(row, u"DOM");
    readFlags(row, pattern.domDays, {u"Dom1", u"Dom2", u"Dom3", u"Dom4", u"Dom5"});
    schedule.target = row.integer(u"NextScheduledCount");
    schedule.lastPerformed = row.date(u"LastDatePerformed");
    schedule.lastScheduled = row.date(u"LastDateScheduled");
    return schedule;
}

bool isCalendar(const QString &code)
{
    const periods::Period *period = periods::ofCode(code);
    return period && !period->isCount;
}

/// What the schedule lacks, as the message names it; empty when it is complete.
QString missingPattern(const scheduling::Pattern &pattern)
{
    if (!CheckArray(pattern.months))
        return u"MOY(month of the year)"_s;
    if (!CheckArray(pattern.weeks))
        return u"WOM(week of the month)"_s;
    if (!CheckArray(pattern.days))
        return u"DOW(day of the week)"_s;
    return {};
}

/// The date of the newest reading when it has reached the target, else the zero date.
QDateTime reached(qint64 equipment, const QString &countType, qint64 target)
{
    const db::Recordset rows = gcnData->Open(
        u"Select top 1 countvalue,ChangeDate from tblequipmentcount where equipmentid = ? and "
        "counttype = ? order by changedate desc,countvalue desc"_s,
        {equipment, countType});
    if (rows.isEmpty() || target > rows.current().integer(u"countvalue"))
        return {};
    return rows.current().date(u"ChangeDate");
}

void tellMissingPattern(const QString &missing, qint64 serviceUsedID)
{
    const db::Recordset rows = gcnData->Open(
        u"Select Equipmentname,UnitNo,JobNo,Name from tblEquipment left join tblServiceUsed on "
        "tblEquipment.EquipmentID = tblServiceused.EquipmentID where ServiceusedID = ?"_s,
        {serviceUsedID});
    const db::Row row = rows.current();
    told::information(
        u"Service \"%1\" doesn't have any %2 selected in service schedule, system can not\n"
        "calculate the next schedule date.\n"
        "Service detail is given below.\n"
        "Unit No : - %3\n"
        "Equipment Name : - %4\n"
        "Service Job No : - %1\n"
        "Service Description : - %5"_s.arg(row.text(u"JobNo"), missing, row.text(u"UnitNo"),
                                           row.text(u"EquipmentName"), row.text(u"Name")));
}

/// With a given date, it stands for both last dates.
QDateTime nextOf(const Schedule &schedule, qint64 serviceUsedID,
                 const std::optional<QDateTime> &givenDate)
{
    if (!isCalendar(schedule.period))
        return reached(schedule.equipment, PeriodWord(schedule.period), schedule.target);

    const QDateTime last = givenDate.value_or(schedule.fromLastScheduled ? schedule.lastScheduled
                                                                         : schedule.lastPerformed);
    // The clock is asked only where it counts: a posting comes by for thousands of services.
    const QDate from = givenDate || last.isValid() ? last.date() : base::today();
    const QString missing =
        schedule.pattern.dom == 0 ? missingPattern(schedule.pattern) : QString();
    if (!missing.isEmpty()) {
        // An interval that runs over is an error before anything is said.
        (void)scheduling::Addday(schedule.period, schedule.interval, from);
        tellMissingPattern(missing, serviceUsedID);
        // Whole, so that a window of that day holds it.
        return base::wallClock(base::today().addDays(1));
    }
    return base::wallClock(
        scheduling::nextDate(schedule.pattern, schedule.period, schedule.interval, from));
}

QDateTime nextScheduledDate(qint64 ServiceUsedID, const std::optional<QDateTime> &givenDate)
{
    const db::Recordset rows = gcnData->Open(
        u"Select %1 from tblServiceUsed where ServiceUsedID = ?"_s.arg(scheduleColumns()),
        {ServiceUsedID});
    if (rows.isEmpty())
        return base::wallClock(base::today());
    return nextOf(readSchedule(rows.current()), ServiceUsedID, givenDate);
}

} // namespace

QString scheduleColumns()
{
    return u"ServiceUsedID, EquipmentID, Period, RenewalOn, EInterval, Sun, Mon, Tue, Wed, Thu, "
           "Fri, Sat, FirstW, SecondW, ThirdW, ForthW, LastW, Jan, Feb, Mar, Apr, May, Jun, Jul, "
           "Aug, Sep, Oct, Nov, Dece, DOM, Dom1, Dom2, Dom3, Dom4, Dom5, NextScheduledCount, "
           "LastDateScheduled, LastDatePerformed, NextScheduledDate, Inactive"_s;
}

QDateTime nextDateAfter(const db::Row &schedule, const QDateTime &scheduled,
                        const QDateTime &performed)
{
    Schedule moved = readSchedule(schedule);
    moved.lastScheduled = scheduled;
    moved.lastPerformed = performed;
    return nextOf(moved, schedule.integer(u"ServiceUsedID"), std::nullopt);
}

QDateTime GetNextScheduledDate(qint64 ServiceUsedID, bool UseGivenDate, const QDateTime &GivenDate)
{
    return base::trapped("General Function", "GetNextScheduledDate", QDateTime(), [&] {
        return nextScheduledDate(ServiceUsedID,
                                 UseGivenDate ? std::optional(GivenDate) : std::nullopt);
    });
}

void CheckMeterLogic(qint64 EquipmentID, const QString &CountType, qint64 NextScheduledCount,
                     QDateTime &Result)
{
    base::trapped("General Module", "CheckMeterLogic",
                  [&] { Result = reached(EquipmentID, CountType, NextScheduledCount); });
}
