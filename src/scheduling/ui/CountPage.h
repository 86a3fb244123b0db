#pragma once

#include "scheduling/ui/GridPage.h"

class QPushButton;
class ReadingTrend;

/// The meter readings of a machine, on a page of its screen.
class CountPage final : public GridPage
{
    Q_OBJECT

public:
    explicit CountPage(MachineFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;

Q_SIGNALS:
    /// Readings came or went: services may have fallen due.
    void readingsChanged();

protected:
    void EnableControls() override;

private:
    void buildPage();
    void RefreshCountGrid(qint64 EquipmentID);
    void cmdAddCount_Click();
    void cmdDeleteCount_Click();
    /// Shows the readings anew and tells the others of the change.
    void showChanged();

    grid::GridView *grdCount = nullptr;
    ReadingTrend *m_trend = nullptr;
    QPushButton *cmdAddCount = nullptr;
    QPushButton *cmdDeleteCount = nullptr;
};
