#pragma once

#include "platform/report/paginate/PageDocument.h"

#include <QFont>

namespace report {

/// The font of a style in which one pixel is 1/100 mm, without hinting, so that text measures the
/// same wherever it is drawn. "Arial" is set in the face of its measures.
[[nodiscard]] QFont measuringFont(const Font &font);

/// No text is longer on paper, nor is a band: a hundred metres.
constexpr Length LongestFlow = 10'000'000;
/// Of one text, and of all that stand in a band.
constexpr qsizetype MostLines = 200'000;

/// Breaks a text into lines that fit the width, and places them at the style's alignment within a
/// rectangle whose corner is 0,0. Long words are broken. Beyond so many lines, or the longest flow,
/// the rest is left out, which isCut tells.
[[nodiscard]] QList<TextLine> flowText(const QString &text, const Style &style, Length width,
                                       qsizetype mostLines = MostLines, bool *isCut = nullptr);
/// How wide a text is in one line.
[[nodiscard]] Length textWidth(const QString &text, const Font &font);
/// A text that fits the width, cut with an ellipsis where it is longer.
[[nodiscard]] QString elidedText(const QString &text, const Font &font, Length width);
/// The upper and lower edge of a line, its place included.
[[nodiscard]] Length lineTop(const TextLine &line, const Style &style);
[[nodiscard]] Length lineBottom(const TextLine &line, const Style &style);
/// The height that these lines take, the padding above and below included.
[[nodiscard]] Length flowHeight(const QList<TextLine> &lines, const Style &style);

} // namespace report
