#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <span>
#include <vector>

/// The pictures of the function Format, taken apart.
namespace sql {

/// A character of a picture; quoted ones, and those behind a backslash, stand for themselves.
struct Sign
{
    QChar character;
    bool quoted = false;

    [[nodiscard]] bool is(QStringView any) const { return !quoted && any.contains(character); }
};

/// The picture that a name such as "short date" stands for; any other text is one itself.
[[nodiscard]] QString pictureBehind(const QString &name);

/// Two words for a number that is not 0 and one that is.
struct NamedChoice
{
    QStringView name;
    QStringView yes;
    QStringView no;
};

/// The choice of that name in any case, or null.
[[nodiscard]] const NamedChoice *findChoice(QStringView name);

/// True for a picture of numbers, which has places for digits.
[[nodiscard]] bool namesDigits(QStringView picture);

/// A section of a number's picture.
struct NumberPicture
{
    QString before;
    QString after;
    int wholeDigits = 0;   ///< at least so many before the point
    int decimals = 0;      ///< at most so many behind it
    int fixedDecimals = 0; ///< at least so many
    bool point = false;
    bool grouped = false;
    bool percent = false;
    bool digits = false;

    /// False for signs that are no section.
    bool read(std::span<const Sign> signs);

private:
    bool readDigit(const Sign &sign);
};

/// The sections of a number's picture: one for all numbers, or those of positive ones, of negative
/// ones and of zero. Nothing for a picture that is none.
[[nodiscard]] std::optional<std::vector<NumberPicture>> numberSections(QStringView picture);

/// A date's picture in pieces: runs of one letter in lower case, where "n" are minutes; "AM/PM" and
/// its like as they are written; and texts, each behind a quote.
[[nodiscard]] QStringList datePieces(QStringView picture);

} // namespace sql
