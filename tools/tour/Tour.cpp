#include "tour/Tour.h"

#include "core/Session.h"
#include "tour/Picture.h"

#include <QFile>
#include <QPixmap>
#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

Tour::Tour(const QDir &folder, QDate today, QTextStream &out)
    : m_folder(folder)
    , m_today(today)
    , m_out(out)
{}

Task Tour::run()
{
    co_await seeTheBoard();
    co_await followTheLink();
    co_await generateOrders();
    co_await changeAnOrder();
    co_await printByCrew();
    co_await printOrders();

    co_await openRecording();
    co_await enterTheCount();
    co_await enterTheTimes();
    co_await completeAService();
    co_await skipAService();
    co_await completeTheOrders();

    co_await post();
    co_await printPosted();
    co_await postTheHeldBack();

    co_await seeTheHistory();
    co_await seeTheSchedule();
    co_await seeTheBoardAgain();

    co_await openTheWorkOrder();
    co_await putInTheLogo();
    co_await changeAColumn();
    co_await previewAndSave();
    co_await printTheOwnOrder();
    co_await makeAReport();
    co_await viewTheReport();

    co_await exportToTheHandheld();
    co_await importFromTheHandheld();
    co_await postTheCrewsWork();
    co_await takeABackup();
    co_await restoreIt();
}

// --- What the steps share ------------------------------------------------------------------------

void Tour::see(const QString &name, const QString &what)
{
    m_picture = u"%1-%2.png"_s.arg(++m_number, 2, 10, QChar(u'0')).arg(name);
    savePicture(path(m_picture));
    m_out << m_picture.leftJustified(26) << what << Qt::endl;
}

void Tour::keepForHelp(const QString &window, const QString &name)
{
    constexpr int Width = 610; // as wide as the pages are at first
    const QImage picture = m_hands.requireWindow(window).grab().toImage();
    const QString file = path(u"help-%1.png"_s.arg(name));
    require(picture.scaledToWidth(Width, Qt::SmoothTransformation).save(file),
            u"The picture %1 can't be written."_s.arg(file));
}

QString Tour::path(const QString &file) const
{
    return m_folder.absoluteFilePath(file);
}

void Tour::requireList(const QString &gridName, const QString &column, const QStringList &wanted)
{
    QStringList shown;
    const grid::GridModel &rows = m_hands.grid(gridName).rows();
    for (int row = 0; row < rows.rowCount(); ++row)
        shown.append(rows.text(row, column));
    shown.sort();
    QStringList stored = wanted;
    stored.sort();
    require(shown == stored, u"%1 shows in \"%2\": %3; stored is: %4"_s.arg(
                                 gridName, column, shown.join(u", "), stored.join(u", ")));
}

void Tour::requireFile(const QString &path) const
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-",
            u"%1 must be a PDF file."_s.arg(path));
}

int Tour::rowOfMachine(const QString &gridName, const Machine &machine)
{
    const int row = m_hands.grid(gridName).rows().findRow(u"Unit No", machine.unitNo);
    require(row >= 0, u"%1 doesn't list %2."_s.arg(gridName, machine.unitNo));
    return row;
}

const Service &Tour::dueService(const Machine &machine, bool (*test)(const Service &))
{
    const auto found = std::ranges::find_if(machine.services, test);
    require(found != machine.services.end(),
            u"%1 has no due service of the kind that a step needs."_s.arg(machine.unitNo));
    return *found;
}

qint64 Tour::lineOf(const Service &service)
{
    return m_company->number(
        u"Select NServiceUsedID from tblWoServiceUsed where ServiceUsedID = ?"_s, {service.id});
}

db::Row Tour::stored(qint64 line)
{
    const db::Recordset found =
        m_company->rows(u"Select * from tblWoServiceUsed where NServiceUsedID = ?"_s, {line});
    require(!found.isEmpty(), u"The order's service %1 is gone."_s.arg(line));
    return found.current();
}

// --- The board -----------------------------------------------------------------------------------

void Tour::requireBoard()
{
    const grid::GridModel &rows = m_hands.grid(u"grdEquipWithSer"_s).rows();
    const auto under = [&](const QString &parent) {
        return qint64(rows.childCount(rows.findRow(u"Unit No", parent)));
    };
    require(
        under(u"Open Work Order"_s) == m_company->openOrders(),
        u"The board lists %1 open work orders, stored are %2."_s.arg(under(u"Open Work Order"_s))
            .arg(m_company->openOrders()));
    require(
        under(u"Over Due Service"_s) == m_company->overdueMachines(),
        u"The board lists %1 overdue machines, stored are %2."_s.arg(under(u"Over Due Service"_s))
            .arg(m_company->overdueMachines()));
}

/// The company is looked at once the program has opened it, and the three machines are chosen.
Task Tour::seeTheBoard()
{
    co_await m_hands.rest();
    m_hands.requireWindow(u"frmMainScreen"_s).showMaximized();
    co_await m_hands.rest();
    m_company.emplace(databaseTarget(), m_today);
    m_cast = m_company->choose();
    m_dueBefore = m_company->overdueMachines();
    requireBoard();
    see(u"board"_s, u"The board: %1 work orders are open, %2 machines have overdue work."_s
                        .arg(m_company->openOrders())
                        .arg(m_dueBefore));
}

Task Tour::seeTheBoardAgain()
{
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmQuickFind"_s); // for the next machine
    co_await m_hands.press(u"cmdCancel"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    requireBoard();
    // A service that keeps its rhythm may have come to be due today.
    const auto isDue = [this](const Service &before) {
        const QDate next = m_company->service(before.id).next;
        return next.isValid() && next <= m_today;
    };
    const QList<Machine> machines = m_cast.all();
    const auto done = std::ranges::count_if(machines, [&](const Machine &machine) {
        return std::ranges::none_of(machine.services, isDue);
    });
    require(
        m_company->overdueMachines() == m_dueBefore - done,
        u"%1 machines were overdue, %2 have their work done, and still %3 are."_s.arg(m_dueBefore)
            .arg(done)
            .arg(m_company->overdueMachines()));
    see(u"board-again"_s,
        u"The board again: %1 work orders are open, %2 machines have overdue work."_s
            .arg(m_company->openOrders())
            .arg(m_company->overdueMachines()));
}

} // namespace tour
