#pragma once

#include "platform/db/Recordset.h"
#include "platform/report/designer/Fields.h"
#include "reporting/ReportTables.h"

#include <QList>
#include <QString>

/// The fields that a designer of reports offers.
namespace designfields {

/// The columns that a report's rows have, with the captions of their tables' columns.
[[nodiscard]] QList<report::DesignField> ofRows(const db::Recordset &rows,
                                                const QList<reporttables::Table> &tables);
/// The columns of all tables, which a query doesn't give yet. Their names differ from each other.
[[nodiscard]] QList<report::DesignField> ofTables(const QList<reporttables::Table> &tables);

/// Lets a query give such a field too, under the field's name: its table is joined by the key that
/// the house knows. Why that can't be done comes back in words for the user, empty when it is done.
[[nodiscard]] QString addTo(QString &query, const report::DesignField &field,
                            const QList<reporttables::Table> &tables);

} // namespace designfields
