#include "equipment/clsEquipment_Manager.h"

#include "core/Permission.h"
#include "core/RecordStore.h"
#include "core/Usage.h"
#include "equipment/DocumentStore.h"
#include "platform/base/Trapped.h"

namespace {

constexpr const char *Module = "Class Equipment manager";

/// In the order of the table, which is that of the insert.
constexpr record::Field<clsEquipment> Fields[] = {
    {u"EquipmentID", &clsEquipment::EquipmentID},
    {u"EquipmentName", &clsEquipment::EquipmentName},
    {u"EquipmentType", &clsEquipment::EquipmentType},
    {u"EquipmentMake", &clsEquipment::EquipmentMake},
    {u"EquipmentModel", &clsEquipment::EquipmentModel},
    {u"Capacity", &clsEquipment::Capacity},
    {u"EquipmentYear", &clsEquipment::EquipmentYear},
    {u"Bar_Code", &clsEquipment::Bar_Code},
    {u"EquipmentSerialNo", &clsEquipment::EquipmentSerialNo},
    {u"UnitNo", &clsEquipment::UnitNo},
    {u"InstalledDate", &clsEquipment::InstalledDate},
    {u"AttachedTo", &clsEquipment::AttachedTo},
    {u"SiteID", &clsEquipment::SiteID},
    {u"LocationID", &clsEquipment::LocationID},
    {u"CrewID", &clsEquipment::CrewID},
    {u"Inactive", &clsEquipment::Inactive},
    {u"LeaseOwnedLeased", &clsEquipment::LeaseOwnedLeased},
    {u"LeaseCompany", &clsEquipment::LeaseCompany},
    {u"LeaseStartDate", &clsEquipment::LeaseStartDate},
    {u"LeaseEndDate", &clsEquipment::LeaseEndDate},
    {u"LeasePeriod", &clsEquipment::LeasePeriod},
    {u"LeaseInterval", &clsEquipment::LeaseInterval},
    {u"LeasePayment", &clsEquipment::LeasePayment},
    {u"WarrantyStartDate", &clsEquipment::WarrantyStartDate},
    {u"WarrantyEndDate", &clsEquipment::WarrantyEndDate},
    {u"WarrantyPeriod", &clsEquipment::WarrantyPeriod},
    {u"WarrantyInterval", &clsEquipment::WarrantyInterval},
    {u"Notes", &clsEquipment::Notes},
    {u"UserDefined1", &clsEquipment::UserDefined1},
    {u"UserDefined2", &clsEquipment::UserDefined2},
    {u"UserDefined3", &clsEquipment::UserDefined3},
    {u"UserDefined4", &clsEquipment::UserDefined4},
    {u"UserDefined5", &clsEquipment::UserDefined5},
    {u"UserDefined6", &clsEquipment::UserDefined6},
    {u"UserDefined7", &clsEquipment::UserDefined7},
    {u"UserDefined8", &clsEquipment::UserDefined8},
    {u"UserDefined9", &clsEquipment::UserDefined9},
    {u"UserDefined10", &clsEquipment::UserDefined10},
    {u"EngineSize", &clsEquipment::EngineSize},
    {u"EngineMake", &clsEquipment::EngineMake},
    {u"EngineModel", &clsEquipment::EngineModel},
    {u"EngineSerialNo", &clsEquipment::EngineSerialNo},
    {u"Cycle", &clsEquipment::Cycle},
    {u"EngineFuelType", &clsEquipment::EngineFuelType},
    {u"VehicleOwnedLeased", &clsEquipment::VehicleOwnedLeased},
    {u"BeginingHub", &clsEquipment::BeginingHub},
    {u"StateLicensed", &clsEquipment::StateLicensed},
    {u"LicenseNo", &clsEquipment::LicenseNo},
    {u"StickerNumber", &clsEquipment::StickerNumber},
    {u"LicenseRenewalDate", &clsEquipment::LicenseRenewalDate},
    {u"PermanentLicense", &clsEquipment::PermanentLicense},
    {u"InspectionDate", &clsEquipment::InspectionDate},
    {u"VehicleFuelType", &clsEquipment::VehicleFuelType},
    {u"Tyre", &clsEquipment::Tyre},
    {u"Rear_Tires", &clsEquipment::Rear_Tires},
    {u"Weight", &clsEquipment::Weight},
    {u"Vin", &clsEquipment::Vin},
    {u"Body", &clsEquipment::Body},
    {u"Chassis", &clsEquipment::Chassis},
    {u"Trans", &clsEquipment::Trans},
    {u"VehicleEngineType", &clsEquipment::VehicleEngineType},
    {u"VehicleEngineNo", &clsEquipment::VehicleEngineNo},
    {u"VehicleColor", &clsEquipment::VehicleColor},
    {u"VehicleEngineModel", &clsEquipment::VehicleEngineModel},
    {u"SupplierID", &clsEquipment::SupplierID},
    {u"SupplierPartNo", &clsEquipment::SupplierPartNo},
    {u"ManufactureID", &clsEquipment::ManufactureID},
    {u"ManufacturePartNo", &clsEquipment::ManufacturePartNo},
    {u"Acquisitiondate", &clsEquipment::Acquisitiondate},
    {u"AcquisitionCost", &clsEquipment::AcquisitionCost},
    {u"AdditionalCost", &clsEquipment::AdditionalCost},
    {u"PurchaseNotes", &clsEquipment::PurchaseNotes},
    {u"Totalcost", &clsEquipment::Totalcost},
    {u"SalvageValue", &clsEquipment::SalvageValue},
    {u"LifeYears", &clsEquipment::LifeYears},
};

constexpr QStringView UsedParts =
    u"Delete FROM tblWoPartHistory where  tblWoPartHistory.ServiceusedID In( Select ServiceUsedID "
    "from tblWOServiceUsedHistory where EquipmentID = ?)";
/// Left behind, they would keep each part from being deleted or renumbered for good.
constexpr QStringView PlannedParts =
    u"Delete from tblServiceUsedPart where ServiceUsedID in (Select ServiceUsedID from "
    "tblServiceUsed where EquipmentID = ?)";

/// What goes with a machine, in an order that matters: parts are found through their services, so
/// they go first.
constexpr QStringView Cascade[] = {
    u"Delete from tblEquipment where EquipmentID = ?",
    u"Delete from tblEquipmentDepreciation where EquipmentID = ?",
    u"Delete from tblEquipmentCrewHistory where EquipmentID = ?",
    UsedParts,
    u"Delete from tblWOServiceUsedHistory where EquipmentID = ?",
    PlannedParts,
    u"Delete from tblServiceUSed where equipmentID = ?",
    u"Delete from tblEquipmentpart where equipmentID = ?",
    u"Delete from tblEquipmentCount where equipmentID = ?",
    u"Delete from tblEquipmentImage where equipmentID = ?",
    u"Delete from tblEquipmentDocument where equipmentID = ?",
    u"Delete from tblEquipmentScan where EquipmentID = ?",
};

} // namespace

