#include "equipment/ui/HistoryPage.h"

#include "core/General.h"
#include "core/ui/ListGrid.h"
#include "core/ui/ScreenCalls.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/DateInput.h"
#include "platform/input/DateStamp.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QGroupBox>
#include <QItemSelectionModel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Equipment";
constexpr int LeastRows = 5; // of text, in the boxes of the lower half
constexpr int MostRows = 13; // for one of these with its title
const QString TimeFormat = u"hh:mm AMPM"_s;
const QString NoTime = u"00:00"_s;
const QString AmountMask = u"{0,9999999}.{0,99}"_s;

bool isColumn(const QString &column, QStringView name)
{
    return column.compare(name, Qt::CaseInsensitive) == 0;
}

bool isTime(const QString &column)
{
    return isColumn(column, u"StartTime") || isColumn(column, u"EndTime") ||
           isColumn(column, u"WorkHrs");
}

QList<grid::Column> serviceColumns()
{
    return {{.name = u"WorkOrderNo"_s, .caption = u"Work Order"_s, .width = 74, .locked = true},
            {.name = u"ServiceUsedID"_s, .visible = false},
            {.name = u"Date"_s, .width = 84, .editable = true, .editor = grid::Editor::Date},
            {.name = u"Service Name"_s, .width = 150, .locked = true},
            {.name = u"Service Crew"_s,
             .width = 110,
             .editable = true,
             .editor = grid::Editor::DropDown},
            {.name = u"Cost Center"_s, .width = 90, .locked = true},
            {.name = u"Budgeted Hrs"_s,
             .width = 84,
             .editable = true,
             .format = u"0.00"_s,
             .mask = AmountMask},
            {.name = u"Labor Cost"_s,
             .width = 76,
             .editable = true,
             .format = u"$0.00"_s,
             .mask = AmountMask},
            {.name = u"Part Cost"_s,
             .width = 76,
             .locked = true,
             .format = u"$0.00"_s,
             .kind = sql::ColumnKind::Money},
            {.name = u"StartTime"_s,
             .caption = u"Start Time"_s,
             .width = 74,
             .editable = true,
             .format = TimeFormat,
             .placeholder = NoTime},
            {.name = u"EndTime"_s,
             .caption = u"End Time"_s,
             .width = 74,
             .editable = true,
             .format = TimeFormat,
             .placeholder = NoTime},
            {.name = u"WorkHrs"_s,
             .caption = u"Work Hrs"_s,
             .width = 66,
             .editable = true,
             .placeholder = NoTime},
            {.name = u"Skip"_s, .width = 42, .locked = true},
            {.name = u"Count"_s, .width = 70, .editable = true, .mask = u"{0,9999999}"_s},
            {.name = u"SupplierName"_s, .caption = u"Supplier"_s, .width = 120, .locked = true}};
}

} // namespace

HistoryPage::HistoryPage(EquipmentFrame &frame, QWidget *parent)
    : EquipmentPage(frame, parent)
{
    buildPage();
    readRange();
    frame.keepLayout(grdServiceHistory, grdServiceHistory->objectName());
    frame.keepLayout(grdPartHistory, grdPartHistory->objectName());

    input::validateOnLeave(datFrom, [this] { return checkDate(datFrom, m_from); });
    input::validateOnLeave(datTo, [this] { return checkDate(datTo, m_to); });
    input::validateOnLeave(txtNote, [this] {
        storeNote();
        return true;
    });
    connect(txtNote, &QPlainTextEdit::textChanged, this, [this] {
        if (m_noteOf == 0)
            return;
        m_noteChanged = true;
        this->frame().beginEdit();
    });
    connect(cmdRefresh, &QPushButton::clicked, this, &HistoryPage::cmdRefresh_Click);
    connect(cmdDeleteHistory, &QPushButton::clicked, this, &HistoryPage::cmdDeleteHistory_Click);
    for (const grid::GridView *grid : {grdServiceHistory, grdPartHistory})
        connect(grid, &grid::GridView::typing, this, [this] { this->frame().beginEdit(); });
    connect(grdServiceHistory, &grid::GridView::currentRowChanged, this, &HistoryPage::showDetails);
    connect(grdServiceHistory, &grid::GridView::cellClicked, this, &HistoryPage::showServiceTime);
    // Clicks on times are for their entry; typing edits them in their cells.
    connect(grdServiceHistory->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [grid = grdServiceHistory] {
                QAbstractItemView::EditTriggers triggers = grid->editTriggers();
                triggers.setFlag(QAbstractItemView::SelectedClicked,
                                 !isTime(grid->currentColumn()));
                grid->setEditTriggers(triggers);
            });
    // The entry by the keyboard: Enter in a cell with a time.
    connect(grdServiceHistory, &grid::GridView::rowActivated, this, [this](int row) {
        if (grdServiceHistory->hasFocus())
            showServiceTime(row, grdServiceHistory->currentColumn());
    });
}

