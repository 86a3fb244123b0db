#include "platform/report/designer/Normalised.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// What a file's reader takes, ten metres.
constexpr Length Furthest = 1000000;
constexpr double SmallestPoints = 1;
constexpr double LargestPoints = 500;

/// Without the signs that no file of this kind can hold.
QString clean(const QString &text)
{
    const auto isBad = [&](QChar c) {
        return (c < u' ' && c != u'\n' && c != u'\t') || c == QChar(0xfffe) || c == QChar(0xffff);
    };
    const auto isLone = [&](qsizetype at) {
        const QChar c = text[at];
        return (c.isHighSurrogate() && (at + 1 >= text.size() || !text[at + 1].isLowSurrogate())) ||
               (c.isLowSurrogate() && (at == 0 || !text[at - 1].isHighSurrogate()));
    };
    QString result;
    bool changed = false;
    for (qsizetype at = 0; at < text.size(); ++at) {
        // Most texts have nothing to clean: they come back as they are, shared and not copied.
        if (isBad(text[at]) || isLone(at)) {
            if (!changed)
                result = text.first(at);
            changed = true;
        } else if (changed) {
            result += text[at];
        }
    }
    return changed ? result : text;
}

/// A text that the file can't do without.
QString needed(const QString &text, const QString &instead)
{
    const QString cleaned = clean(text).trimmed();
    return cleaned.isEmpty() ? instead : cleaned;
}

Length inReach(Length length)
{
    return std::clamp(length, -Furthest, Furthest);
}

Length size(Length length)
{
    return std::clamp(length, 0, Furthest);
}

/// The file knows no alpha and no other colour spaces.
QColor plain(const QColor &color)
{
    return color.isValid() ? QColor(color.rgb()) : QColor();
}

Style normalised(Style style)
{
    style.font.family = needed(style.font.family, Font().family);
    const double points = std::isfinite(style.font.points) ? style.font.points : Font().points;
    // The file gives sizes in tenths of a point; a finer one would differ after it is read back.
    style.font.points = std::round(std::clamp(points, SmallestPoints, LargestPoints) * 10) / 10;
    style.color = style.color.isValid() ? plain(style.color) : QColor(Qt::black);
    style.fill = plain(style.fill);
    style.padding = size(style.padding);
    style.border.width = size(style.border.width);
    style.border.color =
        style.border.color.isValid() ? plain(style.border.color) : QColor(Qt::black);
    return style;
}

/// A chart that the reader takes: it has a category and a series, whatever the user has emptied.
Chart normalised(Chart chart)
{
    chart.title = clean(chart.title);
    chart.category = needed(chart.category, u"RowNumber"_s);
    chart.categoryFormat = clean(chart.categoryFormat);
    chart.categoryTitle = clean(chart.categoryTitle);
    chart.valueTitle = clean(chart.valueTitle);
    chart.most = qMax(0, chart.most);
    for (Series &series : chart.series) {
        series.name = clean(series.name);
        series.value = needed(series.value, u"count(*)"_s);
        series.by = clean(series.by);
        series.byFormat = clean(series.byFormat);
        series.color = plain(series.color);
    }
    // A reader refuses a chart without one.
    if (chart.series.isEmpty())
        chart.series.append({{}, u"count(*)"_s, {}, {}, {}});
    return chart;
}

CrossTab normalised(CrossTab table)
{
    table.title = clean(table.title);
    table.rows = needed(table.rows, u"RowNumber"_s);
    table.rowsFormat = clean(table.rowsFormat);
    table.rowsTitle = clean(table.rowsTitle);
    table.columns = needed(table.columns, u"1"_s);
    table.columnsFormat = clean(table.columnsFormat);
    table.value = needed(table.value, u"count(*)"_s);
    return table;
}

Object normalised(Object object, const Layout &layout)
{
    object.name = clean(object.name);
    // Its style was removed: the looks stay, as the object's own.
    if (layout.styleIndex(object.styleName) < 0)
        object.styleName.clear();
    object.x = inReach(object.x);
    object.y = inReach(object.y);
    const bool isLine = object.kind == ObjectKind::Line;
    object.width = isLine ? inReach(object.width) : size(object.width);
    object.height = isLine ? inReach(object.height) : size(object.height);
    object.content = clean(object.content);
    object.format = clean(object.format);
    object.visibleIf = clean(object.visibleIf);
    object.lineWidth = size(object.lineWidth);
    object.style = normalised(object.style);
    for (ConditionalStyle &rule : object.conditionalStyles) {
        // A new rule that says nothing yet must mark nothing.
        rule.when = needed(rule.when, u"false"_s);
        rule.color = plain(rule.color);
        rule.fill = plain(rule.fill);
    }
    // The file writes charts and tables only of those that are one; what another kind held would be
    // lost by a save, and so is lost at once, where it can be undone.
    object.chart = object.kind == ObjectKind::Chart ? normalised(object.chart) : Chart();
    object.crossTab =
        object.kind == ObjectKind::CrossTab ? normalised(object.crossTab) : CrossTab();
    return object;
}

