#include "shell/Login.h"

#include "core/Session.h"
#include "platform/db/DbError.h"
#include "shell/Passwords.h"

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr int attemptsAllowed = 3;

void refuseApostrophe(const QString &text)
{
    if (text.contains(u'\''))
        throw db::DbError(db::ErrorNumber::Syntax,
                          u"Syntax error: a user name or password can't hold an apostrophe (')."_s);
}

void writePassword(const QString &userName, const QString &password)
{
    gcnData->Execute(u"Update tblUser set [password] = ? where username = ?"_s,
                     {hashedPassword(password), userName});
}

} // namespace

bool isUserPassword(const QString &userName, const QString &password)
{
    refuseApostrophe(userName);
    refuseApostrophe(password);
    const db::Recordset users =
        gcnData->Open(u"select UserName, [Password] from tblUser where UserName = ?"_s, {userName});
    for (const db::Row row : users) {
        const QString name = row.text(u"UserName");
        // The engine takes trailing blanks for nothing, a login doesn't.
        if (!sameText(name, userName) || row.isNull(u"Password"))
            continue;
        const QString stored = row.text(u"Password");
        if (!passwordMatches(stored, password))
            continue;
        if (!isHashedPassword(stored)) {
            try {
                writePassword(name, password);
            } catch (const db::DbError &) {
                // Another workstation holds the row: the next login hashes the password.
            }
        }
        return true;
    }
    return false;
}

void storePassword(const QString &userName, const QString &password)
{
    refuseApostrophe(password);
    writePassword(userName, password);
}

LoginAttempts::Outcome LoginAttempts::attempt(const QString &userName, const QString &password)
{
    ++m_count;
    if (isUserPassword(userName, password)) {
        gsLoginUser = userName.toUpper();
        return Outcome::LoggedIn;
    }
    return m_count < attemptsAllowed ? Outcome::Refused : Outcome::LastRefused;
}

} // namespace shell
