#pragma once

#include "platform/base/Progress.h"
#include "platform/db/Connection.h"

#include <QString>

/// All tables of a company as text that other programs read, and that gives the company back.
namespace administration {

/// The file of an archive that tells the tables, their rows and the numbers that come next.
inline constexpr QStringView ContentsFile = u"contents.csv";

struct Exported
{
    int tables = 0;
    qint64 rows = 0;
};

/// Writes a zip with one comma-separated text for each table, as the company stands at this moment:
/// others may go on working. The same content gives the same bytes. The file appears under its name
/// only when it is whole. Opens a connection of its own; raises base::Error, and what progress
/// raises.
Exported exportTables(const db::Target &company, const QString &zip,
                      const base::Progress &progress = {});

} // namespace administration
