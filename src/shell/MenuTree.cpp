#include "shell/MenuTree.h"

#include <QString>
#include <algorithm>
#include <array>

namespace shell {
namespace {

constexpr MenuEntry menu(const char *name, const char *caption, const char *parent = "")
{
    return {MenuKind::Menu, name, caption, parent, "", nullptr};
}

constexpr MenuEntry entry(const char *parent, const char *name, const char *caption,
                          const char *purpose, bool Rights::*right = nullptr)
{
    return {MenuKind::Entry, name, caption, parent, purpose, right};
}

constexpr MenuEntry separator(const char *parent, const char *name)
{
    return {MenuKind::Separator, name, "", parent, "", nullptr};
}

// clang-format off
constexpr std::array tree{
    menu("mnuFile", "File"),
    entry("mnuFile", "mnuCompactDB", "Compact And Repair Database",
          "Makes the database file smaller and mends it"),
    entry("mnuFile", "mnuExportXml", "Export To Windows Mobile",
          "Writes the exchange file for the handheld"),
    entry("mnuFile", "mnuImporttXml", "Import From Windows Mobile",
          "Reads what the handheld has recorded"),
    entry("mnuFile", "mnuSetup", "Setup", "Company, warning days, security and lookup lists"),
    menu("munPasswords", "Passwords", "mnuFile"),
    entry("munPasswords", "mnuChangePassword", "Change Password", "Changes your own password"),
    entry("munPasswords", "mnuusrmanagement", "User Management",
          "Users, their passwords and their rights"),
    entry("mnuFile", "mnuUpdateDatabase", "Update Database",
          "Brings the database to this program's release"),
    entry("mnuFile", "mnumakebackup", "Make a BackUp", "Copies the database to another place"),
    entry("mnuFile", "mnurestorebackup", "Restore a BackUp",
          "Puts a copy in the place of the database"),
    entry("mnuFile", "mnuExit", "E&xit", "Ends the program"),

    menu("mnuWorkOrder", "&Work Order"),
    entry("mnuWorkOrder", "mnuRecordWork", "Record Work",
          "Enters what the mechanics have done on their work orders"),
    entry("mnuWorkOrder", "mnuPrintWO", "Print W/O",
          "Makes and prints work orders for what has fallen due"),

    menu("mnuView", "View"),
    entry("mnuView", "mnuViewEqipment", "Equipment", "The register of machines"),
    entry("mnuView", "mnuViewService", "Service", "The catalogue of services"),
    entry("mnuView", "mnuViewSupplier", "Supplier", "The suppliers"),
    entry("mnuView", "mnuViewEmployee", "Employee", "The employees"),
    entry("mnuView", "mnuViewPart", "Parts", "The parts inventory"),

    menu("mnuAdd", "Add"),
    entry("mnuAdd", "mnuAddEquipment", "Equipment", "Enters a new machine"),
    entry("mnuAdd", "mnuAddService", "Service", "Enters a new service"),
    entry("mnuAdd", "mnuAddSupplier", "Supplier", "Enters a new supplier"),
    entry("mnuAdd", "mnuAddEmployee", "Employee", "Enters a new employee"),
    entry("mnuAdd", "mnuAddPart", "Part", "Enters a new part"),

    menu("mnuEquipment", "&Equipment"),
    entry("mnuEquipment", "mnuRecordCount", "Record Count", "Enters meter readings",
          &Rights::EqCountSheet),
    entry("mnuEquipment", "munInspectiondate", "Inspection Date Reading ",
          "Enters inspection dates of many machines", &Rights::InspDatReading),
    entry("mnuEquipment", "munLicenseDate", "License Renewal Date Reading",
          "Enters license renewal dates of many machines", &Rights::LicRenDateReading),
    entry("mnuEquipment", "mnuPrintCount", "Print Count", "The sheet for taking meter readings",
          &Rights::EqCountSheet),

    menu("mnuReports", "&Reports"),
    menu("mnuEquipmentReports", "Equipment Reports", "mnuReports"),
    entry("mnuEquipmentReports", "mnuEquipmentList", "Equipment List", "All machines, short",
          &Rights::EqList),
    entry("mnuEquipmentReports", "mnuEquipmentDetailList", "Equipment Detail List",
          "All machines, wide"),
    entry("mnuEquipmentReports", "mnuEquipmentDetails", "Equipment Details",
          "Everything about chosen machines", &Rights::EqDetail),
    entry("mnuEquipmentReports", "mnuEquipmentCrewHistory", "Equipment Crew History",
          "Which crew had which machine, and when", &Rights::EqCrewHistory),
    entry("mnuEquipmentReports", "mnuExpensesOnEquip", "Expenses On Equipment",
          "What chosen machines have cost", &Rights::ExpOnEq),
    entry("mnuEquipmentReports", "mnuEquipmentUtilization", "Equipment Utilization",
          "How much machines were used", &Rights::EqUtilization),
    entry("mnuEquipmentReports", "mnuEquipmentScanHistory", "Equipment Scan History",
          "Where and when machines were scanned", &Rights::EqScanHistory),
    entry("mnuEquipmentReports", "mnuEquipmentInspectionReport", "Equipment Inspection Report",
          "Inspections that come due", &Rights::InspDatReading),
    entry("mnuEquipmentReports", "mnuEquipmentLicenseReport", "Equipment License Report",
          "Licenses that come due for renewal", &Rights::LicRenDateReading),
    entry("mnuReports", "mnuWorkorderhistoryReport", "Work Order History",
          "Posted work orders of a period", &Rights::WOHistory),
    menu("mnuServiceReports", "Service Reports", "mnuReports"),
    entry("mnuServiceReports", "mnuServiceHistory", "Service History $",
          "Services done and what they cost", &Rights::SerHistory),
    entry("mnuServiceReports", "mnuServiceByUnitno", "Services By Equipment Name",
          "The services of each machine", &Rights::SerEqName),
    entry("mnuServiceReports", "mnuServiceList", "List Of Services", "The whole catalogue",
          &Rights::SerList),
    entry("mnuServiceReports", "mnuServicesHistoryTimes", "Services History Times",
          "Time spent on services", &Rights::SerHistoryTime),
    menu("mnuInventoryReports", "Inventory Reports", "mnuReports"),
    entry("mnuInventoryReports", "mnuInventoryReport", "Inventory Report",
          "Parts with stock and value", &Rights::InvReport),
    entry("mnuInventoryReports", "mnuInventoryReorder", "Inventory Reorder",
          "Parts at or below their reorder level", &Rights::InvReorderReport),
    entry("mnuInventoryReports", "mnuInventoryOrderUpcommingServices",
          "Inventory Order For Upcomming Services", "Parts that services due soon will need",
          &Rights::InvOrUpSer),
    entry("mnuInventoryReports", "mnuInventoryPartUsage", "Inventory Part Usage",
          "Which machines and services use a part", &Rights::InvPartUsage),
    entry("mnuInventoryReports", "mnuInventoryPartHistory", "Inventory Part History",
          "Parts used in a period", &Rights::InvPartHistory),
    separator("mnuReports", "mnuReportDash"),
    entry("mnuReports", "mnuErrorReport", "Error Report", "Errors that this program has met"),
    separator("mnuReports", "mnuReportDash2"),
    menu("mnuCustomReport", "Custom Reports", "mnuReports"),
    entry("mnuCustomReport", "mnuNewReport", "Create New Report", "Designs a report of your own"),
    entry("mnuCustomReport", "mnuViewUserReport", "View Custom Report", "Opens a report of your own"),
    entry("mnuCustomReport", "mnuModifyReport", "Modify Reports", "Changes the layout of a report"),

    menu("mnuHelp", "Help"),
    entry("mnuHelp", "mnuQuorvantisHelp", "Quorvantis Help", "Opens the help"),
    entry("mnuHelp", "mnuQuorvantisOnline", "Quorvantis Online",
          "Opens the product's web page in your browser"),
    entry("mnuHelp", "mnuQickStart", "Quick Start Manual", "Opens the manual for the first day"),
    entry("mnuHelp", "mnuContactUs", "Contact Us", "Opens the maker's contact page in your browser"),
    entry("mnuHelp", "mnuCheckForUpdates", "Check For Updates", "Looks for a newer release"),
    entry("mnuHelp", "mnuAboutQuorvantis", "About Quorvantis", "The program and its version"),
};

constexpr std::array<QuickLink, 8> links{{
    {"Work Orders", "work-order", "F2", "Make and print work orders for what has fallen due",
     "mnuPrintWO"},
    {"Equipment", "equipment", "F3", "Find a machine and open it", ""},
    {"Services", "service", "F4", "The catalogue of services", "mnuViewService"},
    {"Suppliers", "supplier", "F5", "Find a supplier and open it", ""},
    {"Employees", "employee", "F6", "Find an employee and open the record", ""},
    {"Part Inventory", "part", "F7", "Find a part and open it", ""},
    {"Reports", "report", "F8", "Show or hide the list of reports", ""},
    {"Help && Support", "help", "F1", "Open the help", "mnuQuorvantisHelp"},
}};
// clang-format on

constexpr QuickFindTarget equipment{"UnitNo", "Unit No", "tblEquipment", "frmEquipment"};
constexpr QuickFindTarget supplier{"Name", "Supplier Name", "tblSupplier", "frmSupplier"};
constexpr QuickFindTarget employee{"EmployeeID", "Employee Number", "tblEmployee", "frmEmployee"};

} // namespace

std::span<const MenuEntry> menuTree()
{
    return tree;
}

const MenuEntry *menuEntry(QStringView name)
{
    const auto found = std::ranges::find_if(
        tree, [name](const MenuEntry &each) { return name == QLatin1StringView(each.name); });
    return found == tree.end() ? nullptr : &*found;
}

bool isAllowed(const MenuEntry &entry)
{
    return entry.right == nullptr || gRights.*entry.right;
}

std::span<const QuickLink> quickLinks()
{
    return links;
}

const QuickFindTarget *quickFindTarget(int quickLink)
{
    switch (quickLink) {
    case EquipmentLink:
        return &equipment;
    case SuppliersLink:
        return &supplier;
    case EmployeesLink:
        return &employee;
    default:
        return nullptr;
    }
}

} // namespace shell
