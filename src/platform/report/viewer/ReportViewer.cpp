#include "platform/report/viewer/ReportViewer.h"

#include "platform/base/Prompts.h"
#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/Thumbnails.h"
#include "platform/report/viewer/WaitCursor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// So long the caller waits for a report to be whole, so that a short one is shown at once.
constexpr std::chrono::milliseconds ShortWait(150);

} // namespace

ReportViewer::ReportViewer(QWidget *parent)
    : QWidget(parent)
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
    // Keys that turn pages work as soon as the window is open.
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
        // A short report is whole by then and comes up at once, without pages that pop in.
        m_maker->waitForShortReport(ShortWait);
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
    // Asked ahead of the pages: asked behind them, those that came in between would be left out at
    // the end.
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
    // The box shows where the user is; it must not send him there.
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
