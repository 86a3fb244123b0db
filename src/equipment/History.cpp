#include "equipment/History.h"

#include "core/Conversions.h"
#include "core/HeldRow.h"
#include "core/InTheWay.h"
#include "core/Labour.h"
#include "core/RecordStore.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"

#include <QRegularExpression>

namespace history {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Equipment";
constexpr int ShortestWork = 10; // minutes, themselves too short

/// Runs a correction of a service, which is held for it and must be there. The body gets its row;
/// what it answers counts, or else the fallback.
template<class Result, class Body>
Result onService(const char *procedure, qint64 id, Result fallback, Body &&body)
{
    return base::trapped(Module, procedure, fallback, [&] {
        record::ShortTransaction transaction(dataConnection());
        const db::Recordset row =
            heldRow(u"tblWoServiceUsedHistory", u"ServiceUsedID", id, u"service",
                    u"This service has been deleted from the history on another workstation. "
                    "Nothing was stored."_s);
        const Result result = body(row.current());
        transaction.commit();
        return result;
    });
}

void write(qint64 id, const QString &column, const QVariant &value)
{
    dataConnection().Execute(
        u"Update tblWoServiceUsedHistory set [%1] = ? where ServiceUsedid = ?"_s.arg(column),
        {value, id});
}

/// An empty value is stored as Null.
QVariant orNull(const QVariant &value)
{
    return base::ReplaceNull(value).toString().isEmpty() ? QVariant() : value;
}

/// The condition that picks a machine's services of a period, with its values.
struct Condition
{
    QString text = u"EquipmentID = ?"_s;
    QVariantList values;

    Condition(qint64 equipment, const Period &period)
        : values{equipment}
    {
        if (period.from.isValid()) {
            text += u" and Completedate >= ?"_s;
            values.append(base::wallClock(period.from));
        }
        if (period.to.isValid()) {
            text += u" and Completedate <= ?"_s;
            values.append(base::wallClock(period.to));
        }
    }
};

QString stored(const QTime &time)
{
    return time.isValid() ? time.toString(u"HH:mm") : QString();
}

/// As rows hold hours worked, "1:30".
QString hoursBetween(const QTime &start, const QTime &end)
{
    return ChangeMinuteInHour(start.secsTo(end) / 60);
}

TimeCorrection refused(const QString &reason)
{
    return {.refusal = reason};
}

} // namespace

db::Recordset services(qint64 EquipmentID, const Period &period)
{
    const Condition condition(EquipmentID, period);
    return dataConnection().Open(
        u"Select WorkOrderNo,ServiceUsedID,CompleteDate as [Date], ServiceName As [Service Name], "
        "tblWoServiceUsedHistory.CrewID as [Service Crew], CostCenterID as [Cost Center], "
        "LaborEstimate as [Budgeted Hrs], CostEstimate as [Labor Cost], StartTime, EndTime, "
        "WorkHrs, Skip, Countvalue as [Count], SupplierName from tblWoServiceUsedHistory Where "_s +
            condition.text,
        condition.values);
}

QHash<qint64, double> SetAllPastCost(qint64 EquipmentID, const Period &period)
{
    const Condition condition(EquipmentID, period);
    QHash<qint64, double> costs;
    for (const db::Row row : dataConnection().Open(
             // The machine's services first: for "in" the engine reads all parts ever posted.
             u"Select Posted.ServiceUsedID, sum(QuantityUsed * Price) as Exp from (Select distinct "
             "ServiceUsedID + 0 as ServiceUsedID from tblWoServiceUsedHistory where %1) as Posted "
             "inner join tblWoPartHistory on tblWoPartHistory.ServiceUsedID = Posted.ServiceUsedID "
             "group by Posted.ServiceUsedID"_s.arg(condition.text),
             condition.values))
        costs.insert(row.integer(u"ServiceUsedID"), row.real(u"Exp"));
    return costs;
}

double SetPastCost(qint64 ServiceUsedID)
{
    const db::Recordset rows = dataConnection().Open(
        u"Select sum(QuantityUsed  * Price) as Exp  From tblWoPartHistory where  ServiceusedID  = ?"_s,
        {ServiceUsedID});
    return rows.isEmpty() ? 0 : base::roundedDecimals(rows.current().real(u"Exp"), 2);
}

db::Recordset parts(qint64 ServiceUsedID)
{
    return dataConnection().Open(
        u"Select PartId as [Part Number], Description, QuantityUsed as [Qty Used], Price, "
        "PartCAtegoryID as Category, SupplierID as Supplier from tblWoPartHistory where "
        "ServiceusedID = ?"_s,
        {ServiceUsedID});
}

QString note(qint64 ServiceUsedID, qint64 WorkorderNo)
{
    const db::Recordset rows =
        dataConnection().Open(u"Select [Note] From tblWOServiceUsedHistory where ServiceusedID = ? "
                              "and WorkorderNo = ?"_s,
                              {ServiceUsedID, WorkorderNo});
    return rows.isEmpty() ? QString() : rows.current().text(u"Note");
}

bool UpdateEquipmentServiceHistory(qint64 ServiceUsedID, const QString &Column,
                                   const QVariant &Value, const Shown &shown)
{
    return onService("UpdateEquipmentServiceHistory", ServiceUsedID, false,
                     [&](const db::Row &now) {
                         record::demandShown(now, Column, orNull(Value), shown);
                         write(ServiceUsedID, Column, orNull(Value));
                         return true;
                     });
}

