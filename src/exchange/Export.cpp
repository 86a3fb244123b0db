#include "exchange/Export.h"

#include "core/Meters.h"
#include "core/Session.h"
#include "core/Told.h"
#include "exchange/ValueText.h"
#include "exchange/XmlFault.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/system/Files.h"
#include "scheduling/Readings.h"

#include <QXmlStreamReader>

#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

constexpr char Module[] = "frmExportXml";
constexpr QChar Return(u'\r');

/// Of some attributes the two characters are escaped that field names of offices hold; a "<" never
/// is. A handheld counts on both.
enum class Escape { No, Yes };

/// An attribute of a section's records.
struct Attribute
{
    QStringView name;   ///< up to the equals sign
    QStringView column; ///< empty for one that always reads the same
    Escape escape = Escape::No;
    QStringView otherwise{}; ///< stands for Null, or always
    /// What is asked of other tables for the row.
    QString (*asked)(const db::Row &row) = nullptr;
};

QString escaped(QString text)
{
    return text.replace(u'&', u"&amp;"_s).replace(u'"', u"&quot;"_s);
}

void appendRecord(QString &text, const db::Recordset &rows, int row,
                  std::span<const Attribute> attributes, std::span<const int> columns)
{
    text += u"<record"_s;
    for (std::size_t at = 0; at < attributes.size(); ++at) {
        const Attribute &attribute = attributes[at];
        text += u' ';
        text += attribute.name;
        text += u"=\"";
        const int column = columns[at];
        if (attribute.asked)
            text += attribute.asked(rows.row(row));
        else if (column < 0 || rows.isNull(row, column))
            text += attribute.otherwise;
        else if (const QString value = valueText(rows.value(row, column), rows.columnKind(column));
                 attribute.escape == Escape::Yes)
            text += escaped(value);
        else
            text += value;
        text += u'"';
    }
    text += u" />";
}

QString section(QStringView element, const db::Recordset &rows,
                std::span<const Attribute> attributes)
{
    if (rows.isEmpty())
        return {};
    std::vector<int> columns;
    for (const Attribute &attribute : attributes)
        columns.push_back(attribute.column.isEmpty() ? -1 : rows.columnIndex(attribute.column));
    QString text;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        if (row == 0)
            text += u'<' + element.toString() + u'>';
        text += Return;
        appendRecord(text, rows, row, attributes, columns);
    }
    return text + Return + u"</"_s + element.toString() + u'>' + Return;
}

/// The newest reading of the meter by which an order's service goes.
QString lastReading(const db::Row &row)
{
    const QString period = row.text(u"Period");
    // By the calendar there is no meter to look for.
    if (readings::countType(period).isEmpty())
        return u"0"_s;
    return QString::number(GetEquipmentCountByCode(row.integer(u"EquipmentID"), period));
}

/// A section whose rows are those of a statement.
QString sectionOf(const char *procedure, QStringView element, const QString &statement,
                  std::span<const Attribute> attributes)
{
    return base::trapped(Module, procedure, QString(), [&] {
        return section(element, dataConnection().Open(statement), attributes);
    });
}

QString exchangeText()
{
    QString text = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><tables>"_s + Return;
    for (QString (*const build)() :
         {Equipment_XML, Crew_XML, EquipmentCount_XML, WorkOrder_XML, ServiceUsed_XML,
          ServiceUsedPart_XML, Part_XML, Service_XML, ServicePart_XML}) {
        const QString built = build();
        if (!built.trimmed().isEmpty())
            text += built;
    }
    return text + Return + u"</tables>"_s;
}

/// True when an element stands in the root.
bool hasSections(const QString &text)
{
    QXmlStreamReader reader(text);
    return reader.readNextStartElement() && reader.readNextStartElement();
}

} // namespace

QString exportedFile()
{
    return base::applicationPath(u"\\XML_OUT\\Data.xml"_s);
}

