#include "platform/grid/PrefixIndex.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace grid {

PrefixIndex::PrefixIndex(const std::vector<QString> &texts)
{
    const std::size_t count = texts.size();
    std::vector<QString> folded;
    folded.reserve(count);
    for (const QString &text : texts)
        folded.push_back(text.toCaseFolded());
    std::vector<int> rows(count);
    std::iota(rows.begin(), rows.end(), 0);
    // Sorted, all texts with one beginning stand together; the tree over them finds the one that
    // was loaded first.
    std::sort(rows.begin(), rows.end(), [&folded](int left, int right) {
        return folded[static_cast<std::size_t>(left)] < folded[static_cast<std::size_t>(right)];
    });
    m_texts.reserve(count);
    for (const int row : rows)
        m_texts.push_back(std::move(folded[static_cast<std::size_t>(row)]));
    m_tree.resize(2 * count);
    std::copy(rows.begin(), rows.end(), m_tree.begin() + static_cast<std::ptrdiff_t>(count));
    // The leaves begin at count; a node stands at half the number of its two children.
    for (std::size_t node = count; node-- > 1;)
        m_tree[node] = std::min(m_tree[2 * node], m_tree[2 * node + 1]);
}

int PrefixIndex::first(QStringView prefix) const
{
    const QString folded = prefix.toString().toCaseFolded();
    const auto from = std::lower_bound(m_texts.begin(), m_texts.end(), folded);
    // Texts with the prefix stand together, right behind all that are smaller than it.
    const auto to = std::partition_point(
        from, m_texts.end(), [&folded](const QString &text) { return text.startsWith(folded); });
    if (from == to)
        return -1;
    return smallestRow(static_cast<std::size_t>(from - m_texts.begin()),
                       static_cast<std::size_t>(to - m_texts.begin()));
}

int PrefixIndex::smallestRow(std::size_t from, std::size_t to) const
{
    int smallest = std::numeric_limits<int>::max();
    for (from += m_texts.size(), to += m_texts.size(); from < to; from /= 2, to /= 2) {
        if (from % 2 == 1)
            smallest = std::min(smallest, m_tree[from++]);
        if (to % 2 == 1)
            smallest = std::min(smallest, m_tree[--to]);
    }
    return smallest;
}

} // namespace grid
