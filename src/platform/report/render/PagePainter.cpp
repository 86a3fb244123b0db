#include "platform/report/render/PagePainter.h"

#include "platform/report/paginate/PictureFile.h"
#include "platform/report/paginate/TextFlow.h"

#include <QPainter>

namespace report {
namespace {

/// Of the pictures that are kept decoded.
constexpr qsizetype MaximumPictureBytes = 64 * 1024 * 1024;

void drawBorder(const Border &border, const QRect &frame, QPainter &painter)
{
    painter.setPen(QPen(border.color, border.width, Qt::SolidLine, Qt::SquareCap));
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    if (border.left)
        painter.drawLine(frame.x(), frame.y(), frame.x(), bottom);
    if (border.top)
        painter.drawLine(frame.x(), frame.y(), right, frame.y());
    if (border.right)
        painter.drawLine(right, frame.y(), right, bottom);
    if (border.bottom)
        painter.drawLine(frame.x(), bottom, right, bottom);
}

/// With edges as they come: softened, frames that stand side by side would show the sheet between
/// them.
void fillFrame(const QRect &frame, const QColor &color, QPainter &painter)
{
    const bool soft = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(frame, color);
    painter.setRenderHint(QPainter::Antialiasing, soft);
}

} // namespace

PagePainter::PagePainter()
    : m_pictures(MaximumPictureBytes)
{}

void PagePainter::paint(const Page &page, QPainter &painter)
{
    m_font.reset();
    m_textColor.reset();
    for (const PageItem &item : page.items)
        std::visit(
            [&](const auto &one) {
                draw(one, painter);
                if constexpr (!std::is_same_v<std::decay_t<decltype(one)>, TextItem>)
                    m_textColor.reset();
            },
            item);
}

void PagePainter::draw(const TextItem &item, QPainter &painter)
{
    if (item.style.fill.isValid())
        fillFrame(item.frame, item.style.fill, painter);
    // To set a font costs about as much as to draw a word, and a colour makes a file longer.
    if (m_font != item.style.font) {
        m_font = item.style.font;
        painter.setFont(measuringFont(item.style.font));
    }
    if (m_textColor != item.style.color) {
        m_textColor = item.style.color;
        painter.setPen(item.style.color);
    }
    for (const TextLine &line : item.lines) {
        if (line.text.isEmpty())
            continue;
        if (!item.turned) {
            painter.drawText(QPointF(line.x, line.baseline), line.text);
            continue;
        }
        painter.save();
        painter.translate(line.x, line.baseline);
        painter.rotate(-90);
        painter.drawText(QPointF(0, 0), line.text);
        painter.restore();
    }
    if (!item.style.border.isNone()) {
        drawBorder(item.style.border, item.frame, painter);
        m_textColor.reset();
    }
}

void PagePainter::draw(const LineItem &item, QPainter &painter)
{
    painter.setPen(QPen(item.color, item.width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(item.from, item.to);
}

void PagePainter::draw(const BoxItem &item, QPainter &painter)
{
    if (item.fill.isValid())
        fillFrame(item.frame, item.fill, painter);
    if (item.lineWidth <= 0)
        return;
    painter.setPen(QPen(item.color, item.lineWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(item.frame);
}

void PagePainter::draw(const PictureItem &item, QPainter &painter)
{
    const QImage image = picture(item.data);
    if (!image.isNull())
        painter.drawImage(pictureFrame(item, image.size()), image);
}

void PagePainter::draw(const BarCodeItem &item, QPainter &painter)
{
    // Softened edges would change the widths that a reader measures.
    for (const QRect &bar : item.bars)
        fillFrame(bar, Qt::black, painter);
}

void PagePainter::draw(const ShapeItem &item, QPainter &painter)
{
    painter.setPen(item.lineWidth > 0 ? QPen(item.color, item.lineWidth, Qt::SolidLine,
                                             Qt::RoundCap, Qt::RoundJoin)
                                      : QPen(Qt::NoPen));
    painter.setBrush(item.fill.isValid() ? QBrush(item.fill) : QBrush(Qt::NoBrush));
    if (item.closed)
        painter.drawPolygon(QPolygon(item.points));
    else
        painter.drawPolyline(QPolygon(item.points));
    painter.setBrush(Qt::NoBrush);
}

QImage PagePainter::picture(const QByteArray &data)
{
    if (const QImage *known = m_pictures.object(data))
        return *known;
    const QImage image = pictureImage(data);
    m_pictures.insert(data, new QImage(image), qMax<qsizetype>(1, image.sizeInBytes()));
    return image;
}

QRect pictureFrame(const PictureItem &item, QSize size)
{
    const QSize fitting = size.scaled(item.frame.size(), Qt::KeepAspectRatio);
    const int room = item.frame.width() - fitting.width();
    const int shift = item.align == Align::Left ? 0 : item.align == Align::Center ? room / 2 : room;
    return {item.frame.topLeft() + QPoint(shift, 0), fitting};
}

} // namespace report
