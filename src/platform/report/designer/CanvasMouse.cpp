#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/Structure.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// So near an edge has to come to rest on another's, in pixels.
constexpr int SnapPixels = 6;
constexpr int GridStep = 100;
/// A frame that is drawn smaller than this is a click.
constexpr int LeastDrawn = 4;

Qt::CursorShape cursorFor(const Edges &edges)
{
    const bool falling = (edges.left && edges.top) || (edges.right && edges.bottom);
    const bool rising = (edges.left && edges.bottom) || (edges.right && edges.top);
    return falling                     ? Qt::SizeFDiagCursor
           : rising                    ? Qt::SizeBDiagCursor
           : edges.left || edges.right ? Qt::SizeHorCursor
                                       : Qt::SizeVerCursor;
}

/// Bands get as high as what was dragged needs; they never get lower by it.
void growBands(Layout &layout, const QList<Place> &places)
{
    for (const Place &place : places) {
        Band &band = layout.bands[place.band];
        const QRect frame = frameOf(band.objects[place.object]);
        band.height = qMax(band.height, frame.y() + frame.height());
    }
}

bool areInOneBand(const QList<Place> &places)
{
    return std::all_of(places.cbegin(), places.cend(),
                       [&](Place place) { return place.band == places.first().band; });
}

QList<Place> inBandOf(const QList<Place> &places, int band)
{
    QList<Place> own = places;
    own.removeIf([&](Place place) { return place.band != band; });
    return own;
}

QString millimetres(Length length)
{
    return QString::number(length / 100.0, 'f', length % 10 == 0 ? 1 : 2);
}

} // namespace

void DesignCanvas::mousePressEvent(QMouseEvent *event)
{
    // The words in place belong to what was selected so far, so they are taken ahead of a new
    // selection.
    finishEditing(true);
    if (event->button() == Qt::LeftButton)
        pressAt(contentPoint(event->position().toPoint()), event->modifiers());
}

void DesignCanvas::pressAt(QPoint content, Qt::KeyboardModifiers modifiers)
{
    m_pressed = m_now = content;
    m_picked.reset();
    m_edges = {};
    m_bandPressed = m_geometry.bandAt(content.y());
    const Selection &selection = m_document.selection();
    if (m_inserting) {
        m_action = Action::Insert;
        return;
    }
    // Handles reach beyond the frame and over neighbours, so they come before what lies below them.
    if (!selection.objects.isEmpty()) {
        const QRect lead =
            m_geometry.fromBand(selection.lead.band, frameOf(m_document.object(selection.lead)));
        for (const Handle &handle : handlesOf(lead))
            if (handle.place.contains(content)) {
                m_edges = handle.edges;
                m_action = Action::Press;
                return;
            }
    }
    if (const auto place = objectAt(m_document.layout(), m_geometry, content))
        pickAt(*place, modifiers);
    else
        pressEmpty(content, modifiers);
}

void DesignCanvas::pickAt(Place place, Qt::KeyboardModifiers modifiers)
{
    const Selection selection = m_document.selection();
    m_action = Action::Press;
    m_bandPressed = place.band;
    if (modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) {
        QList<Place> places = selection.objects;
        if (selection.contains(place) && modifiers & Qt::ControlModifier)
            places.removeAll(place);
        else
            places.append(place);
        m_document.select(Selection::of(places));
        return;
    }
    if (!selection.contains(place)) {
        m_document.select(Selection::of({place}));
        return;
    }
    // A drag takes all that are selected along; a mere click means this one.
    m_picked = place;
    Selection led = selection;
    led.lead = place;
    m_document.select(led);
}

void DesignCanvas::pressEmpty(QPoint content, Qt::KeyboardModifiers modifiers)
{
    if (const int bar = m_geometry.barAt(content.y()); bar >= 0) {
        beginHeight(bar, content);
        return;
    }
    m_action = Action::Rubber;
    if (!(modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) && m_bandPressed >= 0)
        // With Ctrl or Shift what the frame takes in is added, and so stays selected meanwhile.
        m_document.select(Selection::of(Selection::Part::Band, m_bandPressed));
}

