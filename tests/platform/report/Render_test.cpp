#include "platform/base/Environment.h"
#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/Export.h"
#include "platform/report/render/PdfFile.h"
#include "platform/report/render/SpreadsheetFile.h"
#include "platform/report/render/TableColumns.h"

#include "Drawn.h"
#include "ReportRows.h"
#include "support/Raised.h"
#include "support/SmallDisk.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <array>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;
using namespace std::string_literals;

/// Parts by bin: a group, captions, numbers, dates and texts that files have to quote.
Layout partsLayout()
{
    return layoutOf(R"x(<report version="1" title="Parts &amp; bins">
        <page left="10mm" top="10mm" right="10mm" bottom="229.4mm"/>
        <group name="Bin" by="Bin"/>
        <band kind="reportHeader" height="10mm"><text width="90mm" height="8mm" content="Parts" size="14" bold="yes"/></band>
        <band kind="pageHeader" height="5mm"><text width="40mm" content="Part"/>
          <text x="40mm" content="Price" align="right"/><text x="80mm" content="Bought"/></band>
        <band kind="groupHeader" group="Bin" height="5mm"><field content="Bin" bold="yes"/></band>
        <band kind="detail" height="5mm"><field width="40mm" content="Description" canGrow="yes"/>
          <field x="40mm" content="Price" format="$0.00" align="right"/>
          <field x="80mm" content="Bought" format="mm/dd/yyyy"/></band>
        <band kind="groupFooter" group="Bin" height="5mm">
          <field x="40mm" content="sum(Price)" format="$0.00" align="right" border="top" fill="#eeeeee"/></band>
        </report>)x");
}

Rows parts()
{
    const QDateTime bought = base::wallClock(QDate(2024, 3, 5));
    return {{u"Bin"_s, u"Description"_s, u"Price"_s, u"Bought"_s},
            {{u"A1"_s, u"Belt, 40\""_s, 12.5, bought},
             {u"A1"_s, u"Oil <5W>"_s, 7.25, QVariant()},
             {u"B2"_s, u"=1+1"_s, -3, bought},
             {u"B2"_s, u"Two\nlines"_s, QVariant(), bought}}};
}

class Export : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    /// The bytes of the file that a report is written into.
    std::string written(const Layout &layout, const DataSource &rows, const QString &name)
    {
        const Outcome outcome =
            exportReport(layout, rows, {}, path(name), *exportFormat(path(name)));
        EXPECT_EQ(outcome.problems, QStringList());
        return test::readFile(path(name)).toStdString();
    }
    QTemporaryDir m_folder;
};

/// The forms of the known endings show in the files that are written below.
TEST_F(Export, GoesByTheEndingInAnyCase)
{
    EXPECT_EQ(exportFormat(u"a/b.PDF"_s), ExportFormat::Pdf);
    EXPECT_FALSE(exportFormat(u"pdf"_s) || exportFormat(u"b.doc"_s));
}

TEST_F(Export, CsvHasALineForEachDetail)
{
    EXPECT_EQ(written(partsLayout(), parts(), u"parts.csv"_s),
              "\xEF\xBB\xBF"
              "Bin,Part,Price,Bought\r\n"
              "A1,\"Belt, 40\"\"\",12.5,03/05/2024\r\n"
              "A1,Oil <5W>,7.25,\r\n"
              "B2,=1+1,-3,03/05/2024\r\n"
              "B2,\"Two\nlines\",,03/05/2024\r\n");

    const Layout layout = layoutOf(R"x(<report version="1">
        <band kind="pageHeader"><text width="120mm" content="All parts"/></band>
        <band kind="pageHeader"><text x="30mm" width="60mm" content="Number"/><text x="90mm" width="20mm" content="Cost"/></band>
        <band kind="detail"><field x="30mm" width="60mm" content="Description"/><field x="88mm" width="30mm" content="Price"/></band>
        </report>)x");
    EXPECT_THAT(written(layout, parts(), u"titled.csv"_s),
                testing::StartsWith("\xEF\xBB\xBFNumber,Cost"));
    const Layout summary = layoutOf(R"x(<report version="1"><group name="Bin" by="Bin"/>
        <band kind="groupFooter" group="Bin"><field content="Bin"/><field name="Worth" content="sum(Price)" format="$0.00"/></band>
        <band kind="reportFooter"><field content="sum(Price)"/></band></report>)x");
    EXPECT_EQ(written(summary, parts(), u"bins.csv"_s), "\xEF\xBB\xBF"
                                                        "Bin,Worth\r\nA1,19.75\r\nB2,-3\r\n")
        << "without details a line for each group";
}

