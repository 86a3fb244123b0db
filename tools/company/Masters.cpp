#include "company/Masters.h"

#include "core/database/Csv.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"

#include <cmath>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

constexpr int CountryList = 1;
constexpr int PositionList = 3;
constexpr int PartCategoryList = 10;

QString itemKey(int parent, const QString &name)
{
    return QString::number(parent) + u'/' + name;
}

} // namespace

double cents(double amount)
{
    return std::round(amount * 100) / 100;
}

Masters::Masters(Batch &batch, const Content &content, const Plan &plan, QDate today, quint64 seed)
{
    readItems(batch.connection());
    writeSites(batch);
    writeCrews(batch);
    writeCostCenters(batch);
    writeEmployees(batch, today);
    writeSuppliers(batch);
    writeParts(batch, content, plan.partSeries, seed);
    writeServices(batch, content);
}

const Supplier &Masters::supplier(const QString &name) const
{
    for (const Supplier &supplier : m_suppliers) {
        if (supplier.name == name)
            return supplier;
    }
    throw base::Error(base::ErrorNumber::NoSuchItem, u"No supplier is called %1."_s.arg(name));
}

int Masters::costCenter(const QString &description) const
{
    return m_costCenters.value(description);
}

int Masters::item(int parent, const QString &name) const
{
    if (name.isEmpty())
        return 0;
    const auto found = m_items.constFind(itemKey(parent, name));
    if (found == m_items.constEnd())
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"The lookup lists have no \"%1\" under %2."_s.arg(name).arg(parent));
    return *found;
}

int Masters::anyItem(int list, Random &random) const
{
    return random.pick(m_children[list]);
}

int Masters::state(const QString &letters) const
{
    return item(item(CountryList, u"United States"_s), letters);
}

const Part &Masters::part(const QString &family, int machineKind) const
{
    const std::vector<int> &variants = m_families[family];
    return m_parts[variants.at(machineKind % variants.size())];
}

void Masters::readItems(db::Connection &connection)
{
    const db::Recordset rows =
        connection.Open(u"Select ItemID, ParentID, ItemName from tblIndicator order by ItemID"_s);
    for (const db::Row row : rows) {
        const int id = static_cast<int>(row.integer(u"ItemID"));
        const int parent = static_cast<int>(row.integer(u"ParentID"));
        m_items.insert(itemKey(parent, row.text(u"ItemName")), id);
        m_children[parent] << id;
    }
}

void Masters::writeSites(Batch &batch)
{
    db::Connection &connection = batch.connection();
    const CsvTable table(sampleText(u"sites"_s));
    for (int row = 0; row < table.rowCount(); ++row) {
        Site site;
        const QString name = table.text(row, u"SiteName"_s);
        site.id = static_cast<int>(connection.Insert(
            u"Insert into tblSite (SiteName, Address, City, StateID, Zip) values (?, ?, ?, ?, ?)"_s,
            {name, table.text(row, u"Address"_s), table.text(row, u"City"_s),
             state(table.text(row, u"State"_s)), table.text(row, u"Zip"_s)},
            u"SiteID"_s));
        for (const QString &location : table.text(row, u"Locations"_s).split(u'|'))
            site.locations.push_back(static_cast<int>(connection.Insert(
                u"Insert into tblLocation (LocationName, Description, Site) values (?, ?, ?)"_s,
                {location, u"%1, %2"_s.arg(location, name), site.id}, u"LocationID"_s)));
        m_siteIds.insert(name, site.id);
        m_sites.push_back(std::move(site));
    }
}

void Masters::writeCrews(Batch &batch)
{
    const CsvTable table(sampleText(u"crews"_s));
    for (int row = 0; row < table.rowCount(); ++row) {
        Crew crew;
        crew.number = table.integer(row, u"CrewNumber"_s);
        crew.description = table.text(row, u"Description"_s);
        crew.id = static_cast<int>(batch.connection().Insert(
            u"Insert into tblCrew (CrewNumber, Description) values (?, ?)"_s,
            {crew.number, crew.description}, u"CrewID"_s));
        m_crews.insert({crew.number, crew});
    }
}

void Masters::writeCostCenters(Batch &batch)
{
    const CsvTable table(sampleText(u"costcenters"_s));
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString description = table.text(row, u"Description"_s);
        const qint64 id = batch.connection().Insert(
            u"Insert into tblCostCenter (Description, Budget) values (?, ?)"_s,
            {description, table.number(row, u"Budget"_s)}, u"CostCenterID"_s);
        m_costCenters.insert(description, static_cast<int>(id));
    }
}

