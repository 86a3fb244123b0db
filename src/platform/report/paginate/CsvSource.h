#pragma once

#include "platform/report/paginate/DataSource.h"

#include <QList>
#include <QStringList>

namespace report {

/// Rows from comma-separated values: the first line names the fields. Values in quotes are texts;
/// of the others an empty one is Null, and what reads as a number or a month-first date is one.
class CsvSource final : public DataSource
{
public:
    /// Reads UTF-8, with or without its mark. Lines that are too short end in Nulls.
    explicit CsvSource(const QByteArray &text);

    [[nodiscard]] int rowCount() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] int fieldIndex(const QString &name) const override;
    [[nodiscard]] QVariant value(int row, int field) const override;
    [[nodiscard]] const QStringList &fields() const { return m_fields; }

private:
    QStringList m_fields;
    QList<QVariantList> m_rows;
};

} // namespace report
