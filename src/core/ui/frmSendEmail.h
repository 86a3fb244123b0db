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
    [[nodiscard]] bool VailidateFields();
    void cmdSend_Click();
    void cmdExit_Click();
    void poSendMail_SendSuccesful();
    void poSendMail_SendFailed(const ErrorReportDetails &details);
    void SaveErrorList();
    void showProgress(bool sending);
    /// The report with what the user has entered.
    [[nodiscard]] ErrorReport entered() const;

    ErrorReport m_report;
    bool m_saved = false;

    QLabel *lblHeading = nullptr;
    QLineEdit *txtModuleName = nullptr;
    QLineEdit *txtProcedureName = nullptr;
    QLineEdit *txtErrNumber = nullptr;
    QPlainTextEdit *txtErrDescription = nullptr;
    QLineEdit *txtLineNumber = nullptr;
    QLineEdit *txtEmail = nullptr;
    QPlainTextEdit *txtUserMsg = nullptr;
    QLabel *lblProgress = nullptr;
    QProgressBar *prgSend = nullptr;
    QPushButton *cmdSend = nullptr;
    QPushButton *cmdExit = nullptr;
};

/// Lets ErrorHandler show its errors in frmSendEmail, and hands it every trapped error.
void installErrorReport();
