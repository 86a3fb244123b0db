#include "core/Identifiers.h"

#include "core/FirstNumber.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"

#include <QUuid>

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

qint64 highestPlusOne(db::Connection &connection, const QString &Table, const QString &Column)
{
    return firstNumber(connection, u"SELECT max("_s + Column + u") From "_s + Table) + 1;
}

} // namespace

qint64 GenerateID(const QString &Table, const QString &Column)
{
    return trapped(Module, "GenerateID", qint64(0),
                   [&] { return highestPlusOne(dataConnection(), Table, Column); });
}

qint64 GenerateIDWithIndicator(const QString &Table, const QString &Column)
{
    return trapped(Module, "GenerateIDWithIndicator", qint64(0),
                   [&] { return highestPlusOne(lookupConnection(), Table, Column); });
}

qint64 GenrateUniqueID()
{
    return base::now().toString(u"MMddHHmmss").toLongLong();
}

QString GetGUID()
{
    return QString::fromLatin1(QUuid::createUuid().toRfc4122().toHex()).toUpper();
}
