#include "platform/sql/Conversion.h"
#include "platform/sql/Functions.h"
#include "platform/sql/Types.h"
#include "platform/sql/Writer.h"

#include <algorithm>
#include <array>

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

/// The zero date, from which dates as numbers count.
constexpr QStringView zeroDate = u"TIMESTAMP '1899-12-30 00:00:00'";

struct Interval
{
    QStringView name;
    QStringView unit; ///< of the engine
    int units;
};

constexpr std::array intervals = {
    Interval{u"yyyy", u"YEAR", 1}, Interval{u"q", u"MONTH", 3}, Interval{u"m", u"MONTH", 1},
    Interval{u"y", u"DAY", 1},     Interval{u"d", u"DAY", 1},   Interval{u"w", u"DAY", 1},
    Interval{u"ww", u"DAY", 7},    Interval{u"h", u"HOUR", 1},  Interval{u"n", u"MINUTE", 1},
    Interval{u"s", u"SECOND", 1},
};

const Interval *findInterval(QStringView name)
{
    for (const Interval &interval : intervals) {
        if (interval.name.compare(name, Qt::CaseInsensitive) == 0)
            return &interval;
    }
    return nullptr;
}

/// A function whose one argument stands between two texts of the engine.
struct Wrapped
{
    FunctionId id;
    QStringView before;
    ColumnKind kind; ///< as which the argument is written
    QStringView after;
};

constexpr std::array wrapped = {
    Wrapped{FunctionId::Abs, u"ABS(", ColumnKind::Real, u")"},
    Wrapped{FunctionId::Avg, u"AVG(CAST(", ColumnKind::Real, u" AS DOUBLE PRECISION))"},
    Wrapped{FunctionId::Count, u"COUNT(", ColumnKind::Unknown, u")"},
    Wrapped{FunctionId::Max, u"MAX(", ColumnKind::Unknown, u")"},
    Wrapped{FunctionId::Min, u"MIN(", ColumnKind::Unknown, u")"},
    Wrapped{FunctionId::Sum, u"SUM(", ColumnKind::Real, u")"},
    Wrapped{FunctionId::DateValue, u"CAST(CAST(", ColumnKind::Date, u" AS DATE) AS TIMESTAMP)"},
    Wrapped{FunctionId::CDbl, u"CAST(", ColumnKind::Real, u" AS DOUBLE PRECISION)"},
    Wrapped{FunctionId::Chr, u"ASCII_CHAR(", ColumnKind::Integer, u")"},
    Wrapped{FunctionId::Sgn, u"SIGN(", ColumnKind::Real, u")"},
    Wrapped{FunctionId::Sqr, u"SQRT(", ColumnKind::Real, u")"},
    Wrapped{FunctionId::Len, u"CHAR_LENGTH(", ColumnKind::Text, u")"},
    Wrapped{FunctionId::Trim, u"TRIM(", ColumnKind::Text, u")"},
    Wrapped{FunctionId::LTrim, u"TRIM(LEADING FROM ", ColumnKind::Text, u")"},
    Wrapped{FunctionId::RTrim, u"TRIM(TRAILING FROM ", ColumnKind::Text, u")"},
    Wrapped{FunctionId::UCase, u"UPPER(", ColumnKind::Text, u")"},
    Wrapped{FunctionId::LCase, u"LOWER(", ColumnKind::Text, u")"},
    Wrapped{FunctionId::Space, u"LPAD('', ", ColumnKind::Integer, u")"},
};

/// A part of a date that the engine extracts.
struct DatePart
{
    FunctionId id;
    QStringView unit;
};

constexpr std::array dateParts = {
    DatePart{FunctionId::Year, u"YEAR"},     DatePart{FunctionId::Month, u"MONTH"},
    DatePart{FunctionId::Day, u"DAY"},       DatePart{FunctionId::Hour, u"HOUR"},
    DatePart{FunctionId::Minute, u"MINUTE"}, DatePart{FunctionId::Second, u"SECOND"},
};

} // namespace

