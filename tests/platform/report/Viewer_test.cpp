#include "platform/base/Error.h"
#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/ReportViewer.h"
#include "platform/report/viewer/Thumbnails.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFiles.h"

#include "Drawn.h"
#include "ReportRows.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <atomic>
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

QList<QVariantList> names(int count)
{
    QList<QVariantList> list;
    for (int number = 1; number <= count; ++number)
        list.append(QVariantList{u"Mower %1"_s.arg(number)});
    return list;
}

std::shared_ptr<Rows> rows(int count)
{
    return std::make_shared<Rows>(QStringList{u"Name"_s}, names(count));
}

/// Rows beyond a number come only when they may.
class HeldRows final : public Rows
{
public:
    HeldRows(int all, int free)
        : Rows({u"Name"_s}, names(all))
        , m_free(free)
    {}
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        // One at a time, so that a cancelled report gets away.
        for (int turn = 0; row >= m_free && turn < 100; ++turn)
            QThread::msleep(1);
        return Rows::value(row, field);
    }
    void letGo() { m_free = rowCount(); }

private:
    std::atomic<int> m_free;
};

class Viewer : public testing::Test
{
protected:
    Viewer()
    {
        m_viewer.resize(1000, 700);
        m_viewer.show();
        m_viewer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_viewer));
        m_viewer.setReport(machines(), rows(36), {});
        m_viewer.finishLayout();
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
    QString label(const QString &name) { return child<QLabel>(name)->text(); }
    bool isEnabled(const QString &button) { return child<QToolButton>(button)->isEnabled(); }
    std::string pageText()
    {
        return u"%1 %2"_s.arg(child<QSpinBox>(u"page"_s)->value())
            .arg(label(u"pageTotal"_s))
            .toStdString();
    }

    [[nodiscard]] QString path(const QString &file) const { return m_folder.filePath(file); }
    static void printInto(QPrinter &printer, const QString &file)
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
    }

    const QTemporaryDir m_folder;
    test::ScriptedPrompts m_prompts;
    ReportViewer m_viewer;
    PageView *m_view = child<PageView>(u"pageView"_s);
};

