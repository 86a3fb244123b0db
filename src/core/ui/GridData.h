#pragma once

#include "platform/db/Recordset.h"
#include "platform/grid/GridTypes.h"

#include <QString>

namespace grid {
class GridView;
}

/// Fills a grid from a recordset: a column for each field, with the field's name as heading and
/// as wide as the longest of name and values; a row for each record.
void AssignData(grid::GridView &Grid, const db::Recordset &Rows);
/// Aligns all cells of a column below the heading.
void ColAlign(grid::GridView &Grid, const QString &Column, grid::Align Alignment);
