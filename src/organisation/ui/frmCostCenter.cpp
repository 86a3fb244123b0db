#include "organisation/ui/frmCostCenter.h"

#include "core/ui/ListGrid.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

frmCostCenter::frmCostCenter(QWidget *parent)
    : MasterScreen(u"frmCostCenter"_s, u"Cost Center"_s, parent)
{
    buildForm();
}

void frmCostCenter::buildForm()
{
    input::FormBuilder form(this);
    grid::GridView *grdCostCenter =
        makeListGrid(this, u"grdCostCenter"_s, u"Cost centers"_s,
                     {{.name = u"CostCenterID"_s, .caption = u"Cost Center ID"_s, .width = 120},
                      {.name = u"Description"_s, .width = 280},
                      {.name = u"Budget"_s, .width = 120, .format = u"$0.00"_s}});
    form.widget(grdCostCenter, true);
    txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s, 60);
    txtBudget = form.currencyField(u"txtBudget"_s, u"&Budget:"_s);
    makeButtons(form, {});
    form.finish();
    resize(580, 400);
    m_fields.addTrimmed(txtDescription, &clsCostCenter::Description);
    m_fields.add(txtBudget, &clsCostCenter::Budget);
    setFields({&m_fields});
    setListGrid(grdCostCenter);
}

db::Recordset frmCostCenter::loadRows()
{
    return clsCostCenterManager().GetCostCenterInfo();
}

void frmCostCenter::prepareNewRecord()
{
    txtDescription->setFocus();
}

bool frmCostCenter::VailidateFields()
{
    if (txtDescription->text().trimmed().isEmpty())
        return refuse(txtDescription, u"Description should not be blank."_s);
    // Services show a cost center by its description, so a new one reaches all of them. The same
    // description may stand twice: the number tells two centers apart.
    return confirmMassChange(txtDescription, m_fields.shown().Description);
}

std::optional<QVariant> frmCostCenter::saveRecord()
{
    const clsCostCenterManager manager;
    clsCostCenter center = m_fields.read();
    if (mode() == Mode::Add)
        // Made here and not when Add is pressed: while somebody types, another workstation would
        // take the number.
        center.CostCenterID = manager.GenrateID();
    if (!manager.SaveRecord(center, mode(), m_fields.shown()))
        return std::nullopt;
    return QVariant(center.CostCenterID);
}

QString frmCostCenter::recordName() const
{
    return u"the cost center \"%1\""_s.arg(txtDescription->text().trimmed());
}
