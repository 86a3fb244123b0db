#pragma once

#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>
#include <optional>

/// Services of a machine: copying them from the catalogue or from a machine, and changing the
/// copies. Data, inside the transaction of the equipment screen. No error crosses these procedures,
/// which return False instead; after a failed copy the whole edit of the machine has to be undone.
namespace assignment {

/// Where the services to copy come from.
enum class Source {
    Catalogue, ///< "SL": the ids are keys of tblServices
    Machine,   ///< "EL": the ids are keys of tblServiceUsed
};

/// Copies services with their parts to a machine. A calendar service is due today, whatever its
/// pattern says; a count service has no date and counts on from the machine's newest reading,
/// asking for a first one where there is none.
[[nodiscard]] bool AddServiceRecord(qint64 EquipmentID, const QList<qint64> &ids, Source source);
/// The services of a machine as its page lists them.
[[nodiscard]] db::Recordset servicesOf(qint64 EquipmentID);
/// Removes a service with its parts from its machine. Open orders and history keep their rows.
[[nodiscard]] bool DeleteServiceRecord(qint64 ServiceUsedID);
/// Writes one column of an assigned service while it holds what was shown; without Shown in any
/// case. Inside a whole raises record::Conflict when it holds something else, InTheWay when the
/// service has been removed or is held elsewhere.
[[nodiscard]] bool UpdateEquipmentService(qint64 ServiceUsedID, const QString &Column,
                                          const QVariant &Value,
                                          const std::optional<QVariant> &Shown = {});
/// Writes the labour cost that the crew and the hours of a service come to; that cost.
[[nodiscard]] std::optional<double> UpdateLabourCost(qint64 ServiceUsedID);
/// Writes the date of a count service that has none, once its count is reached; that date, the zero
/// date before.
[[nodiscard]] QDateTime UpdateDateIfReached(qint64 ServiceUsedID);
/// Why a service that was scheduled for a date, the zero date for none, can't be scheduled for
/// another one; empty when it can.
[[nodiscard]] QString refusalOfNextDate(const QDateTime &before, const QDateTime &date);
/// The name, unit number and crew of a machine as one row: EquipmentName, UnitNo, CrewNumber
/// (number and description, blank without a crew) and CrewID. No row when it is not there.
[[nodiscard]] db::Recordset crewOf(qint64 EquipmentID);
/// Gives a machine to a crew, and its former one to the crew history. In a transaction of its own
/// or the one that is open. Raises InTheWay when the machine is gone, is held by another
/// workstation, or has another crew than ShownCrewID by now.
void assignCrew(qint64 EquipmentID, qint64 CrewID, qint64 ShownCrewID);
/// Sees to a first reading and a target for each count service of the machine that has no reading
/// of its type.
[[nodiscard]] bool ChkEveryServiceCount(qint64 EquipmentID);

} // namespace assignment
