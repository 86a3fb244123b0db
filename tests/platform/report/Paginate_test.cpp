#include "platform/base/Environment.h"
#include "platform/report/paginate/PagesAhead.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/Tabulator.h"
#include "platform/report/paginate/TextFlow.h"

#include "ReportRows.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A page with 10 mm margins at the left and top and room for six bands of 5 mm.
constexpr auto smallPage = R"(<page left="10mm" top="10mm" right="10mm" bottom="239.4mm"/>)";

Layout smallLayout(const QByteArray &content)
{
    return layoutOf(QByteArray("<report version=\"1\">") + smallPage + content + "</report>");
}

QString pagesText(const Layout &layout, const DataSource &rows, const Inputs &inputs = {})
{
    QString text;
    QStringList problems;
    for (const Page &page : allPages(layout, rows, inputs, &problems))
        text += pageText(page);
    EXPECT_EQ(problems, QStringList());
    return text;
}

Rows numbers(int count)
{
    QList<QVariantList> rows;
    for (int number = 1; number <= count; ++number)
        rows.append(QVariantList{number});
    return {{u"N"_s}, rows};
}

/// Rows of texts such as "a 1 x,b 2 x": one field for each word, named A, B, C.
Rows lettered(const QString &lines)
{
    QList<QVariantList> rows;
    for (const QString &line : lines.split(u',', Qt::SkipEmptyParts)) {
        const QStringList words = line.split(u' ');
        rows.append(QVariantList(words.cbegin(), words.cend()));
    }
    return {{u"A"_s, u"B"_s, u"C"_s}, rows};
}

constexpr auto detailN = R"(<band kind="detail" height="5mm"><field content="N"/></band>)";

TEST(Paginate, EverythingStandsAtItsPlace)
{
    const Layout layout = smallLayout(R"x(
        <band kind="reportHeader" height="6mm"><text name="lblCompanyName" width="80mm" content="?"/></band>
        <band kind="pageHeader" height="5mm"><text content="Part"/><line y="5mm" width="60mm" height="0mm"/></band>
        <band kind="detail" height="5mm"><box width="60mm" height="5mm" fill="#eeeeee"/>
          <field x="1mm" content="Part"/><field x="31mm" content="Price" format="$0.00" align="right"/></band>
        <band kind="reportFooter" height="5mm"><field x="31mm" content="sum(Price)" format="$0.00"/></band>
        <band kind="pageFooter" height="4mm"><text content="Page {PageNumber} of {TotalPages}"/></band>)x");
    const Rows rows({u"Part"_s, u"Price"_s}, {{u"Oil"_s, 2.5}, {u"Belt"_s, 10}});
    Inputs inputs;
    inputs.texts.insert(u"LBLCOMPANYNAME"_s, u"Green {Acres}"_s);
    EXPECT_EQ(pagesText(layout, rows, inputs).toStdString(), R"(page 1
  text 1000,1000 8000x500 "Green {Acres}"
  text 1000,1600 3000x500 "Part"
  line 1000,2100 7000,2100
  box 1000,2100 6000x500 #eeeeee
  text 1100,2100 3000x500 "Oil"
  text 4100,2100 3000x500 "$2.50"
  box 1000,2600 6000x500 #eeeeee
  text 1100,2600 3000x500 "Belt"
  text 4100,2600 3000x500 "$10.00"
  text 4100,3100 3000x500 "$12.50"
  text 1000,3600 3000x500 "Page 1 of 1"
)");
}

TEST(Paginate, LinesOfTextStandOnTheirBaselines)
{
    const Layout layout = smallLayout(
        R"(<band kind="detail" height="5mm"><field content="N" align="right" verticalAlign="bottom"/></band>)");
    const QList<Page> pages = allPages(layout, numbers(1), {});
    const auto &text = std::get<TextItem>(pages[0].items[0]);
    // 9 points are 318 units; a figure is 0.556 of that wide, the ascent is 0.905 and the
    // descent 0.212 of it.
    ASSERT_EQ(text.lines.size(), 1);
    EXPECT_EQ(text.lines[0].width, 177);
    EXPECT_EQ(text.lines[0].x, 1000 + 3000 - 177);
    EXPECT_NEAR(text.lines[0].baseline, 1000 + 500 - 67, 1);
}

