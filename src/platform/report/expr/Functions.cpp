#include "platform/report/expr/Functions.h"

#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/expr/Values.h"

#include <QDateTime>
#include <algorithm>
#include <cmath>
#include <limits>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Applies to a text; Null stays Null.
template<class Make>
QVariant onText(const QVariantList &arguments, Make make)
{
    return arguments[0].isNull() ? QVariant() : QVariant(make(base::toText(arguments[0])));
}

template<class Make>
QVariant onNumber(const QVariantList &arguments, Make make)
{
    return arguments[0].isNull() ? QVariant() : numberValue(make(arguments[0].toDouble()));
}

template<class Make>
QVariant onDate(const QVariantList &arguments, Make make)
{
    const QDateTime date = arguments[0].toDateTime();
    return date.isValid() ? QVariant(static_cast<qint64>(make(date))) : QVariant();
}

/// A whole number between the bounds: a text has no more characters than these, whatever number
/// was worked out.
int bounded(const QVariant &value, int least, int most)
{
    const double number = value.toDouble();
    return std::isnan(number) ? least : static_cast<int>(std::clamp<double>(number, least, most));
}

int count(const QVariant &value)
{
    return bounded(value, 0, std::numeric_limits<int>::max());
}

/// Minutes of a text "h:mm"; Null for another text.
QVariant minutesOf(const QVariantList &arguments)
{
    const QString text = base::toText(arguments[0]);
    const QStringView view(text);
    const qsizetype colon = view.indexOf(u':');
    // Without a colon it is a number of something, of which nobody says whether hours or minutes.
    if (colon < 0)
        return {};
    const qsizetype second = view.indexOf(u':', colon + 1);
    bool hoursOk = false;
    bool minutesOk = false;
    const qint64 hours = view.first(colon).toInt(&hoursOk);
    const qint64 minutes =
        view.sliced(colon + 1, (second < 0 ? view.size() : second) - colon - 1).toInt(&minutesOk);
    return hoursOk && minutesOk ? QVariant(hours * 60 + minutes) : QVariant();
}

/// "h:mm" of a number of minutes.
QVariant hoursText(const QVariantList &arguments)
{
    const double value = arguments[0].toDouble();
    if (arguments[0].isNull() || !(std::abs(value) < 1e15))
        return {};
    const auto minutes = static_cast<qint64>(value);
    return u"%1:%2"_s.arg(minutes / 60).arg(minutes % 60, 2, 10, QChar(u'0'));
}

/// Both sides have been worked out already; nothing in an expression does anything but give a
/// value.
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
         return ok ? numberValue(value) : QVariant();
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
         const int decimals = a.size() > 1 ? bounded(a[1], -400, 400) : 0;
         return onNumber(a, [=](double v) { return base::roundedDecimals(v, decimals); });
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

QStringList functionNames()
{
    QStringList names{u"sum"_s, u"count"_s, u"avg"_s, u"min"_s, u"max"_s, u"first"_s, u"last"_s};
    for (const Function &function : Functions)
        names.append(function.name.toString());
    return names;
}

} // namespace report
