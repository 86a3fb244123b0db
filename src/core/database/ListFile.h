#pragma once

#include <QString>
#include <vector>

namespace company {

/// A row of the lookup lists.
struct ListItem
{
    int id = 0;
    int parent = 0; ///< 0 for the row of a list itself, so that no search for a parent finds it
    QString name;

    bool operator==(const ListItem &) const = default;
};

/// Reads the outline of data/schema/lists.txt. Lists have the numbers that stand there; their
/// members are numbered in the order of the text from firstMember on. Raises base::Error
/// InvalidCall, with the line's number, for a line that fits nowhere.
[[nodiscard]] std::vector<ListItem> parseLists(QStringView text, int firstMember);

} // namespace company
