#include "parts/ui/frmPartManager.h"

#include "core/Session.h"
#include "core/ui/IncrementalSearch.h"
#include "core/ui/ListGrid.h"
#include "core/ui/MayDo.h"
#include "parts/PartSelection.h"
#include "parts/clsPart.h"
#include "parts/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmPartManager";

QString listStatement(const QString &leftOut)
{
    QString where = u" Where tblpart.Inactive=No"_s;
    if (!leftOut.trimmed().isEmpty())
        where = u" Where tblpart.Inactive=No and  tblpart.partId not in ( %1 )"_s.arg(leftOut);
    return u"SELECT tblPart.PartID as [Part Number] , tblPart.Description, tblIndicator.ItemName "
           "as [Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, "
           "tblSupplier.Name as [Supplier], tblPart.Inactive, tblPart.SupplierID FROM (tblPart "
           "LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID) LEFT JOIN "
           "tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID"_s +
           where + u" order by tblpart.PartID"_s;
}

QList<grid::Column> listColumns(bool selectMode)
{
    QList<grid::Column> columns;
    if (selectMode) {
        columns.append(
            {.name = u"Select"_s, .width = 60, .editable = true, .editor = grid::Editor::Check});
        columns.append({.name = u"Qty Req"_s,
                        .width = 80,
                        .editable = true,
                        .format = u"0.00"_s,
                        .editor = grid::Editor::Masked,
                        .mask = u"{0,99999}.{0,99}"_s,
                        .kind = sql::ColumnKind::Real});
    }
    columns.append({.name = u"Part Number"_s, .width = 120});
    columns.append({.name = u"Description"_s, .width = 260});
    columns.append({.name = u"Part Category"_s, .width = 130});
    columns.append({.name = u"Qty on Hand"_s, .width = 90, .format = u"0.00"_s});
    columns.append({.name = u"Price"_s, .width = 80, .format = u"$0.00"_s});
    columns.append({.name = u"Supplier"_s, .width = 160});
    columns.append({.name = u"Inactive"_s, .visible = false});
    columns.append({.name = u"SupplierID"_s, .visible = false});
    return columns;
}

} // namespace

frmPartManager::frmPartManager(const QString &leftOut, bool selectMode, QWidget *parent)
    : Screen(u"frmPartManager"_s, u"Parts"_s, parent)
    , m_leftOut(leftOut)
    , m_selectMode(selectMode)
{
    buildForm();
    ShowGrid();
    adoptGrid(grdParts, u"grdParts"_s);
}

void frmPartManager::buildForm()
{
    input::FormBuilder form(this);
    txtSearch = form.textField(u"txtSearch"_s, u"Searc&h:"_s, 100);
    grdParts = makeListGrid(this, u"grdParts"_s, u"Parts"_s, listColumns(m_selectMode));
    form.widget(grdParts, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add"_s, theme::icon(u"add"_s));
    cmdDelete = form.leftButton(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
    cmdSelect = form.button(u"cmdSelect"_s, m_selectMode ? u"&Select"_s : u"&Open"_s,
                            theme::icon(u"part"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(m_selectMode ? 1030 : 890, 520);

    auto *search = new IncrementalSearch(txtSearch, grdParts);
    search->setColumns({{u"Part Number"_s, u"VARCHAR"_s}, {u"Description"_s, u"VARCHAR"_s}});
    grdParts->rows().changeRule = [this](int row, const QString &column, const QVariant &value) {
        return partTicked(row, column, value);
    };
    connect(grdParts, &grid::GridView::rowActivated, this, [this](int row) {
        if (m_selectMode)
            grdParts->rows().edit(row, grdParts->rows().columnIndex(u"Select"),
                                  !grdParts->rows().value(row, u"Select").toBool());
        else
            openPart(row);
    });
    connect(cmdSelect, &QPushButton::clicked, this, &frmPartManager::cmdSelect_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmPartManager::cmdAdd_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmPartManager::cmdDelete_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmPartManager::ShowGrid(const QString &keepPart)
{
    base::trapped(Module, "ShowGrid", [&] {
        grdParts->rows().setRecordset(gcnData->Open(listStatement(m_leftOut)));
        FillValue();
        const int kept =
            keepPart.isEmpty() ? -1 : grdParts->rows().findRow(u"Part Number", keepPart);
        const int row = kept >= 0 ? kept : grdParts->displayedOrder().value(0, -1);
        if (m_selectMode)
            grdParts->selectCell(row, u"Qty Req");
        else
            grdParts->selectRow(row);
    });
    EnableControls();
}

void frmPartManager::FillValue()
{
    if (!m_selectMode)
        return;
    grdParts->rows().setAll(u"Select", false);
    grdParts->rows().setAll(u"Qty Req", 0.0);
}

void frmPartManager::EnableControls()
{
    const bool rows = grdParts->rows().rowCount() > 0;
    cmdDelete->setEnabled(rows);
    cmdSelect->setEnabled(rows);
}

bool frmPartManager::partTicked(int row, const QString &column, const QVariant &value)
{
    if (column == u"Select")
        grdParts->rows().setValue(row, u"Qty Req", value.toBool() ? 1.0 : 0.0);
    return true;
}

QString frmPartManager::currentPart() const
{
    const int row = grdParts->currentRow();
    return row < 0 ? QString() : grdParts->rows().text(row, u"Part Number");
}

void frmPartManager::openPart(int row)
{
    const QString part = grdParts->rows().text(row, u"Part Number");
    showPartDetail(Mode::Browse, part);
    ShowGrid(part);
}

void frmPartManager::cmdSelect_Click()
{
    const grid::GridModel &rows = grdParts->rows();
    if (rows.rowCount() == 0)
        return;
    if (!m_selectMode) {
        if (grdParts->currentRow() >= 0)
            openPart(grdParts->currentRow());
        return;
    }
    if (!grdParts->finishEditing())
        return;
    QList<parts::Chosen> chosen;
    for (int row = 0; row < rows.rowCount(); ++row)
        if (rows.value(row, u"Select").toBool())
            chosen.append({rows.text(row, u"Part Number"), rows.value(row, u"Qty Req").toDouble(),
                           rows.value(row, u"Price").toDouble(),
                           rows.value(row, u"SupplierID").toLongLong()});
    m_selection = parts::selectionText(chosen);
    unload();
}

void frmPartManager::cmdAdd_Click()
{
    if (!mayDo(rights::Parts.add))
        return;
    // A new part is to stay, whatever becomes of the edit that this list was opened from.
    base::trapped(Module, "cmdAdd_Click", [] { CommitTrans(); });
    // An Add that is cancelled shows that part again, and so the list stays where it was.
    ShowGrid(showPartDetail(Mode::Add, currentPart()));
}

void frmPartManager::cmdDelete_Click()
{
    if (!mayDo(rights::Parts.remove))
        return;
    const QString part = currentPart();
    if (part.isEmpty() || !base::askYesNo(u"Are you sure you want to Delete this record?"_s))
        return;
    const clsPartManager manager;
    const QString word = manager.CanDeletePart(part);
    if (!word.isEmpty()) {
        base::showInformation(u"Deletion not allowed. Record is being used in %1."_s.arg(word));
        return;
    }
    if (!manager.DeleteRecord(part))
        return;
    base::trapped(Module, "cmdDelete_Click", [&] {
        gcnData->Execute(u"Delete from tblTempServicePart where PartId=?"_s, {part});
    });
    ShowGrid();
}
