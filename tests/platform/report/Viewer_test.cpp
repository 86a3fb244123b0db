#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/ReportViewer.h"
#include "platform/report/viewer/Thumbnails.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFiles.h"

#include "ReportRows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Machines, twelve on each page, the wanted one at a known place.
Layout machines()
{
    return layoutOf(R"x(<report version="1" title="Machines"><page left="10mm" top="10mm"/>
        <band kind="pageHeader" height="5mm"><text content="Machines" bold="yes"/></band>
        <band kind="detail" height="20mm"><field width="60mm" content="Name"/></band></report>)x");
}

std::shared_ptr<Rows> rows(int count)
{
    QList<QVariantList> list;
    for (int number = 1; number <= count; ++number)
        list.append(QVariantList{u"Mower %1"_s.arg(number)});
    return std::make_shared<Rows>(QStringList{u"Name"_s}, list);
}

class Viewer : public testing::Test
{
protected:
    Viewer()
    {
        m_viewer.resize(1000, 700);
        m_viewer.show();
        m_viewer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_viewer));
        m_outcome = m_viewer.setReport(machines(), rows(36), {});
        m_view->setFocus();
    }
    template<class Widget>
    Widget *child(const QString &name)
    {
        return m_viewer.findChild<Widget *>(name);
    }
    void press(const QString &button)
    {
        QTest::mouseClick(child<QToolButton>(button), Qt::LeftButton);
    }
    std::string pageText()
    {
        return u"%1 %2"_s.arg(child<QSpinBox>(u"page"_s)->value())
            .arg(child<QLabel>(u"pageTotal"_s)->text())
            .toStdString();
    }

    test::ScriptedPrompts m_prompts;
    ReportViewer m_viewer;
    PageView *m_view = child<PageView>(u"pageView"_s);
    Outcome m_outcome;
};

TEST_F(Viewer, ButtonsKeysAndNumbersMoveThroughThePages)
{
    // 254 mm of page hold the header and twelve bands of 20 mm.
    EXPECT_EQ(m_outcome.pages, 3);
    EXPECT_EQ(pageText(), "1 of 3");
    EXPECT_FALSE(child<QToolButton>(u"previous"_s)->isEnabled());
    press(u"next"_s);
    EXPECT_EQ(pageText(), "2 of 3");
    QTest::keyClick(m_view, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(pageText(), "3 of 3");
    EXPECT_FALSE(child<QToolButton>(u"next"_s)->isEnabled());
    QTest::keyClick(m_view, Qt::Key_Home);
    EXPECT_EQ(pageText(), "1 of 3");
    QTest::keyClick(m_view, Qt::Key_End);
    EXPECT_EQ(pageText(), "3 of 3");
    auto *page = child<QSpinBox>(u"page"_s);
    page->setFocus();
    page->selectAll();
    QTest::keyClicks(page, u"2"_s);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(m_view->currentPage(), 1);
    auto *thumbnails = child<Thumbnails>(u"thumbnails"_s);
    EXPECT_EQ(thumbnails->currentIndex().row(), 1) << "follows";
    QTest::keyClick(thumbnails, Qt::Key_Down);
    EXPECT_EQ(pageText(), "3 of 3");
}

TEST_F(Viewer, EveryPageCanBeReachedWhenSeveralAreInView)
{
    m_viewer.setZoom(10);
    press(u"next"_s);
    EXPECT_EQ(pageText(), "2 of 3");
    press(u"next"_s);
    EXPECT_EQ(pageText(), "3 of 3");
}

TEST_F(Viewer, AHundredPercentIsTheSizeOnPaper)
{
    m_viewer.setZoom(100);
    EXPECT_EQ(m_view->zoom(), 100);
    // Three letter sheets of 11 inches and the gaps around them.
    const int height = 3 * 11 * m_view->logicalDpiY() + 4 * 10;
    EXPECT_EQ(m_view->verticalScrollBar()->maximum(), height - m_view->viewport()->height());
}

TEST_F(Viewer, ZoomIsChosenTypedAndStepped)
{
    auto *zoom = child<QComboBox>(u"zoom"_s);
    const auto enter = [zoom](const QString &text) {
        zoom->setEditText(text);
        QTest::keyClick(zoom->lineEdit(), Qt::Key_Return);
    };
    enter(u"whole PAGE"_s);
    EXPECT_EQ(m_view->zoomMode(), ZoomMode::WholePage);
    EXPECT_EQ(m_view->zoom(),
              100 * (m_view->viewport()->height() - 20) / (11 * m_view->logicalDpiY()));
    enter(u"Full width"_s);
    const int wide = m_view->zoom();
    EXPECT_EQ(wide, static_cast<int>(100 * (m_view->viewport()->width() - 20) /
                                     (8.5 * m_view->logicalDpiX())));
    m_viewer.resize(800, 700);
    EXPECT_LT(m_view->zoom(), wide) << "follows the window";
    enter(u"60 %"_s);
    EXPECT_EQ(m_view->zoom(), 60);
    press(u"zoomIn"_s);
    EXPECT_EQ(zoom->currentText(), u"75%");
    press(u"zoomOut"_s);
    EXPECT_EQ(zoom->currentText(), u"50%");
    enter(u"large"_s);
    EXPECT_EQ(zoom->currentText(), u"50%") << "what is no zoom is put back";
    QTest::keyClick(m_view, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(m_view->zoom(), 100);
}

TEST_F(Viewer, SearchGoesRoundThroughAllPages)
{
    QTest::keyClick(m_view, Qt::Key_F, Qt::ControlModifier);
    auto *search = child<QLineEdit>(u"search"_s);
    EXPECT_TRUE(search->hasFocus());
    const auto result = [&] { return child<QLabel>(u"searchResult"_s)->text().toStdString(); };
    QTest::keyClicks(search, u"mower 3"_s); // 3, 30 to 36
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(result(), "Page 1");
    QTest::keyClick(search, Qt::Key_F3);
    EXPECT_EQ(result(), "Page 3");
    for (int more = 0; more < 6; ++more)
        QTest::keyClick(search, Qt::Key_F3);
    EXPECT_EQ(result(), "Page 3") << "number 36";
    QTest::keyClick(search, Qt::Key_F3);
    EXPECT_EQ(result(), "Page 1") << "from the beginning again";
    QTest::keyClick(search, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(result(), "Page 3");
    search->clear();
    QTest::keyClicks(search, u"tractor"_s);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(result(), "Not found");
}

TEST_F(Viewer, ExportsInTheFormOfTheFileName)
{
    const QTemporaryDir folder;
    const QString csv = folder.filePath(u"machines.csv"_s);
    m_prompts.expectChooser(u"Export"_s, csv);
    press(u"export"_s);
    EXPECT_TRUE(QFile::exists(csv));
    m_prompts.expectChooser(u"Export"_s, folder.filePath(u"machines.doc"_s));
    m_prompts.expect(
        u"The file's name has to end in .pdf, .xlsx, .csv or .html, which tells its form."_s,
        base::Prompts::Icon::None);
    EXPECT_FALSE(m_viewer.exportToFile());
    m_prompts.expectChooser(u"Export"_s, QString());
    EXPECT_FALSE(m_viewer.exportToFile());
}

TEST_F(Viewer, PrintsTheChosenPages)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"printed.pdf"_s);
    int offered = 0;
    m_viewer.setPrinterChooser([&](QPrinter &printer, int pages, QWidget *) {
        offered = pages;
        EXPECT_EQ(printer.docName(), u"Machines");
        EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::Letter);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 3);
        return true;
    });
    QTest::keyClick(m_view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(offered, 3);
    EXPECT_EQ(test::readFile(path).count("/Type /Page\n"), 2);
    m_viewer.setPrinterChooser([](QPrinter &, int, QWidget *) { return false; });
    EXPECT_FALSE(m_viewer.print());
    m_viewer.setPrinterChooser([&](QPrinter &printer, int, QWidget *) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(u"none/printed.pdf"_s));
        return true;
    });
    m_prompts.expect(u"The report could not be printed."_s, base::Prompts::Icon::Critical);
    EXPECT_FALSE(m_viewer.print());
}

