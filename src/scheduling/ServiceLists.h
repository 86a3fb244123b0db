#pragma once

#include "platform/db/Recordset.h"

#include <QSet>
#include <QString>
#include <optional>

/// The lists of services from which one is opened or some are picked: "Service ID" (the key of the
/// list's own table), "ServiceID" (that of the catalogue), "Service No", "Name", "Crew", "Cost
/// Center" and what else a list shows. Data. All raise DbError.
namespace servicelists {

/// The services of the catalogue but those of these keys.
[[nodiscard]] db::Recordset catalogue(const QSet<qint64> &leftOut);
/// The services of a machine but those that are copies of the catalogue keys in leftOut.
[[nodiscard]] db::Recordset ofMachine(qint64 EquipmentID, const QSet<qint64> &leftOut);

struct Machine
{
    QString UnitNo;
    QString EquipmentName;
};
/// The machine whose list is shown; nothing when there is none of that key.
[[nodiscard]] std::optional<Machine> machine(qint64 EquipmentID);

} // namespace servicelists
