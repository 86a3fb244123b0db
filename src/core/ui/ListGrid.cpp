#include "core/ui/ListGrid.h"

#include "platform/base/Prompts.h"

namespace {

/// Heading, two rows, and the scroll bar that comes when columns are dragged wider: a form must not
/// grow beyond a small screen then.
constexpr int SmallestHeight = 76;

} // namespace

grid::GridView *makeListGrid(QWidget *parent, const QString &name, const QString &accessibleName,
                             const QList<grid::Column> &columns)
{
    auto *grid = new grid::GridView(parent);
    grid->setObjectName(name);
    grid->setAccessibleName(accessibleName);
    grid->setMinimumHeight(SmallestHeight);
    for (const grid::Column &column : columns)
        grid->rows().addColumn(column);
    QObject::connect(grid, &grid::GridView::entryRefused, grid, [grid](int, const QString &column) {
        if (grid->rows().column(column).editor == grid::Editor::Date)
            base::showMessage(QStringLiteral("Please enter valid date."));
    });
    return grid;
}
