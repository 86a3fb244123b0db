#include "scheduling/ui/frmServices.h"

#include "core/Flag.h"
#include "core/General.h"
#include "core/Periods.h"
#include "core/Permission.h"
#include "core/Session.h"
#include "core/ui/Combos.h"
#include "core/ui/Lock.h"
#include "core/ui/LookupCombo.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/SpinInput.h"
#include "scheduling/Readings.h"
#include "scheduling/ui/OrderWarning.h"
#include "scheduling/ui/PatternBox.h"
#include "scheduling/ui/ServiceParts.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QToolButton>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmServices";
const QString Renewals[] = {u"W"_s, u"S"_s, u"D"_s};

QString dateText(const QDateTime &date)
{
    return date.isValid() ? date.toString(u"MM/dd/yyyy") : QString();
}

bool canBeTriedAgain(const base::Error &error)
{
    return error.number() == db::ErrorNumber::LockConflict ||
           dynamic_cast<const record::Conflict *>(&error) != nullptr;
}

double amount(const QLineEdit *box)
{
    return box->text().trimmed().toDouble();
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

QString frmServices::period() const
{
    const periods::Period *chosen = periods::ofWord(cboRenewalPeriod->currentText());
    return chosen ? chosen->code.toString() : QString();
}

/// The code of the way of renewal that is chosen; empty while none is.
QString frmServices::renewal() const
{
    const QRadioButton *options[] = {OptWOC, OptSOS, OptDSA};
    for (std::size_t i = 0; i < std::size(options); ++i)
        if (options[i]->isChecked())
            return Renewals[i];
    return {};
}

void frmServices::showRenewal(const QString &code)
{
    QRadioButton *options[] = {OptWOC, OptSOS, OptDSA};
    for (std::size_t i = 0; i < std::size(options); ++i)
        options[i]->setChecked(code == Renewals[i]);
}

bool frmServices::isCountPeriod() const
{
    return !readings::countType(period()).isEmpty();
}

void frmServices::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    const bool may = mayEdit();
    cmdUpdate->setEnabled(!browsing);
    cmdCancel->setEnabled(!browsing);
    for (QWidget *control : std::initializer_list<QWidget *>{
             txtJobNo, txtName, cboCrew, cmdCrew, cboCostCenter, cmdCostCenter, ChkSeparateWO,
             chkInactive, txtBudgetedlabor, txtBudgetedcost, txtNotes})
        setLocked(control, !may);
    fraParts->setMayEdit(may);
    EnableLogicControl();
    setCloseEnabled(browsing);
}

/// What of the schedule can be edited follows from its kind.
void frmServices::EnableLogicControl()
{
    const bool may = mayEdit();
    const bool active = may && !chkInactive->isChecked();
    const bool again = active && !OptDSA->isChecked();
    const bool calendar = again && !isCountPeriod();
    const bool byDom = fraPattern->usesDayOfMonth();
    fraPattern->setLive({.days = calendar && !byDom,
                         .weeks = calendar && !byDom,
                         .months = calendar && !byDom,
                         .dom = calendar});
    const bool interval = again && (!calendar || !byDom);
    RRSpin1->setEnabled(interval);
    cboRenewalPeriod->setEnabled(interval);
    for (QRadioButton *option : {OptWOC, OptSOS, OptDSA})
        option->setEnabled(active);
    if (isAssigned()) {
        stkNextDate->setEnabled(active);
        txtCount->setEnabled(active);
    }
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
    if (isAssigned()) {
        lblLastDateScheduledData->setText(dateText(row.date(u"LastDateScheduled")));
        lblLastDatePerformedData->setText(dateText(row.date(u"LastDatePerformed")));
    }
    clearChanges();
    fraParts->RefreshPartGrid(m_key);
    showTotalCost();
}

void frmServices::showService(const AssignedService &service)
{
    m_fields.show(service);
    m_oldJobNo = QString::number(service.JobNo);
    if (isAssigned()) {
        lblJobNoData->setText(m_oldJobNo);
        showScheduleKind();
    }
    m_shownPeriod = period();
    showLabourRate();
}

