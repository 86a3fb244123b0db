#include "platform/sql/Lexer.h"

#include "platform/sql/Conversion.h"
#include "platform/sql/Errors.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace sql {
namespace {

using namespace Qt::StringLiterals;

/// A word of the grammar in lower case. The list is searched by halves, so that it has to stay
/// sorted.
struct KeywordEntry
{
    std::u16string_view word;
    Keyword keyword;
};

constexpr std::array keywords = {
    KeywordEntry{u"add", Keyword::Add},
    KeywordEntry{u"all", Keyword::All},
    KeywordEntry{u"alter", Keyword::Alter},
    KeywordEntry{u"and", Keyword::And},
    KeywordEntry{u"as", Keyword::As},
    KeywordEntry{u"asc", Keyword::Asc},
    KeywordEntry{u"between", Keyword::Between},
    KeywordEntry{u"by", Keyword::By},
    KeywordEntry{u"column", Keyword::Column},
    KeywordEntry{u"constraint", Keyword::Constraint},
    KeywordEntry{u"create", Keyword::Create},
    KeywordEntry{u"default", Keyword::Default},
    KeywordEntry{u"delete", Keyword::Delete},
    KeywordEntry{u"desc", Keyword::Desc},
    KeywordEntry{u"distinct", Keyword::Distinct},
    KeywordEntry{u"distinctrow", Keyword::DistinctRow},
    KeywordEntry{u"drop", Keyword::Drop},
    KeywordEntry{u"exists", Keyword::Exists},
    KeywordEntry{u"false", Keyword::False},
    KeywordEntry{u"from", Keyword::From},
    KeywordEntry{u"full", Keyword::Full},
    KeywordEntry{u"group", Keyword::Group},
    KeywordEntry{u"having", Keyword::Having},
    KeywordEntry{u"in", Keyword::In},
    KeywordEntry{u"index", Keyword::Index},
    KeywordEntry{u"inner", Keyword::Inner},
    KeywordEntry{u"insert", Keyword::Insert},
    KeywordEntry{u"into", Keyword::Into},
    KeywordEntry{u"is", Keyword::Is},
    KeywordEntry{u"join", Keyword::Join},
    KeywordEntry{u"key", Keyword::Key},
    KeywordEntry{u"left", Keyword::Left},
    KeywordEntry{u"like", Keyword::Like},
    KeywordEntry{u"mod", Keyword::Mod},
    KeywordEntry{u"no", Keyword::No},
    KeywordEntry{u"not", Keyword::Not},
    KeywordEntry{u"null", Keyword::Null},
    KeywordEntry{u"off", Keyword::Off},
    KeywordEntry{u"on", Keyword::On},
    KeywordEntry{u"or", Keyword::Or},
    KeywordEntry{u"order", Keyword::Order},
    KeywordEntry{u"outer", Keyword::Outer},
    KeywordEntry{u"percent", Keyword::Percent},
    KeywordEntry{u"primary", Keyword::Primary},
    KeywordEntry{u"right", Keyword::Right},
    KeywordEntry{u"select", Keyword::Select},
    KeywordEntry{u"set", Keyword::Set},
    KeywordEntry{u"table", Keyword::Table},
    KeywordEntry{u"top", Keyword::Top},
    KeywordEntry{u"true", Keyword::True},
    KeywordEntry{u"union", Keyword::Union},
    KeywordEntry{u"unique", Keyword::Unique},
    KeywordEntry{u"update", Keyword::Update},
    KeywordEntry{u"values", Keyword::Values},
    KeywordEntry{u"where", Keyword::Where},
    KeywordEntry{u"with", Keyword::With},
    KeywordEntry{u"yes", Keyword::Yes},
};
static_assert(std::ranges::is_sorted(keywords, {}, &KeywordEntry::word));
constexpr std::size_t longestKeyword = 11;

/// The keyword that a word is in any case. Called for each word of each statement, so that it makes
/// no string: the letters are lowered in place, and a longer word is none anyway.
Keyword keywordOf(QStringView word)
{
    if (word.size() > static_cast<qsizetype>(longestKeyword))
        return Keyword::None;
    std::array<char16_t, longestKeyword> lower{};
    for (qsizetype i = 0; i < word.size(); ++i) {
        const char16_t character = word[i].unicode();
        lower[static_cast<std::size_t>(i)] = character >= u'A' && character <= u'Z'
                                                 ? static_cast<char16_t>(character + 32)
                                                 : character;
    }
    const std::u16string_view key(lower.data(), static_cast<std::size_t>(word.size()));
    const auto found = std::ranges::lower_bound(keywords, key, {}, &KeywordEntry::word);
    return found != keywords.end() && found->word == key ? found->keyword : Keyword::None;
}

bool isDigit(char16_t character)
{
    return character >= u'0' && character <= u'9';
}

/// Letters of any script may stand in bare names, as in the names that offices have given.
bool startsWord(char16_t character)
{
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z') ||
           character == u'_' || (character >= 0x80 && QChar(character).isLetter());
}

bool continuesWord(char16_t character)
{
    return startsWord(character) || isDigit(character) || character == u'$';
}

/// True when the text contains the word FROM.
bool containsFrom(QStringView text)
{
    for (qsizetype at = text.indexOf(u"from", 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(u"from", at + 1, Qt::CaseInsensitive)) {
        const bool begins = at == 0 || !continuesWord(text[at - 1].unicode());
        const bool ends = at + 4 >= text.size() || !continuesWord(text[at + 4].unicode());
        if (begins && ends)
            return true;
    }
    return false;
}

/// A character that is a token wherever it stands.
struct Symbol
{
    char16_t character;
    TokenKind kind;
};

constexpr std::array symbols = {
    Symbol{u'?', TokenKind::Parameter},
    Symbol{u',', TokenKind::Comma},
    Symbol{u'(', TokenKind::LeftParenthesis},
    Symbol{u')', TokenKind::RightParenthesis},
    Symbol{u'+', TokenKind::Plus},
    Symbol{u'-', TokenKind::Minus},
    Symbol{u'*', TokenKind::Star},
    Symbol{u'/', TokenKind::Slash},
    Symbol{u'\\', TokenKind::Backslash},
    Symbol{u'^', TokenKind::Caret},
    Symbol{u'&', TokenKind::Ampersand},
    Symbol{u'=', TokenKind::Equal},
    Symbol{u';', TokenKind::Semicolon},
};

} // namespace

void raiseSyntaxError(const QString &what, QStringView statement, qsizetype position)
{
    // The end of a statement that is cut off lies behind its last character.
    position = std::clamp<qsizetype>(position, 0, statement.size());
    QString place = statement.sliced(position)
                        .first(std::min<qsizetype>(30, statement.size() - position))
                        .toString()
                        .trimmed();
    place = place.isEmpty()
                ? u"at its end"_s
                : u"at \"%1\" (character %2)"_s.arg(place, QString::number(position + 1));
    throw base::Error(ErrorNumber::Syntax,
                      u"Syntax error in the statement, "_s + place + u": "_s + what);
}

/// A zero character behind the end, which begins no token and continues none, so that nobody has
/// to ask for the end.
char16_t Lexer::peek(qsizetype ahead) const
{
    const qsizetype at = m_position + ahead;
    return at < m_statement.size() ? m_statement[at].unicode() : u'\0';
}

/// A token of so many characters from here on.
Token Lexer::symbol(TokenKind kind, qsizetype length)
{
    Token token;
    token.kind = kind;
    token.begin = m_position;
    token.text = m_statement.sliced(m_position, length);
    m_position += length;
    return token;
}

Token Lexer::next()
{
    while (m_position < m_statement.size() && m_statement[m_position].isSpace())
        ++m_position;
    Token token = scan();
    token.end = m_position;
    if (token.isLiteral())
        token.number = m_literals++;
    else if (token.kind == TokenKind::Parameter)
        token.number = m_parameters++;
    // What stood before decides whether ".5" is a number and whether "[" opens a query.
    m_previous = token.kind;
    m_previousKeyword = token.keyword;
    m_previousEnd = m_position;
    return token;
}

Token Lexer::scan()
{
    if (m_position >= m_statement.size()) {
        Token token;
        token.begin = m_position;
        return token;
    }
    const char16_t character = peek();
    if (startsWord(character))
        return scanWord();
    if (isDigit(character))
        return scanNumber();
    switch (character) {
    case u'\'':
    case u'"':
        return scanQuoted(character, TokenKind::Text);
    case u'`':
        return scanQuoted(character, TokenKind::Name);
    case u'#':
        return scanQuoted(character, TokenKind::Date);
    case u'[':
        return scanBracket();
    case u']':
        // A name takes its own "]" with it; one that stands alone closes a derived table.
        if (m_queryDepth == 0)
            break;
        --m_queryDepth;
        return symbol(TokenKind::QueryClose, 1);
    case u'.': {
        // "t.5" is no number, but " .5" is.
        const bool afterName = m_previousEnd == m_position &&
                               (m_previous == TokenKind::Word || m_previous == TokenKind::Name ||
                                m_previous == TokenKind::QueryClose);
        if (isDigit(peek(1)) && !afterName)
            return scanNumber();
        return symbol(TokenKind::Dot, 1);
    }
    case u'!':
        if (peek(1) == u'=')
            return symbol(TokenKind::NotEqual, 2);
        break;
    case u'<':
        if (peek(1) == u'>')
            return symbol(TokenKind::NotEqual, 2);
        return peek(1) == u'=' ? symbol(TokenKind::LessOrEqual, 2) : symbol(TokenKind::Less, 1);
    case u'>':
        return peek(1) == u'=' ? symbol(TokenKind::GreaterOrEqual, 2)
                               : symbol(TokenKind::Greater, 1);
    default:
        if (const auto *found = std::ranges::find(symbols, character, &Symbol::character);
            found != symbols.end())
            return symbol(found->kind, 1);
    }
    raiseSyntaxError(u"this character has no meaning here."_s, m_statement, m_position);
}

Token Lexer::scanWord()
{
    qsizetype length = 1;
    while (continuesWord(peek(length)))
        ++length;
    Token token = symbol(TokenKind::Word, length);
    token.keyword = keywordOf(token.text);
    return token;
}

/// Digits with a point and an exponent or without; a sign before them is an operator.
Token Lexer::scanNumber()
{
    qsizetype length = 0;
    bool whole = true;
    while (isDigit(peek(length)))
        ++length;
    if (peek(length) == u'.') {
        whole = false;
        ++length;
        while (isDigit(peek(length)))
            ++length;
    }
    if (peek(length) == u'e' || peek(length) == u'E') {
        const bool sign = peek(length + 1) == u'+' || peek(length + 1) == u'-';
        // Without digits behind it the letter begins a word.
        if (isDigit(peek(length + (sign ? 2 : 1)))) {
            whole = false;
            length += sign ? 2 : 1;
            while (isDigit(peek(length)))
                ++length;
        }
    }
    // 18 digits always fit 64 bits; a longer number is one with less precision, no error.
    return symbol(whole && length <= 18 ? TokenKind::Integer : TokenKind::Real, length);
}

Token Lexer::scanQuoted(char16_t quote, TokenKind kind)
{
    const qsizetype begin = m_position;
    qsizetype at = begin + 1;
    for (;;) {
        at = m_statement.indexOf(QChar(quote), at);
        if (at < 0) {
            raiseSyntaxError(kind == TokenKind::Text   ? u"the text that begins here has no end."_s
                             : kind == TokenKind::Date ? u"the date that begins here has no end."_s
                                                       : u"the name that begins here has no end."_s,
                             m_statement, begin);
        }
        // Only a text can hold its own quote.
        const bool doubled = kind == TokenKind::Text && at + 1 < m_statement.size() &&
                             m_statement[at + 1] == QChar(quote);
        if (!doubled)
            break;
        at += 2;
    }
    Token token = symbol(kind, at + 1 - begin);
    token.text = m_statement.sliced(begin + 1, at - begin - 1);
    return token;
}

bool Lexer::opensQuery() const
{
    // A derived table is written "[SELECT ...]. AS x", and a name may begin with that word too. A
    // name closes soon and holds no FROM; the bounded look keeps the whole pass linear.
    constexpr qsizetype longestName = 200;
    QStringView ahead = m_statement.sliced(m_position + 1);
    while (!ahead.isEmpty() && ahead.front().isSpace())
        ahead = ahead.sliced(1);
    constexpr QStringView select = u"select";
    if (!ahead.startsWith(select, Qt::CaseInsensitive) || ahead.size() <= select.size() ||
        !ahead[select.size()].isSpace())
        return false;
    // Where a table is due, it is a query even without a FROM of its own.
    if (m_previousKeyword == Keyword::From || m_previousKeyword == Keyword::Join)
        return true;
    ahead = ahead.first(std::min(ahead.size(), longestName));
    const qsizetype close = ahead.indexOf(u']');
    return close < 0 || containsFrom(ahead.first(close));
}

Token Lexer::scanBracket()
{
    if (opensQuery()) {
        ++m_queryDepth;
        return symbol(TokenKind::QueryOpen, 1);
    }
    const qsizetype begin = m_position;
    const qsizetype close = m_statement.indexOf(u']', begin);
    if (close < 0)
        raiseSyntaxError(u"the name that begins here has no \"]\"."_s, m_statement, begin);
    Token token = symbol(TokenKind::Name, close + 1 - begin);
    token.text = m_statement.sliced(begin + 1, close - begin - 1).trimmed();
    // Of blanks alone nothing is left.
    if (token.text.isEmpty())
        raiseSyntaxError(u"a name between brackets is empty."_s, m_statement, begin);
    return token;
}

std::vector<Token> tokensOf(QStringView statement)
{
    Lexer lexer(statement);
    std::vector<Token> tokens;
    // Few statements have more tokens than a fifth of their characters.
    tokens.reserve(static_cast<std::size_t>(statement.size() / 5 + 8));
    do {
        tokens.push_back(lexer.next());
    } while (tokens.back().kind != TokenKind::End);
    return tokens;
}

QVariant literalValue(const Token &token, QStringView statement)
{
    switch (token.kind) {
    case TokenKind::Integer:
        return token.text.toLongLong();
    case TokenKind::Real:
        return token.text.toDouble();
    case TokenKind::Date: {
        const auto date = parseDate(token.text);
        if (!date)
            raiseSyntaxError(u"this is no date; write #month-day-year#."_s, statement, token.begin);
        return *date;
    }
    default: {
        QString text = token.text.toString();
        // The token has the text without its quotes; which of the two they were tells the
        // statement.
        const QChar quote = statement[token.begin];
        // Most texts hold none, and are not copied for it.
        if (text.contains(quote))
            text.replace(QString(2, quote), QString(quote));
        return text;
    }
    }
}

} // namespace sql
