#include "platform/input/Theme.h"

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <utility>

/// Makes the pictures known to the program; outside any namespace, as the macro requires.
static void registerPictures()
{
    Q_INIT_RESOURCE(icons);
}

namespace theme {
namespace {

QByteArray picture(const QString &path)
{
    registerPictures();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray nameOf(const QColor &color)
{
    return color.name(QColor::HexRgb).toLatin1();
}

/// Renders the picture at exactly the size asked for, in the colours of its ground and state.
class SvgIconEngine final : public QIconEngine
{
public:
    SvgIconEngine(QString name, QByteArray svg, Tone tone)
        : m_name(std::move(name))
        , m_svg(std::move(svg))
        , m_tone(tone)
    {}

    void paint(QPainter *painter, const QRect &rectangle, QIcon::Mode mode, QIcon::State) override
    {
        QSvgRenderer renderer(colored(mode));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        renderer.render(painter, QRectF(rectangle));
        painter->restore();
    }

    // Icons are asked for at each painting, so that each form of a picture is rendered once.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const QString key = QStringLiteral("theme/%1/%2x%3/%4/%5")
                                .arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(int(mode))
                                .arg(int(m_tone));
        QPixmap result;
        if (QPixmapCache::find(key, &result))
            return result;
        result = QPixmap(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, result);
        return result;
    }

    [[nodiscard]] QIconEngine *clone() const override { return new SvgIconEngine(*this); }
    QString iconName() override { return m_name; }
    bool isNull() override { return m_svg.isEmpty(); }

private:
    [[nodiscard]] QByteArray colored(QIcon::Mode mode) const
    {
        QColor line = m_tone == Tone::OnLight ? mainColor() : QColor(Qt::white);
        QColor accent = m_tone == Tone::OnLight ? accentColor() : QColor(255, 176, 92);
        if (mode == QIcon::Disabled)
            line = accent = m_tone == Tone::OnLight ? QColor(168, 172, 175) : QColor(120, 140, 160);
        QByteArray svg = m_svg;
        // The two colours in which all pictures are drawn.
        svg.replace("#24476d", nameOf(line));
        svg.replace("#c8691e", nameOf(accent));
        return svg;
    }

    QString m_name;
    QByteArray m_svg;
    Tone m_tone;
};

} // namespace

QIcon icon(const QString &name, Tone tone)
{
    const QByteArray svg = picture(QStringLiteral(":/icons/%1.svg").arg(name));
    return svg.isEmpty() ? QIcon() : QIcon(new SvgIconEngine(name, svg, tone));
}

QStringList iconNames()
{
    registerPictures();
    QStringList names;
    const auto files = QDir(QStringLiteral(":/icons"))
                           .entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        names += file.chopped(4);
    return names;
}

QIcon programIcon()
{
    QSvgRenderer renderer(picture(QStringLiteral(":/brand/program.svg")));
    QIcon result;
    // The sizes for which desktops ask; what lies between would be scaled and blurred.
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 128, 256}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        result.addPixmap(pixmap);
    }
    return result;
}

void paintHeader(QPainter &painter, const QRect &rectangle)
{
    painter.fillRect(rectangle, mainColor());
    QSvgRenderer renderer(picture(QStringLiteral(":/brand/header.svg")));
    const QSizeF size = renderer.defaultSize().toSizeF();
    if (size.isEmpty())
        return;
    // Drawn at the left in its own shape; the ground behind fills the rest.
    const qreal width = size.width() * rectangle.height() / size.height();
    painter.save();
    painter.setClipRect(rectangle);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(rectangle.topLeft(), QSizeF(width, rectangle.height())));
    painter.restore();
}

} // namespace theme
