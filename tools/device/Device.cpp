#include "device/Device.h"

#include <QXmlStreamReader>

#include <stdexcept>

namespace device {
namespace {

using namespace Qt::StringLiterals;

QString two(int number)
{
    return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

} // namespace

Device::Device(const QByteArray &data, quint64 seed, QDate today)
    : m_random(seed)
    , m_today(today)
{
    QXmlStreamReader reader(data);
    QString section;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() != u"record") {
            section = reader.name().toString();
            continue;
        }
        Row record;
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            record.insert(attribute.name().toString(), attribute.value().toString());
        m_sections[section].append(record);
    }
    if (reader.hasError())
        throw std::runtime_error(reader.errorString().toStdString());
}

int Device::upTo(int most)
{
    return static_cast<int>(m_random() % static_cast<quint64>(most + 1));
}

const Row *Device::any(const QString &section)
{
    const auto found = m_sections.constFind(section);
    return found == m_sections.constEnd() ? nullptr
                                          : &found->at(upTo(static_cast<int>(found->size()) - 1));
}

/// What a person might type, and what would be a statement if nobody took care.
QString Device::text()
{
    static const QStringList texts{u"done"_s,
                                   u"Joe's mower"_s,
                                   u"5 < 6 & \"so on\" > 4"_s,
                                   u"'; delete from tblPart; --"_s,
                                   u"Grüße, 漢字"_s,
                                   u"#1/1/2024#"_s,
                                   u"two\nlines"_s,
                                   u"x"_s};
    return texts[upTo(static_cast<int>(texts.size()) - 1)];
}

QString Device::written(QDate date)
{
    // Both forms are in use among devices.
    return date.toString(upTo(1) == 0 ? u"M/d/yyyy" : u"MM-dd-yyyy");
}

void Device::command(const QString &kind, const QStringList &values)
{
    QString text = u'<' + kind + u'>';
    for (const QString &value : values)
        text += u"<field>"_s + value.toHtmlEscaped() + u"</field>"_s;
    text += u"</"_s + kind + u'>';
    if (kind == u"CountReading")
        m_readings += text.toUtf8();
    else
        m_work[kind] += text.toUtf8();
}

void Device::finishLine(const Row &line)
{
    const QString id = line[u"ServiceUsedID"_s];
    const QString begin = two(7 + upTo(3)) + u':' + two(upTo(59));
    const QString note = text();
    const auto set = [&](const QString &column, const QString &type, const QString &value) {
        command(u"RecordTwoID"_s,
                {u"tblWoServiceUsed"_s, u"NserviceUsedID"_s, id, u"N"_s, u"WorkorderNo"_s,
                 line[u"WorkOrderNo"_s], u"N"_s, column, type, value});
    };
    set(u"Completed"_s, u"N"_s, u"True"_s);
    set(u"StartTime"_s, u"T"_s, begin);
    set(u"[Note]"_s, u"C"_s, note);
    m_deeds.append({Deed::Kind::Set,
                    u"tblWoServiceUsed"_s,
                    {{u"NServiceUsedID"_s, id}},
                    {{u"Completed"_s, u"-1"_s}, {u"StartTime"_s, begin}, {u"Note"_s, note}},
                    {}});
    const QDate day = m_today.addDays(-upTo(3));
    const QString order = line[u"WorkOrderNo"_s];
    command(u"Record"_s, {u"tblWorkorder"_s, u"WorkorderNo"_s, order, u"N"_s, u"CompletedDate"_s,
                          u"D"_s, written(day)});
    command(u"Record"_s,
            {u"tblWorkorder"_s, u"WorkorderNo"_s, order, u"N"_s, u"Complete"_s, u"N"_s, u"1"_s});
    m_deeds.append({Deed::Kind::Set,
                    u"tblWorkorder"_s,
                    {{u"WorkorderNo"_s, order}},
                    {{u"Complete"_s, u"-1"_s}, {u"CompletedDate"_s, day.toString(u"M/d/yyyy")}},
                    {}});
}

