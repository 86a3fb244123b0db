#include "platform/report/render/HtmlFile.h"

#include "platform/report/paginate/PictureFile.h"
#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/PagePainter.h"

#include <QBuffer>
#include <QImage>

namespace report {
namespace {

using namespace Qt::StringLiterals;

QString mm(Length length)
{
    return lengthText(length);
}

QString place(const QRect &frame)
{
    return u"left:%1;top:%2;width:%3;height:%4"_s.arg(mm(frame.x()), mm(frame.y()),
                                                      mm(frame.width()), mm(frame.height()));
}

QString filled(const QRect &frame, const QColor &color)
{
    return u"<div style=\"%1;background:%2\"></div>\n"_s.arg(place(frame), color.name());
}

/// What could end the name in a style is no part of a font's name.
QString fontName(QString family)
{
    return family.removeIf(
        [](QChar c) { return !c.isLetterOrNumber() && !QStringView(u" -_.").contains(c); });
}

QString fontStyle(const Style &style)
{
    QString css = u"font:%1%2%3pt '%4',Arial,sans-serif;color:%5"_s.arg(
        style.font.italic ? u"italic "_s : QString(), style.font.bold ? u"bold "_s : QString(),
        QString::number(style.font.points), fontName(style.font.family), style.color.name());
    if (style.font.underline)
        css += u";text-decoration:underline"_s;
    return css;
}

QString borderStyle(const Border &border)
{
    QString css;
    const auto side = [&](bool there, QStringView name) {
        if (there)
            css += u";border-%1:%2 solid %3"_s.arg(name, mm(border.width), border.color.name());
    };
    side(border.left, u"left");
    side(border.top, u"top");
    side(border.right, u"right");
    side(border.bottom, u"bottom");
    return css;
}

QString itemHtml(const TextItem &item)
{
    const Style &style = item.style;
    QString html;
    // A box of its own behind the lines: each of these is placed by its baseline, whatever the
    // browser makes of paragraphs.
    if (style.fill.isValid() || !style.border.isNone()) {
        const QString fill =
            style.fill.isValid() ? u";background:"_s + style.fill.name() : QString();
        html += u"<div style=\"%1%2%3\"></div>\n"_s.arg(place(item.frame), fill,
                                                        borderStyle(style.border));
    }
    for (const TextLine &line : item.lines) {
        if (line.text.isEmpty())
            continue;
        const Length top = lineTop(line, style);
        if (item.turned) {
            // Turned about the foot of its baseline, which is where the line begins.
            html += u"<p style=\"left:%1;top:%2;%3;line-height:%4;transform-origin:0 %5;"
                    "transform:rotate(-90deg)\">%6</p>\n"_s.arg(
                        mm(line.x), mm(top), fontStyle(style), mm(lineBottom(line, style) - top),
                        mm(line.baseline - top), line.text.toHtmlEscaped());
            continue;
        }
        html += u"<p style=\"left:%1;top:%2;%3;line-height:%4\">%5</p>\n"_s.arg(
            mm(line.x), mm(top), fontStyle(style), mm(lineBottom(line, style) - top),
            line.text.toHtmlEscaped());
    }
    return html;
}

/// Level and upright lines are boxes; only slanting ones need a drawing.
QString itemHtml(const LineItem &item)
{
    const QRect box =
        QRect(QPoint(qMin(item.from.x(), item.to.x()), qMin(item.from.y(), item.to.y())),
              QSize(std::abs(item.to.x() - item.from.x()), std::abs(item.to.y() - item.from.y())));
    if (box.width() == 0 || box.height() == 0)
        return filled(QRect(box.topLeft(), box.size().expandedTo({item.width, item.width})),
                      item.color);
    return u"<svg style=\"%1\"><line x1=\"%2\" y1=\"%3\" x2=\"%4\" y2=\"%5\" stroke=\"%6\" "
           "stroke-width=\"%7\"/></svg>\n"_s.arg(
               place(box), mm(item.from.x() - box.x()), mm(item.from.y() - box.y()),
               mm(item.to.x() - box.x()), mm(item.to.y() - box.y()), item.color.name(),
               mm(item.width));
}

QString itemHtml(const BoxItem &item)
{
    QString css = place(item.frame);
    if (item.fill.isValid())
        css += u";background:"_s + item.fill.name();
    if (item.lineWidth > 0)
        css += u";border:%1 solid %2"_s.arg(mm(item.lineWidth), item.color.name());
    return u"<div style=\"%1\"></div>\n"_s.arg(css);
}

/// Pictures go into the file in a form that all browsers know.
QString itemHtml(const PictureItem &item)
{
    const QImage image = pictureImage(item.data);
    if (image.isNull())
        return {};
    QByteArray png;
    QBuffer buffer(&png);
    // Within the file, which can be sent on alone.
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return u"<img alt=\"\" style=\"%1\" src=\"data:image/png;base64,%2\">\n"_s.arg(
        place(pictureFrame(item, image.size())), QString::fromLatin1(png.toBase64()));
}

QString itemHtml(const BarCodeItem &item)
{
    QString html;
    for (const QRect &bar : item.bars)
        html += filled(bar, Qt::black);
    return html;
}

QString itemHtml(const ShapeItem &item)
{
    // Lines may be half their width outside of the points.
    const Length edge = item.lineWidth;
    const QRect frame = item.frame.adjusted(-edge, -edge, edge, edge);
    QStringList points;
    for (const QPoint &point : item.points)
        points.append(u"%1,%2"_s.arg(point.x() - frame.x()).arg(point.y() - frame.y()));
    return u"<svg style=\"%1\" viewBox=\"0 0 %2 %3\"><%4 points=\"%5\" fill=\"%6\" stroke=\"%7\" "
           "stroke-width=\"%8\" stroke-linejoin=\"round\"/></svg>\n"_s.arg(place(frame))
               .arg(frame.width())
               .arg(frame.height())
               .arg(item.closed ? u"polygon"_s : u"polyline"_s, points.join(u' '),
                    item.fill.isValid() ? item.fill.name() : u"none"_s,
                    item.lineWidth > 0 ? item.color.name() : u"none"_s)
               .arg(item.lineWidth);
}

constexpr QStringView head =
    u"<!DOCTYPE html>\n"
    "<html>\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n<style>\n"
    "@page{size:%2 %3;margin:0}\n"
    "body{margin:0;background:#e7e8e7}\n"
    ".page{position:relative;width:%2;height:%3;margin:5mm auto;background:#fff;"
    "overflow:hidden;break-after:page}\n"
    "@media print{body{background:none}.page{margin:0}}\n"
    ".page>*{position:absolute;box-sizing:border-box;margin:0;white-space:pre}\n"
    "</style>\n</head>\n<body>\n";

} // namespace

HtmlFile::HtmlFile(const QString &path, const PageSetup &page, const QString &title)
    : m_file(path)
{
    m_file.write(
        head.toString().arg(title.toHtmlEscaped(), mm(page.width()), mm(page.height())).toUtf8());
}

void HtmlFile::add(const Page &page)
{
    QString html = u"<div class=\"page\">\n"_s;
    for (const PageItem &item : page.items)
        html += std::visit([](const auto &one) { return itemHtml(one); }, item);
    html += u"</div>\n"_s;
    m_file.write(html.toUtf8());
}

void HtmlFile::finish()
{
    m_file.write("</body>\n</html>\n");
    m_file.finish();
}

} // namespace report