void frmServices::ClearData()
{
    const Displaying displaying(*this);
    m_hasRow = false;
    AssignedService blank;
    blank.Period = u"D"_s;
    blank.RenewalOn = Renewals[0];
    showService(blank);
    txtJobNo->clear();
    if (isAssigned()) {
        for (QLabel *label : {lblJobNoData, lblLastDateScheduledData, lblLastDatePerformedData})
            label->clear();
        txtCount->clear();
    }
    clearChanges();
    fraParts->RefreshPartGrid(0);
    showTotalCost();
}

void frmServices::clearChanges()
{
    m_nextDateChanged = false;
    m_nextCountChanged = false;
    m_jobNoChanged = false;
    m_confirmedName.clear();
}

void frmServices::showLabourRate()
{
    txtLaborRate->setText(base::money(SetLaborCost(cboCrew->id())));
}

void frmServices::computeLabourCost()
{
    txtBudgetedcost->setValue(
        base::Money(SetLaborCost(cboCrew->id())).centsTimes(amount(txtBudgetedlabor)).toDouble());
}

void frmServices::showTotalCost()
{
    txtTotalCost->setText(
        base::money(base::decimalSum(txtBudgetedcost->value(), fraParts->SetPastCost())));
}

void frmServices::showNextDate(const QDateTime &date)
{
    datNextScheduledDate->setDate(date);
    stkNextDate->setCurrentWidget(date.isValid() ? static_cast<QWidget *>(datNextScheduledDate)
                                                 : txtNextScheduledDate);
    stkNextDate->setFocusProxy(stkNextDate->currentWidget());
}

QDateTime frmServices::nextDate() const
{
    if (!isAssigned() || stkNextDate->currentWidget() == txtNextScheduledDate ||
        !datNextScheduledDate->date().isValid())
        return {};
    return base::wallClock(datNextScheduledDate->date());
}

/// A count service waits for its count, and has a date once that is reached; a calendar service
/// has a date only.
void frmServices::showScheduleKind()
{
    const bool count = isCountPeriod();
    lblNextSchedule->setText(count ? u"Ne&xt Scheduled Count:"_s : u"Ne&xt Scheduled Date:"_s);
    lblNextSchedule->setBuddy(count ? static_cast<QWidget *>(txtCount) : datNextScheduledDate);
    txtCount->setVisible(count);
    lblDueOn->setVisible(count);
}

bool frmServices::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtNextScheduledDate && event->type() == QEvent::FocusIn) {
        // Who comes to the blank box wants to give a date.
        stkNextDate->setCurrentWidget(datNextScheduledDate);
        stkNextDate->setFocusProxy(datNextScheduledDate);
        datNextScheduledDate->setFocus();
    }
    return Screen::eventFilter(watched, event);
}

// --- Rules of single controls --------------------------------------------------------------------

void frmServices::cboRenewalPeriod_Click()
{
    if (isAssigned() && period() != m_shownPeriod)
        CheckServiceChange();
    m_shownPeriod = period();
    EnableLogicControl();
}

void frmServices::CheckServiceChange()
{
    showScheduleKind();
    m_nextDateChanged = true;
    if (isCountPeriod()) {
        const qint64 count =
            GetEquipmentCount(m_fields.shown().EquipmentID, readings::countType(period())) +
            RRSpin1->value();
        if (count > std::numeric_limits<qint32>::max())
            tellCountTooBig();
        else
            txtCount->setText(QString::number(count));
        showNextDate({});
    } else {
        showNextDate(base::wallClock(base::today()));
    }
}

void frmServices::tellCountTooBig()
{
    QString address = GetMakerRegistryValue(u"SupportAddress"_s);
    if (address.isEmpty())
        address = u"Quorvantis support"_s;
    base::showMessage(
        u"Next service count is bigger than field size. please contact %1"_s.arg(address));
}

