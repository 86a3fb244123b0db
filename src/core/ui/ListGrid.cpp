#include "core/ui/ListGrid.h"

#include "platform/base/Prompts.h"

grid::GridView *makeListGrid(QWidget *parent, const QString &name, const QString &accessibleName,
                             const QList<grid::Column> &columns)
{
    auto *grid = new grid::GridView(parent);
    grid->setObjectName(name);
    grid->setAccessibleName(accessibleName);
    for (const grid::Column &column : columns)
        grid->rows().addColumn(column);
    QObject::connect(grid, &grid::GridView::entryRefused, grid, [grid](int, const QString &column) {
        if (grid->rows().column(column).editor == grid::Editor::Date)
            base::showMessage(QStringLiteral("Please enter valid date."));
    });
    return grid;
}