Repetition::Repetition(Writer &writer, const Expression &at)
    : m_writer(writer)
{
    // Each level repeats its argument up to a dozen times: three of them make
    // thousands.
    if (m_writer.m_repetitions >= 3)
        m_writer.raise(u"functions that need their argument several times are nested too deeply."_s,
                       at);
    ++m_writer.m_repetitions;
}

QString Writer::fixedText(const Expression &argument, QStringView of)
{
    const auto known = knownValue(argument);
    if (!known || known->typeId() != QMetaType::QString)
        raise(u"%1 has to be a text in quotes."_s.arg(of), argument);
    return known->toString();
}

void Writer::writeAround(QStringView before, const Expression &value, ColumnKind kind,
                         QStringView after)
{
    m_text += before;
    writeValue(value, {kind, Place::Result, 0});
    m_text += after;
}

void Writer::writeCall(const Expression &call)
{
    // The engine has to know the type of each argument, and tells functions apart by them.
    const FixedLiterals fixed(*this);
    const FunctionId id = call.function->id;
    if (const auto *found = std::ranges::find(wrapped, id, &Wrapped::id); found != wrapped.end())
        return writeAround(found->before, *call.operands.front(), found->kind, found->after);
    if (const auto *found = std::ranges::find(dateParts, id, &DatePart::id);
        found != dateParts.end())
        return writeDatePart(*call.operands.front(), found->unit);
    switch (id) {
    case FunctionId::Date:
        return writeMoment(Slot::Source::Today);
    case FunctionId::Now:
        return writeMoment(Slot::Source::Now);
    case FunctionId::Time:
        return writeTimeOfDay();
    case FunctionId::DateAdd:
        return writeDateAdd(call);
    case FunctionId::DateDiff:
        return writeDateDiff(call);
    case FunctionId::DateSerial:
        return writeDateSerial(call);
    case FunctionId::DatePart:
        return writeNamedPart(call);
    case FunctionId::Weekday:
        return writeWeekday(*call.operands.front());
    case FunctionId::IIf:
        return writeIIf(call);
    case FunctionId::Switch:
        return writeSwitch(call);
    case FunctionId::Nz:
        return writeNz(call);
    case FunctionId::Left:
        return writeList(u"LEFT(", call, {ColumnKind::Text, ColumnKind::Integer});
    case FunctionId::Right:
        return writeList(u"RIGHT(", call, {ColumnKind::Text, ColumnKind::Integer});
    case FunctionId::Mid:
        return writeMid(call);
    case FunctionId::InStr:
        return writeInStr(call);
    case FunctionId::Replace:
        return writeList(u"REPLACE(", call, {ColumnKind::Text, ColumnKind::Text, ColumnKind::Text});
    case FunctionId::Format:
        return writeFormat(call);
    default:
        writeConversion(call);
    }
}

/// Functions that make a value of another kind, or a rounded one, of a value.
void Writer::writeConversion(const Expression &call)
{
    const Expression &value = *call.operands.front();
    switch (call.function->id) {
    case FunctionId::CBool:
        m_text += u"CASE ("_s;
        writeCondition(value);
        m_text += u") WHEN TRUE THEN -1 WHEN FALSE THEN 0 END"_s;
        return;
    case FunctionId::CCur:
        return writeMoney(value);
    case FunctionId::CDate:
        if (!isNumber(value.type))
            return writeAround(u"CAST(", value, ColumnKind::Date, u" AS TIMESTAMP)");
        // A number counts the days from the zero date.
        m_text += u'(' + zeroDate.toString();
        return writeAround(u" + ", value, ColumnKind::Real, u")");
    case FunctionId::CInt:
        return writeRoundedToEven(value);
    case FunctionId::CStr:
        return writeCStr(value);
    case FunctionId::Fix:
    case FunctionId::Int:
        if (call.type == ColumnKind::Date)
            return writeAround(u"CAST(CAST(", value, ColumnKind::Date, u" AS DATE) AS TIMESTAMP)");
        return writeAround(call.function->id == FunctionId::Fix ? u"TRUNC(" : u"FLOOR(", value,
                           ColumnKind::Real, u")");
    case FunctionId::Round:
        if (call.operands.size() == 1)
            return writeRoundedToEven(value);
        return writeList(u"ROUND(", call, {ColumnKind::Real, ColumnKind::Integer});
    case FunctionId::Val:
        // The number with which the text begins; 0 when it begins with none.
        return writeAround(u"CAST(COALESCE(NULLIF(SUBSTRING(TRIM(", value, ColumnKind::Text,
                           u") SIMILAR '\\\"[+\\-]?[0-9]*(.[0-9]*)?\\\"%' ESCAPE '\\'), ''), '0') "
                           "AS DOUBLE PRECISION)");
    default:
        return; // IsNull, of which the resolver made a condition; the others stand in the tables
    }
}

