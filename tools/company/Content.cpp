#include "company/Content.h"

#include "core/database/Csv.h"
#include "core/database/Resources.h"

// Outside any namespace, as the macro demands; see core/database/Resources.cpp.
static void initialiseResources()
{
    Q_INIT_RESOURCE(sample_company);
}

namespace company::sample {

QString sampleText(const QString &name)
{
    initialiseResources();
    return resourceText(QStringLiteral("sample/") + name + QStringLiteral(".csv"));
}

namespace {

using namespace Qt::StringLiterals;

QChar letter(const QString &text)
{
    return text.isEmpty() ? QChar() : text.front();
}

/// Of a text such as "EO*2 OF*1".
std::vector<PartNeed> partNeeds(const QString &text)
{
    std::vector<PartNeed> needs;
    for (const QString &need : text.split(u' ', Qt::SkipEmptyParts))
        needs.push_back({need.section(u'*', 0, 0), need.section(u'*', 1).toDouble()});
    return needs;
}

QList<int> numbers(const QString &text)
{
    QList<int> result;
    for (const QString &number : text.split(u'|', Qt::SkipEmptyParts))
        result << number.toInt();
    return result;
}

std::vector<CatalogueService> readServices()
{
    const CsvTable table(sampleText(u"services"_s));
    std::vector<CatalogueService> services;
    for (int row = 0; row < table.rowCount(); ++row) {
        // Keys of the form that adding on the screen gives: month, day, hour, minute, second.
        const qint64 id = 110'08'30'00 + row * 41 % 60 + row / 2 * 100;
        services.push_back({id, table.integer(row, u"JobNo"_s), table.text(row, u"Name"_s),
                            table.text(row, u"Classes"_s).split(u' '),
                            letter(table.text(row, u"Period"_s)), table.integer(row, u"Interval"_s),
                            letter(table.text(row, u"RenewalOn"_s)),
                            Pattern(table.text(row, u"Pattern"_s)),
                            table.integer(row, u"Separate"_s) == 1, table.number(row, u"Hours"_s),
                            table.integer(row, u"Crew"_s), table.text(row, u"CostCenter"_s),
                            partNeeds(table.text(row, u"Parts"_s)), table.text(row, u"Note"_s)});
    }
    return services;
}

std::vector<FleetModel> readFleet()
{
    const CsvTable table(sampleText(u"fleet"_s));
    std::vector<FleetModel> fleet;
    for (int row = 0; row < table.rowCount(); ++row) {
        const auto text = [&](const char *column) {
            return table.text(row, QString::fromLatin1(column));
        };
        FleetModel model;
        model.prefix = text("Prefix");
        model.machineClass = text("Class");
        model.type = text("Type");
        model.make = text("Make");
        model.model = text("Model");
        model.name = text("Name");
        model.count = table.integer(row, u"Count"_s);
        model.ageMinimum = table.integer(row, u"AgeMin"_s);
        model.ageMaximum = table.integer(row, u"AgeMax"_s);
        model.cost = table.number(row, u"Cost"_s);
        model.life = table.integer(row, u"Life"_s);
        model.engineMake = text("EngineMake");
        model.engineModel = text("EngineModel");
        model.fuel = text("Fuel");
        model.meter = letter(text("Meter"));
        model.perDay = table.number(row, u"PerDay"_s);
        model.crews = numbers(text("Crews"));
        model.capacity = text("Capacity");
        model.body = text("Body");
        model.chassis = text("Chassis");
        model.transmission = text("Trans");
        model.engineType = text("EngineType");
        model.tyre = text("Tyre");
        model.rearTires = text("RearTires");
        model.weight = text("Weight");
        fleet.push_back(std::move(model));
    }
    return fleet;
}

std::vector<PartFamily> readParts()
{
    const CsvTable table(sampleText(u"parts"_s));
    std::vector<PartFamily> parts;
    parts.reserve(static_cast<size_t>(table.rowCount()));
    for (int row = 0; row < table.rowCount(); ++row)
        parts.push_back({table.text(row, u"Code"_s), table.text(row, u"Category"_s),
                         table.text(row, u"Description"_s), table.text(row, u"Supplier"_s),
                         table.number(row, u"Low"_s), table.number(row, u"High"_s),
                         table.integer(row, u"Uses"_s), table.integer(row, u"Tracked"_s) == 1,
                         table.text(row, u"Variants"_s).split(u'|')});
    return parts;
}

QStringList readNotes(const QString &kind)
{
    const CsvTable table(sampleText(u"notes"_s));
    QStringList notes;
    for (int row = 0; row < table.rowCount(); ++row) {
        if (table.text(row, u"Kind"_s) == kind)
            notes << table.text(row, u"Text"_s);
    }
    return notes;
}

} // namespace

bool CatalogueService::isCounted() const
{
    return u"CHKI"_s.contains(period);
}

Content::Content()
    : services(readServices())
    , fleet(readFleet())
    , parts(readParts())
    , doneNotes(readNotes(u"done"_s))
    , skipNotes(readNotes(u"skip"_s))
    , machineNotes(readNotes(u"machine"_s))
{}

QString countWord(QChar period)
{
    switch (period.unicode()) {
    case u'C':
        return u"Counts"_s;
    case u'H':
        return u"Hours"_s;
    case u'K':
        return u"Kilometers"_s;
    default:
        return u"Miles"_s;
    }
}

} // namespace company::sample
