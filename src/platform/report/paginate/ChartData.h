#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <QVariant>
#include <optional>

namespace report {

/// A category of a chart: its value, and how it is shown.
struct ChartCategory
{
    QVariant value;
    QString label;
};

/// The values of a series by the number of their category; nothing where it has none.
struct ChartSeries
{
    QString name;
    QColor color;
    QList<std::optional<double>> values;
};

/// What a chart shows.
struct ChartData
{
    QString title;
    QString categoryTitle;
    QString valueTitle;
    QList<ChartCategory> categories;
    QList<ChartSeries> series;
    int leftOut = 0;    ///< categories beyond those that are asked for
    bool isCut = false; ///< rows are left out, since there are more values than could be shown
};

} // namespace report
