#include "platform/sql/Parser.h"

namespace sql {

using namespace Qt::StringLiterals;

namespace {

/// No statement of the program comes near it; each level takes a few frames of the stack here, in
/// the resolver and in the writer.
constexpr int deepestNesting = 200;

/// Words that end an expression, an alias or a table where they stand unless they are bracketed.
bool isReserved(Keyword keyword)
{
    switch (keyword) {
    // These words begin something at one place of the grammar only, where a name can't stand:
    // everywhere else columns may be called so.
    case Keyword::None:
    case Keyword::Add:
    case Keyword::Column:
    case Keyword::Default:
    case Keyword::Full:
    case Keyword::Index:
    case Keyword::Key:
    case Keyword::Percent:
    case Keyword::Primary:
    case Keyword::Top:
    case Keyword::Values:
        return false;
    default:
        return true;
    }
}

} // namespace

Nesting::Nesting(Parser &parser)
    : m_parser(parser)
{
    if (m_parser.m_depth >= deepestNesting)
        m_parser.raise(u"parts of the statement are nested too deeply."_s);
    ++m_parser.m_depth;
}

Parser::Parser(QStringView statement)
    : m_statement(statement)
    , m_tokens(tokensOf(statement))
{}

Statement Parser::parseStatement()
{
    Statement statement;
    switch (peek().keyword) {
    case Keyword::Select:
        statement.query = parseQuery();
        break;
    case Keyword::Insert:
        statement.kind = StatementKind::Insert;
        statement.change = parseInsert();
        break;
    case Keyword::Update:
        statement.kind = StatementKind::Update;
        statement.change = parseUpdate();
        break;
    case Keyword::Delete:
        statement.kind = StatementKind::Delete;
        statement.change = parseDelete();
        break;
    case Keyword::Create:
        statement.kind = StatementKind::Ddl;
        statement.definition = parseCreate();
        break;
    case Keyword::Alter:
        statement.kind = StatementKind::Ddl;
        statement.definition = parseAlter();
        break;
    case Keyword::Drop:
        statement.kind = StatementKind::Ddl;
        statement.definition = parseDrop();
        break;
    default:
        // The first select of a union may stand in parentheses.
        if (at(TokenKind::LeftParenthesis)) {
            statement.query = parseQuery();
            break;
        }
        raise(u"expected SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP."_s);
    }
    // One statement at a time: what follows a semicolon, as in a text that somebody has put
    // together from a user's words, is refused.
    accept(TokenKind::Semicolon);
    if (!at(TokenKind::End))
        raise(u"the statement should have ended before this."_s);
    return statement;
}

const Token &Parser::peek(int ahead) const
{
    // Looking beyond the end finds the last token again, which is End.
    const std::size_t at = m_position + static_cast<std::size_t>(ahead);
    return at < m_tokens.size() ? m_tokens[at] : m_tokens.back();
}

const Token &Parser::take()
{
    const Token &token = peek();
    // The end is never passed, so that it can be met and told about any number of times.
    if (m_position + 1 < m_tokens.size())
        ++m_position;
    return token;
}

/// For words that mean something at one place only and are no keywords, so that they stay free as
/// names.
bool Parser::atWord(QStringView word) const
{
    return peek().kind == TokenKind::Word && peek().text.compare(word, Qt::CaseInsensitive) == 0;
}

bool Parser::accept(TokenKind kind)
{
    if (!at(kind))
        return false;
    take();
    return true;
}

bool Parser::accept(Keyword keyword)
{
    if (!at(keyword))
        return false;
    take();
    return true;
}

bool Parser::acceptWord(QStringView word)
{
    if (!atWord(word))
        return false;
    take();
    return true;
}

void Parser::expect(TokenKind kind, QStringView shown)
{
    if (!accept(kind))
        raise(u"expected %1."_s.arg(shown));
}

void Parser::expect(Keyword keyword, QStringView shown)
{
    if (!accept(keyword))
        raise(u"expected %1."_s.arg(shown));
}

bool Parser::atName(int ahead) const
{
    const Token &token = peek(ahead);
    return token.kind == TokenKind::Name ||
           (token.kind == TokenKind::Word && !isReserved(token.keyword));
}

QStringView Parser::takeName(QStringView of)
{
    if (!atName())
        raise(u"expected the name of %1."_s.arg(of));
    return take().text;
}

void Parser::raise(const QString &what) const
{
    raiseSyntaxError(what, m_statement, peek().begin);
}

} // namespace sql
