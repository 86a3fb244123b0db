#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"

#include "support/TestFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

TEST(ParseLength, IsInHundredthsOfAMillimetre)
{
    using Case = std::pair<QString, std::optional<Length>>;
    const Case cases[] = {
        // Lengths.
        Case{u"12.5mm"_s, 1250}, Case{u"2cm"_s, 2000}, Case{u"1in"_s, 2540}, Case{u"72pt"_s, 2540},
        Case{u" 3 mm "_s, 300}, Case{u"-1.006mm"_s, -101}, Case{u"0mm"_s, 0},
        // None.
        Case{u"12"_s, std::nullopt}, Case{u"mm"_s, std::nullopt}, Case{u"1,5mm"_s, std::nullopt},
        Case{u"nanmm"_s, std::nullopt}, Case{u"infmm"_s, std::nullopt},
        Case{u"99999999mm"_s, std::nullopt}, Case{QString(), std::nullopt}};
    for (const auto &[text, length] : cases)
        EXPECT_EQ(parseLength(text), length) << text.toStdString();
}

const QByteArray wholeLayout = R"x(<?xml version="1.0" encoding="UTF-8"?>
<report version="2" name="rptOrders" title="Orders">
  <page paper="A4" landscape="yes" left="10mm"/>
  <group name="site" by="SiteName"/>
  <group name="order" by="WorkorderNo" newPage="yes" keepTogether="yes" repeatHeader="yes" resetPageNumber="yes"/>
  <formula name="Total">Price * Quantity</formula>
  <band kind="reportHeader" height="12mm">
    <text name="lblCompanyName" width="100mm" height="8mm" content="Company" size="14" bold="yes" color="#24476d"/>
  </band>
  <band kind="groupHeader" group="order" height="6.5mm" printIf="Quantity &gt; 0" newPageAfter="yes">
    <box height="6mm" lineWidth="0.35mm" fill="#eeeeee"/>
  </band>
  <band kind="detail" height="5mm">
    <field x="10mm" width="20mm" content="Total" format="$0.00" canGrow="yes" hideRepeated="yes" visibleIf="Skip = 0" font="Courier New" italic="yes" underline="yes" align="right" verticalAlign="middle" padding="0.5mm" border="left bottom" borderWidth="0.1mm" borderColor="#ff0000">
      <when condition="Total &gt; 100" color="#ff0000" fill="#ffff00" bold="yes"/>
    </field>
    <line y="5mm" width="100mm" height="0mm"/>
    <picture content="logo.png"/>
    <barCode content="UnitNo" border="all"/>
    <chart x="1mm" width="80mm" height="50mm" format="$0" kind="stackedBars" title="Cost of {SiteName}" category="Day" categoryFormat="mmm yyyy" categoryTitle="Month" valueTitle="Cost" legend="right" order="category" most="12" others="yes">
      <when condition="Total &gt; 0" fill="#ffffff"/>
      <series name="Parts" value="sum(Total)" color="#0072b2"/>
      <series value="Labor" by="Crew" byFormat="0"/>
    </chart>
  </band>
  <band kind="groupFooter" group="site" height="5mm" newPageBefore="yes" atBottom="yes"/>
</report>
)x";

TEST(LayoutFile, KeepsAllThatALayoutHolds)
{
    const LayoutReading reading = readLayout(wholeLayout);
    ASSERT_TRUE(reading.layout) << reading.error.toStdString();
    EXPECT_TRUE(reading.warnings.isEmpty());
    const Layout &layout = *reading.layout;
    EXPECT_EQ(layout.page.width(), 29700);
    EXPECT_EQ(layout.page.innerHeight(), 21000 - 2 * 1270);
    EXPECT_TRUE(layout.groups[1].resetPageNumber && layout.groups[1].keepTogether);
    EXPECT_EQ(layout.bands[1].printIf, u"Quantity > 0");
    const Object &field = layout.bands[2].objects[0];
    EXPECT_EQ(field.x, 1000);
    EXPECT_EQ(field.height, 500) << "as usual";
    EXPECT_EQ(field.style.align, Align::Right);
    EXPECT_TRUE(field.style.border.left && field.style.border.bottom);
    EXPECT_FALSE(field.style.border.top || field.style.border.right);
    EXPECT_EQ(field.conditionalStyles[0].fill, QColor(Qt::yellow));
    EXPECT_EQ(layout.find(u"LBLCOMPANYNAME"), &layout.bands[0].objects[0]);
    EXPECT_EQ(layout.find(u"lblNone"), nullptr);
    EXPECT_EQ(writeLayout(layout).toStdString(), wholeLayout.toStdString())
        << "the same text comes back, so that versions of a file can be compared";
}

