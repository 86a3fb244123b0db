#include "company/Fleet.h"

#include "platform/base/Environment.h"

#include <utility>

namespace company::sample {
namespace {

using namespace Qt::StringLiterals;

// The lists that machines take their values from.
constexpr int TypeList = 4;
constexpr int FuelList = 5;
constexpr int LeaseCompanyList = 6;
constexpr int ManufacturerList = 8;
constexpr int BodyList = 13;
constexpr int ChassisList = 14;
constexpr int EngineTypeList = 15;
constexpr int TransmissionList = 16;
constexpr int EngineMakeList = 17;

constexpr int PeriodMonths = 5; ///< as lease and warranty number their units

/// Keys of the form that adding on the screen gives: month, day, hour, minute, second.
qint64 equipmentId(int serial)
{
    const QDateTime added = base::wallClock(QDate(2023, 2, 6), QTime(8, 0)).addSecs(serial * 97LL);
    return added.toString(u"MMddHHmmss"_s).toLongLong();
}

QString capitals(Random &random, int count)
{
    constexpr char16_t allowed[] = u"ABCDEFGHJKLMNPRSTUVWXYZ";
    QString text;
    while (text.size() < count)
        text += QChar(allowed[random.below(23)]);
    return text;
}

QString digits(Random &random, int count)
{
    QString text;
    while (text.size() < count)
        text += QChar(u'0' + random.below(10));
    return text;
}

bool isVehicle(const FleetModel &model)
{
    return model.machineClass == u"TRUCK"_s || model.machineClass == u"TRAIL"_s;
}

/// A row whose columns are named where their values are given.
class NamedRow
{
public:
    void set(const QString &column, const QVariant &value)
    {
        m_columns << column;
        m_values << value;
    }
    [[nodiscard]] const QStringList &columns() const { return m_columns; }
    [[nodiscard]] const QVariantList &values() const { return m_values; }

private:
    QStringList m_columns;
    QVariantList m_values;
};

/// Makes the row of one machine.
class EquipmentRow
{
public:
    EquipmentRow(const FleetModel &model, const Masters &masters, const Content &content,
                 const Machine &machine, QDate today, Random random)
        : m_model(model)
        , m_masters(masters)
        , m_content(content)
        , m_machine(machine)
        , m_today(today)
        , m_random(random)
    {}

    NamedRow build()
    {
        identity();
        placement();
        ownership();
        engine();
        vehicle();
        purchase();
        return std::move(m_row);
    }

private:
    void identity()
    {
        const int type = m_masters.item(TypeList, m_model.type);
        const int make = m_masters.item(type, m_model.make);
        m_row.set(u"EquipmentID"_s, m_machine.id);
        m_row.set(u"EquipmentName"_s, m_model.name);
        m_row.set(u"EquipmentType"_s, type);
        m_row.set(u"EquipmentMake"_s, make);
        m_row.set(u"EquipmentModel"_s, m_masters.item(make, m_model.model));
        m_row.set(u"Capacity"_s, m_model.capacity);
        m_row.set(u"EquipmentYear"_s, QString::number(m_machine.acquired.year()));
        m_row.set(u"Bar_Code"_s, u"EQ%1"_s.arg(50000 + m_machine.serial));
        m_row.set(u"EquipmentSerialNo"_s, capitals(m_random, 2) + digits(m_random, 4) +
                                              QString::number(10000 + m_machine.serial));
        m_row.set(u"UnitNo"_s, m_machine.unitNo);
        m_row.set(u"InstalledDate"_s, dateOrNull(m_machine.acquired.addDays(3)));
        m_row.set(u"AttachedTo"_s, m_model.machineClass == u"PLOW"_s ? u"T007"_s : QString());
        m_row.set(u"Notes"_s, m_random.pick(m_content.machineNotes));
        m_row.set(u"UserDefined1"_s,
                  isVehicle(m_model) ? u"GF-%1"_s.arg(digits(m_random, 6)) : QString());
        m_row.set(u"UserDefined2"_s, QString::number(100 + m_machine.serial % 400));
        m_row.set(u"UserDefined4"_s,
                  isVehicle(m_model) ? u"IA%1"_s.arg(digits(m_random, 8)) : QString());
    }

