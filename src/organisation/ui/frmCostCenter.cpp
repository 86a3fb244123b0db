#include "organisation/ui/frmCostCenter.h"

#include "core/ui/ListGrid.h"
#include "organisation/clsCostCenter.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

frmCostCenter::frmCostCenter(QWidget *parent)
    : RecordScreen(u"frmCostCenter"_s, u"Cost Center"_s, parent)
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
    setDataControls({txtDescription, txtBudget});
    setListGrid(grdCostCenter);
}

db::Recordset frmCostCenter::loadRows()
{
    return clsCostCenterManager().GetCostCenterInfo();
}

void frmCostCenter::DisplayData(const db::Row &row)
{
    const clsCostCenter center = clsCostCenter::fromRow(row);
    m_costCenterID = center.CostCenterID;
    m_storedName = center.Description;
    txtDescription->setText(center.Description);
    txtBudget->setValue(center.Budget);
}

void frmCostCenter::ClearData()
{
    m_costCenterID = 0;
    m_storedName.clear();
    txtDescription->clear();
    txtBudget->setValue(0);
}

void frmCostCenter::prepareNewRecord()
{
    txtDescription->setFocus();
}

bool frmCostCenter::VailidateFields()
{
    if (txtDescription->text().trimmed().isEmpty())
        return refuse(txtDescription, u"Description should not be blank."_s);
    return confirmMassChange(txtDescription, m_storedName);
}

std::optional<QVariant> frmCostCenter::saveRecord()
{
    const clsCostCenterManager manager;
    const clsCostCenter center{mode() == Mode::Add ? manager.GenrateID() : m_costCenterID,
                               txtDescription->text().trimmed(), txtBudget->value()};
    if (!manager.SaveRecord(center, mode()))
        return std::nullopt;
    return QVariant(center.CostCenterID);
}

bool frmCostCenter::deleteRecord(const QVariant &key)
{
    return clsCostCenterManager().DeleteRecord(key.toLongLong());
}

QString frmCostCenter::usedBy(const QVariant &key) const
{
    return clsCostCenterManager().CanDeleteCostCenter(key.toLongLong());
}
