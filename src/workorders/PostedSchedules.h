#pragma once

#include "platform/db/Recordset.h"
#include "workorders/PostingSteps.h"

#include <QHash>
#include <QMap>

/// What a posted service does to its schedule and to the readings of its machine. Data; steps of a
/// posting that raise DbError, and Obstacle where one order is in the way.
namespace posting {

/// The schedules behind services, by their key and as they stand now: they may have been changed
/// since the orders were made. Held first, so that what is reckoned from them is what is moved on,
/// however long the user thinks about a date. A service that has been taken off its machine
/// meanwhile has none.
[[nodiscard]] QHash<qint64, db::Row> heldSchedules(const QMap<qint64, Posted> &services);

/// Moves the schedule behind a posted service, which has left its reading already.
void reschedule(const db::Row &service, qint64 serviceUsedID, const db::Row &schedule);

/// A service that stood on the order without a schedule leaves a reading, unless it is there
/// already; only this kind is tested for a doubled one. True when it left one.
[[nodiscard]] bool keepReading(const db::Row &service, qint64 serviceUsedID);

} // namespace posting
