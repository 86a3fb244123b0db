#include "core/OpeningTable.h"

#include "core/Permission.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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
        EXPECT_FALSE(names.contains(QString::fromLatin1(entry.object))) << entry.object;
        names.insert(QString::fromLatin1(entry.object));
        if (entry.kind == OpeningKind::Menu)
            menus.insert(QString::fromLatin1(entry.object));
        // Only menus stand on the menu bar.
        EXPECT_TRUE(entry.kind == OpeningKind::Menu || *entry.parent != '\0') << entry.object;
    }
}

TEST(OpeningTable, EachMissingRightDisablesItsEntriesAndNoOthers)
{
    const struct
    {
        bool Rights::*right;
        const char *entries;
    } gates[] = {
        // By the right, the entries that need it.
        {&Rights::EqList, "mnuEquipmentList"},
        {&Rights::EqDetail, "mnuEquipmentDetails"},
        {&Rights::EqCountSheet, "mnuPrintCount mnuRecordCount"},
        {&Rights::ExpOnEq, "mnuExpensesOnEquip"},
        {&Rights::EqUtilization, "mnuEquipmentUtilization"},
        {&Rights::EqCrewHistory, "mnuEquipmentCrewHistory"},
        {&Rights::EqScanHistory, "mnuEquipmentScanHistory"},
        {&Rights::InspDatReading, "mnuEquipmentInspectionReport munInspectiondate"},
        {&Rights::LicRenDateReading, "mnuEquipmentLicenseReport munLicenseDate"},
        {&Rights::WOHistory, "mnuWorkorderhistoryReport"},
        {&Rights::SerList, "mnuServiceList"},
        {&Rights::SerEqName, "mnuServiceByUnitno"},
        {&Rights::SerHistory, "mnuServiceHistory"},
        {&Rights::SerHistoryTime, "mnuServicesHistoryTimes"},
        {&Rights::InvReport, "mnuInventoryReport"},
        {&Rights::InvReorderReport, "mnuInventoryReorder"},
        {&Rights::InvOrUpSer, "mnuInventoryOrderUpcommingServices"},
        {&Rights::InvPartUsage, "mnuInventoryPartUsage"},
        {&Rights::InvPartHistory, "mnuInventoryPartHistory"},
        // Rights of actions disable no entry.
        {&Rights::EqAdd, ""},
        {&Rights::PaMod, ""},
        {&Rights::SerDel, ""},
    };
    const RightsGuard guard;
    Rights all;
    for (const Opening &entry : openingTable()) {
        if (entry.right != nullptr)
            all.*entry.right = true;
    }
    for (const auto &gate : gates) {
        gRights = all;
        gRights.*gate.right = false;
        QStringList refused;
        for (const Opening &entry : openingTable()) {
            if (entry.kind == OpeningKind::Entry && !rights::isGranted(entry.right))
                refused << QString::fromLatin1(entry.object);
        }
        refused.sort();
        EXPECT_EQ(refused.join(u' ').toStdString(), gate.entries);
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