TEST(Paginate, GroupsToThreeLevelsTotalEachForItself)
{
    const Layout layout = layoutOf(R"x(<report version="1">
        <group name="site" by="Site"/><group name="crew" by="Crew"/><group name="unit" by="Unit"/>
        <band kind="groupHeader" group="site"><field content="'S' &amp; Site"/></band>
        <band kind="groupHeader" group="crew"><field content="'C' &amp; Crew"/></band>
        <band kind="groupHeader" group="unit"><field content="'U' &amp; Unit"/></band>
        <band kind="detail"><field content="Cost &amp; '=' &amp; sum(Cost, 'unit') &amp; '+' &amp; sum(Cost)"/></band>
        <band kind="groupFooter" group="unit"><field content="'u' &amp; sum(Cost)"/></band>
        <band kind="groupFooter" group="crew"><field content="'c' &amp; sum(Cost) &amp; 'n' &amp; count(*)"/></band>
        <band kind="groupFooter" group="site"><field content="'s' &amp; Site &amp; sum(Cost) &amp; 'x' &amp; max(Cost)"/></band>
        <band kind="reportFooter"><field width="80mm" content="'r' &amp; sum(Cost) &amp; 'a' &amp; avg(Cost)"/></band>
        </report>)x");
    const Rows rows({u"Site"_s, u"Crew"_s, u"Unit"_s, u"Cost"_s}, {{u"A"_s, 1, 1, 1},
                                                                   {u"A"_s, 1, 1, 2},
                                                                   {u"A"_s, 1, 2, 4},
                                                                   {u"a"_s, 2, 2, 8},
                                                                   {u"B"_s, 2, 2, 16},
                                                                   {QVariant(), 2, 2, 9}});
    EXPECT_EQ(pageWords(layout, rows), "SA C1 U1 1=1+1 2=3+3 u3 U2 4=4+7 u4 c7n3 "
                                       "C2 U2 8=8+15 u8 c8n1 sa15x8 "
                                       "SB C2 U2 16=16+31 u16 c16n1 sB16x16 "
                                       "S C2 U2 9=9+40 u9 c9n1 s9x9 "
                                       "r40a6.66666666666667");
}

/// A band of 5 mm, six of which fill a page; its attributes begin with the kind.
QByteArray band(const QByteArray &kind, const QByteArray &text)
{
    return "<band height=\"5mm\" kind=\"" + kind + "\"><text content=\"" + text + "\"/></band>";
}

