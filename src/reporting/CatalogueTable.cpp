#include "reporting/Catalogue.h"
#include "reporting/CatalogueQueries.h"

namespace catalogue {

using namespace Qt::StringLiterals;

namespace {

const QString NothingMet = u"No records met the conditions that were specified."_s;
const QString NoRecords = u"No records found."_s;

const QString ByName = u" ORder by tblEquipment.EquipmentName ASC"_s;
const QString ByUnit = u" order by UnitNo, EquipmentName"_s;
const QString AllDetails = u"Incorrect filter. Show all Equipment Details?"_s;
const QString AllDetailsList = u"Incorrect filter. Show all Equipment Details List?"_s;
const QString AllRecords = u"Incorrect filter. Show all Records?"_s;
const QString AllHistory = u"Incorrect filter. Show all Service History?"_s;
const QString AllParts = u"Incorrect filter. Show all Inventory History?"_s;
const QString AllPartDetails = u"Incorrect filter. Show all Inventory Details?"_s;

QList<Report> machineReports()
{
    return {
        {u"rptEquipmentList"_s, "ShowEquipmentListDetail", u"Equipment List"_s,
         queries::machineList(), ByName, NothingMet, AllDetails},
        {u"rptEquipmentListSiteWise"_s, "ShowEquipmentListDetailSiteWise", u"Equipment List"_s,
         queries::machineList(), ByName, NothingMet, AllDetails},
        {u"rptEquipmentListLandScape"_s, "ShowEquipmentListDetail", u"Equipment Detail List"_s,
         queries::machineList(u", tblEquipment.EquipmentSerialNo, tblEquipment.LicenseNo, "
                              "tblEquipment.VIN"_s),
         ByName, NothingMet, AllDetailsList},
        {u"rptEquipmentListCrewWise"_s,
         "ShowEquipmentListCrewWise",
         u"Equipment List"_s,
         queries::crewList(u"LicenseNo"_s),
         {},
         NothingMet,
         AllDetailsList},
        {u"rptEquipmentListVer4"_s,
         "ShowEquipmentListVersion4",
         u"Equipment List"_s,
         queries::crewList(u"AcquisitionCost"_s),
         {},
         NothingMet,
         AllDetailsList},
        {u"rptEquipmentListVer5"_s, "ShowEquipmentListVersion5", u"Equipment List"_s,
         queries::version5(), u" ORDER BY tblEquipment.UnitNo"_s, NothingMet},
        {u"rptEquipmentListVer6"_s,
         "ShowEquipmentListVersion6",
         u"Equipment List"_s,
         queries::version6(),
         {},
         NothingMet,
         AllDetailsList},
        {u"rptEquipmentDetail"_s, "ShowEquipmentDetailReport", u"Equipment Details"_s,
         queries::machineDetails(), u" Order by tblEquipment.EquipmentName"_s, NothingMet,
         AllDetails},
        {u"rptEquipmentCrewHistory"_s, "ShowEquipmentCrewHistory", u"Equipment Crew History"_s,
         queries::crewHistory(), u" Order by tblEquipment.EquipmentName "_s, NothingMet,
         u"Incorrect filter. Show all  Equipment Crew History?"_s,
         u"Incorrect filter. Show all Equipment Crew History?"_s},
        {u"rptEquipmentExpense"_s, "ShowEquipmentExpense", u"Expenses On Equipment"_s,
         queries::expenses(),
         u" GROUP BY EquipmentExpense.UnitNo, EquipmentExpense.EquipmentName Order by   "
         "EquipmentExpense.EquipmentName, EquipmentExpense.UnitNo  "_s,
         NothingMet, u"Incorrect filter. Show all Equipment Expense?"_s, AllDetails},
        {u"rptEquipmentUtilization"_s, "ShowEquipmentUtilization", u"Equipment Utilization"_s,
         queries::utilization(),
         u" GROUP BY tblEquipment.EquipmentName, tblEquipment.UnitNo, tblEquipment.EquipmentID, "
         "tblCrew.CrewNumber, tblIndicator.ItemName"_s,
         NothingMet, AllRecords},
        {u"rptEquipmentUtilization_Single"_s, "ShowEquipmentUtilizationSingle",
         u"Equipment Utilization"_s, queries::utilizationSingle(),
         u" ORDER BY a.ChangeDate, a.ChangeDate "_s, NothingMet, AllRecords},
        // Last scans and machines without any are two queries of one layout, so that the caller
        // brings the whole of either.
        {u"rptEquipmentScanHistory"_s,
         "ShowScanHistory",
         u"Equipment Scan History"_s,
         {},
         {},
         NothingMet},
        {u"rptEquipmentInspectionDate"_s, "ShowEquipmentInspectionReport",
         u"Equipment Inspection Report"_s, queries::dates(u"InspectionDate"_s), ByUnit, NoRecords},
        {u"rptEquipmentLicenseDate"_s, "ShowEquipmentLicenseReport", u"Equipment License Report"_s,
         queries::dates(u"LicenseRenewalDate"_s), ByUnit, NoRecords},
        {u"rptEquipmentCount"_s,
         "EquipmentCountReport",
         u"Equipment Count Sheet"_s,
         {},
         {},
         NoRecords},
    };
}

QList<Report> serviceReports()
{
    const QString site = u", tblSite.SiteName"_s;
    const QString crew = site + u", tblCrew.CrewNumber"_s;
    return {
        {u"rptServiceHistory"_s, "ShowServiceHistory", u"Service History"_s, queries::history(),
         queries::historyGroup(), NothingMet, AllHistory, AllDetails},
        {u"rptServiceHistorySiteWise"_s, "ShowServiceHistorySiteWise", u"Service History"_s,
         queries::history(site, {queries::siteJoin()}), queries::historyGroup(site), NothingMet,
         AllHistory, AllDetails},
        // By site or by crew, it is one procedure to those who call it.
        {u"rptServiceHistoryCrewWise"_s, "ShowServiceHistorySiteWise", u"Service History"_s,
         queries::history(site + u", tblCrew.CrewNumber as AssignedTo, tblCrew.Description"_s,
                          {queries::siteJoin(), queries::serviceCrewJoin()}),
         queries::historyGroup(crew + u", tblCrew.Description"_s), NothingMet, AllHistory,
         AllDetails},
        {u"rptEquipmentServices"_s, "ShowEquipmentServices", u"Services By Equipment Name"_s,
         queries::servicesOfMachines(), u" Order by  tblServiceUsed.Name"_s, NothingMet,
         u"Incorrect filter. Show all Equipment Services?"_s, AllDetails},
        {u"rptServiceList"_s, "ShowServiceList", u"List Of Services"_s, queries::serviceList(),
         u" Order by tblServices.Name"_s, NothingMet},
        {u"rptServiceHistoryTimes"_s, "ShowServiceHistoryTimes", u"Services History Times"_s,
         queries::historyTimes(), u" Order By tblEquipment.EquipmentName"_s, NothingMet, AllHistory,
         u"Incorrect filter. Show all Service Details?"_s},
        {u"rptServiceHistoryTimesCDate"_s, "ShowServiceHistoryTimes", u"Services History Times"_s,
         queries::historyTimes(), u" Order By tblWOServiceUsedHistory.Servicename"_s, NothingMet,
         AllHistory, u"Incorrect filter. Show all Service Details?"_s},
    };
}

QList<Report> partReports()
{
    return {
        {.layout = u"rptInventoryReport"_s,
         .procedure = "ShowInventoryReport",
         .title = u"Inventory Report"_s,
         .query = queries::inventory(),
         .tail = u" Order by tblPart.PartID"_s,
         .empty = NothingMet,
         .question = u"Incorrect filter. Show all Inventry Details?"_s,
         .mismatchQuestion = AllDetails,
         .unfiltered = u"where TrackInventory=0"_s,
         .filtered = u" and TrackInventory=0"_s},
        // The query ends in a keyword: without a filter a condition has to stand there all the
        // same.
        {.layout = u"rptInventoryReorderReport"_s,
         .procedure = "ShowInventoryReOrderReport",
         .title = u"Inventory Reorder"_s,
         .query = queries::reorder(),
         .empty = NothingMet,
         .question = u"Incorrect filter. Show all Inventry Reorder with Posted Services?"_s,
         .mismatchQuestion =
             u"Incorrect filter. Show all Inventory Reorder with Posted Services?"_s,
         .unfiltered = u"(Quantity<QtyMin)"_s},
        {u"rptInventoryOrder_UpCommingServices"_s, "ShowInventoryOrderForUpcommingServicesReport",
         u"Inventory Order For Upcomming Services"_s, queries::upcoming(),
         u" GROUP BY tblServiceUsedPart.PartID, tblPart.Description, tblIndicator.ItemName, "
         "tblSupplier.Name"_s,
         NothingMet, AllRecords},
        {u"rptInventoryPartUsage"_s,
         "ShowInventoryPartUsage",
         u"Inventory Part Usage"_s,
         queries::partUsage(),
         {},
         NothingMet,
         u"Incorrect filter. Show all Part Details?"_s,
         u"Incorrect filter. Show all PArt Details?"_s},
        {u"rptInventoryPartHistory"_s, "ShowInventoryPArtHistory", u"Inventory Part History"_s,
         queries::partHistory(), u" Order by   tblWOServiceUsedHistory.Servicename "_s, NothingMet,
         AllParts, AllPartDetails},
        {u"rptInventoryPartHistoryCDate"_s, "ShowInventoryPArtHistory", u"Inventory Part History"_s,
         queries::partHistory(), u" Order by   tblWOServiceUsedHistory.Servicename "_s, NothingMet,
         AllParts, AllPartDetails},
        {u"rptInventoryPartHistorySummary"_s, "ShowInventoryPartHistorySummary",
         u"Inventory Part History"_s, queries::partHistorySummary(),
         u" GROUP BY tblWoPartHistory.PartID, tblPart.PartID, tblPart.Description, tblPart.Bin"_s,
         NothingMet, AllParts, AllPartDetails},
    };
}

QList<Report> otherReports()
{
    return {
        {.layout = u"rptErrorReport"_s,
         .procedure = "ShowErrorList",
         .title = u"Error Report"_s,
         .query = u"SELECT ErrNumber, LineNumber, ModuleName, ProcedureName, ErrDescription, "
                  "UserMsg, ErrDateTime FROM tblErrorList Order by ErrDateTime Asc"_s,
         .empty = NoRecords,
         .onlyDelivered = true},
        {u"rptSupplierReport"_s, "ShowSupplierReport", u"Suppliers"_s, queries::suppliers(),
         u" order by tblSupplier.Name"_s, NothingMet,
         u"Incorrect filter. Show all Supplier Details?"_s},
        {u"rptEmployeeReport"_s, "ShowEmployeeReport", u"Employees"_s, queries::employees(),
         u" order By tblEmployee.FirstName"_s, NothingMet,
         u"Incorrect filter. Show all Employee Details?"_s},
        {u"rptWorkorder"_s, "ShowWorkorderReport", u"Work Orders"_s, {}, {}, NoRecords},
        {u"rptWorkOrderByCrew"_s, "ShowWorkorderReport", u"Work Orders"_s, {}, {}, NoRecords},
        // Each of a service's parts has a row, and every one of them repeats what the service cost.
        {.layout = u"rptWorkOrderHistory"_s,
         .procedure = "ShowWorkorderHistoryReport",
         .title = u"Work Order History"_s,
         .empty = NoRecords,
         .once = {u"LaborOnce"_s, u"CostEstimate"_s, u"ServiceUSedID"_s}},
        // The engine sums a service's cost once for each of its parts, so the labor is reckoned
        // beside it.
        {.layout = u"rptWorkorderHistorySummary"_s,
         .procedure = "ShowWorkorderHistoryReport",
         .title = u"Work Order History"_s,
         .empty = NoRecords,
         .addsLabor = true},
    };
}

} // namespace

const QList<Report> &reports()
{
    static const QList<Report> all =
        machineReports() + serviceReports() + partReports() + otherReports();
    return all;
}

} // namespace catalogue
