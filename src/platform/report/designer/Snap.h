#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace report {

/// A line along which edges stand, while something is dragged.
struct Guide
{
    bool isUpright = false; ///< at an x, otherwise at a y
    int at = 0;

    bool operator==(const Guide &) const = default;
};

/// Where a dragged thing comes to rest.
struct Snapped
{
    QPoint by;           ///< to add to the frame, or to the edges that are drawn
    QList<Guide> guides; ///< edges that line up there
};

/// What a drag may line up with.
struct SnapLines
{
    QList<int> across; ///< x of edges and middles
    QList<int> down;   ///< y of them
};

/// The lines of these frames: their edges and middles.
[[nodiscard]] SnapLines snapLines(const QList<QRect> &frames);

struct SnapRules
{
    int reach = 0; ///< how near an edge has to come, 0 for no lining up
    int grid = 0;  ///< distance of the grid's lines, 0 for none
};

/// Finds the nearest lines within reach for the edges of a frame that moves; without one the grid
/// counts for its upper left corner.
[[nodiscard]] Snapped snapMove(const QRect &frame, const SnapLines &lines, const SnapRules &rules);
/// The same for edges that are drawn: the places of those that move, nothing for the others.
[[nodiscard]] Snapped snapEdges(std::optional<int> x, std::optional<int> y, const SnapLines &lines,
                                const SnapRules &rules);

} // namespace report
