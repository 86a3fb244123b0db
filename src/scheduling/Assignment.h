#pragma once

#include <QList>
#include <QString>
#include <QVariant>

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
/// Removes a service with its parts from its machine. Open orders and history keep their rows.
[[nodiscard]] bool DeleteServiceRecord(qint64 ServiceUsedID);
/// Writes one column of an assigned service.
[[nodiscard]] bool UpdateEquipmentService(qint64 ServiceUsedID, const QString &Column,
                                          const QVariant &Value);
/// Sees to a first reading and a target for each count service of the machine that has no reading
/// of its type.
[[nodiscard]] bool ChkEveryServiceCount(qint64 EquipmentID);

} // namespace assignment
