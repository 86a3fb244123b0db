#include "platform/report/expr/Expression.h"

#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/report/expr/Functions.h"

#include <QDateTime>
#include <cmath>

namespace report {

using namespace Qt::StringLiterals;

/// A node of the tree: how its children's values make its own.
class ExpressionNode
{
public:
    enum class Kind { Constant, Name, Aggregate, Function, Negate, Not, Binary };

    Kind kind = Kind::Constant;
    QVariant constant; ///< Constant
    QString text;      ///< Name; operator of Binary
    int number = 0;    ///< Aggregate
    FunctionPointer function = nullptr;
    std::vector<ExpressionNode> children;

    [[nodiscard]] QVariant evaluate(const EvaluationContext &context) const;

private:
    [[nodiscard]] QVariant evaluateBinary(const EvaluationContext &context) const;
};

struct Expression::Tree
{
    ExpressionNode root;
    QList<Aggregate> aggregates;
    QList<Expression> arguments;
    QStringList names;
};

namespace {

constexpr int MaximumDepth = 200;

bool isNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

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

/// Whole numbers stay whole as long as the operation allows it.
QVariant number(double value)
{
    if (std::isnan(value) || std::isinf(value))
        return {};
    if (value == std::trunc(value) && std::abs(value) < 1e15)
        return static_cast<qint64>(value);
    return value;
}

struct ParseError
{
    QString what;
    qsizetype at;
};

struct Token
{
    enum class Kind { End, Number, Text, Date, Name, Symbol } kind = Kind::End;
    QString text;
    QVariant value;
    qsizetype at = 0;
};

class Tokens
{
public:
    explicit Tokens(const QString &text)
        : m_text(text)
    {
        advance();
    }

    [[nodiscard]] const Token &current() const { return m_current; }
    Token take()
    {
        Token token = m_current;
        advance();
        return token;
    }
    /// True, and the token taken, when it is this symbol or word.
    bool accept(QStringView text)
    {
        const bool match =
            (m_current.kind == Token::Kind::Symbol || m_current.kind == Token::Kind::Name) &&
            !m_current.value.isValid() && m_current.text.compare(text, Qt::CaseInsensitive) == 0;
        if (match)
            advance();
        return match;
    }
    void expect(QStringView text)
    {
        if (!accept(text))
            throw ParseError{u"\"%1\" is missing"_s.arg(text), m_current.at};
    }

private:
    void advance()
    {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
        m_current = {};
        m_current.at = m_at;
        if (m_at >= m_text.size())
            return;
        const QChar c = m_text[m_at];
        if (c.isDigit() || (c == u'.' && m_at + 1 < m_text.size() && m_text[m_at + 1].isDigit()))
            readNumber();
        else if (c == u'\'' || c == u'"')
            readText(c);
        else if (c == u'#')
            readDate();
        else if (c == u'[' || c == u'{')
            readBracketedName(c == u'[' ? u']' : u'}');
        else if (c.isLetter() || c == u'_')
            readName();
        else
            readSymbol();
    }
    void readNumber()
    {
        const qsizetype from = m_at;
        while (m_at < m_text.size() && (m_text[m_at].isDigit() || m_text[m_at] == u'.'))
            ++m_at;
        bool ok = false;
        const double value = m_text.sliced(from, m_at - from).toDouble(&ok);
        if (!ok)
            throw ParseError{u"this is no number"_s, from};
        m_current.kind = Token::Kind::Number;
        m_current.value = number(value);
    }
    void readText(QChar quote)
    {
        const qsizetype from = m_at++;
        QString text;
        for (;; ++m_at) {
            if (m_at >= m_text.size())
                throw ParseError{u"the text has no closing quote"_s, from};
            if (m_text[m_at] == quote) {
                if (m_at + 1 < m_text.size() && m_text[m_at + 1] == quote)
                    ++m_at;
                else
                    break;
            }
            text += m_text[m_at];
        }
        ++m_at;
        m_current.kind = Token::Kind::Text;
        m_current.value = text;
    }
    void readDate()
    {
        const qsizetype from = m_at;
        const qsizetype end = m_text.indexOf(u'#', m_at + 1);
        const auto date =
            end < 0 ? std::nullopt
                    : base::parseMonthFirst(QStringView(m_text).sliced(from + 1, end - from - 1));
        if (!date)
            throw ParseError{u"this is no date"_s, from};
        m_at = end + 1;
        m_current.kind = Token::Kind::Date;
        m_current.value = *date;
    }
    void readBracketedName(QChar close)
    {
        const qsizetype from = m_at;
        const qsizetype end = m_text.indexOf(close, m_at + 1);
        if (end < 0)
            throw ParseError{u"the name has no closing bracket"_s, from};
        m_current.kind = Token::Kind::Name;
        m_current.text = m_text.sliced(from + 1, end - from - 1).trimmed();
        m_current.value = true; // a name in brackets is never a word of the language
        m_at = end + 1;
    }
    void readName()
    {
        const qsizetype from = m_at;
        while (m_at < m_text.size() &&
               (m_text[m_at].isLetterOrNumber() || m_text[m_at] == u'_' || m_text[m_at] == u'.'))
            ++m_at;
        m_current.kind = Token::Kind::Name;
        m_current.text = m_text.sliced(from, m_at - from);
    }
    void readSymbol()
    {
        m_current.kind = Token::Kind::Symbol;
        for (const QStringView two : {u"<>", u"<=", u">="}) {
            if (QStringView(m_text).sliced(m_at).startsWith(two)) {
                m_current.text = two.toString();
                m_at += 2;
                return;
            }
        }
        m_current.text = m_text[m_at++];
    }

