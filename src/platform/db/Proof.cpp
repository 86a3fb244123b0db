#include "platform/db/Proof.h"

#include "platform/db/FileCopy.h"
#include "platform/db/Maintenance.h"

namespace db {
namespace {

using namespace Qt::StringLiterals;

constexpr int Attempts = 3;

} // namespace

RowCounts prove(const QString &file)
{
    const Findings findings = validate(file);
    if (!findings.damage.isEmpty())
        throw DbError(ErrorNumber::NotADatabase,
                      u"The database is damaged: "_s + findings.damage.first());
    Target target;
    target.file = file;
    return countRows(target);
}

QString tableThatDiffers(const RowCounts &copy, const RowCounts &before, const RowCounts &after)
{
    for (auto table = before.begin(); table != before.end(); ++table) {
        // One that was dropped or made meanwhile is no fault of the copy.
        if (!after.contains(table.key()))
            continue;
        const auto [least, most] = std::minmax({table.value(), after.value(table.key())});
        const qint64 rows = copy.value(table.key(), -1);
        if (rows < least || rows > most)
            return table.key();
    }
    return {};
}

RowCounts backupProven(const Target &source, const QString &destination)
{
    PartialFile copy(destination, u".unproven~"_s);
    for (int attempt = 1;; ++attempt) {
        // Others go on writing, so that the copy has to lie between what was there before and
        // after.
        const RowCounts before = countRows(source);
        backupOnline(source, copy.path());
        const RowCounts after = countRows(source);
        RowCounts counts = prove(copy.path());
        const QString table = tableThatDiffers(counts, before, after);
        if (table.isEmpty()) {
            copy.moveTo(destination);
            return counts;
        }
        // Rows that came and went between the counts look like it too.
        if (attempt == Attempts)
            throw DbError(
                ErrorNumber::NotADatabase,
                u"The copy holds %1 rows of %2, the database %3: %4"_s.arg(counts.value(table))
                    .arg(table)
                    .arg(after.value(table))
                    .arg(destination));
    }
}

} // namespace db
