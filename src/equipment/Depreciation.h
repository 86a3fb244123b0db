#pragma once

#include "platform/db/Recordset.h"

#include <QString>
#include <vector>

/// Straight-line depreciation.
namespace depreciation {

struct Year
{
    int EndofYear = 0;
    double AnnualDepreciation = 0;
    double AccumualtedDepreciation = 0;
    double BookValue = 0;

    bool operator==(const Year &) const = default;
};

/// The schedule of an asset, one row for each year of its life, the purchase year being the first.
/// Cost and salvage value lose their cents before the division: both are rounded to whole numbers,
/// ties to the even one. A life of 0 or less has no rows.
[[nodiscard]] std::vector<Year> schedule(int purchaseYear, double totalCost, double salvageValue,
                                         int lifeYears);

/// A machine's stored schedule as its grid and curve show it. Data; raises DbError.
[[nodiscard]] db::Recordset stored(qint64 EquipmentID);
/// Throws a machine's stored schedule away and stores a new one, both or neither. Data. Raises
/// InTheWay when the machine is gone or held by another workstation, and DbError.
void store(qint64 EquipmentID, const std::vector<Year> &years);

} // namespace depreciation
