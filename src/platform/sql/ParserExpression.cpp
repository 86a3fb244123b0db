#include "platform/sql/Functions.h"
#include "platform/sql/Parser.h"

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

/// Levels of the arithmetic operators, the loosest first. All operations of one level make one flat
/// chain, so that a list of a thousand, as a filter makes it, is no deeper than one.
constexpr int concatenationLevel = 0;
constexpr int tightestLevel = 4;

std::optional<Operator> arithmeticOperator(const Token &token, int level)
{
    switch (token.kind) {
    case TokenKind::Ampersand:
        return level == concatenationLevel ? std::optional(Operator::Concatenate) : std::nullopt;
    case TokenKind::Plus:
        return level == 1 ? std::optional(Operator::Add) : std::nullopt;
    case TokenKind::Minus:
        return level == 1 ? std::optional(Operator::Subtract) : std::nullopt;
    case TokenKind::Word:
        return level == 2 && token.keyword == Keyword::Mod ? std::optional(Operator::Modulo)
                                                           : std::nullopt;
    case TokenKind::Backslash:
        return level == 3 ? std::optional(Operator::IntegerDivide) : std::nullopt;
    case TokenKind::Star:
        return level == tightestLevel ? std::optional(Operator::Multiply) : std::nullopt;
    case TokenKind::Slash:
        return level == tightestLevel ? std::optional(Operator::Divide) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Operator> comparisonOperator(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Equal:
        return Operator::Equal;
    case TokenKind::NotEqual:
        return Operator::NotEqual;
    case TokenKind::Less:
        return Operator::Less;
    case TokenKind::LessOrEqual:
        return Operator::LessOrEqual;
    case TokenKind::Greater:
        return Operator::Greater;
    case TokenKind::GreaterOrEqual:
        return Operator::GreaterOrEqual;
    default:
        return std::nullopt;
    }
}

bool isBooleanWord(Keyword keyword)
{
    switch (keyword) {
    case Keyword::True:
    case Keyword::False:
    case Keyword::Yes:
    case Keyword::No:
    case Keyword::On:
    case Keyword::Off:
        return true;
    default:
        return false;
    }
}

} // namespace

ExpressionPointer Parser::parseExpression()
{
    const Nesting nesting(*this);
    return parseOr();
}

/// However many conditions OR joins, they are one node, as those of AND are: filters make lists of
/// hundreds, and a tree of pairs would be as deep.
ExpressionPointer Parser::parseOr()
{
    ExpressionPointer first = parseAnd();
    if (!at(Keyword::Or))
        return first;
    auto chain = makeExpression(Kind::Or, first->position);
    chain->operands.push_back(std::move(first));
    while (accept(Keyword::Or))
        chain->operands.push_back(parseAnd());
    return chain;
}

ExpressionPointer Parser::parseAnd()
{
    ExpressionPointer first = parseNot();
    if (!at(Keyword::And))
        return first;
    auto chain = makeExpression(Kind::And, first->position);
    chain->operands.push_back(std::move(first));
    while (accept(Keyword::And))
        chain->operands.push_back(parseNot());
    return chain;
}

/// NOT binds looser than comparisons: "not a in (1, 2)" denies the whole.
ExpressionPointer Parser::parseNot()
{
    if (!at(Keyword::Not))
        return parsePredicate();
    // "not not not .." nests as parentheses do, without one.
    const Nesting nesting(*this);
    auto negation = makeExpression(Kind::Not, take().begin);
    negation->operands.push_back(parseNot());
    return negation;
}

ExpressionPointer Parser::parsePredicate()
{
    // A predicate is looser than "&": "a & b = c" compares the joined text.
    ExpressionPointer value = parseArithmetic(concatenationLevel);
    int comparisons = 0;
    for (;;) {
        if (const auto comparison = comparisonOperator(peek().kind)) {
            // "a = b = c" compares the outcome of the first with c, and nests the tree.
            if (++comparisons > 50)
                raise(u"too many comparisons in a row."_s);
            take();
            auto compare = makeExpression(Kind::Compare, value->position);
            compare->operators.push_back(*comparison);
            compare->operands.push_back(std::move(value));
            compare->operands.push_back(parseArithmetic(concatenationLevel));
            value = std::move(compare);
        } else if (at(Keyword::Is)) {
            take();
            auto test = makeExpression(Kind::IsNull, value->position);
            test->negated = accept(Keyword::Not);
            expect(Keyword::Null, u"NULL");
            test->operands.push_back(std::move(value));
            return test;
        } else if (at(Keyword::Not) || at(Keyword::Between) || at(Keyword::In) ||
                   at(Keyword::Like)) {
            // Such a test ends the row: nothing compares with its outcome but in parentheses.
            return parseNegatablePredicate(std::move(value));
        } else {
            return value;
        }
    }
}

