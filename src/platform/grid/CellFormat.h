#pragma once

#include "platform/grid/GridTypes.h"

#include <QVariant>
#include <optional>

/// The text forms of cells, both ways.
namespace grid {

/// A value as a cell shows it, empty for Null. Formats of numbers: "0", "0.00", "#,##0.00", with
/// text before and behind ("$0.00", "0%" without scaling). Formats of dates and times:
/// "mm/dd/yyyy", "m/d/yy", "hh:mm AMPM", "HH:nn:ss"; the letters are those of the dialect, "m"
/// behind an hour being minutes. Texts are read as a number, date or time first ("13:05" with
/// "hh:mm AMPM" is "01:05 PM"); what can't be read is shown as it is. Without a format: as
/// base::toText, a date column as "mm/dd/yyyy".
QString formatted(const QVariant &value, QStringView format,
                  sql::ColumnKind kind = sql::ColumnKind::Unknown);

/// True for the formats of dates and times.
bool isDateFormat(QStringView format);
/// True for columns whose cells are numbers: by their kind, mask or format.
bool holdsNumbers(const Column &column);
/// True for columns whose cells are dates: by their kind, editor or format.
bool holdsDates(const Column &column);
/// True when a value counts as ticked: True, a number other than 0, or text of either.
bool isTicked(const QVariant &value);

/// The text with which editing of a cell begins.
QString editText(const QVariant &value, const Column &column);
/// The value of a text that was typed into a cell: qint64 or double for numbers, QDateTime for
/// dates, otherwise the text; Null for an emptied date and for a number without a digit (empty or
/// a lone point). Nothing when the text is no value of the column.
std::optional<QVariant> typedValue(QStringView text, const Column &column);
/// False when the text, typed so far, can't become a value of the column: then the keystroke is
/// refused.
bool mayBecomeValue(QStringView text, const Column &column);

} // namespace grid
