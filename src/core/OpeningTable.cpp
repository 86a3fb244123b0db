#include "core/OpeningTable.h"

#include <QString>
#include <algorithm>
#include <array>

namespace {

/// A menu, through which its entries get their places.
struct Menu
{
    const char *name;

    constexpr Opening shown(const char *caption, const char *parent = "") const
    {
        return {OpeningKind::Menu, name, caption, parent, "", ""};
    }
    /// An entry that nothing else is known of joins by the name of its menu object.
    constexpr Opening entry(const char *object, const char *caption, const char *purpose) const
    {
        return {OpeningKind::Entry, object, caption, name, purpose, object};
    }
    constexpr Opening separator(const char *object) const
    {
        return {OpeningKind::Separator, object, "", name, "", ""};
    }
};

/// A report that a screen of ours prints for what it shows. Where the menus offer the report for
/// all rows, it needs the same right.
constexpr Opening inner(const char *procedure, bool Rights::*right = nullptr)
{
    return Opening{OpeningKind::Inner, "", "", "", "", ""}.opens(procedure, right);
}

constexpr const char *OnBoardEquipment = "Equipment Reports";
constexpr const char *OnBoardServices = "Service Reports";
constexpr const char *OnBoardInventory = "Inventory Reports";

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
constexpr std::array table{
    file.shown("File"),
    file.entry("mnuCompactDB", "Compact And Repair Database",
          "Makes the database file smaller and mends it"),
    file.entry("mnuExportXml", "Export To Windows Mobile",
          "Writes the exchange file for the handheld"),
    file.entry("mnuImporttXml", "Import From Windows Mobile",
          "Reads what the handheld has recorded"),
    file.entry("mnuImport", "Import", "Reads machines, parts, employees or readings from a table")
          .opens("frmImport"),
    file.entry("mnuExport", "Export", "Writes all records as text that other programs read")
          .opens("ShowExport"),
    file.entry("mnuSetup", "Setup", "Company, warning days, security, lookup lists, mail and backups")
          .opens("frmSetup"),
    passwords.shown("Passwords", file.name),
    passwords.entry("mnuChangePassword", "Change Password", "Changes your own password")
          .opens("frmChangePassword"),
    passwords.entry("mnuusrmanagement", "User Management",
          "Users, their passwords and their rights")
          .opens("frmUserManageMent"),
    file.entry("mnuUpdateDatabase", "Update Database",
          "Brings the database to this program's release"),
    file.entry("mnumakebackup", "Make a BackUp", "Copies the database to another place")
          .opens("frmbackup"),
    file.entry("mnurestorebackup", "Restore a BackUp",
          "Puts a copy in the place of the database")
          .opens("frmRestore"),
    file.entry("mnuExit", "E&xit", "Ends the program"),

    workOrder.shown("&Work Order"),
    workOrder.entry("mnuRecordWork", "Record Work",
          "Enters what the mechanics have done on their work orders")
          .opens("ShowCompleteWorkorder"),
    workOrder.entry("mnuPrintWO", "Print W/O",
          "Makes and prints work orders for what has fallen due")
          .opens("ShowPrintWorkorder"),

    view.shown("View"),
    view.entry("mnuViewEqipment", "Equipment", "The register of machines")
          .opens("frmEquipment"),
    view.entry("mnuViewService", "Service", "The catalogue of services")
          .opens("frmServicesManager"),
    view.entry("mnuViewSupplier", "Supplier", "The suppliers")
          .opens("frmSupplier"),
    view.entry("mnuViewEmployee", "Employee", "The employees")
          .opens("frmEmployee"),
    view.entry("mnuViewPart", "Parts", "The parts inventory")
          .opens("frmPart"),

    add.shown("Add"),
    add.entry("mnuAddEquipment", "Equipment", "Enters a new machine")
          .opens("frmEquipment", nullptr, Mode::Add),
    add.entry("mnuAddService", "Service", "Enters a new service")
          .opens("frmServices", nullptr, Mode::Add),
    add.entry("mnuAddSupplier", "Supplier", "Enters a new supplier")
          .opens("frmSupplier", nullptr, Mode::Add),
    add.entry("mnuAddEmployee", "Employee", "Enters a new employee")
          .opens("frmEmployee", nullptr, Mode::Add),
    add.entry("mnuAddPart", "Part", "Enters a new part")
          .opens("frmPart", nullptr, Mode::Add),

    equipment.shown("&Equipment"),
    equipment.entry("mnuRecordCount", "Record Count", "Enters meter readings")
          .opens("frmEquipmentReading", &Rights::EqCountSheet),
    equipment.entry("munInspectiondate", "Inspection Date Reading ",
          "Enters inspection dates of many machines")
          .opens("frmInspectionDateReading", &Rights::InspDatReading),
    equipment.entry("munLicenseDate", "License Renewal Date Reading",
          "Enters license renewal dates of many machines")
          .opens("frmLicenseDateReading", &Rights::LicRenDateReading),
    equipment.entry("mnuPrintCount", "Print Count", "The sheet for taking meter readings")
          .opens("EquipmentCountReport", &Rights::EqCountSheet)
          .onBoard(OnBoardEquipment, 3, "Equipment Count Sheet"),

    reports.shown("&Reports"),
    equipmentReports.shown("Equipment Reports", reports.name),
    equipmentReports.entry("mnuEquipmentList", "Equipment List", "All machines, short")
          .opens("frmEquipmentListReport", &Rights::EqList)
          .onBoard(OnBoardEquipment, 1, "Equipment List"),
    equipmentReports.entry("mnuEquipmentDetailList", "Equipment Detail List",
          "All machines, wide")
          .opens("frmEquipmentListLandScape"),
    equipmentReports.entry("mnuEquipmentDetails", "Equipment Details",
          "Everything about chosen machines")
          .opens("ShowEquipmentDetails", &Rights::EqDetail)
          .onBoard(OnBoardEquipment, 2, "Equipment Details"),
    equipmentReports.entry("mnuEquipmentCrewHistory", "Equipment Crew History",
          "Which crew had which machine, and when")
          .opens("ShowEquipmentCrewHistory", &Rights::EqCrewHistory)
          .onBoard(OnBoardEquipment, 5, "Equipment Crew History"),
    equipmentReports.entry("mnuExpensesOnEquip", "Expenses On Equipment",
          "What chosen machines have cost")
          .opens("ShowEquipmentExpense", &Rights::ExpOnEq)
          .onBoard(OnBoardEquipment, 4, "Expense On Equipment"),
    equipmentReports.entry("mnuEquipmentUtilization", "Equipment Utilization",
          "How much machines were used")
          .opens("frmEquipmentUtilization", &Rights::EqUtilization)
          .onBoard(OnBoardEquipment, 6, "Equipment Utilization"),
    equipmentReports.entry("mnuEquipmentScanHistory", "Equipment Scan History",
          "Where and when machines were scanned")
          .opens("frmScanHistory", &Rights::EqScanHistory)
          .onBoard(OnBoardEquipment, 7, "Equipment Scan History"),
    equipmentReports.entry("mnuEquipmentInspectionReport", "Equipment Inspection Report",
          "Inspections that come due")
          .opens("ShowInspectionDateReading", &Rights::InspDatReading)
          .onBoard(OnBoardEquipment, 8, "Inspection Date Reading"),
    equipmentReports.entry("mnuEquipmentLicenseReport", "Equipment License Report",
          "Licenses that come due for renewal")
          .opens("ShowLicenseDateReading", &Rights::LicRenDateReading)
          .onBoard(OnBoardEquipment, 9, "License Renewal Date Reading"),
    reports.entry("mnuWorkorderhistoryReport", "Work Order History",
          "Posted work orders of a period")
          .opens("frmWorkorderhistoryReport", &Rights::WOHistory)
          .onBoard(OnBoardEquipment, 10, "Work Order History"),
    serviceReports.shown("Service Reports", reports.name),
    serviceReports.entry("mnuServiceHistory", "Service History $",
          "Services done and what they cost")
          .opens("frmServiceHistory", &Rights::SerHistory)
          .onBoard(OnBoardServices, 13, "Service History $"),
    serviceReports.entry("mnuServiceByUnitno", "Services By Equipment Name",
          "The services of each machine")
          .opens("ShowEquipmentServices", &Rights::SerEqName)
          .onBoard(OnBoardServices, 12, "Services By Equipment Name"),
    serviceReports.entry("mnuServiceList", "List Of Services", "The whole catalogue")
          .opens("ShowServiceList", &Rights::SerList)
          .onBoard(OnBoardServices, 11, "Service Lists"),
    serviceReports.entry("mnuServicesHistoryTimes", "Services History Times",
          "Time spent on services")
          .opens("ShowServiceHistoryTimes", &Rights::SerHistoryTime)
          .onBoard(OnBoardServices, 14, "Services History Times"),
    inventoryReports.shown("Inventory Reports", reports.name),
    inventoryReports.entry("mnuInventoryReport", "Inventory Report",
          "Parts with stock and value")
          .opens("ShowInventryDetails", &Rights::InvReport)
          .onBoard(OnBoardInventory, 15, "Inventory Report"),
    inventoryReports.entry("mnuInventoryReorder", "Inventory Reorder",
          "Parts at or below their reorder level")
          .opens("ShowInventoryReorder", &Rights::InvReorderReport)
          .onBoard(OnBoardInventory, 16, "Inventory Reorder Report"),
    inventoryReports.entry("mnuInventoryOrderUpcommingServices",
          "Inventory Order For Upcomming Services", "Parts that services due soon will need")
          .opens("ShowInventoryOrderUpCommingServices", &Rights::InvOrUpSer)
          .onBoard(OnBoardInventory, 17, "Inventory Order For UpComming Services"),
    inventoryReports.entry("mnuInventoryPartUsage", "Inventory Part Usage",
          "Which machines and services use a part")
          .opens("ShowInventoryPartUsage", &Rights::InvPartUsage)
          .onBoard(OnBoardInventory, 18, "Inventory Part Usage"),
    inventoryReports.entry("mnuInventoryPartHistory", "Inventory Part History",
          "Parts used in a period")
          .opens("ShowInventoryPartHistory", &Rights::InvPartHistory)
          .onBoard(OnBoardInventory, 19, "Inventory Part History"),
    reports.separator("mnuReportDash"),
    reports.entry("mnuErrorReport", "Error Report", "Errors that this program has met")
          .opens("ShowErrorList"),
    reports.separator("mnuReportDash2"),
    customReport.shown("Custom Reports", reports.name),
    customReport.entry("mnuNewReport", "Create New Report", "Designs a report of your own")
          .opens("CreateNewReport"),
    customReport.entry("mnuViewUserReport", "View Custom Report", "Opens a report of your own"),
    customReport.entry("mnuModifyReport", "Modify Reports", "Changes the layout of a report"),

    help.shown("Help"),
    help.entry("mnuQuorvantisHelp", "Quorvantis Help", "Opens the help"),
    help.entry("mnuQuorvantisOnline", "Quorvantis Online",
          "Opens the product's web page in your browser"),
    help.entry("mnuQickStart", "Quick Start Manual", "Opens the manual for the first day"),
    help.entry("mnuContactUs", "Contact Us", "Opens the maker's contact page in your browser"),
    help.entry("mnuCheckForUpdates", "Check For Updates", "Looks for a newer release"),
    help.entry("mnuAboutQuorvantis", "About Quorvantis", "The program and its version")
          .opens("frmAbout"),

    // Offered when an update of the database has failed.
    inner("frmSendDBUpdate"),
    inner("ShowEquipmentDetailReport", &Rights::EqDetail),
    inner("ShowEquipmentInspectionReport", &Rights::InspDatReading),
    inner("ShowEquipmentLicenseReport", &Rights::LicRenDateReading),
    inner("ShowInventoryReport", &Rights::InvReport),
    inner("ShowEmployeeReport"),
    inner("ShowSupplierReport"),
    // The papers of the work itself: whoever may print or post orders prints these.
    inner("ShowWorkorderReport"),
    inner("ShowWorkorderHistoryReport"),
    // Offered by no screen: support opens it where a handheld's own files are to be seen.
    inner("ShowImportXmlDetails"),
};
// clang-format on

/// The first row of which a column reads so; null when there is none, and for an empty text.
const Opening *rowWhere(const char *Opening::*column, QStringView text)
{
    const auto found = std::ranges::find_if(
        table, [&](const Opening &row) { return text == QLatin1StringView(row.*column); });
    return text.isEmpty() || found == table.end() ? nullptr : &*found;
}

} // namespace

std::span<const Opening> openingTable()
{
    return table;
}

const Opening *menuOpening(QStringView object)
{
    return rowWhere(&Opening::object, object);
}

const Opening *openingOf(QStringView name)
{
    return rowWhere(&Opening::name, name);
}

QList<const Opening *> boardOpenings()
{
    QList<const Opening *> rows;
    for (const Opening &row : table) {
        if (row.boardPlace != 0)
            rows.append(&row);
    }
    std::ranges::sort(rows, {}, &Opening::boardPlace);
    return rows;
}

const Opening *boardOpening(QStringView caption)
{
    return rowWhere(&Opening::boardCaption, caption);
}
