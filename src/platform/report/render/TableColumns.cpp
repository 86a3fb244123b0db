#include "platform/report/render/TableColumns.h"

#include <algorithm>
#include <set>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Things that begin this near to each other stand in one column.
constexpr Length Near = 100;

bool holdsData(const Object &object)
{
    return object.kind == ObjectKind::Field || object.kind == ObjectKind::BarCode ||
           (object.kind == ObjectKind::Text && object.content.contains(u'{'));
}

bool isCaption(const Object &object)
{
    return object.kind == ObjectKind::Text && !object.content.contains(u'{');
}

bool isWritten(const Object &object)
{
    return object.kind == ObjectKind::Text || object.kind == ObjectKind::Field ||
           object.kind == ObjectKind::BarCode;
}

Length overlap(const Object &a, const Object &b)
{
    return qMin(a.x + a.width, b.x + b.width) - qMax(a.x, b.x);
}

/// How nearly two objects take up the same breadth: a title over all the page covers every column,
/// a column's caption just its own.
double likeness(const Object &a, const Object &b)
{
    const Length both = qMax(a.x + a.width, b.x + b.width) - qMin(a.x, b.x);
    return both > 0 ? static_cast<double>(overlap(a, b)) / both : 0;
}

QString heading(const Layout &layout, const Object &object)
{
    const Object *best = nullptr;
    for (const BandKind kind : {BandKind::PageHeader, BandKind::GroupHeader})
        for (const Band &band : layout.bands)
            for (const Object &caption : band.objects)
                if (band.kind == kind && isCaption(caption) && !caption.content.isEmpty() &&
                    // A caption that reaches only a little over a column is its neighbour's.
                    2 * overlap(caption, object) > qMin(caption.width, object.width) &&
                    (!best || likeness(caption, object) > likeness(*best, object)))
                    best = &caption;
    if (best)
        return best->content;
    if (!object.name.isEmpty())
        return object.name;
    QString name = object.content;
    return name.remove(u'[').remove(u']').remove(u'{').remove(u'}');
}

bool hasData(const Layout &layout, BandKind kind)
{
    return std::any_of(layout.bands.cbegin(), layout.bands.cend(), [&](const Band &band) {
        return band.kind == kind &&
               std::any_of(band.objects.cbegin(), band.objects.cend(), holdsData);
    });
}

bool isInnermost(const Layout &layout, const Band &band)
{
    return layout.groupIndex(band.group) == layout.groups.size() - 1;
}

} // namespace

BandKind lineBand(const Layout &layout)
{
    return hasData(layout, BandKind::Detail) || layout.groups.isEmpty() ? BandKind::Detail
                                                                        : BandKind::GroupFooter;
}

std::vector<DataColumn> dataColumns(const Layout &layout)
{
    std::vector<DataColumn> columns;
    std::set<QString> known;
    const auto take = [&](const Object &object, const QString &name) {
        // What stands in the group's header and again in its lines is one column.
        if (holdsData(object) && known.insert(object.content.toLower()).second)
            columns.push_back({&object, name});
    };
    for (const Group &group : layout.groups)
        for (const Band &band : layout.bands)
            if (band.kind == BandKind::GroupHeader &&
                layout.groupIndex(band.group) == layout.groupIndex(group.name))
                for (const Object &object : band.objects)
                    take(object, object.name.isEmpty() ? group.name : object.name);
    const BandKind lines = lineBand(layout);
    for (const Band &band : layout.bands)
        if (band.kind == lines && (lines == BandKind::Detail || isInnermost(layout, band)))
            for (const Object &object : band.objects)
                take(object, heading(layout, object));
    return columns;
}

SheetColumns::SheetColumns(const Layout &layout)
{
    const BandKind lines = lineBand(layout);
    std::vector<Length> starts;
    for (const Band &band : layout.bands)
        for (const Object &object : band.objects)
            if (band.kind == lines && isWritten(object)) {
                starts.push_back(object.x);
                m_end = qMax(m_end, object.x + object.width);
            }
    std::sort(starts.begin(), starts.end());
    for (const Length start : starts)
        if (m_starts.empty() || start - m_starts.back() > Near)
            m_starts.push_back(start);
    // A layout without details still has sums to write.
    if (m_starts.empty())
        m_starts.push_back(0);
}

Length SheetColumns::width(int column) const
{
    const Length end = column + 1 < count() ? m_starts[column + 1] : qMax(m_end, m_starts.back());
    return end - m_starts[column];
}

int SheetColumns::columnAt(Length x) const
{
    // Things between two columns belong to the one that they begin in.
    const auto behind = std::upper_bound(m_starts.begin(), m_starts.end(), x + Near);
    return qMax(0, static_cast<int>(behind - m_starts.begin()) - 1);
}

std::vector<SheetPlace> SheetColumns::places(const Band &band) const
{
    std::vector<SheetPlace> places(band.objects.size(), SheetPlace{0, -1});
    std::vector<int> order;
    for (int index = 0; index < band.objects.size(); ++index)
        if (isWritten(band.objects[index]))
            order.push_back(index);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return band.objects[a].y < band.objects[b].y; });
    int line = -1;
    Length lineEnd = 0;
    std::vector<int> ofLine;
    const auto placeLine = [&] {
        std::stable_sort(ofLine.begin(), ofLine.end(),
                         [&](int a, int b) { return band.objects[a].x < band.objects[b].x; });
        int next = 0;
        for (const int index : ofLine) {
            // Two things of a line never share a cell: the second one moves on.
            const int column = qMax(next, columnAt(band.objects[index].x));
            places[index] = {line, column};
            next = column + 1;
        }
        ofLine.clear();
    };
    for (const int index : order) {
        const Object &object = band.objects[index];
        // What begins in the lower half of a line's first object begins a new line.
        if (line < 0 || object.y >= lineEnd) {
            placeLine();
            ++line;
            lineEnd = object.y + qMax(1, object.height / 2);
        }
        ofLine.push_back(index);
    }
    placeLine();
    return places;
}

} // namespace report
