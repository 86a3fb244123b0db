#include "platform/sql/Conversion.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/sql/Errors.h"

#include <cmath>

namespace sql {
namespace {

using namespace Qt::StringLiterals;

const QDate zeroDate(1899, 12, 30);

[[noreturn]] void raiseMismatch(const QVariant &value, const QString &wanted)
{
    QString shown =
        value.typeId() == QMetaType::QByteArray ? u"binary data"_s : base::toText(value);
    if (shown.size() > 40)
        shown = shown.left(40) + u"..."_s;
    throw base::Error(ErrorNumber::TypeMismatch,
                      u"Data type mismatch: \"%1\" is not %2."_s.arg(shown, wanted));
}

bool isWhole(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::SChar:
    case QMetaType::Long:
    case QMetaType::ULong:
        return true;
    default:
        return false;
    }
}

bool isReal(const QVariant &value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

bool isDate(const QVariant &value)
{
    return value.typeId() == QMetaType::QDateTime || value.typeId() == QMetaType::QDate;
}

/// A date as a reading of the wall clock, whatever zone the value claims: what an office has typed
/// is what it sees again.
QDateTime dateOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::QDate)
        return base::wallClock(value.toDate());
    return base::wallClock(value.toDateTime().date(), value.toDateTime().time());
}

/// Days since the zero date, the fraction being the time: what a date is as a number.
double serialOf(const QDateTime &date)
{
    return static_cast<double>(zeroDate.daysTo(date.date())) +
           date.time().msecsSinceStartOfDay() / 86'400'000.0;
}

QDateTime dateOfSerial(const QVariant &value, double serial)
{
    // The years 100 to 9999, as far as dates are written with four digits and read again.
    if (!(serial >= -657'434 && serial < 2'958'466))
        raiseMismatch(value, u"a date"_s);
    // Before the zero date the whole part counts backwards, the time of the day still forwards.
    const double days = std::floor(serial);
    const auto seconds = static_cast<qint64>(std::llround((serial - days) * 86'400));
    return base::wallClock(zeroDate.addDays(static_cast<qint64>(days))).addSecs(seconds);
}

/// A whole number or a double.
QVariant numberOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? qint64(-1) : qint64(0);
    if (isWhole(value))
        return value.toLongLong();
    if (isReal(value))
        return value.toDouble();
    if (value.typeId() == QMetaType::QString) {
        if (auto number = parseNumber(value.toString()))
            return *number;
    }
    if (isDate(value))
        return serialOf(dateOf(value));
    raiseMismatch(value, u"a number"_s);
}

QVariant integerOf(const QVariant &value)
{
    const QVariant number = numberOf(value);
    if (number.typeId() == QMetaType::LongLong)
        return number;
    const double real = number.toDouble();
    // Written so that what is no number at all is refused too.
    if (!(std::abs(real) < 9.2e18))
        throw base::Error(base::ErrorNumber::Overflow, u"Overflow"_s);
    return base::roundedToEven(real);
}

double moneyOf(const QVariant &value)
{
    // Four decimals in 64 bits.
    const double number = numberOf(value).toDouble();
    if (!(std::abs(number) < 922'337'203'685'477.5))
        throw base::Error(base::ErrorNumber::Overflow, u"Overflow"_s);
    return number;
}

QVariant yesNoOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString().trimmed();
        for (const auto yes : {u"True", u"Yes", u"On"}) {
            if (text.compare(yes, Qt::CaseInsensitive) == 0)
                return qint64(-1);
        }
        for (const auto no : {u"False", u"No", u"Off"}) {
            if (text.compare(no, Qt::CaseInsensitive) == 0)
                return qint64(0);
        }
    }
    return numberOf(value).toDouble() != 0 ? qint64(-1) : qint64(0);
}

QVariant dateTimeOf(const QVariant &value)
{
    if (isDate(value)) {
        const QDateTime date = dateOf(value);
        return date.isValid() ? QVariant(date) : QVariant();
    }
    if (value.typeId() == QMetaType::QString) {
        if (const auto date = parseDate(value.toString()))
            return *date;
        if (const auto number = parseNumber(value.toString()))
            return dateOfSerial(value, number->toDouble());
        raiseMismatch(value, u"a date"_s);
    }
    if (value.typeId() == QMetaType::QByteArray)
        raiseMismatch(value, u"a date"_s);
    return dateOfSerial(value, numberOf(value).toDouble());
}

QVariant textOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return value;
    case QMetaType::Bool:
        return value.toBool() ? u"-1"_s : u"0"_s;
    case QMetaType::QByteArray:
        raiseMismatch(value, u"a text"_s);
    default:
        return base::toText(value);
    }
}

