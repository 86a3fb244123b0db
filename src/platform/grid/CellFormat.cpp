#include "platform/grid/CellFormat.h"

#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/grid/CellMask.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace grid {
namespace {

using namespace Qt::StringLiterals;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isNumberType(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

/// A time of day written "8:05", "08:05" or "20:05:30", with or without AM or PM.
std::optional<QTime> parseTime(QStringView text)
{
    // The shared reader takes a time only behind a date.
    const auto read = base::parseMonthFirst(QString(u"1/1/2000 "_s + text.trimmed().toString()));
    return read && text.contains(u':') ? std::optional(read->time()) : std::nullopt;
}

/// A date as a user types it, who may leave the separators out.
std::optional<QDateTime> typedDate(QStringView text)
{
    QString date = text.trimmed().toString();
    if ((date.size() == 6 || date.size() == 8) && std::ranges::all_of(date, isDigit))
        date.insert(4, u'/').insert(2, u'/');
    return base::parseMonthFirst(date);
}

std::optional<QDateTime> asDateTime(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return value.toDateTime();
    case QMetaType::QDate:
        return base::wallClock(value.toDate());
    case QMetaType::QTime:
        return base::wallClock(QDate(1899, 12, 30), value.toTime());
    case QMetaType::QString:
        break;
    default:
        return std::nullopt;
    }
    const QString text = value.toString();
    if (const auto date = base::parseMonthFirst(text))
        return date;
    if (const auto time = parseTime(text))
        return base::wallClock(QDate(1899, 12, 30), *time);
    return std::nullopt;
}

/// "mm" behind an hour or before a second is minutes, otherwise the month.
bool meansMinutes(QStringView format, qsizetype at, qsizetype end, bool afterHour)
{
    if (afterHour)
        return true;
    while (end < format.size() && !format[end].isLetter())
        ++end;
    return end < format.size() && format[end].toLower() == u's' && at > 0;
}

QString padded(int number, qsizetype digits)
{
    return QString::number(number).rightJustified(std::min<qsizetype>(digits, 2), u'0');
}

QString monthPart(int month, qsizetype letters)
{
    if (letters < 3)
        return padded(month, letters);
    return QLocale::c().monthName(month, letters == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
}

QString formattedDate(const QDateTime &date, QStringView format)
{
    const bool twelveHours = format.contains(u"am", Qt::CaseInsensitive);
    QString result;
    bool afterHour = false;
    for (qsizetype i = 0; i < format.size();) {
        const QChar letter = format[i].toLower();
        if (letter == u'a' && twelveHours) {
            result += date.time().hour() < 12 ? u"AM"_s : u"PM"_s;
            i += format.sliced(i).startsWith(u"am/pm", Qt::CaseInsensitive) ? 5 : 4;
            continue;
        }
        qsizetype end = i;
        while (end < format.size() && format[end].toLower() == letter)
            ++end;
        const qsizetype count = end - i;
        const int hour = date.time().hour();
        switch (letter.unicode()) {
        case u'd':
            result += padded(date.date().day(), count);
            break;
        case u'y':
            result += date.toString(count > 2 ? u"yyyy" : u"yy");
            break;
        case u'h':
            result += padded(twelveHours ? (hour + 11) % 12 + 1 : hour, count);
            break;
        case u'n':
            result += padded(date.time().minute(), count);
            break;
        case u's':
            result += padded(date.time().second(), count);
            break;
        case u'm':
            result += meansMinutes(format, i, end, afterHour)
                          ? padded(date.time().minute(), count)
                          : monthPart(date.date().month(), count);
            break;
        default:
            result += format.sliced(i, count);
            break;
        }
        if (letter.isLetter())
            afterHour = letter == u'h';
        i = end;
    }
    return result;
}

/// A number pattern: what stands before and behind, and how many digits.
struct NumberFormat
{
    QStringView before;
    QStringView behind;
    bool grouped = false;
    int wholeDigits = 0;   ///< at least this many
    int decimals = 0;      ///< at most this many
    int fixedDecimals = 0; ///< at least this many

    explicit NumberFormat(QStringView format)
    {
        const auto belongs = [](QChar c) { return c == u'0' || c == u'#' || c == u','; };
        qsizetype i = 0;
        while (i < format.size() && !belongs(format[i]) && format[i] != u'.')
            ++i;
        before = format.first(i);
        for (; i < format.size() && belongs(format[i]); ++i) {
            grouped = grouped || format[i] == u',';
            wholeDigits += format[i] == u'0';
        }
        if (i < format.size() && format[i] == u'.') {
            for (++i; i < format.size() && belongs(format[i]); ++i) {
                ++decimals;
                fixedDecimals += format[i] == u'0';
            }
        }
        behind = format.sliced(i);
    }
};

void insertGroups(QString &digits)
{
    for (qsizetype i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, u',');
}

QString formattedNumber(double number, QStringView pattern)
{
    const NumberFormat format(pattern);
    QString digits = base::fixedDecimals(std::abs(number), format.decimals);
    // By the digits that are shown, so that no 0.00 gets a minus.
    const bool negative = number < 0 && std::any_of(digits.begin(), digits.end(), [](QChar c) {
                              return isDigit(c) && c != u'0';
                          });
    QString whole = digits.section(u'.', 0, 0);
    QString fraction = digits.section(u'.', 1);
    while (fraction.size() > format.fixedDecimals && fraction.endsWith(u'0'))
        fraction.chop(1);
    // Without a "0" before the point, ".5" stands without one.
    if (format.wholeDigits == 0 && whole == u"0" && !fraction.isEmpty())
        whole.clear();
    whole = whole.rightJustified(format.wholeDigits, u'0');
    if (format.grouped)
        insertGroups(whole);
    if (!fraction.isEmpty())
        whole += u'.' + fraction;
    return (negative ? u"-"_s : QString()) + format.before.toString() + whole +
           format.behind.toString();
}

bool isNumberKind(sql::ColumnKind kind)
{
    return kind == sql::ColumnKind::Integer || kind == sql::ColumnKind::Real ||
           kind == sql::ColumnKind::Money;
}

std::optional<QVariant> typedNumber(QStringView text, const Column &column)
{
    const QString trimmed = text.trimmed().toString();
    const bool hasDigit = std::any_of(trimmed.begin(), trimmed.end(), isDigit);
    if (!hasDigit)
        return trimmed.isEmpty() || trimmed == u"." || trimmed == u"-" ? std::optional(QVariant())
                                                                       : std::nullopt;
    bool good = false;
    if (!trimmed.contains(u'.')) {
        const qint64 whole = trimmed.toLongLong(&good);
        if (good)
            return QVariant(whole);
    } else if (column.kind != sql::ColumnKind::Integer) {
        const double number = trimmed.toDouble(&good);
        if (good)
            return QVariant(number);
    }
    return std::nullopt;
}

/// Digits before the point that a number may have: sums and products of such numbers stay within
/// what the database can hold.
constexpr qsizetype MostDigits = 12;

bool isWithinBounds(QStringView text, const Column &column)
{
    if (column.kind == sql::ColumnKind::Integer)
        return std::abs(text.toLongLong()) <= std::numeric_limits<qint32>::max() &&
               text.size() <= MostDigits;
    const QStringView whole = text.left(text.indexOf(u'.'));
    return std::count_if(whole.begin(), whole.end(), isDigit) <= MostDigits;
}

/// A minus in front, digits, and one point unless the column holds whole numbers.
bool mayBecomeNumber(QStringView text, const Column &column)
{
    if (!isWithinBounds(text, column))
        return false;
    bool point = column.kind == sql::ColumnKind::Integer;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'.' && !point)
            point = true;
        else if (!isDigit(text[i]) && !(text[i] == u'-' && i == 0))
            return false;
    }
    return true;
}

} // namespace

