#include "platform/report/designer/Snap.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

/// The shortest way from one of the edges to one of the lines, within reach.
std::optional<int> wayToLine(const QList<int> &edges, const QList<int> &lines, int reach)
{
    std::optional<int> best;
    for (const int edge : edges)
        for (const int line : lines)
            if (qAbs(line - edge) <= reach && (!best || qAbs(line - edge) < qAbs(*best)))
                best = line - edge;
    return best;
}

int wayToGrid(int edge, int grid)
{
    return grid > 0 ? static_cast<int>(std::lround(static_cast<double>(edge) / grid)) * grid - edge
                    : 0;
}

QList<int> edgesOf(int start, int size)
{
    // Middles count as edges do, so that things can be centred upon each other.
    return {start, start + size / 2, start + size};
}

/// Adds guides where edges stand on lines, and gives how far the edges move.
int snapAxis(const QList<int> &edges, const QList<int> &lines, const SnapRules &rules,
             bool isUpright, QList<Guide> &guides)
{
    const std::optional<int> way =
        rules.reach > 0 ? wayToLine(edges, lines, rules.reach) : std::nullopt;
    if (!way)
        // Another's edge wins over the grid; without one near, the left or upper edge goes to the
        // grid.
        return wayToGrid(edges.first(), rules.grid);
    // One way may bring several edges to rest; each shows its line.
    for (const int edge : edges) {
        const Guide guide{isUpright, edge + *way};
        if (lines.contains(guide.at) && !guides.contains(guide))
            guides.append(guide);
    }
    return *way;
}

} // namespace

SnapLines snapLines(const QList<QRect> &frames)
{
    SnapLines lines;
    for (const QRect &frame : frames) {
        lines.across.append(edgesOf(frame.x(), frame.width()));
        lines.down.append(edgesOf(frame.y(), frame.height()));
    }
    for (QList<int> *list : {&lines.across, &lines.down}) {
        // Columns repeat in each band: without their doubles a move compares few lines.
        std::sort(list->begin(), list->end());
        list->erase(std::unique(list->begin(), list->end()), list->end());
    }
    return lines;
}

Snapped snapMove(const QRect &frame, const SnapLines &lines, const SnapRules &rules)
{
    Snapped snapped;
    snapped.by.setX(
        snapAxis(edgesOf(frame.x(), frame.width()), lines.across, rules, true, snapped.guides));
    snapped.by.setY(
        snapAxis(edgesOf(frame.y(), frame.height()), lines.down, rules, false, snapped.guides));
    return snapped;
}

Snapped snapEdges(std::optional<int> x, std::optional<int> y, const SnapLines &lines,
                  const SnapRules &rules)
{
    Snapped snapped;
    if (x)
        snapped.by.setX(snapAxis({*x}, lines.across, rules, true, snapped.guides));
    if (y)
        snapped.by.setY(snapAxis({*y}, lines.down, rules, false, snapped.guides));
    return snapped;
}

} // namespace report
