#pragma once

#include "core/ui/Screen.h"

class QPushButton;

/// The program and its version.
class frmAbout : public Screen
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget *parent = nullptr);

    /// Waits until it is closed.
    static void ShowAbout();

private:
    QPushButton *cmdOK = nullptr;
};
