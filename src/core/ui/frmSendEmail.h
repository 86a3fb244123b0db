#pragma once

#include "core/ErrorReport.h"
#include "core/ui/Screen.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

/// Shows a run-time error and offers to send it to the makers. Every error that is shown here
/// comes into tblErrorList at most once: when the form is closed unsent, or when sending failed.
/// What goes wrong with the report itself is told in the form, which then stays open: another form
/// for it would fail in the same way.
class frmSendEmail : public Screen
{
    Q_OBJECT

public:
    explicit frmSendEmail(const ErrorReport &report, QWidget *parent = nullptr);

    /// Shows an error modally; Result becomes 1.
    static void ShowErrorReportDetails(const QString &ModuleName, const QString &ProcedureName,
                                       int ErrNumber, const QString &ErrDescription, int LineNumber,
                                       int &Result);

    void setVisible(bool visible) override;
    void reject() override;
    void done(int result) override;

protected:
    void unloading() override;

private:
    void buildForm();
    void load();
    void cmdSend_Click();
    void cmdExit_Click();
    void poSendMail_SendSuccesful();
    /// Hands the report to the user's own mail program; False when something went wrong with that.
    [[nodiscard]] bool poSendMail_SendFailed(const ErrorReportDetails &details);
    /// False, after telling why, when the row could not be stored.
    [[nodiscard]] bool SaveErrorList();
    /// True when the makers have got the report. Raises base::Cancelled.
    [[nodiscard]] bool send(const ErrorReportDetails &details);
    void tellFailure(const QString &text);
    void showProgress(bool sending);
    /// The report with what the user has entered.
    [[nodiscard]] ErrorReport entered() const;

    ErrorReport m_report;
    bool m_saved = false;
    bool m_storedRemote = false; ///< in the makers' store, which a second try must not fill twice
    bool m_cantBeSaved = false;  ///< told once, and not tried again when the form is closed

    QLabel *lblHeading = nullptr;
    QLineEdit *txtModuleName = nullptr;
    QLineEdit *txtProcedureName = nullptr;
    QLineEdit *txtErrNumber = nullptr;
    QPlainTextEdit *txtErrDescription = nullptr;
    QLineEdit *txtLineNumber = nullptr;
    QLineEdit *txtEmail = nullptr;
    QPlainTextEdit *txtUserMsg = nullptr;
    QLabel *lblFailure = nullptr;
    QLabel *lblProgress = nullptr;
    QProgressBar *prgSend = nullptr;
    QPushButton *cmdSend = nullptr;
    QPushButton *cmdExit = nullptr;
};

/// Lets ErrorHandler show its errors in frmSendEmail, and hands it every trapped error.
void installErrorReport();
