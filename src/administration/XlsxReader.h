#pragma once

#include "administration/RowReader.h"
#include "administration/Workbook.h"
#include "administration/XmlPart.h"

namespace administration {

/// Reads the first table of a spreadsheet file (.xlsx) row by row, each cell as the text that it
/// shows: dates as "2024-03-15" with a time behind a "T", numbers with a point and without signs
/// that part thousands, results of formulas as they were saved.
class XlsxReader final : public RowReader
{
public:
    /// Reads the first row, the header. Raises, as next() does, base::Error with a sentence that
    /// names the file when it is no spreadsheet, is damaged, or holds more than a table can.
    explicit XlsxReader(const QString &path);

    [[nodiscard]] bool next() override;
    [[nodiscard]] double done() const override;

private:
    void readCells();
    void readCell(std::size_t column);
    [[nodiscard]] std::size_t columnOf(const QString &place) const;
    [[nodiscard]] QString shared(const QString &number) const;
    [[nodiscard]] QString numberText(const QString &value, const QString &style);

    ZipReader m_archive;
    Workbook m_book;
    XmlPart m_part;
    qint64 m_size; ///< of the table's file, unpacked
    bool m_isOver = false;
};

} // namespace administration
