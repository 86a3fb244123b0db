#include "platform/report/paginate/PictureFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QXmlStreamReader>
#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A good photograph has fewer; more would take more memory than the toolkit gives a picture.
constexpr qint64 MostPixels = 32'000'000;
/// A drawing is made of parts that show each other; so few can't become many.
constexpr int MostUses = 20;
constexpr int DeepestDrawing = 100;

bool isDevice(const QString &part)
{
    const QString stem = part.section(u'.', 0, 0).trimmed().toUpper();
    static const QStringList devices{u"CON"_s, u"PRN"_s,    u"AUX"_s,
                                     u"NUL"_s, u"CONIN$"_s, u"CONOUT$"_s};
    const bool isPort = stem.size() == 4 && (stem.startsWith(u"COM") || stem.startsWith(u"LPT"));
    return devices.contains(stem) || isPort;
}

/// A drawing names other files by itself, and can be made of parts without end.
QString drawingFault(const QByteArray &data)
{
    QXmlStreamReader xml(data);
    int depth = 0;
    int uses = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement())
            --depth;
        if (xml.isProcessingInstruction() || !xml.entityDeclarations().isEmpty())
            return u"names other files"_s;
        if (!xml.isStartElement())
            continue;
        uses += xml.name() == u"use" ? 1 : 0;
        if (++depth > DeepestDrawing || uses > MostUses)
            return u"is nested too deeply"_s;
        if (xml.name() == u"image")
            return u"holds another picture"_s;
    }
    return xml.hasError() ? u"is no picture that can be shown"_s : QString();
}

} // namespace

std::optional<QString> pictureFileBeside(const QString &folder, const QString &name)
{
    // Both ways of writing a path part it, on all systems.
    const QStringList parts = QString(name).replace(u'\\', u'/').split(u'/');
    const bool leadsAway = std::any_of(parts.cbegin(), parts.cend(), [](const QString &part) {
        return part.isEmpty() || part == u".." || part.contains(u':') || part.contains(QChar(0)) ||
               isDevice(part);
    });
    const QString home = QFileInfo(folder).canonicalFilePath();
    if (leadsAway || folder.isEmpty() || home.isEmpty())
        return std::nullopt;
    const QFileInfo file(home + u'/' + parts.join(u'/'));
    const QString place = file.canonicalFilePath();
    if (!file.isFile() || !place.startsWith(home.endsWith(u'/') ? home : home + u'/'))
        return std::nullopt;
    return place;
}

QString pictureFault(const QByteArray &data)
{
    QByteArray bytes = data;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    static const QByteArrayList known{"png", "jpeg", "jpg", "bmp", "gif", "ico", "svg"};
    const QByteArray format = reader.format();
    if (!known.contains(format))
        return u"is no picture that can be shown"_s;
    if (const QString fault = format == "svg" ? drawingFault(data) : QString(); !fault.isEmpty())
        return fault;
    const QSize size = reader.size();
    if (size.isEmpty())
        return u"is no picture that can be shown"_s;
    return qint64(size.width()) * size.height() > MostPixels ? u"is too large"_s : QString();
}

QImage pictureImage(const QByteArray &data)
{
    return pictureFault(data).isEmpty() ? QImage::fromData(data) : QImage();
}

} // namespace report
