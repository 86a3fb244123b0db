#pragma once

#include <QString>

namespace grid {
class GridView;
}

/// Stores the layout of a form's grid: a row for each column in tblGridSetting. While
/// another program holds the rows they are left as they are. Lookup.
void SaveGridSetting(const QString &FormName, const QString &GridName, const grid::GridView &Grid);
/// Restores it; without stored rows the grid stays as it stands. A stored column that the grid no
/// longer has is reported, and the others are restored. Lookup.
void SetGridSetting(const QString &FormName, const QString &GridName, grid::GridView &Grid);
