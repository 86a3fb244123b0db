#pragma once

#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>

/// What charts of lines share: fonts, colours, and how they are emptied.
class LineChart : public QChartView
{
    Q_OBJECT

protected:
    LineChart(const QString &name, const QString &accessibleName, QWidget *parent);

    /// Removes all lines and axes. A title that isn't empty says why there are none, and takes the
    /// place of the legend.
    void clear(const QString &title = {});
    [[nodiscard]] static QLineSeries *makeLine(const QString &name, const QColor &color,
                                               Qt::PenStyle style = Qt::SolidLine);
    static void dress(QAbstractAxis &axis);
};
