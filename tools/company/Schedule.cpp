#include "company/Schedule.h"

#include "platform/base/Environment.h"

#include <set>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

/// What a machine's every fortieth assignment is for, so that even a small company shows each case.
enum class Case { DueToday, DueTomorrow, Late, VeryLate, CountReached, Any };

Case caseOf(int assignment)
{
    const int number = assignment % 40;
    return number < 5 ? static_cast<Case>(number) : Case::Any;
}

/// A weekday of the machine's own, so that several of its services come together on one order.
int shopWeekday(const Machine &machine)
{
    return 1 + machine.serial % 5;
}

QDate shopDayFrom(const Machine &machine, QDate date)
{
    while (date.dayOfWeek() != shopWeekday(machine))
        date = date.addDays(1);
    return date;
}

QDate shopDayUpTo(const Machine &machine, QDate date)
{
    while (date.dayOfWeek() != shopWeekday(machine))
        date = date.addDays(-1);
    return date;
}

/// True when a machine of this kind gets a service of the catalogue.
bool applies(const CatalogueService &service, const FleetModel &model, const Machine &machine)
{
    if (!service.classes.contains(model.machineClass) && !service.classes.contains(u"*"_s))
        return false;
    if (service.isCounted())
        return service.period == model.meter;
    return service.renewal != u'D' || machine.serial % 3 == 0;
}

/// One assignment and its past, from the present backwards.
class AssignmentMaker
{
public:
    AssignmentMaker(const CatalogueService &service, const Machine &machine, const Plan &plan,
                    QDate today, Assignment &assignment, Random random)
        : m_service(service)
        , m_machine(machine)
        , m_plan(plan)
        , m_today(today)
        , m_isAhead(plan.isAhead(machine.serial))
        , m_first(std::max(machine.acquired, today.addYears(-plan.historyYears)))
        , m_assignment(assignment)
        , m_case(caseOf(assignment.id - 1))
        , m_random(random)
    {}

    /// The posted work, newest first.
    std::vector<Event> make()
    {
        if (m_service.renewal == u'D')
            makeOneOff();
        else if (m_service.isCounted())
            makeCounted();
        else if (m_isAhead)
            makeToCome();
        else
            makeCalendar();
        linkEvents();
        return std::move(m_events);
    }

private:
    /// A service that is done once: half of them are, long ago; the others come soon.
    void makeOneOff()
    {
        const QDate scheduled = m_machine.lastDay.addDays(-m_random.between(20, 300));
        if (m_random.percent(50) && scheduled > m_first) {
            const QDate performed = shopDayFrom(m_machine, scheduled);
            m_assignment.retired = true;
            m_assignment.next = scheduled;
            add(performed, scheduled, -1);
        } else {
            m_assignment.next = m_isAhead ? m_today.addDays(m_random.between(1, 40))
                                          : m_machine.lastDay.addDays(m_random.between(-5, 40));
        }
    }

    /// When it falls due next, as the company's day-to-day work would have left it.
    QDate chooseNext()
    {
        const QDate day = m_machine.lastDay;
        switch (m_case) {
        case Case::DueToday:
            return day;
        case Case::DueTomorrow:
            return day.addDays(1);
        case Case::Late:
            return day.addDays(-5);
        case Case::VeryLate:
            return day.addDays(-45);
        default:
            break;
        }
        const int chance = m_random.below(100);
        if (chance < 2)
            return day;
        if (chance < 6)
            return day.addDays(-m_random.between(1, 13));
        if (chance < 8)
            return day.addDays(-m_random.between(14, 30));
        if (chance < 9)
            return day.addDays(-m_random.between(31, 75));
        const int days = approximateDays(m_service.period, m_service.interval);
        return day.addDays(1 + m_random.below(std::max(1, days)));
    }

    /// The day from which the interval leads to the given one.
    [[nodiscard]] QDate before(QDate due) const
    {
        return m_service.pattern.byDayOfMonth
                   ? m_service.pattern.lastBefore(due)
                   : addInterval(due, m_service.period, -m_service.interval);
    }

    void makeCalendar()
    {
        QDate wished = chooseNext();
        QDate next = m_service.pattern.firstFrom(wished);
        QDate base = before(next);
        const auto isUnlikely = [&] {
            // A pattern pushes the date on; what led to it must not lie in the future, nor, where
            // there is a choice, at a weekend.
            return base > m_machine.lastDay ||
                   (m_case == Case::Any && next == wished && base.dayOfWeek() > 5);
        };
        while (isUnlikely()) {
            wished = wished.addDays(-1);
            next = m_service.pattern.firstFrom(wished);
            base = before(next);
        }
        // From the last day of a short month the interval leads to an earlier day.
        if (!m_service.pattern.byDayOfMonth)
            next = addInterval(base, m_service.period, m_service.interval);
        m_assignment.next = next;
        walkFrom(base);
    }

