#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/ChartData.h"
#include "platform/report/paginate/PageDocument.h"

namespace report {

/// A cross-tab from its own upper left corner.
struct CrossTabDrawing
{
    QList<PageItem> items;
    Length height = 0;
    bool isTooNarrow = false; ///< some value is wider than the whole table may be
    bool isCut = false;       ///< lines are left out, since there are more than pages for them
};

/// Draws a cross-tab of this width: a line for each category, a column for each series, as wide as
/// their content. Columns that find no room follow below, with the lines' names anew.
[[nodiscard]] CrossTabDrawing drawCrossTab(const Object &object, const Style &style,
                                           const ChartData &data, Length width);

} // namespace report
