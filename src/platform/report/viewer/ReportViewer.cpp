#include "platform/report/viewer/ReportViewer.h"

#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/ProgressBox.h"
#include "platform/input/Theme.h"
#include "platform/report/render/Export.h"
#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/Thumbnails.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolButton>

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QString fullWidthText = u"Full width"_s;
const QString wholePageText = u"Whole page"_s;
constexpr int ZoomStep = 25;
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

void addSeparator(QHBoxLayout *bar)
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    bar->addSpacing(4);
    bar->addWidget(line);
    bar->addSpacing(4);
}

QString keysText(const QString &tip, const QList<QKeySequence> &keys)
{
    return keys.isEmpty() ? tip
                          : u"%1 (%2)"_s.arg(tip, keys.first().toString(QKeySequence::NativeText));
}

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

QToolButton *ReportViewer::addButton(QHBoxLayout *bar, const QString &name, const QString &tip,
                                     const QString &icon, const QList<QKeySequence> &keys)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(theme::icon(icon));
    button->setIconSize({20, 20});
    button->setAutoRaise(true);
    button->setToolTip(keysText(tip, keys));
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::TabFocus);
    for (const QKeySequence &key : keys) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
    }
    bar->addWidget(button);
    return button;
}

void ReportViewer::buildBar(QHBoxLayout *bar)
{
    m_print = addButton(bar, u"print"_s, u"Print"_s, u"print"_s, {QKeySequence::Print});
    connect(m_print, &QToolButton::clicked, this, &ReportViewer::print);
    m_export = addButton(bar, u"export"_s, u"Export to a file"_s, u"export"_s,
                         {QKeySequence(Qt::CTRL | Qt::Key_E)});
    connect(m_export, &QToolButton::clicked, this, &ReportViewer::exportToFile);
    m_mail = addButton(bar, u"mail"_s, u"Send by mail"_s, u"mail"_s,
                       {QKeySequence(Qt::CTRL | Qt::Key_M)});
    connect(m_mail, &QToolButton::clicked, this, &ReportViewer::sendByMail);
    m_mail->hide();
    addSeparator(bar);

    m_first = addButton(bar, u"first"_s, u"First page"_s, u"first"_s,
                        {QKeySequence(Qt::CTRL | Qt::Key_Home)});
    m_previous = addButton(bar, u"previous"_s, u"Previous page"_s, u"previous"_s,
                           {QKeySequence(Qt::CTRL | Qt::Key_PageUp)});
    m_page = new QSpinBox(this);
    m_page->setObjectName(u"page"_s);
    m_page->setAccessibleName(u"Page"_s);
    m_page->setToolTip(u"Page (Ctrl+G)"_s);
    m_page->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_page->setKeyboardTracking(false);
    m_page->setAlignment(Qt::AlignRight);
    m_page->setFixedWidth(56);
    bar->addWidget(m_page);
    auto *go = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_G), this);
    go->setContext(Qt::WidgetWithChildrenShortcut);
    connect(go, &QShortcut::activated, this, [this] {
        m_page->setFocus();
        m_page->selectAll();
    });
    m_pageTotal = new QLabel(this);
    m_pageTotal->setObjectName(u"pageTotal"_s);
    bar->addWidget(m_pageTotal);
    m_next = addButton(bar, u"next"_s, u"Next page"_s, u"next"_s,
                       {QKeySequence(Qt::CTRL | Qt::Key_PageDown)});
    m_last = addButton(bar, u"last"_s, u"Last page"_s, u"last"_s,
                       {QKeySequence(Qt::CTRL | Qt::Key_End)});
    connect(m_first, &QToolButton::clicked, this, [this] { m_view->showPage(0); });
    connect(m_previous, &QToolButton::clicked, this,
            [this] { m_view->showPage(m_page->value() - 2); });
    connect(m_next, &QToolButton::clicked, this, [this] { m_view->showPage(m_page->value()); });
    connect(m_last, &QToolButton::clicked, this, [this] { m_view->showPage(m_pages.count() - 1); });
    connect(m_page, &QSpinBox::valueChanged, this,
            [this](int page) { m_view->showPage(page - 1); });
    addSeparator(bar);
    addZoom(bar);
    addSeparator(bar);
    addSearch(bar);
    bar->addStretch(1);
    buildStatus(bar);
}

