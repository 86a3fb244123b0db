#include "equipment/ui/DateReading.h"

#include "core/Options.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Openings.h"
#include "core/ui/Telling.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QPushButton>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ButtonColumn = u"Select"_s;

} // namespace

DateReading::DateReading(const datesheet::Sheet &sheet, QWidget *parent)
    : Screen(sheet.form, sheet.title, parent)
    , m_sheet(sheet)
{
    buildForm();
    adoptGrid(m_grid, m_grid->objectName());
    readRange();
    RefreshRecordSet();
    EnableControls();
}

void DateReading::buildForm()
{
    input::FormBuilder form(this);
    form.beginRow(m_sheet.oldCaption);
    datFrom = form.dateField(m_sheet.dateFrom, u"&from"_s);
    datTo = form.dateField(m_sheet.dateTo, u"&to"_s);
    cmdRefresh = form.inlineButton(u"cmdRefresh"_s, u"&Refresh"_s, theme::icon(u"refresh"_s));
    form.endRow();
    buildGrid();
    form.widget(m_grid, true);
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdPrint = form.button(u"cmdPrint"_s, u"&Print"_s, theme::icon(u"print"_s));
    cmdExit = form.button(u"cmdExit"_s, u"E&xit"_s, theme::icon(u"exit"_s));
    form.finish();
    resize(760, 480);

    // Neither needs dates that are right: one throws them away, the other only closes.
    input::setCausesValidation(cmdCancel, false);
    input::setCausesValidation(cmdExit, false);
    datFrom->checkOnLeave();
    datTo->checkOnLeave();
    connect(cmdRefresh, &QPushButton::clicked, this, &DateReading::cmdRefresh_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &DateReading::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &DateReading::cmdCancel_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &DateReading::cmdPrint_Click);
    connect(cmdExit, &QPushButton::clicked, this, &DateReading::unload);
}

void DateReading::buildGrid()
{
    m_grid = makeListGrid(
        this, m_sheet.grid, m_sheet.title,
        {{.name = u"EquipmentID"_s, .visible = false},
         {.name = u"UnitNo"_s, .caption = u"Unit #"_s, .width = 80, .locked = true},
         {.name = u"EquipmentName"_s, .caption = u"Equipment Name"_s, .width = 210, .locked = true},
         {.name = m_sheet.column, .caption = m_sheet.oldCaption, .width = 154, .locked = true},
         {.name = m_sheet.newCaption,
          .width = 160,
          .editable = true,
          .editor = grid::Editor::Date,
          .kind = sql::ColumnKind::Date,
          .changeRule = [this](int row, const QVariant &date) { return Change(row, date); }},
         {.name = ButtonColumn,
          .width = 100,
          .align = grid::Align::Center,
          .editor = grid::Editor::Button}});
    showWhenEmpty(*m_grid, u"No machine has its date between these."_s);
    // With the first key, so that the range can't be changed under a date that is being typed.
    connect(m_grid, &grid::GridView::typing, this, &DateReading::edited);
    connect(m_grid, &grid::GridView::buttonClicked, this, &DateReading::ButtonClick);
}

void DateReading::readRange()
{
    datFrom->setDate(dateOption(m_sheet.optionFrom, base::today().addYears(-1)));
    datTo->setDate(dateOption(m_sheet.optionTo, base::today()));
}

void DateReading::unloading()
{
    // As text, and empty for none: what the user sees is what comes back.
    SetOption(m_sheet.optionFrom, datFrom->isEmpty() ? QString() : datFrom->text(), true);
    SetOption(m_sheet.optionTo, datTo->isEmpty() ? QString() : datTo->text(), true);
}

bool DateReading::rangeIsInOrder()
{
    for (input::DateInput *box : {datFrom, datTo}) {
        if (box->date().isValid())
            continue;
        base::showMessage(u"Please enter valid date."_s);
        box->setFocus();
        return false;
    }
    return true;
}