    /// Due after today, wherever the pattern moves it.
    void makeToCome()
    {
        const int days = std::max(1, approximateDays(m_service.period, m_service.interval));
        m_assignment.next = m_service.pattern.firstFrom(m_today.addDays(1 + m_random.below(days)));
        QDate base = before(m_assignment.next);
        while (base > m_machine.lastDay)
            base = before(base);
        walkFrom(base);
    }

    /// Walks back from the day that led to the next date.
    void walkFrom(QDate base)
    {
        if (m_service.renewal == u'S' || m_service.pattern.byDayOfMonth)
            walkByScheduled(base);
        else
            walkByPerformed(base);
    }

    /// The interval runs from the scheduled date; the work follows on the next shop day.
    void walkByScheduled(QDate scheduled)
    {
        while (scheduled >= m_first && wanted()) {
            add(std::min(shopDayFrom(m_machine, scheduled), m_machine.lastDay), scheduled, -1);
            scheduled = before(scheduled);
        }
    }

    /// The interval runs from the day of the work.
    void walkByPerformed(QDate performed)
    {
        while (performed >= m_first && wanted()) {
            const QDate former = shopDayUpTo(m_machine, before(performed));
            const QDate scheduled = addInterval(former, m_service.period, m_service.interval);
            add(performed, std::min(scheduled, performed), -1);
            performed = former;
        }
    }

    /// Due by the meter: from what it shows now to the last work, and back from there.
    void makeCounted()
    {
        const Meter &meter = m_machine.meter;
        const int interval = m_service.interval;
        const bool reached = !m_isAhead && (m_case == Case::CountReached || m_random.percent(9));
        const double part = reached ? m_random.between(1.12, 1.25) : m_random.between(0.02, 0.98);
        const int now = meter.at(m_machine.lastReading);
        const int from =
            std::max(now - static_cast<int>(part * interval), meter.at(m_machine.acquired));
        QDate start = meter.reached(from);
        // An earlier day would bring the target down to what the meter shows by now.
        while (!m_isAhead && start.dayOfWeek() > 5 && start > m_machine.acquired)
            start = start.addDays(-1);
        m_assignment.nextCount = from + interval;
        if (start <= m_first)
            return;
        if (m_service.renewal == u'S') {
            m_assignment.nextCount = meter.at(start) + interval;
            for (int target = meter.at(start); start > m_first && wanted(); target -= interval) {
                start = meter.reached(target);
                const QDate performed =
                    std::min(shopDayFrom(m_machine, start), m_machine.lastReading);
                add(performed, start, meter.at(performed));
            }
            return;
        }
        m_assignment.nextCount = meter.at(start) + interval;
        const int oldest = meter.at(m_machine.acquired);
        for (QDate performed = start; performed > m_first && wanted();) {
            const int count = meter.at(performed);
            if (count - interval < oldest) {
                // The first time: nothing before it set a target.
                add(performed, performed, count);
                return;
            }
            QDate former = shopDayUpTo(m_machine, meter.reached(count - interval));
            while (meter.at(former) + interval > count)
                former = former.addDays(-7);
            add(performed, meter.reached(meter.at(former) + interval), count);
            performed = former;
        }
    }

    /// False once the plan's number of posted rows is reached.
    [[nodiscard]] bool wanted() const
    {
        return static_cast<int>(m_events.size()) < m_plan.historyPerService;
    }

    void add(QDate performed, QDate scheduled, int count)
    {
        Event event;
        event.performed = performed;
        event.scheduled = scheduled;
        event.assignment = m_assignment.id - 1;
        event.count = count;
        event.skipped = m_random.percent(3);
        m_events.push_back(event);
    }

    /// Each piece of work names the dates of the one before it, as posting notes them.
    void linkEvents()
    {
        for (std::size_t i = 0; i + 1 < m_events.size(); ++i) {
            m_events[i].formerScheduled = m_events[i + 1].scheduled;
            m_events[i].formerPerformed = m_events[i + 1].performed;
        }
        if (m_events.empty())
            return;
        m_assignment.lastScheduled = m_events.front().scheduled;
        m_assignment.lastPerformed = m_events.front().performed;
    }

    const CatalogueService &m_service;
    const Machine &m_machine;
    const Plan &m_plan;
    QDate m_today;
    bool m_isAhead; ///< nothing of the machine is due
    QDate m_first;  ///< nothing was posted before it
    Assignment &m_assignment;
    Case m_case;
    Random m_random;
    std::vector<Event> m_events;
};

/// The days on which a machine's meter was read: regularly, when work was done, and when it fell
/// due on a machine that still has due work.
std::set<QDate> readingDays(const Machine &machine, const Plan &plan,
                            const std::vector<Event> &events, std::size_t firstEvent, QDate today,
                            Random random)
{
    std::set<QDate> days = {machine.acquired, machine.lastReading};
    const int every =
        plan.isAhead(machine.serial) ? plan.restingReadingEveryDays : plan.readingEveryDays;
    QDate day = std::max(machine.acquired, today.addYears(-plan.historyYears));
    for (; day < machine.lastReading; day = day.addDays(every + random.between(-2, 2)))
        days.insert(day);
    for (std::size_t i = firstEvent; i < events.size(); ++i) {
        if (events[i].count < 0)
            continue;
        if (!plan.isAhead(machine.serial))
            days.insert(events[i].scheduled);
        days.insert(events[i].performed);
    }
    return days;
}

