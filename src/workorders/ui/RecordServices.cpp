#include "workorders/ui/RecordServices.h"

#include "core/Meters.h"
#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Readings.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/RecordFrame.h"
#include "workorders/ui/WorkLists.h"
#include "workorders/ui/frmServiceTime.h"

#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
const QColor CountWanted(176, 224, 168); // a hint that posting needs the count

/// The columns whose cells open the entry of times.
bool isTimeColumn(const QString &column)
{
    static const QStringList times{u"StartTime"_s, u"EndTime"_s, u"Workhrs"_s};
    return times.contains(column, Qt::CaseInsensitive);
}

} // namespace

RecordServices::RecordServices(RecordFrame &frame, QWidget *parent)
    : QWidget(parent)
    , m_frame(frame)
{
    buildBox();
    connectControls();
}

void RecordServices::buildBox()
{
    input::FormBuilder form(this);
    grdRecordService =
        makeListGrid(this, u"grdRecordService"_s, u"Services of the work order"_s, columns());
    showWhenEmpty(*grdRecordService, u"No services."_s);
    form.widget(grdRecordService, true);
    cmdRecordAddService =
        form.leftButton(u"cmdRecordAddService"_s, u"Add &Service"_s, theme::icon(u"add"_s));
    cmdSkipAll = form.leftButton(u"cmdSkipAll"_s, u"S&kip All"_s, theme::icon(u"skip"_s));
    form.finish();
}

QList<grid::Column> RecordServices::columns()
{
    const auto rule = [this](const worklists::Change &change) {
        // A service that is refused may stand on no open order any more; the page looks what is
        // left.
        return worklists::told(this, "grdRecordService_Change", change,
                               [this] { m_frame.showWhatIsLeft(); });
    };
    // Completed and Skip: a tick each, of which one takes the other away.
    const auto tick = [&](const QString &name, int width,
                          bool (RecordServices::*changed)(int, bool)) {
        return grid::Column{.name = name,
                            .width = width,
                            .editable = true,
                            .editor = grid::Editor::Check,
                            .changeRule = rule([this, changed](int row, const QVariant &ticked) {
                                return (this->*changed)(row, ticked.toBool());
                            })};
    };
    const QString time = u"hh:mm AMPM"_s;
    return {tick(u"Completed"_s, 75, &RecordServices::completedChanged),
            tick(u"Skip"_s, 40, &RecordServices::skipChanged),
            {.name = u"Service No"_s, .width = 72},
            {.name = u"Service Name"_s, .width = 165},
            {.name = u"Service Crew"_s,
             .width = 130,
             .editable = true,
             .align = grid::Align::Left,
             .editor = grid::Editor::DropDown,
             .changeRule = rule([this](int row, const QVariant &crew) {
                 return crewChanged(row, crew.toLongLong());
             })},
            {.name = u"Next Service Date"_s, .width = 112, .format = u"mm/dd/yyyy"_s},
            {.name = u"Period"_s, .visible = false},
            {.name = u"Schedule Type"_s, .width = 95},
            {.name = u"Count"_s,
             .width = 70,
             .editable = true,
             .editor = grid::Editor::Masked,
             .mask = u"{0,999999999}"_s,
             .changeRule =
                 rule([this](int row, const QVariant &count) { return countChanged(row, count); })},
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
             .editor = grid::Editor::DropDown,
             .changeRule = rule([this](int row, const QVariant &supplier) {
                 return writeCell(grdRecordService->rows(), row, u"Supplier"_s, supplier,
                                  [&](const recording::Shown &shown) {
                                      return recording::UpdateWorkorderService(
                                          serviceOf(row), u"SupplierID"_s, supplier.toLongLong(),
                                          shown);
                                  });
             })}};
}

void RecordServices::connectControls()
{
    grdRecordService->rows().styleRule = [this](int row, const QString &column) {
        return style(row, column);
    };
    const auto click = [this](QPushButton *button, const char *procedure,
                              void (RecordServices::*action)()) {
        connect(button, &QPushButton::clicked, this, [this, procedure, action] {
            // A note or a cell that can't stay keeps the button from acting.
            if (m_frame.finishEditing())
                base::trapped(Module, procedure, [&] { (this->*action)(); });
        });
    };
    click(cmdSkipAll, "cmdSkipAll_Click", &RecordServices::cmdSkipAll_Click);
    click(cmdRecordAddService, "cmdAddNewService_Click", &RecordServices::cmdAddNewService_Click);
    connect(grdRecordService, &grid::GridView::currentRowChanged, this, [this] {
        if (!m_filling)
            Q_EMIT serviceShown();
    });
    // Times are entered in a window of their own, by a click or by Enter: two times and the hours
    // between them can't be judged one cell at a time.
    connect(grdRecordService, &grid::GridView::cellClicked, this, &RecordServices::openTimes);
    connect(grdRecordService, &grid::GridView::rowActivated, this,
            [this](int row) { openTimes(row, grdRecordService->currentColumn()); });
}

void RecordServices::EnableControls()
{
    const RecordFrame::Order order = m_frame.currentOrder();
    cmdRecordAddService->setEnabled(order.WorkorderNo != 0);
    cmdSkipAll->setEnabled(order.isComplete);
}

void RecordServices::loadLists()
{
    // With the lists, so that options that were changed meanwhile count from the next reading on.
    m_lateness = LatenessStyle::current();
    grid::GridModel &rows = grdRecordService->rows();
    rows.column(u"Service Crew").choices = worklists::crews();
    rows.column(u"Supplier").choices = worklists::suppliers();
    rows.columnsChanged();
}

