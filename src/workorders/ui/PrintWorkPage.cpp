#include "workorders/ui/PrintWorkPage.h"

#include "core/Session.h"
#include "core/ui/CellWrite.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/ProgressBox.h"
#include "platform/input/Theme.h"
#include "workorders/Generation.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/ServiceNote.h"
#include "workorders/ui/WorkLists.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
constexpr int NoteHeight = 62;            // pixels, four lines
constexpr int ListWidth = 560;            // pixels
constexpr int FramesWidth = 620;          // pixels
const QColor WithoutOrder(223, 234, 250); // machines that still wait for an order

grid::Column hidden(const QString &name)
{
    return {.name = name, .visible = false};
}

QList<grid::Column> serviceColumns()
{
    return {{.name = u"Service No"_s, .width = 72},
            {.name = u"Service Name"_s, .width = 190},
            {.name = u"Service Crew"_s, .width = 118},
            {.name = u"Next Service Date"_s, .width = 112, .format = u"mm/dd/yyyy"_s},
            {.name = u"SeparateWo"_s, .width = 75, .editor = grid::Editor::Check}};
}

QList<grid::Column> partColumns(bool editablePrice)
{
    return {{.name = u"Part Number"_s, .width = 110},
            {.name = u"Description"_s, .width = 220},
            {.name = u"Qty Req"_s, .width = 80, .format = u"0.00"_s},
            {.name = u"Price"_s,
             .width = 90,
             .editable = editablePrice,
             .format = u"0.00"_s,
             .editor = editablePrice ? grid::Editor::Masked : grid::Editor::None,
             .mask = editablePrice ? u"{0,99999}.{0,99}"_s : QString()}};
}

/// A button of the page: where it is kept, its name and its text.
struct PageButton
{
    QPushButton *&button;
    QString name;
    QString text;
};

/// A grid in a group of its own, with two buttons below it.
void addGridGroup(input::FormBuilder &form, const QString &title, grid::GridView *grid,
                  const PageButton &first, const PageButton &second)
{
    form.beginGroup(title);
    form.widget(grid, true);
    form.beginRow();
    for (const PageButton &each : {first, second})
        each.button = form.inlineButton(each.name, each.text);
    form.endRow();
    form.endGroup();
}

/// The parts and the note of a service, of none for 0.
void showService(qint64 service, grid::GridView &parts, const QString &partStatement,
                 ServiceNote &note, const QString &text)
{
    worklists::load(parts, partStatement, service);
    note.show(service, text);
}

} // namespace

PrintWorkPage::PrintWorkPage(std::function<WorkorderFilter()> filter,
                             std::function<bool()> reachToday, QWidget *parent)
    : QWidget(parent)
    , m_filter(std::move(filter))
    , m_reachToday(std::move(reachToday))
{
    setObjectName(u"pagePrintWorkOrder"_s);
    buildPage();
    connectButtons();
    connectGrids();
    setRules();
    EnableControls();
}

void PrintWorkPage::buildPage()
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildList());
    m_frames = new QStackedWidget(splitter);
    fraGen = buildDue();
    fraPrint = buildOrder();
    m_frames->addWidget(fraGen);
    m_frames->addWidget(fraPrint);
    splitter->addWidget(m_frames);
    // Wide enough for the columns of either side.
    splitter->setSizes({ListWidth, FramesWidth});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

