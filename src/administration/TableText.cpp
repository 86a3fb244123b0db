#include "administration/TableText.h"

#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"

#include <QDateTime>
#include <QLocale>

namespace administration {
namespace {

using namespace Qt::StringLiterals;
using Kind = sql::ColumnKind;

constexpr int moneyDecimals = 4;
constexpr int hourLength = 13; ///< of "2024-03-15 10", behind which the minutes stand

QByteArray quoted(QByteArray text)
{
    return '"' + text.replace('"', "\"\"") + '"';
}

/// An empty text is quoted: nothing at all is Null.
QByteArray textField(const QByteArray &text)
{
    const bool plain = !text.isEmpty() && !text.contains('"') && !text.contains(',') &&
                       !text.contains('\n') && !text.contains('\r');
    return plain ? text : quoted(text);
}

QByteArray dateField(const QDateTime &date)
{
    const QTime time = date.time();
    QString text = date.date().toString(Qt::ISODate);
    // Midnight stands for no time, as in the database.
    if (time != QTime(0, 0))
        text += time.toString(time.msec() == 0 ? u" HH:mm:ss"_s : u" HH:mm:ss.zzz"_s);
    return text.toLatin1();
}

QByteArray moneyField(double amount)
{
    return base::fixedDecimals(amount, moneyDecimals).toLatin1();
}

/// Hours alone are refused: the toolkit would take "10" for a time.
QDateTime dateOf(const QString &text)
{
    const QDate day = QDate::fromString(text.left(text.indexOf(u' ')), Qt::ISODate);
    if (!day.isValid())
        return {};
    if (!text.contains(u' '))
        return base::wallClock(day);
    const QTime time = text.size() > hourLength
                           ? QTime::fromString(text.section(u' ', 1), Qt::ISODateWithMs)
                           : QTime();
    return time.isValid() ? base::wallClock(day, time) : QDateTime();
}

/// Nothing when the text holds no value of that kind.
QVariant parsed(const QString &text, Kind kind)
{
    bool isNumber = false;
    switch (kind) {
    // A wrong letter anywhere refuses the field. To guess would change a company without a word.
    case Kind::Integer:
    case Kind::YesNo: {
        const qint64 number = text.toLongLong(&isNumber);
        return isNumber ? QVariant(number) : QVariant();
    }
    case Kind::Real:
    case Kind::Money: {
        const double number = text.toDouble(&isNumber);
        return isNumber ? QVariant(number) : QVariant();
    }
    case Kind::Date: {
        const QDateTime date = dateOf(text);
        return date.isValid() ? QVariant(date) : QVariant();
    }
    case Kind::Binary: {
        const auto bytes = QByteArray::fromBase64Encoding(text.toLatin1(),
                                                          QByteArray::AbortOnBase64DecodingErrors);
        return bytes ? QVariant(*bytes) : QVariant();
    }
    default:
        return text;
    }
}

QString wanted(Kind kind)
{
    switch (kind) {
    case Kind::Date:
        return u"a date"_s;
    case Kind::Binary:
        return u"a picture"_s;
    default:
        return u"a number"_s;
    }
}

} // namespace

QByteArray fieldText(const QVariant &value, Kind kind)
{
    if (value.isNull())
        return {};
    switch (kind) {
    case Kind::Integer:
    case Kind::YesNo:
        return QByteArray::number(value.toLongLong());
    case Kind::Real:
        // The fewest digits that give the same number back.
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case Kind::Money:
        return moneyField(value.toDouble());
    case Kind::Date:
        return dateField(value.toDateTime());
    case Kind::Binary: {
        const QByteArray bytes = value.toByteArray();
        // Empty bytes and none differ as empty texts do.
        return bytes.isEmpty() ? "\"\"" : bytes.toBase64();
    }
    default:
        return textField(value.toString().toUtf8());
    }
}

QVariant fieldValue(const RowReader::Field &field, Kind kind)
{
    if (field.text.isEmpty() && !field.quoted)
        return {};
    QVariant value = parsed(field.text, kind);
    if (!value.isValid()) {
        constexpr int shown = 40;
        throw base::Error(base::ErrorNumber::TypeMismatch,
                          u"\"%1\" is not %2."_s.arg(field.text.left(shown), wanted(kind)));
    }
    return value;
}

} // namespace administration
