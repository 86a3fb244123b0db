#include "platform/report/viewer/PageView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

namespace report {
namespace {

constexpr int Gap = 10; ///< pixels around each page
constexpr double UnitsPerInch = 2540;

const QColor GroundColor(120, 126, 132);
const QColor EdgeColor(70, 76, 82);
const QColor MarkColor(255, 190, 40);
const QColor SearchedColor(255, 240, 170);
const QColor SelectionColor(168, 204, 255);

} // namespace

PageView::PageView(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // A bar that comes and goes would change the width that pages are fitted to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PageView::setPages(const PageStore *pages, const PageSetup &page)
{
    m_pages = pages;
    m_page = page;
    m_mark.reset();
    m_searched.clear();
    m_selection.reset();
    // The first page of another report is news, whatever its number.
    m_toldPage = -1;
    applyMode();
    updateScrollBars();
    verticalScrollBar()->setValue(0);
    viewport()->update();
    setCurrentPage(0);
}

void PageView::addPages()
{
    updateScrollBars();
    viewport()->update();
}

void PageView::setZoom(int percent)
{
    m_mode = ZoomMode::Percent;
    changeZoom(percent);
}

void PageView::setZoomMode(ZoomMode mode)
{
    m_mode = mode;
    applyMode();
    Q_EMIT zoomChanged();
}

void PageView::applyMode()
{
    // So many hundredths of a millimetre a pixel shows at 100 %.
    const double whole = UnitsPerInch / logicalDpiX();
    const int width = viewport()->width() - 2 * Gap;
    const int height = viewport()->height() - 2 * Gap;
    const double byWidth = 100.0 * width * whole / m_page.width();
    const double byHeight = 100.0 * height * whole / m_page.height();
    if (m_mode == ZoomMode::FullWidth)
        changeZoom(static_cast<int>(byWidth));
    else if (m_mode == ZoomMode::WholePage)
        changeZoom(static_cast<int>(qMin(byWidth, byHeight)));
}

void PageView::changeZoom(int percent)
{
    const int zoom = qBound(SmallestZoom, percent, LargestZoom);
    // The pages may be others all the same, and the room a different one.
    if (zoom == m_zoom) {
        updateScrollBars();
        return;
    }
    // What is in the middle stays there.
    const int middle = viewport()->height() / 2;
    const int page = currentPage();
    const double share =
        double(verticalScrollBar()->value() + middle - topOf(page)) / qMax(1, pageSize().height());
    m_zoom = zoom;
    updateScrollBars();
    verticalScrollBar()->setValue(topOf(page) + static_cast<int>(share * pageSize().height()) -
                                  middle);
    viewport()->update();
    Q_EMIT zoomChanged();
}

double PageView::scale() const
{
    return m_zoom / 100.0 * logicalDpiX() / UnitsPerInch;
}

QSize PageView::pageSize() const
{
    return {static_cast<int>(std::lround(m_page.width() * scale())),
            static_cast<int>(std::lround(m_page.height() * scale()))};
}

int PageView::topOf(int index) const
{
    return Gap + index * (pageSize().height() + Gap);
}

int PageView::leftOfPages() const
{
    const int room = viewport()->width() - pageSize().width();
    // In the middle while there is room for all of it; else the bar says what is seen.
    return room > 2 * Gap ? room / 2 : Gap - horizontalScrollBar()->value();
}

void PageView::updateScrollBars()
{
    const int count = m_pages ? m_pages->count() : 0;
    verticalScrollBar()->setRange(0, qMax(0, topOf(count) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setRange(0, qMax(0, pageSize().width() + 2 * Gap - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(40);
}

int PageView::middlePage() const
{
    if (!m_pages || m_pages->count() == 0)
        return 0;
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    // At the ends of the report several pages may be in view at once.
    if (verticalScrollBar()->value() == 0)
        return 0;
    return qBound(0, (middle - Gap / 2) / (pageSize().height() + Gap), m_pages->count() - 1);
}

void PageView::showPage(int index)
{
    const int page = qBound(0, index, m_pages ? qMax(0, m_pages->count() - 1) : 0);
    verticalScrollBar()->setValue(page == 0 ? 0 : topOf(page) - Gap / 2);
    // Where several pages are in view at once, this one need not be in the middle.
    setCurrentPage(page);
}

void PageView::setMark(const std::optional<Found> &found)
{
    m_mark = found;
    if (found) {
        const int top = topOf(found->page) + static_cast<int>(found->place.top() * scale());
        const int bottom = topOf(found->page) + static_cast<int>(found->place.bottom() * scale());
        QScrollBar *bar = verticalScrollBar();
        if (top < bar->value() || bottom > bar->value() + viewport()->height())
            bar->setValue(top - viewport()->height() / 3);
        const int left = Gap + static_cast<int>(found->place.left() * scale());
        const int right = Gap + static_cast<int>(found->place.right() * scale());
        QScrollBar *across = horizontalScrollBar();
        if (left < across->value() || right > across->value() + viewport()->width())
            across->setValue(left - viewport()->width() / 3);
    }
    viewport()->update();
}

void PageView::setSearched(const QString &text)
{
    m_searched = text;
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), GroundColor);
    if (!m_pages)
        return;
    const QSize size = pageSize();
    const int offset = verticalScrollBar()->value();
    const int first = qMax(0, (offset - Gap) / (size.height() + Gap));
    for (int index = first; index < m_pages->count(); ++index) {
        const QRect sheet(QPoint(leftOfPages(), topOf(index) - offset), size);
        // Only what is in view is unpacked: a report may have thousands of pages.
        if (sheet.top() > viewport()->height())
            break;
        paintPage(painter, index, sheet);
        painter.setPen(EdgeColor);
        painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    }
}

void PageView::paintPage(QPainter &painter, int index, const QRect &sheet)
{
    painter.save();
    painter.fillRect(sheet, Qt::white);
    painter.setClipRect(sheet);
    painter.translate(sheet.topLeft());
    painter.scale(scale(), scale());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    const Page &page = m_pages->page(index);
    m_painter.paint(page, painter);
    // Like a marker pen: what is dark stays dark.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    if (hasSelection())
        for (const QRect &place : selectedPlaces(page, index, *m_selection))
            painter.fillRect(place, SelectionColor);
    for (const QRect &place : placesOnPage(page, m_searched))
        painter.fillRect(place, m_mark == Found{index, place} ? MarkColor : SearchedColor);
    painter.restore();
}

void PageView::resizeEvent(QResizeEvent *)
{
    applyMode();
    updateScrollBars();
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->setValue(0);
        return;
    case Qt::Key_End:
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        return;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (control) {
            showPage(currentPage() + (event->key() == Qt::Key_PageDown ? 1 : -1));
            return;
        }
        break;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(m_zoom + (event->angleDelta().y() > 0 ? 10 : -10));
    event->accept();
}

/// Between pages the nearer one counts.
PagePoint PageView::pointAt(QPoint viewport) const
{
    const int y = viewport.y() + verticalScrollBar()->value();
    const int count = m_pages ? m_pages->count() : 0;
    const int page = qBound(0, (y - Gap / 2) / (pageSize().height() + Gap), qMax(0, count - 1));
    return {page,
            {static_cast<int>(std::lround((viewport.x() - leftOfPages()) / scale())),
             static_cast<int>(std::lround((y - topOf(page)) / scale()))}};
}

void PageView::setSelection(const std::optional<PageSelection> &selection)
{
    m_selection = selection;
    viewport()->update();
}

void PageView::selectAll()
{
    if (m_pages)
        setSelection(everything(*m_pages));
}

void PageView::copy() const
{
    if (m_pages && hasSelection())
        QGuiApplication::clipboard()->setText(selectedText(*m_pages, *m_selection));
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const PagePoint point = pointAt(event->position().toPoint());
    setSelection(PageSelection{point, point});
}

void PageView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_selection)
        return;
    // Beyond the edge the pages move along.
    const int y = event->position().toPoint().y();
    if (y < 0 || y > viewport()->height())
        verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                      (y < 0 ? y : y - viewport()->height()));
    setSelection(PageSelection{m_selection->from, pointAt(event->position().toPoint())});
}

void PageView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    QAction *copyText = menu.addAction(QStringLiteral("&Copy"), this, &PageView::copy);
    copyText->setShortcut(QKeySequence::Copy);
    copyText->setEnabled(hasSelection());
    QAction *all = menu.addAction(QStringLiteral("Select &All"), this, &PageView::selectAll);
    all->setShortcut(QKeySequence::SelectAll);
    menu.exec(event->globalPos());
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    setCurrentPage(middlePage());
}

void PageView::setCurrentPage(int index)
{
    m_current = index;
    // Scrolling comes by here with each pixel.
    if (std::exchange(m_toldPage, index) != index)
        Q_EMIT currentPageChanged(index);
}

} // namespace report