void HistoryPage::buildPage()
{
    input::FormBuilder form(this);
    form.beginRow(u"Work completed"_s);
    datFrom = form.dateField(u"datEqDateFrom"_s, u"from"_s);
    datTo = form.dateField(u"datEqDateTo"_s, u"to"_s);
    cmdRefresh = form.inlineButton(u"cmdRefresh"_s, u"Refres&h"_s, theme::icon(u"refresh"_s));
    cmdDeleteHistory =
        form.inlineButton(u"cmdDeleteHistory"_s, u"Delete Histor&y"_s, theme::icon(u"delete"_s));
    form.endRow();
    buildServiceGrid();
    form.widget(grdServiceHistory, true);
    form.beginColumns();
    QGroupBox *partGroup = form.beginGroup(u"Parts used"_s, u"fraPartHistory"_s);
    buildPartGrid();
    form.widget(grdPartHistory, true);
    form.endGroup();
    form.nextColumn();
    QGroupBox *noteGroup = form.beginGroup(u"Note"_s, u"fraNote"_s);
    txtNote = new QPlainTextEdit(this);
    txtNote->setObjectName(u"txtNote"_s);
    txtNote->setAccessibleName(u"Note of the service"_s);
    txtNote->setTabChangesFocus(true);
    input::installDateStamp(txtNote);
    form.widget(txtNote, true);
    form.endGroup();
    form.endColumns();
    form.finish();
    // What room there is goes to the services.
    for (QWidget *low : std::initializer_list<QWidget *>{grdPartHistory, txtNote})
        low->setMinimumHeight(fontMetrics().height() * LeastRows);
    for (QGroupBox *group : {partGroup, noteGroup})
        group->setMaximumHeight(fontMetrics().height() * MostRows);
    setFocusProxy(grdServiceHistory);
}

void HistoryPage::buildServiceGrid()
{
    grdServiceHistory =
        makeListGrid(this, u"grdServiceHistory"_s, u"Services done"_s, serviceColumns());
    grdServiceHistory->rows().changeRule = [this](int row, const QString &column,
                                                  const QVariant &value) {
        return grdServiceHistory_Change(row, column, value);
    };
}

void HistoryPage::buildPartGrid()
{
    grdPartHistory = makeListGrid(this, u"grdPartHistory"_s, u"Parts used in the service"_s,
                                  {{.name = u"Part Number"_s, .width = 80, .locked = true},
                                   {.name = u"Description"_s, .width = 125, .locked = true},
                                   {.name = u"Qty Used"_s,
                                    .width = 62,
                                    .editable = true,
                                    .format = u"0.00"_s,
                                    .mask = u"{0,99999}.##"_s},
                                   {.name = u"Price"_s,
                                    .width = 62,
                                    .editable = true,
                                    .format = u"$0.00"_s,
                                    .mask = AmountMask},
                                   {.name = u"Category"_s, .width = 90, .locked = true},
                                   {.name = u"Supplier"_s, .width = 70, .locked = true}});
    grdPartHistory->rows().changeRule = [this](int row, const QString &column,
                                               const QVariant &value) {
        return grdPartHistory_Change(row, column, value);
    };
}

// The range of dates

void HistoryPage::readRange()
{
    m_from = dateOption(u"EqDateFrom"_s, base::today());
    m_to = dateOption(u"EqDateTo"_s, base::today());
    datFrom->setDate(m_from);
    datTo->setDate(m_to);
}

bool HistoryPage::checkDate(input::DateInput *box, QDate &former)
{
    if (!box->isValidOrEmpty()) {
        base::showMessage(u"Please enter valid date."_s);
        return false;
    }
    if (runsBackwards()) {
        base::showMessage(u"Date To should not be less than to Date From"_s);
        box->setDate(former);
        return false;
    }
    former = box->date();
    return true;
}

bool HistoryPage::runsBackwards() const
{
    const QDate from = datFrom->date();
    const QDate to = datTo->date();
    return from.isValid() && to.isValid() && from > to;
}

history::Period HistoryPage::period() const
{
    return {m_from, m_to};
}

void HistoryPage::closing()
{
    // Closing leaves no box, so a date that was typed last has not been taken over yet.
    if (datFrom->isValidOrEmpty() && datTo->isValidOrEmpty() && !runsBackwards()) {
        m_from = datFrom->date();
        m_to = datTo->date();
    }
    const auto text = [](QDate date) {
        return date.isValid() ? date.toString(u"MM/dd/yyyy") : QString();
    };
    SetOption(u"EqDateFrom"_s, text(m_from), true);
    SetOption(u"EqdateTo"_s, text(m_to), true);
}

