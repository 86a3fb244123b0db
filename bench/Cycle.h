#pragma once

#include <QList>

#include <functional>

/// Work for a measurement to post.
namespace cycle {

inline constexpr int servicesOfOrder = 4;

/// So many orders of four services each, made from the services of the first machines, and
/// completed today. Data; raises DbError.
[[nodiscard]] QList<qint64> completedOrders(int orders);

/// Milliseconds of processor time, so that other programs on the computer don't disturb.
[[nodiscard]] double processorTime(const std::function<void()> &job);

} // namespace cycle
