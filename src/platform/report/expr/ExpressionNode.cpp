#include "platform/report/expr/ExpressionNode.h"

#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/expr/Values.h"

#include <QDateTime>
#include <cmath>

namespace report {
namespace {

/// Of a text that is joined of others; no report shows more.
constexpr qsizetype MaximumText = 4'000'000;

/// So many days after the date; Null beyond the years of four digits.
QVariant daysAfter(const QDateTime &date, double days)
{
    constexpr double Most = 4'000'000;
    // Put this way round, since a comparison with what is no number is false.
    if (!(std::abs(days) < Most))
        return {};
    const QDateTime result = date.addSecs(static_cast<qint64>(std::llround(days * 86'400)));
    const int year = result.date().year();
    return result.isValid() && year >= 1 && year <= 9999 ? QVariant(result) : QVariant();
}

} // namespace

QVariant ExpressionNode::evaluate(const EvaluationContext &context) const
{
    switch (kind) {
    case Kind::Constant:
        return constant;
    case Kind::Name:
        return context.value(text).value_or(QVariant());
    case Kind::Aggregate:
        return context.aggregate(number);
    case Kind::Not:
        return !isTrueValue(children[0].evaluate(context));
    case Kind::Negate: {
        const QVariant value = children[0].evaluate(context);
        // Null stays Null: nothing is not zero.
        return value.isNull() ? value : numberValue(-value.toDouble());
    }
    case Kind::Function: {
        QVariantList arguments;
        arguments.reserve(static_cast<qsizetype>(children.size()));
        for (const ExpressionNode &child : children)
            arguments.append(child.evaluate(context));
        return function(arguments);
    }
    case Kind::Binary:
        return evaluateChain(context);
    }
    return {};
}

/// A chain leans to the left, as deep as it is long, so that it is worked out without going down.
QVariant ExpressionNode::evaluateChain(const EvaluationContext &context) const
{
    Chain chain;
    const ExpressionNode *node = this;
    for (; node->kind == Kind::Binary; node = &node->children[0])
        chain.push_back(node);
    QVariant left = node->evaluate(context);
    while (!chain.empty()) {
        const ExpressionNode &next = *chain.back();
        if (next.op == Operator::Join) {
            left = joined(chain, std::move(left), context);
            continue;
        }
        chain.pop_back();
        if (next.op == Operator::And)
            left = isTrueValue(left) && isTrueValue(next.children[1].evaluate(context));
        else if (next.op == Operator::Or)
            left = isTrueValue(left) || isTrueValue(next.children[1].evaluate(context));
        else
            left = next.applied(left, next.children[1].evaluate(context));
    }
    return left;
}

/// Takes the operators "&" off the end of the chain: their texts are put together once.
QVariant ExpressionNode::joined(Chain &chain, QVariant left, const EvaluationContext &context)
{
    QString text = base::toText(left);
    for (; !chain.empty() && chain.back()->op == Operator::Join; chain.pop_back())
        if (text.size() < MaximumText)
            text += base::toText(chain.back()->children[1].evaluate(context));
    return text;
}

/// The value of an operator whose sides are known.
QVariant ExpressionNode::applied(const QVariant &left, const QVariant &right) const
{
    if (left.isNull() || right.isNull())
        return {};
    switch (op) {
    case Operator::Equal:
        return compareValues(left, right) == 0;
    case Operator::Unequal:
        return compareValues(left, right) != 0;
    case Operator::Less:
        return compareValues(left, right) < 0;
    case Operator::Greater:
        return compareValues(left, right) > 0;
    case Operator::LessOrEqual:
        return compareValues(left, right) <= 0;
    case Operator::GreaterOrEqual:
        return compareValues(left, right) >= 0;
    default:
        return calculated(left, right);
    }
}

/// The value of an operator of arithmetic.
QVariant ExpressionNode::calculated(const QVariant &left, const QVariant &right) const
{
    const bool leftDate = left.typeId() == QMetaType::QDateTime;
    if (leftDate && right.typeId() == QMetaType::QDateTime)
        return numberValue(static_cast<double>(right.toDateTime().secsTo(left.toDateTime())) /
                           86400);
    if (leftDate)
        return daysAfter(left.toDateTime(), (op == Operator::Minus ? -1 : 1) * right.toDouble());
    if (op == Operator::Plus && (!isNumberValue(left) || !isNumberValue(right)))
        return QVariant(base::toText(left) + base::toText(right));
    const double a = left.toDouble();
    const double b = right.toDouble();
    if (op == Operator::Plus)
        return numberValue(base::decimalSum(a, b));
    if (op == Operator::Minus)
        return numberValue(base::decimalDifference(a, b));
    if (op == Operator::Times)
        return numberValue(base::decimalProduct(a, b));
    if (b == 0)
        return {};
    return numberValue(op == Operator::Modulo ? std::fmod(a, b) : a / b);
}

} // namespace report
