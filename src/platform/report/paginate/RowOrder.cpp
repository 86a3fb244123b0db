#include "platform/report/paginate/RowOrder.h"

#include "platform/report/expr/Expression.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace report {

using namespace Qt::StringLiterals;

namespace {

/// Formulas that name each other end here.
constexpr int DeepestFormula = 20;

/// One row, as an expression outside of all bands reads it.
class RowContext final : public EvaluationContext
{
public:
    RowContext(const Layout &layout, const DataSource &rows, const Inputs &inputs)
        : m_rows(rows)
        , m_inputs(inputs)
    {
        for (const Formula &formula : layout.formulas)
            m_formulas.emplace(formula.name.toLower(), Expression::parse(inputs.formulas.value(
                                                           formula.name, formula.expression)));
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
        if (formula == m_formulas.end() || m_depth == DeepestFormula)
            return std::nullopt;
        ++m_depth;
        const QVariant result = formula->second.evaluate(*this);
        --m_depth;
        return result;
    }
    [[nodiscard]] QVariant aggregate(int) const override { return {}; }

private:
    const DataSource &m_rows;
    const Inputs &m_inputs;
    std::map<QString, Expression> m_formulas;
    int m_row = 0;
    mutable int m_depth = 0;
};

} // namespace

std::vector<int> orderOf(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    std::vector<int> order(static_cast<std::size_t>(rows.rowCount()));
    std::iota(order.begin(), order.end(), 0);
    std::vector<Expression> keys;
    for (const Group &group : layout.groups)
        keys.push_back(Expression::parse(group.by));
    for (const QString &by : layout.sort)
        keys.push_back(Expression::parse(by));
    if (keys.empty())
        return order;

    // Each key is worked out once for a row, not in each comparison.
    RowContext context(layout, rows, inputs);
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
