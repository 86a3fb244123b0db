#pragma once

#include "core/ErrorReport.h"
#include "platform/base/Steps.h"

/// The makers' own store of error reports: the table tblError of any database that has a driver on
/// this computer (docs/error-store.md). Its connection string is a secret of the user's.
namespace errorstore {

inline const QString ConnectionOption = QStringLiteral("REMOTE ERROR STORE");

/// The connection string; empty where no store is set up. Raises base::Error InvalidCall when it is
/// not known to this user on this computer. Lookup.
[[nodiscard]] QString connectionString();
/// Adds a report as a row, cut to the lengths of the table. Waits for the network; uses no
/// connection of the program's, so it may run on any thread. Raises base::Error, and
/// base::Cancelled as long as nothing was written.
void store(const QString &connectionString, const ErrorReportDetails &details,
           const base::Steps &steps = {});
/// Looks whether the table is there; how many reports it holds. Waits; on any thread. Raises
/// base::Error.
[[nodiscard]] int reportsIn(const QString &connectionString);

} // namespace errorstore
