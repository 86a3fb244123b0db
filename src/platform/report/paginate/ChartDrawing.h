#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/ChartData.h"
#include "platform/report/paginate/PageDocument.h"

namespace report {

/// Draws a chart into a frame of the page, as lines, boxes and texts that every output knows.
/// Labels never overlap: those of the categories are turned or thinned, long ones cut with an
/// ellipsis. Without a value there is the frame and the words "No values".
[[nodiscard]] QList<PageItem> drawChart(const Object &object, const Style &style,
                                        const ChartData &data, const QRect &frame);

} // namespace report
