#include "shell/MenuTree.h"

#include <QString>
#include <algorithm>
#include <array>

namespace shell {
namespace {

/// A menu, through which its entries get their places.
struct Menu
{
    const char *name;

    constexpr MenuEntry shown(const char *caption, const char *parent = "") const
    {
        return {MenuKind::Menu, name, caption, parent, "", nullptr};
    }
    constexpr MenuEntry entry(const char *entryName, const char *caption, const char *purpose,
                              bool Rights::*right = nullptr) const
    {
        return {MenuKind::Entry, entryName, caption, name, purpose, right};
    }
    constexpr MenuEntry separator(const char *separatorName) const
    {
        return {MenuKind::Separator, separatorName, "", name, "", nullptr};
    }
};

constexpr Menu file{"mnuFile"};
constexpr Menu passwords{"munPasswords"};
constexpr Menu workOrder{"mnuWorkOrder"};
constexpr Menu view{"mnuView"};
constexpr Menu add{"mnuAdd"};
constexpr Menu equipment{"mnuEquipment"};
constexpr Menu reports{"mnuReports"};
constexpr Menu equipmentReports{"mnuEquipmentReports"};
constexpr Menu serviceReports{"mnuServiceReports"};
constexpr Menu inventoryReports{"mnuInventoryReports"};
constexpr Menu customReport{"mnuCustomReport"};
constexpr Menu help{"mnuHelp"};

// clang-format off
constexpr std::array tree{
    file.shown("File"),
    file.entry("mnuCompactDB", "Compact And Repair Database",
          "Makes the database file smaller and mends it"),
    file.entry("mnuExportXml", "Export To Windows Mobile",
          "Writes the exchange file for the handheld"),
    file.entry("mnuImporttXml", "Import From Windows Mobile",
          "Reads what the handheld has recorded"),
    file.entry("mnuSetup", "Setup", "Company, warning days, security and lookup lists"),
    passwords.shown("Passwords", file.name),
    passwords.entry("mnuChangePassword", "Change Password", "Changes your own password"),
    passwords.entry("mnuusrmanagement", "User Management",
          "Users, their passwords and their rights"),
    file.entry("mnuUpdateDatabase", "Update Database",
          "Brings the database to this program's release"),
    file.entry("mnumakebackup", "Make a BackUp", "Copies the database to another place"),
    file.entry("mnurestorebackup", "Restore a BackUp",
          "Puts a copy in the place of the database"),
    file.entry("mnuExit", "E&xit", "Ends the program"),

    workOrder.shown("&Work Order"),
    workOrder.entry("mnuRecordWork", "Record Work",
          "Enters what the mechanics have done on their work orders"),
    workOrder.entry("mnuPrintWO", "Print W/O",
          "Makes and prints work orders for what has fallen due"),

    view.shown("View"),
    view.entry("mnuViewEqipment", "Equipment", "The register of machines"),
    view.entry("mnuViewService", "Service", "The catalogue of services"),
    view.entry("mnuViewSupplier", "Supplier", "The suppliers"),
    view.entry("mnuViewEmployee", "Employee", "The employees"),
    view.entry("mnuViewPart", "Parts", "The parts inventory"),

    add.shown("Add"),
    add.entry("mnuAddEquipment", "Equipment", "Enters a new machine"),
    add.entry("mnuAddService", "Service", "Enters a new service"),
    add.entry("mnuAddSupplier", "Supplier", "Enters a new supplier"),
    add.entry("mnuAddEmployee", "Employee", "Enters a new employee"),
    add.entry("mnuAddPart", "Part", "Enters a new part"),

    equipment.shown("&Equipment"),
    equipment.entry("mnuRecordCount", "Record Count", "Enters meter readings",
          &Rights::EqCountSheet),
    equipment.entry("munInspectiondate", "Inspection Date Reading ",
          "Enters inspection dates of many machines", &Rights::InspDatReading),
    equipment.entry("munLicenseDate", "License Renewal Date Reading",
          "Enters license renewal dates of many machines", &Rights::LicRenDateReading),
    equipment.entry("mnuPrintCount", "Print Count", "The sheet for taking meter readings",
          &Rights::EqCountSheet),

    reports.shown("&Reports"),
    equipmentReports.shown("Equipment Reports", reports.name),
    equipmentReports.entry("mnuEquipmentList", "Equipment List", "All machines, short",
          &Rights::EqList),
    equipmentReports.entry("mnuEquipmentDetailList", "Equipment Detail List",
          "All machines, wide"),
    equipmentReports.entry("mnuEquipmentDetails", "Equipment Details",
          "Everything about chosen machines", &Rights::EqDetail),
    equipmentReports.entry("mnuEquipmentCrewHistory", "Equipment Crew History",
          "Which crew had which machine, and when", &Rights::EqCrewHistory),
    equipmentReports.entry("mnuExpensesOnEquip", "Expenses On Equipment",
          "What chosen machines have cost", &Rights::ExpOnEq),
    equipmentReports.entry("mnuEquipmentUtilization", "Equipment Utilization",
          "How much machines were used", &Rights::EqUtilization),
    equipmentReports.entry("mnuEquipmentScanHistory", "Equipment Scan History",
          "Where and when machines were scanned", &Rights::EqScanHistory),
    equipmentReports.entry("mnuEquipmentInspectionReport", "Equipment Inspection Report",
          "Inspections that come due", &Rights::InspDatReading),
    equipmentReports.entry("mnuEquipmentLicenseReport", "Equipment License Report",
          "Licenses that come due for renewal", &Rights::LicRenDateReading),
    reports.entry("mnuWorkorderhistoryReport", "Work Order History",
          "Posted work orders of a period", &Rights::WOHistory),
    serviceReports.shown("Service Reports", reports.name),
    serviceReports.entry("mnuServiceHistory", "Service History $",
          "Services done and what they cost", &Rights::SerHistory),
    serviceReports.entry("mnuServiceByUnitno", "Services By Equipment Name",
          "The services of each machine", &Rights::SerEqName),
    serviceReports.entry("mnuServiceList", "List Of Services", "The whole catalogue",
          &Rights::SerList),
    serviceReports.entry("mnuServicesHistoryTimes", "Services History Times",
          "Time spent on services", &Rights::SerHistoryTime),
    inventoryReports.shown("Inventory Reports", reports.name),
    inventoryReports.entry("mnuInventoryReport", "Inventory Report",
          "Parts with stock and value", &Rights::InvReport),
    inventoryReports.entry("mnuInventoryReorder", "Inventory Reorder",
          "Parts at or below their reorder level", &Rights::InvReorderReport),
    inventoryReports.entry("mnuInventoryOrderUpcommingServices",
          "Inventory Order For Upcomming Services", "Parts that services due soon will need",
          &Rights::InvOrUpSer),
    inventoryReports.entry("mnuInventoryPartUsage", "Inventory Part Usage",
          "Which machines and services use a part", &Rights::InvPartUsage),
    inventoryReports.entry("mnuInventoryPartHistory", "Inventory Part History",
          "Parts used in a period", &Rights::InvPartHistory),
    reports.separator("mnuReportDash"),
    reports.entry("mnuErrorReport", "Error Report", "Errors that this program has met"),
    reports.separator("mnuReportDash2"),
    customReport.shown("Custom Reports", reports.name),
    customReport.entry("mnuNewReport", "Create New Report", "Designs a report of your own"),
    customReport.entry("mnuViewUserReport", "View Custom Report", "Opens a report of your own"),
    customReport.entry("mnuModifyReport", "Modify Reports", "Changes the layout of a report"),

    help.shown("Help"),
    help.entry("mnuQuorvantisHelp", "Quorvantis Help", "Opens the help"),
    help.entry("mnuQuorvantisOnline", "Quorvantis Online",
          "Opens the product's web page in your browser"),
    help.entry("mnuQickStart", "Quick Start Manual", "Opens the manual for the first day"),
    help.entry("mnuContactUs", "Contact Us", "Opens the maker's contact page in your browser"),
    help.entry("mnuCheckForUpdates", "Check For Updates", "Looks for a newer release"),
    help.entry("mnuAboutQuorvantis", "About Quorvantis", "The program and its version"),
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

constexpr QuickFindTarget equipmentSearch{"UnitNo", "Unit No", "tblEquipment", "frmEquipment"};
constexpr QuickFindTarget supplierSearch{"Name", "Supplier Name", "tblSupplier", "frmSupplier"};
constexpr QuickFindTarget employeeSearch{"EmployeeID", "Employee Number", "tblEmployee",
                                         "frmEmployee"};

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
        return &equipmentSearch;
    case SuppliersLink:
        return &supplierSearch;
    case EmployeesLink:
        return &employeeSearch;
    default:
        return nullptr;
    }
}

} // namespace shell
