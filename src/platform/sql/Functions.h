#pragma once

#include "platform/sql/Schema.h"

#include <QStringView>

namespace sql {

enum class FunctionId : quint8 {
    Abs,
    Avg,
    CBool,
    CCur,
    CDate,
    CDbl,
    CInt,
    CStr,
    Chr,
    Count,
    Date,
    DateAdd,
    DateDiff,
    DatePart,
    DateSerial,
    DateValue,
    Day,
    Fix,
    Format,
    Hour,
    IIf,
    InStr,
    Int,
    IsNull,
    LCase,
    LTrim,
    Left,
    Len,
    Max,
    Mid,
    Min,
    Minute,
    Month,
    Now,
    Nz,
    RTrim,
    Replace,
    Right,
    Round,
    Second,
    Sgn,
    Space,
    Sqr,
    Sum,
    Switch,
    Time,
    Trim,
    UCase,
    Val,
    Weekday,
    Year,
};

/// A function of the dialect.
struct Function
{
    QStringView name; ///< in lower case
    FunctionId id;
    int fewest; ///< arguments
    int most;
    ColumnKind type; ///< of what comes back; Unknown when it follows from the arguments

    /// True for a function over the rows of a group.
    [[nodiscard]] bool isAggregate() const
    {
        return id == FunctionId::Avg || id == FunctionId::Count || id == FunctionId::Max ||
               id == FunctionId::Min || id == FunctionId::Sum;
    }
};

/// The function of that name in any case, or null.
[[nodiscard]] const Function *findFunction(QStringView name);

} // namespace sql