/// Writes assignments, their parts and readings, machine by machine.
class ScheduleWriter
{
public:
    ScheduleWriter(Batch &batch, const Content &content, const Masters &masters)
        : m_content(content)
        , m_masters(masters)
        , m_assignments(batch, u"tblServiceUsed"_s,
                        QStringList{u"ServiceUsedID"_s, u"EquipmentID"_s, u"ServiceID"_s, u"Name"_s,
                                    u"CrewID"_s, u"CostCenterID"_s} +
                            scheduleColumns() +
                            QStringList{u"SeparateWo"_s, u"LaborEstimate"_s, u"CostEstimate"_s,
                                        u"[Note]"_s, u"JobNo"_s, u"Inactive"_s,
                                        u"NextScheduledCount"_s, u"LastDateScheduled"_s,
                                        u"LastDatePerformed"_s, u"NextScheduledDate"_s})
        , m_parts(
              batch, u"tblServiceUsedPart"_s,
              {u"PartID"_s, u"ServiceUsedID"_s, u"QuantityRequired"_s, u"Price"_s, u"SupplierID"_s})
        , m_readings(batch, u"tblEquipmentCount"_s,
                     {u"EquipmentID"_s, u"ChangeDate"_s, u"CountType"_s, u"CountValue"_s})
    {}

    void write(const Assignment &assignment, const Machine &machine)
    {
        const CatalogueService &service = m_content.services[assignment.service];
        const Crew &crew = m_masters.crew(service.crewNumber);
        m_assignments.add(
            QVariantList{assignment.id, machine.id, service.id, service.name, crew.id,
                         m_masters.costCenter(service.costCenter)} +
            scheduleValues(service) +
            QVariantList{service.separate ? 1 : 0, service.hours, cents(service.hours * crew.rate),
                         service.note, service.jobNo, assignment.retired ? 1 : 0,
                         assignment.nextCount, dateOrNull(assignment.lastScheduled),
                         dateOrNull(assignment.lastPerformed), dateOrNull(assignment.next)});
        for (const PartNeed &need : service.parts) {
            const Part &part = m_masters.part(need.code, machine.kind);
            m_parts.add({part.id, assignment.id, need.quantity, part.price, part.supplier});
        }
    }

    /// What the meter showed on these days.
    void writeReadings(const Machine &machine, QChar period, const std::set<QDate> &days)
    {
        for (const QDate day : days)
            m_readings.add(
                {machine.id, base::wallClock(day), countWord(period), machine.meter.at(day)});
    }

private:
    const Content &m_content;
    const Masters &m_masters;
    RowWriter m_assignments;
    RowWriter m_parts;
    RowWriter m_readings;
};

} // namespace

Schedule writeSchedule(Batch &batch, const Content &content, const Masters &masters,
                       const std::vector<Machine> &machines, const Plan &plan, QDate today,
                       quint64 seed)
{
    Schedule schedule;
    ScheduleWriter writer(batch, content, masters);
    for (const Machine &machine : machines) {
        const FleetModel &model = content.fleet[machine.kind];
        const std::size_t firstAssignment = schedule.assignments.size();
        const std::size_t firstEvent = schedule.events.size();
        for (int service = 0; service < static_cast<int>(content.services.size()); ++service) {
            if (!applies(content.services[service], model, machine))
                continue;
            Assignment &assignment = schedule.assignments.emplace_back();
            assignment.id = static_cast<int>(schedule.assignments.size());
            assignment.machine = machine.serial;
            assignment.service = service;
            const std::vector<Event> events =
                AssignmentMaker(content.services[service], machine, plan, today, assignment,
                                Random::of(seed + 3, assignment.id))
                    .make();
            schedule.events.insert(schedule.events.end(), events.begin(), events.end());
        }

        std::set<QDate> days;
        if (!model.meter.isNull()) {
            days = readingDays(machine, plan, schedule.events, firstEvent, today,
                               Random::of(seed + 4, machine.serial));
            writer.writeReadings(machine, model.meter, days);
        }
        for (std::size_t i = firstAssignment; i < schedule.assignments.size(); ++i) {
            Assignment &assignment = schedule.assignments[i];
            if (content.services[assignment.service].isCounted()) {
                // Due on the day of the first reading that reached the target.
                const auto due = days.lower_bound(machine.meter.reached(assignment.nextCount));
                assignment.next = due == days.end() ? QDate() : *due;
            }
            writer.write(assignment, machine);
        }
    }
    return schedule;
}

} // namespace company::sample
