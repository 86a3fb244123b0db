#include "core/ui/LineChart.h"

#include "platform/input/Theme.h"

LineChart::LineChart(const QString &name, const QString &accessibleName, QWidget *parent)
    : QChartView(parent)
{
    setObjectName(name);
    setAccessibleName(accessibleName);
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

void LineChart::clear(const QString &title)
{
    chart()->removeAllSeries();
    const auto former = chart()->axes();
    for (QAbstractAxis *axis : former) {
        chart()->removeAxis(axis);
        delete axis;
    }
    chart()->legend()->setVisible(title.isEmpty());
    chart()->setTitle(title);
}

QLineSeries *LineChart::makeLine(const QString &name, const QColor &color, Qt::PenStyle style)
{
    auto *line = new QLineSeries;
    line->setName(name);
    line->setPen(QPen(color, 2, style));
    line->setPointsVisible(true);
    return line;
}

void LineChart::dress(QAbstractAxis &axis)
{
    axis.setLabelsFont(theme::textFont());
    axis.setLabelsColor(theme::textColor());
    axis.setLinePenColor(theme::lineColor());
    axis.setGridLineColor(theme::lineColor().lighter(135));
}
