#pragma once

#include "platform/db/Recordset.h"

#include <QString>

/// Rows of tables as screens list them. No error crosses one of these procedures: it goes to
/// ErrorHandler, and no rows are returned. "Data" and "Lookup" name the connection that a procedure
/// uses, gcnData or gcnLookup.

/// All columns of a table; Order and Where are SQL texts without their keyword, or empty. Data.
/// An unknown table is reported as "Invalid Table Name", an unknown column as "Invalid Column
/// Name".
[[nodiscard]] db::Recordset GetTableInfo(const QString &Table, const QString &Order = {},
                                         const QString &Where = {});
/// The same on Lookup.
[[nodiscard]] db::Recordset GetTableInfoWithIndicator(const QString &Table,
                                                      const QString &Order = {},
                                                      const QString &Where = {});
/// The members of a lookup list; without ShowAll only those offered. Lookup.
[[nodiscard]] db::Recordset GetIndicatorInfo(qint64 ParentID, bool ShowAll, bool OrderByName);
/// CrewID, and as CrewNumber the number, three blanks and the description. Lookup.
[[nodiscard]] db::Recordset GetCrewInfo();
/// The crew of a row of a service table, 0 without one. Data.
[[nodiscard]] qint64 GetCrewIDByService(qint64 Id, const QString &Table);