bool isDateFormat(QStringView format)
{
    return std::any_of(format.begin(), format.end(), [](QChar c) {
        return QStringView(u"dmyhn").contains(c, Qt::CaseInsensitive);
    });
}

QString formatted(const QVariant &value, QStringView format, sql::ColumnKind kind)
{
    if (value.isNull())
        return {};
    if (format.isEmpty() && kind == sql::ColumnKind::Date)
        format = u"mm/dd/yyyy";
    if (format.isEmpty())
        return base::toText(value);
    if (isDateFormat(format)) {
        const auto date = asDateTime(value);
        if (!date)
            return base::toText(value);
        return date->isValid() ? formattedDate(*date, format) : QString();
    }
    bool good = isNumberType(value) || value.typeId() == QMetaType::QString;
    const double number = good ? value.toDouble(&good) : 0;
    return good ? formattedNumber(number, format) : base::toText(value);
}

bool holdsNumbers(const Column &column)
{
    if (column.editor == Editor::DropDown || column.editor == Editor::Check)
        return false;
    return isNumberKind(column.kind) || column.mask.startsWith(u'{') ||
           (!column.format.isEmpty() && !isDateFormat(column.format));
}

bool holdsDates(const Column &column)
{
    return column.kind == sql::ColumnKind::Date || column.editor == Editor::Date ||
           (column.kind == sql::ColumnKind::Unknown &&
            column.format.contains(u'y', Qt::CaseInsensitive));
}

bool isTicked(const QVariant &value)
{
    if (value.typeId() != QMetaType::QString)
        return value.toBool();
    const QString text = value.toString().trimmed();
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? number != 0
                    : text.compare(u"true", Qt::CaseInsensitive) == 0 ||
                          text.compare(u"yes", Qt::CaseInsensitive) == 0;
}

QString editText(const QVariant &value, const Column &column)
{
    if (holdsDates(column))
        return formatted(value, u"mm/dd/yyyy");
    return base::toText(value);
}

std::optional<QVariant> typedValue(QStringView text, const Column &column)
{
    // A point or a minus alone empties a number cell, mask or not.
    const bool isEmptyNumber =
        holdsNumbers(column) && std::none_of(text.begin(), text.end(), isDigit);
    if (!column.mask.isEmpty() && !isEmptyNumber &&
        CellMask(column.mask).check(text) != CellMask::State::Complete)
        return std::nullopt;
    if (holdsNumbers(column))
        return typedNumber(text, column);
    if (!holdsDates(column))
        return QVariant(text.toString());
    if (text.trimmed().isEmpty())
        return QVariant();
    const auto date = typedDate(text);
    return date ? std::optional(QVariant(*date)) : std::nullopt;
}

bool mayBecomeValue(QStringView text, const Column &column)
{
    if (!column.mask.isEmpty())
        return CellMask(column.mask).check(text) != CellMask::State::Invalid;
    if (holdsNumbers(column))
        return mayBecomeNumber(text, column);
    if (holdsDates(column))
        return text.size() <= 10 && std::all_of(text.begin(), text.end(), [](QChar c) {
                   return isDigit(c) || c == u'/' || c == u'-';
               });
    return true;
}

} // namespace grid
