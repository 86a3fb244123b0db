#include "platform/base/Environment.h"
#include "platform/report/paginate/ChartAxis.h"
#include "platform/report/paginate/ChartCollector.h"
#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/Export.h"

#include "Drawn.h"
#include "ReportRows.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A chart of 100 by 60 mm in a band.
Layout chartIn(const QByteArray &band, const QByteArray &attributes, const QByteArray &series,
               const QByteArray &before = {})
{
    return layoutOf("<report version=\"1\"><page left=\"10mm\" top=\"10mm\"/>" + before + "<band " +
                    band + " height=\"60mm\"><chart width=\"100mm\" height=\"60mm\" " + attributes +
                    ">" + series + "</chart></band></report>");
}

Layout inFooter(const QByteArray &attributes, const QByteArray &series)
{
    return chartIn("kind=\"reportFooter\"", attributes, series);
}

const QByteArray cost = R"(<series name="Cost" value="Cost"/>)";

Rows costs()
{
    const auto day = [](int month, int of) { return base::wallClock(QDate(2024, month, of)); };
    return {{u"Site"_s, u"Unit"_s, u"Kind"_s, u"Cost"_s, u"Hours"_s, u"Day"_s},
            {{u"N"_s, u"M-1"_s, u"Oil"_s, 10.5, 1, day(1, 5)},
             {u"N"_s, u"M-2"_s, u"Belt"_s, 4, 2, day(1, 31)},
             {u"N"_s, u"m-1"_s, u"Belt"_s, 20, QVariant(), day(2, 1)},
             {u"S"_s, u"M-3"_s, u"Oil"_s, -6, 3, day(2, 1)},
             {u"S"_s, QVariant(), u"Oil"_s, QVariant(), 4, day(2, 2)}}};
}

TEST(Chart, CollectsTheRowsOfItsBandsGroupOrOfTheReport)
{
    const QByteArray group = R"(<group name="site" by="Site"/><band kind="detail" height="5mm"/>)";
    struct Case
    {
        QByteArray band, attributes, series;
        const char *table;
    };
    const Case cases[] = {
        {"kind=\"reportHeader\"", "category=\"Unit\" title=\"All\" categoryTitle=\"Unit\"", cost,
         "All|Unit Cost|M-1 30.5|M-2 4|M-3 -6|(none) -"},
        {"kind=\"groupHeader\" group=\"site\"", "category=\"Unit\" title=\"{Site}\"", cost,
         "N| Cost|M-1 30.5|M-2 4 / S| Cost|M-3 -6|(none) -"},
        {"kind=\"groupFooter\" group=\"site\"", "category=\"Unit\" title=\"{Site}\"", cost,
         "N| Cost|M-1 30.5|M-2 4 / S| Cost|M-3 -6|(none) -"},
        // Several series, aggregates of their own, and what is no aggregate from the last row.
        {"kind=\"reportFooter\"", "category=\"Unit\"",
         R"x(<series name="n" value="count(*)"/><series name="rate" value="sum(Cost) / sum(Hours)"/>
            <series name="last" value="max(Cost) + if(Kind = 'Belt', 100, 0)"/>)x",
         "| n rate last|M-1 2 30.5 120|M-2 1 2 104|M-3 1 -2 -6|(none) 1 - -"},
        // A series for each kind.
        {"kind=\"reportFooter\"", "category=\"Site\"", R"(<series by="Kind" value="Cost"/>)",
         "| Oil Belt|N 10.5 24|S -6 -"},
        {"kind=\"reportFooter\"", "category=\"Unit\" order=\"value\" most=\"2\"", cost,
         "| Cost|M-1 30.5|M-2 4"},
        {"kind=\"reportFooter\"", "category=\"Unit\" order=\"value\" most=\"1\" others=\"yes\"",
         R"x(<series name="Cost" value="Cost"/><series name="avg" value="avg(Hours)"/>)x",
         "| Cost avg|M-1 30.5 1|Others (3) -2 3"},
        // Stacked bars go by their whole height.
        {"kind=\"reportFooter\"", "category=\"Unit\" order=\"value\" kind=\"stackedBars\"",
         R"x(<series name="Cost" value="Cost"/><series name="time" value="Hours * 20"/>)x",
         "| Cost time|(none) - 80|M-3 -6 60|M-1 30.5 20|M-2 4 40"},
        {"kind=\"reportFooter\"", "category=\"Unit\" order=\"category\"", cost,
         "| Cost|(none) -|M-1 30.5|M-2 4|M-3 -6"},
        // What the category's format shows alike belongs together.
        {"kind=\"reportFooter\"", "category=\"Day\" categoryFormat=\"mmm yyyy\"", cost,
         "| Cost|Jan 2024 14.5|Feb 2024 14"}};
    for (const Case &one : cases)
        EXPECT_EQ(chartTables(chartIn(one.band, one.attributes, one.series, group), costs()),
                  one.table)
            << one.band.toStdString() << one.attributes.toStdString();
}

