#include "platform/report/render/PdfFile.h"

#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/PagePainter.h"
#include "platform/report/render/PdfPicture.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <array>
#include <charconv>
#include <limits>

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
    // Some readers stumble over a zero with a sign.
    return digits == "-0" ? QByteArray("0") : digits;
}

/// Adds a number without making a text of its own of it: a page has thousands.
void append(QByteArray &content, Length number)
{
    std::array<char, std::numeric_limits<Length>::digits10 + 2> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    content.append(digits.data(), end - digits.data());
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
    // The room that the page before has taken stays.
    m_content.resize(0);
    m_content += m_scale;
    // Each page stands for itself: what the one before has set doesn't hold on it.
    m_fillColor.reset();
    m_pen.reset();
    m_font = {};
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
    // Last, since fonts and pictures are known only when all pages are drawn; pages speak of them
    // by a number that was reserved.
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
    setPen({border.color, border.width, Square, Miter});
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

void PdfFile::addPair(Length x, Length y)
{
    append(m_content, x);
    m_content += ' ';
    append(m_content, y);
    m_content += ' ';
}

void PdfFile::drawLine(const TextItem &item, const TextLine &line)
{
    setFill(item.style.color);
    // The face has no underline of its own.
    if (item.style.font.underline)
        drawUnderline(item, line);
    const SizedPdfFont font = m_fonts.of(item.style.font);
    const qsizetype before = m_content.size();
    m_content += "BT ";
    if (m_font != font) {
        m_content += font.face->name() + ' ';
        append(m_content, font.size);
        m_content += " Tf ";
    }
    // The sheet counts downwards and letters upwards; a turned line reads from its foot.
    m_content += item.turned ? "0 -1 -1 0 " : "1 0 0 -1 ";
    addPair(line.x, line.baseline);
    m_content += "Tm (";
    // Letters that can be written singly stay text, which readers search and copy.
    if (!font.face->append(m_content, line.text)) {
        m_content.truncate(before);
        return drawShaped(item, line);
    }
    m_content += ") Tj ET\n";
    m_font = font;
}

/// A line whose letters hang on each other, such as one in another script, is drawn as outlines.
void PdfFile::drawShaped(const TextItem &item, const TextLine &line)
{
    QPainterPath path;
    path.addText(0, 0, measuringFont(item.style.font), line.text);
    m_content += item.turned ? "q 0 -1 1 0 " : "q 1 0 0 1 ";
    addPair(line.x, line.baseline);
    m_content += "cm\n" + outlines(path) + "f Q\n";
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
    setPen({item.color, item.width, Flat, Miter});
    stroke(item.from, item.to);
}

void PdfFile::draw(const BoxItem &item)
{
    if (item.fill.isValid())
        fill(item.frame, item.fill);
    if (item.lineWidth <= 0)
        return;
    setPen({item.color, item.lineWidth, Square, Miter});
    addPair(item.frame.x(), item.frame.y());
    addPair(item.frame.width(), item.frame.height());
    m_content += "re S\n";
}

void PdfFile::draw(const PictureItem &item)
{
    const Picture found = picture(item.data);
    // What is no picture has been told when the page was made.
    if (found.number == 0)
        return;
    const QRect frame = pictureFrame(item, found.size);
    m_content += "q " + QByteArray::number(frame.width()) + " 0 0 -" +
                 QByteArray::number(frame.height()) + ' ';
    addPair(frame.x(), frame.y() + frame.height());
    m_content += "cm /P" + QByteArray::number(found.number) + " Do Q\n";
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
        setPen({item.color, item.lineWidth, Round, Round});
    const char *next = "m ";
    for (const QPoint &point : item.points) {
        addPair(point.x(), point.y());
        m_content += std::exchange(next, "l ");
    }
    m_content += item.closed ? "h " : "";
    // By the rule of even and odd crossings, as the screen fills.
    m_content += isFilled ? (hasLine ? "B*\n" : "f*\n") : "S\n";
}

void PdfFile::fill(const QRect &frame, const QColor &color)
{
    setFill(color);
    addPair(frame.x(), frame.y());
    addPair(frame.width(), frame.height());
    m_content += "re f\n";
}

void PdfFile::stroke(QPoint from, QPoint to)
{
    addPair(from.x(), from.y());
    m_content += "m ";
    addPair(to.x(), to.y());
    m_content += "l S\n";
}

void PdfFile::setFill(const QColor &color)
{
    // Told only when it changes: neighbours mostly share it.
    if (m_fillColor == color)
        return;
    m_fillColor = color;
    m_content += parts(color) + " rg\n";
}

void PdfFile::setPen(const Pen &pen)
{
    if (m_pen == pen)
        return;
    m_pen = pen;
    m_content += parts(pen.color) + " RG " + QByteArray::number(pen.width) + " w " +
                 QByteArray::number(pen.cap) + " J " + QByteArray::number(pen.join) + " j\n";
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
