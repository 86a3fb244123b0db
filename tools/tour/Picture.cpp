#include "tour/Picture.h"

#include "platform/input/Theme.h"
#include "tour/Hands.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

namespace tour {
namespace {

constexpr int TitleHeight = 24;
constexpr int FrameWidth = 2;

/// The title and the edge that a desktop would give a dialog.
void paintFrame(QPainter &painter, const QWidget &window)
{
    const QRect inside = window.geometry();
    const QRect outside = inside.adjusted(-FrameWidth, -TitleHeight, FrameWidth, FrameWidth);
    const QRect title(inside.left(), outside.top(), inside.width(), TitleHeight);
    painter.fillRect(outside.translated(4, 4), QColor(0, 0, 0, 40)); // a shadow
    painter.fillRect(outside, theme::mainColor().lighter(140));
    painter.setPen(Qt::white);
    painter.setFont(theme::font(9, true));
    painter.drawText(title.adjusted(8, 0, -TitleHeight, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     window.windowTitle());
    const QRect cross(title.right() - 16, title.center().y() - 3, 8, 8);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
}

} // namespace

void savePicture(const QString &file)
{
    // Pixel by pixel as on an enlarged screen: a picture scaled down would lose lines.
    const QScreen &screen = *QGuiApplication::primaryScreen();
    QImage picture(screen.size() * screen.devicePixelRatio(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(screen.devicePixelRatio());
    picture.fill(QColor(90, 110, 130));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (QWidget *window : Hands::windows()) {
        const bool framed = !window->isMaximized() && window->windowType() == Qt::Dialog;
        if (framed)
            paintFrame(painter, *window);
        painter.drawPixmap(window->geometry().topLeft(), window->grab());
    }
    painter.end();
    require(picture.save(file), QStringLiteral("The picture %1 can't be written.").arg(file));
}

} // namespace tour
