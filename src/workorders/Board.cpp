#include "workorders/Board.h"

#include "core/Session.h"
#include "workorders/Statements.h"

namespace board {

QList<Entry> entries()
{
    QList<Entry> result;
    for (const db::Row row : gcnData->Open(workorders::statements::board()))
        result.append({row.text(u"Unit No"), row.integer(u"WorkOrderNo"), row.date(u"Due").date(),
                       static_cast<int>(row.integer(u"Services"))});
    return result;
}

QString unitNumberOf(const QString &text)
{
    const qsizetype hyphen = text.indexOf(u'-');
    // The blank before the hyphen is not part of the number.
    return hyphen > 0 ? text.left(hyphen - 1) : QString();
}

} // namespace board
