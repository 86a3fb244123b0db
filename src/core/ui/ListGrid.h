#pragma once

#include "platform/grid/GridView.h"

/// A grid with these columns, its name for tests and layouts, and its name for assistive tools. It
/// tells the user when what he typed is no date.
[[nodiscard]] grid::GridView *makeListGrid(QWidget *parent, const QString &name,
                                           const QString &accessibleName,
                                           const QList<grid::Column> &columns);
