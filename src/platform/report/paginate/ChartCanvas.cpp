#include "platform/report/paginate/ChartCanvas.h"

#include "platform/report/paginate/TextFlow.h"

#include <QPolygon>

namespace report {
namespace {

constexpr Length MarkerSize = 70; ///< from the middle of a marker to its edge

Length lineHeightOf(const Font &font)
{
    Style style;
    style.font = font;
    return flowHeight({TextLine()}, style);
}

} // namespace

ChartCanvas::ChartCanvas(const Style &style, const ChartData &data)
    : font(style.font)
    , color(style.color)
    , line(lineHeightOf(style.font))
    , m_data(data)
{}

void ChartCanvas::addText(const QString &text, const QRect &frame, Align align, const QColor &ink,
                          bool bold)
{
    Style style;
    style.font = font;
    style.font.bold |= bold;
    style.color = ink;
    style.align = align;
    const QString shown = elidedText(text, style.font, frame.width());
    const Length width = textWidth(shown, style.font);
    const Length room = frame.width() - width;
    TextLine shownLine{shown, frame.x(), frame.y() - lineTop(TextLine(), style), width};
    shownLine.x += align == Align::Left ? 0 : align == Align::Center ? room / 2 : room;
    items.append(TextItem{frame, {shownLine}, style});
}

void ChartCanvas::addTurned(const QString &text, const QRect &frame, bool center)
{
    Style style;
    style.font = font;
    style.color = color;
    // The words run upwards, so the frame's height is the room that they have.
    const QString shown = elidedText(text, font, frame.height());
    const Length width = textWidth(shown, font);
    const Length from = center ? frame.y() + (frame.height() + width) / 2 : frame.y() + width;
    items.append(TextItem{frame,
                          {TextLine{shown, frame.x() - lineTop(TextLine(), style), from, width}},
                          style,
                          true});
}

void ChartCanvas::addMarker(int series, QPoint middle)
{
    // Series that follow each other differ in shape, so that they can be told apart in black too.
    static const QList<QList<QPointF>> Shapes{{{-0.4, -0.9},
                                               {0.4, -0.9},
                                               {0.9, -0.4},
                                               {0.9, 0.4},
                                               {0.4, 0.9},
                                               {-0.4, 0.9},
                                               {-0.9, 0.4},
                                               {-0.9, -0.4}},
                                              {{-0.8, -0.8}, {0.8, -0.8}, {0.8, 0.8}, {-0.8, 0.8}},
                                              {{0, -1.1}, {1, 0.8}, {-1, 0.8}},
                                              {{0, -1.2}, {1.2, 0}, {0, 1.2}, {-1.2, 0}},
                                              {{0, 1.1}, {1, -0.8}, {-1, -0.8}}};
    QList<QPoint> points;
    for (const QPointF &corner : Shapes[series % Shapes.size()])
        points.append(middle + (corner * MarkerSize).toPoint());
    addShape(std::move(points), true, 0, m_data.series[series].color);
}

void ChartCanvas::addShape(QList<QPoint> points, bool closed, Length lineWidth, const QColor &ink)
{
    const QRect frame = QPolygon(points).boundingRect();
    items.append(
        ShapeItem{frame, std::move(points), closed, lineWidth, ink, closed ? ink : QColor()});
}

} // namespace report
