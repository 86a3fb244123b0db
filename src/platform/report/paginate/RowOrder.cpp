#include "platform/report/paginate/RowOrder.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/FormulaCosts.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace report {

using namespace Qt::StringLiterals;

namespace {

/// One row, as an expression outside of all bands reads it.
class RowContext final : public EvaluationContext
{
public:
    RowContext(const Layout &layout, const DataSource &rows, const Inputs &inputs)
        : m_rows(rows)
        , m_inputs(inputs)
        , m_costs(layout, inputs)
        , m_formulas(m_costs.usable())
    {}

    /// An expression, or Null in place of one that costs too much.
    [[nodiscard]] Expression parsed(const QString &text) const
    {
        const Expression expression = Expression::parse(text);
        return m_costs.isTooMuch(expression) ? Expression() : expression;
    }

    void setRow(int row) { m_row = row; }

    [[nodiscard]] std::optional<QVariant> value(const QString &name) const override
    {
        if (const int field = m_rows.fieldIndex(name); field >= 0)
            return m_rows.value(m_row, field);
        if (name.compare("now"_L1, Qt::CaseInsensitive) == 0)
            return m_inputs.now;
        if (name.compare("today"_L1, Qt::CaseInsensitive) == 0)
            return m_inputs.now.date();
        const auto formula = m_formulas.find(name.toLower());
        if (formula == m_formulas.end())
            return std::nullopt;
        return formula->second.evaluate(*this);
    }
    [[nodiscard]] QVariant aggregate(int) const override { return {}; }

private:
    const DataSource &m_rows;
    const Inputs &m_inputs;
    const FormulaCosts m_costs;
    const std::map<QString, Expression> m_formulas;
    int m_row = 0;
};

} // namespace

std::vector<int> orderOf(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    std::vector<int> order(static_cast<std::size_t>(rows.rowCount()));
    std::iota(order.begin(), order.end(), 0);
    RowContext context(layout, rows, inputs);
    std::vector<Expression> keys;
    for (const Group &group : layout.groups)
        keys.push_back(context.parsed(group.by));
    for (const QString &by : layout.sort)
        keys.push_back(context.parsed(by));
    if (keys.empty())
        return order;

    // Each key is worked out once for a row, not in each comparison.
    std::vector<QVariant> values;
    values.reserve(order.size() * keys.size());
    for (const int row : order) {
        context.setRow(row);
        for (const Expression &key : keys)
            values.push_back(key.evaluate(context));
    }
    std::ranges::stable_sort(order, [&](int left, int right) {
        for (std::size_t key = 0; key < keys.size(); ++key) {
            const int found =
                compareValues(values[static_cast<std::size_t>(left) * keys.size() + key],
                              values[static_cast<std::size_t>(right) * keys.size() + key]);
            if (found != 0)
                return found < 0;
        }
        return false;
    });
    return order;
}

} // namespace report
