#include "scheduling/ui/frmServices.h"

#include "core/Identifiers.h"
#include "core/Permission.h"
#include "core/RowTests.h"
#include "core/Session.h"
#include "core/ui/Combos.h"
#include "core/ui/Lock.h"
#include "core/ui/LookupCombo.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "scheduling/ui/BudgetBox.h"
#include "scheduling/ui/NextScheduleBox.h"
#include "scheduling/ui/ScheduleBox.h"
#include "scheduling/ui/ServiceParts.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmServices";
bool canBeTriedAgain(const base::Error &error)
{
    return error.number() == db::ErrorNumber::LockConflict ||
           dynamic_cast<const record::Conflict *>(&error) != nullptr;
}

} // namespace

frmServices::frmServices(ServiceStore store, QWidget *parent)
    : SavingScreen(u"frmServices"_s, u"Services"_s, parent)
    , m_store(store)
    , m_fields(AssignedService::fields())
{
    buildForm();
    bindFields();
    joinRules();
    RefreshCrews();
    RefreshCostCenters();
    adoptGrid(fraParts->grid(), fraParts->grid()->objectName());
}

void frmServices::display(Mode mode, qint64 key)
{
    m_key = key;
    if (mode == Mode::Add && !isAssigned())
        beginNew();
    else
        RefreshRecordSet();
}

void frmServices::beginNew()
{
    ClearData();
    m_key = GenrateUniqueID();
    const Displaying displaying(*this);
    m_oldJobNo = QString::number(GenerateID(u"tblServices"_s, u"JobNO"_s));
    txtJobNo->setText(m_oldJobNo);
    setMode(Mode::Add);
    txtName->setFocus();
}

void frmServices::unloading()
{
    base::trapped(Module, "Form_Unload", [] { RollbackTrans(); });
}

// --- Controls by mode and schedule ---------------------------------------------------------------

bool frmServices::mayEdit() const
{
    return mode() == Mode::Add || (m_hasRow && rights::isGranted(rights::Services.modify));
}

void frmServices::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    const bool may = mayEdit();
    cmdUpdate->setEnabled(!browsing);
    cmdCancel->setEnabled(!browsing);
    for (QWidget *control :
         std::initializer_list<QWidget *>{txtJobNo, txtName, cboCrew, cmdCrew, cboCostCenter,
                                          cmdCostCenter, ChkSeparateWO, chkInactive, txtNotes})
        setLocked(control, !may);
    for (QWidget *control : m_budget->controls())
        setLocked(control, !may);
    fraParts->setMayEdit(may);
    EnableLogicControl();
    setCloseEnabled(browsing);
}

/// An inactive service has no schedule to be changed.
void frmServices::EnableLogicControl()
{
    const bool active = mayEdit() && !chkInactive->isChecked();
    m_schedule->setActive(active);
    if (m_next)
        m_next->setActive(active);
}

void frmServices::RefreshCrews()
{
    rebuildKeepingChoice(*cboCrew, [this] { loadCrews(*cboCrew); });
}

void frmServices::RefreshCostCenters()
{
    rebuildKeepingChoice(*cboCostCenter, [this] {
        LoadItemWithIdToCombo(*cboCostCenter, clsServicesManager().GetCostCenterInfo(),
                              u"CostCenterID"_s, u"Description"_s, true);
    });
}

// --- Showing -------------------------------------------------------------------------------------

void frmServices::RefreshRecordSet()
{
    base::trapped(Module, "RefreshRecordSet", [this] {
        const db::Recordset rows = clsServicesManager().GetServiceInfo(m_key, m_store);
        if (rows.isEmpty())
            ClearData();
        else
            DisplayData(rows.current());
    });
    setMode(Mode::Browse);
}

void frmServices::DisplayData(const db::Row &row)
{
    const Displaying displaying(*this);
    m_hasRow = true;
    showService(isAssigned() ? AssignedService::fromRow(row)
                             : AssignedService{clsServicesManager::fromRow(row, m_store), {}});
    if (m_next)
        m_next->showLast(row.date(u"LastDateScheduled"), row.date(u"LastDatePerformed"));
    clearChanges();
    fraParts->RefreshPartGrid(m_key);
}

void frmServices::showService(const AssignedService &service)
{
    m_fields.show(service);
    m_oldJobNo = QString::number(service.JobNo);
    if (isAssigned()) {
        lblJobNoData->setText(m_oldJobNo);
        m_next->showScheduleKind();
    }
    m_schedule->serviceShown();
    m_budget->showLabourRate();
}

void frmServices::ClearData()
{
    const Displaying displaying(*this);
    m_hasRow = false;
    AssignedService blank;
    blank.Period = u"D"_s;
    blank.RenewalOn = u"W"_s;
    showService(blank);
    txtJobNo->clear();
    if (isAssigned()) {
        lblJobNoData->clear();
        m_next->clear();
    }
    clearChanges();
    fraParts->RefreshPartGrid(0);
}

void frmServices::clearChanges()
{
    if (m_next)
        m_next->forgetChanges();
    m_jobNoChanged = false;
    m_confirmedName.clear();
}

// --- Rules of single controls --------------------------------------------------------------------

void frmServices::chkInactive_Click()
{
    if (chkInactive->isChecked() && ServiceInWorkOrder(m_key)) {
        chkInactive->setChecked(false);
        base::showMessage(
            u"This service is already assigned to a work order. You cann't setted inactive."_s);
    } else {
        edited();
    }
    EnableLogicControl();
}

