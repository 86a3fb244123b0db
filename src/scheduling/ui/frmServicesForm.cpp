#include "core/General.h"
#include "core/Periods.h"
#include "core/ui/ScreenCalls.h"
#include "organisation/ui/Entries.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "scheduling/ui/PatternBox.h"
#include "scheduling/ui/ServiceParts.h"
#include "scheduling/ui/frmServices.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The form of the service screen and what is joined to its controls.

namespace {

constexpr int NameLength = 100;
constexpr int JobNoLength = 9;
constexpr int AmountLength = 12;
/// Digits of the largest count that a service can have.
constexpr int CountLength = 10;

} // namespace

void frmServices::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    buildService(form);
    buildBudget(form);
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

void frmServices::buildBudget(input::FormBuilder &form)
{
    form.beginGroup(u"Budget"_s, u"fraBudget"_s);
    const auto amountField = [&](const QString &name, const QString &label) {
        QLineEdit *box = form.textField(name, label, AmountLength);
        box->setAlignment(Qt::AlignRight);
        return box;
    };
    const auto readOnly = [&](const QString &name, const QString &label) {
        QLineEdit *box = amountField(name, label);
        box->setReadOnly(true);
        box->setFocusPolicy(Qt::ClickFocus);
        return box;
    };
    txtBudgetedlabor = amountField(u"txtBudgetedlabor"_s, u"&Budgeted Hrs:"_s);
    txtLaborRate = readOnly(u"txtLaborRate"_s, u"Labor Rate:"_s);
    txtBudgetedcost = form.currencyField(u"txtBudgetedcost"_s, u"&Labor Cost:"_s);
    txtBudgetedcost->setAlignment(Qt::AlignRight);
    txtTotalCost = readOnly(u"txtTotalCost"_s, u"Total Cost:"_s);
    for (QLineEdit *box : {txtBudgetedlabor, txtLaborRate, txtTotalCost})
        box->setFixedWidth(txtBudgetedcost->minimumWidth());
    form.endGroup();
}

void frmServices::buildSchedule(input::FormBuilder &form)
{
    form.beginGroup(u"Schedule"_s, u"fraSchedule"_s);
    form.beginRow(u"Renew Every"_s);
    RRSpin1 = form.spinField(u"RRSpin1"_s, {});
    RRSpin1->setAccessibleName(u"Interval"_s);
    cboRenewalPeriod = form.comboField(u"cboRenewalPeriod"_s, {});
    cboRenewalPeriod->setAccessibleName(u"Renewal period"_s);
    form.endRow();
    form.beginRow(u"Reschedule Based On"_s);
    OptWOC = form.optionButton(u"OptWOC"_s, u"Work Order Completion "_s);
    OptSOS = form.optionButton(u"OptSOS"_s, u"Service Original Scheduled"_s);
    OptDSA = form.optionButton(u"OptDSA"_s, u"Don't Schedule Again"_s);
    form.endRow();
    if (isAssigned())
        buildNextSchedule(form);
    form.endGroup();
    fraPattern = new PatternBox(this);
    form.widget(fraPattern);
}

void frmServices::buildNextSchedule(input::FormBuilder &form)
{
    form.beginRow();
    lblLastDateScheduledData =
        form.readOnlyField(u"lblLastDateScheduledData"_s, u"Last Date Scheduled:"_s);
    lblLastDateScheduled = form.lastLabel();
    lblLastDateScheduled->setObjectName(u"lblLastDateScheduled"_s);
    lblLastDatePerformedData =
        form.readOnlyField(u"lblLastDatePerformedData"_s, u"Last Date Performed:"_s);
    lblLastDatePerformed = form.lastLabel();
    lblLastDatePerformed->setObjectName(u"lblLastDatePerformed"_s);
    form.endRow();

    stkNextDate = new QStackedWidget(this);
    stkNextDate->setObjectName(u"stkNextDate"_s);
    datNextScheduledDate = new input::DateInput(stkNextDate);
    datNextScheduledDate->setObjectName(u"datNextScheduledDate"_s);
    datNextScheduledDate->setAccessibleName(u"Next Scheduled Date"_s);
    datNextScheduledDate->checkOnLeave();
    txtNextScheduledDate = new QLineEdit(stkNextDate);
    txtNextScheduledDate->setObjectName(u"txtNextScheduledDate"_s);
    txtNextScheduledDate->setAccessibleName(u"No next scheduled date"_s);
    txtNextScheduledDate->installEventFilter(this);
    stkNextDate->addWidget(datNextScheduledDate);
    stkNextDate->addWidget(txtNextScheduledDate);
    stkNextDate->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    stkNextDate->setFixedWidth(fontMetrics().horizontalAdvance(u'0') * 12 + 48);
    stkNextDate->setFocusProxy(datNextScheduledDate);

    form.beginRow();
    txtCount = form.digitsField(u"txtCount"_s, u"Ne&xt Scheduled Count:"_s, CountLength);
    lblNextSchedule = form.lastLabel();
    lblNextSchedule->setObjectName(u"lblNextSchedule"_s);
    lblDueOn = new QLabel(u"Due On:"_s, this);
    form.widget(lblDueOn);
    form.widget(stkNextDate);
    form.endRow();
}

