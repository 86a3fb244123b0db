#include "workorders/PostedHistory.h"

#include "core/ServiceHistory.h"
#include "core/Session.h"
#include "parts/Stock.h"
#include "platform/base/Decimal.h"
#include "platform/base/Trapped.h"
#include "scheduling/Readings.h"
#include "workorders/PostedSchedules.h"
#include "workorders/PostingSteps.h"

#include <QHash>
#include <QMap>
#include <QStringList>

namespace posting {
namespace {

using namespace Qt::StringLiterals;

/// The services of these orders that are completed or skipped.
db::Recordset postedServices(const QString &orders)
{
    return gcnData->Open(
        u"Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, "
        "tblWoServiceUsed.Name, NextScheduleddate, Period, Countvalue, CompletedDate, "
        "ServiceUSedID From tblWoServiceUsed left join tblWorkorder on "
        "tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno where "
        "tblWoServiceUsed.WorkorderNo in(%1) and (not ((Skip is Null or Skip <> -1) and (Completed "
        "is Null or Completed <> -1))) order by tblWoServiceUsed.WorkorderNo, NserviceUsedID"_s.arg(
            orders));
}

/// Copies services into the history, their columns in the order of the history's.
void writeServiceHistory(const QString &services)
{
    gcnData->Execute(
        u"Insert into tblWOServiceUsedHistory(%1) "
        "Select tblWoserviceUsed.WorkorderNo, NserviceUsedID, tblWoserviceUsed.EquipmentID, "
        "ServiceID, tblWoServiceUsed.Name, tblCrew.CrewID, CrewNumber, LastDateScheduled, "
        "LastDatePerformed, NextScheduleddate, tblCostCenter.Description, "
        "SeparateWo, LaborEstimate, CostEstimate, [Note], Period,JobNo,Countvalue, "
        "(IIf(Skip=True,-1,0)),StartTime , EndTime ,Workhrs ,tblSupplier.SupplierID "
        ",tblSupplier.Name ,WoDate ,CompletedDate From (((tblWoServiceUsed left "
        "join tblWorkorder on tblWoserviceUsed.Workorderno = tblWorkorder.Workorderno) left join "
        "tblCrew on tblWoserviceUsed.CrewID = tblcrew.CrewID) left join tblSupplier on "
        "tblWoserviceUsed.SupplierID = tblSupplier.SupplierID) left join tblCostCenter on "
        "tblWoServiceUsed.CostcenterID = tblCostCenter.CostCenterID where NServiceUsedID in "
        "(%2)"_s.arg(serviceHistoryColumns().join(u','), services));
}

/// Copies the parts of services into the history.
void writePartHistory(const QString &services)
{
    gcnData->Execute(
        u"Insert into tblWoPartHistory(ServiceusedID,partID, Description,PartCategoryID,Price,"
        "SupplierID,QuantityRequired,QuantityUsed) Select ServiceUsedID, tblWoPartUsed.PartID, "
        "Description, ItemName, tblWoPartUsed.Price, Name, QuantityRequired, IIf(Used = "
        "True,QuantityUsed,0) From ((tblWoPartUsed Left join tblPart on tblWoPartUsed.partID = "
        "tblPart.PartID) Left join tblSupplier on tblWoPartUsed.SupplierId = "
        "tblSupplier.SupplierID) Left join tblIndicator on tblPart.PartCategoryID = "
        "tblIndicator.ItemID where ServiceUsedId in (%1)"_s.arg(services));
}

/// True when the stock of a part is NOT tracked, in spite of the name.
bool IsPartInInventory(const db::Row &part)
{
    return part.flag(u"TrackInventory");
}

/// A part line as it is used. What it costs, and what all parts of a service cost together, is
/// shown wherever the service is shown afterwards, so that it has to be an amount.
void checkCost(const db::Row &part, const Posted &service, base::Money &cost)
{
    const double used = part.flag(u"Used") ? part.real(u"QuantityUsed") : 0;
    try {
        cost += base::Money(part.real(u"Price")).times(used);
    } catch (const base::Error &error) {
        if (error.number() != base::ErrorNumber::Overflow)
            throw;
        throw obstacle(
            error, service.order,
            u"%1 of part \"%2\" at their price come to more than an amount can be. Please "
            "correct the quantity or the price in its service \"%3\"."_s.arg(
                QString::number(used, 'g', 15), part.text(u"PartID"), service.name));
    }
}

/// What takes used parts out of the stock: of several rows of one part the last decides. Stock may
/// go below zero.
class Stock
{
public:
    void take(const db::Row &part, const Posted &service)
    {
        const double used = part.real(u"QuantityUsed");
        const QString id = part.text(u"PartID");
        if (used > 0 && part.flag(u"Used"))
            m_taken.insert(id.toCaseFolded(), // case doesn't count
                           {id, used, IsPartInInventory(part), service});
    }
    void write() const
    {
        for (const Taken &part : m_taken)
            stepOf(part.service, [&] {
                if (!part.untracked)
                    move(part);
            });
    }

private:
    struct Taken
    {
        QString id;
        double used = 0;
        bool untracked = false;
        Posted service;
    };
    static void move(const Taken &part)
    {
        try {
            stock::move(part.id, -part.used);
        } catch (const base::Error &error) {
            if (error.number() != base::ErrorNumber::Overflow)
                throw;
            throw obstacle(error, part.service.order,
                           u"%1 of part \"%2\" are more than a stock can be. Please correct the "
                           "quantity in its service \"%3\"."_s.arg(
                               QString::number(part.used, 'g', 15), part.id, part.service.name));
        }
    }