void Device::skipLine(const Row &line)
{
    const QString id = line[u"ServiceUsedID"_s];
    command(u"Record"_s,
            {u"tblWoServiceUsed"_s, u"NserviceUsedID"_s, id, u"N"_s, u"Skip"_s, u"N"_s, u"-1"_s});
    m_deeds.append({Deed::Kind::Set,
                    u"tblWoServiceUsed"_s,
                    {{u"NServiceUsedID"_s, id}},
                    {{u"Skip"_s, u"-1"_s}},
                    {}});
}

void Device::makeOrder(const Row &machine, int services)
{
    const QString id = u"W%1"_s.arg(++m_orders);
    const QDate done = m_today.addDays(-upTo(2));
    const QString equipment = machine[u"EquipmentID"_s];
    command(u"NewWorkOrder"_s, {id, u"?"_s, written(done), equipment, written(m_today)});
    m_deeds.append({Deed::Kind::Make,
                    u"tblWorkorder"_s,
                    {},
                    {{u"EquipmentID"_s, equipment},
                     {u"Printed"_s, u"0"_s},
                     {u"Complete"_s, u"-1"_s},
                     {u"CompletedDate"_s, done.toString(u"M/d/yyyy")},
                     {u"WoDate"_s, m_today.toString(u"M/d/yyyy")}},
                    id});
    while (services-- > 0)
        addService(id, machine);
}

void Device::addService(const QString &order, const Row &machine)
{
    const QString id = u"S%1"_s.arg(++m_lines);
    const QString name = text();
    const QString note = text();
    const QString count = QString::number(upTo(900));
    const QString cost = QString::number(upTo(40) + 0.25);
    const QString equipment = machine[u"EquipmentID"_s];
    const QString crew = machine[u"CrewID"_s].isEmpty() ? u"0"_s : machine[u"CrewID"_s];
    command(u"NewService"_s,
            {id, equipment, u"0"_s, order, name, u"1"_s, u"0"_s, u"08:00"_s, u"09:30"_s, note,
             u"1.5"_s, u"W"_s, count, u"1:30"_s, u"3"_s, cost, u"0"_s, crew, written(m_today)});
    m_deeds.append({Deed::Kind::Make,
                    u"tblWoServiceUsed"_s,
                    {},
                    {{u"WorkorderNo"_s, order.startsWith(u'W') ? u'@' + order : order},
                     {u"ServiceUsedID"_s, u"0"_s},
                     {u"EquipmentID"_s, equipment},
                     {u"Name"_s, name},
                     {u"Completed"_s, u"-1"_s},
                     {u"Skip"_s, u"0"_s},
                     {u"EndTime"_s, u"09:30"_s},
                     {u"Note"_s, note},
                     {u"Period"_s, u"W"_s},
                     {u"CountValue"_s, count},
                     {u"CostEstimate"_s, cost},
                     {u"CrewID"_s, crew},
                     {u"NextScheduledDate"_s, m_today.toString(u"M/d/yyyy")}},
                    id});
    if (const Row *part = any(u"tblPart"_s); part && upTo(1) == 0)
        addPart(id, *part);
}

void Device::addPart(const QString &line, const Row &part)
{
    const QString quantity = QString::number(1 + upTo(8) * 0.5);
    command(u"NewServicePart"_s,
            {line, part[u"PartID"_s], quantity, part[u"Price"_s], u"True"_s, quantity});
    m_deeds.append({Deed::Kind::Make,
                    u"tblWoPartUsed"_s,
                    {},
                    {{u"ServiceUsedID"_s, line.startsWith(u'S') ? u'@' + line : line},
                     {u"PartID"_s, part[u"PartID"_s]},
                     {u"QuantityRequired"_s, quantity},
                     {u"QuantityUsed"_s, quantity},
                     {u"Price"_s, part[u"Price"_s]},
                     {u"Used"_s, u"-1"_s}},
                    {}});
}

