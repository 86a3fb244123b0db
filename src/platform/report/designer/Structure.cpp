#include "platform/report/designer/Structure.h"

#include "platform/report/designer/Normalised.h"
#include "platform/report/expr/Scopes.h"

#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

bool isSamePlace(const Band &a, const Band &b)
{
    return a.kind == b.kind && a.group.compare(b.group, Qt::CaseInsensitive) == 0 &&
           a.rows.compare(b.rows, Qt::CaseInsensitive) == 0;
}

Length bottomOf(const Object &object)
{
    return object.y + qMax(0, object.height);
}

/// Without a name of its own, an object is told by what it shows.
QString shownBy(const Object &object)
{
    switch (object.kind) {
    case ObjectKind::Chart:
        return object.chart.title;
    case ObjectKind::CrossTab:
        return object.crossTab.title;
    case ObjectKind::Line:
    case ObjectKind::Box:
        return {};
    case ObjectKind::Text:
    case ObjectKind::Field:
    case ObjectKind::Picture:
    case ObjectKind::BarCode:
        break;
    }
    return object.content;
}

Band groupBand(BandKind kind, const QString &group, const QString &content)
{
    Band band;
    band.kind = kind;
    band.group = group;
    band.height = 700;
    Object text = newObject(ObjectKind::Text, {0, 100});
    text.width = 9000;
    text.content = content;
    text.style.font.bold = true;
    band.objects.append(text);
    return band;
}

/// A blank name leaves the former one, a taken one gets a number.
template<class Named>
void rename(QList<Named> &list, int index, const QString &name)
{
    QStringList taken;
    for (int other = 0; other < list.size(); ++other)
        // Its own name is free to it, also in other letters.
        if (other != index)
            taken.append(list[other].name);
    const QString wanted = name.trimmed();
    list[index].name = freeName(wanted.isEmpty() ? list[index].name : wanted, taken);
}

/// Changes every expression of a layout that an aggregate may stand in. Words hold expressions
/// between braces and are changed by a function of their own.
template<class Change, class ChangeWords>
void changeExpressions(Layout &layout, Change change, ChangeWords changeWords)
{
    for (Formula &formula : layout.formulas)
        change(formula.expression);
    for (Group &group : layout.groups)
        change(group.by);
    for (RowSet &set : layout.rowSets)
        change(set.of);
    for (Band &band : layout.bands) {
        change(band.printIf);
        for (Object &object : band.objects) {
            if (object.kind == ObjectKind::Text)
                changeWords(object.content);
            else if (object.kind == ObjectKind::Field || object.kind == ObjectKind::BarCode)
                change(object.content);
            else if (object.kind == ObjectKind::Picture && object.content.startsWith(u'=')) {
                QString expression = object.content.sliced(1);
                change(expression);
                object.content = u'=' + expression;
            }
            change(object.visibleIf);
            for (ConditionalStyle &style : object.conditionalStyles)
                change(style.when);
            for (QString *words :
                 {&object.chart.title, &object.chart.categoryTitle, &object.chart.valueTitle,
                  &object.crossTab.title, &object.crossTab.rowsTitle})
                changeWords(*words);
        }
    }
}

/// The objects of each band together, so that numbers stay right while others are taken out.
QList<QList<int>> byBand(const Layout &layout, const QList<Place> &places)
{
    QList<QList<int>> result(layout.bands.size());
    for (const Place &place : places)
        if (place.band >= 0 && place.band < result.size())
            result[place.band].append(place.object);
    for (QList<int> &objects : result)
        std::sort(objects.begin(), objects.end());
    return result;
}

} // namespace

QString bandName(const Band &band)
{
    switch (band.kind) {
    case BandKind::ReportHeader:
        return u"Report header"_s;
    case BandKind::PageHeader:
        return u"Page header"_s;
    case BandKind::GroupHeader:
        return u"Header of %1"_s.arg(band.group);
    case BandKind::Detail:
        return u"Detail"_s;
    case BandKind::SubHeader:
        return u"Header of rows %1"_s.arg(band.rows);
    case BandKind::SubDetail:
        return u"Rows %1"_s.arg(band.rows);
    case BandKind::SubFooter:
        return u"Footer of rows %1"_s.arg(band.rows);
    case BandKind::GroupFooter:
        return u"Footer of %1"_s.arg(band.group);
    case BandKind::ReportFooter:
        return u"Report footer"_s;
    case BandKind::PageFooter:
        return u"Page footer"_s;
    }
    return {};
}

QString kindName(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Text:
        return u"Text"_s;
    case ObjectKind::Field:
        return u"Field"_s;
    case ObjectKind::Line:
        return u"Line"_s;
    case ObjectKind::Box:
        return u"Box"_s;
    case ObjectKind::Picture:
        return u"Picture"_s;
    case ObjectKind::BarCode:
        return u"Bar code"_s;
    case ObjectKind::Chart:
        return u"Chart"_s;
    case ObjectKind::CrossTab:
        return u"Cross-tab"_s;
    }
    return {};
}