QWidget *PrintWorkPage::buildList()
{
    auto *pane = new QWidget(this);
    input::FormBuilder form(pane);
    grdPrintWO = makeListGrid(
        pane, u"grdPrintWO"_s, u"Machines with due services, and open work orders"_s,
        {{.name = u"Select"_s, .width = 50, .editable = true, .editor = grid::Editor::Check},
         {.name = u"WorkOrderNo"_s, .caption = u"W/O No"_s, .width = 70},
         {.name = u"Unit No"_s, .width = 80},
         {.name = u"Equipment Name"_s, .width = 150},
         {.name = u"Equipment Type"_s, .width = 110},
         {.name = u"Printed"_s, .width = 60, .editor = grid::Editor::Check},
         hidden(u"EquipmentId"_s)});
    form.widget(grdPrintWO, true);
    cmdPrintSelect = form.leftButton(u"cmdPrintSelect"_s, u"Select A&ll"_s);
    cmdPrintUnSelect = form.leftButton(u"cmdPrintUnSelect"_s, u"Select UnPrin&ted"_s);
    cmdGenrateWo = form.button(u"cmdGenrateWo"_s, u"&Generate W/O"_s, theme::icon(u"work-order"_s));
    cmdDelete = form.button(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
    form.finish();
    return pane;
}

QWidget *PrintWorkPage::buildDue()
{
    auto *pane = new QWidget(m_frames);
    pane->setObjectName(u"fraGen"_s);
    input::FormBuilder form(pane);
    grdGenService = makeListGrid(pane, u"grdGenService"_s, u"Due services of the machine"_s,
                                 serviceColumns() + QList{hidden(u"ServiceUsedID"_s)});
    addGridGroup(form, u"Due Services"_s, grdGenService,
                 {cmdGenAddService, u"cmdGenAddService"_s, u"Add &Service"_s},
                 {cmdGenRemoveService, u"cmdGenRemoveService"_s, u"Remo&ve Service"_s});
    grdGenPart = makeListGrid(pane, u"grdGenPart"_s, u"Parts of the service"_s, partColumns(false));
    addGridGroup(form, u"Parts"_s, grdGenPart, {cmdGenAddPart, u"cmdGenAddPart"_s, u"&Add Part"_s},
                 {cmdGenRemovePart, u"cmdGenRemovePart"_s, u"Re&move Part"_s});
    txtGenServiceNote = form.memoField(u"txtGenServiceNote"_s, u"&Note:"_s, 2);
    txtGenServiceNote->setFixedHeight(NoteHeight);
    form.finish();
    return pane;
}

QWidget *PrintWorkPage::buildOrder()
{
    auto *pane = new QWidget(m_frames);
    pane->setObjectName(u"fraPrint"_s);
    input::FormBuilder form(pane);
    grdPrintService =
        makeListGrid(pane, u"grdPrintService"_s, u"Services of the work order"_s,
                     serviceColumns() + QList{hidden(u"Skip"_s), hidden(u"ServiceID"_s),
                                              hidden(u"NServiceUsedID"_s)});
    addGridGroup(form, u"Services of the Work Order"_s, grdPrintService,
                 {cmdPrintAddService, u"cmdPrintAddService"_s, u"Add &Service"_s},
                 {cmdPrintRemoveService, u"cmdPrintRemoveService"_s, u"Remo&ve Service"_s});
    grdPrintPart =
        makeListGrid(pane, u"grdPrintPart"_s, u"Parts of the service"_s, partColumns(true));
    addGridGroup(form, u"Parts"_s, grdPrintPart,
                 {cmdPrintAddPart, u"cmdPrintAddPart"_s, u"&Add Part"_s},
                 {cmdPrintRemovePart, u"cmdPrintRemovePart"_s, u"Re&move Part"_s});
    txtPrintNote = form.memoField(u"txtPrintNote"_s, u"&Note:"_s, 2);
    txtPrintNote->setFixedHeight(NoteHeight);
    form.finish();
    return pane;
}

void PrintWorkPage::connectButtons()
{
    const auto click = [this](QPushButton *button, void (PrintWorkPage::*procedure)()) {
        connect(button, &QPushButton::clicked, this, [this, button, procedure] {
            if (finishEditing())
                base::trapped(Module, qPrintable(button->objectName() + u"_Click"_s),
                              [&] { (this->*procedure)(); });
        });
    };
    click(cmdPrintSelect, &PrintWorkPage::cmdPrintSelect_Click);
    click(cmdPrintUnSelect, &PrintWorkPage::cmdPrintUnSelect_Click);
    click(cmdGenrateWo, &PrintWorkPage::cmdGenrateWo_Click);
    click(cmdDelete, &PrintWorkPage::cmdDelete_Click);
    for (QPushButton *button :
         {cmdGenAddService, cmdGenRemoveService, cmdGenAddPart, cmdGenRemovePart})
        click(button, &PrintWorkPage::generateFirst);
    click(cmdPrintAddService, &PrintWorkPage::cmdPrintAddService_Click);
    click(cmdPrintRemoveService, &PrintWorkPage::cmdPrintRemoveService_Click);
    click(cmdPrintAddPart, &PrintWorkPage::cmdPrintAddPart_Click);
    click(cmdPrintRemovePart, &PrintWorkPage::cmdPrintRemovePart_Click);
}

void PrintWorkPage::connectGrids()
{
    connect(grdPrintWO, &grid::GridView::currentRowChanged, this, [this] { rowSelected(); });
    connect(grdPrintWO, &grid::GridView::changed, grdPrintWO, &grid::GridView::selectRow);
    connect(grdPrintWO, &grid::GridView::rowActivated, this, [this](int row) {
        grid::GridModel &rows = grdPrintWO->rows();
        rows.edit(row, rows.columnIndex(u"Select"), !rows.value(row, u"Select").toBool());
    });
    connect(grdGenService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            RefreshGenPartGrid();
    });
    connect(grdPrintService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            RefreshPrintPartGrid();
    });
}

