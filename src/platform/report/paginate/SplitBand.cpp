#include "platform/report/paginate/SplitBand.h"

#include "platform/report/paginate/TextFlow.h"

#include <algorithm>

namespace report {
namespace {

struct Extent
{
    Length top;
    Length bottom;
};

Extent extentOf(const QRect &frame)
{
    return {frame.y(), frame.y() + frame.height()};
}

Extent extentOf(const PageItem &item)
{
    return std::visit(
        [](const auto &one) -> Extent {
            if constexpr (std::is_same_v<std::decay_t<decltype(one)>, LineItem>)
                return {qMin(one.from.y(), one.to.y()), qMax(one.from.y(), one.to.y())};
            else
                return extentOf(one.frame);
        },
        item);
}

/// How many lines of a text begin above a place; they stand from top to bottom.
qsizetype linesAbove(const TextItem &text, Length place)
{
    const Length ascent = -lineTop(TextLine(), text.style);
    const auto isAbove = [&](const TextLine &line) { return line.baseline - ascent < place; };
    return std::partition_point(text.lines.cbegin(), text.lines.cend(), isAbove) -
           text.lines.cbegin();
}

/// What can't be cut: single lines of text, pictures, bar codes, slanting lines. A text may be
/// longer than many pages, of which only the lines above the end of the first matter.
QList<Extent> wholes(const QList<PageItem> &items, Length room)
{
    QList<Extent> extents;
    for (const PageItem &item : items) {
        if (const auto *text = std::get_if<TextItem>(&item); text && !text->turned) {
            for (const TextLine &line : text->lines.first(linesAbove(*text, room)))
                extents.append({lineTop(line, text->style), lineBottom(line, text->style)});
        } else if (const auto *line = std::get_if<LineItem>(&item)) {
            // An upright line may be cut anywhere and goes on below, like the side of a frame.
            if (line->from.x() != line->to.x())
                extents.append(extentOf(item));
        } else if (!std::holds_alternative<BoxItem>(item)) {
            extents.append(extentOf(item));
        }
    }
    return extents;
}

/// The lowest place within the room that cuts nothing whole; 0 or less when there is none.
Length placeOfCut(const QList<PageItem> &items, Length room)
{
    const QList<Extent> extents = wholes(items, room);
    Length cut = room;
    // Moving the cut above one whole may lay it across another: until it lies across none.
    for (bool moved = true; moved;) {
        moved = false;
        for (const Extent &extent : extents) {
            if (extent.top < cut && extent.bottom > cut) {
                cut = extent.top;
                moved = true;
            }
        }
    }
    return cut;
}

/// The two parts of a frame across the cut.
std::pair<QRect, QRect> parted(const QRect &frame, Length cut)
{
    return {QRect(frame.x(), frame.y(), frame.width(), cut - frame.y()),
            QRect(frame.x(), 0, frame.width(), frame.y() + frame.height() - cut)};
}

void moveUp(PageItem &item, Length by)
{
    movePageItem(item, {0, -by});
}

/// An item that the cut meets, in two.
std::pair<PageItem, PageItem> partedItem(const PageItem &item, Length cut)
{
    PageItem upper = item;
    PageItem lower = item;
    moveUp(lower, cut);
    if (auto *text = std::get_if<TextItem>(&upper)) {
        auto &rest = std::get<TextItem>(lower);
        std::tie(text->frame, rest.frame) = parted(text->frame, cut);
        const qsizetype above = linesAbove(*text, cut);
        rest.lines = rest.lines.sliced(above);
        text->lines = text->lines.first(above);
    } else if (auto *line = std::get_if<LineItem>(&upper)) {
        auto &rest = std::get<LineItem>(lower);
        // A line may be drawn upwards or downwards.
        (line->from.y() > line->to.y() ? line->from : line->to).setY(cut);
        (rest.from.y() < rest.to.y() ? rest.from : rest.to).setY(0);
    } else if (auto *box = std::get_if<BoxItem>(&upper)) {
        std::tie(box->frame, std::get<BoxItem>(lower).frame) = parted(box->frame, cut);
    }
    return {std::move(upper), std::move(lower)};
}

} // namespace

std::optional<MadeBand> splitBand(MadeBand &band, Length room)
{
    const Length cut = placeOfCut(band.items, room);
    // What doesn't fit is higher than any page: the caller lets it run over the edge.
    if (cut <= 0)
        return std::nullopt;
    MadeBand rest;
    rest.height = band.height - cut;
    QList<PageItem> kept;
    for (PageItem &item : band.items) {
        const Extent extent = extentOf(item);
        if (extent.bottom <= cut) {
            kept.append(std::move(item));
        } else if (extent.top >= cut) {
            moveUp(item, cut);
            rest.items.append(std::move(item));
        } else {
            auto [upper, lower] = partedItem(item, cut);
            kept.append(std::move(upper));
            rest.items.append(std::move(lower));
        }
    }
    band.items = std::move(kept);
    band.height = cut;
    return rest;
}

} // namespace report
