#pragma once

#include <QVariant>
#include <functional>
#include <optional>

namespace grid {
class GridModel;
}

/// Writes a cell that the user has changed, by a function that is given what the cell showed and
/// raises record::Conflict when another workstation has stored something else there meanwhile. Then
/// the user chooses between both: the function is called again without what was shown, or the cell
/// takes theirs. False when the change was not written. A row that is gone raises on.
[[nodiscard]] bool
writeCell(grid::GridModel &rows, int row, const QString &column, const QVariant &value,
          const std::function<bool(const std::optional<QVariant> &shown)> &write);

/// The same for a note in a box of its own, with errors told as by telling(). What counts as its
/// text afterwards: the user's or theirs; nothing when it could not be written and can be tried
/// again. A note whose service is gone counts as it is, for there is nothing to be done about it.
[[nodiscard]] std::optional<QString>
storeNote(const char *module, const char *procedure, const QString &note, const QString &shown,
          const std::function<bool(const std::optional<QVariant> &shown)> &write);
