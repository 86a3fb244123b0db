#pragma once

#include "platform/base/Progress.h"

#include <QList>

namespace posting {

/// Passes the completed and skipped services of these orders, and their parts, into history; their
/// schedules move on, and used parts leave the stock. The keys of the open services, whose rows
/// stay. progress is told of each. Data, a step of a posting: raises DbError, and Obstacle where
/// one order is in the way.
[[nodiscard]] QList<qint64> AddServiceHistoryRecord(const QList<qint64> &orders,
                                                    const base::Progress &progress);

} // namespace posting