TEST(Paginate, BandsFallOnPagesByTheRulesOfTheirGroups)
{
    const QByteArray group = R"(<group name="g" by="A"/>)";
    const QByteArray kept = R"(<group name="g" by="A" keepTogether="yes"/>)";
    const QByteArray header = band("groupHeader\" group=\"g", "{A}");
    const QByteArray detail = band("detail", "{B}");
    const QByteArray total = band("reportFooter", "all {count(*)}@{PageNumber}");
    const QByteArray whole =
        kept + header + detail + band("groupFooter\" group=\"g", "t{count(*)}");
    const QByteArray levels = R"(<group name="g" by="A"/><group name="h" by="B"/>)" + header +
                              band("groupFooter\" group=\"h", "h{sum(number(C))}") +
                              band("groupFooter\" group=\"g", "g{sum(number(C))}");
    const QByteArray tall = header +
                            R"(<band kind="detail" height="15mm"><field content="B"/></band>)" +
                            band("pageFooter", "{PageNumber}of{TotalPages}");
    const QByteArray filled =
        band("detail", "{A}") + band("pageFooter", "{PageNumber}/{TotalPages}:{sum(number(A))}");
    const QByteArray repeated = R"(<band kind="detail" height="5mm">
        <field content="B" hideRepeated="yes"/><text content="{B}!" hideRepeated="yes"/><field content="C"/></band>)";
    const struct
    {
        const char *rule;
        QByteArray content;
        QString rows;
        const char *words;
    } cases[] = {
        {"a page holds what fits above its footer", filled, u"1,2,3,4,5"_s, "1 2 3 4 5 1/1:15"},
        {"the rest goes on the next", filled, u"1,2,3,4,5,6"_s, "1 2 3 4 5 1/2:15 / 6 2/2:6"},
        {"without rows there is one page", filled, {}, "1/1:"},
        {"totals of pages count what stands on them",
         kept + header + detail + band("pageFooter", "={sum(number(B))}"),
         u"a 1,a 2,b 4,b 8,c 16"_s, "a 1 2 =3 / b 4 8 c 16 =28"},
        {"and rows without a band",
         kept + band("detail\" printIf=\"B = 1", "{B}") + band("pageFooter", "={sum(number(C))}"),
         u"a 1 1,a 2 2,a 3 4,b 2 8"_s, "1 =15"},
        {"a running total of the page is of what stands above the row",
         R"x(<band kind="detail" height="10mm"><text content="{A}:{sum(number(A), 'page')}"/></band>)x",
         u"1,2,3,4,5"_s, "1: 2:1 3:3 / 4: 5:4"},
        {"kept groups move whole", whole, u"a 1,a 2,b 1,c 1,c 2"_s, "a 1 2 t2 / b 1 t1 / c 1 2 t2"},
        {"as many as fit", whole, u"a 1,b 1,c 1"_s, "a 1 t1 b 1 t1 / c 1 t1"},
        {"but for one longer than a page", whole, u"a 1,b 1,b 2,b 3,b 4,b 5,b 6"_s,
         "a 1 t1 b 1 2 / 3 4 5 6 t6"},
        {"others don't", QByteArray(whole).replace(kept, group), u"a 1,a 2,b 1"_s,
         "a 1 2 t2 / b 1 t1"},
        {"a header stands with its first detail",
         levels.first(levels.indexOf("<band")) +
             band("groupHeader\" group=\"g", "{A}@{PageNumber}") +
             band("groupHeader\" group=\"h", "{B}") + band("detail", "{C}"),
         u"a x 1,a x 2,b y 3"_s, "a@1 x 1 2 / b@2 y 3"},
        {"headers repeat where their group goes on",
         R"(<group name="g" by="A" repeatHeader="yes"/>)" + band("pageHeader", "P{PageNumber}") +
             header + detail,
         u"a 1,a 2,a 3,a 4,a 5,b 6"_s, "P1 a 1 2 3 4 / P2 a 5 b 6"},
        {"groups begin pages", R"(<group name="g" by="A" newPage="yes"/>)" + tall, u"a 1,a 2,b 1"_s,
         "a 1 1of3 / 2 2of3 / b 1 3of3"},
        {"and their numbers",
         R"(<group name="g" by="A" newPage="yes" resetPageNumber="yes"/>)" + tall, u"a 1,a 2,b 1"_s,
         "a 1 1of2 / 2 2of2 / b 1 1of1"},
        {"an outer header goes to the page of its inner group",
         R"(<group name="g" by="A"/><group name="h" by="B" newPage="yes"/>)" + header +
             band("groupHeader\" group=\"h", "{B}") + band("detail", "{C}"),
         u"a x 1,a y 2,b z 3"_s, "a x 1 / y 2 / b z 3"},
        {"a band ends its page, without an empty one at the end",
         kept + detail + band("groupFooter\" group=\"g\" newPageAfter=\"yes", "f{A}") +
             band("pageFooter", "p{PageNumber}"),
         u"a 1,b 2"_s, "1 fa p1 / 2 fb p2"},
        {"or begins one", detail + band("reportFooter\" newPageBefore=\"yes", "end"), u"a 1,b 2"_s,
         "1 2 / end"},
        {"a title's page", band("reportHeader\" newPageAfter=\"yes", "title") + detail,
         u"a 1,b 2"_s, "title / 1 2"},
        {"no total stands alone on a page", detail + total, u"a 1,a 2,a 3,a 4,a 5,a 6"_s,
         "1 2 3 4 5 / 6 all 6@2"},
        {"those of all levels stay with the last detail", levels + detail + total,
         u"a x 1,a x 2,a x 3"_s, "a x x / x h6 g6 all 3@2"},
        {"without details the innermost footers are the lines", levels + total,
         u"a x 1,a y 2,a z 3,a u 4,a v 5"_s, "a h1 h2 h3 h4 / h5 g15 all 5@2"},
        {"a kept group goes with its total", kept + detail + total, u"a 1,a 2,b 3,b 4,b 5,b 6"_s,
         "1 2 / 3 4 5 6 all 6@2"},
        {"one that fills a page gives a line", kept + detail + total, u"b 1,b 2,b 3,b 4,b 5,b 6"_s,
         "1 2 3 4 5 / 6 all 6@2"},
        {"and so does a longer one", kept + detail + total,
         u"b 1,b 2,b 3,b 4,b 5,b 6,b 7,b 8,b 9,b 10,b 11,b 12"_s,
         "1 2 3 4 5 6 / 7 8 9 10 11 / 12 all 12@3"},
        {"running totals are those of their row on whichever page",
         R"x(<group name="k" by="A" keepTogether="yes"/>
            <band kind="detail" height="5mm"><field content="A" hideRepeated="yes"/>
              <field content="'=' &amp; sum(number(B))"/></band>)x" +
             band("reportFooter", "p{PageNumber}"),
         u"a 1,a 2,a 4,a 8,b 16,b 32"_s, "a =1 =3 =7 =15 / b =31 =63 p2"},
        {"headers that fill the page leave a band for each",
         R"(<band kind="pageHeader" height="28mm"><text content="P"/></band>)" +
             band("detail", "{A}"),
         u"1,2,3"_s, "P 1 / P 2 / P 3"},
        {"repeated values are hidden", repeated, u"a x 1,a x 2,a y 3"_s, "x x! 1 2 y y! 3"},
        {"until a group begins", group + repeated, u"a x 1,b x 2,b x 3"_s, "x x! 1 x x! 2 3"},
        {"or a page", repeated, u"a x 1,a x 2,a x 3,a x 4,a x 5,a x 6,a x 7"_s,
         "x x! 1 2 3 4 5 6 / x x! 7"},
        // 2,500 of room holds seven lines of 355.
        {"a text longer than a page goes on on the next",
         band("pageHeader", "P{PageNumber}") +
             R"(<band kind="detail" height="5mm"><field content="A" canGrow="yes"/></band>)",
         u"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16,x"_s,
         "P1 1 2 3 4 5 6 7 / P2 8 9 10 11 12 13 14 / P3 15 16 x"}};
    for (const auto &one : cases)
        EXPECT_EQ(pageWords(smallLayout(one.content), lettered(one.rows)), one.words) << one.rule;
}

