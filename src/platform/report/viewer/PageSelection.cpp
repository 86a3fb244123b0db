#include "platform/report/viewer/PageSelection.h"

#include "platform/report/paginate/TextFlow.h"

#include <QStringList>
#include <algorithm>
#include <limits>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A piece of text on a page.
struct Piece
{
    const TextLine *line;
    const TextItem *item;
    Length top;
    Length bottom;

    [[nodiscard]] Length left() const { return line->x; }
    [[nodiscard]] Length right() const { return line->x + line->width; }
};

/// Pieces beside each other, from left to right.
struct Row
{
    Length top;
    Length bottom;
    QList<Piece> pieces;
};

/// The texts of a page as they are read. Those that run upwards are left out: no line holds them.
QList<Row> rowsOf(const Page &page)
{
    QList<Piece> pieces;
    for (const PageItem &item : page.items)
        if (const auto *text = std::get_if<TextItem>(&item); text && !text->turned)
            for (const TextLine &line : text->lines)
                if (!line.text.isEmpty())
                    pieces.append(
                        {&line, text, lineTop(line, text->style), lineBottom(line, text->style)});
    std::stable_sort(pieces.begin(), pieces.end(), [](const Piece &a, const Piece &b) {
        // By their middles: texts of several sizes stand on one line with their edges apart.
        return a.top + a.bottom < b.top + b.bottom;
    });
    QList<Row> rows;
    for (const Piece &piece : std::as_const(pieces)) {
        // One line with what is before it when its middle is above that one's lower edge.
        if (rows.isEmpty() || (piece.top + piece.bottom) / 2 >= rows.last().bottom)
            rows.append({piece.top, piece.bottom, {}});
        Row &row = rows.last();
        row.top = qMin(row.top, piece.top);
        // The lower edge stays that of the first piece, or tall ones would draw line after line in.
        if (row.pieces.isEmpty())
            row.bottom = piece.bottom;
        row.pieces.append(piece);
    }
    for (Row &row : rows)
        std::stable_sort(row.pieces.begin(), row.pieces.end(),
                         [](const Piece &a, const Piece &b) { return a.left() < b.left(); });
    return rows;
}

bool isBefore(const PagePoint &a, const PagePoint &b)
{
    return std::tuple(a.page, a.at.y(), a.at.x()) < std::tuple(b.page, b.at.y(), b.at.x());
}

PageSelection inOrder(const PageSelection &selection)
{
    return isBefore(selection.to, selection.from) ? PageSelection{selection.to, selection.from}
                                                  : selection;
}

/// The letters of a piece whose middle lies between two edges: the first, and one behind the last.
std::pair<qsizetype, qsizetype> lettersBetween(const Piece &piece, Length left, Length right)
{
    if (left <= piece.left() && right >= piece.right())
        return {0, piece.line->text.size()};
    qsizetype first = -1;
    qsizetype end = 0;
    const Font &font = piece.item->style.font;
    Length before = 0;
    for (qsizetype letter = 0; letter < piece.line->text.size(); ++letter) {
        const Length behind = textWidth(piece.line->text.first(letter + 1), font);
        // A letter is meant from its middle on, as in any editor.
        const Length middle = piece.left() + (before + behind) / 2;
        before = behind;
        if (middle < left || middle > right)
            continue;
        first = first < 0 ? letter : first;
        end = letter + 1;
    }
    return {qMax<qsizetype>(0, first), end};
}

/// Goes through the selected pieces of a page, those of each line together.
template<class Take>
void forSelected(const Page &page, int index, const PageSelection &selection, Take take)
{
    constexpr Length Far = std::numeric_limits<Length>::max();
    const auto [from, to] = inOrder(selection);
    if (index < from.page || index > to.page)
        return;
    const int top = index == from.page ? from.at.y() : -Far;
    const int bottom = index == to.page ? to.at.y() : Far;
    for (const Row &row : rowsOf(page)) {
        if (row.bottom < top || row.top > bottom)
            continue;
        const bool isFirst = row.top <= top;
        const bool isLast = row.bottom >= bottom;
        Length left = isFirst ? from.at.x() : -Far;
        Length right = isLast ? to.at.x() : Far;
        // Both points on one line: the lower one may be the left one.
        if (isFirst && isLast && left > right)
            std::swap(left, right);
        take(row, left, right);
    }
}

} // namespace

PageSelection everything(const PageStore &pages)
{
    // Half of it, since widths are added to it.
    constexpr int Far = std::numeric_limits<int>::max() / 2;
    return {{0, {-Far, -Far}}, {qMax(0, pages.count() - 1), {Far, Far}}};
}

QList<QRect> selectedPlaces(const Page &page, int index, const PageSelection &selection)
{
    QList<QRect> places;
    forSelected(page, index, selection, [&](const Row &row, Length left, Length right) {
        for (const Piece &piece : row.pieces) {
            const auto [first, end] = lettersBetween(piece, left, right);
            if (end <= first)
                continue;
            const Font &font = piece.item->style.font;
            const Length x = piece.left() + textWidth(piece.line->text.first(first), font);
            const Length width = textWidth(piece.line->text.sliced(first, end - first), font);
            places.append(QRect(x, piece.top, width, piece.bottom - piece.top));
        }
    });
    return places;
}

QString selectedText(const PageStore &pages, const PageSelection &selection)
{
    QStringList lines;
    const auto [from, to] = inOrder(selection);
    for (int index = qMax(0, from.page); index <= qMin(to.page, pages.count() - 1); ++index)
        forSelected(pages.page(index), index, selection,
                    [&](const Row &row, Length left, Length right) {
                        QStringList texts;
                        for (const Piece &piece : row.pieces) {
                            const auto [first, end] = lettersBetween(piece, left, right);
                            if (end > first)
                                texts.append(piece.line->text.sliced(first, end - first));
                        }
                        if (!texts.isEmpty())
                            // Tabulators, so that columns land in the cells of a spreadsheet.
                            lines.append(texts.join(u'\t'));
                    });
    return lines.join(u'\n');
}

} // namespace report
