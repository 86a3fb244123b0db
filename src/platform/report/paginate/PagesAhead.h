#pragma once

#include "platform/report/paginate/Paginator.h"

namespace report {

/// The same as paginate, but the pages are made in a thread of their own while the sink is busy
/// with those before: for sinks that take as long as the pages. The sink and the progress are
/// called in the caller's thread, as always; the rows must bear being read from another one. What
/// the sink throws ends the report and comes out of here.
[[nodiscard]] Outcome paginateAhead(const Layout &layout, const DataSource &rows,
                                    const Inputs &inputs, const PageSink &sink);

} // namespace report
