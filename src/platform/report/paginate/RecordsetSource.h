#pragma once

#include "platform/db/Recordset.h"
#include "platform/report/paginate/DataSource.h"

#include <utility>

namespace report {

/// The rows of a query as a report reads them. Whoever uses it links platform_db.
class RecordsetSource final : public DataSource
{
public:
    explicit RecordsetSource(db::Recordset rows)
        : m_rows(std::move(rows))
    {}

    [[nodiscard]] int rowCount() const override { return m_rows.RecordCount(); }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        return m_rows.columnIndex(name);
    }
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        return m_rows.value(row, field);
    }

private:
    db::Recordset m_rows;
};

} // namespace report
