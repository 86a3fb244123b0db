#pragma once

#include <QString>

namespace db {

/// Readies the engine for this process: a folder of our own with links to the installed engine's
/// parts and our settings, and the environment values that lead the engine there. Has to come
/// before the first call of the engine; everything in this folder that calls the engine sees to
/// it. Later calls cost nothing. Safe from several threads, and when several processes do it at the
/// same moment. Raises DbError when no engine is installed or the folder can't be made.
void prepareEngineHome();

/// The folder of prepareEngineHome: the value of QUORVANTIS_ENGINE, or a folder in the user's
/// cache.
[[nodiscard]] QString engineHome();

/// The folder of the lock files by which the user's programs on this computer share a database:
/// "lock" under QUORVANTIS_ENGINE when that is set, which must not be everybody's; otherwise a
/// folder that is the user's alone, "quorvantis-lock-" with his number in the folder for temporary
/// files, or one in his cache when somebody else has put something in that place. Who has another
/// folder is kept out of the database meanwhile (SharedUse).
[[nodiscard]] QString engineLockFolder();

} // namespace db
