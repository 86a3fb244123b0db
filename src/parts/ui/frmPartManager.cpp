#include "parts/ui/frmPartManager.h"

#include "core/Session.h"
#include "core/ui/EmptyText.h"
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

} // namespace

frmPartManager::frmPartManager(const QString &leftOut, bool selectMode, QWidget *parent)
    : Screen(u"frmPartManager"_s, u"Parts"_s, parent)
    , m_leftOut(parts::excludedParts(leftOut))
    , m_selectMode(selectMode)
{
    buildForm();
    ShowGrid();
    // Behind the rows, so that a stored sort finds something to sort.
    adoptGrid(grdParts, u"grdParts"_s);
}

QList<grid::Column> frmPartManager::columns()
{
    QList<grid::Column> columns;
    if (m_selectMode) {
        columns.append({.name = u"Select"_s,
                        .width = 60,
                        .editable = true,
                        .editor = grid::Editor::Check,
                        .changeRule = [this](int row, const QVariant &ticked) {
                            // Of a part that is picked, one is needed until another number is
                            // given.
                            grdParts->rows().setValue(row, u"Qty Req", ticked.toBool() ? 1.0 : 0.0);
                            return true;
                        }});
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

void frmPartManager::buildForm()
{
    input::FormBuilder form(this);
    txtSearch = form.textField(u"txtSearch"_s, u"Searc&h:"_s, 100);
    grdParts = makeListGrid(this, u"grdParts"_s, u"Parts"_s, columns());
    showWhenEmpty(*grdParts, u"No parts to choose from."_s);
    form.widget(grdParts, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add"_s, theme::icon(u"add"_s));
    cmdDelete = form.leftButton(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
    cmdSelect = form.button(u"cmdSelect"_s, m_selectMode ? u"&Select"_s : u"&Open"_s,
                            theme::icon(u"part"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    // Wide enough for all columns, of which selecting has two more.
    resize(m_selectMode ? 1030 : 890, 520);

    auto *search = new IncrementalSearch(txtSearch, grdParts);
    search->setColumns({{u"Part Number"_s, u"VARCHAR"_s}, {u"Description"_s, u"VARCHAR"_s}});
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
        // Ahead of the reading, which empties both columns.
        const QHash<QString, double> picked = ticked();
        grdParts->rows().setRecordset(clsPartManager().Selectable(m_leftOut));
        FillValue(picked);
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

/// What is ticked so far, with its quantities: it outlives a reading of the list.
QHash<QString, double> frmPartManager::ticked() const
{
    QHash<QString, double> parts;
    const grid::GridModel &rows = grdParts->rows();
    for (int row = 0; m_selectMode && row < rows.rowCount(); ++row)
        if (rows.value(row, u"Select").toBool())
            parts.insert(rows.text(row, u"Part Number"), rows.value(row, u"Qty Req").toDouble());
    return parts;
}

void frmPartManager::FillValue(const QHash<QString, double> &picked)
{
    if (!m_selectMode)
        return;
    grid::GridModel &rows = grdParts->rows();
    rows.setAll(u"Select", false);
    rows.setAll(u"Qty Req", 0.0);
    for (int row = 0; !picked.isEmpty() && row < rows.rowCount(); ++row) {
        const auto found = picked.constFind(rows.text(row, u"Part Number"));
        if (found == picked.cend())
            continue;
        rows.setValue(row, u"Select", true);
        rows.setValue(row, u"Qty Req", *found);
    }
}

void frmPartManager::EnableControls()
{
    const bool rows = grdParts->rows().rowCount() > 0;
    cmdDelete->setEnabled(rows);
    cmdSelect->setEnabled(rows);
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
    // Without parts nothing is selected, and the list stays open.
    if (rows.rowCount() == 0)
        return;
    if (!m_selectMode) {
        if (grdParts->currentRow() >= 0)
            openPart(grdParts->currentRow());
        return;
    }
    // A quantity that is still being typed counts, or keeps the list when it is refused.
    if (!grdParts->finishEditing())
        return;
    QList<parts::Chosen> chosen;
    for (int row = 0; row < rows.rowCount(); ++row)
        if (rows.value(row, u"Select").toBool())
            chosen.append({rows.text(row, u"Part Number"), rows.value(row, u"Qty Req").toDouble(),
                           // As they are now: machine, service or order keep the price of the day.
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
    // Told by the first use that is found. Deleting would leave rows that name a part which is not
    // there.
    if (!word.isEmpty()) {
        base::showInformation(u"Deletion not allowed. Record is being used in %1."_s.arg(word));
        return;
    }
    if (!manager.DeleteRecord(part))
        return;
    // Picks of another screen that are not stored yet would bring the deleted part back.
    base::trapped(Module, "cmdDelete_Click", [&] { manager.ForgetPicked(part); });
    ShowGrid();
}