void Masters::writeEmployees(Batch &batch, QDate today)
{
    const CsvTable table(sampleText(u"employees"_s));
    RowWriter writer(
        batch, u"tblEmployee"_s,
        {u"EmployeeID"_s,  u"FirstName"_s, u"Lastname"_s,  u"InitialName"_s, u"Gender"_s,
         u"BirthDate"_s,   u"Address"_s,   u"City"_s,      u"State"_s,       u"Country"_s,
         u"Zip"_s,         u"Phone"_s,     u"CellPhone"_s, u"Email"_s,       u"Pager"_s,
         u"SS"_s,          u"LicenseNo"_s, u"Site"_s,      u"Skills"_s,      u"Crew"_s,
         u"EmpPosition"_s, u"LaborCost"_s, u"LaborRate"_s, u"Inactive"_s,    u"IncludeWoList"_s});
    std::map<int, std::pair<double, int>> costs; // by crew: the sum and the number counted
    // Birthdays and streets don't depend on the company's seed: its people stay the same.
    Random random(table.rowCount());
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString first = table.text(row, u"FirstName"_s);
        const QString last = table.text(row, u"Lastname"_s);
        const int crew = table.integer(row, u"Crew"_s);
        const double cost = table.number(row, u"LaborCost"_s);
        const int inactive = table.integer(row, u"Inactive"_s);
        const int listed = table.integer(row, u"InList"_s);
        const QDate born(table.integer(row, u"BirthYear"_s), random.between(1, 12),
                         random.between(1, 28));
        writer.add({table.text(row, u"EmployeeID"_s),
                    first,
                    last,
                    table.text(row, u"InitialName"_s),
                    table.text(row, u"Gender"_s),
                    base::wallClock(std::min(born, today.addYears(-18))),
                    u"%1 %2"_s.arg(random.between(100, 2900))
                        .arg(random.pick(QStringList{u"Elm Street"_s, u"Walnut Street"_s,
                                                     u"Rainbow Drive"_s, u"Main Street"_s,
                                                     u"Greenhill Road"_s, u"Hudson Road"_s})),
                    u"Cedar Falls"_s,
                    state(u"IA"_s),
                    item(CountryList, u"United States"_s),
                    u"50613"_s,
                    u"(319) 555-%1"_s.arg(300 + row, 4, 10, QChar(u'0')),
                    u"(319) 555-%1"_s.arg(400 + row, 4, 10, QChar(u'0')),
                    u"%1.%2@greenfieldgrounds.example"_s.arg(first.toLower(), last.toLower()),
                    QString(),
                    QString(),
                    u"%1IA%2"_s.arg(random.between(100, 999)).arg(random.between(1000, 9999)),
                    m_siteIds.value(table.text(row, u"Site"_s)),
                    table.text(row, u"Skills"_s),
                    crew == 0 ? 0 : m_crews.at(crew).id,
                    item(PositionList, table.text(row, u"Position"_s)),
                    cost,
                    table.number(row, u"LaborRate"_s),
                    inactive,
                    listed});
        if (crew != 0 && inactive == 0 && listed == 1) {
            // Whom work orders don't list doesn't count for what an hour of the crew costs.
            costs[crew].first += cost;
            costs[crew].second += 1;
        }
    }
    for (const auto &[number, sum] : costs)
        m_crews.at(number).rate = cents(sum.first / sum.second);
}

void Masters::writeSuppliers(Batch &batch)
{
    const CsvTable table(sampleText(u"suppliers"_s));
    const QStringList texts = {
        u"Name"_s, u"Tax"_s, u"Terms"_s, u"Email"_s, u"WebSite"_s, u"Address"_s,     u"Address2"_s,
        u"City"_s, u"Zip"_s, u"Phone"_s, u"Fax"_s,   u"Atten"_s,   u"ContactName"_s, u"Notes"_s};
    RowWriter writer(batch, u"tblSupplier"_s,
                     QStringList{u"SupplierID"_s, u"CreditLimit"_s, u"State"_s} + texts);
    for (int row = 0; row < table.rowCount(); ++row) {
        const int id = row + 1;
        QVariantList values = {id, table.number(row, u"CreditLimit"_s),
                               state(table.text(row, u"State"_s))};
        for (const QString &column : texts)
            values << table.text(row, column);
        writer.add(values);
        m_suppliers.push_back({id, table.text(row, u"Name"_s)});
    }
}

