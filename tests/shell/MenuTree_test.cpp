#include "shell/MenuTree.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using shell::MenuKind;

namespace {

QString name(const shell::MenuEntry &entry)
{
    return QString::fromLatin1(entry.name);
}

/// Puts the rights back as they were.
struct RightsGuard
{
    Rights former = gRights;
    ~RightsGuard() { gRights = former; }
};

} // namespace

TEST(MenuTree, EveryObjectFollowsTheMenuThatHoldsItAndHasANameOfItsOwn)
{
    QSet<QString> menus{QString()};
    QSet<QString> names;
    for (const shell::MenuEntry &entry : shell::menuTree()) {
        EXPECT_TRUE(menus.contains(QString::fromLatin1(entry.parent))) << entry.name;
        EXPECT_FALSE(names.contains(name(entry))) << entry.name;
        names.insert(name(entry));
        if (entry.kind == MenuKind::Menu)
            menus.insert(name(entry));
        // Only menus stand on the menu bar.
        EXPECT_TRUE(entry.kind == MenuKind::Menu || *entry.parent != '\0') << entry.name;
    }
}

TEST(MenuTree, EachMissingRightDisablesItsEntriesAndNoOthers)
{
    struct Gate
    {
        bool Rights::*right;
        const char *entries;
    };
    const Gate gates[] = {
        // By the right, the entries that need it.
        Gate{&Rights::EqList, "mnuEquipmentList"}, Gate{&Rights::EqDetail, "mnuEquipmentDetails"},
        Gate{&Rights::EqCountSheet, "mnuPrintCount mnuRecordCount"},
        Gate{&Rights::ExpOnEq, "mnuExpensesOnEquip"},
        Gate{&Rights::EqUtilization, "mnuEquipmentUtilization"},
        Gate{&Rights::EqCrewHistory, "mnuEquipmentCrewHistory"},
        Gate{&Rights::EqScanHistory, "mnuEquipmentScanHistory"},
        Gate{&Rights::InspDatReading, "mnuEquipmentInspectionReport munInspectiondate"},
        Gate{&Rights::LicRenDateReading, "mnuEquipmentLicenseReport munLicenseDate"},
        Gate{&Rights::WOHistory, "mnuWorkorderhistoryReport"},
        Gate{&Rights::SerList, "mnuServiceList"}, Gate{&Rights::SerEqName, "mnuServiceByUnitno"},
        Gate{&Rights::SerHistory, "mnuServiceHistory"},
        Gate{&Rights::SerHistoryTime, "mnuServicesHistoryTimes"},
        Gate{&Rights::InvReport, "mnuInventoryReport"},
        Gate{&Rights::InvReorderReport, "mnuInventoryReorder"},
        Gate{&Rights::InvOrUpSer, "mnuInventoryOrderUpcommingServices"},
        Gate{&Rights::InvPartUsage, "mnuInventoryPartUsage"},
        Gate{&Rights::InvPartHistory, "mnuInventoryPartHistory"},
        // Rights of actions disable no entry.
        Gate{&Rights::EqAdd, ""}, Gate{&Rights::PaMod, ""}, Gate{&Rights::SerDel, ""}};
    const RightsGuard guard;
    Rights all;
    for (const shell::MenuEntry &entry : shell::menuTree()) {
        if (entry.right != nullptr)
            all.*entry.right = true;
    }
    for (const Gate &gate : gates) {
        gRights = all;
        gRights.*gate.right = false;
        QStringList refused;
        for (const shell::MenuEntry &entry : shell::menuTree()) {
            if (!shell::isAllowed(entry))
                refused << name(entry);
        }
        refused.sort();
        EXPECT_EQ(refused.join(u' ').toStdString(), gate.entries);
    }
}

TEST(MenuTree, WithoutAnyRightWhatIsOpenToAllStaysOpen)
{
    const RightsGuard guard;
    gRights = {};
    for (const char *open : {"mnuEquipmentDetailList", "mnuErrorReport", "mnuNewReport",
                             "mnuViewUserReport", "mnuModifyReport", "mnuViewEqipment"}) {
        const shell::MenuEntry *entry = shell::menuEntry(QString::fromLatin1(open));
        ASSERT_NE(entry, nullptr) << open;
        EXPECT_TRUE(shell::isAllowed(*entry)) << open;
    }
}
