#include "equipment/Depreciation.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"
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

namespace {

/// Holds the machine: two that recalculate it at once would leave the years of both.
void hold(qint64 EquipmentID)
{
    orInTheWay(
        [&] {
            try {
                (void)record::hold(*gcnData, u"tblEquipment", u"EquipmentID", EquipmentID);
            } catch (const record::Conflict &) {
                throw InTheWay(QStringLiteral("This machine has been deleted on another "
                                              "workstation. Nothing was stored."));
            }
        },
        [] {
            return QStringLiteral("Another workstation is changing this machine. Nothing was "
                                  "stored. Please try again in a moment.");
        });
}

} // namespace

void store(qint64 EquipmentID, const std::vector<Year> &years)
{
    record::ShortTransaction transaction(*gcnData);
    hold(EquipmentID);
    gcnData->Execute(QStringLiteral("Delete from tblEquipmentDepreciation where EquipmentID=?"),
                     {EquipmentID});
    for (const Year &year : years) {
        gcnData->Execute(
            QStringLiteral("Insert into tblEquipmentDepreciation (EndofYear, AnnualDepreciation, "
                           "AccumualtedDepreciation , BookValue,EquipmentID ) values (?,?,?,?,?)"),
            {year.EndofYear, year.AnnualDepreciation, year.AccumualtedDepreciation, year.BookValue,
             EquipmentID});
    }
    transaction.commit();
}

} // namespace depreciation
