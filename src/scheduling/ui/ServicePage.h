#pragma once

#include "platform/grid/GridTypes.h"
#include "scheduling/ui/GridPage.h"

class QPushButton;

/// The services of a machine, on a page of its screen: the grid with its rules, and the buttons to
/// add, open and remove services.
class ServicePage final : public GridPage
{
    Q_OBJECT

public:
    explicit ServicePage(MachineFrame &frame, QWidget *parent = nullptr);

    /// Shows the services; the current row stays as far as it is still there.
    void showMachine(qint64 EquipmentID) override;

Q_SIGNALS:
    /// Services came, went or changed: the targets of readings may have, too.
    void servicesChanged();

protected:
    /// A locked page still opens a service.
    void EnableControls() override;

private:
    using Change = std::function<bool(int row, const QVariant &value)>;
    /// Where a cell is stored, and what stands there for an empty one.
    struct Stored
    {
        QString column;
        QString field;
        QVariant empty = 0;
    };

    void buildPage();
    [[nodiscard]] QList<grid::Column> columns();
    void RefreshServiceGrid(qint64 EquipmentID);
    /// Shows the services anew and tells the others of the change.
    void showChanged();
    void cmdAddNewService_Click();
    void cmdSelectService_Click();
    void cmdRemoveService_Click();
    [[nodiscard]] bool grdService_Change(const Change &change, int row, const QVariant &value);
    /// A change that is followed by the labour cost of crew and hours. It stays where the cost
    /// can't be worked out.
    [[nodiscard]] Change withLabourCost(const Change &change);
    /// A change that gives a waiting service the date of the reading that has reached its count.
    [[nodiscard]] Change withReachedDate(const Change &change);
    [[nodiscard]] bool changeNextSchedule(int row, const QVariant &value);
    [[nodiscard]] bool changeNextCount(int row, const QVariant &value);
    /// Writes a changed cell.
    [[nodiscard]] bool update(int row, const Stored &cell, const QVariant &value);
    [[nodiscard]] qint64 serviceOf(int row) const;

    grid::GridView *grdService = nullptr;
    QPushButton *cmdAddNewService = nullptr;
    QPushButton *cmdSelectService = nullptr;
    QPushButton *cmdRemoveService = nullptr;
};
