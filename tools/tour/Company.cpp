#include "tour/Company.h"

#include "tour/Fault.h"

#include <QHash>
#include <QSet>
#include <algorithm>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

const QString ServiceColumns =
    u"tblServiceUsed.ServiceUsedID, tblServiceUsed.Name, Period, RenewalOn, NextScheduledDate, "
    "NextScheduledCount, EInterval, tblServiceUsed.CrewID as Crew, SeparateWo, LastDateScheduled, "
    "LastDatePerformed"_s;

Service serviceOf(const db::Row &row)
{
    Service service;
    service.id = row.integer(u"ServiceUsedID");
    service.name = row.text(u"Name");
    service.period = row.text(u"Period");
    service.renewal = row.text(u"RenewalOn");
    service.next = row.date(u"NextScheduledDate").date();
    service.target = row.integer(u"NextScheduledCount");
    service.interval = row.integer(u"EInterval");
    service.crew = row.integer(u"Crew");
    service.separate = row.flag(u"SeparateWo");
    service.lastScheduled = row.date(u"LastDateScheduled").date();
    service.lastPerformed = row.date(u"LastDatePerformed").date();
    return service;
}

bool anyOf(const Machine &machine, bool (*test)(const Service &))
{
    return std::ranges::any_of(machine.services, test);
}

/// Takes the machine with the most work of those that pass out of the list.
Machine take(QList<Machine> &machines, const QString &kind, bool (*test)(const Machine &))
{
    qsizetype best = -1;
    for (qsizetype at = 0; at < machines.size(); ++at) {
        if (test(machines[at]) &&
            (best < 0 || machines[at].services.size() > machines[best].services.size()))
            best = at;
    }
    require(best >= 0, u"No machine has overdue work %1."_s.arg(kind));
    return machines.takeAt(best);
}

} // namespace

bool isByMeter(const Service &service)
{
    return !service.meter().isEmpty() && !service.isOneOff();
}

bool isByCalendar(const Service &service)
{
    return service.meter().isEmpty() && !service.isOneOff();
}

bool takesParts(const Service &service)
{
    return service.trackedParts > 0;
}

QString list(QList<qint64> numbers)
{
    std::ranges::sort(numbers);
    QStringList texts;
    for (const qint64 number : std::as_const(numbers))
        texts.append(QString::number(number));
    return texts.join(u", ");
}

QString Service::meter() const
{
    static const QHash<QString, QString> words{{u"C"_s, u"Counts"_s},
                                               {u"H"_s, u"Hours"_s},
                                               {u"K"_s, u"Kilometers"_s},
                                               {u"I"_s, u"Miles"_s}};
    return words.value(period);
}

int Machine::ordersToCome() const
{
    QSet<qint64> crews;
    qsizetype alone = 0;
    for (const Service &service : services) {
        if (service.separate)
            ++alone;
        else
            crews.insert(service.crew);
    }
    return static_cast<int>(alone + crews.size());
}

Company::Company(const db::Target &database, QDate today)
    : m_connection(database)
    , m_today(today)
{}

db::Recordset Company::rows(const QString &statement, const QVariantList &parameters)
{
    return m_connection.Open(statement, parameters);
}

qint64 Company::number(const QString &statement, const QVariantList &parameters)
{
    const db::Recordset found = rows(statement, parameters);
    return found.isEmpty() ? 0 : found.value(0, 0).toLongLong();
}

