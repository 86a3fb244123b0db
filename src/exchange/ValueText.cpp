#include "exchange/ValueText.h"

#include "platform/base/Format.h"

namespace exchange {

QString valueText(const QVariant &value, sql::ColumnKind kind)
{
    if (kind == sql::ColumnKind::YesNo && !value.isNull())
        return base::toText(value.toLongLong() != 0);
    return base::toText(value);
}

} // namespace exchange
