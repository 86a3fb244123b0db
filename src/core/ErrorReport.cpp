#include "core/ErrorReport.h"

#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Secrets.h"
#include "core/Session.h"
#include "core/StartUp.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

ErrorReportForm &currentForm()
{
    static ErrorReportForm form;
    return form;
}

ReportTransport &currentTransport()
{
    static ReportTransport transport;
    return transport;
}

QString heading(const QString &text)
{
    return u"<font color=\"red\"><b>"_s + text + u"</b></font>"_s;
}

QString boldLine(const QString &label, const QString &value)
{
    return u"<br><br><b>"_s + label + u"</b> "_s + value.toHtmlEscaped().replace(u'\n', u"<br>"_s);
}

QString windowsLines(const ErrorReportDetails &details)
{
    return u"<br><br>"_s + heading(u"Windows Information"_s) +
           boldLine(u"Windows Version:-"_s, details.WindowVersion) +
           boldLine(u"Version number:-"_s, details.WinVersionNo) +
           boldLine(u"Service Pack/misc:-"_s, details.ServicePack);
}

/// Text for the part of an address behind "?", where these characters have a meaning of their own.
QString addressText(QString text)
{
    text.replace(u'%', u"%25"_s).replace(u'&', u"%26"_s).replace(u'#', u"%23"_s);
    return text.replace(u"\r\n"_s, u"%0A"_s).replace(u'\n', u"%0A"_s);
}

} // namespace

ErrorReport trimmedReport(const QString &ModuleName, const QString &ProcedureName, int ErrNumber,
                          const QString &ErrDescription, int LineNumber)
{
    ErrorReport report;
    report.ModuleName = ModuleName.trimmed();
    report.ProcedureName = ProcedureName.trimmed();
    report.ErrNumber = ErrNumber;
    report.ErrDescription = secrets::withheld(ErrDescription.trimmed());
    report.LineNumber = LineNumber;
    return report;
}

bool ErrorHandler(const QString &ModuleName, const QString &ProcedureName, int ErrNumber,
                  const QString &ErrDescription, const QString &, int LineNumber)
{
    if (ErrNumber == 0)
        return false;
    const ErrorReport report =
        trimmedReport(ModuleName, ProcedureName, ErrNumber, ErrDescription, LineNumber);
    // A copy, since the form runs an event loop in which it may be replaced.
    if (const ErrorReportForm form = currentForm()) {
        form(report);
    } else {
        qWarning("%s/%s: %d %s", qUtf8Printable(report.ModuleName),
                 qUtf8Printable(report.ProcedureName), ErrNumber,
                 qUtf8Printable(report.ErrDescription));
    }
    return true;
}

ErrorReportForm setErrorReportForm(ErrorReportForm form)
{
    return std::exchange(currentForm(), std::move(form));
}

void connectErrorHandler()
{
    base::setErrorReporter(
        [](const QString &module, const QString &procedure, int number,
           const QString &description) { ErrorHandler(module, procedure, number, description); });
}

ErrorReportDetails ErrorReportDetails::of(const ErrorReport &report)
{
    ErrorReportDetails details;
    details.report = report;
    details.report.ErrDescription = secrets::withheld(report.ErrDescription);
    details.report.UserMsg = secrets::withheld(report.UserMsg);
    details.DBVersion = GetOption(u"DBVERSION"_s, false);
    details.AppVersion = GetVersionNo();
    details.MainApp = GetRegistryValue(u"MainApp"_s);
    details.ErrDateTime = base::now();
    details.UserName = base::environment().computerName;
    details.WindowVersion = gWindowsVersion.name;
    details.WinVersionNo = gWindowsVersion.version;
    details.ServicePack = gWindowsVersion.servicePack;
    return details;
}

