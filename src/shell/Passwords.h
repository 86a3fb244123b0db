#pragma once

#include <QString>

/// Passwords are stored as salted hashes. Rows from before that hold the password as typed, and go
/// on working. The case of a password does not matter, so it is folded before it is hashed.
namespace shell {

/// The form in which a password is stored; different at each call.
[[nodiscard]] QString hashedPassword(const QString &password);
/// True for a stored text that hashedPassword has made.
[[nodiscard]] bool isHashedPassword(const QString &stored);
/// True when the typed password is the stored one, in whichever form that is.
[[nodiscard]] bool passwordMatches(const QString &stored, const QString &typed);

} // namespace shell
