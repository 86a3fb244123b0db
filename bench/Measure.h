#pragma once

#include "Replay.h"

#include <QElapsedTimer>
#include <QString>

#include <ctime>
#include <functional>
#include <optional>
#include <vector>

class QDialog;

/// What the programs share that measure goals: times, one line of a table for each goal, and the
/// company whose statements the engine runs once more alone.
namespace measure {

inline constexpr int rounds = 7;

/// Milliseconds.
struct Times
{
    double processor = 0; ///< of all threads
    double clock = 0;
};

/// A stopwatch of both.
class Watch
{
public:
    Watch() { m_timer.start(); }
    [[nodiscard]] Times read() const
    {
        return {static_cast<double>(std::clock() - m_begin) * 1000 / CLOCKS_PER_SEC,
                static_cast<double>(m_timer.nsecsElapsed()) / 1e6};
    }

private:
    std::clock_t m_begin = std::clock();
    QElapsedTimer m_timer;
};

[[nodiscard]] double median(std::vector<double> values);
[[nodiscard]] Times median(const std::vector<Times> &all);
[[nodiscard]] Times timesOf(const std::function<void()> &job);

void printHead();
void print(const char *what, const QString &company, double goal, const Times &times,
           std::optional<double> bare = {});

/// A company that is measured, open for as long as this lives.
class Company
{
public:
    Company(QString name, const QString &file);
    ~Company();
    Company(const Company &) = delete;
    Company &operator=(const Company &) = delete;

    [[nodiscard]] const QString &name() const { return m_name; }
    /// What the statements that a job sends take in the engine alone.
    [[nodiscard]] double bareTimeOf(const std::function<void()> &job);
    /// A job that tells by itself what is to be counted.
    void measure(const char *what, double goal, const std::function<Times()> &job,
                 bool withEngine = true);

private:
    QString m_name;
    std::optional<db::engine::Attachment> m_bare;
};

/// Opens a modal window, acts in it as soon as it is shown, and closes it.
void inWindow(const std::function<void()> &open, const std::function<void(QDialog &)> &act);
/// Opening a modal window, up to its first picture.
[[nodiscard]] Times openingOf(const std::function<void()> &open);

} // namespace measure