ExpressionPointer Parser::parseNegatablePredicate(ExpressionPointer value)
{
    const bool negated = accept(Keyword::Not);
    if (accept(Keyword::In))
        return parseIn(std::move(value), negated);
    const bool like = at(Keyword::Like);
    if (!like && !at(Keyword::Between))
        raise(u"expected BETWEEN, IN or LIKE behind NOT."_s);
    take();
    auto predicate = makeExpression(like ? Kind::Like : Kind::Between, value->position);
    predicate->negated = negated;
    predicate->operands.push_back(std::move(value));
    predicate->operands.push_back(parseArithmetic(concatenationLevel));
    if (!like) {
        expect(Keyword::And, u"AND between the bounds");
        predicate->operands.push_back(parseArithmetic(concatenationLevel));
    }
    return predicate;
}

/// A list of values or a query that gives one column.
ExpressionPointer Parser::parseIn(ExpressionPointer value, bool negated)
{
    auto in = makeExpression(Kind::In, value->position);
    in->negated = negated;
    in->operands.push_back(std::move(value));
    expect(TokenKind::LeftParenthesis, u"\"(\" behind IN");
    if (at(Keyword::Select)) {
        in->kind = Kind::InQuery;
        in->query = parseQuery();
    } else {
        do {
            in->operands.push_back(parseExpression());
        } while (accept(TokenKind::Comma));
    }
    expect(TokenKind::RightParenthesis, u"\")\" behind the list");
    return in;
}

ExpressionPointer Parser::parseArithmetic(int level)
{
    const auto operand = [&] {
        return level == tightestLevel ? parseUnary() : parseArithmetic(level + 1);
    };
    ExpressionPointer first = operand();
    auto next = arithmeticOperator(peek(), level);
    if (!next)
        return first;
    auto chain = makeExpression(Kind::Arithmetic, first->position);
    chain->operands.push_back(std::move(first));
    while (next) {
        take();
        chain->operators.push_back(*next);
        chain->operands.push_back(operand());
        next = arithmeticOperator(peek(), level);
    }
    return chain;
}

ExpressionPointer Parser::parseUnary()
{
    bool negative = false;
    qsizetype position = peek().begin;
    // Signs are counted and not nested, or a row of them would go deep.
    while (at(TokenKind::Minus) || at(TokenKind::Plus))
        negative ^= take().kind == TokenKind::Minus;
    // The power binds tighter than the sign: -2^2 is -4.
    ExpressionPointer value = parsePower();
    if (!negative)
        return value;
    // A negative number stays one literal, which can be lifted like any other.
    const bool number = value->kind == Kind::Literal && (value->token.kind == TokenKind::Integer ||
                                                         value->token.kind == TokenKind::Real);
    if (number) {
        // Turned and not set: in "-(-2)" the inner literal has its sign already.
        value->negated = !value->negated;
        return value;
    }
    auto negation = makeExpression(Kind::Negate, position);
    negation->operands.push_back(std::move(value));
    return negation;
}

/// "2 ^ -1" needs no parentheses; powers go from the left, as in the dialect's other operators.
ExpressionPointer Parser::parsePower()
{
    ExpressionPointer base = parsePrimary();
    if (!at(TokenKind::Caret))
        return base;
    auto chain = makeExpression(Kind::Arithmetic, base->position);
    chain->operands.push_back(std::move(base));
    while (accept(TokenKind::Caret)) {
        chain->operators.push_back(Operator::Power);
        // The exponent may carry a sign of its own.
        const bool negative = at(TokenKind::Minus);
        if (negative)
            take();
        ExpressionPointer exponent = parsePrimary();
        if (negative) {
            auto negation = makeExpression(Kind::Negate, exponent->position);
            negation->operands.push_back(std::move(exponent));
            exponent = std::move(negation);
        }
        chain->operands.push_back(std::move(exponent));
    }
    return chain;
}