TEST_F(Viewer, ButtonsKeysAndNumbersMoveThroughThePages)
{
    // 254 mm of page hold the header and twelve bands of 20 mm.
    EXPECT_EQ(m_viewer.outcome().pages, 3);
    EXPECT_EQ(pageText(), "1 of 3");
    EXPECT_FALSE(isEnabled(u"previous"_s));
    press(u"next"_s);
    EXPECT_EQ(pageText(), "2 of 3");
    QTest::keyClick(m_view, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(pageText(), "3 of 3");
    EXPECT_FALSE(isEnabled(u"next"_s));
    QTest::keyClick(m_view, Qt::Key_Home);
    EXPECT_EQ(pageText(), "1 of 3");
    QTest::keyClick(m_view, Qt::Key_End);
    EXPECT_EQ(pageText(), "3 of 3");
    auto *page = child<QSpinBox>(u"page"_s);
    QTest::keyClick(m_view, Qt::Key_G, Qt::ControlModifier);
    EXPECT_TRUE(page->hasFocus());
    QTest::keyClicks(page, u"2"_s);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(m_view->currentPage(), 1);
    auto *thumbnails = child<Thumbnails>(u"thumbnails"_s);
    EXPECT_EQ(thumbnails->currentIndex().row(), 1) << "follows";
    QTest::keyClick(thumbnails, Qt::Key_Down);
    EXPECT_EQ(pageText(), "3 of 3");
    m_viewer.setZoom(10);
    press(u"first"_s);
    for (const char *reached : {"2 of 3", "3 of 3"}) {
        press(u"next"_s);
        EXPECT_EQ(pageText(), reached) << "also when several are in view";
    }
}

TEST_F(Viewer, ZoomIsChosenTypedAndSteppedAndTheSizeOnPaper)
{
    m_viewer.setZoom(100);
    EXPECT_EQ(m_view->zoom(), 100);
    // Three letter sheets of 11 inches and the gaps around them.
    const int height = 3 * 11 * m_view->logicalDpiY() + 4 * 10;
    EXPECT_EQ(m_view->verticalScrollBar()->maximum(), height - m_view->viewport()->height());

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
    const auto foundBy = [&](Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        QTest::keyClick(search, key, keys);
        return label(u"searchResult"_s).toStdString();
    };
    QTest::keyClicks(search, u"mower 3"_s); // 3, 30 to 36
    EXPECT_EQ(foundBy(Qt::Key_Return), "Page 1");
    for (int number = 30; number <= 36; ++number)
        EXPECT_EQ(foundBy(Qt::Key_F3), "Page 3");
    // The one that was found is marked, the others on the page lightly.
    const QImage picture = m_view->viewport()->grab().toImage();
    EXPECT_GT(pointsOf(picture, QColor(255, 190, 40)), 0);
    EXPECT_GT(pointsOf(picture, QColor(255, 240, 170)), 0);
    EXPECT_EQ(foundBy(Qt::Key_F3), "Page 1") << "from the beginning again";
    EXPECT_EQ(foundBy(Qt::Key_F3, Qt::ShiftModifier), "Page 3");
    search->clear();
    QTest::keyClicks(search, u"tractor"_s);
    EXPECT_EQ(foundBy(Qt::Key_Return), "Not found");
}

TEST_F(Viewer, ExportsInTheFormOfTheFileName)
{
    m_prompts.expectChooser(u"Export"_s, path(u"machines.csv"_s));
    press(u"export"_s);
    EXPECT_TRUE(QFile::exists(path(u"machines.csv"_s)));
    m_prompts.expectChooser(u"Export"_s, path(u"machines.doc"_s));
    m_prompts.say(
        u"The file's name has to end in .pdf, .xlsx, .csv or .html, which tells its form."_s);
    EXPECT_FALSE(m_viewer.exportToFile());
    m_prompts.expectChooser(u"Export"_s, QString());
    EXPECT_FALSE(m_viewer.exportToFile());
}

TEST_F(Viewer, PrintsTheChosenPages)
{
    int offered = 0;
    m_viewer.setPrinterChooser([&](QPrinter &printer, int pages, QWidget *) {
        offered = pages;
        EXPECT_EQ(printer.docName(), u"Machines");
        EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::Letter);
        printInto(printer, path(u"printed.pdf"_s));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 3);
        return true;
    });
    QTest::keyClick(m_view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(offered, 3);
    EXPECT_EQ(test::readFile(path(u"printed.pdf"_s)).count("/Type /Page\n"), 2);
    // What lies beyond the paper is left out of the text.
    if (const auto text = outputOf(u"pdftotext"_s, {path(u"printed.pdf"_s), u"-"_s})) {
        EXPECT_TRUE(text->contains(u"Mower 36"));
    }
    // Who prints while pages are still laid out gets them all.
    m_viewer.setReport(machines(), std::make_shared<HeldRows>(36, 33), {});
    EXPECT_TRUE(m_viewer.isLayingOut());
    EXPECT_TRUE(m_viewer.print());
    EXPECT_EQ(offered, 3);
    for (const bool isChosen : {false, true}) {
        m_viewer.setPrinterChooser([&](QPrinter &printer, int, QWidget *) {
            printInto(printer, path(u"none/printed.pdf"_s));
            return isChosen;
        });
        if (isChosen)
            m_prompts.warn(u"The report could not be printed."_s);
        EXPECT_FALSE(m_viewer.print());
    }
    PageStore pages;
    for (int number = 1; number <= 3; ++number)
        pages.append(Page{number, {}});
    QPrinter printer;
    printInto(printer, path(u"cancelled.pdf"_s));
    int printed = 0;
    EXPECT_EQ(
        printPages(
            printer, pages, [&](int done, int) { printed = done; }, [&] { return printed == 2; }),
        Printed::Cancelled);
    EXPECT_EQ(printed, 2);
}

TEST_F(Viewer, ShowsTheFirstPageWhileTheRestIsLaidOut)
{
    const auto held = std::make_shared<HeldRows>(1200, 30);
    QSignalSpy ended(&m_viewer, &ReportViewer::layoutEnded);
    m_viewer.setReport(machines(), held, {});
    EXPECT_TRUE(m_viewer.isLayingOut());
    EXPECT_EQ(pageText(), "1 of 2");
    EXPECT_TRUE(label(u"layoutStatus"_s).startsWith(u"Laying out, "));
    EXPECT_FALSE(isEnabled(u"export"_s));
    press(u"next"_s);
    held->letGo();
    EXPECT_TRUE(ended.wait());
    EXPECT_EQ(pageText(), "2 of 100") << "where the user was";
    EXPECT_EQ(child<Thumbnails>(u"thumbnails"_s)->model()->rowCount(), 100);
    EXPECT_TRUE(isEnabled(u"export"_s));
    EXPECT_FALSE(child<QToolButton>(u"cancelLayout"_s)->isVisible());
    EXPECT_EQ(m_viewer.outcome().pages, 100);
}

