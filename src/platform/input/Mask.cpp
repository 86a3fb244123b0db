#include "platform/input/Mask.h"

#include <utility>

namespace input {
namespace {

constexpr QChar blank = u' ';

} // namespace

Mask::Mask(QString pattern)
    : m_pattern(std::move(pattern))
    , m_empty(m_pattern)
{
    for (int i = 0; i < length(); ++i) {
        if (isPlace(i))
            m_empty[i] = blank;
    }
}

bool Mask::isPlace(int position) const
{
    const QChar kind = m_pattern[position];
    return kind == u'#' || kind == u'?' || kind == u'M';
}

std::optional<QChar> Mask::accepted(int position, QChar character) const
{
    switch (m_pattern[position].unicode()) {
    case u'#':
        if (character >= u'0' && character <= u'9')
            return character;
        break;
    case u'?':
        if (character.isLetter())
            return character;
        break;
    case u'M':
        if (const QChar capital = character.toUpper(); capital == u'A' || capital == u'P')
            return capital;
        break;
    default:
        break;
    }
    return std::nullopt;
}

bool Mask::fits(QStringView text) const
{
    if (text.size() != length())
        return false;
    for (int i = 0; i < length(); ++i) {
        const bool inOrder = isPlace(i) ? text[i] == blank || accepted(i, text[i]) == text[i]
                                        : text[i] == m_pattern[i];
        if (!inOrder)
            return false;
    }
    return true;
}

std::optional<QString> Mask::fitted(QStringView text) const
{
    if (fits(text))
        return text.toString();
    QString result = m_empty;
    int place = placeFrom(0);
    for (const QChar character : text) {
        if (character == blank)
            continue;
        const auto taken = place < length() ? accepted(place, character) : std::nullopt;
        if (taken) {
            result[place] = *taken;
            place = placeFrom(place + 1);
        } else if (!m_pattern.contains(character) || character == u'#' || character == u'?' ||
                   character == u'M') {
            // Separators of the pattern may stand anywhere; all else would get lost.
            return std::nullopt;
        }
    }
    return result;
}

std::optional<Mask::Edit> Mask::typed(const QString &text, int caret, QChar character) const
{
    const int place = placeFrom(caret);
    const auto taken = place < length() ? accepted(place, character) : std::nullopt;
    if (taken) {
        QString result = text;
        result[place] = *taken;
        // Over the fixed characters behind it, so that the caret shows where the next one goes.
        const int next = placeFrom(place + 1);
        return Edit{result, next < length() ? next : place + 1};
    }
    // Fixed characters that the caret has just been moved over may still be typed.
    for (int i = caret - 1; i >= 0 && !isPlace(i); --i) {
        if (m_pattern[i] == character)
            return Edit{text, caret};
    }
    // A blank skips a place, so that it can be left open.
    if (place < length() && character == blank)
        return Edit{cleared(text, place, place + 1), place + 1};
    // A fixed character jumps behind itself: "12:" goes to the minutes.
    for (int i = caret; i < length(); ++i) {
        if (!isPlace(i) && m_pattern[i] == character)
            return Edit{text, i + 1};
    }
    return std::nullopt;
}

QString Mask::cleared(QString text, int start, int end) const
{
    for (int i = std::max(start, 0); i < std::min(end, length()); ++i) {
        if (isPlace(i))
            text[i] = blank;
    }
    return text;
}

int Mask::placeFrom(int position) const
{
    while (position < length() && !isPlace(position))
        ++position;
    return position;
}

int Mask::placeBefore(int position) const
{
    do
        --position;
    while (position >= 0 && !isPlace(position));
    return position;
}

} // namespace input
