#include "company/Orders.h"

#include <algorithm>
#include <map>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

class OrderWriter
{
public:
    OrderWriter(Batch &batch, const Content &content, const Masters &masters, OrderNumbers numbers,
                QDate today)
        : m_content(content)
        , m_masters(masters)
        , m_numbers(numbers)
        , m_today(today)
        , m_orders(batch, u"tblWorkorder"_s,
                   {u"WorkorderNo"_s, u"EquipmentID"_s, u"Printed"_s, u"Complete"_s,
                    u"CompletedDate"_s, u"WoDate"_s})
        , m_services(batch, u"tblWoServiceUsed"_s,
                     {u"NServiceUsedID"_s,
                      u"WorkorderNo"_s,
                      u"ServiceUsedID"_s,
                      u"ServiceID"_s,
                      u"EquipmentID"_s,
                      u"LastDateScheduled"_s,
                      u"LastDatePerformed"_s,
                      u"NextScheduledDate"_s,
                      u"Name"_s,
                      u"CrewID"_s,
                      u"CostCenterID"_s,
                      u"SeparateWo"_s,
                      u"LaborEstimate"_s,
                      u"CostEstimate"_s,
                      u"[Note]"_s,
                      u"Period"_s,
                      u"JobNo"_s,
                      u"Completed"_s,
                      u"Skip"_s,
                      u"StartTime"_s,
                      u"EndTime"_s,
                      u"Workhrs"_s,
                      u"CountValue"_s})
        , m_parts(batch, u"tblWoPartUsed"_s,
                  {u"ServiceUsedID"_s, u"PartID"_s, u"QuantityRequired"_s, u"QuantityUsed"_s,
                   u"Price"_s, u"Used"_s, u"SupplierID"_s})
    {}

    /// An order for services of one machine; the states follow from the order's place, so that the
    /// first few orders show all of them.
    void write(const Machine &machine, const std::vector<const Assignment *> &services,
               Random random)
    {
        const int place = m_written++;
        const bool complete = place % 12 == 3;
        const bool withSkip = place % 12 == 5;
        const QDate made = m_today.addDays(-random.between(0, 6));
        m_orders.add({m_numbers.order, machine.id, place % 2, complete,
                      dateOrNull(complete ? m_today : QDate()), dateOrNull(made)});
        for (const Assignment *assignment : services)
            writeService(machine, *assignment, complete, withSkip && assignment == services.front(),
                         random);
        ++m_numbers.order;
    }

    [[nodiscard]] int written() const { return m_written; }
    [[nodiscard]] const OrderNumbers &numbers() const { return m_numbers; }

private:
    void writeService(const Machine &machine, const Assignment &assignment, bool completed,
                      bool skipped, Random &random)
    {
        const CatalogueService &service = m_content.services[assignment.service];
        const Crew &crew = m_masters.crew(service.crewNumber);
        const WorkTime time = workTime(service.hours, random);
        QVariantList row = {m_numbers.service,
                            m_numbers.order,
                            assignment.id,
                            service.id,
                            machine.id,
                            dateOrNull(assignment.lastScheduled),
                            dateOrNull(assignment.lastPerformed),
                            dateOrNull(assignment.next),
                            service.name,
                            crew.id,
                            m_masters.costCenter(service.costCenter),
                            service.separate ? 1 : 0,
                            service.hours,
                            completed ? time.cost(crew.rate) : cents(service.hours * crew.rate),
                            skipped ? m_content.skipNotes.front() : service.note,
                            QString(service.period),
                            service.jobNo,
                            completed,
                            skipped};
        if (completed)
            row << time.startText() << time.endText() << time.hoursText();
        else
            row << QVariant() << QVariant() << QVariant();
        row << (completed && service.isCounted() ? QVariant(machine.meter.at(m_today))
                                                 : QVariant());
        m_services.add(row);
        for (const PartNeed &need : service.parts) {
            const Part &part = m_masters.part(need.code, machine.kind);
            m_parts.add({m_numbers.service, part.id, need.quantity, need.quantity, part.price,
                         completed, part.supplier});
        }
        ++m_numbers.service;
    }

    const Content &m_content;
    const Masters &m_masters;
    OrderNumbers m_numbers;
    QDate m_today;
    int m_written = 0;
    RowWriter m_orders;
    RowWriter m_services;
    RowWriter m_parts;
};

/// What is due of each machine that has something due, by the machine's number.
std::map<int, std::vector<const Assignment *>> dueWork(const std::vector<Machine> &machines,
                                                       const Schedule &schedule, QDate today)
{
    std::map<int, std::vector<const Assignment *>> due;
    for (const Assignment &assignment : schedule.assignments) {
        if (!assignment.retired && assignment.next.isValid() && assignment.next <= today &&
            !machines[assignment.machine].inactive)
            due[assignment.machine].push_back(&assignment);
    }
    return due;
}

} // namespace

void writeOrders(Batch &batch, const Content &content, const Masters &masters,
                 const std::vector<Machine> &machines, const Schedule &schedule, const Plan &plan,
                 OrderNumbers numbers, QDate today, quint64 seed)
{
    OrderWriter writer(batch, content, masters, numbers, today);
    int machinesSeen = 0;
    for (auto &[number, services] : dueWork(machines, schedule, today)) {
        // Two machines of three keep their due work, for the next generation.
        if (machinesSeen++ % 3 != 1 || writer.written() >= plan.openOrders - 1)
            continue;
        const Machine &machine = machines[number];
        Random random = Random::of(seed + 6, number);
        std::map<int, std::vector<const Assignment *>> byCrew;
        std::vector<const Assignment *> alone;
        for (const Assignment *assignment : services) {
            const CatalogueService &service = content.services[assignment->service];
            if (service.separate)
                alone.push_back(assignment);
            else
                byCrew[service.crewNumber].push_back(assignment);
        }
        for (const auto &[crew, shared] : byCrew)
            writer.write(machine, shared, random);
        for (const Assignment *assignment : alone)
            writer.write(machine, {assignment}, random);
    }
    // An order that somebody emptied and left.
    writer.write(machines.front(), {}, Random::of(seed + 7, 0));

    // Counters are set on the database as a whole, outside of any transaction.
    batch.connection().CommitTrans();
    setCounter(batch.connection(), u"tblServiceUsed"_s, u"ServiceUsedID"_s,
               static_cast<qint64>(schedule.assignments.size()) + 1);
    setCounter(batch.connection(), u"tblWorkorder"_s, u"WorkorderNo"_s, writer.numbers().order);
    setCounter(batch.connection(), u"tblWoServiceUsed"_s, u"NServiceUsedID"_s,
               writer.numbers().service);
    batch.connection().BeginTrans();
}

} // namespace company::sample
