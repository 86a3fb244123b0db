#include "gallery/SampleGrid.h"

#include "platform/base/Environment.h"
#include "platform/grid/GridView.h"
#include "platform/input/Theme.h"

using namespace Qt::StringLiterals;

namespace gallery {
namespace {

using grid::Column;
using grid::Editor;

QList<Column> sampleColumns()
{
    Column unit;
    unit.name = u"Unit No"_s;
    unit.width = 90;
    unit.locked = true;

    Column name;
    name.name = u"Name"_s;
    name.width = 170;
    name.editable = true;
    name.editor = Editor::Text;

    Column inactive;
    inactive.name = u"Inactive"_s;
    inactive.width = 70;
    inactive.editable = true;
    inactive.editor = Editor::Check;

    Column crew;
    crew.name = u"Service Crew"_s;
    crew.width = 150;
    crew.editable = true;
    crew.editor = Editor::DropDown;
    crew.choices = {{1, u"1   North yard"_s}, {2, u"2   South yard"_s}, {3, u"3   Shop"_s}};

    Column due;
    due.name = u"Next Date"_s;
    due.width = 100;
    due.editable = true;
    due.editor = Editor::Date;
    due.format = u"mm/dd/yyyy"_s;
    due.kind = sql::ColumnKind::Date;

    Column start;
    start.name = u"StartTime"_s;
    start.width = 90;
    start.format = u"hh:mm AMPM"_s;
    start.kind = sql::ColumnKind::Date;

    Column count;
    count.name = u"Next Count"_s;
    count.width = 90;
    count.editable = true;
    count.editor = Editor::Masked;
    count.mask = u"{1,999999999}"_s;
    count.align = grid::Align::Right;

    Column cost;
    cost.name = u"Labor Cost"_s;
    cost.width = 90;
    cost.editable = true;
    cost.editor = Editor::Masked;
    cost.mask = u"{0,99999}.{0,99}"_s;
    cost.format = u"$0.00"_s;
    cost.align = grid::Align::Right;

    Column document;
    document.name = u"Document"_s;
    document.width = 140;
    document.editor = Editor::Link;

    Column open;
    open.name = u"Open"_s;
    open.width = 80;
    open.editor = Editor::Button;

    return {unit, name, inactive, crew, due, start, count, cost, document, open};
}

} // namespace

grid::GridView *makeSampleGrid(QWidget *parent)
{
    auto *view = new grid::GridView(parent);
    view->setObjectName(u"grdSample"_s);
    view->setAccessibleName(u"Sample machines"_s);
    grid::GridModel &rows = view->rows();
    for (const Column &column : sampleColumns())
        rows.addColumn(column);

    const QString machines[] = {u"Walk-behind mower"_s, u"Zero-turn mower"_s, u"Dump truck"_s,
                                u"Back-pack blower"_s,  u"Trailer, 16 ft"_s,  u"Hedge trimmer"_s};
    for (int i = 0; i < 24; ++i) {
        rows.insertRow(
            {{u"Unit No"_s, u"M-%1"_s.arg(100 + i)},
             {u"Name"_s, machines[i % 6]},
             {u"Inactive"_s, i % 5 == 4},
             {u"Service Crew"_s, 1 + i % 3},
             {u"Next Date"_s, base::wallClock(QDate(2024, 3, 1).addDays(3 * i))},
             {u"StartTime"_s, base::wallClock(QDate(1899, 12, 30), QTime(7 + i % 9, 30))},
             {u"Next Count"_s, 250 * (i + 1)},
             {u"Labor Cost"_s, 18.25 * (i % 7)},
             {u"Document"_s, i % 2 ? QString() : u"manual-%1.pdf"_s.arg(i)},
             {u"Open"_s, u"Open"_s}});
    }
    rows.column(u"Next Count").changeRule = [](int, const QVariant &newValue) {
        return newValue.toInt() >= 10;
    };
    rows.styleRule = [&rows](int row, const QString &column) {
        grid::Style style;
        if (column == u"Next Date" && row < 4) {
            style.background = row < 2 ? QColor(255, 120, 120) : QColor(255, 240, 130);
            style.foreground = theme::textColor();
        }
        if (rows.value(row, u"Inactive").toBool())
            style.foreground = theme::disabledColor();
        return style;
    };
    return view;
}

} // namespace gallery
