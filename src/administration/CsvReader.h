#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QStringDecoder>
#include <QStringList>
#include <optional>
#include <vector>

namespace administration {

/// What is wrong with one place of a file, as a sentence without the place.
struct CsvFault
{
    int column = -1; ///< from 0; -1 for the row as a whole
    QString sentence;
};

/// Reads delimited text row by row, however long it is: a field between double quotes may hold
/// delimiters, line ends and doubled quotes. Lines end as on any system. The text is UTF-8, or
/// UTF-16 when it begins with that mark.
class CsvReader
{
public:
    struct Field
    {
        QString text;
        bool quoted = false; ///< what tells an empty text from no value
    };
    struct Format
    {
        char delimiter = 0; ///< 0: the comma, semicolon or tab that the first line holds most of
        bool allowsAnyCharacter = false;    ///< False: a character 0 is told as a fault
        qsizetype longestField = 1'000'000; ///< bytes; a quote that is never closed stops there
    };

    /// The device must outlive the reader and be open. Reads the first row, the header. Raises, as
    /// next() does, base::Error when the device can't be read.
    CsvReader(QIODevice &device, const Format &format);

    /// The first row's fields without blanks at their ends; empty for an empty file.
    [[nodiscard]] const QStringList &header() const { return m_header; }
    [[nodiscard]] char delimiter() const { return m_format.delimiter; }
    /// Reads the next row; False at the end.
    [[nodiscard]] bool next();
    /// The number of the row as a spreadsheet counts: the header is 1, empty lines count.
    [[nodiscard]] qint64 row() const { return m_row; }
    [[nodiscard]] const std::vector<Field> &fields() const { return m_fields; }
    /// What keeps the row, or the header, from being understood.
    [[nodiscard]] const std::optional<CsvFault> &fault() const { return m_fault; }
    /// True when no field of the row holds anything.
    [[nodiscard]] bool isBlank() const;

private:
    enum class State { Begin, Plain, Quoted, AfterQuote };

    void begin();
    void findDelimiter();
    [[nodiscard]] bool fill();
    [[nodiscard]] int peek();
    void take(char character);
    void endField();
    void blame(const QString &sentence);

    QIODevice &m_device;
    Format m_format;
    QStringDecoder m_decoder; ///< from UTF-16; not valid for UTF-8, which is read as it stands
    QByteArray m_chunk;
    qsizetype m_place = 0;
    qint64 m_row = 0;
    QByteArray m_bytes; ///< of the field that is being read
    State m_state = State::Begin;
    bool m_wasQuoted = false;
    std::vector<Field> m_fields;
    std::optional<CsvFault> m_fault;
    QStringList m_header;
};

} // namespace administration
