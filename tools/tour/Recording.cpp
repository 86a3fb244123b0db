// The mechanic's paper comes back.
#include "tour/Tour.h"

namespace tour {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 SinceLastReading = 12;

} // namespace

Task Tour::openRecording()
{
    co_await m_hands.chooseTab(u"sstabWorkorder"_s, 1);
    const qint64 stored = m_company->number(u"Select Count(*) from tblWorkorder"_s);
    const int listed = m_hands.grid(u"grdRecordWo"_s).rows().rowCount();
    require(listed == stored, u"%1 orders are open, %2 are listed."_s.arg(stored).arg(listed));
}

/// Goes to the order of a service, and there to the service.
Task Tour::selectLine(qint64 line)
{
    const qint64 order = stored(line).integer(u"WorkorderNo");
    const int row = m_hands.grid(u"grdRecordWo"_s).rows().findRow(u"WorkOrderNo", order);
    co_await m_hands.click(u"grdRecordWo"_s, row, u"Equipment Name"_s);
    const int service = m_hands.grid(u"grdRecordService"_s).rows().findRow(u"NServiceUsedID", line);
    co_await m_hands.click(u"grdRecordService"_s, service, u"Service Name"_s);
}

/// A count below the last reading is asked about first, and taken back; then the true ones are
/// entered.
Task Tour::enterTheCount()
{
    const Service &service = dueService(m_cast.serviced, isByMeter);
    const qint64 line = lineOf(service);
    const qint64 last = m_company->reading(m_cast.serviced.id, service.meter());
    co_await enterCount(service, last - 1);
    see(u"count-question"_s,
        u"\"%1\" at %2 %3, below the last reading of %4: the program asks."_s.arg(service.name)
            .arg(last - 1)
            .arg(service.meter())
            .arg(last));
    co_await m_hands.answer(
        u"Enter count is smaller than previous count(%1). Do you want to continue ?"_s.arg(last),
        u"No"_s);
    require(stored(line).isNull(u"CountValue"),
            u"A count that was taken back may not be stored."_s);

    co_await enterCounts(m_cast.serviced);
}

Task Tour::enterCount(const Service &service, qint64 count)
{
    const qint64 line = lineOf(service);
    co_await selectLine(line);
    const int row = m_hands.grid(u"grdRecordService"_s).rows().findRow(u"NServiceUsedID", line);
    co_await m_hands.click(u"grdRecordService"_s, row, u"Count"_s);
    co_await m_hands.type(QString::number(count));
    co_await m_hands.key(Qt::Key_Return);
}

/// What the meters showed when the work was done.
Task Tour::enterCounts(const Machine &machine)
{
    for (const Service &service : machine.services) {
        if (service.meter().isEmpty())
            continue;
        const qint64 count = m_company->reading(machine.id, service.meter()) + SinceLastReading;
        co_await enterCount(service, count);
        require(stored(lineOf(service)).integer(u"CountValue") == count,
                u"The count of \"%1\" must be stored."_s.arg(service.name));
    }
}

Task Tour::enterTheTimes()
{
    const qint64 line = lineOf(dueService(m_cast.serviced, takesParts));
    co_await selectLine(line);
    const int row = m_hands.grid(u"grdRecordService"_s).rows().findRow(u"NServiceUsedID", line);
    co_await m_hands.click(u"grdRecordService"_s, row, u"StartTime"_s);
    m_hands.requireWindow(u"frmServiceTime"_s);
    co_await m_hands.type(u"timeStart"_s, u"08:15A"_s);
    co_await m_hands.type(u"timeEnd"_s, u"09:45A"_s);
    co_await m_hands.key(Qt::Key_Tab);
    see(u"times"_s, u"The work took from 8:15 to 9:45."_s);
    co_await m_hands.press(u"cmdUpdate"_s);
    const db::Row service = stored(line);
    require(service.text(u"StartTime") == u"08:15" && service.text(u"EndTime") == u"09:45" &&
                service.text(u"Workhrs") == u"01:30",
            u"The times of \"%1\" must be stored."_s.arg(service.text(u"Name")));
}

