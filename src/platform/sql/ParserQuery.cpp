#include "platform/sql/Parser.h"

namespace sql {

using namespace Qt::StringLiterals;

/// SELECT .. {UNION [ALL] SELECT ..} [ORDER BY ..]
std::unique_ptr<Query> Parser::parseQuery()
{
    const Nesting nesting(*this);
    auto query = std::make_unique<Query>();
    for (;;) {
        // Those around one select say nothing.
        int parentheses = 0;
        while (accept(TokenKind::LeftParenthesis))
            ++parentheses;
        query->selects.push_back(parseSelect());
        while (parentheses-- > 0)
            expect(TokenKind::RightParenthesis, u"\")\"");
        if (!accept(Keyword::Union))
            break;
        query->all.push_back(accept(Keyword::All));
    }
    // Behind all selects, so that it sorts the whole union.
    if (at(Keyword::Order))
        query->orderBy = parseOrder();
    return query;
}

/// SELECT [DISTINCT] [TOP n] items [FROM ..] [WHERE ..] [GROUP BY ..] [HAVING ..]
Select Parser::parseSelect()
{
    Select select;
    expect(Keyword::Select, u"SELECT");
    if (accept(Keyword::Distinct) || accept(Keyword::DistinctRow))
        select.distinct = true;
    else
        accept(Keyword::All);
    // A column may be called so: only a number behind it makes TOP a word of the grammar.
    if (at(Keyword::Top) && peek(1).kind == TokenKind::Integer) {
        take();
        select.top = take();
        if (at(Keyword::Percent))
            raise(u"TOP takes a number of rows; PERCENT is not known."_s);
    }
    do {
        select.items.push_back(parseSelectItem());
    } while (accept(TokenKind::Comma));
    if (accept(Keyword::From))
        select.from = parseJoinChain();
    if (accept(Keyword::Where))
        select.where = parseExpression();
    if (accept(Keyword::Group)) {
        expect(Keyword::By, u"BY");
        do {
            select.groupBy.push_back(parseExpression());
        } while (accept(TokenKind::Comma));
    }
    // Also without GROUP BY: all rows are one group then.
    if (accept(Keyword::Having))
        select.having = parseExpression();
    return select;
}

/// "*", "table.*", or a value with a name of its own or without.
SelectItem Parser::parseSelectItem()
{
    SelectItem item;
    item.position = peek().begin;
    if (accept(TokenKind::Star)) {
        item.kind = SelectItem::Kind::AllColumns;
        return item;
    }
    if (atName() && peek(1).kind == TokenKind::Dot && peek(2).kind == TokenKind::Star) {
        item.kind = SelectItem::Kind::TableColumns;
        item.table = take().text;
        take();
        take();
        return item;
    }
    item.value = parseExpression();
    item.alias = parseAlias(true);
    return item;
}

QStringView Parser::parseAlias(bool withoutAs)
{
    if (accept(Keyword::As)) {
        // Behind AS nothing but a name can stand, so that even a word of the grammar is one.
        if (!at(TokenKind::Name) && !at(TokenKind::Word))
            raise(u"expected a name behind AS."_s);
        return take().text;
    }
    return withoutAs && atName() ? take().text : QStringView();
}

/// A JOIN without INNER, LEFT, RIGHT or FULL is an inner one; OUTER says nothing more.
std::optional<JoinKind> Parser::takeJoin()
{
    JoinKind kind = JoinKind::Inner;
    switch (peek().keyword) {
    case Keyword::Join:
        break;
    case Keyword::Inner:
        take();
        break;
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Full:
        kind = at(Keyword::Left)    ? JoinKind::Left
               : at(Keyword::Right) ? JoinKind::Right
                                    : JoinKind::Full;
        take();
        accept(Keyword::Outer);
        break;
    default:
        if (accept(TokenKind::Comma))
            return JoinKind::Comma;
        return std::nullopt;
    }
    expect(Keyword::Join, u"JOIN");
    return kind;
}

/// Tables from left to right. A comma joins too: what it leaves open stands in WHERE.
JoinChain Parser::parseJoinChain()
{
    const Nesting nesting(*this);
    JoinChain chain;
    chain.push_back(parseJoinMember());
    while (const auto kind = takeJoin()) {
        chain.push_back(parseJoinMember());
        chain.back().kind = *kind;
        if (*kind != JoinKind::Comma) {
            expect(Keyword::On, u"ON behind the joined table");
            chain.back().condition = parseExpression();
        }
    }
    return chain;
}

Join Parser::parseJoinMember()
{
    Join member;
    // A parenthesis may hold a query or joined tables; only the word behind it tells.
    if (at(TokenKind::QueryOpen) ||
        (at(TokenKind::LeftParenthesis) && peek(1).keyword == Keyword::Select)) {
        member.source = parseDerivedTable();
        return member;
    }
    if (accept(TokenKind::LeftParenthesis)) {
        member.group = std::make_unique<JoinChain>(parseJoinChain());
        expect(TokenKind::RightParenthesis, u"\")\" behind the joined tables");
        return member;
    }
    member.source = parseTable();
    return member;
}

std::unique_ptr<Source> Parser::parseTable()
{
    auto source = std::make_unique<Source>();
    source->position = peek().begin;
    source->tableName = takeName(u"a table");
    // FULL is a name unless it begins a join.
    const bool joins = at(Keyword::Full) &&
                       (peek(1).keyword == Keyword::Join || peek(1).keyword == Keyword::Outer);
    source->alias = parseAlias(!joins);
    return source;
}

/// "(SELECT ..) [AS] name" or "[SELECT ..]. AS name"; the name may be missing.
std::unique_ptr<Source> Parser::parseDerivedTable()
{
    auto source = std::make_unique<Source>();
    source->position = peek().begin;
    const bool bracketed = take().kind == TokenKind::QueryOpen;
    source->derived = parseQuery();
    // A query that was written on its own may bring its end along.
    accept(TokenKind::Semicolon);
    if (bracketed) {
        expect(TokenKind::QueryClose, u"\"]\" behind the query");
        expect(TokenKind::Dot, u"\".\" behind the query in brackets");
    } else {
        expect(TokenKind::RightParenthesis, u"\")\" behind the query");
    }
    source->alias = parseAlias(true);
    return source;
}

std::vector<OrderItem> Parser::parseOrder()
{
    std::vector<OrderItem> items;
    expect(Keyword::Order, u"ORDER");
    expect(Keyword::By, u"BY");
    do {
        OrderItem item;
        item.value = parseExpression();
        if (accept(Keyword::Desc))
            item.descending = true;
        else
            accept(Keyword::Asc);
        items.push_back(std::move(item));
    } while (accept(TokenKind::Comma));
    return items;
}

} // namespace sql
