#pragma once

#include "platform/report/layout/Layout.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QString>
#include <functional>
#include <variant>

/// Finished pages: everything is placed in whole 1/100 mm from the sheet's upper left corner, and
/// text is broken into lines, so that all renderers draw the same.
namespace report {

/// One line of a text: where it begins, and its baseline.
struct TextLine
{
    QString text;
    Length x = 0;
    Length baseline = 0;
    Length width = 0;

    bool operator==(const TextLine &) const = default;
};

/// A text within its frame.
struct TextItem
{
    QRect frame;
    QList<TextLine> lines;
    Style style;
    /// Written upwards: a line's place is where its baseline begins at the foot.
    bool turned = false;

    bool operator==(const TextItem &) const = default;
};

/// A straight line, its width to both sides of the way between the points.
struct LineItem
{
    QPoint from;
    QPoint to;
    Length width = 20;
    QColor color;

    bool operator==(const LineItem &) const = default;
};

/// A frame, a filled rectangle, or both.
struct BoxItem
{
    QRect frame;
    Length lineWidth = 0; ///< 0 for no frame
    QColor color;
    QColor fill; ///< invalid for none

    bool operator==(const BoxItem &) const = default;
};

struct PictureItem
{
    QRect frame;
    QByteArray data; ///< the file's bytes
    Align align = Align::Left;

    bool operator==(const PictureItem &) const = default;
};

/// The dark bars of a bar code.
struct BarCodeItem
{
    QRect frame;
    QList<QRect> bars;

    bool operator==(const BarCodeItem &) const = default;
};

/// Lines from point to point, or the area within them.
struct ShapeItem
{
    QRect frame; ///< about all points
    QList<QPoint> points;
    bool closed = false;
    Length lineWidth = 20; ///< 0 for no line
    QColor color;
    QColor fill; ///< invalid for none

    bool operator==(const ShapeItem &) const = default;
};

using PageItem = std::variant<TextItem, LineItem, BoxItem, PictureItem, BarCodeItem, ShapeItem>;

/// Moves an item and all that lies in it.
void movePageItem(PageItem &item, QPoint by);

struct Page
{
    int number = 1; ///< of the sheet, from 1
    QList<PageItem> items;

    bool operator==(const Page &) const = default;
};

/// Takes finished pages one after another; False stops the report.
using PageSink = std::function<bool(Page &&page)>;

/// A page as readable text, one item a line, for golden files.
[[nodiscard]] QString pageText(const Page &page);

} // namespace report