void DesignCanvas::beginHeight(int band, QPoint content)
{
    m_document.select(Selection::of(Selection::Part::Band, band));
    m_pressed = m_now = content;
    m_bandPressed = band;
    m_action = Action::Height;
}

void DesignCanvas::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint viewportPoint = event->position().toPoint();
    if (m_action != Action::None)
        scrollAlong(viewportPoint);
    dragTo(contentPoint(viewportPoint), event->modifiers());
}

/// Beyond the edge the sheet moves along.
void DesignCanvas::scrollAlong(QPoint viewportPoint)
{
    const auto beyond = [](int at, int size) { return at < 0 ? at : qMax(0, at - size); };
    QScrollBar *across = horizontalScrollBar();
    QScrollBar *down = verticalScrollBar();
    across->setValue(across->value() + beyond(viewportPoint.x(), viewport()->width()));
    down->setValue(down->value() + beyond(viewportPoint.y(), viewport()->height()));
}

void DesignCanvas::dragTo(QPoint content, Qt::KeyboardModifiers modifiers)
{
    m_now = content;
    const QPoint by = m_now - m_pressed;
    const bool isSnapping = !(modifiers & Qt::AltModifier);
    if (m_action == Action::Press &&
        // A click with an unsteady hand moves nothing.
        by.manhattanLength() >= QApplication::startDragDistance() / 2 &&
        !m_document.selection().objects.isEmpty())
        m_action = Action::Drag;
    switch (m_action) {
    case Action::Drag:
        if (m_edges.isMove())
            moveObjects(by, isSnapping);
        else
            resizeObjects(by, isSnapping);
        tellFrame();
        break;
    case Action::Height:
        dragHeight(by);
        break;
    case Action::Rubber:
    case Action::Insert:
        viewport()->update();
        break;
    case Action::None:
        updateCursor(content);
        break;
    case Action::Press:
        break;
    }
}

SnapRules DesignCanvas::snapRules(bool isSnapping) const
{
    if (!isSnapping)
        return {};
    return {m_linesUp ? m_geometry.toUnits(SnapPixels) : 0, m_showsGrid ? GridStep : 0};
}

/// Upright lines go through all bands, level ones only through their own.
SnapLines DesignCanvas::linesFor(const QList<Place> &moved, int band) const
{
    const Layout &layout = m_document.layout();
    QList<QRect> own, all;
    for (int at = 0; at < layout.bands.size(); ++at)
        for (int object = 0; object < layout.bands[at].objects.size(); ++object) {
            if (moved.contains(Place{at, object}))
                continue;
            const QRect frame = frameOf(layout.bands[at].objects[object]);
            all.append(frame);
            if (at == band)
                own.append(frame);
        }
    // The margins and the band's own edges count like those of a frame.
    const QRect page(0, 0, layout.page.innerWidth(), layout.bands[band].height);
    all.append(page);
    own.append(page);
    return {snapLines(all).across, snapLines(own).down};
}

void DesignCanvas::moveObjects(QPoint by, bool isSnapping)
{
    const Selection selection = m_document.selection();
    const int source = selection.lead.band;
    const int target = m_geometry.bandAt(m_now.y());
    // Objects of several bands stay in theirs: it would not be plain which one they are dragged to.
    if (target != source && target >= 0 && areInOneBand(selection.objects)) {
        moveInto(target, by, isSnapping);
        return;
    }
    const QRect frame = frameAround(m_document.layout(), inBandOf(selection.objects, source));
    QPoint way(m_geometry.toUnits(by.x()), m_geometry.toUnits(by.y()));
    const Snapped snapped =
        snapMove(frame.translated(way), linesFor(selection.objects, source), snapRules(isSnapping));
    way += snapped.by;
    // Nothing may stand above its band, where it would print over the one before.
    way.setY(qMax(way.y(), -frame.y()));
    m_guides = snapped.guides;
    m_guideBand = source;
    preview(u"Move"_s, [way](Layout &layout, Selection &moved) {
        moveBy(layout, moved.objects, way);
        growBands(layout, moved.objects);
    });
}

