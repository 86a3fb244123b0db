#include "shell/ShellSession.h"

#include "core/database/CreateDatabase.h"
#include "platform/settings/Registry.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace test {
namespace {

void resetSession()
{
    gcnData.reset();
    gcnLookup.reset();
    gsLoginUser.clear();
    gsDatabasePath.clear();
    gbDatabaseOutOfDate = false;
    gbInTransaction = false;
    gRights = {};
}

} // namespace

ShellSession::ShellSession()
{
    resetSession();
    m_formerReporter =
        base::setErrorReporter([this](const QString &module, const QString &procedure, int number,
                                      const QString &description) {
            errors.push_back({module, procedure, number, description});
        });
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, QString(32, u'A'));
    settings::registry().setValue(settings::ProductKey, u"VERSION"_s, u"2.3.1"_s);
    QDir().mkpath(base::applicationPath(u"\\Data"_s));
    gsDatabasePath = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    db::Target target;
    target.file = gsDatabasePath;
    target.forcedWrites = false;
    company::createEmptyDatabase(target);
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
}

ShellSession::~ShellSession()
{
    base::setErrorReporter(m_formerReporter);
    resetSession();
}

void ShellSession::addUser(const QString &name, const QString &clearPassword,
                           const QString &employeeID)
{
    gcnData->Execute(u"insert into tblUser(UserName,[Password],EmployeeID) values(?,?,?)"_s,
                     {name, clearPassword, employeeID});
}

QString ShellSession::storedPassword(const QString &name)
{
    return gcnData->Open(u"select [Password] from tblUser where UserName = ?"_s, {name})
        .current()
        .text(u"Password");
}

qint64 ShellSession::count(const QString &table, const QString &where)
{
    return gcnData->Open(u"select count(*) as Found from %1 where %2"_s.arg(table, where))
        .current()
        .integer(u"Found");
}

} // namespace test
