// The goals of speed, each with what was measured and, where the engine has a part in it, what the
// same statements take in the engine alone. docs/testing.md says how to run it.
//
//     goals_bench SMALL LARGE EXTRALARGE     databases of the console's create-sample, of today
//
// Works on copies where it writes. Times are milliseconds of processor time, the median of some
// rounds, since other programs on the computer don't disturb that; the time by the clock stands
// behind, for a computer that does nothing else.
#include "Cycle.h"
#include "Measure.h"
#include "Start.h"
#include "app/Screens.h"
#include "core/Session.h"
#include "core/ui/ScreenCalls.h"
#include "equipment/ui/Entries.h"
#include "platform/base/Environment.h"
#include "platform/grid/GridView.h"
#include "platform/input/Theme.h"
#include "platform/settings/Registry.h"
#include "workorders/Board.h"
#include "workorders/DueList.h"
#include "workorders/Posting.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace measure;

namespace {

void find(const QString &leftOut = {})
{
    (void)screenCalls().ShowQuickFind({.field = u"UnitNo"_s,
                                       .label = u"Unit No"_s,
                                       .table = u"tblEquipment"_s,
                                       .form = u"frmEquipment"_s,
                                       .leftOut = leftOut});
}

QString everySecondMachine()
{
    QStringList keys;
    for (const db::Row row : gcnData->Open(u"Select EquipmentID from tblEquipment"_s))
        if (row.index() % 2 == 0)
            keys.append(row.text(u"EquipmentID"));
    return keys.join(u',');
}

void waitForAllRows(const QDialog &dialog)
{
    const grid::GridModel &rows = dialog.findChild<grid::GridView *>()->rows();
    QElapsedTimer quiet;
    int last = -1;
    while (last != rows.rowCount() || quiet.elapsed() < 300) {
        if (last != rows.rowCount()) {
            last = rows.rowCount();
            quiet.start();
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

/// The slowest of the keys of a text, with the picture that follows.
Times slowestKey(bool afterAllRows)
{
    Times slowest;
    inWindow([] { find(); },
             [&](QDialog &dialog) {
                 if (afterAllRows)
                     waitForAllRows(dialog);
                 (void)dialog.grab();
                 auto *box = dialog.findChild<QLineEdit *>(u"txtSearchText"_s);
                 for (const char *key = "m0123"; *key; ++key) {
                     const Watch watch;
                     QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, {},
                                     QString(QLatin1Char(*key)));
                     QApplication::sendEvent(box, &press);
                     (void)dialog.grab();
                     const Times times = watch.read();
                     slowest = {std::max(slowest.processor, times.processor),
                                std::max(slowest.clock, times.clock)};
                 }
             });
    return slowest;
}

void measureLists(Company &company)
{
    company.measure("board", 40, [] { return timesOf([] { (void)board::entries(); }); });
    const WorkorderFilter window{base::today().addDays(-30), base::today(), {}, {}};
    company.measure("list of what is due", 40,
                    [&] { return timesOf([&] { (void)workorders::dueList(window); }); });
}

void measureFind(Company &company)
{
    company.measure("quick find of machines, opened", 150,
                    [] { return openingOf([] { find(); }); });
    const QString half = everySecondMachine();
    company.measure("the same, half of them left out", 150,
                    [&] { return openingOf([&] { find(half); }); });
    company.measure(
        "a key typed in it", 16, [] { return slowestKey(true); }, false);
    company.measure(
        "a key typed as soon as it is shown", 16, [] { return slowestKey(false); }, false);
}

void measureMachine(Company &company)
{
    const qint64 machine = gcnData->Open(u"Select max(EquipmentID) as Last from tblEquipment"_s)
                               .row(0)
                               .integer(u"Last");
    company.measure("a machine's screen, first page", 60, [&] {
        return openingOf([&] { (void)ShowEquipmentDetail(Mode::Browse, machine); });
    });
}

/// On a copy of the file, since orders have to be made first; another copy is for the engine.
void measurePosting(const QString &name, const QString &file)
{
    constexpr int orders = 1000;
    const QTemporaryDir folder(QFileInfo(file).absolutePath() + u"/goals"_s);
    const QString ours = folder.filePath(u"ours.fdb"_s);
    const QString engines = folder.filePath(u"engines.fdb"_s);
    QList<qint64> completed;
    if (QFile::copy(file, ours)) {
        const Company company(name, ours);
        completed = cycle::completedOrders(orders);
    }
    if (completed.isEmpty() || !QFile::copy(ours, engines)) {
        std::printf("%s can't be copied: posting is left out\n", qPrintable(file));
        return;
    }
    const Company company(name, ours);
    Recording recording(*gcnData);
    const Watch watch;
    (void)posting::PostWorkOrder(completed);
    const Times times = watch.read();
    recording.stop();
    db::Target target;
    target.file = engines;
    target.forcedWrites = false;
    db::engine::Attachment bare(target);
    Replay replay(recording, bare);
    print("posting 1,000 orders with 4,000 services", name, 400, times, cycle::processorTime([&] {
              replay.run();
              replay.commit();
          }));
}

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 2 && qstrcmp(argv[1], start::childArgument) == 0)
        return start::runChild(argc, argv);
    QApplication application(argc, argv);
    if (argc != 4) {
        std::fputs("usage: goals_bench SMALL LARGE EXTRALARGE\n", stderr);
        return 1;
    }
    const auto file = [&](int number) {
        return QFileInfo(QString::fromLocal8Bit(argv[number])).absoluteFilePath();
    };
    printHead();
    for (const auto &[name, number, goal] :
         {std::tuple(u"small"_s, 1, 200.0), {u"extra large"_s, 3, 500.0}}) {
        const start::Result result = start::measure(file(number), rounds);
        print("start up to the main window", name, goal, {result.processor, result.clock},
              result.engine);
    }

    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.applicationFolder = folder.path();
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, QString(32, u'0'));
    theme::install(application);
    app::joinScreens();
    gRights = {};
    for (const auto &[name, number] : {std::pair(u"large"_s, 2), {u"extra large"_s, 3}}) {
        {
            Company company(name, file(number));
            measureLists(company);
            measureFind(company);
            measureMachine(company);
        }
        measurePosting(name, file(number));
    }
    return 0;
}
