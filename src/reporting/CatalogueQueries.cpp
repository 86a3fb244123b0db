#include "reporting/CatalogueQueries.h"

#include "core/Periods.h"

#include <array>

namespace catalogue::queries {

using namespace Qt::StringLiterals;

namespace {

/// A table and its joins, in the parentheses that the dialect's joins stand in.
QString joined(const QString &table, const QStringList &joins)
{
    QString text = table;
    for (qsizetype index = 0; index < joins.size(); ++index) {
        text += u' ' + joins[index];
        if (index + 1 < joins.size())
            text = u'(' + text + u')';
    }
    return u" FROM "_s + text;
}

/// A join of the lookup list's item that a column points to.
QString lookedUp(const QString &alias, const QString &column)
{
    return u"LEFT JOIN tblIndicator AS %1 ON %2 = %1.ItemID"_s.arg(alias, column);
}

// A machine's type is joined under the table's own name, since filters speak of it so.
const QString Type =
    u"LEFT JOIN tblIndicator ON tblEquipment.EquipmentType = tblIndicator.ItemID"_s;
const QString Make = lookedUp(u"MakeItem"_s, u"tblEquipment.EquipmentMake"_s);
const QString Model = lookedUp(u"ModelItem"_s, u"tblEquipment.EquipmentModel"_s);
const QString Site = u"LEFT JOIN tblSite ON tblEquipment.SiteID = tblSite.SiteID"_s;
const QString Location =
    u"LEFT JOIN tblLocation ON tblEquipment.LocationID = tblLocation.LocationID"_s;
const QString Crew = u"LEFT JOIN tblCrew ON tblEquipment.CrewID = tblCrew.CrewID"_s;
const QString MachineOfService =
    u"LEFT JOIN tblEquipment ON tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID"_s;
const QString PartsOfService = u"LEFT JOIN tblWoPartHistory ON "
                               "tblWOServiceUsedHistory.ServiceUsedID = "
                               "tblWoPartHistory.ServiceusedID"_s;

/// A number and a name in one; a machine without a crew shows nothing.
const QString CrewText =
    u"IIf(tblCrew.CrewID<>0, cstr(tblCrew.CrewNumber) & ' - ' & tblCrew.Description, '')"_s;

QString machines(const QString &columns)
{
    return u"SELECT "_s + columns +
           joined(u"tblEquipment"_s, {Type, Make, Model, Site, Location, Crew});
}

const QString CategoryOfPart =
    u"LEFT JOIN tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID"_s;
const QString SupplierOfPart =
    u"LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID"_s;

const QString PartsUsed = u"INNER JOIN tblWoPartHistory ON tblWOServiceUsedHistory.ServiceUsedID = "
                          "tblWoPartHistory.ServiceusedID"_s;

} // namespace

/// The columns of the plain lists of machines, and more of them.
QString machineList(const QString &more)
{
    return machines(u"tblEquipment.EquipmentID, tblEquipment.UnitNo, tblEquipment.EquipmentName, "
                    "tblEquipment.EquipmentYear, tblEquipment.Inactive, "
                    "tblIndicator.ItemName AS EquipmentType, MakeItem.ItemName AS EquipmentMake, "
                    "ModelItem.ItemName AS EquipmentModel, tblSite.SiteName, "
                    "tblLocation.LocationName, tblCrew.CrewNumber, tblCrew.Description"_s +
                    more);
}

/// The columns of the lists by crew; one of them differs.
QString crewList(const QString &own)
{
    return machines(
        u"tblLocation.LocationName, tblEquipment.UnitNo, tblSite.SiteName, "
        "tblEquipment.EquipmentName, MakeItem.ItemName AS EquipmentMake, "
        "ModelItem.ItemName AS EquipmentModel, %1 AS Description, "
        "tblEquipment.EquipmentSerialNo, tblEquipment.%2, tblEquipment.VIN, tblCrew.CrewNumber, "
        "tblEquipment.Inactive"_s.arg(CrewText, own));
}

QString version5()
{
    return machines(
        u"tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipment.EquipmentYear, "
        "tblEquipment.UserDefined1 AS INS, tblCrew.Description AS CrewDescription, "
        "tblEquipment.AcquisitionCost, tblEquipment.AcquisitionDate, tblEquipment.Vin, "
        "tblEquipment.EquipmentSerialNo, tblEquipment.LicenseNo, tblEquipment.StickerNumber, "
        "ModelItem.ItemName AS EquipmentModel, tblEquipment.UserDefined4 AS Title, "
        "tblEquipment.LicenseRenewalDate, tblSite.SiteName, tblEquipment.Inactive"_s);
}

/// Grouped; a filter follows the grouping, so all that it may speak of is grouped by.
QString version6()
{
    return u"SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblEquipmentCount.CountType, "
           "Max(tblEquipmentCount.ChangeDate) AS LastDate, "
           "Max(tblEquipmentCount.CountValue) AS LastCount, MakeItem.ItemName AS EquipmentMake, "
           "ModelItem.ItemName AS EquipmentModel, tblCrew.CrewNumber, tblCrew.Description, "
           "tblEquipment.Inactive"_s +
           joined(u"tblEquipment"_s, {u"INNER JOIN tblEquipmentCount ON tblEquipment.EquipmentID = "
                                      "tblEquipmentCount.EquipmentID"_s,
                                      Type, Make, Model, Crew}) +
           u" GROUP BY tblEquipment.EquipmentID, tblEquipment.UnitNo, tblEquipment.EquipmentName, "
           "tblEquipment.Inactive, tblIndicator.ItemName, tblEquipmentCount.CountType, "
           "MakeItem.ItemName, ModelItem.ItemName, tblCrew.CrewNumber, tblCrew.Description"_s;
}

/// What is looked up by ten joins, and by a subquery what those leave out.
QString machineDetails()
{
    const auto named = [](const QString &alias, const QString &id) {
        return u", (SELECT %1Item.ItemName FROM tblIndicator AS %1Item WHERE %1Item.ItemID = %2) "
               "AS %1Name"_s.arg(alias, id);
    };
    QString columns =
        u"SELECT tblEquipment.EquipmentID, UnitNo, EquipmentName, EquipmentYear, Capacity, "
        "tblEquipment.Bar_Code, EquipmentSerialNo, InstalledDate, AttachedTo, Inactive, "
        "LeaseOwnedLeased, LeaseStartDate, LeaseEndDate, LeasePeriod, LeaseInterval, "
        "LeasePayment, WarrantyStartDate, WarrantyEndDate, WarrantyPeriod, WarrantyInterval, "
        "tblEquipment.Notes, EngineSize, EngineSerialNo, Cycle, VehicleOwnedLeased, BeginingHub, "
        "StateLicensed, tblEquipment.LicenseNo, StickerNumber, LicenseRenewalDate, "
        "PermanentLicense, InspectionDate, Tyre, Rear_Tires, Weight, Vin, VehicleEngineNo, "
        "VehicleColor, VehicleEngineModel, SupplierPartNo, ManufacturePartNo, Acquisitiondate, "
        "AcquisitionCost, AdditionalCost, PurchaseNotes, Totalcost, SalvageValue, LifeYears, "
        "SiteName, LocationName, CrewNumber, tblCrew.Description AS CrewDescription, "
        "tblSupplier.Name AS SupplierName, tblIndicator.ItemName AS EquipmentTypeName"_s;
    for (int field = 1; field <= 10; ++field)
        columns += u", UserDefined%1"_s.arg(field);
    columns += named(u"State"_s, u"Val(tblEquipment.StateLicensed)"_s) +
               named(u"VehicleFuel"_s, u"tblEquipment.VehicleFuelType"_s) +
               named(u"VehicleEngineType"_s, u"tblEquipment.VehicleEngineType"_s);
    QStringList joins{Type};
    for (const auto &[alias, column] : {std::pair(u"EquipmentMake"_s, u"EquipmentMake"_s),
                                        {u"EquipmentModel"_s, u"EquipmentModel"_s},
                                        {u"Manufacture"_s, u"ManufactureID"_s},
                                        {u"LeaseCompany"_s, u"LeaseCompany"_s},
                                        {u"EngineMake"_s, u"EngineMake"_s},
                                        {u"EngineModel"_s, u"EngineModel"_s},
                                        {u"EngineFuel"_s, u"EngineFuelType"_s},
                                        {u"Body"_s, u"Body"_s},
                                        {u"Chassis"_s, u"Chassis"_s},
                                        {u"Trans"_s, u"Trans"_s}}) {
        columns += u", %1Item.ItemName AS %1Name"_s.arg(alias);
        joins.append(lookedUp(alias + u"Item"_s, u"tblEquipment."_s + column));
    }
    joins += {Site, Location, Crew,
              u"LEFT JOIN tblSupplier ON tblEquipment.SupplierID = tblSupplier.SupplierID"_s};
    return columns + joined(u"tblEquipment"_s, joins);
}

QString crewHistory()
{
    return u"SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, "
           "tblEquipmentCrewHistory.CrewNumber, tblEquipmentCrewHistory.CrewDescription, "
           "tblEquipmentCrewHistory.CrewDate, tblEquipment.Inactive FROM tblEquipmentCrewHistory "
           "LEFT JOIN tblEquipment ON tblEquipmentCrewHistory.EquipmentID = "
           "tblEquipment.EquipmentID"_s;
}

/// Each posted service of a machine once, with the first of its repeated costs and the sum of its
/// parts; then the sums of each machine, and of those that share unit and name. Texts come in only
/// where there is a row for each machine: rows in large numbers are grouped by keys alone.
QString expenses()
{
    const QString services =
        u"(SELECT tblWOServiceUsedHistory.EquipmentID, tblWOServiceUsedHistory.ServiceUsedID, "
        "First(tblWOServiceUsedHistory.CostEstimate) AS LaborCost, "
        "Sum(tblWoPartHistory.Price * tblWoPartHistory.QuantityUsed) AS PartCost, "
        "First(Hour(tblWOServiceUsedHistory.workhrs)) AS hrs, "
        "First(Minute(tblWOServiceUsedHistory.workhrs)) AS mins"_s +
        joined(u"tblWOServiceUsedHistory"_s, {PartsOfService}) +
        u" GROUP BY tblWOServiceUsedHistory.EquipmentID, tblWOServiceUsedHistory.ServiceUsedID) "
        "AS PostedService"_s;
    const QString machines =
        u"(SELECT PostedService.EquipmentID, Sum(PostedService.LaborCost) AS LaborCost, "
        "Sum(PostedService.PartCost) AS PartCost, Sum(PostedService.hrs) AS hrs, "
        "Sum(PostedService.mins) AS mins FROM %1 GROUP BY PostedService.EquipmentID) AS "
        "PostedWork"_s.arg(services);
    return u"SELECT EquipmentExpense.UnitNo, EquipmentExpense.EquipmentName, "
           "Sum(EquipmentExpense.LaborCost) AS [Labor Cost], "
           "Sum(EquipmentExpense.PartCost) AS [Part Cost], "
           "Sum(EquipmentExpense.hrs) AS ServiceHrs, Sum(EquipmentExpense.mins) AS ServiceMin, "
           "First(EquipmentExpense.TypeName) AS EquipmentType, "
           "First(EquipmentExpense.Inactive) AS MachineInactive FROM (SELECT tblEquipment.UnitNo, "
           "tblEquipment.EquipmentName, tblEquipment.Inactive, tblIndicator.ItemName AS TypeName, "
           "PostedWork.LaborCost, PostedWork.PartCost, PostedWork.hrs, PostedWork.mins"_s +
           joined(machines, {u"INNER JOIN tblEquipment ON PostedWork.EquipmentID = "
                             "tblEquipment.EquipmentID"_s,
                             Type}) +
           u") AS EquipmentExpense"_s;
}

QString utilization()
{
    const QString count =
        u"(Max(tblEquipmentCount.CountValue) - Min(tblEquipmentCount.CountValue))"_s;
    const QString days =
        u"DateDiff('d', Min(tblEquipmentCount.ChangeDate), Max(tblEquipmentCount.ChangeDate))"_s;
    const QString perDay = u"IIf(%2 = 0, 0, %1 / %2)"_s.arg(count, days);
    return u"SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, tblEquipment.EquipmentID, "
           "%1 AS [Count], %2 AS NoofDays, %3 AS perDay, %3 / 24 AS Utilization, "
           "tblCrew.CrewNumber, tblIndicator.ItemName AS EquipmentType, "
           "First(tblEquipment.Inactive) AS MachineInactive"_s.arg(count, days, perDay) +
           joined(u"tblEquipmentCount"_s,
                  {u"INNER JOIN tblEquipment ON tblEquipmentCount.EquipmentID = "
                   "tblEquipment.EquipmentID"_s,
                   Type, Crew}) +
           u" Where tblEquipmentCount.CountType = 'Hours'"_s;
}

/// One line for each reading of a machine, beside the reading before it. Of two readings on one
/// date the lower one came first; the days between them are 0, and the division fails. The readings
/// before are each the first of an index, which "top 1" leaves at once and a maximum would not.
/// Inside a table of their own they would keep the engine from finding the machine first.
QString utilizationSingle()
{
    const QString before = u"(SELECT TOP 1 b.%1 FROM tblEquipmentCount AS b WHERE b.EquipmentID = "
                           "a.EquipmentID and %2 ORDER BY b.EquipmentID DESC, b.%1 DESC)"_s;
    const QString date =
        before.arg(u"ChangeDate"_s, u"b.ChangeDate <= a.ChangeDate and (b.ChangeDate < "
                                    "a.ChangeDate or b.CountValue < a.CountValue)"_s);
    const QString count = before.arg(u"CountValue"_s, u"b.CountValue < a.CountValue"_s);
    const QString days = u"DateDiff('d', %1, a.ChangeDate)"_s.arg(date);
    const QString change = u"(a.CountValue - %1)"_s.arg(count);
    return u"SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, a.CountType, a.ChangeDate, "
           "a.CountValue, %1 AS PrevDate, %2 AS PrevCount, %3 AS NoOfDays, %4 AS CountChange, "
           "%4 / %3 AS AvgUse, %4 / %3 / 24 AS Utilizarion FROM tblEquipmentCount AS a INNER JOIN "
           "tblEquipment ON a.EquipmentID = tblEquipment.EquipmentID"_s.arg(date, count, days,
                                                                            change);
}

QString dates(const QString &column)
{
    return u"SELECT EquipmentID, UnitNo, EquipmentName, %1, Inactive FROM tblEquipment"_s.arg(
        column);
}

/// The history with the sum of each service's parts, and what it is grouped by; more columns with
/// their joins.
QString history(const QString &columns, const QStringList &joins)
{
    return u"SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, "
           "tblWOServiceUsedHistory.WorkorderNo, tblWOServiceUsedHistory.ServiceUsedID, "
           "tblWOServiceUsedHistory.ServiceName, tblWOServiceUsedHistory.CompleteDate, "
           "tblWOServiceUsedHistory.CostEstimate, tblWOServiceUsedHistory.Workhrs, "
           "tblWOServiceUsedHistory.CountValue, tblWOServiceUsedHistory.Skip, "
           "Sum(Price*QuantityUsed) AS PartCost"_s +
           columns +
           joined(u"tblWOServiceUsedHistory"_s,
                  QStringList{MachineOfService, PartsOfService} + joins);
}

QString historyGroup(const QString &columns)
{
    return u" GROUP BY tblEquipment.UnitNo, tblEquipment.EquipmentName, "
           "tblWOServiceUsedHistory.WorkorderNo, tblWOServiceUsedHistory.ServiceUsedID, "
           "tblWOServiceUsedHistory.ServiceName, tblWOServiceUsedHistory.CompleteDate, "
           "tblWOServiceUsedHistory.CostEstimate, tblWOServiceUsedHistory.Workhrs, "
           "tblWOServiceUsedHistory.CountValue, tblWOServiceUsedHistory.Skip"_s +
           columns;
}

QString servicesOfMachines()
{
    return u"SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblServiceUsed.Name, "
           "tblServiceUsed.EInterval, tblServiceUsed.Period, %1 AS PeriodText, "
           "tblServiceUsed.LastDatePerformed, tblServiceUsed.LastDateScheduled, "
           "tblServiceUsed.NextScheduledDate, tblServiceUsed.NextScheduledCount, "
           "tblServiceUsed.Inactive AS ServiceInactive, tblCrew.CrewNumber, "
           "tblCrew.Description AS CrewDescription, tblCostCenter.Description AS CostCenter"_s.arg(
               periods::wordExpression()) +
           joined(u"tblServiceUsed"_s,
                  {u"LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID = "
                   "tblEquipment.EquipmentID"_s,
                   u"LEFT JOIN tblCrew ON tblServiceUsed.CrewID = tblCrew.CrewID"_s,
                   u"LEFT JOIN tblCostCenter ON tblServiceUsed.CostCenterID = "
                   "tblCostCenter.CostCenterID"_s});
}

QString serviceList()
{
    return u"SELECT tblServices.JobNo, tblServices.Name, tblServices.Period, %1 AS PeriodText, "
           "tblServices.EInterval, tblServices.LaborEstimate, tblServices.CostEstimate, "
           "tblCrew.CrewNumber, tblCrew.Description, "
           "tblCostCenter.Description AS CostCenter"_s.arg(periods::wordExpression()) +
           joined(u"tblServices"_s, {u"INNER JOIN tblCrew ON tblServices.CrewID = tblCrew.CrewID"_s,
                                     u"INNER JOIN tblCostCenter ON tblServices.CostCenterID = "
                                     "tblCostCenter.CostCenterID"_s});
}

QString historyTimes()
{
    return u"SELECT tblEquipment.EquipmentName, tblEquipment.UnitNo, "
           "tblWOServiceUsedHistory.Completedate, tblWOServiceUsedHistory.StartTime, "
           "tblWOServiceUsedHistory.EndTime, tblWOServiceUsedHistory.Workhrs, "
           "tblWOServiceUsedHistory.Servicename, tblWOServiceUsedHistory.jobNo, "
           "Hour(tblWOServiceUsedHistory.Workhrs) AS shrs, "
           "Minute(tblWOServiceUsedHistory.Workhrs) AS sMin FROM tblWOServiceUsedHistory INNER "
           "JOIN tblEquipment ON tblWOServiceUsedHistory.EquipmentID = tblEquipment.EquipmentID"_s;
}

QString inventory()
{
    return u"SELECT tblPart.PartID, tblPart.Description, tblPart.Quantity, tblPart.Price, "
           "tblPart.Bin, tblPart.Inactive, tblIndicator.ItemName AS PartCategory, "
           "tblSupplier.Name AS SupplierName"_s +
           joined(u"tblPart"_s, {CategoryOfPart, SupplierOfPart});
}

QString reorder()
{
    return u"SELECT tblPart.PartID, tblPart.Description, tblPart.Quantity, "
           "QtyMax AS QtyRequired, QtyMin, tblPart.Price, tblIndicator.ItemName, "
           "tblSupplier.Name, tblPart.Inactive, (Select Sum(QuantityRequired) from tblWoPartUsed "
           "Where PartID = tblPart.PartID) AS [Committed]"_s +
           joined(u"tblPart"_s, {SupplierOfPart, CategoryOfPart}) +
           u" Where Inactive = 0 and TrackInventory=0 and "_s;
}

QString upcoming()
{
    return u"SELECT tblServiceUsedPart.PartID, tblPart.Description, "
           "tblIndicator.ItemName AS PartCategory, tblSupplier.Name AS SupplierName, "
           "Sum(tblPart.Quantity)/Count(tblServiceUsedPart.PartID) AS [Current Inventory], "
           "Sum(tblServiceUsedPart.QuantityRequired) AS [Quantity Required]"_s +
           joined(u"tblServiceUsedPart"_s,
                  {u"LEFT JOIN tblPart ON tblServiceUsedPart.PartID = tblPart.PartID"_s,
                   CategoryOfPart, SupplierOfPart,
                   u"LEFT JOIN tblServiceUsed ON tblServiceUsedPart.ServiceUsedID = "
                   "tblServiceUsed.ServiceUsedID"_s});
}

QString partUsage()
{
    return u"SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName, tblServiceUsed.Name, "
           "tblServiceUsed.JobNo, tblServiceUsedPart.PartID, "
           "tblServiceUsedPart.QuantityRequired, tblPart.Description AS PartDescription, "
           "%1 AS Crew"_s.arg(CrewText) +
           joined(u"tblServiceUsedPart"_s,
                  {u"LEFT JOIN tblServiceUsed ON tblServiceUsedPart.ServiceUsedID = "
                   "tblServiceUsed.ServiceUsedID"_s,
                   u"LEFT JOIN tblEquipment ON tblServiceUsed.EquipmentID = "
                   "tblEquipment.EquipmentID"_s,
                   u"LEFT JOIN tblCrew ON tblServiceUsed.CrewID = tblCrew.CrewID"_s,
                   u"LEFT JOIN tblPart ON tblServiceUsedPart.PartID = tblPart.PartID"_s});
}

QString partHistory()
{
    return u"SELECT tblWOServiceUsedHistory.Completedate, tblWOServiceUsedHistory.WorkorderNo, "
           "tblEquipment.UnitNo, tblWoPartHistory.PartID, tblWOServiceUsedHistory.Servicename, "
           "tblWoPartHistory.Description, tblWoPartHistory.QuantityUsed, tblWoPartHistory.Price"_s +
           joined(u"tblWOServiceUsedHistory"_s, {PartsUsed, MachineOfService});
}

/// A part that is no longer in the register keeps the description that it was posted with.
QString partHistorySummary()
{
    return u"SELECT tblWoPartHistory.PartID, IIf(tblPart.PartID is null, "
           "Max(tblWoPartHistory.Description), tblPart.Description) AS Description, "
           "Sum(tblWoPartHistory.QuantityUsed) AS Qty, tblPart.Bin"_s +
           joined(u"tblWOServiceUsedHistory"_s,
                  {PartsUsed, u"LEFT JOIN tblPart ON tblWoPartHistory.PartID = tblPart.PartID"_s});
}

QString suppliers()
{
    return u"SELECT tblSupplier.SupplierID, Name, Tax, Terms, CreditLimit, Email, WebSite, "
           "Address, Address2, City, tblIndicator.ItemName AS StateName, Zip, Phone, Fax, Atten, "
           "LicenseNo, ContactName, Notes FROM tblSupplier LEFT JOIN tblIndicator ON "
           "tblSupplier.State = tblIndicator.ItemID"_s;
}

QString employees()
{
    return u"SELECT tblEmployee.EmployeeID, FirstName, Lastname, InitialName, Gender, BirthDate, "
           "tblEmployee.Address, tblEmployee.City, tblEmployee.Zip, Phone, CellPhone, Email, "
           "Pager, LicenseNo, Skills, tblEmployee.Inactive, StateItem.ItemName AS StateName, "
           "CountryItem.ItemName AS CountryName, PositionItem.ItemName AS PositionName, "
           "tblSite.SiteName, %1 AS Crew"_s.arg(CrewText) +
           joined(u"tblEmployee"_s, {lookedUp(u"StateItem"_s, u"tblEmployee.State"_s),
                                     lookedUp(u"CountryItem"_s, u"tblEmployee.Country"_s),
                                     u"LEFT JOIN tblSite ON tblEmployee.Site = tblSite.SiteID"_s,
                                     u"LEFT JOIN tblCrew ON tblEmployee.Crew = tblCrew.CrewID"_s,
                                     lookedUp(u"PositionItem"_s, u"tblEmployee.EmpPosition"_s)});
}

QString siteJoin()
{
    return Site;
}

QString serviceCrewJoin()
{
    return u"LEFT JOIN tblCrew ON tblWOServiceUsedHistory.CrewID = tblCrew.CrewID"_s;
}

} // namespace catalogue::queries
