#pragma once

#include "scheduling/ui/GridPage.h"

class QPushButton;

/// The documents of a machine.
class DocumentsPage final : public GridPage
{
    Q_OBJECT

public:
    explicit DocumentsPage(MachineFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;

private:
    void RefreshDocumentGrid(qint64 equipmentID);
    void EnableControls() override;
    void cmdAddDocument_Click();
    void cmdRemoveDocument_Click();
    /// Opens the file with the program that the workstation has for it.
    void cmdPreview_Click();

    grid::GridView *grdDocument = nullptr;
    QPushButton *cmdAddDocument = nullptr;
    QPushButton *cmdRemoveDocument = nullptr;
    QPushButton *cmdPreview = nullptr;
};
