#include "Start.h"

#include "Cycle.h"
#include "app/Program.h"
#include "platform/base/Environment.h"
#include "platform/db/Attachment.h"
#include "platform/settings/Registry.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace start {

using namespace Qt::StringLiterals;

namespace {

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// One line of the child: the processor time that it has used by then.
double untilShown(const QProcessEnvironment &environment, double &byClock)
{
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(childArgument)},
                QIODevice::ReadOnly);
    while (!child.canReadLine() && child.waitForReadyRead(60000)) {
    }
    byClock = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const double processor = child.readLine().trimmed().toDouble();
    child.waitForFinished(60000);
    return processor;
}

} // namespace

Result measure(const QString &database, int rounds)
{
    const QTemporaryDir folder;
    const QDir home(folder.path());
    home.mkpath(u"Data/Backup"_s);
    QFile::link(database, home.filePath(u"Data/Quorvantis.mdb"_s));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QUORVANTIS_HOME"_s, home.path());
    environment.insert(u"QUORVANTIS_REGISTRY"_s, home.filePath(u"registry.ini"_s));

    db::Target target;
    target.file = database;
    const db::engine::Attachment holder(target);
    std::vector<double> processor;
    std::vector<double> clock;
    std::vector<double> engine;
    for (int round = -1; round < rounds; ++round) {
        double byClock = 0;
        const double used = untilShown(environment, byClock);
        // The first one makes the workstation's identity, and is not like the others.
        if (round < 0)
            continue;
        processor.push_back(used);
        clock.push_back(byClock);
        engine.push_back(cycle::processorTime([&] {
            const db::engine::Attachment first(target);
            const db::engine::Attachment second(target);
        }));
    }
    return {median(processor), median(clock), median(engine)};
}

int runChild(int argc, char *argv[])
{
    QApplication application(argc, argv);
    return app::runProgram(application, [](QWidget &window) {
        QTimer::singleShot(0, &window, [&window] {
            (void)window.grab();
            std::printf("%.1f\n", static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC);
            std::fflush(stdout);
            QCoreApplication::exit();
        });
    });
}

} // namespace start
