#pragma once

#include "company/Calendar.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

/// What the sample company's tables in data/sample say.
namespace company::sample {

/// The text of a file of data/sample, by its name without ending.
[[nodiscard]] QString sampleText(const QString &name);

struct PartNeed
{
    QString code; ///< of a family of parts
    double quantity = 1;
};

/// A service of the catalogue.
struct CatalogueService
{
    qint64 id = 0; ///< ServiceID
    int jobNo = 0;
    QString name;
    QStringList classes; ///< of machines that get it; "*" for all
    QChar period;
    int interval = 1;
    QChar renewal;
    Pattern pattern;
    bool separate = false;
    double hours = 0;
    int crewNumber = 0;
    QString costCenter;
    std::vector<PartNeed> parts;
    QString note;

    /// True when it falls due by a meter and not by the calendar.
    [[nodiscard]] bool isCounted() const;
};

/// A group of equal machines.
struct FleetModel
{
    QString prefix, machineClass, type, make, model, name;
    int count = 0; ///< in the small company
    int ageMinimum = 0, ageMaximum = 0;
    double cost = 0;
    int life = 0;
    QString engineMake, engineModel, fuel;
    QChar meter; ///< period code; null for a machine without a meter
    double perDay = 0;
    QList<int> crews;
    QString capacity, body, chassis, transmission, engineType, tyre, rearTires, weight;
};

struct PartFamily
{
    QString code, category, description, supplier;
    double low = 0, high = 0; ///< prices
    int uses = 0;             ///< about how many go in a month
    bool tracked = true;
    QStringList variants;
};

struct Content
{
    /// Reads the built-in tables.
    Content();

    std::vector<CatalogueService> services;
    std::vector<FleetModel> fleet;
    std::vector<PartFamily> parts;
    QStringList doneNotes, skipNotes, machineNotes;
};

/// The word that a reading of a meter period carries: "Hours" for H.
[[nodiscard]] QString countWord(QChar period);

} // namespace company::sample
