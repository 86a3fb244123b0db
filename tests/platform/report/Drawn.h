#pragma once

#include "platform/report/render/PagePainter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <gtest/gtest.h>
#include <optional>

namespace report {

/// What an action paints on white, so many points of the picture for a unit.
template<class Paint>
QImage drawn(QSize size, double scale, Paint &&paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    paint(painter);
    return image;
}

inline QImage drawn(const Page &page, QSize size, double scale)
{
    return drawn(size, scale, [&](QPainter &painter) { PagePainter().paint(page, painter); });
}

/// How many points of a picture have exactly this colour.
inline int pointsOf(const QImage &image, const QColor &color)
{
    int points = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            points += image.pixelColor(x, y) == color;
    return points;
}

/// What a program of the system prints, nothing where it isn't installed.
inline std::optional<QString> outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted() || !process.waitForFinished())
        return std::nullopt;
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// A file's bytes with a picture of one colour.
inline QByteArray pictureFile(QSize size, const QColor &color, const char *format = "PNG")
{
    QImage image(size, color.alpha() < 255 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
    return bytes;
}

} // namespace report
