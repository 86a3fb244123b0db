#include "core/Session.h"
#include "core/UpdateDatabase.h"
#include "platform/base/Environment.h"

#include <QCoreApplication>

#include <csignal>

/// The program beside a test that updates a company and is killed before its n-th change of the
/// database: takes the program's folder, the registry's file, and n.
int main(int argc, char *argv[])
{
    using namespace Qt::StringLiterals;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    base::Environment environment = base::Environment::ofProcess();
    environment.applicationFolder = arguments[1];
    environment.registryFile = arguments[2];
    base::setEnvironment(environment);
    gsDatabasePath = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    openConnections();
    int left = arguments[3].toInt();
    gcnLookup->setObserver([&left](const db::Sent &sent) {
        if (!sent.statement.startsWith(u"select", Qt::CaseInsensitive) && --left == 0)
            std::raise(SIGKILL);
    });
    bool showFailure = false;
    UpdateDatabase(showFailure);
    return 0;
}
