#include "administration/CompactDatabase.h"
#include "administration/Restore.h"
#include "core/Session.h"
#include "platform/base/Environment.h"

#include <QCoreApplication>

#include <cstdio>

/// The program beside a test that is killed in the midst of its work: takes the program's folder,
/// "compact" or the backup to restore, and the computer's name, by which the next run finds what
/// this one leaves unfinished. Says so when it begins.
int main(int argc, char *argv[])
{
    using namespace Qt::StringLiterals;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    base::Environment environment = base::Environment::ofProcess();
    environment.applicationFolder = arguments[1];
    environment.appData = arguments[1];
    environment.registryFile = arguments[1] + u"/registry.ini"_s;
    environment.computerName = arguments[3];
    base::setEnvironment(environment);
    gsDatabasePath = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    openConnections();
    const auto begin = [] {
        std::puts("begun");
        std::fflush(stdout);
    };
    if (arguments[2] == u"compact") {
        begin();
        CompactDatabase();
        return 0;
    }
    const administration::Chosen chosen{.file = arguments[2], .passphrase = {}};
    const QByteArray fingerprint = administration::fetchForCheck(chosen);
    const administration::Summary summary =
        administration::summaryOfBackup(administration::temporaryCopy(), chosen.file);
    begin();
    administration::restoreDatabase(chosen, fingerprint, summary);
    return 0;
}