void Device::moveToCrew(const Row &machine, const Row &crew)
{
    const QString equipment = machine[u"EquipmentID"_s];
    // The description goes between apostrophes that nobody doubles.
    const QString description = crew[u"Description"_s].remove(u'\'');
    command(u"RecordCrew"_s, {u"tblEquipment"_s, u"EquipmentID"_s, equipment, u"?"_s, u"CrewID"_s,
                              u"?"_s, crew[u"CrewID"_s], crew[u"CrewNumber"_s], description});
    m_deeds.append({Deed::Kind::Set,
                    u"tblEquipment"_s,
                    {{u"EquipmentID"_s, equipment}},
                    {{u"CrewID"_s, crew[u"CrewID"_s]}},
                    {}});
    m_deeds.append({Deed::Kind::Make,
                    u"tblEquipmentCrewHistory"_s,
                    {},
                    {{u"EquipmentID"_s, equipment},
                     {u"CrewNumber"_s, crew[u"CrewNumber"_s]},
                     {u"CrewDescription"_s, description}},
                    {}});
}

void Device::scan(const Row &machine)
{
    const QString time =
        m_today.toString(u"M/d/yyyy") + u" %1:%2:00 PM"_s.arg(1 + upTo(10)).arg(two(upTo(59)));
    const QString equipment = machine[u"EquipmentID"_s];
    command(u"RecordScanEquipment"_s, {u"Present"_s, time, equipment});
    m_deeds.append(
        {Deed::Kind::Make,
         u"tblEquipmentScan"_s,
         {},
         {{u"EquipmentID"_s, equipment}, {u"ScanTime"_s, time}, {u"ScanStatus"_s, u"Present"_s}},
         {}});
}

void Device::receive(const Row &part)
{
    const QString quantity = QString::number(1 + upTo(20));
    command(u"RecordPart"_s, {u"tblPart"_s, u"PartID"_s, part[u"PartID"_s], u"?"_s, u"Quantity"_s,
                              u"?"_s, quantity});
    m_deeds.append({Deed::Kind::Raise,
                    u"tblPart"_s,
                    {{u"PartID"_s, part[u"PartID"_s]}},
                    {{u"Quantity"_s, quantity}},
                    {}});
}

void Device::readMeter(const Row &meter)
{
    const QString count = QString::number(meter[u"LastCount"_s].toLongLong() + upTo(60));
    command(u"CountReading"_s,
            {meter[u"EquipmentID"_s], written(m_today), meter[u"CountType"_s], count});
    m_deeds.append({Deed::Kind::Make,
                    u"tblEquipmentCount"_s,
                    {},
                    {{u"EquipmentID"_s, meter[u"EquipmentID"_s]},
                     {u"ChangeDate"_s, m_today.toString(u"M/d/yyyy")},
                     {u"CountType"_s, meter[u"CountType"_s]},
                     {u"CountValue"_s, count}},
                    {}});
}

void Device::work()
{
    for (const Row &line : records(u"tblServiceUsed"_s)) {
        if (const int what = upTo(3); what == 0)
            finishLine(line);
        else if (what == 1)
            skipLine(line);
        if (const Row *part = any(u"tblPart"_s); part && upTo(3) == 0)
            addPart(line[u"ServiceUsedID"_s], *part);
    }
    for (int orders = upTo(2); orders > 0; --orders)
        makeOrder(*any(u"tblEquipment"_s), upTo(3));
    if (const Row *order = any(u"tblWorkorder"_s); order && upTo(1) == 0)
        addService(order->value(u"WorkorderNo"_s), *any(u"tblEquipment"_s));
    if (const Row *crew = any(u"tblCrew"_s); crew && upTo(1) == 0)
        moveToCrew(*any(u"tblEquipment"_s), *crew);
    for (int scans = upTo(2); scans > 0; --scans)
        scan(*any(u"tblEquipment"_s));
    if (const Row *part = any(u"tblPart"_s); part && upTo(1) == 0)
        receive(*part);
    for (const Row &meter : records(u"tblEquipmentCount"_s)) {
        if (upTo(1) == 0)
            readMeter(meter);
    }
}

QHash<QString, QByteArray> Device::files() const
{
    QHash<QString, QByteArray> files;
    QByteArray work;
    // The kinds in any order but that in which they build on each other: the office sees to it.
    for (auto kind = m_work.cend(); kind != m_work.cbegin();)
        work += *--kind;
    if (!work.isEmpty())
        files.insert(u"Sy0001.xml"_s,
                     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<day>" + work + "</day>");
    if (!m_readings.isEmpty())
        files.insert(u"Count0001.xml"_s, "<readings>" + m_readings + "</readings>");
    return files;
}

} // namespace device
