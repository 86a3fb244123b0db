#pragma once

#include <QtGlobal>

namespace report {

/// An axis of values with ticks at round numbers: 1, 2 or 5 times a power of ten apart.
class ChartAxis
{
public:
    /// From at or below the least value to at or above the largest, with as many steps as there
    /// may be or fewer. Whole: no step is less than 1.
    ChartAxis(double least, double largest, int mostSteps, bool whole);

    [[nodiscard]] int ticks() const { return static_cast<int>(m_last - m_first) + 1; }
    /// The value at a tick, from 0.
    [[nodiscard]] double tick(qint64 number) const;
    [[nodiscard]] double low() const { return tick(0); }
    [[nodiscard]] double high() const { return tick(ticks() - 1); }
    /// How far up a value stands, 0 at the low end and 1 at the high one.
    [[nodiscard]] double share(double value) const { return (value - low()) / (high() - low()); }
    /// The next wider step, for labels that a step apart would read the same.
    void widen();

private:
    [[nodiscard]] double step() const;
    void cover();

    double m_least;
    double m_largest;
    int m_digit = 1;    ///< 1, 2 or 5
    int m_power = 0;    ///< of ten
    qint64 m_first = 0; ///< in steps
    qint64 m_last = 1;
};

} // namespace report