template<class Named>
void nameApart(QList<Named> &list, const QString &instead)
{
    QStringList taken;
    for (Named &one : list) {
        one.name = freeName(needed(one.name, instead), taken);
        taken.append(one.name);
    }
}

void normalisePage(PageSetup &page)
{
    if (!PageSetup::papers().contains(page.paper, Qt::CaseInsensitive))
        page.paper = PageSetup().paper;
    for (Length *margin : {&page.left, &page.top, &page.right, &page.bottom})
        *margin = size(*margin);
    const PageSetup usual;
    // Margins that meet leave no room for anything: the usual ones are better than a refused file.
    if (page.innerWidth() <= 0)
        page.left = page.right = usual.left;
    if (page.innerHeight() <= 0)
        page.top = page.bottom = usual.top;
}

void normaliseHead(Layout &layout)
{
    layout.name = clean(layout.name);
    layout.title = clean(layout.title);
    layout.query = clean(layout.query).trimmed();
    normalisePage(layout.page);
    nameApart(layout.styles, u"Style"_s);
    for (NamedStyle &style : layout.styles)
        style.style = normalised(style.style);
    nameApart(layout.pictures, u"Picture"_s);
    nameApart(layout.parameters, u"Parameter"_s);
    for (Parameter &parameter : layout.parameters) {
        parameter.prompt = clean(parameter.prompt);
        parameter.usual = clean(parameter.usual);
        parameter.list = clean(parameter.list);
    }
    nameApart(layout.rowSets, u"Rows"_s);
    for (RowSet &set : layout.rowSets) {
        set.query = clean(set.query).trimmed();
        set.key = needed(set.key, u"ID"_s);
        set.of = needed(set.of, u"ID"_s);
    }
    nameApart(layout.groups, u"Group"_s);
    for (Group &group : layout.groups)
        group.by = needed(group.by, u"true"_s);
    for (QString &by : layout.sort)
        by = clean(by).trimmed();
    // An empty sort entry is how the user removes one by typing.
    layout.sort.removeAll(QString());
    nameApart(layout.formulas, u"Formula"_s);
    for (Formula &formula : layout.formulas)
        formula.expression = clean(formula.expression).trimmed();
}

bool isGroupBand(BandKind kind)
{
    return kind == BandKind::GroupHeader || kind == BandKind::GroupFooter;
}

bool isSubBand(BandKind kind)
{
    return kind == BandKind::SubHeader || kind == BandKind::SubDetail ||
           kind == BandKind::SubFooter;
}

Band normalised(Band band, const Layout &layout)
{
    band.height = size(band.height);
    band.printIf = clean(band.printIf);
    if (!isGroupBand(band.kind))
        band.group.clear();
    if (!isSubBand(band.kind))
        band.rows.clear();
    for (qsizetype at = 0; at < band.objects.size(); ++at) {
        const Object &given = std::as_const(band.objects)[at];
        // Written only where something differs, so that lists without a change stay shared with the
        // layout before: a drag is shown many times a second.
        if (Object object = normalised(given, layout); object != given)
            band.objects[at] = std::move(object);
    }
    return band;
}

/// Headers of outer groups come first, footers of outer groups last.
std::pair<int, int> orderOf(const Band &band, const Layout &layout)
{
    int within = 0;
    if (isGroupBand(band.kind)) {
        within = layout.groupIndex(band.group);
        if (band.kind == BandKind::GroupFooter)
            // Footers stand in the opposite order of their headers.
            within = -within;
    }
    int kind = static_cast<int>(band.kind);
    if (isSubBand(band.kind)) {
        // Header, rows and footer of each set stay together, the sets in their order.
        within = 3 * layout.rowSetIndex(band.rows) + kind - static_cast<int>(BandKind::SubHeader);
        kind = static_cast<int>(BandKind::SubHeader);
    }
    return {kind, within};
}

} // namespace

QString freeName(const QString &wanted, const QStringList &taken)
{
    QString name = wanted;
    for (int number = 2; taken.contains(name, Qt::CaseInsensitive); ++number)
        name = wanted + QString::number(number);
    return name;
}

Layout normalised(Layout layout)
{
    normaliseHead(layout);
    const auto isHomeless = [&](const Band &band) {
        return (isGroupBand(band.kind) && layout.groupIndex(band.group) < 0) ||
               (isSubBand(band.kind) && layout.rowSetIndex(band.rows) < 0);
    };
    // Asked first: removing from the list would unshare it even when nothing goes.
    if (std::any_of(layout.bands.cbegin(), layout.bands.cend(), isHomeless))
        layout.bands.removeIf(isHomeless);
    for (qsizetype at = 0; at < layout.bands.size(); ++at) {
        const Band &given = std::as_const(layout.bands)[at];
        if (Band band = normalised(given, layout); band != given)
            layout.bands[at] = std::move(band);
    }
    const auto isBefore = [&](const Band &a, const Band &b) {
        return orderOf(a, layout) < orderOf(b, layout);
    };
    if (!std::is_sorted(layout.bands.cbegin(), layout.bands.cend(), isBefore))
        std::stable_sort(layout.bands.begin(), layout.bands.end(), isBefore);
    return layout;
}

} // namespace report
