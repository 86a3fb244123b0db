#pragma once

#include <QString>
#include <QVariant>

namespace report {

/// What is wrong with an expression, and at which character.
struct ParseError
{
    QString what;
    qsizetype at;
};

struct Token
{
    enum class Kind { End, Number, Text, Date, Name, Symbol } kind = Kind::End;
    QString text;
    QVariant value; ///< valid for a name in brackets too, which is never a word of the language
    qsizetype at = 0;
    qsizetype end = 0; ///< one behind its last character
};

/// The tokens of an expression, one after the other. The text outlives it.
class Tokens
{
public:
    /// Raises a ParseError, as take(), accept() and expect() do.
    explicit Tokens(const QString &text);

    [[nodiscard]] const Token &current() const { return m_current; }
    /// The present token; the next one takes its place.
    Token take();
    /// True, and the token taken, when it is this symbol or word.
    bool accept(QStringView text);
    /// Takes this symbol or word; anything else is an error.
    void expect(QStringView text);

private:
    void advance();
    void read();
    void readNumber();
    void readText(QChar quote);
    void readDate();
    void readBracketedName(QChar close);
    void readName();
    void readSymbol();

    const QString &m_text;
    qsizetype m_at = 0;
    Token m_current;
};

} // namespace report
