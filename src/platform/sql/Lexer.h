#pragma once

#include <QString>
#include <QStringView>
#include <QVariant>
#include <vector>

namespace sql {

enum class TokenKind : quint8 {
    End,
    Word,      ///< a bare name or keyword
    Name,      ///< a name in brackets or back quotes; text is what stands inside
    Text,      ///< a literal between single or double quotes
    Integer,   ///< a whole number of at most 64 bits
    Real,      ///< any other number
    Date,      ///< a literal between "#"
    Parameter, ///< "?"
    Comma,
    Dot,
    LeftParenthesis,
    RightParenthesis,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Semicolon,
    QueryOpen,  ///< "[" that opens a derived table
    QueryClose, ///< "]" that closes one; a "." follows
};

/// Words that have a meaning of their own somewhere in the grammar.
enum class Keyword : quint8 {
    None,
    Add,
    All,
    Alter,
    And,
    As,
    Asc,
    Between,
    By,
    Column,
    Constraint,
    Create,
    Default,
    Delete,
    Desc,
    Distinct,
    DistinctRow,
    Drop,
    Exists,
    False,
    From,
    Full,
    Group,
    Having,
    In,
    Index,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Key,
    Left,
    Like,
    Mod,
    No,
    Not,
    Null,
    Off,
    On,
    Or,
    Order,
    Outer,
    Percent,
    Primary,
    Right,
    Select,
    Set,
    Table,
    Top,
    True,
    Union,
    Unique,
    Update,
    Values,
    Where,
    With,
    Yes,
};

struct Token
{
    TokenKind kind = TokenKind::End;
    Keyword keyword = Keyword::None; ///< only for words
    QStringView text;                ///< as it stands; without the quotes or brackets around it
    qsizetype begin = 0;             ///< where it stands in the statement
    qsizetype end = 0;
    int number = -1; ///< which literal or which parameter of the statement it is

    /// True for what is lifted out of a statement: texts, numbers and dates.
    [[nodiscard]] bool isLiteral() const
    {
        return kind >= TokenKind::Text && kind <= TokenKind::Date;
    }
};

/// Cuts a statement into tokens, one call after the other, in time linear in its length. The
/// statement's text has to outlive the tokens.
class Lexer
{
public:
    explicit Lexer(QStringView statement)
        : m_statement(statement)
    {}

    /// The next token, at the end of the text always End. Raises a syntax error.
    Token next();

private:
    /// A token of each kind, from the present place on. They raise a syntax error for what has no
    /// end and for characters without a meaning.
    Token scan();
    Token scanWord();
    Token scanNumber();
    Token scanQuoted(char16_t quote, TokenKind kind);
    Token scanBracket();
    Token symbol(TokenKind kind, qsizetype length);
    /// True when the "[" at this place opens a derived table, and not a name.
    [[nodiscard]] bool opensQuery() const;
    /// The character so many places ahead; 0 beyond the end.
    [[nodiscard]] char16_t peek(qsizetype ahead = 0) const;

    QStringView m_statement;
    qsizetype m_position = 0;
    TokenKind m_previous = TokenKind::End;
    Keyword m_previousKeyword = Keyword::None;
    qsizetype m_previousEnd = 0;
    int m_queryDepth = 0;
    int m_literals = 0;
    int m_parameters = 0;
};

/// All tokens of a statement, the last one End. Raises a syntax error.
[[nodiscard]] std::vector<Token> tokensOf(QStringView statement);

/// The value of a literal's token. Raises a syntax error for a date that is none.
[[nodiscard]] QVariant literalValue(const Token &token, QStringView statement);

/// Raises a syntax error with the description and the place, shown as the text from there on.
[[noreturn]] void raiseSyntaxError(const QString &what, QStringView statement, qsizetype position);

} // namespace sql