bool GenrateXML(bool &failed)
{
    failed = true;
    return base::trapped(Module, "GenrateXML", false, [&] {
        // A section that can't be read must not be missing from a file that looks whole.
        const base::Whole whole;
        const QString text = exchangeText();
        if (const auto fault = faultIn(text)) {
            told::critical(fault->text());
            return false;
        }
        if (!hasSections(text)) {
            failed = false;
            told::information(u"There is not data for exporting"_s);
            return false;
        }
        sys::makeFolder(base::applicationPath(u"\\XML_OUT"_s));
        sys::writeFile(exportedFile(), text.toUtf8());
        failed = false;
        told::information(u"Quorvantis records have been exported successfully.\n"
                              "Put the Windows Mobile device Into the cradle."_s);
        return true;
    });
}

QString Equipment_XML()
{
    static constexpr Attribute attributes[] = {
        {u"EquipmentID", u"EquipmentID"},
        {u"UnitNo", u"UnitNo"},
        {u"EquipmentName", u"EquipmentName", Escape::Yes},
        {u"CrewID", u"CrewID"},
        {u"Equip_BarCode", u"Bar_Code", Escape::Yes},
        {u"LastCrewID", u"CrewID"},
    };
    return sectionOf("Equipment_XML", u"tblEquipment",
                     u"Select EquipmentID, UnitNo, EquipmentName, CrewID, Bar_Code from "
                     "tblEquipment"_s,
                     attributes);
}

QString Crew_XML()
{
    static constexpr Attribute attributes[] = {
        {u"CrewID", u"CrewID"},
        {u"CrewNumber", u"CrewNumber"},
        {u"Description", u"Description", Escape::Yes},
    };
    return sectionOf("Crew_XML", u"tblCrew",
                     u"Select CrewID, CrewNumber, Description from tblCrew"_s, attributes);
}

QString EquipmentCount_XML()
{
    static constexpr Attribute attributes[] = {
        {u"EquipmentID", u"EquipmentID"},
        {u"ChangeDate", u"Last Date"},
        {u"CountType", u"CountType"},
        {u"LastCount", u"Last Count"},
        {u"CurrentCount", {}, Escape::No, u"0"},
    };
    return base::trapped(Module, "EquipmentCount_XML", QString(), [&] {
        return section(u"tblEquipmentCount", readings::due(readings::delay()), attributes);
    });
}

QString WorkOrder_XML()
{
    static constexpr Attribute attributes[] = {
        {u"WorkorderNo", u"WorkorderNo"},
        {u"EquipmentID", u"EquipmentID"},
        {u"Complete", {}, Escape::No, u"N"},
        {u"CompletedDate", {}},
    };
    return sectionOf("WorkOrder_XML", u"tblWorkorder",
                     u"SELECT DISTINCT tblWorkorder.WorkorderNo, tblWorkorder.EquipmentID, "
                     "tblWorkorder.Complete, tblWorkorder.CompletedDate FROM tblWorkorder INNER "
                     "JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = "
                     "tblWoServiceUsed.WorkorderNo where tblWorkorder.Complete = False"_s,
                     attributes);
}

QString ServiceUsed_XML()
{
    static constexpr Attribute attributes[] = {
        {u"ServiceUsedID", u"NserviceUsedID"},
        {u"EquipmentID", u"EquipmentID"},
        {u"ServiceID", u"ServiceID"},
        {u"Name", u"Name", Escape::Yes},
        {u"WorkOrderNo", u"WorkOrderNo"},
        {u"Completed", {}, Escape::No, u"N"},
        {u"StartTime", u"StartTime"},
        {u"EndTime", u"EndTime"},
        {u"Notes", u"Note", Escape::Yes},
        {u"Mhrs", u"Mhrs"},
        {u"Period", u"Period"},
        {u"CrewID", u"CrewID"},
        {u"JobNO", u"JobNO"},
        {u"LastReading", {}, Escape::No, {}, lastReading},
    };
    return sectionOf("ServiceUsed_XML", u"tblServiceUsed",
                     u"SELECT tblWoServiceUsed.NserviceUsedID, tblWoServiceUsed.ServiceID, "
                     "tblWoServiceUsed.EquipmentID, tblWoServiceUsed.Name, "
                     "tblWoServiceUsed.WorkOrderNo, tblWoServiceUsed.Completed, "
                     "tblWoServiceUsed.StartTime, tblWoServiceUsed.EndTime, tblWoServiceUsed.Note, "
                     "tblWoServiceUsed.Period, tblWoServiceUsed.CrewID, tblWoServiceUsed.JobNO, "
                     "tblServiceUsed.LaborEstimate AS Mhrs FROM (tblWorkorder LEFT JOIN "
                     "tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo) "
                     "LEFT JOIN tblServiceUsed ON tblWoServiceUsed.Serviceusedid = "
                     "tblServiceUsed.Serviceusedid where tblWoServiceUsed.Completed=False and "
                     "tblWorkorder.Complete=False"_s,
                     attributes);
}

