#include "scheduling/ui/ServicePage.h"

#include "core/General.h"
#include "core/Periods.h"
#include "core/Session.h"
#include "core/ui/CellWrite.h"
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

bool is(const QString &column, QStringView name)
{
    return QStringView(column).compare(name, Qt::CaseInsensitive) == 0;
}

QList<grid::Choice> crewChoices()
{
    QList<grid::Choice> choices;
    for (const db::Row crew : GetCrewInfo())
        choices.append({crew.integer(u"CrewID"), crew.text(u"CrewNumber")});
    return choices;
}

QList<grid::Column> columns()
{
    return {
        {.name = u"ServiceUsedID"_s, .visible = false},
        {.name = u"Service No"_s, .width = 70},
        {.name = u"ServiceID"_s, .visible = false},
        {.name = u"Name"_s, .width = 170},
        {.name = u"Next Schedule"_s, .width = 95, .editable = true, .editor = grid::Editor::Date},
        {.name = u"Next Count"_s,
         .width = 75,
         .editable = true,
         .editor = grid::Editor::Masked,
         .mask = u"{1,999999999}"_s},
        {.name = u"Service Crew"_s,
         .width = 125,
         .editable = true,
         .align = grid::Align::Left,
         .editor = grid::Editor::DropDown},
        {.name = u"Budgeted Hrs"_s,
         .width = 80,
         .editable = true,
         .format = u"0.00"_s,
         .editor = grid::Editor::Masked,
         .mask = u"{0,99999}.{0,99}"_s},
        {.name = u"Labor Cost"_s, .width = 74, .editable = true, .format = u"$0.00"_s},
        {.name = u"Interval"_s,
         .width = 52,
         .editable = true,
         .editor = grid::Editor::Masked,
         .mask = u"{1,99999}"_s},
        {.name = u"Schedule Type"_s, .width = 80},
        {.name = u"SeparateWo"_s, .visible = false},
    };
}

} // namespace

ServicePage::ServicePage(MachineScreen screen, QWidget *parent)
    : QWidget(parent)
    , m_screen(std::move(screen))
{
    buildPage();
    EnableControls();
}

void ServicePage::buildPage()
{
    setObjectName(u"fraService"_s);
    input::FormBuilder form(this);
    grdService = makeListGrid(this, u"grdService"_s, u"Services"_s, columns());
    form.widget(grdService, true);
    cmdAddNewService =
        form.leftButton(u"cmdAddNewService"_s, u"Add S&ervice"_s, theme::icon(u"add"_s));
    cmdSelectService =
        form.leftButton(u"cmdSelectService"_s, u"&Open Service"_s, theme::icon(u"service"_s));
    cmdRemoveService =
        form.leftButton(u"cmdRemoveService"_s, u"Remo&ve Service"_s, theme::icon(u"delete"_s));
    form.finish();

    grid::GridModel &rows = grdService->rows();
    rows.editRule = [this](int row, const QString &column) { return grdService_Edit(row, column); };
    rows.changeRule = [this](int row, const QString &column, const QVariant &value) {
        return grdService_Change(row, column, value);
    };
    connect(grdService, &grid::GridView::rowActivated, this, &ServicePage::cmdSelectService_Click);
    connect(cmdAddNewService, &QPushButton::clicked, this, &ServicePage::cmdAddNewService_Click);
    connect(cmdSelectService, &QPushButton::clicked, this, &ServicePage::cmdSelectService_Click);
    connect(cmdRemoveService, &QPushButton::clicked, this, &ServicePage::cmdRemoveService_Click);
}

void ServicePage::RefreshServiceGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshServiceGrid", [&] {
        grid::GridModel &rows = grdService->rows();
        const int current = grdService->currentRow();
        const qint64 kept = current >= 0 && EquipmentID == m_equipment ? serviceOf(current) : 0;
        m_equipment = EquipmentID;
        rows.setRecordset(assignment::servicesOf(m_equipment));
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

bool ServicePage::hasContent() const
{
    return grdService->rows().rowCount() > 0;
}

void ServicePage::setMayEdit(bool may)
{
    m_mayEdit = may;
    EnableControls();
}

bool ServicePage::finishEditing()
{
    return grdService->finishEditing();
}

void ServicePage::EnableControls()
{
    grdService->setEditing(m_mayEdit);
    cmdAddNewService->setEnabled(m_mayEdit && m_equipment != 0);
    cmdSelectService->setEnabled(hasContent());
    cmdRemoveService->setEnabled(m_mayEdit && hasContent());
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
    m_screen.firstEdit();
    QStringList present;
    const grid::GridModel &rows = grdService->rows();
    for (int row = 0; row < rows.rowCount(); ++row)
        if (const QString id = rows.text(row, u"ServiceID"); !id.isEmpty())
            present.append(id);
    QString selection = present.join(u',');
    QString kind = u"SL"_s;
    const bool picked = frmServicesManagerEntry::ShowServiceManager(selection, 0, kind, true, true);
    const bool added = base::trapped(Module, "cmdAddNewService_Click", false, [&] {
        // The list commits what is open when a service was added to the catalogue from it.
        BeginTrans();
        if (!picked)
            return true;
        QList<qint64> ids;
        for (const QString &id : selection.split(u',', Qt::SkipEmptyParts))
            ids.append(id.trimmed().toLongLong());
        const auto source =
            kind == u"EL" ? assignment::Source::Machine : assignment::Source::Catalogue;
        return assignment::AddServiceRecord(m_equipment, ids, source) &&
               assignment::ChkEveryServiceCount(m_equipment);
    });
    if (!added) {
        m_screen.cancel();
        return;
    }
    RefreshServiceGrid();
    m_screen.refreshOthers();
    (void)m_screen.save();
}

