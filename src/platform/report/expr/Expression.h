#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>

/// Expressions of layouts: fields, arithmetic, comparison, functions and aggregates. Parsed once to
/// a tree and evaluated for each row. Null flows through all operations; "&" joins it as empty
/// text. A division by zero gives Null.
///
///     Price * QuantityUsed
///     if(Skip <> 0, 'skipped', format(Workhrs, '0.00'))
///     sum([Labor Cost])            in a footer: of that footer's group, page or report
///     sum(Price * Quantity, 'order')
///     'Page ' & PageNumber & ' of ' & TotalPages
namespace report {

enum class AggregateFunction { Sum, Count, Average, Minimum, Maximum, First, Last };

/// An aggregate within an expression.
struct Aggregate
{
    AggregateFunction function = AggregateFunction::Sum;
    QString argument; ///< as written, for reports of errors
    QString scope;    ///< a group's name, "page", "report", or empty for that of the band
};

/// What an expression reads while it is evaluated.
class EvaluationContext
{
public:
    virtual ~EvaluationContext() = default;
    /// A field, formula or special name (PageNumber, TotalPages, RowNumber, Today, Now), in lower
    /// case. Nothing for an unknown name.
    [[nodiscard]] virtual std::optional<QVariant> value(const QString &name) const = 0;
    /// The present value of an aggregate, by its number among those of the expression.
    [[nodiscard]] virtual QVariant aggregate(int number) const = 0;
};

class ExpressionNode;

/// A parsed expression; a value that copies cheaply.
class Expression
{
public:
    /// Always Null.
    Expression();

    /// Parses a text. When that fails, error holds what is wrong and at which character (from 1),
    /// and the result evaluates to Null.
    [[nodiscard]] static Expression parse(const QString &text, QString *error = nullptr);

    /// The value for what the context stands at. What has no value, and a name that the context
    /// doesn't know, is Null.
    [[nodiscard]] QVariant evaluate(const EvaluationContext &context) const;
    /// True when the value is a number other than 0, True, or a non-empty text.
    [[nodiscard]] bool isTrue(const EvaluationContext &context) const;

    /// The aggregates in the order of their numbers, and their arguments.
    [[nodiscard]] const QList<Aggregate> &aggregates() const;
    [[nodiscard]] Expression aggregateArgument(int number) const;
    /// All names that it reads outside and inside its aggregates, in lower case.
    [[nodiscard]] const QStringList &names() const;

private:
    struct Tree;
    explicit Expression(std::shared_ptr<const Tree> tree);
    std::shared_ptr<const Tree> m_tree;
};

/// Collects an aggregate's values. Sums of values with up to four decimals are exact.
class Accumulator
{
public:
    explicit Accumulator(AggregateFunction function)
        : m_function(function)
    {}

    /// A Null counts for nothing.
    void add(const QVariant &value);
    /// Takes what another one of the same function has collected, as if it had come after its own.
    void add(const Accumulator &other);
    void reset();
    /// What has come in so far: 0 for a count of nothing, Null for all others.
    [[nodiscard]] QVariant result() const;

private:
    AggregateFunction m_function;
    qint64 m_count = 0;
    qint64 m_tenThousandths = 0; ///< the exact part of the sum
    double m_rest = 0;           ///< what has more decimals or is too large
    QVariant m_value;            ///< of Minimum, Maximum, First, Last
};

/// A value in a format: "0.00", "0", "#,##0.00", "0.##", "$0.00", "0.0%" (of a share: 0.5 is
/// "50.0%"), date and time patterns such as "mm/dd/yyyy" and "hh:mm AMPM"; without a format, or in
/// one that doesn't suit it, as base::toText. Empty for Null.
[[nodiscard]] QString formatted(const QVariant &value, const QString &format);

/// True for a number other than 0, True, a date and a non-empty text.
[[nodiscard]] bool isTrueValue(const QVariant &value);

/// -1, 0 or 1: numbers as numbers, dates as dates, text without regard to case; Null comes first.
[[nodiscard]] int compareValues(const QVariant &left, const QVariant &right);

} // namespace report
