#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// A supplier of machines or parts.
struct clsSupplier
{
    qint64 SupplierID = 0;
    QString Name;
    QString Tax; ///< tax number, digits
    QString Terms;
    double CreditLimit = 0;
    QString Email;
    QString WebSite;
    QString Address;
    QString Address2;
    QString City;
    qint64 State = 0; ///< an item of a state list, 0 for none
    QString Zip;
    QString Phone; ///< masked "(###) ###-####"
    QString Fax;
    QString Atten;
    QString LicenseNo;
    QString ContactName;
    QString Notes;

    bool operator==(const clsSupplier &) const = default;
    [[nodiscard]] static clsSupplier fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsSupplier>> fields();
};

/// Suppliers in the database. Lookup, so that one that is added from inside the edit of a machine
/// is there for everybody and stays when that edit is cancelled; the usage test reads Data.
class clsSupplier_Manager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsSupplier &Supplier, Mode Mode,
                                  const std::optional<clsSupplier> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 SupplierID) const;
    /// The supplier's usage test, in spite of its name: the word for what uses it, empty when it
    /// may go. Lines of a machine's parts are not asked.
    [[nodiscard]] QString CanDeleteLocation(qint64 SupplierID) const;
};