void PrintWorkPage::setRules()
{
    grdPrintWO->rows().styleRule = [this](int row, const QString &) {
        return grdPrintWO->rows().value(row, u"WorkOrderNo").isValid()
                   ? grid::Style{}
                   : grid::Style{.background = WithoutOrder};
    };
    for (grid::GridView *services : {grdGenService, grdPrintService}) {
        services->rows().styleRule = [this, services](int row, const QString &) {
            return m_lateness.of(
                services->rows().value(row, u"Next Service Date").toDateTime().date());
        };
    }
    grdPrintPart->rows().changeRule = [this](int row, const QString &column,
                                             const QVariant &value) {
        const bool done = telling(Module, "grdPrintPart_Change", false,
                                  [&] { return grdPrintPart_Change(row, column, value); });
        // What was refused may be gone. Not before the grid is done with the cell.
        if (!done)
            QMetaObject::invokeMethod(
                this, [this] { RefreshPrintServiceGrid(); }, Qt::QueuedConnection);
        return done;
    };
    m_genNote = new ServiceNote(txtGenServiceNote, recording::updateScheduleNote);
    m_printNote = new ServiceNote(
        txtPrintNote, recording::updateNote, [](qint64 service, const QString &note) {
            if (!note.trimmed().isEmpty() || !recording::IsServiceSkiped(service))
                return true;
            base::showMessage(u"Note Field Cann't left blank. When Service has Skiped."_s);
            return false;
        });
}

void PrintWorkPage::EnableControls()
{
    const bool rows = grdPrintWO->rows().rowCount() > 0;
    const bool dueRows = grdGenService->rows().rowCount() > 0;
    const bool services = grdPrintService->rows().rowCount() > 0;
    for (QPushButton *button :
         {cmdPrintSelect, cmdPrintUnSelect, cmdGenrateWo, cmdPrintAddService, cmdGenAddService})
        button->setEnabled(rows);
    cmdDelete->setEnabled(rows && currentOrder() != 0);
    cmdPrintRemoveService->setEnabled(services);
    cmdPrintAddPart->setEnabled(services);
    cmdPrintRemovePart->setEnabled(grdPrintPart->rows().rowCount() > 0);
    cmdGenRemoveService->setEnabled(dueRows);
    cmdGenAddPart->setEnabled(dueRows);
    cmdGenRemovePart->setEnabled(grdGenPart->rows().rowCount() > 0);
}

QList<grid::GridView *> PrintWorkPage::grids() const
{
    return {grdPrintWO, grdGenService, grdGenPart, grdPrintService, grdPrintPart};
}

qint64 PrintWorkPage::currentOrder() const
{
    return worklists::currentKey(*grdPrintWO, u"WorkOrderNo");
}

qint64 PrintWorkPage::currentMachine() const
{
    return worklists::currentKey(*grdPrintWO, u"EquipmentId");
}

qint64 PrintWorkPage::currentOrderService() const
{
    return worklists::currentKey(*grdPrintService, u"NServiceUsedID");
}

