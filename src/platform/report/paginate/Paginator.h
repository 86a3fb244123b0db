#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"
#include "platform/report/paginate/PageDocument.h"

#include <QStringList>

namespace report {

/// What came of a report.
struct Outcome
{
    int pages = 0;
    bool stopped = false; ///< the sink or the user ended it
    QStringList problems; ///< expressions that can't be read, unknown fields, pictures not found
};

/// Lays rows out into pages. Needs a QGuiApplication for the measures of fonts. Rows are read in
/// their order, so they must come sorted by the groups. Pages go to the sink as soon as they are
/// whole, and none is kept; a layout that names the total number of pages is run through twice.
[[nodiscard]] Outcome paginate(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                               const PageSink &sink);

/// The first page while the rest is still to be laid out. Where the layout names the total number
/// of pages an ellipsis stands in its place.
[[nodiscard]] Page firstPage(const Layout &layout, const DataSource &rows, const Inputs &inputs);
/// True when a layout names the total number of pages, so that its first page comes only after all
/// have been counted.
[[nodiscard]] bool countsPages(const Layout &layout, const DataSource &rows, const Inputs &inputs);

/// All pages at once, for short reports and tests.
[[nodiscard]] QList<Page> allPages(const Layout &layout, const DataSource &rows,
                                   const Inputs &inputs, QStringList *problems = nullptr);

} // namespace report
