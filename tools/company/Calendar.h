#pragma once

#include <QDate>
#include <QString>
#include <QVariant>
#include <array>

namespace company::sample {

/// The days on which a service may fall due, as the catalogue's table writes them: for instance
/// "days:Mon Tue", "weeks:First Second days:Mon", "months:Nov" or "dom:1 15"; what is not named is
/// open. Days of the month stand alone.
struct Pattern
{
    std::array<bool, 7> days{};    ///< Sunday first
    std::array<bool, 5> weeks{};   ///< First, Second, Third, Fourth, Last
    std::array<bool, 12> months{}; ///< January first
    std::array<int, 5> daysOfMonth{};
    bool byDayOfMonth = false;

    /// Raises base::Error InvalidCall for an unknown word.
    explicit Pattern(const QString &text);
    /// True for a day on which the service may fall due.
    [[nodiscard]] bool matches(QDate date) const;
    /// The date itself when it matches, else the first one after it.
    [[nodiscard]] QDate firstFrom(QDate date) const;
    /// The last matching date before the given one.
    [[nodiscard]] QDate lastBefore(QDate date) const;
};

/// The date a number of intervals later, or earlier for a negative number.
[[nodiscard]] QDate addInterval(QDate date, QChar period, int intervals);
/// About how many days an interval takes.
[[nodiscard]] int approximateDays(QChar period, int interval);

/// The date as a value for the database, Null for an invalid one.
[[nodiscard]] QVariant dateOrNull(QDate date);

/// What a machine's meter showed on each day: never falls, and rises faster in summer.
class Meter
{
public:
    Meter() = default;
    /// perDay: what a day adds in the mean of a year.
    Meter(QDate begin, int start, double perDay);

    /// What it shows on a day; before it began, what it began with.
    [[nodiscard]] int at(QDate date) const;
    /// The first day on which the meter showed at least that value.
    [[nodiscard]] QDate reached(int value) const;

private:
    QDate m_begin;
    int m_start = 0;
    double m_perDay = 0;
};

} // namespace company::sample
