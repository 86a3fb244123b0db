#include "workorders/ui/PrintedServices.h"

#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
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

PrintedServices::PrintedServices(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"fraPrint"_s);
    buildBox();
    connectControls();
}

void PrintedServices::buildBox()
{
    input::FormBuilder form(this);
    grdPrintService =
        makeListGrid(this, u"grdPrintService"_s, u"Services of the work order"_s,
                     printlists::serviceColumns({u"Skip"_s, u"ServiceID"_s, u"NServiceUsedID"_s}));
    showWhenEmpty(*grdPrintService, u"No services."_s);
    printlists::addGridGroup(
        form, u"Services of the Work Order"_s, grdPrintService,
        {cmdPrintAddService, u"cmdPrintAddService"_s, u"Add &Service"_s},
        {cmdPrintRemoveService, u"cmdPrintRemoveService"_s, u"Remo&ve Service"_s});
    grdPrintPart = makeListGrid(
        this, u"grdPrintPart"_s, u"Parts of the service"_s,
        printlists::partColumns(worklists::told(
            this, "grdPrintPart_Change",
            [this](int row, const QVariant &price) { return priceChanged(row, price); },
            [this] { RefreshPrintServiceGrid(); })));
    showWhenEmpty(*grdPrintPart, u"No parts."_s);
    printlists::addGridGroup(form, u"Parts"_s, grdPrintPart,
                             {cmdPrintAddPart, u"cmdPrintAddPart"_s, u"&Add Part"_s},
                             {cmdPrintRemovePart, u"cmdPrintRemovePart"_s, u"Re&move Part"_s});
    txtPrintNote = printlists::addNote(form, u"txtPrintNote"_s);
    form.finish();
}

void PrintedServices::connectControls()
{
    m_printNote = new ServiceNote(
        txtPrintNote, recording::updateNote, [](qint64 service, const QString &note) {
            // The note of a skipped service is the reason, which has to stay.
            if (!note.trimmed().isEmpty() || !recording::IsServiceSkiped(service))
                return true;
            base::showMessage(u"Note Field Cann't left blank. When Service has Skiped."_s);
            return false;
        });
    printlists::styleByDate(*grdPrintService, m_lateness);
    connect(grdPrintService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            RefreshPrintPartGrid();
    });
    const auto click = [this](QPushButton *button, void (PrintedServices::*procedure)()) {
        connect(button, &QPushButton::clicked, this, [this, button, procedure] {
            // What is being edited on either frame is stored first, or keeps the button from
            // acting.
            if (mayAct())
                base::trapped(Module, qPrintable(button->objectName() + u"_Click"_s),
                              [&] { (this->*procedure)(); });
        });
    };
    click(cmdPrintAddService, &PrintedServices::cmdPrintAddService_Click);
    click(cmdPrintRemoveService, &PrintedServices::cmdPrintRemoveService_Click);
    click(cmdPrintAddPart, &PrintedServices::cmdPrintAddPart_Click);
    click(cmdPrintRemovePart, &PrintedServices::cmdPrintRemovePart_Click);
}

void PrintedServices::EnableControls(bool mayAdd)
{
    const bool services = grdPrintService->rows().rowCount() > 0;
    cmdPrintAddService->setEnabled(mayAdd);
    cmdPrintRemoveService->setEnabled(services);
    cmdPrintAddPart->setEnabled(services);
    cmdPrintRemovePart->setEnabled(grdPrintPart->rows().rowCount() > 0);
}

bool PrintedServices::finishEditing()
{
    return grdPrintPart->finishEditing() && m_printNote->leave();
}

qint64 PrintedServices::currentService() const
{
    return worklists::currentKey(*grdPrintService, u"NServiceUsedID");
}

void PrintedServices::RefreshPrintServiceGrid(qint64 WorkorderNo, const WorkorderFilter &filter,
                                              const LatenessStyle &lateness)
{
    m_order = WorkorderNo;
    m_filter = filter;
    m_lateness = lateness;
    RefreshPrintServiceGrid();
}

void PrintedServices::RefreshPrintServiceGrid()
{
    base::trapped(Module, "RefreshPrintServiceGrid", [this] {
        // Each row that is filled in is current for a moment; parts and note follow once.
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdPrintService, workorders::statements::printServices(m_filter), m_order,
                        u"NServiceUsedID");
    });
    RefreshPrintPartGrid();
}

void PrintedServices::RefreshPrintPartGrid()
{
    base::trapped(Module, "RefreshPrintPartGrid", [this] {
        const qint64 service = currentService();
        worklists::load(*grdPrintPart, workorders::statements::printParts(), service);
        m_printNote->show(service, recording::noteOf(service));
    });
    Q_EMIT shown();
}

bool PrintedServices::priceChanged(int row, const QVariant &price)
{
    grid::GridModel &rows = grdPrintPart->rows();
    return writeCell(rows, row, u"Price"_s, price, [&](const recording::Shown &shown) {
        return recording::UpdateWorkorderPart(rows.text(row, u"Part Number"), currentService(),
                                              u"Price"_s, price, shown);
    });
}

void PrintedServices::cmdPrintRemoveService_Click()
{
    const qint64 service = currentService();
    if (service == 0 || !worklists::confirmDeletion())
        return;
    if (telling(Module, "DeleteServiceRecord", false,
                [&] { return recording::DeleteServiceRecord(service); }))
        RefreshPrintServiceGrid();
    else
        base::showMessage(u"Deletion not allowed."_s);
}

void PrintedServices::cmdPrintAddPart_Click()
{
    const qint64 service = currentService();
    // Not used yet: the order is still to be worked on.
    if (service != 0 && worklists::addParts(grdPrintPart->rows(), service, false))
        RefreshPrintPartGrid();
}

void PrintedServices::cmdPrintRemovePart_Click()
{
    if (worklists::removePart(*grdPrintPart, currentService()))
        RefreshPrintPartGrid();
}
