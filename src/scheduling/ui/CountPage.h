#pragma once

#include "scheduling/ui/MachineScreen.h"

#include <QWidget>

class QPushButton;
class ReadingTrend;

namespace grid {
class GridView;
}

/// The meter readings of a machine, as a page of its screen. Writes at once, inside the transaction
/// that the machine's screen holds.
class CountPage final : public QWidget
{
    Q_OBJECT

public:
    explicit CountPage(MachineScreen screen, QWidget *parent = nullptr);

    /// Shows the readings of a machine, of none for 0.
    void RefreshCountGrid(qint64 EquipmentID);
    /// The same for the machine on show.
    void RefreshCountGrid() { RefreshCountGrid(m_equipment); }
    [[nodiscard]] qint64 EquipmentID() const { return m_equipment; }
    /// True when the machine has readings.
    [[nodiscard]] bool hasContent() const;
    /// False locks the buttons.
    void setMayEdit(bool may);
    /// The grid, grdCount.
    [[nodiscard]] grid::GridView *grid() const { return grdCount; }

private:
    void buildPage();
    void EnableControls();
    void cmdAddCount_Click();
    void cmdDeleteCount_Click();

    MachineScreen m_screen;
    qint64 m_equipment = 0;
    bool m_mayEdit = true;

    grid::GridView *grdCount = nullptr;
    ReadingTrend *m_trend = nullptr;
    QPushButton *cmdAddCount = nullptr;
    QPushButton *cmdDeleteCount = nullptr;
};
