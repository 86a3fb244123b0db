#include "platform/report/paginate/BandMaker.h"

#include "platform/base/Format.h"
#include "platform/report/paginate/BarCode.h"
#include "platform/report/paginate/ChartDrawing.h"
#include "platform/report/paginate/CrossTabDrawing.h"
#include "platform/report/paginate/PictureFile.h"
#include "platform/report/paginate/TextFlow.h"

#include <QFile>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Pushes down what lies below it.
bool grows(const report::Object &object)
{
    return object.kind == ObjectKind::Text || object.kind == ObjectKind::Field ||
           object.kind == ObjectKind::CrossTab;
}

bool holdsText(const report::Object &object)
{
    return object.kind == ObjectKind::Text || object.kind == ObjectKind::Field;
}

/// A frame, or a line that isn't level, goes along with what grows beside it.
bool stretches(const report::Object &object)
{
    return object.kind == ObjectKind::Box ||
           (object.kind == ObjectKind::Line && object.height != 0);
}

/// What the designer of a layout knows an object by.
QString nameOf(const report::Object &object)
{
    if (!object.name.isEmpty())
        return object.name;
    return object.kind == ObjectKind::CrossTab ? object.crossTab.value : object.content;
}

QRect layoutFrame(const report::Object &object)
{
    return {object.x, object.y, object.width, object.height};
}

Length bottomOf(const QRect &frame)
{
    return frame.y() + frame.height();
}

/// Lines that a frame of fixed height can't show are left out, but never the first. True when some
/// are.
bool cutToHeight(QList<TextLine> &lines, const Style &style, Length height)
{
    const qsizetype all = lines.size();
    // A single line may stand a little over its frame: cut letters say more than none.
    while (lines.size() > 1 && flowHeight(lines, style) > height)
        lines.removeLast();
    return lines.size() < all;
}

TableGrid chartGrid(const report::Object &object, const ChartData &data)
{
    TableGrid grid{&object, data.title, {}, {QString()}};
    const bool isFormatted = object.kind == ObjectKind::CrossTab
                                 ? !object.crossTab.rowsFormat.isEmpty()
                                 : !object.chart.categoryFormat.isEmpty();
    QVariantList headings{data.categoryTitle};
    for (const ChartSeries &series : data.series) {
        headings.append(series.name);
        grid.formats.append(object.format);
    }
    grid.rows.append(headings);
    for (qsizetype category = 0; category < data.categories.size(); ++category) {
        // Where a format puts values together, their label says more than the first of them.
        const ChartCategory &known = data.categories[category];
        QVariantList row{isFormatted || known.value.isNull() ? QVariant(known.label) : known.value};
        for (const ChartSeries &series : data.series) {
            const std::optional<double> &value = series.values[category];
            row.append(value ? QVariant(*value) : QVariant());
        }
        grid.rows.append(row);
    }
    return grid;
}

/// How far the lines stand below the upper edge of a frame of this height.
Length verticalShift(const QList<TextLine> &lines, const Style &style, Length height)
{
    const Length room = height - flowHeight(lines, style);
    switch (style.verticalAlign) {
    case VerticalAlign::Top:
        return 0;
    case VerticalAlign::Middle:
        return room / 2;
    case VerticalAlign::Bottom:
        return room;
    }
    return 0;
}

} // namespace

BandMaker::BandMaker(const Layout &layout, const BandContext &context, const Inputs &inputs,
                     QStringList &problems)
    : m_layout(layout)
    , m_context(context)
    , m_inputs(inputs)
    , m_problems(problems)
{}

bool BandMaker::isPrinted(const compiled::Band &band) const
{
    return !band.printIf || isTrueValue(m_context.evaluate(*band.printIf));
}