TEST(Paginate, AGroupLongerThanAPageIsNotHeldBack)
{
    const Layout layout =
        smallLayout(QByteArray(R"(<group name="g" by="1" keepTogether="yes"/>)") + detailN);
    int row = 0;
    Inputs inputs;
    inputs.progress = [&](int done, int) { row = done; };
    const Outcome outcome = paginate(layout, numbers(500), inputs, [&](Page &&page) {
        EXPECT_LT(row, page.number * 6 + 3) << "six rows a page";
        return true;
    });
    EXPECT_EQ(outcome.pages, 84);
}

TEST(Paginate, BandsPrintOnlyUnderTheirConditionAndFootersAtTheBottom)
{
    const Layout layout = smallLayout(
        R"(<band kind="detail" height="5mm" printIf="N mod 2 = 1"><field content="N"/></band>
           <band kind="reportFooter" height="5mm" atBottom="yes"><text content="sum {sum(N)}"/></band>
           <band kind="pageFooter" height="5mm" printIf="PageNumber &gt; 1"><text content="no"/></band>)");
    EXPECT_EQ(pagesText(layout, numbers(3)).toStdString(), R"(page 1
  text 1000,1000 3000x500 "1"
  text 1000,1500 3000x500 "3"
  text 1000,3000 3000x500 "sum 6"
)");
}

