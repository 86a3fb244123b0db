#include "shell/clsUser_Manager.h"

#include "core/Session.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "shell/Passwords.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "Class User Manager";

/// The user, other than the one of rowName, whose name nobody could tell from this one: the same to
/// the database, or the same in capitals ("admin" with a dotless i). Empty when there is none.
QString userOfLikeName(const QString &userName, const QString &rowName)
{
    const auto storedName = [](const QString &name) {
        const db::Recordset row =
            gcnData->Open(u"select UserName from tblUser where UserName = ?"_s, {name});
        return row.isEmpty() ? QString() : row.current().text(u"UserName");
    };
    const auto asCapitals = [](const QString &name) {
        return name.normalized(QString::NormalizationForm_KC).trimmed().toUpper();
    };
    const QString own = storedName(rowName);
    if (const QString same = storedName(userName); !same.isEmpty() && same != own)
        return same;
    for (const db::Row row : gcnData->Open(u"select UserName from tblUser"_s)) {
        const QString name = row.text(u"UserName");
        if (name != own && asCapitals(name) == asCapitals(userName))
            return name;
    }
    return {};
}

void refuseLikeName(const QString &userName, const QString &rowName = {})
{
    const QString other = userOfLikeName(userName, rowName);
    if (!other.isEmpty())
        throw db::DbError(db::ErrorNumber::DuplicateKey,
                          u"There is a user \"%1\" already: two names can't differ in capital "
                          u"letters only."_s.arg(other));
}

void insertUser(const clsUser &user)
{
    refuseLikeName(user.UserName);
    gcnData->Execute(u"insert into tblUser(UserName,[Password],EmployeeID) values(?,?,?)"_s,
                     {user.UserName, shell::hashedPassword(user.Password), user.EmployeeID});
}

void updateUser(const clsUser &user, const QString &rowName)
{
    const db::Recordset row =
        gcnData->Open(u"select [Password] from tblUser where UserName = ?"_s, {rowName});
    if (row.isEmpty())
        throw base::Error(base::ErrorNumber::NoCurrentRow,
                          u"The user \"%1\" has been deleted at another place."_s.arg(rowName));
    refuseLikeName(user.UserName, rowName);
    const QString stored = row.current().text(u"Password");
    const bool keepHash = stored == user.Password && shell::isHashedPassword(stored);
    gcnData->Execute(u"update tblUser set UserName = ?, [Password] = ?, EmployeeID = ? "
                     u"where UserName = ?"_s,
                     {user.UserName, keepHash ? stored : shell::hashedPassword(user.Password),
                      user.EmployeeID, rowName});
}

} // namespace

void clsUser_Manager::SaveRecord(const clsUser &User, Mode SaveMode, bool &Result,
                                 const QString &FormerName) const
{
    Result = base::trapped(module, "SaveRecord", false, [&] {
        if (SaveMode == Mode::Add)
            insertUser(User);
        else
            updateUser(User, FormerName.isEmpty() ? User.UserName : FormerName);
        return true;
    });
}

void clsUser_Manager::DeleteRecord(const QString &UserName, bool &Result) const
{
    Result = false;
    try {
        gcnData->Execute(u"Delete from tblUser where UserName = ?"_s, {UserName});
        Result = true;
    } catch (const db::DbError &) {
        // Result says it: the screen's own message stands in for the error report.
    }
}

bool clsUser_Manager::IsUserExist(const QString &UserName) const
{
    return base::trapped(module, "IsUserExist", false,
                         [&] { return !userOfLikeName(UserName, {}).isEmpty(); });
}

db::Recordset clsUser_Manager::Users() const
{
    return base::trapped(module, "Users", db::Recordset(), [] {
        return gcnData->Open(
            u"Select UserName,Password,EmployeeID from tblUser where Username <> 'Admin'"_s);
    });
}
