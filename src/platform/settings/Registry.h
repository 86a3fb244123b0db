#pragma once

#include <QString>

namespace settings {

/// Number of the error that a registry file raises which can't be read as one.
inline constexpr int RegistryDamaged = 1009;

/// The two keys that the program knows.
inline const QString ProductKey = QStringLiteral("Software\\Quorvantis");
inline const QString MakerKey = QStringLiteral("Software\\Brelmontsoft\\Quorvantis");

/// Install values and the workstation's identity, kept in one text file: a line "[key]" opens a
/// key, lines "name=value" below it hold its values. Keys and names are compared without regard to
/// case. A value is everything behind the first "=", with outer blanks cut, so a path with
/// backslashes stands there as it is. Lines that begin with ";" or "#" are comments, and survive a
/// change of other lines.
///
/// The file is read at each call, since an installer or a second program may have written it, and
/// replaced whole under a lock file beside it. A missing file has no values and is made by the
/// first write; a damaged one raises RegistryDamaged from reading and writing alike, and stays as
/// it is.
class Registry
{
public:
    /// file: full path.
    explicit Registry(QString file);

    /// The value, empty when there is none. Raises base::Error.
    [[nodiscard]] QString value(const QString &key, const QString &name) const;
    /// Writes a value of one line. Raises base::Error: InvalidCall for a name or value that a
    /// line can't hold, PermissionDenied while another program holds the lock, PathAccess when the
    /// file can't be written.
    void setValue(const QString &key, const QString &name, const QString &value) const;
    /// Lets nobody but its owner read the file any more, as one is made by the first write: for
    /// whoever reads a password in it. A file of somebody else's stays as it is.
    void keepPrivate() const;

private:
    QString m_file;
};

/// The registry of the environment in use.
[[nodiscard]] Registry registry();

} // namespace settings
