#include "platform/base/Environment.h"
#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/Export.h"
#include "platform/report/render/PagePainter.h"
#include "platform/report/render/PdfFile.h"
#include "platform/report/render/SpreadsheetFile.h"
#include "platform/report/render/TableColumns.h"

#include "ReportRows.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <array>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

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
    QString write(const Layout &layout, const DataSource &rows, const QString &name)
    {
        const QString path = m_folder.filePath(name);
        const Outcome outcome = exportReport(layout, rows, {}, path, *exportFormat(path));
        EXPECT_TRUE(outcome.problems.isEmpty()) << outcome.problems.join(u"\n"_s).toStdString();
        return path;
    }
    /// What a program of the system prints, nothing where it isn't installed.
    static std::optional<QString> output(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForStarted() || !process.waitForFinished())
            return std::nullopt;
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QTemporaryDir m_folder;
};

TEST_F(Export, KnowsFormatsByTheirEndings)
{
    EXPECT_EQ(exportFormat(u"a/b.PDF"_s), ExportFormat::Pdf);
    EXPECT_EQ(exportFormat(u"b.xlsx"_s), ExportFormat::Spreadsheet);
    EXPECT_EQ(exportFormat(u"b.csv"_s), ExportFormat::Csv);
    EXPECT_EQ(exportFormat(u"b.html"_s), ExportFormat::Html);
    EXPECT_FALSE(exportFormat(u"pdf"_s));
    EXPECT_FALSE(exportFormat(u"b.doc"_s));
}

