#pragma once

#include "platform/report/paginate/BandMaker.h"
#include "platform/report/paginate/Paginator.h"

namespace report {

/// A band as a row of a table, for files in which nothing is broken into pages.
struct TableBand
{
    const report::Band *band = nullptr;
    int row = 0; ///< of the data source
    QList<TableCell> cells;
    QList<TableGrid> grids; ///< of charts
};

/// Takes bands one after another; False stops the report.
using TableSink = std::function<bool(const TableBand &band)>;

/// Walks the rows as paginate does and gives the bands in the order of printing, without breaking
/// them into pages: page headers come once, behind the report's, page footers never. Values that
/// print only once are in every row.
[[nodiscard]] Outcome tabulate(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                               const TableSink &sink);

} // namespace report
