#include "reporting/ui/frmItemList.h"

#include "core/Session.h"
#include "core/ui/EmptyText.h"
#include "core/ui/IncrementalSearch.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "frmItemList";
constexpr QStringView Ticked = u"Select";
} // namespace

frmItemList::frmItemList(List list, Choice choice, QWidget *parent)
    : Screen(u"frmItemList"_s, u"Item List"_s, parent, StoreWhat::SizeOnly)
    , m_list(std::move(list))
    , m_choice(choice)
{
    buildForm();
}

void frmItemList::buildForm()
{
    input::FormBuilder form(this);
    lblTitle = form.note(m_list.title, u"lblTitle"_s);
    txtSearch = form.textField(u"txtSearch"_s, u"Searc&h:"_s, 100);
    QList<grid::Column> columns;
    if (m_choice == Choice::Several)
        columns.append({.name = Ticked.toString(),
                        .width = 60,
                        .editable = true,
                        .editor = grid::Editor::Check});
    grdList = makeListGrid(this, u"grdList"_s, m_list.title, columns);
    showWhenEmpty(*grdList, u"There is nothing to choose from."_s);
    form.widget(grdList, true);
    cmdSelect = form.button(u"cmdSelect"_s, u"&Process"_s, theme::icon(u"select-all"_s));
    cmdSelectForEqpUti =
        form.button(u"cmdSelectForEqpUti"_s, u"&Process"_s, theme::icon(u"select-all"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    resize(585, 400);

    const bool several = m_choice == Choice::Several;
    cmdSelect->setVisible(several);
    cmdSelectForEqpUti->setVisible(!several);
    (several ? cmdSelect : cmdSelectForEqpUti)->setDefault(true);
    txtSearch->setFocus();
    auto *search = new IncrementalSearch(txtSearch, grdList);
    search->setColumns(
        {{m_list.keyColumn, m_list.keyType}, {m_list.secondColumn, m_list.secondType}});
    connect(grdList, &grid::GridView::rowActivated, this, &frmItemList::grdList_Activated);
    connect(cmdSelect, &QPushButton::clicked, this, &frmItemList::cmdSelect_Click);
    connect(cmdSelectForEqpUti, &QPushButton::clicked, this,
            &frmItemList::cmdSelectForEqpUti_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmItemList::reject);
}

QString frmItemList::choose()
{
    if (ShowGrid())
        showModal();
    return m_result;
}

bool frmItemList::ShowGrid()
{
    return base::trapped(Module, "ShowGrid", false, [&] {
        QString statement = m_list.selectText;
        if (!m_list.filterText.isEmpty())
            statement += u' ' + m_list.filterText;
        try {
            grdList->rows().setRecordset(gcnData->Open(statement));
        } catch (const db::DbError &) {
            // The texts come from what users typed into a filter.
            base::showMessage(u"Incorrect Filter"_s);
            return false;
        }
        grid::GridModel &rows = grdList->rows();
        if (m_choice == Choice::Several)
            // The query doesn't give this column; without a value a box would be neither ticked nor
            // empty.
            rows.setAll(Ticked, false);
        for (const QString &name : {m_list.keyColumn, m_list.secondColumn})
            if (rows.hasColumn(name))
                rows.column(name).width = name == m_list.keyColumn ? 150 : 320;
        rows.columnsChanged();
        grdList->selectRow(grdList->displayedOrder().value(0, -1));
        return true;
    });
}

/// Among several a double click ticks or unticks; of one it chooses.
void frmItemList::grdList_Activated(int row)
{
    if (m_choice == Choice::One)
        return cmdSelectForEqpUti_Click();
    grid::GridModel &rows = grdList->rows();
    rows.setValue(row, Ticked, !rows.value(row, Ticked).toBool());
}

void frmItemList::cmdSelect_Click()
{
    // A box that was just ticked may still be in its editor.
    if (!grdList->finishEditing())
        return;
    base::trapped(Module, "cmdSelect_Click", [&] {
        const grid::GridModel &rows = grdList->rows();
        QStringList keys;
        for (int row = 0; row < rows.rowCount(); ++row)
            if (rows.value(row, Ticked).toBool())
                keys.append(base::toText(rows.value(row, m_list.keyColumn)));
        m_result = keys.join(u',');
        unload();
    });
}

void frmItemList::cmdSelectForEqpUti_Click()
{
    base::trapped(Module, "cmdSelectForEqpUti_Click", [&] {
        if (grdList->currentRow() < 0) {
            base::showMessage(u"Please select one record."_s);
            return;
        }
        // Only lists of machines are asked for a single row.
        m_result = base::toText(grdList->rows().value(grdList->currentRow(), u"UnitNo"));
        unload();
    });
}