/// A function of the engine that takes the arguments as they come.
void Writer::writeList(QStringView before, const Expression &call,
                       std::initializer_list<ColumnKind> kinds)
{
    std::size_t argument = 0;
    for (const ColumnKind kind : kinds) {
        writeAround(before, *call.operands[argument++], kind, {});
        before = u", ";
    }
    m_text += u')';
}

void Writer::writeTimeOfDay()
{
    // A time alone stands on the zero date.
    m_text += u"DATEADD(SECOND, DATEDIFF(SECOND FROM "_s;
    writeMoment(Slot::Source::Today);
    m_text += u" TO "_s;
    writeMoment(Slot::Source::Now);
    m_text += u"), "_s + zeroDate.toString() + u')';
}

void Writer::writeDateSerial(const Expression &call)
{
    // Added one by one, so that month 13 and day 0 reach into the neighbouring year and month.
    m_text += u"DATEADD(DAY, "_s;
    writeAround({}, *call.operands[2], ColumnKind::Integer, u" - 1, DATEADD(MONTH, ");
    writeAround({}, *call.operands[1], ColumnKind::Integer, u" - 1, DATEADD(YEAR, ");
    writeAround({}, *call.operands[0], ColumnKind::Integer,
                u" - 1900, TIMESTAMP '1900-01-01 00:00:00')))");
}

/// The part of a date that an interval names.
void Writer::writeNamedPart(const Expression &call)
{
    const QString name = fixedText(*call.operands[0], u"the interval of DatePart").toLower();
    const Expression &date = *call.operands[1];
    if (name == u"w")
        return writeWeekday(date);
    if (name == u"q")
        return writeAround(u"((EXTRACT(MONTH FROM ", date, ColumnKind::Date, u") + 2) / 3)");
    if (name == u"y")
        // The engine counts the days of a year from 0.
        return writeAround(u"(EXTRACT(YEARDAY FROM ", date, ColumnKind::Date, u") + 1)");
    const Interval *interval = findInterval(name);
    if (!interval || name == u"ww")
        raise(u"this interval of DatePart is not known."_s, call);
    writeDatePart(date, interval->unit);
}

/// Both branches become the type of the whole, or the engine would take that of the first.
void Writer::writeIIf(const Expression &call)
{
    m_text += u"IIF("_s;
    writeCondition(*call.operands[0]);
    writeAround(u", ", *call.operands[1], call.type, u", ");
    writeAround({}, *call.operands[2], call.type, u")");
}

/// Without a second argument Null becomes 0 or the empty text, whichever the first one's kind has.
void Writer::writeNz(const Expression &call)
{
    if (call.operands.size() > 1)
        return writeList(u"COALESCE(", call, {call.type, call.type});
    writeAround(u"COALESCE(", *call.operands[0], call.type,
                isNumber(call.type) ? u", 0)" : u", '')");
}

