#include "platform/report/viewer/PageSearch.h"

#include "platform/report/paginate/TextFlow.h"

#include <QFontMetricsF>

namespace report {
namespace {

QRect placeIn(const TextLine &line, const TextItem &item, qsizetype from, qsizetype length)
{
    const Style &style = item.style;
    const QFontMetricsF metrics(measuringFont(style.font));
    // Measured from the line's begin each time, since widths of pieces don't add up to that of the
    // whole.
    const auto begin = static_cast<int>(metrics.horizontalAdvance(line.text.first(from)));
    const auto end = static_cast<int>(metrics.horizontalAdvance(line.text.first(from + length)));
    const Length top = lineTop(line, style);
    // Written upwards: what is across in the words goes up on the page.
    if (item.turned)
        return {line.x - (line.baseline - top), line.baseline - end, lineBottom(line, style) - top,
                end - begin};
    return {line.x + begin, top, end - begin, lineBottom(line, style) - top};
}

} // namespace

QList<QRect> placesOnPage(const Page &page, const QString &text)
{
    QList<QRect> places;
    if (text.isEmpty())
        return places;
    for (const PageItem &item : page.items) {
        const auto *words = std::get_if<TextItem>(&item);
        if (!words)
            continue;
        for (const TextLine &line : words->lines)
            for (qsizetype at = line.text.indexOf(text, 0, Qt::CaseInsensitive); at >= 0;
                 at = line.text.indexOf(text, at + text.size(), Qt::CaseInsensitive))
                places.append(placeIn(line, *words, at, text.size()));
    }
    return places;
}

std::optional<Found> findText(const PageStore &pages, const QString &text,
                              const std::optional<Found> &last, int page, bool backward)
{
    if (pages.count() == 0 || text.isEmpty())
        return std::nullopt;
    const int step = backward ? -1 : 1;
    // Goes on from what was found last, wherever the user has scrolled since.
    const int begin = last ? last->page : page;
    // The page where it begins comes twice: first what lies beyond the last place, at the end all.
    for (int turn = 0; turn <= pages.count(); ++turn) {
        // Twice the remainder: that of a number below zero is below zero.
        const int index = ((begin + step * turn) % pages.count() + pages.count()) % pages.count();
        const QList<QRect> places = placesOnPage(pages.page(index), text);
        if (places.isEmpty())
            continue;
        const qsizetype known = last && turn == 0 ? places.indexOf(last->place) : -1;
        if (known < 0)
            return Found{index, backward ? places.last() : places.first()};
        const qsizetype next = known + step;
        if (next >= 0 && next < places.size())
            return Found{index, places[next]};
    }
    return std::nullopt;
}

} // namespace report
