#include "core/ui/RecordScreen.h"

#include "core/ui/Binding.h"
#include "core/ui/Lock.h"
#include "core/ui/MayDo.h"
#include "core/ui/Telling.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

QString RecordScreen::showRecord(Mode mode, const QVariant &key)
{
    RefreshRecordSet(key);
    if (mode == Mode::Add)
        QMetaObject::invokeMethod(
            this, [this] { cmdAdd_Click(); }, Qt::QueuedConnection);
    showModal();
    return base::toText(currentKey());
}

QString RecordScreen::usedBy(const QVariant &) const
{
    return {};
}

QString RecordScreen::deleteQuestion() const
{
    return u"Are you sure you want to Delete this record?"_s;
}

void RecordScreen::makeButtons(input::FormBuilder &form, const Buttons &buttons)
{
    const auto navigation =
        form.navigation(u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s);
    cmdFirst = navigation.first;
    cmdPrevious = navigation.previous;
    cmdNext = navigation.next;
    cmdLast = navigation.last;
    connect(cmdFirst, &QToolButton::clicked, this, [this] { goTo(Place::First); });
    connect(cmdPrevious, &QToolButton::clicked, this, [this] { goTo(Place::Previous); });
    connect(cmdNext, &QToolButton::clicked, this, [this] { goTo(Place::Next); });
    connect(cmdLast, &QToolButton::clicked, this, [this] { goTo(Place::Last); });

    const auto make = [&](const QString &name, const QString &caption, const QString &icon,
                          void (RecordScreen::*click)()) {
        QPushButton *button = form.button(name, caption, theme::icon(icon));
        connect(button, &QPushButton::clicked, this, click);
        return button;
    };
    cmdAdd = make(buttons.addName, u"&Add"_s, u"add"_s, &RecordScreen::cmdAdd_Click);
    cmdDelete = make(u"cmdDelete"_s, u"&Delete"_s, u"delete"_s, &RecordScreen::cmdDelete_Click);
    if (buttons.find)
        cmdFind = make(u"cmdFind"_s, u"&Find"_s, u"find"_s, &RecordScreen::cmdFind_Click);
    if (buttons.print)
        cmdPrint = make(u"cmdPrint"_s, u"&Print"_s, u"print"_s, &RecordScreen::cmdPrint_Click);
    cmdUpdate = make(buttons.saveName, u"&Save"_s, u"save"_s, &RecordScreen::cmdUpdate_Click);
    cmdCancel = make(u"cmdCancel"_s, u"&Cancel"_s, u"cancel"_s, &RecordScreen::cmdCancel_Click);
    cmdExit = make(u"cmdExit"_s, u"&Return"_s, u"return"_s, &RecordScreen::cmdExit_Click);
}

void RecordScreen::setFields(const QList<Bindings *> &fields, const QList<QWidget *> &further)
{
    setSavedFields(fields);
    m_dataControls = further;
    for (const Bindings *binding : fields)
        m_dataControls += binding->controls();
    watch(m_dataControls);
}

void RecordScreen::setListGrid(grid::GridView *grid)
{
    m_grid = grid;
    grid->setEditing(false);
    connect(grid, &grid::GridView::currentRowChanged, this, [this](int row) {
        if (!m_following && row >= 0 && mode() == Mode::Browse)
            moveTo(row);
    });
}

QVariant RecordScreen::currentKey() const
{
    return hasRows() ? m_rows[keyColumn()] : QVariant();
}

void RecordScreen::RefreshRecordSet(const QVariant &key)
{
    setStale(false);
    m_rows = rowsAt(Place::This, key);
    if (m_grid) {
        const QScopedValueRollback following(m_following, true);
        grid::GridModel &model = m_grid->rows();
        QStringList listed;
        for (int column = 0; column < model.columnCount(); ++column)
            listed.append(model.columnAt(column).name.toLower());
        model.setRecordset(m_rows);
        for (int column = 0; column < model.columnCount(); ++column) {
            const QString name = model.columnAt(column).name;
            if (!listed.contains(name.toLower()))
                model.column(name).visible = false;
        }
        model.columnsChanged();
        // Not before all columns are there, since a stored layout names the hidden ones too.
        if (!std::exchange(m_gridIsAdopted, true))
            adoptGrid(m_grid, m_grid->objectName());
    }
    showCurrentRow();
}

db::Recordset RecordScreen::rowsAt(Place place, const QVariant &key)
{
    db::Recordset rows = place == Place::This ? loadRows() : m_rows;
    const int last = rows.RecordCount() - 1;
    switch (place) {
    case Place::This: {
        const QString wanted = base::toText(key);
        const bool found = base::trapped(qPrintable(formName()), "RefreshRecordSet", false, [&] {
            return !wanted.isEmpty() &&
                   rows.Find(u"[%1] = '%2'"_s.arg(keyColumn(), base::doubledQuotes(wanted)));
        });
        if (!found)
            rows.MoveFirst();
        break;
    }
    case Place::First:
        rows.MoveFirst();
        break;
    case Place::Previous:
        rows.MoveTo(qMax(rows.Position() - 1, 0));
        break;
    case Place::Next:
        rows.MoveTo(qMin(rows.Position() + 1, last));
        break;
    case Place::Last:
        rows.MoveLast();
        break;
    }
    return rows;
}

