#include "platform/report/designer/Arrange.h"

#include <algorithm>

namespace report {
namespace {

template<class Change>
void forEach(Layout &layout, const QList<Place> &places, Change change)
{
    for (const Place &place : places)
        change(layout.bands[place.band].objects[place.object]);
}

Length farEdge(const Object &object, Direction direction)
{
    const QRect frame = frameOf(object);
    return direction == Direction::Across ? frame.x() + frame.width() : frame.y() + frame.height();
}

Length nearEdge(const Object &object, Direction direction)
{
    const QRect frame = frameOf(object);
    return direction == Direction::Across ? frame.x() : frame.y();
}

/// Moves by a difference, since a line's own corner may be another one than that of its frame.
void moveTo(Object &object, Direction direction, Length edge)
{
    (direction == Direction::Across ? object.x : object.y) += edge - nearEdge(object, direction);
}

} // namespace

/// Sizes of lines may be negative: they lead up or to the left.
QRect frameOf(const Object &object)
{
    return {qMin(object.x, object.x + object.width), qMin(object.y, object.y + object.height),
            qAbs(object.width), qAbs(object.height)};
}

QRect frameAround(const Layout &layout, const QList<Place> &places)
{
    QRect around;
    bool isFirst = true;
    for (const Place &place : places) {
        const QRect frame = frameOf(layout.bands[place.band].objects[place.object]);
        if (isFirst)
            around = frame;
        const int right = qMax(around.x() + around.width(), frame.x() + frame.width());
        const int bottom = qMax(around.y() + around.height(), frame.y() + frame.height());
        around.setTopLeft({qMin(around.x(), frame.x()), qMin(around.y(), frame.y())});
        around.setSize({right - around.x(), bottom - around.y()});
        isFirst = false;
    }
    return around;
}

void align(Layout &layout, const Selection &selection, AlignEdge edge)
{
    if (selection.objects.isEmpty())
        return;
    const Object lead = layout.bands[selection.lead.band].objects[selection.lead.object];
    const Direction direction =
        edge == AlignEdge::Left || edge == AlignEdge::Center || edge == AlignEdge::Right
            ? Direction::Across
            : Direction::Down;
    const Length start = nearEdge(lead, direction);
    const Length end = farEdge(lead, direction);
    forEach(layout, selection.objects, [&](Object &object) {
        const Length size = farEdge(object, direction) - nearEdge(object, direction);
        const bool isStart = edge == AlignEdge::Left || edge == AlignEdge::Top;
        const bool isEnd = edge == AlignEdge::Right || edge == AlignEdge::Bottom;
        moveTo(object, direction, isStart ? start : isEnd ? end - size : (start + end - size) / 2);
    });
}

void distribute(Layout &layout, const Selection &selection, Direction direction)
{
    QList<Object *> objects;
    forEach(layout, selection.objects, [&](Object &object) { objects.append(&object); });
    if (objects.size() < 3)
        return;
    std::stable_sort(objects.begin(), objects.end(), [&](const Object *a, const Object *b) {
        return nearEdge(*a, direction) < nearEdge(*b, direction);
    });
    Length taken = 0;
    for (const Object *object : std::as_const(objects))
        taken += farEdge(*object, direction) - nearEdge(*object, direction);
    // Each place is worked out from the first edge, so that no rounding adds up.
    const Length start = nearEdge(*objects.first(), direction);
    // The first and the last one stay; frames that overlap give gaps below zero, which works the
    // same.
    const Length room = farEdge(*objects.last(), direction) - start - taken;
    const auto gaps = objects.size() - 1;
    Length used = 0;
    for (qsizetype at = 0; at < objects.size(); ++at) {
        const Length size = farEdge(*objects[at], direction) - nearEdge(*objects[at], direction);
        moveTo(*objects[at], direction, start + used + static_cast<Length>(room * at / gaps));
        used += size;
    }
}

void makeSameSize(Layout &layout, const Selection &selection, SameSize size)
{
    if (selection.objects.isEmpty())
        return;
    const Object lead = layout.bands[selection.lead.band].objects[selection.lead.object];
    forEach(layout, selection.objects, [&](Object &object) {
        if (size != SameSize::Height)
            object.width = lead.width;
        if (size != SameSize::Width)
            object.height = lead.height;
    });
}

void moveBy(Layout &layout, const QList<Place> &places, QPoint by)
{
    forEach(layout, places, [&](Object &object) {
        object.x += by.x();
        object.y += by.y();
    });
}

void growBy(Layout &layout, const QList<Place> &places, QPoint by)
{
    forEach(layout, places, [&](Object &object) {
        // Only a line may turn round: a frame of less than nothing can't be written.
        const bool isLine = object.kind == ObjectKind::Line;
        object.width = isLine ? object.width + by.x() : qMax(0, object.width + by.x());
        object.height = isLine ? object.height + by.y() : qMax(0, object.height + by.y());
    });
}

QRect dragged(const QRect &frame, const Edges &edges, QPoint by)
{
    if (edges.isMove())
        return frame.translated(by);
    int left = frame.x();
    int top = frame.y();
    int right = frame.x() + frame.width();
    int bottom = frame.y() + frame.height();
    // An edge stops at its opposite, so that no frame turns inside out under the pointer.
    if (edges.left)
        left = qMin(left + by.x(), right);
    if (edges.right)
        right = qMax(right + by.x(), left);
    if (edges.top)
        top = qMin(top + by.y(), bottom);
    if (edges.bottom)
        bottom = qMax(bottom + by.y(), top);
    return {left, top, right - left, bottom - top};
}

void fitInto(Object &object, const QRect &from, const QRect &to)
{
    const auto scaled = [](Length value, Length oldSize, Length newSize) {
        // In 64 bits: a length of metres times another one is more than an int holds.
        return oldSize == 0 ? value
                            : static_cast<Length>(static_cast<qint64>(value) * newSize / oldSize);
    };
    object.x = to.x() + scaled(object.x - from.x(), from.width(), to.width());
    object.y = to.y() + scaled(object.y - from.y(), from.height(), to.height());
    // A line that lies flat gets its slope from the frame.
    object.width = from.width() == 0 && object.kind == ObjectKind::Line
                       ? to.width()
                       : scaled(object.width, from.width(), to.width());
    object.height = from.height() == 0 && object.kind == ObjectKind::Line
                        ? to.height()
                        : scaled(object.height, from.height(), to.height());
}

} // namespace report
