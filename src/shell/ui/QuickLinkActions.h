#pragma once

#include <QString>
#include <functional>

/// What the quick links do that is more than opening.
namespace shell {

/// True when everything that a quick link needs has joined: its opening, the find, the board.
[[nodiscard]] bool isQuickLinkJoined(int index);
/// Finds a record, opens it in the form, and begins again when it is closed, until the find comes
/// back blank.
void findAndOpen(const std::function<QString()> &find, const QString &form);
/// Runs the find-and-open loop of a quick link that has one.
void runQuickFindLoop(int index);

} // namespace shell
