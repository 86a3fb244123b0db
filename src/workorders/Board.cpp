#include "workorders/Board.h"

#include "core/Session.h"
#include "workorders/Statements.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace board {

namespace {

using namespace Qt::StringLiterals;

QString textOf(const db::Row &row)
{
    if (row.isNull(u"UnitNO") || row.isNull(u"Equipmentname"))
        return {};
    return row.text(u"UnitNO") + u" - "_s + row.text(u"Equipmentname");
}

/// Machines of one unit number and name are one entry.
void join(Entry &entry, const Entry &other)
{
    if (!entry.since.isValid() || (other.since.isValid() && other.since < entry.since))
        entry.since = other.since;
    entry.services += other.services;
}

} // namespace

QList<Entry> entries()
{
    struct Found
    {
        QString order; ///< what entries are sorted by; case doesn't count
        Entry entry;
    };
    std::vector<Found> found;
    for (const db::Row row : gcnData->Open(workorders::statements::board())) {
        const QString text = textOf(row);
        found.push_back({text.toCaseFolded(),
                         {text, row.integer(u"WorkOrderNo"), row.date(u"Due").date(),
                          static_cast<int>(row.integer(u"Services"))}});
    }
    std::ranges::sort(
        found, {}, [](const Found &each) { return std::tie(each.order, each.entry.WorkOrderNo); });
    QList<Entry> result;
    const QString *last = nullptr;
    for (const Found &each : found) {
        if (last && *last == each.order && result.last().WorkOrderNo == each.entry.WorkOrderNo)
            join(result.last(), each.entry);
        else
            result.append(each.entry);
        last = &each.order;
    }
    return result;
}

QString unitNumberOf(const QString &text)
{
    const qsizetype hyphen = text.indexOf(u'-');
    // The blank before the hyphen is not part of the number.
    return hyphen > 0 ? text.left(hyphen - 1) : QString();
}

} // namespace board
