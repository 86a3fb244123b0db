#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// A crew, known to users by its number.
struct clsCrew
{
    qint64 CrewID = 0;
    QString CrewNumber; ///< digits; a number in the table
    QString Description;

    bool operator==(const clsCrew &) const = default;
    [[nodiscard]] static clsCrew fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsCrew>> fields();
};

/// Crews in the database. Lookup; the usage test reads Data.
class clsCrewManager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsCrew &Crew, Mode Mode,
                                  const std::optional<clsCrew> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 CrewID) const;
    /// What uses the crew, empty when it may go.
    [[nodiscard]] QString CanDeleteCrew(qint64 CrewID) const;
    /// All crews.
    [[nodiscard]] db::Recordset GetCrewInfo() const;
};
