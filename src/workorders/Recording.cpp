#include "workorders/Recording.h"

#include "core/Labour.h"
#include "core/Options.h"
#include "core/Tables.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "workorders/NumberList.h"
#include "workorders/RecordingSteps.h"

namespace recording {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Workorder";

/// The rule behind the grid of services, which is the screen's.
constexpr Label ServiceChange("grdRecordService_Change", "WorkOrder");

const QString NotSkipped = u"(skip is null or skip <> -1)"_s;

void setCompleted(qint64 id, bool completed)
{
    gcnData->Execute(u"Update tblWoServiceUsed set Completed = ? where NServiceUsedid = ?"_s,
                     {completed, id});
    gcnData->Execute(u"Update tblWoPartUsed set Used = ? where ServiceUsedid = ?"_s,
                     {completed, id});
}

/// An order of which a service changes is complete no longer.
void reopenOrderOf(const db::Row &service)
{
    gcnData->Execute(u"Update tblWorkorder Set CompletedDate = NULL, Complete = '0' Where "
                     "WorkorderNo = ? and (Complete <> 0 or CompletedDate is not Null)"_s,
                     {service[u"WorkorderNo"]});
}

/// Marks the parts of an order's services. The services are read first: with the query inside the
/// update the engine would go through the parts of all orders.
void setPartsUsed(qint64 order, bool used, const QString &condition = {})
{
    QList<qint64> services;
    for (const db::Row service : gcnData->Open(
             u"Select NServiceUsedID from tblWoServiceUsed where WorkorderNo = ?"_s + condition,
             {order}))
        services.append(service.integer(u"NServiceUsedID"));
    if (!services.isEmpty())
        gcnData->Execute(u"Update tblWoPartUsed set Used = ? where ServiceUsedID in (%1)"_s.arg(
                             numberList(services)),
                         {used});
}

/// The note behind a key; empty without a row.
QString noteBehind(const QString &table, const QString &keyColumn, qint64 key)
{
    const db::Recordset rows =
        gcnData->Open(u"Select [Note] From %1 where %2 = ?"_s.arg(table, keyColumn), {key});
    return rows.isEmpty() ? QString() : rows.current().text(u"Note");
}

int option(const QString &key)
{
    return GetOption(key, false).trimmed().toInt();
}

} // namespace

void writeCompletion(qint64 WorkorderNo, const std::optional<QDate> &date, bool withServices)
{
    gcnData->Execute(
        date ? u"Update tblWorkorder Set CompletedDate = ?, Complete = '1' Where WorkorderNo = ?"_s
             : u"Update tblWorkorder Set CompletedDate = ?, Complete = '0' Where WorkorderNo = ?"_s,
        {date ? QVariant(base::wallClock(*date)) : QVariant(), WorkorderNo});
    if (!withServices)
        return;
    const QString which = date ? u" and "_s + NotSkipped : QString();
    gcnData->Execute(u"Update tblWoServiceUsed Set Completed = ? Where WorkorderNo = ?"_s + which,
                     {date.has_value(), WorkorderNo});
    setPartsUsed(WorkorderNo, date.has_value(), which);
}

bool UpdateWorkorder(qint64 WorkorderNo, const std::optional<QDate> &date, bool withServices,
                     const Shown &shownDate)
{
    return onOrder("UpdateWorkorder", WorkorderNo, [&](const db::Row &now) {
        record::demandShown(now, u"CompletedDate"_s,
                            date ? QVariant(base::wallClock(*date)) : QVariant(), shownDate);
        writeCompletion(WorkorderNo, date, withServices);
    });
}

bool UpdateWorkorder2(qint64 WorkorderNo, const QString &Column, const QVariant &Value)
{
    return onOrder("UpdateWorkorder2", WorkorderNo, [&](const db::Row &) {
        gcnData->Execute(u"Update tblWorkorder set [%1] = ? where WorkorderNo = ?"_s.arg(Column),
                         {Value, WorkorderNo});
    });
}

bool UpdateWorkorderService(qint64 NServiceUsedID, const QString &Column, const QVariant &Value,
                            const Shown &shown)
{
    return onService("UpdateWorkorderService", NServiceUsedID, [&](const db::Row &now) {
        record::demandShown(now, Column, Value, shown);
        gcnData->Execute(
            u"Update tblWoServiceUsed set [%1] = ? where NServiceUsedid = ?"_s.arg(Column),
            {Value, NServiceUsedID});
    });
}

bool UpdateWorkorderServiceComplete(qint64 NServiceUsedID, bool completed)
{
    return onService("UpdateWorkorderServiceComplete", NServiceUsedID,
                     [&](const db::Row &) { setCompleted(NServiceUsedID, completed); });
}

bool completeService(qint64 NServiceUsedID, bool completed)
{
    return onService(ServiceChange, NServiceUsedID, [&](const db::Row &service) {
        reopenOrderOf(service);
        setCompleted(NServiceUsedID, completed);
        if (completed)
            gcnData->Execute(u"Update tblWoServiceUsed set Skip = '0' where NServiceUsedid = ?"_s,
                             {NServiceUsedID});
    });
}

