#include "workorders/ui/PrintWorkPage.h"

#include "core/Session.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/ProgressBox.h"
#include "platform/input/Theme.h"
#include "workorders/DueList.h"
#include "workorders/Generation.h"
#include "workorders/Statements.h"
#include "workorders/ui/DueServices.h"
#include "workorders/ui/PrintedServices.h"
#include "workorders/ui/WorkLists.h"

#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
constexpr int FrameMargin = 4;            // pixels, above and below
constexpr int ListWidth = 560;            // pixels
constexpr int FramesWidth = 620;          // pixels
const QColor WithoutOrder(223, 234, 250); // machines that still wait for an order

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
    connectFrames();
    EnableControls();
}

void PrintWorkPage::buildPage()
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildList());
    m_frames = new QStackedWidget(splitter);
    m_due = new DueServices(m_frames);
    m_printed = new PrintedServices(m_frames);
    m_frames->addWidget(m_due);
    m_frames->addWidget(m_printed);
    // Height that an enlarged screen lacks.
    for (const QWidget *frame :
         {static_cast<QWidget *>(m_due), static_cast<QWidget *>(m_printed)}) {
        const QMargins margins = frame->layout()->contentsMargins();
        frame->layout()->setContentsMargins(margins.left(), FrameMargin, margins.right(),
                                            FrameMargin);
    }
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
         {.name = u"EquipmentId"_s, .visible = false}});
    showWhenEmpty(*grdPrintWO,
                  u"No service is due between these dates, and no work order is open."_s);
    form.widget(grdPrintWO, true);
    cmdPrintSelect = form.leftButton(u"cmdPrintSelect"_s, u"Select A&ll"_s);
    cmdPrintUnSelect = form.leftButton(u"cmdPrintUnSelect"_s, u"Select UnPrin&ted"_s);
    cmdGenrateWo = form.button(u"cmdGenrateWo"_s, u"&Generate W/O"_s, theme::icon(u"work-order"_s));
    cmdDelete = form.button(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
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
}

void PrintWorkPage::connectGrids()
{
    connect(grdPrintWO, &grid::GridView::currentRowChanged, this, [this] { rowSelected(); });
    // A tick on another row makes that row the current one, so that the frames beside the list show
    // what was ticked.
    connect(grdPrintWO, &grid::GridView::changed, grdPrintWO, &grid::GridView::selectRow);
    connect(grdPrintWO, &grid::GridView::rowActivated, this, [this](int row) {
        grid::GridModel &rows = grdPrintWO->rows();
        // As by a click on the box itself: an edit, which a change from the program would not be.
        rows.edit(row, rows.columnIndex(u"Select"), !rows.value(row, u"Select").toBool());
    });
    grdPrintWO->rows().styleRule = [this](int row, const QString &) {
        return grdPrintWO->rows().value(row, u"WorkOrderNo").isValid()
                   ? grid::Style{}
                   : grid::Style{.background = WithoutOrder};
    };
}

void PrintWorkPage::connectFrames()
{
    // The buttons of the frames belong to no page, so that it is the page that ends what is being
    // edited on either side before they act.
    m_printed->mayAct = [this] { return finishEditing(); };
    connect(m_printed, &PrintedServices::addWanted, this, &PrintWorkPage::cmdPrintAddService_Click);
    connect(m_due, &DueServices::changeWanted, this, [this](const QString &button) {
        if (finishEditing())
            base::trapped(Module, qPrintable(button + u"_Click"_s), [this] { generateFirst(); });
    });
    // What the buttons may do hangs on the rows of the frames too, which come later than the row of
    // the list.
    connect(m_printed, &PrintedServices::shown, this, &PrintWorkPage::EnableControls);
    connect(m_due, &DueServices::shown, this, &PrintWorkPage::EnableControls);
}

void PrintWorkPage::EnableControls()
{
    const bool rows = grdPrintWO->rows().rowCount() > 0;
    // Without a row in the list none of these has anything to work on.
    for (QPushButton *button : {cmdPrintSelect, cmdPrintUnSelect, cmdGenrateWo})
        button->setEnabled(rows);
    cmdDelete->setEnabled(rows && currentOrder() != 0);
    m_due->EnableControls(rows);
    m_printed->EnableControls(rows);
}

QList<grid::GridView *> PrintWorkPage::grids() const
{
    return QList{grdPrintWO} + m_due->grids() + m_printed->grids();
}

qint64 PrintWorkPage::currentOrder() const
{
    return worklists::currentKey(*grdPrintWO, u"WorkOrderNo");
}

qint64 PrintWorkPage::currentMachine() const
{
    return worklists::currentKey(*grdPrintWO, u"EquipmentId");
}

bool PrintWorkPage::finishEditing()
{
    // Only one of the two is in front; the other one holds nothing to be stored and answers True.
    return m_printed->finishEditing() && m_due->leaveNote();
}

// --- Lists -------------------------------------------------------------------------------------

void PrintWorkPage::RefreshPrintWo()
{
    const bool loaded = base::trapped(Module, "RefreshPrintWo", false, [this] {
        m_lateness = LatenessStyle::current();
        // Kept only once the query has passed: with a filter that the database refuses the list
        // stays as it is, and what is generated has to go by the window that it was read by.
        const WorkorderFilter filter = m_filter();
        const db::Recordset rows = workorders::dueList(filter);
        m_shown = filter;
        // Each row that is filled in becomes the current one for a moment; the frames read once, at
        // the end.
        const QScopedValueRollback filling(m_filling, true);
        grdPrintWO->rows().setRecordset(rows);
        grdPrintWO->rows().setAll(u"Select", false);
        // Nothing is ticked in rows that were read anew, so the button offers to tick them.
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
    m_frames->setCurrentWidget(ordered ? static_cast<QWidget *>(m_printed) : m_due);
    // Both are told, so that the frame behind does not keep the rows of a machine that was left.
    m_due->RefreshGenServiceGrid(ordered ? 0 : currentMachine(), m_shown, m_lateness);
    m_printed->RefreshPrintServiceGrid(currentOrder(), m_shown, m_lateness);
}

void PrintWorkPage::FindNSelectPrintWorkorder(const QString &unitNo)
{
    const grid::GridModel &rows = grdPrintWO->rows();
    // A machine may stand in the list several times: for what is due, and for each of its open
    // orders. The topmost row of what is due is meant.
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
    // The caption says what the next press does; it is the only memory of that.
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
        // By the window that is on show, whatever has been typed into the boxes since: what the
        // user has not seen must not become an order.
        return generation::GenerateWorkorder(m_shown, tickedMachines(), generated, box.progress());
    });
}

void PrintWorkPage::cmdGenrateWo_Click()
{
    // A ticked order is a selection, too: it needs nothing generated, and no complaint either.
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
                 // Of this one machine inactive services come along: somebody looks at it and can
                 // take them off.
                 [&] { return generation::generateForRow(m_shown, currentMachine(), generated); }))
        return;
    base::showMessage(u"Workorder Generated"_s);
    RefreshPrintWo();
    if (!generated.isEmpty())
        // The change that was asked for is meant for the order that the service stands on now.
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
        !worklists::addServices(m_printed->serviceGrid()->rows(), order, currentMachine(), false))
        return;
    // The new service is dated today, and must not be filtered away.
    if (m_reachToday()) {
        RefreshPrintWo();
        FindNSelectPrintWorkorderByWO(order);
    }
    // Also when the window reached that far already and the list was not read anew.
    m_printed->RefreshPrintServiceGrid();
}
