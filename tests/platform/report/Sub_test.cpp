#include "ReportRows.h"
#include "platform/base/Environment.h"

#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Machines with their services and pictures, six bands of 5 mm a page.
Layout machines(const QByteArray &bands, const QByteArray &before = {})
{
    return layoutOf(
        R"x(<report version="2"><page left="10mm" top="10mm" right="10mm" bottom="239.4mm"/>
        <rows name="services" key="Machine" of="ID">Select 1</rows>
        <rows name="pictures" key="Of" of="ID">Select 2</rows>)x" +
        before + R"(<band kind="detail" height="5mm"><field content="Name"/></band>)" + bands +
        "</report>");
}

const Rows machineRows({u"ID"_s, u"Name"_s},
                       {{1, u"Mower"_s}, {2.0, u"Truck"_s}, {QVariant(), u"Edger"_s}});

Inputs sets()
{
    Inputs inputs;
    inputs.rowSets.insert(
        u"Services"_s, std::make_shared<Rows>(QStringList{u"Machine"_s, u"Name"_s, u"Cost"_s},
                                              QList<QVariantList>{{2, u"Oil"_s, 8},
                                                                  {1, u"Oil"_s, 1},
                                                                  {1, u"Oil"_s, 2},
                                                                  {7, u"Lost"_s, 4},
                                                                  {QVariant(), u"None"_s, 4},
                                                                  {QString(u""_s), u"Blank"_s, 4},
                                                                  {1, u"Belt"_s, 4}}));
    inputs.rowSets.insert(u"pictures"_s,
                          std::make_shared<Rows>(QStringList{u"Of"_s, u"File"_s},
                                                 QList<QVariantList>{{u"1"_s, u"a.png"_s}}));
    return inputs;
}

TEST(SubBands, ShowTheRowsThatBelongToARow)
{
    const struct
    {
        const char *rule;
        QByteArray bands;
        QByteArray before;
        const char *words;
    } cases[] = {
        {"a machine stands with its first service, a total with the last",
         R"x(<band kind="reportHeader" height="5mm"/>
            <band kind="subHeader" rows="services" height="5mm"><field content="'(' &amp; ID"/></band>
            <band kind="subDetail" rows="SERVICES" height="5mm"><field content="Name" hideRepeated="yes"/>
              <field content="RowNumber &amp; '=' &amp; Cost &amp; '+' &amp; sum(Cost)"/></band>
            <band kind="subFooter" rows="services" height="5mm"><field content="count(*) &amp; ')' &amp; max(Cost)"/></band>
            <band kind="subDetail" rows="pictures" height="5mm"><field content="File"/></band>
            <band kind="reportFooter" height="5mm"><field content="'all ' &amp; count(*)"/></band>)x",
         {},
         "Mower (1 Oil 1=1+1 2=2+3 / (1 Belt 3=4+7 3)4 a.png / Truck (2 Oil 1=8+8 1)8 Edger all 3"},
        {"repeats are shown anew for each row",
         R"x(<band kind="subDetail" rows="services" height="1mm"><field content="left(Name, 0) &amp; 'S'" hideRepeated="yes"/></band>)x",
         {},
         "Mower S Truck S Edger"},
        {"bands of pages and groups show the report's own row",
         R"x(<band kind="subDetail" rows="services" height="10mm"><field content="Name"/></band>)x",
         R"x(<group name="unit" by="ID" repeatHeader="yes"/>
            <band kind="pageHeader" height="5mm"><field content="'P' &amp; RowNumber"/></band>
            <band kind="groupHeader" group="unit" height="5mm"><field content="'G' &amp; Name"/></band>)x",
         "P1 GMower Mower Oil / P1 GMower Oil Belt / P2 GTruck Truck Oil / P3 GEdger Edger"}};
    for (const auto &one : cases)
        EXPECT_EQ(pageWords(machines(one.bands, one.before), machineRows, sets()), one.words)
            << one.rule;
}

TEST(SubBands, AChartOfThemHasTheirRows)
{
    const Layout layout = machines(
        R"x(<band kind="subFooter" rows="services" height="40mm">
              <chart category="Name" title="{count(*)}"><series name="Cost" value="Cost"/></chart></band>)x");
    EXPECT_EQ(chartTables(layout, machineRows, sets()), "3| Cost|Oil 3|Belt 4 / 1| Cost|Oil 8");
}

