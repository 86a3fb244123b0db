#pragma once

#include "administration/RowReader.h"

#include <QByteArray>
#include <QIODevice>
#include <QStringDecoder>

namespace administration {

/// Reads delimited text row by row, however long it is: a field between double quotes may hold
/// delimiters, line ends and doubled quotes. Lines end as on any system. The text is UTF-8, or
/// UTF-16 when it begins with that mark.
class CsvReader final : public RowReader
{
public:
    struct Format
    {
        char delimiter = 0; ///< 0: the comma, semicolon or tab that the first line holds most of
        bool allowsAnyCharacter = false;    ///< False: a character 0 is told as a fault
        qsizetype longestField = 1'000'000; ///< bytes; a quote that is never closed stops there
    };

    /// The device must outlive the reader and be open. Reads the first row, the header. Raises, as
    /// next() does, base::Error when the device can't be read.
    CsvReader(QIODevice &device, const Format &format);

    [[nodiscard]] char delimiter() const { return m_format.delimiter; }
    [[nodiscard]] bool next() override;
    [[nodiscard]] double done() const override;

private:
    enum class State { Begin, Plain, Quoted, AfterQuote };

    void begin();
    void findDelimiter();
    [[nodiscard]] bool fill();
    [[nodiscard]] int peek();
    void take(char character);
    void endField();
    void blameField(const QString &sentence);

    QIODevice &m_device;
    Format m_format;
    QStringDecoder m_decoder; ///< from UTF-16; not valid for UTF-8, which is read as it stands
    QByteArray m_chunk;
    qsizetype m_place = 0;
    QByteArray m_bytes; ///< of the field that is being read
    State m_state = State::Begin;
    bool m_wasQuoted = false;
};

} // namespace administration