TEST(Chart, WhatItCantUseIsTold)
{
    const Layout layout = inFooter("category=\"sum(Cost)\" title=\"{Nobody}\"",
                                   R"x(<series value="Colour"/><series value="sum(Cost, 'page')"/>
                                       <series value="sum(Width)"/>)x");
    expectTold(problemsOf(layout, costs()),
               {u"can't hold an aggregate"_s, u"no field \"nobody\""_s, u"no field \"colour\""_s,
                u"takes no \"page\""_s, u"no field \"width\""_s});
}

TEST(ChartAxis, HasRoundTicksAboutAllValues)
{
    struct Case
    {
        double least, largest;
        int steps;
        bool whole;
        QList<double> ticks;
    };
    const Case cases[] = {{0, 30.5, 4, false, {0, 10, 20, 30, 40}},
                          {-6, 30.5, 9, false, {-10, -5, 0, 5, 10, 15, 20, 25, 30, 35}},
                          {-6, 30.5, 8, false, {-10, 0, 10, 20, 30, 40}},
                          {0, 0.3, 3, false, {0, 0.1, 0.2, 0.3}},
                          {0, 2, 10, true, {0, 1, 2}},
                          {0, 0, 5, true, {0, 1}},
                          {7, 7, 2, false, {0, 5, 10}},
                          {-7, -7, 2, false, {-10, -5, 0}},
                          {1000, 1250, 5, false, {1000, 1050, 1100, 1150, 1200, 1250}},
                          {0, 1e9, 2, false, {0, 5e8, 1e9}}};
    for (const Case &one : cases) {
        SCOPED_TRACE(one.largest);
        const ChartAxis axis(one.least, one.largest, one.steps, one.whole);
        QList<double> ticks;
        for (int tick = 0; tick < axis.ticks(); ++tick)
            ticks.append(axis.tick(tick));
        EXPECT_EQ(ticks, one.ticks);
        EXPECT_LE(axis.low(), one.least);
        EXPECT_GE(axis.high(), one.largest);
    }
}

/// All texts of a page with the place that their letters take.
QList<std::pair<QString, QRect>> texts(const Page &page)
{
    QList<std::pair<QString, QRect>> found;
    for (const TextItem &text : itemsOf<TextItem>(page))
        for (const TextLine &line : text.lines) {
            const Length top = lineTop(line, text.style);
            const Length height = lineBottom(line, text.style) - top;
            found.append({line.text, text.turned
                                         ? QRect(line.x - (line.baseline - top),
                                                 line.baseline - line.width, height, line.width)
                                         : QRect(line.x, top, line.width, height)});
        }
    return found;
}

Rows many(int count, const QString &name)
{
    QList<QVariantList> rows;
    for (int number = 0; number < count; ++number)
        rows.append(QVariantList{name.arg(number), number * number * 37.5 - 400, number % 3});
    return {{u"Name"_s, u"Cost"_s, u"Kind"_s}, rows};
}

TEST(Chart, NothingOverlapsOrLeavesTheFrame)
{
    const QRect frame(1000, 1000, 10000, 6000);
    const QString longName = u"Riding mower of the south crew, number %1"_s;
    for (const char *kind : {"bars", "stackedBars", "line"})
        for (const char *legend : {"bottom", "right"})
            for (const int count : {1, 4, 13, 200})
                for (const QString &name : {u"%1"_s, u"M-%1/2024"_s, longName}) {
                    SCOPED_TRACE(testing::Message() << kind << ' ' << legend << ' ' << count << ' '
                                                    << qPrintable(name));
                    const Layout layout = inFooter(
                        QByteArray("kind=\"") + kind + "\" legend=\"" + legend +
                            "\" category=\"Name\" title=\"Cost of everything that we have had done "
                            "within the last twelve months and before\" valueTitle=\"Dollars\" "
                            "categoryTitle=\"Machine\" format=\"$#,##0\"",
                        R"(<series name="Cost" value="Cost"/><series name="Kind" by="Name" value="Kind"/>)");
                    const QList<Page> pages = allPages(layout, many(count, name), {});
                    const auto found = texts(pages[0]);
                    EXPECT_GE(found.size(), 5);
                    for (qsizetype a = 0; a < found.size(); ++a) {
                        EXPECT_TRUE(frame.contains(found[a].second))
                            << found[a].first.toStdString();
                        for (qsizetype b = 0; b < a; ++b)
                            EXPECT_FALSE(found[a].second.intersects(found[b].second))
                                << found[a].first.toStdString() << " and "
                                << found[b].first.toStdString();
                    }
                    for (const BoxItem &box : itemsOf<BoxItem>(pages[0]))
                        EXPECT_TRUE(frame.contains(box.frame));
                    for (const ShapeItem &shape : itemsOf<ShapeItem>(pages[0]))
                        EXPECT_TRUE(frame.contains(shape.frame));
                }
}

