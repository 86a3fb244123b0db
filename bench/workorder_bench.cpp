#include "Cycle.h"
#include "Replay.h"
#include "company/SampleCompany.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "workorders/Board.h"
#include "workorders/DueList.h"
#include "workorders/Generation.h"
#include "workorders/Posting.h"
#include "workorders/Statements.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

/// What the working cycle takes over the large sample company: the board, the list of what is due,
/// generation and posting, each beside the statements that it sends run by the engine alone. Prints
/// milliseconds of processor time and their ratio.
///
///     workorder_bench [DATABASE]
///
/// Works on copies of the database, which is made first when none is given. A given one has to
/// stand as of today.
namespace {

using namespace Qt::StringLiterals;

constexpr int rounds = 7;
constexpr int machines = 1000;
constexpr int orders = 1000;

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void print(const QString &what, double ours, double bare, std::size_t statements)
{
    std::printf("%-52s %8.1f ms   engine alone %8.1f ms   ratio %5.2f   %zu statements\n",
                what.toLocal8Bit().constData(), ours, bare, ours / bare, statements);
    std::fflush(stdout);
}

/// A job that only reads, and tells how many rows it got.
void measureReading(const char *what, db::engine::Attachment &bare,
                    const std::function<qint64()> &job)
{
    qint64 rows = 0;
    Recording recording(*gcnData);
    rows = job();
    recording.stop();
    Replay replay(recording, bare);
    std::vector<double> ours;
    std::vector<double> alone;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(cycle::processorTime([&] { rows = job(); }));
        alone.push_back(cycle::processorTime([&] { replay.run(); }));
    }
    print(u"%1, %2 rows"_s.arg(QLatin1StringView(what)).arg(rows), median(ours), median(alone),
          recording.size());
}

/// A job that writes; the replay works on the copy. False when the job failed.
bool measureWriting(const QString &what, db::engine::Attachment &copy,
                    const std::function<bool()> &job)
{
    bool done = false;
    Recording recording(*gcnData);
    const double ours = cycle::processorTime([&] { done = job(); });
    recording.stop();
    Replay replay(recording, copy);
    const double alone = cycle::processorTime([&] {
        replay.run();
        replay.commit();
    });
    print(what, ours, alone, recording.size());
    return done;
}

void measureLists(db::engine::Attachment &bare, const WorkorderFilter &window)
{
    WorkorderFilter ofCrew = window;
    ofCrew.crewRange = u"1-5"_s;
    measureReading("board", bare, [] { return board::entries().size(); });
    measureReading("list of what is due", bare,
                   [&] { return qint64{workorders::dueList(window).RecordCount()}; });
    measureReading("the same for crews 1 to 5", bare,
                   [&] { return qint64{workorders::dueList(ofCrew).RecordCount()}; });
    measureReading("orders to record", bare, [] {
        return qint64{gcnData->Open(workorders::statements::recordWo()).RecordCount()};
    });
}

QList<qint64> dueMachines(const WorkorderFilter &window)
{
    QList<qint64> ids;
    for (const db::Row row : workorders::dueList(window)) {
        if (row.isNull(u"WorkOrderNo") && ids.size() < machines)
            ids.append(row.integer(u"EquipmentId"));
    }
    return ids;
}

bool measureCycle(const QString &copied, const WorkorderFilter &window)
{
    db::Target target;
    target.file = copied;
    target.forcedWrites = false;
    db::engine::Attachment copy(target);
    const QList<qint64> ids = dueMachines(window);
    QList<qint64> made;
    bool done = measureWriting(u"generating for %1 machines"_s.arg(ids.size()), copy,
                               [&] { return generation::GenerateWorkorder(window, ids, made); });
    QList<qint64> completed;
    done = done && measureWriting(u"making and completing %1 orders"_s.arg(orders), copy, [&] {
               completed = cycle::completedOrders(orders);
               return completed.size() == orders;
           });
    return done && measureWriting(u"posting %1 orders, %2 services"_s.arg(completed.size())
                                      .arg(completed.size() * cycle::servicesOfOrder),
                                  copy, [&] { return posting::PostWorkOrder(completed); });
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.clock = [now = base::wallClock(base::today(), QTime(9, 30))] { return now; };
    environment.clockIsFixed = true;
    base::setEnvironment(environment);

    db::Target target;
    // The disk is not what is measured.
    target.forcedWrites = false;
    target.file = folder.filePath(u"large.fdb"_s);
    if (argc > 1) {
        QFile::copy(QString::fromLocal8Bit(argv[1]), target.file);
    } else {
        std::printf("Making the large sample company, which takes some minutes.\n");
        company::createSampleDatabase(target, base::today(),
                                      company::sample::planFor(company::SampleSize::Large),
                                      company::UsualSeed);
    }
    const QString copy = folder.filePath(u"copy.fdb"_s);
    QFile::copy(target.file, copy);
    gsDatabasePath = target.file;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    const WorkorderFilter window{base::today().addDays(-30), base::today(), {}, {}};
    {
        db::engine::Attachment bare(target);
        measureLists(bare, window);
    }
    const bool done = measureCycle(copy, window);
    closeConnections();
    return done ? 0 : 1;
}
