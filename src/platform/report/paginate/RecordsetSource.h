#pragma once

#include "platform/db/Recordset.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <QVariant>
#include <vector>

namespace report {

/// A recordset as the rows of a report. Reports group their rows and so need them sorted, which
/// the queries leave open.
class RecordsetSource final : public DataSource
{
public:
    /// Keeps all rows, in their order until sortFor.
    explicit RecordsetSource(db::Recordset rows);

    /// Puts the rows into the order that a layout's groups need, see orderOf.
    void sortFor(const Layout &layout, const Inputs &inputs);
    /// Adds a field that has another one's value in the first of the rows that share a key and
    /// follow each other, and Null in the rest: a row for each part of a service repeats the
    /// service's cost, which must be summed once. Sort first.
    void addOnce(const QString &name, const QString &field, const QString &key);
    /// Adds a field with a value for each row, in the order that the recordset has.
    void addValues(const QString &name, QVariantList values);

    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] int fieldIndex(const QString &name) const override;
    [[nodiscard]] QVariant value(int row, int field) const override;

private:
    struct OnceField
    {
        QString name;
        int field;
        std::vector<bool> shown; ///< by row
    };

    struct AddedField
    {
        QString name;
        QVariantList values; ///< by the recordset's rows
    };

    db::Recordset m_rows;
    std::vector<int> m_order;
    std::vector<OnceField> m_once;
    std::vector<AddedField> m_added;
};

} // namespace report
