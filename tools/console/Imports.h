#pragma once

#include "administration/ImportColumns.h"
#include "console/Console.h"
#include "platform/db/Connection.h"

/// The commands that bring rows into companies, and all tables out of them.
namespace console {

struct FileRequest
{
    db::Target company;
    QString file;
    administration::ImportKind kind = administration::ImportKind::Machines;
    bool dryRun = false;
    bool makesEntries = false; ///< makes what lists lack
};

/// Imports a file of rows, or tells what keeps it from being imported; an exit code. Raises
/// base::Error.
[[nodiscard]] int importRows(const FileRequest &request, const Streams &streams);
/// Writes all tables into an archive. Raises base::Error.
void exportAll(const db::Target &company, const QString &zip, const Streams &streams);
/// Makes a company's database of an archive, or puts it in the place of an empty one. Raises
/// base::Error.
void importAll(const db::Target &company, const QString &zip, const Streams &streams);

} // namespace console
