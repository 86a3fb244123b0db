#pragma once

#include "platform/sql/Schema.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace db {

/// The columns of a result. All runs of one statement share them.
class RowLayout
{
public:
    enum class Storage {
        Integer,
        Real,
        Date, ///< milliseconds of the wall clock since 1970
        Text,
        Bytes,
    };
    struct Column
    {
        QString name;
        sql::ColumnKind kind = sql::ColumnKind::Unknown;
        Storage storage = Storage::Integer;
    };

    /// Columns in the order of the result; of equal names the first one is found.
    explicit RowLayout(std::vector<Column> columns);

    [[nodiscard]] const std::vector<Column> &columns() const { return m_columns; }
    /// The first column of that name in any case, -1 when there is none.
    [[nodiscard]] int columnIndex(QStringView name) const;

private:
    std::vector<Column> m_columns;
    std::vector<qint32> m_names; ///< hash table of column numbers, -1 for a free place
};

/// The rows that recordsets share: one vector of plain values for each column, so that a hundred
/// thousand rows cost little more than their bytes. Filled once, column by column within each row,
/// then only read.
class RowData
{
public:
    using Storage = RowLayout::Storage;

    explicit RowData(std::shared_ptr<const RowLayout> layout);

    // One call for each column of each row, then endRow.
    void addNull(int column);
    void addInteger(int column, qint64 value) { m_columns[column].integers.push_back(value); }
    void addReal(int column, double value) { m_columns[column].reals.push_back(value); }
    /// UTF-8.
    void addText(int column, const char *text, std::size_t length);
    void addBytes(int column, QByteArray bytes);
    void endRow() { ++m_rows; }
    /// Copies a row of another result with the same layout to the end.
    void addRow(const RowData &source, int row);
    /// Gives back memory that was set aside for more rows.
    void squeeze();

    [[nodiscard]] const std::shared_ptr<const RowLayout> &layout() const { return m_layout; }
    [[nodiscard]] int rowCount() const { return m_rows; }
    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }
    [[nodiscard]] const QString &columnName(int column) const
    {
        return m_layout->columns()[column].name;
    }
    [[nodiscard]] sql::ColumnKind kind(int column) const
    {
        return m_layout->columns()[column].kind;
    }
    [[nodiscard]] Storage storage(int column) const { return m_layout->columns()[column].storage; }
    /// The first column of that name in any case, -1 when there is none.
    [[nodiscard]] int columnIndex(QStringView name) const { return m_layout->columnIndex(name); }

    /// The values, each by the storage of its column; Null reads as 0 or empty there. None of these
    /// checks its numbers: they are asked for each cell of a hundred thousand rows.
    [[nodiscard]] bool isNull(int row, int column) const;
    [[nodiscard]] qint64 integer(int row, int column) const
    {
        return m_columns[column].integers[row];
    }
    [[nodiscard]] double real(int row, int column) const { return m_columns[column].reals[row]; }
    [[nodiscard]] QDateTime date(int row, int column) const;
    /// UTF-8, alive as long as the rows.
    [[nodiscard]] std::string_view text(int row, int column) const;
    [[nodiscard]] const QByteArray &bytes(int row, int column) const
    {
        return m_columns[column].blobs[row];
    }
    /// The value as a recordset gives it, an invalid QVariant for Null.
    [[nodiscard]] QVariant value(int row, int column) const;

private:
    struct Column
    {
        std::vector<qint64> integers; ///< Integer and Date
        std::vector<double> reals;
        std::string text;              ///< all texts, one after the other
        std::vector<std::size_t> ends; ///< where each text ends in it
        std::vector<QByteArray> blobs;
        std::vector<quint64> nulls; ///< a bit for each row; short when the last rows aren't Null
    };

    std::shared_ptr<const RowLayout> m_layout;
    std::vector<Column> m_columns;
    int m_rows = 0;
};

} // namespace db