std::optional<double> changeCrew(qint64 ServiceUsedID, qint64 CrewID, double budgetedHours,
                                 const Shown &shown)
{
    const double cost = base::Money(SetLaborCost(CrewID)).centsTimes(budgetedHours).toDouble();
    return onService(
        "UpdateEquipmentServiceHistory", ServiceUsedID, std::optional<double>(),
        [&](const db::Row &now) {
            record::demandShown(now, u"CrewID"_s, CrewID, shown);
            const db::Recordset crew = dataConnection().Open(
                u"Select CrewNumber from tblCrew where CrewID = ?"_s, {CrewID});
            dataConnection().Execute(
                u"Update tblWoServiceUsedHistory set CrewID = ?, CrewNumber = ?, CostEstimate = ? "
                "where ServiceUsedid = ?"_s,
                {CrewID, crew.isEmpty() ? QVariant() : crew[u"CrewNumber"], cost, ServiceUsedID});
            return std::optional(cost);
        });
}

bool UpdatePartHistory(qint64 ServiceUsedID, const QString &PartID, const QString &Column,
                       const QVariant &Value, const Shown &shown)
{
    // The service is held for its parts, so that two workstations don't correct them at once.
    return onService("grdPartHistory_Change", ServiceUsedID, false, [&](const db::Row &) {
        const db::Recordset now = dataConnection().Open(
            u"Select * from tblWoPartHistory where ServiceUsedid = ? and Partid = ?"_s,
            {ServiceUsedID, PartID});
        if (!now.isEmpty())
            record::demandShown(now.row(0), Column, Value, shown);
        dataConnection().Execute(
            u"Update tblWoPartHistory set [%1] = ? where ServiceUsedid = ? and Partid = ?"_s.arg(
                Column),
            {Value, ServiceUsedID, PartID});
        return true;
    });
}

bool updateNote(qint64 ServiceUsedID, const QString &note, const Shown &shown)
{
    return onService("txtNote_Validate", ServiceUsedID, false, [&](const db::Row &now) {
        record::demandShown(now, u"Note"_s, note, shown);
        write(ServiceUsedID, u"Note"_s, note);
        return true;
    });
}

bool DeleteServiceHistoryRecord(qint64 ServiceUsedID)
{
    return base::trapped(Module, "DeleteServiceHistoryRecord", false, [&] {
        for (const QString &table : {u"tblWoPartHistory"_s, u"tblWOServiceUsedHistory"_s})
            dataConnection().Execute(u"Delete From %1 where ServiceUsedId = ?"_s.arg(table),
                                     {ServiceUsedID});
        return true;
    });
}

std::optional<QTime> timeOf(const QString &text)
{
    if (text.trimmed().isEmpty())
        return QTime();
    static const QRegularExpression form(u"^(\\d{1,2}):(\\d{1,2})\\s*(?:([ap])m?)?$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    int hour = match.captured(1).toInt();
    const QString half = match.captured(3).toLower();
    if (half.isEmpty() && hour == 0 && match.captured(2).toInt() == 0)
        return QTime();
    if (!half.isEmpty()) {
        if (hour > 12)
            return std::nullopt;
        hour = hour % 12 + (half == u"p" ? 12 : 0);
    }
    const QTime time(hour, match.captured(2).toInt());
    return time.isValid() ? std::optional(time) : std::nullopt;
}

TimeCorrection correctStart(const QString &typed, const QString &end)
{
    const std::optional<QTime> start = timeOf(typed);
    if (!start)
        return refused(u"Invalid Time"_s);
    const QTime until = timeOf(end).value_or(QTime());
    if (!start->isValid() || !until.isValid())
        return {.stored = stored(*start)};
    if (*start >= until)
        return refused(u"Start Time should be less than End Time"_s);
    return {.stored = stored(*start), .WorkHrs = hoursBetween(*start, until)};
}

TimeCorrection correctEnd(const QString &typed, const QString &start)
{
    const std::optional<QTime> end = timeOf(typed);
    if (!end)
        return refused(u"Invalid Time"_s);
    const QTime since = timeOf(start).value_or(QTime());
    if (!since.isValid())
        return refused(u"Start Time Shouln't be Blank"_s);
    if (!end->isValid())
        return {.stored = QString()};
    if (*end <= since)
        return refused(u"End Time should be greater than Start Time"_s);
    return {.stored = stored(*end), .WorkHrs = hoursBetween(since, *end)};
}

TimeCorrection correctWorkHrs(const QString &typed)
{
    const std::optional<QTime> hours = timeOf(typed);
    if (!hours)
        return refused(u"Invalid Time"_s);
    const int minutes = hours->isValid() ? QTime(0, 0).secsTo(*hours) / 60 : 0;
    if (minutes <= ShortestWork)
        return refused(u"Work Hrs should be greater than 10 Minutes."_s);
    return {.stored = ChangeMinuteInHour(minutes)};
}

std::optional<TimeCorrection> correctTime(qint64 ServiceUsedID, const QString &Column,
                                          const QString &typed, const Shown &shown)
{
    TimeCorrection made;
    const bool isDone =
        onService("UpdateEquipmentServiceHistory", ServiceUsedID, false, [&](const db::Row &now) {
            made = Column == u"StartTime" ? correctStart(typed, now.text(u"EndTime"))
                   : Column == u"EndTime" ? correctEnd(typed, now.text(u"StartTime"))
                                          : correctWorkHrs(typed);
            if (!made.refusal.isEmpty())
                return true;
            record::demandShown(now, Column, orNull(made.stored), shown);
            write(ServiceUsedID, Column, orNull(made.stored));
            if (made.WorkHrs)
                write(ServiceUsedID, u"WorkHrs"_s, *made.WorkHrs);
            return true;
        });
    return isDone ? std::optional(made) : std::nullopt;
}

} // namespace history
