#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <cstdio>
#include <utility>

namespace {

constexpr int sides[] = {16, 20, 24, 32, 40, 48, 64, 128, 256};

QByteArray png(QSvgRenderer &renderer, int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// Directory of pictures and then the pictures, each a PNG, as icon files have them.
QByteArray iconFile(QSvgRenderer &renderer)
{
    QList<QByteArray> pictures;
    for (const int side : sides)
        pictures += png(renderer, side);

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(1) << quint16(pictures.size());
    quint32 offset = quint32(6 + 16 * pictures.size());
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        // A side of 256 is written as 0.
        const auto side = quint8(sides[i] % 256);
        const auto size = quint32(pictures[i].size());
        out << side << side << quint8(0) << quint8(0) << quint16(1) << quint16(32) << size
            << offset;
        offset += size;
    }
    for (const QByteArray &picture : std::as_const(pictures))
        out.writeRawData(picture.constData(), int(picture.size()));
    return bytes;
}

} // namespace

/// quorvantis-icon PICTURE.svg ICON.ico
int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: quorvantis-icon PICTURE.svg ICON.ico\n", stderr);
        return 2;
    }
    QSvgRenderer renderer(arguments[1]);
    QSaveFile file(arguments[2]);
    if (!renderer.isValid() || !file.open(QIODevice::WriteOnly) ||
        file.write(iconFile(renderer)) < 0 || !file.commit()) {
        std::fprintf(stderr, "cannot make %s\n", qPrintable(arguments[2]));
        return 1;
    }
    return 0;
}
