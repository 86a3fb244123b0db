#include "core/Session.h"
#include "exchange/Import.h"
#include "platform/base/Environment.h"
#include "platform/settings/Registry.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <csignal>

/// A program that imports and may be killed meanwhile: before the statement of that number, 0 for
/// none.
///
///     importer DATABASE PATH STATEMENT
int main(int argc, char *argv[])
{
    using namespace Qt::StringLiterals;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.clock = [] { return base::wallClock({2024, 3, 15}, QTime(9, 30)); };
    environment.clockIsFixed = true;
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    settings::registry().setValue(settings::ProductKey, u"Path"_s, arguments[2]);
    db::Target target;
    target.file = arguments[1];
    target.forcedWrites = false;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    int left = arguments[3].toInt();
    gcnData->setObserver([&](const db::Sent &) {
        if (--left == 0)
            (void)std::raise(SIGKILL);
    });
    const bool done = exchange::Importdata();
    closeConnections();
    return done ? 0 : 1;
}
