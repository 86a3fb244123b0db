// What is due becomes work orders, and these are printed.
#include "tour/Tour.h"

#include <QLabel>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

const QString MarkQuestion = u"Mark Work Orders as Printed"_s;

} // namespace

Task Tour::followTheLink()
{
    const Machine &machine = m_cast.serviced;
    const grid::GridModel &board = m_hands.grid(u"grdEquipWithSer"_s).rows();
    int row = -1;
    // A machine may also stand under the open orders.
    for (int each = 0; each < board.rowCount(); ++each) {
        if (board.text(each, u"Unit No") == machine.unitNo + u" - "_s + machine.name &&
            board.text(each, u"W/O").isEmpty())
            row = each;
    }
    co_await m_hands.click(u"grdEquipWithSer"_s, row, u"Unit No"_s);

    m_hands.requireWindow(u"frmWorkorder"_s);
    const grid::GridView &machines = m_hands.grid(u"grdPrintWO"_s);
    require(machines.currentRow() >= 0 &&
                machines.rows().text(machines.currentRow(), u"Unit No") == machine.unitNo,
            u"The row of %1 must be the current one."_s.arg(machine.unitNo));
    QStringList due;
    for (const Service &service : machine.services)
        due.append(service.name);
    requireList(u"grdGenService"_s, u"Service Name"_s, due);
    see(u"due"_s, u"The link opens the work orders on %1, %2: %3 services are due."_s
                      .arg(machine.unitNo, machine.name)
                      .arg(due.size()));
}

Task Tour::tickMachines()
{
    for (const Machine &machine : m_cast.all())
        co_await m_hands.click(u"grdPrintWO"_s, rowOfMachine(u"grdPrintWO"_s, machine),
                               u"Select"_s);
}

void Tour::requireGenerated(const Machine &machine)
{
    const QList<qint64> orders = m_company->ordersOf(machine);
    require(orders.size() == machine.ordersToCome(),
            u"%1 must get %2 orders and got %3."_s.arg(machine.unitNo)
                .arg(machine.ordersToCome())
                .arg(orders.size()));
    for (const Service &service : machine.services) {
        require(lineOf(service) != 0,
                u"\"%1\" of %2 is on no order."_s.arg(service.name, machine.unitNo));
        const qint64 parts = m_company->number(
            u"Select Count(*) from tblServiceUsedPart where ServiceUsedID = ?"_s, {service.id});
        const qint64 ordered = m_company->number(
            u"Select Count(*) from tblWoPartUsed where ServiceUsedID = ? and QuantityUsed = "
            "QuantityRequired"_s,
            {lineOf(service)});
        require(parts == ordered, u"\"%1\" of %2 takes %3 parts, its order has %4."_s
                                      .arg(service.name, machine.unitNo)
                                      .arg(parts)
                                      .arg(ordered));
    }
    m_orders += orders;
}

Task Tour::generateOrders()
{
    co_await tickMachines();
    co_await m_hands.press(u"cmdGenrateWo"_s);
    for (const Machine &machine : m_cast.all())
        requireGenerated(machine);
    see(u"generated"_s,
        u"Three machines are ticked; their work orders are made: %1."_s.arg(list(m_orders)));
    co_await m_hands.answer(u"Workorder Generated"_s, u"OK"_s);
}

Task Tour::changeAnOrder()
{
    const QString note = u"Call the yard before the machine leaves the shop"_s;
    const qint64 order = m_company->ordersOf(m_cast.serviced).first();
    const int row = m_hands.grid(u"grdPrintWO"_s).rows().findRow(u"WorkOrderNo", order);
    co_await m_hands.click(u"grdPrintWO"_s, row, u"Equipment Name"_s);
    const grid::GridView &services = m_hands.grid(u"grdPrintService"_s);
    const qint64 line =
        services.rows().value(services.currentRow(), u"NServiceUsedID").toLongLong();
    QStringList parts;
    for (const db::Row part :
         m_company->rows(u"Select PartID from tblWoPartUsed where ServiceUsedID = ?"_s, {line}))
        parts.append(part.text(u"PartID"));
    requireList(u"grdPrintPart"_s, u"Part Number"_s, parts);
    co_await m_hands.type(u"txtPrintNote"_s, note);
    co_await m_hands.click(u"grdPrintService"_s, services.currentRow(), u"Service Name"_s);
    require(stored(line).text(u"Note") == note,
            u"The note of an order's service must be stored."_s);
    see(u"order"_s,
        u"Order %1 of %2 with its services and parts; a note is added."_s.arg(order).arg(
            m_cast.serviced.unitNo));
}

