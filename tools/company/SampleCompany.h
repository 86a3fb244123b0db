#pragma once

#include "company/Plan.h"
#include "platform/db/Connection.h"

#include <QDate>

namespace company {

/// Makes a new database as createEmptyDatabase does, with the sample company in it (see
/// loadSampleCompany).
void createSampleDatabase(const db::Target &target, QDate today, const sample::Plan &plan,
                          quint64 seed);

/// Fills an empty database with the sample company, as it stands on the given day: one day and one
/// seed always give the same rows. Commits by itself, every some thousand rows; a failure leaves
/// what was committed, so the database is then to be thrown away.
void loadSampleCompany(db::Connection &connection, QDate today, const sample::Plan &plan,
                       quint64 seed);

/// The seed of the sample company that the program ships.
inline constexpr quint64 UsualSeed = 20;

} // namespace company
