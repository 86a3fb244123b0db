#include "core/OpeningTable.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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

/// Two rows of one name that need different rights would make a road past one of them.
TEST(OpeningTable, WhatOpensUnderOneNameNeedsOneRight)
{
    for (const Opening &row : openingTable()) {
        const Opening *first = openingOf(QString::fromLatin1(row.name));
        EXPECT_TRUE(first == nullptr || row.right == first->right) << row.name;
    }
    // What a screen prints of one record is the report that the menus offer for all, and a list
    // that is typed into tells as much as the report of it.
    const std::pair<QStringView, QStringView> sameReport[] = {
        {u"ShowEquipmentDetailReport", u"ShowEquipmentDetails"},
        {u"ShowEquipmentInspectionReport", u"ShowInspectionDateReading"},
        {u"ShowEquipmentLicenseReport", u"ShowLicenseDateReading"},
        {u"ShowInventoryReport", u"ShowInventryDetails"},
        {u"frmEquipmentReading", u"EquipmentCountReport"},
        {u"frmInspectionDateReading", u"ShowInspectionDateReading"},
        {u"frmLicenseDateReading", u"ShowLicenseDateReading"}};
    QSet<QStringView> gated;
    for (const auto &[other, offered] : sameReport) {
        EXPECT_EQ(openingOf(other)->right, openingOf(offered)->right)
            << qPrintable(other.toString());
        gated.insert(other);
    }
    // Beside these and the board's reports all is open to everybody.
    for (const Opening &row : openingTable()) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_EQ(row.right != nullptr, gated.contains(name) || *row.boardCaption != '\0')
            << row.name;
    }
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
        EXPECT_EQ(report->boardPlace, captions.size()) << report->boardCaption;
        EXPECT_EQ(boardOpening(QString::fromLatin1(report->boardCaption)), report);
        EXPECT_NE(report->right, nullptr) << report->boardCaption;
        EXPECT_FALSE(needed.contains(report->right)) << report->boardCaption;
        needed.append(report->right);
    }
    EXPECT_EQ(headings,
              (QStringList{u"Equipment Reports"_s, u"Service Reports"_s, u"Inventory Reports"_s}));
    EXPECT_EQ(captions.size(), 19);
    EXPECT_EQ(boardOpening(u"Equipment Reports"), nullptr) << "a heading opens nothing";
}
