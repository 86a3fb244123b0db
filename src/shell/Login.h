#pragma once

#include <QString>

/// Who may enter: the checks behind the login and the change of password. No text that a user
/// types becomes part of a statement.
namespace shell {

/// True when a user has this name, as the database compares names, and this password in any case. A
/// text with an apostrophe raises the database's syntax error without any statement being run. A
/// password still stored as typed is hashed once it has matched. Data.
[[nodiscard]] bool isUserPassword(const QString &userName, const QString &password);

/// Why nobody could log in with a name or password that is about to be given: the sentence to show,
/// empty when there is nothing against it.
[[nodiscard]] QString refusalOfLoginText(const QString &text);

/// The name by which a session knows its user: the stored name in upper case, or as it stands where
/// the upper case would be another name to the database. Raises NoCurrentRow when there is no such
/// user. Data.
[[nodiscard]] QString sessionName(const QString &userName);

/// Stores a user's new password, hashed. A text with an apostrophe raises the syntax error, since
/// nobody could log in with it. Data.
void storePassword(const QString &userName, const QString &password);

/// The attempts of one login dialog.
class LoginAttempts
{
public:
    enum class Outcome { LoggedIn, Refused, LastRefused };

    /// Counts an attempt and makes it. When it succeeds gsLoginUser is the sessionName. The third
    /// refusal is the last. Raises what isUserPassword raises, the attempt being counted.
    Outcome attempt(const QString &userName, const QString &password);

private:
    int m_count = 0;
};

} // namespace shell