bool skipService(qint64 NServiceUsedID, const QString &reason)
{
    return onService(ServiceChange, NServiceUsedID, [&](const db::Row &service) {
        reopenOrderOf(service);
        gcnData->Execute(
            u"Update tblWoServiceUsed set [Note] = ?, Skip = '1' where NServiceUsedid = ?"_s,
            {reason, NServiceUsedID});
        setCompleted(NServiceUsedID, false);
    });
}

bool skipAll(qint64 WorkorderNo, const QString &reason)
{
    return onOrder("cmdSkipAll_Click", WorkorderNo, [&](const db::Row &) {
        gcnData->Execute(
            u"Update tblWoServiceUsed set Skip  = '1',Completed = '0' where Workorderno = ?"_s,
            {WorkorderNo});
        setPartsUsed(WorkorderNo, false);
        gcnData->Execute(u"update tblWoServiceUsed set [Note] = ? where Workorderno = ?"_s,
                         {reason, WorkorderNo});
    });
}

bool UpdateWorkorderPart(const QString &PartID, qint64 NServiceUsedID, const QString &Column,
                         const QVariant &Value, const Shown &shown)
{
    return onService("UpdateWorkorderPart", NServiceUsedID, [&](const db::Row &) {
        const db::Recordset part = gcnData->Open(
            u"Select [%1] from tblWoPartUsed where ServiceUsedid = ? and Partid = ?"_s.arg(Column),
            {NServiceUsedID, PartID});
        if (part.isEmpty())
            throw InTheWay(u"Part \"%1\" has been removed from this service on another "
                           "workstation. Nothing was stored."_s.arg(PartID));
        record::demandShown(part.current(), Column, Value, shown);
        gcnData->Execute(
            u"Update tblWoPartUsed set [%1] = ? where ServiceUsedid = ? and Partid = ?"_s.arg(
                Column),
            {Value, NServiceUsedID, PartID});
    });
}

bool updateNote(qint64 NServiceUsedID, const QString &note, const Shown &shown)
{
    return onService("txtRecordNote_Validate", NServiceUsedID, [&](const db::Row &) {
        // A memo stands beside its row, so it is read on its own.
        if (shown && noteOf(NServiceUsedID) != shown->toString())
            throw record::Conflict({{u"Note"_s, noteOf(NServiceUsedID), note}});
        gcnData->Execute(u"update tblWoServiceUsed set [Note] = ? where NserviceUsedID = ?"_s,
                         {note, NServiceUsedID});
    });
}

bool updateScheduleNote(qint64 ServiceUsedID, const QString &note, const Shown &shown)
{
    return together(
        {"txtGenServiceNote_Validate", "WorkOrder"},
        [&] {
            if (shown && scheduleNoteOf(ServiceUsedID) != shown->toString())
                throw record::Conflict({{u"Note"_s, scheduleNoteOf(ServiceUsedID), note}});
            if (gcnData->Execute(u"update tblServiceUsed set [Note] = ? where ServiceUsedID = ?"_s,
                                 {note, ServiceUsedID}) == 0)
                throw Gone(u"This service has been removed from its machine on another "
                           "workstation. Nothing was stored."_s);
        },
        [] { return u"this service"_s; });
}

QString noteOf(qint64 NServiceUsedID)
{
    return noteBehind(u"tblWoServiceUsed"_s, u"NServiceusedID"_s, NServiceUsedID);
}

QString scheduleNoteOf(qint64 ServiceUsedID)
{
    return noteBehind(u"tblServiceUsed"_s, u"ServiceusedID"_s, ServiceUsedID);
}

bool isOpen(qint64 WorkorderNo)
{
    return !gcnData
                ->Open(u"Select WorkorderNo from tblWorkorder where WorkorderNo = ?"_s,
                       {WorkorderNo})
                .isEmpty();
}

bool isOnOpenOrder(qint64 NServiceUsedID)
{
    return !gcnData
                ->Open(u"Select NServiceUsedID from tblWoServiceUsed where NServiceUsedID = ?"_s,
                       {NServiceUsedID})
                .isEmpty();
}

bool IsServiceSkiped(qint64 NServiceUsedID)
{
    return base::trapped(Module, "IsServiceSkiped", false, [&] {
        const db::Recordset rows = gcnData->Open(
            u"select skip from tblWoServiceUsed where NServiceUsedId = ?"_s, {NServiceUsedID});
        return !rows.isEmpty() && rows.current().flag(u"skip");
    });
}

std::optional<double> changeCrew(qint64 NServiceUsedID, qint64 CrewID, const Shown &shown)
{
    const double cost =
        base::Money(SetLaborCost(CrewID)).centsTimes(GetBudgetedHrs(NServiceUsedID)).toDouble();
    const bool done = onService(ServiceChange, NServiceUsedID, [&](const db::Row &now) {
        record::demandShown(now, u"CrewID"_s, CrewID, shown);
        gcnData->Execute(
            u"Update tblWoServiceUsed set CrewID = ?, CostEstimate = ? where NServiceUsedid = ?"_s,
            {CrewID, cost, NServiceUsedID});
    });
    return done ? std::optional(cost) : std::nullopt;
}

