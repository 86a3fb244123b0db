#include "scheduling/ui/frmServicesManager.h"

#include "core/Session.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/MayDo.h"
#include "core/ui/ScreenCalls.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/ServiceLists.h"
#include "scheduling/clsServices.h"
#include "scheduling/ui/Entries.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmServicesManager";
const QString Catalogue = u"SL"_s;
const QString Machine = u"EL"_s;

QList<grid::Column> columns(bool selectMode)
{
    QList<grid::Column> list{
        {.name = u"Service ID"_s, .visible = false},
        {.name = u"ServiceID"_s, .visible = false},
        {.name = u"Service No"_s, .width = 80},
        {.name = u"Name"_s, .width = 200},
        {.name = u"Crew"_s, .width = 125},
        {.name = u"Cost Center"_s, .width = 130},
        {.name = u"Interval"_s, .width = 55},
        {.name = u"RenewalOn"_s, .width = 150},
        {.name = u"SeparateWo"_s, .width = 80, .editor = grid::Editor::Check},
        {.name = u"Budgeted Hrs"_s, .width = 85, .format = u"0.00"_s},
        {.name = u"Labor Cost"_s, .width = 75, .format = u"$0.00"_s},
    };
    if (selectMode)
        list.prepend(
            {.name = u"Select"_s, .width = 60, .editable = true, .editor = grid::Editor::Check});
    return list;
}

} // namespace

frmServicesManager::frmServicesManager(const Request &request, QWidget *parent)
    : Screen(u"frmServicesManager"_s, u"Services"_s, parent)
    , m_equipment(request.EquipmentID)
    , m_kind(request.kind)
    , m_selectMode(request.selectMode)
    , m_equipmentOption(request.equipmentOption)
{
    for (const QStringView key : QStringView(request.leftOut).split(u',', Qt::SkipEmptyParts))
        m_leftOut.insert(key.trimmed().toLongLong());
    buildForm();
    // Which of the two lists is on show comes from the caller, and is not stored.
    (isCatalogue() ? optServiceMaster : optEquipmentService)->setChecked(true);
    showMachine();
    ShowGrid();
    // Rows to be ticked have a column more, and so a layout of their own.
    adoptGrid(grdServices, m_selectMode ? u"grdServicesSelect"_s : u"grdServices"_s);
    grdServices->setFocus();
}

bool frmServicesManager::isCatalogue() const
{
    return m_kind != Machine;
}

