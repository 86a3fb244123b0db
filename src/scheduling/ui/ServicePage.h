#pragma once

#include "scheduling/ui/MachineScreen.h"

#include <QWidget>

class QPushButton;

namespace grid {
class GridView;
}

/// The services of a machine, as a page of its screen: the grid with its rules, and the buttons to
/// add, open and remove services. Writes at once, inside the transaction that the machine's screen
/// holds.
///
///     auto *page = new ServicePage({...}, this);
///     adoptGrid(page->grid(), page->grid()->objectName());
///     page->RefreshServiceGrid(equipmentID);
class ServicePage final : public QWidget
{
    Q_OBJECT

public:
    explicit ServicePage(MachineScreen screen, QWidget *parent = nullptr);

    /// Shows the services of a machine, of none for 0. The current row stays as far as it is still
    /// there.
    void RefreshServiceGrid(qint64 EquipmentID);
    /// The same for the machine on show.
    void RefreshServiceGrid() { RefreshServiceGrid(m_equipment); }
    [[nodiscard]] qint64 EquipmentID() const { return m_equipment; }
    /// True when the machine has services.
    [[nodiscard]] bool hasContent() const;
    /// False locks the cells and the buttons that change something; opening a service stays.
    void setMayEdit(bool may);
    /// The grid, grdService.
    [[nodiscard]] grid::GridView *grid() const { return grdService; }
    /// Stores what stands in an open cell editor; False when the value was refused. Ask before
    /// saving.
    [[nodiscard]] bool finishEditing();

private:
    void buildPage();
    void EnableControls();
    void cmdAddNewService_Click();
    void cmdSelectService_Click();
    void cmdRemoveService_Click();
    [[nodiscard]] bool grdService_Edit(int row, const QString &column) const;
    [[nodiscard]] bool grdService_Change(int row, const QString &column, const QVariant &value);
    [[nodiscard]] bool changeCell(int row, const QString &column, const QVariant &value);
    [[nodiscard]] bool changeNextSchedule(int row, const QVariant &value);
    [[nodiscard]] bool changeNextCount(int row, const QVariant &value);
    /// The labour cost that follows from crew and hours, and the date that a waiting service gets
    /// of the reading that has reached its new count.
    void showWhatFollows(int row, const QString &column);
    /// Writes a changed cell into its field.
    [[nodiscard]] bool update(int row, const QString &column, const QString &field,
                              const QVariant &value);
    [[nodiscard]] qint64 serviceOf(int row) const;

    MachineScreen m_screen;
    qint64 m_equipment = 0;
    bool m_mayEdit = true;

    grid::GridView *grdService = nullptr;
    QPushButton *cmdAddNewService = nullptr;
    QPushButton *cmdSelectService = nullptr;
    QPushButton *cmdRemoveService = nullptr;
};
