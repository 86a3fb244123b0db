#include "scheduling/ui/ReadingTrend.h"

#include "platform/db/Recordset.h"
#include "platform/input/Theme.h"

#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// By count type: the readings in the order of their dates.
using Courses = std::map<QString, QList<QPointF>>;

Courses coursesOf(const db::Recordset &readings)
{
    Courses courses;
    for (const db::Row reading : readings) {
        const QDateTime date = reading.date(u"Count Date");
        // A reading without a date has no place on the axis; the grid beside the chart lists it.
        if (date.isValid())
            courses[reading.text(u"Count Type")].append(
                {static_cast<double>(date.toMSecsSinceEpoch()), reading.real(u"Count Value")});
    }
    for (auto &[type, points] : courses)
        // Rows come in the order in which they were entered, and a line has to go forward.
        std::ranges::sort(points, {}, [](const QPointF &point) { return point.x(); });
    return courses;
}

/// What the axes show: all readings, and some room around a single one.
void span(const Courses &courses, QDateTimeAxis &dates, QValueAxis &counts)
{
    QList<QPointF> all;
    for (const auto &[type, points] : courses)
        all += points;
    const auto [first, last] = std::ranges::minmax(all, {}, &QPointF::x);
    const auto [lowest, highest] = std::ranges::minmax(all, {}, &QPointF::y);
    const QDateTime from = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(first.x()));
    const QDateTime to = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(last.x()));
    // An axis of no length can't be drawn.
    const bool isOneDay = from == to;
    dates.setRange(isOneDay ? from.addMonths(-3) : from, isOneDay ? to.addMonths(3) : to);
    const bool isOneCount = lowest.y() == highest.y();
    counts.setRange(isOneCount ? std::max(lowest.y() - 10, 0.0) : lowest.y(),
                    isOneCount ? highest.y() + 10 : highest.y());
}

} // namespace

ReadingTrend::ReadingTrend(QWidget *parent)
    : LineChart(u"ReadingTrend"_s, u"Course of the meter readings"_s, parent)
{}

void ReadingTrend::show(const db::Recordset &readings)
{
    const Courses courses = coursesOf(readings);
    clear(courses.empty() ? u"No readings yet"_s : QString());
    if (courses.empty())
        return;

    const QColor colors[] = {theme::mainColor(), theme::accentColor(), theme::selectionColor(),
                             theme::disabledColor()};
    auto *dates = new QDateTimeAxis;
    dates->setFormat(u"MM/yyyy"_s);
    dates->setTickCount(4);
    auto *counts = new QValueAxis;
    counts->setLabelFormat(u"%.0f"_s);
    span(courses, *dates, *counts);
    dress(*dates);
    dress(*counts);
    chart()->addAxis(dates, Qt::AlignBottom);
    chart()->addAxis(counts, Qt::AlignLeft);
    std::size_t next = 0;
    for (const auto &[type, points] : courses) {
        QLineSeries *line = makeLine(type, colors[next++ % std::size(colors)]);
        // Single readings are worth a dot; more of them run into a band.
        line->setPointsVisible(points.size() < 40);
        line->replace(points);
        chart()->addSeries(line);
        line->attachAxis(dates);
        line->attachAxis(counts);
    }
    counts->applyNiceNumbers();
}
