#include "reporting/ui/frmPartQuickFind.h"

#include "core/Flag.h"
#include "core/Options.h"
#include "core/Session.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/LookupCombo.h"
#include "core/ui/MayDo.h"
#include "organisation/clsIndicator.h"
#include "parts/ui/Entries.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "reporting/ui/FieldSearch.h"
#include "reporting/ui/GradualRows.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "frmPartQuickFind";
const QString InactiveOption = u"PARTINACTIVE"_s;
} // namespace

frmPartQuickFind::frmPartQuickFind(const QString &partID, QWidget *parent)
    : Screen(u"frmPartQuickFind"_s, quickfind::SetCaption(u"tblPart"), parent)
    , m_startPart(partID)
{
    buildForm();
    // Ahead of the rows, whose statement goes by the category and the box.
    loadLookupList(*cboPartCategory, LookupList::PartCategory);
    loadFields();
    chkInactive->setChecked(base::toText(GetOption(InactiveOption, true)) == u"1");
    ShowGrid(m_startPart);
    // Last: the stored layout is put on columns, which the first rows have brought.
    adoptGrid(grdParts, u"grdParts"_s);
}

void frmPartQuickFind::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    cboFieldNames = form.comboField(u"cboFieldNames"_s, u"Search &by:"_s);
    txtSearchText = form.textField(u"txtSearchText"_s, u"&Enter:"_s);
    form.nextColumn();
    cboPartCategory = form.comboField(u"cboPartCategory"_s, u"Cate&gory:"_s);
    chkInactive = form.checkBox(u"chkInactive"_s, u"Show &Inactive"_s);
    form.endColumns();
    grdParts = makeListGrid(
        this, u"grdParts"_s, u"Parts"_s,
        {{.name = u"PartID"_s, .visible = false},
         {.name = u"Part Number"_s, .width = 120},
         {.name = u"Description"_s, .width = 240},
         {.name = u"Part Category"_s, .width = 130},
         {.name = u"Qty on Hand"_s, .width = 90, .align = grid::Align::Right, .format = u"0.00"_s},
         {.name = u"Price"_s, .width = 80, .align = grid::Align::Right, .format = u"$0.00"_s},
         {.name = u"Supplier"_s, .width = 150},
         {.name = u"Inactive"_s, .width = 70, .editor = grid::Editor::Check}});
    showWhenEmpty(*grdParts, u"No parts to find."_s);
    form.widget(grdParts, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add New"_s, theme::icon(u"add"_s));
    cmdSelect = form.button(u"cmdSelect"_s, u"&Select"_s, theme::icon(u"find"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    resize(920, 540);

    cmdSelect->setDefault(true);
    txtSearchText->setFocus();
    m_search = new FieldSearch(cboFieldNames, txtSearchText, grdParts,
                               IncrementalSearch::WithoutMatch::KeepRow);
    m_rows = new GradualRows(grdParts, this);
    m_search->setMayBegin([this] {
        // A search among the first rows alone would stop at a wrong one.
        m_searchWaits = !m_rows->isComplete();
        return !m_searchWaits;
    });
    connect(m_rows, &GradualRows::completed, this, [this] {
        if (std::exchange(m_searchWaits, false))
            m_search->search();
    });
    connect(cboPartCategory, &QComboBox::activated, this, [this] { ShowGrid(currentPart()); });
    connect(chkInactive, &QCheckBox::clicked, this, &frmPartQuickFind::chkInactive_Click);
    connect(grdParts, &grid::GridView::rowActivated, this, &frmPartQuickFind::cmdSelect_Click);
    connect(cmdSelect, &QPushButton::clicked, this, &frmPartQuickFind::cmdSelect_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmPartQuickFind::cmdAdd_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPartQuickFind::reject);
}

QString frmPartQuickFind::ShowQuickFind()
{
    showModal();
    return m_result;
}

void frmPartQuickFind::loadFields()
{
    base::trapped(Module, "FillFields",
                  [&] { m_search->setFields(quickfind::partFields(), u"PartID"_s); });
}

QString frmPartQuickFind::QueryString() const
{
    return quickfind::partListStatement(chkInactive->isChecked(), cboPartCategory->id());
}

void frmPartQuickFind::ShowGrid(const QString &partID)
{
    base::trapped(Module, "ShowGrid", [&] {
        // A part to stand on may be the last one.
        m_rows->show(gcnData->OpenGradually(QueryString()), !partID.isEmpty());
        const int row = partID.isEmpty() ? -1 : grdParts->rows().findRow(u"PartID", partID);
        // The part may have left the list by its category or its state; then the first one in view
        // is it.
        grdParts->selectRow(row >= 0 ? row : grdParts->displayedOrder().value(0, -1));
    });
}

QString frmPartQuickFind::currentPart() const
{
    const int row = grdParts->currentRow();
    return row < 0 ? QString() : base::toText(grdParts->rows().value(row, u"PartID"));
}

void frmPartQuickFind::chkInactive_Click()
{
    // Kept for the workstation, as soon as it is chosen: also Cancel keeps it.
    SetOption(InactiveOption, flagText(chkInactive->isChecked()), true);
    ShowGrid(currentPart());
}

void frmPartQuickFind::cmdSelect_Click()
{
    base::trapped(Module, "cmdSelect_Click", [this] {
        // What was typed means a row that may not have been read yet.
        if (m_searchWaits)
            m_rows->readAll();
        m_result = currentPart();
    });
    if (!m_result.isEmpty())
        unload();
}

void frmPartQuickFind::cmdAdd_Click()
{
    if (!mayDo(rights::Parts.add))
        return;
    // The part's screen ends the transaction that the rows are read in.
    base::trapped(Module, "cmdAdd_Click", [this] { m_rows->readAll(); });
    ShowGrid(showPartDetail(Mode::Add, currentPart())); // shown again after a Cancel
}
