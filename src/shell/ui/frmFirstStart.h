#pragma once

#include "core/ui/Screen.h"
#include "shell/FirstStart.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace input {
class PhoneInput;
}

/// Asks a new company for its name, address and password, and leads to the import of what it has.
class frmFirstStart : public Screen
{
    Q_OBJECT

public:
    explicit frmFirstStart(QWidget *parent = nullptr);

private:
    void buildForm();
    /// Greys the password when somebody has given one already.
    void closePasswordOnceGiven();
    /// What the boxes hold; a phone number without digits is none.
    [[nodiscard]] shell::FirstSteps steps() const;
    /// Stores what was entered; False after telling what is missing or in the way.
    [[nodiscard]] bool store();

    void cmdSave_Click();
    void cmdImport_Click();

    QLineEdit *txtCompanyName = nullptr;
    QLineEdit *txtCompanyAddress1 = nullptr;
    QLineEdit *txtCompanyAddress2 = nullptr;
    input::PhoneInput *txtCompanyPhone = nullptr;
    QLineEdit *txtCompanyEmail = nullptr;
    QLineEdit *txtCompanyWebSite = nullptr;
    QLineEdit *txtNewPassword = nullptr;
    QLineEdit *txtConfirmPassword = nullptr;
    QCheckBox *chkSecurity = nullptr;
    QPushButton *cmdImport = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdLater = nullptr;
};