TEST(Paginate, TextGrowsPushesAndStretchesWhereItMay)
{
    const Layout layout = layoutOf(R"(<report version="1"><page left="0mm" top="0mm"/>
        <band kind="detail" height="12mm">
          <box width="60mm" height="11mm"/>
          <field width="20mm" height="4mm" content="'one two three four'" canGrow="yes"/>
          <field x="25mm" width="20mm" height="4mm" content="'a'"/>
          <field y="5mm" width="20mm" height="4mm" content="'five six seven eight'" canGrow="yes"/>
          <line y="12mm" width="60mm" height="0mm"/>
        </band></report>)");
    // Two lines of 9 points are 710.5, rounded up 711 high: 311 more than there is, twice.
    EXPECT_EQ(pagesText(layout, numbers(1)).toStdString(), R"(page 1
  box 0,0 6000x1722
  text 0,0 2000x711 "one two three|four"
  text 2500,0 2000x400 "a"
  text 0,811 2000x711 "five six seven|eight"
  line 0,1822 6000,1822
)");

    const Layout cut = smallLayout(
        R"(<band kind="detail" height="5mm"><field width="20mm" height="4mm" content="'one two three four'"/></band>)");
    QStringList problems;
    EXPECT_EQ(pageWords(cut, numbers(2), {}, &problems), "one two three one two three");
    EXPECT_EQ(problems, QStringList{u"'one two three four': the text \"one two three four\" is cut "
                                    "off, its frame is too small."_s})
        << "once, not for each row";
}

TEST(Paginate, AsManyPagesAreCountedAsCome)
{
    for (const char *bands :
         {R"x(<band kind="detail" height="5mm"><field width="20mm" height="4mm" canGrow="yes"
             content="if(N mod 3 = 0, 'one two three four', 'one')"/></band>)x",
          R"(<band kind="detail" height="5mm"><field width="20mm" height="4mm" canGrow="yes"
             content="'one two three four'" visibleIf="N mod 2 = 0" hideRepeated="yes"/></band>)",
          R"(<band kind="detail" height="5mm"><field y="3mm" height="4mm" content="N"/></band>)",
          R"(<band kind="reportFooter" height="10mm"><crossTab width="60mm" height="10mm" rows="N"
             columns="1" value="N"/></band>)"}) {
        const QList<Page> pages =
            allPages(smallLayout(QByteArray(bands) + R"(<band kind="pageFooter" height="5mm">
                         <text content="{PageNumber} of {TotalPages}"/></band>)"),
                     numbers(20), {});
        EXPECT_GT(pages.size(), 1) << bands;
        EXPECT_THAT(wordsOf(pages.last()).toStdString(),
                    testing::EndsWith(u"%1 of %1"_s.arg(pages.size()).toStdString()))
            << bands;
    }
}

TEST(Paginate, WhatGoesBeyondThePaperIsTold)
{
    // A sheet of 215.9 mm with a margin of 10.
    for (const auto &[place, fits] : {std::pair("x=\"-10mm\" width=\"215.9mm\"", true),
                                      {"x=\"-10.1mm\"", false},
                                      {"x=\"170mm\" width=\"36mm\"", false}})
        EXPECT_EQ(problemsOf(smallLayout(QByteArray("<band kind=\"detail\"><text ") + place +
                                         " content=\"a\"/></band>"),
                             numbers(1))
                      .isEmpty(),
                  fits)
            << place;
}

TEST(Paginate, ConditionsChangeStylesAndHide)
{
    const Layout layout = smallLayout(R"(<band kind="detail" height="5mm">
             <field content="N"><when condition="N = 2" color="#ff0000" fill="#ffff00" bold="yes"/></field>
             <text content="odd" visibleIf="N mod 2 = 1"/></band>)");
    const QList<Page> pages = allPages(layout, numbers(2), {});
    ASSERT_EQ(pages[0].items.size(), 3);
    EXPECT_EQ(std::get<TextItem>(pages[0].items[0]).style, Style());
    const Style &marked = std::get<TextItem>(pages[0].items[2]).style;
    EXPECT_EQ(marked.color, QColor(Qt::red));
    EXPECT_EQ(marked.fill, QColor(Qt::yellow));
    EXPECT_TRUE(marked.font.bold);
}

