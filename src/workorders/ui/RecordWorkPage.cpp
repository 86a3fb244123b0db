#include "workorders/ui/RecordWorkPage.h"

#include "core/General.h"
#include "core/Session.h"
#include "core/ui/CellWrite.h"
#include "core/ui/ListGrid.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/Telling.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Readings.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/ServiceNote.h"
#include "workorders/ui/WorkLists.h"
#include "workorders/ui/frmServiceTime.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
constexpr int OldestCompletion = 50; // years

QDate dateOf(const QVariant &value)
{
    return value.toDateTime().date();
}

/// Rules may be called with the column's name in any case.
bool is(const QString &column, QStringView name)
{
    return name.compare(column, Qt::CaseInsensitive) == 0;
}

bool isTimeColumn(const QString &column)
{
    return is(column, u"StartTime") || is(column, u"EndTime") || is(column, u"Workhrs");
}

grid::Column check(const QString &name, int width, bool editable = true)
{
    return {.name = name, .width = width, .editable = editable, .editor = grid::Editor::Check};
}

QList<grid::Column> orderColumns()
{
    return {check(u"Complete"_s, 75),
            {.name = u"CompletedDate"_s,
             .caption = u"Completed Date"_s,
             .width = 115,
             .editable = true,
             .format = u"mm/dd/yyyy"_s,
             .editor = grid::Editor::Date},
            {.name = u"WorkOrderNo"_s, .caption = u"W/O No"_s, .width = 75},
            {.name = u"Unit No"_s, .width = 100},
            {.name = u"Equipment Name"_s, .width = 220},
            {.name = u"Equipment Type"_s, .width = 150},
            check(u"Printed"_s, 65, false),
            {.name = u"EquipmentId"_s, .visible = false},
            {.name = u"Work Order Date"_s, .width = 125, .format = u"mm/dd/yyyy"_s}};
}

QList<grid::Column> serviceColumns()
{
    const QString time = u"hh:mm AMPM"_s;
    return {check(u"Completed"_s, 75),
            check(u"Skip"_s, 40),
            {.name = u"Service No"_s, .width = 72},
            {.name = u"Service Name"_s, .width = 165},
            {.name = u"Service Crew"_s,
             .width = 130,
             .editable = true,
             .align = grid::Align::Left,
             .editor = grid::Editor::DropDown},
            {.name = u"Next Service Date"_s, .width = 112, .format = u"mm/dd/yyyy"_s},
            {.name = u"Period"_s, .visible = false},
            {.name = u"Schedule Type"_s, .width = 95},
            {.name = u"Count"_s,
             .width = 70,
             .editable = true,
             .editor = grid::Editor::Masked,
             .mask = u"{0,999999999}"_s},
            {.name = u"StartTime"_s, .caption = u"Start Time"_s, .width = 72, .format = time},
            {.name = u"EndTime"_s, .caption = u"End Time"_s, .width = 72, .format = time},
            {.name = u"Workhrs"_s, .caption = u"Work Hrs"_s, .width = 65},
            {.name = u"Lbr Cost"_s, .width = 65, .format = u"0.00"_s},
            {.name = u"ServiceID"_s, .visible = false},
            {.name = u"NServiceUsedID"_s, .visible = false},
            {.name = u"Supplier"_s,
             .width = 140,
             .editable = true,
             .align = grid::Align::Left,
             .editor = grid::Editor::DropDown}};
}

QList<grid::Column> partColumns()
{
    return {{.name = u"Part Number"_s, .width = 95},
            check(u"Used"_s, 45),
            {.name = u"Description"_s, .width = 135},
            {.name = u"Qty Req"_s, .width = 60, .format = u"0.00"_s},
            {.name = u"Qty Used"_s,
             .width = 65,
             .editable = true,
             .format = u"0.00"_s,
             .editor = grid::Editor::Masked,
             .mask = u"{0,99999}.##"_s},
            {.name = u"Price"_s,
             .width = 65,
             .editable = true,
             .format = u"0.00"_s,
             .editor = grid::Editor::Masked,
             .mask = u"{0,99999}.{0,99}"_s},
            {.name = u"Supplier"_s,
             .width = 110,
             .editable = true,
             .align = grid::Align::Left,
             .editor = grid::Editor::DropDown}};
}

} // namespace

RecordWorkPage::RecordWorkPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"pageCompleteWorkOrder"_s);
    buildPage();
    setRules();
    connectControls();
    EnableControls();
}