/// The labels of the values' axis, which stand right-aligned beside it, from below.
QStringList valueLabels(const Layout &layout, const Rows &rows)
{
    QStringList labels;
    for (const TextItem &text : itemsOf<TextItem>(allPages(layout, rows, {})[0]))
        if (text.style.align == Align::Right)
            labels.append(text.lines[0].text);
    return labels;
}

TEST(Chart, TicksReadDifferentlyAndBarsStandOnZero)
{
    const Rows small({u"Name"_s, u"Cost"_s}, {{u"a"_s, 0.4}, {u"b"_s, 2.2}});
    EXPECT_EQ(valueLabels(inFooter("category=\"Name\" format=\"0\"", cost), small),
              (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s}));
    const Rows far({u"Name"_s, u"Cost"_s}, {{u"a"_s, 1000}, {u"b"_s, 1010}});
    EXPECT_EQ(valueLabels(inFooter("category=\"Name\"", cost), far).first(), u"0");
    EXPECT_EQ(valueLabels(inFooter("kind=\"line\" category=\"Name\"", cost), far).first(), u"1000");
    EXPECT_EQ(valueLabels(inFooter("kind=\"line\" category=\"Name\"", cost), small).first(), u"0");
}

TEST(Chart, NamesThatAreLeftOutAreSoRegularly)
{
    QList<QVariantList> rows;
    for (int number = 0; number < 40; ++number)
        rows.append(
            {u"D%1"_s.arg(number) + (number % 5 == 0 ? u" of March"_s : QString()), number});
    const Page page = allPages(inFooter("kind=\"line\" category=\"Name\"", cost),
                               Rows({u"Name"_s, u"Cost"_s}, rows), {})[0];
    QList<int> shown;
    for (const auto &text : texts(page))
        if (text.first.startsWith(u'D'))
            shown.append(text.first.sliced(1).section(u' ', 0, 0).toInt());
    ASSERT_GE(shown.size(), 5);
    for (qsizetype label = 1; label < shown.size(); ++label)
        EXPECT_EQ(shown[label] - shown[label - 1], shown[1] - shown[0]);
}

TEST(Chart, NamesStandUprightInLinesWhereTheirWordsFit)
{
    const auto labels = [](const QString &name, int count) {
        int turned = 0;
        QStringList words;
        for (const TextItem &text : itemsOf<TextItem>(
                 allPages(inFooter("category=\"Name\"", cost), many(count, name), {})[0])) {
            turned += text.turned;
            words.append(text.lines.value(0).text);
        }
        return std::pair(turned, words.filter(u"yard"_s));
    };
    EXPECT_EQ(labels(u"%1 storage yard of the south"_s, 4).second.value(0), u"0 storage yard"_s);
    EXPECT_EQ(labels(u"%1 yard"_s, 4).first, 0);
    EXPECT_EQ(labels(u"%1yard-of-the-southern-crew"_s, 4).first, 4) << "no word is broken";
    EXPECT_EQ(labels(u"%1 storage yard of the south"_s, 13).first, 13);
    const QStringList longer = labels(u"yard%1"_s + QString(80, u'n'), 9).second;
    EXPECT_EQ(longer.filter(QChar(0x2026)).size(), 9) << "longer ones end in an ellipsis";
}

/// The bars of a page by their fill.
QList<QRect> bars(const Page &page, const QColor &color)
{
    QList<QRect> found;
    for (const BoxItem &box : itemsOf<BoxItem>(page))
        if (box.fill == color)
            found.append(box.frame);
    return found;
}

