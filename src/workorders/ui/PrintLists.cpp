#include "workorders/ui/PrintLists.h"

#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace printlists {
namespace {

constexpr int NoteHeight = 56; // pixels, three lines

} // namespace

QList<grid::Column> serviceColumns(const QStringList &hidden)
{
    QList<grid::Column> columns{
        {.name = u"Service No"_s, .width = 72},
        {.name = u"Service Name"_s, .width = 190},
        {.name = u"Service Crew"_s, .width = 118},
        {.name = u"Next Service Date"_s, .width = 112, .format = u"mm/dd/yyyy"_s},
        {.name = u"SeparateWo"_s, .width = 75, .editor = grid::Editor::Check}};
    for (const QString &name : hidden)
        columns.append({.name = name, .visible = false});
    return columns;
}

QList<grid::Column> partColumns(const worklists::Change &priceRule)
{
    const bool isEditable = priceRule != nullptr;
    return {{.name = u"Part Number"_s, .width = 110},
            {.name = u"Description"_s, .width = 220},
            {.name = u"Qty Req"_s, .width = 80, .format = u"0.00"_s},
            {.name = u"Price"_s,
             .width = 90,
             .editable = isEditable,
             .format = u"0.00"_s,
             .editor = isEditable ? grid::Editor::Masked : grid::Editor::None,
             .mask = isEditable ? u"{0,99999}.{0,99}"_s : QString(),
             .changeRule = priceRule}};
}

void styleByDate(grid::GridView &services, const LatenessStyle &lateness)
{
    const grid::GridModel &rows = services.rows();
    services.rows().styleRule = [&rows, &lateness](int row, const QString &) {
        return lateness.of(rows.value(row, u"Next Service Date").toDateTime().date());
    };
}

void addGridGroup(input::FormBuilder &form, const QString &title, grid::GridView *grid,
                  const Button &first, const Button &second)
{
    form.beginGroup(title);
    form.widget(grid, true);
    form.beginRow();
    // Side by side below the grid, which keeps all the height there is.
    for (const Button &each : {first, second})
        each.button = form.inlineButton(each.name, each.text);
    form.endRow();
    form.endGroup();
}

QPlainTextEdit *addNote(input::FormBuilder &form, const QString &name)
{
    QPlainTextEdit *box = form.memoField(name, u"&Note:"_s, 2);
    // A memo grows with its form by itself, at the cost of the two grids above it.
    box->setFixedHeight(NoteHeight);
    return box;
}

} // namespace printlists
