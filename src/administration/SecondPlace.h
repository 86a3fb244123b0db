#pragma once

#include "core/DailyCopies.h"

#include <QString>
#include <optional>

/// A second place for the day's copy, a share or a stick, to which the last program of the day
/// copies the database when it ends.
namespace administration {

/// The option in which a workstation keeps its folder.
inline constexpr QStringView SecondPlaceOption = u"BACKUP_SECOND_PLACE";
/// The folder that this workstation has set; empty without one. Lookup.
[[nodiscard]] QString secondPlace();

/// What the end of the program has to know when the connections are closed.
struct EndingCopy
{
    QString folder;
    copies::KeepRule rule;
};
/// Nothing when no place is set, or the database is kept by another computer. Lookup.
[[nodiscard]] std::optional<EndingCopy> endingCopy();

/// Copies the database to the second place under today's date, over a copy that an earlier end of
/// today has left, proves it, and prunes old ones. Does nothing while another workstation is
/// working: the last one copies. Closes the connections. Tells the user when it failed.
void copyAtEnd(const EndingCopy &copy);

} // namespace administration
