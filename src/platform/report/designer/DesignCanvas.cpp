#include "platform/report/designer/DesignCanvas.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/CanvasSides.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QColor GroundColor(120, 126, 132);
const QColor MarginColor(246, 246, 246);
const QColor BeyondColor(214, 216, 218);
const QColor GridColor(205, 212, 220);
const QColor FrameColor(170, 184, 200);
const QColor GuideColor(214, 0, 120);
constexpr double UnitsPerInch = 2540;
constexpr int GridUnits = 500; ///< between two lines that are shown

/// What stands in a frame of which nothing is seen before it is printed.
QString hintOf(const Layout &layout, const Object &object)
{
    if (object.kind == ObjectKind::Picture && layout.pictureIndex(object.content) < 0)
        return object.content.isEmpty() ? u"Picture"_s : object.content;
    return object.kind == ObjectKind::Text && object.content.isEmpty() ? object.name : QString();
}

} // namespace

DesignCanvas::DesignCanvas(DesignDocument &document, QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_document(document)
    , m_ruler(new Ruler(*this))
    , m_strip(new BandStrip(*this))
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(BandStrip::Width, Ruler::Thickness, 0, 0);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setAcceptDrops(true);
    connect(&document, &DesignDocument::layoutChanged, this, &DesignCanvas::refresh);
    connect(&document, &DesignDocument::selectionChanged, this, [this] {
        m_shownSelection = m_document.selection();
        viewport()->update();
        m_strip->update();
    });
    refresh();
}

void DesignCanvas::refresh()
{
    // The words in place were those of the layout before; whoever changes it has taken them first.
    finishEditing(false);
    m_action = Action::None;
    m_guides.clear();
    m_shown = m_document.layout();
    m_shownSelection = m_document.selection();
    m_geometry.set(m_shown, m_zoom / 100.0 * logicalDpiX() / UnitsPerInch);
    updateScrollBars();
    viewport()->update();
    m_strip->update();
    m_ruler->update();
}

void DesignCanvas::setZoom(int percent)
{
    const int zoom = qBound(SmallestZoom, percent, LargestZoom);
    if (zoom == m_zoom)
        return;
    // What is in the middle stays there.
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    // As a share of the whole: gaps and bars between bands keep their pixels at each zoom.
    const double share = static_cast<double>(middle) / qMax(1, m_geometry.size().height());
    m_zoom = zoom;
    refresh();
    verticalScrollBar()->setValue(static_cast<int>(share * m_geometry.size().height()) -
                                  viewport()->height() / 2);
    Q_EMIT zoomChanged(zoom);
}

void DesignCanvas::zoomToWidth()
{
    const double pixels = m_shown.page.width() * logicalDpiX() / UnitsPerInch;
    // Also beside a scroll bar that isn't there yet.
    const int bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
    const int room = viewport()->width() - 2 * CanvasGeometry::Edge - bar;
    // Rounded down, so that no bar appears that would take its own width away again.
    setZoom(static_cast<int>(100 * room / pixels));
    horizontalScrollBar()->setValue(0);
}

void DesignCanvas::setInches(bool inInches)
{
    m_inInches = inInches;
    m_ruler->setInches(inInches);
    m_strip->setInches(inInches);
}

void DesignCanvas::setGridShown(bool isShown)
{
    m_showsGrid = isShown;
    viewport()->update();
}

void DesignCanvas::updateScrollBars()
{
    const QSize all = m_geometry.size();
    const QSize seen = viewport()->size();
    horizontalScrollBar()->setRange(0, qMax(0, all.width() - seen.width()));
    horizontalScrollBar()->setPageStep(seen.width());
    horizontalScrollBar()->setSingleStep(40);
    verticalScrollBar()->setRange(0, qMax(0, all.height() - seen.height()));
    verticalScrollBar()->setPageStep(seen.height());
    verticalScrollBar()->setSingleStep(40);
}

void DesignCanvas::layOutSides()
{
    const QRect inner = viewport()->geometry();
    m_ruler->setGeometry(0, 0, inner.right() + 1, Ruler::Thickness);
    m_strip->setGeometry(0, Ruler::Thickness, BandStrip::Width, inner.height());
}

void DesignCanvas::resizeEvent(QResizeEvent *)
{
    layOutSides();
    updateScrollBars();
}

void DesignCanvas::scrollContentsBy(int, int)
{
    finishEditing(true);
    viewport()->update();
    m_strip->update();
    m_ruler->update();
}

QPoint DesignCanvas::scrolled() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

QPoint DesignCanvas::toViewport(int band, QPoint units) const
{
    return m_geometry.fromBand(band, units) - scrolled();
}

