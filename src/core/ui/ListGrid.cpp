#include "core/ui/ListGrid.h"

grid::GridView *makeListGrid(QWidget *parent, const QString &name, const QString &accessibleName,
                             const QList<grid::Column> &columns)
{
    auto *grid = new grid::GridView(parent);
    grid->setObjectName(name);
    grid->setAccessibleName(accessibleName);
    for (const grid::Column &column : columns)
        grid->rows().addColumn(column);
    return grid;
}
