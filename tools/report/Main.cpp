#include "report/ReportCommand.h"

#include "platform/base/Environment.h"

#include <QGuiApplication>

int main(int argc, char *argv[])
{
    // Nothing is shown, and the program has to run where no display is.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    base::setEnvironment(base::Environment::ofProcess());
    QTextStream out(stdout);
    QTextStream err(stderr);
    return report_command::run(QGuiApplication::arguments(), out, err);
}
