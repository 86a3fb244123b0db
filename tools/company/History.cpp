#include "company/History.h"

#include "core/ServiceHistory.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

class HistoryWriter
{
public:
    HistoryWriter(Batch &batch, const Content &content, const Masters &masters, QDate today)
        : m_content(content)
        , m_masters(masters)
        , m_today(today)
        , m_services(batch, u"tblWOServiceUsedHistory"_s, serviceHistoryColumns())
        , m_parts(batch, u"tblWoPartHistory"_s,
                  {u"ServiceusedID"_s, u"partID"_s, u"Description"_s, u"PartCategoryID"_s,
                   u"Price"_s, u"SupplierID"_s, u"QuantityRequired"_s, u"QuantityUsed"_s})
    {}

    /// One posted service with its parts, under the numbers that are free next.
    void write(const Event &event, const CatalogueService &service, const Machine &machine,
               const OrderNumbers &numbers, Random random)
    {
        const Crew &crew = m_masters.crew(service.crewNumber);
        const bool outside = service.separate && !event.skipped && random.percent(30);
        const WorkTime time = workTime(service.hours, random);
        const QString note = random.pick(event.skipped ? m_content.skipNotes : m_content.doneNotes);
        QVariantList row = {numbers.order,
                            numbers.service,
                            machine.id,
                            service.id,
                            service.name,
                            crew.id,
                            crew.number,
                            dateOrNull(event.formerScheduled),
                            dateOrNull(event.formerPerformed),
                            dateOrNull(event.scheduled),
                            service.costCenter,
                            service.separate ? 1 : 0,
                            service.hours,
                            event.skipped ? cents(service.hours * crew.rate) : time.cost(crew.rate),
                            note.isEmpty() ? service.note : note,
                            QString(service.period),
                            service.jobNo,
                            event.count < 0 ? QVariant() : QVariant(event.count),
                            event.skipped};
        if (event.skipped)
            row << QVariant() << QVariant() << QVariant();
        else
            row << time.startText() << time.endText() << time.hoursText();
        if (outside) {
            const Supplier &supplier = random.pick(m_masters.suppliers());
            row << supplier.id << supplier.name;
        } else {
            row << QVariant() << QVariant();
        }
        const QDate begun = std::max(event.scheduled, event.performed.addDays(-random.below(3)));
        row << dateOrNull(begun) << dateOrNull(event.performed);
        m_services.add(row);
        writeParts(event, service, machine, numbers.service, random);
    }

private:
    void writeParts(const Event &event, const CatalogueService &service, const Machine &machine,
                    qint64 orderService, Random &random)
    {
        const double years = static_cast<double>(event.performed.daysTo(m_today)) / 365;
        for (const PartNeed &need : service.parts) {
            const Part &part = m_masters.part(need.code, machine.kind);
            const double extra = random.percent(5) ? 1 : 0;
            // Prices rose by some per cent each year.
            m_parts.add({orderService, part.id, part.description, part.category,
                         cents(part.price * std::pow(0.96, years)), part.supplierName,
                         need.quantity, event.skipped ? 0 : need.quantity + extra});
        }
    }

    const Content &m_content;
    const Masters &m_masters;
    QDate m_today;
    RowWriter m_services;
    RowWriter m_parts;
};

} // namespace

QString WorkTime::startText() const
{
    return start.toString(u"HH:mm"_s);
}

QString WorkTime::endText() const
{
    return start.addSecs(minutes * 60).toString(u"HH:mm"_s);
}

QString WorkTime::hoursText() const
{
    return u"%1:%2"_s.arg(minutes / 60).arg(minutes % 60, 2, 10, QChar(u'0'));
}

double WorkTime::cost(double rate) const
{
    return cents(minutes / 60.0 * rate);
}

WorkTime workTime(double budgetedHours, Random &random)
{
    WorkTime time;
    const double hours = budgetedHours * random.between(0.75, 1.35);
    time.minutes = std::max(15, static_cast<int>(std::lround(hours * 12)) * 5);
    time.start = QTime(7, 0).addSecs(random.below(91) * 5 * 60);
    return time;
}

OrderNumbers writeHistory(Batch &batch, const Content &content, const Masters &masters,
                          const std::vector<Machine> &machines, Schedule &schedule, QDate today,
                          quint64 seed)
{
    const auto serviceOf = [&](const Event &event) -> const CatalogueService & {
        return content.services[schedule.assignments[event.assignment].service];
    };
    // Work that goes onto one order stands together: same day, machine and crew, apart from what
    // gets an order of its own.
    const auto order = [&](const Event &event) {
        const CatalogueService &service = serviceOf(event);
        return std::tuple(event.performed, schedule.assignments[event.assignment].machine,
                          service.separate, service.crewNumber);
    };
    std::ranges::sort(schedule.events, [&](const Event &a, const Event &b) {
        const auto left = order(a);
        const auto right = order(b);
        return left != right ? left < right : a.assignment < b.assignment;
    });

    HistoryWriter writer(batch, content, masters, today);
    OrderNumbers numbers;
    for (std::size_t i = 0; i < schedule.events.size(); ++i) {
        const Event &event = schedule.events[i];
        const CatalogueService &service = serviceOf(event);
        if (i > 0 && (service.separate || order(event) != order(schedule.events[i - 1])))
            ++numbers.order;
        writer.write(event, service, machines[schedule.assignments[event.assignment].machine],
                     numbers, Random::of(seed + 5, i));
        ++numbers.service;
    }
    if (!schedule.events.empty())
        ++numbers.order;
    return numbers;
}

} // namespace company::sample
