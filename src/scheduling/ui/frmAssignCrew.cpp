#include "scheduling/ui/frmAssignCrew.h"

#include "core/ui/LookupCombo.h"
#include "core/ui/Telling.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "scheduling/Assignment.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmAssignCrew";

} // namespace

frmAssignCrew::frmAssignCrew(qint64 EquipmentID, QWidget *parent)
    : Screen(u"frmAssignCrew"_s, u"Assign Crew"_s, parent, StoreWhat::SizeOnly)
    , m_equipment(EquipmentID)
{
    buildForm();
    load();
}

void frmAssignCrew::buildForm()
{
    input::FormBuilder form(this);
    lblUnitNo = form.readOnlyField(u"lblUnitNo"_s, u"Unit No:"_s);
    lblEquipmentName = form.readOnlyField(u"lblEquipmentName"_s, u"Equipment Name:"_s);
    cboCrew = form.comboField(u"cboCrew"_s, u"&Crew:"_s);
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    setMinimumWidth(400);
    cmdUpdate->setDefault(true);
    cboCrew->setFocus();
    connect(cmdUpdate, &QPushButton::clicked, this, &frmAssignCrew::cmdUpdate_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmAssignCrew::load()
{
    base::trapped(Module, "ShowAssignCrewForm", [this] {
        loadCrews(*cboCrew);
        const db::Recordset rows = assignment::crewOf(m_equipment);
        if (rows.isEmpty())
            return;
        const db::Row machine = rows.current();
        lblUnitNo->setText(machine.text(u"UnitNo"));
        lblEquipmentName->setText(machine.text(u"EquipmentName"));
        // What the assignment is stored over: another workstation may have given the machine away
        // meanwhile.
        m_shownCrew = machine.integer(u"CrewID");
        m_oldCrew = machine.text(u"CrewNumber");
        cboCrew->selectText(m_oldCrew);
    });
}

void frmAssignCrew::cmdUpdate_Click()
{
    // No change leaves no row in the history of crews.
    if (cboCrew->currentText() == m_oldCrew) {
        unload();
        return;
    }
    m_saved = telling(Module, "cmdUpdate_Click", false, [&] {
        assignment::assignCrew(m_equipment, cboCrew->id(), m_shownCrew);
        return true;
    });
    if (m_saved) {
        unload();
        return;
    }
    // What is stored by now is read again; the choice stays for another try.
    const qint64 chosen = cboCrew->id();
    load();
    cboCrew->select(chosen);
}