void frmServices::useDayOfMonth(bool used)
{
    if (used) {
        RRSpin1->setValue(1);
        cboRenewalPeriod->selectText(u"Days"_s);
        OptWOC->setChecked(true);
        cboRenewalPeriod_Click();
    }
    EnableLogicControl();
}

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

bool frmServices::txtCount_Validate()
{
    if (mode() == Mode::Browse || !isCountPeriod())
        return true;
    if (input::isBlank(txtCount)) {
        base::showMessage(u"Please enter the next schedule count"_s);
        return false;
    }
    const qint64 count = txtCount->text().trimmed().toLongLong();
    if (count > std::numeric_limits<qint32>::max()) {
        tellCountTooBig();
        return false;
    }
    if (count >= 1)
        return true;
    base::showMessage(u"Count value shouldn't be less then or equal to 0"_s);
    txtCount->setText(QString::number(
        GetEquipmentCount(m_fields.shown().EquipmentID, readings::countType(period()))));
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
    if (fraPattern->usesDayOfMonth() && !fraPattern->hasDayOfMonth())
        return refuse(fraPattern->firstDayOfMonth(),
                      u"User Should fill at least one day of the month"_s);
    if (OptDSA->isChecked() || isCountPeriod() || fraPattern->usesDayOfMonth())
        return true;
    if (!fraPattern->hasDay())
        return refuse(fraPattern->firstDay(), u"At least select one day of week."_s);
    if (!fraPattern->hasWeek())
        return refuse(fraPattern->firstWeek(), u"At least select one week of month."_s);
    if (!fraPattern->hasMonth())
        return refuse(fraPattern->firstMonth(), u"At least select one month of year."_s);
    return true;
}

/// A date or count changed on a service that stands on an order is asked about, and put back on No.
void frmServices::confirmChangesOnOrder()
{
    if (!isAssigned() || !(m_nextDateChanged || m_nextCountChanged) || !ServiceInWorkOrder(m_key))
        return;
    if (m_nextDateChanged && !orderwarning::confirmDate()) {
        showNextDate(m_fields.shown().NextScheduledDate);
        m_nextDateChanged = false;
    }
    if (m_nextCountChanged && !orderwarning::confirmCount()) {
        txtCount->setText(QString::number(m_fields.shown().NextScheduledCount));
        m_nextCountChanged = false;
    }
}

AssignedService frmServices::SetObjectValues() const
{
    const AssignedService &shown = m_fields.shown();
    AssignedService service = m_fields.read();
    service.ServiceID = mode() == Mode::Modify ? m_key : GenrateUniqueID();
    if (service.Period.isEmpty())
        service.Period = shown.Period;
    if (service.RenewalOn.isEmpty())
        service.RenewalOn = shown.RenewalOn;
    if (isCountPeriod())
        PatternBox::keepAll(service, shown);
    else
        PatternBox::keepUnused(service, shown);
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

/// Save by its key leaves the focus, and so what has not been checked yet, in a field. A count that
/// an earlier release left at 0 keeps nobody from changing something else.
bool frmServices::finishFields()
{
    if (!fraParts->grid()->finishEditing())
        return false;
    if (!isAssigned())
        return txtJobNo_Validate();
    const bool isCountNew = m_nextCountChanged || period() != m_fields.shown().Period;
    if ((isCountNew || txtCount->hasFocus()) && !txtCount_Validate())
        return false;
    if (!datNextScheduledDate->isValidOrEmpty())
        return refuse(datNextScheduledDate, u"Please enter valid date."_s);
    (void)txtName_LostFocus();
    return true;
}

bool frmServices::cmdUpdate_Click()
{
    if (!finishFields())
        return false;
    if (!ValidateFields())
        return false;
    confirmChangesOnOrder();
    m_carriesJobNo = isJobNumberCarried();
    const std::optional<QVariant> key = store();
    if (!key) {
        if (!gbInTransaction && m_hasRow)
            fraParts->RefreshPartGrid(m_key);
        if (isAssigned())
            showScheduleKind();
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
