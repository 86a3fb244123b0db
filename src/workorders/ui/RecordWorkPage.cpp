#include "workorders/ui/RecordWorkPage.h"

#include "core/Session.h"
#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/LatenessStyle.h"
#include "workorders/ui/RecordParts.h"
#include "workorders/ui/RecordServices.h"
#include "workorders/ui/WorkLists.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
constexpr int OldestCompletion = 50; // years
constexpr int PaneMargin = 4;        // pixels, above and below

QDate dateOf(const QVariant &value)
{
    return value.toDateTime().date();
}

} // namespace

RecordWorkPage::RecordWorkPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"pageCompleteWorkOrder"_s);
    buildPage();
    connectControls();
    m_services->EnableControls();
    m_parts->EnableControls();
}

void RecordWorkPage::buildPage()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildOrders());
    m_services = new RecordServices(*this, splitter);
    m_parts = new RecordParts(*this, *m_services, splitter);
    splitter->addWidget(m_services);
    splitter->addWidget(m_parts);
    for (int pane = 0; pane < splitter->count(); ++pane) {
        splitter->setStretchFactor(pane, 1);
        // The handles part the panes already, and an enlarged screen has no height to give away.
        QLayout *lines = splitter->widget(pane)->layout();
        const QMargins margins = lines->contentsMargins();
        lines->setContentsMargins(margins.left(), PaneMargin, margins.right(), PaneMargin);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

QWidget *RecordWorkPage::buildOrders()
{
    auto *pane = new QWidget(this);
    input::FormBuilder form(pane);
    grdRecordWo = makeListGrid(pane, u"grdRecordWo"_s, u"Open work orders"_s, orderColumns());
    showWhenEmpty(*grdRecordWo, u"No work order is open."_s);
    // For its key T, ahead of what the grid would make of a letter.
    grdRecordWo->installEventFilter(this);
    form.widget(grdRecordWo, true);
    form.finish();
    return pane;
}

QList<grid::Column> RecordWorkPage::orderColumns()
{
    const auto rule = [this](const worklists::Change &change) {
        // An order that is refused may have been posted elsewhere; its row goes then.
        return worklists::told(this, "grdRecordWo_Change", change, [this] { showWhatIsLeft(); });
    };
    return {{.name = u"Complete"_s,
             .width = 75,
             .editable = true,
             .editor = grid::Editor::Check,
             .changeRule = rule([this](int row, const QVariant &complete) {
                 return completeChanged(row, complete.toBool());
             })},
            {.name = u"CompletedDate"_s,
             .caption = u"Completed Date"_s,
             .width = 115,
             .editable = true,
             .format = u"mm/dd/yyyy"_s,
             .editor = grid::Editor::Date,
             .changeRule = rule([this](int row, const QVariant &date) {
                 return completedDateChanged(row, date);
             })},
            {.name = u"WorkOrderNo"_s, .caption = u"W/O No"_s, .width = 75},
            {.name = u"Unit No"_s, .width = 100},
            {.name = u"Equipment Name"_s, .width = 220},
            {.name = u"Equipment Type"_s, .width = 150},
            {.name = u"Printed"_s, .width = 65, .editor = grid::Editor::Check},
            {.name = u"EquipmentId"_s, .visible = false},
            {.name = u"Work Order Date"_s, .width = 125, .format = u"mm/dd/yyyy"_s}};
}

void RecordWorkPage::connectControls()
{
    grdRecordWo->rows().styleRule = [this](int row, const QString &) { return orderStyle(row); };
    connect(grdRecordWo, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            m_services->RefreshRecordServiceGrid();
    });
    // Completing an order marks its services and their parts too, which stand in the panes below.
    connect(grdRecordWo, &grid::GridView::changed, this, [this](int row) {
        // A tick may be set in a row that is not the current one; the panes show the current one.
        if (row == grdRecordWo->currentRow())
            m_services->RefreshRecordServiceGrid();
    });
    connect(grdRecordWo, &grid::GridView::rowActivated, this, [this](int row) {
        grid::GridModel &rows = grdRecordWo->rows();
        // Enter and a double click are the tick, by the same rule.
        rows.edit(row, rows.columnIndex(u"Complete"), !rows.value(row, u"Complete").toBool());
    });
    connect(m_services, &RecordServices::serviceShown, this, [this] {
        m_parts->showPartsAndNote();
        m_services->EnableControls();
    });
    connect(m_services, &RecordServices::partsMarked, m_parts, &RecordParts::RefreshRecordPartGrid);
}

