#pragma once

#include <QImage>
#include <QWidget>

class QIODevice;

/// Shows a picture as large as the room allows, in its proportions and never larger than it is.
class PictureView final : public QWidget
{
    Q_OBJECT

public:
    explicit PictureView(QWidget *parent = nullptr);

    /// A null image empties it.
    void setImage(const QImage &image);
    [[nodiscard]] const QImage &image() const { return m_image; }
    [[nodiscard]] QSize sizeHint() const override { return {320, 240}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
    QPixmap m_shown; ///< the picture in the size of the last painting
};

/// Decodes a picture, turned upright, to at most this many pixels a side, so that the largest
/// photograph costs no more than what is seen of it; a null image when it is none.
[[nodiscard]] QImage decodedPicture(QIODevice &source, int longestSide);
/// The same for bytes.
[[nodiscard]] QImage decodedPicture(const QByteArray &bytes, int longestSide);
