#include "scheduling/ui/GridPage.h"

#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"

#include <QSignalBlocker>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Equipment";

} // namespace

bool GridPage::hasContent() const
{
    return m_grid->rows().rowCount() > 0;
}

void GridPage::setEditable(bool editable)
{
    m_editable = editable;
    EnableControls();
}

bool GridPage::finishEditing()
{
    return m_grid->finishEditing();
}

void GridPage::pageShown()
{
    m_grid->setFocus();
}

void GridPage::setGrid(grid::GridView *grid)
{
    m_grid = grid;
    setFocusProxy(grid);
    // Stored by the machine's screen with its other grids, when that is closed.
    frame().keepLayout(grid, grid->objectName());
    connect(grid, &grid::GridView::currentRowChanged, this, &GridPage::rowChanged);
}

QString GridPage::chosen(QStringView column) const
{
    const int row = m_grid->currentRow();
    return row < 0 ? QString() : m_grid->rows().text(row, column);
}

void GridPage::showRows(qint64 equipmentID, const char *procedure,
                        const std::function<db::Recordset()> &load)
{
    // The place is kept by number, since after a removal the next row is what the user goes on
    // with.
    const int row = equipmentID == m_equipment ? std::max(m_grid->currentRow(), 0) : 0;
    m_equipment = equipmentID;
    {
        // What follows the current row follows once, not with each step of the loading.
        const QSignalBlocker silence(m_grid);
        base::trapped(Module, procedure, [&] {
            m_grid->rows().setRecordset(load());
            m_grid->selectRow(std::min(row, m_grid->rows().rowCount() - 1));
        });
    }
    rowChanged();
}

void GridPage::removeChosen(const QString &key, const std::function<bool(const QString &)> &remove)
{
    if (key.isEmpty())
        return;
    frame().beginEdit();
    if (!base::askYesNo(u"Are you sure you want to Delete this record?"_s) || !remove(key))
        return;
    showAgain();
    frame().contentChanged();
}