bool PrintWorkPage::finishEditing()
{
    return grdPrintPart->finishEditing() && m_genNote->leave() && m_printNote->leave();
}

// --- Lists -------------------------------------------------------------------------------------

void PrintWorkPage::RefreshPrintWo()
{
    const bool loaded = base::trapped(Module, "RefreshPrintWo", false, [this] {
        m_lateness = LatenessStyle::current();
        const WorkorderFilter filter = m_filter();
        const db::Recordset rows = gcnData->Open(workorders::statements::printWo(filter));
        m_shown = filter;
        const QScopedValueRollback filling(m_filling, true);
        grdPrintWO->rows().setRecordset(rows);
        grdPrintWO->rows().setAll(u"Select", false);
        cmdPrintSelect->setText(u"Select A&ll"_s);
        worklists::selectFirst(*grdPrintWO);
        return true;
    });
    // A filter that the database refuses would be refused again for the services.
    if (loaded)
        rowSelected();
}

void PrintWorkPage::rowSelected()
{
    if (m_filling)
        return;
    const bool ordered = currentOrder() != 0;
    m_frames->setCurrentWidget(ordered ? fraPrint : fraGen);
    RefreshGenServiceGrid(ordered ? 0 : currentMachine());
    RefreshPrintServiceGrid();
}

void PrintWorkPage::RefreshGenServiceGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshGenServiceGrid", [&] {
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdGenService, workorders::statements::genServices(m_shown), EquipmentID,
                        u"ServiceUsedID");
    });
    RefreshGenPartGrid();
}

void PrintWorkPage::RefreshGenPartGrid()
{
    base::trapped(Module, "RefreshGenPartGrid", [this] {
        const qint64 service = worklists::currentKey(*grdGenService, u"ServiceUsedID");
        showService(service, *grdGenPart, workorders::statements::genParts(), *m_genNote,
                    recording::scheduleNoteOf(service));
    });
    EnableControls();
}

void PrintWorkPage::RefreshPrintServiceGrid()
{
    base::trapped(Module, "RefreshPrintServiceGrid", [this] {
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdPrintService, workorders::statements::printServices(m_shown),
                        currentOrder(), u"NServiceUsedID");
    });
    RefreshPrintPartGrid();
}

void PrintWorkPage::RefreshPrintPartGrid()
{
    base::trapped(Module, "RefreshPrintPartGrid", [this] {
        showService(currentOrderService(), *grdPrintPart, workorders::statements::printParts(),
                    *m_printNote, recording::noteOf(currentOrderService()));
    });
    EnableControls();
}

void PrintWorkPage::FindNSelectPrintWorkorder(const QString &unitNo)
{
    const grid::GridModel &rows = grdPrintWO->rows();
    for (const int row : grdPrintWO->displayedOrder()) {
        if (!rows.value(row, u"WorkOrderNo").isValid() &&
            rows.text(row, u"Unit No").toUpper() == unitNo.toUpper())
            return grdPrintWO->selectRow(row);
    }
}

void PrintWorkPage::FindNSelectPrintWorkorderByWO(qint64 WorkorderNo)
{
    const int row = grdPrintWO->rows().findRow(u"WorkOrderNo", WorkorderNo);
    if (row >= 0)
        grdPrintWO->selectRow(row);
}

QList<qint64> PrintWorkPage::tickedOrders() const
{
    QList<qint64> orders;
    const grid::GridModel &rows = grdPrintWO->rows();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const qint64 order = rows.value(row, u"WorkOrderNo").toLongLong();
        if (order != 0 && rows.value(row, u"Select").toBool())
            orders.append(order);
    }
    return orders;
}

QList<qint64> PrintWorkPage::tickedMachines() const
{
    QList<qint64> machines;
    const grid::GridModel &rows = grdPrintWO->rows();
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (!rows.value(row, u"WorkOrderNo").isValid() && rows.value(row, u"Select").toBool())
            machines.append(rows.value(row, u"EquipmentId").toLongLong());
    }
    return machines;
}

QString PrintWorkPage::machines() const
{
    return worklists::joinedKeys(grdPrintWO->rows(), u"EquipmentId");
}