void Writer::writeCStr(const Expression &value)
{
    if (value.isValue() || value.type == ColumnKind::Text || value.type == ColumnKind::Unknown) {
        if (value.isValue())
            writeAdapted(value, {ColumnKind::Text, Place::Result, 0});
        else
            writeNatural(value);
        return;
    }
    if (value.type == ColumnKind::Date) {
        writeDateText(value);
        return;
    }
    if (value.type == ColumnKind::Money) {
        // The engine writes all four decimals.
        m_text += u"TRIM(TRAILING '.' FROM TRIM(TRAILING '0' FROM CAST("_s;
        writeNatural(value);
        m_text += u" AS VARCHAR(24))))"_s;
        return;
    }
    if (value.type == ColumnKind::Real) {
        writeRealText(value);
        return;
    }
    m_text += u"CAST("_s;
    writeNatural(value);
    m_text += u" AS VARCHAR(20))"_s;
}

/// The text of a date is the same whoever writes it: the program (base::toText) or the engine.
void Writer::writeDateText(const Expression &date)
{
    // 3/9/2024, with the time behind it when there is one: 3/9/2024 2:05:00 PM.
    const Repetition repetition(*this, date);
    const auto part = [&](QStringView name) {
        m_text += u"EXTRACT("_s + name.toString() + u" FROM "_s;
        writeNatural(date);
        m_text += u')';
    };
    const auto twoDigits = [&](QStringView name) {
        m_text += u"LPAD(CAST("_s;
        part(name);
        m_text += u" AS INTEGER), 2, '0')"_s;
    };
    m_text += u'(';
    part(u"MONTH");
    m_text += u" || '/' || "_s;
    part(u"DAY");
    m_text += u" || '/' || "_s;
    part(u"YEAR");
    m_text += u" || IIF(CAST("_s;
    writeNatural(date);
    m_text += u" AS TIME) = TIME '00:00:00', '', ' ' || (MOD("_s;
    part(u"HOUR");
    m_text += u" + 11, 12) + 1) || ':' || "_s;
    twoDigits(u"MINUTE");
    m_text += u" || ':' || "_s;
    twoDigits(u"SECOND");
    m_text += u" || IIF("_s;
    part(u"HOUR");
    m_text += u" < 12, ' AM', ' PM')))"_s;
}

void Writer::writeRoundedToEven(const Expression &value)
{
    const bool whole = value.type == ColumnKind::Integer || value.type == ColumnKind::YesNo;
    // Known now, and rounded here once.
    if (value.kind == Kind::Literal) {
        writeInline(converted(fixedValue(value), ColumnKind::Integer), {});
        return;
    }
    // A parameter is rounded when it is bound to its whole number.
    if (value.isValue() || whole) {
        m_text += u"CAST("_s;
        writeValue(value, {ColumnKind::Integer, Place::Operand, 0});
        m_text += u" AS BIGINT)"_s;
        return;
    }
    // The engine rounds halves away from zero, the dialect to the even neighbour.
    const Repetition repetition(*this, value);
    const Wanted number{ColumnKind::Real, Place::Result, 0};
    m_text += u"CAST(IIF("_s;
    writeValue(value, number);
    m_text += u" - FLOOR("_s;
    writeValue(value, number);
    m_text += u") = 0.5, 2 * ROUND("_s;
    writeValue(value, number);
    m_text += u" / 2e0), ROUND("_s;
    writeValue(value, number);
    m_text += u")) AS BIGINT)"_s;
}

void Writer::writeDatePart(const Expression &value, QStringView part)
{
    const bool ofTime = part == u"HOUR" || part == u"MINUTE" || part == u"SECOND";
    // A literal or parameter is converted as a date is; only the text of a column may be a bare
    // "h:mm".
    const bool text = value.type == ColumnKind::Text && !value.isValue();
    // The engine's seconds have a fraction.
    const bool whole = part == u"SECOND";
    m_text += whole ? u"CAST(FLOOR(EXTRACT("_s : u"EXTRACT("_s;
    m_text += part;
    m_text += u" FROM "_s;
    if (text) {
        // "h:mm"; a blank text has no hour.
        m_text += u"CAST(NULLIF(TRIM("_s;
        writeNatural(value);
        m_text += ofTime ? u"), '') AS TIME)"_s : u"), '') AS TIMESTAMP)"_s;
    } else {
        writeValue(value, {ColumnKind::Date, Place::Result, 0});
    }
    m_text += whole ? u")) AS INTEGER)"_s : u")"_s;
}

