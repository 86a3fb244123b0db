#pragma once

#include "administration/CellValues.h"
#include "administration/ImportTarget.h"
#include "administration/RowReader.h"

#include <QFile>
#include <memory>

namespace administration {

/// A file of rows of one kind, CSV or a spreadsheet's, whichever it is by its content: its headings
/// meant as columns, its cells as their values.
class ImportSheet
{
public:
    /// Opens the file and reads its headings. Raises base::Error when it can't be read. Data.
    ImportSheet(const ImportTable &table, const QString &path);

    /// Tells what is wrong with the headings.
    void checkHeader(const Blame &blame);
    /// Headings that mean no column, once the header was checked.
    [[nodiscard]] const QStringList &ignored() const { return m_ignored; }
    /// Reads the next row that holds something; False at the end.
    [[nodiscard]] bool next();
    /// The row that was read last, the headings' at the beginning, as a spreadsheet counts.
    [[nodiscard]] qint64 row() const { return qMax<qint64>(1, m_reader->row()); }
    /// The values of its cells, with names in listed columns; what is wrong is told.
    [[nodiscard]] ImportRow values(const Blame &blame);
    /// How much of the file has been read, from 0 to 1.
    [[nodiscard]] double done() const { return m_reader->done(); }

private:
    void open();
    [[nodiscard]] std::optional<QVariant> cell(int place, const QString &text,
                                               const Blame &blame) const;
    void blameFault(const RowFault &fault, const Blame &blame) const;

    const ImportTable &m_table;
    QFile m_file;
    DecimalSign m_sign = DecimalSign::Point;
    std::unique_ptr<RowReader> m_reader;
    std::vector<int> m_lengths; ///< of the kind's columns, in characters
    std::vector<int> m_places;  ///< what the file's columns mean, -1 for nothing
    QStringList m_ignored;
};

} // namespace administration
