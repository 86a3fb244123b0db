#include "core/ErrorStore.h"

#include "core/Secrets.h"
#include "platform/base/Error.h"
#include "platform/odbc/Odbc.h"

using namespace Qt::StringLiterals;

namespace errorstore {
namespace {

// Lengths of the table's columns.
constexpr int LongText = 4000;
constexpr int Name = 100;
constexpr int Version = 50;

} // namespace

QString connectionString()
{
    const std::optional<QString> text = secrets::read(ConnectionOption);
    if (!text)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The connection to the error store is not known on this computer. Enter "
                          u"it under File, Setup, on the page Error Reports."_s);
    secrets::withhold(odbc::passwordOf(*text));
    return *text;
}

void store(const QString &connectionString, const ErrorReportDetails &details,
           const base::Steps &steps)
{
    const ErrorReport &report = details.report;
    steps.say(u"Connecting to the error store"_s);
    odbc::Connection connection(connectionString);
    if (steps.areCancelled())
        throw base::Cancelled();
    steps.say(u"Writing the report"_s);
    connection.execute(
        u"insert into tblError (ErrNumber, ErrDescription, LineNumber, UserMsg, ModuleName, "
        u"ProcedureName, UserEmail, Username, APPversion, DBversion, WindowVersion, "
        u"WinVersionNo, ServicePack, Reply, ErrdateTime) "
        u"values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {report.ErrNumber, report.ErrDescription.left(LongText), report.LineNumber,
         report.UserMsg.left(LongText), report.ModuleName.left(Name),
         report.ProcedureName.left(Name), report.UserEmail.left(Name), details.UserName.left(Name),
         details.AppVersion.left(Version), details.DBVersion.left(Version),
         details.WindowVersion.left(Name), details.WinVersionNo.left(Version),
         details.ServicePack.left(Name), 0, details.ErrDateTime});
}

int reportsIn(const QString &connectionString)
{
    return odbc::Connection(connectionString)
        .firstValue(u"select count(*) from tblError where Reply >= 0"_s)
        .toInt();
}

} // namespace errorstore
