// What was recorded becomes history, and every service gets its next date or count.
#include "tour/Tour.h"

#include <QHash>
#include <utility>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

const QString ListQuestion = u"Do you want to print a list of Work Orders posted?"_s;
const QString EachQuestion = u"Do you want to print out each individual Work Order"_s;
const QString TooOld = u"You have chosen to reschedule"_s;

/// Of a service by the meter: nobody has read it yet.
bool lacksCount(const Tour::Ordered &service)
{
    return !service.schedule.meter().isEmpty() && !service.count;
}

} // namespace

QList<Tour::Ordered> Tour::completed()
{
    QList<Ordered> services;
    for (const db::Row row : m_company->rows(
             u"Select NServiceUsedID, tblWoServiceUsed.WorkorderNo as OrderNo, "
             "ServiceUsedID, tblWoServiceUsed.EquipmentID as Machine, CountValue, "
             "NextScheduledDate, Period from tblWoServiceUsed inner join tblWorkorder "
             "on tblWoServiceUsed.WorkorderNo = tblWorkorder.WorkorderNo where Complete "
             "= -1 and (Completed = -1 or Skip = -1)"_s)) {
        Ordered service;
        service.line = row.integer(u"NServiceUsedID");
        service.order = row.integer(u"OrderNo");
        service.machine = row.integer(u"Machine");
        if (!row.isNull(u"CountValue"))
            service.count = row.integer(u"CountValue");
        if (row.integer(u"ServiceUsedID") != 0)
            service.schedule = m_company->service(row.integer(u"ServiceUsedID"));
        service.schedule.period = row.text(u"Period");
        service.schedule.next = row.date(u"NextScheduledDate").date();
        services.append(service);
    }
    return services;
}

QList<Tour::Taken> Tour::partsOf(const QList<Ordered> &services)
{
    QHash<QString, Taken> parts;
    QHash<QString, int> uses;
    for (const Ordered &service : services) {
        for (const db::Row row : m_company->rows(
                 u"Select tblWoPartUsed.PartID as Part, Quantity, QuantityUsed from tblWoPartUsed "
                 "inner join tblPart on tblWoPartUsed.PartID = tblPart.PartID where ServiceUsedID "
                 "= ? and Used = -1 and TrackInventory = 0"_s,
                 {service.line})) {
            const QString part = row.text(u"Part");
            ++uses[part];
            parts.insert(part, {part, row.real(u"Quantity"), row.real(u"QuantityUsed")});
        }
    }
    // Of a part that several services use, the last one alone leaves the stock.
    QList<Taken> taken;
    for (const Taken &part : std::as_const(parts)) {
        if (uses.value(part.part) == 1)
            taken.append(part);
    }
    return taken;
}

void Tour::requirePosted(const Ordered &service)
{
    require(m_company->number(u"Select Count(*) from tblWoServiceUsed where NServiceUsedID = ?"_s,
                              {service.line}) == 0,
            u"A posted service must leave order %1."_s.arg(service.order));
    const db::Recordset history = m_company->rows(
        u"Select CompleteDate, CountValue from tblWOServiceUsedHistory where WorkorderNo = ? and "
        "ServiceUsedID = ?"_s,
        {service.order, service.line});
    require(history.RecordCount() == 1 &&
                history.current().date(u"CompleteDate").date() == m_today &&
                history.current().integer(u"CountValue") == service.count.value_or(0),
            u"History must hold \"%1\" of order %2 once, as of today."_s.arg(service.schedule.name)
                .arg(service.order));
    if (service.schedule.id != 0)
        requireRescheduled(service);
}

void Tour::requireRescheduled(const Ordered &service)
{
    const Service &before = service.schedule;
    const Service now = m_company->service(before.id);
    const QString which = u"\"%1\" of order %2"_s.arg(before.name).arg(service.order);
    require(now.lastScheduled == before.next && now.lastPerformed == m_today,
            which + u" must be noted as scheduled for its date and performed today."_s);
    if (before.isOneOff())
        return;
    if (before.meter().isEmpty()) {
        require(now.next > before.next && now.next >= m_today,
                which + u" must move to a later date; it stands on %1."_s.arg(
                            now.next.toString(Qt::ISODate)));
        return;
    }
    const qint64 target =
        (before.renewal == u"W" ? service.count.value_or(0) : before.target) + before.interval;
    require(!now.next.isValid() && now.target == target,
            which + u" must wait for %1 %2, it waits for %3."_s.arg(target)
                        .arg(before.meter())
                        .arg(now.target));
    require(m_company->number(
                u"Select Count(*) from tblEquipmentCount where EquipmentID = ? and "
                "ChangeDate = ? and CountType = ? and CountValue = ?"_s,
                {service.machine, m_today, before.meter(), service.count.value_or(0)}) > 0,
            which + u" must leave a reading."_s);
}

