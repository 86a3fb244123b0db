#include "reporting/ui/frmEquipmentListReport.h"

#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

frmEquipmentListReport::frmEquipmentListReport(QWidget *parent)
    : FilterScreen(u"frmEquipmentListReport"_s, u"Equipment List"_s, "frmEquipmentListReport",
                   parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"List of Equipments"_s, u"fraEquipmentList"_s);
    auto *versions = new input::IdCombo(this);
    versions->setObjectName(u"cmbversion"_s);
    versions->add({u"Version 1"_s, u"Version 2"_s, u"Version 3"_s, u"Version 4"_s, u"Version 5"_s,
                   u"Version 6"_s});
    cmbversion = versions;
    form.field(u"&Report Version"_s, cmbversion);
    txtType = valueField(
        form, {u"txtType"_s, u"Equipment T&ype"_s, u"cmdType"_s, picklists::equipmentTypes()});
    txtCrew = valueField(form, {u"txtCrew"_s, u"&Crew Number"_s, u"cmdCrew"_s, picklists::crews()});
    txtSite = valueField(form, {u"txtSite"_s, u"&Site"_s, u"cmdSite"_s, picklists::sites()});
    chkgrouponsite = form.checkBox(u"chkgrouponsite"_s, u"&Group On Site"_s);
    chkInactive = form.checkBox(u"chkInactive"_s, u"Show &Inactive"_s);
    endFields(form);
    connect(cmbversion, &QComboBox::currentIndexChanged, this,
            &frmEquipmentListReport::cmbversion_Click);
    cmbversion_Click();
}

filters::ListVersion frmEquipmentListReport::version() const
{
    // The choices stand in the order of the versions, which count from 1.
    return static_cast<filters::ListVersion>(cmbversion->currentIndex() + 1);
}

void frmEquipmentListReport::cmbversion_Click()
{
    // Which fields a version takes notice of is known to what makes its clause; here they are only
    // greyed, and keep what was typed for another version.
    const filters::ListFields fields = filters::fieldsOf(version());
    setUsable(txtType, fields.types);
    setUsable(txtCrew, fields.types);
    setUsable(txtSite, fields.sites);
    chkgrouponsite->setEnabled(fields.groupOnSite);
}

std::optional<catalogue::Request> frmEquipmentListReport::request() const
{
    return filters::request(filters::EquipmentList{.version = version(),
                                                   .types = txtType->text(),
                                                   .crews = txtCrew->text(),
                                                   .sites = txtSite->text(),
                                                   .groupOnSite = chkgrouponsite->isChecked(),
                                                   .inactive = chkInactive->isChecked()});
}
