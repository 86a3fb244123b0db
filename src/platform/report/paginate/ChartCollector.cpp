#include "platform/report/paginate/ChartCollector.h"

#include "platform/base/Format.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Of categories times series: more would fill the memory, and nobody could read them.
constexpr std::size_t MostCells = 1'000'000;

const QString NoLabel = u"(none)"_s;
const QString OthersLabel = u"Others (%1)"_s;

/// Reads aggregates from a cell of the chart, and all else from the report.
class CellContext final : public EvaluationContext
{
public:
    CellContext(const EvaluationContext &rows, const std::vector<Accumulator> &aggregates)
        : m_rows(rows)
        , m_aggregates(aggregates)
    {}
    [[nodiscard]] std::optional<QVariant> value(const QString &name) const override
    {
        return m_rows.value(name);
    }
    [[nodiscard]] QVariant aggregate(int number) const override
    {
        return m_aggregates[static_cast<std::size_t>(number)].result();
    }

private:
    const EvaluationContext &m_rows;
    const std::vector<Accumulator> &m_aggregates;
};

/// One for each aggregate of an expression, with nothing collected.
std::vector<Accumulator> freshAggregates(const Expression &expression)
{
    std::vector<Accumulator> fresh;
    for (const Aggregate &aggregate : expression.aggregates())
        fresh.emplace_back(aggregate.function);
    return fresh;
}

QString labelOf(const QVariant &value, const QString &format)
{
    const QString label = formatted(value, format);
    return label.isEmpty() ? NoLabel : label;
}

} // namespace

ChartCollector::ChartCollector(const compiled::Chart &chart)
    : m_chart(chart)
    , m_layout(*chart.layout)
{
    for (const compiled::Series &series : chart.series)
        // Those of a "by" come with their values; the others are there even without a row.
        if (!series.by)
            m_shown.push_back({&series, series.layout->name, {}, {}});
}

void ChartCollector::add(const EvaluationContext &context, int row)
{
    const std::optional<std::size_t> category = categoryOf(context);
    for (std::size_t number = 0; category && number < m_chart.series.size(); ++number) {
        const std::optional<std::size_t> series = seriesOf(number, context);
        if (!series)
            continue;
        Shown &shown = m_shown[*series];
        if (shown.cells.size() <= *category)
            shown.cells.resize(*category + 1);
        std::optional<Cell> &cell = shown.cells[*category];
        const Expression &value = shown.series->value.expression;
        if (!cell)
            cell = Cell{freshAggregates(value), row};
        cell->lastRow = row;
        for (std::size_t aggregate = 0; aggregate < cell->aggregates.size(); ++aggregate)
            cell->aggregates[aggregate].add(
                value.aggregateArgument(static_cast<int>(aggregate)).evaluate(context));
    }
}

std::optional<std::size_t> ChartCollector::categoryOf(const EvaluationContext &context)
{
    const QVariant value = m_chart.category.expression.evaluate(context);
    const QString label = labelOf(value, m_layout.categoryFormat);
    const auto fresh = static_cast<std::size_t>(m_categories.size());
    const QString key = label.toCaseFolded();
    const auto known = m_categoryNumbers.constFind(key);
    if (known != m_categoryNumbers.cend())
        return *known;
    // Rows of further categories are left out and told, so that what is shown is at least right for
    // those that are there.
    if ((fresh + 1) * m_shown.size() > MostCells) {
        m_isCut = true;
        return std::nullopt;
    }
    m_categoryNumbers.insert(key, fresh);
    m_categories.append({value, label});
    return fresh;
}

std::optional<std::size_t> ChartCollector::seriesOf(std::size_t number,
                                                    const EvaluationContext &context)
{
    const compiled::Series &series = m_chart.series[number];
    QString name = series.layout->name;
    QVariant value;
    if (series.by) {
        value = series.by->expression.evaluate(context);
        const QString by = labelOf(value, series.layout->byFormat);
        name = name.isEmpty() ? by : u"%1, %2"_s.arg(name, by);
    }
    const QString key = u"%1 %2"_s.arg(number).arg(name.toCaseFolded());
    const auto known = m_seriesNumbers.constFind(key);
    if (known != m_seriesNumbers.cend())
        return *known;
    const auto isIt = [&](const Shown &shown) { return shown.series == &series && !series.by; };
    const auto place = std::find_if(m_shown.begin(), m_shown.end(), isIt);
    const auto found = static_cast<std::size_t>(place - m_shown.begin());
    if (place == m_shown.end()) {
        if ((m_shown.size() + 1) * static_cast<std::size_t>(m_categories.size()) > MostCells) {
            m_isCut = true;
            return std::nullopt;
        }
        m_shown.push_back({&series, name, value, {}});
    }
    m_seriesNumbers.insert(key, found);
    return found;
}

std::optional<double> ChartCollector::valueOf(const Shown &shown, const std::optional<Cell> &cell,
                                              const EvaluationContext &context,
                                              const std::function<void(int row)> &goTo)
{
    if (!cell)
        return std::nullopt;
    goTo(cell->lastRow);
    const QVariant value =
        shown.series->value.expression.evaluate(CellContext(context, cell->aggregates));
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    // What no paper could show would spoil the axis for all else.
    return !value.isNull() && isNumber && std::abs(number) < 1e15 ? std::optional(number)
                                                                  : std::nullopt;
}