QString htmlBody(const ErrorReportDetails &details)
{
    const ErrorReport &report = details.report;
    return heading(u"Product Information"_s) + boldLine(u"App Version:-"_s, details.AppVersion) +
           boldLine(u"DBVERSION:-"_s, details.DBVersion) +
           boldLine(u"MainApp:-"_s, details.MainApp) + u"<br><br>"_s +
           heading(u"Error Information"_s) +
           boldLine(u"Err DateTime:-"_s, base::toText(details.ErrDateTime)) +
           boldLine(u"Module Name:-"_s, report.ModuleName) +
           boldLine(u"Procedure Name:-"_s, report.ProcedureName) +
           boldLine(u"Err No:-"_s, QString::number(report.ErrNumber)) +
           boldLine(u"Description:-"_s, report.ErrDescription) +
           boldLine(u"Line Number:-"_s, QString::number(report.LineNumber)) +
           boldLine(u"User Email:-"_s, report.UserEmail) +
           boldLine(u"User Msg:-"_s, report.UserMsg) +
           boldLine(u"User Name:-"_s, details.UserName) + windowsLines(details);
}

QString updateReportHtml(const ErrorReportDetails &details, const QString &clientVersion)
{
    return heading(u"Product Information"_s) + boldLine(u"App Version:-"_s, details.AppVersion) +
           boldLine(u"DBVERSION:-"_s, details.DBVersion) +
           boldLine(u"CLIENTVESION:-"_s, clientVersion) +
           boldLine(u"User Email:-"_s, details.report.UserEmail) +
           boldLine(u"User Name:-"_s, details.UserName) + windowsLines(details);
}

QString plainBody(const ErrorReportDetails &details)
{
    const ErrorReport &report = details.report;
    const std::pair<QString, QString> lines[] = {
        {u" App Version:- "_s, details.AppVersion},
        {u" DBVERSION:- "_s, details.DBVersion},
        {u" MainApp:-"_s, details.MainApp},
        {u" Err Date Time:- "_s, base::toText(details.ErrDateTime)},
        {u" Module Name:- "_s, report.ModuleName},
        {u" Procedure Name:- "_s, report.ProcedureName},
        {u" Err No:- "_s, QString::number(report.ErrNumber)},
        {u" Description:- "_s, report.ErrDescription},
        {u" Line Number:-"_s, QString::number(report.LineNumber)},
        {u" User Email:-"_s, report.UserEmail},
        {u" User Msg:- "_s, report.UserMsg},
        {u" User Name:- "_s, details.UserName},
        {u" Windows Version:-"_s, details.WindowVersion},
        {u" Version number:- "_s, details.WinVersionNo},
        {u" Service Pack/misc:- "_s, details.ServicePack},
    };
    QString text;
    for (const auto &[label, value] : lines)
        text += label + value + u"\r\n"_s;
    return text;
}

QString mailtoAddress(const QString &mailbox, const QString &plainBody)
{
    return u"mailto:"_s + mailbox + u"?Subject=Error Report&Body="_s + addressText(plainBody);
}

void storeError(const ErrorReport &report)
{
    if (!gcnLookup)
        return;
    gcnLookup->Execute(
        u"Insert into tblErrorList(ErrNumber,ErrDescription,LineNumber,UserMsg,ModuleName,"
        u"ProcedureName,ErrDateTime,UserEmail) values(?,?,?,?,?,?,?,?)"_s,
        {QString::number(report.ErrNumber), secrets::withheld(report.ErrDescription),
         QString::number(report.LineNumber), secrets::withheld(report.UserMsg), report.ModuleName,
         report.ProcedureName, base::toText(base::now()), report.UserEmail});
}

const ReportTransport &reportTransport()
{
    return currentTransport();
}

void setReportTransport(ReportTransport transport)
{
    currentTransport() = std::move(transport);
}

QString reportSenderName()
{
    return u"Quorvantis--Administrator"_s;
}

QString reportSubject(const QString &senderAddress)
{
    return u"User---"_s + senderAddress;
}
