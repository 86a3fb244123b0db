#include "platform/report/paginate/ChartDrawing.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/ChartAxis.h"
#include "platform/report/paginate/ChartCanvas.h"
#include "platform/report/paginate/TextFlow.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;
using namespace chart;

constexpr Length Inset = 100;       ///< between the frame and what is in it
constexpr Length TickSpacing = 600; ///< at least, between two ticks
constexpr Length AxisWidth = 15;
constexpr int MostMarkers = 60;   ///< more would hide the line
constexpr double BarShare = 0.75; ///< of a category's room, that its bars fill
constexpr Length SmallestPlot = 600;
constexpr Length SmallestWrap = 1200; ///< of a category's room, for names in several lines
constexpr int MostLabelLines = 3;

const QColor GridColor(216, 216, 216);

/// The drawing of one chart: what stands around takes its room off the plot.
class Drawing : private ChartCanvas
{
public:
    Drawing(const Object &object, const Style &style, const ChartData &data, const QRect &frame)
        : ChartCanvas(style, data)
        , m_object(object)
        , m_style(style)
        , m_data(data)
        , m_frame(frame)
        , m_count(static_cast<int>(data.categories.size()))
    {}

    QList<PageItem> draw()
    {
        // The frame's fill and border lie below all else.
        items.append(TextItem{m_frame, {}, m_style});
        m_plot = m_frame.adjusted(Inset, Inset, -Inset, -Inset);
        drawTitle();
        if (!hasValues()) {
            drawNoValues();
            return std::move(items);
        }
        drawLegend(*this, m_object.chart, m_data, m_plot);
        keepRoomForTitles();
        layOutAxes();
        if (m_plot.width() < SmallestPlot || m_plot.height() < SmallestPlot)
            return std::move(items);
        drawAxisTitles();
        drawAxes();
        if (m_object.chart.kind == ChartKind::Line)
            drawLines();
        else
            drawBars();
        drawZero();
        return std::move(items);
    }

private:
    void drawTitle()
    {
        if (m_data.title.isEmpty())
            return;
        addText(m_data.title, QRect(m_plot.topLeft(), QSize(m_plot.width(), line)), Align::Center,
                color, true);
        m_plot.setTop(m_plot.top() + line + Gap);
    }

    void drawNoValues()
    {
        items.append(BoxItem{m_plot, AxisWidth, GridColor, QColor()});
        addText(u"No values"_s,
                QRect(m_plot.x(), m_plot.y() + (m_plot.height() - line) / 2, m_plot.width(), line),
                Align::Center, QuietColor);
    }

    [[nodiscard]] bool hasValues() const
    {
        return std::any_of(m_data.series.cbegin(), m_data.series.cend(), [](const auto &series) {
            return std::any_of(series.values.cbegin(), series.values.cend(),
                               [](const auto &value) { return value.has_value(); });
        });
    }

    // --- Axes --------------------------------------------------------------------------------

    /// The title below the plot, which also tells what is left out.
    [[nodiscard]] QString lowerTitle() const
    {
        if (m_data.leftOut == 0)
            return m_data.categoryTitle;
        const QString part = u"%1 of %2"_s.arg(m_count).arg(m_count + m_data.leftOut);
        return m_data.categoryTitle.isEmpty() ? part : u"%1 (%2)"_s.arg(m_data.categoryTitle, part);
    }

    void keepRoomForTitles()
    {
        m_titlesLeft = m_plot.x();
        if (!lowerTitle().isEmpty())
            m_plot.setHeight(m_plot.height() - line);
        m_titlesTop = m_plot.y() + m_plot.height();
        if (!m_data.valueTitle.isEmpty())
            m_plot.setLeft(m_plot.left() + line + Gap);
    }

    /// Both stand in the middle of the plot.
    void drawAxisTitles()
    {
        if (const QString title = lowerTitle(); !title.isEmpty())
            addText(title, QRect(m_plot.x(), m_titlesTop, m_plot.width(), line), Align::Center,
                    color);
        if (!m_data.valueTitle.isEmpty())
            addTurned(m_data.valueTitle, QRect(m_titlesLeft, m_plot.y(), line, m_plot.height()),
                      true);
    }

    [[nodiscard]] QString valueLabel(double value) const
    {
        return formatted(value, m_object.format);
    }

    /// The axis for a height; its labels all read differently.
    [[nodiscard]] ChartAxis axisFor(Length height) const
    {
        const auto [least, largest] = extent();
        ChartAxis axis(least, largest, qBound(1, height / qMax(TickSpacing, 2 * line), 10),
                       isWhole());
        const auto readsTwice = [&] {
            for (int tick = 1; tick < axis.ticks(); ++tick)
                if (valueLabel(axis.tick(tick)) == valueLabel(axis.tick(tick - 1)))
                    return true;
            return false;
        };
        constexpr int MostWidenings = 40;
        for (int turn = 0; turn < MostWidenings && axis.ticks() > 2 && readsTwice(); ++turn)
            axis.widen();
        return axis;
    }

