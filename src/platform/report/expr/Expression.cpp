#include "platform/report/expr/Expression.h"

#include "platform/report/expr/ExpressionNode.h"
#include "platform/report/expr/Functions.h"
#include "platform/report/expr/Scopes.h"
#include "platform/report/expr/Tokens.h"

#include <algorithm>

namespace report {

using namespace Qt::StringLiterals;

struct Expression::Tree
{
    ExpressionNode root;
    QList<Aggregate> aggregates;
    QList<Expression> arguments;
    QStringList names;
};

namespace {

constexpr int MaximumDepth = 200;
/// Of a tree, most of which lies in chains of operators.
constexpr int MaximumTreeDepth = 10 * MaximumDepth;

class Parser
{
public:
    explicit Parser(const QString &text)
        : m_source(text)
        , m_tokens(text)
    {}

    /// What is left behind a whole expression is a mistake: "1 2" must not read as 1.
    ExpressionNode parseAll()
    {
        ExpressionNode root = parseOr();
        if (m_tokens.current().kind != Token::Kind::End)
            throw ParseError{u"this is not expected here"_s, m_tokens.current().at};
        return root;
    }

    QList<Aggregate> aggregates;
    QList<QString> arguments;
    QStringList names;
    std::vector<Token> scopes; ///< of the aggregates that name one, as written

private:
    using Kind = ExpressionNode::Kind;
    using Operator = ExpressionNode::Operator;
    /// As it is written, and what it does.
    using Written = std::pair<QStringView, Operator>;

    /// One level deeper for as long as it lives.
    class Level
    {
    public:
        explicit Level(Parser &parser)
            : m_parser(parser)
        {
            if (++m_parser.m_depth > MaximumDepth)
                throw ParseError{u"the expression is nested too deeply"_s,
                                 m_parser.m_tokens.current().at};
        }
        ~Level() { --m_parser.m_depth; }
        Level(const Level &) = delete;
        Level &operator=(const Level &) = delete;

    private:
        Parser &m_parser;
    };

    ExpressionNode binary(Operator op, ExpressionNode left, ExpressionNode right) const
    {
        ExpressionNode node;
        node.depth = 1 + qMax(left.depth, right.depth);
        // A chain adds a level for each operator without nesting in the text; evaluating and
        // freeing it would go as deep.
        if (node.depth > MaximumTreeDepth)
            throw ParseError{u"the expression is too long"_s, m_tokens.current().at};
        node.kind = Kind::Binary;
        node.op = op;
        node.children.push_back(std::move(left));
        node.children.push_back(std::move(right));
        return node;
    }
    /// An operator with one side.
    static ExpressionNode unary(Kind kind, ExpressionNode operand)
    {
        ExpressionNode node;
        node.kind = kind;
        node.depth = 1 + operand.depth;
        node.children.push_back(std::move(operand));
        return node;
    }

    /// A chain of operators of one rank; the left one is done first.
    template<class Next>
    ExpressionNode chain(std::initializer_list<Written> operators, Next next)
    {
        ExpressionNode left = (this->*next)();
        for (;;) {
            const auto found = std::ranges::find_if(
                operators, [this](const Written &each) { return m_tokens.accept(each.first); });
            if (found == operators.end())
                return left;
            left = binary(found->second, std::move(left), (this->*next)());
        }
    }

    /// The ranks from the loosest on; each asks the next tighter one for its sides.
    ExpressionNode parseOr()
    {
        const Level level(*this);
        return chain({{u"or", Operator::Or}}, &Parser::parseAnd);
    }
    ExpressionNode parseAnd() { return chain({{u"and", Operator::And}}, &Parser::parseNot); }
    ExpressionNode parseNot()
    {
        const Level level(*this);
        if (m_tokens.accept(u"not"))
            return unary(Kind::Not, parseNot());
        return chain({{u"=", Operator::Equal},
                      {u"<>", Operator::Unequal},
                      {u"<=", Operator::LessOrEqual},
                      {u">=", Operator::GreaterOrEqual},
                      {u"<", Operator::Less},
                      {u">", Operator::Greater}},
                     &Parser::parseJoin);
    }
    ExpressionNode parseJoin() { return chain({{u"&", Operator::Join}}, &Parser::parseSum); }
    ExpressionNode parseSum()
    {
        return chain({{u"+", Operator::Plus}, {u"-", Operator::Minus}}, &Parser::parseProduct);
    }
    ExpressionNode parseProduct()
    {
        return chain({{u"*", Operator::Times}, {u"/", Operator::Over}, {u"mod", Operator::Modulo}},
                     &Parser::parseUnary);
    }
    ExpressionNode parseUnary()
    {
        const Level level(*this);
        if (m_tokens.accept(u"-"))
            return unary(Kind::Negate, parseUnary());
        return parsePrimary();
    }

