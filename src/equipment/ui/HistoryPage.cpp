#include "equipment/ui/HistoryPage.h"

#include "core/Options.h"
#include "core/Tables.h"
#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/ScreenCalls.h"
#include "equipment/ui/HistoryParts.h"
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
const QString NoTime = u"00:00"_s;

/// The columns whose cells open the entry of times.
bool isTime(const QString &column)
{
    static const QStringList times{u"StartTime"_s, u"EndTime"_s, u"WorkHrs"_s};
    return times.contains(column, Qt::CaseInsensitive);
}

} // namespace

HistoryPage::HistoryPage(MachineFrame &frame, QWidget *parent)
    : MachinePage(frame, parent)
{
    buildPage();
    readRange();
    frame.keepLayout(grdServiceHistory, grdServiceHistory->objectName());
    frame.keepLayout(m_parts->grid(), m_parts->grid()->objectName());

    input::validateOnLeave(datFrom, [this] { return checkDate(datFrom, m_from); });
    input::validateOnLeave(datTo, [this] { return checkDate(datTo, m_to); });
    input::validateOnLeave(txtNote, [this] {
        storeNote();
        return true;
    });
    connect(txtNote, &QPlainTextEdit::textChanged, this, [this] {
        // The program is filling the box, or no service is on show.
        if (m_noteOf == 0)
            return;
        m_noteChanged = true;
        this->frame().beginEdit();
    });
    connect(cmdRefresh, &QPushButton::clicked, this, &HistoryPage::cmdRefresh_Click);
    connect(cmdDeleteHistory, &QPushButton::clicked, this, &HistoryPage::cmdDeleteHistory_Click);
    // With the first key: Save and Cancel have to be there before the cell is left.
    connect(grdServiceHistory, &grid::GridView::typing, this,
            [this] { this->frame().beginEdit(); });
    connect(m_parts, &HistoryParts::costChanged, this, &HistoryPage::SetPastCost);
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
    grdServiceHistory =
        makeListGrid(this, u"grdServiceHistory"_s, u"Services done"_s, serviceColumns());
    showWhenEmpty(*grdServiceHistory, u"No work was completed between these dates."_s);
    form.widget(grdServiceHistory, true);
    form.beginColumns();
    QGroupBox *partGroup = form.beginGroup(u"Parts used"_s, u"fraPartHistory"_s);
    m_parts = new HistoryParts(frame(), this);
    form.widget(m_parts, true);
    form.endGroup();
    form.nextColumn();
    QGroupBox *noteGroup = form.beginGroup(u"Note"_s, u"fraNote"_s);
    txtNote = new QPlainTextEdit(this);
    txtNote->setObjectName(u"txtNote"_s);
    txtNote->setAccessibleName(u"Note of the service"_s);
    // A note needs no tabs, and the keyboard has to get out of it.
    txtNote->setTabChangesFocus(true);
    input::installDateStamp(txtNote);
    form.widget(txtNote, true);
    form.endGroup();
    form.endColumns();
    form.finish();
    // What room there is goes to the services.
    for (QWidget *low : std::initializer_list<QWidget *>{m_parts, txtNote})
        low->setMinimumHeight(fontMetrics().height() * LeastRows);
    for (QGroupBox *group : {partGroup, noteGroup})
        group->setMaximumHeight(fontMetrics().height() * MostRows);
    setFocusProxy(grdServiceHistory);
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
    // An open end is a range, too; half a date is none.
    if (!box->isValidOrEmpty()) {
        base::showMessage(u"Please enter valid date."_s);
        return false;
    }
    if (runsBackwards()) {
        base::showMessage(u"Date To should not be less than to Date From"_s);
        // The other end stays: it is the one that the user did not touch.
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
    // Of the workstation: what one looks back on is one's own.
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
        // The service that was on show, which may have moved or gone.
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
    // No column of the query: a sum for each row would read the parts row by row.
    rows.setAll(u"Part Cost", 0.0);
    for (int row = 0; !costs.isEmpty() && row < rows.rowCount(); ++row) {
        if (const auto found = costs.constFind(serviceOf(row)); found != costs.cend())
            rows.setValue(row, u"Part Cost", *found);
    }
    // The costs came behind the sort, which may go by them.
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
    m_parts->RefreshPartHistoryGrid(serviceOf(grdServiceHistory->currentRow()));
    RefreshServiceNoteGrid();
    EnableControls();
}

void HistoryPage::SetPastCost(qint64 ServiceUsedID)
{
    base::trapped(Module, "SetPastCost", [&] {
        grdServiceHistory->rows().setValue(grdServiceHistory->currentRow(), u"Part Cost",
                                           history::SetPastCost(ServiceUsedID));
    });
}

void HistoryPage::RefreshServiceNoteGrid()
{
    const int row = grdServiceHistory->currentRow();
    const QString note = base::trapped(Module, "RefreshServiceNoteGrid", QString(), [&] {
        return row < 0 ? QString()
                       : history::note(
                             serviceOf(row),
                             grdServiceHistory->rows().value(row, u"WorkOrderNo").toLongLong());
    });
    showNote(serviceOf(row), note);
}

void HistoryPage::showNote(qint64 service, const QString &note)
{
    // Until it is set again, what fills the box counts as typed by nobody. A note that stands there
    // already keeps its cursor.
    m_noteOf = 0;
    if (txtNote->toPlainText() != note)
        txtNote->setPlainText(note);
    m_noteOf = service;
    m_shownNote = note;
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
    m_parts->grid()->setEditing(m_editable);
    // Read only, not greyed: a note is there to be read and copied.
    txtNote->setReadOnly(!m_editable || m_noteOf == 0);
    cmdDeleteHistory->setEnabled(m_editable && grdServiceHistory->currentRow() >= 0);
    // Looking at another range is open to those who may not change anything.
    cmdRefresh->setEnabled(m_equipment != 0);
}

void HistoryPage::pageShown()
{
    grdServiceHistory->setFocus();
}

bool HistoryPage::finishEditing()
{
    // A cell that is refused keeps its page; the note is written last, when nothing can change
    // which one it is.
    return grdServiceHistory->finishEditing() && m_parts->grid()->finishEditing() && storeNote();
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
    // Reading anew would show the corrections as if they were stored, while Cancel can still undo
    // them.
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

void HistoryPage::showServiceTime(int row, const QString &column)
{
    // The entry belongs to the work orders, which lie above this folder and may not have joined.
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

bool HistoryPage::storeNote()
{
    if (!m_noteChanged || m_noteOf == 0)
        return true;
    frame().beginEdit();
    const QString note = txtNote->toPlainText();
    const std::optional<QString> stored = ::storeNote(
        Module, "txtNote_Validate", note, m_shownNote,
        [&](const history::Shown &shown) { return history::updateNote(m_noteOf, note, shown); });
    // A note that could not be written is tried again with the next chance.
    if (stored)
        showNote(m_noteOf, *stored);
    return stored.has_value();
}
