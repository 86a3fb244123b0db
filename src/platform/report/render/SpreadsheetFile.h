#pragma once

#include "platform/report/paginate/Tabulator.h"

namespace report {

/// Writes a report as a spreadsheet (xlsx): all bands in their order, without pages, in columns
/// where the detail's values begin. Numbers and dates stay numbers and dates, with their formats.
/// Raises base::Error when the file can't be written.
[[nodiscard]] Outcome writeSpreadsheet(const Layout &layout, const DataSource &rows,
                                       const Inputs &inputs, const QString &path);

/// A format of layouts as a spreadsheet writes it: words are quoted, AM and PM parted.
[[nodiscard]] QString spreadsheetFormat(const QString &format);

} // namespace report
