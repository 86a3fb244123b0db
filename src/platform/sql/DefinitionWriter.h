#pragma once

#include "platform/sql/Tree.h"

#include <QString>
#include <vector>

namespace sql {

/// The engine's statements, in order, for a CREATE, ALTER or DROP. Raises table unknown, value
/// missing (a column) and syntax errors.
[[nodiscard]] std::vector<QString>
definitionStatements(const Definition &definition, QStringView statement, const Schema &schema);

} // namespace sql