std::vector<std::size_t>
ChartCollector::categoryOrder(const std::vector<std::optional<double>> &heights) const
{
    std::vector<std::size_t> order(static_cast<std::size_t>(m_categories.size()));
    std::iota(order.begin(), order.end(), std::size_t(0));
    if (m_layout.order == ChartOrder::Category)
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return compareValues(m_categories[static_cast<qsizetype>(a)].value,
                                 m_categories[static_cast<qsizetype>(b)].value) < 0;
        });
    else if (m_layout.order == ChartOrder::Value)
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return heights[a] > heights[b]; });
    return order;
}

/// As the layout names them; those of one "by" in the order of their values where the categories
/// are.
std::vector<const ChartCollector::Shown *> ChartCollector::seriesInOrder() const
{
    std::vector<const Shown *> order;
    for (const compiled::Series &series : m_chart.series) {
        const auto first = static_cast<std::ptrdiff_t>(order.size());
        for (const Shown &shown : m_shown)
            if (shown.series == &series)
                order.push_back(&shown);
        if (m_layout.order == ChartOrder::Category)
            std::stable_sort(order.begin() + first, order.end(), [](const auto *a, const auto *b) {
                return compareValues(a->by, b->by) < 0;
            });
    }
    return order;
}

/// All categories from one on in the order as one.
std::optional<ChartCollector::Cell> ChartCollector::together(const Shown &shown,
                                                             const std::vector<std::size_t> &order,
                                                             std::size_t from)
{
    std::optional<Cell> sum;
    for (std::size_t place = from; place < order.size(); ++place) {
        if (order[place] >= shown.cells.size() || !shown.cells[order[place]])
            continue;
        const Cell &cell = *shown.cells[order[place]];
        if (!sum) {
            sum = cell;
            continue;
        }
        sum->lastRow = qMax(sum->lastRow, cell.lastRow);
        for (std::size_t aggregate = 0; aggregate < cell.aggregates.size(); ++aggregate)
            sum->aggregates[aggregate].add(cell.aggregates[aggregate]);
    }
    return sum;
}

ChartData ChartCollector::result(const EvaluationContext &context,
                                 const std::function<void(int row)> &goTo) const
{
    const auto value = [&](const Shown &shown, std::size_t category) {
        return category < shown.cells.size() ? valueOf(shown, shown.cells[category], context, goTo)
                                             : std::nullopt;
    };
    // What a category is sorted by: its first series, or all that stand on each other.
    const auto height = [&](std::size_t category) {
        std::optional<double> sum = value(m_shown.front(), category);
        if (m_layout.kind == ChartKind::StackedBars)
            for (std::size_t series = 1; series < m_shown.size(); ++series)
                if (const std::optional<double> more = value(m_shown[series], category))
                    sum = sum.value_or(0) + *more;
        return sum;
    };
    std::vector<std::optional<double>> heights;
    if (m_layout.order == ChartOrder::Value && !m_shown.empty())
        for (std::size_t category = 0; category < static_cast<std::size_t>(m_categories.size());
             ++category)
            heights.push_back(height(category));
    const std::vector<std::size_t> order = categoryOrder(heights);
    const std::size_t kept = m_layout.most > 0
                                 ? qMin(order.size(), static_cast<std::size_t>(m_layout.most))
                                 : order.size();
    const auto beyond = static_cast<int>(order.size() - kept);

    ChartData data;
    for (std::size_t place = 0; place < kept; ++place)
        data.categories.append(m_categories[static_cast<qsizetype>(order[place])]);
    const bool hasOthers = m_layout.others && beyond > 0;
    if (hasOthers)
        data.categories.append({OthersLabel.arg(beyond), OthersLabel.arg(beyond)});
    data.leftOut = hasOthers ? 0 : beyond;
    data.isCut = m_isCut;
    const std::vector<const Shown *> inOrder = seriesInOrder();
    for (std::size_t number = 0; number < inOrder.size(); ++number) {
        const Shown &shown = *inOrder[number];
        const QColor own = shown.series->by ? QColor() : shown.series->layout->color;
        ChartSeries series{shown.name, own.isValid() ? own : usualSeriesColor(number), {}};
        for (std::size_t place = 0; place < kept; ++place)
            series.values.append(value(shown, order[place]));
        if (hasOthers)
            series.values.append(valueOf(shown, together(shown, order, kept), context, goTo));
        data.series.append(std::move(series));
    }
    return data;
}

QColor usualSeriesColor(std::size_t number)
{
    static constexpr QRgb Colors[] = {0xff0072b2, 0xffe69f00, 0xff009e73, 0xffcc79a7,
                                      0xff56b4e9, 0xffd55e00, 0xfff0e442, 0xff5a5a5a};
    const QColor color(Colors[number % std::size(Colors)]);
    // Further rounds are paler, then darker.
    const std::size_t round = number / std::size(Colors);
    return round == 0 ? color : round % 2 == 1 ? color.lighter(160) : color.darker(160);
}

} // namespace report