    const QString &m_text;
    qsizetype m_at = 0;
    Token m_current;
};

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
        return value.isNull() ? value : report::number(-value.toDouble());
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
        return report::number(static_cast<double>(right.toDateTime().secsTo(left.toDateTime())) /
                              86400);
    if (leftDate)
        return daysAfter(left.toDateTime(), (text == u"-" ? -1 : 1) * right.toDouble());
    if (text == u"+" && (!isNumber(left) || !isNumber(right)))
        return QVariant(base::toText(left) + base::toText(right));
    const double a = left.toDouble();
    const double b = right.toDouble();
    if (text == u"+")
        return report::number(base::decimalSum(a, b));
    if (text == u"-")
        return report::number(base::decimalDifference(a, b));
    if (text == u"*")
        return report::number(base::decimalProduct(a, b));
    if (b == 0)
        return {};
    return report::number(text == u"mod" ? std::fmod(a, b) : a / b);
}

namespace {

class Parser
{
public:
    explicit Parser(const QString &text)
        : m_source(text)
        , m_tokens(text)
    {}

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

private:
    using Kind = ExpressionNode::Kind;

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

    static ExpressionNode binary(const QString &op, ExpressionNode left, ExpressionNode right)
    {
        ExpressionNode node;
        node.kind = Kind::Binary;
        node.text = op;
        node.children.push_back(std::move(left));
        node.children.push_back(std::move(right));
        return node;
    }
    static ExpressionNode unary(Kind kind, ExpressionNode operand)
    {
        ExpressionNode node;
        node.kind = kind;
        node.children.push_back(std::move(operand));
        return node;
    }

    /// A chain of operators of one rank; the left one is done first.
    template<class Next>
    ExpressionNode chain(std::initializer_list<QStringView> operators, Next next)
    {
        ExpressionNode left = (this->*next)();
        for (int length = 0;; ++length) {
            if (length > 10 * MaximumDepth)
                throw ParseError{u"the expression is too long"_s, m_tokens.current().at};
            QStringView found;
            for (const QStringView op : operators)
                if (m_tokens.accept(op)) {
                    found = op;
                    break;
                }
            if (found.isEmpty())
                return left;
            left = binary(found.toString(), std::move(left), (this->*next)());
        }
    }

    ExpressionNode parseOr()
    {
        const Level level(*this);
        return chain({u"or"}, &Parser::parseAnd);
    }
    ExpressionNode parseAnd() { return chain({u"and"}, &Parser::parseNot); }
    ExpressionNode parseNot()
    {
        const Level level(*this);
        if (m_tokens.accept(u"not"))
            return unary(Kind::Not, parseNot());
        return chain({u"=", u"<>", u"<=", u">=", u"<", u">"}, &Parser::parseJoin);
    }
    ExpressionNode parseJoin() { return chain({u"&"}, &Parser::parseSum); }
    ExpressionNode parseSum() { return chain({u"+", u"-"}, &Parser::parseProduct); }
    ExpressionNode parseProduct() { return chain({u"*", u"/", u"mod"}, &Parser::parseUnary); }
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
            do
                node.children.push_back(parseOr());
            while (m_tokens.accept(u","));
            m_tokens.expect(u")");
        }
        const int count = static_cast<int>(node.children.size());
        if (count < function->minimum || count > function->maximum)
            throw ParseError{u"\"%1\" has another number of arguments"_s.arg(name.text), name.at};
        return node;
    }

