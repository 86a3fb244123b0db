#include "reporting/QuickFind.h"

#include "core/Permission.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quickfind {
namespace {

constexpr NumberColumn EquipmentNumbers[] = {{u"Unit No", u""}, {u"Assigned to", u""}};
constexpr NumberColumn PartNumbers[] = {{u"Price", u"$0.00"}, {u"Qty on Hand", u"0.00"}};
constexpr NumberColumn EmployeeNumbers[] = {
    {u"Labor Cost", u"$0.00"}, {u"Labor Rate", u"$0.00"}, {u"Crew", u""}};
constexpr NumberColumn SupplierNumbers[] = {{u"Tax", u""}, {u"Credit Limit", u"$0.00"}};

constexpr QStringView EquipmentAutomatic[] = {u"Unit No", u"Name"};
constexpr QStringView PartAutomatic[] = {u"Part Number", u"Description"};
constexpr QStringView EmployeeAutomatic[] = {u"Employee Number", u"Last Name"};
constexpr QStringView LocationAutomatic[] = {u"LocationName"};
constexpr QStringView SupplierAutomatic[] = {u"Name"};

// Machines keep their flag as a text and parts as a number, so the conditions differ.
constexpr Table Tables[] = {
    {u"tblEquipment", u"Quick Find-Equipment", u"EquipmentID", false, EquipmentNumbers,
     EquipmentAutomatic, u"EQUIPMENTINACTIVE", u" where tblEquipment.Inactive  = '0'",
     u" where (tblEquipment.Inactive  = '1' or tblEquipment.Inactive  = '0')",
     rights::Machines.add},
    {u"tblPart", u"Quick Find-Part", u"PartID", false, PartNumbers, PartAutomatic, u"PARTINACTIVE",
     u" where Inactive = 0", u" where Inactive = -1 or Inactive = 0", rights::Parts.add},
    {u"tblEmployee", u"Quick Find-Employee", u"EmployeeID", false, EmployeeNumbers,
     EmployeeAutomatic, u"", u"", u"", nullptr},
    {u"tblLocation",
     u"Quick Find-Location",
     u"LocationID",
     false,
     {},
     LocationAutomatic,
     u"",
     u"",
     u"",
     nullptr},
    {u"tblSupplier", u"Quick Find-Supplier", u"SupplierID", true, SupplierNumbers,
     SupplierAutomatic, u"", u"", u"", nullptr},
};

constexpr QStringView EquipmentQuery =
    u"SELECT tblEquipment.EquipmentID, tblEquipment.UnitNo AS [Unit No], "
    "tblEquipment.EquipmentName AS Name, Etype.ItemName AS Type, Make.ItemName AS Make, "
    "Model.ItemName AS Model, tblEquipment.EquipmentSerialNo AS [Serial No], tblSite.SiteName AS "
    "Site, tblLocation.LocationName AS Location, IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)"
    "+'   '+tblCrew.Description),'') AS [Assigned to], tblEquipment.Inactive, "
    "tblEquipment.LicenseNo AS [License] FROM (((((tblEquipment LEFT JOIN tblIndicator AS Etype ON "
    "tblEquipment.EquipmentType = Etype.ItemID) LEFT JOIN tblIndicator AS Make ON "
    "tblEquipment.EquipmentMake = Make.ItemID) LEFT JOIN tblIndicator AS Model ON "
    "tblEquipment.EquipmentModel = Model.ItemID) LEFT JOIN tblSite ON tblEquipment.SiteID = "
    "tblSite.SiteID) LEFT JOIN tblLocation ON tblEquipment.LocationID = tblLocation.LocationID) "
    "LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID";

constexpr QStringView PartQuery =
    u"SELECT tblPart.PartID, tblPart.PartID AS [Part Number], tblPart.Description , "
    "tblIndicator.ItemName AS [Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, "
    "tblSupplier.Name AS Supplier, tblPart.Inactive FROM (tblPart LEFT JOIN tblIndicator ON "
    "tblPart.PartCategoryID = tblIndicator.ItemID) LEFT JOIN tblSupplier ON tblPart.SupplierID = "
    "tblSupplier.SupplierID";

constexpr QStringView EmployeeQuery =
    u"SELECT tblEmployee.EmployeeID, tblEmployee.EmployeeID AS [Employee Number], "
    "tblEmployee.Lastname AS [Last Name], tblEmployee.FirstName AS [First Name], "
    "tblEmployee.InitialName AS [Initial Name], tblEmployee.Address, tblEmployee.City, "
    "States.ItemName AS State, tblEmployee.Zip, Countries.ItemName AS Country, tblEmployee.Email, "
    "tblEmployee.Phone, tblEmployee.CellPhone, tblEmployee.Pager, tblEmployee.LicenseNo AS "
    "[License No], tblSite.SiteName AS Site, tblEmployee.Skills, tblCrew.CrewNumber AS Crew, "
    "Positions.ItemName AS [Employee Position], tblEmployee.LaborCost AS [Labor Cost], "
    "tblEmployee.LaborRate AS [Labor Rate], tblEmployee.Inactive FROM ((((tblEmployee LEFT JOIN "
    "tblIndicator AS States ON tblEmployee.State = States.ItemID) LEFT JOIN tblIndicator AS "
    "Countries ON tblEmployee.Country = Countries.ItemID) LEFT JOIN tblSite ON tblEmployee.Site = "
    "tblSite.SiteID) LEFT JOIN tblCrew ON tblEmployee.Crew = tblCrew.CrewID) LEFT JOIN "
    "tblIndicator AS Positions ON tblEmployee.EmpPosition = Positions.ItemID";

constexpr QStringView LocationQuery =
    u"SELECT tblLocation.LocationID, tblLocation.LocationName, tblLocation.Description, "
    "tblSite.SiteName AS [Site] FROM tblLocation LEFT JOIN tblSite ON tblLocation.Site = "
    "tblSite.SiteID";

constexpr QStringView SupplierQuery =
    u"SELECT tblSupplier.SupplierID, tblSupplier.Name, tblSupplier.Phone, tblSupplier.Fax, "
    "tblSupplier.Address, tblSupplier.Tax, tblSupplier.Terms, tblSupplier.CreditLimit AS [Credit "
    "Limit], tblSupplier.Email, tblSupplier.WebSite, tblSupplier.Address2, tblSupplier.City, "
    "States.ItemName AS State, tblSupplier.Zip, tblSupplier.Atten, tblSupplier.LicenseNo AS "
    "[License No], tblSupplier.ContactName AS [Contact Name] FROM tblSupplier LEFT JOIN "
    "tblIndicator AS States ON tblSupplier.State = States.ItemID";

/// In the order of Tables.
constexpr QStringView Queries[] = {EquipmentQuery, PartQuery, EmployeeQuery, LocationQuery,
                                   SupplierQuery};
// A query stands at the place of its table.
static_assert(std::size(Queries) == std::size(Tables));

bool isType(QStringView type, QStringView name)
{
    return type.compare(name, Qt::CaseInsensitive) == 0;
}

QList<Field> readFields(const QString &statement)
{
    QList<Field> fields;
    for (const db::Row row : dataConnection().Open(statement))
        fields.append({row.integer(u"RowID"), row.text(u"FieldDesc"), row.text(u"FieldName"),
                       row.text(u"FieldType")});
    // DISTINCT promises no order.
    std::ranges::sort(fields, {}, &Field::rowID);
    return fields;
}

} // namespace

