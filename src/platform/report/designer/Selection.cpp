#include "platform/report/designer/Selection.h"

#include <algorithm>

namespace report {

Selection Selection::of(QList<Place> places)
{
    if (places.isEmpty())
        return {};
    // The last one chosen leads, so it is noted before the places are put into their order.
    Selection selection{Part::Objects, -1, {}, places.last()};
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    selection.objects = std::move(places);
    return selection;
}

int Selection::band() const
{
    if (part == Part::Band)
        return index;
    return objects.isEmpty() ? -1 : lead.band;
}

} // namespace report
