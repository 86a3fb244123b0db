#pragma once

#include "platform/report/paginate/PageDocument.h"

#include <QCache>
#include <QImage>
#include <optional>

class QPainter;

namespace report {

/// Draws pages onto whatever a painter paints on. One unit of the painter is 1/100 mm. Kept over
/// many pages, it reads each picture once.
class PagePainter
{
public:
    PagePainter();
    /// The whole page, from the sheet's upper left corner on; the painter's pen, brush and font are
    /// others afterwards.
    void paint(const Page &page, QPainter &painter);

private:
    void draw(const TextItem &item, QPainter &painter);
    void draw(const LineItem &item, QPainter &painter);
    void draw(const BoxItem &item, QPainter &painter);
    void draw(const PictureItem &item, QPainter &painter);
    void draw(const BarCodeItem &item, QPainter &painter);
    void draw(const ShapeItem &item, QPainter &painter);
    [[nodiscard]] QImage picture(const QByteArray &data);

    QCache<QByteArray, QImage> m_pictures;
    std::optional<Font> m_font;        ///< that the painter has, as far as it is known
    std::optional<QColor> m_textColor; ///< the same
};

/// Where a picture of this size stands in its frame: as large as fits, at the left, middle or
/// right.
[[nodiscard]] QRect pictureFrame(const PictureItem &item, QSize size);

} // namespace report
