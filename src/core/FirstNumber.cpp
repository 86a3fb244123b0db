#include "core/FirstNumber.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"

using namespace Qt::StringLiterals;

namespace {

/// A value as a whole number, 0 for Null.
qint64 wholeNumber(const QVariant &value)
{
    if (value.isNull())
        return 0;
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        throw base::Error(base::ErrorNumber::TypeMismatch, u"Type mismatch"_s);
    return value.typeId() == QMetaType::Double ? base::roundedToEven(number) : value.toLongLong();
}

} // namespace

qint64 firstNumber(db::Connection &connection, const QString &statement)
{
    const db::Recordset rows = connection.Open(statement);
    return rows.isEmpty() ? 0 : wholeNumber(rows.value(0, 0));
}