MadeBand BandMaker::make(const compiled::Band &band)
{
    MadeBand made;
    std::vector<Placed> objects;
    objects.reserve(band.objects.size());
    m_linesLeft = MostLines;
    for (const compiled::Object &object : band.objects) {
        Placed placed = placedAsLaidOut(object);
        // A repeat takes no room either, but what it shows counts for the row after it.
        if (!prepare(object, placed, made) || placed.repeated)
            continue;
        if (holdsText(*object.layout))
            flow(placed);
        if (object.layout->kind == ObjectKind::CrossTab)
            fillCrossTab(placed);
        objects.push_back(std::move(placed));
    }
    // Only once all heights are known: what grows may lie below others that grow.
    push(objects);
    made.height = band.layout->height;
    made.items.reserve(static_cast<qsizetype>(objects.size()));
    for (Placed &placed : objects) {
        // What stood below an object in the layout keeps its distance to it.
        const Length below = band.layout->height - bottomOf(layoutFrame(*placed.object->layout));
        // No band gets longer than that, whatever a hostile layout asks for.
        made.height = qMin(LongestFlow, qMax(made.height, bottomOf(placed.frame) + qMax(0, below)));
        addItem(placed, made.items);
    }
    return made;
}

/// What doesn't grow by itself is only pushed or stretched by what does, and never lies lower than
/// the band then is high.
MadeBand BandMaker::measure(const compiled::Band &band)
{
    MadeBand made;
    made.height = band.layout->height;
    m_linesLeft = MostLines;
    for (const compiled::Object &object : band.objects) {
        const report::Object &layout = *object.layout;
        if (layout.kind == ObjectKind::CrossTab || bottomOf(layoutFrame(layout)) > made.height)
            return make(band);
        if (!layout.canGrow || !holdsText(layout))
            continue;
        Placed placed = placedAsLaidOut(object);
        if (!prepare(object, placed, made) || placed.repeated)
            continue;
        flow(placed);
        if (placed.grown > 0)
            return make(band);
    }
    return made;
}

BandMaker::Placed BandMaker::placedAsLaidOut(const compiled::Object &object)
{
    return {&object, layoutFrame(*object.layout), 0, {}, {}, {}, {}, {}, false};
}

bool BandMaker::prepare(const compiled::Object &object, Placed &placed, MadeBand &band) const
{
    if (object.visibleIf && !isTrueValue(m_context.evaluate(*object.visibleIf)))
        return false;
    placed.style = styleOf(object);
    if (object.value)
        placed.value = m_context.evaluate(*object.value);
    // Texts have no value of their own, only pieces; a field has no pieces.
    if (object.layout->kind == ObjectKind::Field)
        placed.text = formatted(placed.value, object.layout->format);
    placed.text += textOf(object.pieces);
    if (object.repeatSlot >= 0) {
        // Values are compared and not what is printed of them: two days of a month may read alike.
        const QVariant shown = object.value ? placed.value : QVariant(placed.text);
        const auto last = m_context.lastShown(object.repeatSlot);
        placed.repeated = last && compareValues(*last, shown) == 0;
        // Noted only: the band may yet be put on another page, where nothing counts as shown.
        if (!placed.repeated)
            band.shown.append({object.repeatSlot, shown});
    }
    return true;
}

QString BandMaker::textOf(const std::vector<compiled::Piece> &pieces) const
{
    QString text;
    for (const compiled::Piece &piece : pieces)
        text += piece.value ? base::toText(m_context.evaluate(*piece.value)) : piece.words;
    return text;
}

ChartData BandMaker::chartOf(const compiled::Object &object) const
{
    ChartData data = m_context.chartData(*object.chart);
    data.title = textOf(object.chart->title);
    data.categoryTitle = textOf(object.chart->categoryTitle);
    data.valueTitle = textOf(object.chart->valueTitle);
    return data;
}

/// The lines of a cross-tab as categories, its columns as series, totals as the last of both.
ChartData BandMaker::crossTabOf(const compiled::Object &object) const
{
    ChartData data = chartOf(object);
    if (!object.columnTotals)
        return data;
    const ChartData totals = m_context.chartData(*object.columnTotals);
    // Without rows there is nothing to add up.
    if (totals.categories.isEmpty())
        return data;
    data.categories.append(totals.categories.first());
    // Both have the same columns: they come from the same rows, in the order of their values.
    for (qsizetype column = 0; column < data.series.size(); ++column)
        data.series[column].values.append(totals.series.value(column).values.value(0));
    return data;
}

