#pragma once

#include "equipment/ui/RecordPage.h"

class QLabel;
class QPushButton;
class DepreciationChart;

/// The straight-line depreciation of a machine: what it is worked out from, the stored schedule and
/// its curve.
class DepreciationPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit DepreciationPage(MachineFrame &frame, QWidget *parent = nullptr);

    void DisplayData(const clsEquipment &machine, const db::Row &row) override;
    void ClearData() override;
    void showMachine(qint64 EquipmentID) override;
    void setEditable(bool editable) override;

    /// Shows another purchase year until the machine is shown again.
    void setPurchaseYear(const QString &year);

private:
    void buildPage();
    void RefreshDepreciationGrid(qint64 EquipmentID);
    /// False when a schedule can't be worked out of what the boxes hold, which is told.
    [[nodiscard]] bool ValidationDepreciation();
    /// Works the schedule out and stores it at once in place of the one before.
    void cmdRecalculate_Click();
    /// Only for a machine whose acquisition is stored, by those who may change it.
    void enableRecalculate();

    qint64 m_equipment = 0;
    bool m_editable = false;
    bool m_isAcquired = false; ///< the machine as stored has an acquisition date

    QLabel *lblPurchaseYear = nullptr;
    QLineEdit *txtTotalCost = nullptr;
    QLineEdit *txtSalvageValue = nullptr;
    QLineEdit *txtAssetYears = nullptr;
    QPushButton *cmdRecalculate = nullptr;
    grid::GridView *grdDepreciation = nullptr;
    DepreciationChart *m_chart = nullptr;
};
