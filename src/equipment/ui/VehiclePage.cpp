#include "equipment/ui/VehiclePage.h"

#include "core/ui/LookupCombo.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

VehiclePage::VehiclePage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    input::FormBuilder form(this);
    form.beginColumns();
    buildLicence(form);
    form.nextColumn();
    buildVehicle(form);
    form.endColumns();
    form.finish();
    loadFixedList(*cboPermanentLicense, {u"Yes"_s, u"No"_s});
    // By the same road as after an editor, so that lists are filled in one place only.
    for (const auto *list : {"STATE", "FUELTYPE", "BODY", "CHASSIS", "TRANS", "ENGINETYPE"})
        RefreshCombo(QString::fromLatin1(list));
}

void VehiclePage::buildLicence(input::FormBuilder &form)
{
    const auto date = [&](const QString &name, const QString &label,
                          QDateTime clsEquipment::*member) {
        input::DateInput *box = form.dateField(name, label);
        box->checkOnLeave();
        fields().add(box, member);
    };
    fields().add(form.digitsField(u"txtBeginingHub"_s, u"Be&gining Hub:"_s, 9),
                 &clsEquipment::BeginingHub);
    cboState = form.comboField(u"cboState"_s, u"S&tate Licensed:"_s);
    fields().addIdAsText(cboState, &clsEquipment::StateLicensed);
    editorButton(form, u"cmdState"_s, u"Edit the states"_s, u"STATE"_s,
                 [this] { ShowIndicatorDetail(LookupList::State, cboState->id()); });
    fields().add(form.textField(u"txtLicenseNo"_s, u"&License No:"_s, 30),
                 &clsEquipment::LicenseNo);
    fields().add(form.textField(u"txtStickerNumber"_s, u"Stic&ker Number:"_s, 30),
                 &clsEquipment::StickerNumber);
    date(u"datLicenseRenewal"_s, u"License Rene&wal Date:"_s, &clsEquipment::LicenseRenewalDate);
    cboPermanentLicense = form.comboField(u"cboPermanentLicense"_s, u"Per&manent License:"_s);
    fields().add(cboPermanentLicense, &clsEquipment::PermanentLicense);
    date(u"datInspection"_s, u"&Inspection Date:"_s, &clsEquipment::InspectionDate);
    cboVehicleFuelType = form.comboField(u"cboVehicleFuelType"_s, u"F&uel Type:"_s);
    fields().add(cboVehicleFuelType, &clsEquipment::VehicleFuelType);
    editorButton(form, u"cmdVehicleFuelType"_s, u"Edit the fuel types"_s, u"FUELTYPE"_s,
                 [this] { ShowIndicatorDetail(LookupList::FuelType, cboVehicleFuelType->id()); });
    fields().add(form.textField(u"txtTyre"_s, u"Front Tires:"_s, 60), &clsEquipment::Tyre);
    fields().add(form.textField(u"txtRear_Tires"_s, u"Rear Tires:"_s, 60),
                 &clsEquipment::Rear_Tires);
}

void VehiclePage::buildVehicle(input::FormBuilder &form)
{
    // A list with the button that edits it; both go by the same lookup list.
    const auto lookup = [&](const QString &name, const QString &label, qint64 clsEquipment::*member,
                            const QString &button, const QString &tip, const QString &listName,
                            qint64 list) {
        input::IdCombo *combo = form.comboField(name, label);
        fields().add(combo, member);
        editorButton(form, button, tip, listName,
                     [list, combo] { ShowIndicatorDetail(list, combo->id()); });
        return combo;
    };
    fields().add(form.textField(u"txtWeight"_s, u"Weig&ht:"_s, 30), &clsEquipment::Weight);
    fields().add(form.textField(u"txtVin"_s, u"&VIN:"_s, 40), &clsEquipment::Vin);
    cboBody = lookup(u"cboBody"_s, u"&Body:"_s, &clsEquipment::Body, u"cmdBody"_s,
                     u"Edit the bodies"_s, u"BODY"_s, LookupList::VehicleBody);
    cboChassis = lookup(u"cboChassis"_s, u"Chassis:"_s, &clsEquipment::Chassis, u"cmdChassis"_s,
                        u"Edit the chassis"_s, u"CHASSIS"_s, LookupList::VehicleChassis);
    cboTrans = lookup(u"cboTrans"_s, u"Tra&nsmission:"_s, &clsEquipment::Trans, u"cmdTrans"_s,
                      u"Edit the transmissions"_s, u"TRANS"_s, LookupList::VehicleTransmission);
    cboEngineType = lookup(u"cboEngineType"_s, u"&Engine Type:"_s, &clsEquipment::VehicleEngineType,
                           u"cmdEngineType"_s, u"Edit the engine types"_s, u"ENGINETYPE"_s,
                           LookupList::VehicleEngineType);
    fields().add(form.textField(u"txtVehicleEngineNo"_s, u"Engine N&o:"_s, 50),
                 &clsEquipment::VehicleEngineNo);
    fields().add(form.textField(u"txtVehicleEngineModel"_s, u"Engine Model:"_s, 60),
                 &clsEquipment::VehicleEngineModel);
    fields().add(form.textField(u"txtVehicleColor"_s, u"Color:"_s, 30),
                 &clsEquipment::VehicleColor);
}

void VehiclePage::RefreshCombo(const QString &listName)
{
    const auto rebuild = [](input::IdCombo *combo, qint64 list) {
        rebuildKeepingChoice(*combo, [=] { loadLookupList(*combo, list); });
    };
    if (listName == u"STATE")
        rebuildKeepingChoice(*cboState, [this] { loadAllStates(*cboState); });
    else if (listName == u"FUELTYPE")
        rebuild(cboVehicleFuelType, LookupList::FuelType);
    else if (listName == u"BODY")
        rebuild(cboBody, LookupList::VehicleBody);
    else if (listName == u"CHASSIS")
        rebuild(cboChassis, LookupList::VehicleChassis);
    else if (listName == u"TRANS")
        rebuild(cboTrans, LookupList::VehicleTransmission);
    else if (listName == u"ENGINETYPE")
        rebuild(cboEngineType, LookupList::VehicleEngineType);
}
