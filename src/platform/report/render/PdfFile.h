#pragma once

#include "platform/report/paginate/PageDocument.h"
#include "platform/report/render/PdfDocument.h"
#include "platform/report/render/PdfFonts.h"

#include <QHash>
#include <QSize>

namespace report {

/// Writes pages into a PDF file, one after another. A line of text is one piece in it, whose
/// letters stand as wide as they were measured.
class PdfFile
{
public:
    /// Raises base::Error when the file can't be begun.
    PdfFile(const QString &path, const PageSetup &page, const QString &title);

    /// Raises base::Error when it can't be written, as finish does.
    void add(const Page &page);
    /// Puts the file in its place.
    void finish();

private:
    struct Picture
    {
        int number = 0; ///< 0 for one that can't be read
        QSize size{};
    };
    void draw(const TextItem &item);
    void draw(const LineItem &item);
    void draw(const BoxItem &item);
    void draw(const PictureItem &item);
    void draw(const BarCodeItem &item);
    void draw(const ShapeItem &item);

    void drawLine(const TextItem &item, const TextLine &line);
    void drawShaped(const TextItem &item, const TextLine &line);
    void drawUnderline(const TextItem &item, const TextLine &line);
    /// Without an edge.
    void fill(const QRect &frame, const QColor &color);
    void stroke(QPoint from, QPoint to);
    /// Tell a color or pen only when it is another one than the page has.
    void setFill(const QColor &color);
    void setPen(const QColor &color, Length width, int cap, int join);
    [[nodiscard]] Picture picture(const QByteArray &data);

    PdfDocument m_document;
    PdfFonts m_fonts;
    QHash<QByteArray, Picture> m_pictures;
    const QByteArray m_size; ///< of the sheet
    const QByteArray m_scale;
    const QString m_title;
    const int m_tree;
    const int m_resources;
    QList<QByteArray> m_pages; ///< references to those that are written

    // The page on hand, and what it has set last.
    QByteArray m_content;
    QByteArray m_fillColor;
    QByteArray m_pen;
    QByteArray m_font;
};

} // namespace report