TEST(LayoutFile, UnknownPartsWarnAndTheRestIsRead)
{
    const LayoutReading reading = readLayout("<report version=\"1\">\n"
                                             "  <band kind=\"detail\" colour=\"red\">\n"
                                             "    <map><slice/></map>\n"
                                             "    <field content=\"Name\"/>\n"
                                             "  </band>\n"
                                             "</report>");
    ASSERT_TRUE(reading.layout) << reading.error.toStdString();
    EXPECT_EQ(reading.layout->bands[0].objects.size(), 1);
    ASSERT_EQ(reading.warnings.size(), 2);
    EXPECT_THAT(
        reading.warnings.join(u'\n').toStdString(),
        testing::MatchesRegex("Line 2, column [0-9]+: .*\"colour\" of \"band\" is not known.*\n"
                              "Line 3, column [0-9]+: .*\"map\" is not known here.*"));
}

QByteArray inBand(const QByteArray &object)
{
    return "<report version=\"1\">\n<band kind=\"detail\">\n" + object + "\n</band>\n</report>";
}

TEST(LayoutFile, DamagedOnesAreRefusedWithLineAndColumn)
{
    struct Damaged
    {
        QByteArray text;
        const char *place, *error;
    };
    const Damaged files[] = {
        {"", "Line 1, column 0", ""},
        {QByteArray("\x50\x4b\x03\x04", 4), "Line 1, column", ""},
        {"<html/>", "Line 1, column", "it begins with \"html\""},
        {"<report/>", "Line 1, column", "\"report\" has no \"version\""},
        {"<report version=\"99\"/>", "Line 1, column", "newer version"},
        {"<report version=\"1\">\n<band kind=\"detail\">", "Line 2, column 20", ""},
        {"<report version=\"1\"></report>\n<x/>", "Line 2, column", ""},
        {"<report version=\"1\">\n<band kind=\"side\"/></report>", "Line 2, column",
         "There is no band \"side\""},
        {"<report version=\"1\">\n<band kind=\"groupHeader\" group=\"x\"/></report>",
         "Line 2, column", "group \"x\", which is not there"},
        {"<report version=\"1\"><group name=\"a\" by=\"b\"/><group name=\"A\" "
         "by=\"c\"/></report>",
         "Line 1, column", "two groups \"A\""},
        {inBand("<field width=\"12\"/>"), "Line 3, column 19", "\"12\" is no length"},
        {inBand("<field color=\"reddish\"/>"), "Line 3", "is no colour"},
        {inBand("<field bold=\"true\"/>"), "Line 3", "\"yes\" or \"no\""},
        {inBand("<field align=\"justify\"/>"), "Line 3", "can't be \"justify\""},
        {inBand("<field size=\"nan\"/>"), "Line 3", "is no size"},
        {inBand("<field border=\"lefty\"/>"), "Line 3", "no side of a border"},
        {inBand("<field height=\"-1mm\"/>"), "Line 3", "less than 0"},
        {inBand("<crossTab rows=\"a\" columns=\"b\"/>"), "Line 3", "no \"value\""},
        {"<report version=\"2\">\n<band kind=\"subDetail\" rows=\"x\"/></report>", "Line 2, column",
         "rows \"x\", which are not there"},
        {"<report version=\"2\"><parameter name=\"a\"/><parameter name=\"A\"/></report>", "Line 1",
         "two parameters \"A\""},
        {"<report version=\"2\"><parameter name=\"a\" type=\"time\"/></report>", "Line 1",
         "can't be \"time\""},
        {inBand("<field style=\"Title\"/>"), "Line 3", "no style \"Title\""},
        {"<report version=\"3\">\n<image name=\"a\">?</image></report>", "Line 2",
         "image \"a\" can't be read"},
        {"<report version=\"3\"><style name=\"a\"/><style name=\"A\"/></report>", "Line 1",
         "two styles \"A\""},
        {inBand("<chart category=\"a\"/>"), "Line 3", "no \"series\""},
        {inBand("<chart><series value=\"a\"/></chart>"), "Line 3", "no \"category\""},
        {inBand("<chart category=\"a\" most=\"-1\"/>"), "Line 3", "no number of things"},
        {"<report version=\"1\"><page paper=\"A0\"/></report>", "Line 1",
         "paper \"A0\" is not known"},
        {"<report version=\"1\"><page left=\"20cm\" right=\"20cm\"/></report>", "Line 1",
         "no room"}};
    for (const Damaged &file : files) {
        SCOPED_TRACE(file.text.toStdString());
        const LayoutReading reading = readLayout(file.text);
        EXPECT_FALSE(reading.layout);
        EXPECT_THAT(reading.error.toStdString(), testing::AllOf(testing::StartsWith(file.place),
                                                                testing::HasSubstr(file.error)));
    }
}