/// Completes a service, of which one part more was used than planned.
Task Tour::completeAService()
{
    const qint64 line = lineOf(dueService(m_cast.serviced, takesParts));
    const int row = m_hands.grid(u"grdRecordService"_s).rows().findRow(u"NServiceUsedID", line);
    co_await m_hands.click(u"grdRecordService"_s, row, u"Completed"_s);
    require(stored(line).flag(u"Completed"), u"A ticked service must be stored as completed."_s);

    const grid::GridModel &parts = m_hands.grid(u"grdRecordPart"_s).rows();
    require(parts.rowCount() > 0 && parts.value(0, u"Used").toBool(),
            u"The parts of a completed service must be ticked as used."_s);
    const QString part = parts.text(0, u"Part Number");
    const double used = parts.value(0, u"Qty Req").toDouble() + 1;
    co_await m_hands.click(u"grdRecordPart"_s, 0, u"Qty Used"_s);
    co_await m_hands.type(QString::number(used));
    co_await m_hands.key(Qt::Key_Return);
    const db::Recordset kept = m_company->rows(
        u"Select QuantityUsed from tblWoPartUsed where ServiceUsedID = ? and PartID = ?"_s,
        {line, part});
    require(kept.RecordCount() == 1 && kept.current().real(u"QuantityUsed") == used,
            u"The used quantity of %1 must be stored."_s.arg(part));
    see(u"recorded"_s, u"\"%1\" is completed; of part %2 one more was used than planned."_s.arg(
                           stored(line).text(u"Name"), part));
}

/// A skipped service needs a reason, which becomes its note.
Task Tour::skipAService()
{
    const QString reason = u"Away on a job until Monday"_s;
    const Service &service = dueService(m_cast.skipped, isByCalendar);
    const qint64 line = lineOf(service);
    co_await selectLine(line);
    const int row = m_hands.grid(u"grdRecordService"_s).rows().findRow(u"NServiceUsedID", line);
    co_await m_hands.click(u"grdRecordService"_s, row, u"Skip"_s);
    m_hands.requireWindow(u"inputBox"_s);
    co_await m_hands.key(Qt::Key_A, Qt::ControlModifier);
    co_await m_hands.type(reason);
    see(u"skip"_s, u"\"%1\" of %2 is skipped; the reason becomes its note."_s.arg(
                       service.name, m_cast.skipped.unitNo));
    co_await m_hands.key(Qt::Key_Return);
    require(stored(line).flag(u"Skip") && !stored(line).flag(u"Completed") &&
                stored(line).text(u"Note") == reason,
            u"The skipped service must be stored with its reason."_s);
}

Task Tour::completeOrders(const Machine &machine)
{
    for (const qint64 order : m_company->ordersOf(machine)) {
        const int row = m_hands.grid(u"grdRecordWo"_s).rows().findRow(u"WorkOrderNo", order);
        co_await m_hands.click(u"grdRecordWo"_s, row, u"Complete"_s);
        const db::Recordset stored = m_company->rows(
            u"Select CompletedDate from tblWorkorder where WorkorderNo = ? and Complete = -1"_s,
            {order});
        require(stored.RecordCount() == 1 &&
                    stored.current().date(u"CompletedDate").date() == m_today,
                u"Order %1 must be complete as of today."_s.arg(order));
    }
}

Task Tour::completeTheOrders()
{
    for (const Machine &machine : m_cast.all())
        co_await completeOrders(machine);
    for (const Machine &machine : m_cast.all()) {
        for (const Service &service : machine.services) {
            const db::Row line = stored(lineOf(service));
            require(line.flag(u"Completed") != line.flag(u"Skip"),
                    u"\"%1\" of %2 must be either completed or skipped."_s.arg(service.name,
                                                                               machine.unitNo));
        }
    }
    co_await selectLine(lineOf(dueService(m_cast.unread, isByMeter)));
    see(u"complete"_s, u"All orders are complete; the green count of %1 is still empty."_s.arg(
                           m_cast.unread.unitNo));
}

} // namespace tour
