#include "scheduling/ui/frmEquipmentReading.h"

#include "core/ui/EmptyText.h"
#include "core/ui/GridData.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Openings.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Readings.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmEquipmentReading";
const QString Report = u"EquipmentCountReport"_s;
/// Stands in a cell for which no reading was entered.
const QString Placeholder = u"______________"_s;

QList<grid::Column> columns()
{
    return {
        {.name = u"EquipmentID"_s, .visible = false},
        {.name = u"UnitNo"_s, .caption = u"Unit No"_s, .width = 90},
        {.name = u"Equipment Name"_s, .width = 230},
        {.name = u"CountType"_s, .caption = u"Count Type"_s, .width = 90},
        {.name = u"Last Date"_s, .width = 90},
        {.name = u"Last Count"_s, .width = 90},
        {.name = u"Count"_s,
         .width = 120,
         .editable = true,
         .editor = grid::Editor::Masked,
         .mask = u"{0,2147483647}"_s,
         .kind = sql::ColumnKind::Integer,
         .placeholder = Placeholder},
    };
}

} // namespace

frmEquipmentReading::frmEquipmentReading(QWidget *parent)
    : Screen(u"frmEquipmentReading"_s, u"Equipment Reading"_s, parent)
{
    buildForm();
    RefreshRecordSet();
    // Behind the rows: a stored sort has to find something to sort.
    adoptGrid(grdReading, u"grdReading"_s);
    grdReading->selectCell(grdReading->displayedOrder().value(0, -1), u"Count");
}

void frmEquipmentReading::buildForm()
{
    input::FormBuilder form(this);
    lblHeading = form.note({}, u"lblHeading"_s);
    grdReading = makeListGrid(this, u"grdReading"_s, u"Meters to read"_s, columns());
    showWhenEmpty(*grdReading, u"All meters have been read in time."_s);
    for (const QString &column : {u"Last Count"_s, u"Count"_s})
        ColAlign(*grdReading, column, grid::Align::Right);
    for (const QString &column : {u"UnitNo"_s, u"Equipment Name"_s, u"CountType"_s})
        ColAlign(*grdReading, column, grid::Align::Left);
    ColAlign(*grdReading, u"Last Date"_s, grid::Align::Center);
    // Enter goes down the one column that can be typed into, like down a paper list.
    grdReading->setVerticalEntry(u"Count");
    form.widget(grdReading, true);
    cmdPrint = form.button(u"cmdPrint"_s, u"&Print"_s, theme::icon(u"print"_s));
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(780, 520);

    grdReading->rows().column(u"Count").changeRule = [this](int row, const QVariant &value) {
        return countEntered(row, value);
    };
    // By the user; going on to a row that lies beyond the edge scrolls too.
    connect(grdReading->verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this] { (void)grdReading->finishEditing(); });
    // With the first key already, so that the window can't be closed over a number that is being
    // typed.
    connect(grdReading, &grid::GridView::typing, this, &Screen::edited);
    connect(grdReading, &grid::GridView::changed, this, &Screen::edited);
    connect(cmdPrint, &QPushButton::clicked, this, [] { openings().open(Report); });
    connect(cmdUpdate, &QPushButton::clicked, this, &frmEquipmentReading::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEquipmentReading::cmdCancel_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmEquipmentReading::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    cmdPrint->setVisible(browsing);
    cmdPrint->setEnabled(openings().isJoined(Report));
    cmdExit->setVisible(browsing);
    cmdUpdate->setVisible(!browsing);
    cmdCancel->setVisible(!browsing);
    // Numbers that were typed are saved or cancelled, not lost with the window.
    setCloseEnabled(browsing);
}

void frmEquipmentReading::RefreshRecordSet()
{
    base::trapped(Module, "RefreshRecordSet", [this] {
        const int days = readings::delay();
        grdReading->rows().setRecordset(readings::due(days));
        // The column is none of the query's: it is where the readings are typed.
        grdReading->rows().setAll(u"Count", QVariant());
        QString heading = u"All meters have been read."_s;
        if (grdReading->rows().rowCount() > 0)
            heading = (days > 0 ? u"Meters that have not been read for %1 days."_s.arg(days)
                                : u"Meters to read."_s) +
                      u" Type the reading and go on with Enter."_s;
        lblHeading->setText(heading);
    });
    setMode(Mode::Browse);
}

bool frmEquipmentReading::countEntered(int row, const QVariant &value)
{
    const QVariant last = grdReading->rows().value(row, u"Last Count");
    // Nothing typed is no reading, and equal is right: a machine may have stood still.
    if (value.isNull() || value.toLongLong() >= last.toLongLong())
        return true;
    base::showCritical(u"Count value should be more than or equal to Last value"_s);
    // The last value stands there to be corrected, as what the meter can't be below.
    grdReading->rows().setValue(row, u"Count", last);
    return false;
}

void frmEquipmentReading::cmdUpdate_Click()
{
    if (!grdReading->finishEditing())
        return;
    std::vector<readings::Entry> entries;
    const grid::GridModel &rows = grdReading->rows();
    // As they stand on the screen, so that messages come in the order of the sheet.
    for (const int row : grdReading->displayedOrder()) {
        const QVariant count = rows.value(row, u"Count");
        if (!count.isNull())
            entries.push_back({rows.value(row, u"EquipmentID").toLongLong(),
                               rows.text(row, u"CountType"), count.toLongLong()});
    }
    const bool saved = base::trapped(Module, "cmdUpdate_Click", false, [&] {
        readings::saveBatch(entries);
        return true;
    });
    if (saved)
        RefreshRecordSet();
    else
        setMode(Mode::Browse);
}

void frmEquipmentReading::cmdCancel_Click()
{
    RefreshRecordSet();
    grdReading->setFocus();
}
