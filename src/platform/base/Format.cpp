#include "platform/base/Format.h"

#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace base {
namespace {

/// Takes up to maxDigits digits off the front of the text; -1 when there are none.
int takeNumber(QStringView &text, int maxDigits, int *digits = nullptr)
{
    int count = 0;
    int value = 0;
    while (count < maxDigits && count < text.size() && text[count] >= u'0' && text[count] <= u'9')
        value = value * 10 + (text[count++].unicode() - u'0');
    text = text.sliced(count);
    if (digits)
        *digits = count;
    return count == 0 ? -1 : value;
}

bool take(QStringView &text, char16_t wanted)
{
    if (text.isEmpty() || text.front() != wanted)
        return false;
    text = text.sliced(1);
    return true;
}

/// "10:05", "10:05:30", either with AM or PM behind it.
std::optional<QTime> parseTime(QStringView text)
{
    text = text.trimmed();
    int hour = takeNumber(text, 2);
    if (hour < 0 || !take(text, u':'))
        return std::nullopt;
    const int minute = takeNumber(text, 2);
    int second = 0;
    if (take(text, u':') && (second = takeNumber(text, 2)) < 0)
        return std::nullopt;
    text = text.trimmed();
    if (!text.isEmpty()) {
        const bool pm = text.compare(u"PM", Qt::CaseInsensitive) == 0;
        if ((!pm && text.compare(u"AM", Qt::CaseInsensitive) != 0) || hour < 1 || hour > 12)
            return std::nullopt;
        hour = hour % 12 + (pm ? 12 : 0);
    }
    const QTime time(hour, minute, second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

} // namespace

QVariant ReplaceNull(const QVariant &value, const QVariant &replacement)
{
    return value.isNull() ? replacement : value;
}

QString monthFirst(QDate date)
{
    return date.isValid() ? date.toString(u"MM-dd-yyyy") : QString();
}

QString monthFirst(const QDateTime &date)
{
    return monthFirst(date.date());
}

QString dateLiteral(const QDateTime &date)
{
    if (!date.isValid())
        return QStringLiteral("NULL");
    const bool midnight = date.time() == QTime(0, 0);
    return u'#' + date.toString(midnight ? u"MM-dd-yyyy" : u"MM-dd-yyyy HH:mm:ss") + u'#';
}

std::optional<QDateTime> parseMonthFirst(QStringView text)
{
    text = text.trimmed();
    const int month = takeNumber(text, 2);
    if (month < 0 || text.isEmpty())
        return std::nullopt;
    const char16_t separator = text.front().unicode();
    if ((separator != u'-' && separator != u'/') || !take(text, separator))
        return std::nullopt;
    const int day = takeNumber(text, 2);
    if (day < 0 || !take(text, separator))
        return std::nullopt;
    int digits = 0;
    int year = takeNumber(text, 4, &digits);
    if (digits != 2 && digits != 4)
        return std::nullopt;
    if (digits == 2)
        year += year < 30 ? 2000 : 1900;
    const QDate date(year, month, day);
    if (!date.isValid())
        return std::nullopt;
    if (text.trimmed().isEmpty())
        return wallClock(date);
    if (!text.front().isSpace())
        return std::nullopt;
    const auto time = parseTime(text);
    return time ? std::optional(wallClock(date, *time)) : std::nullopt;
}

QString doubledQuotes(QString text)
{
    return text.replace(u'\'', QStringLiteral("''"));
}

QString onOneLine(QString text)
{
    static const QRegularExpression ends(
        QStringLiteral("^[\\r\\n\\x{2028}\\x{2029}]+|[\\r\\n\\x{2028}\\x{2029}]+$"));
    static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]+"));
    return text.remove(ends).replace(breaks, QStringLiteral(" "));
}

QString money(double amount)
{
    const QString text = twoDecimals(amount);
    return text.startsWith(u'-') ? QStringLiteral("-$") + text.sliced(1) : u'$' + text;
}

QString twoDecimals(double amount)
{
    return fixedDecimals(amount, 2);
}

qint64 roundedToEven(double value)
{
    return static_cast<qint64>(std::nearbyint(value));
}

QString toText(const QVariant &value)
{
    if (value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (number == std::trunc(number) && std::abs(number) < 1e15)
            return QString::number(static_cast<qint64>(number));
        // Written out as far as 15 digits reach: 0.00001, but 1E-15 and 1E+20.
        if (std::abs(number) < 1e15 && std::abs(number) >= 1e-9) {
            const double power = std::floor(std::log10(std::abs(number)));
            const int decimals = std::clamp(14 - static_cast<int>(power), 1, 18);
            QString text = fixedDecimals(number, decimals);
            while (text.endsWith(u'0'))
                text.chop(1);
            return text.endsWith(u'.') ? text.chopped(1) : text;
        }
        return QString::number(number, 'g', 15).toUpper();
    }
    case QMetaType::QDate:
        return value.toDate().toString(u"M/d/yyyy");
    case QMetaType::QDateTime: {
        const QDateTime date = value.toDateTime();
        const bool midnight = date.time() == QTime(0, 0);
        return QLocale::c().toString(date, midnight ? u"M/d/yyyy" : u"M/d/yyyy h:mm:ss AP");
    }
    default:
        return value.toString();
    }
}

} // namespace base
