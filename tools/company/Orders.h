#pragma once

#include "company/History.h"

namespace company::sample {

/// Puts part of what is due onto open work orders, in all the states that they can be in, and moves
/// the counters on behind them.
void writeOrders(Batch &batch, const Content &content, const Masters &masters,
                 const std::vector<Machine> &machines, const Schedule &schedule, const Plan &plan,
                 OrderNumbers numbers, QDate today, quint64 seed);

} // namespace company::sample