    /// Counts of things get no ticks between them.
    [[nodiscard]] bool isWhole() const
    {
        return std::all_of(m_data.series.cbegin(), m_data.series.cend(), [](const auto &series) {
            return std::all_of(series.values.cbegin(), series.values.cend(), [](const auto &value) {
                return !value || *value == std::trunc(*value);
            });
        });
    }

    /// The least and largest value that has to be shown. Bars stand on zero; a line that is far
    /// from it would be flat.
    [[nodiscard]] std::pair<double, double> extent() const
    {
        const bool stacked = m_object.chart.kind == ChartKind::StackedBars;
        std::optional<double> least, largest;
        const auto take = [&](double value) {
            least = qMin(least.value_or(value), value);
            largest = qMax(largest.value_or(value), value);
        };
        for (int category = 0; category < m_count; ++category) {
            double above = 0, below = 0;
            for (const ChartSeries &series : m_data.series) {
                const double value = series.values[category].value_or(0);
                (value < 0 ? below : above) += value;
                if (!stacked && series.values[category])
                    take(value);
            }
            if (stacked) {
                take(above);
                take(below);
            }
        }
        const bool isFar = m_object.chart.kind == ChartKind::Line && *least * *largest > 0 &&
                           *largest - *least < 0.5 * qMax(std::abs(*least), std::abs(*largest));
        if (!isFar)
            take(0);
        return {*least, *largest};
    }

    /// The lowest label of the values reaches half a line below the plot.
    [[nodiscard]] Length labelGap() const { return line / 2 + Gap / 4; }

    /// Room for the labels of both axes; how high the plot is decides on the ticks, and so on how
    /// wide their labels are.
    void layOutAxes()
    {
        m_plot.setTop(m_plot.top() + line / 2);
        const QRect room = m_plot;
        Length below = line + labelGap();
        // The labels' width changes the slots of the categories, and their height the plot: twice
        // is near enough.
        for (int turn = 0; turn < 2; ++turn) {
            m_plot = room;
            m_plot.setHeight(room.height() - below);
            m_axis = axisFor(m_plot.height());
            Length widest = 0;
            for (int tick = 0; tick < m_axis.ticks(); ++tick)
                widest = qMax(widest, textWidth(valueLabel(m_axis.tick(tick)), font));
            m_labelWidth = qMin(widest, static_cast<Length>(room.width() * LabelShare));
            m_plot.setLeft(room.left() + m_labelWidth + Gap);
            below = layOutCategories() + labelGap();
        }
    }

    [[nodiscard]] double slotWidth() const
    {
        return static_cast<double>(m_plot.width()) / qMax(1, m_count);
    }

    /// Decides how the categories are written; the height that they need.
    Length layOutCategories()
    {
        Length widest = 0;
        for (const ChartCategory &category : m_data.categories)
            widest = qMax(widest, textWidth(category.label, font));
        const double slot = slotWidth();
        const auto mostHeight = static_cast<Length>(m_frame.height() * LabelShare);
        // A line has its categories in a row that readers go on by themselves.
        const bool mayThin = m_object.chart.kind == ChartKind::Line && widest < m_plot.width() / 5;
        m_isWrapped = widest + Gap > slot && mayWrap();
        if (m_isWrapped)
            return m_labelHeight = wrappedLines() * line;
        m_isTurned = widest + Gap > slot && !mayThin;
        const double needed = m_isTurned ? line : widest + Gap;
        m_every = qMax(1, static_cast<int>(std::ceil(needed / slot)));
        m_labelHeight = m_isTurned ? qMin(widest, mostHeight) : line;
        return m_labelHeight;
    }

    [[nodiscard]] QList<TextLine> wrapped(const QString &label) const
    {
        Style style;
        style.font = font;
        style.align = Align::Center;
        return flowText(label, style, static_cast<Length>(slotWidth()) - Gap);
    }

    [[nodiscard]] int wrappedLines() const
    {
        qsizetype most = 1;
        for (const ChartCategory &category : m_data.categories)
            most = qMax(most, wrapped(category.label).size());
        return static_cast<int>(most);
    }

    /// True when all names can stand upright in a few lines, their words whole.
    [[nodiscard]] bool mayWrap() const
    {
        const Length room = static_cast<Length>(slotWidth()) - Gap;
        if (room < SmallestWrap)
            return false;
        for (const ChartCategory &category : m_data.categories)
            for (const QString &word : category.label.split(u' '))
                if (textWidth(word, font) > room)
                    return false;
        return wrappedLines() <= MostLabelLines;
    }

    void addWrapped(const QString &label, int category, Length top)
    {
        const Length left = xOf(category) + Gap / 2;
        const Length width = static_cast<Length>(slotWidth()) - Gap;
        for (const TextLine &part : wrapped(label)) {
            addText(part.text, QRect(left, top, width, line), Align::Center, color);
            top += line;
        }
    }

    [[nodiscard]] Length xOf(double slots) const
    {
        return m_plot.x() + static_cast<Length>(std::lround(slots * slotWidth()));
    }
    [[nodiscard]] Length yOf(double value) const
    {
        return m_plot.y() + m_plot.height() -
               static_cast<Length>(std::lround(m_axis.share(value) * m_plot.height()));
    }

