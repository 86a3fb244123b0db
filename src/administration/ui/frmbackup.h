#pragma once

#include "administration/Backup.h"
#include "core/ui/Screen.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

/// A backup to a folder of the user's choice, and what is kept without asking.
class frmbackup : public Screen
{
    Q_OBJECT

public:
    explicit frmbackup(QWidget *parent = nullptr);

private:
    void buildForm();
    void refillName();
    /// Which copies the program makes by itself, and where.
    void showPlan();
    [[nodiscard]] administration::BackupRequest request() const;
    /// Tells why it can't be met; True when it can.
    [[nodiscard]] bool mayTake(const administration::BackupRequest &request);

    void cmdBrowse_Click();
    void cmdBackup_Click();
    void chkSealed_Click();

    QLineEdit *txtFolderPath = nullptr;
    QToolButton *cmdBrowse = nullptr;
    QLineEdit *txtFileName = nullptr;
    QCheckBox *chkSealed = nullptr;
    QLineEdit *txtPassphrase = nullptr;
    QLineEdit *txtPassphraseAgain = nullptr;
    QLabel *lblPlan = nullptr;
    QPushButton *cmdPlan = nullptr;
    QPushButton *cmdBackup = nullptr;
    QPushButton *cmdExit = nullptr;
};
