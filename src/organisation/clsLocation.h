#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// A spot within a site.
struct clsLocation
{
    qint64 LocationID = 0;
    QString LocationName;
    QString Description;
    qint64 Site = 0; ///< key of the site

    bool operator==(const clsLocation &) const = default;
    [[nodiscard]] static clsLocation fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsLocation>> fields();
};

/// Locations in the database. Lookup; the usage test reads Data.
class clsLocation_Manager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsLocation &Record, Mode Mode,
                                  const std::optional<clsLocation> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 LocationID) const;
    /// What uses it, empty when it may go.
    [[nodiscard]] QString CanDeleteLocation(qint64 LocationID) const;
    /// All rows.
    [[nodiscard]] db::Recordset GetLocationInfo() const;
};
