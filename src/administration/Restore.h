#pragma once

#include "administration/Summary.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace administration {

/// A file that the user wants back.
struct Chosen
{
    QString file;
    QString passphrase; ///< for a sealed one
};

/// The copy that was made last of those that the program makes by itself; empty without one. What a
/// restore has put aside and what was found damaged don't count.
[[nodiscard]] QString newestCopy();

/// Where a chosen file is checked: "\Quorvantis\temp.mdb" under APPDATA.
[[nodiscard]] QString temporaryCopy();

/// Copies a chosen file to where it is checked, over one of an earlier time, and unseals it if need
/// be. A fingerprint of its bytes comes back. Raises base::Error, also WrongPassphrase.
[[nodiscard]] QByteArray fetchForCheck(const Chosen &chosen);

/// True when a file opens as a database of this program that holds tblEquipment, whole and
/// without damage. The database in use is not touched.
[[nodiscard]] bool isUsableBackup(const QString &path);
/// What a file holds that was found usable; original: the file that it is a copy of, for its date.
/// Raises DbError.
[[nodiscard]] Summary summaryOfBackup(const QString &path, const QString &original);
/// Why the program can't work with a database of this version, as a sentence; empty when it can.
[[nodiscard]] QString refusalOfVersion(const Summary &backup);

/// What a restore has done beside its work.
struct Restored
{
    QString kept;         ///< where the database stands that was there; empty when there was none
    bool isOlder = false; ///< the next start brings the database up to date
};

/// Puts a chosen file in the place of the database: closes the connections, keeps the database
/// that is there under "\Data\Backup\Before restore ..", replaces it in one step, and opens the
/// connections. Of the databases that were kept so, old ones go by the company's rule once the new
/// one was proven. fingerprint: what was checked; another file is refused. Raises base::Error when
/// any of that fails; then the database that was there is open again. FileInUse when another
/// workstation has it open.
Restored restoreDatabase(const Chosen &chosen, const QByteArray &fingerprint,
                         const Summary &summary);

} // namespace administration
