#include "reporting/ReportTables.h"

#include "core/Session.h"

#include <QHash>
#include <algorithm>

namespace reporttables {

using namespace Qt::StringLiterals;

namespace {

struct Offered
{
    const char *name;
    const char *caption;
};
constexpr Offered offered[] = {
    {"tblEquipment", "Equipment"},
    {"tblServices", "Services (catalogue)"},
    {"tblServiceUsed", "Services of machines"},
    {"tblWorkorder", "Work orders (open)"},
    {"tblWoServiceUsed", "Services on open work orders"},
    {"tblPart", "Parts"},
    {"tblServicesPart", "Parts of services"},
    {"tblServiceUsedPart", "Parts of machines' services"},
    {"tblWoPartUsed", "Parts on open work orders"},
    {"tblWOServiceUsedHistory", "Services done (history)"},
    {"tblWoPartHistory", "Parts used (history)"},
    {"tblSupplier", "Suppliers"},
    {"tblEmployee", "Employees"},
    {"tblCrew", "Crews"},
    {"tblSite", "Sites"},
    {"tblLocation", "Locations"},
    {"tblCostCenter", "Cost centers"},
    {"tblEquipmentCount", "Meter readings"},
    {"tblEquipmentPart", "Parts of machines"},
    {"tblEquipmentCrewHistory", "Crew history of machines"},
    {"tblEquipmentScan", "Scans of machines"},
    {"tblEquipmentDepreciation", "Depreciation of machines"},
    {"tblEquipmentDocument", "Documents of machines"},
    {"tblEquipmentImage", "Pictures of machines"},
    {"tblIndicator", "Lookup lists"},
};

/// The links in short, parted by blanks: table, column, other table, its key, the column that says
/// which row it is, and the caption, which gives the name in a statement too.
constexpr const char *linkRows[] = {
    "tblEquipment EquipmentType tblIndicator ItemID ItemName Type",
    "tblEquipment EquipmentMake tblIndicator ItemID ItemName Make",
    "tblEquipment EquipmentModel tblIndicator ItemID ItemName Model",
    "tblEquipment SiteID tblSite SiteID SiteName Site",
    "tblEquipment LocationID tblLocation LocationID LocationName Location",
    "tblEquipment CrewID tblCrew CrewID Description Crew",
    "tblEquipment LeaseCompany tblIndicator ItemID ItemName Lease Company",
    "tblEquipment EngineMake tblIndicator ItemID ItemName Engine Make",
    "tblEquipment EngineModel tblIndicator ItemID ItemName Engine Model",
    "tblEquipment EngineFuelType tblIndicator ItemID ItemName Engine Fuel",
    "tblEquipment VehicleFuelType tblIndicator ItemID ItemName Vehicle Fuel",
    "tblEquipment Body tblIndicator ItemID ItemName Body",
    "tblEquipment Chassis tblIndicator ItemID ItemName Chassis",
    "tblEquipment Trans tblIndicator ItemID ItemName Transmission",
    "tblEquipment ManufactureID tblIndicator ItemID ItemName Manufacturer",
    "tblEquipment SupplierID tblSupplier SupplierID Name Supplier",
    "tblServices CrewID tblCrew CrewID Description Crew",
    "tblServices CostCenterID tblCostCenter CostCenterID Description Cost Center",
    "tblServiceUsed EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblServiceUsed ServiceID tblServices ServiceID Name Catalogue Service",
    "tblServiceUsed CrewID tblCrew CrewID Description Crew",
    "tblServiceUsed CostCenterID tblCostCenter CostCenterID Description Cost Center",
    "tblWorkorder EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblWoServiceUsed WorkorderNo tblWorkorder WorkorderNo WorkorderNo Work Order",
    "tblWoServiceUsed EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblWoServiceUsed ServiceUsedID tblServiceUsed ServiceUsedID Name Machine's Service",
    "tblWoServiceUsed CrewID tblCrew CrewID Description Crew",
    "tblWoServiceUsed CostCenterID tblCostCenter CostCenterID Description Cost Center",
    "tblPart PartCategoryID tblIndicator ItemID ItemName Part Category",
    "tblPart SupplierID tblSupplier SupplierID Name Supplier",
    "tblServicesPart PartID tblPart PartID Description Part",
    "tblServicesPart ServiceID tblServices ServiceID Name Service",
    "tblServicesPart SupplierID tblSupplier SupplierID Name Supplier",
    "tblServiceUsedPart PartID tblPart PartID Description Part",
    "tblServiceUsedPart ServiceUsedID tblServiceUsed ServiceUsedID Name Service",
    "tblServiceUsedPart SupplierID tblSupplier SupplierID Name Supplier",
    "tblWoPartUsed ServiceUsedID tblWoServiceUsed NServiceUsedID Name Service",
    "tblWoPartUsed PartID tblPart PartID Description Part",
    "tblWoPartUsed SupplierID tblSupplier SupplierID Name Supplier",
    "tblWOServiceUsedHistory EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblWOServiceUsedHistory CrewID tblCrew CrewID Description Crew",
    "tblWoPartHistory ServiceusedID tblWOServiceUsedHistory ServiceUsedID ServiceName Service",
    "tblWoPartHistory partID tblPart PartID Description Part",
    "tblSupplier State tblIndicator ItemID ItemName State",
    "tblEmployee State tblIndicator ItemID ItemName State",
    "tblEmployee Country tblIndicator ItemID ItemName Country",
    "tblEmployee EmpPosition tblIndicator ItemID ItemName Position",
    "tblEmployee Site tblSite SiteID SiteName Site",
    "tblEmployee Crew tblCrew CrewID Description Crew",
    "tblSite StateID tblIndicator ItemID ItemName State",
    "tblLocation Site tblSite SiteID SiteName Site",
    "tblEquipmentCount EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentPart EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentPart PartID tblPart PartID Description Part",
    "tblEquipmentPart SupplierID tblSupplier SupplierID Name Supplier",
    "tblEquipmentCrewHistory EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentScan EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentDepreciation EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentDocument EquipmentId tblEquipment EquipmentID EquipmentName Machine",
    "tblEquipmentImage EquipmentID tblEquipment EquipmentID EquipmentName Machine",
    "tblIndicator ParentID tblIndicator ItemID ItemName List",
};

Link linkFrom(const char *row)
{
    const QStringList words = QString::fromLatin1(row).split(u' ');
    const QString caption = words.mid(5).join(u' ');
    QString as = caption;
    as.removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
    return {words[0], words[1], words[2], words[3], as, caption, words[4]};
}

bool isSame(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// What searches know of a column.
struct Searched
{
    QString caption;
    bool isFlag = false;
};

/// By table and column in lower case.
QHash<QString, Searched> searchedColumns()
{
    QHash<QString, Searched> columns;
    for (const db::Row row : gcnLookup->Open(
             u"Select Tablename, FieldName, FieldDesc, FieldType from tblTableFields"_s))
        columns.insert((row.text(u"Tablename") + u'.' + row.text(u"FieldName")).toLower(),
                       {row.text(u"FieldDesc").trimmed(), isSame(row.text(u"FieldType"), u"BIT")});
    return columns;
}

} // namespace

const Column *Table::find(QStringView column) const
{
    const auto found = std::ranges::find_if(
        columns, [&](const Column &each) { return isSame(each.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

QList<Table> tables()
{
    const QHash<QString, Searched> searched = searchedColumns();
    QList<Table> all;
    for (const Offered &each : offered) {
        Table table{QString::fromLatin1(each.name), QString::fromLatin1(each.caption), {}};
        const sql::Table *known = gcnData->schema().find(table.name);
        if (!known)
            continue;
        for (const sql::Column &column : known->columns) {
            const Searched given = searched.value((table.name + u'.' + column.name).toLower());
            table.columns.append({column.name,
                                  inWords(given.caption.isEmpty() ? column.name : given.caption),
                                  column.kind, column.length,
                                  given.isFlag || column.kind == sql::ColumnKind::YesNo});
        }
        all.append(table);
    }
    return all;
}

const Table *tableOf(const QList<Table> &tables, QStringView name)
{
    const auto found =
        std::ranges::find_if(tables, [&](const Table &table) { return isSame(table.name, name); });
    return found == tables.end() ? nullptr : &*found;
}

const QList<Link> &links()
{
    static const QList<Link> all = [] {
        QList<Link> made;
        for (const char *row : linkRows)
            made.append(linkFrom(row));
        return made;
    }();
    return all;
}

QList<Link> linksOf(QStringView table)
{
    QList<Link> found;
    for (const Link &link : links())
        if (isSame(link.table, table))
            found.append(link);
    return found;
}

Link linkBetween(const QString &present, const QString &added)
{
    for (const Link &link : links())
        if (isSame(link.table, present) && isSame(link.to, added))
            return link;
    for (const Link &link : links())
        if (isSame(link.table, added) && isSame(link.to, present))
            return {present, link.key, added, link.column, {}, {}, {}};
    return {present, {}, added, {}, {}, {}, {}};
}

QString inWords(const QString &name)
{
    // Names that say less than they mean.
    static const QHash<QString, QString> odd{
        {u"EInterval"_s, u"Interval"_s},
        {u"Dece"_s, u"December"_s},
        {u"ForthW"_s, u"Fourth Week"_s},
        {u"EndofYear"_s, u"End of Year"_s},
        {u"AccumualtedDepreciation"_s, u"Accumulated Depreciation"_s},
        {u"BeginingHub"_s, u"Beginning Hub"_s},
        {u"Vin"_s, u"VIN"_s},
        {u"Workhrs"_s, u"Work Hours"_s}};
    if (odd.contains(name))
        return odd.value(name);
    QString words;
    for (qsizetype at = 0; at < name.size(); ++at) {
        const QChar letter = name[at];
        // A capital begins a word behind a small letter, or where a word in capitals ends:
        // "PartID", "VINNumber".
        const bool begins =
            at > 0 && letter.isUpper() &&
            (name[at - 1].isLower() ||
             (at + 1 < name.size() && name[at + 1].isLower() && name[at - 1].isLetter()));
        if (begins && !words.endsWith(u' '))
            words += u' ';
        words += letter == u'_' ? QChar(u' ') : letter;
    }
    return words.trimmed();
}

} // namespace reporttables
