#pragma once

#include "platform/sql/Tree.h"

#include <vector>

namespace sql {

/// Makes the tree of one statement by recursive descent. Nesting beyond a fixed depth is refused,
/// so that no statement can exhaust the stack.
class Parser
{
public:
    explicit Parser(QStringView statement);

    /// The whole statement; a semicolon may end it. Raises a syntax error.
    [[nodiscard]] Statement parseStatement();

private:
    friend class Nesting;

    // Each function takes what it is named for from the tokens, and raises a syntax error at the
    // first one that does not fit.

    // Queries (ParserQuery.cpp).
    std::unique_ptr<Query> parseQuery();
    Select parseSelect();
    SelectItem parseSelectItem();
    JoinChain parseJoinChain();
    Join parseJoinMember();
    std::unique_ptr<Source> parseTable();
    std::unique_ptr<Source> parseDerivedTable();
    /// A name behind AS, or with withoutAs a bare one; empty when there is none.
    QStringView parseAlias(bool withoutAs);
    /// The words of a join, or a comma; nothing where the chain ends.
    std::optional<JoinKind> takeJoin();
    std::vector<OrderItem> parseOrder();

    // Expressions (ParserExpression.cpp).
    ExpressionPointer parseExpression();
    /// One function for each level, the loosest first. A level without its operator gives what the
    /// next one gave.
    ExpressionPointer parseOr();
    ExpressionPointer parseAnd();
    ExpressionPointer parseNot();
    ExpressionPointer parsePredicate();
    /// BETWEEN, IN and LIKE behind a value, and NOT before them.
    ExpressionPointer parseNegatablePredicate(ExpressionPointer value);
    ExpressionPointer parseIn(ExpressionPointer value, bool negated);
    /// The levels of calculation, 0 (&) being the loosest; below the last one stand signs, then
    /// powers.
    ExpressionPointer parseArithmetic(int level);
    ExpressionPointer parseUnary();
    ExpressionPointer parsePower();
    ExpressionPointer parsePrimary();
    ExpressionPointer parseParenthesis();
    /// What a word begins where a value is wanted: Null, a constant, EXISTS, a call, or a name.
    ExpressionPointer parseWord();
    ExpressionPointer parseName();
    ExpressionPointer parseCall();
    std::vector<ExpressionPointer> parseArguments();

    // Statements that change rows or tables (ParserChange.cpp).
    std::unique_ptr<Change> parseInsert();
    std::unique_ptr<Change> parseUpdate();
    std::unique_ptr<Change> parseDelete();
    /// The table that a statement changes.
    std::unique_ptr<Source> parseTarget(bool withAlias);
    Expression parseColumn();
    std::unique_ptr<Definition> parseCreate();
    void parseCreateTable(Definition &definition);
    void parseCreateIndex(Definition &definition);
    std::unique_ptr<Definition> parseAlter();
    std::unique_ptr<Definition> parseDrop();
    ColumnDefinition parseColumnDefinition();
    /// Adds one constraint or default to the column; False when none stands here.
    bool parseColumnConstraint(ColumnDefinition &column);
    /// A key of the table; nothing where a column begins.
    std::optional<KeyDefinition> parseKeyDefinition();
    std::vector<IndexColumn> parseIndexColumns();
    TypeName parseType();
    /// A whole number from 1 up to the most.
    int parseLength(int most);

    // Tokens.
    /// The token so many ahead, beyond the last one always End; take() gives the present one and
    /// goes on.
    [[nodiscard]] const Token &peek(int ahead = 0) const;
    const Token &take();
    [[nodiscard]] bool at(TokenKind kind) const { return peek().kind == kind; }
    [[nodiscard]] bool at(Keyword keyword) const { return peek().keyword == keyword; }
    [[nodiscard]] bool atWord(QStringView word) const;
    /// accept takes the token when it is this one, and says so; expect raises when it is another,
    /// and names what it wanted.
    bool accept(TokenKind kind);
    bool accept(Keyword keyword);
    bool acceptWord(QStringView word);
    void expect(TokenKind kind, QStringView shown);
    void expect(Keyword keyword, QStringView shown);
    /// A name in brackets, or any word that can't be taken for a part of the grammar.
    [[nodiscard]] bool atName(int ahead = 0) const;
    /// Takes a name. of: what it is the name of, for the message.
    QStringView takeName(QStringView of);
    /// Raises a syntax error at the present token.
    [[noreturn]] void raise(const QString &what) const;

    QStringView m_statement;
    std::vector<Token> m_tokens;
    std::size_t m_position = 0;
    int m_depth = 0;
};

/// Counts a level of nesting for as long as it lives; raises a syntax error beyond the limit.
class Nesting
{
public:
    explicit Nesting(Parser &parser);
    ~Nesting() { --m_parser.m_depth; }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;

private:
    Parser &m_parser;
};

/// An expression of a kind, without operands; position: where it begins in the statement.
[[nodiscard]] inline ExpressionPointer makeExpression(Expression::Kind kind, qsizetype position)
{
    auto expression = std::make_unique<Expression>();
    expression->kind = kind;
    expression->position = position;
    return expression;
}

} // namespace sql
