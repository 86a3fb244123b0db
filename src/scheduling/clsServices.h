#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QString>
#include <optional>

/// A service: a row of the catalogue tblServices, or of tblServiceUsed, its copy on a machine.
struct clsServices
{
    qint64 ServiceID = 0; ///< ServiceUsedID when the record is one of tblServiceUsed
    qint64 JobNo = 0;     ///< the "Service No" that users see
    QString Name;
    qint64 CrewID = 0;
    qint64 CostCenterID = 0;
    QString SeparateWo = QStringLiteral("0"); ///< "1": always an order of its own
    double LaborEstimate = 0;                 ///< budgeted hours
    double CostEstimate = 0;                  ///< budgeted labour cost
    QString Period;                           ///< D W M Y C H K I
    int EInterval = 1;                        ///< in units of the period, 1 to 99999
    QString RenewalOn; ///< "W" completion, "S" original schedule, "D" don't schedule again
    int Sun = 0, Mon = 0, Tue = 0, Wed = 0, Thu = 0, Fri = 0, Sat = 0;
    int FirstW = 0, SecondW = 0, ThirdW = 0, ForthW = 0, LastW = 0;
    int Dom = 0; ///< 1: by days of the month
    int DOM1 = 0, DOM2 = 0, DOM3 = 0, DOM4 = 0, DOM5 = 0;
    int Jan = 0, Feb = 0, Mar = 0, Apr = 0, May = 0, Jun = 0;
    int Jul = 0, Aug = 0, Sep = 0, Oct = 0, Nov = 0, Dece = 0;
    QString Note;

    bool operator==(const clsServices &) const = default;
    /// The columns that both stores have, but the key.
    [[nodiscard]] static std::span<const record::Field<clsServices>> fields();
};

/// The two stores of services.
enum class ServiceStore { Catalogue, Assigned };

/// What an assigned service has besides, as its save writes it.
struct AssignedSchedule
{
    qint64 EquipmentID = 0;
    QDateTime NextScheduledDate{}; ///< the zero date when the service has none
    qint64 NextScheduledCount = 0;
    int Inactive = 0;
};

/// An assigned service whole.
struct AssignedService : clsServices, AssignedSchedule
{
    /// Its columns, but the keys.
    [[nodiscard]] static std::span<const record::Field<AssignedService>> fields();
    /// The record of a row of tblServiceUsed; Nulls as in clsServicesManager::fromRow.
    [[nodiscard]] static AssignedService fromRow(const db::Row &row);
};

/// Services in the database. Data, inside the transaction that the caller holds.
class clsServicesManager
{
public:
    /// Adds to the catalogue, or writes the row of either store. When the key or job number has
    /// been taken by another workstation in the meantime, the record gets fresh ones and the write
    /// is repeated, so read both back from it.
    /// An assigned count service on a machine without a reading of its kind asks for the first one
    /// (see askFirstReading) and then counts on from the machine's newest reading.
    /// A change writes what differs from Shown, see record::change; what it raises is that, too.
    [[nodiscard]] bool SaveRecord(clsServices &Service, Mode Mode, ServiceStore Store,
                                  const AssignedSchedule &Schedule = {},
                                  const std::optional<AssignedService> &Shown = {}) const;
    /// Deletes a service of the catalogue with its parts.
    [[nodiscard]] bool DeleteRecord(qint64 ServiceID) const;
    /// "Service Used" while a machine has the catalogue service, else empty. It guards the service,
    /// in spite of its name.
    [[nodiscard]] QString CanDeletePart(qint64 ServiceID) const;
    /// The row of a service, no row when it is not there.
    [[nodiscard]] db::Recordset GetServiceInfo(qint64 ServiceID, ServiceStore Store) const;
    /// All cost centers. Lookup.
    [[nodiscard]] db::Recordset GetCostCenterInfo() const;
    /// Writes the three dates of an assignment; the zero date stores Null.
    [[nodiscard]] bool SaveServiceUsedRecord(qint64 ServiceUsedID,
                                             const QDateTime &LastDateScheduled,
                                             const QDateTime &LastDatePerformed,
                                             const QDateTime &NextScheduledDate) const;
    /// Carries a changed job number to all copies of a catalogue service, those on open orders too.
    [[nodiscard]] bool UpdateJobNoForAllService(qint64 ServiceID, qint64 JobNo) const;

    /// The record of a row of either store; Nulls read as empty, 0, and 1 for the interval.
    [[nodiscard]] static clsServices fromRow(const db::Row &row, ServiceStore store);
};