int DesignCanvas::targetBand() const
{
    if (const int band = m_document.selection().band(); band >= 0)
        return band;
    const QList<Band> &bands = m_document.layout().bands;
    for (int band = 0; band < bands.size(); ++band)
        if (bands[band].kind == BandKind::Detail)
            return band;
    return bands.isEmpty() ? -1 : 0;
}

void DesignCanvas::showSelection()
{
    const Selection &selection = m_document.selection();
    const int band = selection.band();
    if (band < 0)
        return;
    QRect place = m_geometry.slotRect(band);
    if (!selection.objects.isEmpty())
        place = m_geometry.fromBand(band, frameOf(m_document.object(selection.lead)));
    const QRect seen(scrolled(), viewport()->size());
    if (place.top() < seen.top() || place.bottom() > seen.bottom())
        verticalScrollBar()->setValue(place.center().y() - seen.height() / 2);
    if (selection.part == Selection::Part::Objects &&
        (place.left() < seen.left() || place.right() > seen.right()))
        horizontalScrollBar()->setValue(place.center().x() - seen.width() / 2);
}

void DesignCanvas::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), GroundColor);
    painter.translate(-scrolled());
    const QRect visible = event->rect().translated(scrolled());
    paintSheet(painter, visible);
    for (int band = 0; band < m_geometry.bandCount(); ++band)
        if (visible.intersects(m_geometry.slotRect(band).united(m_geometry.barRect(band))))
            paintBand(painter, band, visible);
    paintEmptyHint(painter);
    paintSelection(painter);
    paintGuides(painter);
    if (m_action == Action::Rubber || m_action == Action::Insert) {
        QColor fill = theme::selectionColor();
        fill.setAlpha(40);
        painter.setPen(theme::selectionColor());
        painter.setBrush(fill);
        painter.drawRect(QRect(m_pressed, m_now).normalized());
    }
    if (hasFocus()) {
        painter.resetTransform();
        painter.setPen(theme::selectionColor());
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
}

void DesignCanvas::paintSheet(QPainter &painter, const QRect &visible)
{
    for (int band = 0; band < m_geometry.bandCount(); ++band) {
        const QRect slot = m_geometry.slotRect(band);
        if (!slot.united(m_geometry.barRect(band)).intersects(visible))
            continue;
        painter.fillRect(slot, BeyondColor);
        const QRect sheet = m_geometry.bandRect(band);
        painter.fillRect(sheet, MarginColor);
        painter.fillRect(QRect(m_geometry.originX(), sheet.top(),
                               m_geometry.innerRight() - m_geometry.originX(), sheet.height()),
                         Qt::white);
        const Selection &selection = m_document.selection();
        const bool isSelected = selection.part == Selection::Part::Band && selection.index == band;
        painter.fillRect(m_geometry.barRect(band),
                         isSelected ? theme::selectionColor() : theme::lineColor());
    }
}

bool DesignCanvas::isEmpty() const
{
    const QList<Band> &bands = m_document.layout().bands;
    return std::ranges::all_of(bands, [](const Band &band) { return band.objects.isEmpty(); });
}

void DesignCanvas::paintEmptyHint(QPainter &painter)
{
    constexpr int Gap = 24;
    if (m_emptyHint.isEmpty() || !isEmpty())
        return;
    const int top = m_geometry.size().height() - CanvasGeometry::Edge + Gap;
    painter.setPen(Qt::white);
    painter.setFont(theme::font(10));
    painter.drawText(
        QRect(scrolled().x() + Gap, top, viewport()->width() - 2 * Gap, viewport()->height()),
        Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, m_emptyHint);
}

void DesignCanvas::paintBand(QPainter &painter, int band, const QRect &visible)
{
    // Under the objects, which it must not cross.
    if (m_showsGrid)
        paintGrid(painter, band, visible);
    painter.save();
    painter.translate(m_geometry.fromBand(band, QPoint(0, 0)));
    painter.scale(m_geometry.scale(), m_geometry.scale());
    paintObjects(painter, m_shown, band);
    painter.restore();
    // Frames are in pixels of the screen and not of the page, so they keep their width at each
    // zoom.
    paintFrames(painter, band);
}

void DesignCanvas::paintObjects(QPainter &painter, const Layout &layout, int band)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    Page page;
    const QList<Object> &objects = layout.bands[band].objects;
    for (int object = 0; object < objects.size(); ++object)
        // What is drawn is what the page will print, made once for each object and only moved here.
        for (PageItem item : m_items.itemsOf(layout, band, object)) {
            movePageItem(item, {objects[object].x, objects[object].y});
            page.items.append(std::move(item));
        }
    m_painter.paint(page, painter);
}

