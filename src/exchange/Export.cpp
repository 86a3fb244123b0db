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

#include <algorithm>
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

/// A section: the procedure that builds it, its element, and where its rows come from.
struct Section
{
    const char *procedure;
    QStringView element;
    std::span<const Attribute> attributes;
    db::Recordset (*rows)();
};

/// A text, and whether all values in it are such that it can't be anything but XML. Then nobody has
/// to parse it to know.
struct Written
{
    QString text;
    bool isPlain = true;
};

QString escaped(QString text)
{
    return text.replace(u'&', u"&amp;"_s).replace(u'"', u"&quot;"_s);
}

/// True when a value can stand in an attribute as it is; what is escaped may hold what is replaced.
bool isPlain(QStringView value, Escape escape)
{
    return std::ranges::all_of(value, [escape](QChar each) {
        const char16_t c = each.unicode();
        const bool isReplaced = c == u'&' || c == u'"';
        const bool isBlank = c == u'\t' || c == u'\n' || c == u'\r';
        return c != u'<' && (!isReplaced || escape == Escape::Yes) && (c >= u' ' || isBlank) &&
               !each.isSurrogate() && c < 0xfffe;
    });
}

void appendRecord(Written &written, const db::Recordset &rows, int row,
                  std::span<const Attribute> attributes, std::span<const int> columns)
{
    QString &text = written.text;
    text += u"<record"_s;
    for (std::size_t at = 0; at < attributes.size(); ++at) {
        const Attribute &attribute = attributes[at];
        text += u' ';
        text += attribute.name;
        text += u"=\"";
        const int column = columns[at];
        if (attribute.asked) {
            text += attribute.asked(rows.row(row));
        } else if (column < 0 || rows.isNull(row, column)) {
            text += attribute.otherwise;
        } else {
            const QString value = valueText(rows.value(row, column), rows.columnKind(column));
            written.isPlain = written.isPlain && isPlain(value, attribute.escape);
            text += attribute.escape == Escape::Yes ? escaped(value) : value;
        }
        text += u'"';
    }
    text += u" />";
}

void append(Written &written, const Section &section)
{
    // Under the name of its own procedure, by which the error log knows it.
    base::trapped(Module, section.procedure, [&] {
        const db::Recordset rows = section.rows();
        if (rows.isEmpty())
            return;
        std::vector<int> columns;
        // Looked up once for all rows.
        for (const Attribute &attribute : section.attributes)
            columns.push_back(attribute.column.isEmpty() ? -1 : rows.columnIndex(attribute.column));
        written.text += u'<' + section.element.toString() + u'>';
        for (int row = 0; row < rows.RecordCount(); ++row) {
            written.text += Return;
            appendRecord(written, rows, row, section.attributes, columns);
        }
        written.text += Return + u"</"_s + section.element.toString() + u'>' + Return;
    });
}