    void placement()
    {
        const Site &site = m_random.pick(m_masters.sites());
        m_row.set(u"SiteID"_s, site.id);
        m_row.set(u"LocationID"_s, m_random.pick(site.locations));
        m_row.set(u"CrewID"_s, m_random.percent(6) ? 0 : m_masters.crew(m_machine.crew).id);
        m_row.set(u"Inactive"_s, m_machine.inactive ? 1 : 0);
    }

    void ownership()
    {
        const bool leased = m_model.cost > 25000 && m_machine.serial % 4 == 1;
        const QDate begin = m_machine.acquired;
        m_row.set(u"LeaseOwnedLeased"_s, leased ? 2 : 1);
        m_row.set(u"LeaseCompany"_s, leased ? m_masters.anyItem(LeaseCompanyList, m_random) : 0);
        m_row.set(u"LeaseStartDate"_s, dateOrNull(leased ? begin : QDate()));
        m_row.set(u"LeaseEndDate"_s, dateOrNull(leased ? begin.addMonths(60) : QDate()));
        m_row.set(u"LeasePeriod"_s, leased ? PeriodMonths : 0);
        m_row.set(u"LeaseInterval"_s, leased ? u"60"_s : u"0"_s);
        m_row.set(u"LeasePayment"_s, leased ? cents(m_model.cost / 54) : 0.0);
        m_row.set(u"WarrantyStartDate"_s, dateOrNull(begin));
        m_row.set(u"WarrantyEndDate"_s, dateOrNull(begin.addMonths(24)));
        m_row.set(u"WarrantyPeriod"_s, PeriodMonths);
        m_row.set(u"WarrantyInterval"_s, u"24"_s);
    }

    void engine()
    {
        const int make = m_masters.item(EngineMakeList, m_model.engineMake);
        const bool twoStroke = m_model.fuel.startsWith(u"Gasoline/Oil"_s);
        m_row.set(u"EngineMake"_s, make);
        m_row.set(u"EngineModel"_s, m_masters.item(make, m_model.engineModel));
        m_row.set(u"EngineSerialNo"_s, make == 0 ? QString() : digits(m_random, 10));
        m_row.set(u"Cycle"_s, make == 0 ? QString() : twoStroke ? u"2 Cycle"_s : u"4 Cycle"_s);
        m_row.set(u"EngineFuelType"_s, make == 0 ? 0 : m_masters.item(FuelList, m_model.fuel));
    }

    void vehicle()
    {
        const bool onRoad = isVehicle(m_model);
        const bool truck = onRoad && !m_model.engineMake.isEmpty();
        m_row.set(u"BeginingHub"_s, truck ? m_machine.meter.at(m_machine.acquired) : 0);
        m_row.set(u"StateLicensed"_s, onRoad ? QString::number(m_masters.state(u"IA"_s)) : u"0"_s);
        m_row.set(u"LicenseNo"_s,
                  onRoad ? capitals(m_random, 3) + u' ' + digits(m_random, 3) : QString());
        m_row.set(u"StickerNumber"_s, onRoad ? digits(m_random, 7) : QString());
        // Mostly still to come; some ran out lately, a few long ago.
        m_row.set(u"LicenseRenewalDate"_s,
                  dateOrNull(onRoad ? m_today.addDays(m_random.between(-70, 330)) : QDate()));
        m_row.set(u"PermanentLicense"_s, onRoad ? (truck ? 2 : 1) : 0);
        m_row.set(u"InspectionDate"_s,
                  dateOrNull(onRoad ? m_today.addDays(m_random.between(-430, 25)) : QDate()));
        m_row.set(u"VehicleFuelType"_s, truck ? m_masters.item(FuelList, m_model.fuel) : 0);
        m_row.set(u"Tyre"_s, m_model.tyre);
        m_row.set(u"Rear_Tires"_s, m_model.rearTires);
        m_row.set(u"Weight"_s, m_model.weight);
        m_row.set(u"Vin"_s, onRoad ? u"1"_s + capitals(m_random, 4) + digits(m_random, 2) +
                                         capitals(m_random, 4) + digits(m_random, 6)
                                   : QString());
        m_row.set(u"Body"_s, m_masters.item(BodyList, m_model.body));
        m_row.set(u"Chassis"_s, m_masters.item(ChassisList, m_model.chassis));
        m_row.set(u"Trans"_s, m_masters.item(TransmissionList, m_model.transmission));
        m_row.set(u"VehicleEngineType"_s, m_masters.item(EngineTypeList, m_model.engineType));
        m_row.set(u"VehicleEngineNo"_s, truck ? digits(m_random, 8) : QString());
        m_row.set(u"VehicleColor"_s,
                  truck ? m_random.pick(QStringList{u"White"_s, u"Green"_s, u"Silver"_s})
                        : QString());
        m_row.set(u"VehicleEngineModel"_s, truck ? m_model.engineModel : QString());
    }

