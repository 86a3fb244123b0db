#pragma once

#include "core/Mode.h"
#include "equipment/clsEquipment.h"
#include "platform/db/Recordset.h"

/// Machines in the database. Data; SaveRecord runs inside the transaction that its caller holds.
class clsEquipment_Manager
{
public:
    /// Writes one row; a mode other than Add and Modify writes nothing. A failure leaves the
    /// transaction open, so that the user can correct and save again.
    [[nodiscard]] bool SaveRecord(const clsEquipment &Equipment, Mode Mode,
                                  const std::optional<clsEquipment> &Shown = {}) const;
    /// Deletes the machine with all that it has gathered, its document folder too, in one
    /// transaction. Files that can't be deleted don't stop it.
    [[nodiscard]] bool DeleteRecord(qint64 EquipmentID) const;
    /// "WorkOrder" while the machine has an open work order, else empty. History, services and
    /// parts never stop a deletion: they go with the machine.
    [[nodiscard]] QString CanDeleteEquipment(qint64 EquipmentID) const;
    /// The machine of a row of tblEquipment.
    [[nodiscard]] static clsEquipment fromRow(const db::Row &row);
};
