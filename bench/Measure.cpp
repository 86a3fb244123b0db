#include "Measure.h"

#include "Cycle.h"
#include "core/Session.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace measure {

namespace {

/// Ends what is recorded when a window has been pictured: what it stores on closing doesn't count.
std::function<void()> &pictured()
{
    static std::function<void()> ended;
    return ended;
}

} // namespace

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

Times median(const std::vector<Times> &all)
{
    std::vector<double> processor;
    std::vector<double> clock;
    for (const Times &each : all) {
        processor.push_back(each.processor);
        clock.push_back(each.clock);
    }
    return {median(processor), median(clock)};
}

void printHead()
{
    std::printf("%-44s %-12s %8s %10s %10s %10s\n", "milliseconds of processor time", "company",
                "goal", "measured", "engine", "by clock");
}

void print(const char *what, const QString &company, double goal, const Times &times,
           std::optional<double> bare)
{
    std::printf("%-44s %-12s %8.0f %10.1f ", what, qPrintable(company), goal, times.processor);
    if (bare)
        std::printf("%10.1f ", *bare);
    else
        std::printf("%10s ", "-");
    std::printf("%10.1f%s\n", times.clock, times.processor > goal ? "   over" : "");
    std::fflush(stdout);
}

Company::Company(QString name, const QString &file)
    : m_name(std::move(name))
{
    gsDatabasePath = file;
    db::Target target = databaseTarget();
    target.forcedWrites = false;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    m_bare.emplace(target);
}

Company::~Company()
{
    m_bare.reset();
    closeConnections();
}

double Company::bareTimeOf(const std::function<void()> &job)
{
    Recording data(*gcnData);
    Recording lookup(*gcnLookup);
    const auto stop = [&] {
        data.stop();
        lookup.stop();
    };
    pictured() = stop;
    job();
    pictured() = {};
    stop();
    Replay dataAlone(data, *m_bare);
    Replay lookupAlone(lookup, *m_bare);
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(cycle::processorTime([&] {
            dataAlone.run();
            lookupAlone.run();
        }));
    return median(times);
}

void Company::measure(const char *what, double goal, const std::function<Times()> &job,
                      bool withEngine)
{
    std::optional<double> bare;
    if (withEngine)
        bare = bareTimeOf([&] { (void)job(); });
    else
        (void)job();
    std::vector<Times> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(job());
    print(what, m_name, goal, median(times), bare);
}

Times timesOf(const std::function<void()> &job)
{
    const Watch watch;
    job();
    return watch.read();
}

void inWindow(const std::function<void()> &open, const std::function<void(QDialog &)> &act)
{
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        act(*dialog);
        dialog->done(QDialog::Rejected);
    });
    open();
}

Times openingOf(const std::function<void()> &open)
{
    const Watch watch;
    Times times;
    inWindow(open, [&](QDialog &dialog) {
        (void)dialog.grab();
        times = watch.read();
        if (pictured())
            pictured()();
    });
    return times;
}

} // namespace measure
