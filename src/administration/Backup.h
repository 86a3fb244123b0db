#pragma once

#include <QString>

namespace administration {

/// What the user asks for.
struct BackupRequest
{
    QString folder;
    QString name;
    QString passphrase; ///< empty for a plain copy
};

/// The name that is offered: "Quorvantis3-15-2024".
[[nodiscard]] QString usualBackupName();
/// Why a request can't be met, as a sentence for the user; empty when it can.
[[nodiscard]] QString refusalOfBackup(const BackupRequest &request);
/// True when a file stands there that is no backup, and would be lost.
[[nodiscard]] bool replacesAnothersFile(const BackupRequest &request);

/// Closes the connections, copies the database, also while other workstations write to it, proves
/// the copy, and opens the connections again. What was found comes back as a sentence. What stood
/// there stays until the new copy was proven. Raises base::Error when it failed; the connections
/// are open then too.
[[nodiscard]] QString takeBackup(const BackupRequest &request);

} // namespace administration
