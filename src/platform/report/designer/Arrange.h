#pragma once

#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QPoint>
#include <QRect>

/// Bringing objects into line. What goes by one object goes by the lead of the selection.
namespace report {

enum class AlignEdge { Left, Center, Right, Top, Middle, Bottom };
enum class Direction { Across, Down };
enum class SameSize { Width, Height, Both };

/// Brings an edge or the middle of each object to that of the lead; sizes stay.
void align(Layout &layout, const Selection &selection, AlignEdge edge);
/// Makes the gaps between three objects or more equal; the outer two stay.
void distribute(Layout &layout, const Selection &selection, Direction direction);
/// Gives each object the width, the height or both of the lead.
void makeSameSize(Layout &layout, const Selection &selection, SameSize size);
/// Moves objects within their bands, by 1/100 mm as all ways and frames here.
void moveBy(Layout &layout, const QList<Place> &places, QPoint by);
/// Makes objects wider and higher by so much, but never smaller than nothing.
void growBy(Layout &layout, const QList<Place> &places, QPoint by);

/// An object's frame; that of a line with its ends in any order.
[[nodiscard]] QRect frameOf(const Object &object);
/// The frame around objects of one layout, each in its band's coordinates.
[[nodiscard]] QRect frameAround(const Layout &layout, const QList<Place> &places);

/// Which edges of a frame are drawn along.
struct Edges
{
    bool left = false, top = false, right = false, bottom = false;
    [[nodiscard]] bool isMove() const { return !left && !top && !right && !bottom; }
};

/// A frame that is moved, or whose edges are drawn along; no edge passes its opposite.
[[nodiscard]] QRect dragged(const QRect &frame, const Edges &edges, QPoint by);
/// Fits an object to a new place of the frame that it is drawn along with.
void fitInto(Object &object, const QRect &from, const QRect &to);

} // namespace report
