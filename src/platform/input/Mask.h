#pragma once

#include <QString>
#include <optional>

namespace input {

/// A pattern of places and fixed characters, as "(###) ###-####". Places: # a digit, ? a letter,
/// M the letter A or P of a time (taken in either case, kept as a capital). All else is fixed.
/// A text fits when it is as long as the pattern, has its fixed characters and in each place a
/// character that belongs there or a blank.
class Mask
{
public:
    explicit Mask(QString pattern);

    struct Edit
    {
        QString text;
        int caret;
    };

    [[nodiscard]] int length() const { return int(m_pattern.size()); }
    /// The text with all places blank.
    [[nodiscard]] const QString &empty() const { return m_empty; }
    [[nodiscard]] bool fits(QStringView text) const;
    /// The text brought into the pattern: a fitting one as it is; otherwise its characters put
    /// into the places from the left. Nothing when a character would get lost.
    [[nodiscard]] std::optional<QString> fitted(QStringView text) const;
    /// Types a character at the caret of a fitting text: it overwrites the next place, or moves
    /// the caret behind the next fixed character when it is that one. Nothing when refused.
    [[nodiscard]] std::optional<Edit> typed(const QString &text, int caret, QChar character) const;
    /// Blanks the places from start up to, without, end.
    [[nodiscard]] QString cleared(QString text, int start, int end) const;
    /// The first place at or behind the position; the length when there is none.
    [[nodiscard]] int placeFrom(int position) const;
    /// The last place before the position; -1 when there is none.
    [[nodiscard]] int placeBefore(int position) const;

private:
    [[nodiscard]] bool isPlace(int position) const;
    [[nodiscard]] std::optional<QChar> accepted(int position, QChar character) const;

    QString m_pattern;
    QString m_empty;
};

} // namespace input
