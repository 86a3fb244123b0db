#include "console/Console.h"

#include "platform/base/Environment.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    base::setEnvironment(base::Environment::ofProcess());
    QTextStream in(stdin);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return console::run(QCoreApplication::arguments(), {in, out, err});
}
