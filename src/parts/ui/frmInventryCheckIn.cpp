#include "parts/ui/frmInventryCheckIn.h"

#include "core/ui/EmptyText.h"
#include "core/ui/IncrementalSearch.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "parts/Stock.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "frmInventryCheckIn";
constexpr QStringView Received = u"Qty Received";
} // namespace

frmInventryCheckIn::frmInventryCheckIn(QWidget *parent)
    : Screen(u"frmInventryCheckIn"_s, u"Inventory CheckIn"_s, parent)
{
    buildForm();
    ShowGrid();
    // Behind the rows, so that a stored sort finds something to sort.
    adoptGrid(grdParts, u"grdParts"_s);
    setMode(Mode::Browse);
}

void frmInventryCheckIn::buildForm()
{
    input::FormBuilder form(this);
    txtSearch = form.textField(u"txtSearch"_s, u"Searc&h:"_s, 100);
    chkReorder = form.checkBox(u"chkReorder"_s, u"Reorder &Inventory"_s);
    grdParts = makeListGrid(this, u"grdParts"_s, u"Parts"_s,
                            {{.name = u"Part Number"_s, .width = 140},
                             {.name = u"Description"_s, .width = 320},
                             {.name = u"Qty on Hand"_s, .width = 110, .format = u"0.00"_s},
                             {.name = Received.toString(),
                              .width = 110,
                              .editable = true,
                              .kind = sql::ColumnKind::Real}});
    showWhenEmpty(*grdParts, u"No parts to check in."_s);
    form.widget(grdParts, true);
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(740, 520);

    auto *search = new IncrementalSearch(txtSearch, grdParts);
    // By number or by name: a delivery note has either.
    search->setColumns({{u"Part Number"_s, u"VARCHAR"_s}, {u"Description"_s, u"VARCHAR"_s}});
    // Only while nothing is typed; the box is off otherwise, since other rows would lose it.
    connect(chkReorder, &QCheckBox::toggled, this, &frmInventryCheckIn::ShowGrid);
    connect(grdParts, &grid::GridView::typing, this, [this] { edited(); });
    grdParts->rows().column(Received).changeRule = [this](int row, const QVariant &value) {
        edited();
        // An emptied cell has received nothing.
        if (value.isNull() || value.toString().trimmed().isEmpty()) {
            grdParts->rows().setValue(row, Received, 0.0);
            return false;
        }
        return true;
    };
    connect(cmdUpdate, &QPushButton::clicked, this, &frmInventryCheckIn::SaveChanges);
    connect(cmdCancel, &QPushButton::clicked, this, [this] {
        ShowGrid();
        setMode(Mode::Browse);
    });
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmInventryCheckIn::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    cmdUpdate->setVisible(!browsing);
    cmdCancel->setVisible(!browsing);
    // What was typed is saved or cancelled; no third way loses it.
    cmdExit->setVisible(browsing);
    chkReorder->setEnabled(browsing);
    setCloseEnabled(browsing);
}

void frmInventryCheckIn::ShowGrid()
{
    base::trapped(Module, "ShowGrid", [&] {
        grdParts->rows().setRecordset(stock::onHand(chkReorder->isChecked()));
        FillValue();
        // What is typed goes to the one column that can be, whichever row a search moves to.
        grdParts->selectCell(grdParts->displayedOrder().value(0, -1), Received);
    });
}

void frmInventryCheckIn::FillValue()
{
    grdParts->rows().setAll(Received, 0.0);
}

void frmInventryCheckIn::SaveChanges()
{
    if (!grdParts->finishEditing())
        return;
    QList<stock::Receipt> receipts;
    const grid::GridModel &rows = grdParts->rows();
    // All rows; those that received nothing are passed over by the stock, which adds to what is
    // there by then.
    for (int row = 0; row < rows.rowCount(); ++row)
        receipts.append(
            {rows.value(row, u"Part Number").toString(), rows.value(row, Received).toDouble()});
    // A part that another workstation holds keeps everything that was typed, for another try.
    const bool saved = telling(Module, "SaveChanges", false, [&] {
        stock::checkIn(receipts);
        return true;
    });
    if (!saved)
        return;
    ShowGrid();
    setMode(Mode::Browse);
}
