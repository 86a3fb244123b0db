#pragma once

#include "platform/sql/Tree.h"

namespace sql {

/// Turns the outer joins of a resolved statement into inner ones wherever a condition that has to
/// hold anyway can't hold for a row in which the missing side is Null. The rows stay the same, but
/// the engine may then begin with either side and use its indexes; it doesn't find this out
/// itself. Subqueries and derived tables included.
void reduceOuterJoins(Statement &statement);

} // namespace sql
