#include "shell/Login.h"

#include "core/Session.h"
#include "platform/db/DbError.h"
#include "shell/Passwords.h"

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr int attemptsAllowed = 3;

bool hasApostrophe(const QString &text)
{
    return text.contains(u'\'');
}

void refuseApostrophe(const QString &text)
{
    if (hasApostrophe(text))
        throw db::DbError(db::ErrorNumber::Syntax,
                          u"Syntax error: a user name or password can't hold an apostrophe (')."_s);
}

/// The users of a name: one at most, since the name is the key.
db::Recordset usersNamed(const QString &userName)
{
    return gcnData->Open(u"select UserName, [Password] from tblUser where UserName = ?"_s,
                         {userName});
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
    for (const db::Row row : usersNamed(userName)) {
        const QString name = row.text(u"UserName");
        if (row.isNull(u"Password"))
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

QString refusalOfLoginText(const QString &text)
{
    return hasApostrophe(text) ? u"A user name or password can't hold an apostrophe (')."_s
                               : QString();
}

QString sessionName(const QString &userName)
{
    const QString stored = usersNamed(userName).current().text(u"UserName");
    const QString upper = stored.toUpper();
    // A dotless i would turn into the "I" of somebody else's name, a sharp s into two letters.
    const db::Recordset found = usersNamed(upper);
    return !found.isEmpty() && found.current().text(u"UserName") == stored ? upper : stored;
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
        gsLoginUser = sessionName(userName);
        return Outcome::LoggedIn;
    }
    return m_count < attemptsAllowed ? Outcome::Refused : Outcome::LastRefused;
}

} // namespace shell