    ExpressionNode parsePrimary()
    {
        if (m_tokens.accept(u"(")) {
            ExpressionNode inner = parseOr();
            m_tokens.expect(u")");
            return inner;
        }
        const Token token = m_tokens.take();
        ExpressionNode node;
        switch (token.kind) {
        case Token::Kind::Number:
        case Token::Kind::Text:
        case Token::Kind::Date:
            node.constant = token.value;
            return node;
        case Token::Kind::Name:
            break;
        case Token::Kind::Symbol:
            throw ParseError{u"\"%1\" is not expected here"_s.arg(token.text), token.at};
        case Token::Kind::End:
            throw ParseError{u"the expression ends too early"_s, token.at};
        }
        // In brackets a name is a field's, even where it reads like a function.
        if (!token.value.isValid() && m_tokens.accept(u"("))
            return parseCall(token);
        if (const auto constant =
                token.value.isValid() ? std::nullopt : namedConstant(token.text)) {
            node.constant = *constant;
            return node;
        }
        node.kind = Kind::Name;
        node.text = token.text.toLower();
        names.append(node.text);
        return node;
    }

    /// Words that stand for themselves; in brackets they are names of fields.
    static std::optional<QVariant> namedConstant(const QString &name)
    {
        if (name.compare(u"true", Qt::CaseInsensitive) == 0)
            return QVariant(true);
        if (name.compare(u"false", Qt::CaseInsensitive) == 0)
            return QVariant(false);
        if (name.compare(u"null", Qt::CaseInsensitive) == 0)
            return QVariant();
        return std::nullopt;
    }

    ExpressionNode parseCall(const Token &name)
    {
        if (const auto aggregate = aggregateFunction(name.text))
            return parseAggregate(*aggregate, name);
        const Function *function = findFunction(name.text);
        if (!function)
            throw ParseError{u"there is no function \"%1\""_s.arg(name.text), name.at};
        ExpressionNode node;
        node.kind = Kind::Function;
        node.function = function->evaluate;
        if (!m_tokens.accept(u")")) {
            do {
                node.children.push_back(parseOr());
                node.depth = qMax(node.depth, 1 + node.children.back().depth);
            } while (m_tokens.accept(u","));
            m_tokens.expect(u")");
        }
        // Asked when all are read, so that the name is what is told and not some comma.
        const int count = static_cast<int>(node.children.size());
        if (count < function->minimum || count > function->maximum)
            throw ParseError{u"\"%1\" has another number of arguments"_s.arg(name.text), name.at};
        return node;
    }

    ExpressionNode parseAggregate(AggregateFunction function, const Token &name)
    {
        // The inner one would have no rows of its own to count over.
        if (m_inAggregate)
            throw ParseError{u"an aggregate can't stand within another"_s, name.at};
        m_inAggregate = true;
        Aggregate aggregate;
        aggregate.function = function;
        const qsizetype from = m_tokens.current().at;
        if (m_tokens.accept(u"*"))
            // Counting rows is counting a value that none of them lacks.
            aggregate.argument = u"1"_s;
        else
            (void)parseOr();
        if (aggregate.argument.isEmpty())
            // As written: the argument is an expression of its own, which is worked out for each
            // row and not here.
            aggregate.argument = m_source.sliced(from, m_tokens.current().at - from).trimmed();
        if (m_tokens.accept(u",")) {
            const Token scope = m_tokens.take();
            if (scope.kind != Token::Kind::Text)
                throw ParseError{u"the scope of an aggregate is a text"_s, scope.at};
            aggregate.scope = scope.value.toString();
            scopes.push_back(scope);
        }
        m_tokens.expect(u")");
        m_inAggregate = false;
        ExpressionNode node;
        node.kind = Kind::Aggregate;
        node.number = static_cast<int>(aggregates.size());
        aggregates.append(aggregate);
        arguments.append(aggregate.argument);
        return node;
    }

