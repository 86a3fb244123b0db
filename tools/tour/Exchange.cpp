// The crews' handheld gets the open work, and what it sends back is posted like the office's own.
#include "device/Device.h"
#include "platform/base/Environment.h"
#include "tour/Tour.h"

#include <QFile>
#include <algorithm>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

constexpr quint64 Seed = 20;
constexpr int Looks = 2000;

/// A file below the program's folder; raises a Fault when it is not there.
QByteArray contentOf(const QString &stored)
{
    const QString path = base::applicationPath(stored);
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), u"%1 must be there."_s.arg(path));
    return file.readAll();
}

/// Writes a file to where the handheld keeps its own.
void put(const QString &name, const QByteArray &content)
{
    QFile file(base::applicationPath(u"\\Handheld\\Device\\"_s + name));
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
            u"%1 can't be put on the handheld."_s.arg(name));
}

} // namespace

/// Waits for a box of a program that works by itself meanwhile.
Task Tour::awaitMessage(const QString &text)
{
    for (int look = 0; look < Looks && Hands::message() != text; ++look)
        co_await m_hands.rest();
    require(Hands::message() == text, u"The message \"%1\" must come up."_s.arg(text));
}

Task Tour::exportToTheHandheld()
{
    co_await m_hands.chooseEntry(u"mnuExportXml"_s);
    m_hands.requireWindow(u"frmExportXml"_s);
    const QString done = u"Quorvantis records have been exported successfully.\n"
                         "Put the Windows Mobile device Into the cradle."_s;
    co_await awaitMessage(done);
    see(u"exported"_s, u"The open work and the meters to read are written for the handheld."_s);
    co_await m_hands.answer(done, u"OK"_s);
    for (int look = 0; look < Looks && m_hands.isInFront(u"frmExportXml"_s); ++look)
        co_await m_hands.rest();
    m_hands.requireWindow(u"frmMainScreen"_s);
    require(contentOf(u"\\Handheld\\Device\\Data.xml"_s) == contentOf(u"\\XML_OUT\\Data.xml"_s),
            u"The handheld must have the exported file."_s);
}

/// A crew finishes a line of the office's, and does something that it finds on its way.
void Tour::workInTheField()
{
    device::Device device(contentOf(u"\\Handheld\\Device\\Data.xml"_s), Seed, m_today);
    const QList<device::Row> lines = device.records(u"tblServiceUsed"_s);
    const auto line = std::ranges::find_if(lines, [](const device::Row &each) {
        return QStringView(u"DWMY").contains(each[u"Period"_s]);
    });
    require(line != lines.end(), u"The handheld must have a line by the calendar."_s);
    device.finishLine(*line);
    const QList<device::Row> machines = device.records(u"tblEquipment"_s);
    device.makeOrder(machines.first(), 2);
    device.scan(machines.first());
    device.receive(device.records(u"tblPart"_s).first());
    m_deeds = device.deeds();
    const auto files = device.files();
    for (const QString &name : files.keys())
        put(name, files[name]);
}

Task Tour::importFromTheHandheld()
{
    const qint64 ordersBefore = m_company->number(u"Select Count(*) from tblWorkorder"_s);
    workInTheField();
    const device::Deed &received = m_deeds.last();
    const auto stock = [&] {
        return m_company
            ->rows(u"Select Quantity from tblPart where PartID = ?"_s, {received.match.first()})
            .current()
            .real(u"Quantity");
    };
    const double before = stock();
    co_await m_hands.chooseEntry(u"mnuImporttXml"_s);
    const QString done = u"Import process Succesfully completed"_s;
    co_await awaitMessage(done);
    see(u"imported"_s, u"What the crew did in the field is imported."_s);
    co_await m_hands.answer(done, u"OK"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    require(m_company->number(u"Select Count(*) from tblWorkorder"_s) == ordersBefore + 1,
            u"The crew's own order must be stored."_s);
    const device::Deed &finished = m_deeds.first();
    const db::Row line = stored(finished.match.first().toLongLong());
    require(line.flag(u"Completed") && line.text(u"StartTime") == finished.values[u"StartTime"_s] &&
                line.text(u"Note") == finished.values[u"Note"_s],
            u"The line that the crew has finished must be stored so."_s);
    require(stock() == before + received.values.first().toDouble(),
            u"What the crew has received must be in the stock."_s);
}

Task Tour::postTheCrewsWork()
{
    co_await m_hands.chooseEntry(u"mnuRecordWork"_s);
    m_hands.requireWindow(u"frmWorkorder"_s);
    see(u"crews-work"_s, u"It stands on the work orders as if it had been typed in."_s);
    co_await postAll();
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    see(u"crews-work-posted"_s, u"Posted like the office's own work."_s);
}

} // namespace tour