TEST_F(Export, HtmlStandsForItself)
{
    const Layout layout = layoutOf(R"x(<report version="1" title="A &amp; B">
        <page left="10mm" top="10mm"/>
        <band kind="detail" height="10mm"><box width="50mm" height="9mm" fill="#eeeeee"/>
          <field content="Description" color="#24476d" bold="yes" border="bottom"/><line y="10mm" height="0mm"/></band>
        </report>)x");
    const Rows rows({u"Description"_s}, {{u"Oil <5W>"_s}});
    const std::string html = written(layout, rows, u"parts.html"_s);
    // The ascent of 9 points is 288 units, so the line begins at the frame's top.
    EXPECT_THAT(html,
                testing::StartsWith("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
                                    "<title>A &amp; B</title>\n"));
    const std::string page = R"(<div class="page">
<div style="left:10mm;top:10mm;width:50mm;height:9mm;background:#eeeeee;border:0.2mm solid #000000"></div>
<div style="left:10mm;top:10mm;width:30mm;height:5mm;border-bottom:0.2mm solid #000000"></div>
<p style="left:10mm;top:10mm;font:bold 9pt 'Arial',Arial,sans-serif;color:#24476d;line-height:3.55mm">Oil &lt;5W&gt;</p>
<div style="left:10mm;top:20mm;width:30mm;height:0.2mm;background:#000000"></div>
</div>
</body>
</html>
)";
    EXPECT_THAT(html, testing::EndsWith(page));
    const Layout bad = layoutOf(R"x(<report version="1" title="&lt;/title&gt;&lt;script/&gt;">
        <band kind="detail"><field font="F-1.'&quot;&gt;&lt;script&gt;;x:" content="Description"/></band></report>)x");
    const std::string text = written(bad, rows, u"bad.html"_s);
    EXPECT_THAT(text, testing::HasSubstr("9pt 'F-1.scriptx',Arial"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("<script")));
}

TEST_F(Export, PdfHasItsPagesAndTheirWords)
{
    // 40 mm of page hold the title, captions and four bands of 5 mm with the header; the rest goes
    // on.
    EXPECT_THAT(written(partsLayout(), parts(), u"parts.pdf"_s),
                testing::AllOf(testing::StartsWith("%PDF-"), testing::EndsWith("%%EOF\n")));
    const auto information = outputOf(u"pdfinfo"_s, {path(u"parts.pdf"_s)});
    if (!information)
        GTEST_SKIP() << "no program to read PDF files";
    for (const char *line : {"Pages: +2\n", "Page size: +612 x 792 pts", "Parts & bins"})
        EXPECT_THAT(information->toStdString(), testing::ContainsRegex(line));
    const auto text = outputOf(u"pdftotext"_s, {u"-layout"_s, path(u"parts.pdf"_s), u"-"_s});
    ASSERT_TRUE(text);
    for (const char *words : {"Belt, 40\"", "$12.50", "$19.75", "-$3.00", "03/05/2024"})
        EXPECT_THAT(text->toStdString(), testing::HasSubstr(words));
}

/// Everything that a page can show.
Page fullPage()
{
    const QByteArray photograph = pictureFile({40, 20}, QColor(0x40, 0x80, 0xc0), "JPG");
    const QByteArray mark = pictureFile({20, 20}, QColor(200, 0, 0, 128));
    Page page;
    const auto text = [&page](const QString &words, const QRect &frame, auto &&change) {
        TextItem item;
        item.frame = frame;
        item.style.font.points = 20;
        change(item);
        item.lines = flowText(words, item.style, frame.width());
        for (TextLine &line : item.lines) {
            line.x += frame.x();
            line.baseline += frame.y();
        }
        if (item.turned)
            item.lines.first().baseline = frame.bottom();
        page.items.append(item);
    };
    text(u"Öl 5W-40, €5 – “Прим”"_s, {1000, 1000, 9000, 1000}, [](TextItem &) {});
    text(u"Right and red"_s, {1000, 2200, 9000, 1000}, [](TextItem &item) {
        item.style.font.bold = item.style.font.underline = true;
        item.style.color = Qt::red;
        item.style.fill = Qt::yellow;
        item.style.align = Align::Right;
        item.style.border = {true, true, true, true, 60, Qt::blue};
    });
    text(u"\u05e2\u05d1\u05e8"_s, {1000, 3400, 4000, 1000}, [](TextItem &) {});
    text(u"Upwards"_s, {11000, 1000, 1000, 4000}, [](TextItem &item) {
        item.turned = item.style.font.underline = item.style.font.italic = true;
    });
    page.items +=
        {LineItem{{1000, 5000}, {6000, 6000}, 100, Qt::darkGreen},
         BoxItem{{7000, 5000, 2000, 1000}, 80, Qt::black, Qt::cyan},
         BarCodeItem{{10000, 5500, 1000, 500}, {{10000, 5500, 300, 500}}},
         ShapeItem{{}, {{1000, 8000}, {2000, 6500}, {3000, 8000}}, true, 100, Qt::blue, Qt::red},
         ShapeItem{{}, {{3500, 8000}, {4500, 6500}, {5500, 8000}}, false, 100, Qt::blue, {}},
         PictureItem{{6000, 6500, 4000, 1500}, photograph, Align::Left},
         PictureItem{{9500, 6500, 2000, 1500}, mark, Align::Right}};
    return page;
}

