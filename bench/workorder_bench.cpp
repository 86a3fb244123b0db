#include "core/Session.h"
#include "core/database/CreateDatabase.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "workorders/Board.h"
#include "workorders/Generation.h"
#include "workorders/Posting.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

/// What the working cycle takes over the large sample company: the board, the list of what is due,
/// generation and posting. Prints medians in milliseconds, and how many statements a step sends.
///
///     workorder_bench [DATABASE]
///
/// Works on a copy of the database, which is made first when none is given.
namespace {

using namespace Qt::StringLiterals;

constexpr int rounds = 5;
constexpr int machines = 1000;
const QDate today(2024, 3, 15);

double milliseconds(const std::function<void()> &job)
{
    QElapsedTimer timer;
    timer.start();
    job();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void print(const char *what, std::vector<double> times, qint64 size)
{
    std::ranges::sort(times);
    std::printf("%-44s %9.1f ms  %8lld\n", what, times[times.size() / 2],
                static_cast<long long>(size));
    std::fflush(stdout);
}

/// Statements of a job, counted as they are sent.
int statementsOf(const std::function<void()> &job)
{
    int count = 0;
    gcnData->setObserver([&count](const QString &) { ++count; });
    job();
    gcnData->setObserver({});
    return count;
}

void measureLists(const WorkorderFilter &window, const WorkorderFilter &ofCrew)
{
    const auto rows = [](const char *what, const std::function<qint64()> &read) {
        std::vector<double> times;
        qint64 size = 0;
        for (int round = 0; round < rounds; ++round)
            times.push_back(milliseconds([&] { size = read(); }));
        print(what, times, size);
    };
    rows("board, entries", [] { return board::entries().size(); });
    rows("list of what is due, rows", [&] {
        return qint64{gcnData->Open(workorders::statements::printWo(window)).RecordCount()};
    });
    rows("the same for crews 1 to 5, rows", [&] {
        return qint64{gcnData->Open(workorders::statements::printWo(ofCrew)).RecordCount()};
    });
    rows("orders to record, rows",
         [] { return qint64{gcnData->Open(workorders::statements::recordWo()).RecordCount()}; });
}

QList<qint64> dueMachines(const WorkorderFilter &window)
{
    QList<qint64> ids;
    for (const db::Row row : gcnData->Open(workorders::statements::printWo(window))) {
        if (row.isNull(u"WorkOrderNo") && ids.size() < machines)
            ids.append(row.integer(u"EquipmentId"));
    }
    return ids;
}

bool measureCycle(const WorkorderFilter &window)
{
    const QList<qint64> ids = dueMachines(window);
    QList<qint64> orders;
    bool done = true;
    int statements = 0;
    const double generating = milliseconds([&] {
        statements =
            statementsOf([&] { done = generation::GenerateWorkorder(window, ids, orders); });
    });
    print("generating for machines", {generating}, ids.size());
    print("  statements sent, orders made", {double(statements)}, orders.size());
    if (!done)
        return false;

    gcnData->Execute(u"Update tblWoServiceUsed set CountValue = 100000 where CountValue is Null"_s);
    for (const qint64 order : orders)
        done = recording::UpdateWorkorder(order, today) && done;
    qint64 services = 0;
    const double posting = milliseconds([&] {
        statements = statementsOf([&] {
            done = posting::PostWorkOrder(orders, [&](int, int all) { services = all; }) && done;
        });
    });
    print("posting of services", {posting}, services);
    print("  statements sent, orders posted", {double(statements)}, orders.size());
    return done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.clock = [] { return base::wallClock(today, QTime(9, 30)); };
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
        company::createSampleDatabase(target, today, company::SampleSize::Large,
                                      company::UsualSeed);
    }
    gsDatabasePath = target.file;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    const WorkorderFilter window{today.addDays(-30), today, {}, {}};
    WorkorderFilter ofCrew = window;
    ofCrew.crewRange = u"1-5"_s;
    measureLists(window, ofCrew);
    const bool done = measureCycle(window);
    closeConnections();
    return done ? 0 : 1;
}
