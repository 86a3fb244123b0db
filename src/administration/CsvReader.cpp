#include "administration/CsvReader.h"

#include "platform/base/Error.h"

#include <array>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 chunkSize = 1 << 16;
/// In the order of trust, when a heading holds as many of each.
constexpr std::array delimiters{',', ';', '\t'};

/// The next piece of a device, empty at its end; raises base::Error when it can't be read.
QByteArray pieceOf(QIODevice &device)
{
    QByteArray piece(chunkSize, Qt::Uninitialized);
    const qint64 size = device.read(piece.data(), piece.size());
    if (size < 0)
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"The file can't be read (%1)."_s.arg(device.errorString()));
    piece.resize(size);
    return piece;
}

/// The text of UTF-8 bytes; nothing when they are none.
std::optional<QString> textOf(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return {};
    return text;
}

} // namespace

CsvReader::CsvReader(QIODevice &device, const Format &format)
    : m_device(device)
    , m_format(format)
{
    begin();
    if (m_format.delimiter == 0)
        findDelimiter();
    // By its own function: a virtual one has no derived reader to go to yet.
    if (CsvReader::next())
        takeHeader();
}

void CsvReader::begin()
{
    m_chunk = pieceOf(m_device);
    if (m_chunk.startsWith("\xEF\xBB\xBF")) {
        m_chunk.remove(0, 3);
        return;
    }
    // UTF-16 is turned to UTF-8 piece by piece, so that all that follows knows one encoding.
    for (const auto &[mark, encoding] : {std::pair{"\xFF\xFE", QStringDecoder::Utf16LE},
                                         std::pair{"\xFE\xFF", QStringDecoder::Utf16BE}}) {
        if (!m_chunk.startsWith(mark))
            continue;
        m_decoder = QStringDecoder(encoding);
        const QString text = m_decoder.decode(m_chunk.mid(2));
        m_chunk = text.toUtf8();
        return;
    }
}

void CsvReader::findDelimiter()
{
    std::array<int, delimiters.size()> found{};
    bool quoted = false;
    for (const char character : std::as_const(m_chunk)) {
        if (character == '"')
            quoted = !quoted;
        if (quoted)
            continue;
        // The headings decide: data hold commas and semicolons of their own.
        if (character == '\n' || character == '\r')
            break;
        for (std::size_t i = 0; i < delimiters.size(); ++i)
            found[i] += character == delimiters[i] ? 1 : 0;
    }
    std::size_t best = 0;
    for (std::size_t i = 1; i < delimiters.size(); ++i) {
        if (found[i] > found[best])
            best = i;
    }
    m_format.delimiter = delimiters[best];
}

bool CsvReader::fill()
{
    // A piece of UTF-16 may hold no whole character.
    do {
        m_place = 0;
        m_chunk = pieceOf(m_device);
        if (m_chunk.isEmpty())
            return false;
        if (m_decoder.isValid()) {
            const QString text = m_decoder.decode(m_chunk);
            m_chunk = text.toUtf8();
        }
    } while (m_chunk.isEmpty());
    return true;
}

int CsvReader::peek()
{
    if (m_place == m_chunk.size() && !fill())
        return -1;
    return static_cast<unsigned char>(m_chunk[m_place]);
}

void CsvReader::blameField(const QString &sentence)
{
    blame(static_cast<int>(m_fields.size()), sentence);
}

void CsvReader::take(char character)
{
    // A quote that is never closed would take in the rest of the file.
    if (m_bytes.size() < m_format.longestField)
        m_bytes.append(character);
    else
        blameField(u"The text is too long, or its quotation mark is never closed."_s);
}

void CsvReader::endField()
{
    std::optional<QString> text = textOf(m_bytes);
    if (!text)
        blameField(u"The text is not in UTF-8. Please save the file as \"CSV UTF-8\"."_s);
    else if (!m_format.allowsAnyCharacter && m_bytes.contains('\0'))
        blameField(
            u"There is a character that is no text. Please save the file as \"CSV UTF-8\"."_s);
    m_fields.push_back({std::move(text).value_or(QString()), m_wasQuoted});
    m_bytes.clear();
    m_wasQuoted = false;
    m_state = State::Begin;
}

bool CsvReader::next()
{
    m_fields.clear();
    m_fault.reset();
    if (peek() < 0)
        return false;
    ++m_row;
    for (;;) {
        const int code = peek();
        if (code < 0) {
            if (m_state == State::Quoted)
                blameField(u"The quotation mark before this text is never closed."_s);
            break;
        }
        ++m_place;
        const char character = static_cast<char>(code);
        if (m_state == State::Quoted) {
            if (character == '"')
                m_state = State::AfterQuote;
            else
                take(character);
        } else if (character == m_format.delimiter) {
            endField();
        } else if (character == '\n') {
            break;
        } else if (character == '\r') {
            // The two may lie in two pieces.
            if (peek() == '\n')
                ++m_place;
            break;
        } else if (character == '"' && m_state == State::AfterQuote) {
            take(character);
            m_state = State::Quoted;
        } else if (character == '"' && m_state == State::Begin) {
            // At the beginning only: the sign of inches stands behind a number.
            m_wasQuoted = true;
            m_state = State::Quoted;
        } else {
            if (m_state == State::AfterQuote)
                blameField(
                    u"There is text behind the closing quotation mark. A quotation mark within a text is written twice."_s);
            else
                m_state = State::Plain;
            take(character);
        }
    }
    // Also behind the last delimiter, where an empty field stands.
    endField();
    return true;
}

double CsvReader::done() const
{
    return m_device.size() == 0
               ? 1
               : static_cast<double>(m_device.pos()) / static_cast<double>(m_device.size());
}

} // namespace administration
