#include "scheduling/ui/ServiceNameBox.h"

#include "core/RowTests.h"
#include "core/ui/Combos.h"
#include "core/ui/Lock.h"
#include "core/ui/LookupCombo.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenCalls.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int NameLength = 100;
constexpr int JobNoLength = 9;

} // namespace

ServiceNameBox::ServiceNameBox(input::FormBuilder &form, ServiceStore store, Screen &screen)
    : QObject(&screen)
    , m_store(store)
    , m_screen(screen)
{
    buildBox(form);
    joinRules();
    RefreshCrews();
    RefreshCostCenters();
}

void ServiceNameBox::buildBox(input::FormBuilder &form)
{
    form.beginGroup(u"Service"_s, u"fraService"_s);
    if (isAssigned()) {
        lblJobNoData = form.readOnlyField(u"lblJobNoData"_s, u"Service No:"_s);
        // Hidden, but bound: the number of a machine's service follows the catalogue, and goes
        // through a save unchanged.
        txtJobNo = new QLineEdit(&m_screen);
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
    // A service of the catalogue is deleted when it is needed no longer.
    chkInactive->setVisible(isAssigned());
    form.endGroup();
}

void ServiceNameBox::joinRules()
{
    connect(cboCrew, &QComboBox::activated, this, &ServiceNameBox::crewChosen);
    connect(cmdCrew, &QToolButton::clicked, this, [this] {
        ShowCrewDetail(Mode::Browse, cboCrew->id());
        RefreshCrews();
    });
    connect(cmdCostCenter, &QToolButton::clicked, this, [this] {
        ShowCostCenterDetail(Mode::Browse, cboCostCenter->id());
        RefreshCostCenters();
    });
    connect(chkInactive, &QCheckBox::clicked, this, &ServiceNameBox::chkInactive_Click);
    input::validateOnLeave(txtName, [this] {
        txtName_LostFocus();
        return true;
    });
    if (!isAssigned())
        input::validateOnLeave(txtJobNo, [this] { return txtJobNo_Validate(); });
}

void ServiceNameBox::bind(Binding<AssignedService> &fields)
{
    m_fields = &fields;
    fields.add(txtJobNo, &clsServices::JobNo);
    fields.addTrimmed(txtName, &clsServices::Name);
    fields.add(cboCrew, &clsServices::CrewID);
    fields.add(cboCostCenter, &clsServices::CostCenterID);
    fields.add(ChkSeparateWO, &clsServices::SeparateWo);
    if (isAssigned())
        fields.add(chkInactive, &AssignedSchedule::Inactive, 1);
}

QList<QWidget *> ServiceNameBox::controls() const
{
    return {txtJobNo, txtName, cboCrew, cboCostCenter, ChkSeparateWO};
}

void ServiceNameBox::setMayEdit(bool may)
{
    for (QWidget *control : QList<QWidget *>{cmdCrew, cmdCostCenter, chkInactive} + controls())
        setLocked(control, !may);
}

bool ServiceNameBox::isInactive() const
{
    return chkInactive->isChecked();
}

void ServiceNameBox::focusName()
{
    txtName->setFocus();
}

void ServiceNameBox::RefreshCrews()
{
    // Crews may have been added, renamed or deleted in the editor; what was chosen stays chosen.
    rebuildKeepingChoice(*cboCrew, [this] { loadCrews(*cboCrew); });
}

void ServiceNameBox::RefreshCostCenters()
{
    rebuildKeepingChoice(*cboCostCenter, [this] {
        LoadItemWithIdToCombo(*cboCostCenter, clsServicesManager().GetCostCenterInfo(),
                              u"CostCenterID"_s, u"Description"_s, true);
    });
}

void ServiceNameBox::serviceShown(qint64 key)
{
    m_key = key;
    // What comes back into the box when a typed number is refused.
    m_oldJobNo = QString::number(m_fields->shown().JobNo);
    if (lblJobNoData)
        lblJobNoData->setText(m_oldJobNo);
}

void ServiceNameBox::beginNew(qint64 JobNo)
{
    m_oldJobNo = QString::number(JobNo);
    txtJobNo->setText(m_oldJobNo);
}

void ServiceNameBox::clear()
{
    txtJobNo->clear();
    if (lblJobNoData)
        lblJobNoData->clear();
}

void ServiceNameBox::forgetChanges()
{
    m_jobNoChanged = false;
    m_confirmedName.clear();
}

void ServiceNameBox::chkInactive_Click()
{
    // Asked of the database at the click, since an order may have been made since the screen
    // opened.
    if (chkInactive->isChecked() && ServiceInWorkOrder(m_key)) {
        chkInactive->setChecked(false);
        base::showMessage(
            u"This service is already assigned to a work order. You cann't setted inactive."_s);
    } else {
        m_screen.edited();
    }
    Q_EMIT inactiveChanged();
}

bool ServiceNameBox::txtJobNo_Validate()
{
    // A number that was checked is not checked again at each leaving of the box.
    if (m_screen.mode() == Mode::Browse || txtJobNo->text().trimmed() == m_oldJobNo)
        return true;
    QString refusal;
    if (input::isBlank(txtJobNo))
        refusal = u"Service Job No should not be blank."_s;
    else if (IsDuplicate(u"tblServices"_s, u"JobNO"_s, m_fields->shown().JobNo, txtJobNo->text(),
                         true))
        refusal = u"Job Number you specified already exists. Please enter a different Part "
                  "Number."_s;
    if (refusal.isEmpty()) {
        m_jobNoChanged = true;
        m_oldJobNo = txtJobNo->text().trimmed();
        return true;
    }
    base::showMessage(refusal);
    txtJobNo->setText(m_oldJobNo);
    return false;
}

/// Without the user's insisting the stored name comes back.
void ServiceNameBox::txtName_LostFocus()
{
    const QString name = txtName->text().trimmed();
    // The catalogue names its services as it likes. On a machine another name hides which service
    // it is, so the user is asked, once for each name.
    if (!isAssigned() || m_screen.mode() == Mode::Browse || name == m_confirmedName ||
        name.compare(m_fields->shown().Name.trimmed(), Qt::CaseInsensitive) == 0)
        return;
    if (base::askYesNo(u"You should not change the name of a service. If you need a new service "
                       "add it using the \"Services\" navigator on the left side. Then add it to "
                       "this piece of equipment. Are you sure you want to do this?"_s))
        m_confirmedName = name;
    else
        txtName->setText(m_fields->shown().Name);
}

std::optional<Gap> ServiceNameBox::gap() const
{
    if (input::isBlank(txtName))
        return Gap{txtName, u"Name should not be blank"_s};
    if (input::isBlank(cboCostCenter))
        return Gap{cboCostCenter, u"Select one Cost Center"_s};
    if (input::isBlank(cboCrew))
        return Gap{cboCrew, u"Select one Crew"_s};
    return std::nullopt;
}

bool ServiceNameBox::finish()
{
    if (!isAssigned())
        return txtJobNo_Validate();
    txtName_LostFocus();
    return true;
}

bool ServiceNameBox::isJobNumberCarried() const
{
    const AssignedService service = m_fields->read();
    return m_screen.mode() == Mode::Modify && m_jobNoChanged &&
           service.JobNo != m_fields->shown().JobNo &&
           base::askYesNo(
               u"Do you want to change Job No of \"%1\" to \"%2\" for all existing services?"_s.arg(
                   service.Name, QString::number(service.JobNo)));
}
