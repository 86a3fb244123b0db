#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/ChartData.h"
#include "platform/report/paginate/PageDocument.h"

#include <QColor>

namespace report {

/// Measures that the parts of a chart share.
namespace chart {
inline constexpr Length Gap = 80; ///< between texts, and between them and the axes
inline constexpr Length Hairline = 8;
inline constexpr Length CurveWidth = 45;
inline constexpr double LabelShare = 0.3; ///< of the frame's height or width, at most for labels
inline constexpr QColor AxisColor(90, 90, 90);
inline constexpr QColor QuietColor(110, 110, 110);
} // namespace chart

/// What a chart is drawn with: texts of one line, shapes, and the signs of its series.
class ChartCanvas
{
public:
    /// The data must outlive it.
    ChartCanvas(const Style &style, const ChartData &data);

    /// A line of text in a frame of its height, cut where it is too long.
    void addText(const QString &text, const QRect &frame, Align align, const QColor &ink,
                 bool bold = false);
    /// The same written upwards; center: in the middle of the frame, else up to its upper end.
    void addTurned(const QString &text, const QRect &frame, bool center);
    /// An outline of this width, 0 for none; a closed one is filled with the ink.
    void addShape(QList<QPoint> points, bool closed, Length lineWidth, const QColor &ink);
    /// A different shape for each series, so that lines are told apart without their colours.
    void addMarker(int series, QPoint middle);

    QList<PageItem> items;
    const Font font;
    const QColor color;
    const Length line; ///< the height of a line of text

private:
    const ChartData &m_data;
};

/// Draws the key to the series of a chart, where the layout wants it, and takes its room off the
/// plot. What finds no room in it is counted at its end.
void drawLegend(ChartCanvas &canvas, const Chart &layout, const ChartData &data, QRect &plot);

} // namespace report
