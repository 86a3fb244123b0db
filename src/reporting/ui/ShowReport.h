#pragma once

#include "reporting/Catalogue.h"

/// Shows a report in its window and waits until it is closed. When the engine refuses the filter,
/// the report's question is asked, and Yes shows everything; a report without rows is told. False
/// when it did not come up, which the user knows then. Whether the user may see it has been asked
/// by who opens it (core/ui/Openings.h). Data.
bool showReport(const catalogue::Request &asked);

/// Joins the reports that screens and menus open without a filter screen to the list of what can be
/// opened; their query is the filter clause, or the whole statement of work orders and their
/// history, whose other form is the one by crews and the summary.
void joinReports();
