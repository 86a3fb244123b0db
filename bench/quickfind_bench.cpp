// What a find costs on a large company: opening, up to the first picture, should take less than
// 100 ms, and a keystroke has to fit between two frames of the screen, 16 ms.
//
//     quorvantis-console create-sample large.fdb --large
//     quickfind_bench large.fdb
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/grid/GridView.h"
#include "platform/input/Theme.h"
#include "platform/settings/Registry.h"
#include "reporting/ui/QuickFindEntries.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

struct Find
{
    const char *table;
    const char *field;
    const char *text; ///< typed key by key
};

constexpr Find Machines{"tblEquipment", "UnitNo", "m0123"};
constexpr Find Parts{"tblPart", "PartID", "of-10"};

/// Opens the find, acts in it once it is shown, and closes it. leftOut as in the request.
template<class Act>
void inFind(const Find &find, Act &&act, const QString &leftOut = {})
{
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        act(*dialog);
        dialog->done(QDialog::Rejected);
    });
    benchmark::DoNotOptimize(ShowQuickFind({.field = QString::fromLatin1(find.field),
                                            .label = QString::fromLatin1(find.field),
                                            .table = QString::fromLatin1(find.table),
                                            .form = u"frmEquipment"_s,
                                            .leftOut = leftOut}));
}

double seconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void openFind(benchmark::State &state, const Find &find)
{
    int rows = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        inFind(find, [&](QDialog &dialog) {
            benchmark::DoNotOptimize(dialog.grab());
            state.SetIterationTime(seconds(timer));
            rows = dialog.findChild<grid::GridView *>()->rows().rowCount();
        });
    }
    state.counters["rows"] = rows;
}

/// As when machines are added to a long list: half of them are on it, and so not offered.
void openFindWithoutHalf(benchmark::State &state)
{
    QStringList keys;
    for (const db::Row row : gcnData->Open(u"Select EquipmentID from tblEquipment"_s))
        if (row.index() % 2 == 0)
            keys.append(row.text(u"EquipmentID"));
    const QString leftOut = keys.join(u',');
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        inFind(
            Machines,
            [&](QDialog &dialog) {
                benchmark::DoNotOptimize(dialog.grab());
                state.SetIterationTime(seconds(timer));
            },
            leftOut);
    }
    state.counters["left out"] = static_cast<double>(keys.size());
}
BENCHMARK(openFindWithoutHalf)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(openFind, machines, Machines)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openFind, parts, Parts)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The slowest key of a text, which is mostly the first: it also sorts the column's texts.
void keystroke(benchmark::State &state, const Find &find)
{
    for (auto _ : state) {
        inFind(find, [&](QDialog &dialog) {
            auto *box = dialog.findChild<QLineEdit *>(u"txtSearchText"_s);
            double slowest = 0;
            for (const char *key = find.text; *key; ++key) {
                QElapsedTimer timer;
                timer.start();
                QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, {}, QString(QLatin1Char(*key)));
                QApplication::sendEvent(box, &press);
                benchmark::DoNotOptimize(dialog.grab());
                slowest = std::max(slowest, seconds(timer));
            }
            state.SetIterationTime(slowest);
        });
    }
}
BENCHMARK_CAPTURE(keystroke, machines, Machines)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(keystroke, parts, Parts)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fputs("usage: quickfind_bench FILE\n", stderr);
        return 1;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    theme::install(application);

    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.applicationFolder = folder.path();
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, QString(32, u'0'));
    gsDatabasePath = QString::fromLocal8Bit(argv[1]);
    openConnections();
    benchmark::RunSpecifiedBenchmarks();
    closeConnections();
}
