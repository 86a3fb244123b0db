#include "platform/report/expr/Tokens.h"

#include "platform/base/Format.h"
#include "platform/report/expr/Values.h"

#include <optional>

namespace report {

using namespace Qt::StringLiterals;

Tokens::Tokens(const QString &text)
    : m_text(text)
{
    advance();
}

Token Tokens::take()
{
    Token token = m_current;
    advance();
    return token;
}

bool Tokens::accept(QStringView text)
{
    const bool match =
        (m_current.kind == Token::Kind::Symbol || m_current.kind == Token::Kind::Name) &&
        // A name in brackets has a value: a field may be called "and".
        !m_current.value.isValid() && m_current.text.compare(text, Qt::CaseInsensitive) == 0;
    if (match)
        advance();
    return match;
}

void Tokens::expect(QStringView text)
{
    if (!accept(text))
        throw ParseError{u"\"%1\" is missing"_s.arg(text), m_current.at};
}

void Tokens::advance()
{
    read();
    // Where it ends in the text, by which a scope is found to be renamed.
    m_current.end = m_at;
}

void Tokens::read()
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
    // Braces around a name are taken too: users carry them over from the texts of labels.
    else if (c == u'[' || c == u'{')
        readBracketedName(c == u'[' ? u']' : u'}');
    else if (c.isLetter() || c == u'_')
        readName();
    else
        readSymbol();
}

void Tokens::readNumber()
{
    const qsizetype from = m_at;
    while (m_at < m_text.size() && (m_text[m_at].isDigit() || m_text[m_at] == u'.'))
        ++m_at;
    bool ok = false;
    const double value = m_text.sliced(from, m_at - from).toDouble(&ok);
    if (!ok)
        throw ParseError{u"this is no number"_s, from};
    m_current.kind = Token::Kind::Number;
    m_current.value = numberValue(value);
}

/// A quote within the text is doubled.
void Tokens::readText(QChar quote)
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

void Tokens::readDate()
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

void Tokens::readBracketedName(QChar close)
{
    const qsizetype from = m_at;
    const qsizetype end = m_text.indexOf(close, m_at + 1);
    if (end < 0)
        throw ParseError{u"the name has no closing bracket"_s, from};
    m_current.kind = Token::Kind::Name;
    m_current.text = m_text.sliced(from + 1, end - from - 1).trimmed();
    // Marks it as a name in brackets, whatever it reads like.
    m_current.value = true;
    m_at = end + 1;
}

void Tokens::readName()
{
    const qsizetype from = m_at;
    while (m_at < m_text.size() &&
           (m_text[m_at].isLetterOrNumber() || m_text[m_at] == u'_' || m_text[m_at] == u'.'))
        ++m_at;
    m_current.kind = Token::Kind::Name;
    m_current.text = m_text.sliced(from, m_at - from);
}

void Tokens::readSymbol()
{
    m_current.kind = Token::Kind::Symbol;
    // The longer ones first: "<=" is not "<".
    for (const QStringView two : {u"<>", u"<=", u">="}) {
        if (QStringView(m_text).sliced(m_at).startsWith(two)) {
            m_current.text = two.toString();
            m_at += 2;
            return;
        }
    }
    m_current.text = m_text[m_at++];
}

} // namespace report
