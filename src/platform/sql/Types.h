#pragma once

#include "platform/sql/Tree.h"

namespace sql {

/// True for the kinds that are calculated with; Yes/No counts as its -1 or 0.
[[nodiscard]] inline bool isNumber(ColumnKind kind)
{
    return kind == ColumnKind::Integer || kind == ColumnKind::Real || kind == ColumnKind::Money ||
           kind == ColumnKind::YesNo;
}

/// The type of an operation by those of its sides; Unknown stands for Null and parameters. Raises a
/// type mismatch where the sides can't meet.
[[nodiscard]] ColumnKind arithmeticType(Operator operation, ColumnKind left, ColumnKind right);

/// The type that holds values of both, as the branches of IIf need it.
[[nodiscard]] ColumnKind commonType(ColumnKind left, ColumnKind right);

/// The types after each operation of a chain, the first operand's first.
[[nodiscard]] std::vector<ColumnKind> chainTypes(const Expression &chain);

} // namespace sql