QString objectTitle(const Object &object)
{
    if (!object.name.isEmpty())
        return object.name;
    const QString shown = shownBy(object).simplified();
    return shown.isEmpty() ? kindName(object.kind)
                           : u"%1 \"%2\""_s.arg(kindName(object.kind), shown.left(40));
}

Layout emptyLayout()
{
    Layout layout;
    for (const auto &[kind, height] :
         {std::pair{BandKind::ReportHeader, 1500}, std::pair{BandKind::PageHeader, 800},
          std::pair{BandKind::Detail, 600}, std::pair{BandKind::ReportFooter, 800},
          std::pair{BandKind::PageFooter, 800}}) {
        Band band;
        band.kind = kind;
        band.height = height;
        layout.bands.append(band);
    }
    return layout;
}

int addBand(Layout &layout, Band band)
{
    layout.bands.append(std::move(band));
    const Band added = layout.bands.last();
    // Putting it into the order moves it behind the last of its place.
    layout = normalised(std::move(layout));
    for (int at = static_cast<int>(layout.bands.size()) - 1; at >= 0; --at)
        // From below: among several of its place the new one stands last.
        if (isSamePlace(layout.bands[at], added))
            return at;
    return -1;
}

bool canMoveBand(const Layout &layout, int band, int direction)
{
    const int other = band + direction;
    return band >= 0 && band < layout.bands.size() && other >= 0 && other < layout.bands.size() &&
           isSamePlace(layout.bands[band], layout.bands[other]);
}

void moveBand(Layout &layout, int band, int direction)
{
    if (canMoveBand(layout, band, direction))
        layout.bands.swapItemsAt(band, band + direction);
}

void fitBand(Layout &layout, int band)
{
    Length bottom = 0;
    for (const Object &object : std::as_const(layout.bands[band].objects))
        bottom = qMax(bottom, qMax(object.y, object.y + object.height));
    layout.bands[band].height = bottom;
}

int addGroup(Layout &layout, const QString &by)
{
    QStringList taken;
    for (const Group &group : std::as_const(layout.groups))
        taken.append(group.name);
    Group group;
    // A group that goes by a plain field is called after it; an expression makes no name.
    const bool isName = !by.isEmpty() && std::all_of(by.cbegin(), by.cend(), [](QChar c) {
        return c.isLetterOrNumber() || c == u'_';
    });
    group.name = freeName(isName ? by : u"Group"_s, taken);
    // One value for all rows, until the user says by what.
    group.by = by.isEmpty() ? u"true"_s : by;
    layout.groups.append(group);
    addBand(layout, groupBand(BandKind::GroupHeader, group.name, u"{%1}"_s.arg(group.by)));
    addBand(layout, groupBand(BandKind::GroupFooter, group.name,
                              u"Total of {%1}: {count(*)}"_s.arg(group.by)));
    return static_cast<int>(layout.groups.size()) - 1;
}

void removeGroup(Layout &layout, int group)
{
    const QString name = layout.groups[group].name;
    layout.groups.removeAt(group);
    layout.bands.removeIf([&](const Band &band) {
        return (band.kind == BandKind::GroupHeader || band.kind == BandKind::GroupFooter) &&
               band.group.compare(name, Qt::CaseInsensitive) == 0;
    });
}

void moveGroup(Layout &layout, int group, int direction)
{
    const int other = group + direction;
    if (other < 0 || other >= layout.groups.size())
        return;
    // Bands follow the order of the groups, not the other way round.
    layout.groups.swapItemsAt(group, other);
    layout = normalised(std::move(layout));
}

void renameGroup(Layout &layout, int group, const QString &name)
{
    const QString former = layout.groups[group].name;
    // The name that it has then may be another one than was typed: bands and expressions take that.
    rename(layout.groups, group, name);
    for (Band &band : layout.bands)
        if (band.group.compare(former, Qt::CaseInsensitive) == 0)
            band.group = layout.groups[group].name;
    // These two always mean the page and the report.
    if (former.compare(u"page", Qt::CaseInsensitive) == 0 ||
        former.compare(u"report", Qt::CaseInsensitive) == 0)
        return;
    const QString &given = layout.groups[group].name;
    changeExpressions(
        layout, [&](QString &text) { text = withScopeRenamed(text, former, given); },
        [&](QString &words) { words = withScopeRenamedInWords(words, former, given); });
}

void renameRows(Layout &layout, int set, const QString &name)
{
    const QString former = layout.rowSets[set].name;
    rename(layout.rowSets, set, name);
    for (Band &band : layout.bands)
        if (band.rows.compare(former, Qt::CaseInsensitive) == 0)
            band.rows = layout.rowSets[set].name;
}