TEST_F(Viewer, EmptyViewerOffersNothing)
{
    m_viewer.clear();
    EXPECT_EQ(pageText(), "0 of 0");
    for (const QString &button : {u"print"_s, u"export"_s, u"next"_s, u"last"_s, u"zoomIn"_s})
        EXPECT_FALSE(child<QToolButton>(button)->isEnabled()) << button.toStdString();
    EXPECT_FALSE(m_viewer.print());
    EXPECT_FALSE(m_viewer.exportToFile());
}

TEST(PageStore, GivesBackWhatWasPutIn)
{
    Page page;
    page.number = 7;
    TextItem text;
    text.frame = QRect(1, 2, 3, 4);
    text.lines = {{u"one"_s, 1, 2, 3}, {u"two"_s, 4, 5, 6}};
    text.style.font.bold = true;
    text.style.fill = Qt::yellow;
    page.items = {text,
                  LineItem{{1, 2}, {3, 4}, 5, Qt::red},
                  BoxItem{QRect(5, 6, 7, 8), 9, Qt::blue, QColor()},
                  PictureItem{QRect(1, 1, 2, 2), "bytes", Align::Center},
                  BarCodeItem{QRect(0, 0, 9, 9), {QRect(1, 0, 1, 9)}},
                  ShapeItem{QRect(1, 2, 3, 4), {{1, 2}, {4, 6}}, true, 7, Qt::red, Qt::blue}};
    text.turned = true;
    page.items.append(text);
    PageStore pages;
    for (int count = 0; count < 40; ++count) {
        page.number = count + 1;
        pages.append(page);
    }
    EXPECT_EQ(pages.count(), 40);
    page.number = 1;
    EXPECT_EQ(pages.page(0), page);
    page.number = 40;
    EXPECT_EQ(pages.page(39), page);
    page.number = 1;
    EXPECT_EQ(pages.page(0), page);
}

} // namespace
} // namespace report