double GetBudgetedHrs(qint64 NServiceUsedID)
{
    return base::trapped(Module, "GetBudgetedHrs", 0.0, [&] {
        const db::Recordset rows =
            gcnData->Open(u"Select LaborEstimate from tblWoServiceUSed where NserviceUsedID = ?"_s,
                          {NServiceUsedID});
        return rows.isEmpty() ? 0.0 : rows.current().real(u"LaborEstimate");
    });
}

WorkSpan workSpan(QTime start, QTime end, bool endIsGiven)
{
    constexpr int Day = 24 * 60 * 60;
    constexpr int LongestNight = 12 * 60 * 60;
    const QTime midnight(0, 0);
    int seconds = start.secsTo(end);
    if (seconds < 0) {
        const bool isMorning = seconds + Day <= LongestNight && (endIsGiven || end != midnight);
        if (!isMorning)
            end = start;
        seconds = isMorning ? seconds + Day : 0;
    }
    return {end, midnight.addSecs(seconds)};
}

Times timesOf(const QString &start, const QString &end, const QString &hours)
{
    const auto time = [](const QString &text) {
        const QTime found(text.section(u':', 0, 0).toInt(), text.section(u':', 1).toInt());
        return found.isValid() ? found : QTime(0, 0);
    };
    return {time(start), time(end), time(hours)};
}

QString inWords(const Times &times)
{
    return u"%1 to %2, %3 hours"_s.arg(times.start.toString(u"HH:mm"), times.end.toString(u"HH:mm"),
                                       times.hours.toString(u"H:mm"));
}

bool saveTimes(qint64 id, TimesOf where, const Times &times, const std::optional<Times> &shown)
{
    const bool open = where == TimesOf::OpenOrder;
    const QString table = open ? u"tblWoserviceUsed"_s : u"tblWOServiceUsedHistory"_s;
    const QString key = open ? u"NServiceUsedID"_s : u"ServiceUsedID"_s;
    const base::Money rate(SetLaborCost(GetCrewIDByService(id, table)));
    const int minutes = times.hours.hour() * 60 + times.hours.minute();
    const auto heldService = [&] {
        try {
            return record::hold(*gcnData, table, key, id);
        } catch (const record::Conflict &) {
            throw ordernames::serviceGone();
        }
    };
    return together(
        "cmdUpdate_Click",
        [&] {
            const db::Recordset row = heldService();
            const db::Row now = row.current();
            const Times theirs =
                timesOf(now.text(u"StartTime"), now.text(u"EndTime"), now.text(u"WorkHrs"));
            if (shown && theirs != *shown && theirs != times)
                throw record::Conflict({{u"StartTime"_s, now[u"StartTime"], times.start},
                                        {u"EndTime"_s, now[u"EndTime"], times.end},
                                        {u"WorkHrs"_s, now[u"WorkHrs"], times.hours}});
            gcnData->Execute(
                u"update %1 set StartTime = ?, EndTime = ?, WorkHrs = ?, CostEstimate = ? "
                "where %2 = ?"_s.arg(table, key),
                {times.start.toString(u"HH:mm"), times.end.toString(u"HH:mm"),
                 times.hours.toString(u"HH:mm"), rate.centsOfMinutes(minutes).toDouble(), id});
        },
        [&] { return open ? ordernames::orderOfService(id) : u"this record"_s; });
}

bool UpdatePrintColInWorkOrder(const QList<qint64> &orders)
{
    if (orders.isEmpty())
        return true;
    return together(
        "UpdatePrintColInWorkOrder",
        [&] {
            gcnData->Execute(u"Update tblWorkorder set Printed = 1 where Workorderno in (%1)"_s.arg(
                numberList(orders)));
        },
        [&] { return u"one of the work orders "_s + ordernames::listed(orders); });
}

bool ISWorkOrderLate(qint64 WorkorderNo, QDate today)
{
    return base::trapped(Module, "ISWorkOrderLate", false, [&] {
        const int days = qMin(option(u"SERVICE_LATE_RED"_s), option(u"SERVICE_LATE_YELLOW"_s));
        if (days == 0)
            return false;
        return !gcnData
                    ->Open(u"SELECT WorkorderNo FROM tblWoserviceUsed Where NextScheduledDate <= ? "
                           "and WorkorderNo = ? GROUP BY WorkorderNo having "
                           "Count(tblWoserviceUsed.NserviceUsedID)>=2"_s,
                           {base::wallClock(today.addDays(-days)), WorkorderNo})
                    .isEmpty();
    });
}

} // namespace recording

Lateness lateness(const QDate &nextServiceDate, QDate today, int lateYellow, int lateRed)
{
    if (!nextServiceDate.isValid())
        return Lateness::OnTime;
    const qint64 days = nextServiceDate.daysTo(today);
    if (lateRed != 0)
        return days >= lateRed ? Lateness::Red : Lateness::OnTime;
    return lateYellow != 0 && days >= lateYellow ? Lateness::Yellow : Lateness::OnTime;
}
