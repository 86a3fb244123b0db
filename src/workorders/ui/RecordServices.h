#pragma once

#include "platform/grid/GridTypes.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>

class QPushButton;
class RecordFrame;

namespace grid {
class GridView;
}

/// The services of the order on whose row the recording page stands: what was done, by whom, at
/// which count, and what was skipped. Every cell is written at once.
class RecordServices final : public QWidget
{
    Q_OBJECT

public:
    explicit RecordServices(RecordFrame &frame, QWidget *parent = nullptr);

    /// Reads what the cells offer and are coloured by: crews, suppliers, limits of lateness. Raises
    /// DbError.
    void loadLists();
    /// Shows the services of the current order; the current one stays.
    void RefreshRecordServiceGrid();
    /// Lets the buttons follow the current order.
    void EnableControls();

    /// The current service, 0 without one.
    [[nodiscard]] qint64 currentService() const;
    [[nodiscard]] bool isServiceCompleted() const;
    /// True when a service of the list is skipped.
    [[nodiscard]] bool isSkipped(qint64 NServiceUsedID) const;
    [[nodiscard]] bool hasServices() const;
    /// The grid, grdRecordService.
    [[nodiscard]] grid::GridView *grid() const { return grdRecordService; }

Q_SIGNALS:
    /// Another service is current, or the services were read anew, or its note was changed.
    void serviceShown();
    /// The parts of the current service were marked as used or not.
    void partsMarked();

private:
    void buildBox();
    void connectControls();
    [[nodiscard]] QList<grid::Column> columns();
    [[nodiscard]] grid::Style style(int row, const QString &column) const;
    [[nodiscard]] qint64 serviceOf(int row) const;
    /// What a change of a cell means; False refuses it. Completed and Skip open the order again.
    [[nodiscard]] bool crewChanged(int row, qint64 crew);
    [[nodiscard]] bool countChanged(int row, const QVariant &count);
    [[nodiscard]] bool skipChanged(int row, bool skip);
    [[nodiscard]] bool completedChanged(int row, bool completed);
    /// Opens the entry of times where the column holds one; any other column does nothing.
    void openTimes(int row, const QString &column);
    void cmdSkipAll_Click();
    void cmdAddNewService_Click();

    RecordFrame &m_frame;
    LatenessStyle m_lateness;
    bool m_filling = false; ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdRecordService = nullptr;
    QPushButton *cmdRecordAddService = nullptr;
    QPushButton *cmdSkipAll = nullptr;
};
