#include "core/ui/CellWrite.h"

#include "core/Gone.h"
#include "core/RecordStore.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/grid/GridModel.h"

using namespace Qt::StringLiterals;

bool writeCell(grid::GridModel &rows, int row, const QString &column, const QVariant &value,
               const std::function<bool(const std::optional<QVariant> &shown)> &write)
{
    std::optional<QVariant> theirs;
    try {
        return write(rows.value(row, column));
    } catch (const record::Conflict &conflict) {
        if (conflict.isGone())
            throw;
        theirs = conflict.differences().front().theirs;
    }
    // As the grid shows them: a crew by its name, not by its key.
    const QVariant old = rows.value(row, column);
    const auto shownAs = [&](const QVariant &each) {
        rows.setValue(row, column, each);
        return rows.text(row, column);
    };
    const QString mine = shownAs(value);
    const QString other = shownAs(*theirs);
    const QString caption = rows.column(column).caption;
    if (base::askYesNo(
            u"Another workstation has changed %1 meanwhile: yours \"%2\", theirs \"%3\". Do you "
            "want to store yours?"_s.arg(caption.isEmpty() ? column : caption, mine, other))) {
        rows.setValue(row, column, old); // until it is written
        return write(std::nullopt);
    }
    return false;
}

namespace {

/// Raises what is no conflict of two notes.
std::optional<QString> written(const QString &note, const QString &shown,
                               const std::function<bool(const std::optional<QVariant> &)> &write)
{
    const auto stored = [&](const std::optional<QVariant> &before) {
        return write(before) ? std::optional(note) : std::nullopt;
    };
    QString theirs;
    try {
        return stored(shown);
    } catch (const record::Conflict &conflict) {
        if (conflict.isGone())
            throw;
        theirs = conflict.differences().front().theirs.toString();
    }
    if (!base::askYesNo(
            u"Another workstation has changed this note meanwhile:\n\n%1\n\nDo you want "
            "to store yours in its place?"_s.arg(theirs)))
        return theirs;
    // Over whatever it is by now: the user has decided.
    return stored(std::nullopt);
}

} // namespace

std::optional<QString>
storeNote(const char *module, const char *procedure, const QString &note, const QString &shown,
          const std::function<bool(const std::optional<QVariant> &shown)> &write)
{
    bool isGone = false;
    const auto stored = telling(module, procedure, std::optional<QString>(), [&] {
        try {
            return written(note, shown, write);
        } catch (const Gone &) {
            isGone = true;
            throw;
        }
    });
    return isGone ? std::optional(note) : stored;
}
