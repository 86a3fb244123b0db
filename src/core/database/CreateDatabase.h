#pragma once

#include "platform/db/Connection.h"

#include <QDate>

/// Databases as the company begins with them: the tables with the rows that every new one holds,
/// and a sample company over them.
namespace company {

/// Makes a new database with all tables, the lookup lists, options, search fields and the built-in
/// user. The file appears under its name only when it is whole. Raises base::Error PathAccess when
/// it exists already, DbError when the engine refuses.
void createEmptyDatabase(const db::Target &target);

enum class SampleSize {
    Small, ///< about 80 machines: for a look at the program, and for tests
    Large, ///< 10,000 machines with a million posted services: for measuring
};

/// The same, with the sample company in it (see loadSampleCompany).
void createSampleDatabase(const db::Target &target, QDate today, SampleSize size, quint64 seed);

/// Fills an empty database with the sample company, as it stands on the given day: one day and one
/// seed always give the same rows. Commits by itself, every some thousand rows; a failure leaves
/// what was committed, so the database is then to be thrown away.
void loadSampleCompany(db::Connection &connection, QDate today, SampleSize size, quint64 seed);

/// The seed of the sample company that the program ships.
inline constexpr quint64 UsualSeed = 20;

} // namespace company
