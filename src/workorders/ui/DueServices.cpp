#include "workorders/ui/DueServices.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/PrintLists.h"
#include "workorders/ui/ServiceNote.h"
#include "workorders/ui/WorkLists.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";

} // namespace

DueServices::DueServices(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"fraGen"_s);
    buildBox();
    m_genNote = new ServiceNote(txtGenServiceNote, recording::updateScheduleNote);
    printlists::styleByDate(*grdGenService, m_lateness);
    connect(grdGenService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            RefreshGenPartGrid();
    });
    for (const QPushButton *button :
         {cmdGenAddService, cmdGenRemoveService, cmdGenAddPart, cmdGenRemovePart})
        // None of them can act: a due service has no row of its own that could be changed. The page
        // offers to make the order first.
        connect(button, &QPushButton::clicked, this,
                [this, button] { Q_EMIT changeWanted(button->objectName()); });
}

void DueServices::buildBox()
{
    input::FormBuilder form(this);
    grdGenService = makeListGrid(this, u"grdGenService"_s, u"Due services of the machine"_s,
                                 printlists::serviceColumns({u"ServiceUsedID"_s}));
    printlists::addGridGroup(form, u"Due Services"_s, grdGenService,
                             {cmdGenAddService, u"cmdGenAddService"_s, u"Add &Service"_s},
                             {cmdGenRemoveService, u"cmdGenRemoveService"_s, u"Remo&ve Service"_s});
    grdGenPart =
        makeListGrid(this, u"grdGenPart"_s, u"Parts of the service"_s, printlists::partColumns({}));
    showWhenEmpty(*grdGenPart, u"No parts."_s);
    printlists::addGridGroup(form, u"Parts"_s, grdGenPart,
                             {cmdGenAddPart, u"cmdGenAddPart"_s, u"&Add Part"_s},
                             {cmdGenRemovePart, u"cmdGenRemovePart"_s, u"Re&move Part"_s});
    txtGenServiceNote = printlists::addNote(form, u"txtGenServiceNote"_s);
    form.finish();
}

void DueServices::EnableControls(bool mayAdd)
{
    const bool services = grdGenService->rows().rowCount() > 0;
    cmdGenAddService->setEnabled(mayAdd);
    cmdGenRemoveService->setEnabled(services);
    cmdGenAddPart->setEnabled(services);
    cmdGenRemovePart->setEnabled(grdGenPart->rows().rowCount() > 0);
}

bool DueServices::leaveNote()
{
    return m_genNote->leave();
}

void DueServices::RefreshGenServiceGrid(qint64 EquipmentID, const WorkorderFilter &filter,
                                        const LatenessStyle &lateness)
{
    m_lateness = lateness;
    base::trapped(Module, "RefreshGenServiceGrid", [&] {
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdGenService, workorders::statements::genServices(filter), EquipmentID,
                        u"ServiceUsedID");
    });
    RefreshGenPartGrid();
}

void DueServices::RefreshGenPartGrid()
{
    base::trapped(Module, "RefreshGenPartGrid", [this] {
        const qint64 service = worklists::currentKey(*grdGenService, u"ServiceUsedID");
        worklists::load(*grdGenPart, workorders::statements::genParts(), service);
        // The note of the schedule, which each order takes a copy of when it is made.
        m_genNote->show(service, recording::scheduleNoteOf(service));
    });
    Q_EMIT shown();
}