void DesignCanvas::paintGrid(QPainter &painter, int band, const QRect &visible)
{
    constexpr int LeastPixels = 8;
    int step = GridUnits;
    // Points that stand closer would turn the sheet grey.
    while (step * m_geometry.scale() < LeastPixels)
        step *= 2;
    const QRect seen = m_geometry.bandRect(band).intersected(visible);
    const QPoint start = m_geometry.toBand(band, {m_geometry.originX(), seen.top()});
    const QPoint end = m_geometry.toBand(band, {m_geometry.innerRight(), seen.bottom()});
    QList<QPoint> points;
    // Only what is in view: a tall band has many thousands of points.
    for (int y = start.y() / step * step; y <= end.y(); y += step)
        for (int x = 0; x <= end.x(); x += step)
            points.append(m_geometry.fromBand(band, QPoint(x, y)));
    painter.setPen(GridColor);
    painter.drawPoints(points.constData(), static_cast<int>(points.size()));
}

/// What prints without an edge still has one here, faintly.
void DesignCanvas::paintFrames(QPainter &painter, int band)
{
    QPen faint(FrameColor);
    faint.setStyle(Qt::DotLine);
    painter.setBrush(Qt::NoBrush);
    for (const Object &object : std::as_const(m_shown.bands[band].objects)) {
        if (object.kind == ObjectKind::Line)
            continue;
        painter.setPen(faint);
        const QRect frame = m_geometry.fromBand(band, frameOf(object));
        painter.drawRect(frame);
        if (const QString hint = hintOf(m_shown, object); !hint.isEmpty()) {
            painter.setPen(FrameColor.darker());
            painter.setFont(theme::font(7));
            painter.drawText(frame, Qt::AlignCenter,
                             painter.fontMetrics().elidedText(hint, Qt::ElideRight, frame.width()));
        }
    }
}

void DesignCanvas::paintSelection(QPainter &painter)
{
    const Selection &selection = m_shownSelection;
    const QColor color = theme::selectionColor();
    const auto frameAt = [&](Place place) {
        return m_geometry.fromBand(place.band,
                                   frameOf(m_shown.bands[place.band].objects[place.object]));
    };
    // Left on by the objects; handles have to be sharp.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const Place &place : selection.objects) {
        const QRect frame = frameAt(place);
        const bool isLead = place == selection.lead;
        painter.setPen(QPen(color, isLead && selection.objects.size() > 1 ? 2 : 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame);
        if (!isLead)
            continue;
        painter.setPen(color);
        painter.setBrush(Qt::white);
        for (const Handle &handle : handlesOf(frame))
            painter.drawRect(handle.place.adjusted(0, 0, -1, -1));
    }
    // The ruler shows where the lead stands.
    const int shift = scrolled().x();
    const QRect lead = selection.objects.isEmpty() ? QRect(0, 0, 0, 0) : frameAt(selection.lead);
    m_ruler->setMarks(m_now.x() - shift, lead.x() - shift, lead.x() + lead.width() - shift);
}

void DesignCanvas::paintGuides(QPainter &painter)
{
    if (m_guides.isEmpty() || m_guideBand < 0)
        return;
    painter.setPen(GuideColor);
    for (const Guide &guide : std::as_const(m_guides)) {
        const QPoint at = m_geometry.fromBand(m_guideBand, QPoint(guide.at, guide.at));
        if (guide.isUpright)
            painter.drawLine(at.x(), 0, at.x(), m_geometry.size().height());
        else
            painter.drawLine(m_geometry.sheetLeft(), at.y(), m_geometry.sheetRight(), at.y());
    }
}

void DesignCanvas::preview(const QString &name, DesignDocument::Change change)
{
    m_pendingName = name;
    m_pending = std::move(change);
    m_shown = m_document.layout();
    m_shownSelection = m_document.selection();
    // A drag is shown in a copy, so that Escape leaves the document as it was and only its end is a
    // change to undo.
    m_pending(m_shown, m_shownSelection);
    // The bands stay where they are under the pointer, unless it is their height that is drawn.
    if (m_action == Action::Height)
        m_geometry.set(m_shown, m_geometry.scale());
    viewport()->update();
    m_strip->update();
}

void DesignCanvas::commit()
{
    const DesignDocument::Change pending = std::exchange(m_pending, nullptr);
    const QString name = m_pendingName;
    m_action = Action::None;
    m_guides.clear();
    if (pending) {
        // Two drags after each other are two changes, though they bear one name.
        m_document.endSeries();
        // What ended where it began changes nothing, and so nothing tells the canvas to show the
        // document again.
        if (!m_document.change(name, pending))
            refresh();
    }
    viewport()->update();
}

void DesignCanvas::cancelAction()
{
    m_pending = nullptr;
    m_action = Action::None;
    m_guides.clear();
    if (m_inserting) {
        m_inserting.reset();
        Q_EMIT insertingChanged();
    }
    refresh();
}

} // namespace report