void RecordServices::RefreshRecordServiceGrid()
{
    base::trapped(Module, "RefreshRecordServiceGrid", [this] {
        const QScopedValueRollback filling(m_filling, true);
        worklists::load(*grdRecordService, workorders::statements::recordServices(),
                        m_frame.currentOrder().WorkorderNo, u"NServiceUsedID");
    });
    Q_EMIT serviceShown();
}

bool RecordServices::hasServices() const
{
    return grdRecordService->rows().rowCount() > 0;
}

qint64 RecordServices::serviceOf(int row) const
{
    return grdRecordService->rows().value(row, u"NServiceUsedID").toLongLong();
}

qint64 RecordServices::currentService() const
{
    return worklists::currentKey(*grdRecordService, u"NServiceUsedID");
}

bool RecordServices::isServiceCompleted() const
{
    const int row = grdRecordService->currentRow();
    return row >= 0 && grdRecordService->rows().value(row, u"Completed").toBool();
}

bool RecordServices::isSkipped(qint64 NServiceUsedID) const
{
    const grid::GridModel &rows = grdRecordService->rows();
    const int row = rows.findRow(u"NServiceUsedID", NServiceUsedID);
    return row >= 0 && rows.value(row, u"Skip").toBool();
}

grid::Style RecordServices::style(int row, const QString &column) const
{
    const grid::GridModel &rows = grdRecordService->rows();
    // Ahead of the lateness: what keeps the order from being posted is to be seen first.
    if (column == u"Count" && !readings::countType(rows.text(row, u"Period")).isEmpty())
        return {.foreground = Qt::black, .background = CountWanted};
    return m_lateness.of(rows.value(row, u"Next Service Date").toDateTime().date());
}

// --- Changes -------------------------------------------------------------------------------------

bool RecordServices::crewChanged(int row, qint64 crew)
{
    std::optional<double> cost;
    const auto write = [&](const recording::Shown &shown) {
        // Called again when the user insists on his crew over another workstation's, hence the
        // variable outside.
        cost = recording::changeCrew(serviceOf(row), crew, shown);
        return cost.has_value();
    };
    grid::GridModel &rows = grdRecordService->rows();
    if (!writeCell(rows, row, u"Service Crew"_s, crew, write))
        return false;
    rows.setValue(row, u"Lbr Cost", *cost);
    return true;
}

bool RecordServices::countChanged(int row, const QVariant &count)
{
    grid::GridModel &rows = grdRecordService->rows();
    // Of the machine, not of the order: the meter goes on whoever reads it.
    const qint64 previous =
        GetEquipmentCount(m_frame.currentOrder().EquipmentID, rows.text(row, u"Schedule Type"));
    // A meter that was changed begins anew, so that a smaller count may be right; only the user
    // knows.
    if (count.isValid() && previous > count.toLongLong() &&
        !base::askYesNo(
            u"Enter count is smaller than previous count(%1). Do you want to continue ?"_s.arg(
                previous)))
        return false;
    return writeCell(rows, row, u"Count"_s, count, [&](const recording::Shown &shown) {
        return recording::UpdateWorkorderService(serviceOf(row), u"CountValue"_s, count, shown);
    });
}

bool RecordServices::skipChanged(int row, bool skip)
{
    const qint64 id = serviceOf(row);
    // The reason stays as the note of a service that is skipped no longer.
    if (!skip)
        return recording::UpdateWorkorderService(id, u"Skip"_s, false);
    const auto reason =
        base::prompts().input(u"Please mention the reason for Skiping the Service"_s, {},
                              recording::noteOf(currentService()));
    if (!reason || reason->trimmed().isEmpty() || !recording::skipService(id, *reason))
        return false;
    m_frame.showOrderReopened();
    grdRecordService->rows().setValue(row, u"Completed", false);
    Q_EMIT serviceShown();
    return true;
}

bool RecordServices::completedChanged(int row, bool completed)
{
    if (!recording::completeService(serviceOf(row), completed))
        return false;
    m_frame.showOrderReopened();
    if (completed)
        grdRecordService->rows().setValue(row, u"Skip", false);
    Q_EMIT partsMarked();
    return true;
}

void RecordServices::openTimes(int row, const QString &column)
{
    if (row < 0 || !isTimeColumn(column))
        return;
    const grid::GridModel &rows = grdRecordService->rows();
    const auto given = [&](QStringView name) {
        const QString text = rows.value(row, name).toString();
        // What the window takes for no time.
        return text.trimmed().isEmpty() ? u"00:00"_s : text;
    };
    // Read anew in any case: also a window that was cancelled may have told of a service that is
    // gone.
    (void)frmServiceTime::ShowServiceTimeForm({.id = serviceOf(row),
                                               .start = given(u"StartTime"),
                                               .end = given(u"EndTime"),
                                               .workHours = given(u"Workhrs")});
    RefreshRecordServiceGrid();
}

void RecordServices::cmdSkipAll_Click()
{
    const qint64 order = m_frame.currentOrder().WorkorderNo;
    if (order == 0)
        return;
    const auto reason =
        base::prompts().input(u"Please mention the reason for Skiping the Services"_s, {},
                              recording::noteOf(currentService()));
    // A skipped service needs its reason as a note; without one nothing is skipped.
    if (reason && !reason->trimmed().isEmpty() && telling(Module, "cmdSkipAll_Click", false, [&] {
            return recording::skipAll(order, *reason);
        }))
        RefreshRecordServiceGrid();
}

void RecordServices::cmdAddNewService_Click()
{
    const RecordFrame::Order order = m_frame.currentOrder();
    if (order.WorkorderNo != 0 &&
        worklists::addServices(grdRecordService->rows(), order.WorkorderNo, order.EquipmentID,
                               order.isComplete))
        RefreshRecordServiceGrid();
}
