#pragma once

#include "core/ui/Screen.h"

class QLineEdit;
class QPushButton;

/// A user's change of the own password.
class frmChangePassword : public Screen
{
    Q_OBJECT

public:
    explicit frmChangePassword(QWidget *parent = nullptr);

    /// Lets the user of this session change the password. Waits until the screen is closed.
    static void ShowSystemSettings();

private:
    void buildForm();
    /// Tells the first thing that is wrong and leads there, or stores and closes.
    void cmdSave_Click();
    void cmdExit_Click();

    QLineEdit *txtOldPassword = nullptr;
    QLineEdit *txtNewPassword = nullptr;
    QLineEdit *txtConfirmPassword = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdExit = nullptr;
};
