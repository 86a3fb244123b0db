#include "platform/report/designer/CanvasSides.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/Structure.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <cmath>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Of the band in which something is selected.
const QColor MeantColor(214, 226, 250);

/// The steps of a ruler: so many small ones to a numbered one.
struct Steps
{
    double unit;   ///< of a numbered one, in 1/100 mm
    int parts;     ///< small steps within it
    double number; ///< what the number counts on by
};

/// The finest steps whose numbers don't touch at this scale.
Steps stepsFor(double scale, bool inInches)
{
    constexpr double LeastPixels = 34;
    const double whole = inInches ? 2540 : 1000;
    const double count = inInches ? 1 : 10;
    const int parts = inInches ? 8 : 10;
    for (const double factor : {0.5, 1.0, 2.0, 5.0, 10.0})
        if (whole * factor * scale >= LeastPixels)
            return {whole * factor, factor < 1 ? parts / 2 : parts, count * factor};
    return {whole * 20, parts, count * 20};
}

/// Draws a ruler's marks along one direction, from an origin to an end, all in pixels.
void paintMarks(QPainter &painter, const QRect &area, double origin, int end, double scale,
                bool isUpright, bool inInches)
{
    // Marks are counted from the origin and each is rounded by itself, so that no error adds up
    // along a long sheet.
    const Steps steps = stepsFor(scale, inInches);
    const double small = steps.unit / steps.parts * scale;
    const int first =
        static_cast<int>(std::ceil(((isUpright ? area.top() : area.left()) - origin) / small));
    for (int mark = first;; ++mark) {
        const int at = static_cast<int>(std::lround(origin + mark * small));
        if (at > end)
            return;
        const bool isNumbered = mark % steps.parts == 0;
        const bool isHalf = steps.parts % 2 == 0 && mark % (steps.parts / 2) == 0;
        const int length = isNumbered ? 8 : isHalf ? 5 : 3;
        if (isUpright)
            painter.drawLine(area.right() - length, at, area.right(), at);
        else
            painter.drawLine(at, area.bottom() - length, at, area.bottom());
        // The upright zero would stand in the band above.
        if (!isNumbered || (isUpright && mark == 0))
            continue;
        const int numbered = mark / steps.parts;
        const QString number = QString::number(numbered * steps.number);
        if (isUpright)
            painter.drawText(QRect(area.left(), at - 12, area.width() - 9, 11),
                             Qt::AlignRight | Qt::AlignBottom, number);
        else
            painter.drawText(QRect(at + 2, area.top(), 40, area.height() - 6),
                             Qt::AlignLeft | Qt::AlignTop, number);
    }
}

QFont markFont()
{
    return theme::font(6);
}

} // namespace

Ruler::Ruler(DesignCanvas &canvas)
    : QWidget(&canvas)
    , m_canvas(canvas)
{}

void Ruler::setInches(bool inInches)
{
    m_inInches = inInches;
    update();
}

void Ruler::setMarks(int pointer, int from, int to)
{
    // Painting the sheet sets the marks, with every move of the mouse; only new ones paint the
    // ruler.
    if (pointer == m_pointer && from == m_from && to == m_to)
        return;
    m_pointer = pointer;
    m_from = from;
    m_to = to;
    update();
}

void Ruler::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::panelColor());
    const CanvasGeometry &geometry = m_canvas.geometry();
    // The ruler begins above the strip of names, the sheet beside it.
    const int shift = BandStrip::Width - m_canvas.horizontalScrollBar()->value();
    const QRect inner(geometry.originX() + shift, 0, geometry.innerRight() - geometry.originX(),
                      height());
    painter.setClipRect(BandStrip::Width, 0, width() - BandStrip::Width, height());
    painter.fillRect(inner, Qt::white);
    if (m_to > m_from)
        painter.fillRect(QRect(m_from + BandStrip::Width, 0, m_to - m_from, height()), MeantColor);
    painter.setFont(markFont());
    painter.setPen(theme::textColor());
    paintMarks(painter, rect(), geometry.originX() + shift, geometry.sheetRight() + shift,
               geometry.scale(), false, m_inInches);
    if (m_pointer >= 0) {
        painter.setPen(theme::accentColor());
        painter.drawLine(m_pointer + BandStrip::Width, 0, m_pointer + BandStrip::Width, height());
    }
    painter.setClipping(false);
    painter.setPen(theme::textColor());
    painter.drawText(QRect(0, 0, BandStrip::Width - 4, height()), Qt::AlignRight | Qt::AlignVCenter,
                     m_inInches ? u"inches"_s : u"mm"_s);
    painter.setPen(theme::lineColor());
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