    static std::optional<AggregateFunction> aggregateFunction(const QString &name)
    {
        static const QHash<QString, AggregateFunction> functions{
            {u"sum"_s, AggregateFunction::Sum},     {u"count"_s, AggregateFunction::Count},
            {u"avg"_s, AggregateFunction::Average}, {u"min"_s, AggregateFunction::Minimum},
            {u"max"_s, AggregateFunction::Maximum}, {u"first"_s, AggregateFunction::First},
            {u"last"_s, AggregateFunction::Last}};
        const auto found = functions.constFind(name.toLower());
        return found == functions.cend() ? std::nullopt : std::optional(*found);
    }

    const QString &m_source;
    Tokens m_tokens;
    int m_depth = 0;
    bool m_inAggregate = false;
};

} // namespace

Expression::Expression()
    : m_tree(std::make_shared<Tree>())
{}

Expression::Expression(std::shared_ptr<const Tree> tree)
    : m_tree(std::move(tree))
{}

Expression Expression::parse(const QString &text, QString *error)
{
    try {
        Parser parser(text);
        auto tree = std::make_shared<Tree>();
        tree->root = parser.parseAll();
        tree->aggregates = parser.aggregates;
        tree->names = parser.names;
        for (const QString &argument : std::as_const(parser.arguments))
            // Each stands for itself, since aggregates collect it row by row.
            tree->arguments.append(parse(argument));
        return Expression(std::move(tree));
    } catch (const ParseError &failure) {
        if (error)
            *error =
                u"%1 (character %2 of \"%3\")"_s.arg(failure.what).arg(failure.at + 1).arg(text);
        return {};
    }
}

QString withScopeRenamed(const QString &expression, const QString &former, const QString &name)
{
    try {
        Parser parser(expression);
        (void)parser.parseAll();
        QString renamed = expression;
        // From the last one on, so that the places of those before stay right.
        for (auto scope = parser.scopes.crbegin(); scope != parser.scopes.crend(); ++scope) {
            if (scope->value.toString().compare(former, Qt::CaseInsensitive) != 0)
                continue;
            // Either kind of quote may stand around a text; the one that is there stays.
            const QChar quote = expression[scope->at];
            const QString text = QString(name).replace(quote, QString(2, quote));
            renamed.replace(scope->at, scope->end - scope->at, quote + text + quote);
        }
        return renamed;
    } catch (const ParseError &) {
        return expression;
    }
}

QString withScopeRenamedInWords(const QString &words, const QString &former, const QString &name)
{
    QString renamed;
    qsizetype at = 0;
    for (qsizetype open = words.indexOf(u'{'); open >= 0; open = words.indexOf(u'{', at)) {
        // A doubled brace is one among the words and begins nothing.
        const bool isBrace = QStringView(words).sliced(open).startsWith(u"{{");
        const qsizetype close = isBrace ? open + 1 : words.indexOf(u'}', open);
        if (close < 0)
            break;
        renamed += words.sliced(at, open + 1 - at);
        renamed +=
            isBrace
                ? u"{"_s
                : withScopeRenamed(words.sliced(open + 1, close - open - 1), former, name) + u'}';
        at = close + 1;
    }
    return renamed + words.sliced(at);
}

QVariant Expression::evaluate(const EvaluationContext &context) const
{
    return m_tree->root.evaluate(context);
}

bool Expression::isTrue(const EvaluationContext &context) const
{
    return isTrueValue(evaluate(context));
}

const QList<Aggregate> &Expression::aggregates() const
{
    return m_tree->aggregates;
}

Expression Expression::aggregateArgument(int number) const
{
    return m_tree->arguments.at(number);
}

const QStringList &Expression::names() const
{
    return m_tree->names;
}

} // namespace report
