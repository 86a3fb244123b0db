#include "platform/report/render/PdfPicture.h"

#include <QBuffer>
#include <QImageReader>

namespace report {
namespace {

QByteArray entries(QSize size, const char *colors)
{
    return " /Type /XObject /Subtype /Image /BitsPerComponent 8 /Width " +
           QByteArray::number(size.width()) + " /Height " + QByteArray::number(size.height()) +
           " /ColorSpace /" + colors;
}

/// The dots row by row without what images put between rows.
QByteArray dots(const QImage &image, qsizetype bytesOfRow)
{
    QByteArray bytes;
    bytes.reserve(bytesOfRow * image.height());
    for (int row = 0; row < image.height(); ++row)
        bytes.append(reinterpret_cast<const char *>(image.constScanLine(row)), bytesOfRow);
    return bytes;
}

/// How the file of a photograph counts its colours; null for what the format can't take as it is.
const char *photographColors(const QByteArray &data)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    const QImageReader reader(&buffer);
    if (reader.format() != "jpeg")
        return nullptr;
    constexpr qsizetype FirstMark = 2;
    constexpr qsizetype ColorsInFrame = 9;
    // Frames begin with a mark between C0 and CF, of which three mark other things.
    for (qsizetype at = FirstMark; at + ColorsInFrame < data.size();) {
        if (static_cast<uchar>(data[at]) != 0xff)
            return nullptr;
        const auto mark = static_cast<uchar>(data[at + 1]);
        if (mark >= 0xc0 && mark <= 0xcf && mark != 0xc4 && mark != 0xc8 && mark != 0xcc)
            return data[at + ColorsInFrame] == 3   ? "DeviceRGB"
                   : data[at + ColorsInFrame] == 1 ? "DeviceGray"
                                                   : nullptr;
        at += 2 + (static_cast<uchar>(data[at + 2]) << 8 | static_cast<uchar>(data[at + 3]));
    }
    return nullptr;
}

} // namespace

int writePdfPicture(PdfDocument &document, const QByteArray &data, QSize &size)
{
    const QImage image = QImage::fromData(data);
    size = image.size();
    if (image.isNull())
        return 0;
    const int number = document.reserve();
    if (const char *colors = photographColors(data)) {
        document.writePacked(number, entries(size, colors) + " /Filter /DCTDecode", data);
        return number;
    }
    QByteArray mask;
    if (image.hasAlphaChannel()) {
        const int maskNumber = document.reserve();
        document.writeStream(maskNumber, entries(size, "DeviceGray"),
                             dots(image.convertToFormat(QImage::Format_Alpha8), size.width()));
        mask = " /SMask " + pdfReference(maskNumber);
    }
    constexpr qsizetype BytesOfDot = 3;
    document.writeStream(
        number, entries(size, "DeviceRGB") + mask,
        dots(image.convertToFormat(QImage::Format_RGB888), BytesOfDot * size.width()));
    return number;
}

} // namespace report
