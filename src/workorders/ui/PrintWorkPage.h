#pragma once

#include "workorders/WorkorderFilter.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>
#include <functional>

class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class ServiceNote;

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
    /// Selects the machine's first row without an order, or the row of an order.
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
    QWidget *buildDue();
    QWidget *buildOrder();
    void connectButtons();
    void connectGrids();
    void setRules();
    void EnableControls();
    [[nodiscard]] qint64 currentOrder() const;
    [[nodiscard]] qint64 currentMachine() const;
    [[nodiscard]] qint64 currentOrderService() const;
    void rowSelected();
    void RefreshGenServiceGrid(qint64 EquipmentID);
    void RefreshGenPartGrid();
    void RefreshPrintServiceGrid();
    void RefreshPrintPartGrid();
    [[nodiscard]] QList<qint64> tickedMachines() const;
    void cmdPrintSelect_Click();
    void cmdPrintUnSelect_Click();
    void cmdGenrateWo_Click();
    void cmdDelete_Click();
    void generateFirst();
    void cmdPrintAddService_Click();
    void cmdPrintRemoveService_Click();
    void cmdPrintAddPart_Click();
    void cmdPrintRemovePart_Click();
    bool grdPrintPart_Change(int row, const QString &column, const QVariant &value);

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
    QWidget *fraGen = nullptr;
    grid::GridView *grdGenService = nullptr;
    QPushButton *cmdGenAddService = nullptr;
    QPushButton *cmdGenRemoveService = nullptr;
    grid::GridView *grdGenPart = nullptr;
    QPushButton *cmdGenAddPart = nullptr;
    QPushButton *cmdGenRemovePart = nullptr;
    QPlainTextEdit *txtGenServiceNote = nullptr;
    ServiceNote *m_genNote = nullptr;

    QWidget *fraPrint = nullptr;
    grid::GridView *grdPrintService = nullptr;
    QPushButton *cmdPrintAddService = nullptr;
    QPushButton *cmdPrintRemoveService = nullptr;
    grid::GridView *grdPrintPart = nullptr;
    QPushButton *cmdPrintAddPart = nullptr;
    QPushButton *cmdPrintRemovePart = nullptr;
    QPlainTextEdit *txtPrintNote = nullptr;
    ServiceNote *m_printNote = nullptr;
};
