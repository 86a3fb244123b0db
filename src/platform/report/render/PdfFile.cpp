#include "platform/report/render/PdfFile.h"

#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/PagePainter.h"
#include "platform/report/render/PdfPicture.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace report {
namespace {

constexpr double PointsPerUnit = 72.0 / 2540;
// How lines end and meet, as the format numbers it.
constexpr int Flat = 0;
constexpr int Round = 1;
constexpr int Square = 2;
constexpr int Miter = 0;

/// Short, since a page has thousands of them.
QByteArray number(double value)
{
    QByteArray digits = QByteArray::number(value, 'f', 3);
    while (digits.endsWith('0'))
        digits.chop(1);
    if (digits.endsWith('.'))
        digits.chop(1);
    return digits == "-0" ? QByteArray("0") : digits;
}

QByteArray pair(Length x, Length y)
{
    return QByteArray::number(x) + ' ' + QByteArray::number(y) + ' ';
}

QByteArray pair(QPointF point)
{
    return number(point.x()) + ' ' + number(point.y()) + ' ';
}

QByteArray parts(const QColor &color)
{
    return number(color.redF()) + ' ' + number(color.greenF()) + ' ' + number(color.blueF());
}

/// Outlines of letters, which are the same whatever the fonts of a reader.
QByteArray outlines(const QPainterPath &path)
{
    QByteArray out;
    for (int at = 0; at < path.elementCount(); ++at) {
        const QPainterPath::Element &element = path.elementAt(at);
        out += pair(element);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            out += "m\n";
            break;
        case QPainterPath::LineToElement:
            out += "l\n";
            break;
        case QPainterPath::CurveToElement:
            out += pair(path.elementAt(at + 1)) + pair(path.elementAt(at + 2)) + "c\n";
            at += 2;
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
    return out;
}

} // namespace

PdfFile::PdfFile(const QString &path, const PageSetup &page, const QString &title)
    : m_document(path)
    , m_size("[0 0 " + number(page.width() * PointsPerUnit) + ' ' +
             number(page.height() * PointsPerUnit) + ']')
    // From here on one unit is 1/100 mm, counted from the upper left corner.
    , m_scale(QByteArray::number(PointsPerUnit, 'f', 8) + " 0 0 -" +
              QByteArray::number(PointsPerUnit, 'f', 8) + " 0 " +
              number(page.height() * PointsPerUnit) + " cm\n")
    , m_title(title)
    , m_tree(m_document.reserve())
    , m_resources(m_document.reserve())
{}

void PdfFile::add(const Page &page)
{
    m_content = m_scale;
    // Each page stands for itself: what the one before has set doesn't hold on it.
    m_fillColor.clear();
    m_pen.clear();
    m_font.clear();
    for (const PageItem &item : page.items)
        std::visit([this](const auto &one) { draw(one); }, item);
    const int content = m_document.reserve();
    m_document.writeStream(content, {}, m_content);
    const int number = m_document.reserve();
    m_document.write(number, "<< /Type /Page /Parent " + pdfReference(m_tree) + " /MediaBox " +
                                 m_size + " /Resources " + pdfReference(m_resources) +
                                 " /Contents " + pdfReference(content) + " >>");
    m_pages.append(pdfReference(number));
}

void PdfFile::finish()
{
    QByteArray pictures;
    for (const Picture &picture : std::as_const(m_pictures))
        if (picture.number > 0)
            pictures += "/P" + QByteArray::number(picture.number) + ' ' +
                        pdfReference(picture.number) + ' ';
    m_document.write(m_resources,
                     "<< " + m_fonts.write(m_document) + " /XObject << " + pictures + ">> >>");
    m_document.write(m_tree, "<< /Type /Pages /Count " + QByteArray::number(m_pages.size()) +
                                 " /Kids [" + m_pages.join(' ') + "] >>");
    const int catalogue = m_document.reserve();
    m_document.write(catalogue, "<< /Type /Catalog /Pages " + pdfReference(m_tree) + " >>");
    const int information = m_document.reserve();
    m_document.write(information, "<< /Title " + pdfText(m_title) + " /Producer (Quorvantis) >>");
    m_document.finish(catalogue, information);
}

void PdfFile::draw(const TextItem &item)
{
    if (item.style.fill.isValid())
        fill(item.frame, item.style.fill);
    for (const TextLine &line : item.lines)
        if (!line.text.isEmpty())
            drawLine(item, line);
    const Border &border = item.style.border;
    if (border.isNone())
        return;
    setPen(border.color, border.width, Square, Miter);
    const QPoint topLeft = item.frame.topLeft();
    const QPoint topRight = topLeft + QPoint(item.frame.width(), 0);
    const QPoint bottomLeft = topLeft + QPoint(0, item.frame.height());
    const QPoint bottomRight = topRight + QPoint(0, item.frame.height());
    if (border.left)
        stroke(topLeft, bottomLeft);
    if (border.top)
        stroke(topLeft, topRight);
    if (border.right)
        stroke(topRight, bottomRight);
    if (border.bottom)
        stroke(bottomLeft, bottomRight);
}

void PdfFile::drawLine(const TextItem &item, const TextLine &line)
{
    setFill(item.style.color);
    // The face has no underline of its own.
    if (item.style.font.underline)
        drawUnderline(item, line);
    PdfFont &face = m_fonts.of(item.style.font);
    QByteArray digits;
    if (!face.append(digits, line.text))
        return drawShaped(item, line);
    const QByteArray font =
        face.name() + ' ' + QByteArray::number(measuringFont(item.style.font).pixelSize()) + " Tf ";
    m_content += "BT ";
    if (m_font != font) {
        m_font = font;
        m_content += font;
    }
    // The sheet counts downwards and letters upwards; a turned line reads from its foot.
    m_content += (item.turned ? "0 -1 -1 0 " : "1 0 0 -1 ") + pair(line.x, line.baseline) + "Tm <" +
                 digits + "> Tj ET\n";
}

/// A line whose letters hang on each other, such as one in another script, is drawn as outlines.
void PdfFile::drawShaped(const TextItem &item, const TextLine &line)
{
    QPainterPath path;
    path.addText(0, 0, measuringFont(item.style.font), line.text);
    m_content += "q " + QByteArray(item.turned ? "0 -1 1 0 " : "1 0 0 1 ") +
                 pair(line.x, line.baseline) + "cm\n" + outlines(path) + "f Q\n";
}

void PdfFile::drawUnderline(const TextItem &item, const TextLine &line)
{
    const QFontMetricsF metrics(measuringFont(item.style.font));
    const Length below = qRound(metrics.underlinePos());
    const Length thick = qMax(1, qRound(metrics.lineWidth()));
    if (item.turned)
        fill({line.x + below, line.baseline - line.width, thick, line.width}, item.style.color);
    else
        fill({line.x, line.baseline + below, line.width, thick}, item.style.color);
}

void PdfFile::draw(const LineItem &item)
{
    setPen(item.color, item.width, Flat, Miter);
    stroke(item.from, item.to);
}

void PdfFile::draw(const BoxItem &item)
{
    if (item.fill.isValid())
        fill(item.frame, item.fill);
    if (item.lineWidth <= 0)
        return;
    setPen(item.color, item.lineWidth, Square, Miter);
    m_content += pair(item.frame.x(), item.frame.y()) +
                 pair(item.frame.width(), item.frame.height()) + "re S\n";
}

void PdfFile::draw(const PictureItem &item)
{
    const Picture found = picture(item.data);
    if (found.number == 0)
        return;
    const QRect frame = pictureFrame(item, found.size);
    m_content += "q " + QByteArray::number(frame.width()) + " 0 0 -" +
                 QByteArray::number(frame.height()) + ' ' +
                 pair(frame.x(), frame.y() + frame.height()) + "cm /P" +
                 QByteArray::number(found.number) + " Do Q\n";
}

void PdfFile::draw(const BarCodeItem &item)
{
    for (const QRect &bar : item.bars)
        fill(bar, Qt::black);
}

void PdfFile::draw(const ShapeItem &item)
{
    const bool isFilled = item.closed && item.fill.isValid();
    const bool hasLine = item.lineWidth > 0;
    if (item.points.isEmpty() || (!isFilled && !hasLine))
        return;
    if (isFilled)
        setFill(item.fill);
    if (hasLine)
        setPen(item.color, item.lineWidth, Round, Round);
    const char *next = "m ";
    for (const QPoint &point : item.points)
        m_content += pair(point.x(), point.y()) + std::exchange(next, "l ");
    m_content += item.closed ? "h " : "";
    m_content += isFilled ? (hasLine ? "B*\n" : "f*\n") : "S\n";
}

void PdfFile::fill(const QRect &frame, const QColor &color)
{
    setFill(color);
    m_content += pair(frame.x(), frame.y()) + pair(frame.width(), frame.height()) + "re f\n";
}

void PdfFile::stroke(QPoint from, QPoint to)
{
    m_content += pair(from.x(), from.y()) + "m " + pair(to.x(), to.y()) + "l S\n";
}

void PdfFile::setFill(const QColor &color)
{
    const QByteArray wanted = parts(color) + " rg\n";
    // Told only when it changes: neighbours mostly share it.
    if (m_fillColor != wanted)
        m_content += m_fillColor = wanted;
}

void PdfFile::setPen(const QColor &color, Length width, int cap, int join)
{
    const QByteArray wanted = parts(color) + " RG " + QByteArray::number(width) + " w " +
                              QByteArray::number(cap) + " J " + QByteArray::number(join) + " j\n";
    if (m_pen != wanted)
        m_content += m_pen = wanted;
}

/// The same picture on each page stands in the file once.
PdfFile::Picture PdfFile::picture(const QByteArray &data)
{
    const auto known = m_pictures.constFind(data);
    if (known != m_pictures.cend())
        return *known;
    Picture made;
    made.number = writePdfPicture(m_document, data, made.size);
    return *m_pictures.insert(data, made);
}

} // namespace report