void Writer::writeDateDiff(const Expression &call)
{
    const Interval *interval =
        findInterval(fixedText(*call.operands[0], u"the interval of DateDiff"));
    if (!interval)
        raise(u"this interval of DateDiff is not known."_s, call);
    const Wanted date{ColumnKind::Date, Place::Result, 0};
    const auto difference = [&](QStringView unit) {
        m_text += u"DATEDIFF("_s + unit.toString() + u" FROM "_s;
        writeValue(*call.operands[1], date);
        m_text += u" TO "_s;
        writeValue(*call.operands[2], date);
        m_text += u')';
    };
    const auto counted = [&](const Expression &operand, QStringView unit, QStringView from) {
        m_text += u"(DATEDIFF("_s + unit.toString() + u" FROM TIMESTAMP '"_s + from.toString() +
                  u" 00:00:00' TO "_s;
        writeValue(operand, date);
        m_text += u") / "_s + QString::number(interval->units) + u')';
    };
    // Whole weeks, on whatever day they begin; "ww" counts Sundays.
    if (interval->name == u"w") {
        m_text += u'(';
        difference(u"DAY");
        m_text += u" / 7)"_s;
    } else if (interval->units > 1) {
        // Quarters that begin, or Sundays, between the two; day one of the count is such a one.
        const QStringView from = interval->name == u"q" ? u"0001-01-01" : u"0001-01-07";
        m_text += u'(';
        counted(*call.operands[2], interval->unit, from);
        m_text += u" - "_s;
        counted(*call.operands[1], interval->unit, from);
        m_text += u')';
    } else {
        difference(interval->unit);
    }
}

/// The engine keeps to the last day of a month: a month after 31 January is 29 February.
void Writer::writeDateAdd(const Expression &call)
{
    const Interval *interval =
        findInterval(fixedText(*call.operands[0], u"the interval of DateAdd"));
    if (!interval)
        raise(u"this interval of DateAdd is not known."_s, call);
    m_text += u"DATEADD("_s + interval->unit.toString() + u", "_s;
    if (interval->units > 1)
        m_text += QString::number(interval->units) + u" * "_s;
    writeAround({}, *call.operands[1], ColumnKind::Integer, u", ");
    writeAround({}, *call.operands[2], ColumnKind::Date, u")");
}

void Writer::writeWeekday(const Expression &value)
{
    // Sunday is 1.
    m_text += u'(';
    writeDatePart(value, u"WEEKDAY");
    m_text += u" + 1)"_s;
}

/// The first condition that holds decides; Null when none does.
void Writer::writeSwitch(const Expression &call)
{
    m_text += u"CASE"_s;
    for (std::size_t i = 0; i + 1 < call.operands.size(); i += 2) {
        m_text += u" WHEN "_s;
        writeCondition(*call.operands[i]);
        writeAround(u" THEN ", *call.operands[i + 1], call.type, {});
    }
    m_text += u" END"_s;
}

/// Behind the end of a text there is the empty text, not Null.
void Writer::writeMid(const Expression &call)
{
    writeAround(u"SUBSTRING(", *call.operands[0], ColumnKind::Text, u" FROM ");
    writeAround({}, *call.operands[1], ColumnKind::Integer, {});
    if (call.operands.size() > 2)
        writeAround(u" FOR ", *call.operands[2], ColumnKind::Integer, {});
    m_text += u')';
}

void Writer::writeInStr(const Expression &call)
{
    // The place to begin at stands before the text when it is given.
    const bool starts = call.operands.size() == 3;
    const std::size_t text = starts ? 1 : 0;
    // The engine asks for what is looked for before the text.
    writeAround(u"POSITION(", *call.operands[text + 1], ColumnKind::Text, u", ");
    writeText(*call.operands[text]);
    if (starts)
        writeAround(u", ", *call.operands[0], ColumnKind::Integer, {});
    m_text += u')';
}

} // namespace sql
