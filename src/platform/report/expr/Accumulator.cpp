#include "platform/report/expr/Expression.h"
#include "platform/report/expr/Values.h"

#include <cmath>

namespace report {

/// Beyond this the exact part of a sum takes no more.
constexpr qint64 Full = Q_INT64_C(4'000'000'000'000'000'000);

void Accumulator::add(const Accumulator &other)
{
    if (other.m_count == 0)
        return;
    if (m_function == AggregateFunction::Sum || m_function == AggregateFunction::Average) {
        m_rest += other.m_rest;
        if (std::abs(m_tenThousandths) < Full)
            m_tenThousandths += other.m_tenThousandths;
        else
            m_rest += static_cast<double>(other.m_tenThousandths) / 10000;
        m_count += other.m_count;
        return;
    }
    const qint64 count = m_count + other.m_count;
    // Its value counts as one more, which is put right below.
    if (m_function != AggregateFunction::Count)
        add(other.m_value);
    m_count = count;
}

void Accumulator::add(const QVariant &value)
{
    if (value.isNull())
        return;
    ++m_count;
    switch (m_function) {
    case AggregateFunction::Count:
        return;
    case AggregateFunction::First:
        if (m_count == 1)
            m_value = value;
        return;
    case AggregateFunction::Last:
        m_value = value;
        return;
    case AggregateFunction::Minimum:
        if (m_count == 1 || compareValues(value, m_value) < 0)
            m_value = value;
        return;
    case AggregateFunction::Maximum:
        if (m_count == 1 || compareValues(value, m_value) > 0)
            m_value = value;
        return;
    case AggregateFunction::Sum:
    case AggregateFunction::Average:
        break;
    }
    const double scaled = value.toDouble() * 10000;
    const double whole = std::nearbyint(scaled);
    // What four decimals hold is summed in whole numbers; binary fractions would drift. The nearest
    // binary fraction of such a value is off by no more than this.
    const double tolerance = 1e-9 + 4.5e-16 * std::abs(whole);
    if (std::abs(whole) < 1e15 && std::abs(scaled - whole) <= tolerance &&
        std::abs(m_tenThousandths) < Full)
        m_tenThousandths += static_cast<qint64>(whole);
    else
        m_rest += value.toDouble();
}

void Accumulator::reset()
{
    *this = Accumulator(m_function);
}

QVariant Accumulator::result() const
{
    if (m_function == AggregateFunction::Count)
        return m_count;
    if (m_count == 0)
        return {};
    if (m_function != AggregateFunction::Sum && m_function != AggregateFunction::Average)
        return m_value;
    const double sum = static_cast<double>(m_tenThousandths) / 10000 + m_rest;
    return numberValue(m_function == AggregateFunction::Sum ? sum
                                                            : sum / static_cast<double>(m_count));
}

} // namespace report
