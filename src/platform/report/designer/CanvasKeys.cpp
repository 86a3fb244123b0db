#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/Structure.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPlainTextEdit>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr Length KeyStep = 100;
constexpr Length FineKeyStep = 10;
/// Steps of the same kind that follow each other are undone together.
constexpr int MoveKey = 1;
constexpr int SizeKey = 2;

QPoint directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

/// In the order of the file, which is the order in which Tab goes and in which objects are drawn.
QList<Place> allPlaces(const Layout &layout)
{
    QList<Place> places;
    for (int band = 0; band < layout.bands.size(); ++band)
        for (int object = 0; object < layout.bands[band].objects.size(); ++object)
            places.append({band, object});
    return places;
}

/// Kinds whose content is written in their place.
bool hasWords(ObjectKind kind)
{
    return kind == ObjectKind::Text || kind == ObjectKind::Field || kind == ObjectKind::BarCode;
}

} // namespace

void DesignCanvas::keyPressEvent(QKeyEvent *event)
{
    if (arrowKey(event))
        return;
    switch (event->key()) {
    case Qt::Key_Escape:
        // It goes no further: the window around must not close by the way.
        escape();
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        // With Ctrl they bring objects into the next band, where there is one.
        if (event->modifiers() == Qt::NoModifier)
            selectBand(event->key() == Qt::Key_PageUp ? -1 : 1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_inserting)
            insertByKey();
        else
            editInPlace();
        return;
    case Qt::Key_F2:
        editInPlace();
        return;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

/// Leaves a drag or an insertion, then the objects for their band.
void DesignCanvas::escape()
{
    if (m_action != Action::None || m_inserting)
        cancelAction();
    else if (const Selection &selection = m_document.selection(); !selection.objects.isEmpty())
        m_document.select(Selection::of(Selection::Part::Band, selection.band()));
}

/// Arrows move what is selected by a millimetre, with Ctrl by a tenth; with Shift they change its
/// size. A selected band gets higher and lower.
bool DesignCanvas::arrowKey(QKeyEvent *event)
{
    const QPoint direction = directionOf(event->key());
    const Selection &selection = m_document.selection();
    if (direction.isNull() || selection.band() < 0)
        return false;
    const Length step = event->modifiers() & Qt::ControlModifier ? FineKeyStep : KeyStep;
    const QPoint by = direction * step;
    const bool isSize = event->modifiers() & Qt::ShiftModifier;
    if (selection.part == Selection::Part::Band) {
        if (!isSize)
            return false;
        m_document.change(
            u"Height of %1"_s.arg(bandName(m_document.layout().bands[selection.index])),
            [&](Layout &layout, Selection &band) { layout.bands[band.index].height += by.y(); },
            SizeKey);
        return true;
    }
    m_document.change(
        isSize ? u"Resize"_s : u"Move"_s,
        [&](Layout &layout, Selection &moved) {
            if (isSize)
                growBy(layout, moved.objects, by);
            else
                moveBy(layout, moved.objects, by);
        },
        isSize ? SizeKey : MoveKey);
    showSelection();
    return true;
}

/// Tab goes from object to object, and behind the last one out of the canvas.
bool DesignCanvas::focusNextPrevChild(bool next)
{
    const QList<Place> all = allPlaces(m_document.layout());
    const Selection &selection = m_document.selection();
    const auto at = selection.objects.isEmpty() ? -1 : all.indexOf(selection.lead);
    const bool hasNeighbour = next ? at + 1 < all.size() : at > 0;
    // A child, such as the editor in place, hands its Tab on to here; it leaves the canvas then
    // instead of choosing.
    if (!hasFocus() || !hasNeighbour)
        return QAbstractScrollArea::focusNextPrevChild(next);
    m_document.select(Selection::of({all[next ? at + 1 : at - 1]}));
    showSelection();
    return true;
}

void DesignCanvas::selectBand(int step)
{
    const int count = static_cast<int>(m_document.layout().bands.size());
    if (count == 0)
        return;
    const int former = m_document.selection().band();
    const int band = former < 0 ? 0 : qBound(0, former + step, count - 1);
    m_document.select(Selection::of(Selection::Part::Band, band));
    showSelection();
}

void DesignCanvas::insert(ObjectKind kind)
{
    m_inserting = kind;
    setFocus();
    viewport()->setCursor(Qt::CrossCursor);
    const int band = targetBand();
    if (band >= 0)
        Q_EMIT told(u"Draw the frame, or press Enter to put it into %1"_s.arg(
            bandName(m_document.layout().bands[band])));
    Q_EMIT insertingChanged();
}

/// What Enter does after a kind was chosen.
/// Without a mouse it goes to the right of what is selected, else to the band's corner.
void DesignCanvas::insertByKey()
{
    const int band = targetBand();
    if (band < 0)
        return;
    QPoint at;
    if (const Selection &selection = m_document.selection(); !selection.objects.isEmpty()) {
        const QRect lead = frameOf(m_document.object(selection.lead));
        at = {lead.x() + lead.width(), lead.y()};
    }
    // The kind is forgotten ahead of the change, whose signals make the actions ask for it.
    const Object object = newObject(*m_inserting, at);
    m_inserting.reset();
    Q_EMIT insertingChanged();
    m_document.change(u"Insert %1"_s.arg(kindName(object.kind).toLower()),
                      [&](Layout &layout, Selection &selection) {
                          selection = Selection::of(addObjects(layout, band, {object}));
                      });
}

void DesignCanvas::editInPlace()
{
    const Selection &selection = m_document.selection();
    if (selection.objects.isEmpty())
        return;
    if (const ObjectKind kind = m_document.object(selection.lead).kind; !hasWords(kind)) {
        Q_EMIT editAsked(kind);
        return;
    }
    finishEditing(true);
    // Words that are still being written belong to another object, and taking them changes the
    // layout: so this one is looked up only now.
    const Object &object = m_document.object(selection.lead);
    const QRect frame =
        m_geometry.fromBand(selection.lead.band, frameOf(object)).translated(-scrolled());
    m_editor = new QPlainTextEdit(object.content, viewport());
    m_editor->setObjectName(u"wordsInPlace"_s);
    m_editor->setAccessibleName(u"Words"_s);
    m_editor->setTabChangesFocus(true);
    m_editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_editor->setGeometry(
        // A frame that is small on paper, or at this zoom, still gives room to write in.
        frame.adjusted(-2, -2, 2, 2).united(QRect(frame.topLeft() - QPoint(2, 2), QSize(220, 30))));
    m_editor->installEventFilter(this);
    m_editor->selectAll();
    m_editor->show();
    m_editor->setFocus();
    Q_EMIT told(u"Enter takes the words, Shift+Enter begins a line, Escape leaves them"_s);
}

bool DesignCanvas::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_editor || !m_editor)
        return QAbstractScrollArea::eventFilter(watched, event);
    // The override has to be accepted too: else Enter and Escape would go to the window's default
    // button and to the actions before they come here as keys.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        const bool ends =
            key->key() == Qt::Key_Escape || (isReturn && !(key->modifiers() & Qt::ShiftModifier));
        if (!ends)
            return false;
        event->accept();
        if (event->type() == QEvent::KeyPress) {
            finishEditing(isReturn);
            setFocus();
        }
        return true;
    }
    if (event->type() == QEvent::FocusOut)
        finishEditing(true);
    return false;
}

