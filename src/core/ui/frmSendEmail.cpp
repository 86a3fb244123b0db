#include "core/ui/frmSendEmail.h"

#include "core/Options.h"
#include "core/Permission.h"
#include "core/Secrets.h"
#include "core/ui/Launch.h"
#include "core/ui/SenderCheck.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Steps.h"
#include "platform/db/DbError.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/system/Open.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString SenderOption = u"GEN_COMPANY_EMAIL"_s;
constexpr int LongestEmail = 100;
constexpr int DescriptionHeight = 72; // pixels
constexpr QSize FirstSize(500, 560);

/// How many report forms are loading, sending or unloading now. They read and write options, and an
/// error there must not open one form after another.
int quiet = 0;

struct Quiet
{
    Quiet() { ++quiet; }
    ~Quiet() { --quiet; }
    Quiet(const Quiet &) = delete;
    Quiet &operator=(const Quiet &) = delete;
};

class CursorShape
{
public:
    explicit CursorShape(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~CursorShape() { QGuiApplication::restoreOverrideCursor(); }
    CursorShape(const CursorShape &) = delete;
    CursorShape &operator=(const CursorShape &) = delete;
};

void showReport(const ErrorReport &report)
{
    // Nothing is broken, so there is nothing to report.
    if (report.ErrNumber == rights::Refused::Number)
        return base::showInformation(report.ErrDescription);
    if (report.ErrNumber == db::ErrorNumber::LockConflict)
        return base::showMessage(report.ErrDescription);
    if (quiet > 0) {
        qWarning("%s/%s: %d %s", qUtf8Printable(report.ModuleName),
                 qUtf8Printable(report.ProcedureName), report.ErrNumber,
                 qUtf8Printable(report.ErrDescription));
        return;
    }
    int result = 0;
    frmSendEmail::ShowErrorReportDetails(report.ModuleName, report.ProcedureName, report.ErrNumber,
                                         report.ErrDescription, report.LineNumber, result);
}

} // namespace

frmSendEmail::frmSendEmail(const ErrorReport &report, QWidget *parent)
    : Screen(u"frmSendEmail"_s, u"Error Report"_s, parent, StoreWhat::SizeOnly)
    , m_report(report)
{
    const Quiet loading;
    resize(FirstSize);
    buildForm();
    load();
}

void frmSendEmail::ShowErrorReportDetails(const QString &ModuleName, const QString &ProcedureName,
                                          int ErrNumber, const QString &ErrDescription,
                                          int LineNumber, int &Result)
{
    const ErrorReport report =
        trimmedReport(ModuleName, ProcedureName, ErrNumber, ErrDescription, LineNumber);
    // The procedure that failed may have set the wait cursor.
    const CursorShape arrow(Qt::ArrowCursor);
    frmSendEmail form(report, QApplication::activeWindow());
    form.showModal();
    Result = 1;
}

