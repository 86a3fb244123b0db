#include "equipment/ui/MachinePartsPage.h"

#include "core/Session.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "equipment/MachineParts.h"
#include "parts/PartSelection.h"
#include "parts/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Equipment";

} // namespace

MachinePartsPage::MachinePartsPage(MachineFrame &frame, QWidget *parent)
    : GridPage(frame, parent)
{
    input::FormBuilder form(this);
    grdPart = makeListGrid(this, u"grdPart"_s, u"Parts of the machine"_s,
                           {{.name = u"Part Number"_s, .width = 150},
                            {.name = u"Description"_s, .width = 320},
                            {.name = u"Qty Req"_s, .width = 90, .format = u"0.00"_s},
                            {.name = u"Extended Cost"_s, .width = 120, .format = u"$0.00"_s}});
    showWhenEmpty(*grdPart, u"No parts are listed for this machine."_s);
    form.widget(grdPart, true);
    form.beginRow();
    cmdAddNewPart = form.inlineButton(u"cmdAddNewPart"_s, u"Add Par&t"_s, theme::icon(u"add"_s));
    cmdRemovePart =
        form.inlineButton(u"cmdRemovePart"_s, u"Re&move Part"_s, theme::icon(u"delete"_s));
    form.endRow();
    form.finish();
    setGrid(grdPart);
    connect(cmdAddNewPart, &QPushButton::clicked, this, &MachinePartsPage::cmdAddNewPart_Click);
    connect(cmdRemovePart, &QPushButton::clicked, this, &MachinePartsPage::cmdRemovePart_Click);
}

void MachinePartsPage::showMachine(qint64 EquipmentID)
{
    RefreshPartGrid(EquipmentID);
}

void MachinePartsPage::RefreshPartGrid(qint64 equipmentID)
{
    showRows(equipmentID, "RefreshPartGrid", [&] { return machineparts::listed(equipmentID); });
}

void MachinePartsPage::EnableControls()
{
    cmdAddNewPart->setEnabled(isEditable());
    cmdRemovePart->setEnabled(isEditable() && hasContent());
}

void MachinePartsPage::cmdAddNewPart_Click()
{
    frame().beginEdit();
    base::trapped(Module, "cmdAddNewPart_Click", [this] {
        QStringList present;
        for (int row = 0; row < grdPart->rows().rowCount(); ++row)
            present.append(grdPart->rows().text(row, u"Part Number"));
        QString selection = parts::exclusionList(present);
        const bool chosen = frmPartManagerEntry::ShowServiceManager(selection, true);
        // The selector commits what is open when a part is added from it.
        BeginTrans();
        if (!chosen)
            return;
        if (!machineparts::AddPartRecord(equipment(), selection)) {
            // Some of the parts may have been written; half a selection must not be saved.
            frame().cancelEdit();
            return;
        }
        RefreshPartGrid(equipment());
        frame().contentChanged();
    });
}

void MachinePartsPage::cmdRemovePart_Click()
{
    removeChosen(chosen(u"Part Number"), [this](const QString &number) {
        return machineparts::DeletePartRecord(equipment(), number);
    });
}
