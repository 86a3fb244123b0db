#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <optional>

/// Text forms of values that the whole system shares. A Null is an invalid QVariant; an empty date
/// (the zero date, "12:00:00 AM") is an invalid QDateTime.
namespace base {

/// The value, or the replacement when it is Null (empty text unless given).
QVariant ReplaceNull(const QVariant &value, const QVariant &replacement = QString());

/// Month first with hyphens, "03-09-2024"; empty for the zero date.
QString monthFirst(const QDateTime &date);
QString monthFirst(QDate date);

/// A date literal of the SQL dialect, "#03-09-2024#" (with the time when it has one), or "NULL".
QString dateLiteral(const QDateTime &date);

/// Reads a month-first date: parts separated by "-" or "/", one or two digits each, a year of two
/// digits (00 to 29 are this century's, 30 to 99 the last's) or four, then optionally a time of
/// 12 hours with AM or PM or of 24 hours. Nothing when the text is no date.
std::optional<QDateTime> parseMonthFirst(QStringView text);

/// Text for a single-quoted literal of the dialect: each apostrophe doubled.
QString doubledQuotes(QString text);

/// The text with a blank for each line break inside it, and without those at its ends: a cell that
/// is copied from a sheet brings one along.
QString onOneLine(QString text);

/// "$1234.50"-like text with two decimals and no thousands separator, the form "$0.00".
QString money(double amount);
/// Two decimals, the form "0.00".
QString twoDecimals(double amount);
/// Rounds to the nearest whole number, ties to the even one, as conversions to whole numbers do.
qint64 roundedToEven(double value);

/// The value as text, as string conversion gives it: whole numbers bare, others with a point and
/// without trailing zeros, dates month first ("3/9/2024", with the time when there is one), True
/// and False, empty for Null.
QString toText(const QVariant &value);

} // namespace base
