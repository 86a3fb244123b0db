#include "workorders/Board.h"

#include "core/Session.h"
#include "workorders/Statements.h"

#include <QHash>

namespace board {
namespace {

/// The oldest date and the number of services, by a key.
template<class Key>
using Services = QHash<Key, Entry>;

template<class Key, class KeyOf>
Services<Key> servicesBy(const QString &statement, KeyOf keyOf)
{
    Services<Key> result;
    for (const db::Row row : gcnData->Open(statement)) {
        Entry &entry = result[keyOf(row)];
        const QDate due = row.date(u"Due").date();
        if (due.isValid() && (!entry.since.isValid() || due < entry.since))
            entry.since = due;
        entry.services += static_cast<int>(row.integer(u"Services"));
    }
    return result;
}

} // namespace

QList<Entry> entries()
{
    const auto due = servicesBy<QString>(workorders::statements::boardDueServices(),
                                         [](const db::Row &row) { return row.text(u"Unit No"); });
    const auto ordered =
        servicesBy<qint64>(workorders::statements::boardOrderServices(),
                           [](const db::Row &row) { return row.integer(u"WorkOrderNo"); });
    QList<Entry> result;
    for (const db::Row row : gcnData->Open(workorders::statements::board())) {
        const QString text = row.text(u"Unit No");
        const qint64 order = row.integer(u"WorkOrderNo");
        Entry entry = order == 0 ? due.value(text) : ordered.value(order);
        entry.text = text;
        entry.WorkOrderNo = order;
        result.append(entry);
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
