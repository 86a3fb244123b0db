#pragma once

#include "parts/PartSelection.h"
#include "platform/db/Recordset.h"
#include "scheduling/clsServices.h"

#include <optional>

/// The parts that a service needs: of the catalogue in tblServicesPart, of a machine's service in
/// tblServiceUsedPart. Data, inside the transaction of the caller. All raise DbError.
namespace requiredparts {

/// The parts of a service as its grid shows them; none for 0.
[[nodiscard]] db::Recordset list(ServiceStore store, qint64 service);
/// Adds lines with quantity and price (of one unit) as they were chosen, and takes the lines of a
/// part away. Raise InTheWay while another workstation changes them.
void add(ServiceStore store, qint64 service, const QList<parts::Chosen> &chosen);
void remove(ServiceStore store, qint64 service, const QString &PartID);
/// Writes one column of a part's line while it holds what was shown, without Shown in any case.
/// Raises record::Conflict when it holds something else, InTheWay when the line is gone or held by
/// another workstation.
void change(ServiceStore store, qint64 service, const QString &PartID, const QString &Column,
            const QVariant &Value, const std::optional<QVariant> &Shown = {});

} // namespace requiredparts
