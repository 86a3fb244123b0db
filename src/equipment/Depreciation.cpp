#include "equipment/Depreciation.h"

#include "core/Session.h"
#include "platform/base/Format.h"

namespace depreciation {

std::vector<Year> schedule(int purchaseYear, double totalCost, double salvageValue, int lifeYears)
{
    std::vector<Year> years;
    const auto total = static_cast<double>(base::roundedToEven(totalCost));
    const auto salvage = static_cast<double>(base::roundedToEven(salvageValue));
    double accumulated = 0;
    for (int year = 1; year <= lifeYears; ++year) {
        const double annual = (total - salvage) / lifeYears;
        accumulated += annual;
        years.push_back({purchaseYear + year - 1, annual, accumulated, total - accumulated});
    }
    return years;
}

db::Recordset stored(qint64 EquipmentID)
{
    return gcnData->Open(
        QStringLiteral("Select EndofYear as [End of Year] ,AnnualDepreciation as [Annual "
                       "Depreciation], AccumualtedDepreciation as [Accumualted Depreciation]  "
                       ",BookValue as [Book Value], EquipmentID  from tblEquipmentDepreciation  "
                       "Where EquipmentID = ?"),
        {EquipmentID});
}

void store(qint64 EquipmentID, const std::vector<Year> &years)
{
    gcnData->Execute(QStringLiteral("Delete from tblEquipmentDepreciation where EquipmentID=?"),
                     {EquipmentID});
    for (const Year &year : years) {
        gcnData->Execute(
            QStringLiteral("Insert into tblEquipmentDepreciation (EndofYear, AnnualDepreciation, "
                           "AccumualtedDepreciation , BookValue,EquipmentID ) values (?,?,?,?,?)"),
            {year.EndofYear, year.AnnualDepreciation, year.AccumualtedDepreciation, year.BookValue,
             EquipmentID});
    }
}

} // namespace depreciation