void DesignCanvas::finishEditing(bool isTaken)
{
    if (!m_editor)
        return;
    QPlainTextEdit *editor = std::exchange(m_editor, nullptr);
    // Hiding takes the focus away, which would end the editing a second time.
    editor->removeEventFilter(this);
    const QString words = editor->toPlainText();
    editor->hide();
    // It may be its own event that ends it.
    editor->deleteLater();
    const Selection &selection = m_document.selection();
    if (!isTaken || selection.objects.isEmpty())
        return;
    m_document.change(u"Words"_s, [&](Layout &layout, Selection &edited) {
        layout.bands[edited.lead.band].objects[edited.lead.object].content = words;
    });
}

void DesignCanvas::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        const auto place = objectAt(m_document.layout(), m_geometry, contentPoint(event->pos()));
        if (place && !m_document.selection().contains(*place))
            m_document.select(Selection::of({*place}));
        Q_EMIT menuAsked(event->globalPos());
        return;
    }
    // The menu key has no place of its own: the menu opens in the band that is meant.
    const int band = qMax(0, targetBand());
    Q_EMIT menuAsked(viewport()->mapToGlobal(
        m_geometry.bandCount() > 0 ? toViewport(band, QPoint(500, 200)) : QPoint(20, 20)));
}

void DesignCanvas::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void DesignCanvas::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

} // namespace report
