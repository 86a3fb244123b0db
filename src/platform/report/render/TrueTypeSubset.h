#pragma once

#include <QByteArray>
#include <set>

class QRawFont;

namespace report {

/// Some measures of a font's file, in units of the em.
struct FontMeasures
{
    int unitsPerEm = 1000;
    int ascent = 0;
    int descent = 0; ///< below zero
    int box[4] = {}; ///< about all letters: left, bottom, right, top
};

/// True for a font whose outlines can be taken out one by one.
[[nodiscard]] bool isTrueType(const QRawFont &font);
/// From the font's own tables; what they lack is 0.
[[nodiscard]] FontMeasures measuresOf(const QRawFont &font);
/// The width of a glyph in units of the em.
[[nodiscard]] int advanceOf(const QByteArray &hhea, const QByteArray &hmtx, quint32 glyph);
/// The font's file with the outlines of these glyphs alone, which keep their numbers.
[[nodiscard]] QByteArray subsetOf(const QRawFont &font, std::set<quint32> glyphs);

} // namespace report
