#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

/// A run-time error on its way to the user and the makers: what is reported, how it reads in a
/// mail, and where it is kept.
struct ErrorReport
{
    QString ModuleName;
    QString ProcedureName;
    int ErrNumber = 0;
    QString ErrDescription;
    int LineNumber = 0;
    QString UserMsg;   ///< what the user adds
    QString UserEmail; ///< the sender's address
};

/// A report of these values without blanks around them.
[[nodiscard]] ErrorReport trimmedReport(const QString &ModuleName, const QString &ProcedureName,
                                        int ErrNumber, const QString &ErrDescription,
                                        int LineNumber);

/// Reports an error and waits until its form is closed; False without one (number 0), else True.
bool ErrorHandler(const QString &ModuleName, const QString &ProcedureName, int ErrNumber,
                  const QString &ErrDescription, const QString &ExtraText = {}, int LineNumber = 0);

/// Shows one error modally and comes back when its form is closed.
using ErrorReportForm = std::function<void(const ErrorReport &)>;
/// Sets what ErrorHandler shows an error with; returns the one set before. Without one an error
/// goes to the log only.
ErrorReportForm setErrorReportForm(ErrorReportForm form);
/// Hands every trapped error to ErrorHandler, and errors of ErrorHandler's own form to the log.
void connectErrorHandler();

/// The report with what the program knows about itself, in the wording of the mail.
struct ErrorReportDetails
{
    ErrorReport report;
    QString AppVersion; ///< registry value "VERSION"
    QString DBVersion;  ///< option "DBVERSION"
    QString MainApp;    ///< registry value "MainApp"
    QDateTime ErrDateTime;
    QString UserName; ///< name of the computer
    QString WindowVersion;
    QString WinVersionNo;
    QString ServicePack;

    /// Reads the rest of the details beside a report.
    static ErrorReportDetails of(const ErrorReport &report);
};

/// The mail's text in HTML.
[[nodiscard]] QString htmlBody(const ErrorReportDetails &details);
/// The same as plain text with "\r\n" at each line end.
[[nodiscard]] QString plainBody(const ErrorReportDetails &details);
/// The HTML of the mail that goes with the script of an update that has failed; the details say
/// what the program knows about itself, and the address in their report who sends it.
[[nodiscard]] QString updateReportHtml(const ErrorReportDetails &details,
                                       const QString &clientVersion);
/// A "mailto:" address that opens the user's own mail program on the plain text.
[[nodiscard]] QString mailtoAddress(const QString &mailbox, const QString &plainBody);

/// Adds the report to tblErrorList, at the current time. On Lookup, so that the row stays when the
/// failed work on Data is rolled back; does nothing while no database is open. Raises.
void storeError(const ErrorReport &report);

/// One mail of the program's to its makers.
struct ReportMail
{
    QString sender;     ///< the user's address
    QString senderName; ///< the sender's display text
    QString subject;
    QString html;
    QString attachment; ///< full path of a file, empty for none
};

/// The way to the makers. What is not set up stays empty: without sendMail a report counts as
/// failed and goes to the user's own mail program.
struct ReportTransport
{
    /// Adds the report to the makers' own store; raises when that fails, base::Cancelled when the
    /// user ends it.
    std::function<void(const ErrorReportDetails &)> storeRemote;
    /// Sends a mail; False when no way for it is set up. Raises when it could not be sent,
    /// base::Cancelled when the user ends it.
    std::function<bool(const ReportMail &)> sendMail;
    /// Mailbox for reports from the user's own mail program.
    QString mailbox;
};
/// The way that the application has set at its start; all of it empty before.
const ReportTransport &reportTransport();
void setReportTransport(ReportTransport transport);

/// The sender's display text in all mails to the makers.
[[nodiscard]] QString reportSenderName();
/// "User---" and the address.
[[nodiscard]] QString reportSubject(const QString &senderAddress);