TEST(LayoutFile, IsWrittenWholeOrNotAtAll)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"rptX.rpt"_s);
    writeLayoutFile(*readLayout(wholeLayout).layout, path);
    EXPECT_EQ(readLayoutFile(path).layout, readLayout(wholeLayout).layout);
    EXPECT_THROW(writeLayoutFile(Layout(), folder.filePath(u"missing/rptX.rpt"_s)), base::Error);
    const LayoutReading missing = readLayoutFile(folder.filePath(u"none.rpt"_s));
    EXPECT_FALSE(missing.layout);
    EXPECT_TRUE(missing.error.contains(u"none.rpt"));
}

/// Word processors and terminals give such characters along with what is copied from them.
TEST(LayoutFile, CharactersThatItCantHoldCostNothingElse)
{
    Layout layout = *readLayout(wholeLayout).layout;
    const auto put = [&layout](const QString &query, const QString &content) {
        layout.query = query;
        layout.formulas[0].expression = content;
        layout.bands[0].objects[0].content = content;
    };
    put(u"select a\v-- b\x01z\uffff"_s, u"two\vlines\f\x1b, a\ttab, "_s + QChar(0xd800) + u'ü');
    const LayoutReading reading = readLayout(writeLayout(layout));
    ASSERT_TRUE(reading.layout) << reading.error.toStdString();
    put(u"select a\n-- bz"_s, u"two\nlines\n, a\ttab, \ufffdü"_s);
    EXPECT_EQ(reading.layout, layout);
}

/// The files of the versions in use come back as they are.
TEST(LayoutFile, EveryVersionIsStillRead)
{
    for (int version = 1; version <= Layout::CurrentVersion; ++version) {
        const QString path = QStringLiteral(REPORT_TEST_DATA "/version%1.rpt").arg(version);
        const LayoutReading reading = readLayoutFile(path);
        ASSERT_TRUE(reading.layout) << reading.error.toStdString();
        EXPECT_TRUE(reading.warnings.isEmpty());
        if (version == 1) {
            EXPECT_EQ(reading.layout->find(u"lblCompanyName")->style.font.points, 14);
            continue;
        }
        EXPECT_EQ(writeLayout(*reading.layout).toStdString(), test::readFile(path).toStdString());
    }
}

TEST(LayoutFile, ObjectsFollowTheirStyleButForWhatTheySayThemselves)
{
    const Layout layout = *readLayoutFile(QStringLiteral(REPORT_TEST_DATA "/version3.rpt")).layout;
    const Object &whole = layout.bands[0].objects[0];
    EXPECT_EQ(whole.style, layout.styles[0].style);
    const Style &own = layout.bands[0].objects[1].style;
    EXPECT_FALSE(own.font.bold || own.fill.isValid() || !own.border.isNone());
    EXPECT_EQ(own.align, Align::Left);
    EXPECT_EQ(own.color, QColor(Qt::white)) << "what it doesn't say is that of its style";
    EXPECT_TRUE(layout.pictures[0].data.startsWith("\x89PNG"));
}

} // namespace
} // namespace report
