#include "core/Tables.h"

#include "core/FirstNumber.h"
#include "core/Session.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

/// Runs a getter's query; what is wrong with its names is told in the users' words.
db::Recordset openNamed(db::Connection &connection, const QString &statement)
{
    try {
        return connection.Open(statement);
    } catch (const base::Error &error) {
        switch (error.number()) {
        case db::ErrorNumber::TableUnknown:
            throw base::Error(error.number(), u"Invalid Table Name"_s);
        case db::ErrorNumber::Syntax:
        case db::ErrorNumber::ValueMissing:
            throw base::Error(error.number(), u"Invalid Column Name"_s);
        default:
            throw;
        }
    }
}

QString tableQuery(const QString &Table, const QString &Order, const QString &Where)
{
    QString statement = u"Select * from "_s + Table;
    if (!Where.isEmpty())
        statement += u" Where "_s + Where;
    if (!Order.isEmpty())
        statement += u" Order by "_s + Order;
    return statement;
}

} // namespace

db::Recordset GetTableInfo(const QString &Table, const QString &Order, const QString &Where)
{
    return trapped(Module, "GetTableInfo", db::Recordset(),
                   [&] { return openNamed(dataConnection(), tableQuery(Table, Order, Where)); });
}

db::Recordset GetTableInfoWithIndicator(const QString &Table, const QString &Order,
                                        const QString &Where)
{
    return trapped(Module, "GetTableInfoWithIndicator", db::Recordset(),
                   [&] { return openNamed(lookupConnection(), tableQuery(Table, Order, Where)); });
}

db::Recordset GetIndicatorInfo(qint64 ParentID, bool ShowAll, bool OrderByName)
{
    return trapped(Module, "GetIndicatorInfo", db::Recordset(), [&] {
        QString statement =
            u"Select * from tblIndicator where ParentID = "_s + QString::number(ParentID);
        if (!ShowAll)
            statement += u" and Show = -1"_s;
        statement += OrderByName ? u" Order by ItemName"_s : u" Order by ItemID"_s;
        return openNamed(lookupConnection(), statement);
    });
}

db::Recordset GetCrewInfo()
{
    return trapped(Module, "GetCrewInfo", db::Recordset(), [&] {
        return openNamed(lookupConnection(),
                         u"Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewNumber] "
                         u"from tblCrew order by CrewNumber"_s);
    });
}

qint64 GetCrewIDByService(qint64 Id, const QString &Table)
{
    return trapped(Module, "GetCrewIDByService", qint64(0), [&] {
        const QString key = Table == u"tblWoserviceUsed" ? u"NServiceUsedID"_s : u"ServiceUsedID"_s;
        return firstNumber(dataConnection(), u"Select CrewID from "_s + Table + u" where "_s + key +
                                                 u" = "_s + QString::number(Id));
    });
}
