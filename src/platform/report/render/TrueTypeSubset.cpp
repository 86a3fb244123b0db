#include "platform/report/render/TrueTypeSubset.h"

#include <QRawFont>
#include <QtEndian>
#include <bit>
#include <map>
#include <vector>

namespace report {
namespace {

// Places in the tables of the format.
constexpr qsizetype HeadUnitsPerEm = 18;
constexpr qsizetype HeadBox = 36;
constexpr qsizetype HeadOffsetForm = 50;
constexpr qsizetype HheaAscent = 4;
constexpr qsizetype HheaDescent = 6;
constexpr qsizetype HheaWidths = 34;
constexpr qsizetype MaxpGlyphs = 4;
constexpr qsizetype GlyphParts = 10;

// Of the parts of a composed glyph.
constexpr unsigned WordArguments = 0x1;
constexpr unsigned OneScale = 0x8;
constexpr unsigned MoreParts = 0x20;
constexpr unsigned TwoScales = 0x40;
constexpr unsigned Matrix = 0x80;

/// A number of a table; 0 beyond its end, so that a damaged font ends in missing letters.
template<class Number>
Number at(const QByteArray &table, qsizetype place)
{
    if (place < 0 || place + qsizetype(sizeof(Number)) > table.size())
        return 0;
    return qFromBigEndian<Number>(table.constData() + place);
}

template<class Number>
void append(QByteArray &bytes, Number number)
{
    const Number bigEndian = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char *>(&bigEndian), sizeof bigEndian);
}

void pad(QByteArray &bytes)
{
    while (bytes.size() % 4 != 0)
        bytes.append('\0');
}

quint32 checksum(const QByteArray &table)
{
    quint32 sum = 0;
    for (qsizetype place = 0; place < table.size(); place += 4)
        sum += at<quint32>(table, place);
    return sum;
}

class Outlines
{
public:
    explicit Outlines(const QRawFont &font)
        : m_glyf(font.fontTable("glyf"))
        , m_loca(font.fontTable("loca"))
        , m_isLong(at<quint16>(font.fontTable("head"), HeadOffsetForm) != 0)
        , m_count(at<quint16>(font.fontTable("maxp"), MaxpGlyphs))
    {}

    [[nodiscard]] quint32 count() const { return m_count; }
    [[nodiscard]] QByteArray outline(quint32 glyph) const
    {
        const qsizetype begin = place(glyph);
        return m_glyf.mid(begin, qMax<qsizetype>(0, place(glyph + 1) - begin));
    }

private:
    [[nodiscard]] qsizetype place(quint32 glyph) const
    {
        return m_isLong ? at<quint32>(m_loca, 4 * qsizetype(glyph))
                        : 2 * at<quint16>(m_loca, 2 * qsizetype(glyph));
    }

    const QByteArray m_glyf;
    const QByteArray m_loca;
    const bool m_isLong;
    const quint32 m_count;
};

/// The glyphs that another one is composed of.
std::vector<quint32> partsOf(const QByteArray &outline)
{
    std::vector<quint32> parts;
    if (at<qint16>(outline, 0) >= 0)
        return parts;
    for (qsizetype place = GlyphParts; place < outline.size();) {
        const unsigned flags = at<quint16>(outline, place);
        parts.push_back(at<quint16>(outline, place + 2));
        place += 4 + (flags & WordArguments ? 4 : 2);
        place += flags & OneScale ? 2 : flags & TwoScales ? 4 : flags & Matrix ? 8 : 0;
        if (!(flags & MoreParts))
            break;
    }
    return parts;
}

QByteArray fileOf(const std::map<QByteArray, QByteArray> &tables)
{
    constexpr quint32 Version = 0x00010000;
    constexpr int DirectoryEntry = 16;
    constexpr int DirectoryHead = 12;
    const auto count = static_cast<quint16>(tables.size());
    const auto power = static_cast<quint16>(std::bit_floor(unsigned(count)));
    QByteArray file;
    append(file, Version);
    append(file, count);
    append(file, static_cast<quint16>(power * DirectoryEntry));
    append<quint16>(file, static_cast<quint16>(std::bit_width(unsigned(power)) - 1));
    append(file, static_cast<quint16>((count - power) * DirectoryEntry));
    auto place = static_cast<quint32>(DirectoryHead + count * DirectoryEntry);
    QByteArray content;
    for (const auto &[tag, table] : tables) {
        QByteArray padded = table;
        pad(padded);
        file += tag;
        append(file, checksum(padded));
        append(file, place);
        append(file, static_cast<quint32>(table.size()));
        place += static_cast<quint32>(padded.size());
        content += padded;
    }
    return file + content;
}

} // namespace

bool isTrueType(const QRawFont &font)
{
    return font.isValid() && !font.fontTable("glyf").isEmpty() && !font.fontTable("loca").isEmpty();
}

FontMeasures measuresOf(const QRawFont &font)
{
    const QByteArray head = font.fontTable("head");
    const QByteArray hhea = font.fontTable("hhea");
    FontMeasures measures;
    measures.unitsPerEm = qMax<int>(1, at<quint16>(head, HeadUnitsPerEm));
    measures.ascent = at<qint16>(hhea, HheaAscent);
    measures.descent = at<qint16>(hhea, HheaDescent);
    for (int side = 0; side < 4; ++side)
        measures.box[side] = at<qint16>(head, HeadBox + 2 * side);
    return measures;
}

int advanceOf(const QByteArray &hhea, const QByteArray &hmtx, quint32 glyph)
{
    // The last width counts for all that follow.
    const int widths = at<quint16>(hhea, HheaWidths);
    return at<quint16>(hmtx, 4 * qsizetype(qMin(int(glyph), widths - 1)));
}

QByteArray subsetOf(const QRawFont &font, std::set<quint32> glyphs)
{
    const Outlines outlines(font);
    glyphs.insert(0);
    std::vector<quint32> open(glyphs.begin(), glyphs.end());
    while (!open.empty()) {
        const quint32 glyph = open.back();
        open.pop_back();
        for (const quint32 part : partsOf(outlines.outline(glyph)))
            if (glyphs.insert(part).second)
                open.push_back(part);
    }
    QByteArray glyf;
    QByteArray loca;
    for (quint32 glyph = 0; glyph < outlines.count(); ++glyph) {
        append(loca, static_cast<quint32>(glyf.size()));
        if (glyphs.contains(glyph))
            glyf += outlines.outline(glyph);
        pad(glyf);
    }
    append(loca, static_cast<quint32>(glyf.size()));

    QByteArray head = font.fontTable("head");
    if (head.size() > HeadOffsetForm + 1) {
        head[HeadOffsetForm] = '\0';
        head[HeadOffsetForm + 1] = '\1';
    }
    std::map<QByteArray, QByteArray> tables{{"glyf", glyf}, {"head", head}, {"loca", loca}};
    for (const char *tag : {"cvt ", "fpgm", "hhea", "hmtx", "maxp", "prep"})
        if (const QByteArray table = font.fontTable(tag); !table.isEmpty())
            tables.emplace(tag, table);
    return fileOf(tables);
}

} // namespace report
