#pragma once

#include "platform/report/paginate/Paginator.h"

namespace report {

enum class ExportFormat { Pdf, Spreadsheet, Csv, Html };

/// The format by a file name's ending, in any case; nothing for another ending.
[[nodiscard]] std::optional<ExportFormat> exportFormat(const QString &path);
/// "PDF (*.pdf)" and so on, as file choosers take them, in the order of ExportFormat.
[[nodiscard]] QStringList exportFilters();

/// Writes a report into a file, which appears whole or not at all: also when the inputs'
/// isCancelled ends it, whose outcome is stopped. Raises base::Error when it can't be written.
/// Needs a QGuiApplication.
[[nodiscard]] Outcome exportReport(const Layout &layout, const DataSource &rows,
                                   const Inputs &inputs, const QString &path, ExportFormat format);

} // namespace report
