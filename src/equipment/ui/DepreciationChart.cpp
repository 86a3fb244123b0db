#include "equipment/ui/DepreciationChart.h"

#include "platform/db/Recordset.h"
#include "platform/input/Theme.h"

#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostYearLabels = 12;

} // namespace

DepreciationChart::DepreciationChart(QWidget *parent)
    : LineChart(u"DepreciationChart"_s, u"Curve of the depreciation"_s, parent)
{}

void DepreciationChart::show(const db::Recordset &rows)
{
    clear(rows.isEmpty() ? u"No schedule yet"_s : QString());
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
        // Both lines share one axis: what is lost on one is what is left on the other.
        highest = std::max({highest, worth, lost});
        first = std::min(first, year);
        last = std::max(last, year);
    }
    // Two axes of their own per chart, since the years of another machine need other ticks.
    auto *years = new QValueAxis;
    // A schedule of one year still needs an axis of some length.
    years->setRange(first, std::max(last, first + 1));
    years->setLabelFormat(u"%d"_s);
    years->setTickType(QValueAxis::TicksDynamic);
    years->setTickAnchor(first);
    // Whole years only, and no more labels than have room.
    years->setTickInterval(1 + std::floor((last - first) / MostYearLabels));
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