void removeRows(Layout &layout, int set)
{
    const QString name = layout.rowSets[set].name;
    layout.rowSets.removeAt(set);
    layout.bands.removeIf([&](const Band &band) {
        return !band.rows.isEmpty() && band.rows.compare(name, Qt::CaseInsensitive) == 0;
    });
}

Object newObject(ObjectKind kind, QPoint at)
{
    Object object;
    object.kind = kind;
    object.x = at.x();
    object.y = at.y();
    switch (kind) {
    case ObjectKind::Text:
        object.content = u"Text"_s;
        break;
    case ObjectKind::Field:
        object.content = u"RowNumber"_s;
        break;
    case ObjectKind::Line:
        object.width = 5000;
        object.height = 0;
        break;
    case ObjectKind::Box:
        object.width = 4000;
        object.height = 1500;
        break;
    case ObjectKind::Picture:
        object.width = object.height = 2000;
        break;
    case ObjectKind::BarCode:
        object.width = 5000;
        object.height = 1000;
        // Something that every report has, so that the new object shows bars at once.
        object.content = u"text(RowNumber)"_s;
        break;
    case ObjectKind::Chart:
        object.width = 12000;
        object.height = 7000;
        object.chart.title = u"Chart"_s;
        object.chart.category = u"RowNumber"_s;
        object.chart.series.append({{}, u"count(*)"_s, {}, {}, {}});
        break;
    case ObjectKind::CrossTab:
        object.width = 12000;
        object.height = 1500;
        object.crossTab.rows = u"RowNumber"_s;
        object.crossTab.columns = u"1"_s;
        object.crossTab.value = u"count(*)"_s;
        break;
    }
    return object;
}

QList<Place> addObjects(Layout &layout, int band, const QList<Object> &objects)
{
    QList<Place> places;
    Band &target = layout.bands[band];
    for (const Object &object : objects) {
        places.append({band, static_cast<int>(target.objects.size())});
        target.objects.append(object);
        target.height = qMax(target.height, bottomOf(object));
    }
    return places;
}

void removeObjects(Layout &layout, const QList<Place> &places)
{
    const QList<QList<int>> sorted = byBand(layout, places);
    for (int band = 0; band < sorted.size(); ++band)
        // From the last one on, which leaves the numbers of those before it right.
        for (auto object = sorted[band].crbegin(); object != sorted[band].crend(); ++object)
            layout.bands[band].objects.removeAt(*object);
}

QList<Object> objectsAt(const Layout &layout, const QList<Place> &places)
{
    QList<Object> objects;
    for (const Place &place : places)
        objects.append(layout.bands[place.band].objects[place.object]);
    return objects;
}

QList<Place> moveToBand(Layout &layout, const QList<Place> &places, int band, QPoint by)
{
    QList<Object> objects = objectsAt(layout, places);
    for (Object &object : objects) {
        object.x += by.x();
        object.y = qMax(0, object.y + by.y());
    }
    removeObjects(layout, places);
    return addObjects(layout, band, objects);
}

QList<Place> reorder(Layout &layout, const QList<Place> &places, Order order)
{
    QList<Place> moved;
    // Those that are chosen keep their order among themselves, whichever way they go.
    const QList<QList<int>> chosen = byBand(layout, places);
    const int step = order == Order::Forward ? 1 : order == Order::Backward ? -1 : 0;
    for (int band = 0; band < chosen.size(); ++band) {
        if (chosen[band].isEmpty())
            continue;
        QList<Object> &objects = layout.bands[band].objects;
        std::vector<std::pair<bool, int>> sequence; // chosen or not, and the number
        sequence.reserve(static_cast<std::size_t>(objects.size()));
        for (int object = 0; object < objects.size(); ++object)
            sequence.emplace_back(chosen[band].contains(object), object);
        if (order == Order::Front)
            std::stable_partition(sequence.begin(), sequence.end(),
                                  [](const auto &one) { return !one.first; });
        else if (order == Order::Back)
            std::stable_partition(sequence.begin(), sequence.end(),
                                  [](const auto &one) { return one.first; });
        if (step > 0) {
            for (std::size_t at = sequence.size(); at-- > 1;)
                if (sequence[at - 1].first && !sequence[at].first)
                    std::swap(sequence[at - 1], sequence[at]);
        } else if (step < 0) {
            for (std::size_t at = 1; at < sequence.size(); ++at)
                if (sequence[at].first && !sequence[at - 1].first)
                    std::swap(sequence[at - 1], sequence[at]);
        }
        QList<Object> ordered;
        for (const auto &[isChosen, object] : sequence) {
            if (isChosen)
                moved.append({band, static_cast<int>(ordered.size())});
            ordered.append(std::as_const(objects)[object]);
        }
        objects = ordered;
    }
    return moved;
}

} // namespace report
