#pragma once

#include "platform/report/paginate/ChartData.h"
#include "platform/report/paginate/Compiled.h"

#include <functional>

namespace report {

/// Collects the rows of a chart: which category and series each belongs to, and their aggregates.
class ChartCollector
{
public:
    /// The chart must outlive it.
    explicit ChartCollector(const compiled::Chart &chart);

    /// Takes the row that the context stands at.
    void add(const EvaluationContext &context, int row);
    /// The values, without titles. For what is no aggregate in them the context is taken to the
    /// last row of each category.
    [[nodiscard]] ChartData result(const EvaluationContext &context,
                                   const std::function<void(int row)> &goTo) const;

private:
    struct Cell
    {
        std::vector<Accumulator> aggregates;
        int lastRow = 0;
    };
    /// A series of the chart; of one "by" an expression there are as many as it has values.
    struct Shown
    {
        const compiled::Series *series;
        QString name;
        QVariant by;                            ///< the value of which it is the series
        std::vector<std::optional<Cell>> cells; ///< by category
    };
    [[nodiscard]] std::vector<const Shown *> seriesInOrder() const;

    /// Nothing where one more would be too many.
    [[nodiscard]] std::optional<std::size_t> categoryOf(const EvaluationContext &context);
    [[nodiscard]] std::optional<std::size_t> seriesOf(std::size_t number,
                                                      const EvaluationContext &context);
    [[nodiscard]] static std::optional<double> valueOf(const Shown &shown,
                                                       const std::optional<Cell> &cell,
                                                       const EvaluationContext &context,
                                                       const std::function<void(int row)> &goTo);
    [[nodiscard]] std::vector<std::size_t>
    categoryOrder(const std::vector<std::optional<double>> &heights) const;
    [[nodiscard]] static std::optional<Cell>
    together(const Shown &shown, const std::vector<std::size_t> &order, std::size_t from);

    const compiled::Chart &m_chart;
    const Chart &m_layout;
    QHash<QString, std::size_t> m_categoryNumbers; ///< by label, in one case
    QList<ChartCategory> m_categories;
    QHash<QString, std::size_t> m_seriesNumbers;
    std::vector<Shown> m_shown;
    bool m_isCut = false;
};

/// The colours of series that name none, told apart by the colour-blind too, and in print by their
/// brightness.
[[nodiscard]] QColor usualSeriesColor(std::size_t number);

} // namespace report