void Tour::requireTaken(const Taken &part)
{
    const db::Recordset stock =
        m_company->rows(u"Select Quantity from tblPart where PartID = ?"_s, {part.part});
    require(stock.current().real(u"Quantity") == part.before - part.used,
            u"%1 of part %2 were used, its stock went from %3 to %4."_s.arg(part.used)
                .arg(part.part)
                .arg(part.before)
                .arg(stock.current().real(u"Quantity")));
}

/// Services that keep their rhythm may be late by more than a period: the program asks for each.
Task Tour::confirmDates()
{
    bool first = true;
    while (Hands::message().startsWith(TooOld)) {
        co_await m_hands.answer(Hands::message(), u"OK"_s);
        m_hands.requireWindow(u"frmServiceDateConfirmation"_s);
        if (std::exchange(first, false))
            see(u"confirm-date"_s, u"A service is so late that its next date has passed too: it "
                                   "goes on from the completion."_s);
        co_await m_hands.press(u"cmdOK"_s);
    }
}

Task Tour::post()
{
    const QList<Ordered> services = completed();
    QList<Ordered> posted;
    QList<qint64> held;
    for (const Ordered &service : services) {
        if (lacksCount(service) && !held.contains(service.order))
            held.append(service.order);
    }
    for (const Ordered &service : services) {
        if (!held.contains(service.order))
            posted.append(service);
    }
    const QList<Taken> parts = partsOf(posted);
    require(!parts.isEmpty(), u"A posted service must use a part of the stock."_s);

    co_await m_hands.press(u"cmdPost"_s);
    m_hands.requireWindow(u"frmWOCompletedDate"_s);
    see(u"completed-date"_s, u"Before the posting it is asked for the day of completion."_s);
    co_await m_hands.press(u"cmdOK"_s);
    co_await confirmDates();
    const QString message = Hands::message();
    require(message.startsWith(u"Following Work Orders ("),
            u"An order without its count must be held back."_s);
    for (const qint64 order : held)
        require(message.contains(QString::number(order)),
                u"Order %1 must be held back; the message says \"%2\"."_s.arg(order).arg(message));
    see(u"held-back"_s,
        u"Held back without their counts: %1; the others are posted."_s.arg(list(held)));
    co_await m_hands.answer(message, u"OK"_s);

    for (const Ordered &service : posted)
        requirePosted(service);
    for (const Taken &part : parts)
        requireTaken(part);
    for (const qint64 order : held)
        require(m_company->number(u"Select Count(*) from tblWorkorder where WorkorderNo = ? and "
                                  "Complete = -1"_s,
                                  {order}) == 1,
                u"Order %1 was held back and must stay complete."_s.arg(order));
}

Task Tour::printPosted()
{
    co_await m_hands.answer(ListQuestion, u"Yes"_s);
    co_await m_hands.answer(EachQuestion, u"Yes"_s);
    co_await exportReport(u"posted-orders.pdf"_s);
    see(u"posted-orders"_s, u"What was posted, order by order; exported as posted-orders.pdf."_s);
    co_await m_hands.press(u"cmdExit"_s);
    co_await exportReport(u"posted-list.pdf"_s);
    see(u"posted-list"_s, u"The list of the posted orders; exported as posted-list.pdf."_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmWorkorder"_s);
}

Task Tour::postTheHeldBack()
{
    co_await enterCounts(m_cast.unread);
    co_await postAll();
    see(u"recorded-all"_s, u"With their counts these are posted, too."_s);
}

/// Posts what is complete, which lacks nothing.
Task Tour::postAll()
{
    const QList<Ordered> services = completed();
    co_await m_hands.press(u"cmdPost"_s);
    co_await m_hands.press(u"cmdOK"_s);
    co_await confirmDates();
    co_await m_hands.answer(ListQuestion, u"No"_s);
    for (const Ordered &service : services)
        requirePosted(service);
}

} // namespace tour