void Masters::writeParts(Batch &batch, const Content &content, int series, quint64 seed)
{
    RowWriter writer(batch, u"tblPart"_s,
                     {u"PartID"_s, u"Description"_s, u"PartCategoryID"_s, u"Quantity"_s, u"Price"_s,
                      u"SupplierID"_s, u"QtyMax"_s, u"QtyMin"_s, u"Inactive"_s, u"Notes"_s,
                      u"Bin"_s, u"Bar_Code"_s, u"TrackInventory"_s});
    int number = 0;
    for (const PartFamily &family : content.parts) {
        const Supplier &from = supplier(family.supplier);
        const int count = static_cast<int>(family.variants.size());
        for (int n = 0; n < count * series; ++n) {
            Random random = Random::of(seed, 1'000'000 + number);
            Part part;
            part.id = u"%1-%2"_s.arg(family.code).arg(1001 + n);
            part.description = family.description + u", "_s + family.variants[n % count];
            if (n >= count)
                part.description += u", series %1"_s.arg(n / count + 1);
            part.category = family.category;
            part.price = cents(random.between(family.low, family.high));
            part.supplier = from.id;
            part.supplierName = from.name;

            const int reorderAt = std::max(1, family.uses / 2);
            // The first number of a family serves most services and is never short of use.
            const bool inactive = n > 0 && random.percent(4);
            double onHand = random.between(reorderAt, 3 * reorderAt + 2);
            if (number % 9 == 4)
                onHand = random.below(reorderAt);
            writer.add({part.id, part.description, item(PartCategoryList, part.category), onHand,
                        part.price, part.supplier, 2 * reorderAt, reorderAt, inactive,
                        inactive ? u"Superseded; use up what is left."_s : QString(),
                        u"%1-%2"_s.arg(QChar(u'A' + number % 8)).arg(number / 8 % 30 + 1),
                        u"00%1"_s.arg(7310000 + number), !family.tracked});
            m_families[family.code].push_back(static_cast<int>(m_parts.size()));
            m_parts.push_back(std::move(part));
            ++number;
        }
    }
}

void Masters::writeServices(Batch &batch, const Content &content)
{
    RowWriter services(batch, u"tblServices"_s,
                       QStringList{u"ServiceID"_s, u"Name"_s, u"CrewID"_s, u"CostCenterID"_s} +
                           scheduleColumns() +
                           QStringList{u"SeparateWo"_s, u"LaborEstimate"_s, u"CostEstimate"_s,
                                       u"[Note]"_s, u"JobNo"_s});
    RowWriter parts(
        batch, u"tblServicesPart"_s,
        {u"PartID"_s, u"ServiceID"_s, u"QuantityRequired"_s, u"Price"_s, u"SupplierID"_s});
    for (const CatalogueService &service : content.services) {
        const Crew &by = crew(service.crewNumber);
        services.add(QVariantList{service.id, service.name, by.id, costCenter(service.costCenter)} +
                     scheduleValues(service) +
                     QVariantList{service.separate ? 1 : 0, service.hours,
                                  cents(service.hours * by.rate), service.note, service.jobNo});
        for (const PartNeed &need : service.parts) {
            const Part &usual = part(need.code, 0);
            parts.add({usual.id, service.id, need.quantity, usual.price, usual.supplier});
        }
    }
}

QStringList scheduleColumns()
{
    return {u"Period"_s, u"EInterval"_s, u"RenewalOn"_s, u"Sun"_s, u"Mon"_s,    u"Tue"_s,
            u"Wed"_s,    u"Thu"_s,       u"Fri"_s,       u"Sat"_s, u"FirstW"_s, u"SecondW"_s,
            u"ThirdW"_s, u"ForthW"_s,    u"LastW"_s,     u"DOM"_s, u"Dom1"_s,   u"Dom2"_s,
            u"Dom3"_s,   u"Dom4"_s,      u"Dom5"_s,      u"Jan"_s, u"Feb"_s,    u"Mar"_s,
            u"Apr"_s,    u"May"_s,       u"Jun"_s,       u"Jul"_s, u"Aug"_s,    u"Sep"_s,
            u"Oct"_s,    u"Nov"_s,       u"Dece"_s};
}

QVariantList scheduleValues(const CatalogueService &service)
{
    const Pattern &pattern = service.pattern;
    QVariantList values = {QString(service.period), service.interval, QString(service.renewal)};
    const auto addFlags = [&](const auto &flags) {
        for (const bool flag : flags)
            values << (flag ? 1 : 0);
    };
    addFlags(pattern.days);
    addFlags(pattern.weeks);
    values << (pattern.byDayOfMonth ? 1 : 0);
    for (const int day : pattern.daysOfMonth)
        values << day;
    addFlags(pattern.months);
    return values;
}

} // namespace company::sample
