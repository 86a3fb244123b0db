#pragma once

#include "core/ui/Screen.h"

class QLabel;
class QPushButton;

/// The sheet of the meters that have not been read lately, for entering readings one below the
/// other. All are dated today.
class frmEquipmentReading final : public Screen
{
    Q_OBJECT

public:
    explicit frmEquipmentReading(QWidget *parent = nullptr);

protected:
    void EnableControls() override;
    bool mayClose() override { return mode() == Mode::Browse; }

private:
    void buildForm();
    void RefreshRecordSet();
    [[nodiscard]] bool countEntered(int row, const QVariant &value);
    void cmdUpdate_Click();
    void cmdCancel_Click();

    QLabel *lblHeading = nullptr;
    grid::GridView *grdReading = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdExit = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
};
