#include "platform/report/viewer/ReportViewer.h"

#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/ProgressBox.h"
#include "platform/report/render/Export.h"
#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/Thumbnails.h"

#include <QDir>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolButton>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// So long the caller waits for a report to be whole.
constexpr std::chrono::milliseconds ShortWait(300);
/// Between two looks for new pages.
constexpr std::chrono::milliseconds NewsInterval(60);

class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};

} // namespace

ReportViewer::ReportViewer(QWidget *parent)
    : QWidget(parent)
    , m_choosePrinter(choosePrinter)
    , m_view(new PageView(this))
    , m_thumbnails(new Thumbnails(this))
{
    m_view->setObjectName(u"pageView"_s);
    m_view->setAccessibleName(u"Pages"_s);
    m_thumbnails->setObjectName(u"thumbnails"_s);
    m_thumbnails->setAccessibleName(u"Small pages"_s);

    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(6, 4, 6, 4);
    bar->setSpacing(3);
    rows->addLayout(bar);
    auto *pages = new QHBoxLayout;
    pages->setSpacing(0);
    pages->addWidget(m_thumbnails);
    pages->addWidget(m_view, 1);
    rows->addLayout(pages, 1);
    buildBar(bar);
    setFocusProxy(m_view);

    connect(m_view, &PageView::currentPageChanged, this, &ReportViewer::showPageNumber);
    connect(m_view, &PageView::zoomChanged, this, &ReportViewer::showZoom);
    connect(m_thumbnails, &Thumbnails::pageChosen, m_view, &PageView::showPage);
    m_news.setInterval(NewsInterval);
    connect(&m_news, &QTimer::timeout, this, &ReportViewer::takePages);
    clear();
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::setReport(const Layout &layout, std::shared_ptr<const DataSource> rows,
                             const Inputs &inputs)
{
    clear();
    m_layout = layout;
    m_rows = std::move(rows);
    m_inputs = inputs;
    m_maker = std::make_unique<PageMaker>(m_layout, m_rows, m_inputs, m_pages);
    {
        const WaitCursor wait;
        (void)m_maker->wait(ShortWait);
    }
    m_thumbnails->setPages(&m_pages, m_layout.page);
    m_view->setPages(&m_pages, m_layout.page);
    m_news.start();
    takePages();
    showPageNumber(0);
    showZoom();
}

/// Shows what has come since the last look.
void ReportViewer::takePages()
{
    if (!m_maker)
        return;
    const bool isDone = m_maker->isDone();
    m_view->addPages();
    m_thumbnails->addPages();
    if (isDone)
        endLayout();
    else
        m_status->setText(u"Laying out, %1%"_s.arg(static_cast<int>(100 * m_maker->share())));
    m_cancel->setVisible(!isDone);
    showPageNumber(m_view->currentPage());
}

void ReportViewer::endLayout()
{
    m_outcome = m_maker->outcome();
    m_maker.reset();
    m_news.stop();
    m_status->setText(m_outcome.stopped ? u"Incomplete"_s : QString());
    m_cancel->hide();
    m_remarks->setVisible(!m_outcome.problems.isEmpty());
    Q_EMIT layoutEnded();
}

void ReportViewer::cancelLayout()
{
    if (m_maker)
        m_maker->cancel();
    finishLayout();
}

void ReportViewer::finishLayout()
{
    const WaitCursor wait;
    while (m_maker && !m_maker->wait(ShortWait)) {
    }
    takePages();
}

void ReportViewer::showRemarks()
{
    base::showInformation(m_outcome.problems.join(u'\n'));
}

Inputs ReportViewer::inputsTelling(input::ProgressBox &box) const
{
    Inputs inputs = m_inputs;
    inputs.progress = box.progress();
    return inputs;
}

void ReportViewer::clear()
{
    m_maker.reset();
    m_news.stop();
    m_outcome = {};
    m_status->clear();
    m_searchResult->clear();
    m_cancel->hide();
    m_remarks->hide();
    m_pages.clear();
    m_rows.reset();
    m_found.reset();
    m_thumbnails->setPages(&m_pages, m_layout.page);
    m_view->setPages(&m_pages, m_layout.page);
    showPageNumber(0);
    showZoom();
}

void ReportViewer::setZoom(int percent)
{
    m_view->setZoom(percent);
    showZoom();
}

bool ReportViewer::print()
{
    if (m_pages.count() == 0)
        return false;
    if (m_maker)
        finishLayout();
    QPrinter printer(QPrinter::HighResolution);
    setUpPrinter(printer, m_layout.page, m_layout.title);
    if (!m_choosePrinter(printer, m_pages.count(), this))
        return false;
    const bool printed = [&] {
        const WaitCursor wait;
        input::ProgressBox box(u"Printing..."_s, this);
        return printPages(printer, m_pages, box.progress());
    }();
    if (!printed)
        base::showCritical(u"The report could not be printed."_s);
    return printed;
}

bool ReportViewer::exportToFile()
{
    if (!m_rows)
        return false;
    const QString name = m_layout.title.isEmpty() ? u"Report"_s : m_layout.title;
    const QString path =
        base::prompts().chooseSaveFile(u"Export"_s, exportFilters(), name + u".pdf"_s);
    if (path.isEmpty())
        return false;
    const auto format = exportFormat(path);
    if (!format) {
        base::showMessage(
            u"The file's name has to end in .pdf, .xlsx, .csv or .html, which tells its form."_s);
        return false;
    }
    return writeReport(path, *format);
}

bool ReportViewer::writeReport(const QString &path, ExportFormat format)
{
    try {
        const WaitCursor wait;
        input::ProgressBox box(u"Writing the file..."_s, this);
        (void)exportReport(m_layout, *m_rows, inputsTelling(box), path, format);
    } catch (const base::Error &error) {
        base::showCritical(error.description());
        return false;
    }
    return true;
}

void ReportViewer::setMailer(Mailer mailer)
{
    m_mailer = std::move(mailer);
    m_mail->setVisible(static_cast<bool>(m_mailer));
}

bool ReportViewer::sendByMail()
{
    if (!m_rows || !m_mailer)
        return false;
    // The mail program reads the file when it likes, maybe after this window is closed.
    static const QTemporaryDir folder(QDir::temp().filePath(u"report-XXXXXX"_s));
    static int number = 0;
    QString name = m_layout.title.isEmpty() ? u"Report"_s : m_layout.title;
    for (QChar &letter : name)
        if (!letter.isLetterOrNumber() && letter != u' ' && letter != u'-')
            letter = u'_';
    const QDir own(folder.filePath(QString::number(++number)));
    const QString path = own.filePath(name + u".pdf"_s);
    if (!own.mkpath(u"."_s)) {
        base::showCritical(u"\"%1\" can't be written."_s.arg(QDir::toNativeSeparators(path)));
        return false;
    }
    if (!writeReport(path, ExportFormat::Pdf))
        return false;
    m_mailer(path);
    return true;
}

void ReportViewer::search(bool backward)
{
    if (m_search->text().isEmpty())
        return;
    m_found = findText(m_pages, m_search->text(), m_found, m_view->currentPage(), backward);
    m_view->setSearched(m_search->text());
    m_view->setMark(m_found);
    m_searchResult->setText(m_found ? u"Page %1"_s.arg(m_found->page + 1) : u"Not found"_s);
}

void ReportViewer::showPageNumber(int index)
{
    const QSignalBlocker blocker(m_page);
    m_page->setRange(qMin(1, m_pages.count()), m_pages.count());
    m_page->setValue(index + 1);
    m_pageTotal->setText(u"of %1"_s.arg(m_pages.count()));
    m_thumbnails->setCurrentPage(index);
    enableButtons();
}

void ReportViewer::enableButtons()
{
    const int page = m_page->value();
    const bool any = m_pages.count() > 0;
    // What is written or printed shall be whole, or what the user has left it at.
    m_print->setEnabled(any && !m_maker);
    m_export->setEnabled(any && !m_maker);
    m_mail->setEnabled(any && !m_maker);
    m_page->setEnabled(any);
    m_first->setEnabled(page > 1);
    m_previous->setEnabled(page > 1);
    m_next->setEnabled(page < m_pages.count());
    m_last->setEnabled(page < m_pages.count());
    m_zoomOut->setEnabled(any && m_view->zoom() > PageView::SmallestZoom);
    m_zoomIn->setEnabled(any && m_view->zoom() < PageView::LargestZoom);
}

} // namespace report
