#pragma once

#include "core/ui/Binding.h"
#include "core/ui/SavingScreen.h"
#include "scheduling/clsServices.h"

#include <QDateTime>

class PatternBox;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QToolButton;
class ServiceParts;

namespace input {
class CurrencyInput;
class DateInput;
class FormBuilder;
class IdCombo;
class SpinInput;
} // namespace input

/// A service: of the catalogue, or the copy of it on a machine. One screen, one set of checks, and
/// a different table. What an assigned service has besides is its schedule: last and next dates,
/// the target count, and whether it is inactive.
class frmServices final : public SavingScreen
{
    Q_OBJECT

public:
    explicit frmServices(ServiceStore store, QWidget *parent = nullptr);

    /// Shows the row of this key, or begins a new one (catalogue only). Ahead of showModal.
    void display(Mode mode, qint64 key);
    /// The key of the service on show.
    [[nodiscard]] qint64 currentKey() const { return m_key; }

protected:
    void EnableControls() override;
    bool mayClose() override { return mode() == Mode::Browse; }
    void unloading() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Building (frmServicesForm.cpp)
    void buildForm();
    void buildService(input::FormBuilder &form);
    void buildBudget(input::FormBuilder &form);
    void buildSchedule(input::FormBuilder &form);
    void buildNextSchedule(input::FormBuilder &form);
    void joinBudgetRules();
    void joinScheduleRules();
    void joinRules();
    void bindFields();

    [[nodiscard]] bool isAssigned() const { return m_store == ServiceStore::Assigned; }
    [[nodiscard]] bool mayEdit() const;
    [[nodiscard]] QString period() const;
    [[nodiscard]] QString renewal() const;
    void showRenewal(const QString &code);
    [[nodiscard]] bool isCountPeriod() const;
    void EnableLogicControl();
    void RefreshCrews();
    void RefreshCostCenters();
    void RefreshRecordSet();
    void DisplayData(const db::Row &row);
    void ClearData();
    void showService(const AssignedService &service);
    void beginNew();

    [[nodiscard]] bool ValidateFields();
    [[nodiscard]] bool refuse(QWidget *field, const QString &message);
    [[nodiscard]] AssignedService SetObjectValues() const;
    void confirmChangesOnOrder();
    [[nodiscard]] bool isJobNumberCarried() const;
    [[nodiscard]] std::optional<QVariant> saveRecord() override;
    [[nodiscard]] bool becomesNew() override;
    [[nodiscard]] QString recordName() const override;

    [[nodiscard]] bool finishFields();
    bool cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdExit_Click();
    void cboRenewalPeriod_Click();
    void CheckServiceChange();
    void chkInactive_Click();
    void useDayOfMonth(bool used);
    [[nodiscard]] bool txtJobNo_Validate();
    [[nodiscard]] bool txtCount_Validate();
    [[nodiscard]] bool txtName_LostFocus();
    [[nodiscard]] bool mayAddPart();

    void showLabourRate();
    void computeLabourCost();
    void showTotalCost();
    void showNextDate(const QDateTime &date);
    [[nodiscard]] QDateTime nextDate() const;
    void showScheduleKind();
    void tellCountTooBig();
    void clearChanges();

    ServiceStore m_store;
    qint64 m_key = 0;
    bool m_hasRow = false;
    Binding<AssignedService> m_fields;
    QString m_oldJobNo;
    bool m_carriesJobNo = false; ///< the number that is being saved goes to all copies
    QString m_shownPeriod;       ///< code of the period chosen last
    QString m_confirmedName;     ///< a changed name that the user insists on
    bool m_nextDateChanged = false;
    bool m_nextCountChanged = false;
    bool m_jobNoChanged = false;

    QLineEdit *txtJobNo = nullptr;
    QLabel *lblJobNoData = nullptr;
    QLineEdit *txtName = nullptr;
    input::IdCombo *cboCrew = nullptr;
    input::IdCombo *cboCostCenter = nullptr;
    QToolButton *cmdCrew = nullptr;
    QToolButton *cmdCostCenter = nullptr;
    QCheckBox *ChkSeparateWO = nullptr;
    QCheckBox *chkInactive = nullptr;
    QLineEdit *txtLaborRate = nullptr;
    QLineEdit *txtBudgetedlabor = nullptr;
    input::CurrencyInput *txtBudgetedcost = nullptr;
    QLineEdit *txtTotalCost = nullptr;
    input::SpinInput *RRSpin1 = nullptr;
    input::IdCombo *cboRenewalPeriod = nullptr;
    QRadioButton *OptWOC = nullptr;
    QRadioButton *OptSOS = nullptr;
    QRadioButton *OptDSA = nullptr;
    PatternBox *fraPattern = nullptr;
    QLabel *lblLastDateScheduled = nullptr;
    QLabel *lblLastDateScheduledData = nullptr;
    QLabel *lblLastDatePerformed = nullptr;
    QLabel *lblLastDatePerformedData = nullptr;
    QLabel *lblNextSchedule = nullptr;
    QLineEdit *txtCount = nullptr;
    QLabel *lblDueOn = nullptr;
    QStackedWidget *stkNextDate = nullptr;
    input::DateInput *datNextScheduledDate = nullptr;
    QLineEdit *txtNextScheduledDate = nullptr; ///< blank; lies over the date while there is none
    ServiceParts *fraParts = nullptr;
    QPlainTextEdit *txtNotes = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