void ServicePage::cmdSelectService_Click()
{
    if (!finishEditing() || grdService->currentRow() < 0)
        return;
    const qint64 service = serviceOf(grdService->currentRow());
    if (service == 0 || (!m_screen.isBrowsing() && !m_screen.save()))
        return;
    ShowServiceUsedDetail(service);
    RefreshServiceGrid();
    m_screen.refreshOthers();
}

void ServicePage::cmdRemoveService_Click()
{
    if (!finishEditing() || grdService->currentRow() < 0)
        return;
    m_screen.firstEdit();
    if (!base::askYesNo(u"Are you sure you want to delete this service?"_s))
        return;
    // What is left is shown, also of a deletion that failed.
    (void)assignment::DeleteServiceRecord(serviceOf(grdService->currentRow()));
    RefreshServiceGrid();
    m_screen.refreshOthers();
}

// --- Changes in the grid -------------------------------------------------------------------------

bool ServicePage::grdService_Edit(int row, const QString &column) const
{
    const periods::Period *period = periods::ofWord(grdService->rows().text(row, u"Schedule Type"));
    if (is(column, u"Next Count"))
        return !period || period->isCount;
    if (is(column, u"Next Schedule"))
        return !period || !period->isCount || period->code == u'C';
    return true;
}

bool ServicePage::grdService_Change(int row, const QString &column, const QVariant &value)
{
    m_screen.firstEdit();
    const std::optional<bool> changed =
        telling(Module, "grdService_Change", std::optional<bool>(),
                [&] { return std::optional(changeCell(row, column, value)); });
    if (!changed) {
        // What another workstation did is shown, but not before the grid is done with the cell.
        QMetaObject::invokeMethod(
            this, [this] { RefreshServiceGrid(); }, Qt::QueuedConnection);
    }
    // The change is stored even where what follows from it can't be worked out.
    if (changed == true)
        showWhatFollows(row, column);
    return changed.value_or(false);
}

void ServicePage::showWhatFollows(int row, const QString &column)
{
    grid::GridModel &rows = grdService->rows();
    if (is(column, u"Next Count") && rows.value(row, u"Next Schedule").isNull()) {
        const QDateTime reached = assignment::UpdateDateIfReached(serviceOf(row));
        if (reached.isValid())
            rows.setValue(row, u"Next Schedule", reached);
    } else if (is(column, u"Service Crew") || is(column, u"Budgeted Hrs")) {
        if (const std::optional<double> cost = assignment::UpdateLabourCost(serviceOf(row)))
            rows.setValue(row, u"Labor Cost", *cost);
    }
}

bool ServicePage::changeCell(int row, const QString &column, const QVariant &value)
{
    if (is(column, u"Next Schedule"))
        return changeNextSchedule(row, value);
    if (is(column, u"Next Count"))
        return changeNextCount(row, value);
    if (is(column, u"Interval"))
        return !value.isNull() && update(row, column, u"Einterval"_s, value);
    if (is(column, u"Labor Cost"))
        return update(row, column, u"CostEstimate"_s, value);
    const QString field = is(column, u"Service Crew") ? u"CrewID"_s : u"LaborEstimate"_s;
    return update(row, column, field, value);
}

bool ServicePage::update(int row, const QString &column, const QString &field,
                         const QVariant &value)
{
    const auto stored = [&](const QVariant &each) {
        return each.isNull() && !is(column, u"Next Schedule") ? QVariant(0) : each;
    };
    return writeCell(grdService->rows(), row, column, value,
                     [&](const std::optional<QVariant> &shown) {
                         return assignment::UpdateEquipmentService(
                             serviceOf(row), field, stored(value),
                             shown ? std::optional(stored(*shown)) : std::nullopt);
                     });
}

bool ServicePage::changeNextSchedule(int row, const QVariant &value)
{
    if (ServiceInWorkOrder(serviceOf(row)) && !orderwarning::confirmDate())
        return false;
    const QString refusal = assignment::refusalOfNextDate(
        grdService->rows().value(row, u"Next Schedule").toDateTime(), value.toDateTime());
    if (!refusal.isEmpty()) {
        base::showMessage(refusal);
        return false;
    }
    return update(row, u"Next Schedule"_s, u"NextScheduledDate"_s, value.toDateTime());
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
    return update(row, u"Next Count"_s, u"NextScheduledCount"_s, value);
}
