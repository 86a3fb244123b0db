#include "shell/MenuTree.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>
#include <map>

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
    const std::map<std::string, std::pair<bool Rights::*, QStringList>> gates{
        {"EqList", {&Rights::EqList, {u"mnuEquipmentList"_s}}},
        {"EqDetail", {&Rights::EqDetail, {u"mnuEquipmentDetails"_s}}},
        {"EqCountSheet", {&Rights::EqCountSheet, {u"mnuPrintCount"_s, u"mnuRecordCount"_s}}},
        {"ExpOnEq", {&Rights::ExpOnEq, {u"mnuExpensesOnEquip"_s}}},
        {"EqUtilization", {&Rights::EqUtilization, {u"mnuEquipmentUtilization"_s}}},
        {"EqCrewHistory", {&Rights::EqCrewHistory, {u"mnuEquipmentCrewHistory"_s}}},
        {"EqScanHistory", {&Rights::EqScanHistory, {u"mnuEquipmentScanHistory"_s}}},
        {"InspDatReading",
         {&Rights::InspDatReading, {u"munInspectiondate"_s, u"mnuEquipmentInspectionReport"_s}}},
        {"LicRenDateReading",
         {&Rights::LicRenDateReading, {u"munLicenseDate"_s, u"mnuEquipmentLicenseReport"_s}}},
        {"WOHistory", {&Rights::WOHistory, {u"mnuWorkorderhistoryReport"_s}}},
        {"SerList", {&Rights::SerList, {u"mnuServiceList"_s}}},
        {"SerEqName", {&Rights::SerEqName, {u"mnuServiceByUnitno"_s}}},
        {"SerHistory", {&Rights::SerHistory, {u"mnuServiceHistory"_s}}},
        {"SerHistoryTime", {&Rights::SerHistoryTime, {u"mnuServicesHistoryTimes"_s}}},
        {"InvReport", {&Rights::InvReport, {u"mnuInventoryReport"_s}}},
        {"InvReorderReport", {&Rights::InvReorderReport, {u"mnuInventoryReorder"_s}}},
        {"InvOrUpSer", {&Rights::InvOrUpSer, {u"mnuInventoryOrderUpcommingServices"_s}}},
        {"InvPartUsage", {&Rights::InvPartUsage, {u"mnuInventoryPartUsage"_s}}},
        {"InvPartHistory", {&Rights::InvPartHistory, {u"mnuInventoryPartHistory"_s}}},
        // Rights of actions disable no entry.
        {"EqAdd", {&Rights::EqAdd, {}}},
        {"PaMod", {&Rights::PaMod, {}}},
        {"SerDel", {&Rights::SerDel, {}}},
    };
    const RightsGuard guard;
    Rights all;
    for (const shell::MenuEntry &entry : shell::menuTree()) {
        if (entry.right != nullptr)
            all.*entry.right = true;
    }
    for (const auto &[right, gate] : gates) {
        gRights = all;
        gRights.*gate.first = false;
        QStringList refused;
        for (const shell::MenuEntry &entry : shell::menuTree()) {
            if (!shell::isAllowed(entry))
                refused << name(entry);
        }
        QStringList expected = gate.second;
        refused.sort();
        expected.sort();
        EXPECT_EQ(refused.join(u' ').toStdString(), expected.join(u' ').toStdString()) << right;
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