// Showing

void HistoryPage::showMachine(qint64 EquipmentID)
{
    m_noteChanged = false;
    RefreshServiceHistoryGrid(EquipmentID);
}

bool HistoryPage::hasContent() const
{
    return grdServiceHistory->rows().rowCount() > 0;
}

void HistoryPage::RefreshServiceHistoryGrid(qint64 EquipmentID)
{
    const qint64 service =
        EquipmentID == m_equipment ? serviceOf(grdServiceHistory->currentRow()) : 0;
    m_equipment = EquipmentID;
    {
        // The details follow once, not with each step of the loading.
        const QSignalBlocker silence(grdServiceHistory);
        base::trapped(Module, "RefreshServiceHistoryGrid", [this] {
            loadCrews();
            loadRows();
        });
        const grid::GridModel &rows = grdServiceHistory->rows();
        const int row = rows.rowCount() > 0 ? rows.findRow(u"ServiceUsedID", service) : -1;
        grdServiceHistory->selectRow(row < 0 && rows.rowCount() > 0 ? 0 : row);
    }
    showDetails();
    EnableControls();
}

void HistoryPage::loadRows()
{
    grid::GridModel &rows = grdServiceHistory->rows();
    rows.setRecordset(history::services(m_equipment, period()));
    const QHash<qint64, double> costs = history::SetAllPastCost(m_equipment, period());
    rows.setAll(u"Part Cost", 0.0);
    for (int row = 0; !costs.isEmpty() && row < rows.rowCount(); ++row) {
        if (const auto found = costs.constFind(serviceOf(row)); found != costs.cend())
            rows.setValue(row, u"Part Cost", *found);
    }
    rows.resort();
}

void HistoryPage::loadCrews()
{
    QList<grid::Choice> crews;
    for (const db::Row crew : GetCrewInfo())
        crews.append({crew.integer(u"CrewID"), crew.text(u"CrewNumber")});
    grdServiceHistory->rows().column(u"Service Crew").choices = crews;
    grdServiceHistory->rows().columnsChanged();
}

void HistoryPage::showDetails()
{
    storeNote();
    RefreshPartHistoryGrid(serviceOf(grdServiceHistory->currentRow()));
    RefreshServiceNoteGrid();
    EnableControls();
}

void HistoryPage::RefreshPartHistoryGrid(qint64 ServiceUsedID)
{
    base::trapped(Module, "RefreshPartHistoryGrid", [&] {
        grdPartHistory->rows().setRecordset(history::parts(ServiceUsedID));
        grdPartHistory->selectRow(grdPartHistory->rows().rowCount() > 0 ? 0 : -1);
    });
}

void HistoryPage::RefreshServiceNoteGrid()
{
    const int row = grdServiceHistory->currentRow();
    m_noteOf = 0;
    const QString note = base::trapped(Module, "RefreshServiceNoteGrid", QString(), [&] {
        return row < 0 ? QString()
                       : history::note(
                             serviceOf(row),
                             grdServiceHistory->rows().value(row, u"WorkOrderNo").toLongLong());
    });
    txtNote->setPlainText(note);
    m_noteOf = serviceOf(row);
    m_noteChanged = false;
}

void HistoryPage::setEditable(bool editable)
{
    m_editable = editable;
    EnableControls();
}

void HistoryPage::EnableControls()
{
    grdServiceHistory->setEditing(m_editable);
    grdPartHistory->setEditing(m_editable);
    txtNote->setReadOnly(!m_editable || m_noteOf == 0);
    cmdDeleteHistory->setEnabled(m_editable && grdServiceHistory->currentRow() >= 0);
    cmdRefresh->setEnabled(m_equipment != 0);
}

void HistoryPage::pageShown()
{
    grdServiceHistory->setFocus();
}

bool HistoryPage::finishEditing()
{
    return grdServiceHistory->finishEditing() && grdPartHistory->finishEditing() && storeNote();
}

bool HistoryPage::mayLeave()
{
    return finishEditing();
}

qint64 HistoryPage::serviceOf(int row) const
{
    return row < 0 ? 0 : grdServiceHistory->rows().value(row, u"ServiceUsedID").toLongLong();
}

// What the user does

void HistoryPage::cmdRefresh_Click()
{
    if (!finishEditing() || !checkDate(datFrom, m_from) || !checkDate(datTo, m_to))
        return;
    if (frame().frameMode() != Mode::Browse) {
        if (!base::askYesNo(
                u"You must be save record for refreshing the service history records."_s) ||
            !frame().save())
            return;
    }
    RefreshServiceHistoryGrid(m_equipment);
    frame().contentChanged();
}

