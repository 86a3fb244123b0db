#include "platform/base/Error.h"
#include "platform/report/query/QueryText.h"
#include "platform/sql/Parser.h"
#include "reporting/ReportQuery.h"

#include <QDateTime>

/// Reading a query's text back into what was picked.
namespace reportquery {

using namespace Qt::StringLiterals;

namespace {

using sql::Expression;

/// The text says something that picking can't show.
struct NotShown
{};

void require(bool isShown)
{
    if (!isShown)
        throw NotShown();
}

class Reader
{
public:
    Reader(const report::QueryText &text, const QList<reporttables::Table> &tables)
        : m_text(text)
        , m_tables(tables)
    {}

    Query read()
    {
        const sql::Statement statement = sql::Parser(m_text.statement).parseStatement();
        require(statement.kind == sql::StatementKind::Query);
        require(statement.query->selects.size() == 1);
        const sql::Select &select = statement.query->selects.front();
        require(!select.top && select.groupBy.empty() && !select.having);
        m_query.distinct = select.distinct;
        takeChain(select.from);
        require(!m_query.sources.isEmpty());
        for (const sql::SelectItem &item : select.items)
            takeItem(item);
        if (select.where)
            takeConditions(*select.where);
        for (const sql::OrderItem &item : statement.query->orderBy)
            m_query.sort.append({placeOf(*item.value), item.descending});
        return std::move(m_query);
    }

private:
    void takeChain(const sql::JoinChain &chain)
    {
        for (std::size_t at = 0; at < chain.size(); ++at) {
            const sql::Join &join = chain[at];
            // Parentheses hold the joins before; anywhere else they would join in another order.
            if (at == 0 && join.group) {
                takeChain(*join.group);
                continue;
            }
            require(join.source && !join.source->derived);
            const reporttables::Table *table =
                reporttables::tableOf(m_tables, join.source->tableName);
            require(table != nullptr);
            Source source;
            source.table = table->name;
            source.as = join.source->alias.toString();
            require(m_query.find(source.name()) == nullptr);
            m_query.sources.append(source);
            if (at > 0)
                takeJoin(join);
        }
    }

    /// Joins the last source by its condition.
    void takeJoin(const sql::Join &join)
    {
        require(join.kind == sql::JoinKind::Left || join.kind == sql::JoinKind::Inner);
        const Expression &on = *join.condition;
        require(on.kind == Expression::Kind::Compare && on.operators[0] == sql::Operator::Equal);
        Place left = placeOf(*on.operands[0]);
        Place right = placeOf(*on.operands[1]);
        const QString own = m_query.sources.last().name();
        // Which side of the sign the new table stands on is all the same.
        if (left.table == own)
            std::swap(left, right);
        require(right.table == own && left.table != own);
        Source &source = m_query.sources.last();
        source.column = right.column;
        source.to = left;
        source.onlyMatching = join.kind == sql::JoinKind::Inner;
    }

    void takeItem(const sql::SelectItem &item)
    {
        // Of several tables a "*" would give columns of the same names.
        if (item.kind == sql::SelectItem::Kind::AllColumns && m_query.sources.size() == 1) {
            const Source &source = m_query.sources.first();
            for (const reporttables::Column &column :
                 reporttables::tableOf(m_tables, source.table)->columns)
                m_query.columns.append(Column{{source.name(), column.name}, {}});
            return;
        }
        require(item.kind == sql::SelectItem::Kind::Value);
        m_query.columns.append({placeOf(*item.value), item.alias.toString()});
    }

    void takeConditions(const Expression &expression)
    {
        if (expression.kind == Expression::Kind::And) {
            for (const sql::ExpressionPointer &operand : expression.operands)
                takeConditions(*operand);
            return;
        }
        m_query.conditions.append(conditionOf(expression));
    }

    [[nodiscard]] Condition conditionOf(const Expression &expression) const
    {
        Condition condition;
        require(!expression.operands.empty());
        condition.place = placeOf(*expression.operands[0]);
        if (expression.kind == Expression::Kind::IsNull) {
            condition.comparison =
                expression.negated ? Comparison::IsNotEmpty : Comparison::IsEmpty;
            return condition;
        }
        const bool isLike = expression.kind == Expression::Kind::Like;
        require(!expression.negated && (isLike || expression.kind == Expression::Kind::Compare));
        // Not sooner: what stands behind "IN (SELECT" is no operand, so that there is only one.
        const Expression &value = *expression.operands[1];
        if (isLike) {
            takePattern(value, condition);
        } else {
            condition.comparison = comparisonOf(expression.operators[0]);
            takeValue(value, condition);
        }
        // An empty value is one that has still to be typed.
        require(!condition.value.trimmed().isEmpty());
        return condition;
    }

    [[nodiscard]] static Comparison comparisonOf(sql::Operator sign)
    {
        switch (sign) {
        case sql::Operator::Equal:
            return Comparison::Equal;
        case sql::Operator::NotEqual:
            return Comparison::NotEqual;
        case sql::Operator::Less:
            return Comparison::Less;
        case sql::Operator::LessOrEqual:
            return Comparison::LessOrEqual;
        case sql::Operator::Greater:
            return Comparison::Greater;
        case sql::Operator::GreaterOrEqual:
            return Comparison::GreaterOrEqual;
        default:
            throw NotShown();
        }
    }

