#include "scheduling/ui/ServicePage.h"

#include "core/Periods.h"
#include "core/RowTests.h"
#include "core/Session.h"
#include "core/Tables.h"
#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Assignment.h"
#include "scheduling/ui/Entries.h"
#include "scheduling/ui/OrderWarning.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmEquipment";

QList<grid::Choice> crewChoices()
{
    QList<grid::Choice> choices;
    for (const db::Row crew : GetCrewInfo())
        choices.append({crew.integer(u"CrewID"), crew.text(u"CrewNumber")});
    return choices;
}

/// The schedule of a row's service, null for a code that is none.
const periods::Period *periodOf(const grid::GridModel &rows, int row)
{
    return periods::ofWord(rows.text(row, u"Schedule Type"));
}

} // namespace

ServicePage::ServicePage(MachineFrame &frame, QWidget *parent)
    : GridPage(frame, parent)
{
    buildPage();
    EnableControls();
}

void ServicePage::buildPage()
{
    setObjectName(u"fraService"_s);
    input::FormBuilder form(this);
    grdService = makeListGrid(this, u"grdService"_s, u"Services"_s, columns());
    showWhenEmpty(*grdService, u"No services are assigned to this machine."_s);
    form.widget(grdService, true);
    cmdAddNewService =
        form.leftButton(u"cmdAddNewService"_s, u"Add S&ervice"_s, theme::icon(u"add"_s));
    cmdSelectService =
        form.leftButton(u"cmdSelectService"_s, u"&Open Service"_s, theme::icon(u"service"_s));
    cmdRemoveService =
        form.leftButton(u"cmdRemoveService"_s, u"Remo&ve Service"_s, theme::icon(u"delete"_s));
    form.finish();

    setGrid(grdService);
    connect(grdService, &grid::GridView::rowActivated, this, &ServicePage::cmdSelectService_Click);
    connect(cmdAddNewService, &QPushButton::clicked, this, &ServicePage::cmdAddNewService_Click);
    connect(cmdSelectService, &QPushButton::clicked, this, &ServicePage::cmdSelectService_Click);
    connect(cmdRemoveService, &QPushButton::clicked, this, &ServicePage::cmdRemoveService_Click);
}

QList<grid::Column> ServicePage::columns()
{
    // Each rule runs inside the machine's edit and tells what another workstation has done.
    const auto rule = [this](Change change) {
        return [this, change](int row, const QVariant &value) {
            return grdService_Change(change, row, value);
        };
    };
    // The plain ones: the cell is its column in the table.
    const auto stores = [this, &rule](const Stored &cell) {
        return rule(
            [this, cell](int row, const QVariant &value) { return update(row, cell, value); });
    };
    return {
        {.name = u"ServiceUsedID"_s, .visible = false},
        {.name = u"Service No"_s, .width = 70},
        {.name = u"ServiceID"_s, .visible = false},
        {.name = u"Name"_s, .width = 170},
        {.name = u"Next Schedule"_s,
         .width = 95,
         .editable = true,
         .editor = grid::Editor::Date,
         .changeRule = rule(
             [this](int row, const QVariant &value) { return changeNextSchedule(row, value); }),
         .editRule =
             [this](int row) {
                 const periods::Period *period = periodOf(grdService->rows(), row);
                 // Of the counts only the plain ones let their date be edited: the others have one
                 // from their meter alone.
                 return !period || !period->isCount || period->code == u'C';
             }},
        {.name = u"Next Count"_s,
         .width = 75,
         .editable = true,
         .editor = grid::Editor::Masked,
         .mask = u"{1,999999999}"_s,
         // A smaller target may have been reached already, and is due then.
         .changeRule = withReachedDate(
             rule([this](int row, const QVariant &value) { return changeNextCount(row, value); })),
         .editRule =
             [this](int row) {
                 const periods::Period *period = periodOf(grdService->rows(), row);
                 return !period || period->isCount;
             }},
        {.name = u"Service Crew"_s,
         .width = 125,
         .editable = true,
         .align = grid::Align::Left,
         .editor = grid::Editor::DropDown,
         // Hours at the crew's rate: another crew, another cost.
         .changeRule = withLabourCost(stores({u"Service Crew"_s, u"CrewID"_s}))},
        {.name = u"Budgeted Hrs"_s,
         .width = 80,
         .editable = true,
         .format = u"0.00"_s,
         .editor = grid::Editor::Masked,
         .mask = u"{0,99999}.{0,99}"_s,
         .changeRule = withLabourCost(stores({u"Budgeted Hrs"_s, u"LaborEstimate"_s}))},
        {.name = u"Labor Cost"_s,
         .width = 74,
         .editable = true,
         .format = u"$0.00"_s,
         .changeRule = stores({u"Labor Cost"_s, u"CostEstimate"_s})},
        {.name = u"Interval"_s,
         .width = 52,
         .editable = true,
         .editor = grid::Editor::Masked,
         .mask = u"{1,99999}"_s,
         .changeRule = rule([this](int row, const QVariant &value) {
             // An interval that is missing would be read as 1 by one part of the program and
             // refused by another.
             return !value.isNull() && update(row, {u"Interval"_s, u"Einterval"_s}, value);
         })},
        {.name = u"Schedule Type"_s, .width = 80},
        {.name = u"SeparateWo"_s, .visible = false},
    };
}