void HistoryPage::cmdDeleteHistory_Click()
{
    const int row = grdServiceHistory->currentRow();
    if (row < 0 || !finishEditing() ||
        !base::askYesNo(u"Are you sure you want to Delete this record? history"_s))
        return;
    frame().beginEdit();
    if (!history::DeleteServiceHistoryRecord(serviceOf(row)))
        return;
    RefreshServiceHistoryGrid(m_equipment);
    frame().contentChanged();
}

bool HistoryPage::grdServiceHistory_Change(int row, const QString &column, const QVariant &value)
{
    frame().beginEdit();
    const auto store = [&](const QString &field) {
        return history::UpdateEquipmentServiceHistory(serviceOf(row), field, value);
    };
    if (isTime(column))
        return changeTime(row, column, value.toString());
    if (isColumn(column, u"Service Crew"))
        return changeCrew(row, value.toLongLong());
    if (isColumn(column, u"Count")) {
        base::showMessage(u"Changing the count will not effect the schedule"_s);
        return store(u"Countvalue"_s);
    }
    if (isColumn(column, u"Date")) {
        base::showMessage(u"Changing the date will not adjust the schedule"_s);
        return store(u"Completedate"_s);
    }
    return store(isColumn(column, u"Labor Cost") ? u"CostEstimate"_s : u"LaborEstimate"_s);
}

bool HistoryPage::changeTime(int row, const QString &column, const QString &typed)
{
    grid::GridModel &rows = grdServiceHistory->rows();
    const history::TimeCorrection correction =
        isColumn(column, u"StartTime")
            ? history::correctStart(typed, rows.value(row, u"EndTime").toString())
        : isColumn(column, u"EndTime")
            ? history::correctEnd(typed, rows.value(row, u"StartTime").toString())
            : history::correctWorkHrs(typed);
    if (!correction.refusal.isEmpty()) {
        base::showMessage(correction.refusal);
        return false;
    }
    if (!history::storeTime(serviceOf(row), column, correction))
        return false;
    rows.setValue(row, column,
                  correction.stored.isEmpty() ? QVariant() : QVariant(correction.stored));
    if (correction.WorkHrs)
        rows.setValue(row, u"WorkHrs", *correction.WorkHrs);
    return true;
}

bool HistoryPage::changeCrew(int row, qint64 crew)
{
    grid::GridModel &rows = grdServiceHistory->rows();
    const std::optional<double> cost =
        history::changeCrew(serviceOf(row), crew, rows.value(row, u"Budgeted Hrs").toDouble());
    if (cost)
        rows.setValue(row, u"Labor Cost", *cost);
    return cost.has_value();
}

void HistoryPage::showServiceTime(int row, const QString &column)
{
    if (!isTime(column) || !m_editable || !screenCalls().ShowServiceTimeForm ||
        !grdServiceHistory->finishEditing())
        return;
    const grid::GridModel &rows = grdServiceHistory->rows();
    const auto timeIn = [&](QStringView name) {
        const QString time = rows.value(row, name).toString();
        return time.isEmpty() ? NoTime : time;
    };
    if (screenCalls().ShowServiceTimeForm({.id = serviceOf(row),
                                           .start = timeIn(u"StartTime"),
                                           .end = timeIn(u"EndTime"),
                                           .workHours = timeIn(u"WorkHrs"),
                                           .table = u"tblWOServiceUsedHistory"_s,
                                           .beforeWrite = [this] { frame().beginEdit(); }}))
        RefreshServiceHistoryGrid(m_equipment);
}

bool HistoryPage::grdPartHistory_Change(int row, const QString &column, const QVariant &value)
{
    grid::GridModel &rows = grdPartHistory->rows();
    // An emptied cell is a 0.
    const double number = value.toDouble();
    if (number == rows.value(row, column).toDouble()) {
        rows.setValue(row, column, number);
        return true;
    }
    frame().beginEdit();
    const bool isQuantity = isColumn(column, u"Qty Used");
    if (isQuantity)
        base::showMessage(u"This will not adjust the quantity on hand for the inventory. You will "
                          "manually need to adjust this if needed."_s);
    if (!history::UpdatePartHistory(m_noteOf, rows.text(row, u"Part Number"),
                                    isQuantity ? u"QuantityUsed"_s : u"Price"_s, number))
        return false;
    rows.setValue(row, column, number);
    base::trapped(Module, "SetPastCost", [this] {
        const int service = grdServiceHistory->currentRow();
        grdServiceHistory->rows().setValue(service, u"Part Cost", history::SetPastCost(m_noteOf));
    });
    return true;
}

bool HistoryPage::storeNote()
{
    if (!m_noteChanged || m_noteOf == 0)
        return true;
    frame().beginEdit();
    m_noteChanged = !history::updateNote(m_noteOf, txtNote->toPlainText());
    return !m_noteChanged;
}