    QMap<QString, Taken> m_taken;
};

db::Recordset usedParts(const QString &services)
{
    return gcnData->Open(
        u"Select ServiceUsedID, tblWoPartUsed.PartID, QuantityUsed, tblWoPartUsed.Price as Price, "
        "Used, TrackInventory From "
        "tblWoPartUsed Left join tblPart on tblWoPartUsed.partID = tblPart.PartID where "
        "ServiceUsedId in (%1) order by ServiceUsedID, tblWoPartUsed.PartID"_s.arg(services));
}

/// The services to post, list by list.
QList<db::Recordset> servicesOf(const QList<qint64> &orders)
{
    QList<db::Recordset> services;
    for (const QString &list : listsOf(orders))
        services.append(postedServices(list));
    return services;
}

void postParts(const QMap<qint64, Posted> &services)
{
    Stock stock;
    QHash<qint64, base::Money> costs;
    for (const QString &list : listsOf(services.keys())) {
        writePartHistory(list);
        for (const db::Row part : usedParts(list)) {
            const Posted service = services[part.integer(u"ServiceUsedID")];
            checkCost(part, service, costs[service.id]);
            stock.take(part, service);
        }
    }
    stock.write();
}

Posted postedOf(const db::Row &service)
{
    return {service.integer(u"NserviceUsedID"), service.integer(u"WorkorderNo"),
            service.text(u"Name")};
}

/// The services of these orders pass into history, their schedules move on, and other services of
/// their machines that wait for a count fall due by the readings that come of it.
class HistoryWriter
{
public:
    HistoryWriter(QList<db::Recordset> services, const base::Progress &progress)
        : m_services(std::move(services))
        , m_progress(progress)
    {
        for (const db::Recordset &list : m_services)
            m_all += list.RecordCount();
    }

    /// The services passed on, by key.
    QMap<qint64, Posted> write()
    {
        m_schedules = heldSchedules(schedulesBehind());
        for (const db::Recordset &list : m_services) {
            for (const db::Row service : list)
                pass(service);
        }
        applyReadings();
        for (const QString &list : listsOf(m_posted.keys()))
            writeServiceHistory(list);
        postParts(m_posted);
        return m_posted;
    }

private:
    [[nodiscard]] QMap<qint64, Posted> schedulesBehind() const
    {
        QMap<qint64, Posted> schedules;
        for (const db::Recordset &list : m_services) {
            for (const db::Row service : list)
                if (const qint64 id = service.integer(u"ServiceUSedID"); id != 0)
                    schedules.insert(id, postedOf(service));
        }
        return schedules;
    }

    void pass(const db::Row &row)
    {
        const Posted service = postedOf(row);
        const qint64 serviceUsedID = row.integer(u"ServiceUSedID");
        const auto schedule = m_schedules.constFind(serviceUsedID);
        const bool hasRead = stepOf(service, [&] {
            const bool left = keepReading(row, serviceUsedID);
            if (schedule != m_schedules.cend())
                reschedule(row, serviceUsedID, *schedule);
            return left;
        });
        if (hasRead)
            m_read.insert(row.integer(u"EquipmentID"), service);
        m_posted.insert(m_posted.cend(), service.id, service); // most keys grow from row to row
        if (m_progress)
            m_progress(static_cast<int>(m_posted.size()), m_all);
    }

    /// The services that were posted wait for a reading after their posting.
    void applyReadings() const
    {
        for (const QString &machines : listsOf(m_read.keys()))
            for (const readings::Waiting &waiting : readings::waitingServices(machines))
                if (!m_schedules.contains(waiting.ServiceUsedID))
                    stepOf(m_read[waiting.EquipmentID], [&] { readings::applyTo(waiting); });
    }

    QList<db::Recordset> m_services;
    const base::Progress &m_progress;
    int m_all = 0;
    QHash<qint64, db::Row> m_schedules;
    QMap<qint64, Posted> m_posted;
    QMap<qint64, Posted> m_read; ///< machines with new readings, and a service that left one
};

} // namespace

QList<qint64> AddServiceHistoryRecord(const QList<qint64> &orders, const base::Progress &progress)
{
    return base::trapped("Workorder", "AddServiceHistoryRecord", QList<qint64>(), [&] {
        return HistoryWriter(servicesOf(orders), progress).write().keys();
    });
}

} // namespace posting
