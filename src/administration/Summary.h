#pragma once

#include "platform/db/Connection.h"
#include "platform/db/Structure.h"

#include <QDate>
#include <QString>

namespace administration {

/// What an office knows a company's database by.
struct Summary
{
    QDateTime written; ///< when its file was last written, by the wall clock
    qint64 machines = 0;
    qint64 openOrders = 0;
    qint64 postedOrders = 0;
    QDate newestWork; ///< the last day on which posted work was completed
    QString version;  ///< the option "DBVERSION"

    bool operator==(const Summary &) const = default;
};

/// Reads it. file: the database's, for its date; a database on a host has none. Raises DbError.
[[nodiscard]] Summary summaryOf(db::Connection &connection, const QString &file);

/// What a proof has counted, in one sentence: "12,345 rows, among them 120 machines and 34 open
/// work orders".
[[nodiscard]] QString inWords(const db::RowCounts &counts);

} // namespace administration
