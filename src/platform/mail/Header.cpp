#include "platform/mail/Header.h"

#include "platform/base/Error.h"

#include <QByteArrayList>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace mail {
namespace {

/// So many bytes in base 64 fit a coded word with its marks.
constexpr qsizetype BytesOfWord = 45;
constexpr qsizetype LongestAddress = 254;
constexpr char16_t Delete = 0x7f;

bool isControl(QChar letter)
{
    return letter.category() == QChar::Other_Control || letter.unicode() == QChar::LineSeparator ||
           letter.unicode() == QChar::ParagraphSeparator;
}

bool isPlain(const QString &text)
{
    return std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < Delete; });
}

void requireOneLine(const QString &text)
{
    if (std::ranges::any_of(text, isControl))
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"A line break stands in \"%1\", which has to be one line."_s.arg(
                              text.simplified().left(100)));
}

bool isPartOfAddress(QChar letter)
{
    return letter.unicode() > u' ' && letter.unicode() < Delete &&
           !QStringView(u"@<>()[]\",;:\\").contains(letter);
}

/// The bytes of one letter, which a coded word has to hold whole.
QByteArray nextLetter(const QString &text, qsizetype &at)
{
    // A letter beyond the first 65,536 stands in two units.
    const qsizetype size = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    const QByteArray bytes = text.mid(at, size).toUtf8();
    at += size;
    return bytes;
}

QByteArray coded(const QString &text)
{
    QByteArrayList words;
    QByteArray word;
    const auto close = [&] {
        words.append("=?UTF-8?B?" + word.toBase64() + "?=");
        word.clear();
    };
    for (qsizetype at = 0; at < text.size();) {
        const QByteArray letter = nextLetter(text, at);
        // Servers break lines between words only, and none may be longer than 75 characters.
        if (word.size() + letter.size() > BytesOfWord)
            close();
        word += letter;
    }
    close();
    return words.join(' ');
}

QByteArray quoted(QString text)
{
    text.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return '"' + text.toLatin1() + '"';
}

} // namespace

void requireAddress(const QString &address)
{
    const QStringList parts = address.split(u'@');
    const bool isAddress = parts.size() == 2 && address.size() <= LongestAddress &&
                           std::ranges::all_of(parts, [](const QString &part) {
                               return !part.isEmpty() && std::ranges::all_of(part, isPartOfAddress);
                           });
    if (!isAddress)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"\"%1\" is not a mail address."_s.arg(address.simplified().left(100)));
}

QByteArray textLine(const QByteArray &name, const QString &text)
{
    requireOneLine(text);
    return name + ": " + (isPlain(text) ? text.toLatin1() : coded(text));
}

QByteArray mailboxLine(const QByteArray &name, const QString &displayText, const QString &address)
{
    requireAddress(address);
    requireOneLine(displayText);
    if (displayText.isEmpty())
        return name + ": <" + address.toUtf8() + '>';
    return name + ": " + (isPlain(displayText) ? quoted(displayText) : coded(displayText)) + " <" +
           address.toUtf8() + '>';
}

} // namespace mail
