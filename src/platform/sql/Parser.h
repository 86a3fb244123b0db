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

    // Queries (ParserQuery.cpp).
    std::unique_ptr<Query> parseQuery();
    Select parseSelect();
    SelectItem parseSelectItem();
    JoinChain parseJoinChain();
    Join parseJoinMember();
    std::unique_ptr<Source> parseTable();
    std::unique_ptr<Source> parseDerivedTable();
    QStringView parseAlias(bool withoutAs);
    std::optional<JoinKind> takeJoin();
    std::vector<OrderItem> parseOrder();

    // Expressions (ParserExpression.cpp).
    ExpressionPointer parseExpression();
    ExpressionPointer parseOr();
    ExpressionPointer parseAnd();
    ExpressionPointer parseNot();
    ExpressionPointer parsePredicate();
    ExpressionPointer parseNegatablePredicate(ExpressionPointer value);
    ExpressionPointer parseIn(ExpressionPointer value, bool negated);
    ExpressionPointer parseArithmetic(int level);
    ExpressionPointer parseUnary();
    ExpressionPointer parsePower();
    ExpressionPointer parsePrimary();
    ExpressionPointer parseParenthesis();
    ExpressionPointer parseWord();
    ExpressionPointer parseName();
    ExpressionPointer parseCall();
    std::vector<ExpressionPointer> parseArguments();

    // Statements that change rows or tables (ParserChange.cpp).
    std::unique_ptr<Change> parseInsert();
    std::unique_ptr<Change> parseUpdate();
    std::unique_ptr<Change> parseDelete();
    std::unique_ptr<Source> parseTarget(bool withAlias);
    Expression parseColumn();
    std::unique_ptr<Definition> parseCreate();
    void parseCreateTable(Definition &definition);
    void parseCreateIndex(Definition &definition);
    std::unique_ptr<Definition> parseAlter();
    std::unique_ptr<Definition> parseDrop();
    ColumnDefinition parseColumnDefinition();
    bool parseColumnConstraint(ColumnDefinition &column);
    std::optional<KeyDefinition> parseKeyDefinition();
    std::vector<IndexColumn> parseIndexColumns();
    TypeName parseType();
    int parseLength(int most);

    // Tokens.
    [[nodiscard]] const Token &peek(int ahead = 0) const;
    const Token &take();
    [[nodiscard]] bool at(TokenKind kind) const { return peek().kind == kind; }
    [[nodiscard]] bool at(Keyword keyword) const { return peek().keyword == keyword; }
    [[nodiscard]] bool atWord(QStringView word) const;
    bool accept(TokenKind kind);
    bool accept(Keyword keyword);
    bool acceptWord(QStringView word);
    void expect(TokenKind kind, QStringView shown);
    void expect(Keyword keyword, QStringView shown);
    /// A name in brackets, or any word that can't be taken for a part of the grammar.
    [[nodiscard]] bool atName(int ahead = 0) const;
    QStringView takeName(QStringView of);
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

[[nodiscard]] inline ExpressionPointer makeExpression(Expression::Kind kind, qsizetype position)
{
    auto expression = std::make_unique<Expression>();
    expression->kind = kind;
    expression->position = position;
    return expression;
}

} // namespace sql
