#include "platform/report/paginate/ChartCanvas.h"
#include "platform/report/paginate/TextFlow.h"

#include <vector>

namespace report {
namespace {

using namespace Qt::StringLiterals;
using namespace chart;

class Legend
{
public:
    Legend(ChartCanvas &canvas, const Chart &layout, const ChartData &data, QRect &plot)
        : m_canvas(canvas)
        , m_layout(layout)
        , m_data(data)
        , m_plot(plot)
        , m_line(canvas.line)
    {}

    void draw()
    {
        // A single series has nothing to be told apart from.
        if (m_data.series.size() < 2 || m_layout.legend == LegendPlace::None)
            return;
        if (m_layout.legend == LegendPlace::Right)
            drawRight();
        else
            drawBelow();
    }

private:
    [[nodiscard]] Length keyWidth() const { return m_line + Gap / 2; }

    /// The sign by which a series is known: a piece of its line with its marker, or a square of its
    /// fill.
    void drawKey(int series, QPoint place)
    {
        const QColor &color = m_data.series[series].color;
        if (m_layout.kind == ChartKind::Line) {
            const QPoint middle = place + QPoint(m_line / 2, m_line / 2);
            m_canvas.items.append(LineItem{middle - QPoint(m_line / 2, 0),
                                           middle + QPoint(m_line / 2, 0), CurveWidth, color});
            m_canvas.addMarker(series, middle);
            return;
        }
        const Length edge = m_line / 5;
        m_canvas.items.append(
            BoxItem{QRect(place, QSize(m_line, m_line)).adjusted(edge, edge, -edge, -edge),
                    Hairline, AxisColor, color});
    }

    /// What a legend leaves out for want of room is counted at its end.
    [[nodiscard]] static QString moreText(int more) { return u"and %1 more"_s.arg(more); }

    void drawRight()
    {
        Length widest = 0;
        for (const ChartSeries &series : m_data.series)
            widest = qMax(widest, textWidth(series.name, m_canvas.font));
        widest = qMin(widest, static_cast<Length>(m_plot.width() * LabelShare));
        const Length left = m_plot.x() + m_plot.width() - widest - keyWidth();
        const int count = static_cast<int>(m_data.series.size());
        const int room = qMax(1, m_plot.height() / m_line);
        const int shown = count <= room ? count : room - 1;
        for (int series = 0; series < shown; ++series) {
            const QPoint place(left, m_plot.y() + series * m_line);
            drawKey(series, place);
            m_canvas.addText(m_data.series[series].name,
                             QRect(place + QPoint(keyWidth(), 0), QSize(widest, m_line)),
                             Align::Left, m_canvas.color);
        }
        if (shown < count)
            m_canvas.addText(moreText(count - shown),
                             QRect(left, m_plot.y() + shown * m_line, widest + keyWidth(), m_line),
                             Align::Left, QuietColor);
        m_plot.setWidth(m_plot.width() - widest - keyWidth() - 2 * Gap);
    }

    /// Rows of keys from left to right, at most a third of the height.
    void drawBelow()
    {
        struct Key
        {
            int series;
            Length x;
            Length width;
            int row;
        };
        const int mostRows = qMax(1, m_plot.height() / 3 / m_line);
        const int count = static_cast<int>(m_data.series.size());
        std::vector<Key> keys;
        std::vector<Length> ends{0};
        for (int series = 0; series < count; ++series) {
            const Length width =
                qMin(textWidth(m_data.series[series].name, m_canvas.font), m_plot.width() / 2);
            const Length needed = keyWidth() + width;
            const Length more = textWidth(moreText(count), m_canvas.font) + 3 * Gap;
            const bool isLastRow = static_cast<int>(ends.size()) == mostRows;
            // Room for "and so many more" is kept until it is sure that all find a place.
            const Length reserve = isLastRow && series + 1 < count ? more : 0;
            const Length from = ends.back() == 0 ? 0 : ends.back() + 3 * Gap;
            if (from > 0 && from + needed + reserve > m_plot.width()) {
                if (isLastRow)
                    break;
                ends.push_back(0);
                --series;
                continue;
            }
            keys.push_back({series, from, width, static_cast<int>(ends.size()) - 1});
            ends.back() = from + needed;
        }
        const Length top = m_plot.y() + m_plot.height() - static_cast<int>(ends.size()) * m_line;
        const auto rowLeft = [&](int row) {
            return m_plot.x() + qMax(0, (m_plot.width() - ends[row]) / 2);
        };
        const int left = count - static_cast<int>(keys.size());
        if (left > 0) {
            const Length width = textWidth(moreText(left), m_canvas.font);
            const Length from = ends.back() + 3 * Gap;
            ends.back() = from + width;
            m_canvas.addText(moreText(left),
                             QRect(rowLeft(static_cast<int>(ends.size()) - 1) + from,
                                   top + (static_cast<int>(ends.size()) - 1) * m_line, width,
                                   m_line),
                             Align::Left, QuietColor);
        }
        for (const Key &key : keys) {
            const QPoint place(rowLeft(key.row) + key.x, top + key.row * m_line);
            drawKey(key.series, place);
            m_canvas.addText(m_data.series[key.series].name,
                             QRect(place + QPoint(keyWidth(), 0), QSize(key.width, m_line)),
                             Align::Left, m_canvas.color);
        }
        m_plot.setHeight(top - Gap - m_plot.y());
    }

    ChartCanvas &m_canvas;
    const Chart &m_layout;
    const ChartData &m_data;
    QRect &m_plot;
    const Length m_line;
};

} // namespace

void drawLegend(ChartCanvas &canvas, const Chart &layout, const ChartData &data, QRect &plot)
{
    Legend(canvas, layout, data, plot).draw();
}

} // namespace report
