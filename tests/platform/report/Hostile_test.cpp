#include "Drawn.h"
#include "ReportRows.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/PictureFile.h"
#include "platform/report/paginate/RowOrder.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtEndian>
#include <array>
#include <gmock/gmock.h>
#include <limits>
#include <zlib.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

QByteArray report(const QByteArray &content)
{
    return "<report version=\"3\">\n" + content + "\n</report>";
}

QByteArray detail(const QByteArray &objects)
{
    return report("<band kind=\"detail\" height=\"5mm\">" + objects + "</band>");
}

/// So many elements whose "#" is their number.
QByteArray many(int count, const QByteArray &element)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += QByteArray(element).replace("#", QByteArray::number(i));
    return all;
}

// Whatever took more than the time that goes with its size would be ended by the time limit.

TEST(HostileLayout, IsRefusedWithItsPlace)
{
    const QByteArray name(2000, 'n');
    const std::pair<QByteArray, const char *> files[] = {
        {report(many(21, "<group name=\"g#\" by=\"N\"/>")), "more than 20 groups"},
        {report(many(501, "<formula name=\"f#\">1</formula>")), "more than 500 formulas"},
        {report(many(501, "<band kind=\"detail\"/>")), "more than 500 bands"},
        {detail(many(1001, "<box/>")), "more than 1000 objects"},
        {detail("<box>" + many(501, "<when condition=\"1\"/>") + "</box>"), "more than 500"},
        {detail("<chart category=\"N\">" + many(501, "<series value=\"N\"/>") + "</chart>"),
         "more than 500 series"},
        {detail("<box name=\"" + name + "\"/>"), "longer than 1000"},
        {report("<formula name=\"" + name + "\">1</formula>"), "longer than 1000"},
        {detail("<box " + many(200'000, "a#='' ") + "/>"), "more than 200 attributes"},
        {"<!DOCTYPE report [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
         "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;'>]>" +
             report("<query>&d;&d;</query>"),
         ""},
        {"<report version=\"3\">" + QByteArray("<band>").repeated(200'000), ""},
        {report("<page left=\"-20cm\"/>"), "can't be less than 0"},
        {detail("<box width=\"-1mm\"/>"), "less than 0"},
        {detail("<box x=\"1e9mm\"/>"), "is no length"},
        {detail("<box height=\"infmm\"/>"), "is no length"},
        {detail("<text size=\"1e300\"/>"), "is no size"}};
    for (const auto &[text, error] : files) {
        const LayoutReading reading = readLayout(text);
        EXPECT_FALSE(reading.layout) << text.left(200).toStdString();
        EXPECT_THAT(reading.error.toStdString(),
                    testing::AllOf(testing::MatchesRegex("Line [0-9]+, column [0-9]+: .+"),
                                   HasSubstr(error)));
    }
    const QByteArray withOther = "<!DOCTYPE report [<!ENTITY a SYSTEM 'file:///etc/passwd'>]>" +
                                 report("<query>&a;</query>");
    EXPECT_EQ(readLayout(withOther).layout.value_or(Layout()).query, QString());
}

/// What is told of a report that prints the formula f29 of one row.
std::string toldOf(const QByteArray &formulas)
{
    const Layout layout =
        layoutOf(report(formulas + "<band kind=\"detail\"><field content=\"f29\"/></band>"));
    const Rows rows({u"N"_s}, {{1}});
    (void)orderOf(layout, rows, {});
    return problemsOf(layout, rows).join(u'\n').toStdString();
}

TEST(HostileLayout, FormulasEndHoweverTheyNameEachOther)
{
    const char *const back = "it leads back to itself";
    const char *const many = "it is made of too many";
    EXPECT_THAT(toldOf("<formula name=\"f29\">F29 + 1</formula>"), HasSubstr(back));
    EXPECT_THAT(toldOf("<formula name=\"f29\">b &amp; b &amp; b</formula>"
                       "<formula name=\"b\">f29 &amp; f29 &amp; sum(f29)</formula>"),
                HasSubstr(back));
    QByteArray doubled = "<formula name=\"f0\">N</formula><sort by=\"f29\"/>";
    QByteArray chained = "<formula name=\"f0\">N</formula>";
    for (int i = 1; i < 30; ++i) {
        const QByteArray before = "f" + QByteArray::number(i - 1);
        const QByteArray begin = "<formula name=\"f" + QByteArray::number(i) + "\">" + before;
        doubled += begin + " &amp; " + before + "</formula>";
        chained += begin + "</formula>";
    }
    EXPECT_THAT(toldOf(doubled), HasSubstr(many));
    EXPECT_THAT(toldOf(chained), HasSubstr(many));
    const QByteArray dear = "<formula name=\"f0\">N" + QByteArray(" + N").repeated(900) +
                            "</formula><formula name=\"f29\">f0</formula><sort by=\"f29" +
                            QByteArray(" + f0").repeated(500) + "\"/><group name=\"g\" by=\"f0" +
                            QByteArray(" + f0").repeated(500) + "\"/>";
    EXPECT_THAT(toldOf(dear), HasSubstr("group g: it is made of too many formulas"));
    EXPECT_EQ(toldOf("<formula name=\"f29\">a + a</formula><formula name=\"a\">N</formula>"), "");
}

TEST(HostileLayout, DeepExpressionsAreToldAndNothingIsDrawnOfThem)
{
    // Chains within chains lean to the left deeper than any stack.
    QByteArray chains = "1";
    for (int i = 0; i < 40; ++i)
        chains =
            "(" + chains + ")" + QByteArray("*1").repeated(1000) + QByteArray("+1").repeated(1000);
    for (const auto &[expression, fault] :
         {std::pair(QByteArray("(").repeated(10'000) + "1" + QByteArray(")").repeated(10'000),
                    "nested too deeply (character"),
          {QByteArray("if(1, ").repeated(10'000) + "1" + QByteArray(")").repeated(10'000),
           "nested too deeply (character"},
          {QByteArray("-").repeated(10'000) + "1", "nested too deeply (character"},
          {QByteArray("not ").repeated(10'000) + "1", "nested too deeply (character"},
          {"1" + QByteArray("+1").repeated(100'000), "too long (character"},
          {chains, "(character"}}) {
        const QStringList problems = problemsOf(
            layoutOf(detail("<field content=\"" + expression + "\"/>")), Rows({u"N"_s}, {{1}}));
        ASSERT_EQ(problems.size(), 1);
        EXPECT_THAT(problems[0].toStdString(), HasSubstr(fault));
    }
}

TEST(HostileLayout, PrintsInTheTimeAndMemoryThatGoWithItsSize)
{
    struct Printed
    {
        QByteArray layout;
        int rows;
        int leastPages, mostPages;
        const char *problem; ///< "" for none
    };
    const QByteArray tall = "<band kind=\"groupHeader\" group=\"g#\" height=\"100mm\"/>";
    const Printed cases[] = {
        // A page smaller than its bands, with headers that come again.
        {report(
             "<page top=\"139mm\" bottom=\"139mm\"/>" +
             many(20, "<group name=\"g#\" by=\"N\" repeatHeader=\"yes\" keepTogether=\"yes\"/>") +
             many(20, tall) + many(400, "<band kind=\"detail\" height=\"20mm\"/>")),
         3, 1200, 1300, ""},
        {report("<page top=\"139.69mm\" bottom=\"139.7mm\"/>"
                "<band kind=\"detail\" height=\"9999mm\"><box width=\"1mm\" "
                "height=\"9999mm\"/></band>"),
         3, 3, 3, ""},
        {report(many(500, "<band kind=\"pageHeader\" height=\"9999mm\"/>")), 2, 1, 2, ""},
        // Rows without end that take no room.
        {report("<group name=\"g\" by=\"1\" keepTogether=\"yes\"/><band kind=\"detail\" "
                "height=\"0mm\"><box height=\"0mm\"/></band>"),
         50'000, 1, 1, ""},
        // Each object grows and pushes all that lie below.
        {detail(many(1000, "<text y=\"#mm\" width=\"0mm\" height=\"0mm\" canGrow=\"yes\" "
                           "size=\"1000\" content=\"{Long}\"/>")),
         1, 1, 500, "is cut off, it is too long"},
        {detail("<text width=\"1mm\" canGrow=\"yes\" content=\"{Long}{Long}\"/>"), 1, 300, 500,
         "is cut off, it is too long"},
        {detail("<field content=\"Lines\" canGrow=\"yes\"/>"), 1, 300, 500, "it is too long"},
        {detail("<field content=\"Long &amp; Long &amp; Long &amp; Long &amp; Long &amp; Long\"/>"),
         1, 1, 1, "its frame is too small"},
        {report("<band kind=\"detail\" height=\"60mm\"><chart width=\"60mm\" height=\"60mm\" "
                "kind=\"line\" "
                "category=\"RowNumber\"><series value=\"Tiny\"/><series "
                "value=\"Near\"/></chart></band>"),
         2, 1, 1, ""},
        // A remark for each name would be longer than the file.
        {detail("<field name=\"" + QByteArray(1000, 'x') + "\" content=\"0" + many(1900, " + a#") +
                "\"/>")
             .repeated(1),
         1, 1, 1, "there is no field \"a0\""},
        {detail("<barCode content=\"Long\"/><barCode content=\"Nothing\"/>"), 3, 1, 1,
         "can't be written as a bar code"},
        // As many categories and series as rows: more values than memory holds.
        {report("<band kind=\"reportFooter\"><crossTab width=\"20mm\" height=\"1mm\" "
                "rows=\"RowNumber\" columns=\"RowNumber\" value=\"N\"/></band>"),
         1050, 300, 500, "too many lines"},
        {report("<band kind=\"reportFooter\" height=\"90mm\"><chart width=\"90mm\" height=\"90mm\" "
                "category=\"RowNumber\"><series value=\"N\" by=\"RowNumber\"/></chart></band>"),
         1050, 1, 1, "too many values"}};
    const QString text(400'000, u'x');
    const QString lines = u"a\n"_s.repeated(300'000);
    for (const Printed &one : cases) {
        SCOPED_TRACE(one.layout.left(300).toStdString());
        QList<QVariantList> values;
        for (int row = 0; row < one.rows; ++row)
            values.append({row, text, lines, 5e-324 * row, 1e14 + row / 64.0,
                           std::numeric_limits<double>::quiet_NaN()});
        const Rows rows({u"N"_s, u"Long"_s, u"Lines"_s, u"Tiny"_s, u"Near"_s, u"Nothing"_s},
                        values);
        const LayoutReading reading = readLayout(one.layout);
        ASSERT_TRUE(reading.layout) << reading.error.toStdString();
        const Outcome outcome =
            paginate(*reading.layout, rows, {}, [](const Page &) { return true; });
        EXPECT_GE(outcome.pages, one.leastPages);
        EXPECT_LE(outcome.pages, one.mostPages);
        EXPECT_THAT(outcome.problems.join(u'\n').toStdString(), HasSubstr(one.problem));
        EXPECT_EQ(outcome.problems.isEmpty(), one.problem[0] == '\0')
            << outcome.problems.join(u'\n').left(500).toStdString();
        EXPECT_LE(outcome.problems.size(), 1000);
    }
}

TEST(HostileLayout, NoNumbersHaveAPlaceInAnOrder)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(compareValues(none, none), 0);
    EXPECT_EQ(compareValues(none, -1e308), -1);
    EXPECT_EQ(compareValues(3, none), 1);
}

// --- Pictures ------------------------------------------------------------------------------------

QByteArray pixel()
{
    return pictureFile({1, 1}, Qt::red);
}

TEST(PictureFileBeside, IsKeptToItsFolder)
{
    QTemporaryDir home;
    const QDir root(home.path());
    ASSERT_TRUE(root.mkpath(u"reports/sub"_s));
    ASSERT_TRUE(root.mkpath(u"reports-of-others"_s));
    for (const QString &file :
         {u"secret.png"_s, u"reports-of-others/a.png"_s, u"reports/logo.png"_s,
          u"reports/sub/a b.png"_s, u"reports/CON.png"_s, u"reports/com1"_s})
        test::writeFile(root.filePath(file), pixel());
    ASSERT_TRUE(QFile::link(root.filePath(u"secret.png"_s), root.filePath(u"reports/link.png"_s)));
    ASSERT_TRUE(QFile::link(root.path(), root.filePath(u"reports/up"_s)));
    ASSERT_TRUE(
        QFile::link(root.filePath(u"reports/logo.png"_s), root.filePath(u"reports/in.png"_s)));
    const QString folder = root.filePath(u"reports"_s);
    const QString absolute = root.filePath(u"reports/logo.png"_s);
    const QString kept = u"logo.png|sub/a b.png|sub\\a b.png|./logo.png|in.png"_s;
    const QString refused =
        u"|.|sub|none.png|"_s + absolute + u"|file://"_s + absolute +
        u"|../secret.png|sub/../../secret.png|..\\secret.png|../reports-of-others/a.png|"
        u"../reports/logo.png|link.png|up/secret.png|file:logo.png|:/reports/rptWorkorder.rpt|"
        u"qrc:/a|http://localhost/a.png|C:\\a.png|C:logo.png|\\\\server\\share\\a.png|"
        u"//server/share/a.png|\\logo.png|logo.png:stream|CON.png|com1|/dev/zero|data:,a|"
        u"logo.png\0.gif"_s;
    for (const QString &name : kept.split(u'|'))
        EXPECT_TRUE(pictureFileBeside(folder, name)) << name.toStdString();
    for (const QString &name : refused.split(u'|'))
        EXPECT_FALSE(pictureFileBeside(folder, name)) << name.toStdString();
    EXPECT_FALSE(pictureFileBeside(QString(), u"logo.png"_s));
    EXPECT_FALSE(pictureFileBeside(root.filePath(u"nowhere"_s), u"logo.png"_s));
}

QByteArray chunk(const QByteArray &name, const QByteArray &data)
{
    const auto number = [](quint32 value) {
        value = qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&value), 4);
    };
    const QByteArray body = name + data;
    const auto sum = crc32(0, reinterpret_cast<const Bytef *>(body.constData()), uInt(body.size()));
    return number(quint32(data.size())) + body + number(quint32(sum));
}

/// A PNG of one colour that says this size, packed as small as it gets.
QByteArray bomb(qint32 width, qint32 height)
{
    std::array<qint32, 2> size{qToBigEndian(width), qToBigEndian(height)};
    const QByteArray head(reinterpret_cast<const char *>(size.data()), 8);
    const QByteArray rows = qCompress(QByteArray(10'000'000, '\0'), 9).sliced(4);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) +
           chunk("IHDR", head + QByteArray("\x08\x06\0\0\0", 5)) + chunk("IDAT", rows) +
           chunk("IEND", {});
}

QByteArray drawing(const QByteArray &content, const QByteArray &before = {})
{
    return before +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "width=\"20\" height=\"10\">" +
           content + "</svg>";
}

TEST(Picture, IsShownOnlyWhereItBringsNoOtherFilesAndNoFlood)
{
    QTemporaryDir home;
    const QString other = home.filePath(u"other.png"_s);
    test::writeFile(other, pixel());
    test::writeFile(home.filePath(u"style.css"_s), "rect { fill: #00ff00 }");
    const QByteArray image = "<image width=\"20\" height=\"10\" xlink:href=\"";
    QByteArray uses = "<g id=\"a0\"><rect width=\"1\" height=\"1\"/></g>";
    for (int i = 1; i < 30; ++i)
        uses +=
            "<g id=\"a" + QByteArray::number(i) + "\">" +
            QByteArray("<use xlink:href=\"#a" + QByteArray::number(i - 1) + "\"/>").repeated(10) +
            "</g>";
    const QByteArray nested = drawing(image + other.toUtf8() + "\"/>");
    struct Case
    {
        const char *what;
        QByteArray bytes;
        const char *fault;
    };
    const Case cases[] = {
        {"a picture", pixel(), ""},
        {"a photograph", pictureFile({4000, 3000}, Qt::gray, "JPG"), ""},
        {"a drawing", drawing("<rect width=\"20\" height=\"10\" fill=\"#ff0000\"/>"), ""},
        {"a drawing with a type",
         drawing("<rect width=\"20\" height=\"10\"/>",
                 "<?xml version=\"1.0\"?><!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
                 "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">"),
         ""},
        {"no picture", "MZ\x90", "is no picture"},
        {"nothing", "", "is no picture"},
        {"half a head", pixel().first(20), "is no picture"},
        {"30,000 x 30,000", bomb(30'000, 30'000), "is too large"},
        {"the largest size", bomb(2'147'483'647, 2'147'483'647), "is"},
        {"a large drawing",
         drawing({}).replace("\"20\"", "\"90000\"").replace("\"10\"", "\"90000\""), "is too large"},
        {"a packed drawing", QByteArray("\x1f\x8b\x08\0\0\0\0\0", 8), "is no picture"},
        {"another file", nested, "holds another picture"},
        {"a picture within", drawing(image + "data:image/png;base64," + nested.toBase64() + "\"/>"),
         "holds another picture"},
        {"a sheet of styles",
         drawing("<rect/>", "<?xml-stylesheet type=\"text/css\" href=\"" +
                                home.filePath(u"style.css"_s).toUtf8() + "\"?>"),
         "names other files"},
        {"an entity", drawing("&a;", "<!DOCTYPE svg [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>"),
         "names other files"},
        {"entities", drawing("&b;", "<!DOCTYPE svg [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]>"),
         "names other files"},
        {"parts of parts", drawing(uses), "is nested too deeply"},
        {"depth",
         drawing(QByteArray("<g>").repeated(100'000) + QByteArray("</g>").repeated(100'000)),
         "is nested too deeply"}};
    for (const Case &one : cases) {
        const QString fault = pictureFault(one.bytes);
        EXPECT_THAT(fault.toStdString(), testing::StartsWith(one.fault)) << one.what;
        const bool isShown = one.fault[0] == '\0';
        EXPECT_EQ(fault.isEmpty(), isShown) << one.what;
        EXPECT_EQ(pictureImage(one.bytes).isNull(), !isShown) << one.what;
    }
}

TEST(Picture, WhatCantBeShownIsToldOnceAndTheRestPrints)
{
    QTemporaryDir home;
    test::writeFile(home.filePath(u"large.png"_s), bomb(30'000, 30'000));
    Inputs inputs;
    inputs.folder = home.path();
    QStringList problems;
    const Layout layout =
        layoutOf(detail("<picture content=\"large.png\"/><picture content=\"../a.png\"/>"
                        "<picture content=\"=Photo\"/><text content=\"{N}\"/>"));
    const Rows rows({u"N"_s, u"Photo"_s},
                    {{1, QByteArray("x")}, {2, pixel()}, {3, QByteArray("y")}});
    const QList<Page> pages = allPages(layout, rows, inputs, &problems);
    EXPECT_EQ(problems,
              (QStringList{u"The picture \"large.png\" is too large."_s,
                           u"The picture \"../a.png\" is not there."_s,
                           u"The picture \"=Photo\" is no picture that can be shown."_s}));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].items.size(), 4) << "three texts and one picture";
}

} // namespace
} // namespace report
