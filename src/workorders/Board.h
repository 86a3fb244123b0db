#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// What the overdue board lists. Data.
namespace board {

struct Entry
{
    QString text;           ///< unit number, " - " and the machine's name
    qint64 WorkOrderNo = 0; ///< 0: due services that are on no order
    QDate since;            ///< when the oldest of its services fell due; invalid without a date
    int services = 0;
};

/// Machines with services that fell due within the last 30 days and are on no order, and orders
/// that are not complete. Raises DbError.
[[nodiscard]] QList<Entry> entries();

/// The unit number at the beginning of an entry's text: what stands before its first hyphen.
[[nodiscard]] QString unitNumberOf(const QString &text);

} // namespace board
