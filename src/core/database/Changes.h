#pragma once

#include "platform/db/Connection.h"

#include <QString>
#include <vector>

/// What releases change in databases that are in use: written as a text (data/schema/changes.sql),
/// shipped as a script database that the program runs at its start (core/UpdateDatabase.h).
namespace company {

/// One statement of a release: a row of the script database.
struct Change
{
    int version = 0;  ///< of the release, without its points
    int sequence = 0; ///< from 1 within the version
    QString
        type{}; ///< the statement's first word in capitals; "INSERT" runs only for a lacking row
    QString statement{};
    QString table{};  ///< of an insert
    QString value{};  ///< of an insert: the option or field whose row it brings
    QString parent{}; ///< of a field: its table

    bool operator==(const Change &) const = default;
};

/// Reads a text of releases: each begins with "version 101;", statements of the dialect follow,
/// each ended by a semicolon. An insert brings an option or a search field, and is kept from
/// databases that have it; any other insert has to say "always insert", since it runs in every
/// database. Raises base::Error InvalidCall, with the statement, for what can't be shipped.
[[nodiscard]] std::vector<Change> parseChanges(QStringView text);

/// The changes that this program's release and those before it have brought.
[[nodiscard]] std::vector<Change> shippedChanges();
/// The number of the schema that this program knows: the version of the last of them.
[[nodiscard]] int schemaVersion();

/// Makes a script database of changes, all of them still to be run. It appears under its name only
/// when it is whole. Raises base::Error PathAccess when the file exists, DbError.
void createScriptDatabase(const QString &file, const std::vector<Change> &changes);

/// Makes a database as the first release made them.
void createFirstRelease(const db::Target &target);

/// How a database differs from what this program makes anew: lines that begin with "lacks" or
/// "has", for tables, columns, indexes, options and search fields. Makes a new database in a
/// temporary folder.
[[nodiscard]] QStringList differencesFromNew(const db::Target &target);

} // namespace company
