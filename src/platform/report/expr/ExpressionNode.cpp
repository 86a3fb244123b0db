#include "platform/report/expr/ExpressionNode.h"

#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/expr/Values.h"

#include <QDateTime>
#include <cmath>

namespace report {
namespace {

/// So many days after the date; Null beyond the years of four digits.
QVariant daysAfter(const QDateTime &date, double days)
{
    constexpr double Most = 4'000'000;
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
        return value.isNull() ? value : numberValue(-value.toDouble());
    }
    case Kind::Function: {
        QVariantList arguments;
        for (const ExpressionNode &child : children)
            arguments.append(child.evaluate(context));
        return function(arguments);
    }
    case Kind::Binary:
        return evaluateBinary(context);
    }
    return {};
}

QVariant ExpressionNode::evaluateBinary(const EvaluationContext &context) const
{
    const QVariant left = children[0].evaluate(context);
    if (text == u"and")
        return isTrueValue(left) && isTrueValue(children[1].evaluate(context));
    if (text == u"or")
        return isTrueValue(left) || isTrueValue(children[1].evaluate(context));
    const QVariant right = children[1].evaluate(context);
    if (text == u"&")
        return QVariant(base::toText(left) + base::toText(right));
    if (left.isNull() || right.isNull())
        return {};
    if (text == u"=")
        return compareValues(left, right) == 0;
    if (text == u"<>")
        return compareValues(left, right) != 0;
    if (text == u"<")
        return compareValues(left, right) < 0;
    if (text == u">")
        return compareValues(left, right) > 0;
    if (text == u"<=")
        return compareValues(left, right) <= 0;
    if (text == u">=")
        return compareValues(left, right) >= 0;

    const bool leftDate = left.typeId() == QMetaType::QDateTime;
    if (leftDate && right.typeId() == QMetaType::QDateTime)
        return numberValue(static_cast<double>(right.toDateTime().secsTo(left.toDateTime())) /
                           86400);
    if (leftDate)
        return daysAfter(left.toDateTime(), (text == u"-" ? -1 : 1) * right.toDouble());
    if (text == u"+" && (!isNumberValue(left) || !isNumberValue(right)))
        return QVariant(base::toText(left) + base::toText(right));
    const double a = left.toDouble();
    const double b = right.toDouble();
    if (text == u"+")
        return numberValue(base::decimalSum(a, b));
    if (text == u"-")
        return numberValue(base::decimalDifference(a, b));
    if (text == u"*")
        return numberValue(base::decimalProduct(a, b));
    if (b == 0)
        return {};
    return numberValue(text == u"mod" ? std::fmod(a, b) : a / b);
}

} // namespace report
