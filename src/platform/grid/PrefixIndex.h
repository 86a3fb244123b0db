#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace grid {

/// Finds the first of many texts that begins with given characters, without regard to case, in
/// logarithmic time: the texts are sorted once, and over the sorted ones lies a tree of the
/// smallest row numbers.
class PrefixIndex
{
public:
    /// The text of each row, in order of the rows.
    explicit PrefixIndex(const std::vector<QString> &texts);

    /// The smallest row whose text begins with the prefix, or -1. An empty prefix fits every row.
    [[nodiscard]] int first(QStringView prefix) const;

private:
    [[nodiscard]] int smallestRow(std::size_t from, std::size_t to) const;

    std::vector<QString> m_texts; ///< case-folded and sorted
    std::vector<int> m_tree;      ///< leaves: the row of each text; above: the smaller child
};

} // namespace grid
