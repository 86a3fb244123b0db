#include "platform/report/paginate/CrossTabDrawing.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/TextFlow.h"

#include <utility>

namespace report {
namespace {

constexpr Length ColumnGap = 250;
constexpr Length LineWidth = 15;
constexpr double NamesShare = 0.4; ///< of the width, at most for the lines' names

class Drawing
{
public:
    Drawing(const Object &object, const Style &style, const ChartData &data, Length width)
        : m_object(object)
        , m_style(style)
        , m_data(data)
        , m_width(width)
        , m_bold(style.font)
    {
        m_bold.bold = true;
        Style bold;
        bold.font = m_bold;
        // One height for all lines, that of bold ones, so that names and values meet.
        m_line = flowHeight({TextLine()}, bold) + 40;
    }

    CrossTabDrawing draw()
    {
        measure();
        if (!m_data.title.isEmpty())
            addLine([&] { addText(m_data.title, 0, m_width, Align::Left, true); });
        int first = 0;
        do {
            const int end = columnsFrom(first);
            drawBlock(first, end);
            first = end;
            if (first < m_data.series.size())
                m_y += m_line;
        } while (first < m_data.series.size() && !m_result.isCut);
        m_result.height = m_y;
        return std::move(m_result);
    }

private:
    [[nodiscard]] bool isTotal(qsizetype category) const
    {
        return m_object.crossTab.totals && category == m_data.categories.size() - 1;
    }

    [[nodiscard]] QString text(qsizetype column, qsizetype category) const
    {
        const std::optional<double> &value = m_data.series[column].values[category];
        return value ? formatted(*value, m_object.format) : QString();
    }

    /// All is measured in bold, as headings and totals are; no column takes more than the room
    /// beside the names.
    void measure()
    {
        m_names = textWidth(m_data.categoryTitle, m_bold);
        for (const ChartCategory &category : m_data.categories)
            m_names = qMax(m_names, textWidth(category.label, m_bold));
        m_names = qMin(m_names, static_cast<Length>(m_width * NamesShare));
        for (qsizetype column = 0; column < m_data.series.size(); ++column) {
            Length widest = 0;
            for (qsizetype category = 0; category < m_data.categories.size(); ++category)
                widest = qMax(widest, textWidth(text(column, category), m_bold));
            const Length room = m_width - m_names - ColumnGap;
            m_result.isTooNarrow |= widest > room;
            const Length heading = textWidth(m_data.series[column].name, m_bold);
            m_columns.append(qMin(qMax(widest, heading), room));
        }
    }

    /// One behind the last column that has room beside the one it begins with.
    [[nodiscard]] int columnsFrom(int first) const
    {
        Length used = m_names;
        // At least one column, however wide, or the drawing would never end.
        int end = first;
        while (end < m_columns.size() &&
               (end == first || used + ColumnGap + m_columns[end] <= m_width))
            used += ColumnGap + m_columns[end++];
        return end;
    }

    /// The lines' names and these columns, from the headings to the totals.
    void drawBlock(int first, int end)
    {
        Length right = m_names;
        for (int column = first; column < end; ++column)
            right += ColumnGap + m_columns[column];
        addLine([&] {
            addText(m_data.categoryTitle, 0, m_names, Align::Left, true);
            addColumns(first, end, true, [&](int column) { return m_data.series[column].name; });
        });
        addRule(right);
        for (qsizetype category = 0; category < m_data.categories.size(); ++category) {
            const bool bold = isTotal(category);
            if (bold)
                addRule(right);
            addLine([&] {
                addText(m_data.categories[category].label, 0, m_names, Align::Left, bold);
                addColumns(first, end, bold, [&](int column) { return text(column, category); });
            });
        }
    }

    template<class TextOf>
    void addColumns(int first, int end, bool bold, TextOf textOf)
    {
        Length x = m_names;
        for (int column = first; column < end; ++column) {
            x += ColumnGap;
            addText(textOf(column), x, m_columns[column], Align::Right, bold);
            x += m_columns[column];
        }
    }

    /// Nothing is drawn beyond the longest flow, which is told as cut.
    template<class Fill>
    void addLine(Fill fill)
    {
        if (m_y > LongestFlow) {
            m_result.isCut = true;
            return;
        }
        fill();
        m_y += m_line;
    }

    void addRule(Length right)
    {
        m_result.items.append(LineItem{{0, m_y}, {right, m_y}, LineWidth, m_style.color});
    }

    void addText(const QString &text, Length x, Length width, Align align, bool bold)
    {
        if (text.isEmpty())
            return;
        Style style;
        style.font = bold ? m_bold : m_style.font;
        style.color = m_style.color;
        style.align = align;
        const QString shown = elidedText(text, style.font, width);
        const Length wide = textWidth(shown, style.font);
        const Length from = align == Align::Right ? x + width - wide : x;
        m_result.items.append(
            TextItem{QRect(x, m_y, width, m_line),
                     {TextLine{shown, from, m_y + 20 - lineTop(TextLine(), style), wide}},
                     style});
    }

    const Object &m_object;
    const Style &m_style;
    const ChartData &m_data;
    const Length m_width;
    Font m_bold;
    Length m_line = 0;
    Length m_names = 0; ///< the width of the lines' names
    QList<Length> m_columns;
    Length m_y = 0;
    CrossTabDrawing m_result;
};

} // namespace

CrossTabDrawing drawCrossTab(const Object &object, const Style &style, const ChartData &data,
                             Length width)
{
    return Drawing(object, style, data, width).draw();
}

} // namespace report
