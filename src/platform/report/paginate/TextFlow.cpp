#include "platform/report/paginate/TextFlow.h"

#include <QFontMetricsF>
#include <QHash>
#include <QTextLayout>
#include <array>
#include <cmath>
#include <memory>

namespace report {

static size_t qHash(const Font &font, size_t seed = 0)
{
    return qHashMulti(seed, font.family, font.points, font.bold, font.italic, font.underline);
}

namespace {

/// Measured and drawn in a font of the same widths that is there on each computer, so that a report
/// breaks its lines alike everywhere.
QString face(const QString &family)
{
    return family.compare(u"Arial", Qt::CaseInsensitive) == 0 ? QStringLiteral("Liberation Sans")
                                                              : family;
}

/// Letters up to here have widths of their own, whatever stands beside them: without kerning a
/// text of them is as wide as they are together.
constexpr char16_t LastSimpleLetter = 0x17f;
constexpr char16_t SoftHyphen = 0xad;

/// More characters than the longest flow takes, and fewer than would fill the memory.
constexpr qsizetype MostCharacters = 4'000'000;

/// Fonts whose measures are kept: more than a report has, fewer than a bad one could ask for.
constexpr qsizetype MostFonts = 200;

/// A font with its measures, which are costly to make.
class Measured
{
public:
    explicit Measured(const Font &font)
        : made(makeFont(font))
        , metrics(made)
        , ascent(metrics.ascent())
        , descent(metrics.descent())
        , height(metrics.height())
    {
        widths.fill(-1);
    }

    [[nodiscard]] qreal width(const QString &text) const
    {
        qreal sum = 0;
        for (const QChar c : text) {
            const char16_t letter = c.unicode();
            if (letter < u' ' || letter > LastSimpleLetter || letter == SoftHyphen)
                return metrics.horizontalAdvance(text);
            qreal &known = widths[letter];
            if (known < 0)
                known = metrics.horizontalAdvance(c);
            sum += known;
        }
        return sum;
    }

    const QFont made;
    const QFontMetricsF metrics;
    // Kept, since the metrics look for the font's face each time.
    const qreal ascent;
    const qreal descent;
    const qreal height;

private:
    static QFont makeFont(const Font &font)
    {
        QFont made(face(font.family));
        // In units of the page: a pixel stands for 1/100 mm.
        made.setPixelSize(qMax(1, fromPoints(font.points)));
        made.setBold(font.bold);
        made.setItalic(font.italic);
        made.setUnderline(font.underline);
        // Hinting moves letters to the points of one screen; widths must not hang on that.
        made.setHintingPreference(QFont::PreferNoHinting);
        made.setKerning(false);
        return made;
    }

    mutable std::array<qreal, LastSimpleLetter + 1> widths;
};

const Measured &measured(const Font &font)
{
    // Pages are laid out in a thread of their own, and the measures of a font belong to one thread.
    thread_local QHash<Font, std::shared_ptr<const Measured>> known;
    // A text asks several times, and its neighbours mostly share the font.
    thread_local std::pair<Font, std::shared_ptr<const Measured>> last;
    if (last.second && last.first == font)
        return *last.second;
    auto found = known.constFind(font);
    if (found == known.cend()) {
        if (known.size() >= MostFonts)
            // All at once: a report that has so many is a bad one, and slow is good enough for it.
            known.clear();
        found = known.insert(font, std::make_shared<const Measured>(font));
    }
    last = {font, *found};
    return *last.second;
}

/// A long paragraph is broken piece by piece: what the toolkit takes for one grows faster than it.
constexpr qsizetype PieceSize = 4000;

/// The lines of a text, with the blanks at their ends.
QStringList brokenLines(const QString &text, const QFont &font, qreal width)
{
    QStringList lines;
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(text.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
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
    return measured(font).made;
}

QList<TextLine> flowText(const QString &text, const Style &style, Length width, qsizetype mostLines,
                         bool *isCut)
{
    const Measured &font = measured(style.font);
    const qreal inner = qMax(1, width - 2 * style.padding);
    QList<TextLine> lines;
    qreal top = style.padding;
    const auto place = [&](const QString &line) {
        const auto lineWidth = static_cast<Length>(std::lround(font.width(line)));
        lines.append({line, alignedStart(style, width, lineWidth),
                      static_cast<Length>(std::lround(top + font.ascent)), lineWidth});
        // Added up unrounded; each baseline is rounded by itself.
        top += font.height;
    };
    const auto isFull = [&] { return lines.size() >= mostLines || top > LongestFlow; };
    QString clean = text.left(MostCharacters);
    bool isLeftOut = clean.size() < text.size();
    clean.remove(u'\r');
    clean.replace(u'\t', QStringLiteral("    "));
    const QStringList paragraphs =
        clean.contains(u'\n') ? clean.split(u'\n') : QStringList{clean}; // most are a single line
    for (const QString &paragraph : paragraphs) {
        if (isFull()) {
            isLeftOut = true;
            break;
        }
        // By far the most paragraphs are one line, for which the toolkit's layout is not needed.
        if (font.width(paragraph) <= inner) {
            place(paragraph);
            continue;
        }
        for (qsizetype from = 0, size = PieceSize; from < paragraph.size();) {
            if (isFull()) {
                isLeftOut = true;
                break;
            }
            const QString piece = paragraph.mid(from, size);
            QStringList broken = brokenLines(piece, font.made, inner);
            // A line that the piece cuts off is broken anew with what follows.
            if (from + piece.size() < paragraph.size()) {
                if (broken.size() < 2) {
                    size *= 2;
                    continue;
                }
                from -= broken.takeLast().size();
            }
            from += piece.size();
            for (QString &line : broken) {
                while (line.endsWith(u' '))
                    line.chop(1);
                if (!isFull())
                    place(line);
            }
        }
    }
    if (isCut)
        *isCut = isLeftOut;
    return lines;
}

Length textWidth(const QString &text, const Font &font)
{
    constexpr qreal Widest = LongestFlow;
    return static_cast<Length>(std::lround(qMin(Widest, measured(font).width(text))));
}

QString elidedText(const QString &text, const Font &font, Length width)
{
    if (textWidth(text, font) <= width)
        return text;
    const QString ellipsis(QChar(0x2026));
    qsizetype fits = 0;
    qsizetype tooLong = text.size();
    // Halved again and again: labels may be of any length.
    while (tooLong - fits > 1) {
        const qsizetype middle = (fits + tooLong) / 2;
        (textWidth(text.first(middle) + ellipsis, font) <= width ? fits : tooLong) = middle;
    }
    // Half of a letter that takes two places would show as a box.
    if (fits > 0 && text[fits - 1].isHighSurrogate())
        --fits;
    return text.first(fits).trimmed() + ellipsis;
}

Length lineTop(const TextLine &line, const Style &style)
{
    return line.baseline - static_cast<Length>(std::lround(measured(style.font).ascent));
}

Length lineBottom(const TextLine &line, const Style &style)
{
    return line.baseline + static_cast<Length>(std::lround(measured(style.font).descent));
}

Length flowHeight(const QList<TextLine> &lines, const Style &style)
{
    const qreal height = static_cast<qreal>(lines.size()) * measured(style.font).height;
    return static_cast<Length>(std::ceil(height)) + 2 * style.padding;
}

} // namespace report
