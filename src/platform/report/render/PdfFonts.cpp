#include "platform/report/render/PdfFonts.h"

#include "platform/report/paginate/TextFlow.h"
#include "platform/report/render/TrueTypeSubset.h"

#include <array>

namespace report {
namespace {

using namespace Qt::StringLiterals;

struct Range
{
    char16_t first;
    char16_t last;
};
/// Letters that stand side by side as they are: Latin, Greek and Cyrillic, signs and money. Others
/// join, turn round or sit on each other.
constexpr std::array Simple{Range{0x20, 0x7e},     Range{0xa0, 0xac},     Range{0xae, 0x2ff},
                            Range{0x370, 0x482},   Range{0x48a, 0x52f},   Range{0x1e00, 0x1fff},
                            Range{0x2010, 0x2027}, Range{0x2030, 0x205e}, Range{0x20a0, 0x20bf},
                            Range{0x2100, 0x22ff}};

bool isSimple(QChar letter)
{
    return std::ranges::any_of(Simple, [code = letter.unicode()](const Range &range) {
        return range.first <= code && code <= range.last;
    });
}

QByteArray digitsOf(quint32 number)
{
    return QByteArray::number(number, 16).rightJustified(4, '0');
}

/// In thousandths of the em, as the format counts.
QByteArray thousandths(int units, int unitsPerEm)
{
    return QByteArray::number(qRound(1000.0 * units / unitsPerEm));
}

} // namespace

PdfFont::PdfFont(const Font &font, const QByteArray &name)
    : m_name(name)
    , m_font(QRawFont::fromFont(measuringFont(font)))
{
    // A face that was only made to look bold or slanted would be written as it was.
    m_isFit = isTrueType(m_font) && font.bold == (m_font.weight() >= QFont::DemiBold) &&
              font.italic == (m_font.style() != QFont::StyleNormal);
}

bool PdfFont::append(QByteArray &content, const QString &text)
{
    if (!m_isFit)
        return false;
    const qsizetype before = content.size();
    for (const QChar letter : text) {
        const Glyph &glyph = glyphOf(letter);
        // All or nothing: a line in two ways of writing would not meet in the middle.
        if (glyph.index == 0) {
            content.truncate(before);
            return false;
        }
        content.append(glyph.bytes.data(), glyph.size);
    }
    return true;
}

const PdfFont::Glyph &PdfFont::glyphOf(QChar letter)
{
    const std::size_t place = letter.unicode();
    if (place >= m_glyphs.size())
        m_glyphs.resize(place + 1);
    Glyph &glyph = m_glyphs[place];
    if (std::exchange(glyph.isKnown, true))
        return glyph;
    if (isSimple(letter))
        glyph.index = m_font.glyphIndexesForString(QString(letter)).value(0);
    if (glyph.index == 0)
        return glyph;
    // Two letters may share a glyph, and the first one is what is copied from it.
    m_used.emplace(glyph.index, letter);
    // Half as long as in digits, which halves the time that the packing takes.
    for (const char byte : {static_cast<char>(glyph.index >> 8), static_cast<char>(glyph.index)}) {
        if (byte == '(' || byte == ')' || byte == '\\' || byte == '\r')
            glyph.bytes[glyph.size++] = '\\';
        glyph.bytes[glyph.size++] = byte == '\r' ? 'r' : byte;
    }
    return glyph;
}

void PdfFont::write(PdfDocument &document, int number) const
{
    QByteArray face = "QUORVA+";
    for (const QChar letter : m_font.familyName() + u'-' + m_font.styleName())
        // A name of the format holds neither blanks nor other letters.
        if (letter.unicode() < 0x80 && (letter.isLetterOrNumber() || letter == u'-'))
            face += letter.toLatin1();
    std::set<quint32> glyphs;
    for (const auto &[glyph, letter] : m_used)
        glyphs.insert(glyph);
    const QByteArray file = subsetOf(m_font, glyphs);
    const int fileNumber = document.reserve();
    document.writeStream(fileNumber, " /Length1 " + QByteArray::number(file.size()), file);
    const int lettersNumber = document.reserve();
    document.writeStream(lettersNumber, {}, letters());

    const FontMeasures measures = measuresOf(m_font);
    QByteArray box;
    for (const int side : measures.box)
        box += ' ' + thousandths(side, measures.unitsPerEm);
    const QByteArray ascent = thousandths(measures.ascent, measures.unitsPerEm);
    const int descriptor = document.reserve();
    document.write(descriptor, "<< /Type /FontDescriptor /FontName /" + face +
                                   " /Flags 4 /ItalicAngle 0 /StemV 80 /FontBBox [" + box +
                                   " ] /Ascent " + ascent + " /CapHeight " + ascent + " /Descent " +
                                   thousandths(measures.descent, measures.unitsPerEm) +
                                   " /FontFile2 " + pdfReference(fileNumber) + " >>");
    const int descendant = document.reserve();
    document.write(descendant,
                   "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /" + face +
                       " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>"
                       " /CIDToGIDMap /Identity /FontDescriptor " +
                       pdfReference(descriptor) + " /W [" + widths() + " ] >>");
    document.write(number, "<< /Type /Font /Subtype /Type0 /Encoding /Identity-H /BaseFont /" +
                               face + " /DescendantFonts [" + pdfReference(descendant) +
                               "] /ToUnicode " + pdfReference(lettersNumber) + " >>");
}

QByteArray PdfFont::widths() const
{
    const QByteArray hhea = m_font.fontTable("hhea");
    const QByteArray hmtx = m_font.fontTable("hmtx");
    const double perUnit = 1000.0 / measuresOf(m_font).unitsPerEm;
    QByteArray widths;
    for (const auto &[glyph, letter] : m_used)
        widths += ' ' + QByteArray::number(glyph) + " [" +
                  QByteArray::number(advanceOf(hhea, hmtx, glyph) * perUnit, 'f', 3) + ']';
    return widths;
}

/// Which letter each glyph is, for who searches and copies.
QByteArray PdfFont::letters() const
{
    constexpr qsizetype MostOfABlock = 100;
    QByteArray map = "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n"
                     "/CMapName /Letters def /CMapType 2 def\n"
                     "1 begincodespacerange <0000> <ffff> endcodespacerange\n";
    QList<QByteArray> lines;
    const auto endBlock = [&] {
        if (!lines.isEmpty())
            map +=
                QByteArray::number(lines.size()) + " beginbfchar\n" + lines.join() + "endbfchar\n";
        lines.clear();
    };
    for (const auto &[glyph, letter] : m_used) {
        lines.append('<' + digitsOf(glyph) + "> <" + digitsOf(letter.unicode()) + ">\n");
        if (lines.size() == MostOfABlock)
            endBlock();
    }
    endBlock();
    return map + "endcmap CMapName currentdict /CMap defineresource pop end end\n";
}

SizedPdfFont PdfFonts::of(const Font &font)
{
    if (m_last.second.face && m_last.first == font)
        return m_last.second;
    const QString key = u"%1|%2|%3"_s.arg(font.family).arg(font.bold).arg(font.italic);
    std::unique_ptr<PdfFont> &face = m_fonts[key];
    if (!face)
        face = std::make_unique<PdfFont>(font, "/F" + QByteArray::number(m_fonts.size()));
    m_last = {font, {face.get(), measuringFont(font).pixelSize()}};
    return m_last.second;
}

QByteArray PdfFonts::write(PdfDocument &document) const
{
    QByteArray names;
    for (const auto &[key, face] : m_fonts) {
        if (!face->isUsed())
            continue;
        const int number = document.reserve();
        face->write(document, number);
        names += face->name() + ' ' + pdfReference(number) + ' ';
    }
    return "/Font << " + names + ">>";
}

} // namespace report
