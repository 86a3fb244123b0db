#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace company {

/// Comma-separated text with a header line: a field between double quotes may hold commas, line
/// breaks and doubled quotes.
class CsvTable
{
public:
    /// Raises base::Error InvalidCall for an empty text and for a row with too many fields; missing
    /// ones at its end read as empty.
    explicit CsvTable(QStringView text);

    [[nodiscard]] int rowCount() const { return static_cast<int>(m_rows.size()); }
    /// A field; raises base::Error NoSuchItem for a column that the header lacks.
    [[nodiscard]] QString text(int row, const QString &column) const;
    /// A field as a number, 0 when it is empty.
    [[nodiscard]] double number(int row, const QString &column) const;
    [[nodiscard]] int integer(int row, const QString &column) const;

private:
    QHash<QString, int> m_columns;
    std::vector<QStringList> m_rows;
};

/// Cuts comma-separated text into rows of fields; empty lines are left out.
[[nodiscard]] std::vector<QStringList> parseCsv(QStringView text);
/// One line without its end; fields are quoted where they have to be.
[[nodiscard]] QString csvLine(const QStringList &fields);

} // namespace company
