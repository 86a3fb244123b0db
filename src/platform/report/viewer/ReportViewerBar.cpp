// The bar above the pages.
#include "platform/input/Theme.h"
#include "platform/report/viewer/PageView.h"
#include "platform/report/viewer/ReportViewer.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSpinBox>
#include <QToolButton>

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QString fullWidthText = u"Full width"_s;
const QString wholePageText = u"Whole page"_s;
constexpr int ZoomStep = 25;

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
    // A click leaves the focus with the pages, whose keys go on working.
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
    // Until somebody sends mail for the viewer.
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
    // "12" must not lead to page 1 on the way.
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
    // What was typed is one zoom, not a choice for later.
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    m_zoom->addItems({fullWidthText, wholePageText, u"25%"_s, u"50%"_s, u"75%"_s, u"100%"_s,
                      u"125%"_s, u"150%"_s, u"200%"_s, u"400%"_s});
    m_zoom->setFixedWidth(110);
    bar->addWidget(m_zoom);
    m_zoomIn = addButton(bar, u"zoomIn"_s, u"Larger"_s, u"zoom-in"_s,
                         {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(m_zoomOut, &QToolButton::clicked, this,
            // To the next whole step, also from what a fitted width has made.
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
    // It gives way to what else stands in the row while pages are laid out.
    m_search->setMinimumWidth(110);
    m_search->setMaximumWidth(200);
    bar->addWidget(m_search, 1);
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
        // The next search begins at the page in view.
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

} // namespace report
