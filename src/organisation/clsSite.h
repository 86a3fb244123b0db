#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QString>
#include <optional>

/// A place where machines stand.
struct clsSite
{
    qint64 SiteID = 0;
    QString SiteName;
    QString Address;
    QString City;
    QString StateID = QStringLiteral("0"); ///< an item of a state list, "0" for none
    QString Zip;

    bool operator==(const clsSite &) const = default;
    [[nodiscard]] static clsSite fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsSite>> fields();
};

/// Sites in the database. Lookup; the usage test reads Data.
class clsSiteManager
{
public:
    /// Adds a row, or changes what differs from Shown (see record::save); and takes a row away.
    /// False when that failed, which has been reported; inside a whole the error goes on.
    [[nodiscard]] bool SaveRecord(const clsSite &Record, Mode Mode,
                                  const std::optional<clsSite> &Shown = {}) const;
    [[nodiscard]] bool DeleteRecord(qint64 SiteID) const;
    /// The table that uses the site, empty when it may go; users see it without its first three
    /// letters.
    [[nodiscard]] QString CanDeleteSite(qint64 SiteID) const;
    /// All rows.
    [[nodiscard]] db::Recordset GetSiteInfo() const;
};
