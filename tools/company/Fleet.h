#pragma once

#include "company/Masters.h"

namespace company::sample {

struct Machine
{
    qint64 id = 0; ///< EquipmentID
    QString unitNo;
    int kind = 0;   ///< position in the fleet's table
    int crew = 0;   ///< number
    int serial = 0; ///< counts all machines from 0
    QDate acquired;
    bool inactive = false;
    /// The day on which somebody last looked after it: today, or long ago for an inactive one.
    QDate lastDay;
    QDate lastReading;
    Meter meter;
};

/// All machines, without writing anything yet.
[[nodiscard]] std::vector<Machine> makeFleet(const Content &content, const Plan &plan, QDate today,
                                             quint64 seed);

/// Writes the machines' own rows, their parts, depreciation, crew history and scans.
void writeFleet(Batch &batch, const Content &content, const Masters &masters,
                const std::vector<Machine> &machines, const Plan &plan, QDate today, quint64 seed);

} // namespace company::sample
