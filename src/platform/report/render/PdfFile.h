#pragma once

#include "platform/report/paginate/PageDocument.h"
#include "platform/report/render/PdfDocument.h"
#include "platform/report/render/PdfFonts.h"

#include <QHash>
#include <QSize>
#include <optional>

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
    struct Pen
    {
        QColor color;
        Length width = 0;
        int cap = 0;
        int join = 0;

        bool operator==(const Pen &) const = default;
    };
    void draw(const TextItem &item);
    void draw(const LineItem &item);
    void draw(const BoxItem &item);
    void draw(const PictureItem &item);
    void draw(const BarCodeItem &item);
    void draw(const ShapeItem &item);

    void addPair(Length x, Length y);
    void drawLine(const TextItem &item, const TextLine &line);
    void drawShaped(const TextItem &item, const TextLine &line);
    void drawUnderline(const TextItem &item, const TextLine &line);
    /// Without an edge.
    void fill(const QRect &frame, const QColor &color);
    void stroke(QPoint from, QPoint to);
    /// Tell a color or pen only when it is another one than the page has.
    void setFill(const QColor &color);
    void setPen(const Pen &pen);
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
    std::optional<QColor> m_fillColor;
    std::optional<Pen> m_pen;
    SizedPdfFont m_font;
};

} // namespace report
