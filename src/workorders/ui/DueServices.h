#pragma once

#include "workorders/WorkorderFilter.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>

class QPlainTextEdit;
class QPushButton;
class ServiceNote;

namespace grid {
class GridView;
}

/// What is due on the machine on whose row the printing page stands: its services, and of the
/// current one the parts and the note. Only the note can be changed here: what else is to change
/// needs an order first.
class DueServices final : public QWidget
{
    Q_OBJECT

public:
    explicit DueServices(QWidget *parent = nullptr);

    /// Shows what is due of a machine by the filter, nothing for 0; coloured by these limits.
    void RefreshGenServiceGrid(qint64 EquipmentID, const WorkorderFilter &filter,
                               const LatenessStyle &lateness);
    /// mayAdd: there is a machine that a service could be added to.
    void EnableControls(bool mayAdd);
    /// Stores the note; False when it is refused.
    [[nodiscard]] bool leaveNote();
    [[nodiscard]] QList<grid::GridView *> grids() const { return {grdGenService, grdGenPart}; }

Q_SIGNALS:
    /// Services or parts are to be added or removed.
    void changeWanted(const QString &button);
    /// Other services, or the parts of another one, are on show.
    void shown();

private:
    void buildBox();
    void RefreshGenPartGrid();

    LatenessStyle m_lateness;
    bool m_filling = false; ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdGenService = nullptr;
    QPushButton *cmdGenAddService = nullptr;
    QPushButton *cmdGenRemoveService = nullptr;
    grid::GridView *grdGenPart = nullptr;
    QPushButton *cmdGenAddPart = nullptr;
    QPushButton *cmdGenRemovePart = nullptr;
    QPlainTextEdit *txtGenServiceNote = nullptr;
    ServiceNote *m_genNote = nullptr;
};
