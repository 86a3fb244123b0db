#pragma once

#include "platform/db/Connection.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringView>

/// Dated copies of the database, one for each day, and the rule by which old ones go.
namespace copies {

/// Which copies are made without asking, and how many of them stay.
struct KeepRule
{
    // Days, weeks and months that keep a copy: the newest of each.
    int days = 7;
    int weeks = 4;
    int months = 12;
    int restores = 5;  ///< databases that stay of those that a restore has put aside
    bool daily = true; ///< the day's first start keeps a copy

    bool operator==(const KeepRule &) const = default;
};

// The options of the company that hold the rule.
inline constexpr QStringView DaysOption = u"BACKUP_KEEP_DAYS";
inline constexpr QStringView WeeksOption = u"BACKUP_KEEP_WEEKS";
inline constexpr QStringView MonthsOption = u"BACKUP_KEEP_MONTHS";
inline constexpr QStringView RestoresOption = u"BACKUP_KEEP_RESTORES";
inline constexpr QStringView DailyOption = u"BACKUP_DAILY"; ///< "0" for no copy of the day

/// The rule that a company has set; what is missing or senseless has its usual value. Raises
/// DbError.
[[nodiscard]] KeepRule keepRuleOf(db::Connection &connection);
/// What the rule does with the copies of the day, in a sentence.
[[nodiscard]] QString inWords(const KeepRule &rule);

/// Which of these days' copies no rule keeps. Days, weeks (from Monday) and months without a copy
/// don't count, so that a company that was closed for a month loses none. Copies of days after
/// today, from a clock that went wrong, are kept and count for nothing.
[[nodiscard]] QList<QDate> superfluous(const QList<QDate> &days, QDate today, const KeepRule &rule);

/// The name of a day's copy, "Quorvantis 2024-03-15.mdb".
[[nodiscard]] QString nameOfDay(QDate day);
/// The days of which a folder holds a copy.
[[nodiscard]] QList<QDate> daysIn(const QString &folder);
/// Deletes the copies of a folder that the rule doesn't keep; content when another workstation was
/// faster. To be called when a newer one was proven. Raises base::Error when one can't be deleted.
void prune(const QString &folder, QDate today, const KeepRule &rule);

/// Where the copies of the starts stand.
[[nodiscard]] QString startCopiesFolder();

} // namespace copies
