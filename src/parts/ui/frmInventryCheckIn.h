#pragma once

#include "core/ui/Screen.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

/// Adds received goods to the stock of parts.
class frmInventryCheckIn final : public Screen
{
    Q_OBJECT

public:
    explicit frmInventryCheckIn(QWidget *parent = nullptr);

protected:
    void EnableControls() override;
    bool mayClose() override { return mode() == Mode::Browse; }

private:
    void buildForm();
    /// Reads the stock anew; what was typed goes.
    void ShowGrid();
    /// Nothing has been received yet.
    void FillValue();
    /// Adds what was typed to the stock as it stands by now, all or nothing. What was typed stays
    /// when another workstation is in the way.
    void SaveChanges();

    QLineEdit *txtSearch = nullptr;
    QCheckBox *chkReorder = nullptr;
    grid::GridView *grdParts = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