void RecordWorkPage::buildPage()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildOrders());
    splitter->addWidget(buildServices());
    splitter->addWidget(buildParts());
    for (int pane = 0; pane < splitter->count(); ++pane)
        splitter->setStretchFactor(pane, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

QWidget *RecordWorkPage::buildOrders()
{
    auto *pane = new QWidget(this);
    input::FormBuilder form(pane);
    grdRecordWo = makeListGrid(pane, u"grdRecordWo"_s, u"Open work orders"_s, orderColumns());
    grdRecordWo->installEventFilter(this);
    form.widget(grdRecordWo, true);
    form.finish();
    return pane;
}

QWidget *RecordWorkPage::buildServices()
{
    auto *pane = new QWidget(this);
    input::FormBuilder form(pane);
    grdRecordService = makeListGrid(pane, u"grdRecordService"_s, u"Services of the work order"_s,
                                    serviceColumns());
    form.widget(grdRecordService, true);
    cmdRecordAddService =
        form.leftButton(u"cmdRecordAddService"_s, u"Add &Service"_s, theme::icon(u"add"_s));
    cmdSkipAll = form.leftButton(u"cmdSkipAll"_s, u"S&kip All"_s, theme::icon(u"skip"_s));
    form.finish();
    return pane;
}

QWidget *RecordWorkPage::buildParts()
{
    auto *pane = new QWidget(this);
    input::FormBuilder form(pane);
    form.beginColumns();
    grdRecordPart =
        makeListGrid(pane, u"grdRecordPart"_s, u"Parts of the service"_s, partColumns());
    form.widget(grdRecordPart, true);
    form.nextColumn();
    txtRecordNote = form.memoField(u"txtRecordNote"_s, u"&Note:"_s, 3);
    form.endColumns();
    cmdRecordAddPart =
        form.leftButton(u"cmdRecordAddPart"_s, u"&Add Part"_s, theme::icon(u"add"_s));
    cmdRecordRemovePart =
        form.leftButton(u"cmdRecordRemovePart"_s, u"Re&move Part"_s, theme::icon(u"delete"_s));
    form.finish();
    return pane;
}

void RecordWorkPage::setRules()
{
    using Change = bool (RecordWorkPage::*)(int, const QString &, const QVariant &);
    const auto rule = [this](const char *procedure, Change change) {
        return [this, procedure, change](int row, const QString &column, const QVariant &value) {
            const bool done = telling(Module, procedure, false,
                                      [&] { return (this->*change)(row, column, value); });
            // What was refused may be gone. Not before the grid is done with the cell.
            if (!done)
                QMetaObject::invokeMethod(
                    this, [this] { showWhatIsLeft(); }, Qt::QueuedConnection);
            return done;
        };
    };
    grdRecordWo->rows().changeRule =
        rule("grdRecordWo_Change", &RecordWorkPage::grdRecordWo_Change);
    grdRecordService->rows().changeRule =
        rule("grdRecordService_Change", &RecordWorkPage::grdRecordService_Change);
    grdRecordPart->rows().changeRule =
        rule("grdRecordPart_Change", &RecordWorkPage::grdRecordPart_Change);
    grdRecordWo->rows().styleRule = [this](int row, const QString &) { return orderStyle(row); };
    grdRecordService->rows().styleRule = [this](int row, const QString &column) {
        return serviceStyle(row, column);
    };
    m_note = new ServiceNote(
        txtRecordNote, recording::updateNote, [this](qint64 service, const QString &note) {
            const grid::GridModel &rows = grdRecordService->rows();
            const int row = rows.findRow(u"NServiceUsedID", service);
            if (row < 0 || !note.trimmed().isEmpty() || !rows.value(row, u"Skip").toBool())
                return true;
            base::showCritical(u"Note Field Cann't left blank. When Service has Skiped."_s);
            return false;
        });
}

void RecordWorkPage::connectControls()
{
    const auto click = [this](QPushButton *button, const char *procedure,
                              void (RecordWorkPage::*action)()) {
        connect(button, &QPushButton::clicked, this, [this, procedure, action] {
            if (finishEditing())
                base::trapped(Module, procedure, [&] { (this->*action)(); });
        });
    };
    click(cmdSkipAll, "cmdSkipAll_Click", &RecordWorkPage::cmdSkipAll_Click);
    click(cmdRecordAddService, "cmdAddNewService_Click", &RecordWorkPage::cmdAddNewService_Click);
    click(cmdRecordAddPart, "cmdRecordAddPart_Click", &RecordWorkPage::cmdRecordAddPart_Click);
    click(cmdRecordRemovePart, "cmdRecordRemovePart_Click",
          &RecordWorkPage::cmdRecordRemovePart_Click);

    connect(grdRecordWo, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            RefreshRecordServiceGrid();
    });
    connect(grdRecordWo, &grid::GridView::changed, this, [this](int row) {
        if (row == grdRecordWo->currentRow())
            RefreshRecordServiceGrid();
    });
    connect(grdRecordWo, &grid::GridView::rowActivated, this, [this](int row) {
        grid::GridModel &rows = grdRecordWo->rows();
        rows.edit(row, rows.columnIndex(u"Complete"), !rows.value(row, u"Complete").toBool());
    });
    connect(grdRecordService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            showPartsAndNote();
    });
    connect(grdRecordService, &grid::GridView::cellClicked, this, &RecordWorkPage::openTimes);
    connect(grdRecordService, &grid::GridView::rowActivated, this,
            [this](int row) { openTimes(row, grdRecordService->currentColumn()); });
}

