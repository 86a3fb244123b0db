#pragma once

#include "platform/db/Recordset.h"
#include "platform/report/designer/ReportDesigner.h"

#include <optional>

/// Lets the user write an expression of a layout: with an offer of names, the error under the text
/// and the values for the first rows. Nothing when it stays as it was.
[[nodiscard]] std::optional<QString> askExpression(const report::ExpressionQuestion &question,
                                                   const report::Layout &layout,
                                                   const db::Recordset &rows, QWidget *parent);
