#pragma once

#include "administration/Backup.h"
#include "core/ui/Screen.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace input {
class SpinInput;
}

/// A backup to a folder of the user's choice, and what is kept without asking.
class frmbackup : public Screen
{
    Q_OBJECT

public:
    explicit frmbackup(QWidget *parent = nullptr);

private:
    void buildForm();
    void buildBackup();
    void buildCopies();
    void refillName();
    void showPlan();
    [[nodiscard]] administration::BackupRequest request() const;
    /// Tells why it can't be met; True when it can.
    [[nodiscard]] bool mayTake(const administration::BackupRequest &request);

    void cmdBrowse_Click();
    void cmdBackup_Click();
    void chkSealed_Click();
    void cmdSecondPlace_Click();
    void cmdSavePlan_Click();

    QLineEdit *txtFolderPath = nullptr;
    QToolButton *cmdBrowse = nullptr;
    QLineEdit *txtFileName = nullptr;
    QCheckBox *chkSealed = nullptr;
    QLineEdit *txtPassphrase = nullptr;
    QLineEdit *txtPassphraseAgain = nullptr;
    input::SpinInput *spnDays = nullptr;
    input::SpinInput *spnWeeks = nullptr;
    input::SpinInput *spnMonths = nullptr;
    QLineEdit *txtSecondPlace = nullptr;
    QToolButton *cmdSecondPlace = nullptr;
    QPushButton *cmdSavePlan = nullptr;
    QPushButton *cmdBackup = nullptr;
    QPushButton *cmdExit = nullptr;
};
