#pragma once

#include "workorders/WorkorderFilter.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>
#include <functional>

class DueServices;
class PrintedServices;
class QPushButton;
class QStackedWidget;

namespace grid {
class GridView;
}

/// The first page of the work-order screen: machines with due services and open orders; beside
/// them what is due of a machine, or what stands on an order.
class PrintWorkPage final : public QWidget
{
    Q_OBJECT

public:
    /// filter: what narrows the lists now. reachToday: moves the end of the window to today when it
    /// lies before, and answers True then.
    PrintWorkPage(std::function<WorkorderFilter()> filter, std::function<bool()> reachToday,
                  QWidget *parent = nullptr);

    /// Reads the list anew; nothing is ticked then.
    void RefreshPrintWo();
    /// Selects the machine's first row without an order, or the row of an order. Where the list has
    /// no such row, the current one stays.
    void FindNSelectPrintWorkorder(const QString &unitNo);
    void FindNSelectPrintWorkorderByWO(qint64 WorkorderNo);
    /// Makes orders for the ticked machines that have none; appends their numbers.
    [[nodiscard]] bool GenerateWorkorder(QList<qint64> &generated);
    /// The ticked orders.
    [[nodiscard]] QList<qint64> tickedOrders() const;
    /// The machines of all rows, joined by commas.
    [[nodiscard]] QString machines() const;
    /// Stores what is being edited; False when it is refused.
    [[nodiscard]] bool finishEditing();
    [[nodiscard]] QList<grid::GridView *> grids() const;

private:
    void buildPage();
    QWidget *buildList();
    void connectButtons();
    void connectGrids();
    void connectFrames();
    void EnableControls();
    [[nodiscard]] qint64 currentOrder() const;
    [[nodiscard]] qint64 currentMachine() const;
    /// Shows beside the list what belongs to the current row.
    void rowSelected();
    [[nodiscard]] QList<qint64> tickedMachines() const;
    void cmdPrintSelect_Click();
    /// Ticks the orders that were not printed, and what has no order yet.
    void cmdPrintUnSelect_Click();
    void cmdGenrateWo_Click();
    void cmdDelete_Click();
    /// Offers to make the order that a due service needs before it can be changed.
    void generateFirst();
    void cmdPrintAddService_Click();

    std::function<WorkorderFilter()> m_filter;
    std::function<bool()> m_reachToday;
    WorkorderFilter m_shown; ///< what the lists were read by: also what is generated
    LatenessStyle m_lateness;
    bool m_filling = false; ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdPrintWO = nullptr;
    QPushButton *cmdPrintSelect = nullptr;
    QPushButton *cmdPrintUnSelect = nullptr;
    QPushButton *cmdGenrateWo = nullptr;
    QPushButton *cmdDelete = nullptr;

    QStackedWidget *m_frames = nullptr;
    DueServices *m_due = nullptr;
    PrintedServices *m_printed = nullptr;
};