    void drawAxes()
    {
        const Length right = m_plot.x() + m_plot.width();
        for (int tick = 0; tick < m_axis.ticks(); ++tick) {
            const Length y = yOf(m_axis.tick(tick));
            items.append(LineItem{{m_plot.x(), y}, {right, y}, Hairline, GridColor});
            addText(valueLabel(m_axis.tick(tick)),
                    QRect(m_plot.x() - Gap - m_labelWidth, y - line / 2, m_labelWidth, line),
                    Align::Right, color);
        }
        const Length top = m_plot.y() + m_plot.height() + labelGap();
        const Length end = m_plot.x() + m_plot.width() + Inset / 2;
        Length free = m_frame.x();
        for (int category = 0; category < m_count; category += m_every) {
            const QString &label = m_data.categories[category].label;
            const Length middle = xOf(category + 0.5);
            if (m_isWrapped) {
                addWrapped(label, category, top);
                continue;
            }
            if (m_isTurned) {
                const Length left = qMin(middle - line / 2, end - line);
                if (left < free)
                    continue;
                addTurned(label, QRect(left, top, line, m_labelHeight), false);
                free = left + line;
                continue;
            }
            // The first and the last label of a thinned row would reach beyond the plot.
            const Length width = textWidth(label, font);
            const Length x =
                qBound(m_frame.x(), middle - width / 2, qMax(m_frame.x(), end - width));
            if (x < free)
                continue;
            addText(label, QRect(x, top, width, line), Align::Left, color);
            free = x + width + Gap / 2;
        }
    }

    /// Last, so that bars don't cover it.
    void drawZero()
    {
        const double zero = qBound(m_axis.low(), 0.0, m_axis.high());
        const Length right = m_plot.x() + m_plot.width();
        items.append(LineItem{{m_plot.x(), yOf(zero)}, {right, yOf(zero)}, AxisWidth, AxisColor});
    }

    // --- Values ------------------------------------------------------------------------------

    /// One that is too thin for an edge has none, else the edge would be all of it.
    void addBar(Length from, Length to, double low, double high, const QColor &fill)
    {
        const Length top = yOf(high);
        const Length height = yOf(low) - top;
        if (height > 0)
            items.append(BoxItem{QRect(from, top, qMax(1, to - from), height),
                                 to - from > 10 * Hairline ? Hairline : 0, AxisColor, fill});
    }

    /// Negative values hang down from zero; stacked ones apart from the positive.
    void drawBars()
    {
        const bool stacked = m_object.chart.kind == ChartKind::StackedBars;
        const int beside = stacked ? 1 : static_cast<int>(m_data.series.size());
        const double width = BarShare / beside;
        for (int category = 0; category < m_count; ++category) {
            const double left = category + (1 - BarShare) / 2;
            double above = 0, below = 0;
            for (int number = 0; number < m_data.series.size(); ++number) {
                const ChartSeries &series = m_data.series[number];
                const double value = series.values[category].value_or(0);
                const double from = left + (stacked ? 0 : number * width);
                double &foot = value < 0 ? below : above;
                addBar(xOf(from), xOf(from + width), qMin(foot, foot + value),
                       qMax(foot, foot + value), series.color);
                if (stacked)
                    foot += value;
            }
        }
    }

    /// A category without a value parts the line; what stands alone then gets a marker, to be seen
    /// at all.
    void drawLines()
    {
        for (int number = 0; number < m_data.series.size(); ++number) {
            const ChartSeries &series = m_data.series[number];
            QList<QPoint> run;
            QList<QPoint> markers;
            const auto endRun = [&] {
                if (run.size() > 1)
                    addShape(run, false, CurveWidth, series.color);
                if (run.size() == 1 || m_count <= MostMarkers)
                    markers.append(run);
                run.clear();
            };
            for (int category = 0; category < m_count; ++category) {
                if (const auto &value = series.values[category])
                    run.append(QPoint(xOf(category + 0.5), yOf(*value)));
                else
                    endRun();
            }
            endRun();
            for (const QPoint &marker : std::as_const(markers))
                addMarker(number, marker);
        }
    }

    const Object &m_object;
    const Style &m_style;
    const ChartData &m_data;
    const QRect m_frame;
    const int m_count;       ///< of categories
    QRect m_plot;            ///< what is left for the values
    Length m_titlesLeft = 0; ///< of the values' title
    Length m_titlesTop = 0;  ///< of the categories'
    ChartAxis m_axis{0, 1, 1, false};
    Length m_labelWidth = 0;  ///< of the values' labels
    Length m_labelHeight = 0; ///< of the categories'
    bool m_isTurned = false;
    bool m_isWrapped = false;
    int m_every = 1; ///< each so many category is named
};

} // namespace

QList<PageItem> drawChart(const Object &object, const Style &style, const ChartData &data,
                          const QRect &frame)
{
    return Drawing(object, style, data, frame).draw();
}

} // namespace report
