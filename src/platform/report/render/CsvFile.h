#pragma once

#include "platform/report/paginate/Tabulator.h"

namespace report {

/// Writes a report's data as comma-separated values in UTF-8: a line of headings, then a line for
/// each detail, with the values of its groups ahead. Numbers are plain, dates as printed. Raises
/// base::Error when the file can't be written.
[[nodiscard]] Outcome writeCsv(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                               const QString &path);

} // namespace report