bool frmServices::txtJobNo_Validate()
{
    if (mode() == Mode::Browse || txtJobNo->text().trimmed() == m_oldJobNo)
        return true;
    QString refusal;
    if (input::isBlank(txtJobNo))
        refusal = u"Service Job No should not be blank."_s;
    else if (IsDuplicate(u"tblServices"_s, u"JobNO"_s, m_fields.shown().JobNo, txtJobNo->text(),
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

/// False when the stored name was put back.
bool frmServices::txtName_LostFocus()
{
    const QString name = txtName->text().trimmed();
    if (!isAssigned() || mode() == Mode::Browse || name == m_confirmedName ||
        name.compare(m_fields.shown().Name.trimmed(), Qt::CaseInsensitive) == 0)
        return true;
    if (base::askYesNo(u"You should not change the name of a service. If you need a new service "
                       "add it using the \"Services\" navigator on the left side. Then add it to "
                       "this piece of equipment. Are you sure you want to do this?"_s)) {
        m_confirmedName = name;
        return true;
    }
    txtName->setText(m_fields.shown().Name);
    return false;
}

bool frmServices::mayAddPart()
{
    if (mode() != Mode::Add)
        return true;
    return base::askYesNo(u"Record must be saved. Do you want to save it."_s) && cmdUpdate_Click();
}

// --- Saving --------------------------------------------------------------------------------------

bool frmServices::refuse(QWidget *field, const QString &message)
{
    base::showInformation(message);
    field->setFocus();
    return false;
}

bool frmServices::ValidateFields()
{
    if (input::isBlank(txtName))
        return refuse(txtName, u"Name should not be blank"_s);
    if (input::isBlank(cboCostCenter))
        return refuse(cboCostCenter, u"Select one Cost Center"_s);
    if (input::isBlank(cboCrew))
        return refuse(cboCrew, u"Select one Crew"_s);
    if (const auto gap = m_schedule->gap())
        return refuse(gap->field, gap->message);
    return true;
}

AssignedService frmServices::SetObjectValues() const
{
    const AssignedService &shown = m_fields.shown();
    AssignedService service = m_fields.read();
    service.ServiceID = mode() == Mode::Modify ? m_key : GenrateUniqueID();
    m_schedule->complete(service, shown);
    return service;
}

/// Asks whether a changed number is given to all copies of the service.
bool frmServices::isJobNumberCarried() const
{
    const AssignedService service = m_fields.read();
    return mode() == Mode::Modify && m_jobNoChanged && service.JobNo != m_fields.shown().JobNo &&
           base::askYesNo(
               u"Do you want to change Job No of \"%1\" to \"%2\" for all existing services?"_s.arg(
                   service.Name, QString::number(service.JobNo)));
}

std::optional<QVariant> frmServices::saveRecord()
{
    AssignedService service = SetObjectValues();
    const qint64 typed = service.JobNo;
    const bool holdsParts = gbInTransaction;
    try {
        BeginTrans();
        const clsServicesManager manager;
        if (!manager.SaveRecord(service, mode(), m_store, service, m_fields.shown()) ||
            (m_carriesJobNo && !manager.UpdateJobNoForAllService(service.ServiceID, service.JobNo)))
            return std::nullopt;
        CommitTrans();
    } catch (const base::Error &error) {
        // Parts that were added or changed in this editing stay when the save can be tried again.
        if (!holdsParts || !canBeTriedAgain(error))
            RollbackTrans();
        throw;
    }
    if (mode() == Mode::Add && service.JobNo != typed)
        base::showMessage(u"Service no %1 is already being used the new service number is "
                          "%2."_s.arg(QString::number(typed), QString::number(service.JobNo)));
    return QVariant(service.ServiceID);
}

bool frmServices::becomesNew()
{
    if (!isAssigned())
        return SavingScreen::becomesNew();
    base::showMessage(u"Another workstation has removed %1 from its machine. What you typed is "
                      "still here, but there is nothing left to store it in."_s.arg(recordName()));
    return false;
}

QString frmServices::recordName() const
{
    return u"the service \"%1\""_s.arg(m_fields.shown().Name.trimmed());
}

/// Save by its key leaves the focus, and so what has not been checked yet, in a field.
bool frmServices::finishFields()
{
    if (!fraParts->grid()->finishEditing())
        return false;
    if (!isAssigned())
        return txtJobNo_Validate();
    if (!m_next->finish())
        return false;
    (void)txtName_LostFocus();
    return true;
}

bool frmServices::cmdUpdate_Click()
{
    if (!finishFields())
        return false;
    if (!ValidateFields())
        return false;
    if (m_next)
        m_next->confirmChangesOnOrder(m_key);
    m_carriesJobNo = isJobNumberCarried();
    const std::optional<QVariant> key = store();
    if (!key) {
        if (!gbInTransaction && m_hasRow)
            fraParts->RefreshPartGrid(m_key);
        if (m_next)
            m_next->showScheduleKind();
        EnableLogicControl();
        return false;
    }
    m_key = key->toLongLong();
    RefreshRecordSet();
    txtName->setFocus();
    return true;
}

void frmServices::cmdCancel_Click()
{
    base::trapped(Module, "cmdCancel_Click", [] { RollbackTrans(); });
    RefreshRecordSet();
}

void frmServices::cmdExit_Click()
{
    if (mode() != Mode::Browse) {
        const auto answer = base::prompts().show({u"Do you want to save changes?"_s,
                                                  base::Prompts::Icon::Question,
                                                  base::Prompts::Buttons::YesNoCancel,
                                                  {}});
        if (answer == base::Prompts::Answer::Cancel ||
            (answer == base::Prompts::Answer::Yes && !cmdUpdate_Click()))
            return;
    }
    // Closing undoes what is open.
    unload();
}
