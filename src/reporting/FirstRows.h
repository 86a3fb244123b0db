#pragma once

#include "platform/db/Recordset.h"
#include "platform/report/layout/Layout.h"

#include <QString>

/// The first rows of a report's query, for whoever designs it.
namespace ownreports {

inline constexpr int SampleRows = 100;

/// A query that gives so many rows at most. One that says itself how many it gives, and several
/// joined by UNION, stay as they are. Raises a syntax error (base::Error).
[[nodiscard]] QString limited(const QString &query, int rows);

/// The first rows of a layout's query, its parameters with what is usually answered. A connection
/// of its own that only reads; raises base::Error.
[[nodiscard]] db::Recordset firstRows(const report::Layout &layout, int rows = SampleRows);

} // namespace ownreports