bool RecordWorkPage::eventFilter(QObject *watched, QEvent *event)
{
    // T completes the row's order today.
    if (watched == grdRecordWo && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
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

void RecordWorkPage::EnableControls()
{
    const bool services = grdRecordService->rows().rowCount() > 0;
    cmdRecordAddService->setEnabled(hasOrders());
    cmdSkipAll->setEnabled(isOrderComplete());
    cmdRecordAddPart->setEnabled(services);
    cmdRecordRemovePart->setEnabled(grdRecordPart->rows().rowCount() > 0);
}

QList<grid::GridView *> RecordWorkPage::grids() const
{
    return {grdRecordWo, grdRecordService, grdRecordPart};
}

bool RecordWorkPage::hasOrders() const
{
    return grdRecordWo->rows().rowCount() > 0;
}

qint64 RecordWorkPage::currentOrder() const
{
    return worklists::currentKey(*grdRecordWo, u"WorkOrderNo");
}

qint64 RecordWorkPage::currentMachine() const
{
    return worklists::currentKey(*grdRecordWo, u"EquipmentId");
}

qint64 RecordWorkPage::currentService() const
{
    return worklists::currentKey(*grdRecordService, u"NServiceUsedID");
}

bool RecordWorkPage::isOrderComplete() const
{
    const int row = grdRecordWo->currentRow();
    return row >= 0 && grdRecordWo->rows().value(row, u"Complete").toBool();
}

bool RecordWorkPage::isServiceCompleted() const
{
    const int row = grdRecordService->currentRow();
    return row >= 0 && grdRecordService->rows().value(row, u"Completed").toBool();
}

QString RecordWorkPage::machines() const
{
    return worklists::joinedKeys(grdRecordWo->rows(), u"EquipmentId");
}

bool RecordWorkPage::finishEditing()
{
    for (grid::GridView *each : grids()) {
        if (!each->finishEditing())
            return false;
    }
    return m_note->leave();
}

// --- Lists -------------------------------------------------------------------------------------

void RecordWorkPage::RefreshRecordWorkorder()
{
    base::trapped(Module, "RefreshRecordWorkorder", [this] {
        m_lateness = LatenessStyle::current();
        m_late.clear();
        grdRecordService->rows().column(u"Service Crew").choices = worklists::crews();
        grdRecordService->rows().column(u"Supplier").choices = worklists::suppliers();
        grdRecordPart->rows().column(u"Supplier").choices =
            grdRecordService->rows().column(u"Supplier").choices;
        grdRecordService->rows().columnsChanged();
        grdRecordPart->rows().columnsChanged();

        const qint64 kept = currentOrder();
        const db::Recordset rows = gcnData->Open(workorders::statements::recordWo());
        const QScopedValueRollback filling(m_filling, true);
        grdRecordWo->rows().setRecordset(rows);
        worklists::selectKey(*grdRecordWo, u"WorkOrderNo", kept);
    });
    RefreshRecordServiceGrid();
    Q_EMIT refreshed();
}

/// After a refused change: orders, services and parts that another workstation has taken away go
/// from the lists. What is there stays as the user sees it.
void RecordWorkPage::showWhatIsLeft()
{
    const bool isThere = telling(Module, "RefreshRecordWorkorder", true, [this] {
        return recording::isOpen(currentOrder()) &&
               (currentService() == 0 || recording::isOnOpenOrder(currentService()));
    });
    if (!isThere)
        RefreshRecordWorkorder();
}

void RecordWorkPage::RefreshRecordServiceGrid()
{
    base::trapped(Module, "RefreshRecordServiceGrid", [this] {
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdRecordService, workorders::statements::recordServices(), currentOrder(),
                        u"NServiceUsedID");
    });
    showPartsAndNote();
}

void RecordWorkPage::RefreshRecordPartGrid()
{
    base::trapped(Module, "RefreshRecordPartGrid", [this] {
        worklists::load(*grdRecordPart, workorders::statements::recordParts(), currentService());
    });
    EnableControls();
}

void RecordWorkPage::showPartsAndNote()
{
    RefreshRecordPartGrid();
    base::trapped(Module, "RefreshRecordPartGrid",
                  [this] { m_note->show(currentService(), storedNote()); });
}

QString RecordWorkPage::storedNote() const
{
    return recording::noteOf(currentService());
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
    const auto known = m_late.constFind(order);
    const bool late = known != m_late.constEnd()
                          ? *known
                          : *m_late.insert(order, recording::ISWorkOrderLate(order, base::today()));
    return late ? LatenessStyle::late() : grid::Style{};
}

grid::Style RecordWorkPage::serviceStyle(int row, const QString &column) const
{
    const grid::GridModel &rows = grdRecordService->rows();
    // A hint that posting needs the count.
    if (is(column, u"Count") && !readings::countType(rows.text(row, u"Period")).isEmpty())
        return {.foreground = Qt::black, .background = {176, 224, 168}};
    return m_lateness.of(dateOf(rows.value(row, u"Next Service Date")));
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

bool RecordWorkPage::grdRecordWo_Change(int row, const QString &column, const QVariant &value)
{
    return is(column, u"Complete") ? completeChanged(row, value.toBool())
                                   : completedDateChanged(row, value);
}

bool RecordWorkPage::completeChanged(int row, bool complete)
{
    grid::GridModel &rows = grdRecordWo->rows();
    const qint64 order = rows.value(row, u"WorkOrderNo").toLongLong();
    const auto date = complete ? std::optional(base::today()) : std::nullopt;
    if (!recording::UpdateWorkorder(order, date))
        return false;
    rows.setValue(row, u"CompletedDate", date ? QVariant(base::wallClock(*date)) : QVariant());
    cmdSkipAll->setEnabled(complete);
    return true;
}

bool RecordWorkPage::completedDateChanged(int row, const QVariant &value)
{
    const QDate date = dateOf(value);
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
    rows.setValue(row, u"Complete", date.isValid());
    cmdSkipAll->setEnabled(date.isValid());
    return true;
}

/// An order of which a service changes is complete no longer; its other services stay as they are.
void RecordWorkPage::showOrderReopened()
{
    const int row = grdRecordWo->currentRow();
    grid::GridModel &rows = grdRecordWo->rows();
    rows.setValue(row, u"Complete", false);
    rows.setValue(row, u"CompletedDate", QVariant());
    cmdSkipAll->setEnabled(false);
}

// --- Services ------------------------------------------------------------------------------------

bool RecordWorkPage::grdRecordService_Change(int row, const QString &column, const QVariant &value)
{
    grid::GridModel &rows = grdRecordService->rows();
    const qint64 id = rows.value(row, u"NServiceUsedID").toLongLong();
    if (is(column, u"Service Crew"))
        return crewChanged(row, value.toLongLong());
    if (is(column, u"Supplier"))
        return writeCell(rows, row, column, value, [&](const recording::Shown &shown) {
            return recording::UpdateWorkorderService(id, u"SupplierID"_s, value.toLongLong(),
                                                     shown);
        });
    if (is(column, u"Count"))
        return countChanged(row, value);
    if (is(column, u"Skip"))
        return skipChanged(row, value.toBool());
    if (is(column, u"Completed"))
        return completedChanged(row, value.toBool());
    return false;
}

bool RecordWorkPage::crewChanged(int row, qint64 crew)
{
    grid::GridModel &rows = grdRecordService->rows();
    const qint64 id = rows.value(row, u"NServiceUsedID").toLongLong();
    std::optional<double> cost;
    const auto write = [&](const recording::Shown &shown) {
        cost = recording::changeCrew(id, crew, shown);
        return cost.has_value();
    };
    if (!writeCell(rows, row, u"Service Crew"_s, crew, write))
        return false;
    rows.setValue(row, u"Lbr Cost", *cost);
    return true;
}

bool RecordWorkPage::countChanged(int row, const QVariant &count)
{
    grid::GridModel &rows = grdRecordService->rows();
    const qint64 previous = GetEquipmentCount(currentMachine(), rows.text(row, u"Schedule Type"));
    if (count.isValid() && previous > count.toLongLong() &&
        !base::askYesNo(
            u"Enter count is smaller than previous count(%1). Do you want to continue ?"_s.arg(
                previous)))
        return false;
    const qint64 id = rows.value(row, u"NServiceUsedID").toLongLong();
    return writeCell(rows, row, u"Count"_s, count, [&](const recording::Shown &shown) {
        return recording::UpdateWorkorderService(id, u"CountValue"_s, count, shown);
    });
}

bool RecordWorkPage::skipChanged(int row, bool skip)
{
    grid::GridModel &rows = grdRecordService->rows();
    const qint64 id = rows.value(row, u"NServiceUsedID").toLongLong();
    if (!skip)
        return recording::UpdateWorkorderService(id, u"Skip"_s, false);
    const auto reason = base::prompts().input(
        u"Please mention the reason for Skiping the Service"_s, {}, storedNote());
    if (!reason || reason->trimmed().isEmpty() || !recording::skipService(id, *reason))
        return false;
    showOrderReopened();
    rows.setValue(row, u"Completed", false);
    showPartsAndNote();
    return true;
}

bool RecordWorkPage::completedChanged(int row, bool completed)
{
    grid::GridModel &rows = grdRecordService->rows();
    const qint64 id = rows.value(row, u"NServiceUsedID").toLongLong();
    if (!recording::completeService(id, completed))
        return false;
    showOrderReopened();
    if (completed)
        rows.setValue(row, u"Skip", false);
    RefreshRecordPartGrid();
    return true;
}

void RecordWorkPage::openTimes(int row, const QString &column)
{
    if (row < 0 || !isTimeColumn(column))
        return;
    const grid::GridModel &rows = grdRecordService->rows();
    const auto given = [&](QStringView name) {
        const QString text = rows.value(row, name).toString();
        return text.trimmed().isEmpty() ? u"00:00"_s : text;
    };
    (void)frmServiceTime::ShowServiceTimeForm(
        {.id = rows.value(row, u"NServiceUsedID").toLongLong(),
         .start = given(u"StartTime"),
         .end = given(u"EndTime"),
         .workHours = given(u"Workhrs")});
    RefreshRecordServiceGrid();
}

void RecordWorkPage::cmdSkipAll_Click()
{
    const qint64 order = currentOrder();
    if (order == 0)
        return;
    const auto reason = base::prompts().input(
        u"Please mention the reason for Skiping the Services"_s, {}, storedNote());
    if (reason && !reason->trimmed().isEmpty() && telling(Module, "cmdSkipAll_Click", false, [&] {
            return recording::skipAll(order, *reason);
        }))
        RefreshRecordServiceGrid();
}

void RecordWorkPage::cmdAddNewService_Click()
{
    if (currentOrder() != 0 && worklists::addServices(grdRecordService->rows(), currentOrder(),
                                                      currentMachine(), isOrderComplete()))
        RefreshRecordServiceGrid();
}

// --- Parts -------------------------------------------------------------------------------------

bool RecordWorkPage::grdRecordPart_Change(int row, const QString &column, const QVariant &value)
{
    grid::GridModel &rows = grdRecordPart->rows();
    const QString part = rows.text(row, u"Part Number");
    const qint64 service = currentService();
    const auto written = [&](const QString &stored, const QVariant &wanted) {
        return writeCell(rows, row, column, wanted, [&](const recording::Shown &shown) {
            return recording::UpdateWorkorderPart(part, service, stored, wanted, shown);
        });
    };
    if (is(column, u"Supplier"))
        return written(u"SupplierID"_s, value.toLongLong());
    if (is(column, u"Price"))
        return written(u"Price"_s, value);
    if (is(column, u"Qty Used")) {
        const QVariant quantity = value.isValid() ? value : QVariant(0.0);
        if (!written(u"QuantityUsed"_s, quantity))
            return false;
        rows.setValue(row, u"Qty Used", quantity);
        return true;
    }
    // A part is used only by a service that is done.
    if (!isServiceCompleted()) {
        rows.setValue(row, u"Used", false);
        return false;
    }
    return recording::UpdateWorkorderPart(part, service, u"Used"_s, value.toBool());
}

void RecordWorkPage::cmdRecordAddPart_Click()
{
    const qint64 service = currentService();
    if (service != 0 && worklists::addParts(grdRecordPart->rows(), service, isServiceCompleted()))
        showPartsAndNote();
}

void RecordWorkPage::cmdRecordRemovePart_Click()
{
    if (worklists::removePart(*grdRecordPart, currentService()))
        RefreshRecordPartGrid();
}