void frmSendEmail::buildForm()
{
    input::FormBuilder form(this);
    lblHeading = form.note(u"Quorvantis"_s, u"lblHeading"_s);
    theme::setOwnLook(lblHeading, theme::font(14, true));
    form.note(u"An error has occurred during the process."_s, u"lblOccurred"_s);
    form.note(u"Please send us the error report simply by clicking on the Send button."_s,
              u"lblPlease"_s);
    txtModuleName = form.textField(u"txtModuleName"_s, u"Module Name:"_s);
    txtProcedureName = form.textField(u"txtProcedureName"_s, u"Procedure Name:"_s);
    txtErrNumber = form.textField(u"txtErrNumber"_s, u"Error Number:"_s);
    txtErrDescription = form.memoField(u"txtErrDescription"_s, u"Error Description:"_s, 3);
    txtLineNumber = form.textField(u"txtLineNumber"_s, u"Line Number:"_s);
    txtEmail = form.textField(u"txtEmail"_s, u"Sender &Email:"_s, LongestEmail);
    form.note(u"Please describe the steps that produced the error."_s, u"lblSteps"_s);
    txtUserMsg = new QPlainTextEdit(this);
    txtUserMsg->setObjectName(u"txtUserMsg"_s);
    txtUserMsg->setAccessibleName(u"Steps that produced the error"_s);
    txtUserMsg->setTabChangesFocus(true);
    form.widget(txtUserMsg, true);
    lblFailure = form.note(QString(), u"lblFailure"_s);
    lblFailure->hide();
    lblProgress = form.note(u"Sending Error Report....."_s, u"lblProgress"_s);
    prgSend = new QProgressBar(this);
    prgSend->setObjectName(u"prgSend"_s);
    prgSend->setAccessibleName(u"Sending Error Report"_s);
    prgSend->setTextVisible(false);
    form.widget(prgSend);
    cmdSend = form.button(u"cmdSend"_s, u"&Send"_s, theme::icon(u"mail"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();

    for (QLineEdit *box : {txtModuleName, txtProcedureName, txtErrNumber, txtLineNumber})
        box->setReadOnly(true);
    txtErrDescription->setReadOnly(true);
    txtErrDescription->setMaximumHeight(DescriptionHeight);
    QPalette grey = txtErrDescription->palette();
    grey.setColor(QPalette::Base, theme::panelColor());
    txtErrDescription->setPalette(grey);
    cmdSend->setDefault(true);
    showProgress(false);
    connect(cmdSend, &QPushButton::clicked, this, &frmSendEmail::cmdSend_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmSendEmail::cmdExit_Click);
}

void frmSendEmail::load()
{
    txtModuleName->setText(m_report.ModuleName);
    txtProcedureName->setText(m_report.ProcedureName);
    txtErrNumber->setText(QString::number(m_report.ErrNumber));
    txtErrDescription->setPlainText(m_report.ErrDescription);
    txtLineNumber->setText(QString::number(m_report.LineNumber));
    txtEmail->setText(GetOption(SenderOption, false).trimmed());
    if (txtEmail->text().isEmpty())
        txtEmail->setFocus();
    else
        txtUserMsg->setFocus();
}

void frmSendEmail::setVisible(bool visible)
{
    const Quiet placing;
    Screen::setVisible(visible);
}

void frmSendEmail::reject()
{
    cmdExit_Click();
}

void frmSendEmail::done(int result)
{
    const Quiet storing;
    Screen::done(result);
}

void frmSendEmail::unloading()
{
    // SetOption doubles the apostrophes once more, and so they are kept.
    SetOption(SenderOption, base::doubledQuotes(txtEmail->text()), false);
}

ErrorReport frmSendEmail::entered() const
{
    ErrorReport report = m_report;
    report.UserMsg = txtUserMsg->toPlainText();
    report.UserEmail = txtEmail->text();
    return report;
}

void frmSendEmail::showProgress(bool sending)
{
    lblProgress->setVisible(sending);
    prgSend->setVisible(sending);
    prgSend->setRange(0, 0);
    cmdSend->setEnabled(!sending);
    cmdExit->setEnabled(!sending);
    if (sending)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSendEmail::cmdSend_Click()
{
    if (!VailidateFields(txtEmail))
        return;
    const Quiet sending;
    const ErrorReportDetails details = ErrorReportDetails::of(entered());
    showProgress(true);
    try {
        if (send(details))
            poSendMail_SendSuccesful();
        else if (poSendMail_SendFailed(details))
            unload();
    } catch (const base::Cancelled &) {
        tellFailure(u"The report was not sent."_s);
    }
    showProgress(false);
    cmdExit->setFocus();
}

bool frmSendEmail::send(const ErrorReportDetails &details)
{
    const CursorShape wait(Qt::WaitCursor);
    const ReportTransport &transport = reportTransport();
    try {
        // A second try after a failed mail must not store the report twice.
        if (transport.storeRemote && !m_storedRemote) {
            transport.storeRemote(details);
            m_storedRemote = true;
        }
        return transport.sendMail &&
               transport.sendMail({details.report.UserEmail, reportSenderName(),
                                   reportSubject(details.report.UserEmail), htmlBody(details),
                                   QString()});
    } catch (const base::Cancelled &) {
        throw;
    } catch (const base::Error &error) {
        qWarning("error report: %s", qUtf8Printable(secrets::withheld(error.description())));
        return false;
    }
}

void frmSendEmail::tellFailure(const QString &text)
{
    lblFailure->setText(text);
    lblFailure->show();
}

void frmSendEmail::poSendMail_SendSuccesful()
{
    base::showInformation(u"Thank You for reporting this error. This goes directly to our "
                          u"programmers for diagnosis and repair."_s);
    showProgress(false);
    unload();
}

bool frmSendEmail::poSendMail_SendFailed(const ErrorReportDetails &details)
{
    const bool kept = m_saved || SaveErrorList();
    try {
        sys::openWithDefault(mailtoAddress(reportTransport().mailbox, plainBody(details)));
        return kept;
    } catch (const base::Error &) {
        tellFailure(u"The report could not be sent, and no mail program could be opened for it."_s +
                    (kept ? u" It is kept in the error list of the database."_s
                          : u" Nor could it be kept in the error list of the database."_s));
        return false;
    }
}

bool frmSendEmail::SaveErrorList()
{
    try {
        storeError(entered());
        m_saved = true;
    } catch (const base::Error &error) {
        m_cantBeSaved = true;
        tellFailure(u"The error could not be kept in the error list of the database: "_s +
                    error.description());
    }
    return m_saved;
}

void frmSendEmail::cmdExit_Click()
{
    // Who leaves without sending has the report kept; where it could not be, the form closes all
    // the same the next time.
    if (m_saved || m_cantBeSaved || SaveErrorList())
        unload();
}

void installErrorReport()
{
    setErrorReportForm(showReport);
    connectErrorHandler();
}
