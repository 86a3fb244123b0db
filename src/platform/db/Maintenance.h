#pragma once

#include "platform/db/Connection.h"

#include <QString>
#include <QStringList>

/// Operations on database files as wholes. All raise DbError (FileInUse when somebody holds a file
/// that must be free) and leave the source as it was.
namespace db {

/// Makes a new, empty database with the settings that the system relies on; the file must not
/// exist.
void createDatabase(const Target &target);
/// True when a program, this one included, is attached to the file.
[[nodiscard]] bool isHeld(const QString &file);
/// Ends a backup that the engine began for a program that was killed meanwhile, and that keeps the
/// changes in a second file. Does nothing while somebody is attached.
void endAbandonedBackup(const QString &file);
/// Copies a database whole, also while it is in use.
void backupOnline(const Target &source, const QString &destinationFile);
/// Writes a compacted copy of a database that nobody holds.
void compact(const QString &sourceFile, const QString &destinationFile);
/// What a check of a database file has found, line by line.
struct Findings
{
    QStringList damage;  ///< empty when the file is sound
    QStringList remarks; ///< traces of programs that were ended in the midst of a write: harmless
};

/// Checks a database file. One with faults is checked a second time as a copy beside it in which
/// the unfinished work of programs that were ended has been cleared away: what is gone there was no
/// damage.
[[nodiscard]] Findings validate(const QString &file);

} // namespace db
