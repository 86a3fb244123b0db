#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// An item of a lookup list, or the row of a list itself.
struct clsIndicator
{
    qint64 ParentID = 0; ///< the list, or for three-level lists the item it hangs under
    qint64 ItemID = 0;   ///< given by the database
    QString ItemName;
    int Show = 0; ///< not 0: offered in combos
    int FSize = 0;

    bool operator==(const clsIndicator &) const = default;
    [[nodiscard]] static clsIndicator fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsIndicator>> fields();
};

/// The fixed numbers of the lists, which are part of the data.
namespace LookupList {
inline constexpr qint64 Country = 1;
inline constexpr qint64 EmployeePosition = 3;
inline constexpr qint64 EquipmentType = 4;
inline constexpr qint64 FuelType = 5;
inline constexpr qint64 LeaseCompany = 6;
inline constexpr qint64 Make = 7; ///< members hang under an equipment type
inline constexpr qint64 Manufacturer = 8;
inline constexpr qint64 Model = 9; ///< members hang under a make or an engine make
inline constexpr qint64 PartCategory = 10;
inline constexpr qint64 State = 11; ///< members hang under a country
inline constexpr qint64 TyreType = 12;
inline constexpr qint64 VehicleBody = 13;
inline constexpr qint64 VehicleChassis = 14;
inline constexpr qint64 VehicleEngineType = 15;
inline constexpr qint64 VehicleTransmission = 16;
inline constexpr qint64 EngineMake = 17;
} // namespace LookupList

/// Lookup items in the database. Lookup; the usage test reads Data.
class clsIndicatorManager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsIndicator &Indicator, Mode Mode,
                                  const std::optional<clsIndicator> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 ItemID) const;
    /// The word for what uses the item, empty when it may go. The number is looked for in the
    /// columns of all lists, whatever list the item belongs to.
    [[nodiscard]] QString CanDeleteIndicator(qint64 ItemID) const;
    /// The item or list that an item hangs under, 0 without one. Raises DbError.
    [[nodiscard]] qint64 ParentOf(qint64 ItemID) const;
    /// True when an item below the parent has this name, blanks at the ends and case aside.
    [[nodiscard]] bool IsNameTaken(qint64 ParentID, const QString &Name) const;
    /// True when the item has children, and so can NOT be deleted.
    [[nodiscard]] bool CanDeleteParent(qint64 ItemID) const;
};
