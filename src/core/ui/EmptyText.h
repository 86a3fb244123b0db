#pragma once

#include "platform/grid/GridView.h"

/// Says in the middle of a grid, as long as it has no rows, why there is nothing to see.
void showWhenEmpty(grid::GridView &grid, const QString &words);
