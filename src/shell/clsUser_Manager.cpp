#include "shell/clsUser_Manager.h"

#include "core/Permission.h"
#include "core/RecordStore.h"
#include "core/Session.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "shell/Passwords.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "Class User Manager";
constexpr auto Table = u"tblUser";
constexpr auto Key = u"UserName";

constexpr record::Field<clsUser> Fields[] = {
    {u"UserName", &clsUser::UserName},
    {u"Password", &clsUser::Password},
    {u"EmployeeID", &clsUser::EmployeeID},
};

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

clsUser fromRow(const db::Row &row)
{
    return record::load<clsUser>(row, Fields);
}

void updateUser(const clsUser &user, const std::optional<clsUser> &shown)
{
    const QString rowName = shown ? shown->UserName : user.UserName;
    record::ShortTransaction transaction(*gcnData);
    const clsUser now = fromRow(record::hold(*gcnData, Table, Key, rowName).row(0));
    refuseLikeName(user.UserName, rowName);
    clsUser mine = user;
    clsUser before = shown.value_or(now);
    if (user.Password != before.Password) {
        mine.Password = shell::hashedPassword(user.Password);
        before.Password = now.Password;
    } else {
        // A colleague's new password stays; one that is still stored as typed is hashed.
        mine.Password = before.Password = now.Password;
        if (!shell::isHashedPassword(now.Password))
            mine.Password = shell::hashedPassword(now.Password);
    }
    record::change<clsUser>(record::Store::Data, Table, Fields, mine, before, Key, rowName,
                            fromRow);
    transaction.commit();
}

} // namespace

std::span<const record::Field<clsUser>> clsUser::fields()
{
    return Fields;
}

void clsUser_Manager::SaveRecord(const clsUser &User, Mode SaveMode, bool &Result,
                                 const std::optional<clsUser> &Shown) const
{
    Result = base::trapped(module, "SaveRecord", false, [&] {
        rights::demandAdministrator();
        if (SaveMode == Mode::Add)
            insertUser(User);
        else
            updateUser(User, Shown);
        return true;
    });
}

void clsUser_Manager::DeleteRecord(const QString &UserName, bool &Result) const
{
    Result = false;
    try {
        rights::demandAdministrator();
        gcnData->Execute(u"Delete from tblUser where UserName = ?"_s, {UserName});
        Result = true;
    } catch (const base::Error &) {
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