ExpressionPointer Parser::parsePrimary()
{
    const Token &token = peek();
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::Integer:
    case TokenKind::Real:
    case TokenKind::Date:
    case TokenKind::Parameter: {
        auto value = makeExpression(
            token.kind == TokenKind::Parameter ? Kind::Parameter : Kind::Literal, token.begin);
        // A date that is none is found here, whether it is lifted later or not.
        if (token.kind == TokenKind::Date)
            static_cast<void>(literalValue(token, m_statement));
        value->token = take();
        return value;
    }
    case TokenKind::LeftParenthesis:
        return parseParenthesis();
    case TokenKind::Name:
        return parseName();
    case TokenKind::Word:
        return parseWord();
    case TokenKind::End:
        raise(u"a value is missing."_s);
    default:
        raise(u"a value is missing before this."_s);
    }
}

ExpressionPointer Parser::parseParenthesis()
{
    const qsizetype position = take().begin;
    // The parentheses need no node: the tree's shape keeps what they said.
    ExpressionPointer inner;
    if (at(Keyword::Select)) {
        inner = makeExpression(Kind::Scalar, position);
        inner->query = parseQuery();
    } else {
        inner = parseExpression();
    }
    expect(TokenKind::RightParenthesis, u"\")\"");
    return inner;
}

ExpressionPointer Parser::parseWord()
{
    const Token &token = peek();
    // Before a point even NULL, YES and the like are names of tables.
    const bool qualifies = peek(1).kind == TokenKind::Dot;
    if (token.keyword == Keyword::Null && !qualifies)
        return makeExpression(Kind::Null, take().begin);
    if (token.keyword == Keyword::Exists) {
        auto exists = makeExpression(Kind::Exists, take().begin);
        expect(TokenKind::LeftParenthesis, u"\"(\" behind EXISTS");
        exists->query = parseQuery();
        expect(TokenKind::RightParenthesis, u"\")\" behind the query");
        return exists;
    }
    if (isBooleanWord(token.keyword) && !qualifies) {
        auto constant = makeExpression(Kind::Boolean, token.begin);
        constant->negated = token.keyword == Keyword::False || token.keyword == Keyword::No ||
                            token.keyword == Keyword::Off;
        take();
        return constant;
    }
    // LEFT and RIGHT begin joins elsewhere.
    if (peek(1).kind == TokenKind::LeftParenthesis &&
        (atName() || token.keyword == Keyword::Left || token.keyword == Keyword::Right))
        return parseCall();
    if (atName() || qualifies)
        return parseName();
    raise(u"a value is missing before this."_s);
}

/// "column" or "table.column". Behind the point even a word of the grammar is a name.
ExpressionPointer Parser::parseName()
{
    auto name = makeExpression(Kind::Name, peek().begin);
    name->name = take().text;
    if (accept(TokenKind::Dot)) {
        if (!at(TokenKind::Name) && !at(TokenKind::Word))
            raise(u"expected the name of a column behind the point."_s);
        name->qualifier = name->name;
        name->name = take().text;
    }
    return name;
}

/// Checks the number of arguments here, where the place of the name is known for the message.
ExpressionPointer Parser::parseCall()
{
    const Token name = take();
    const Function *function = findFunction(name.text);
    if (!function)
        raiseSyntaxError(u"the function \"%1\" is not known."_s.arg(name.text), m_statement,
                         name.begin);
    auto call = makeExpression(Kind::Call, name.begin);
    call->function = function;
    take();
    // Count(*) counts rows, Count(x) those in which x is not Null.
    if (function->id == FunctionId::Count && at(TokenKind::Star)) {
        take();
        expect(TokenKind::RightParenthesis, u"\")\"");
        call->kind = Kind::CountRows;
        return call;
    }
    call->operands = parseArguments();
    // Switch takes pairs of a condition and a value.
    const auto count = static_cast<int>(call->operands.size());
    if (count < function->fewest || count > function->most ||
        (function->id == FunctionId::Switch && count % 2 != 0)) {
        raiseSyntaxError(
            u"the function \"%1\" does not take this number of arguments."_s.arg(name.text),
            m_statement, name.begin);
    }
    return call;
}

std::vector<ExpressionPointer> Parser::parseArguments()
{
    std::vector<ExpressionPointer> arguments;
    if (accept(TokenKind::RightParenthesis))
        return arguments;
    do {
        arguments.push_back(parseExpression());
    } while (accept(TokenKind::Comma));
    expect(TokenKind::RightParenthesis, u"\")\" behind the arguments");
    return arguments;
}

} // namespace sql
