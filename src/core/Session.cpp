#include "core/Session.h"

#include "platform/base/Error.h"
#include "platform/settings/Registry.h"

using namespace Qt::StringLiterals;

std::unique_ptr<db::Connection> gcnData;
std::unique_ptr<db::Connection> gcnLookup;

QString gsDatabasePath;
QString gsLoginUser;
bool gbDatabaseOutOfDate = false;
bool gbInTransaction = false;
Rights gRights;

namespace {

constexpr int ObjectNotSet = 91;

db::Connection &opened(const std::unique_ptr<db::Connection> &connection)
{
    if (!connection)
        throw base::Error(ObjectNotSet, u"The database is not open."_s);
    return *connection;
}

} // namespace

db::Connection &dataConnection()
{
    return opened(gcnData);
}

db::Connection &lookupConnection()
{
    return opened(gcnLookup);
}

db::Target databaseTarget()
{
    db::Target target;
    target.file = gsDatabasePath;
    const settings::Registry registry = settings::registry();
    const auto value = [&](const QString &name) {
        return registry.value(settings::ProductKey, name);
    };
    target.host = value(u"HOST"_s);
    if (target.host.isEmpty())
        return target;
    if (const QString path = value(u"HOSTPATH"_s); !path.isEmpty())
        target.file = path;
    if (const QString user = value(u"HOSTUSER"_s); !user.isEmpty())
        target.user = user;
    target.password = value(u"HOSTPASSWORD"_s);
    if (!target.password.isEmpty())
        registry.keepPrivate();
    return target;
}

void openConnections()
{
    const db::Target target = databaseTarget();
    try {
        // Both or none: who finds one open counts on the other.
        auto data = std::make_unique<db::Connection>(target);
        auto lookup = std::make_unique<db::Connection>(target);
        gcnData = std::move(data);
        gcnLookup = std::move(lookup);
    } catch (const base::Error &error) {
        // Whoever has to look after it needs to know which file was meant.
        if (error.description().contains(target.file))
            throw;
        throw base::Error(error.number(), error.description() + u" ("_s + target.file + u')');
    }
}

void closeConnections()
{
    gbInTransaction = false;
    gcnLookup.reset();
    gcnData.reset();
}

bool connectionsAreOpen()
{
    return gcnData && gcnLookup;
}

void BeginTrans()
{
    if (gbInTransaction)
        return;
    dataConnection().BeginTrans();
    gbInTransaction = true;
}

void CommitTrans()
{
    if (!gbInTransaction)
        return;
    dataConnection().CommitTrans();
    gbInTransaction = false;
}

void RollbackTrans()
{
    if (!gbInTransaction)
        return;
    // Cleared first: a connection that can't even roll back holds no transaction to join.
    gbInTransaction = false;
    dataConnection().RollbackTrans();
}

TransactionScope::~TransactionScope()
{
    if (m_done)
        return;
    try {
        RollbackTrans();
    } catch (const base::Error &error) {
        // A destructor may run while another error is on its way, which is the one to report.
        qWarning("rollback: %s", error.what());
    }
}

void TransactionScope::commit()
{
    CommitTrans();
    leaveOpen();
}
