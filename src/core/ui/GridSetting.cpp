#include "core/ui/GridSetting.h"

#include "core/Session.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/grid/GridView.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

grid::Sort sortOf(qint64 number)
{
    return number == 1   ? grid::Sort::Ascending
           : number == 2 ? grid::Sort::Descending
                         : grid::Sort::None;
}

/// All rows or none: a layout that can't be stored leaves the one from before.
void storeLayout(const QString &formName, const QString &gridName, const grid::GridView &grid)
{
    db::Connection &lookup = lookupConnection();
    lookup.BeginTrans();
    try {
        lookup.Execute(u"Delete from  tblgridsetting where  formname=? and Tablename=?"_s,
                       {formName, gridName});
        for (const grid::ColumnLayout &column : grid.layout()) {
            lookup.Execute(
                u"INSERT INTO tblGridSetting(Tablename,Width,FieldName,FormName,FPosition, "
                u"SortType)  values(?,?,?,?,?,?)"_s,
                {gridName, column.width, column.field, formName, column.position,
                 static_cast<int>(column.sort)});
        }
        lookup.CommitTrans();
    } catch (const base::Error &) {
        lookup.RollbackTrans();
        throw;
    }
}

} // namespace

void SaveGridSetting(const QString &FormName, const QString &GridName, const grid::GridView &Grid)
{
    base::trapped(Module, "SaveGridSetting", [&] {
        try {
            storeLayout(FormName, GridName, Grid);
        } catch (const db::DbError &error) {
            // A column's width is worth no message: the layout from before stays.
            if (error.number() != db::ErrorNumber::LockConflict)
                throw;
        }
    });
}

void SetGridSetting(const QString &FormName, const QString &GridName, grid::GridView &Grid)
{
    base::trapped(Module, "SetGridSetting", [&] {
        const db::Recordset rows = lookupConnection().Open(
            u"select * from  tblgridsetting where formname=? and Tablename=? order by fposition "_s,
            {FormName, GridName});
        if (rows.isEmpty())
            return;
        grid::Layout layout;
        for (const db::Row row : rows) {
            layout.append({row.text(u"Fieldname"), static_cast<int>(row.integer(u"Width")),
                           static_cast<int>(row.integer(u"fposition")),
                           sortOf(row.integer(u"SortType"))});
        }
        const bool hasColumns = Grid.rows().columnCount() > 0;
        const QStringList unknown = Grid.applyLayout(layout);
        // A grid whose columns come with its first rows takes its layout then.
        if (!hasColumns)
            return;
        for (const QString &field : unknown) {
            base::reportError(Module, "SetGridSetting", base::ErrorNumber::NoSuchItem,
                              u"The list has no column \"%1\"."_s.arg(field));
        }
    });
}
