#include "core/ui/ScreenCalls.h"
#include "organisation/ui/Entries.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "scheduling/ui/BudgetBox.h"
#include "scheduling/ui/NextScheduleBox.h"
#include "scheduling/ui/PatternBox.h"
#include "scheduling/ui/ScheduleBox.h"
#include "scheduling/ui/ServiceParts.h"
#include "scheduling/ui/frmServices.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The form of the service screen and what is joined to its controls.

namespace {

constexpr int NameLength = 100;
constexpr int JobNoLength = 9;

} // namespace

void frmServices::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    buildService(form);
    m_budget = new BudgetBox(form, *cboCrew, this);
    form.nextColumn();
    buildSchedule(form);
    form.endColumns();
    form.beginColumns();
    fraParts = new ServiceParts(m_store, this);
    form.widget(fraParts, true);
    form.nextColumn();
    txtNotes = form.memoField(u"txtNotes"_s, u"No&tes:"_s, 4);
    form.endColumns();
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"Re&vert"_s, theme::icon(u"undo"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
}

void frmServices::buildService(input::FormBuilder &form)
{
    form.beginGroup(u"Service"_s, u"fraService"_s);
    if (isAssigned()) {
        lblJobNoData = form.readOnlyField(u"lblJobNoData"_s, u"Service No:"_s);
        txtJobNo = new QLineEdit(this);
        txtJobNo->setObjectName(u"txtJobNo"_s);
        txtJobNo->hide();
    } else {
        txtJobNo = form.digitsField(u"txtJobNo"_s, u"Service N&o:"_s, JobNoLength);
    }
    txtName = form.textField(u"txtName"_s, u"&Name:"_s, NameLength);
    cboCrew = form.comboField(u"cboCrew"_s, u"Cre&w:"_s);
    cmdCrew = form.sideButton(u"cmdCrew"_s, u"Edit the crews"_s);
    cboCostCenter = form.comboField(u"cboCostCenter"_s, u"&Cost Center:"_s);
    cmdCostCenter = form.sideButton(u"cmdCostCenter"_s, u"Edit the cost centers"_s);
    ChkSeparateWO = form.checkBox(u"ChkSeparateWO"_s, u"Separate Wor&k Order"_s);
    chkInactive = form.checkBox(u"chkInactive"_s, u"&Inactive"_s);
    chkInactive->setVisible(isAssigned());
    form.endGroup();
}

void frmServices::buildSchedule(input::FormBuilder &form)
{
    form.beginGroup(u"Schedule"_s, u"fraSchedule"_s);
    m_schedule = new ScheduleBox(form, this);
    if (isAssigned())
        m_next = new NextScheduleBox(form, *m_schedule, *this);
    form.endGroup();
    form.widget(m_schedule->pattern());
}

void frmServices::bindFields()
{
    m_fields.add(txtJobNo, &clsServices::JobNo);
    m_fields.addTrimmed(txtName, &clsServices::Name);
    m_fields.add(cboCrew, &clsServices::CrewID);
    m_fields.add(cboCostCenter, &clsServices::CostCenterID);
    m_fields.add(ChkSeparateWO, &clsServices::SeparateWo);
    m_schedule->bind(m_fields);
    m_fields.add(txtNotes, &clsServices::Note);
    m_budget->bind(m_fields);
    if (m_next) {
        m_next->bind(m_fields);
        m_fields.add(chkInactive, &AssignedSchedule::Inactive, 1);
    }
    setSavedFields({&m_fields});
}

void frmServices::joinBoxes()
{
    connect(cboCrew, &QComboBox::activated, m_budget, &BudgetBox::crewChosen);
    connect(fraParts, &ServiceParts::costChanged, this,
            [this] { m_budget->setPartCost(fraParts->SetPastCost()); });
    connect(fraParts, &ServiceParts::edited, this, &Screen::edited);
    connect(chkInactive, &QCheckBox::clicked, this, &frmServices::chkInactive_Click);
    connect(m_schedule, &ScheduleBox::edited, this, &Screen::edited);
    if (!m_next)
        return;
    connect(m_schedule, &ScheduleBox::periodChanged, m_next, &NextScheduleBox::CheckServiceChange);
    connect(m_next, &NextScheduleBox::edited, this, &Screen::edited);
}

void frmServices::joinRules()
{
    watch(QList<QWidget *>{txtJobNo, txtName, cboCrew, cboCostCenter, ChkSeparateWO, txtNotes} +
          m_budget->controls() + m_schedule->controls());
    joinBoxes();
    fraParts->mayAdd = [this] { return mayAddPart(); };

    connect(cmdCrew, &QToolButton::clicked, this, [this] {
        ShowCrewDetail(Mode::Browse, cboCrew->id());
        RefreshCrews();
    });
    connect(cmdCostCenter, &QToolButton::clicked, this, [this] {
        ShowCostCenterDetail(Mode::Browse, cboCostCenter->id());
        RefreshCostCenters();
    });
    input::validateOnLeave(txtName, [this] {
        (void)txtName_LostFocus();
        return true;
    });
    if (!isAssigned())
        input::validateOnLeave(txtJobNo, [this] { return txtJobNo_Validate(); });
    connect(cmdUpdate, &QPushButton::clicked, this, &frmServices::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmServices::cmdCancel_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmServices::cmdExit_Click);
    for (QPushButton *button : {cmdCancel, cmdExit})
        input::setCausesValidation(button, false);
}