    ExpressionNode parseAggregate(AggregateFunction function, const Token &name)
    {
        if (m_inAggregate)
            throw ParseError{u"an aggregate can't stand within another"_s, name.at};
        m_inAggregate = true;
        Aggregate aggregate;
        aggregate.function = function;
        const qsizetype from = m_tokens.current().at;
        if (m_tokens.accept(u"*"))
            aggregate.argument = u"1"_s;
        else
            (void)parseOr();
        if (aggregate.argument.isEmpty())
            aggregate.argument = m_source.sliced(from, m_tokens.current().at - from).trimmed();
        if (m_tokens.accept(u",")) {
            const Token scope = m_tokens.take();
            if (scope.kind != Token::Kind::Text)
                throw ParseError{u"the scope of an aggregate is a text"_s, scope.at};
            aggregate.scope = scope.value.toString();
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
            tree->arguments.append(parse(argument));
        return Expression(std::move(tree));
    } catch (const ParseError &failure) {
        if (error)
            *error =
                u"%1 (character %2 of \"%3\")"_s.arg(failure.what).arg(failure.at + 1).arg(text);
        return {};
    }
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

/// Beyond this the exact part of a sum takes no more.
constexpr qint64 Full = Q_INT64_C(4'000'000'000'000'000'000);

void Accumulator::add(const Accumulator &other)
{
    if (other.m_count == 0)
        return;
    if (m_function == AggregateFunction::Sum || m_function == AggregateFunction::Average) {
        m_rest += other.m_rest;
        if (std::abs(m_tenThousandths) < Full)
            m_tenThousandths += other.m_tenThousandths;
        else
            m_rest += static_cast<double>(other.m_tenThousandths) / 10000;
        m_count += other.m_count;
        return;
    }
    const qint64 count = m_count + other.m_count;
    if (m_function != AggregateFunction::Count)
        add(other.m_value);
    m_count = count;
}

void Accumulator::add(const QVariant &value)
{
    if (value.isNull())
        return;
    ++m_count;
    switch (m_function) {
    case AggregateFunction::Count:
        return;
    case AggregateFunction::First:
        if (m_count == 1)
            m_value = value;
        return;
    case AggregateFunction::Last:
        m_value = value;
        return;
    case AggregateFunction::Minimum:
        if (m_count == 1 || compareValues(value, m_value) < 0)
            m_value = value;
        return;
    case AggregateFunction::Maximum:
        if (m_count == 1 || compareValues(value, m_value) > 0)
            m_value = value;
        return;
    case AggregateFunction::Sum:
    case AggregateFunction::Average:
        break;
    }
    const double scaled = value.toDouble() * 10000;
    const double whole = std::nearbyint(scaled);
    // What four decimals hold is summed in whole numbers; binary fractions would drift. The nearest
    // binary fraction of such a value is off by no more than this.
    const double tolerance = 1e-9 + 4.5e-16 * std::abs(whole);
    if (std::abs(whole) < 1e15 && std::abs(scaled - whole) <= tolerance &&
        std::abs(m_tenThousandths) < Full)
        m_tenThousandths += static_cast<qint64>(whole);
    else
        m_rest += value.toDouble();
}

void Accumulator::reset()
{
    *this = Accumulator(m_function);
}

QVariant Accumulator::result() const
{
    if (m_function == AggregateFunction::Count)
        return m_count;
    if (m_count == 0)
        return {};
    if (m_function != AggregateFunction::Sum && m_function != AggregateFunction::Average)
        return m_value;
    const double sum = static_cast<double>(m_tenThousandths) / 10000 + m_rest;
    return number(m_function == AggregateFunction::Sum ? sum : sum / static_cast<double>(m_count));
}

bool isTrueValue(const QVariant &value)
{
    if (value.isNull())
        return false;
    if (value.typeId() == QMetaType::QString)
        return !value.toString().isEmpty();
    return !isNumber(value) || value.toDouble() != 0;
}

int compareValues(const QVariant &left, const QVariant &right)
{
    if (left.isNull() || right.isNull())
        return int(!left.isNull()) - int(!right.isNull());
    if (isNumber(left) && isNumber(right)) {
        const double a = left.toDouble();
        const double b = right.toDouble();
        return int(a > b) - int(a < b);
    }
    if (left.typeId() == QMetaType::QDateTime && right.typeId() == QMetaType::QDateTime) {
        const QDateTime a = left.toDateTime();
        const QDateTime b = right.toDateTime();
        return int(a > b) - int(a < b);
    }
    const int order = base::toText(left).compare(base::toText(right), Qt::CaseInsensitive);
    return int(order > 0) - int(order < 0);
}

} // namespace report
