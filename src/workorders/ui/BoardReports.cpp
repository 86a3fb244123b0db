#include "workorders/ui/BoardReports.h"

#include "core/ui/ScreenCalls.h"

#include <algorithm>
#include <array>

namespace board {
namespace {

constexpr const char *Equipment = "Equipment Reports";
constexpr const char *Services = "Service Reports";
constexpr const char *Inventory = "Inventory Reports";

constexpr std::array Entries = {
    ReportEntry{Equipment, "Equipment List", "frmEquipmentListReport", &Rights::EqList},
    ReportEntry{Equipment, "Equipment Details", "ShowEquipmentDetails", &Rights::EqDetail},
    ReportEntry{Equipment, "Equipment Count Sheet", "EquipmentCountReport", &Rights::EqCountSheet},
    ReportEntry{Equipment, "Expense On Equipment", "ShowEquipmentExpense", &Rights::ExpOnEq},
    ReportEntry{Equipment, "Equipment Crew History", "ShowEquipmentCrewHistory",
                &Rights::EqCrewHistory},
    ReportEntry{Equipment, "Equipment Utilization", "frmEquipmentUtilization",
                &Rights::EqUtilization},
    ReportEntry{Equipment, "Equipment Scan History", "frmScanHistory", &Rights::EqScanHistory},
    ReportEntry{Equipment, "Inspection Date Reading", "ShowInspectionDateReading",
                &Rights::InspDatReading},
    ReportEntry{Equipment, "License Renewal Date Reading", "ShowLicenseDateReading",
                &Rights::LicRenDateReading},
    ReportEntry{Equipment, "Work Order History", "frmWorkorderhistoryReport", &Rights::WOHistory},
    ReportEntry{Services, "Service Lists", "ShowServiceList", &Rights::SerList},
    ReportEntry{Services, "Services By Equipment Name", "ShowEquipmentServices",
                &Rights::SerEqName},
    ReportEntry{Services, "Service History $", "frmServiceHistory", &Rights::SerHistory},
    ReportEntry{Services, "Services History Times", "ShowServiceHistoryTimes",
                &Rights::SerHistoryTime},
    ReportEntry{Inventory, "Inventory Report", "ShowInventryDetails", &Rights::InvReport},
    ReportEntry{Inventory, "Inventory Reorder Report", "ShowInventoryReorder",
                &Rights::InvReorderReport},
    ReportEntry{Inventory, "Inventory Order For UpComming Services",
                "ShowInventoryOrderUpCommingServices", &Rights::InvOrUpSer},
    ReportEntry{Inventory, "Inventory Part Usage", "ShowInventoryPartUsage", &Rights::InvPartUsage},
    ReportEntry{Inventory, "Inventory Part History", "ShowInventoryPartHistory",
                &Rights::InvPartHistory},
};

} // namespace

std::span<const ReportEntry> reportEntries()
{
    return Entries;
}

const ReportEntry *reportEntry(QStringView caption)
{
    const auto found = std::ranges::find_if(Entries, [&](const ReportEntry &entry) {
        return caption == QLatin1StringView(entry.caption);
    });
    return found == Entries.end() ? nullptr : &*found;
}

bool isJoined(const ReportEntry &entry)
{
    return screenCalls().openings.contains(QString::fromLatin1(entry.opening));
}

} // namespace board