const Table *tableOf(QStringView name)
{
    const auto found =
        std::ranges::find_if(Tables, [&](const Table &each) { return isType(each.name, name); });
    return found == std::end(Tables) ? nullptr : &*found;
}

QString QueryString(QStringView table)
{
    const Table *found = tableOf(table);
    return found ? Queries[found - Tables].toString() : QString();
}

QString SetCaption(QStringView table)
{
    const Table *found = tableOf(table);
    return found ? found->caption.toString() : QString();
}

int SetLength(QStringView fieldType)
{
    if (isType(fieldType, u"INT") || isType(fieldType, u"DATETIME"))
        return 10;
    if (isType(fieldType, u"DECIMAL"))
        return 15;
    if (isType(fieldType, u"BIT"))
        return 2;
    return isType(fieldType, u"CHAR") ? 10 : 100;
}

QString listStatement(const Table &table, const QString &orderColumn, bool showInactive)
{
    QString statement = QueryString(table.name);
    statement += showInactive ? table.bothKinds : table.activeOnly;
    return statement + u" order by %1.[%2]  ASC"_s.arg(table.name, orderColumn);
}

List::List(const Table &table, const QString &orderColumn, bool showInactive,
           const QString &leftOut)
    : m_key(table.key.toString())
    , m_source(dataConnection().OpenGradually(listStatement(table, orderColumn, showInactive)))
{
    if (!isType(table.name, u"tblEquipment"))
        return;
    for (const QStringView key : QStringView(leftOut).split(u',', Qt::SkipEmptyParts))
        m_leftOut.insert(key.trimmed().toLongLong());
}

bool List::read(int rows)
{
    return m_source.fetch(rows);
}

void List::readAll()
{
    while (read(std::numeric_limits<int>::max())) {
    }
}

db::Recordset List::rows() const
{
    return m_leftOut.isEmpty() ? m_source.rows() : m_source.rows().without(m_key, m_leftOut);
}

QString partListStatement(bool showInactive, qint64 category)
{
    QString statement = PartQuery.toString();
    if (!showInactive)
        statement += u" where Inactive = 0"_s;
    if (category != 0)
        statement += (showInactive ? u" where PartCategoryID = "_s : u" and  PartCategoryID = "_s) +
                     QString::number(category);
    return statement + u" order by tblPart.[PartID]  ASC"_s;
}

QList<Field> fieldsOf(QStringView table)
{
    return readFields(u"Select Distinct * from tblTableFields where Tablename = '%1'"_s.arg(table));
}

QList<Field> partFields()
{
    return readFields(u"Select Distinct * from tblTableFields where Tablename = 'tblPart' And "
                      "(FieldDesc<>'PartS' And FieldDesc<>'Inactive')"_s);
}

} // namespace quickfind
