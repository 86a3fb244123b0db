#pragma once

#include "core/RecordFields.h"

#include <QDateTime>
#include <QString>

/// One machine, vehicle or other asset that services are scheduled on. A lookup holds the item's
/// number, 0 for none; a date that was not given is the zero date.
struct clsEquipment
{
    qint64 EquipmentID = 0; ///< made when Add is pressed
    QString EquipmentName;
    qint64 EquipmentType = 0;  ///< lookup list 4
    qint64 EquipmentMake = 0;  ///< a child of the type
    qint64 EquipmentModel = 0; ///< a child of the make
    QString Capacity;
    QString EquipmentYear;     ///< chosen from a list
    QString EquipmentSerialNo; ///< unique when not blank
    QString UnitNo;            ///< the number shown to users; unique
    QDateTime InstalledDate;   ///< zero date when not given
    QString AttachedTo;
    qint64 SiteID = 0;                      ///< 0 for none
    qint64 LocationID = 0;                  ///< of the site
    qint64 CrewID = 0;                      ///< 0 for none
    QString Inactive = QStringLiteral("0"); ///< or "1"
    int LeaseOwnedLeased = 0;               ///< 0 blank, 1 "Owned", 2 "Leased", 3 "Loan"
    qint64 LeaseCompany = 0;                ///< lookup list 6
    QDateTime LeaseStartDate;
    QDateTime LeaseEndDate;
    qint64 LeasePeriod =
        0; ///< 0 blank, 1 "Hours", 2 "Miles", 3 "Days", 4 "Weeks", 5 "Months", 6 "Years"
    qint64 LeaseInterval = 0; ///< in units of the period
    double LeasePayment = 0;
    QDateTime WarrantyStartDate;
    QDateTime WarrantyEndDate;
    qint64 WarrantyPeriod = 0; ///< as LeasePeriod
    qint64 WarrantyInterval = 0;
    QString Notes;
    QString UserDefined1;
    QString UserDefined2;
    QString UserDefined3;
    QString UserDefined4;
    QString UserDefined5;
    QString UserDefined6;
    QString UserDefined7;
    QString UserDefined8;
    QString UserDefined9;
    QString UserDefined10;
    QString EngineSize;
    qint64 EngineMake = 0;  ///< lookup list 17
    qint64 EngineModel = 0; ///< a child of the engine make
    QString EngineSerialNo;
    QString Cycle;              ///< chosen from a fixed list
    qint64 EngineFuelType = 0;  ///< lookup list 5
    int VehicleOwnedLeased = 0; ///< carried and stored; no screen sets it
    qint64 BeginingHub = 0;     ///< hub reading at the start
    QString StateLicensed;      ///< an item of a state list, as text
    QString LicenseNo;
    QString StickerNumber;
    QDateTime LicenseRenewalDate;
    int PermanentLicense = 0; ///< 0 blank, 1 "Yes", 2 "No"
    QDateTime InspectionDate;
    qint64 VehicleFuelType = 0; ///< lookup list 5
    QString Tyre;               ///< front tyres
    QString Rear_Tires;
    QString Weight;
    QString Vin;
    qint64 Body = 0;              ///< lookup list 13
    qint64 Chassis = 0;           ///< lookup list 14
    qint64 Trans = 0;             ///< lookup list 16
    qint64 VehicleEngineType = 0; ///< lookup list 15
    QString VehicleEngineNo;
    QString VehicleColor;
    QString VehicleEngineModel;
    qint64 SupplierID = 0;
    QString SupplierPartNo;
    qint64 ManufactureID = 0; ///< lookup list 8
    QString ManufacturePartNo;
    QDateTime Acquisitiondate; ///< its year feeds the depreciation
    double AcquisitionCost = 0;
    double AdditionalCost = 0;
    QString PurchaseNotes;
    double Totalcost = 0; ///< what is depreciated; typed, not derived
    double SalvageValue = 0;
    int LifeYears = 0; ///< life of the asset in years
    QString Bar_Code;

    bool operator==(const clsEquipment &) const = default;
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsEquipment>> fields();
};
