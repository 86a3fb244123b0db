#include "platform/report/expr/Values.h"

#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"

#include <QDateTime>
#include <cmath>

namespace report {

bool isNumberValue(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

QVariant numberValue(double value)
{
    if (!std::isfinite(value))
        return {};
    // Whole numbers are kept as such, so that they print without a point; beyond that a double no
    // longer holds each of them.
    if (value == std::trunc(value) && std::abs(value) < 1e15)
        return static_cast<qint64>(value);
    return value;
}

bool isTrueValue(const QVariant &value)
{
    if (value.isNull())
        return false;
    if (value.typeId() == QMetaType::QString)
        return !value.toString().isEmpty();
    // A date or a picture that is there counts as true.
    return !isNumberValue(value) || value.toDouble() != 0;
}

int compareValues(const QVariant &left, const QVariant &right)
{
    // Null comes first, and is like Null: groups and sorts need a place for it.
    if (left.isNull() || right.isNull())
        return int(!left.isNull()) - int(!right.isNull());
    if (isNumberValue(left) && isNumberValue(right)) {
        const double a = left.toDouble();
        const double b = right.toDouble();
        // What is no number comes before all numbers, so that a sort has an order to find.
        return int(a > b) - int(a < b) + int(std::isnan(b)) - int(std::isnan(a));
    }
    if (left.typeId() == QMetaType::QDateTime && right.typeId() == QMetaType::QDateTime) {
        const QDateTime a = left.toDateTime();
        const QDateTime b = right.toDateTime();
        return int(a > b) - int(a < b);
    }
    const int order = base::toText(left).compare(base::toText(right), Qt::CaseInsensitive);
    return int(order > 0) - int(order < 0);
}

} // namespace report
