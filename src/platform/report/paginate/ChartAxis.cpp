#include "platform/report/paginate/ChartAxis.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

/// What lies this near to a tick, in steps, lies on it.
constexpr double Near = 1e-9;
/// Values nearer to each other than this part of them are one, and so are zero and what is smaller.
constexpr double Same = 1e-12;
constexpr double Smallest = 1e-200;

} // namespace

ChartAxis::ChartAxis(double least, double largest, int mostSteps, bool whole)
    : m_least(std::min(least, largest))
    , m_largest(std::max(least, largest))
{
    // A flat line stands between two ticks.
    const double farthest = std::max(std::abs(m_least), std::abs(m_largest));
    if (m_largest - m_least <= std::max(Smallest, Same * farthest)) {
        if (m_largest > Smallest)
            // Of a single value the axis begins at zero, where bars stand.
            m_least = 0;
        else if (m_least < -Smallest)
            m_largest = 0;
        else
            m_largest = 1;
    }
    const double wanted = (m_largest - m_least) / std::max(1, mostSteps);
    m_power = static_cast<int>(std::floor(std::log10(wanted)));
    // Ticks at half a service say nothing.
    if (whole && m_power < 0)
        m_power = 0;
    cover();
    while (m_last - m_first > std::max(1, mostSteps))
        widen();
}

double ChartAxis::step() const
{
    return tick(-m_first + 1);
}

/// Reckoned in whole numbers as far as they go, so that 3 steps of 0.1 are 0.3.
double ChartAxis::tick(qint64 number) const
{
    const double count = static_cast<double>(m_first + number) * m_digit;
    return m_power >= 0 ? count * std::pow(10.0, m_power) : count / std::pow(10.0, -m_power);
}

void ChartAxis::widen()
{
    if (m_digit == 1) {
        m_digit = 2;
    } else if (m_digit == 2) {
        m_digit = 5;
    } else {
        m_digit = 1;
        ++m_power;
    }
    cover();
}

void ChartAxis::cover()
{
    m_first = 0;
    const double one = step();
    const auto first = static_cast<qint64>(std::floor(m_least / one + Near));
    // At least one step, also where all values lie on one tick.
    m_last = std::max(first + 1, static_cast<qint64>(std::ceil(m_largest / one - Near)));
    m_first = first;
}

} // namespace report
