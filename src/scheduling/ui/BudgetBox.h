#pragma once

#include "core/ui/Binding.h"
#include "scheduling/clsServices.h"

#include <QObject>

namespace input {
class FormBuilder;
} // namespace input

/// What a service is to cost: the budgeted hours, which the crew's rate turns into the labour cost,
/// and with its parts the total.
class BudgetBox final : public QObject
{
    Q_OBJECT

public:
    /// Makes its controls as a group of the form. The crew is the one that is chosen in the list.
    BudgetBox(input::FormBuilder &form, const input::IdCombo &crew, QWidget *parent);

    /// Ties its boxes to the hours and the cost of a service.
    void bind(Binding<AssignedService> &fields);
    /// The boxes that the user may change.
    [[nodiscard]] QList<QWidget *> controls() const;
    /// Shows the hourly rate of the chosen crew; the labour cost stays as it is stored.
    void showLabourRate();
    /// The user chose another crew: its rate prices the hours anew.
    void crewChosen();
    /// Gives what the parts cost.
    void setPartCost(double cost);

private:
    void computeLabourCost();
    void showTotalCost();

    const input::IdCombo &m_crew;
    double m_partCost = 0;
    QLineEdit *txtBudgetedlabor = nullptr;
    QLineEdit *txtLaborRate = nullptr;
    input::CurrencyInput *txtBudgetedcost = nullptr;
    QLineEdit *txtTotalCost = nullptr;
};