TEST_F(Viewer, CancelKeepsThePagesThatAreThere)
{
    m_viewer.setReport(machines(), std::make_shared<HeldRows>(100'000, 30), {});
    ASSERT_TRUE(m_viewer.isLayingOut());
    QTest::keyClick(m_view, Qt::Key_Escape);
    EXPECT_FALSE(m_viewer.isLayingOut());
    EXPECT_GE(m_viewer.pageCount(), 2);
    EXPECT_LT(m_viewer.pageCount(), 100);
    EXPECT_EQ(label(u"layoutStatus"_s), u"Incomplete");
    EXPECT_TRUE(isEnabled(u"print"_s));
    // Another report in its place, and a window that closes, don't wait for the rest either.
    m_viewer.setReport(machines(), std::make_shared<HeldRows>(100'000, 0), {});
    m_viewer.setReport(machines(), rows(5), {});
    EXPECT_EQ(pageText(), "1 of 1");
    m_viewer.setReport(machines(), std::make_shared<HeldRows>(100'000, 0), {});
}

TEST_F(Viewer, WaitingAndWritingCanBeCancelled)
{
    const QString csv = path(u"machines.csv"_s);
    m_viewer.setPrinterChooser([](QPrinter &, int, QWidget *) {
        ADD_FAILURE() << "nobody waited for the pages";
        return false;
    });
    QTimer presser;
    int pressed = 0;
    QObject::connect(&presser, &QTimer::timeout, &presser, [&pressed] {
        const QWidget *box = QApplication::activeModalWidget();
        auto *button = box ? box->findChild<QPushButton *>(u"cmdCancel"_s) : nullptr;
        if (!button || !button->isEnabled())
            return;
        ++pressed;
        button->click();
    });
    presser.start(20);
    m_viewer.setReport(machines(), std::make_shared<HeldRows>(100'000, 30), {});
    EXPECT_FALSE(m_viewer.print());
    EXPECT_TRUE(m_viewer.isLayingOut()) << "only the waiting ends";
    m_viewer.cancelLayout();
    m_prompts.expectChooser(u"Export"_s, csv);
    EXPECT_FALSE(m_viewer.exportToFile());
    EXPECT_EQ(pressed, 2);
    EXPECT_FALSE(QFile::exists(csv));
}

TEST_F(Viewer, WithoutAnyPrinterAFileMayTakeItsPlace)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "there is a printer";
    const QString question =
        u"There is no printer on this computer. Write the report to a file instead?"_s;
    m_prompts.no(question);
    EXPECT_FALSE(m_viewer.print());
    m_prompts.yes(question);
    m_prompts.expectChooser(u"Export"_s, path(u"machines.pdf"_s));
    EXPECT_TRUE(m_viewer.print());
    EXPECT_TRUE(QFile::exists(path(u"machines.pdf"_s)));
}

TEST_F(Viewer, TheTotalOfPagesComesLater)
{
    const Layout layout = layoutOf(R"x(<report version="1"><page left="10mm" top="10mm"/>
        <group name="all" by="left(Name, 1)"/>
        <band kind="pageHeader" height="5mm"><text content="{PageNumber} of {TotalPages}"/></band>
        <band kind="detail" height="20mm"><field width="60mm" content="Name"/></band></report>)x");
    const auto held = std::make_shared<HeldRows>(120, 30);
    m_viewer.setReport(layout, held, {});
    EXPECT_TRUE(m_viewer.isLayingOut());
    EXPECT_EQ(m_viewer.pageCount(), 1);
    const auto copied = [&] {
        m_view->selectAll();
        m_view->copy();
        return QGuiApplication::clipboard()->text().section(u'\n', 0, 0);
    };
    EXPECT_EQ(copied(), u"1 of \u2026");
    held->letGo();
    m_viewer.finishLayout();
    EXPECT_EQ(copied(), u"1 of 10");
    EXPECT_EQ(m_viewer.pageCount(), 10);
}

TEST_F(Viewer, CopiesWhatTheMouseSelects)
{
    m_viewer.setZoom(100);
    QWidget *viewport = m_view->viewport();
    const double scale = m_view->logicalDpiX() / 2540.0;
    const int left = qMax(10, (viewport->width() - int(21590 * scale)) / 2);
    // Points of the first page, in 1/100 mm.
    const auto at = [&](int x, int y) {
        return QPoint(left + int(x * scale), 10 + int(y * scale));
    };
    const auto drag = [&](QPoint from, QPoint to) {
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QTest::mouseMove(viewport, to);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text().toStdString();
    };
    // The heading's line is from 10 mm down, the first machine's from 15, the next ones each 20 mm
    // below.
    EXPECT_EQ(drag(at(900, 900), at(9000, 4000)), "Machines\nMower 1\nMower 2");
    EXPECT_EQ(drag(at(9000, 4000), at(900, 900)), "Machines\nMower 1\nMower 2") << "upwards";
    // "M" of 9 points is 265 wide: the second letter begins there.
    EXPECT_EQ(drag(at(1270, 1650), at(1800, 1650)), "owe");
    EXPECT_EQ(drag(at(1800, 1650), at(1270, 1650)), "owe");
    EXPECT_EQ(drag(at(1800, 1640), at(1270, 1760)), "owe") << "a little downwards";
    EXPECT_EQ(drag(at(15000, 8000), at(15000, 8000)), "");
    QTest::keyClick(m_view, Qt::Key_A, Qt::ControlModifier);
    m_view->copy();
    const QStringList all = QGuiApplication::clipboard()->text().split(u'\n');
    EXPECT_EQ(all.size(), 3 + 36) << "a heading on each page";
    EXPECT_EQ(all.last(), u"Mower 36");
}

TEST(PageSelection, TextsBesideEachOtherAreColumns)
{
    const Layout layout = layoutOf(R"x(<report version="1"><band kind="detail" height="5mm">
        <field x="60mm" content="B"/><field content="A" height="4mm" size="8"/></band></report>)x");
    PageStore pages;
    pages.append(allPages(layout, Rows({u"A"_s, u"B"_s}, {{1, u"x y"_s}, {2, u"z"_s}}), {})[0]);
    EXPECT_EQ(selectedText(pages, everything(pages)), u"1\tx y\n2\tz");
}

TEST_F(Viewer, SendsAPdfByMail)
{
    const auto *mail = child<QToolButton>(u"mail"_s);
    EXPECT_FALSE(mail->isVisible());
    EXPECT_FALSE(m_viewer.sendByMail());
    QStringList sent;
    m_viewer.setMailer([&](const QString &pdf) { sent.append(pdf); });
    EXPECT_TRUE(mail->isVisible());
    press(u"mail"_s);
    EXPECT_TRUE(m_viewer.sendByMail());
    ASSERT_EQ(sent.size(), 2);
    EXPECT_NE(sent[0], sent[1]);
    EXPECT_TRUE(sent[0].endsWith(u"/Machines.pdf")) << sent[0].toStdString();
    EXPECT_EQ(test::readFile(sent[0]).first(5), "%PDF-");
}

TEST_F(Viewer, RemarksAreThereToRead)
{
    EXPECT_FALSE(child<QToolButton>(u"remarks"_s)->isVisible());
    m_viewer.setReport(layoutOf(R"(<report version="1"><band kind="detail">
        <field content="Colour"/></band></report>)"),
                       rows(2), {});
    m_viewer.finishLayout();
    m_prompts.inform(u"an object: there is no field \"colour\"."_s);
    press(u"remarks"_s);
}

/// Rows that can't be read any more.
class LostRows final : public Rows
{
public:
    using Rows::Rows;
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        if (row > 30)
            throw base::Error(base::ErrorNumber::InvalidCall, u"The rows are gone."_s);
        return Rows::value(row, field);
    }
};

TEST_F(Viewer, AnErrorOnTheWayIsARemark)
{
    m_viewer.setReport(machines(), std::make_shared<LostRows>(QStringList{u"Name"_s}, names(100)),
                       {});
    m_viewer.finishLayout();
    EXPECT_EQ(m_viewer.pageCount(), 2) << "what was whole stays";
    EXPECT_EQ(label(u"layoutStatus"_s), u"Incomplete");
    EXPECT_EQ(m_viewer.outcome().problems, QStringList{u"The rows are gone."_s});
}

TEST_F(Viewer, EmptyViewerOffersNothing)
{
    m_viewer.clear();
    EXPECT_EQ(pageText(), "0 of 0");
    for (const QString &button : {u"print"_s, u"export"_s, u"next"_s, u"last"_s, u"zoomIn"_s})
        EXPECT_FALSE(isEnabled(button)) << button.toStdString();
    EXPECT_FALSE(m_viewer.print());
    EXPECT_FALSE(m_viewer.exportToFile());
}

TEST(PageStore, GivesBackWhatWasPutIn)
{
    TextItem text;
    text.frame = QRect(1, 2, 3, 4);
    text.lines = {{u"one"_s, 1, 2, 3}, {u"two"_s, 4, 5, 6}};
    text.style.font.bold = true;
    text.style.fill = Qt::yellow;
    TextItem turned = text;
    turned.turned = true;
    const QList<PageItem> items{
        text,
        turned,
        LineItem{{1, 2}, {3, 4}, 5, Qt::red},
        BoxItem{QRect(5, 6, 7, 8), 9, Qt::blue, QColor()},
        PictureItem{QRect(1, 1, 2, 2), "bytes", Align::Center},
        BarCodeItem{QRect(0, 0, 9, 9), {QRect(1, 0, 1, 9)}},
        ShapeItem{QRect(1, 2, 3, 4), {{1, 2}, {4, 6}}, true, 7, Qt::red, Qt::blue}};
    PageStore pages;
    for (int number = 1; number <= 40; ++number)
        pages.append({number, items});
    EXPECT_EQ(pages.count(), 40);
    for (const int number : {1, 40, 1})
        EXPECT_EQ(pages.page(number - 1), (Page{number, items}));
}

} // namespace
} // namespace report
