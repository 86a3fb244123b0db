#pragma once

#include "platform/db/Connection.h"

#include <QList>
#include <QString>

/// The update of a database in use to the program's release: the rows of the script database
/// "\Script\DBChanges.mdb" that it has not seen yet. No transaction surrounds them: a statement
/// that has run stays run, and its row is marked in the script.

/// Runs what the script database holds, records the version that was reached in the option
/// "DBVERSION" and deletes the script; without a script does nothing. A statement that fails
/// doesn't keep the next ones from running, and the script then stays. True when an error other
/// than the tolerated ones stopped a part of the update; with ShowFailure the user is told so,
/// once, and it becomes False. Statements run on Lookup. Reports no error to the form, which the
/// start can't rely on yet.
bool UpdateDatabase(bool &ShowFailure);

/// True when Table has a row with Value in Field; Extra, unless blank, is the row's ParentId in
/// tblSysOption, and its table in tblTableFields. Data. Raises DbError.
[[nodiscard]] bool IsRecordThere(const QString &Table, const QString &Field, const QString &Value,
                                 const QString &Extra);

/// What a row of a script came to that failed.
struct ChangeFailure
{
    qint64 id = 0; ///< of the row in tblChanges
    base::Error error;
};

/// What became of a script.
struct ChangesRun
{
    QList<ChangeFailure> failures; ///< those that mark the run as failed
    bool stopped = false;          ///< one of them was no mere refusal of its statement
    int version = 0;               ///< of the last row, 0 without rows
};

/// Runs the rows of a script database that are not marked yet and are above a version, the text of
/// the option "DBVERSION" (all of them when it is blank), and marks them. What can't be read at all
/// raises DbError; what its rows fail with stands in the result.
[[nodiscard]] ChangesRun runChanges(const QString &scriptFile, const QString &aboveVersion);
