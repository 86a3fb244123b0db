#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// "mm/dd/yyyy hh:mm AMPM" in Qt's form: months and minutes share a letter here, and an "m" behind
/// an hour is a minute; "n" always is.
QString madeDatePattern(const QString &format)
{
    QString pattern;
    bool afterHour = false;
    for (qsizetype at = 0; at < format.size(); ++at) {
        const QStringView rest = QStringView(format).sliced(at);
        const QChar c = format[at];
        if (rest.startsWith(u"AMPM", Qt::CaseInsensitive)) {
            pattern += u"AP";
            at += 3;
        } else if (c.toLower() == u'm') {
            pattern += afterHour ? u'm' : u'M';
        } else if (c.toLower() == u'n') {
            pattern += u'm';
        } else if (c.toLower() == u'h' || c.toLower() == u's') {
            afterHour = true;
            pattern += c.toLower();
        } else if (c.toLower() == u'd' || c.toLower() == u'y') {
            afterHour = false;
            pattern += c.toLower();
        } else {
            pattern += c;
        }
    }
    return pattern;
}

/// A column has one format for thousands of dates.
QString qtDatePattern(const QString &format)
{
    thread_local std::pair<QString, QString> last;
    if (last.first != format || last.second.isEmpty())
        last = {format, madeDatePattern(format)};
    return last.second;
}

/// A number format: what stands before and behind the digits, the decimals, and whether thousands
/// are parted. Nothing for a format without a place for digits.
std::optional<QString> formattedNumber(double value, const QString &format)
{
    const auto isDigit = [](QChar c) { return c == u'0' || c == u'#'; };
    const auto begin = std::find_if(format.cbegin(), format.cend(), isDigit);
    if (begin == format.cend())
        return std::nullopt;
    const qsizetype first = begin - format.cbegin();
    qsizetype last = first;
    while (last + 1 < format.size() && QStringView(u"0#,.").contains(format[last + 1]))
        ++last;
    const QStringView digits = QStringView(format).sliced(first, last - first + 1);
    const QStringView behind = QStringView(format).sliced(last + 1);
    const qsizetype point = digits.indexOf(u'.');
    const QStringView fraction = point < 0 ? QStringView() : digits.sliced(point + 1);
    if (behind.contains(u'%'))
        value = base::decimalProduct(value, 100);
    QString text = base::fixedDecimals(std::abs(value), static_cast<int>(fraction.size()));
    if (digits.contains(u',')) {
        const qsizetype end = text.indexOf(u'.');
        for (qsizetype at = (end < 0 ? text.size() : end) - 3; at > 0; at -= 3)
            text.insert(at, u',');
    }
    // Decimals written "#" are only shown when they are there.
    for (qsizetype left = fraction.count(u'#'); left > 0 && text.endsWith(u'0'); --left)
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    const bool isNegative = value < 0 && std::ranges::any_of(text, [](QChar c) {
                                return c != u'0' && c != u'.' && c != u',';
                            });
    text.prepend(QStringView(format).first(first));
    if (isNegative)
        text.prepend(u'-');
    return text.append(behind);
}

} // namespace

QString formatted(const QVariant &value, const QString &format)
{
    if (value.isNull())
        return {};
    if (format.isEmpty())
        return base::toText(value);
    if (value.typeId() == QMetaType::QDateTime)
        return QLocale::c().toString(value.toDateTime(), qtDatePattern(format));
    // Tables keep times, and some numbers, as texts.
    if (value.typeId() == QMetaType::QString) {
        // A time of day is kept as text.
        const QTime time = QTime::fromString(value.toString(), u"H:mm"_s);
        if (format.contains(u"hh"_s, Qt::CaseInsensitive) && time.isValid())
            return QLocale::c().toString(time, qtDatePattern(format));
        bool ok = false;
        const double number = value.toString().toDouble(&ok);
        return (ok ? formattedNumber(number, format) : std::nullopt).value_or(value.toString());
    }
    const std::optional<QString> number = formattedNumber(value.toDouble(), format);
    return number ? *number : base::toText(value);
}

} // namespace report
