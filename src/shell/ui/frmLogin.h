#pragma once

#include "core/ui/Screen.h"
#include "shell/Login.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for name and password before the main window opens. Three attempts.
class frmLogin : public Screen
{
    Q_OBJECT

public:
    explicit frmLogin(QWidget *parent = nullptr);

    /// Shows the dialog modally. Result is True when a user logged in.
    static void ShowLoginForm(bool &Result);

private:
    void buildForm();
    void cmdContinue_Click();
    void cmdCancel_Click();
    /// Leads to where the mistake is likely: an empty name, else the password.
    void askAgain();

    QLabel *lblProductName = nullptr;
    QLabel *lblVersion = nullptr;
    QLineEdit *txtUserName = nullptr;
    QLineEdit *txtPassword = nullptr;
    QPushButton *cmdContinue = nullptr;
    QPushButton *cmdCancel = nullptr;

    shell::LoginAttempts m_attempts;
    bool m_cancelled = true;
};
