#include "platform/sql/Types.h"

#include "platform/sql/Errors.h"

namespace sql {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void raiseMismatch(const QString &what)
{
    throw base::Error(ErrorNumber::TypeMismatch, u"Data type mismatch: "_s + what);
}

/// The type of a calculation with two numbers: whole while both are, an exact amount while nothing
/// brings a binary fraction in.
ColumnKind numericType(ColumnKind left, ColumnKind right)
{
    const auto whole = [](ColumnKind kind) {
        return kind == ColumnKind::Integer || kind == ColumnKind::YesNo;
    };
    if (whole(left) && whole(right))
        return ColumnKind::Integer;
    const bool exact =
        (whole(left) || left == ColumnKind::Money) && (whole(right) || right == ColumnKind::Money);
    return exact ? ColumnKind::Money : ColumnKind::Real;
}

/// "+" joins texts, adds numbers and moves dates. A text beside a number is read as one; beside a
/// parameter, of which nothing is known, it stays a text.
ColumnKind sumType(ColumnKind left, ColumnKind right)
{
    const auto textual = [](ColumnKind kind) {
        return kind == ColumnKind::Text || kind == ColumnKind::Unknown;
    };
    if (textual(left) && textual(right) && (left == ColumnKind::Text || right == ColumnKind::Text))
        return ColumnKind::Text;
    const bool leftDate = left == ColumnKind::Date;
    const bool rightDate = right == ColumnKind::Date;
    if (leftDate && rightDate)
        raiseMismatch(u"two dates can't be added."_s);
    if ((leftDate && right == ColumnKind::Text) || (rightDate && left == ColumnKind::Text))
        raiseMismatch(u"a date and a text can't be added; & joins them."_s);
    if (leftDate || rightDate)
        return ColumnKind::Date;
    return numericType(left, right);
}

} // namespace

ColumnKind arithmeticType(Operator operation, ColumnKind left, ColumnKind right)
{
    // Both sides are written as texts before they are joined, whatever they are.
    if (operation == Operator::Concatenate)
        return ColumnKind::Text;
    if (left == ColumnKind::Binary || right == ColumnKind::Binary)
        raiseMismatch(u"binary data can't be calculated with."_s);
    if (operation == Operator::Add)
        return sumType(left, right);
    if (operation == Operator::Subtract &&
        (left == ColumnKind::Date || right == ColumnKind::Date)) {
        if (left == ColumnKind::Text || right == ColumnKind::Text)
            raiseMismatch(u"a date and a text can't be subtracted."_s);
        // Two dates are some days apart; a date less a number is a date.
        if (right == ColumnKind::Date)
            return ColumnKind::Real;
        return ColumnKind::Date;
    }
    if (left == ColumnKind::Date || right == ColumnKind::Date)
        raiseMismatch(u"a date can't be multiplied or divided."_s);
    switch (operation) {
    case Operator::IntegerDivide:
    case Operator::Modulo:
        return ColumnKind::Integer;
    case Operator::Divide:
    case Operator::Power:
        return ColumnKind::Real;
    case Operator::Multiply:
        // The engine would keep eight decimals of the product, and soon run out of digits.
        if (left == ColumnKind::Money && right == ColumnKind::Money)
            return ColumnKind::Real;
        [[fallthrough]];
    default:
        return numericType(left, right);
    }
}

ColumnKind commonType(ColumnKind left, ColumnKind right)
{
    if (left == right || right == ColumnKind::Unknown)
        return left;
    if (left == ColumnKind::Unknown)
        return right;
    if (isNumber(left) && isNumber(right))
        return numericType(left, right);
    // Any value has a text, so that a column of both can show them all.
    return ColumnKind::Text;
}

std::vector<ColumnKind> chainTypes(const Expression &chain)
{
    std::vector<ColumnKind> types;
    types.reserve(chain.operands.size());
    types.push_back(chain.operands.front()->type);
    // Each step meets the outcome of those before it, not the neighbour's own type.
    for (std::size_t i = 0; i < chain.operators.size(); ++i) {
        types.push_back(
            arithmeticType(chain.operators[i], types.back(), chain.operands[i + 1]->type));
    }
    return types;
}

} // namespace sql