void BandMaker::flow(Placed &placed)
{
    bool isCut = false;
    placed.lines = flowText(placed.text, placed.style, placed.frame.width(), m_linesLeft, &isCut);
    // An empty text still has a line to stand on, but needs no room for it.
    const Length needed = placed.text.isEmpty() ? 0 : flowHeight(placed.lines, placed.style);
    const bool isGrowing = placed.object->layout->canGrow;
    if (isGrowing && needed > placed.frame.height()) {
        placed.grown = needed - placed.frame.height();
        placed.frame.setHeight(needed);
    }
    isCut |= !isGrowing && cutToHeight(placed.lines, placed.style, placed.frame.height());
    m_linesLeft -= placed.lines.size();
    if (!isCut)
        return;
    constexpr int ToldLength = 60;
    const QString start = placed.text.left(ToldLength).simplified();
    tellOnce(*placed.object->layout,
             u"%1: the text \"%2\" is cut off, %3."_s.arg(
                 nameOf(*placed.object->layout),
                 start.size() < placed.text.size() ? start + QChar(0x2026) : start,
                 isGrowing ? u"it is too long"_s : u"its frame is too small"_s));
}

/// A cross-tab is as high as its lines, and pushes what lies below.
void BandMaker::fillCrossTab(Placed &placed)
{
    const report::Object &object = *placed.object->layout;
    const ChartData data = crossTabOf(*placed.object);
    CrossTabDrawing drawing = drawCrossTab(object, placed.style, data, placed.frame.width());
    if (drawing.isTooNarrow)
        tellOnce(object, u"%1: a cross-tab is too narrow for its values."_s.arg(nameOf(object)));
    if (drawing.isCut || data.isCut)
        tellOnce(object, u"%1: a cross-tab has too many lines to show."_s.arg(nameOf(object)));
    placed.table = std::move(drawing.items);
    placed.grown = qMax(0, drawing.height - placed.frame.height());
    placed.frame.setHeight(placed.frame.height() + placed.grown);
}

/// What is wrong in each row is told with the first one.
void BandMaker::tellOnce(const report::Object &object, const QString &problem)
{
    if (m_told.contains(&object))
        return;
    m_told.insert(&object);
    m_problems.append(problem);
}

MadeBand BandMaker::makeCells(const compiled::Band &band) const
{
    MadeBand made;
    for (const compiled::Object &object : band.objects) {
        if (!holdsText(*object.layout) && object.layout->kind != ObjectKind::BarCode &&
            !object.chart)
            continue;
        Placed placed{&object, {}, 0, {}, {}, {}, {}, {}, false};
        if (!prepare(object, placed, made))
            continue;
        if (object.chart) {
            made.grids.append(chartGrid(*object.layout, crossTabOf(object)));
            continue;
        }
        if (object.layout->kind == ObjectKind::BarCode)
            placed.text = base::toText(placed.value);
        made.cells.append({object.layout, std::move(placed.text), std::move(placed.value),
                           std::move(placed.style)});
    }
    return made;
}

void BandMaker::push(std::vector<Placed> &objects) const
{
    const auto growing = [](const Placed &placed) { return placed.grown > 0; };
    // Most bands are of one line that fits: nothing is sorted and compared for them.
    if (std::none_of(objects.cbegin(), objects.cend(), growing))
        return;
    QList<Placed *> byTop;
    for (Placed &placed : objects)
        byTop.append(&placed);
    std::stable_sort(byTop.begin(), byTop.end(), [](const Placed *a, const Placed *b) {
        return a->object->layout->y < b->object->layout->y;
    });
    // How far the lower edge of a text has come down.
    const auto lowered = [](const Placed &placed) {
        return placed.frame.y() - placed.object->layout->y + placed.grown;
    };
    for (Placed *placed : byTop) {
        Length down = 0;
        for (const Placed *other : byTop)
            // Also what did not grow itself passes on how far it was pushed.
            if (other != placed && grows(*other->object->layout) &&
                bottomOf(layoutFrame(*other->object->layout)) <= placed->object->layout->y)
                down = qMax(down, lowered(*other));
        // What would lie farther down than any band is high is left there, out of sight.
        placed->frame.moveTop(qMin(placed->object->layout->y + down, 2 * LongestFlow));
    }
    for (Placed *placed : byTop) {
        if (!stretches(*placed->object->layout))
            continue;
        const QRect own = layoutFrame(*placed->object->layout);
        Length stretch = 0;
        for (const Placed *other : byTop) {
            const QRect theirs = layoutFrame(*other->object->layout);
            if (grows(*other->object->layout) && own.y() <= theirs.y() &&
                bottomOf(own) >= bottomOf(theirs))
                stretch = qMax(stretch, lowered(*other));
        }
        const Length down = placed->frame.y() - own.y();
        placed->frame.setHeight(own.height() + qMax(0, stretch - down));
    }
}