TEST(Paginate, FormulasTheDayAndTheRowServeAsFields)
{
    const Layout layout = smallLayout(
        R"(<formula name="NoOfDays">0</formula><formula name="Twice">[N 1] * 2</formula>
           <band kind="detail"><text width="80mm" content="{Twice}:{NoOfDays}:{sum(Twice)}:{{x} {RowNumber} {Today} {format(Now, 'hh:mm')} {N 1}"/></band>)");
    Inputs inputs;
    inputs.formulas.insert(u"NoOfDays"_s, u"31"_s); // in place of its own
    inputs.now = base::wallClock(QDate(2024, 3, 15), QTime(9, 30));
    EXPECT_EQ(pageWords(layout, Rows({u"N 1"_s}, {{1}, {2}}), inputs),
              "2:31:2:{x} 1 3/15/2024 09:30 1 4:31:6:{x} 2 3/15/2024 09:30 2");
}

TEST(Paginate, ProblemsAreToldOnceAndTheRestPrints)
{
    const Layout layout = smallLayout(
        R"x(<band kind="detail" height="5mm"><field content="N"/><field content="Colour"/>
             <field name="lblSum" content="sum(N,"/><field content="sum(N, 'nobody')"/>
             <picture content="missing.png"/><barCode content="'&#x4e2d;'"/><text content="open {N"/></band>)x");
    QStringList problems;
    EXPECT_THAT(pageWords(layout, numbers(3), {}, &problems), testing::StartsWith("1"));
    EXPECT_EQ(problems.size(), 6);
    expectTold(problems, {u"there is no field \"colour\""_s, u"lblSum: "_s,
                          u"there is no group \"nobody\""_s, u"\"missing.png\" is not there"_s,
                          u"can't be written as a bar code"_s, u"has no closing brace"_s});
}

TEST(Paginate, TellsOfEachRowInEachPass)
{
    const Layout layout = smallLayout(QByteArray(detailN) + R"(<band kind="pageFooter" height="5mm">
        <text content="of {TotalPages}"/></band>)");
    QStringList told;
    Inputs inputs;
    inputs.progress = [&](int done, int all) { told.append(u"%1/%2"_s.arg(done).arg(all)); };
    (void)pagesText(layout, numbers(2), inputs);
    EXPECT_EQ(told.join(u' '), u"1/2 2/2 1/2 2/2"_s);
}

TEST(PagesAhead, ComeAsThoseThatArePaginated)
{
    const Layout layout = smallLayout(QByteArray(detailN) + R"(<band kind="pageFooter" height="5mm">
        <text content="{PageNumber} of {TotalPages}"/><field content="Colour"/></band>)");
    const Rows rows = numbers(500);
    QStringList problems;
    const QList<Page> expected = allPages(layout, rows, {}, &problems);
    QList<Page> pages;
    int told = 0;
    Inputs inputs;
    inputs.progress = [&](int, int) { ++told; };
    const Outcome outcome = paginateAhead(layout, rows, inputs, [&](Page &&page) {
        pages.append(std::move(page));
        return true;
    });
    EXPECT_EQ(pages, expected);
    EXPECT_GE(told, expected.size()) << "also while no page comes";
    EXPECT_EQ(outcome.pages, expected.size());
    EXPECT_EQ(outcome.problems, problems);
    EXPECT_FALSE(outcome.stopped);
}

TEST(PagesAhead, EndWithTheSinkAsThoseThatAreNotAhead)
{
    const Layout layout = smallLayout(detailN);
    const Rows rows = numbers(5000);
    int seen = 0;
    for (const auto run : {paginate, paginateAhead}) {
        seen = 0;
        const Outcome outcome = run(layout, rows, {}, [&](const Page &page) {
            EXPECT_EQ(page.number, ++seen);
            return seen < 3;
        });
        EXPECT_EQ(seen, 3);
        EXPECT_EQ(outcome.pages, 3);
        EXPECT_TRUE(outcome.stopped);
    }
    EXPECT_THROW((void)paginateAhead(layout, rows, {},
                                     [](Page &&) -> bool { throw std::runtime_error("full"); }),
                 std::runtime_error);
    Inputs cancelled;
    cancelled.isCancelled = [&] { return seen > 3; };
    EXPECT_EQ(paginateAhead(layout, rows, cancelled, [&](Page &&) { return ++seen > 0; }).pages, 1);
}

