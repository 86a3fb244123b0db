#include "platform/sql/Functions.h"

#include <algorithm>
#include <array>
#include <limits>

namespace sql {
namespace {

constexpr int any = std::numeric_limits<int>::max();
/// The resolver works these out (ResolverExpression.cpp).
constexpr ColumnKind byArguments = ColumnKind::Unknown;

/// Sorted by name, for findFunction. Some share a meaning: the dialect has more types of numbers
/// than values have, and of First and Last no order is known but that of the values.
constexpr std::array functions = {
    Function{u"abs", FunctionId::Abs, 1, 1, byArguments},
    Function{u"avg", FunctionId::Avg, 1, 1, ColumnKind::Real},
    Function{u"cbool", FunctionId::CBool, 1, 1, ColumnKind::YesNo},
    Function{u"cbyte", FunctionId::CInt, 1, 1, ColumnKind::Integer},
    Function{u"ccur", FunctionId::CCur, 1, 1, ColumnKind::Money},
    Function{u"cdate", FunctionId::CDate, 1, 1, ColumnKind::Date},
    Function{u"cdbl", FunctionId::CDbl, 1, 1, ColumnKind::Real},
    Function{u"chr", FunctionId::Chr, 1, 1, ColumnKind::Text},
    Function{u"cint", FunctionId::CInt, 1, 1, ColumnKind::Integer},
    Function{u"clng", FunctionId::CInt, 1, 1, ColumnKind::Integer},
    Function{u"count", FunctionId::Count, 1, 1, ColumnKind::Integer},
    Function{u"csng", FunctionId::CDbl, 1, 1, ColumnKind::Real},
    Function{u"cstr", FunctionId::CStr, 1, 1, ColumnKind::Text},
    Function{u"cvdate", FunctionId::CDate, 1, 1, ColumnKind::Date},
    Function{u"date", FunctionId::Date, 0, 0, ColumnKind::Date},
    Function{u"dateadd", FunctionId::DateAdd, 3, 3, ColumnKind::Date},
    Function{u"datediff", FunctionId::DateDiff, 3, 3, ColumnKind::Integer},
    Function{u"datepart", FunctionId::DatePart, 2, 2, ColumnKind::Integer},
    Function{u"dateserial", FunctionId::DateSerial, 3, 3, ColumnKind::Date},
    Function{u"datevalue", FunctionId::DateValue, 1, 1, ColumnKind::Date},
    Function{u"day", FunctionId::Day, 1, 1, ColumnKind::Integer},
    Function{u"first", FunctionId::Min, 1, 1, byArguments},
    Function{u"fix", FunctionId::Fix, 1, 1, byArguments},
    Function{u"format", FunctionId::Format, 2, 2, ColumnKind::Text},
    Function{u"hour", FunctionId::Hour, 1, 1, ColumnKind::Integer},
    Function{u"iif", FunctionId::IIf, 3, 3, byArguments},
    Function{u"instr", FunctionId::InStr, 2, 3, ColumnKind::Integer},
    Function{u"int", FunctionId::Int, 1, 1, byArguments},
    Function{u"isnull", FunctionId::IsNull, 1, 1, ColumnKind::YesNo},
    Function{u"last", FunctionId::Max, 1, 1, byArguments},
    Function{u"lcase", FunctionId::LCase, 1, 1, ColumnKind::Text},
    Function{u"left", FunctionId::Left, 2, 2, ColumnKind::Text},
    Function{u"len", FunctionId::Len, 1, 1, ColumnKind::Integer},
    Function{u"ltrim", FunctionId::LTrim, 1, 1, ColumnKind::Text},
    Function{u"max", FunctionId::Max, 1, 1, byArguments},
    Function{u"mid", FunctionId::Mid, 2, 3, ColumnKind::Text},
    Function{u"min", FunctionId::Min, 1, 1, byArguments},
    Function{u"minute", FunctionId::Minute, 1, 1, ColumnKind::Integer},
    Function{u"month", FunctionId::Month, 1, 1, ColumnKind::Integer},
    Function{u"now", FunctionId::Now, 0, 0, ColumnKind::Date},
    Function{u"nz", FunctionId::Nz, 1, 2, byArguments},
    Function{u"replace", FunctionId::Replace, 3, 3, ColumnKind::Text},
    Function{u"right", FunctionId::Right, 2, 2, ColumnKind::Text},
    Function{u"round", FunctionId::Round, 1, 2, byArguments},
    Function{u"rtrim", FunctionId::RTrim, 1, 1, ColumnKind::Text},
    Function{u"second", FunctionId::Second, 1, 1, ColumnKind::Integer},
    Function{u"sgn", FunctionId::Sgn, 1, 1, ColumnKind::Integer},
    Function{u"space", FunctionId::Space, 1, 1, ColumnKind::Text},
    Function{u"sqr", FunctionId::Sqr, 1, 1, ColumnKind::Real},
    Function{u"sum", FunctionId::Sum, 1, 1, byArguments},
    Function{u"switch", FunctionId::Switch, 2, any, byArguments},
    Function{u"time", FunctionId::Time, 0, 0, ColumnKind::Date},
    Function{u"trim", FunctionId::Trim, 1, 1, ColumnKind::Text},
    Function{u"ucase", FunctionId::UCase, 1, 1, ColumnKind::Text},
    Function{u"val", FunctionId::Val, 1, 1, ColumnKind::Real},
    Function{u"weekday", FunctionId::Weekday, 1, 1, ColumnKind::Integer},
    Function{u"year", FunctionId::Year, 1, 1, ColumnKind::Integer},
};

} // namespace

const Function *findFunction(QStringView name)
{
    const auto found = std::ranges::lower_bound(
        functions, name,
        [](QStringView left, QStringView right) {
            return left.compare(right, Qt::CaseInsensitive) < 0;
        },
        &Function::name);
    const bool hit =
        found != functions.end() && found->name.compare(name, Qt::CaseInsensitive) == 0;
    return hit ? &*found : nullptr;
}

} // namespace sql
