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

    /// Below zero for what is no field.
    [[nodiscard]] int fieldIndex(const QString &name) const
    {
        auto known = m_fields.constFind(name);
        if (known == m_fields.cend())
            known = m_fields.insert(name, m_rows.fieldIndex(name));
        return *known;
    }
    [[nodiscard]] QVariant field(int index) const { return m_rows.value(m_row, index); }

private:
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
    KeyColumn(const QString &key, const RowContext &context, std::size_t rows)
        : m_key(context.parsed(key))
    {
        m_values.reserve(rows);
        for (const QString &name : m_key.names())
            if (const int field = context.fieldIndex(name); !m_fields.contains(field))
                m_fields.append(field);
    }

    /// Adds the value of the row that the context is at. Rows that follow each other often have it
    /// from the same fields.
    void add(const RowContext &context)
    {
        if (m_fields.contains(-1) || m_fields.size() < 2) {
            m_values.push_back(m_key.evaluate(context));
            return;
        }
        QVariantList read;
        read.reserve(m_fields.size());
        for (const int field : std::as_const(m_fields))
            read.append(context.field(field));
        if (m_values.empty() || read != m_read)
            m_values.push_back(m_key.evaluate(context));
        else
            m_values.push_back(m_values.back());
        m_read = std::move(read);
    }

    /// Call it once all values are there.
    void makeReady()
    {
        // Columns of one kind are compared as what they are; only mixed ones need the rules for
        // values.
        if (isAll([](const QVariant &value) { return value.typeId() == QMetaType::QString; }))
            rankTexts();
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
        if (!m_numbers.empty())
            return int(m_numbers[left] > m_numbers[right]) -
                   int(m_numbers[left] < m_numbers[right]);
        return compareValues(m_values[left], m_values[right]);
    }

private:
    /// A text comes again in row after row: each is compared with the others once, and the rows by
    /// its place among them.
    void rankTexts()
    {
        QHash<QString, qint64> known;
        std::vector<QString> folded;
        m_numbers.reserve(m_values.size());
        for (const QVariant &value : m_values) {
            const QString text = value.toString();
            auto number = known.constFind(text);
            if (number == known.cend()) {
                number = known.insert(text, static_cast<qint64>(folded.size()));
                folded.push_back(text.toCaseFolded());
            }
            m_numbers.push_back(*number);
        }
        std::vector<std::size_t> order(folded.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::sort(order, {},
                          [&](std::size_t number) -> const QString & { return folded[number]; });
        std::vector<qint64> places(folded.size());
        for (std::size_t at = 1; at < order.size(); ++at)
            places[order[at]] =
                places[order[at - 1]] + (folded[order[at]] == folded[order[at - 1]] ? 0 : 1);
        for (qint64 &number : m_numbers)
            number = places[static_cast<std::size_t>(number)];
    }

    template<class Kind>
    [[nodiscard]] bool isAll(const Kind &kind) const
    {
        return std::ranges::all_of(
            m_values, [&](const QVariant &value) { return !value.isNull() && kind(value); });
    }

    Expression m_key;
    QList<int> m_fields; ///< that it is made of; -1 stands for what is no field
    QVariantList m_read; ///< from them, in the row before
    std::vector<QVariant> m_values;
    std::vector<qint64> m_numbers; ///< that compare as the values do, where all are of one kind
};

} // namespace

std::vector<int> orderOf(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    std::vector<int> order(static_cast<std::size_t>(rows.rowCount()));
    std::iota(order.begin(), order.end(), 0);
    // Each key is worked out once for a row, not in each comparison.
    RowContext context(layout, rows, inputs);
    std::vector<KeyColumn> columns;
    for (const Group &group : layout.groups)
        columns.emplace_back(group.by, context, order.size());
    for (const QString &by : layout.sort)
        columns.emplace_back(by, context, order.size());
    if (columns.empty())
        return order;
    for (const int row : order) {
        context.setRow(row);
        for (KeyColumn &column : columns)
            column.add(context);
    }
    for (KeyColumn &column : columns)
        column.makeReady();
    // Rows that are alike stay in the order in which the query gave them.
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
