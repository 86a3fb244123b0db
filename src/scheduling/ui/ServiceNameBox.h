#pragma once

#include "core/ui/Binding.h"
#include "scheduling/clsServices.h"
#include "scheduling/ui/Gap.h"

#include <QObject>
#include <optional>

class QLabel;
class QToolButton;
class Screen;

namespace input {
class FormBuilder;
} // namespace input

/// What a service is called and who does it: number, name, crew and cost center, whether it gets an
/// order of its own, and whether it is inactive.
class ServiceNameBox final : public QObject
{
    Q_OBJECT

public:
    /// Makes its controls as a group of the form.
    ServiceNameBox(input::FormBuilder &form, ServiceStore store, Screen &screen);

    /// Ties its controls to a service. The fields have to live as long.
    void bind(Binding<AssignedService> &fields);
    /// The controls whose changes are edits.
    [[nodiscard]] QList<QWidget *> controls() const;
    /// Locks what the box holds, readable still, or opens it again.
    void setMayEdit(bool may);
    [[nodiscard]] const input::IdCombo &crew() const { return *cboCrew; }
    [[nodiscard]] bool isInactive() const;
    void focusName();

    /// The service of this key is on show.
    void serviceShown(qint64 key);
    /// Begins a new service with a number.
    void beginNew(qint64 JobNo);
    /// Empties what the fields of a blank service don't.
    void clear();
    /// What was asked and answered is forgotten.
    void forgetChanges();

    [[nodiscard]] std::optional<Gap> gap() const;
    /// The checks of a save that leaves no box. False when one is refused, which the user has been
    /// told.
    [[nodiscard]] bool finish();
    /// Asks whether a changed number is given to all copies of the service.
    [[nodiscard]] bool isJobNumberCarried() const;

Q_SIGNALS:
    /// The user chose a crew.
    void crewChosen();
    /// The user made the service inactive, or active again.
    void inactiveChanged();

private:
    void buildBox(input::FormBuilder &form);
    void joinRules();
    void RefreshCrews();
    void RefreshCostCenters();
    void chkInactive_Click();
    [[nodiscard]] bool txtJobNo_Validate();
    void txtName_LostFocus();
    [[nodiscard]] bool isAssigned() const { return m_store == ServiceStore::Assigned; }

    ServiceStore m_store;
    Screen &m_screen;
    const Binding<AssignedService> *m_fields = nullptr;
    qint64 m_key = 0;
    QString m_oldJobNo;
    QString m_confirmedName; ///< a changed name that the user insists on
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
};
