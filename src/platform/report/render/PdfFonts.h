#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/render/PdfDocument.h"

#include <QRawFont>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace report {

/// A face of letters that a PDF file carries with it, as far as its texts need them.
class PdfFont
{
public:
    /// The face of a font whatever its size; the name is what pages call it by.
    PdfFont(const Font &font, const QByteArray &name);

    /// By which pages call it, "/F1".
    [[nodiscard]] const QByteArray &name() const { return m_name; }
    /// Adds the glyphs of a text as a page writes them between round brackets. False, and nothing
    /// added, when some letter takes more than the glyph that the face has for it: it would have to
    /// be shaped.
    [[nodiscard]] bool append(QByteArray &content, const QString &text);
    [[nodiscard]] bool isUsed() const { return !m_used.empty(); }
    /// Writes what was used, under this number.
    void write(PdfDocument &document, int number) const;

private:
    struct Glyph
    {
        bool isKnown = false; ///< the face has been asked for it
        qint8 size = 0;
        std::array<char, 4> bytes{}; ///< its number, two bytes that may each need a mark before it
        quint32 index = 0;           ///< 0 for a letter that the face can't show by itself
    };
    [[nodiscard]] const Glyph &glyphOf(QChar letter);
    [[nodiscard]] QByteArray widths() const;
    [[nodiscard]] QByteArray letters() const;

    const QByteArray m_name;
    QRawFont m_font;
    bool m_isFit = false; ///< the face is the one that was asked for, and its outlines can be taken
    std::vector<Glyph> m_glyphs;     ///< by letter, up to the last one that was asked for
    std::map<quint32, QChar> m_used; ///< the letter of each glyph
};

/// A font as a page chooses it.
struct SizedPdfFont
{
    PdfFont *face = nullptr; ///< the same for all sizes
    int size = 0;            ///< in the units of the page

    bool operator==(const SizedPdfFont &) const = default;
};

/// The faces of one file.
class PdfFonts
{
public:
    [[nodiscard]] SizedPdfFont of(const Font &font);
    /// Writes all, and returns the entry of the resources that names them.
    [[nodiscard]] QByteArray write(PdfDocument &document) const;

private:
    std::map<QString, std::unique_ptr<PdfFont>> m_fonts;
    std::pair<Font, SizedPdfFont> m_last;
};

} // namespace report