TEST(Chart, BarsAreAsHighAsTheirValues)
{
    const Rows rows({u"Name"_s, u"A"_s, u"B"_s}, {{u"x"_s, 10, 30}, {u"y"_s, -20, QVariant()}});
    const QByteArray series = R"(<series name="A" value="A" color="#ff0000"/>
                                 <series name="B" value="B" color="#0000ff"/>)";
    const QByteArray plain = "legend=\"none\" category=\"Name\"";
    const Page beside = allPages(inFooter(plain, series), rows, {})[0];
    const auto red = bars(beside, Qt::red);
    const auto blue = bars(beside, Qt::blue);
    ASSERT_EQ(std::pair(red.size(), blue.size()), std::pair(qsizetype(2), qsizetype(1)));
    EXPECT_NEAR(red[1].height(), 2 * red[0].height(), 2);
    EXPECT_NEAR(blue[0].height(), 3 * red[0].height(), 3);
    EXPECT_EQ(red[0].y() + red[0].height(), red[1].y()) << "up and down from zero";
    EXPECT_EQ(red[0].x() + red[0].width(), blue[0].x());

    const Page stacked = allPages(inFooter("kind=\"stackedBars\" " + plain, series), rows, {})[0];
    const auto lower = bars(stacked, Qt::red);
    const auto upper = bars(stacked, Qt::blue);
    EXPECT_EQ(upper[0].y() + upper[0].height(), lower[0].y());
    EXPECT_EQ(upper[0].x(), lower[0].x());

    QSet<QRgb> colors;
    for (std::size_t number = 0; number < 24; ++number)
        colors.insert(usualSeriesColor(number).rgb());
    EXPECT_EQ(colors.size(), 24) << "each series has one of its own";
}

TEST(Chart, LinesBreakWhereAValueIsMissing)
{
    const Rows rows({u"Name"_s, u"A"_s},
                    {{u"a"_s, 1}, {u"b"_s, 3}, {u"c"_s, QVariant()}, {u"d"_s, 2}, {u"e"_s, 2}});
    const Page page = allPages(
        inFooter("kind=\"line\" category=\"Name\"", R"(<series value="A" color="#ff0000"/>)"), rows,
        {})[0];
    QStringList lines;
    for (const ShapeItem &shape : itemsOf<ShapeItem>(page))
        if (!shape.closed)
            lines.append(
                u"%1:%2"_s.arg(shape.points.size())
                    .arg(shape.points[0].y() > shape.points[1].y() ? u"up"_s : u"level"_s));
    EXPECT_EQ(lines.join(u' ').toStdString(), "2:up 2:level");
}

TEST(Chart, WithoutValuesSaysSo)
{
    for (const Rows &rows :
         {Rows({u"Name"_s, u"Cost"_s}, {}), Rows({u"Name"_s, u"Cost"_s}, {{u"a"_s, QVariant()}})})
        EXPECT_EQ(pageWords(inFooter("category=\"Name\" title=\"Costs\"", cost), rows),
                  "Costs No values");
}

TEST(Chart, EveryOutputHasIt)
{
    const QTemporaryDir folder;
    const Layout layout =
        chartIn("kind=\"reportFooter\"",
                "title=\"Cost by unit\" category=\"Unit\" categoryTitle=\"Unit\"", cost,
                R"(<band kind="pageHeader"><text content="Kind"/></band>
                                     <band kind="detail"><field content="Kind"/></band>)");
    const auto written = [&](const QString &name) {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(
            exportReport(layout, costs(), {}, path, *exportFormat(path)).problems.isEmpty());
        return test::readFile(path);
    };
    EXPECT_EQ(written(u"a.csv"_s).toStdString(),
              "\xEF\xBB\xBFKind\r\nOil\r\nBelt\r\nBelt\r\nOil\r\nOil\r\n\r\nCost by unit\r\n"
              "Unit,Cost\r\nM-1,30.5\r\nM-2,4\r\nM-3,-6\r\n(none),\r\n");
    const std::string html = written(u"a.html"_s).toStdString();
    EXPECT_THAT(html, testing::HasSubstr("Cost by unit"));
    EXPECT_THAT(html, testing::HasSubstr("M-3"));
    EXPECT_EQ(written(u"a.pdf"_s).first(5), "%PDF-");
    EXPECT_EQ(written(u"a.xlsx"_s).first(2), "PK");
    if (const auto sheet = outputOf(
            u"unzip"_s, {u"-p"_s, folder.filePath(u"a.xlsx"_s), u"xl/worksheets/sheet1.xml"_s})) {
        EXPECT_THAT(sheet->toStdString(), testing::ContainsRegex("M-3</t>.*<v>-6</v>"));
    }
    const QImage image = drawn(allPages(layout, costs(), {})[0], {2200, 2800}, 0.1);
    EXPECT_GT(pointsOf(image, QColor(0, 0x72, 0xb2)), 5000) << "bars are painted";
}

} // namespace
} // namespace report