/// A time alone: that of a month-first date made for the purpose.
std::optional<QTime> parseTime(QStringView text)
{
    if (text.isEmpty())
        return std::nullopt;
    const auto date = base::parseMonthFirst(QString(u"01/01/2000 "_s).append(text));
    return date ? std::optional(date->time()) : std::nullopt;
}

} // namespace

std::optional<QVariant> parseNumber(QStringView text)
{
    text = text.trimmed();
    // The toolkit would also take "nan" and "inf", and stop reading at a zero character.
    for (const QChar character : text) {
        const bool allowed = (character >= u'0' && character <= u'9') || character == u'.' ||
                             character == u'-' || character == u'+' || character == u'e' ||
                             character == u'E';
        if (!allowed)
            return std::nullopt;
    }
    bool ok = false;
    // Whole numbers stay exact beyond the 53 bits of a double, as long keys are.
    if (const qint64 whole = text.toLongLong(&ok); ok)
        return QVariant(whole);
    const double real = text.toDouble(&ok);
    return ok && std::isfinite(real) ? std::optional(QVariant(real)) : std::nullopt;
}

std::optional<QDateTime> parseDate(QStringView text)
{
    text = text.trimmed();
    if (auto date = base::parseMonthFirst(text))
        return date;
    // Four characters and a separator, which stands again behind one or two more.
    const bool yearFirst = text.size() >= 8 &&
                           text[4] == text[text.size() > 6 && text[6] == text[4] ? 6 : 7] &&
                           (text[4] == u'-' || text[4] == u'/');
    if (yearFirst) {
        // The same date month first, so that the parts and the time are read by one reader.
        const QStringView year = text.first(4);
        const QStringView rest = text.sliced(5);
        const qsizetype blank = rest.indexOf(u' ');
        const QStringView monthAndDay = blank < 0 ? rest : rest.first(blank);
        const QStringView time = blank < 0 ? QStringView() : rest.sliced(blank);
        return base::parseMonthFirst(
            monthAndDay.toString().append(text[4]).append(year).append(time));
    }
    if (const auto time = parseTime(text))
        return base::wallClock(zeroDate, *time);
    return std::nullopt;
}

QVariant converted(const QVariant &value, ColumnKind kind)
{
    if (value.isNull())
        return {};
    switch (kind) {
    case ColumnKind::Unknown:
        return value.typeId() == QMetaType::Bool ? numberOf(value) : value;
    case ColumnKind::Integer:
        return integerOf(value);
    case ColumnKind::Real:
        return numberOf(value).toDouble();
    case ColumnKind::Money:
        return moneyOf(value);
    case ColumnKind::Text:
        return textOf(value);
    case ColumnKind::Date:
        return dateTimeOf(value);
    case ColumnKind::YesNo:
        return yesNoOf(value);
    case ColumnKind::Binary:
        if (value.typeId() == QMetaType::QString)
            return value.toString().toUtf8();
        if (value.typeId() != QMetaType::QByteArray)
            raiseMismatch(value, u"binary data"_s);
        return value;
    }
    return value;
}

QVariant slotValue(const QVariant &value, const Slot &slot)
{
    if (value.isNull())
        return {};
    if (slot.likePattern) {
        const auto pattern = likePattern(textOf(value).toString());
        if (!pattern) {
            throw base::Error(ErrorNumber::Syntax,
                              u"A pattern with # or [ has to stand in the statement itself."_s);
        }
        return *pattern;
    }
    // The sign stands outside of a literal, so that "x = -5" and "x = -7" share one plan.
    if (!slot.negate) {
        QVariant bound = converted(value, slot.kind);
        if (slot.length > 0 && bound.typeId() == QMetaType::QString)
            bound = bound.toString().left(slot.length);
        return bound;
    }
    // Negated before it is converted: minus 1 is "-1" as a text, and as Yes/No still yes.
    const QVariant number = numberOf(value);
    if (number.typeId() == QMetaType::LongLong)
        return converted(-number.toLongLong(), slot.kind);
    return converted(-number.toDouble(), slot.kind);
}

} // namespace sql