    void purchase()
    {
        const double cost = cents(m_model.cost * m_random.between(0.95, 1.04));
        const double extra = m_random.percent(30) ? cents(cost * 0.03) : 0;
        const Supplier &from = m_random.pick(m_masters.suppliers());
        m_row.set(u"SupplierID"_s, from.id);
        m_row.set(u"ManufactureID"_s, m_masters.item(ManufacturerList, m_model.make));
        m_row.set(u"ManufacturePartNo"_s, digits(m_random, 5));
        m_row.set(u"Acquisitiondate"_s, dateOrNull(m_machine.acquired));
        m_row.set(u"AcquisitionCost"_s, cost);
        m_row.set(u"AdditionalCost"_s, extra);
        m_row.set(u"PurchaseNotes"_s,
                  extra > 0 ? u"Freight and set-up billed apart."_s : QString());
        m_row.set(u"Totalcost"_s, cost + extra);
        m_row.set(u"SalvageValue"_s, cents(cost * 0.15));
        m_row.set(u"LifeYears"_s, m_model.life);
    }

    const FleetModel &m_model;
    const Masters &m_masters;
    const Content &m_content;
    const Machine &m_machine;
    QDate m_today;
    Random m_random;
    NamedRow m_row;
};

void writeDepreciation(RowWriter &writer, const Machine &machine, const FleetModel &model,
                       const NamedRow &row)
{
    // Whole amounts, as the recalculation on the screen takes them.
    const auto whole = [&](const QString &column) {
        return qRound(row.values().at(row.columns().indexOf(column)).toDouble());
    };
    const int total = whole(u"Totalcost"_s);
    const int salvage = whole(u"SalvageValue"_s);
    const double annual = static_cast<double>(total - salvage) / model.life;
    double accumulated = 0;
    for (int year = 0; year < model.life; ++year) {
        accumulated += annual;
        writer.add(
            {machine.id, machine.acquired.year() + year, annual, accumulated, total - accumulated});
    }
}

} // namespace

std::vector<Machine> makeFleet(const Content &content, const Plan &plan, QDate today, quint64 seed)
{
    // Which kind each machine is: the small company's machines, over and over for a larger one.
    std::vector<int> kinds;
    for (int kind = 0; kind < static_cast<int>(content.fleet.size()); ++kind)
        kinds.insert(kinds.end(), content.fleet[kind].count, kind);
    const int count = plan.machines > 0 ? plan.machines : static_cast<int>(kinds.size());

    std::vector<Machine> machines;
    machines.reserve(count);
    QHash<QString, int> numbers;
    for (int serial = 0; serial < count; ++serial) {
        Machine machine;
        machine.serial = serial;
        machine.kind = kinds[serial % kinds.size()];
        machine.id = equipmentId(serial);
        const FleetModel &model = content.fleet[machine.kind];
        // No hyphen: the start page cuts the number off its rows at the first one.
        machine.unitNo = model.prefix + u"%1"_s.arg(++numbers[model.prefix], 3, 10, QChar(u'0'));

        Random random = Random::of(seed, serial);
        machine.crew = random.pick(model.crews);
        machine.inactive = serial % 37 == 29;
        const int age = random.between(model.ageMinimum, model.ageMaximum);
        machine.acquired =
            std::min(QDate(today.year() - age, random.between(1, 12), random.between(1, 28)),
                     today.addDays(-random.between(30, 120)));
        machine.lastDay = machine.inactive ? today.addDays(-150) : today;
        machine.acquired = std::min(machine.acquired, machine.lastDay.addDays(-20));
        // One meter in seven was not read for more than a week.
        machine.lastReading = machine.lastDay.addDays(
            -(serial % 7 == 3 ? random.between(9, 24) : random.between(0, 4)));
        if (!model.meter.isNull()) {
            const bool used = model.machineClass == u"TRUCK"_s && random.percent(30);
            machine.meter = Meter(machine.acquired, used ? random.between(8000, 42000) : 0,
                                  model.perDay * random.between(0.8, 1.2));
        }
        machines.push_back(std::move(machine));
    }
    return machines;
}

void writeFleet(Batch &batch, const Content &content, const Masters &masters,
                const std::vector<Machine> &machines, const Plan &plan, QDate today, quint64 seed)
{
    const auto rowOf = [&](const Machine &machine) {
        return EquipmentRow(content.fleet[machine.kind], masters, content, machine, today,
                            Random::of(seed + 1, machine.serial))
            .build();
    };
    RowWriter equipment(batch, u"tblEquipment"_s, rowOf(machines.front()).columns());
    RowWriter depreciation(batch, u"tblEquipmentDepreciation"_s,
                           {u"EquipmentID"_s, u"EndofYear"_s, u"AnnualDepreciation"_s,
                            u"AccumualtedDepreciation"_s, u"BookValue"_s});
    for (const Machine &machine : machines) {
        const NamedRow row = rowOf(machine);
        equipment.add(row.values());
        writeDepreciation(depreciation, machine, content.fleet[machine.kind], row);
    }

    RowWriter parts(
        batch, u"tblEquipmentPart"_s,
        {u"EquipmentID"_s, u"PartID"_s, u"QuantityRequired"_s, u"Price"_s, u"SupplierID"_s});
    RowWriter crews(batch, u"tblEquipmentCrewHistory"_s,
                    {u"EquipmentID"_s, u"CrewNumber"_s, u"CrewDescription"_s, u"CrewDate"_s});
    RowWriter scans(batch, u"tblEquipmentScan"_s,
                    {u"EquipmentID"_s, u"ScanTime"_s, u"ScanStatus"_s});
    for (const Machine &machine : machines) {
        Random random = Random::of(seed + 2, machine.serial);
        const FleetModel &model = content.fleet[machine.kind];
        for (int n = random.below(4); n > 0; --n) {
            const PartFamily &family = content.parts[(machine.kind + 7 * n) % content.parts.size()];
            const Part &part = masters.part(family.code, machine.kind);
            parts.add({machine.id, part.id, random.between(1, 2), part.price, part.supplier});
        }
        for (const int number : model.crews) {
            // The crews that the machine left, in the years since it was bought.
            if (number == machine.crew)
                continue;
            const Crew &crew = masters.crew(number);
            const int days = static_cast<int>(machine.acquired.daysTo(machine.lastDay));
            crews.add({machine.id, QString::number(crew.number), crew.description,
                       base::wallClock(machine.acquired.addDays(random.below(days)))});
        }
        for (int n = random.below(plan.scansPerMachine); n > 0; --n)
            scans.add({machine.id,
                       base::wallClock(machine.lastDay.addDays(-random.between(1, 90)),
                                       QTime(random.between(6, 17), random.below(60))),
                       random.percent(90) ? u"Found"_s : u"Missing"_s});
    }
}

} // namespace company::sample
