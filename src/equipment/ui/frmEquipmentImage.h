#pragma once

#include "core/ui/Screen.h"

class PictureView;
class QLineEdit;
class QPushButton;

/// Adds one picture to a machine.
class frmEquipmentImage final : public Screen
{
    Q_OBJECT

public:
    explicit frmEquipmentImage(qint64 equipmentID, QWidget *parent = nullptr);

    /// Shows the screen for a machine and waits. The name of the picture that was added, empty
    /// without one.
    static QString ShowEquipmentImageDetail(qint64 equipmentID, QWidget *parent = nullptr);

private:
    void buildForm();
    /// Shows what the file holds; nothing when it is no picture.
    void showPreview();
    void cmdBrowse_Click();
    void cmdSave_Click();
    [[nodiscard]] bool VailidateFields();

    qint64 m_equipment;
    QString m_added;

    QLineEdit *txtFilePath = nullptr;
    QLineEdit *txtFileName = nullptr;
    PictureView *imgPreview = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdExit = nullptr;
};
