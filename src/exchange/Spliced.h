#pragma once

#include <QString>
#include <QVariant>

/// What a handheld sends was once spliced into statements as it stood. Here each piece is read as
/// what it would have meant in its place, and bound as a parameter: a piece that would have ended
/// its literal, or is none, raises base::Error, so that no value ever becomes a part of a
/// statement.
namespace exchange::spliced {

/// A piece between apostrophes that are not doubled in it: pairs of them stand for one, a single
/// one would end the text.
[[nodiscard]] QString quoted(const QString &piece);
/// A bare piece: a number, a word for yes (-1) or no (0), or Null.
[[nodiscard]] QVariant bare(const QString &piece);
/// A bare piece that has to be a whole number, to be rounded to one where it has decimals.
[[nodiscard]] qint64 bareInteger(const QString &piece);
/// The same of a piece that may be blank, which is 0.
[[nodiscard]] qint64 wholeNumber(const QString &piece);
/// A piece between the marks of a date.
[[nodiscard]] QDateTime date(const QString &piece);
/// True for a number of either kind.
[[nodiscard]] bool isNumeric(const QString &piece);

/// The name of a table that a handheld may write, in brackets, by a name in any case. Refused like
/// one that doesn't exist are the tables of users and rights, of options and of the program itself.
/// Data.
[[nodiscard]] QString table(const QString &name);
/// The name of a column of that table, in brackets. Data.
[[nodiscard]] QString column(const QString &ofTable, const QString &name);
/// The same of a column that is to be written: a number that the database itself gives is refused.
[[nodiscard]] QString writtenColumn(const QString &ofTable, const QString &name);

/// True for a column of binary fractions, whose sums have to be rounded. Data.
[[nodiscard]] bool holdsFractions(const QString &ofTable, const QString &name);

} // namespace exchange::spliced