void ServicePage::showMachine(qint64 EquipmentID)
{
    RefreshServiceGrid(EquipmentID);
}

void ServicePage::RefreshServiceGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshServiceGrid", [&] {
        grid::GridModel &rows = grdService->rows();
        const int current = grdService->currentRow();
        // By key and only on the same machine: rows shift when services come and go.
        const qint64 kept = current >= 0 && EquipmentID == equipment() ? serviceOf(current) : 0;
        setEquipment(EquipmentID);
        rows.setRecordset(assignment::servicesOf(EquipmentID));
        // Read with the rows, so that a crew that was added meanwhile is on offer.
        rows.column(u"Service Crew").choices = crewChoices();
        rows.columnsChanged();
        // 0 is no count: the service waits for none.
        for (int each = 0; each < rows.rowCount(); ++each) {
            if (rows.value(each, u"Next Count").toLongLong() == 0)
                rows.setValue(each, u"Next Count", {});
        }
        const int row = kept == 0 ? -1 : rows.findRow(u"ServiceUsedID", kept);
        grdService->selectRow(row >= 0 ? row : grdService->displayedOrder().value(0, -1));
    });
    EnableControls();
}

void ServicePage::EnableControls()
{
    grdService->setEditing(isEditable());
    cmdAddNewService->setEnabled(isEditable() && equipment() != 0);
    cmdSelectService->setEnabled(hasContent());
    cmdRemoveService->setEnabled(isEditable() && hasContent());
}

void ServicePage::showChanged()
{
    showAgain();
    Q_EMIT servicesChanged();
    frame().contentChanged();
}

qint64 ServicePage::serviceOf(int row) const
{
    return grdService->rows().value(row, u"ServiceUsedID").toLongLong();
}

// --- Adding, opening, removing -------------------------------------------------------------------

void ServicePage::cmdAddNewService_Click()
{
    if (!finishEditing())
        return;
    frame().beginEdit();
    QStringList present;
    const grid::GridModel &rows = grdService->rows();
    for (int row = 0; row < rows.rowCount(); ++row)
        // A service that came from no catalogue has nothing that could be left out.
        if (const QString id = rows.text(row, u"ServiceID"); !id.isEmpty())
            present.append(id);
    QString selection = present.join(u',');
    QString kind = u"SL"_s;
    const bool picked = frmServicesManagerEntry::ShowServiceManager(selection, 0, kind, true, true);
    const bool added = base::trapped(Module, "cmdAddNewService_Click", false, [&] {
        // The list commits what is open when a service was added to the catalogue from it.
        BeginTrans();
        // Nothing was picked, which is no failure: what was edited before is still there to be
        // saved.
        if (!picked)
            return true;
        QList<qint64> ids;
        for (const QString &id : selection.split(u',', Qt::SkipEmptyParts))
            ids.append(id.trimmed().toLongLong());
        const auto source =
            kind == u"EL" ? assignment::Source::Machine : assignment::Source::Catalogue;
        return assignment::AddServiceRecord(equipment(), ids, source) &&
               assignment::ChkEveryServiceCount(equipment());
    });
    if (!added) {
        // A copy that failed halfway must not be saved with the rest.
        frame().cancelEdit();
        return;
    }
    showChanged();
    // Saved at once: the first reading that was asked for belongs to services that are there.
    (void)frame().save();
}

