#include "platform/report/designer/CanvasGeometry.h"

#include <cmath>

namespace report {
namespace {

/// A hair line is hit within so many pixels.
constexpr int NearPixels = 4;
constexpr int HandlePixels = 7;

} // namespace

void CanvasGeometry::set(const Layout &layout, double pixelsPerUnit)
{
    m_scale = pixelsPerUnit;
    const auto pixels = [&](Length length) {
        return static_cast<int>(std::lround(length * m_scale));
    };
    m_originX = Edge + pixels(layout.page.left);
    m_sheetRight = Edge + pixels(layout.page.width());
    m_innerRight = m_originX + pixels(layout.page.innerWidth());
    m_tops.clear();
    m_heights.clear();
    m_slots.clear();
    int y = Edge;
    for (const Band &band : layout.bands) {
        m_tops.append(y);
        m_heights.append(pixels(band.height));
        // A band of no height still has to be seen, named and dropped into.
        m_slots.append(qMax(LeastSlot, m_heights.last()));
        y += m_slots.last() + BarHeight;
    }
    m_size = {m_sheetRight + Edge, y + Edge};
}

QRect CanvasGeometry::bandRect(int band) const
{
    return {Edge, m_tops[band], m_sheetRight - Edge, m_heights[band]};
}

QRect CanvasGeometry::slotRect(int band) const
{
    return {Edge, m_tops[band], m_sheetRight - Edge, m_slots[band]};
}

QRect CanvasGeometry::barRect(int band) const
{
    return {Edge, m_tops[band] + m_slots[band], m_sheetRight - Edge, BarHeight};
}

int CanvasGeometry::bandAt(int y) const
{
    for (int band = 0; band < m_tops.size(); ++band)
        if (y < m_tops[band] + m_slots[band] + BarHeight)
            return band;
    // What is dropped below the last band means that one.
    return bandCount() - 1;
}

int CanvasGeometry::barAt(int y) const
{
    for (int band = 0; band < m_tops.size(); ++band) {
        const QRect bar = barRect(band);
        if (y >= bar.top() && y <= bar.bottom())
            return band;
    }
    return -1;
}

QPoint CanvasGeometry::toBand(int band, QPoint pixels) const
{
    return {toUnits(pixels.x() - m_originX), toUnits(pixels.y() - m_tops[band])};
}

QPoint CanvasGeometry::fromBand(int band, QPoint units) const
{
    return {m_originX + static_cast<int>(std::lround(units.x() * m_scale)),
            m_tops[band] + static_cast<int>(std::lround(units.y() * m_scale))};
}

QRect CanvasGeometry::fromBand(int band, const QRect &units) const
{
    // Both corners are rounded, not a corner and the size: frames that touch on paper touch here
    // too.
    const QPoint from = fromBand(band, units.topLeft());
    const QPoint to = fromBand(band, QPoint(units.x() + units.width(), units.y() + units.height()));
    return {from, QSize(to.x() - from.x(), to.y() - from.y())};
}

int CanvasGeometry::toUnits(int pixels) const
{
    return static_cast<int>(std::lround(pixels / m_scale));
}

std::optional<Place> objectAt(const Layout &layout, const CanvasGeometry &geometry, QPoint pixels)
{
    // An object may reach beyond its band, so those of all bands are asked.
    // What is drawn last lies above the others and is hit first.
    for (int band = static_cast<int>(layout.bands.size()) - 1; band >= 0; --band) {
        const QList<Object> &objects = layout.bands[band].objects;
        for (int object = static_cast<int>(objects.size()) - 1; object >= 0; --object) {
            QRect frame = geometry.fromBand(band, frameOf(objects[object]));
            const int across = frame.width() < NearPixels ? NearPixels : 0;
            const int down = frame.height() < NearPixels ? NearPixels : 0;
            frame.adjust(-across, -down, across + 1, down + 1);
            if (frame.contains(pixels))
                return Place{band, object};
        }
    }
    return std::nullopt;
}

QList<Place> objectsIn(const Layout &layout, const CanvasGeometry &geometry, const QRect &pixels)
{
    QList<Place> places;
    for (int band = 0; band < layout.bands.size(); ++band) {
        const QList<Object> &objects = layout.bands[band].objects;
        for (int object = 0; object < objects.size(); ++object) {
            const QRect frame = geometry.fromBand(band, frameOf(objects[object]));
            if (frame.adjusted(0, 0, 1, 1).intersects(pixels.normalized()))
                places.append({band, object});
        }
    }
    return places;
}

QList<Handle> handlesOf(const QRect &frame)
{
    const int left = frame.x();
    const int top = frame.y();
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    const int middleX = (left + right) / 2;
    const int middleY = (top + bottom) / 2;
    const auto at = [](int x, int y) {
        return QRect(x - HandlePixels / 2, y - HandlePixels / 2, HandlePixels, HandlePixels);
    };
    const bool isWide = frame.width() > 2 * HandlePixels;
    const bool isHigh = frame.height() > 2 * HandlePixels;
    QList<Handle> handles;
    // The corners come first: where handles lie over each other, the first one that is hit is
    // taken.
    if (isWide == isHigh) {
        handles.append({at(right, bottom), {false, false, true, true}});
        handles.append({at(left, top), {true, true, false, false}});
        handles.append({at(right, top), {false, true, true, false}});
        handles.append({at(left, bottom), {true, false, false, true}});
    }
    // The ends of a low frame, as most columns are, draw its width: corners find no room there.
    if (isWide || isHigh) {
        handles.append({at(left, middleY), {true, false, false, false}});
        handles.append({at(right, middleY), {false, false, true, false}});
        handles.append({at(middleX, top), {false, true, false, false}});
        handles.append({at(middleX, bottom), {false, false, false, true}});
    }
    return handles;
}

} // namespace report
