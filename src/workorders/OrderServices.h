#pragma once

#include "platform/db/Recordset.h"

#include <QVariantMap>
#include <optional>

/// The rows of which an open order consists. These are the only inserts of them. Data; steps of
/// what their callers do as a whole, which raise DbError.
namespace orderservices {

/// A new order of a machine, without services; its number. The order's date is the table's default.
qint64 addOrder(qint64 EquipmentID);

/// Copies a service onto an order, with its parts, of which as many count as used as are required.
/// given: columns of tblWoServiceUsed that the source lacks, or that go before it. used: whether
/// the parts are marked so; without it they are left as the table has them. The new NServiceUsedID.
qint64 addService(qint64 WorkorderNo, const db::Row &source, const db::Recordset &parts,
                  const QVariantMap &given = {}, std::optional<bool> used = {});

/// A part of an order's service.
struct Part
{
    QVariant PartID;
    QVariant quantity; ///< required, and until somebody says otherwise used
    QVariant price;    ///< of one unit
    QVariant SupplierID;
};
/// Adds a part to an order's service. used: whether it is marked so; without it the table's default
/// counts.
void addPart(qint64 NServiceUsedID, const Part &part, std::optional<bool> used);

} // namespace orderservices
