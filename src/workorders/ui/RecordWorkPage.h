#pragma once

#include "platform/grid/GridTypes.h"
#include "workorders/ui/RecordFrame.h"

#include <QHash>
#include <QWidget>

class RecordParts;
class RecordServices;

namespace grid {
class GridView;
}

/// The second page of the work-order screen, where a mechanic's paper comes back: all open orders,
/// the services of the current one, the parts of the current service. Every cell is written at
/// once.
class RecordWorkPage final : public QWidget, private RecordFrame
{
    Q_OBJECT

public:
    explicit RecordWorkPage(QWidget *parent = nullptr);

    /// Reads the orders anew; the current order stays.
    void RefreshRecordWorkorder();
    /// Selects an order; the current one stays when the list has it no more.
    void FindNSelectRecordWorkorder(qint64 WorkorderNo);
    /// The orders that are ticked as complete.
    [[nodiscard]] QList<qint64> completeOrders() const;
    /// True when work may have been completed on this date; else the user is told.
    [[nodiscard]] static bool mayComplete(QDate date);
    /// The machines of all rows, joined by commas.
    [[nodiscard]] QString machines() const;
    [[nodiscard]] bool hasOrders() const;
    /// Stores what is being edited; False when it is refused.
    [[nodiscard]] bool finishEditing() override;
    [[nodiscard]] QList<grid::GridView *> grids() const;

Q_SIGNALS:
    /// The orders were read anew.
    void refreshed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildPage();
    QWidget *buildOrders();
    [[nodiscard]] QList<grid::Column> orderColumns();
    void connectControls();
    [[nodiscard]] grid::Style orderStyle(int row);
    /// The tick and the date of an order: each sets the other, and completes its services or opens
    /// them again.
    [[nodiscard]] bool completeChanged(int row, bool complete);
    [[nodiscard]] bool completedDateChanged(int row, const QVariant &value);

    // For the boxes.
    [[nodiscard]] Order currentOrder() const override;
    void showWhatIsLeft() override;
    void showOrderReopened() override;

    QHash<qint64, bool> m_late; ///< ISWorkOrderLate of the orders painted so far
    bool m_filling = false;     ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdRecordWo = nullptr;
    RecordServices *m_services = nullptr;
    RecordParts *m_parts = nullptr;
};