/// What is going on and what was remarked, at the end of the bar.
void ReportViewer::buildStatus(QHBoxLayout *bar)
{
    m_status = new QLabel(this);
    m_status->setObjectName(u"layoutStatus"_s);
    bar->addWidget(m_status);
    m_cancel = addButton(bar, u"cancelLayout"_s, u"Cancel: no more pages"_s, u"cancel"_s, {});
    // It holds only while its button is there; later the key closes the window again.
    auto *escape = new QShortcut(Qt::Key_Escape, m_cancel);
    connect(escape, &QShortcut::activated, this, &ReportViewer::cancelLayout);
    connect(m_cancel, &QToolButton::clicked, this, &ReportViewer::cancelLayout);
    m_remarks = addButton(bar, u"remarks"_s, u"Remarks on this report"_s, u"warning"_s, {});
    connect(m_remarks, &QToolButton::clicked, this, &ReportViewer::showRemarks);
    m_cancel->hide();
    m_remarks->hide();
}

void ReportViewer::addZoom(QHBoxLayout *bar)
{
    m_zoomOut = addButton(bar, u"zoomOut"_s, u"Smaller"_s, u"zoom-out"_s, {QKeySequence::ZoomOut});
    m_zoom = new QComboBox(this);
    m_zoom->setObjectName(u"zoom"_s);
    m_zoom->setAccessibleName(u"Zoom"_s);
    m_zoom->setToolTip(u"Zoom"_s);
    m_zoom->setEditable(true);
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    m_zoom->addItems({fullWidthText, wholePageText, u"25%"_s, u"50%"_s, u"75%"_s, u"100%"_s,
                      u"125%"_s, u"150%"_s, u"200%"_s, u"400%"_s});
    m_zoom->setFixedWidth(110);
    bar->addWidget(m_zoom);
    m_zoomIn = addButton(bar, u"zoomIn"_s, u"Larger"_s, u"zoom-in"_s,
                         {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(m_zoomOut, &QToolButton::clicked, this,
            [this] { m_view->setZoom((m_view->zoom() - 1) / ZoomStep * ZoomStep); });
    connect(m_zoomIn, &QToolButton::clicked, this,
            [this] { m_view->setZoom((m_view->zoom() / ZoomStep + 1) * ZoomStep); });
    connect(m_zoom, &QComboBox::activated, this, &ReportViewer::applyZoomText);
    connect(m_zoom->lineEdit(), &QLineEdit::returnPressed, this, &ReportViewer::applyZoomText);
    auto *full = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_0), this);
    full->setContext(Qt::WidgetWithChildrenShortcut);
    connect(full, &QShortcut::activated, this, [this] { setZoom(100); });
}

void ReportViewer::addSearch(QHBoxLayout *bar)
{
    m_search = new QLineEdit(this);
    m_search->setObjectName(u"search"_s);
    m_search->setAccessibleName(u"Search"_s);
    m_search->setPlaceholderText(u"Search (Ctrl+F)"_s);
    m_search->setClearButtonEnabled(true);
    m_search->setFixedWidth(200);
    bar->addWidget(m_search);
    QToolButton *back = addButton(bar, u"searchBack"_s, u"Search backward"_s, u"previous"_s,
                                  {QKeySequence(Qt::SHIFT | Qt::Key_F3)});
    QToolButton *forward =
        addButton(bar, u"searchNext"_s, u"Search"_s, u"find"_s, {QKeySequence(Qt::Key_F3)});
    m_searchResult = new QLabel(this);
    m_searchResult->setObjectName(u"searchResult"_s);
    bar->addWidget(m_searchResult);
    connect(back, &QToolButton::clicked, this, [this] { search(true); });
    connect(forward, &QToolButton::clicked, this, [this] { search(false); });
    connect(m_search, &QLineEdit::returnPressed, this, [this] { search(false); });
    connect(m_search, &QLineEdit::textChanged, this, [this] {
        m_found.reset();
        m_view->setSearched({});
        m_view->setMark(std::nullopt);
        m_searchResult->clear();
    });
    auto *find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
}

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

void ReportViewer::applyZoomText()
{
    QString text = m_zoom->currentText().trimmed();
    if (text.compare(fullWidthText, Qt::CaseInsensitive) == 0) {
        m_view->setZoomMode(ZoomMode::FullWidth);
    } else if (text.compare(wholePageText, Qt::CaseInsensitive) == 0) {
        m_view->setZoomMode(ZoomMode::WholePage);
    } else {
        bool ok = false;
        const int percent = text.remove(u'%').toInt(&ok);
        if (ok && percent > 0)
            m_view->setZoom(percent);
    }
    showZoom();
    m_view->setFocus();
}

void ReportViewer::showZoom()
{
    m_zoom->setEditText(m_view->zoomMode() == ZoomMode::FullWidth   ? fullWidthText
                        : m_view->zoomMode() == ZoomMode::WholePage ? wholePageText
                                                                    : u"%1%"_s.arg(m_view->zoom()));
    enableButtons();
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
