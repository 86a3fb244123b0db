#pragma once

/// Gives back the room that deleted rows have left, and makes all indexes anew: closes the
/// connections, keeps a copy of the day in "\Data\Backup\", compacts it, proves the result, puts it
/// in the place of the database in one step, and opens the connections. Tells the user that it has
/// finished, or that the database is in use; any other failure goes to ErrorHandler. The database
/// that was there is open after any failure.
void CompactDatabase();