bool RecordWorkPage::eventFilter(QObject *watched, QEvent *event)
{
    // T completes the row's order today.
    if (watched == grdRecordWo && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        // With Ctrl or Alt the key is a shortcut of the screen. A capital T counts as well.
        const bool plain = (key->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
        const int row = grdRecordWo->currentRow();
        if (key->key() == Qt::Key_T && plain && row >= 0) {
            grid::GridModel &rows = grdRecordWo->rows();
            rows.edit(row, rows.columnIndex(u"CompletedDate"), base::wallClock(base::today()));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QList<grid::GridView *> RecordWorkPage::grids() const
{
    return {grdRecordWo, m_services->grid(), m_parts->grid()};
}

bool RecordWorkPage::hasOrders() const
{
    return grdRecordWo->rows().rowCount() > 0;
}

RecordFrame::Order RecordWorkPage::currentOrder() const
{
    const int row = grdRecordWo->currentRow();
    return {.WorkorderNo = worklists::currentKey(*grdRecordWo, u"WorkOrderNo"),
            .EquipmentID = worklists::currentKey(*grdRecordWo, u"EquipmentId"),
            .isComplete = row >= 0 && grdRecordWo->rows().value(row, u"Complete").toBool()};
}

QString RecordWorkPage::machines() const
{
    return worklists::joinedKeys(grdRecordWo->rows(), u"EquipmentId");
}

bool RecordWorkPage::finishEditing()
{
    // The cells first: what is typed into one may change which note is on show.
    for (grid::GridView *each : grids()) {
        if (!each->finishEditing())
            return false;
    }
    return m_parts->leaveNote();
}

// --- Lists -------------------------------------------------------------------------------------

void RecordWorkPage::RefreshRecordWorkorder()
{
    base::trapped(Module, "RefreshRecordWorkorder", [this] {
        // The answers of the last reading: dates and limits may be others by now.
        m_late.clear();
        m_services->loadLists();
        // One list of suppliers for both grids, read once.
        m_parts->setSuppliers(m_services->grid()->rows().column(u"Supplier").choices);

        // By number: rows shift when orders come and go.
        const qint64 kept = currentOrder().WorkorderNo;
        const db::Recordset rows = gcnData->Open(workorders::statements::recordWo());
        const QScopedValueRollback filling(m_filling, true);
        grdRecordWo->rows().setRecordset(rows);
        worklists::selectKey(*grdRecordWo, u"WorkOrderNo", kept);
    });
    m_services->RefreshRecordServiceGrid();
    Q_EMIT refreshed();
}

/// After a refused change: orders, services and parts that another workstation has taken away go
/// from the lists. What is there stays as the user sees it.
void RecordWorkPage::showWhatIsLeft()
{
    // Asked of the database, since a refusal alone doesn't say whether the row is gone or only
    // held.
    const bool isThere = telling(Module, "RefreshRecordWorkorder", true, [this] {
        const qint64 service = m_services->currentService();
        return recording::isOpen(currentOrder().WorkorderNo) &&
               (service == 0 || recording::isOnOpenOrder(service));
    });
    // Reading anew on each refusal would take away what the user is typing elsewhere.
    if (!isThere)
        RefreshRecordWorkorder();
}

void RecordWorkPage::FindNSelectRecordWorkorder(qint64 WorkorderNo)
{
    const int row = grdRecordWo->rows().findRow(u"WorkOrderNo", WorkorderNo);
    if (row >= 0)
        grdRecordWo->selectRow(row);
}

grid::Style RecordWorkPage::orderStyle(int row)
{
    const qint64 order = grdRecordWo->rows().value(row, u"WorkOrderNo").toLongLong();
    // A grid asks for each cell that it paints; the database is asked once for each order.
    const auto known = m_late.constFind(order);
    const bool late = known != m_late.constEnd()
                          ? *known
                          : *m_late.insert(order, recording::ISWorkOrderLate(order, base::today()));
    return late ? LatenessStyle::late() : grid::Style{};
}

// --- Orders ------------------------------------------------------------------------------------

QList<qint64> RecordWorkPage::completeOrders() const
{
    QList<qint64> orders;
    const grid::GridModel &rows = grdRecordWo->rows();
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (rows.value(row, u"Complete").toBool())
            orders.append(rows.value(row, u"WorkOrderNo").toLongLong());
    }
    return orders;
}

bool RecordWorkPage::mayComplete(QDate date)
{
    if (date >= base::today().addYears(-OldestCompletion))
        return true;
    base::showMessage(u"Complete date cann't less than to 50 year of Current Date."_s);
    return false;
}

bool RecordWorkPage::completeChanged(int row, bool complete)
{
    grid::GridModel &rows = grdRecordWo->rows();
    const qint64 order = rows.value(row, u"WorkOrderNo").toLongLong();
    // A tick says that the work was done today; another day is given in the column beside it.
    const auto date = complete ? std::optional(base::today()) : std::nullopt;
    if (!recording::UpdateWorkorder(order, date))
        return false;
    rows.setValue(row, u"CompletedDate", date ? QVariant(base::wallClock(*date)) : QVariant());
    return true;
}

bool RecordWorkPage::completedDateChanged(int row, const QVariant &value)
{
    const QDate date = dateOf(value);
    // An emptied date needs no check: it opens the order again.
    if (date.isValid() && !mayComplete(date))
        return false;
    grid::GridModel &rows = grdRecordWo->rows();
    const qint64 order = rows.value(row, u"WorkOrderNo").toLongLong();
    const auto write = [&](const recording::Shown &shown) {
        return recording::UpdateWorkorder(
            order, date.isValid() ? std::optional(date) : std::nullopt, true, shown);
    };
    if (!writeCell(rows, row, u"CompletedDate"_s, value, write))
        return false;
    // Tick and date stand for one another: neither is ever there alone.
    rows.setValue(row, u"Complete", date.isValid());
    return true;
}

/// An order of which a service changes is complete no longer; its other services stay as they are.
void RecordWorkPage::showOrderReopened()
{
    const int row = grdRecordWo->currentRow();
    grid::GridModel &rows = grdRecordWo->rows();
    rows.setValue(row, u"Complete", false);
    rows.setValue(row, u"CompletedDate", QVariant());
    m_services->EnableControls();
}
