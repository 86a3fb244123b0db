#pragma once

#include <QWidget>

class MachineFrame;

namespace grid {
class GridView;
}

/// The parts that were used in one service of a machine's history. Quantities and prices can be
/// corrected, which is written at once.
class HistoryParts final : public QWidget
{
    Q_OBJECT

public:
    explicit HistoryParts(MachineFrame &frame, QWidget *parent = nullptr);

    /// Shows the parts of a service, of none for 0.
    void RefreshPartHistoryGrid(qint64 ServiceUsedID);
    /// The grid, grdPartHistory.
    [[nodiscard]] grid::GridView *grid() const { return grdPartHistory; }

Q_SIGNALS:
    /// The parts of the service on show cost something else by now.
    void costChanged(qint64 ServiceUsedID);

private:
    /// Writes a corrected number inside the machine's edit. False when it was not written.
    [[nodiscard]] bool change(int row, const QString &column, const QString &field, double number);

    MachineFrame &m_frame;
    qint64 m_service = 0;
    grid::GridView *grdPartHistory = nullptr;
};