Task Tour::tickOrders()
{
    for (const qint64 order : m_orders) {
        const int row = m_hands.grid(u"grdPrintWO"_s).rows().findRow(u"WorkOrderNo", order);
        co_await m_hands.click(u"grdPrintWO"_s, row, u"Select"_s);
    }
}

/// Writes the report in front to a file, by its toolbar.
Task Tour::exportReport(const QString &file)
{
    m_hands.requireWindow(u"frmReportPreview"_s);
    co_await m_hands.press(u"export"_s);
    co_await m_hands.type(u"fileNameEdit"_s, path(file));
    co_await m_hands.key(Qt::Key_Return);
    m_hands.requireWindow(u"frmReportPreview"_s);
    requireFile(path(file));
}

void Tour::requireMarked(qint64 orders)
{
    const qint64 marked = m_company->number(
        u"Select Count(*) from tblWorkorder where Printed <> 0 and WorkorderNo in (%1)"_s.arg(
            list(m_orders)));
    require(marked == orders,
            u"%1 orders must be marked as printed, %2 are."_s.arg(orders).arg(marked));
}

Task Tour::printByCrew()
{
    const QString unitNo = m_cast.unread.unitNo;
    co_await tickOrders();
    co_await m_hands.press(u"chkGroupWo"_s);
    co_await m_hands.press(u"cmdPrint"_s);
    co_await exportReport(u"work-orders-by-crew.pdf"_s);
    co_await m_hands.type(u"search"_s, unitNo);
    co_await m_hands.key(Qt::Key_Return);
    require(m_hands.control<QLabel>(u"searchResult"_s).text().startsWith(u"Page "),
            u"The orders must show %1."_s.arg(unitNo));
    see(u"by-crew"_s, u"The orders grouped by crew, searched for %1; exported as "
                      "work-orders-by-crew.pdf."_s.arg(unitNo));
    co_await m_hands.press(u"cmdExit"_s);
    co_await m_hands.answer(MarkQuestion, u"No"_s);
    requireMarked(0);
    co_await m_hands.press(u"chkGroupWo"_s);
}

Task Tour::printOrders()
{
    co_await tickOrders();
    co_await m_hands.press(u"cmdPrint"_s);
    m_hands.requireWindow(u"frmReportPreview"_s);
    const QString pages = m_hands.control<QLabel>(u"pageTotal"_s).text();
    require(pages == u"of %1"_s.arg(m_orders.size()),
            u"%1 orders must take a page each; the preview says \"%2\"."_s.arg(m_orders.size())
                .arg(pages));
    see(u"preview"_s, u"The orders as they are printed, a page each: %1."_s.arg(m_orders.size()));

    const QString file = path(u"work-orders.pdf"_s);
    co_await m_hands.press(u"cmdPrint"_s);
    co_await m_hands.answer(
        u"There is no printer on this computer. Write the report to a file instead?"_s, u"Yes"_s);
    co_await m_hands.type(u"fileNameEdit"_s, file);
    see(u"print"_s, u"Without a printer the orders go into a file, work-orders.pdf."_s);
    co_await m_hands.key(Qt::Key_Return);
    m_hands.requireWindow(u"frmReportPreview"_s);
    requireFile(file);
    co_await m_hands.press(u"cmdExit"_s);
    see(u"mark-printed"_s, u"Behind the preview comes the question whether they are printed."_s);
    co_await m_hands.answer(MarkQuestion, u"Yes"_s);
    requireMarked(m_orders.size());
}

} // namespace tour
