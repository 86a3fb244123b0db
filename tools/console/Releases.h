#pragma once

#include "console/Console.h"

/// What a release ships for the databases in use.
namespace console {

/// Reads a text of changes (data/schema/changes.sql) and says whether it leads from the first
/// release's schema to the one of a new database, running it as the program does; what doesn't fit
/// goes to err. True when it leads there. Raises base::Error for a text that can't be shipped.
bool checkChanges(const QString &textFile, const Streams &streams);

/// Makes the script database of a text that leads there; False, and no file, of any other.
bool makeScript(const QString &textFile, const QString &scriptFile, const Streams &streams);

/// Puts the script of this release beside a program whose database is of an earlier one. Leaves
/// alone what can't be opened, for the program to speak of.
void putScriptBeside(const QString &programFolder);

} // namespace console
