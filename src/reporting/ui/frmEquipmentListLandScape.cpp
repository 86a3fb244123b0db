#include "reporting/ui/frmEquipmentListLandScape.h"

#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

frmEquipmentListLandScape::frmEquipmentListLandScape(QWidget *parent)
    : FilterScreen(u"frmEquipmentListLandScape"_s, u"Equipment List"_s, "frmEquipmentListLandScape",
                   parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"List of Equipments"_s, u"fraEquipmentList"_s);
    txtType = valueField(
        form, {u"txtType"_s, u"Equipment T&ype"_s, u"cmdType"_s, picklists::equipmentTypes()});
    txtCrew = valueField(form, {u"txtCrew"_s, u"&Crew Number"_s, u"cmdCrew"_s, picklists::crews()});
    endFields(form);
}

std::optional<catalogue::Request> frmEquipmentListLandScape::request() const
{
    return filters::wideListRequest(txtType->text(), txtCrew->text());
}