TEST_F(Export, APdfLooksAsThePageDoesOnScreen)
{
    constexpr int Dpi = 144;
    PdfFile file(path(u"full.pdf"_s), PageSetup(), u"Full"_s);
    file.add(fullPage());
    file.finish();
    if (!outputOf(u"pdftoppm"_s, {u"-r"_s, QString::number(Dpi), u"-png"_s, u"-singlefile"_s,
                                  path(u"full.pdf"_s), path(u"full"_s)}))
        GTEST_SKIP() << "no program to draw PDF files";
    const QImage printed(path(u"full.png"_s));
    const QImage shown = drawn(fullPage(), printed.size(), Dpi / 2540.0);
    // Two ways to soften edges differ a little everywhere; what is missing or elsewhere, a lot.
    const auto part = [](const QImage &image, int column, int row) {
        const QColor color(image.copy(40 * column, 20 * row, 40, 20)
                               .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                               .pixel(0, 0));
        return std::array{color.red(), color.green(), color.blue()};
    };
    ASSERT_GT(printed.width(), 1200);
    for (int row = 0; row < 24; ++row)
        for (int column = 0; column < 18; ++column)
            for (int color = 0; color < 3; ++color)
                EXPECT_NEAR(part(printed, column, row)[color], part(shown, column, row)[color], 16)
                    << column << ", " << row;
    EXPECT_THAT(outputOf(u"pdftotext"_s, {path(u"full.pdf"_s), u"-"_s})->toStdString(),
                testing::HasSubstr("Öl 5W-40, €5 – “Прим”"));
}

TEST_F(Export, SpreadsheetKeepsNumbersAndDates)
{
    EXPECT_THAT(written(partsLayout(), parts(), u"parts.xlsx"_s), testing::StartsWith("PK"));
    const auto part = [&](const QString &name) {
        return outputOf(u"unzip"_s, {u"-p"_s, path(u"parts.xlsx"_s), name});
    };
    const auto sheet = part(u"xl/worksheets/sheet1.xml"_s);
    const auto styles = part(u"xl/styles.xml"_s);
    if (!sheet || !styles)
        GTEST_SKIP() << "no program to unpack files";
    // Row 1 is the title, 2 the captions, 3 the bin, 4 the first part. Days are counted since the
    // end of 1899, and "=1+1" is no formula.
    for (const char *cell :
         {"A1\"[^>]*t=\"inlineStr\"><is><t>Parts</t>", "B2\"[^>]*><is><t>Price</t>",
          "A3\"[^>]*><is><t>A1</t>", "A4\"[^>]*><is><t>Belt, 40", "B4\"[^>]*><v>12.5</v>",
          "C4\"[^>]*><v>45356</v>", "B6\"[^>]*><v>19.75</v>", "A8\"[^>]*><is><t>=1\\+1</t>"})
        EXPECT_THAT(sheet->toStdString(), testing::ContainsRegex("<c r=\""s + cell));
    EXPECT_TRUE(sheet->contains(u"<pane ySplit=\"2\""));
    EXPECT_TRUE(styles->contains(u"mm/dd/yyyy") && styles->contains(u"$0.00"));
}

TEST(SpreadsheetFormat, QuotesWords)
{
    EXPECT_EQ(spreadsheetFormat(u"$#,##0.00"_s), u"$#,##0.00");
    EXPECT_EQ(spreadsheetFormat(u"0 hrs"_s), u"0\" hrs\"");
    EXPECT_EQ(spreadsheetFormat(u"0.0%"_s), u"0.0%");
    EXPECT_EQ(spreadsheetFormat(u"m/d/yy hh:mm AMPM"_s), u"m/d/yy hh:mm AM/PM");
}

