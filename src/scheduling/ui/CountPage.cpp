#include "scheduling/ui/CountPage.h"

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

CountPage::CountPage(MachineScreen screen, QWidget *parent)
    : QWidget(parent)
    , m_screen(std::move(screen))
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
    connect(cmdAddCount, &QPushButton::clicked, this, &CountPage::cmdAddCount_Click);
    connect(cmdDeleteCount, &QPushButton::clicked, this, &CountPage::cmdDeleteCount_Click);
}

void CountPage::RefreshCountGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshCountGrid", [&] {
        m_equipment = EquipmentID;
        const db::Recordset counts = readings::list(m_equipment);
        grdCount->rows().setRecordset(counts);
        m_trend->show(counts);
        grdCount->selectRow(grdCount->displayedOrder().value(0, -1));
    });
    EnableControls();
}

bool CountPage::hasContent() const
{
    return grdCount->rows().rowCount() > 0;
}

void CountPage::setMayEdit(bool may)
{
    m_mayEdit = may;
    EnableControls();
}

void CountPage::EnableControls()
{
    cmdAddCount->setEnabled(m_mayEdit && m_equipment != 0);
    cmdDeleteCount->setEnabled(m_mayEdit && hasContent());
}

void CountPage::cmdAddCount_Click()
{
    m_screen.firstEdit();
    const int row = grdCount->currentRow();
    frmCountReadingEntry::ShowCountReadingForm(
        m_equipment, row < 0 ? QString() : grdCount->rows().text(row, u"Count Type"));
    RefreshCountGrid();
    m_screen.refreshOthers();
}

void CountPage::cmdDeleteCount_Click()
{
    const int row = grdCount->currentRow();
    if (row < 0)
        return;
    m_screen.firstEdit();
    if (!base::askYesNo(u"Are you sure you want to Delete this record? Count"_s))
        return;
    const bool deleted = base::trapped(Module, "DeleteCountRecord", false, [&] {
        const grid::GridModel &rows = grdCount->rows();
        readings::remove(m_equipment,
                         {rows.value(row, u"Count Date").toDateTime(),
                          rows.value(row, u"Count Value").toLongLong()},
                         rows.text(row, u"Count Type"));
        return true;
    });
    if (!deleted)
        return;
    RefreshCountGrid();
    m_screen.refreshOthers();
}
