#include "platform/report/expr/Functions.h"

#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"

#include <QDateTime>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;

QVariant number(double value)
{
    if (value == std::trunc(value) && std::abs(value) < 1e15)
        return static_cast<qint64>(value);
    return value;
}

/// Applies to a text; Null stays Null.
template<class Make>
QVariant onText(const QVariantList &arguments, Make make)
{
    return arguments[0].isNull() ? QVariant() : QVariant(make(base::toText(arguments[0])));
}

template<class Make>
QVariant onNumber(const QVariantList &arguments, Make make)
{
    return arguments[0].isNull() ? QVariant() : number(make(arguments[0].toDouble()));
}

template<class Make>
QVariant onDate(const QVariantList &arguments, Make make)
{
    const QDateTime date = arguments[0].toDateTime();
    return date.isValid() ? QVariant(static_cast<qint64>(make(date))) : QVariant();
}

qsizetype count(const QVariant &value)
{
    return qMax<qsizetype>(0, static_cast<qsizetype>(value.toDouble()));
}

/// Rounds half away from zero, as people do with money.
double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    // A value such as 1.005 lies a hair below its half in binary.
    return std::round(scaled + (scaled < 0 ? -1 : 1) * 1e-9 * std::abs(scaled)) / scale;
}

/// Minutes of a text "h:mm"; Null for another text.
QVariant minutesOf(const QVariantList &arguments)
{
    const QStringList parts = base::toText(arguments[0]).split(u':');
    if (parts.size() < 2)
        return {};
    bool hoursOk = false;
    bool minutesOk = false;
    const qint64 minutes = parts[0].toLongLong(&hoursOk) * 60 + parts[1].toLongLong(&minutesOk);
    return hoursOk && minutesOk ? QVariant(minutes) : QVariant();
}

/// "h:mm" of a number of minutes.
QVariant hoursText(const QVariantList &arguments)
{
    return onNumber(arguments, [](double value) { return value; }).isNull()
               ? QVariant()
               : QVariant(u"%1:%2"_s.arg(arguments[0].toLongLong() / 60)
                              .arg(arguments[0].toLongLong() % 60, 2, 10, QChar(u'0')));
}

QVariant choose(const QVariantList &a)
{
    return isTrueValue(a[0]) ? a[1] : (a.size() > 2 ? a[2] : QVariant());
}

constexpr Function Functions[] = {
    {u"if", 2, 3, choose},
    {u"iif", 2, 3, choose},
    {u"isnull", 1, 1, [](const QVariantList &a) { return QVariant(a[0].isNull()); }},
    {u"nz", 1, 2,
     [](const QVariantList &a) {
         return a[0].isNull() ? (a.size() > 1 ? a[1] : QVariant(0)) : a[0];
     }},
    {u"format", 2, 2,
     [](const QVariantList &a) { return QVariant(formatted(a[0], a[1].toString())); }},
    {u"text", 1, 1, [](const QVariantList &a) { return QVariant(base::toText(a[0])); }},
    {u"number", 1, 1,
     [](const QVariantList &a) {
         bool ok = false;
         const double value = base::toText(a[0]).toDouble(&ok);
         return ok ? number(value) : QVariant();
     }},
    {u"left", 2, 2,
     [](const QVariantList &a) {
         return onText(a, [&](const QString &t) { return t.left(count(a[1])); });
     }},
    {u"right", 2, 2,
     [](const QVariantList &a) {
         return onText(a, [&](const QString &t) { return t.right(count(a[1])); });
     }},
    {u"mid", 2, 3,
     [](const QVariantList &a) {
         return onText(a, [&](const QString &t) {
             return t.mid(qMax<qsizetype>(0, count(a[1]) - 1), a.size() > 2 ? count(a[2]) : -1);
         });
     }},
    {u"len", 1, 1,
     [](const QVariantList &a) { return QVariant(qint64(base::toText(a[0]).size())); }},
    {u"upper", 1, 1,
     [](const QVariantList &a) { return onText(a, [](const QString &t) { return t.toUpper(); }); }},
    {u"lower", 1, 1,
     [](const QVariantList &a) { return onText(a, [](const QString &t) { return t.toLower(); }); }},
    {u"trim", 1, 1,
     [](const QVariantList &a) { return onText(a, [](const QString &t) { return t.trimmed(); }); }},
    {u"abs", 1, 1,
     [](const QVariantList &a) { return onNumber(a, [](double v) { return std::abs(v); }); }},
    {u"int", 1, 1,
     [](const QVariantList &a) { return onNumber(a, [](double v) { return std::floor(v); }); }},
    {u"round", 1, 2,
     [](const QVariantList &a) {
         const int decimals = a.size() > 1 ? a[1].toInt() : 0;
         return onNumber(a, [=](double v) { return rounded(v, decimals); });
     }},
    {u"year", 1, 1,
     [](const QVariantList &a) {
         return onDate(a, [](const QDateTime &d) { return d.date().year(); });
     }},
    {u"month", 1, 1,
     [](const QVariantList &a) {
         return onDate(a, [](const QDateTime &d) { return d.date().month(); });
     }},
    {u"day", 1, 1,
     [](const QVariantList &a) {
         return onDate(a, [](const QDateTime &d) { return d.date().day(); });
     }},
    {u"days", 2, 2,
     [](const QVariantList &a) {
         const QDateTime from = a[0].toDateTime();
         const QDateTime to = a[1].toDateTime();
         return from.isValid() && to.isValid() ? QVariant(from.date().daysTo(to.date()))
                                               : QVariant();
     }},
    {u"minutes", 1, 1, minutesOf},
    {u"hours", 1, 1, hoursText},
};

} // namespace

const Function *findFunction(QStringView name)
{
    for (const Function &function : Functions)
        if (function.name.compare(name, Qt::CaseInsensitive) == 0)
            return &function;
    return nullptr;
}

} // namespace report
