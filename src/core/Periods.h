#pragma once

#include <QString>
#include <span>

/// The periods of a service's schedule. There is one table of their codes and words.
namespace periods {

struct Period
{
    QStringView code; ///< as rows hold it
    QStringView word; ///< as users see it, and of a count the type of its readings
    bool isCount;     ///< goes by a meter, not by the calendar
};

/// All periods, in the order in which users choose among them.
[[nodiscard]] std::span<const Period> all();
/// The period of a code or of a word, in exactly this case; null for another text.
[[nodiscard]] const Period *ofCode(QStringView code);
[[nodiscard]] const Period *ofWord(QStringView word);
/// The codes of the counts as a list for "in (...)".
[[nodiscard]] QString countCodes();
/// An expression of the dialect that gives the word of the column Period.
[[nodiscard]] QString wordExpression();

} // namespace periods

/// The word of a period code: "D" gives "Days"; another text is given back.
[[nodiscard]] QString PeriodWord(const QString &PeriodCode);
