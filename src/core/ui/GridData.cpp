#include "core/ui/GridData.h"

#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"

#include <QFontMetrics>
#include <algorithm>

namespace {

constexpr char Module[] = "General Function";
constexpr int CellMargin = 16; // pixels, both sides together
/// Beyond these many rows widths follow a sample, so that a long list opens at once.
constexpr int MeasuredRows = 500;

} // namespace

void AssignData(grid::GridView &Grid, const db::Recordset &Rows)
{
    base::trapped(Module, "AssignData", [&] {
        grid::GridModel &model = Grid.rows();
        model.setRecordset(Rows);
        const QFontMetrics metrics(Grid.font());
        for (int c = 0; c < Rows.columnCount(); ++c) {
            const QString name = Rows.columnName(c);
            int width = metrics.horizontalAdvance(name);
            for (int r = 0; r < std::min(Rows.RecordCount(), MeasuredRows); ++r)
                width = std::max(width, metrics.horizontalAdvance(model.text(r, name)));
            model.column(name).width = width + CellMargin;
        }
        model.columnsChanged();
    });
}

void ColAlign(grid::GridView &Grid, const QString &Column, grid::Align Alignment)
{
    base::trapped(Module, "ColAlign", [&] {
        Grid.rows().column(Column).align = Alignment;
        Grid.rows().columnsChanged();
    });
}
