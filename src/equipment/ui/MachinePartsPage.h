#pragma once

#include "equipment/ui/EquipmentPage.h"

class QPushButton;

/// The parts that a machine takes.
class MachinePartsPage final : public EquipmentPage
{
    Q_OBJECT

public:
    explicit MachinePartsPage(EquipmentFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;
    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    void pageShown() override;

private:
    void RefreshPartGrid(qint64 equipmentID);
    void EnableControls();
    void cmdAddNewPart_Click();
    void cmdRemovePart_Click();

    qint64 m_equipment = 0;
    bool m_editable = false;

    grid::GridView *grdPart = nullptr;
    QPushButton *cmdAddNewPart = nullptr;
    QPushButton *cmdRemovePart = nullptr;
};
