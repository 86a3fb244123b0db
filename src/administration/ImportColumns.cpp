#include "administration/ImportColumns.h"

#include "core/database/Csv.h"
#include "organisation/clsIndicator.h"

#include <algorithm>
#include <array>

namespace administration {
namespace {

using namespace Qt::StringLiterals;
using Kind = CellKind;

constexpr ImportColumn listed(QStringView heading, QStringView column, NameList names,
                              qint64 list = 0, QStringView below = {}, QStringView synonyms = {})
{
    return {.heading = heading,
            .column = column,
            .kind = Kind::Listed,
            .synonyms = synonyms,
            .names = names,
            .list = list,
            .below = below};
}

constexpr ImportColumn item(QStringView heading, QStringView column, qint64 list,
                            QStringView below = {}, QStringView synonyms = {})
{
    return listed(heading, column, NameList::Items, list, below, synonyms);
}

constexpr ImportColumn choice(QStringView heading, QStringView column, QStringView words,
                              QStringView synonyms = {})
{
    return {.heading = heading,
            .column = column,
            .kind = Kind::Choice,
            .synonyms = synonyms,
            .words = words};
}

constexpr ImportColumn required(ImportColumn column)
{
    column.isRequired = true;
    return column;
}

constexpr QStringView lengths = u"Hours;Miles;Days;Weeks;Months;Years";
constexpr qint64 longestLife = 999;

constexpr std::array machineColumns{
    required({u"Unit No", u"UnitNo", Kind::Code, u"Unit;Unit Number"}),
    required({u"Equipment Name", u"EquipmentName", Kind::Text, u"Name;Equipment;Description"}),
    item(u"Type", u"EquipmentType", LookupList::EquipmentType),
    item(u"Make", u"EquipmentMake", LookupList::Make, u"EquipmentType"),
    item(u"Model", u"EquipmentModel", LookupList::Model, u"EquipmentMake"),
    ImportColumn{u"Year", u"EquipmentYear"},
    ImportColumn{u"Serial No", u"EquipmentSerialNo", Kind::Text, u"Serial;Serial Number"},
    ImportColumn{u"Capacity", u"Capacity"},
    ImportColumn{u"Bar Code", u"Bar_Code"},
    ImportColumn{u"Installed Date", u"InstalledDate", Kind::Date, u"Installed"},
    ImportColumn{u"Attached To", u"AttachedTo"},
    listed(u"Site", u"SiteID", NameList::Sites),
    listed(u"Location", u"LocationID", NameList::Locations, 0, u"SiteID"),
    listed(u"Crew", u"CrewID", NameList::Crews, 0, {}, u"Crew No;Crew Number"),
    ImportColumn{u"Inactive", u"Inactive", Kind::Flag},
    ImportColumn{u"Notes", u"Notes"},
    choice(u"Ownership", u"LeaseOwnedLeased", u"Owned;Leased;Loan", u"Owned or Leased"),
    item(u"Lease Company", u"LeaseCompany", LookupList::LeaseCompany),
    ImportColumn{u"Lease Start Date", u"LeaseStartDate", Kind::Date, u"Lease Start"},
    ImportColumn{u"Lease End Date", u"LeaseEndDate", Kind::Date, u"Lease End"},
    choice(u"Lease Period", u"LeasePeriod", lengths),
    ImportColumn{u"Lease Interval", u"LeaseInterval", Kind::Whole},
    ImportColumn{u"Lease Payment", u"LeasePayment", Kind::Money},
    ImportColumn{u"Warranty Start Date", u"WarrantyStartDate", Kind::Date, u"Warranty Start"},
    ImportColumn{u"Warranty End Date", u"WarrantyEndDate", Kind::Date, u"Warranty End"},
    choice(u"Warranty Period", u"WarrantyPeriod", lengths),
    ImportColumn{u"Warranty Interval", u"WarrantyInterval", Kind::Whole},
    ImportColumn{u"User Field 1", u"UserDefined1"},
    ImportColumn{u"User Field 2", u"UserDefined2"},
    ImportColumn{u"User Field 3", u"UserDefined3"},
    ImportColumn{u"User Field 4", u"UserDefined4"},
    ImportColumn{u"User Field 5", u"UserDefined5"},
    ImportColumn{u"User Field 6", u"UserDefined6"},
    ImportColumn{u"User Field 7", u"UserDefined7"},
    ImportColumn{u"User Field 8", u"UserDefined8"},
    ImportColumn{u"User Field 9", u"UserDefined9"},
    ImportColumn{u"User Field 10", u"UserDefined10"},
    ImportColumn{u"Engine Size", u"EngineSize"},
    item(u"Engine Make", u"EngineMake", LookupList::EngineMake),
    item(u"Engine Model", u"EngineModel", LookupList::Model, u"EngineMake"),
    ImportColumn{u"Engine Serial No", u"EngineSerialNo"},
    ImportColumn{u"Cycle", u"Cycle"},
    item(u"Engine Fuel Type", u"EngineFuelType", LookupList::FuelType),
    ImportColumn{u"Beginning Hub", u"BeginingHub", Kind::Whole},
    ImportColumn{u"License No", u"LicenseNo", Kind::Text, u"License;License Plate"},
    ImportColumn{u"Sticker Number", u"StickerNumber"},
    ImportColumn{u"License Renewal Date", u"LicenseRenewalDate", Kind::Date},
    choice(u"Permanent License", u"PermanentLicense", u"Yes;No"),
    ImportColumn{u"Inspection Date", u"InspectionDate", Kind::Date},
    item(u"Vehicle Fuel Type", u"VehicleFuelType", LookupList::FuelType, {}, u"Fuel;Fuel Type"),
    ImportColumn{u"Front Tires", u"Tyre", Kind::Text, u"Tires"},
    ImportColumn{u"Rear Tires", u"Rear_Tires"},
    ImportColumn{u"Weight", u"Weight"},
    ImportColumn{u"VIN", u"Vin"},
    item(u"Body", u"Body", LookupList::VehicleBody),
    item(u"Chassis", u"Chassis", LookupList::VehicleChassis),
    item(u"Transmission", u"Trans", LookupList::VehicleTransmission),
    item(u"Vehicle Engine Type", u"VehicleEngineType", LookupList::VehicleEngineType),
    ImportColumn{u"Vehicle Engine No", u"VehicleEngineNo"},
    ImportColumn{u"Vehicle Color", u"VehicleColor", Kind::Text, u"Color"},
    ImportColumn{u"Vehicle Engine Model", u"VehicleEngineModel"},
    listed(u"Supplier", u"SupplierID", NameList::Suppliers),
    ImportColumn{u"Supplier Part No", u"SupplierPartNo"},
    item(u"Manufacturer", u"ManufactureID", LookupList::Manufacturer),
    ImportColumn{u"Manufacturer Part No", u"ManufacturePartNo"},
    ImportColumn{u"Acquisition Date", u"Acquisitiondate", Kind::Date, u"Purchase Date"},
    ImportColumn{u"Acquisition Cost", u"AcquisitionCost", Kind::Money, u"Purchase Price"},
    ImportColumn{u"Additional Cost", u"AdditionalCost", Kind::Money},
    ImportColumn{u"Purchase Notes", u"PurchaseNotes"},
    ImportColumn{u"Total Cost", u"Totalcost", Kind::Money},
    ImportColumn{u"Salvage Value", u"SalvageValue", Kind::Money},
    ImportColumn{.heading = u"Life Years",
                 .column = u"LifeYears",
                 .kind = Kind::Whole,
                 .synonyms = u"Life",
                 .most = longestLife},
};

constexpr std::array partColumns{
    required({u"Part Number", u"PartID", Kind::Capitals, u"Part No;Part"}),
    required({u"Description", u"Description", Kind::Text, u"Name"}),
    item(u"Category", u"PartCategoryID", LookupList::PartCategory, {}, u"Part Category"),
    ImportColumn{u"Quantity on Hand", u"Quantity", Kind::Number, u"Qty;Qty on Hand"},
    ImportColumn{u"Price", u"Price", Kind::Money, u"Unit Price"},
    listed(u"Supplier", u"SupplierID", NameList::Suppliers),
    ImportColumn{u"Units to Reorder", u"QtyMax", Kind::Number, u"Reorder Quantity"},
    ImportColumn{u"Reorder Below", u"QtyMin", Kind::Number, u"Reorder Level"},
    ImportColumn{u"Inactive", u"Inactive", Kind::Flag},
    ImportColumn{u"Notes", u"Notes"},
    ImportColumn{u"Bin", u"Bin"},
    ImportColumn{u"Bar Code", u"Bar_Code"},
    ImportColumn{u"Do Not Track for Inventory", u"TrackInventory", Kind::Flag, u"Do Not Track"},
};

constexpr std::array employeeColumns{
    required({u"Employee Number", u"EmployeeID", Kind::Code, u"Employee No;Employee;Number"}),
    required({u"First Name", u"FirstName"}),
    ImportColumn{u"Last Name", u"Lastname", Kind::Text, u"Surname"},
    ImportColumn{u"Initial", u"InitialName"},
    ImportColumn{u"Birth Date", u"BirthDate", Kind::Date, u"Date of Birth"},
    choice(u"Gender", u"Gender", u"Male;Female"),
    ImportColumn{u"Address", u"Address"},
    ImportColumn{u"City", u"City"},
    item(u"Country", u"Country", LookupList::Country),
    item(u"State", u"State", LookupList::State, u"Country"),
    ImportColumn{u"Zip", u"Zip", Kind::Text, u"Zip Code"},
    ImportColumn{u"Phone", u"Phone", Kind::Phone},
    ImportColumn{u"Cell Phone", u"CellPhone", Kind::Phone, u"Mobile"},
    ImportColumn{u"Email", u"Email"},
    ImportColumn{u"Pager", u"Pager", Kind::Phone},
    ImportColumn{u"Social Security No", u"SS"},
    ImportColumn{u"License No", u"LicenseNo"},
    listed(u"Site", u"Site", NameList::Sites),
    ImportColumn{u"Skills", u"Skills"},
    listed(u"Crew", u"Crew", NameList::Crews, 0, {}, u"Crew No;Crew Number"),
    item(u"Position", u"EmpPosition", LookupList::EmployeePosition),
    ImportColumn{u"Labor Cost", u"LaborCost", Kind::Money},
    ImportColumn{u"Labor Rate", u"LaborRate", Kind::Money},
    ImportColumn{u"Inactive", u"Inactive", Kind::Flag},
    ImportColumn{u"Include in Work Order List", u"IncludeWoList", Kind::Flag},
};

constexpr std::array readingColumns{
    required(listed(u"Unit No", u"EquipmentID", NameList::Machines, 0, {}, u"Unit;Unit Number")),
    required({u"Date", u"ChangeDate", Kind::Date, u"Count Date;Reading Date"}),
    required({u"Meter", u"CountType", Kind::Meter, u"Count Type;Type"}),
    required({u"Reading", u"CountValue", Kind::Whole, u"Count;Value;Count Value"}),
};

constexpr std::array tables{
    ImportTable{ImportKind::Machines, u"machines", u"tblEquipment", machineColumns, u"UnitNo",
                u"EquipmentSerialNo"},
    ImportTable{ImportKind::Parts, u"parts", u"tblPart", partColumns, u"PartID"},
    ImportTable{ImportKind::Employees, u"employees", u"tblEmployee", employeeColumns,
                u"EmployeeID"},
    ImportTable{ImportKind::Readings, u"readings", u"tblEquipmentCount", readingColumns, {}},
};

/// What counts of a heading.
QString bare(QStringView heading)
{
    QString kept;
    for (const QChar character : heading) {
        if (character.isLetterOrNumber())
            kept += character.toLower();
    }
    return kept;
}

/// True when a bare heading means this column: by its heading, its name in the table or another
/// word.
bool goesBy(const ImportColumn &column, const QString &wanted)
{
    return bare(column.heading) == wanted || bare(column.column) == wanted ||
           std::ranges::any_of(column.synonyms.split(u';'),
                               [&](QStringView name) { return bare(name) == wanted; });
}

} // namespace

const ImportTable &importTable(ImportKind kind)
{
    return *std::ranges::find(tables, kind, &ImportTable::kind);
}

std::optional<ImportKind> importKindOf(QStringView name)
{
    for (const ImportTable &table : tables) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return table.kind;
    }
    return {};
}

QStringList importKindNames()
{
    QStringList names;
    for (const ImportTable &table : tables)
        names.append(table.name.toString());
    return names;
}

int columnPlace(const ImportTable &table, QStringView column)
{
    const auto found = std::ranges::find(table.columns, column, &ImportColumn::column);
    return found == table.columns.end() ? -1 : static_cast<int>(found - table.columns.begin());
}

int placeOfHeading(const ImportTable &table, const QString &heading)
{
    const QString wanted = bare(heading);
    if (wanted.isEmpty())
        return -1;
    const auto found = std::ranges::find_if(
        table.columns, [&](const ImportColumn &column) { return goesBy(column, wanted); });
    return found == table.columns.end() ? -1 : static_cast<int>(found - table.columns.begin());
}

QByteArray emptySheet(ImportKind kind)
{
    QStringList headings;
    for (const ImportColumn &column : importTable(kind).columns)
        headings.append(column.heading.toString());
    // The mark tells spreadsheets that the text is UTF-8.
    return "\xEF\xBB\xBF" + company::csvLine(headings).toUtf8() + "\r\n";
}

} // namespace administration