QList<Machine> Company::machinesWithDueWork()
{
    QHash<qint64, int> parts;
    for (const db::Row part :
         rows(u"Select ServiceUsedID from tblServiceUsedPart inner join tblPart "
              "on tblServiceUsedPart.PartID = tblPart.PartID where "
              "TrackInventory = 0"_s))
        ++parts[part.integer(u"ServiceUsedID")];
    QList<Machine> machines;
    for (const db::Row row :
         rows(u"Select tblEquipment.EquipmentID, UnitNo, EquipmentName, %1 from tblServiceUsed "
              u"inner "
              "join tblEquipment on tblServiceUsed.EquipmentID = tblEquipment.EquipmentID where "
              "NextScheduledDate >= ? and NextScheduledDate <= ? and ServiceUsedID not in (Select "
              "ServiceUsedID from tblWoServiceUsed) and tblServiceUsed.Inactive = 0 and "
              "tblEquipment.Inactive = '0' order by UnitNo, ServiceUsedID"_s.arg(ServiceColumns),
              {boardBegin(), today()})) {
        const qint64 id = row.integer(u"EquipmentID");
        if (machines.isEmpty() || machines.last().id != id)
            machines.append({id, row.text(u"UnitNo"), row.text(u"EquipmentName"), {}});
        machines.last().services.append(serviceOf(row));
        machines.last().services.last().trackedParts =
            parts.value(machines.last().services.last().id);
    }
    // The board's month ends at this hour 30 days ago.
    machines.removeIf([this](const Machine &machine) {
        return std::ranges::none_of(machine.services, [this](const Service &service) {
            return service.next > boardBegin();
        });
    });
    return machines;
}

Cast Company::choose()
{
    QList<Machine> machines = machinesWithDueWork();
    Cast cast;
    cast.serviced = take(machines, u"by the calendar and by the meter, with parts"_s,
                         [](const Machine &machine) {
                             return anyOf(machine, isByCalendar) && anyOf(machine, isByMeter) &&
                                    anyOf(machine, takesParts);
                         });
    cast.unread = take(machines, u"by the meter"_s,
                       [](const Machine &machine) { return anyOf(machine, isByMeter); });
    cast.skipped = take(machines, u"by the calendar"_s, [](const Machine &machine) {
        return anyOf(machine, isByCalendar) &&
               std::ranges::all_of(machine.services,
                                   [](const Service &each) { return each.meter().isEmpty(); });
    });
    return cast;
}

Service Company::service(qint64 ServiceUsedID)
{
    const db::Recordset found =
        rows(u"Select %1 from tblServiceUsed where ServiceUsedID = ?"_s.arg(ServiceColumns),
             {ServiceUsedID});
    require(!found.isEmpty(), u"Service %1 is gone from its machine."_s.arg(ServiceUsedID));
    return serviceOf(found.current());
}

qint64 Company::openOrders()
{
    return number(u"Select Count(*) from tblWorkorder where CompletedDate is null"_s);
}

qint64 Company::overdueMachines()
{
    QSet<qint64> machines;
    for (const db::Row row :
         rows(u"Select EquipmentID from tblServiceUsed where NextScheduledDate > ? and "
              "NextScheduledDate <= ? and ServiceUsedID not in (Select ServiceUsedID from "
              "tblWoServiceUsed) and Inactive = 0"_s,
              {boardBegin(), today()}))
        machines.insert(row.integer(u"EquipmentID"));
    return machines.size();
}

qint64 Company::reading(qint64 EquipmentID, const QString &meter)
{
    return number(u"Select top 1 CountValue from tblEquipmentCount where EquipmentID = ? and "
                  "CountType = ? order by ChangeDate desc, CountValue desc"_s,
                  {EquipmentID, meter});
}

QStringList Company::orderNumbers()
{
    QStringList numbers;
    const db::Recordset orders = rows(u"Select WorkorderNo from tblWorkorder"_s);
    for (int row = 0; row < orders.RecordCount(); ++row)
        numbers.append(QString::number(orders.row(row).integer(u"WorkorderNo")));
    return numbers;
}

QList<qint64> Company::ordersOf(const Machine &machine)
{
    QList<qint64> orders;
    for (const Service &service : machine.services) {
        const qint64 order = number(
            u"Select WorkorderNo from tblWoServiceUsed where ServiceUsedID = ?"_s, {service.id});
        if (order != 0 && !orders.contains(order))
            orders.append(order);
    }
    return orders;
}

} // namespace tour
