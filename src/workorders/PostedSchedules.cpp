#include "workorders/PostedSchedules.h"

#include "core/Session.h"
#include "core/Told.h"
#include "scheduling/GetNextScheduledDate.h"
#include "scheduling/Readings.h"
#include "workorders/Posting.h"

namespace posting {
namespace {

using namespace Qt::StringLiterals;

DateConfirmation &currentConfirmation()
{
    static DateConfirmation confirmation;
    return confirmation;
}

void addReading(const db::Row &service, const QString &countType)
{
    readings::store(service.integer(u"EquipmentID"), service.date(u"CompletedDate"), countType,
                    service.integer(u"Countvalue"));
}

QDateTime confirmed(QDateTime next, const db::Row &service, qint64 serviceUsedID)
{
    const QDateTime completed = service.date(u"CompletedDate");
    if (!next.isValid() || !completed.isValid() || next >= completed)
        return next;
    told::message(u"You have chosen to reschedule this services based on the scheduled date \n"
                  "rather then on the completed date and the new date is already older then\n"
                  "the completed date."_s);
    const DateConfirmation ask = currentConfirmation();
    return ask ? ask(completed, serviceUsedID)
               : GetNextScheduledDate(serviceUsedID, true, completed);
}

bool ChkServiceIsCountType(const db::Row &service, QString &CountType)
{
    CountType = readings::countType(service.text(u"Period"));
    return !CountType.isEmpty();
}

/// True when the machine has exactly this reading already.
bool IsCountAvailable(qint64 EquipmentID, const QDateTime &Date, const QString &CountType,
                      qint64 CountValue)
{
    return !gcnData
                ->Open(u"SELECT * FROM tblEquipmentCount Where EquipmentID = ? and ChangeDate = "
                       "? and CountType = ? and CountValue = ?"_s,
                       {EquipmentID, Date, CountType, CountValue})
                .isEmpty();
}

/// True unless the service is one that is not to be scheduled again.
bool IsServiceScheduleAgain(const db::Row &schedule)
{
    return schedule.text(u"RenewalOn") != u"D";
}

/// The next target of a count service: from the count taken for one that goes by completion, from
/// its old target for any other.
qint64 ServiceCountUpdate(const db::Row &schedule, qint64 Count)
{
    const qint64 from =
        schedule.text(u"RenewalOn") == u"W" ? Count : schedule.integer(u"NextScheduledCount");
    return from + schedule.integer(u"Einterval");
}

/// The date that follows from the schedule as it now stands. A service that had been counted when
/// its order was made may go by the calendar by now, and the other way round.
QDateTime nextDate(const db::Row &service, qint64 serviceUsedID, const db::Row &schedule)
{
    const QDateTime next =
        nextDateAfter(schedule, service.date(u"NextScheduleddate"), service.date(u"CompletedDate"));
    return readings::countType(schedule.text(u"Period")).isEmpty()
               ? confirmed(next, service, serviceUsedID)
               : next;
}

} // namespace

void setDateConfirmation(DateConfirmation confirmation)
{
    currentConfirmation() = std::move(confirmation);
}

QHash<qint64, db::Row> heldSchedules(const QMap<qint64, Posted> &services)
{
    const auto hold = [](const QString &list) {
        gcnData->Execute(
            u"Update tblServiceUsed set Inactive = Inactive where ServiceUsedID in (%1)"_s.arg(
                list));
    };
    QHash<qint64, db::Row> schedules;
    for (const QString &list : listsOf(services.keys())) {
        try {
            hold(list);
        } catch (const db::DbError &error) {
            if (error.number() != db::ErrorNumber::LockConflict)
                throw;
            // Which one it is: the list doesn't say.
            for (const auto &[id, service] : services.asKeyValueRange())
                stepOf(service, [&, key = id] { hold(QString::number(key)); });
            throw;
        }
        for (const db::Row schedule :
             gcnData->Open(u"Select %1 from tblServiceUsed where ServiceUsedID in (%2)"_s.arg(
                 scheduleColumns(), list)))
            schedules.insert(schedule.integer(u"ServiceUsedID"), schedule);
    }
    return schedules;
}

void reschedule(const db::Row &service, qint64 serviceUsedID, const db::Row &schedule)
{
    const bool again = IsServiceScheduleAgain(schedule);
    const QString period = schedule.text(u"Period");
    QVariant target = schedule[u"NextScheduledCount"];
    QDateTime next;
    if (period == service.text(u"Period") && !readings::countType(period).isEmpty())
        target = ServiceCountUpdate(schedule, service.integer(u"Countvalue"));
    else if (again)
        next = nextDate(service, serviceUsedID, schedule);
    gcnData->Execute(
        u"Update tblServiceUsed Set LastDateScheduled = ?, LastDatePerformed = ?, "
        "NextScheduledDate = ?, NextScheduledCount = ?, Inactive = ? Where ServiceUsedID = ?"_s,
        {service[u"NextScheduleddate"], service[u"CompletedDate"],
         !again           ? schedule[u"NextScheduledDate"]
         : next.isValid() ? QVariant(next)
                          : QVariant(),
         target, again ? schedule[u"Inactive"] : QVariant(1), serviceUsedID});
}

bool keepReading(const db::Row &service, qint64 serviceUsedID)
{
    QString countType;
    if (!ChkServiceIsCountType(service, countType))
        return false;
    if (serviceUsedID == 0 &&
        IsCountAvailable(service.integer(u"EquipmentID"), service.date(u"CompletedDate"), countType,
                         service.integer(u"Countvalue")))
        return false;
    addReading(service, countType);
    return true;
}

} // namespace posting