void DateReading::RefreshRecordSet()
{
    base::trapped(m_sheet.module, "RefreshRecordSet", [this] {
        m_grid->rows().setRecordset(datesheet::machines(m_sheet, datFrom->date(), datTo->date()));
        // Typing begins with the first machine's new date.
        m_grid->selectCell(m_grid->displayedOrder().value(0, -1), m_sheet.newCaption);
    });
}

void DateReading::EnableControls()
{
    const bool editing = mode() != Mode::Browse;
    // Hiding the button that has the focus would hand it to whatever comes next.
    if (m_grid->isVisible() && editing != cmdUpdate->isVisible() && !m_grid->hasFocus() &&
        !m_grid->isAncestorOf(focusWidget()))
        m_grid->setFocus();
    for (QPushButton *button : {cmdUpdate, cmdCancel})
        button->setVisible(editing);
    for (QPushButton *button : {cmdPrint, cmdExit})
        button->setVisible(!editing);
    // Another range would show other machines and lose what was typed for these.
    for (QWidget *control : std::initializer_list<QWidget *>{datFrom, datTo, cmdRefresh})
        control->setEnabled(!editing);
    cmdPrint->setEnabled(openings().isJoined(m_sheet.report));
    setCloseEnabled(!editing);
}

void DateReading::leaveEditing()
{
    RefreshRecordSet();
    setMode(Mode::Browse);
}

void DateReading::ButtonClick(int row, const QString &column)
{
    // The signal comes from any column; only one of them has buttons.
    if (column.compare(ButtonColumn, Qt::CaseInsensitive) != 0 || !m_grid->finishEditing())
        return;
    base::trapped(m_sheet.module, m_sheet.button, [&] {
        grid::GridModel &rows = m_grid->rows();
        const QDateTime oldDate = rows.value(row, m_sheet.column).toDateTime();
        // As if it had been typed, so that the same rule judges it.
        rows.edit(row, rows.columnIndex(m_sheet.newCaption), datesheet::oneYearLater(oldDate));
    });
}

bool DateReading::Change(int row, const QVariant &date)
{
    return base::trapped(m_sheet.rule, "grdRecordService_Change", false, [&] {
        edited();
        // Emptied again: this machine keeps its date.
        if (date.isNull())
            return true;
        grid::GridModel &rows = m_grid->rows();
        const QString refusal = datesheet::refusalOf(
            m_sheet, rows.value(row, m_sheet.column).toDateTime(), date.toDateTime());
        if (refusal.isEmpty())
            return true;
        base::showMessage(refusal);
        // Emptied, so that a refused date is not saved with the others.
        rows.setValue(row, m_sheet.newCaption, QVariant());
        return false;
    });
}

void DateReading::cmdRefresh_Click()
{
    if (rangeIsInOrder())
        RefreshRecordSet();
}

void DateReading::cmdUpdate_Click()
{
    if (!m_grid->finishEditing())
        return;
    const grid::GridModel &rows = m_grid->rows();
    QList<datesheet::NewDate> dates;
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QVariant date = rows.value(row, m_sheet.newCaption);
        // Only rows that were given a date are written; all others stay as anybody else has left
        // them.
        if (!date.isNull())
            dates.append({rows.value(row, u"EquipmentID").toLongLong(), rows.text(row, u"UnitNo"),
                          rows.value(row, m_sheet.column).toDateTime(), date.toDateTime()});
    }
    const auto others = telling(m_sheet.module, "cmdUpdate_Click", std::optional<QStringList>(),
                                [&] { return std::optional(datesheet::save(m_sheet, dates)); });
    if (!others)
        return;
    leaveEditing();
    // Behind the transaction and the reading: the box says what happened, and the sheet shows it.
    if (!others->isEmpty())
        base::showMessage(u"Another workstation has changed these machines meanwhile. Their new "
                          "dates were not stored:\n\n"_s +
                          others->join(u'\n'));
}

void DateReading::cmdCancel_Click()
{
    leaveEditing();
}

void DateReading::cmdPrint_Click()
{
    if (rangeIsInOrder())
        openings().open(m_sheet.report,
                        {.query = datesheet::filterText(m_sheet, datFrom->date(), datTo->date())});
}
