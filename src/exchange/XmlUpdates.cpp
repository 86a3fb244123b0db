#include "exchange/XmlUpdates.h"

#include "core/Labour.h"
#include "core/Session.h"
#include "exchange/Spliced.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
#include "platform/sql/Conversion.h"
#include "scheduling/Readings.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

constexpr char Module[] = "frmImportXml";

double number(const QString &text)
{
    return text.trimmed().isEmpty() ? 0 : spliced::bare(text).toDouble();
}

bool machineExists(qint64 EquipmentID)
{
    return IsIDExists(u"tblEquipment"_s, u"EquipmentID=?"_s, {EquipmentID});
}

} // namespace

QString attribute(const SectionRecord &record, std::initializer_list<QStringView> names)
{
    // Of a name in several cases the last one counts.
    QString found;
    for (const auto &[name, value] : record) {
        for (const QStringView wanted : names) {
            if (name.compare(wanted, Qt::CaseInsensitive) == 0)
                found = value;
        }
    }
    return found;
}

bool IsIDExists(const QString &table, const QString &where, const QVariantList &parameters)
{
    return !dataConnection()
                .Open(u"Select * from "_s + table + u" Where "_s + where, parameters)
                .isEmpty();
}

qint64 Check_LastCount(qint64 EquipmentID, const QString &CountType)
{
    return dataConnection()
        .Open(u"SELECT max( tblEquipmentCount.CountValue) as [LastCount] from tblEquipmentCount "
              "where EquipmentID = ? and CountType = ?"_s,
              {EquipmentID, CountType})
        .row(0)
        .integer(u"LastCount");
}

QString FindNServiceID(qint64 ServiceUsedID)
{
    const db::Recordset rows = dataConnection().Open(
        u"Select NserviceUsedID from tblWoServiceUsed where ServiceUsedId = ?"_s, {ServiceUsedID});
    return rows.isEmpty() ? u"0"_s : rows.row(0).text(u"NserviceUsedID");
}

QString clockTime(const QString &text)
{
    try {
        return sql::converted(text, sql::ColumnKind::Date).toDateTime().time().toString(u"HH:mm");
    } catch (const base::Error &) {
        return text;
    }
}

void Update_Crew(const QString &EquipmentID, const QString &CrewID, const QString &barcode,
                 ImportLog &log)
{
    base::trapped(Module, "Update_Crew", [&] {
        const qint64 machine = spliced::wholeNumber(EquipmentID);
        if (machine == 0)
            return;
        if (!machineExists(machine)) {
            log.add(ImportLog::Kind::Equipment, {u"EquipmentID="_s + EquipmentID});
            return;
        }
        const qint64 crew = spliced::wholeNumber(CrewID);
        const db::Recordset crews =
            dataConnection().Open(u"Select * from tblCrew Where CrewId= ?"_s, {crew});
        const bool known = !crews.isEmpty();
        const base::Whole steps; // what the shared procedure meets is this one's to report
        (void)ChangeCrew(machine, known ? crews.row(0).text(u"CrewNumber") : u"0"_s,
                         known ? crews.row(0).text(u"Description") : QString());
        if (!barcode.trimmed().isEmpty())
            Update_Barcode(u"tblEquipment"_s, machine, barcode);
        dataConnection().Execute(
            u"Update tblEquipment set CrewId=?, Bar_Code=?  Where  EquipmentID=?"_s,
            {crew, spliced::quoted(barcode), machine});
    });
}

void Update_Barcode(const QString &table, const QVariant &id, const QString &barcode)
{
    // A code belongs to one part, or one machine: whatever else had it loses it.
    if (table == u"tblPart")
        dataConnection().Execute(
            u"update tblPart set bar_code='' where  PartID <>  ? and bar_code=?"_s, {id, barcode});
    else if (table == u"tblEquipment")
        dataConnection().Execute(
            u"update tblEquipment set Bar_Code='' where  EquipmentID <>  ? and Bar_Code=?"_s,
            {id, barcode});
}

void Update_EquipmentCount(const QString &EquipmentID, const QString &ChangeDate,
                           const QString &CountType, const QString &CurrentCount,
                           const QString & /*LastCount*/, ImportLog &log)
{
    base::trapped(Module, "Update_EquipmentCount", [&] {
        const qint64 machine = spliced::wholeNumber(EquipmentID);
        if (machine == 0)
            return;
        if (!machineExists(machine)) {
            log.add(ImportLog::Kind::EquipmentCount, {u"EquipmentID="_s + EquipmentID});
            return;
        }
        const QString type = spliced::quoted(CountType);
        const qint64 count = spliced::wholeNumber(CurrentCount);
        if (count < Check_LastCount(machine, type) || count == 0)
            return;
        readings::add(machine, spliced::date(ChangeDate), type, count);
    });
}

void Update_Workorder(const QString &WorkorderNo, const QString &EquipmentID,
                      const QString &CompletedDate, ImportLog &log)
{
    base::trapped(Module, "Update_Workorder", [&] {
        const qint64 order = spliced::wholeNumber(WorkorderNo);
        if (!machineExists(spliced::wholeNumber(EquipmentID)) ||
            !IsIDExists(u"tblWorkOrder"_s, u"WorkorderNo=?"_s, {order})) {
            log.add(ImportLog::Kind::WorkOrder,
                    {u"Work Order No="_s + WorkorderNo, u"EquipmentID="_s + EquipmentID});
            return;
        }
        dataConnection().Execute(
            u"Update tblWorkorder set Complete=True, CompletedDate=? Where WorkorderNo=?"_s,
            {spliced::date(CompletedDate), order});
    });
}

void Update_Part(const QString &PartID, const QString &QtyReceived, const QString &barcode,
                 ImportLog &log)
{
    base::trapped(Module, "Update_Part", [&] {
        if (PartID.trimmed().isEmpty())
            return;
        if (!IsIDExists(u"tblPart"_s, u"PartID=?"_s, {PartID})) {
            log.add(ImportLog::Kind::Part, {u"Part No="_s + PartID});
            return;
        }
        if (!barcode.trimmed().isEmpty())
            Update_Barcode(u"tblPart"_s, PartID, barcode);
        // Added to the stock as it stands by now, in the four places that quantities have.
        dataConnection().Execute(
            u"Update tblPart Set Quantity=Round(Nz(Quantity,0) + ?,4), "
            "Bar_code=? where PartID=?"_s,
            {number(QtyReceived), spliced::quoted(barcode), spliced::quoted(PartID)});
    });
}

} // namespace exchange
