#include "equipment/ui/PictureView.h"

#include "platform/input/Theme.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

PictureView::PictureView(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(120, 90);
}

void PictureView::setImage(const QImage &image)
{
    m_image = image;
    // The scaled copy belonged to the former picture.
    m_shown = {};
    update();
}

void PictureView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(theme::lineColor());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (m_image.isNull())
        return;
    // In pixels of the screen: on an enlarged desktop a picture is scaled once, not twice.
    const qreal ratio = devicePixelRatioF();
    const QSize room = rect().adjusted(3, 3, -3, -3).size() * ratio;
    QSize size = m_image.size();
    if (size.width() > room.width() || size.height() > room.height())
        size.scale(room, Qt::KeepAspectRatio);
    // Scaling a photograph smoothly takes longer than painting, so it is done once for each size.
    if (m_shown.size() != size) {
        m_shown = QPixmap::fromImage(
            m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        m_shown.setDevicePixelRatio(ratio);
    }
    const QSizeF logical = QSizeF(size) / ratio;
    painter.drawPixmap(QPointF((width() - logical.width()) / 2, (height() - logical.height()) / 2),
                       m_shown);
}

QImage decodedPicture(QIODevice &source, int longestSide)
{
    QImageReader reader(&source);
    // Cameras store upright photographs lying on their side.
    reader.setAutoTransform(true);
    // By content: the name says nothing about the format.
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    // The decoder reads at the smaller size, and never holds the whole photograph.
    if (size.width() > longestSide || size.height() > longestSide)
        reader.setScaledSize(
            size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

QImage decodedPicture(const QByteArray &bytes, int longestSide)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return decodedPicture(buffer, longestSide);
}
