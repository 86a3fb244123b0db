#include "scheduling/Readings.h"

#include "core/Options.h"
#include "core/Periods.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "scheduling/GetNextScheduledDate.h"

namespace readings {
namespace {

using namespace Qt::StringLiterals;

FirstReadingAsker &currentAsker()
{
    static FirstReadingAsker asker;
    return asker;
}

} // namespace

QString countType(const QString &periodCode)
{
    const periods::Period *period = periods::ofCode(periodCode);
    return period && period->isCount ? period->word.toString() : QString();
}

QString periodCode(const QString &countType)
{
    const periods::Period *period = periods::ofWord(countType);
    return period && period->isCount ? period->code.toString() : QString();
}

Reading newest(qint64 EquipmentID, const QString &countType)
{
    const db::Recordset rows = gcnData->Open(
        u"SELECT TOP 1 Changedate, Countvalue From tblEquipmentCount Where EquipmentID = ? And "
        "CountType = ? ORDER BY ChangeDate DESC , Countvalue DESC"_s,
        {EquipmentID, countType});
    if (rows.isEmpty())
        return {};
    return {rows.current().date(u"Changedate"), rows.current().integer(u"Countvalue")};
}

db::Recordset list(qint64 EquipmentID)
{
    return gcnData->Open(
        u"Select Changedate as [Count Date], CountType as [Count Type], CountValue as [Count "
        "Value] from tblEquipmentCount Where EquipmentID = ?"_s,
        {EquipmentID});
}

bool hasAny(qint64 EquipmentID, const QString &countType)
{
    return !gcnData
                ->Open(
                    u"SELECT TOP 1 * From tblequipmentCount WHERE tblequipmentCount.EquipmentID=? "
                    "AND tblequipmentCount.CountType=?"_s,
                    {EquipmentID, countType})
                .isEmpty();
}

bool isInProcess(qint64 EquipmentID, const QString &countType)
{
    return !gcnData
                ->Open(
                    u"Select EquipmentId from tblWoServiceUsed where Period = ? and EquipmentId = ?"_s,
                    {periodCode(countType), EquipmentID})
                .isEmpty();
}

void store(qint64 EquipmentID, const QDateTime &date, const QString &countType, qint64 value)
{
    gcnData->Execute(
        u"insert into tblEquipmentCount(EquipmentID,ChangeDate,CountType,CountValue) values(?,?,?,?)"_s,
        {EquipmentID, date, countType, value});
}

void add(qint64 EquipmentID, const QDateTime &date, const QString &countType, qint64 value)
{
    store(EquipmentID, date, countType, value);
    applyToServices(EquipmentID);
}

void remove(qint64 EquipmentID, const Reading &reading, const QString &countType)
{
    gcnData->Execute(u"Delete From tblEquipmentCount where EquipmentId = ? and CountType = ? and "
                     "ChangeDate = ? And CountValue = ?"_s,
                     {EquipmentID, countType, reading.date, reading.value});
}

QList<Waiting> waitingServices(const QString &machines)
{
    QList<Waiting> services;
    for (const db::Row row : gcnData->Open(
             u"Select serviceusedid, EquipmentID, NextScheduledCount, Period from tblServiceUsed "
             "where EquipmentID in (%1) and Period IN (%2) and NextScheduledDate is Null"_s.arg(
                 machines, periods::countCodes())))
        services.append({row.integer(u"serviceusedid"), row.integer(u"EquipmentID"),
                         countType(row.text(u"Period")), row.integer(u"NextScheduledCount")});
    return services;
}

void applyTo(const Waiting &service)
{
    // The meter alone decides. A pattern that something has spoilt is none of its business, and
    // keeps no reading from being taken.
    QDateTime reached;
    CheckMeterLogic(service.EquipmentID, service.countType, service.target, reached);
    if (reached.isValid())
        gcnData->Execute(
            u"Update tblServiceUsed Set NextScheduledDate = ? Where ServiceUsedID = ?"_s,
            {reached, service.ServiceUsedID});
}

void applyToServices(qint64 EquipmentID)
{
    for (const Waiting &service : waitingServices(QString::number(EquipmentID)))
        applyTo(service);
}

void setFirstReadingAsker(FirstReadingAsker asker)
{
    currentAsker() = std::move(asker);
}

void addFirst(qint64 EquipmentID, qint64 ServiceUsedID, const QString &ServiceName,
              QString &CountType)
{
    const FirstReadingAsker ask = currentAsker();
    if (!ask || !ask(EquipmentID, ServiceUsedID, ServiceName, CountType))
        store(EquipmentID, base::wallClock(base::today()), CountType, 0);
}

int delay()
{
    return GetOption(u"COUNT_READING_DELAY"_s, false).trimmed().toInt();
}

QString dueStatement(int delayDays)
{
    // The newest reading of each meter first: joining every service to every reading of its machine
    // and grouping then gives the same rows and takes thirty times as long.
    return u"SELECT newest.EquipmentID, tblEquipment.UnitNo, "
           "tblEquipment.Equipmentname AS [Equipment Name], newest.CountType, "
           "newest.change_date AS [Last Date], max(tblEquipmentCount.CountValue) AS [Last Count] "
           "FROM ((SELECT EquipmentID, CountType, max(ChangeDate) AS change_date "
           "FROM tblEquipmentCount GROUP BY EquipmentID, CountType "
           "HAVING max(ChangeDate) < now()-%1) AS newest "
           "INNER JOIN tblEquipment ON newest.EquipmentID = tblEquipment.EquipmentID) "
           "LEFT JOIN tblEquipmentCount ON (newest.change_date = tblEquipmentCount.ChangeDate) "
           "AND (newest.CountType = tblEquipmentCount.CountType) AND "
           "(newest.EquipmentID = tblEquipmentCount.EquipmentID) "
           "WHERE tblEquipment.Inactive = '0' AND newest.EquipmentID in (Select EquipmentID from "
           "tblServiceUsed where tblServiceUsed.Period IN (%2) AND tblServiceUsed.ServiceUsedID "
           "not "
           "in (Select ServiceUsedId from tblWoServiceUsed)) "
           "GROUP BY newest.EquipmentID, tblEquipment.UnitNo, tblEquipment.Equipmentname, "
           "newest.CountType, newest.change_date "
           "ORDER BY tblEquipment.UnitNo"_s.arg(QString::number(delayDays), periods::countCodes());
}

db::Recordset due(int delayDays)
{
    return gcnData->Open(dueStatement(delayDays));
}

void saveBatch(std::span<const Entry> entries)
{
    int refused = 0;
    TransactionScope transaction;
    const QDateTime today = base::wallClock(base::today());
    for (const Entry &entry : entries) {
        if (isInProcess(entry.EquipmentID, entry.CountType))
            ++refused;
        else
            add(entry.EquipmentID, today, entry.CountType, entry.Value);
    }
    transaction.commit();
    // Behind the commit: a box stays open for as long as its user likes, and the services that
    // were written would be locked for all other workstations meanwhile.
    for (; refused > 0; --refused)
        told::message(inProcessMessage());
}

QString inProcessMessage()
{
    return u"Service is in-proccess for this equipment counts cann't be added till the service over."_s;
}

} // namespace readings