TEST(SheetColumns, ThingsStandWhereTheDetailsBegin)
{
    const Layout layout = layoutOf(R"x(<report version="1">
        <band kind="pageHeader"><text content="Name"/><text x="33mm" content="near the third"/></band>
        <band kind="detail"><field content="A"/><field x="20mm" content="B"/><field x="32.5mm" content="C"/>
          <field y="5mm" x="20.5mm" content="D"/><line/></band>
        <band kind="reportFooter"><text x="1mm" content="one"/><text x="5mm" content="two"/><text x="90mm" content="far"/></band>
        </report>)x");
    const SheetColumns columns(layout);
    EXPECT_EQ(columns.count(), 3);
    EXPECT_EQ(columns.width(0), 2000);
    EXPECT_EQ(columns.width(2), 3000);
    // The line and column of each object; the last detail is a line, which has none.
    const char *const places[] = {"0/0 0/2", "0/0 0/1 0/2 1/1 -", "0/0 0/1 0/2"};
    for (int band = 0; band < 3; ++band) {
        QStringList found;
        for (const SheetPlace &place : columns.places(layout.bands[band]))
            found.append(place.column < 0 ? u"-"_s : u"%1/%2"_s.arg(place.line).arg(place.column));
        EXPECT_EQ(found.join(u' ').toStdString(), places[band]) << band;
    }
}

TEST_F(Export, WhatCantBeWrittenIsToldAndLeavesTheFormerFileAsCancellingDoes)
{
    QList<QVariantList> many;
    for (int row = 0; row < 3000; ++row)
        many.append({u"A1"_s, u"Belt %1"_s.arg(row), row * 1.25, QVariant()});
    const Rows rows({u"Bin"_s, u"Description"_s, u"Price"_s, u"Bought"_s}, many);
    for (const QString &ending : {u"pdf"_s, u"xlsx"_s, u"csv"_s, u"html"_s}) {
        const QString file = path(u"parts."_s + ending);
        const ExportFormat format = *exportFormat(file);
        test::writeFile(file, "former");
        const base::Error error = test::raisedBy([&] {
            const test::SmallDisk disk(20'000);
            (void)exportReport(partsLayout(), rows, {}, file, format);
        });
        EXPECT_THAT(error.what(), testing::HasSubstr("can't be written")) << ending.toStdString();
        EXPECT_EQ(test::readFile(file), "former");
        Inputs cancelled;
        cancelled.isCancelled = [asked = 0]() mutable { return ++asked > 3; };
        EXPECT_TRUE(exportReport(partsLayout(), rows, cancelled, file, format).stopped);
        EXPECT_EQ(test::readFile(file), "former");
        EXPECT_THROW((void)exportReport(partsLayout(), rows, {}, path(u"none/parts"_s), format),
                     base::Error)
            << ending.toStdString();
    }
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files).size(), 4) << "no half file stays";
}

TEST(PagePainter, PicturesStandInTheirFramesAsTheyAreAligned)
{
    const auto placed = [](Align align) {
        return pictureFrame(PictureItem{QRect(100, 200, 3000, 1000), {}, align}, QSize(40, 20));
    };
    EXPECT_EQ(placed(Align::Left), QRect(100, 200, 2000, 1000));
    EXPECT_EQ(placed(Align::Center), QRect(600, 200, 2000, 1000));
    EXPECT_EQ(placed(Align::Right), QRect(1100, 200, 2000, 1000));
}

TEST(PagePainter, TextsHaveTheirColoursWhateverWasDrawnBefore)
{
    const auto textAt = [](int y, bool bordered, double points) {
        TextItem item;
        item.style.color = Qt::red;
        item.style.font.points = points;
        item.style.font.bold = true;
        item.frame = QRect(0, y, 5000, 1500);
        item.style.border = bordered ? Border{false, true, false, false, 50, Qt::blue} : Border();
        item.lines = {{u"M"_s, 200, y + 1300, 1000}};
        return item;
    };
    Page page;
    page.items = {textAt(0, true, 40), textAt(1500, false, 20),
                  LineItem{{0, 4900}, {5000, 4900}, 100, Qt::green}, textAt(3000, false, 40)};
    const QImage sheet = drawn(page, {100, 100}, 0.02);
    const auto redIn = [&](int top) { return pointsOf(sheet.copy(0, top, 100, 30), Qt::red); };
    EXPECT_GT(redIn(0), 50);
    EXPECT_GT(redIn(30), 10);
    EXPECT_LT(redIn(30), redIn(0)) << "a smaller font";
    EXPECT_EQ(redIn(60), redIn(0)) << "the larger one again";
}

} // namespace
} // namespace report
