#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// What a service is charged to.
struct clsCostCenter
{
    qint64 CostCenterID = 0;
    QString Description;
    double Budget = 0; ///< stored and shown, summed nowhere

    bool operator==(const clsCostCenter &) const = default;
    [[nodiscard]] static clsCostCenter fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsCostCenter>> fields();
};

/// Cost centres in the database. Lookup; the usage test reads Data.
class clsCostCenterManager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsCostCenter &Record, Mode Mode,
                                  const std::optional<clsCostCenter> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 CostCenterID) const;
    /// What uses it, empty when it may go.
    [[nodiscard]] QString CanDeleteCostCenter(qint64 CostCenterID) const;
    /// All rows.
    [[nodiscard]] db::Recordset GetCostCenterInfo() const;
    /// The highest key plus one: what the database will give the next row if nobody else adds one.
    [[nodiscard]] qint64 GenrateID() const;
};
