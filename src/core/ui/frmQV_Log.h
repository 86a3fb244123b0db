#pragma once

#include "core/ui/Screen.h"

class QPlainTextEdit;
class QPushButton;

/// Shows the log of the import, "\Log\QVLog.txt".
class frmQV_Log : public Screen
{
    Q_OBJECT

public:
    explicit frmQV_Log(QWidget *parent = nullptr);

    /// Shows the log modally.
    static void ShowQV_LogDetails(QWidget *parent = nullptr);

private:
    void buildForm();
    void load();
    void cmdExit_Click();

    QPlainTextEdit *txtLog = nullptr;
    QPushButton *cmdExit = nullptr;
};
