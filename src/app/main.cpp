#include "app/PrivateServer.h"
#include "app/Program.h"

#include <QApplication>
#include <algorithm>

int main(int argc, char *argv[])
{
    // The command line configures nothing, so the toolkit doesn't get to see it either.
    int programNameOnly = std::min(argc, 1);
    if (qEnvironmentVariable("QT_QPA_PLATFORM").startsWith(u"vnc"))
        app::servePrivately(qgetenv("QUORVANTIS_VNC_SOCKET"));
    QApplication application(programNameOnly, argv);
    return app::runProgram(application);
}
