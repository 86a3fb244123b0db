#include "scheduling/ui/BudgetBox.h"

#include "core/Labour.h"
#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int AmountLength = 12;

double amount(const QLineEdit *box)
{
    return box->text().trimmed().toDouble();
}

} // namespace

BudgetBox::BudgetBox(input::FormBuilder &form, const input::IdCombo &crew, QWidget *parent)
    : QObject(parent)
    , m_crew(crew)
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
        // Tab goes past what can't be typed into; a click still marks it for copying.
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

    input::restrictTo(txtBudgetedlabor, input::TypeCheck::Double);
    // With each key of the user's. A service that is shown keeps the cost that is stored, whatever
    // the rate is by now.
    connect(txtBudgetedlabor, &QLineEdit::textEdited, this, &BudgetBox::computeLabourCost);
    connect(txtBudgetedlabor, &QLineEdit::editingFinished, this, [this] {
        txtBudgetedlabor->setText(QString::number(amount(txtBudgetedlabor), 'f', 2));
    });
    connect(txtBudgetedcost, &input::CurrencyInput::valueChanged, this, &BudgetBox::showTotalCost);
}

void BudgetBox::bind(Binding<AssignedService> &fields)
{
    fields.addQuantity(txtBudgetedlabor, &clsServices::LaborEstimate);
    fields.add(txtBudgetedcost, &clsServices::CostEstimate);
}

QList<QWidget *> BudgetBox::controls() const
{
    return {txtBudgetedlabor, txtBudgetedcost};
}

void BudgetBox::showLabourRate()
{
    txtLaborRate->setText(base::money(SetLaborCost(m_crew.id())));
}

void BudgetBox::crewChosen()
{
    showLabourRate();
    computeLabourCost();
}

void BudgetBox::computeLabourCost()
{
    txtBudgetedcost->setValue(
        base::Money(SetLaborCost(m_crew.id())).centsTimes(amount(txtBudgetedlabor)).toDouble());
}

void BudgetBox::setPartCost(double cost)
{
    m_partCost = cost;
    showTotalCost();
}

void BudgetBox::showTotalCost()
{
    // By decimals: two binary fractions might show a cent that neither of them has.
    txtTotalCost->setText(base::money(base::decimalSum(txtBudgetedcost->value(), m_partCost)));
}
