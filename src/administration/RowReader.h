#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace administration {

/// What is wrong with one place of a file, as a sentence without the place.
struct RowFault
{
    int column = -1; ///< from 0; -1 for the row as a whole
    QString sentence;
};

/// A table in a file, read row by row however long it is. The first row is the header.
class RowReader
{
public:
    struct Field
    {
        QString text;
        bool quoted = false; ///< what tells an empty text from no value
    };

    RowReader() = default;
    virtual ~RowReader() = default;
    RowReader(const RowReader &) = delete;
    RowReader &operator=(const RowReader &) = delete;

    /// The first row's fields without blanks at their ends; empty for an empty file.
    [[nodiscard]] const QStringList &header() const { return m_header; }
    /// Reads the next row; False at the end. Raises base::Error when the file can't be read.
    [[nodiscard]] virtual bool next() = 0;
    /// The number of the row as a spreadsheet counts: the header is 1, empty rows count.
    [[nodiscard]] qint64 row() const { return m_row; }
    [[nodiscard]] const std::vector<Field> &fields() const { return m_fields; }
    /// What keeps the row, or the header, from being understood.
    [[nodiscard]] const std::optional<RowFault> &fault() const { return m_fault; }
    /// True when no field of the row holds anything.
    [[nodiscard]] bool isBlank() const;
    /// How much of the file has been read, from 0 to 1.
    [[nodiscard]] virtual double done() const = 0;

protected:
    /// Takes the row that was read for the header.
    void takeHeader();
    /// Blames the row for it, unless something was found before.
    void blame(int column, const QString &sentence);

    qint64 m_row = 0;
    std::vector<Field> m_fields;
    std::optional<RowFault> m_fault;

private:
    QStringList m_header;
};

} // namespace administration