void ServicePage::cmdSelectService_Click()
{
    if (!finishEditing() || grdService->currentRow() < 0)
        return;
    const qint64 service = serviceOf(grdService->currentRow());
    // The service's screen has a transaction of its own, so the machine's is saved and closed
    // first.
    if (service == 0 || (frame().frameMode() != Mode::Browse && !frame().save()))
        return;
    ShowServiceUsedDetail(service);
    showChanged();
}

void ServicePage::cmdRemoveService_Click()
{
    if (!finishEditing() || grdService->currentRow() < 0)
        return;
    frame().beginEdit();
    // The edit has begun by then: a question that is answered with No leaves a machine that is
    // being edited, unchanged.
    if (!base::askYesNo(u"Are you sure you want to delete this service?"_s))
        return;
    // What is left is shown, also of a deletion that failed.
    (void)assignment::DeleteServiceRecord(serviceOf(grdService->currentRow()));
    showChanged();
}

// --- Changes in the grid -------------------------------------------------------------------------

/// Runs a column's change inside the machine's edit. What another workstation did is shown, but
/// not before the grid is done with the cell.
bool ServicePage::grdService_Change(const Change &change, int row, const QVariant &value)
{
    frame().beginEdit();
    const std::optional<bool> changed = telling(Module, "grdService_Change", std::optional<bool>(),
                                                [&] { return std::optional(change(row, value)); });
    // Nothing: another workstation was in the way. False: the rule refused, and the row is as it
    // was.
    if (!changed)
        QMetaObject::invokeMethod(
            this, [this] { showAgain(); }, Qt::QueuedConnection);
    return changed.value_or(false);
}

ServicePage::Change ServicePage::withLabourCost(const Change &change)
{
    return [this, change](int row, const QVariant &value) {
        if (!change(row, value))
            return false;
        // Behind the change and in spite of its own failure: the crew is stored, and the cost is
        // worked out again with the next change.
        if (const std::optional<double> cost = assignment::UpdateLabourCost(serviceOf(row)))
            grdService->rows().setValue(row, u"Labor Cost", *cost);
        return true;
    };
}

ServicePage::Change ServicePage::withReachedDate(const Change &change)
{
    return [this, change](int row, const QVariant &value) {
        if (!change(row, value))
            return false;
        grid::GridModel &rows = grdService->rows();
        // A date that is set stays, as with a reading.
        if (!rows.value(row, u"Next Schedule").isNull())
            return true;
        if (const QDateTime reached = assignment::UpdateDateIfReached(serviceOf(row));
            reached.isValid())
            rows.setValue(row, u"Next Schedule", reached);
        return true;
    };
}

bool ServicePage::update(int row, const Stored &cell, const QVariant &value)
{
    // Both sides as the table holds them: an emptied cell is compared with the 0 that stands for
    // it.
    const auto stored = [&](const QVariant &each) { return each.isNull() ? cell.empty : each; };
    return writeCell(grdService->rows(), row, cell.column, value,
                     [&](const std::optional<QVariant> &shown) {
                         return assignment::UpdateEquipmentService(
                             serviceOf(row), cell.field, stored(value),
                             shown ? std::optional(stored(*shown)) : std::nullopt);
                     });
}

bool ServicePage::changeNextSchedule(int row, const QVariant &value)
{
    // The question first: whoever answers No need not hear of the rule.
    if (ServiceInWorkOrder(serviceOf(row)) && !orderwarning::confirmDate())
        return false;
    const QString refusal = assignment::refusalOfNextDate(
        grdService->rows().value(row, u"Next Schedule").toDateTime(), value.toDateTime());
    if (!refusal.isEmpty()) {
        base::showMessage(refusal);
        return false;
    }
    return update(row, {u"Next Schedule"_s, u"NextScheduledDate"_s, {}}, value.toDateTime());
}

bool ServicePage::changeNextCount(int row, const QVariant &value)
{
    const qint64 service = serviceOf(row);
    if (value.toLongLong() <= 0) {
        base::showMessage(u"Count value shouldn't be less then or equal to 0"_s);
        return false;
    }
    if (ServiceInWorkOrder(service) && !orderwarning::confirmCountInGrid())
        return false;
    return update(row, {u"Next Count"_s, u"NextScheduledCount"_s}, value);
}
