#pragma once

#include <QtGlobal>

namespace company::sample {

/// Random numbers that are the same on every system for one seed, which those of the standard
/// library's distributions are not.
class Random
{
public:
    explicit Random(quint64 seed)
        : m_state(seed)
    {}
    /// A generator of its own for the item of that number, so that one item's rows don't depend on
    /// how many numbers the items before it used.
    [[nodiscard]] static Random of(quint64 seed, quint64 item)
    {
        return Random(Random(seed + item * 0x632BE59BD9B4E019ULL).next());
    }

    quint64 next()
    {
        // splitmix64
        quint64 z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    /// 0 to n - 1.
    int below(int n) { return static_cast<int>(next() % static_cast<quint64>(n)); }
    /// first to last, both possible.
    int between(int first, int last) { return first + below(last - first + 1); }
    /// From 0 up to, but not including, 1.
    double unit() { return static_cast<double>(next() >> 11) / 9007199254740992.0; }
    double between(double low, double high) { return low + unit() * (high - low); }
    /// True in so many cases of a hundred.
    bool percent(int chance) { return below(100) < chance; }
    template<class List>
    /// Some item of a list that has any.
    const auto &pick(const List &list)
    {
        return list[below(static_cast<int>(list.size()))];
    }

private:
    quint64 m_state;
};

} // namespace company::sample
