#include "scheduling/ui/CountPage.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Readings.h"
#include "scheduling/ui/Entries.h"
#include "scheduling/ui/ReadingTrend.h"

#include <QFontMetrics>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmEquipment";

/// Room for each heading and a date, whatever the size of the letters.
int columnWidth()
{
    return QFontMetrics(theme::listFont()).horizontalAdvance(u"Count Value"_s) + 34;
}

} // namespace

CountPage::CountPage(MachineFrame &frame, QWidget *parent)
    : GridPage(frame, parent)
{
    buildPage();
    EnableControls();
}

void CountPage::buildPage()
{
    setObjectName(u"fraCount"_s);
    input::FormBuilder form(this);
    grdCount = makeListGrid(this, u"grdCount"_s, u"Counts"_s,
                            {{.name = u"Count Date"_s, .width = columnWidth()},
                             {.name = u"Count Type"_s, .width = columnWidth()},
                             {.name = u"Count Value"_s, .width = columnWidth()}});
    showWhenEmpty(*grdCount, u"No meter of this machine has been read yet."_s);
    // On a small screen the chart gives way, not the readings.
    grdCount->setMinimumWidth(3 * columnWidth() + 2 * grdCount->frameWidth() +
                              style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    m_trend = new ReadingTrend(this);
    form.beginColumns();
    form.widget(grdCount, true);
    form.nextColumn();
    form.widget(m_trend, true);
    form.endColumns();
    cmdAddCount = form.leftButton(u"cmdAddCount"_s, u"Add Cou&nt"_s, theme::icon(u"add"_s));
    cmdDeleteCount =
        form.leftButton(u"cmdDeleteCount"_s, u"De&lete Count"_s, theme::icon(u"delete"_s));
    form.finish();
    setGrid(grdCount);
    connect(cmdAddCount, &QPushButton::clicked, this, &CountPage::cmdAddCount_Click);
    connect(cmdDeleteCount, &QPushButton::clicked, this, &CountPage::cmdDeleteCount_Click);
}

void CountPage::showMachine(qint64 EquipmentID)
{
    RefreshCountGrid(EquipmentID);
}

void CountPage::RefreshCountGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshCountGrid", [&] {
        setEquipment(EquipmentID);
        const db::Recordset counts = readings::list(EquipmentID);
        grdCount->rows().setRecordset(counts);
        // The chart takes the same rows as the grid, read once.
        m_trend->show(counts);
        grdCount->selectRow(grdCount->displayedOrder().value(0, -1));
    });
    EnableControls();
}

void CountPage::EnableControls()
{
    cmdAddCount->setEnabled(isEditable() && equipment() != 0);
    cmdDeleteCount->setEnabled(isEditable() && hasContent());
}

void CountPage::cmdAddCount_Click()
{
    frame().beginEdit();
    const int row = grdCount->currentRow();
    frmCountReadingEntry::ShowCountReadingForm(
        equipment(), row < 0 ? QString() : grdCount->rows().text(row, u"Count Type"));
    showChanged();
}

void CountPage::cmdDeleteCount_Click()
{
    const int row = grdCount->currentRow();
    if (row < 0)
        return;
    frame().beginEdit();
    if (!base::askYesNo(u"Are you sure you want to Delete this record? Count"_s))
        return;
    const bool deleted = base::trapped(Module, "DeleteCountRecord", false, [&] {
        const grid::GridModel &rows = grdCount->rows();
        readings::remove(equipment(),
                         {rows.value(row, u"Count Date").toDateTime(),
                          rows.value(row, u"Count Value").toLongLong()},
                         rows.text(row, u"Count Type"));
        return true;
    });
    if (!deleted)
        return;
    showChanged();
}

void CountPage::showChanged()
{
    showAgain();
    Q_EMIT readingsChanged();
    frame().contentChanged();
}
