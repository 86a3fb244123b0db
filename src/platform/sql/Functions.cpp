#include "platform/sql/Functions.h"

#include <algorithm>
#include <array>
#include <limits>

namespace sql {
namespace {

constexpr int any = std::numeric_limits<int>::max();

/// Sorted by name.
constexpr std::array functions = {
    Function{u"abs", FunctionId::Abs, 1, 1},
    Function{u"avg", FunctionId::Avg, 1, 1},
    Function{u"cbool", FunctionId::CBool, 1, 1},
    Function{u"cbyte", FunctionId::CInt, 1, 1},
    Function{u"ccur", FunctionId::CCur, 1, 1},
    Function{u"cdate", FunctionId::CDate, 1, 1},
    Function{u"cdbl", FunctionId::CDbl, 1, 1},
    Function{u"chr", FunctionId::Chr, 1, 1},
    Function{u"cint", FunctionId::CInt, 1, 1},
    Function{u"clng", FunctionId::CInt, 1, 1},
    Function{u"count", FunctionId::Count, 1, 1},
    Function{u"csng", FunctionId::CDbl, 1, 1},
    Function{u"cstr", FunctionId::CStr, 1, 1},
    Function{u"cvdate", FunctionId::CDate, 1, 1},
    Function{u"date", FunctionId::Date, 0, 0},
    Function{u"dateadd", FunctionId::DateAdd, 3, 3},
    Function{u"datediff", FunctionId::DateDiff, 3, 3},
    Function{u"datepart", FunctionId::DatePart, 2, 2},
    Function{u"dateserial", FunctionId::DateSerial, 3, 3},
    Function{u"datevalue", FunctionId::DateValue, 1, 1},
    Function{u"day", FunctionId::Day, 1, 1},
    Function{u"first", FunctionId::Min, 1, 1},
    Function{u"fix", FunctionId::Fix, 1, 1},
    Function{u"format", FunctionId::Format, 2, 2},
    Function{u"hour", FunctionId::Hour, 1, 1},
    Function{u"iif", FunctionId::IIf, 3, 3},
    Function{u"instr", FunctionId::InStr, 2, 3},
    Function{u"int", FunctionId::Int, 1, 1},
    Function{u"isnull", FunctionId::IsNull, 1, 1},
    Function{u"last", FunctionId::Max, 1, 1},
    Function{u"lcase", FunctionId::LCase, 1, 1},
    Function{u"left", FunctionId::Left, 2, 2},
    Function{u"len", FunctionId::Len, 1, 1},
    Function{u"ltrim", FunctionId::LTrim, 1, 1},
    Function{u"max", FunctionId::Max, 1, 1},
    Function{u"mid", FunctionId::Mid, 2, 3},
    Function{u"min", FunctionId::Min, 1, 1},
    Function{u"minute", FunctionId::Minute, 1, 1},
    Function{u"month", FunctionId::Month, 1, 1},
    Function{u"now", FunctionId::Now, 0, 0},
    Function{u"nz", FunctionId::Nz, 1, 2},
    Function{u"replace", FunctionId::Replace, 3, 3},
    Function{u"right", FunctionId::Right, 2, 2},
    Function{u"round", FunctionId::Round, 1, 2},
    Function{u"rtrim", FunctionId::RTrim, 1, 1},
    Function{u"second", FunctionId::Second, 1, 1},
    Function{u"sgn", FunctionId::Sgn, 1, 1},
    Function{u"space", FunctionId::Space, 1, 1},
    Function{u"sqr", FunctionId::Sqr, 1, 1},
    Function{u"sum", FunctionId::Sum, 1, 1},
    Function{u"switch", FunctionId::Switch, 2, any},
    Function{u"time", FunctionId::Time, 0, 0},
    Function{u"trim", FunctionId::Trim, 1, 1},
    Function{u"ucase", FunctionId::UCase, 1, 1},
    Function{u"val", FunctionId::Val, 1, 1},
    Function{u"weekday", FunctionId::Weekday, 1, 1},
    Function{u"year", FunctionId::Year, 1, 1},
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
