#include "exchange/XmlUpdates.h"

#include "core/Session.h"
#include "exchange/Spliced.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"

#include <QDateTime>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

constexpr char Module[] = "frmImportXml";

/// True when the record's last attribute is one of these: only reaching it applies the record. The
/// export ends a service by another one, so a service that nobody has worked on changes nothing.
bool endsIn(const SectionRecord &record, std::initializer_list<QStringView> names)
{
    return !record.isEmpty() && std::ranges::any_of(names, [&](QStringView name) {
        return record.last().first.compare(name, Qt::CaseInsensitive) == 0;
    });
}

bool isNamed(const std::pair<QString, QString> &attribute, QStringView name)
{
    return attribute.first.compare(name, Qt::CaseInsensitive) == 0;
}

/// The update of an order's line that a record asks for.
struct Update
{
    QString statement = u"Update tblWoServiceUsed set "_s;
    QVariantList values;

    void set(const QString &column, const QString &value)
    {
        statement += u", "_s + column + u"=?"_s;
        values.append(value);
    }
};

Update updateOf(const SectionRecord &record)
{
    Update update;
    // Without one of these two the statement begins with a comma, and fails.
    const QString completed = attribute(record, {u"Completed"});
    if (completed == u"Y")
        update.statement += u" Completed=true  "_s;
    else if (completed == u"S")
        update.statement += u" Skip= true "_s;
    if (const QString start = attribute(record, {u"StarTime", u"StartTime"});
        !start.trimmed().isEmpty())
        update.set(u"StartTime"_s, clockTime(start));
    if (const QString end = attribute(record, {u"EndTime"}); !end.trimmed().isEmpty())
        update.set(u"EndTime"_s, clockTime(end));
    if (const QString hours = attribute(record, {u"Mhrs"}); !hours.isEmpty() && hours != u"0")
        update.set(u"Workhrs"_s, clockTime(hours));
    if (const QString notes = attribute(record, {u"SkipeNotes", u"Notes"}); !notes.isEmpty())
        update.set(u"[Note]"_s, notes);
    update.statement += u" Where WorkOrderNo=? And NserviceUsedID=? And ServiceID=?"_s;
    update.values.append(spliced::wholeNumber(attribute(record, {u"WorkOrderNo"})));
    update.values.append(spliced::wholeNumber(attribute(record, {u"ServiceUsedID"})));
    update.values.append(spliced::wholeNumber(attribute(record, {u"ServiceID"})));
    return update;
}

/// True when the record's part was used on that line; a record that says neither counts for all.
bool isUsedOn(const SectionRecord &record, qint64 line)
{
    for (const auto &each : record) {
        if (isNamed(each, u"ServiceUsedID") && spliced::wholeNumber(each.second) != line)
            return false;
        if (isNamed(each, u"Used") && spliced::bare(each.second).toDouble() == 0)
            return false;
    }
    return true;
}

bool namesItsLine(const SectionRecord &record)
{
    return std::ranges::any_of(record,
                               [](const auto &each) { return isNamed(each, u"ServiceUsedID"); });
}

} // namespace

ServiceUpdates::ServiceUpdates(const SectionFile &file, ImportLog &log)
    : m_file(file)
    , m_log(log)
{
    for (const Section &section : file.sections()) {
        if (!section.is(u"tblServiceUsedParts"))
            continue;
        for (const SectionRecord &record : section.records) {
            if (!endsIn(record, {u"ServiceUsedID", u"PartID", u"Used", u"QtyUsed"}))
                continue;
            // By their lines once, and not looked for at each service: a day has hundreds of both.
            const QString line = attribute(record, {u"ServiceUsedID"});
            m_parts[namesItsLine(record) && spliced::isNumeric(line) ? spliced::bareInteger(line)
                                                                     : AnyLine]
                .append(&record);
        }
    }
}

void ServiceUpdates::Update_ServiceUsed()
{
    const auto section = std::ranges::find_if(
        m_file.sections(), [](const Section &each) { return each.is(u"tblServiceUsed"); });
    if (section == m_file.sections().end())
        return;
    for (const SectionRecord &record : section->records) {
        if (endsIn(record,
                   {u"ServiceUsedID", u"ServiceID", u"WorkOrderNo", u"Completed", u"StarTime",
                    u"StartTime", u"EndTime", u"Mhrs", u"SkipeNotes", u"Notes"}))
            base::trapped(Module, "Update_ServiceUsed", [&] { apply(record); });
    }
}

void ServiceUpdates::apply(const SectionRecord &record)
{
    // Made before the order is looked at, so that a value that is none changes nothing.
    const Update update = updateOf(record);
    if (!Check_WorkOrder(attribute(record, {u"WorkOrderNo"})))
        return;
    dataConnection().Execute(update.statement, update.values);
    Update_ServiceUsedPart(attribute(record, {u"ServiceUsedID"}));
}

bool ServiceUpdates::Check_WorkOrder(const QString &WorkOrderNo)
{
    const qint64 order = spliced::wholeNumber(WorkOrderNo);
    const db::Recordset rows =
        dataConnection().Open(u"Select * from tblWorkOrder where WorkorderNo=?"_s, {order});
    if (rows.isEmpty()) {
        m_log.add(ImportLog::Kind::WorkOrder, {u"Work Order No="_s + WorkOrderNo});
        return false;
    }
    // A date that the office has given stays.
    if (!rows.row(0).flag(u"Complete"))
        dataConnection().Execute(
            u"Update tblWorkorder set Complete=True, CompletedDate=? Where WorkorderNo=?"_s,
            {base::wallClock(base::today()), order});
    return true;
}

void ServiceUpdates::Update_ServiceUsedPart(const QString &ServiceUsedID)
{
    base::trapped(Module, "Update_ServiceUsedPart", [&] {
        const qint64 line = spliced::wholeNumber(ServiceUsedID);
        for (const SectionRecord *record : m_parts.value(line) + m_parts.value(AnyLine)) {
            if (!isUsedOn(*record, line))
                continue;
            dataConnection().Execute(
                u"Update tblWoPartUsed set Used= True ,  QuantityUsed=? Where ServiceUsedID=? And "
                "PartID=?"_s,
                {spliced::bare(attribute(*record, {u"QtyUsed"})), line,
                 attribute(*record, {u"PartID"})});
        }
    });
}

} // namespace exchange