std::span<const record::Field<clsEquipment>> clsEquipment::fields()
{
    return Fields;
}

clsEquipment clsEquipment_Manager::fromRow(const db::Row &row)
{
    return record::load<clsEquipment>(row, Fields);
}

bool clsEquipment_Manager::SaveRecord(const clsEquipment &Equipment, ::Mode Mode,
                                      const std::optional<clsEquipment> &Shown) const
{
    return base::trapped(Module, "SaveRecord", false, [&] {
        rights::demand(rights::Machines.toSave(Mode));
        clsEquipment stored = Equipment;
        stored.UnitNo = stored.UnitNo.trimmed();
        record::save<clsEquipment>(record::Store::Data, u"tblEquipment", Fields, stored, Shown,
                                   Mode, u"EquipmentID", stored.EquipmentID, fromRow);
        return true;
    });
}

bool clsEquipment_Manager::DeleteRecord(qint64 EquipmentID) const
{
    return base::trapped(Module, "DeleteRecord", false, [&] {
        rights::demand(rights::Machines.remove);
        TransactionScope transaction;
        for (const QStringView statement : Cascade)
            gcnData->Execute(statement.toString(), {EquipmentID});
        transaction.commit();
        // Behind the commit: files can't be brought back, and a machine that stays must keep them.
        documents::removeFolder(EquipmentID);
        return true;
    });
}

QString clsEquipment_Manager::CanDeleteEquipment(qint64 EquipmentID) const
{
    static constexpr UsageTest Tests[] = {{u"tblWorkOrder", u"EquipmentID", u"WorkOrder"}};
    return usageWord(Tests, EquipmentID);
}
