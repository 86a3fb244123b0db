#pragma once

#include "reporting/Catalogue.h"

/// Shows a report in its window and waits until it is closed. When the engine refuses the filter,
/// the report's question is asked, and Yes shows everything; a report without rows is told. False
/// when it did not come up, which the user knows then. Whether the user may see it has been asked by
/// who opens it (core/ui/Openings.h). Data.
bool showReport(const catalogue::Request &asked);
