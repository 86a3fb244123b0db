#pragma once

#include "equipment/ui/RecordPage.h"

/// What a machine has as a vehicle, with its licence.
class VehiclePage final : public RecordPage
{
    Q_OBJECT

public:
    explicit VehiclePage(MachineFrame &frame, QWidget *parent = nullptr);

    void RefreshCombo(const QString &listName) override;

private:
    void buildLicence(input::FormBuilder &form);
    void buildVehicle(input::FormBuilder &form);

    input::IdCombo *cboState = nullptr;
    input::IdCombo *cboPermanentLicense = nullptr;
    input::IdCombo *cboVehicleFuelType = nullptr;
    input::IdCombo *cboBody = nullptr;
    input::IdCombo *cboChassis = nullptr;
    input::IdCombo *cboTrans = nullptr;
    input::IdCombo *cboEngineType = nullptr;
};