TEST(SubBands, WhatIsMissingIsTold)
{
    Inputs inputs = sets();
    inputs.rowSets.remove(u"pictures"_s);
    const Layout layout = machines(
        R"x(<band kind="subDetail" rows="services"><field content="Colour"/><field content="sum(Cost, 'report')"/></band>
            <band kind="subDetail" rows="pictures"><field content="ID"/></band>)x");
    expectTold(
        problemsOf(layout, machineRows, inputs),
        {u"\"pictures\" were not given"_s, u"no field \"colour\""_s, u"takes no \"report\""_s});
}

TEST(CrossTab, SumsByTwoKeysInTheirOrder)
{
    const auto day = [](int month, int of) { return base::wallClock(QDate(2024, month, of)); };
    const Rows rows({u"Site"_s, u"Day"_s, u"Cost"_s}, {{u"South"_s, day(2, 3), 4},
                                                       {u"North"_s, day(1, 9), 1.5},
                                                       {u"south"_s, day(1, 2), 2},
                                                       {u"North"_s, day(1, 1), 0.25}});
    const auto table = [&](const QByteArray &attributes, const QByteArray &place) {
        const Layout layout = layoutOf(
            "<report version=\"2\"><page left=\"10mm\" top=\"10mm\"/><band kind=\"reportHeader\">"
            "<crossTab rows=\"Site\" columns=\"Day\" columnsFormat=\"mmm\" value=\"Cost\" " +
            attributes + place + "/></band></report>");
        QStringList problems;
        QString lines;
        int y = -1;
        for (const Page &page : allPages(layout, rows, {}, &problems))
            for (const TextItem &text : itemsOf<TextItem>(page)) {
                lines += (y < 0 ? u""_s : text.frame.y() == y ? u" "_s : u"|"_s);
                lines += text.lines[0].text;
                y = text.frame.y();
            }
        return (lines + problems.join(u'\n')).toStdString();
    };
    EXPECT_EQ(table("title=\"Cost\" rowsTitle=\"Site\" totals=\"yes\" format=\"0.00\" ",
                    "width=\"100mm\""),
              "Cost|Site Jan Feb Total|North 1.75 1.75|South 2.00 4.00 6.00|Total 3.75 4.00 7.75");
    EXPECT_EQ(table({}, "width=\"100mm\""), "Jan Feb|North 1.75|South 2 4");
    // The name takes 10 mm, each column some 10 with its gap.
    EXPECT_EQ(table("totals=\"yes\" ", "width=\"30mm\""),
              "Jan Feb|North 1.75|South 2 4|Total 3.75 4|Total|North 1.75|South 6|Total 7.75")
        << "what finds no room follows below";
    EXPECT_THAT(table("name=\"lblCosts\" ", "width=\"8mm\""),
                testing::HasSubstr("lblCosts: a cross-tab is too narrow"));
}

TEST(CrossTab, LongNamesLeaveRoomForTheValues)
{
    const Rows rows({u"A"_s, u"B"_s}, {{QString(60, u'w'), QString(60, u'm')}});
    const Layout layout = layoutOf(
        "<report version=\"2\"><band kind=\"reportHeader\"><crossTab width=\"50mm\" rows=\"A\" "
        "columns=\"B\" value=\"count(*)\"/></band></report>");
    const QList<TextItem> texts = itemsOf<TextItem>(allPages(layout, rows, {})[0]);
    ASSERT_EQ(texts.size(), 3);
    EXPECT_EQ(texts[0].frame.width() + texts[1].frame.width() + 250, 5000) << "and the gap";
    EXPECT_EQ(texts[1].frame.width(), 2000) << "names take two fifths at most";
    EXPECT_TRUE(texts[0].lines[0].text.endsWith(u'…') && texts[1].lines[0].text.endsWith(u'…'));
    EXPECT_EQ(texts[2].lines[0].text, u"1");
}

TEST(CrossTab, PushesWhatLiesBelow)
{
    const Rows rows({u"A"_s, u"B"_s}, {{1, 1}, {2, 1}, {3, 1}, {4, 1}});
    const Layout layout = layoutOf(
        R"x(<report version="2"><page left="0mm" top="0mm"/><band kind="reportHeader" height="12mm">
            <crossTab width="50mm" height="5mm" rows="A" columns="B" value="count(*)"/>
            <text y="6mm" height="4mm" content="below"/></band></report>)x");
    const Page page = allPages(layout, rows, {})[0];
    const auto &last = std::get<TextItem>(page.items.last());
    EXPECT_EQ(last.lines[0].text, u"below");
    // Five lines of a height of 396: 9 points of 355.3 each, and the space between them.
    EXPECT_EQ(last.frame.y(), 600 + 5 * 396 - 500);
}

} // namespace
} // namespace report