void BandMaker::addItem(Placed &placed, QList<PageItem> &items)
{
    const report::Object &object = *placed.object->layout;
    const QRect &frame = placed.frame;
    switch (object.kind) {
    case ObjectKind::Text:
    case ObjectKind::Field: {
        if (placed.text.isEmpty() && placed.style.border.isNone() && !placed.style.fill.isValid())
            return;
        TextItem item{frame, std::move(placed.lines), std::move(placed.style)};
        const Length shift = verticalShift(item.lines, item.style, frame.height());
        for (TextLine &line : item.lines) {
            line.x += frame.x();
            line.baseline += frame.y() + shift;
        }
        items.append(std::move(item));
        return;
    }
    case ObjectKind::Line:
        items.append(LineItem{frame.topLeft(),
                              QPoint(frame.x() + frame.width(), frame.y() + frame.height()),
                              object.lineWidth, placed.style.color});
        return;
    case ObjectKind::Box:
        items.append(BoxItem{frame, object.lineWidth, placed.style.color, placed.style.fill});
        return;
    case ObjectKind::Picture: {
        if (const QByteArray data = pictureOf(placed); !data.isEmpty())
            items.append(PictureItem{frame, data, placed.style.align});
        return;
    }
    case ObjectKind::CrossTab:
        for (PageItem item : placed.table) {
            movePageItem(item, frame.topLeft());
            items.append(std::move(item));
        }
        return;
    case ObjectKind::Chart: {
        const ChartData data = chartOf(*placed.object);
        if (data.isCut)
            tellOnce(object, u"%1: a chart has too many values to show."_s.arg(nameOf(object)));
        items.append(drawChart(object, placed.style, data, frame));
        return;
    }
    case ObjectKind::BarCode: {
        const QString text = base::toText(placed.value);
        if (text.isEmpty())
            return;
        if (const auto code = barCode(text, frame))
            items.append(*code);
        else
            tellOnce(object, u"\"%1\" can't be written as a bar code."_s.arg(text.left(100)));
        return;
    }
    }
}

Style BandMaker::styleOf(const compiled::Object &object) const
{
    Style style = object.layout->style;
    for (const compiled::ConditionalStyle &condition : object.styles) {
        if (!isTrueValue(m_context.evaluate(condition.when)))
            continue;
        if (condition.style->color.isValid())
            style.color = condition.style->color;
        if (condition.style->fill.isValid())
            style.fill = condition.style->fill;
        // A condition adds to the looks; none takes bold away that the layout gives.
        style.font.bold |= condition.style->bold;
    }
    return style;
}

/// The bytes of a picture that can be shown; what is wrong with another is told.
QByteArray BandMaker::pictureOf(const Placed &placed)
{
    const report::Object &object = *placed.object->layout;
    const auto tell = [&](const QString &fault) {
        tellOnce(object, u"The picture \"%1\" %2."_s.arg(object.content, fault));
    };
    if (placed.object->value) {
        const QByteArray data = placed.value.toByteArray();
        const QString fault = data.isEmpty() ? QString() : pictureFault(data);
        if (fault.isEmpty())
            return data;
        tell(fault);
        return {};
    }
    // A picture stands in each band of thousands; its file is read once.
    const auto known = m_pictures.constFind(object.content);
    if (known != m_pictures.cend())
        return *known;
    QByteArray data = storedPicture(object.content);
    const QString fault = data.isEmpty() ? u"is not there"_s : pictureFault(data);
    if (!fault.isEmpty()) {
        tell(fault);
        data.clear();
    }
    m_pictures.insert(object.content, data);
    return data;
}

/// One of the layout's own pictures, or a file in its folder.
QByteArray BandMaker::storedPicture(const QString &name) const
{
    if (const int own = m_layout.pictureIndex(name); own >= 0)
        return m_layout.pictures[own].data;
    constexpr qint64 LargestFile = 64 * 1024 * 1024;
    QFile file(pictureFileBeside(m_inputs.folder, name).value_or(QString()));
    return !file.fileName().isEmpty() && file.size() <= LargestFile &&
                   file.open(QIODevice::ReadOnly)
               ? file.readAll()
               : QByteArray();
}

} // namespace report
