#pragma once

#include "platform/sql/Schema.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <optional>
#include <string_view>

namespace db {

class RowData; // the fetched rows, shared by all copies of a recordset

/// One row of a recordset: a light reference that keeps the rows alive. Names are found without
/// regard to case; an unknown one raises base::Error NoSuchItem.
class Row
{
public:
    /// The value, an invalid QVariant for Null. Whole numbers come as qint64, others as double,
    /// dates as QDateTime (wall clock), Yes/No as qint64 -1 or 0, pictures as QByteArray.
    [[nodiscard]] QVariant operator[](QStringView name) const;
    [[nodiscard]] QVariant operator[](int column) const;
    /// True for Null; an empty text is none.
    [[nodiscard]] bool isNull(QStringView name) const;
    /// The value as text, empty for Null.
    [[nodiscard]] QString text(QStringView name) const;
    /// The value as a whole number, 0 for Null; a text that is no number raises a type mismatch.
    [[nodiscard]] qint64 integer(QStringView name) const;
    /// The value as a number, 0 for Null.
    [[nodiscard]] double real(QStringView name) const;
    /// The value as a date, the zero date (invalid) for Null.
    [[nodiscard]] QDateTime date(QStringView name) const;
    /// True when the value is a number other than 0.
    [[nodiscard]] bool flag(QStringView name) const;
    [[nodiscard]] int index() const { return m_index; }

private:
    friend class Recordset;
    Row(std::shared_ptr<const RowData> data, int index);
    [[nodiscard]] int column(QStringView name) const;

    std::shared_ptr<const RowData> m_data;
    int m_index;
};

/// A client-side snapshot of a query's rows, fetched at once. Copies share the rows and have a
/// position of their own. Iterate it, or move through it as through a cursor.
///
///     for (const db::Row row : gcnData->Open("Select PartID, Price from tblPart"))
///         total += row.real(u"Price");
class Recordset
{
public:
    /// No columns and no rows.
    Recordset();
    explicit Recordset(std::shared_ptr<const RowData> data);

    [[nodiscard]] int RecordCount() const;
    [[nodiscard]] bool isEmpty() const { return RecordCount() == 0; }

    /// The columns in the order of the statement, counted from 0; a number beyond them raises
    /// NoSuchItem.
    [[nodiscard]] int columnCount() const;
    [[nodiscard]] QString columnName(int column) const;
    /// The first column of that name in any case, -1 when there is none.
    [[nodiscard]] int columnIndex(QStringView name) const;
    [[nodiscard]] sql::ColumnKind columnKind(int column) const;

    /// The value at a place, an invalid QVariant for Null.
    [[nodiscard]] QVariant value(int row, int column) const;
    [[nodiscard]] bool isNull(int row, int column) const;
    /// The texts of a column as UTF-8, empty for Null; nothing when it isn't one of texts. For
    /// going through many rows.
    [[nodiscard]] std::optional<std::string_view> utf8(int row, int column) const;
    /// The row of a number from 0; raises base::Error NoCurrentRow when there is none.
    [[nodiscard]] Row row(int index) const;

    // The cursor. A recordset opens on its first row; beyond the last row IsEOF is true, before
    // the first IsBOF, and an empty one is both.
    void MoveFirst() { m_position = 0; }
    void MoveLast() { m_position = RecordCount() - 1; }
    /// One step beyond the rows is a move too; from there they raise base::Error NoCurrentRow.
    /// MoveTo takes any number, and whether a row is there shows only in current().
    void MoveNext();
    void MovePrevious();
    void MoveTo(int row) { m_position = row; }
    /// Where the cursor stands, counted from 0; IsEOF behind the last row, IsBOF before the first.
    /// Both are true without rows.
    [[nodiscard]] int Position() const { return m_position; }
    [[nodiscard]] bool IsEOF() const { return m_position >= RecordCount(); }
    [[nodiscard]] bool IsBOF() const { return m_position < 0 || RecordCount() == 0; }
    /// The row at the cursor; raises base::Error NoCurrentRow when there is none.
    [[nodiscard]] Row current() const;
    /// A value of the row at the cursor.
    [[nodiscard]] QVariant operator[](QStringView name) const { return current()[name]; }

    /// Moves to the first row, from the given one on, that meets a criterion of one comparison:
    /// "[Unit No] like 'a*'", "EquipmentID = '5'", "Price >= 3", "Installed = #03-15-2024#"; text
    /// without regard to case. True when one is found; otherwise the cursor stands at the end.
    bool Find(QStringView criterion, int from = 0);

    /// A copy on its first row.
    [[nodiscard]] Recordset Clone() const;
    /// A copy without the rows whose key, a column of whole numbers, is one of these; on its first
    /// row. Costs the same however many keys there are, where the engine would compare each row
    /// with one after the other. Raises base::Error NoSuchItem for an unknown column.
    [[nodiscard]] Recordset without(QStringView column, const QSet<qint64> &keys) const;
    /// The same for a column of texts; case doesn't count, as in a comparison of the dialect.
    [[nodiscard]] Recordset withoutTexts(QStringView column, const QStringList &keys) const;
    /// A copy whose rows go by these columns of whole numbers, the first counting most, Null first;
    /// on its first row. For rows that are too wide for the engine to sort. Raises base::Error
    /// NoSuchItem for an unknown column.
    [[nodiscard]] Recordset orderedBy(const QList<QStringView> &columns) const;

    class Iterator
    {
    public:
        using value_type = Row;
        using difference_type = std::ptrdiff_t;
        Iterator(const Recordset *rows, int index)
            : m_rows(rows)
            , m_index(index)
        {}
        Row operator*() const { return m_rows->row(m_index); }
        Iterator &operator++()
        {
            ++m_index;
            return *this;
        }
        bool operator==(const Iterator &other) const { return m_index == other.m_index; }

    private:
        const Recordset *m_rows;
        int m_index;
    };
    [[nodiscard]] Iterator begin() const { return {this, 0}; }
    [[nodiscard]] Iterator end() const { return {this, RecordCount()}; }

private:
    template<class Keep>
    [[nodiscard]] Recordset only(QStringView column, Keep &&keep) const;

    std::shared_ptr<const RowData> m_data;
    int m_position = 0;
};

} // namespace db
