// The machine shows what was done, and when it is due again.
#include "tour/Tour.h"

namespace tour {

using namespace Qt::StringLiterals;

Task Tour::seeTheHistory()
{
    const Machine &machine = m_cast.serviced;
    const QDate from = m_today.addMonths(-6);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    co_await m_hands.press(u"lblQuickMenu1"_s);
    m_hands.requireWindow(u"frmQuickFind"_s);
    co_await m_hands.type(u"txtSearchText"_s, machine.unitNo);
    see(u"find"_s, u"The machine is found by its number."_s);
    co_await m_hands.key(Qt::Key_Return);
    m_hands.requireWindow(u"frmEquipment"_s);

    co_await m_hands.press(u"tabHistory"_s);
    co_await m_hands.type(u"datEqDateFrom"_s, from.toString(u"MM/dd/yyyy"));
    co_await m_hands.press(u"cmdRefresh"_s);
    QStringList done;
    for (const db::Row row : m_company->rows(
             u"Select WorkorderNo from tblWOServiceUsedHistory where EquipmentID = ? and "
             "CompleteDate >= ? and CompleteDate <= ?"_s,
             {machine.id, from, m_today}))
        done.append(row.text(u"WorkorderNo"));
    requireList(u"grdServiceHistory"_s, u"WorkOrderNo"_s, done);
    see(u"history"_s,
        u"The history of %1: %2 services in six months, today's among them."_s.arg(machine.unitNo)
            .arg(done.size()));
}

Task Tour::seeTheSchedule()
{
    co_await m_hands.press(u"tabService"_s);
    const grid::GridModel &rows = m_hands.grid(u"grdService"_s).rows();
    for (const Service &before : m_cast.serviced.services) {
        const Service now = m_company->service(before.id);
        const int row = rows.findRow(u"ServiceUsedID", before.id);
        require(row >= 0, u"The machine must keep \"%1\"."_s.arg(before.name));
        const QString date = now.next.isValid() ? now.next.toString(u"MM/dd/yyyy") : QString();
        require(rows.text(row, u"Next Schedule") == date,
                u"\"%1\" is due on \"%2\", shown is \"%3\"."_s.arg(
                    before.name, date, rows.text(row, u"Next Schedule")));
        require(now.meter().isEmpty() || rows.value(row, u"Next Count").toLongLong() == now.target,
                u"\"%1\" is due at %2, shown is %3."_s.arg(before.name)
                    .arg(now.target)
                    .arg(rows.text(row, u"Next Count")));
    }
    see(u"schedule"_s, u"The moved dates: services by the calendar have their next date, those by "
                       "the meter wait for a reading."_s);
}

} // namespace tour
