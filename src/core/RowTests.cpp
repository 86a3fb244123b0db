#include "core/RowTests.h"

#include "core/FirstNumber.h"
#include "core/Session.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
#include "platform/sql/Conversion.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

/// What was typed, as a number to be bound: it never becomes a part of the statement.
QVariant numberIn(const QString &text)
{
    if (const auto number = sql::parseNumber(text))
        return *number;
    throw base::Error(base::ErrorNumber::TypeMismatch, u"\"%1\" is not a number."_s.arg(text));
}

} // namespace

qint64 GetRecordCount(const QString &Table, const QString &Where)
{
    return trapped(Module, "GetRecordCount", qint64(0), [&] {
        QString statement = u"Select Count(*) as RecCount from "_s + Table;
        if (!Where.trimmed().isEmpty())
            statement += u" where "_s + Where;
        return firstNumber(dataConnection(), statement);
    });
}

bool IsRecordUsed(const QString &Table, const QString &Field, const QString &Value,
                  const QString &Type)
{
    return trapped(Module, "IsRecordUsed", false, [&] {
        // One row tells as much as all.
        const QString statement =
            u"Select top 1 * from "_s + Table + u" where "_s + Field + u" = ?"_s;
        const QString type = Type.toUpper();
        if (type == u"S")
            return !dataConnection().Open(statement, {Value}).isEmpty();
        if (type == u"N")
            return !dataConnection().Open(statement, {numberIn(Value)}).isEmpty();
        throw base::Error(
            base::ErrorNumber::InvalidCall,
            u"\"%1\" is not a type of value that a record can be looked up by."_s.arg(Type));
    });
}

bool IsDuplicate(const QString &Table, const QString &Column, const QVariant &OldValue,
                 const QString &NewValue, bool Numeric)
{
    return trapped(Module, "IsDuplicate", false, [&] {
        const QString value = NewValue.trimmed();
        if (base::toText(OldValue).trimmed().toUpper() == value.toUpper())
            return false;
        const QString statement =
            u"Select top 1 * from "_s + Table + u" Where "_s + Column + u" = ?"_s;
        const QVariant sought = Numeric ? numberIn(value) : QVariant(value);
        return !dataConnection().Open(statement, {sought}).isEmpty();
    });
}

bool ServiceInWorkOrder(qint64 ServiceUsedID)
{
    return trapped(Module, "ServiceInWorkOrder", false, [&] {
        return !dataConnection()
                    .Open(u"Select ServiceUsedID from tblWoServiceUsed Left join tblWorkOrder on "
                          u"tblWoServiceUsed.Workorderno = tblWorkorder.WorkorderNo Where "
                          u"ServiceUSedID = ?"_s,
                          {ServiceUsedID})
                    .isEmpty();
    });
}

bool ChkCountryExist(const QString &Name)
{
    return trapped(Module, "ChkCountryExist", false, [&] {
        const db::Recordset rows = lookupConnection().Open(
            u"Select itemName From tblIndicator where ParentID = 1 and itemname = ?"_s, {Name});
        return !rows.isEmpty() && rows.row(0).text(u"itemName") == Name;
    });
}
