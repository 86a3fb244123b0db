#pragma once

#include "platform/grid/GridTypes.h"
#include "workorders/ui/LatenessStyle.h"
#include "workorders/ui/WorkLists.h"

class QPlainTextEdit;
class QPushButton;

namespace input {
class FormBuilder;
}

/// How the two sides of the printing page show services, parts and notes alike.
namespace printlists {

/// The columns of services, with hidden ones behind them.
[[nodiscard]] QList<grid::Column> serviceColumns(const QStringList &hidden);
/// The columns of parts. With a rule the price can be changed.
[[nodiscard]] QList<grid::Column> partColumns(const worklists::Change &priceRule);
/// Colours services by how late they are; the limits have to live as long as the grid.
void styleByDate(grid::GridView &services, const LatenessStyle &lateness);

/// A button to make: where it is kept, its name and its text.
struct Button
{
    QPushButton *&button;
    QString name;
    QString text;
};
/// A grid in a group of its own, with two buttons below it.
void addGridGroup(input::FormBuilder &form, const QString &title, grid::GridView *grid,
                  const Button &first, const Button &second);
/// The box of a note.
[[nodiscard]] QPlainTextEdit *addNote(input::FormBuilder &form, const QString &name);

} // namespace printlists
