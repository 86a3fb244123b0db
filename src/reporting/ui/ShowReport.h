#pragma once

#include "platform/report/query/ReportReader.h"
#include "reporting/Catalogue.h"

#include <optional>

/// Shows a report in its window and waits until it is closed. When the engine refuses the filter,
/// the report's question is asked, and Yes shows everything; a report without rows is told. False
/// when it did not come up, which the user knows then. Whether the user may see it has been asked
/// by who opens it (core/ui/Openings.h). Data.
bool showReport(const catalogue::Request &asked);

/// Asks for what a layout of the catalogue needs to know and the program doesn't; answers at once
/// where that is nothing. Nothing when the user cancels. A connection that only reads; raises
/// base::Error when a list can't be read.
[[nodiscard]] std::optional<report::Answers> askOwnParameters(report::Layout layout);

/// Joins the reports that screens and menus open without a filter screen to the list of what can be
/// opened; their query is the filter clause, or the whole statement of work orders and their
/// history, whose other form is the one by crews and the summary.
void joinReports();
