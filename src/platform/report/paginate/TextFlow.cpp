#include "platform/report/paginate/TextFlow.h"

#include <QFontMetricsF>
#include <QHash>
#include <QTextLayout>
#include <cmath>

namespace report {
namespace {

QString face(const QString &family)
{
    return family.compare(u"Arial", Qt::CaseInsensitive) == 0 ? QStringLiteral("Liberation Sans")
                                                              : family;
}

/// Fonts and their measures are costly to make and few.
struct Measured
{
    QFont font;
    QFontMetricsF metrics;
};

const Measured &measured(const Font &font)
{
    thread_local QHash<QString, std::shared_ptr<Measured>> known;
    const QString key = QStringLiteral("%1/%2/%3%4%5")
                            .arg(font.family)
                            .arg(font.points)
                            .arg(font.bold)
                            .arg(font.italic)
                            .arg(font.underline);
    std::shared_ptr<Measured> &entry = known[key];
    if (!entry) {
        QFont made(face(font.family));
        made.setPixelSize(fromPoints(font.points));
        made.setBold(font.bold);
        made.setItalic(font.italic);
        made.setUnderline(font.underline);
        made.setHintingPreference(QFont::PreferNoHinting);
        made.setKerning(false);
        entry = std::make_shared<Measured>(Measured{made, QFontMetricsF(made)});
    }
    return *entry;
}

Length alignedStart(const Style &style, Length width, Length lineWidth)
{
    switch (style.align) {
    case Align::Left:
        return style.padding;
    case Align::Center:
        return (width - lineWidth) / 2;
    case Align::Right:
        return width - style.padding - lineWidth;
    }
    return 0;
}

} // namespace

QFont measuringFont(const Font &font)
{
    return measured(font).font;
}

QList<TextLine> flowText(const QString &text, const Style &style, Length width)
{
    const Measured &font = measured(style.font);
    const qreal inner = qMax(1, width - 2 * style.padding);
    const qreal ascent = font.metrics.ascent();
    const qreal spacing = font.metrics.height();
    QList<TextLine> lines;
    qreal top = style.padding;
    const auto place = [&](const QString &line) {
        const auto lineWidth =
            static_cast<Length>(std::lround(font.metrics.horizontalAdvance(line)));
        lines.append({line, alignedStart(style, width, lineWidth),
                      static_cast<Length>(std::lround(top + ascent)), lineWidth});
        top += spacing;
    };
    QString clean = text;
    clean.remove(u'\r');
    clean.replace(u'\t', QStringLiteral("    "));
    for (const QString &paragraph : clean.split(u'\n')) {
        if (font.metrics.horizontalAdvance(paragraph) <= inner) {
            place(paragraph);
            continue;
        }
        QTextLayout layout(paragraph, font.font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(inner);
            QString part = paragraph.mid(line.textStart(), line.textLength());
            while (part.endsWith(u' '))
                part.chop(1);
            place(part);
        }
        layout.endLayout();
    }
    return lines;
}

Length lineTop(const TextLine &line, const Style &style)
{
    return line.baseline - static_cast<Length>(std::lround(measured(style.font).metrics.ascent()));
}

Length lineBottom(const TextLine &line, const Style &style)
{
    return line.baseline + static_cast<Length>(std::lround(measured(style.font).metrics.descent()));
}

Length flowHeight(const QList<TextLine> &lines, const Style &style)
{
    const qreal spacing = measured(style.font).metrics.height();
    return static_cast<Length>(std::ceil(static_cast<qreal>(lines.size()) * spacing)) +
           2 * style.padding;
}

} // namespace report
