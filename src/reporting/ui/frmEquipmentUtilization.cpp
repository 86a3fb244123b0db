#include "reporting/ui/frmEquipmentUtilization.h"

#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

frmEquipmentUtilization::frmEquipmentUtilization(QWidget *parent)
    : FilterScreen(u"frmEquipmentUtilization"_s, u"Equipment Utilization"_s,
                   "frmEquipmentUtilization", parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"Utlization of Equipments"_s, u"fraEqUtilization"_s);
    chkEquipment = form.checkBox(u"chkEquipment"_s, u"&Individual Equipment"_s);
    m_range = rangeField(form, {u"Date &From"_s, u"dtpEQUTDateF"_s, u"dtpEQUTDateT"_s});
    txtEQUTUnitNo = valueField(form, {u"txtEQUTUnitNo"_s, u"&Unit #"_s, u"cmdEQUTUnitNo"_s,
                                      picklists::units(), Pick::One});
    txtEQUTType = valueField(form, {u"txtEQUTType"_s, u"Equipment T&ype"_s, u"cmdEQUTType"_s,
                                    picklists::equipmentTypes()});
    txtEQUTCrew = valueField(
        form, {u"txtEQUTCrew"_s, u"&Crew Number"_s, u"cmdEQUTCrew"_s, picklists::crews()});
    endFields(form);
    connect(chkEquipment, &QCheckBox::toggled, this, &frmEquipmentUtilization::chkEquipment_Click);
    chkEquipment_Click();
}

void frmEquipmentUtilization::chkEquipment_Click()
{
    const bool single = chkEquipment->isChecked();
    setUsable(txtEQUTUnitNo, single);
    setUsable(txtEQUTType, !single);
    setUsable(txtEQUTCrew, !single);
}

std::optional<catalogue::Request> frmEquipmentUtilization::request() const
{
    if (!chkEquipment->isChecked())
        return filters::request(filters::Utilization{
            .read = m_range.dates(), .types = txtEQUTType->text(), .crews = txtEQUTCrew->text()});
    if (!txtEQUTUnitNo->text().trimmed().isEmpty())
        return filters::request(
            filters::SingleUtilization{.read = m_range.dates(), .units = txtEQUTUnitNo->text()});
    // This report follows one machine from reading to reading, so it can't be asked for all.
    base::showCritical(u"Please choose or enter a Unit #."_s);
    txtEQUTUnitNo->setFocus();
    return {};
}
