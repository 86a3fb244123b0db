#pragma once

#include "platform/db/Connection.h"

#include <QDate>
#include <QList>
#include <QString>

/// Dated copies of the database, one for each day, and the rule by which old ones go.
namespace copies {

/// How many days, weeks and months keep a copy: the newest of each.
struct KeepRule
{
    int days = 7;
    int weeks = 4;
    int months = 12;

    bool operator==(const KeepRule &) const = default;
};

/// The rule that a company has set (options "BACKUP_KEEP_DAYS", "BACKUP_KEEP_WEEKS",
/// "BACKUP_KEEP_MONTHS"); what is missing or senseless has its usual value. Raises DbError.
[[nodiscard]] KeepRule keepRuleOf(db::Connection &connection);
/// Writes the rule into the options. Lookup.
void setKeepRule(const KeepRule &rule);

/// Which of these days' copies no rule keeps. Days, weeks (from Monday) and months without a copy
/// don't count, so that a company that was closed for a month loses none. Copies of days after
/// today, from a clock that went wrong, are kept and count for nothing.
[[nodiscard]] QList<QDate> superfluous(const QList<QDate> &days, QDate today, const KeepRule &rule);

/// The name of a day's copy, "Quorvantis 2024-03-15.mdb".
[[nodiscard]] QString nameOfDay(QDate day);
/// The days of which a folder holds a copy.
[[nodiscard]] QList<QDate> daysIn(const QString &folder);
/// Deletes the copies of a folder that the rule doesn't keep. To be called when a newer one was
/// proven. Raises base::Error when one can't be deleted.
void prune(const QString &folder, QDate today, const KeepRule &rule);

/// Where the copies of the starts stand.
[[nodiscard]] QString startCopiesFolder();

} // namespace copies