// --- Selecting and generating --------------------------------------------------------------------

void PrintWorkPage::cmdPrintSelect_Click()
{
    const bool all = cmdPrintSelect->text().startsWith(u"Select"_s);
    grdPrintWO->rows().setAll(u"Select", all);
    cmdPrintSelect->setText(all ? u"Unselect A&ll"_s : u"Select A&ll"_s);
}

void PrintWorkPage::cmdPrintUnSelect_Click()
{
    grid::GridModel &rows = grdPrintWO->rows();
    for (int row = 0; row < rows.rowCount(); ++row)
        rows.setValue(row, u"Select", rows.value(row, u"Printed").toInt() == 0);
}

bool PrintWorkPage::GenerateWorkorder(QList<qint64> &generated)
{
    input::ProgressBox box(u"Generating work orders..."_s, this);
    return telling(Module, "GenerateWorkorder", false, [&] {
        return generation::GenerateWorkorder(m_shown, tickedMachines(), generated, box.progress());
    });
}

void PrintWorkPage::cmdGenrateWo_Click()
{
    if (tickedMachines().isEmpty() && tickedOrders().isEmpty())
        return base::showMessage(u"Please select at least one record"_s);
    QList<qint64> generated;
    if (!GenerateWorkorder(generated))
        return;
    base::showMessage(u"Workorder Generated"_s);
    RefreshPrintWo();
}

/// A due service can't be changed before it stands on an order.
void PrintWorkPage::generateFirst()
{
    if (currentMachine() == 0 ||
        !base::askYesNo(u"You must genearte a Work Order before you can make changes. Do you wish "
                        "to generate the Work Order?"_s))
        return;
    QList<qint64> generated;
    if (!telling(Module, "GenerateWorkorder", false,
                 [&] { return generation::generateForRow(m_shown, currentMachine(), generated); }))
        return;
    base::showMessage(u"Workorder Generated"_s);
    RefreshPrintWo();
    if (!generated.isEmpty())
        FindNSelectPrintWorkorderByWO(generated.first());
}

void PrintWorkPage::cmdDelete_Click()
{
    const qint64 order = currentOrder();
    if (order == 0 || !worklists::confirmDeletion())
        return;
    if (telling(Module, "cmdDelete_Click", false, [&] { return generation::deleteOrder(order); }))
        RefreshPrintWo();
}

// --- What stands on an order ---------------------------------------------------------------------

void PrintWorkPage::cmdPrintAddService_Click()
{
    const qint64 order = currentOrder();
    if (order == 0 ||
        !worklists::addServices(grdPrintService->rows(), order, currentMachine(), false))
        return;
    // The new service is dated today, and must not be filtered away.
    if (m_reachToday()) {
        RefreshPrintWo();
        FindNSelectPrintWorkorderByWO(order);
    }
    RefreshPrintServiceGrid();
}

void PrintWorkPage::cmdPrintRemoveService_Click()
{
    const qint64 service = currentOrderService();
    if (service == 0 || !worklists::confirmDeletion())
        return;
    if (telling(Module, "DeleteServiceRecord", false,
                [&] { return recording::DeleteServiceRecord(service); }))
        RefreshPrintServiceGrid();
    else
        base::showMessage(u"Deletion not allowed."_s);
}

void PrintWorkPage::cmdPrintAddPart_Click()
{
    const qint64 service = currentOrderService();
    if (service != 0 && worklists::addParts(grdPrintPart->rows(), service, false))
        RefreshPrintPartGrid();
}

void PrintWorkPage::cmdPrintRemovePart_Click()
{
    if (worklists::removePart(*grdPrintPart, currentOrderService()))
        RefreshPrintPartGrid();
}

bool PrintWorkPage::grdPrintPart_Change(int row, const QString &column, const QVariant &value)
{
    grid::GridModel &rows = grdPrintPart->rows();
    return writeCell(rows, row, column, value, [&](const recording::Shown &shown) {
        return recording::UpdateWorkorderPart(rows.text(row, u"Part Number"), currentOrderService(),
                                              column, value, shown);
    });
}
