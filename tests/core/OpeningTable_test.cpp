#include "core/OpeningTable.h"

#include "core/Permission.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString objectOf(const Opening &entry)
{
    return QString::fromLatin1(entry.object);
}

/// Puts the rights back as they were.
struct RightsGuard
{
    Rights former = gRights;
    ~RightsGuard() { gRights = former; }
};

} // namespace

TEST(OpeningTable, EveryObjectFollowsTheMenuThatHoldsItAndHasANameOfItsOwn)
{
    QSet<QString> menus{QString()};
    QSet<QString> names;
    for (const Opening &entry : openingTable()) {
        if (entry.kind == OpeningKind::Inner)
            continue;
        EXPECT_TRUE(menus.contains(QString::fromLatin1(entry.parent))) << entry.object;
        EXPECT_FALSE(names.contains(objectOf(entry))) << entry.object;
        names.insert(objectOf(entry));
        if (entry.kind == OpeningKind::Menu)
            menus.insert(objectOf(entry));
        // Only menus stand on the menu bar.
        EXPECT_TRUE(entry.kind == OpeningKind::Menu || *entry.parent != '\0') << entry.object;
    }
}

TEST(OpeningTable, EachMissingRightDisablesItsEntriesAndNoOthers)
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
    for (const Opening &entry : openingTable()) {
        if (entry.right != nullptr)
            all.*entry.right = true;
    }
    for (const Gate &gate : gates) {
        gRights = all;
        gRights.*gate.right = false;
        QStringList refused;
        for (const Opening &entry : openingTable()) {
            if (entry.kind == OpeningKind::Entry && !rights::isGranted(entry.right))
                refused << objectOf(entry);
        }
        refused.sort();
        EXPECT_EQ(refused.join(u' ').toStdString(), gate.entries);
    }
}

TEST(OpeningTable, WithoutAnyRightWhatIsOpenToAllStaysOpen)
{
    const RightsGuard guard;
    gRights = {};
    for (const char *open : {"mnuEquipmentDetailList", "mnuErrorReport", "mnuNewReport",
                             "mnuViewUserReport", "mnuModifyReport", "mnuViewEqipment"}) {
        const Opening *entry = menuOpening(QString::fromLatin1(open));
        ASSERT_NE(entry, nullptr) << open;
        EXPECT_TRUE(rights::isGranted(entry->right)) << open;
    }
}

/// Two rows of one name that need different rights would make a road past one of them.
TEST(OpeningTable, WhatOpensUnderOneNameNeedsOneRight)
{
    for (const Opening &row : openingTable()) {
        const Opening *first = openingOf(QString::fromLatin1(row.name));
        EXPECT_TRUE(first == nullptr || row.right == first->right) << row.name;
    }
    // What a screen prints of one record is the report that the menus offer for all.
    const std::pair<QStringView, QStringView> sameReport[] = {
        {u"ShowEquipmentDetailReport", u"ShowEquipmentDetails"},
        {u"ShowEquipmentInspectionReport", u"ShowInspectionDateReading"},
        {u"ShowEquipmentLicenseReport", u"ShowLicenseDateReading"},
        {u"ShowInventoryReport", u"ShowInventryDetails"}};
    for (const auto &[printed, offered] : sameReport)
        EXPECT_EQ(openingOf(printed)->right, openingOf(offered)->right)
            << qPrintable(printed.toString());
}

TEST(OpeningTable, TheBoardsReportsStandTogetherByHeadingEachWithARightOfItsOwn)
{
    const QList<const Opening *> reports = boardOpenings();
    QStringList headings;
    QSet<QString> captions;
    QList<bool Rights::*> needed;
    for (const Opening *report : reports) {
        if (const QString heading = QString::fromLatin1(report->boardParent);
            headings.isEmpty() || headings.last() != heading)
            headings.append(heading);
        captions.insert(QString::fromLatin1(report->boardCaption));
        EXPECT_EQ(boardOpening(QString::fromLatin1(report->boardCaption)), report);
        EXPECT_NE(report->right, nullptr) << report->boardCaption;
        EXPECT_FALSE(needed.contains(report->right)) << report->boardCaption;
        needed.append(report->right);
    }
    EXPECT_EQ(headings,
              (QStringList{u"Equipment Reports"_s, u"Service Reports"_s, u"Inventory Reports"_s}));
    EXPECT_EQ(captions.size(), 19);
    EXPECT_EQ(QLatin1StringView(reports[2]->boardCaption), "Equipment Count Sheet"_L1);
    EXPECT_EQ(boardOpening(u"Equipment Reports"), nullptr) << "a heading opens nothing";
}
