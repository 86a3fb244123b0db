#pragma once

#include "administration/ExportTables.h"

namespace administration {

/// Makes a company's database of an archive that exportTables() has written. The file must not
/// exist; it appears under its name only when all of it was read. Raises base::Error, with table,
/// row and column where a value is wrong, and what progress raises.
Exported importTables(const QString &zip, const db::Target &company,
                      const base::Progress &progress = {});

/// True when a company holds no work yet: nothing but what every new database begins with. Raises
/// DbError.
[[nodiscard]] bool isEmptyCompany(db::Connection &connection);

/// The same in the place of a database file that holds an empty company and that nobody has open;
/// in one step. Raises base::Error, FileInUse among them; the file is as it was then.
Exported replaceEmptyCompany(const QString &zip, const QString &database,
                             const base::Progress &progress = {});

/// The same in the place of the company that the session works at. Closes the connections
/// meanwhile; whatever happens they are open again then.
Exported replaceOwnCompany(const QString &zip);

} // namespace administration
