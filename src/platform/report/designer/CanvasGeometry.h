#pragma once

#include "platform/report/designer/Arrange.h"
#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace report {

/// Where the bands of a layout stand on a canvas: pixels from the upper left corner of all that can
/// be scrolled, at a zoom.
class CanvasGeometry
{
public:
    /// Pixels of the bar below each band, by which its height is drawn.
    static constexpr int BarHeight = 7;
    /// A band takes at least this, so that its name can be read.
    static constexpr int LeastSlot = 15;
    static constexpr int Edge = 10; ///< pixels around the sheet

    /// Takes a layout's page and the heights of its bands; a unit is 1/100 mm, so that the pixels
    /// per unit are the zoom.
    void set(const Layout &layout, double pixelsPerUnit);

    [[nodiscard]] double scale() const { return m_scale; }
    [[nodiscard]] QSize size() const { return m_size; }
    /// The sheet's left edge, and that of what lies between the margins.
    [[nodiscard]] int sheetLeft() const { return Edge; }
    [[nodiscard]] int sheetRight() const { return m_sheetRight; }
    [[nodiscard]] int originX() const { return m_originX; }
    [[nodiscard]] int innerRight() const { return m_innerRight; }
    [[nodiscard]] int bandCount() const { return static_cast<int>(m_tops.size()); }
    /// A band with its true height.
    [[nodiscard]] QRect bandRect(int band) const;
    /// A band with the space that it takes, the bar below left out.
    [[nodiscard]] QRect slotRect(int band) const;
    /// The bar below a band's slot.
    [[nodiscard]] QRect barRect(int band) const;

    /// The band at a height, its bar included; the nearest one beyond the ends, -1 without bands.
    [[nodiscard]] int bandAt(int y) const;
    /// The band whose bar is at a height, -1 for none.
    [[nodiscard]] int barAt(int y) const;
    /// A point in a band's own lengths, from its left margin and top.
    [[nodiscard]] QPoint toBand(int band, QPoint pixels) const;
    /// The way back: from a band's own lengths to pixels.
    [[nodiscard]] QPoint fromBand(int band, QPoint units) const;
    [[nodiscard]] QRect fromBand(int band, const QRect &units) const;
    /// So many pixels as 1/100 mm at this zoom.
    [[nodiscard]] int toUnits(int pixels) const;

private:
    double m_scale = 1;
    QSize m_size;
    int m_originX = 0, m_sheetRight = 0, m_innerRight = 0;
    QList<int> m_tops, m_heights, m_slots;
};

/// The object at a point, the one on top first; nothing where there is none. Narrow ones are found
/// within a few pixels.
[[nodiscard]] std::optional<Place> objectAt(const Layout &layout, const CanvasGeometry &geometry,
                                            QPoint pixels);
/// All objects that a rectangle touches.
[[nodiscard]] QList<Place> objectsIn(const Layout &layout, const CanvasGeometry &geometry,
                                     const QRect &pixels);

/// The eight places by which a frame is drawn, and the edges that each one moves.
struct Handle
{
    QRect place;
    Edges edges;
};
/// The handles of a frame, all in pixels. A frame that is too narrow or too low for eight has those
/// at the middles of its edges, a small one only those at its corners.
[[nodiscard]] QList<Handle> handlesOf(const QRect &frame);

} // namespace report
