#include "scheduling/ui/frmAssignCrew.h"

#include "core/General.h"
#include "core/Session.h"
#include "core/ui/LookupCombo.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmAssignCrew";
const QString BetweenNumberAndDescription = u"   "_s;

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
        const db::Recordset rows = gcnData->Open(
            u"SELECT EquipmentName, UnitNo, "
            "IIf(tblCrew.CrewID<>0,(cstr(CrewNumber)+'   '+tblCrew.Description),'  ') AS "
            "CrewNumber FROM tblEquipment LEFT JOIN tblCrew ON tblEquipment.CrewID = "
            "tblCrew.CrewID Where Equipmentid = ?"_s,
            {m_equipment});
        if (rows.isEmpty())
            return;
        lblUnitNo->setText(rows.current().text(u"UnitNo"));
        lblEquipmentName->setText(rows.current().text(u"EquipmentName"));
        m_oldCrew = rows.current().text(u"CrewNumber");
        cboCrew->selectText(m_oldCrew);
    });
}

void frmAssignCrew::cmdUpdate_Click()
{
    if (cboCrew->currentText() == m_oldCrew) {
        unload();
        return;
    }
    const QStringList old = m_oldCrew.split(BetweenNumberAndDescription);
    m_saved = base::trapped(Module, "cmdUpdate_Click", false, [&] {
        TransactionScope transaction;
        if (!ChangeCrew(m_equipment, old.value(0).trimmed(), old.value(1).trimmed()))
            return false;
        gcnData->Execute(u"update tblEquipment set CrewID = ? where EquipmentID = ?"_s,
                         {cboCrew->id(), m_equipment});
        transaction.commit();
        return true;
    });
    if (m_saved)
        unload();
}
