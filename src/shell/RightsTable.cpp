#include "shell/RightsTable.h"

#include "core/InTheWay.h"
#include "core/Permission.h"
#include "core/RecordStore.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"

#include <QStringList>
#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

using enum RightsTab;

constexpr std::array<RightEntry, 28> rights{{
    {"EqAdd", "Add New Equipments", Equipment, &Rights::EqAdd},
    {"EqMod", "Modify Equipments", Equipment, &Rights::EqMod},
    {"EqDel", "Delete Equipments", Equipment, &Rights::EqDel},
    {"SerAdd", "Add New Services", Services, &Rights::SerAdd},
    {"SerMod", "Modify Services", Services, &Rights::SerMod},
    {"SerDel", "Delete Services", Services, &Rights::SerDel},
    {"PaAdd", "Add New Parts", Inventory, &Rights::PaAdd},
    {"PaMod", "Modify Parts", Inventory, &Rights::PaMod},
    {"PaDel", "Delete Parts", Inventory, &Rights::PaDel},
    {"EqList", "Equipment List", Equipment, &Rights::EqList},
    {"EqDetail", "Equipment Detail", Equipment, &Rights::EqDetail},
    {"EqCountSheet", "Equipment CountSheet", Equipment, &Rights::EqCountSheet},
    {"ExpOnEq", "Expense On Equipment", Equipment, &Rights::ExpOnEq},
    {"EqUtilization", "Equipment Utilization", Equipment, &Rights::EqUtilization},
    {"EqCrewHistory", "Equipment Crew History", Equipment, &Rights::EqCrewHistory},
    {"EqScanHistory", "Equipment Scan History", Equipment, &Rights::EqScanHistory},
    {"InspDatReading", "Inspecton Date Reading", Equipment, &Rights::InspDatReading},
    {"LicRenDateReading", "License Renewal Date Reading", Equipment, &Rights::LicRenDateReading},
    {"WOHistory", "Work Order Hstory", Services, &Rights::WOHistory},
    {"SerList", "Service Lists", Services, &Rights::SerList},
    {"SerEqName", "Service By Equipment Name", Services, &Rights::SerEqName},
    {"SerHistory", "Service History $", Services, &Rights::SerHistory},
    {"SerHistoryTime", "Service History Times", Services, &Rights::SerHistoryTime},
    {"InvReport", "Inventory Report", Inventory, &Rights::InvReport},
    {"InvReorderReport", "Inventory Reorder Report", Inventory, &Rights::InvReorderReport},
    {"InvOrUpSer", "Inventory Order For Upcoming Services", Inventory, &Rights::InvOrUpSer},
    {"InvPartUsage", "Inventory Part Usage", Inventory, &Rights::InvPartUsage},
    {"InvPartHistory", "Inventory Part History", Inventory, &Rights::InvPartHistory},
}};

/// The columns as the update names them: the crew history stands before the utilization.
std::vector<QString> columnsInStatementOrder()
{
    std::vector<QString> columns;
    columns.reserve(rights.size());
    for (const RightEntry &right : rights)
        columns.push_back(QString::fromLatin1(right.column));
    const auto utilization = std::ranges::find(columns, u"EqUtilization"_s);
    std::iter_swap(utilization, std::next(utilization));
    return columns;
}

} // namespace

std::span<const RightEntry> rightsTable()
{
    return rights;
}

} // namespace shell

void SetUserRole()
{
    base::trapped("User Role", "SetUserRole", [] {
        if (gsLoginUser.isEmpty()) {
            for (const shell::RightEntry &right : shell::rightsTable())
                gRights.*right.member = true;
            return;
        }
        const QSet<QString> granted = GrantedRights(gsLoginUser);
        for (const shell::RightEntry &right : shell::rightsTable()) {
            if (granted.contains(QString::fromLatin1(right.column)))
                gRights.*right.member = true;
        }
    });
}

QSet<QString> GrantedRights(const QString &UserName)
{
    const db::Recordset user =
        gcnData->Open(u"select * from tbluser where username = ?"_s, {UserName});
    const db::Row row = user.current();
    QSet<QString> granted;
    for (const shell::RightEntry &right : shell::rightsTable()) {
        const QString column = QString::fromLatin1(right.column);
        if (row.text(column) == u"1")
            granted.insert(column);
    }
    return granted;
}

void StoreRights(const QString &UserName, const QSet<QString> &Granted,
                 const std::optional<QSet<QString>> &Shown)
{
    rights::demandAdministrator();
    record::ShortTransaction transaction(*gcnData);
    try {
        (void)record::hold(*gcnData, u"tblUser", u"UserName", UserName);
    } catch (const record::Conflict &) {
        throw InTheWay(u"The user \"%1\" has been deleted or renamed on another workstation. "
                       "Nothing was stored."_s.arg(UserName));
    }
    if (Shown && GrantedRights(UserName) != *Shown)
        throw InTheWay(u"Another workstation has changed the rights of the user \"%1\" meanwhile. "
                       "Nothing was stored; Cancel shows them as they are now."_s.arg(UserName));
    gcnData->Execute(BuildQueryString(UserName, Granted));
    transaction.commit();
}

QString BuildQueryString(const QString &UserName, const QSet<QString> &Granted)
{
    QStringList assignments;
    for (const QString &column : shell::columnsInStatementOrder())
        assignments << u"%1 = '%2'"_s.arg(column, Granted.contains(column) ? u"1"_s : u"0"_s);
    return u"update tblUser set "_s + assignments.join(u", ") + u" Where UserName = '"_s +
           base::doubledQuotes(UserName) + u"'"_s;
}
