#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "reporting/Catalogue.h"

#include <memory>

namespace catalogue {

/// A report that only has to be laid out.
struct Prepared
{
    report::Layout layout;
    std::shared_ptr<report::RecordsetSource> rows;
    report::Inputs inputs;
};

/// What the user has to be asked before a layout of the catalogue is shown: its parameters without
/// those that prepare() answers by itself.
[[nodiscard]] QList<report::Parameter> parametersToAsk(const report::Layout &layout);

/// Joins a report's rows, as its query gave them, to its layout: in the layout's order, with the
/// fields that are worked out here, the named texts, the paper of this workstation and what the
/// layout reads besides. Data, lookup and a connection that only reads; raises DbError.
[[nodiscard]] Prepared prepare(const Request &asked, report::Layout layout,
                               const db::Recordset &rows);

/// The papers that a workstation can choose from, the usual one first.
[[nodiscard]] QStringList papers();
/// The option that keeps the workstation's choice.
[[nodiscard]] QString paperOption();
/// The layout for another paper of about its size: what is printed keeps its place and width, the
/// margins beside it change.
void changePaper(report::Layout &layout, const QString &paper);

} // namespace catalogue
