#pragma once

#include "core/ui/Binding.h"
#include "core/ui/SavingScreen.h"
#include "scheduling/clsServices.h"

class BudgetBox;
class NextScheduleBox;
class QPlainTextEdit;
class QPushButton;
class ScheduleBox;
class ServiceNameBox;
class ServiceParts;

namespace input {
class FormBuilder;
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

private:
    void buildForm();
    void buildSchedule(input::FormBuilder &form);
    void joinBoxes();
    void joinRules();
    void bindFields();

    [[nodiscard]] bool isAssigned() const { return m_store == ServiceStore::Assigned; }
    [[nodiscard]] bool mayEdit() const;
    void EnableLogicControl();
    void RefreshRecordSet();
    void DisplayData(const db::Row &row);
    void ClearData();
    void showService(const AssignedService &service);
    void beginNew();

    [[nodiscard]] bool ValidateFields();
    [[nodiscard]] bool refuse(QWidget *field, const QString &message);
    [[nodiscard]] AssignedService SetObjectValues() const;
    [[nodiscard]] std::optional<QVariant> saveRecord() override;
    [[nodiscard]] bool becomesNew() override;
    [[nodiscard]] QString recordName() const override;

    [[nodiscard]] bool finishFields();
    bool cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdExit_Click();
    [[nodiscard]] bool mayAddPart();

    void clearChanges();

    ServiceStore m_store;
    qint64 m_key = 0;
    bool m_hasRow = false;
    Binding<AssignedService> m_fields;
    bool m_carriesJobNo = false; ///< the number that is being saved goes to all copies

    ServiceNameBox *m_name = nullptr;
    BudgetBox *m_budget = nullptr;
    ScheduleBox *m_schedule = nullptr;
    NextScheduleBox *m_next = nullptr; ///< of an assigned service only
    ServiceParts *fraParts = nullptr;
    QPlainTextEdit *txtNotes = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
