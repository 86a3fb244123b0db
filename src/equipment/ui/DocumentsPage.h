#pragma once

#include "equipment/ui/EquipmentPage.h"

class QPushButton;

/// The documents of a machine.
class DocumentsPage final : public EquipmentPage
{
    Q_OBJECT

public:
    explicit DocumentsPage(EquipmentFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;
    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    void pageShown() override;

private:
    void RefreshDocumentGrid(qint64 equipmentID);
    void EnableControls();
    void cmdAddDocument_Click();
    void cmdRemoveDocument_Click();
    void cmdPreview_Click();
    [[nodiscard]] QString currentName() const;

    qint64 m_equipment = 0;
    bool m_editable = false;

    grid::GridView *grdDocument = nullptr;
    QPushButton *cmdAddDocument = nullptr;
    QPushButton *cmdRemoveDocument = nullptr;
    QPushButton *cmdPreview = nullptr;
};