QString textOf(const Section &section)
{
    Written written;
    append(written, section);
    return written.text;
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

constexpr Attribute EquipmentAttributes[] = {
    {u"EquipmentID", u"EquipmentID"},
    {u"UnitNo", u"UnitNo"},
    {u"EquipmentName", u"EquipmentName", Escape::Yes},
    {u"CrewID", u"CrewID"},
    {u"Equip_BarCode", u"Bar_Code", Escape::Yes},
    {u"LastCrewID", u"CrewID"},
};
constexpr Section Equipment{
    "Equipment_XML", u"tblEquipment", EquipmentAttributes, [] {
        return dataConnection().Open(
            u"Select EquipmentID, UnitNo, EquipmentName, CrewID, Bar_Code from "
            "tblEquipment"_s);
    }};

constexpr Attribute CrewAttributes[] = {
    {u"CrewID", u"CrewID"},
    {u"CrewNumber", u"CrewNumber"},
    {u"Description", u"Description", Escape::Yes},
};
constexpr Section Crew{
    "Crew_XML", u"tblCrew", CrewAttributes,
    [] { return dataConnection().Open(u"Select CrewID, CrewNumber, Description from tblCrew"_s); }};

constexpr Attribute EquipmentCountAttributes[] = {
    {u"EquipmentID", u"EquipmentID"},
    {u"ChangeDate", u"Last Date"},
    {u"CountType", u"CountType"},
    {u"LastCount", u"Last Count"},
    {u"CurrentCount", {}, Escape::No, u"0"},
};
constexpr Section EquipmentCount{"EquipmentCount_XML", u"tblEquipmentCount",
                                 EquipmentCountAttributes,
                                 [] { return readings::due(readings::delay()); }};

constexpr Attribute WorkOrderAttributes[] = {
    {u"WorkorderNo", u"WorkorderNo"},
    {u"EquipmentID", u"EquipmentID"},
    {u"Complete", {}, Escape::No, u"N"},
    {u"CompletedDate", {}},
};
constexpr Section WorkOrder{
    "WorkOrder_XML", u"tblWorkorder", WorkOrderAttributes, [] {
        return dataConnection().Open(
            u"SELECT DISTINCT tblWorkorder.WorkorderNo, tblWorkorder.EquipmentID, "
            "tblWorkorder.Complete, tblWorkorder.CompletedDate FROM tblWorkorder INNER "
            "JOIN tblWoServiceUsed ON tblWorkorder.WorkorderNo = "
            "tblWoServiceUsed.WorkorderNo where tblWorkorder.Complete = False"_s);
    }};

constexpr Attribute ServiceUsedAttributes[] = {
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
constexpr Section ServiceUsed{
    "ServiceUsed_XML", u"tblServiceUsed", ServiceUsedAttributes, [] {
        return dataConnection().Open(
            u"SELECT tblWoServiceUsed.NserviceUsedID, tblWoServiceUsed.ServiceID, "
            "tblWoServiceUsed.EquipmentID, tblWoServiceUsed.Name, "
            "tblWoServiceUsed.WorkOrderNo, tblWoServiceUsed.Completed, "
            "tblWoServiceUsed.StartTime, tblWoServiceUsed.EndTime, tblWoServiceUsed.Note, "
            "tblWoServiceUsed.Period, tblWoServiceUsed.CrewID, tblWoServiceUsed.JobNO, "
            "tblServiceUsed.LaborEstimate AS Mhrs FROM (tblWorkorder LEFT JOIN "
            "tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo) "
            "LEFT JOIN tblServiceUsed ON tblWoServiceUsed.Serviceusedid = "
            "tblServiceUsed.Serviceusedid where tblWoServiceUsed.Completed=False and "
            "tblWorkorder.Complete=False"_s);
    }};

constexpr Attribute ServiceUsedPartAttributes[] = {
    {u"ServiceUsedID", u"NserviceUsedID"},
    {u"PartID", u"PartID", Escape::Yes},
    {u"QtyReq", u"QuantityRequired"},
    {u"Price", u"Price"},
    {u"Used", u"Used"},
    {u"QtyUsed", u"QuantityUsed"},
};
constexpr Section ServiceUsedPart{
    "ServiceUsedPart_XML", u"tblServiceUsedPart", ServiceUsedPartAttributes, [] {
        return dataConnection().Open(
            u"SELECT tblWoServiceUsed.NserviceUsedID, tblWoPartUsed.PartID, "
            "tblPart.Description, tblWoPartUsed.QuantityRequired, tblWoPartUsed.Price, "
            "tblWoPartUsed.Used, tblWoPartUsed.QuantityUsed, "
            "tblWoServiceUsed.WorkOrderNo FROM (tblWoServiceUsed INNER JOIN "
            "tblWoPartUsed ON tblWoServiceUsed.NserviceUsedID = "
            "tblWoPartUsed.ServiceUsedID) INNER JOIN tblPart ON tblWoPartUsed.PartID = "
            "tblPart.PartID where tblWoServiceUsed.WorkOrderNo in (Select WorkorderNo "
            "from tblWorkorder where Complete=False)"_s);
    }};

constexpr Attribute PartAttributes[] = {
    {u"PartID", u"PartID", Escape::Yes},
    {u"Description", u"Description", Escape::Yes},
    {u"QtyOnHand", u"Quantity"},
    // The blank belongs to the format.
    {u"Part_BarCode ", u"Bar_Code", Escape::Yes},
    {u"QtyReceived", {}, Escape::No, u"0"},
    {u"Price", u"Price"},
};
constexpr Section Part{
    "Part_XML", u"tblPart", PartAttributes, [] {
        return dataConnection().Open(
            u"Select PartID, Description, Quantity, Bar_Code, Price from tblPart"_s);
    }};

constexpr Attribute ServiceAttributes[] = {
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
constexpr Section Service{"Service_XML", u"tblService", ServiceAttributes,
                          [] { return dataConnection().Open(u"SELECT * FROM tblservices"_s); }};

// Two names say other things than the values are, and the handheld knows them so.
constexpr Attribute ServicePartAttributes[] = {
    {u"PartID", u"PartID", Escape::Yes},
    {u"ServiceUsedID", u"ServiceID"},
    {u"QtyReq", u"QuantityRequired", Escape::No, u"0"},
    {u"Price", u"Price", Escape::No, u"0"},
    {u"QtyUsed", u"SupplierID", Escape::No, u"0"},
};
constexpr Section ServicePart{"ServicePart_XML", u"tblServicePart", ServicePartAttributes, [] {
                                  return dataConnection().Open(u" SELECT * FROM tblservicespart"_s);
                              }};

constexpr const Section *Sections[] = {&Equipment, &Crew,        &EquipmentCount,
                                       &WorkOrder, &ServiceUsed, &ServiceUsedPart,
                                       &Part,      &Service,     &ServicePart};

Written exchangeText()
{
    Written written{u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><tables>"_s + Return};
    for (const Section *section : Sections)
        append(written, *section);
    written.text += Return + u"</tables>"_s;
    return written;
}

/// True when an element stands in the root.
bool hasSections(const QByteArray &text)
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
        const Written written = exchangeText();
        const QByteArray text = written.text.toUtf8();
        if (const auto fault = written.isPlain ? std::nullopt : faultIn(text)) {
            told::critical(fault->text());
            return false;
        }
        // No failure: the dialog tries again until there is something.
        if (!hasSections(text)) {
            failed = false;
            told::information(u"There is not data for exporting"_s);
            return false;
        }
        sys::makeFolder(base::applicationPath(u"\\XML_OUT"_s));
        // In one step: the program that carries the file never finds half of it.
        sys::writeFile(exportedFile(), text);
        failed = false;
        told::information(u"Quorvantis records have been exported successfully.\n"
                          "Put the Windows Mobile device Into the cradle."_s);
        return true;
    });
}

QString Equipment_XML()
{
    return textOf(Equipment);
}

QString Crew_XML()
{
    return textOf(Crew);
}

QString EquipmentCount_XML()
{
    return textOf(EquipmentCount);
}

QString WorkOrder_XML()
{
    return textOf(WorkOrder);
}

QString ServiceUsed_XML()
{
    return textOf(ServiceUsed);
}

QString ServiceUsedPart_XML()
{
    return textOf(ServiceUsedPart);
}

QString Part_XML()
{
    return textOf(Part);
}

QString Service_XML()
{
    return textOf(Service);
}

QString ServicePart_XML()
{
    return textOf(ServicePart);
}

} // namespace exchange