TEST(Paginate, EndsWhereItIsCancelled)
{
    int rows = 0;
    Inputs inputs;
    inputs.isCancelled = [&] { return ++rows > 20; };
    const Outcome outcome =
        paginate(smallLayout(detailN), numbers(100), inputs, [](Page &&) { return true; });
    EXPECT_TRUE(outcome.stopped);
    EXPECT_LE(outcome.pages, 3) << "six rows a page";
    rows = 0;
    const Layout counted = smallLayout(
        QByteArray(detailN) + R"(<band kind="pageFooter"><text content="{TotalPages}"/></band>)");
    EXPECT_EQ(paginate(counted, numbers(100), inputs, [](Page &&) { return true; }).pages, 0);
}

TEST(Paginate, PicturesComeFromFilesAndRows)
{
    QTemporaryDir folder;
    // The smallest picture there is, and one with a byte behind its end.
    const QByteArray logo("GIF89a\1\0\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 28);
    test::writeFile(folder.filePath(u"logo.png"_s), logo);
    Inputs inputs;
    inputs.folder = folder.path();

    const Layout layout = smallLayout(
        R"(<band kind="detail" height="5mm"><picture content="logo.png"/><picture content="=Photo"/></band>)");
    EXPECT_EQ(
        pagesText(layout, Rows({u"Photo"_s}, {{logo + '\0'}, {QVariant()}}), inputs).toStdString(),
        R"(page 1
  picture 1000,1000 3000x500 28 bytes
  picture 1000,1000 3000x500 29 bytes
  picture 1000,1500 3000x500 28 bytes
)");
}

TEST(Paginate, BarCodesAreCode128)
{
    const Layout layout = smallLayout(
        R"(<band kind="detail" height="15mm"><barCode width="46mm" height="10mm" content="'A'"/></band>)");
    const QList<Page> pages = allPages(layout, numbers(1), {});
    const auto &code = std::get<BarCodeItem>(pages[0].items[0]);
    // Start B 211214, "A" 111323, check (104 + 33) mod 103 = 34, which is 131123, stop 2331112:
    // 46 modules of 100 units.
    const int widths[] = {2, 1, 1, 2, 1, 4, 1, 1, 1, 3, 2, 3, 1,
                          3, 1, 1, 2, 3, 2, 3, 3, 1, 1, 1, 2};
    int at = 1000;
    QList<QRect> bars;
    for (std::size_t part = 0; part < std::size(widths); ++part) {
        if (part % 2 == 0)
            bars.append(QRect(at, 1000, widths[part] * 100, 1000));
        at += widths[part] * 100;
    }
    EXPECT_EQ(code.bars, bars);
}

TEST(FlowText, BreaksBetweenWordsAndWithinLongOnes)
{
    Style style;
    QStringList lines;
    // A figure of 9 points is 177 wide, so 1,000 holds five.
    for (const TextLine &line : flowText(u"12 34\r\n1234567 8\n\nab"_s, style, 1000))
        lines.append(line.text);
    EXPECT_EQ(lines, (QStringList{u"12 34"_s, u"12345"_s, u"67 8"_s, QString(), u"ab"_s}));
    style.padding = 100;
    style.align = Align::Center;
    const QList<TextLine> padded = flowText(u"11"_s, style, 1000);
    EXPECT_EQ(padded[0].x, (1000 - 354) / 2);
    EXPECT_EQ(flowHeight(padded, style), 356 + 200);
}

TEST(Tabulate, GivesBandsWithoutPages)
{
    const Layout layout = smallLayout(R"x(<group name="g" by="A"/>
           <band kind="reportHeader"><text content="Title"/></band>
           <band kind="pageHeader"><text content="Head"/></band>
           <band kind="groupHeader" group="g"><field content="A"/></band>
           <band kind="detail"><field content="B" hideRepeated="yes"/><line/></band>
           <band kind="groupFooter" group="g"><field content="count(*)" format="0.0"/></band>
           <band kind="pageFooter"><text content="Foot"/></band>)x");
    QStringList lines;
    const Outcome outcome =
        tabulate(layout, lettered(u"a x,a x,b x"_s), {}, [&](const TableBand &band) {
            for (const TableCell &cell : band.cells)
                lines.append(cell.text);
            return true;
        });
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(lines.join(u' ').toStdString(), "Title Head a x x 2.0 b x 1.0");
}

} // namespace
} // namespace report
