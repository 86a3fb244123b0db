#pragma once

#include "scheduling/ui/GridPage.h"

class QPushButton;

/// The parts that a machine takes.
class MachinePartsPage final : public GridPage
{
    Q_OBJECT

public:
    explicit MachinePartsPage(MachineFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;

private:
    void RefreshPartGrid(qint64 equipmentID);
    void EnableControls() override;
    /// Adds what the list of parts hands over. A failure cancels the whole edit.
    void cmdAddNewPart_Click();
    void cmdRemovePart_Click();

    grid::GridView *grdPart = nullptr;
    QPushButton *cmdAddNewPart = nullptr;
    QPushButton *cmdRemovePart = nullptr;
};