void frmServicesManager::buildForm()
{
    input::FormBuilder form(this);
    fraEquipment = form.beginGroup(u"List"_s, u"fraEquipment"_s);
    form.beginRow();
    optServiceMaster = form.optionButton(u"optServiceMaster"_s, u"Service &Master List"_s);
    // A machine that is given is "this" one; otherwise the user finds one.
    optEquipmentService = form.optionButton(u"optEquipmentService"_s,
                                            m_equipment != 0 ? u"This &Equipment's Service List"_s
                                                             : u"&Equipment's Service List"_s);
    lblUnitNo = form.readOnlyField(u"lblUnitNo"_s, u"Unit No:"_s);
    lblEquipmentName = form.readOnlyField(u"lblEquipmentName"_s, u"Equipment Name:"_s);
    form.endRow();
    form.endGroup();
    grdServices = makeListGrid(this, u"grdServices"_s, u"Services"_s, columns(m_selectMode));
    showWhenEmpty(*grdServices, u"There are no services here."_s);
    form.widget(grdServices, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add"_s, theme::icon(u"add"_s));
    cmdDelete = form.leftButton(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
    cmdSelect = form.button(u"cmdSelect"_s, m_selectMode ? u"&Select"_s : u"&Open"_s,
                            theme::icon(m_selectMode ? u"select-all"_s : u"service"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(1080, 560);

    connect(optServiceMaster, &QRadioButton::clicked, this,
            &frmServicesManager::optServiceMaster_Click);
    connect(optEquipmentService, &QRadioButton::clicked, this,
            &frmServicesManager::optEquipmentService_Click);
    connect(grdServices, &grid::GridView::rowActivated, this, [this](int row) {
        if (m_selectMode)
            toggleSelect(row);
        else
            openService(row);
    });
    // For Enter, which the grid would pass on as the activation of a row.
    grdServices->installEventFilter(this);
    connect(cmdSelect, &QPushButton::clicked, this, &frmServicesManager::cmdSelect_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmServicesManager::cmdAdd_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmServicesManager::cmdDelete_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmServicesManager::ShowGrid(const QString &keepKey)
{
    base::trapped(Module, "ShowGrid", [&] {
        grid::GridModel &rows = grdServices->rows();
        // Ticks outlive a reading that comes back to a row. Another list begins without any.
        const QStringList ticked = keepKey.isEmpty() ? QStringList() : tickedKeys();
        rows.setRecordset(isCatalogue() ? servicelists::catalogue(m_leftOut)
                                        : servicelists::ofMachine(m_equipment, m_leftOut));
        if (m_selectMode)
            rows.setAll(u"Select", false);
        for (const QString &key : ticked)
            if (const int row = rows.findRow(u"Service ID", key); row >= 0)
                rows.setValue(row, u"Select", true);
        const int kept = keepKey.isEmpty() ? -1 : rows.findRow(u"Service ID", keepKey);
        grdServices->selectRow(kept >= 0 ? kept : grdServices->displayedOrder().value(0, -1));
    });
    EnableControls();
}

void frmServicesManager::EnableControls()
{
    const bool rows = grdServices->rows().rowCount() > 0;
    // What a machine has is removed on the machine's screen.
    cmdDelete->setEnabled(rows && isCatalogue());
    cmdSelect->setEnabled(rows);
    // New services are made in the catalogue, and given to machines from there.
    cmdAdd->setEnabled(isCatalogue());
    fraEquipment->setVisible(m_equipment != 0 || m_equipmentOption);
    optEquipmentService->setEnabled(!m_equipmentOption || screenCalls().ShowQuickFind != nullptr);
}

/// Enter is the button, while a double click only ticks the row.
bool frmServicesManager::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grdServices && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Behind the key: the button may close the screen, and the grid is still at its event.
            QMetaObject::invokeMethod(cmdSelect, &QPushButton::click, Qt::QueuedConnection);
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmServicesManager::showMachine()
{
    lblUnitNo->clear();
    lblEquipmentName->clear();
    // No machine has been found yet, or the catalogue is on show.
    if (m_equipment == 0)
        return;
    base::trapped(Module, "showMachine", [&] {
        if (const auto machine = servicelists::machine(m_equipment)) {
            lblUnitNo->setText(machine->UnitNo);
            lblEquipmentName->setText(machine->EquipmentName);
        }
    });
}

void frmServicesManager::optServiceMaster_Click()
{
    lblUnitNo->clear();
    lblEquipmentName->clear();
    m_kind = Catalogue;
    ShowGrid();
}

void frmServicesManager::optEquipmentService_Click()
{
    if (m_equipmentOption) {
        const QString found = screenCalls().ShowQuickFind(
            {u"UnitNo"_s, u"Unit No"_s, u"tblEquipment"_s, u"frmEquipment"_s});
        if (found.trimmed().isEmpty()) {
            // A search that was given up turns back to the list that needs none.
            optServiceMaster->setChecked(true);
            optServiceMaster_Click();
            return;
        }
        m_equipment = found.trimmed().toLongLong();
    }
    m_kind = Machine;
    showMachine();
    ShowGrid();
}

QString frmServicesManager::keyOf(int row) const
{
    return row < 0 ? QString() : grdServices->rows().text(row, u"Service ID");
}

void frmServicesManager::toggleSelect(int row)
{
    grid::GridModel &rows = grdServices->rows();
    rows.edit(row, rows.columnIndex(u"Select"), !rows.value(row, u"Select").toBool());
}

void frmServicesManager::openService(int row)
{
    const QString key = keyOf(row);
    if (isCatalogue())
        showServicesDetail(Mode::Browse, key.toLongLong());
    else
        // Keys of this list are those of the machine's services, not of the catalogue.
        ShowServiceUsedDetail(key.toLongLong());
    ShowGrid(key);
}

void frmServicesManager::cmdSelect_Click()
{
    if (m_selectMode) {
        m_selection = tickedKeys().join(u", "_s);
        unload();
    } else if (grdServices->currentRow() >= 0) {
        openService(grdServices->currentRow());
    }
}

QStringList frmServicesManager::tickedKeys() const
{
    QStringList keys;
    const grid::GridModel &rows = grdServices->rows();
    for (int row = 0; m_selectMode && row < rows.rowCount(); ++row)
        if (rows.value(row, u"Select").toBool())
            keys.append(keyOf(row));
    return keys;
}

void frmServicesManager::cmdAdd_Click()
{
    if (!mayDo(rights::Services.add))
        return;
    // The new service is to stay, whatever becomes of the edit that this list was opened from.
    base::trapped(Module, "cmdAdd_Click", [] { CommitTrans(); });
    // For a cancelled Add, whose key is in no list.
    const QString former = keyOf(grdServices->currentRow());
    const QString added = QString::number(showServicesDetail(Mode::Add, 0));
    ShowGrid(added);
    // A cancelled Add leaves the list where it was.
    if (!former.isEmpty() && keyOf(grdServices->currentRow()) != added)
        grdServices->selectRow(grdServices->rows().findRow(u"Service ID", former));
}

void frmServicesManager::cmdDelete_Click()
{
    if (!mayDo(rights::Services.remove))
        return;
    const QString key = keyOf(grdServices->currentRow());
    if (key.isEmpty() || !base::askYesNo(u"Are you sure you want to Delete this record?"_s))
        return;
    const clsServicesManager manager;
    const QString word = manager.CanDeletePart(key.toLongLong());
    if (!word.isEmpty())
        base::showMessage(u"Deletion not allowed. Record is being used in %1."_s.arg(word));
    else if (manager.DeleteRecord(key.toLongLong()))
        ShowGrid();
}