BandStrip::BandStrip(DesignCanvas &canvas)
    : QWidget(&canvas)
    , m_canvas(canvas)
{
    setMouseTracking(true);
}

void BandStrip::setInches(bool inInches)
{
    m_inInches = inInches;
    update();
}

void BandStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::panelColor());
    const CanvasGeometry &geometry = m_canvas.geometry();
    const int shift = m_canvas.verticalScrollBar()->value();
    const QRect ruler(NameWidth, 0, RulerWidth, height());
    for (int band = 0; band < geometry.bandCount(); ++band) {
        const QRect slot = geometry.slotRect(band).translated(0, -shift);
        const QRect bar = geometry.barRect(band).translated(0, -shift);
        // A layout may have hundreds of bands, few of which are in view.
        if (bar.bottom() < 0 || slot.top() > height())
            continue;
        const QRect own(0, slot.top(), width(), slot.height());
        paintName(painter, band, QRect(0, own.top(), NameWidth, own.height()));
        const QRect white(NameWidth, own.top(), RulerWidth, geometry.bandRect(band).height());
        painter.fillRect(white, Qt::white);
        painter.setFont(markFont());
        painter.setPen(theme::textColor());
        painter.setClipRect(white);
        paintMarks(painter,
                   ruler.intersected(QRect(NameWidth, own.top(), RulerWidth, own.height())),
                   own.top(), qMin(white.bottom(), height()), geometry.scale(), true, m_inInches);
        painter.setClipping(false);
        painter.fillRect(QRect(0, bar.top(), width(), bar.height()), theme::lineColor());
    }
    painter.setPen(theme::lineColor());
    painter.drawLine(width() - 1, 0, width() - 1, height());
}

void BandStrip::paintName(QPainter &painter, int band, const QRect &slot)
{
    const Selection &selection = m_canvas.m_document.selection();
    const bool isSelected = selection.part == Selection::Part::Band && selection.index == band;
    const bool isMeant = selection.band() == band;
    if (isSelected)
        painter.fillRect(slot, theme::selectionColor());
    else if (isMeant)
        painter.fillRect(slot, MeantColor);
    painter.setFont(theme::font(8, isMeant));
    painter.setPen(isSelected ? theme::selectionTextColor() : theme::mainColor());
    const QRect words = slot.adjusted(5, 1, -3, 0);
    const QString name = bandName(m_canvas.m_shown.bands[band]);
    painter.drawText(QRect(words.left(), words.top(), words.width(), 15),
                     Qt::AlignLeft | Qt::AlignTop,
                     painter.fontMetrics().elidedText(name, Qt::ElideRight, words.width()));
}

bool BandStrip::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int y = help->pos().y() + m_canvas.verticalScrollBar()->value();
    const int band = m_canvas.geometry().bandAt(y);
    if (band >= 0)
        QToolTip::showText(help->globalPos(),
                           u"%1, %2 mm high"_s.arg(bandName(m_canvas.m_shown.bands[band]))
                               .arg(m_canvas.m_shown.bands[band].height / 100.0),
                           this);
    return true;
}

void BandStrip::mousePressEvent(QMouseEvent *event)
{
    const QPoint content(0,
                         event->position().toPoint().y() + m_canvas.verticalScrollBar()->value());
    // Keys go on with the band that was clicked.
    m_canvas.setFocus();
    if (const int bar = m_canvas.geometry().barAt(content.y()); bar >= 0) {
        m_canvas.beginHeight(bar, content);
        return;
    }
    if (const int band = m_canvas.geometry().bandAt(content.y()); band >= 0)
        m_canvas.m_document.select(Selection::of(Selection::Part::Band, band));
}

void BandStrip::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint content(0,
                         event->position().toPoint().y() + m_canvas.verticalScrollBar()->value());
    setCursor(m_canvas.geometry().barAt(content.y()) >= 0 ? Qt::SizeVerCursor : Qt::ArrowCursor);
    m_canvas.dragTo(content, event->modifiers());
}

void BandStrip::mouseReleaseEvent(QMouseEvent *)
{
    // The height that was drawn here is one of the canvas's own drags.
    m_canvas.commit();
}

void BandStrip::contextMenuEvent(QContextMenuEvent *event)
{
    Q_EMIT m_canvas.menuAsked(event->globalPos());
}

} // namespace report