void RecordScreen::goTo(Place place)
{
    if (!hasRows())
        return;
    m_rows = rowsAt(place, currentKey());
    showCurrentRow();
}

void RecordScreen::moveTo(int row)
{
    if (row < 0 || row >= m_rows.RecordCount())
        return;
    m_rows.MoveTo(row);
    showCurrentRow();
}

void RecordScreen::showCurrentRow()
{
    {
        const Displaying displaying(*this);
        base::trapped(qPrintable(formName()), "DisplayData", [this] {
            if (hasRows())
                DisplayData(m_rows.current());
            else
                ClearData();
        });
    }
    if (m_grid && hasRows()) {
        const QScopedValueRollback following(m_following, true);
        m_grid->selectRow(m_rows.Position());
    }
    setMode(Mode::Browse);
}

bool RecordScreen::mayEdit() const
{
    if (mode() == Mode::Add)
        return true;
    return hasRows() && rights::isGranted(m_rights.modify);
}

void RecordScreen::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    showButtons(browsing);
    for (QPushButton *button : {cmdDelete, cmdFind, cmdPrint})
        if (button)
            button->setEnabled(hasRows());
    lockDataControls(!mayEdit());
    if (m_grid)
        m_grid->setEnabled(browsing);
    setCloseEnabled(browsing);
    NavigationControls();
    recordShown();
}

void RecordScreen::showButtons(bool browsing)
{
    // The row must not be laid out while both sets are in it: the form would grow for them.
    if (layout())
        layout()->setEnabled(false);
    for (QPushButton *button : {cmdAdd, cmdDelete, cmdFind, cmdPrint, cmdExit})
        if (button)
            button->setVisible(browsing);
    for (QPushButton *button : {cmdUpdate, cmdCancel})
        button->setVisible(!browsing);
    if (layout())
        layout()->setEnabled(true);
}

void RecordScreen::NavigationControls()
{
    const bool browsing = mode() == Mode::Browse && hasRows();
    const bool back = browsing && m_rows.Position() > 0;
    const bool onward = browsing && m_rows.Position() < m_rows.RecordCount() - 1;
    cmdFirst->setEnabled(back);
    cmdPrevious->setEnabled(back);
    cmdNext->setEnabled(onward);
    cmdLast->setEnabled(onward);
}

void RecordScreen::lockDataControls(bool locked)
{
    for (QWidget *control : std::as_const(m_dataControls))
        setLocked(control, locked);
}

bool RecordScreen::refuse(QWidget *field, const QString &message, bool information)
{
    if (information)
        base::showInformation(message);
    else
        base::showMessage(message);
    field->setFocus();
    return false;
}

bool RecordScreen::confirmMassChange(QLineEdit *field, const QString &storedName)
{
    if (mode() != Mode::Modify || storedName.trimmed() == field->text().trimmed())
        return true;
    const QString answer = usedBy(currentKey());
    if (answer.isEmpty() ||
        base::askYesNo(u"This will change %1 for all your %2. Do you want to do this?"_s.arg(
            storedName.trimmed(), answer)))
        return true;
    field->setText(storedName);
    field->setFocus();
    return false;
}

void RecordScreen::cmdAdd_Click()
{
    if (!mayDo(m_rights.add))
        return;
    {
        const Displaying displaying(*this);
        ClearData();
    }
    setMode(Mode::Add);
    const Displaying displaying(*this);
    prepareNewRecord();
}

void RecordScreen::cmdUpdate_Click()
{
    // Alt+S comes here while the field that was typed into still has the focus.
    if (!input::focusedMayLeave(this) || !VailidateFields())
        return;
    if (const std::optional<QVariant> key = store())
        RefreshRecordSet(*key);
}

void RecordScreen::cmdCancel_Click()
{
    if (isStale())
        RefreshRecordSet(currentKey());
    else
        showCurrentRow();
}

void RecordScreen::cmdDelete_Click()
{
    if (!hasRows() || !mayDo(m_rights.remove) || !base::askYesNo(deleteQuestion()))
        return;
    const QVariant key = currentKey();
    const QVariant next = keyAfterDeletion();
    const QString word = usedBy(key);
    if (!word.isEmpty())
        base::showInformation(u"Deletion not allowed. Record is being used in %1."_s.arg(word));
    else if (removed(key))
        RefreshRecordSet(next);
}

bool RecordScreen::removed(const QVariant &key)
{
    return telling(qPrintable(formName()), "cmdDelete_Click", false,
                   [&] { return naming([&] { return deleteRecord(key); }); });
}
