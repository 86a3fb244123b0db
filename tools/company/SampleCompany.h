#pragma once

#include "platform/db/Connection.h"

#include <QDate>

namespace company {

enum class SampleSize {
    Small, ///< about 80 machines: for a look at the program, and for tests
    Large, ///< 10,000 machines with a million posted services: for measuring
};

/// Makes a new database as createEmptyDatabase does, with the sample company in it (see
/// loadSampleCompany).
void createSampleDatabase(const db::Target &target, QDate today, SampleSize size, quint64 seed);

/// Fills an empty database with the sample company, as it stands on the given day: one day and one
/// seed always give the same rows. Commits by itself, every some thousand rows; a failure leaves
/// what was committed, so the database is then to be thrown away.
void loadSampleCompany(db::Connection &connection, QDate today, SampleSize size, quint64 seed);

/// The seed of the sample company that the program ships.
inline constexpr quint64 UsualSeed = 20;

} // namespace company