QString ServiceUsedPart_XML()
{
    static constexpr Attribute attributes[] = {
        {u"ServiceUsedID", u"NserviceUsedID"},
        {u"PartID", u"PartID", Escape::Yes},
        {u"QtyReq", u"QuantityRequired"},
        {u"Price", u"Price"},
        {u"Used", u"Used"},
        {u"QtyUsed", u"QuantityUsed"},
    };
    return sectionOf("ServiceUsedPart_XML", u"tblServiceUsedPart",
                     u"SELECT tblWoServiceUsed.NserviceUsedID, tblWoPartUsed.PartID, "
                     "tblPart.Description, tblWoPartUsed.QuantityRequired, tblWoPartUsed.Price, "
                     "tblWoPartUsed.Used, tblWoPartUsed.QuantityUsed, "
                     "tblWoServiceUsed.WorkOrderNo FROM (tblWoServiceUsed INNER JOIN "
                     "tblWoPartUsed ON tblWoServiceUsed.NserviceUsedID = "
                     "tblWoPartUsed.ServiceUsedID) INNER JOIN tblPart ON tblWoPartUsed.PartID = "
                     "tblPart.PartID where tblWoServiceUsed.WorkOrderNo in (Select WorkorderNo "
                     "from tblWorkorder where Complete=False)"_s,
                     attributes);
}

QString Part_XML()
{
    static constexpr Attribute attributes[] = {
        {u"PartID", u"PartID", Escape::Yes},
        {u"Description", u"Description", Escape::Yes},
        {u"QtyOnHand", u"Quantity"},
        // The blank belongs to the format.
        {u"Part_BarCode ", u"Bar_Code", Escape::Yes},
        {u"QtyReceived", {}, Escape::No, u"0"},
        {u"Price", u"Price"},
    };
    return sectionOf("Part_XML", u"tblPart",
                     u"Select PartID, Description, Quantity, Bar_Code, Price from tblPart"_s,
                     attributes);
}

QString Service_XML()
{
    static constexpr Attribute attributes[] = {
        {u"ServiceID", u"ServiceID"},
        {u"Name", u"Name", Escape::Yes},
        {u"CrewID", u"CrewID", Escape::No, u"0"},
        {u"CostCenterID", u"CostCenterID", Escape::No, u"0"},
        {u"Period", u"Period"},
        {u"CostEstimate", u"CostEstimate", Escape::No, u"0"},
        {u"Mhr", u"LaborEstimate", Escape::No, u"0"},
        {u"Note", u"Note", Escape::Yes},
        {u"JobNo", u"JobNo", Escape::No, u"0"},
    };
    return sectionOf("Service_XML", u"tblService", u"SELECT * FROM tblservices"_s, attributes);
}

QString ServicePart_XML()
{
    // Two names say other things than the values are, and the handheld knows them so.
    static constexpr Attribute attributes[] = {
        {u"PartID", u"PartID", Escape::Yes},
        {u"ServiceUsedID", u"ServiceID"},
        {u"QtyReq", u"QuantityRequired", Escape::No, u"0"},
        {u"Price", u"Price", Escape::No, u"0"},
        {u"QtyUsed", u"SupplierID", Escape::No, u"0"},
    };
    return sectionOf("ServicePart_XML", u"tblServicePart", u" SELECT * FROM tblservicespart"_s,
                     attributes);
}

} // namespace exchange
