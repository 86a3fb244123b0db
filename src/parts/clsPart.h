#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// A part, whose key is the number that the user gives it.
struct clsPart
{
    QString OldPartID; ///< the number the row is stored under; not a column
    QString PartID;
    QString Description;
    qint64 PartCategoryID = 0; ///< lookup list 10
    double Quantity = 0;       ///< on hand
    double Price = 0;          ///< of one unit
    qint64 SupplierID = 0;     ///< 0 for none
    double QtyMax = 0;         ///< how many to order
    double QtyMin = 0;         ///< the stock below which to order
    QString Inactive;          ///< "1" or "0"
    QString Notes;
    QString Bin;
    QString Bar_Code;
    /// The tick of "Do Not Track for Inventory", so the other way round from its name: "1" means
    /// that the stock is NOT tracked.
    QString TrackInventory;

    bool operator==(const clsPart &) const = default;
    /// Flags come back as "1" or "0".
    [[nodiscard]] static clsPart fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsPart>> fields();
};

/// Parts in the database. Data, outside any transaction of their own.
class clsPartManager
{
public:
    [[nodiscard]] db::Recordset GetPartInfo() const;
    /// Of a database that keeps the categories in a table of their own; the screen of parts offers
    /// lookup list 10.
    [[nodiscard]] db::Recordset GetPartCategory() const;
    [[nodiscard]] db::Recordset GetSupplierInfo() const;
    /// The active parts as the selector lists them, but those of LeftOut. Raises DbError.
    [[nodiscard]] db::Recordset Selectable(const QStringList &LeftOut) const;
    /// A mode other than Add and Modify runs nothing and still succeeds.
    [[nodiscard]] bool SaveRecord(const clsPart &Part, Mode Mode,
                                  const std::optional<clsPart> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(const QString &PartID) const;
    /// Drops a part from the scratch list of picked parts. Raises DbError.
    void ForgetPicked(const QString &PartID) const;
    /// The word for what uses the part, empty when it is free. Posted history does not count.
    [[nodiscard]] QString CanDeletePart(const QString &PartID) const;
    /// What open work orders have reserved of it.
    [[nodiscard]] double PartCommited(const QString &PartID) const;
};
