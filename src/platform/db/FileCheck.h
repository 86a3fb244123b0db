#pragma once

#include <QByteArrayList>
#include <QString>

namespace db {

/// Looks at a database file that nobody holds without attaching to it, so that not one byte of it
/// changes: it begins like a database, is as long as it says, and the names stand somewhere in it.
/// names: of the tables that make it the program's own, in capitals. Raises DbError:
/// NotADatabase for an empty, cut or foreign file, and what opening it raises.
void requireWholeDatabase(const QString &file, const QByteArrayList &names = {});

} // namespace db
