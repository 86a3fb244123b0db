#include "platform/report/paginate/RowOrder.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/FormulaCosts.h"

#include <QHash>
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
        if (const int field = fieldIndex(name); field >= 0)
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
    [[nodiscard]] int fieldIndex(const QString &name) const
    {
        auto known = m_fields.constFind(name);
        if (known == m_fields.cend())
            known = m_fields.insert(name, m_rows.fieldIndex(name));
        return *known;
    }

    const DataSource &m_rows;
    const Inputs &m_inputs;
    const FormulaCosts m_costs;
    const std::map<QString, Expression> m_formulas;
    mutable QHash<QString, int> m_fields;
    int m_row = 0;
};

/// The values of one key by row, made ready for many comparisons where all are of one kind.
class KeyColumn
{
public:
    void reserve(std::size_t rows) { m_values.reserve(rows); }
    void add(QVariant value) { m_values.push_back(std::move(value)); }

    /// Call it once all values are there.
    void makeReady()
    {
        if (isAll([](const QVariant &value) { return value.typeId() == QMetaType::QString; }))
            for (const QVariant &value : m_values)
                m_texts.push_back(value.toString().toCaseFolded());
        else if (isAll(
                     [](const QVariant &value) { return value.typeId() == QMetaType::QDateTime; }))
            for (const QVariant &value : m_values)
                m_numbers.push_back(value.toDateTime().toMSecsSinceEpoch());
        else if (isAll([](const QVariant &value) { return value.typeId() == QMetaType::LongLong; }))
            for (const QVariant &value : m_values)
                m_numbers.push_back(value.toLongLong());
    }

    /// As compareValues does.
    [[nodiscard]] int compare(std::size_t left, std::size_t right) const
    {
        if (!m_texts.empty())
            return QString::compare(m_texts[left], m_texts[right]);
        if (!m_numbers.empty())
            return int(m_numbers[left] > m_numbers[right]) -
                   int(m_numbers[left] < m_numbers[right]);
        return compareValues(m_values[left], m_values[right]);
    }

private:
    template<class Kind>
    [[nodiscard]] bool isAll(const Kind &kind) const
    {
        return std::ranges::all_of(
            m_values, [&](const QVariant &value) { return !value.isNull() && kind(value); });
    }

    std::vector<QVariant> m_values;
    std::vector<QString> m_texts;
    std::vector<qint64> m_numbers;
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
    std::vector<KeyColumn> columns(keys.size());
    for (KeyColumn &column : columns)
        column.reserve(order.size());
    for (const int row : order) {
        context.setRow(row);
        for (std::size_t key = 0; key < keys.size(); ++key)
            columns[key].add(keys[key].evaluate(context));
    }
    for (KeyColumn &column : columns)
        column.makeReady();
    std::ranges::stable_sort(order, [&](int left, int right) {
        for (const KeyColumn &column : columns)
            if (const int found =
                    column.compare(static_cast<std::size_t>(left), static_cast<std::size_t>(right));
                found != 0)
                return found < 0;
        return false;
    });
    return order;
}

} // namespace report
