#include "equipment/ui/DepreciationChart.h"

#include "platform/db/Recordset.h"
#include "platform/input/Theme.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostYearLabels = 12;

QLineSeries *makeLine(const QString &name, const QColor &color, Qt::PenStyle style)
{
    auto *line = new QLineSeries;
    line->setName(name);
    line->setPen(QPen(color, 2, style));
    line->setPointsVisible(true);
    return line;
}

void dress(QValueAxis &axis)
{
    axis.setLabelsFont(theme::textFont());
    axis.setLabelsColor(theme::textColor());
    axis.setLinePenColor(theme::lineColor());
    axis.setGridLineColor(theme::lineColor().lighter(135));
}

} // namespace

DepreciationChart::DepreciationChart(QWidget *parent)
    : QChartView(parent)
{
    setObjectName(u"DepreciationChart"_s);
    setAccessibleName(u"Curve of the depreciation"_s);
    setRenderHint(QPainter::Antialiasing);
    setMinimumHeight(210);
    setFrameShape(QFrame::StyledPanel);
    setFocusPolicy(Qt::NoFocus);
    setBackgroundBrush(Qt::white);
    chart()->setBackgroundVisible(false);
    chart()->setMargins({0, 0, 8, 0});
    chart()->setTitleFont(theme::labelFont());
    chart()->setTitleBrush(theme::mainColor());
    chart()->legend()->setFont(theme::textFont());
    chart()->legend()->setAlignment(Qt::AlignBottom);
}

void DepreciationChart::show(const db::Recordset &rows)
{
    chart()->removeAllSeries();
    const auto former = chart()->axes();
    for (QAbstractAxis *axis : former) {
        chart()->removeAxis(axis);
        delete axis;
    }
    chart()->legend()->setVisible(!rows.isEmpty());
    chart()->setTitle(rows.isEmpty() ? u"No schedule yet"_s : QString());
    if (rows.isEmpty())
        return;

    QLineSeries *book = makeLine(u"Book Value"_s, theme::mainColor(), Qt::SolidLine);
    QLineSeries *accumulated =
        makeLine(u"Accumulated Depreciation"_s, theme::accentColor(), Qt::DashLine);
    double highest = 0;
    double first = rows.row(0).real(u"End of Year");
    double last = first;
    for (const db::Row row : rows) {
        const double year = row.real(u"End of Year");
        const double worth = row.real(u"Book Value");
        const double lost = row.real(u"Accumualted Depreciation");
        book->append(year, worth);
        accumulated->append(year, lost);
        highest = std::max({highest, worth, lost});
        first = std::min(first, year);
        last = std::max(last, year);
    }
    // Two axes of their own per chart, since the years of another machine need other ticks.
    auto *years = new QValueAxis;
    years->setRange(first, std::max(last, first + 1));
    years->setLabelFormat(u"%d"_s);
    years->setTickType(QValueAxis::TicksDynamic);
    years->setTickAnchor(first);
    years->setTickInterval(1 + static_cast<int>(last - first) / MostYearLabels);
    auto *money = new QValueAxis;
    money->setRange(0, std::max(highest, 1.0));
    money->setLabelFormat(u"$%.0f"_s);
    for (QValueAxis *axis : {years, money})
        dress(*axis);
    chart()->addAxis(years, Qt::AlignBottom);
    chart()->addAxis(money, Qt::AlignLeft);
    for (QLineSeries *line : {book, accumulated}) {
        chart()->addSeries(line);
        line->attachAxis(years);
        line->attachAxis(money);
    }
    money->applyNiceNumbers();
}
