#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <vector>

namespace report {

/// The order of the rows that a layout asks for: by its groups from the outermost on, then by what
/// it sorts by. Rows that are equal in all of it keep their own order. An expression that can't be
/// read sorts nothing; an aggregate in one is Null.
[[nodiscard]] std::vector<int> orderOf(const Layout &layout, const DataSource &rows,
                                       const Inputs &inputs);

} // namespace report
