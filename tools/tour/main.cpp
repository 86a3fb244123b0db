#include "app/Program.h"
#include "console/Console.h"
#include "platform/base/Environment.h"
#include "tour/Picture.h"
#include "tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Success = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

/// The size of a common small office screen.
constexpr char Screen[] = R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": 1366,
    "height": 768, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

/// Windows without a display, on a screen of that size, and with the toolkit's own dialogs, which
/// can be worked by clicks and keys.
void takeOwnScreen(const QString &descriptionFile)
{
    QFile file(descriptionFile);
    tour::require(file.open(QIODevice::WriteOnly) && file.write(Screen) > 0,
                  u"%1 can't be written."_s.arg(descriptionFile));
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(descriptionFile));
    qputenv("QT_QPA_PLATFORMTHEME", {});
}

/// Passes on what Qt tells, but for what every screen without a display lacks.
void tell(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(u"This plugin does not support ") && !text.contains(u"XDG_RUNTIME_DIR"))
        QTextStream(stderr) << text << Qt::endl;
}

/// The program in a folder of its own, on a day that doesn't go on.
void takeOwnSurroundings(const QString &folder, QDate today)
{
    base::Environment surroundings;
    surroundings.clock = [today] { return base::wallClock(today, QTime(9, 30)); };
    surroundings.clockIsFixed = true;
    surroundings.applicationFolder = folder + u"/app"_s;
    surroundings.appData = folder + u"/appdata"_s;
    surroundings.computerName = u"TOUR"_s;
    surroundings.registryFile = folder + u"/registry.ini"_s;
    base::setEnvironment(surroundings);
}

/// A sample company in that folder, made as an administrator would. False when that failed, which
/// err says.
bool setUpCompany(QDate today, QTextStream &err)
{
    QString said;
    QTextStream in(&said);
    QTextStream out(&said);
    return console::run({u"quorvantis-console"_s, u"set-up"_s,
                         base::environment().applicationFolder, u"--sample"_s, u"--today"_s,
                         today.toString(Qt::ISODate)},
                        {in, out, err}) == console::Success;
}

/// Of an earlier tour: what this one doesn't leave would pass for its own.
bool clear(const QDir &folder)
{
    bool done = QDir().mkpath(folder.path());
    for (const QString &file :
         folder.entryList({u"[0-9][0-9]-*.png"_s, u"help-*.png"_s, u"stopped.png"_s, u"*.pdf"_s}))
        done = QFile::remove(folder.filePath(file)) && done;
    return done;
}

/// Runs the program under the tour, and answers the exit code of both.
int giveTour(QApplication &application, const QDir &folder, QDate today, QTextStream &out,
             QTextStream &err)
{
    tour::Tour tour(folder, today, out);
    tour::Task whole = tour.run();
    bool ended = false;
    // From within the program's own loop, or that of a box which stops its start.
    QTimer::singleShot(0, &application, [&] { whole.start(); });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &application, [&] {
        if (!whole.isDone() || std::exchange(ended, true))
            return;
        try {
            whole.rethrow();
            QApplication::closeAllWindows();
        } catch (const std::exception &fault) {
            err << "The tour stops behind " << tour.lastPicture() << ": " << fault.what()
                << "\nstopped.png shows the screen as it is." << Qt::endl;
            tour::savePicture(folder.filePath(u"stopped.png"_s));
            QCoreApplication::exit(Failed);
        }
    });
    // The tour's fault must not go through the event loop: it is looked for from outside.
    watch.start(20);
    const int result = app::runProgram(application);
    if (!whole.isDone())
        return Failed;
    if (result == Success)
        tour.requireSecondCopy();
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QTemporaryDir surroundings;
    qInstallMessageHandler(tell);
    try {
        takeOwnScreen(surroundings.filePath(u"screen.json"_s));
        QApplication application(argc, argv);
        QCommandLineParser parser;
        parser.setApplicationDescription(
            u"Does the main job on the real windows of a fresh sample company, and leaves a "
            "picture of each step and the printed files."_s);
        parser.addHelpOption();
        parser.addPositionalArgument(u"folder"_s, u"Where these go (build/tour)."_s, u"[folder]"_s);
        const QCommandLineOption day(u"today"_s, u"The day of the tour, as 2024-03-15."_s,
                                     u"date"_s, QDate::currentDate().toString(Qt::ISODate));
        parser.addOption(day);
        parser.process(application);
        const QDate today = QDate::fromString(parser.value(day), Qt::ISODate);
        if (parser.positionalArguments().size() > 1 || !today.isValid()) {
            err << parser.helpText() << Qt::flush;
            return WrongUsage;
        }
        const QDir folder(parser.positionalArguments().value(0, u"build/tour"_s));
        tour::require(clear(folder), u"The folder \"%1\" can't be used."_s.arg(folder.path()));
        takeOwnSurroundings(surroundings.path(), today);
        if (!setUpCompany(today, err))
            return Failed;
        return giveTour(application, folder, today, out, err);
    } catch (const std::exception &error) {
        err << error.what() << Qt::endl;
        return Failed;
    }
}