TEST_F(Export, CsvHasALineForEachDetail)
{
    EXPECT_EQ(test::readFile(write(partsLayout(), parts(), u"parts.csv"_s)).toStdString(),
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
    EXPECT_EQ(test::readFile(write(layout, parts(), u"titled.csv"_s)).left(14),
              QByteArray("\xEF\xBB\xBF"
                         "Number,Cost"));
}

TEST_F(Export, CsvOfASummaryHasALineForEachGroup)
{
    const Layout layout = layoutOf(R"x(<report version="1"><group name="Bin" by="Bin"/>
        <band kind="groupFooter" group="Bin"><field content="Bin"/><field name="Worth" content="sum(Price)" format="$0.00"/></band>
        <band kind="reportFooter"><field content="sum(Price)"/></band></report>)x");
    EXPECT_EQ(test::readFile(write(layout, parts(), u"bins.csv"_s)).toStdString(),
              "\xEF\xBB\xBF"
              "Bin,Worth\r\nA1,19.75\r\nB2,-3\r\n");
}

TEST_F(Export, HtmlStandsForItself)
{
    const Layout layout = layoutOf(R"x(<report version="1" title="A &amp; B">
        <page left="10mm" top="10mm"/>
        <band kind="detail" height="10mm"><box width="50mm" height="9mm" fill="#eeeeee"/>
          <field content="Description" color="#24476d" bold="yes" border="bottom"/><line y="10mm" height="0mm"/></band>
        </report>)x");
    const Rows rows({u"Description"_s}, {{u"Oil <5W>"_s}});
    const std::string html = test::readFile(write(layout, rows, u"parts.html"_s)).toStdString();
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
    const std::string text = test::readFile(write(bad, rows, u"bad.html"_s)).toStdString();
    EXPECT_THAT(text, testing::HasSubstr("9pt 'F-1.scriptx',Arial"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("<script")));
}

TEST_F(Export, PdfHasItsPagesAndTheirWords)
{
    // 40 mm of page hold the title, captions and four bands of 5 mm with the header; the rest goes
    // on.
    const QString path = write(partsLayout(), parts(), u"parts.pdf"_s);
    const QByteArray bytes = test::readFile(path);
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF"));
    const auto information = output(u"pdfinfo"_s, {path});
    if (!information)
        GTEST_SKIP() << "no program to read PDF files";
    EXPECT_THAT(information->toStdString(), testing::ContainsRegex("Pages: +2\n"));
    EXPECT_THAT(information->toStdString(), testing::ContainsRegex("Page size: +612 x 792 pts"));
    EXPECT_THAT(information->toStdString(), testing::HasSubstr("Parts & bins"));
    const auto text = output(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    ASSERT_TRUE(text);
    for (const char *words : {"Belt, 40\"", "$12.50", "$19.75", "-$3.00", "03/05/2024"})
        EXPECT_THAT(text->toStdString(), testing::HasSubstr(words));
}

QByteArray fileOf(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

/// Everything that a page can show.
Page fullPage()
{
    QImage photograph(40, 20, QImage::Format_RGB32);
    photograph.fill(QColor(0x40, 0x80, 0xc0));
    QImage mark(20, 20, QImage::Format_ARGB32);
    mark.fill(QColor(200, 0, 0, 128));
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
         PictureItem{{6000, 6500, 4000, 1500}, fileOf(photograph, "JPG"), Align::Left},
         PictureItem{{9500, 6500, 2000, 1500}, fileOf(mark, "PNG"), Align::Right}};
    return page;
}

TEST_F(Export, APdfLooksAsThePageDoesOnScreen)
{
    constexpr int Dpi = 144;
    PageSetup setup;
    const QString path = m_folder.filePath(u"full.pdf"_s);
    PdfFile file(path, setup, u"Full"_s);
    file.add(fullPage());
    file.finish();
    if (!output(u"pdftoppm"_s, {u"-r"_s, QString::number(Dpi), u"-png"_s, u"-singlefile"_s, path,
                                m_folder.filePath(u"full"_s)}))
        GTEST_SKIP() << "no program to draw PDF files";
    const QImage drawn(m_folder.filePath(u"full.png"_s));
    QImage shown(drawn.size(), QImage::Format_RGB32);
    shown.fill(Qt::white);
    QPainter painter(&shown);
    painter.setRenderHints(QPainter::Antialiasing);
    painter.scale(Dpi / 2540.0, Dpi / 2540.0);
    PagePainter().paint(fullPage(), painter);
    painter.end();
    // Two ways to soften edges differ a little everywhere; what is missing or elsewhere, a lot.
    const auto part = [](const QImage &image, int column, int row) {
        const QColor color(image.copy(40 * column, 20 * row, 40, 20)
                               .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                               .pixel(0, 0));
        return std::array{color.red(), color.green(), color.blue()};
    };
    ASSERT_GT(drawn.width(), 1200);
    for (int row = 0; row < 24; ++row)
        for (int column = 0; column < 18; ++column)
            for (int color = 0; color < 3; ++color)
                EXPECT_NEAR(part(drawn, column, row)[color], part(shown, column, row)[color], 16)
                    << column << ", " << row;
    EXPECT_THAT(output(u"pdftotext"_s, {path, u"-"_s})->toStdString(),
                testing::HasSubstr("Öl 5W-40, €5 – “Прим”"));
}

TEST_F(Export, SpreadsheetKeepsNumbersAndDates)
{
    const QString path = write(partsLayout(), parts(), u"parts.xlsx"_s);
    EXPECT_TRUE(test::readFile(path).startsWith("PK"));
    const auto sheet = output(u"unzip"_s, {u"-p"_s, path, u"xl/worksheets/sheet1.xml"_s});
    const auto styles = output(u"unzip"_s, {u"-p"_s, path, u"xl/styles.xml"_s});
    if (!sheet || !styles)
        GTEST_SKIP() << "no program to unpack files";
    const std::string xml = sheet->toStdString();
    // Row 1 is the title, 2 the captions, 3 the bin, 4 the first part.
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"A1\"[^>]*t=\"inlineStr\"><is><t>Parts</t>"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"B2\"[^>]*><is><t>Price</t>"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"A3\"[^>]*><is><t>A1</t>"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"A4\"[^>]*><is><t>Belt, 40"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"B4\"[^>]*><v>12.5</v>"));
    // Days since the end of 1899.
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"C4\"[^>]*><v>45356</v>"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"B6\"[^>]*><v>19.75</v>"));
    EXPECT_THAT(xml, testing::ContainsRegex("<c r=\"A8\"[^>]*><is><t>=1\\+1</t>")) << "no formula";
    EXPECT_THAT(xml, testing::HasSubstr("<pane ySplit=\"2\""));
    EXPECT_THAT(styles->toStdString(), testing::HasSubstr("mm/dd/yyyy"));
    EXPECT_THAT(styles->toStdString(), testing::HasSubstr("$0.00"));
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
    const auto at = [&](int band, std::size_t object) {
        const SheetPlace place = columns.places(layout.bands[band])[object];
        return std::pair(place.line, place.column);
    };
    EXPECT_EQ(at(0, 1), std::pair(0, 2));
    EXPECT_EQ(at(1, 2), std::pair(0, 2));
    EXPECT_EQ(at(1, 3), std::pair(1, 1));
    EXPECT_EQ(at(1, 4).second, -1);
    EXPECT_EQ(at(2, 0), std::pair(0, 0));
    EXPECT_EQ(at(2, 1), std::pair(0, 1)) << "no two share a cell";
    EXPECT_EQ(at(2, 2), std::pair(0, 2));
}

/// Lets this process write no more than so many bytes into a file, as a full disk would.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes)
    {
        m_formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

private:
    rlimit m_former{};
    void (*m_formerHandler)(int) = nullptr;
};