void frmServices::joinBudgetRules()
{
    input::restrictTo(txtBudgetedlabor, input::TypeCheck::Double);
    connect(cboCrew, &QComboBox::activated, this, [this] {
        showLabourRate();
        computeLabourCost();
    });
    connect(txtBudgetedlabor, &QLineEdit::textEdited, this, &frmServices::computeLabourCost);
    connect(txtBudgetedlabor, &QLineEdit::editingFinished, this, [this] {
        txtBudgetedlabor->setText(
            QString::number(txtBudgetedlabor->text().trimmed().toDouble(), 'f', 2));
    });
    connect(txtBudgetedcost, &input::CurrencyInput::valueChanged, this,
            &frmServices::showTotalCost);
    connect(fraParts, &ServiceParts::costChanged, this, &frmServices::showTotalCost);
}

void frmServices::joinScheduleRules()
{
    for (const periods::Period &each : periods::all())
        cboRenewalPeriod->add(QStringList(each.word.toString()));
    connect(cboRenewalPeriod, &QComboBox::activated, this, &frmServices::cboRenewalPeriod_Click);
    for (QRadioButton *option : {OptWOC, OptSOS, OptDSA})
        connect(option, &QRadioButton::clicked, this, &frmServices::EnableLogicControl);
    connect(chkInactive, &QCheckBox::clicked, this, &frmServices::chkInactive_Click);
    connect(fraPattern, &PatternBox::dayOfMonthToggled, this, &frmServices::useDayOfMonth);
    connect(fraPattern, &PatternBox::edited, this, &Screen::edited);
    if (!isAssigned())
        return;
    connect(datNextScheduledDate, &input::DateInput::edited, this, [this] {
        m_nextDateChanged = true;
        edited();
    });
    connect(txtCount, &QLineEdit::textEdited, this, [this] {
        m_nextCountChanged = true;
        edited();
    });
    input::validateOnLeave(txtCount, [this] { return txtCount_Validate(); });
}

void frmServices::bindFields()
{
    m_fields.add(txtJobNo, &clsServices::JobNo);
    m_fields.addTrimmed(txtName, &clsServices::Name);
    m_fields.add(cboCrew, &clsServices::CrewID);
    m_fields.add(cboCostCenter, &clsServices::CostCenterID);
    m_fields.add(ChkSeparateWO, &clsServices::SeparateWo);
    m_fields.add(RRSpin1, &clsServices::EInterval);
    m_fields.add(
        cboRenewalPeriod, &clsServices::Period, [this] { return period(); },
        [this](const QVariant &code) {
            cboRenewalPeriod->selectText(PeriodWord(code.toString()));
        });
    m_fields.add(
        OptWOC, &clsServices::RenewalOn, [this] { return renewal(); },
        [this](const QVariant &code) { showRenewal(code.toString()); });
    fraPattern->bind(m_fields);
    m_fields.add(txtNotes, &clsServices::Note);
    m_fields.addQuantity(txtBudgetedlabor, &clsServices::LaborEstimate);
    m_fields.add(txtBudgetedcost, &clsServices::CostEstimate);
    if (isAssigned()) {
        m_fields.add(
            datNextScheduledDate, &AssignedSchedule::NextScheduledDate,
            [this] { return nextDate().isValid() ? QVariant(nextDate()) : QVariant(); },
            [this](const QVariant &date) { showNextDate(date.toDateTime()); });
        m_fields.add(txtCount, &AssignedSchedule::NextScheduledCount);
        m_fields.add(chkInactive, &AssignedSchedule::Inactive, 1);
    }
    setSavedFields({&m_fields});
}

void frmServices::joinRules()
{
    watch({txtJobNo, txtName, cboCrew, cboCostCenter, ChkSeparateWO, txtBudgetedlabor,
           txtBudgetedcost, RRSpin1, cboRenewalPeriod, OptWOC, OptSOS, OptDSA, txtNotes});
    joinBudgetRules();
    joinScheduleRules();
    connect(fraParts, &ServiceParts::edited, this, &Screen::edited);
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