void DesignCanvas::moveInto(int band, QPoint by, bool isSnapping)
{
    const Selection selection = m_document.selection();
    const QRect frame = frameAround(m_document.layout(), selection.objects);
    const QPoint corner =
        m_geometry.toBand(band, m_geometry.fromBand(selection.lead.band, frame.topLeft()) + by);
    QPoint way(m_geometry.toUnits(by.x()), corner.y() - frame.y());
    const Snapped snapped =
        snapMove(frame.translated(way), linesFor(selection.objects, band), snapRules(isSnapping));
    way += snapped.by;
    m_guides = snapped.guides;
    m_guideBand = band;
    preview(u"Move"_s, [way, band](Layout &layout, Selection &moved) {
        const auto lead = moved.objects.indexOf(moved.lead);
        const QList<Place> places = moveToBand(layout, moved.objects, band, way);
        moved = Selection::of(places);
        moved.lead = places[lead];
    });
}

/// Each object that is selected is drawn by as much as the lead; only the lead lines up.
void DesignCanvas::resizeObjects(QPoint by, bool isSnapping)
{
    const Selection selection = m_document.selection();
    const QRect frame = frameOf(m_document.object(selection.lead));
    QPoint way(m_geometry.toUnits(by.x()), m_geometry.toUnits(by.y()));
    const auto edge = [](bool near, bool far, int start, int size, int moved) {
        return near  ? std::optional(start + moved)
               : far ? std::optional(start + size + moved)
                     : std::nullopt;
    };
    // A copy for the change, which is carried out once more when the drag ends.
    const Edges edges = m_edges;
    const Snapped snapped =
        snapEdges(edge(edges.left, edges.right, frame.x(), frame.width(), way.x()),
                  edge(edges.top, edges.bottom, frame.y(), frame.height(), way.y()),
                  linesFor(selection.objects, selection.lead.band), snapRules(isSnapping));
    way += snapped.by;
    m_guides = snapped.guides;
    m_guideBand = selection.lead.band;
    preview(u"Resize"_s, [way, edges](Layout &layout, Selection &resized) {
        for (const Place &place : std::as_const(resized.objects)) {
            Object &object = layout.bands[place.band].objects[place.object];
            const QRect own = frameOf(object);
            fitInto(object, own, dragged(own, edges, way));
        }
        growBands(layout, resized.objects);
    });
}

void DesignCanvas::dragHeight(QPoint by)
{
    const int band = m_bandPressed;
    const Length former = m_document.layout().bands[band].height;
    // By the grid in half millimetres, without it in tenths.
    const int grid = m_showsGrid ? GridStep / 2 : 10;
    const Length height = qMax(0, (former + m_geometry.toUnits(by.y()) + grid / 2) / grid * grid);
    preview(u"Height of %1"_s.arg(bandName(m_document.layout().bands[band])),
            [band, height](Layout &layout, Selection &) { layout.bands[band].height = height; });
    Q_EMIT told(
        u"%1: %2 mm high"_s.arg(bandName(m_document.layout().bands[band]), millimetres(height)));
}

void DesignCanvas::tellFrame()
{
    const Place lead = m_shownSelection.lead;
    const Object &object = m_shown.bands[lead.band].objects[lead.object];
    Q_EMIT told(u"Left %1, top %2, width %3, height %4 mm"_s.arg(
        millimetres(object.x), millimetres(object.y), millimetres(object.width),
        millimetres(object.height)));
}

void DesignCanvas::updateCursor(QPoint content)
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    const Selection &selection = m_document.selection();
    if (m_inserting) {
        shape = Qt::CrossCursor;
    } else if (objectAt(m_document.layout(), m_geometry, content)) {
        shape = Qt::SizeAllCursor;
    } else if (m_geometry.barAt(content.y()) >= 0) {
        shape = Qt::SizeVerCursor;
    }
    if (!m_inserting && !selection.objects.isEmpty())
        for (const Handle &handle : handlesOf(m_geometry.fromBand(
                 selection.lead.band, frameOf(m_document.object(selection.lead)))))
            if (handle.place.contains(content)) {
                shape = cursorFor(handle.edges);
                break;
            }
    viewport()->setCursor(shape);
    viewport()->update();
}

void DesignCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const Action action = std::exchange(m_action, Action::None);
    if (action == Action::Rubber)
        endRubber(event->modifiers());
    else if (action == Action::Insert)
        insertFrame(QRect(m_pressed, m_now).normalized());
    else if (action == Action::Press && m_picked)
        m_document.select(Selection::of({*m_picked}));
    commit();
}

void DesignCanvas::endRubber(Qt::KeyboardModifiers modifiers)
{
    const QRect rubber = QRect(m_pressed, m_now).normalized();
    // A click on empty ground has selected the band already.
    if (rubber.width() < LeastDrawn && rubber.height() < LeastDrawn)
        return;
    QList<Place> places = objectsIn(m_document.layout(), m_geometry, rubber);
    if (modifiers & (Qt::ControlModifier | Qt::ShiftModifier))
        places = m_document.selection().objects + places;
    if (!places.isEmpty())
        m_document.select(Selection::of(places));
}

void DesignCanvas::insertFrame(const QRect &content)
{
    const int band = m_geometry.bandAt(content.top());
    if (!m_inserting || band < 0)
        return;
    // The corner comes to rest as it does in a drag; the size is drawn by hand.
    const SnapRules rules = snapRules(true);
    const QPoint corner = m_geometry.toBand(band, content.topLeft());
    const Snapped snapped = snapMove(QRect(corner, QSize(0, 0)), linesFor({}, band), rules);
    Object object = newObject(*m_inserting, corner + snapped.by);
    object.y = qMax(0, object.y);
    // A mere click gives an object of the usual size.
    const bool isDrawn = content.width() >= LeastDrawn || content.height() >= LeastDrawn;
    if (isDrawn) {
        const bool isFlat = object.kind == ObjectKind::Line &&
                            qMin(content.width(), content.height()) < 2 * LeastDrawn;
        // In tenths of a millimetre: pixels give no more.
        object.width = m_geometry.toUnits(content.width()) / 10 * 10;
        object.height = m_geometry.toUnits(content.height()) / 10 * 10;
        // A line that is nearly level is meant to be so.
        if (isFlat)
            (content.width() < content.height() ? object.width : object.height) = 0;
    }
    m_inserting.reset();
    Q_EMIT insertingChanged();
    m_document.change(u"Insert %1"_s.arg(kindName(object.kind).toLower()),
                      [&](Layout &layout, Selection &selection) {
                          selection = Selection::of(addObjects(layout, band, {object}));
                      });
}

void DesignCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton &&
        objectAt(m_document.layout(), m_geometry, contentPoint(event->position().toPoint())))
        editInPlace();
}

void DesignCanvas::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(m_zoom + (event->angleDelta().y() > 0 ? 10 : -10));
    event->accept();
}

void DesignCanvas::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(fieldMimeType()))
        event->acceptProposedAction();
}

void DesignCanvas::dragMoveEvent(QDragMoveEvent *event)
{
    if (!event->mimeData()->hasFormat(fieldMimeType()))
        return;
    m_now = contentPoint(event->position().toPoint());
    if (const int band = m_geometry.bandAt(m_now.y()); band >= 0)
        Q_EMIT told(u"Into %1"_s.arg(bandName(m_document.layout().bands[band])));
    event->acceptProposedAction();
    viewport()->update();
}

void DesignCanvas::dropEvent(QDropEvent *event)
{
    const QList<DesignField> fields = fieldsOf(event->mimeData()->data(fieldMimeType()));
    const QPoint content = contentPoint(event->position().toPoint());
    const int band = m_geometry.bandAt(content.y());
    if (fields.isEmpty() || band < 0)
        return;
    const QPoint corner = m_geometry.toBand(band, content);
    const Snapped snapped =
        snapMove(QRect(corner, QSize(0, 0)), linesFor({}, band), snapRules(true));
    Q_EMIT fieldsDropped(
        fields, band,
        QPoint(qMax(0, corner.x() + snapped.by.x()), qMax(0, corner.y() + snapped.by.y())));
    event->acceptProposedAction();
    setFocus();
}

} // namespace report
