#pragma once

#include "platform/grid/GridTypes.h"
#include "workorders/WorkorderFilter.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>

class QPlainTextEdit;
class QPushButton;
class ServiceNote;

namespace grid {
class GridView;
}

/// What stands on the order on whose row the printing page stands: its services, and of the current
/// one the parts and the note. Prices and notes are written at once.
class PrintedServices final : public QWidget
{
    Q_OBJECT

public:
    explicit PrintedServices(QWidget *parent = nullptr);

    /// Shows the services of an order by the filter, none for 0; coloured by these limits.
    void RefreshPrintServiceGrid(qint64 WorkorderNo, const WorkorderFilter &filter,
                                 const LatenessStyle &lateness);
    /// The same for the order on show.
    void RefreshPrintServiceGrid();
    /// mayAdd: there is an order that a service could be added to.
    void EnableControls(bool mayAdd);
    /// Stores what is being edited; False when it is refused.
    [[nodiscard]] bool finishEditing();
    [[nodiscard]] grid::GridView *serviceGrid() const { return grdPrintService; }
    [[nodiscard]] QList<grid::GridView *> grids() const { return {grdPrintService, grdPrintPart}; }

    /// Asked ahead of what a button does: what is being edited is to be stored.
    std::function<bool()> mayAct;

Q_SIGNALS:
    /// The user wants to choose services for the order.
    void addWanted();
    /// Other services, or the parts of another one, are on show.
    void shown();

private:
    void buildBox();
    void connectControls();
    [[nodiscard]] qint64 currentService() const;
    void RefreshPrintPartGrid();
    [[nodiscard]] bool priceChanged(int row, const QVariant &price);
    void cmdPrintAddService_Click() { Q_EMIT addWanted(); }
    void cmdPrintRemoveService_Click();
    void cmdPrintAddPart_Click();
    void cmdPrintRemovePart_Click();

    qint64 m_order = 0;
    WorkorderFilter m_filter;
    LatenessStyle m_lateness;
    bool m_filling = false; ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdPrintService = nullptr;
    QPushButton *cmdPrintAddService = nullptr;
    QPushButton *cmdPrintRemoveService = nullptr;
    grid::GridView *grdPrintPart = nullptr;
    QPushButton *cmdPrintAddPart = nullptr;
    QPushButton *cmdPrintRemovePart = nullptr;
    QPlainTextEdit *txtPrintNote = nullptr;
    ServiceNote *m_printNote = nullptr;
};