TEST_F(Export, AFullDiskIsToldAndLeavesTheFormerFileAsCancellingDoes)
{
    QList<QVariantList> many;
    for (int row = 0; row < 3000; ++row)
        many.append({u"A1"_s, u"Belt %1"_s.arg(row), row * 1.25, QVariant()});
    const Rows rows({u"Bin"_s, u"Description"_s, u"Price"_s, u"Bought"_s}, many);
    for (const QString &ending : {u"pdf"_s, u"xlsx"_s, u"csv"_s, u"html"_s}) {
        const QString path = m_folder.filePath(u"parts."_s + ending);
        test::writeFile(path, "former");
        const base::Error error = test::raisedBy([&] {
            const SmallDisk disk(20'000);
            (void)exportReport(partsLayout(), rows, {}, path, *exportFormat(path));
        });
        EXPECT_THAT(error.what(), testing::HasSubstr("can't be written")) << ending.toStdString();
        EXPECT_EQ(test::readFile(path), "former");
        Inputs cancelled;
        cancelled.isCancelled = [asked = 0]() mutable { return ++asked > 3; };
        EXPECT_TRUE(
            exportReport(partsLayout(), rows, cancelled, path, *exportFormat(path)).stopped);
        EXPECT_EQ(test::readFile(path), "former");
    }
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files).size(), 4) << "no half file stays";
}

TEST_F(Export, APlaceThatCantBeWrittenToIsTold)
{
    for (const QString &ending : {u"pdf"_s, u"xlsx"_s, u"csv"_s, u"html"_s}) {
        const QString path = m_folder.filePath(u"missing/parts."_s + ending);
        EXPECT_THROW((void)exportReport(partsLayout(), parts(), {}, path, *exportFormat(path)),
                     base::Error)
            << ending.toStdString();
    }
}

TEST(PagePainter, DrawsEachKindAtItsPlace)
{
    Page page;
    page.items = {BoxItem{QRect(1000, 1000, 1000, 1000), 0, Qt::black, Qt::red},
                  LineItem{{0, 3000}, {5000, 3000}, 200, Qt::blue},
                  BarCodeItem{QRect(3000, 1000, 1000, 1000), {QRect(3000, 1000, 500, 1000)}}};
    QImage picture(10, 20, QImage::Format_RGB32);
    picture.fill(Qt::green);
    page.items.append(
        PictureItem{QRect(0, 4000, 2000, 1000), fileOf(picture, "PNG"), Align::Right});
    QImage sheet(50, 50, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(0.01, 0.01); // a pixel for each millimetre
    PagePainter().paint(page, painter);
    painter.end();
    EXPECT_EQ(sheet.pixelColor(15, 15), QColor(Qt::red));
    EXPECT_EQ(sheet.pixelColor(9, 15), QColor(Qt::white));
    EXPECT_EQ(sheet.pixelColor(25, 30), QColor(Qt::blue));
    EXPECT_EQ(sheet.pixelColor(32, 15), QColor(Qt::black));
    EXPECT_EQ(sheet.pixelColor(38, 15), QColor(Qt::white));
    // 1:2 in a frame of 20 by 10: 5 by 10 at the right.
    EXPECT_EQ(sheet.pixelColor(17, 45), QColor(Qt::green));
    EXPECT_EQ(sheet.pixelColor(12, 45), QColor(Qt::white));
}

TEST(PagePainter, TextsHaveTheirColoursWhateverWasDrawnBefore)
{
    TextItem text;
    text.style.color = Qt::red;
    text.style.font.points = 40;
    text.style.font.bold = true;
    const auto textAt = [&](int y, bool bordered, double points) {
        TextItem item = text;
        item.style.font.points = points;
        item.frame = QRect(0, y, 5000, 1500);
        item.style.border = bordered ? Border{false, true, false, false, 50, Qt::blue} : Border();
        item.lines = {{u"M"_s, 200, y + 1300, 1000}};
        return item;
    };
    Page page;
    page.items = {textAt(0, true, 40), textAt(1500, false, 20),
                  LineItem{{0, 4900}, {5000, 4900}, 100, Qt::green}, textAt(3000, false, 40)};
    QImage sheet(100, 100, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(0.02, 0.02);
    PagePainter().paint(page, painter);
    painter.end();
    const auto redIn = [&](int top) {
        int red = 0;
        for (int y = top; y < top + 30; ++y)
            for (int x = 0; x < 100; ++x)
                red += sheet.pixelColor(x, y) == QColor(Qt::red);
        return red;
    };
    EXPECT_GT(redIn(0), 50);
    EXPECT_GT(redIn(30), 10);
    EXPECT_LT(redIn(30), redIn(0)) << "a smaller font";
    EXPECT_EQ(redIn(60), redIn(0)) << "the larger one again";
}

} // namespace
} // namespace report
