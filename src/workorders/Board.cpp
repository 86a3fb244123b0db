#include "workorders/Board.h"

#include "core/Session.h"
#include "workorders/Statements.h"

#include <algorithm>
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
    const db::Recordset rows = gcnData->Open(workorders::statements::board());
    std::vector<Found> found;
    found.reserve(static_cast<std::size_t>(rows.RecordCount()));
    for (const db::Row row : rows) {
        const QString text = textOf(row);
        found.push_back({text.toCaseFolded(),
                         {text, row.integer(u"WorkOrderNo"), row.date(u"Due").date(),
                          static_cast<int>(row.integer(u"Services"))}});
    }
    std::ranges::sort(found, [](const Found &left, const Found &right) {
        const int order = left.order.compare(right.order);
        return order != 0 ? order < 0 : left.entry.WorkOrderNo < right.entry.WorkOrderNo;
    });
    QList<Entry> result;
    result.reserve(static_cast<qsizetype>(found.size()));
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