    void takeParameter(const Expression &value, Condition &condition) const
    {
        condition.isParameter = true;
        condition.value = m_text.parameters.value(value.token.number);
        require(!condition.value.isEmpty());
    }

    void takeValue(const Expression &value, Condition &condition) const
    {
        const sql::ColumnKind kind = kindOf(m_query, condition.place, m_tables);
        if (value.kind == Expression::Kind::Parameter)
            return takeParameter(value, condition);
        if (value.kind == Expression::Kind::Boolean) {
            require(kind == sql::ColumnKind::YesNo);
            condition.value = value.negated ? u"No"_s : u"Yes"_s;
            return;
        }
        require(value.kind == Expression::Kind::Literal);
        const QVariant literal = sql::literalValue(value.token, m_text.statement);
        if (literal.typeId() == QMetaType::QDateTime) {
            // Dates are typed without a time of day, which would be lost.
            require(kind == sql::ColumnKind::Date && literal.toTime() == QTime(0, 0));
            condition.value = literal.toDate().toString(u"MM/dd/yyyy"_s);
        } else if (literal.typeId() == QMetaType::QString) {
            require(kind == sql::ColumnKind::Text);
            condition.value = literal.toString();
        } else {
            require(kind == sql::ColumnKind::Integer || kind == sql::ColumnKind::Real ||
                    kind == sql::ColumnKind::Money);
            condition.value = (value.negated ? u"-"_s : QString()) + value.token.text.toString();
        }
    }

    /// "*text*", "text*", or the same around a parameter.
    void takePattern(const Expression &value, Condition &condition) const
    {
        if (value.kind == Expression::Kind::Arithmetic) {
            require(value.operands.size() == 3 &&
                    value.operators[0] == sql::Operator::Concatenate &&
                    value.operators[1] == sql::Operator::Concatenate &&
                    value.operands[1]->kind == Expression::Kind::Parameter);
            const QString before = textOfLiteral(*value.operands[0]);
            require((before.isEmpty() || before == u"*"_s) &&
                    textOfLiteral(*value.operands[2]) == u"*"_s);
            condition.comparison = before.isEmpty() ? Comparison::BeginsWith : Comparison::Contains;
            return takeParameter(*value.operands[1], condition);
        }
        QString pattern = textOfLiteral(value);
        require(pattern.endsWith(u'*') && !pattern.endsWith(u"[*"_s));
        pattern.chop(1);
        condition.comparison =
            pattern.startsWith(u'*') ? Comparison::Contains : Comparison::BeginsWith;
        if (condition.comparison == Comparison::Contains)
            pattern.remove(0, 1);
        condition.value = plainText(pattern);
    }

    [[nodiscard]] QString textOfLiteral(const Expression &value) const
    {
        require(value.kind == Expression::Kind::Literal &&
                value.token.kind == sql::TokenKind::Text);
        return sql::literalValue(value.token, m_text.statement).toString();
    }

    /// A pattern's text; it may hold signs of patterns only in brackets, each by itself.
    [[nodiscard]] static QString plainText(const QString &pattern)
    {
        QString text;
        for (qsizetype at = 0; at < pattern.size(); ++at) {
            const QChar letter = pattern[at];
            if (letter == u'[') {
                require(at + 2 < pattern.size() && pattern[at + 2] == u']' &&
                        QStringView(u"*?#[").contains(pattern[at + 1]));
                text += pattern[at + 1];
                at += 2;
            } else {
                require(!QStringView(u"*?#").contains(letter));
                text += letter;
            }
        }
        return text;
    }

    /// The place of a column, with the names that the tables were made with.
    [[nodiscard]] Place placeOf(const Expression &expression) const
    {
        require(expression.kind == Expression::Kind::Name);
        std::optional<Place> place;
        for (const Source &source : m_query.sources) {
            if (!expression.qualifier.isEmpty() &&
                expression.qualifier.compare(source.name(), Qt::CaseInsensitive) != 0)
                continue;
            const reporttables::Table *table = reporttables::tableOf(m_tables, source.table);
            if (const reporttables::Column *column = table->find(expression.name)) {
                // A name that two tables have says neither.
                require(!place);
                place = {source.name(), column->name};
            }
        }
        require(place.has_value());
        return *place;
    }

    const report::QueryText &m_text;
    const QList<reporttables::Table> &m_tables;
    Query m_query;
};

} // namespace

std::optional<Query> read(const QString &text, const QList<reporttables::Table> &tables)
{
    try {
        const report::QueryText named = report::withoutNames(text);
        return Reader(named, tables).read();
    } catch (const NotShown &) {
        return std::nullopt;
        // Nor can a text that is no statement: it is mended where it was written.
    } catch (const base::Error &) {
        return std::nullopt;
    }
}

} // namespace reportquery
